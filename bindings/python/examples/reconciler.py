#!/usr/bin/python3
"""Brings a host to the state that a file describes, and keeps at it whatever fails meanwhile.

    reconciler FILE

A line of FILE is one of

    lif INSTANCE LIF ADDRESS/LENGTH MAC
    route INSTANCE PREFIX GATEWAY
    bridge BRIDGE

Instances are created, and LIFs enabled. Each instance has a thread of its own, the bridges have another. A thread
compares what is there with what should be, changes what differs, and begins again until nothing does: what a failed
call has left behind, or someone else has undone, is found by the next comparison. LIFs that are not described are
removed, and so are routes that this program has made, which it knows by their mark.

Exits 0 when all is as described, 1 if that was not so after 1000 attempts, 2 on wrong usage.
"""

import sys
import threading
import time
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass, field
from functools import partial
from ipaddress import IPv4Address, IPv4Interface
from typing import Callable, Dict, Iterable, List, Set, Tuple

import lumozeph

# The routes of this program.
MARK = 4711

Lif = Tuple[IPv4Interface, str, bool]  # with its MAC address, and whether it is enabled
Route = Tuple[IPv4Interface, IPv4Address]  # with its gateway


@dataclass
class Instance:
    lifs: Dict[str, Lif] = field(default_factory=dict)
    routes: Set[Route] = field(default_factory=set)


@dataclass
class State:
    instances: Dict[str, Instance] = field(default_factory=dict)
    bridges: Set[str] = field(default_factory=set)


def read(lines: Iterable[str]) -> State:
    state = State()
    for line in lines:
        words = line.split()
        if not words:
            continue
        kind, *rest = words
        if kind == "lif" and len(rest) == 4:
            instance, lif, address, mac = rest
            state.instances.setdefault(instance, Instance()).lifs[lif] = IPv4Interface(address), mac.lower(), True
        elif kind == "route" and len(rest) == 3:
            instance, prefix, gateway = rest
            route = IPv4Interface(prefix), IPv4Address(gateway)
            state.instances.setdefault(instance, Instance()).routes.add(route)
        elif kind == "bridge" and len(rest) == 1:
            state.bridges.add(rest[0])
        else:
            raise ValueError(f"not understood: {line.rstrip()}")
    return state


def present(name: str) -> Instance:
    instance = Instance()
    for lif in lumozeph.get_lifs(name):
        # The first of the module's flags says that the LIF is enabled.
        enabled = lif.lifFlags[0] != 0
        instance.lifs[lif.lifName] = IPv4Interface(f"{lif.ipAddr}/{lif.ipMask}"), lif.lifMac, enabled
    for route in lumozeph.get_routes(name):
        if route.routeValue1 == MARK:
            prefix = IPv4Interface(f"{route.routeDest}/{route.routeMask}")
            instance.routes |= {(prefix, hop.nextHopAddr) for hop in route.nextHops}
    return instance


def reconcile(name: str, desired: Instance) -> int:
    """How many changes it took."""
    changes = 0
    if name not in [one.instanceKey for one in lumozeph.get_instances()]:
        lumozeph.set_lumo_instance(name)
        changes += 1
    now = present(name)
    for lif in sorted(now.lifs.keys() - desired.lifs.keys()):
        lumozeph.del_lif(lif, "", name)
        changes += 1
    for lif, should in sorted(desired.lifs.items()):
        if now.lifs.get(lif) != should:
            address, mac, _ = should
            lumozeph.set_lif(lif, "", address.ip, address.netmask, diAddress="0.0.0.0", instance=name, mac=mac)
            lumozeph.enable_lif(name, lif)
            changes += 1
    for dest, gateway in sorted(now.routes - desired.routes):
        lumozeph.del_route(dest.ip, dest.netmask, gateway, instance=name)
        changes += 1
    for dest, gateway in sorted(desired.routes - now.routes):
        lumozeph.set_route(dest.ip, dest.netmask, gateway, instance=name, param=MARK)
        changes += 1
    return changes


def reconcile_bridges(desired: Set[str]) -> int:
    missing = desired - {bridge.name for bridge in lumozeph.get_bridge_instances()}
    for bridge in sorted(missing):
        lumozeph.bridge_add(bridge, 0)
    return len(missing)


_speaking = threading.Lock()


def say(line: str) -> None:
    """Lines of several threads do not mix."""
    with _speaking:
        print(f"reconciler: {line}", file=sys.stderr)


def keep_at(what: str, work: Callable[[], int]) -> bool:
    """Until there is nothing to change. Whether that was reached."""
    for _ in range(1000):
        try:
            if work() == 0:
                return True
        except lumozeph.Error as error:
            say(f"{what}: {error}")
            time.sleep(0.001)
    return False


def reconcile_all(state: State) -> bool:
    with ThreadPoolExecutor(max_workers=len(state.instances) + 1) as threads:
        working = [
            threads.submit(keep_at, f"instance {name}", partial(reconcile, name, instance))
            for name, instance in state.instances.items()
        ]
        working.append(threads.submit(keep_at, "bridges", partial(reconcile_bridges, state.bridges)))
        return all([one.result() for one in working])


def main(arguments: List[str]) -> int:
    if len(arguments) != 1:
        print("usage: reconciler FILE", file=sys.stderr)
        return 2
    try:
        with open(arguments[0], encoding="utf-8") as file:
            state = read(file)
    except OSError as error:
        say(f"{arguments[0]}: {error.strerror}")
        return 2
    except ValueError as error:
        say(str(error))
        return 2
    return 0 if reconcile_all(state) else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
