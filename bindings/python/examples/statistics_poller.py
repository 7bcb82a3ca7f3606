#!/usr/bin/python3
"""Shows by how much the counters of the logical interfaces (LIFs) of an instance grow.

    statistics_poller INSTANCE MILLISECONDS COUNT

Reads them COUNT times, every so many milliseconds, and prints what has changed since the last time. A LIF that cannot
be read is told and tried again. Exits 0 if every LIF was read in the end, 1 if not, 2 on wrong usage.
"""

import sys
import time
from typing import Dict, List, Tuple

import lumozeph

Counters = Tuple[int, ...]


def tell_growth(lif: str, before: Counters, now: Counters) -> None:
    for index, (old, new) in enumerate(zip(before, now)):
        if new != old:
            # A counter that is less than before has been zeroed in between.
            print(f"{lif}: counter {index} +{new - old if new > old else new}")


class Poller:
    def __init__(self, instance: str) -> None:
        self.instance = instance
        self.known: Dict[str, Counters] = {}

    def poll(self) -> bool:
        """Whether all could be read."""
        try:
            lifs = lumozeph.get_lifs(self.instance)
        except lumozeph.Error as error:
            return self.failed("the list", error)
        complete = True
        for lif in lifs:
            complete = self.poll_lif(lif.lifName) and complete
        print(f"{len(lifs)} interfaces", flush=True)
        return complete

    def poll_lif(self, lif: str) -> bool:
        try:
            now = lumozeph.get_lif_stats(self.instance, lif).counters
        except lumozeph.Error as error:
            return self.failed(lif, error)
        tell_growth(lif, self.known.get(lif, now), now)
        self.known[lif] = now
        return True

    @staticmethod
    def failed(what: str, error: lumozeph.Error) -> bool:
        print(f"statistics_poller: {what}: {error.strerror}", file=sys.stderr)
        return False


def main(arguments: List[str]) -> int:
    if len(arguments) != 3 or not all(one.isdigit() and int(one) > 0 for one in arguments[1:]):
        print("usage: statistics_poller INSTANCE MILLISECONDS COUNT", file=sys.stderr)
        return 2
    poller = Poller(arguments[0])
    interval = int(arguments[1]) / 1000
    complete = False
    following = time.monotonic()
    for _ in range(int(arguments[2])):
        time.sleep(max(0, following - time.monotonic()))
        following += interval
        complete = poller.poll()
    return 0 if complete else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
