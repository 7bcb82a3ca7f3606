#!/usr/bin/python3
"""Measures ordinary work in standing worlds beside the same outside, in turns.

usage: bench/ordinary_work.py EMULATOR [ROUNDS]

Prints, as JSON, for each piece of work the median of its time outside in seconds, and for each kind of world the median
of the quotients of pairs.
"""

import json
import shutil
import statistics
import subprocess
import sys
import tempfile

WORK = {
    "git status": "git -C {tree} status --porcelain",
    "grep -r": "grep -rc lumozeph {tree}",
    "find": "find {tree} -newer {tree}/README.md",
    "tar": "tar -cf - -C {tree} . | cat",
    "compile": "gcc -O1 -c -o /dev/null {tree}/probe.c",
}

# Runs a line of shell for each line that it reads, and says how long it took.
WORKER = """
import subprocess, sys, time
for line in sys.stdin:
    begin = time.monotonic()
    subprocess.run(["/bin/sh", "-c", line], stdout=subprocess.DEVNULL, check=False)
    print(time.monotonic() - begin, flush=True)
"""


class Worker:
    """Does work, in whatever surroundings its process was started."""

    def __init__(self, *surroundings):
        self.process = subprocess.Popen(
            [*surroundings, sys.executable, "-c", WORKER], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True
        )

    def time(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        return float(self.process.stdout.readline())

    def end(self):
        self.process.stdin.close()
        self.process.wait()


WORLDS = {
    "namespaces": ("--mode", "namespaces"),
    "injection": ("--mode", "injection"),
    "opens": ("--opens", "--trace", "/dev/null"),
}


def compare(line, outside, worlds, rounds):
    times, quotients = [], {name: [] for name in worlds}
    for number in range(rounds + 1):
        for name, world in worlds.items():
            # Each goes first as often as the other.
            if number % 2:
                without, within = outside.time(line), world.time(line)
            else:
                within, without = world.time(line), outside.time(line)
            # The first round fills caches.
            if number > 0:
                times.append(without)
                quotients[name].append(within / without)
    return {"outside": statistics.median(times)} | {name: statistics.median(all) for name, all in quotients.items()}


def main():
    emulator = sys.argv[1]
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 31
    tree = tempfile.mkdtemp()
    try:
        subprocess.run(["git", "clone", "-q", ".", tree], check=True)
        with open(f"{tree}/probe.c", "w", encoding="ascii") as probe:
            probe.write('#include <stdio.h>\n#include <stdlib.h>\nint main(void) { return puts(""); }\n')
        outside = Worker()
        worlds = {name: Worker(emulator, "run", *options, "--") for name, options in WORLDS.items()}
        results = {name: compare(line.format(tree=tree), outside, worlds, rounds) for name, line in WORK.items()}
        print(json.dumps(results, indent=2))
        for worker in (outside, *worlds.values()):
            worker.end()
    finally:
        shutil.rmtree(tree)


if __name__ == "__main__":
    main()
