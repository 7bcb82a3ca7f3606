#!/usr/bin/python3
"""Measures ordinary work in a standing world beside the same outside, in turns.

usage: bench/ordinary_work.py EMULATOR [ROUNDS]

Prints, for each piece of work, the medians of its time outside and in the world, and the median of the quotients of pairs.
"""

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


def main():
    emulator = sys.argv[1]
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 31
    tree = tempfile.mkdtemp()
    try:
        subprocess.run(["git", "clone", "-q", ".", tree], check=True)
        with open(f"{tree}/probe.c", "w", encoding="ascii") as probe:
            probe.write("#include <stdio.h>\n#include <stdlib.h>\n#include <string.h>\nint main(void) { return puts(\"\"); }\n")
        outside, inside = Worker(), Worker(emulator, "run", "--")
        print("| work | outside | in a world | of pairs |\n|---|--:|--:|--:|")
        for name, line in WORK.items():
            line = line.format(tree=tree)
            outside.time(line), inside.time(line)
            pairs = [(outside.time(line), inside.time(line)) for _ in range(rounds)]
            quotient = statistics.median(within / without for without, within in pairs)
            without, within = (statistics.median(column) * 1000 for column in zip(*pairs))
            print(f"| {name} | {without:.1f} ms | {within:.1f} ms | {quotient:.2f} |")
        outside.end()
        inside.end()
    finally:
        shutil.rmtree(tree)


if __name__ == "__main__":
    main()
