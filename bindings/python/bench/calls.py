"""Calls of the package beside the same calls in C, without a kernel's time. A list is one of 10,000 LIFs.

usage: calls.py LIBRARY      (that of in_c.cpp, which is preloaded)

Prints medians in the form of the other benchmarks.
"""

import ctypes
import json
import os
import statistics
import sys
import time
from ipaddress import IPv4Address
from itertools import repeat

INSTANCE = "0000002a-51b3-4f0e-9c1d-00005e00532a"
LIF = "lif-0000-17"
NUMBERS = ("ipAddr", "ipMask", "diIp", "lifValue1", "lifValue2", "lifValue3")
NUMBERS += ("ipv6Count", "lifState1", "lifState2", "lifValue4")
TURNS = 1001
TURN = 200e-6  # seconds of Python: shorter than what a scheduler gives


def kinds():
    # All of it, while files can be opened.
    import lumozeph
    import numpy.core  # noqa: F401

    network, mask, gateway = IPv4Address("192.0.2.0"), IPv4Address("255.255.255.0"), IPv4Address("198.51.100.1")

    def sum_columns():
        lifs = lumozeph.get_lifs(INSTANCE).as_array()
        return sum(int(lifs[name].sum(dtype="u8")) for name in NUMBERS)

    return {
        "set": lambda: lumozeph.set_log_level(7),
        "set-with-texts": lambda: lumozeph.set_route(network, mask, gateway, lif=LIF, instance=INSTANCE, param=1),
        "get-value": lumozeph.get_log_level,
        "get-record": lambda: lumozeph.get_lif(INSTANCE, LIF),
        "get-raw": lumozeph.get_locale_id,
        "get-list-and-sum-columns": sum_columns,
    }


def seconds(work, calls):
    """Of one call, out of so many."""
    begin = time.perf_counter()
    for _ in repeat(None, calls):
        work()
    return (time.perf_counter() - begin) / calls


def measured(in_c, name, work):
    """Turns of Python and of C, so that what disturbs one disturbs the other, too."""
    in_c.calls_answer(name.encode())
    try:
        work()
        calls = max(1, int(TURN / seconds(work, 3)))
        turns = [(seconds(work, calls), in_c.calls_in_c(name.encode(), calls)) for _ in range(TURNS)]
    finally:
        in_c.calls_end()
    return {
        "name": f"python/{name}",
        "library_ns": 1e9 * statistics.median(python for python, _ in turns),
        "limit_ns": 1e9 * statistics.median(c for _, c in turns),
        "ratio": statistics.median(python / c for python, c in turns),
    }


def main():
    library = sys.argv[1]
    if os.environ.get("LD_PRELOAD") != library:
        os.execve(sys.executable, [sys.executable, *sys.argv], {**os.environ, "LD_PRELOAD": library})
    in_c = ctypes.CDLL(library)
    in_c.calls_in_c.restype = ctypes.c_double
    json.dump({"benchmarks": [measured(in_c, name, work) for name, work in kinds().items()]}, sys.stdout, indent=1)


main()
