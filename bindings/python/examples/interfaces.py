#!/usr/bin/python3
"""Lists the logical interfaces (LIFs) of router instances with their addresses.

    interfaces [INSTANCE...]

Without an argument, those of all instances. Exits 0 on success, 1 when something fails.
"""

import os
import sys
from ipaddress import IPv4Interface
from typing import List

import lumozeph


def described(lif: lumozeph.LifInfo) -> str:
    words = [lif.lifName, lif.lifMac]
    if int(lif.ipAddr) != 0:
        words.append(str(IPv4Interface(f"{lif.ipAddr}/{lif.ipMask}")))
    words += [f"{one.address}/{one.prefixLen}" for one in lif.ipv6Addrs]
    return " ".join(words)


def show(instance: str) -> None:
    print(instance, flush=True)
    routed = lumozeph.get_lifs(instance)
    bridged = lumozeph.get_bridge_lifs(instance)
    for lif in [*routed, *bridged]:
        print(f"  {described(lif)}")
    if routed.truncated or bridged.truncated:
        print("  and perhaps more")


def main(arguments: List[str]) -> int:
    try:
        for instance in arguments or [one.instanceKey for one in lumozeph.get_instances()]:
            show(instance)
        sys.stdout.flush()
    except lumozeph.Error as error:
        print(f"interfaces: {error}", file=sys.stderr)
        return 1
    except OSError as error:
        print(f"interfaces: standard output: {error.strerror}", file=sys.stderr)
        # What is still to be written would fail once more at the end.
        os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
