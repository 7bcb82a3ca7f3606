#!/usr/bin/python3
"""Measures lumozephctl beside what it stands on, in one world and in turns.

usage: bench/tool.py EMULATOR LUMOZEPHCTL TOOL_CALLS [ROUNDS]

TOOL_CALLS makes the same calls and prints nothing. Prints, as JSON, for each piece of work the median times in seconds: of
the tool, of the calls, and of cat with the bytes that the tool prints.
"""

import json
import os
import statistics
import subprocess
import sys
import tempfile
import time

ROUTES = 8000
ADDED = 1000

# With as many routes as an instance has at most, the network of its LIF among them, and as many BFD sessions as there can be.
WORLD = {
    "instances": {
        "x": {
            "lifs": {"x": {"address": "10.0.0.2/24", "enabled": True}},
            "routes": {"172.16.0.0/24{+256*%d}" % (ROUTES - 1): {"nextHops": {"10.0.0.1 x": {}}}},
        },
        "y": {"lifs": {"x": {"address": "10.0.0.2/24", "enabled": True}}},
    },
    "bfdSessions": {"all": {"key": "x", "count": 2867200}},
}


def took(words, printed=subprocess.DEVNULL):
    begin = time.monotonic()
    ended = subprocess.run(words, stdin=subprocess.DEVNULL, stdout=printed, check=False)
    time_taken = time.monotonic() - begin
    if ended.returncode != 0:
        sys.exit(f"{' '.join(words)}: {ended.returncode}")
    return time_taken


def compare(rounds, tool, calls, folder, before=None):
    """Of each, the median."""
    printed = os.path.join(folder, "printed")
    with open(printed, "wb") as file:
        if before:
            took(before)
        took(tool, file)
    times = {"tool": [], "calls": [], "cat": []}
    for _ in range(rounds):
        for name, words in (("tool", tool), ("calls", calls), ("cat", ["cat", printed])):
            if before and name != "cat":
                took(before)
            times[name].append(took(words))
    return {name: statistics.median(all) for name, all in times.items()}


def measure(tool, calls, rounds):
    """Inside the world."""
    with tempfile.TemporaryDirectory() as folder:
        without, wanted = os.path.join(folder, "without"), os.path.join(folder, "wanted")
        took([tool, "save", "--instance", "y", without])
        took([calls, "add", str(ADDED)])
        took([tool, "save", "--instance", "y", wanted])
        back = [tool, "apply", "--yes", without]
        return {
            "start": compare(rounds, [tool, "--version"], [calls], folder),
            f"{ROUTES} routes": compare(rounds, [tool, "route", "list", "x"], [calls, "routes"], folder),
            "2867200 BFD sessions": compare(3, [tool, "bfd", "list", "x"], [calls, "sessions"], folder),
            f"apply, {ADDED} routes": compare(
                3, [tool, "apply", "--yes", wanted], [calls, "add", str(ADDED)], folder, before=back
            ),
        }


def main():
    emulator, tool, calls = (os.path.abspath(program) for program in sys.argv[1:4])
    rounds = sys.argv[4] if len(sys.argv) > 4 else "31"
    with tempfile.NamedTemporaryFile("w", suffix=".json") as world:
        json.dump(WORLD, world)
        world.flush()
        ended = subprocess.run(
            [emulator, "run", "--load", world.name, "--", sys.executable, "-B", __file__, "--inside", tool, calls, rounds],
            check=False,
        )
    sys.exit(ended.returncode)


if __name__ == "__main__":
    if sys.argv[1] == "--inside":
        print(json.dumps(measure(sys.argv[2], sys.argv[3], int(sys.argv[4])), indent=2))
    else:
        main()
