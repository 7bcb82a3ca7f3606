"""Brings ten hosts to a state and has three of them fail, by Ansible, and watches them, by Prometheus.

usage: run.py EMULATOR LUMOZEPHCTL SHARE DOCUMENT
"""

import json
import subprocess
import sys
import unittest
from pathlib import Path

from box import Box, until

EMULATOR, TOOL, SHARE, DOCUMENT = sys.argv[1:]
HOSTS = 10

# What an attempt to change all hosts meets, and what comes of it.
FULL, GONE, HUNG = "host03", "host05", "host08"
FAULTS = {FULL: "SetRoute=ENOSPC", GONE: "any=ENODEV", HUNG: "any=hang"}
CHANGE = ("-e", json.dumps({"mtu": 9000, "gateway": "10.0.0.253"}))

COUNTER = 'lumozeph_lif_events_total{exported_instance="blue",lif="uplink",counter="3"}'


def hosts_with(results, **members):
    return {host for host, one in results.items() if all(one.get(name) == value for name, value in members.items())}


def state_of(box, host):
    return json.loads(box.on(host, "lumozephctl", "-j", "save", "-"))


class Fleet(unittest.TestCase):
    def setUp(self):
        self.box = self.enterContext(Box(HOSTS, EMULATOR, TOOL, SHARE, DOCUMENT))
        self.all = set(self.box.hosts)

    def test_is_brought_to_a_state_and_watched(self):
        self.is_foreseen_and_done()
        self.differences_are_brought_back()
        self.counters_are_seen_to_move()
        self.hosts_fail()
        self.hosts_are_well_again()

    def is_foreseen_and_done(self):
        box = self.box
        before = state_of(box, "host01")
        foreseen = box.play("--check", "--diff")
        self.assertEqual(hosts_with(foreseen, changed=True), self.all)
        for host, one in foreseen.items():
            self.assertEqual(one["diff"][0]["before"], {})
            address = one["diff"][0]["after"]["instances"]["blue"]["lifs"]["uplink"]["address"]
            self.assertEqual(address, f"10.0.0.{int(host[4:])}")
        self.assertEqual(state_of(box, "host01"), before)
        self.assertFalse(Path(box.folder, "host01", "state.json").exists())

        done = box.play()
        self.assertEqual(hosts_with(done, changed=True), self.all)
        for host in self.all:
            self.assertNotIn("diff", done[host])
            self.assertEqual(done[host]["commands"], foreseen[host]["commands"])
            self.assertEqual(box.on(host, "lumozephctl", "diff", f"{host}/state.json"), "")

        self.assertEqual(hosts_with(box.play(), changed=False, commands=[]), self.all)

    def differences_are_brought_back(self):
        box = self.box
        box.on("host02", "lumozephctl", "lif", "set", "blue", "uplink", "mtu", "1500")
        Path(box.folder, "host04", "state.json").unlink()
        results = box.play("--diff")
        self.assertEqual(hosts_with(results, changed=True), {"host02", "host04"})
        self.assertEqual(results["host04"]["commands"], [])
        mtu = {"instances": {"blue": {"lifs": {"uplink": {"mtu": 1500}}}}}
        self.assertEqual(results["host02"]["diff"][0]["before"], mtu)

    def counters_are_seen_to_move(self):
        box = self.box
        for number, host in enumerate(box.hosts, 1):
            uplink = {"statistics": {"3": {"rate": 1000 * number}}}
            Path(box.folder, "traffic").write_text(json.dumps({"instances": {"blue": {"lifs": {"uplink": uplink}}}}))
            box.world(host, "merge", "traffic")
        box.write_metrics(box.hosts)
        box.export()
        box.scrape()
        box.wait_for_scrapes()
        self.assertEqual(set(box.query("lumozeph_up == 1")), self.all)
        self.assertEqual(set(box.query("lumozeph_state_differences == 0")), self.all)
        first = box.query(COUNTER)
        self.assertEqual(set(first), self.all)
        for host in self.all:
            box.world(host, "advance", "60")
        box.write_metrics(box.hosts)
        box.wait_for_scrapes()
        for number, host in enumerate(box.hosts, 1):
            self.assertGreaterEqual(box.query(COUNTER)[host] - first[host], 60 * 1000 * number, host)

    def hosts_fail(self):
        box = self.box
        for host, fault in FAULTS.items():
            box.world(host, "fault", "add", fault)
        results = box.play(*CHANGE)
        self.assertEqual(hosts_with(results, outcome="failed"), set(FAULTS))
        self.assertEqual(hosts_with(results, outcome="ok", changed=True), self.all - set(FAULTS))
        full = results[FULL]
        self.assertEqual((full["error"]["operation"], full["error"]["errno"]), ("SetRoute", "ENOSPC"))
        self.assertEqual(len(full["done"]), 1)
        self.assertIn("SetRoute dest=0.0.0.0", full["not_done"][0])
        self.assertEqual(full["not_rolled_back"], [])
        self.assertEqual(state_of(box, FULL)["instances"]["blue"]["lifs"]["uplink"]["mtu"], 1400)
        self.assertEqual(results[GONE]["error"]["errno"], "ENODEV")
        self.assertEqual(results[HUNG]["error"]["errno"], "ETIMEDOUT")
        self.assertIn("no answer within 2 seconds", results[HUNG]["error"]["error"])

        box.write_metrics(box.hosts)
        box.wait_for_scrapes()
        self.assertEqual(set(box.query("lumozeph_up == 0")), {GONE})
        self.assertEqual(set(box.query("lumozeph_state_differences > 0")), {FULL})
        written = box.query("node_textfile_mtime_seconds")
        self.assertEqual(min(written, key=written.get), HUNG)
        until(lambda: set(box.query('ALERTS{alertname="LumozephDown"}')) == {GONE}, "an alert")
        until(lambda: set(box.query('ALERTS{alertname="LumozephStateDiffers"}')) == {FULL}, "an alert")

    def hosts_are_well_again(self):
        box = self.box
        for host in FAULTS:
            box.world(host, "fault", "clear")
        self.assertEqual(hosts_with(box.play(*CHANGE), changed=True), set(FAULTS))
        box.write_metrics(box.hosts)
        box.wait_for_scrapes()
        self.assertEqual(set(box.query("lumozeph_state_differences == 0 and lumozeph_up == 1")), self.all)
        until(lambda: box.query("ALERTS") == {}, "no alerts")


class Module(unittest.TestCase):
    def setUp(self):
        self.box = self.enterContext(Box(1, EMULATOR, TOOL, SHARE, DOCUMENT))

    def ask(self, **parameters):
        return self.box.ask("host01", **parameters)

    def control(self, *words):
        return self.box.on("host01", "lumozephctl", *words)

    def test_says_what_is_wrong(self):
        wrong = {"instances": {"blue": {"lifs": {"eth0": {"mtu": "1400"}}}}}
        self.assertIn("expected a number, found a text", self.ask(state=wrong)["msg"])
        self.assertIn("cannot read nothing.json", self.ask(src="nothing.json")["msg"])
        self.assertIn("one of the following is required: state, src", self.ask()["msg"])
        self.assertIn("mutually exclusive: src|dest", self.ask(src="a", dest="b")["msg"])
        self.assertIn("/true exits with 0 and says nothing", self.ask(src="any", executable="true")["msg"])
        self.assertIn("no-such-tool", self.ask(state={}, executable="no-such-tool")["msg"])

    def test_takes_a_file_of_the_host(self):
        self.control("instance", "set", "blue")
        self.control("save", "saved.json")
        self.assertFalse(self.ask(src="saved.json")["changed"])
        self.control("instance", "delete", "blue")
        result = self.ask(src="saved.json")
        self.assertTrue(result["changed"])
        self.assertEqual(result["not_settable"], [])
        self.assertTrue(self.ask(state={"instances": {}})["changed"])
        self.assertEqual(self.control("-j", "instance", "list"), "[]\n")

    def test_leaves_other_instances_alone(self):
        for name in ("blue", "green"):
            result = self.ask(instance=name, state={"instances": {name: {}}})
            self.assertEqual(
                result["commands"], [f"lumozephctl call SetLumoInstance instance={name} value1=0 value2=0"]
            )
        self.assertTrue(self.ask(instance="green", state={"instances": {}})["changed"])
        self.assertEqual(list(state_of(self.box, "host01")["instances"]), ["blue"])

    def test_says_what_was_done_before_an_error(self):
        wanted = {"instances": {"blue": {"lifs": {"eth0": {}}}}}
        self.box.world("host01", "fault", "add", "SetLif=ENOSPC")
        result = self.ask(state=wanted, dest="state.json")
        self.assertTrue(result["failed"] and result["changed"])
        self.assertEqual(len(result["done"]), 1)
        self.assertNotIn("not_rolled_back", result)
        result = self.ask(state=wanted, dest="state.json", rollback=True)
        self.assertEqual((result["changed"], result["done"], result["losses"]), (False, [], []))
        # It is what the host is to be.
        self.assertEqual(json.loads((self.box.folder / "state.json").read_text())["instances"], wanted["instances"])

    def test_says_what_rolling_back_loses(self):
        for name in ("e1", "e2"):
            self.control("endpoint", "add", name)
        self.box.world("host01", "fault", "add", "DelBridgeEndpoint#2=EBUSY")
        result = self.ask(state={"endpoints": {}}, rollback=True)
        self.assertEqual((result["changed"], result["not_rolled_back"], len(result["losses"])), (True, [], 1))


class Documentation(unittest.TestCase):
    def test_is_documented(self):
        command = ("ansible-doc", "--json", "-t", "module", "-M", SHARE, "lumozeph_state")
        printed = subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout
        documented = json.loads(printed)["lumozeph_state"]["doc"]["options"]
        sys.path.insert(0, SHARE)
        from lumozeph_state import ARGUMENTS

        def essence(options):
            return {
                name: (one["type"], one.get("default"), one.get("choices"), one.get("required", False))
                for name, one in options.items()
            }

        self.assertEqual(essence(documented), essence(ARGUMENTS))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
