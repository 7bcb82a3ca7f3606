#!/usr/bin/python3
"""Lists the routes of a router instance, IPv4 and IPv6, adds and deletes them, and asks which one a destination takes.

    route_manager INSTANCE list | get ADDRESS | add|delete PREFIX GATEWAY [LIF]

PREFIX is ADDRESS/LENGTH. Exits 0 on success, 1 when something fails, 2 on wrong usage.
"""

import sys
from ipaddress import IPv4Interface, IPv6Interface, ip_interface
from typing import List, Optional, Union

import lumozeph


def show(route: lumozeph.RouteInfo) -> None:
    words = [str(IPv4Interface(f"{route.routeDest}/{route.routeMask}"))]
    for hop in route.nextHops:
        if int(hop.nextHopAddr) != 0:
            words += ["via", str(hop.nextHopAddr)]
        if hop.nextHopLifName:
            words += ["dev", hop.nextHopLifName]
    print(" ".join(words))


def show_all(instance: str) -> None:
    routes = lumozeph.get_routes(instance)
    for route in routes:
        show(route)
    # What an IPv6 route looks like is the module's.
    print(f"IPv6 routes: {lumozeph.get_routes_v6(instance).reported}")
    if routes.truncated:
        print("and perhaps more")


def parsed(prefix: str) -> Union[IPv4Interface, IPv6Interface]:
    if "/" not in prefix:
        raise ValueError(f"not an address and its prefix length: {prefix}")
    return ip_interface(prefix)


def add(instance: str, prefix: str, gateway: str, lif: Optional[str]) -> None:
    dest = parsed(prefix)
    if isinstance(dest, IPv6Interface):
        lumozeph.set_route_v6(dest.ip, dest.network.prefixlen, gateway, lif=lif, instance=instance)
    else:
        lumozeph.set_route(dest.ip, dest.netmask, gateway, lif=lif, instance=instance)


def delete(instance: str, prefix: str, gateway: str, lif: Optional[str]) -> None:
    dest = parsed(prefix)
    if isinstance(dest, IPv6Interface):
        lumozeph.del_route_v6(dest.ip, dest.network.prefixlen, gateway, lif=lif, instance=instance)
    else:
        lumozeph.del_route(dest.ip, dest.netmask, gateway, lif=lif, instance=instance)


def main(arguments: List[str]) -> int:
    try:
        if len(arguments) == 2 and arguments[1] == "list":
            show_all(arguments[0])
        elif len(arguments) == 3 and arguments[1] == "get":
            show(lumozeph.get_resolve_route(arguments[0], arguments[2], 32))
        elif len(arguments) in (4, 5) and arguments[1] in ("add", "delete"):
            change = add if arguments[1] == "add" else delete
            change(arguments[0], arguments[2], arguments[3], arguments[4] if len(arguments) == 5 else None)
        else:
            usage = "usage: route_manager INSTANCE list | get ADDRESS | add|delete PREFIX GATEWAY [LIF]"
            print(usage, file=sys.stderr)
            return 2
        sys.stdout.flush()
    except ValueError as error:
        print(f"route_manager: {error}", file=sys.stderr)
        return 2
    except OSError as error:
        print(f"route_manager: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
