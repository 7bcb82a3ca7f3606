#!/usr/bin/python3
"""Tells which bridges appear, change and go.

    bridge_monitor MILLISECONDS COUNT

Looks COUNT times, every so many milliseconds; at first, all bridges appear. A look that fails is told and changes
nothing. Exits 0 if the last look succeeded, 1 if not, 2 on wrong usage.
"""

import sys
import time
from typing import Dict, List

import lumozeph

# The records lie in the memory of their list, which stays as long as they do.
Bridges = Dict[str, lumozeph.BridgeInstanceInfo]


def tell_changes(before: Bridges, now: Bridges) -> None:
    for name in sorted(before.keys() - now.keys()):
        print(f"gone: {name}")
    for name in sorted(now):
        if name not in before:
            print(f"new: {name}")
        elif before[name] != now[name]:
            print(f"changed: {name}")
    sys.stdout.flush()


def main(arguments: List[str]) -> int:
    if len(arguments) != 2 or not all(one.isdigit() and int(one) > 0 for one in arguments):
        print("usage: bridge_monitor MILLISECONDS COUNT", file=sys.stderr)
        return 2
    milliseconds, count = map(int, arguments)
    known: Bridges = {}
    succeeded = False
    for look in range(count):
        if look > 0:
            time.sleep(milliseconds / 1000)
        try:
            now = {bridge.name: bridge for bridge in lumozeph.get_bridge_instances()}
        except lumozeph.Error as error:
            print(f"bridge_monitor: {error.strerror}", file=sys.stderr)
            succeeded = False
            continue
        tell_changes(known, now)
        known = now
        succeeded = True
    return 0 if succeeded else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
