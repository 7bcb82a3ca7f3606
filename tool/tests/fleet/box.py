"""A fleet in a box: worlds of the emulator that have names are its hosts.

The inventory and the play are those that docs/fleet.md shows.
"""

import json
import os
import re
import subprocess
import tempfile
import time
import urllib.error
import urllib.parse
import urllib.request
from pathlib import Path

import markdown

HERE = Path(__file__).resolve().parent
PATIENCE = 60
# What whoever is killed leaves ends by itself.
LONGEST = "900"


def until(condition, what):
    """What the condition comes to be, once it is true."""
    end = time.monotonic() + PATIENCE
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > end:
            raise TimeoutError(what)
        time.sleep(0.1)


class Box:
    """Hosts, each with a folder of its own, until the end of the with statement."""

    def __init__(self, count, emulator, tool, share, document):
        self.share = Path(share).resolve()
        width = max(2, len(str(count)))
        self.hosts = [f"host{number:0{width}}" for number in range(1, count + 1)]
        self._folder = tempfile.TemporaryDirectory()
        self.folder = Path(self._folder.name)
        self.services = []
        programs = [str(Path(program).resolve().parent) for program in (emulator, tool)]
        self.environment = os.environ | {
            "PATH": ":".join([*programs, os.environ["PATH"]]),
            "XDG_RUNTIME_DIR": str(self.folder),
            "ANSIBLE_HOME": str(self.folder / "ansible"),
            "ANSIBLE_LIBRARY": str(self.share),
            "ANSIBLE_CALLBACK_PLUGINS": str(HERE / "callbacks"),
            "ANSIBLE_CALLBACKS_ENABLED": "results",
            "ANSIBLE_LOAD_CALLBACK_PLUGINS": "true",
            "RESULTS": str(self.folder / "results"),
            "LC_ALL": "C.UTF-8",
        }
        for block in markdown.read(Path(document)).blocks:
            if block.name:
                text = "\n".join(block.lines) + "\n"
                (self.folder / block.name).write_text(text.replace("[01:10]", f"[{1:0{width}}:{count:0{width}}]"))

    def __enter__(self):
        try:
            for host in self.hosts:
                (self.folder / host).mkdir()
                self._start(host, "lumozeph-emulator", "serve", "--world", host, "--timeout", LONGEST)
            until(lambda: len(self.run("lumozeph-emulator", "list").splitlines()) == len(self.hosts), "worlds")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        # The worlds go last, and what is in them with them.
        for service in reversed(self.services):
            service.terminate()
            service.wait()
        self._folder.cleanup()

    def _start(self, name, *words):
        log = self.folder / f"{name}.log"
        with open(log, "wb") as file:
            self.services.append(
                subprocess.Popen(
                    words, cwd=self.folder, env=self.environment, stdin=subprocess.DEVNULL, stdout=file, stderr=file
                )
            )
        return log

    def attempt(self, *words, input=""):
        return subprocess.run(
            words,
            cwd=self.folder,
            env=self.environment,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            text=True,
            check=False,
            input=input,
        )

    def run(self, *words):
        result = self.attempt(*words)
        if result.returncode != 0:
            raise RuntimeError(f"{' '.join(map(str, words))}: {result.returncode}\n{result.stdout}")
        return result.stdout

    def on(self, host, *words):
        """What the words print on the host."""
        return self.run("lumozeph-emulator", "join", host, "--", *words)

    def world(self, host, *words):
        return self.run("lumozeph-emulator", "world", host, *words)

    def play(self, *options, before=()):
        """What came of the play, by the host."""
        results = self.folder / "results"
        results.write_bytes(b"")
        words = (*before, "ansible-playbook", "site.yml", *options)
        result = self.attempt(*words)
        # 2: hosts have failed.
        if result.returncode not in (0, 2):
            raise RuntimeError(f"{' '.join(words)}: {result.returncode}\n{result.stdout}")
        found = [json.loads(line) for line in results.read_text(encoding="utf-8").splitlines()]
        return {one["host"]: one for one in found}

    def ask(self, host, **parameters):
        """What the module alone answers, run as Ansible runs it."""
        module = ("/usr/bin/python3", "-B", str(self.share / "lumozeph_state.py"))
        arguments = json.dumps({"ANSIBLE_MODULE_ARGS": parameters})
        return json.loads(self.attempt("lumozeph-emulator", "join", host, "--", *module, input=arguments).stdout)

    def write_metrics(self, hosts, *before):
        """As the timer of each host does, with a program before that looks on."""
        words = "lumozephctl metrics --timeout 1 --state state.json --output metrics/lumozeph.prom".split()
        for host in hosts:
            (self.folder / host / "metrics").mkdir(exist_ok=True)
            self.attempt("lumozeph-emulator", "join", host, "--", "env", "-C", host, *before, *words)

    def _address_of(self, log):
        found = until(lambda: re.search(r'Listening on" address=(\S+)', log.read_text(encoding="utf-8")), log)
        return found[1]

    def export(self):
        """Starts the node exporter of each host, and says where Prometheus finds them."""
        logs = {}
        for host in self.hosts:
            exporter = "prometheus-node-exporter --collector.disable-defaults --collector.textfile".split()
            options = (f"--collector.textfile.directory={host}/metrics", "--web.listen-address=127.0.0.1:0")
            join = ("lumozeph-emulator", "join", host, "--")
            logs[host] = self._start(f"{host}.exporter", *join, *exporter, "--web.disable-exporter-metrics", *options)
        self.exporters = {host: self._address_of(log) for host, log in logs.items()}
        targets = [{"targets": [one], "labels": {"instance": host}} for host, one in self.exporters.items()]
        (self.folder / "targets.json").write_text(json.dumps(targets))

    def scrape(self):
        """Starts Prometheus, with the configuration that is installed."""
        text = (self.share / "prometheus-fleet.yml").read_text(encoding="utf-8")
        for theirs, ours in (
            ("/usr/share/lumozeph/monitoring", str(self.share)),
            ("/etc/prometheus/lumozeph/*.json", str(self.folder / "targets.json")),
            ("interval: 30s", "interval: 1s"),
        ):
            assert theirs in text
            text = text.replace(theirs, ours)
        (self.folder / "prometheus.yml").write_text(text)
        self.run("promtool", "check", "config", "prometheus.yml")
        options = ("--config.file=prometheus.yml", "--storage.tsdb.path=tsdb", "--web.listen-address=127.0.0.1:0")
        self.prometheus = self._address_of(self._start("prometheus", "timeout", LONGEST, "prometheus", *options))
        until(self._is_ready, "Prometheus")

    def _is_ready(self):
        try:
            with urllib.request.urlopen(f"http://{self.prometheus}/-/ready", timeout=PATIENCE):
                return True
        except urllib.error.HTTPError:
            return False

    def answer(self, path, **parameters):
        """Of Prometheus's interface."""
        url = f"http://{self.prometheus}/api/v1/{path}?{urllib.parse.urlencode(parameters)}"
        with urllib.request.urlopen(url, timeout=PATIENCE) as answer:
            return json.load(answer)["data"]

    def wait_for_scrapes(self):
        """Until Prometheus has looked at every host once more."""
        now = time.time()
        until(lambda: self.query(f"count(timestamp(up) > {now})") == {"": len(self.hosts)}, "scrapes")

    def query(self, expression):
        """Values by the host."""
        found = self.answer("query", query=expression)["result"]
        return {one["metric"].get("instance", ""): float(one["value"][1]) for one in found}
