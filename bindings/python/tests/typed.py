"""What programs write, for a checker."""

from ipaddress import IPv4Address
from typing import List, Optional

import lumozeph


def names(instance: str) -> List[str]:
    return [lif.lifName for lif in lumozeph.get_lifs(instance)]


def first(instance: str) -> Optional[lumozeph.LifInfo]:
    lifs: lumozeph.RecordList[lumozeph.LifInfo] = lumozeph.get_lifs(instance)
    some: lumozeph.Records[lumozeph.LifInfo] = lifs[:1]
    return some[0] if some and not lifs.truncated else None


def gateways(instance: str) -> List[IPv4Address]:
    return [hop.nextHopAddr for route in lumozeph.get_routes(instance) for hop in route.nextHops]


def add(instance: str, address: IPv4Address) -> bytes:
    answer = lumozeph.CmdResult()
    try:
        lumozeph.set_route("192.0.2.0", 24, address, instance=instance, result=answer)
    except lumozeph.Error as error:
        raise SystemExit(f"{error.operation}: {error.strerror}") from error
    return answer.bytes


def total(instance: str) -> int:
    return int(lumozeph.get_lifs(instance).column("lifValue1").sum())


def made() -> lumozeph.LifInfo:
    lif = lumozeph.LifInfo(lifName="uplink", ipAddr="10.0.0.2")
    lif.lifMac = "02:00:00:00:00:01"
    return lif
