#!/usr/bin/python3
"""Measures what a host of a fleet costs: whoever brings it to a state, whoever watches it, and the host itself.

usage: bench/fleet.py EMULATOR LUMOZEPHCTL SHARE DOCUMENT HOSTS

Measures a fleet of that many hosts in a box, and one of a quarter, and prints what it has found of both as JSON.
"""

import json
import statistics
import sys

from box import Box

TIMED = ("/usr/bin/time", "--append", "--format", "%e,%U,%S,%M", "--output")


def times_in(path):
    """What was measured, which is forgotten then: medians, and the processor time of all."""
    lines = [[float(word) for word in line.split(",")] for line in path.read_text(encoding="ascii").splitlines()]
    path.unlink()
    seconds, user, system, kib = zip(*lines)
    processor = [one + other for one, other in zip(user, system)]
    return {
        "runs": len(lines),
        "seconds": statistics.median(seconds),
        "processor": statistics.median(processor),
        "processor_of_all": sum(processor),
        "bytes": 1024 * max(kib),
    }


def resident(process):
    """The memory of a process and of those that it has started, each page divided among those that share it."""
    with open(f"/proc/{process}/smaps_rollup", encoding="ascii") as file:
        own = next(int(line.split()[1]) for line in file if line.startswith("Pss:"))
    with open(f"/proc/{process}/task/{process}/children", encoding="ascii") as file:
        return 1024 * own + sum(resident(int(child)) for child in file.read().split())


def measured(count, *arguments):
    found = {"hosts": count}
    with Box(count, *arguments) as box:
        found["box"] = {"bytes": sum(resident(world.pid) for world in box.services) / count}
        inventory = box.folder / "inventory.yml"
        times = box.folder / "times"
        own_times = box.folder / "own_times"
        interpreter = "-- /usr/bin/python3"
        text = inventory.read_text(encoding="utf-8")
        assert interpreter in text
        inventory.write_text(
            text.replace(interpreter, f"-- {' '.join(TIMED)} {times} /usr/bin/python3"), encoding="utf-8"
        )

        for name, changes in (("change", True), ("nothing", False)):
            results = box.play(before=(*TIMED, str(own_times)))
            assert len(results) == count and all(one["changed"] == changes for one in results.values())
            found[name] = {"controller": times_in(own_times), "host": times_in(times)}
            # What runs in a world is a child of whoever has joined it, and that of the controller.
            found[name]["controller"]["processor"] -= found[name]["host"]["processor_of_all"]

        box.write_metrics(box.hosts, *TIMED, str(times))
        found["metrics"] = times_in(times)
        found["metrics"]["written"] = (box.folder / box.hosts[0] / "metrics" / "lumozeph.prom").stat().st_size
        box.export()
        box.scrape()
        for _ in range(10):
            box.wait_for_scrapes()
        samples = box.query("scrape_samples_post_metric_relabeling")
        assert set(samples) == set(box.hosts)
        found["prometheus"] = {"bytes": resident(box.services[-1].pid), "series": statistics.median(samples.values())}
    return found


def main():
    *arguments, hosts = sys.argv[1:]
    counts = (int(hosts) // 4, int(hosts))
    print(json.dumps([measured(count, *arguments) for count in counts], indent=2))


if __name__ == "__main__":
    main()
