"""The tables of operations/, as calls of this package. rows.cpp prints them; LUMOZEPH_ROWS is where."""

import ipaddress
import json
import os
from dataclasses import dataclass
from pathlib import Path
from typing import Any, Dict, List

import lumozeph

ROOT = Path(__file__).resolve().parents[3]
DESCRIPTION = json.loads((ROOT / "api" / "lumozeph.json").read_text(encoding="utf-8"))
FUNCTIONS = {function["name"]: function for function in DESCRIPTION["functions"]}
RECORDS = {record["name"]: record for record in DESCRIPTION["records"]}
# In the order of the description, as the package has them.
NAMES = dict(
    zip(
        (
            function["name"]
            for function in DESCRIPTION["functions"]
            if function["operation"] not in ("release", "fill_list", "exchange", "make_key")
        ),
        lumozeph.operations.__all__,
    )
)


@dataclass
class Row:
    """A call of an operation."""

    operation: Dict[str, Any]
    case: Dict[str, Any]

    @property
    def name(self) -> str:
        return NAMES[self.operation["function"]]

    @property
    def shape(self) -> str:
        return self.operation["shape"]

    @property
    def command(self) -> int:
        return self.operation["command"]

    @property
    def function(self) -> Dict[str, Any]:
        return FUNCTIONS[self.operation["function"]]

    @property
    def sent(self) -> bytes:
        """What the module gets. A value is sent by itself."""
        if self.operation["input"] == 0:
            return b""
        if self.shape == "SetValue":
            return self.case["arguments"][0]["value"].to_bytes(4, "little")
        return bytes.fromhex(self.case["sent"])

    @property
    def named(self) -> bytes:
        """The bytes of that which must be so have all bits here."""
        return bytes.fromhex(self.case["named"]) if self.operation["input"] == 776 else b"\xff" * len(self.sent)

    def call(self) -> Any:
        return getattr(lumozeph, self.name)(**self.arguments())

    def arguments(self) -> Dict[str, Any]:
        """The case's arguments as this package wants them."""
        given = dict(zip((one["name"] for one in self.function["parameters"]), self.case["arguments"]))
        arguments: Dict[str, Any] = {}
        for parameter in self.function["parameters"]:
            name, kind = parameter["name"], parameter["kind"]
            argument = given[name]
            if name == self.function.get("answer"):
                arguments[name] = lumozeph.CmdResult()
            elif argument["kind"] == "out" or kind in ("unsent", "count"):
                continue
            elif kind == "ipv6_word":
                address = arguments.setdefault(parameter["address"]["name"], b"")
                arguments[parameter["address"]["name"]] = address + argument["value"].to_bytes(8, "little")
            elif kind == "records":
                content = bytes.fromhex(argument.get("value", ""))
                count = given[parameter["size"]["parameter"]]["value"]
                entry = lumozeph.PolicyTableRefEntry
                arguments[name] = [entry(bytes=content[24 * i : 24 * i + 24]) for i in range(count)]
            else:
                arguments[name] = value_of(parameter, argument)
        words = {one["address"]["name"] for one in self.function["parameters"] if "address" in one}
        return {name: ipaddress.IPv6Address(one) if name in words else one for name, one in arguments.items()}


def value_of(parameter: Dict[str, Any], argument: Dict[str, Any]) -> Any:
    kind = parameter["kind"]
    if argument["kind"] == "null":
        return None
    if argument["kind"] == "text":
        return bytes.fromhex(argument["value"]).decode("utf-8", "surrogateescape")
    if argument["kind"] == "block":
        content = bytes.fromhex(argument["value"])
        if kind == "record":
            return getattr(lumozeph, parameter["type"]["base"][len("Lumo") :]).from_buffer_copy(content)
        return content.hex(":") if kind == "mac" else content
    number: int = argument["value"]
    if kind in ("ipv4", "ipv4_mask"):
        return ipaddress.IPv4Address(number.to_bytes(4, "little"))
    if kind == "switch":
        return number != 0
    return number - 2**64 if number >= 2**63 else number


def all_rows() -> List[Row]:
    """Those of the operations that are here: the lists of workers come from the other form."""
    with open(os.environ["LUMOZEPH_ROWS"], encoding="utf-8") as file:
        operations = json.load(file)
    return [Row(one, case) for one in operations if one["shape"] != "ListWorker" for case in one["cases"]]


ROWS = all_rows()


def name_of(row: Row) -> str:
    return row.case["name"]
