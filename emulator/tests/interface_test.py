"""The description of the wire, as the module sees it, against the description of the public interface, field by field.

The environment names the program that prints the former (PROTOCOL) and the file that holds the latter (INTERFACE).
"""

import json
import os
import re
import subprocess
import unittest
from pathlib import Path

PROTOCOL = json.loads(subprocess.run([os.environ["PROTOCOL"]], capture_output=True, text=True, check=True).stdout)
INTERFACE = json.loads(Path(os.environ["INTERFACE"]).read_text(encoding="utf-8"))

COMMANDS = {command["name"]: command for chapter in PROTOCOL["chapters"] for command in chapter["commands"]}
CHAPTERS = {command["name"]: chapter["name"] for chapter in PROTOCOL["chapters"] for command in chapter["commands"]}
FUNCTIONS = {function["name"].removeprefix("LUMOZEPH_"): function for function in INTERFACE["functions"]}
RECORDS = {record["name"]: record for record in INTERFACE["records"]}
LISTS = {one["name"]: one for part in ("lists", "tables") for one in INTERFACE[part]}

# Functions that send the command of another one, which is called first in the header.
SAME_COMMAND = {
    "GetLifStatsCached": "GetLifStats",
    "SetProxyArp": "SetArp",
    "DelProxyArp": "DelArp",
    "GetProxyArps": "GetArps",
    "SetProxyArpv6": "SetArpv6",
    "DelProxyArpv6": "DelArpv6",
}
# The one function that sends whatever number it is given, and the one that sends two commands.
ANY_COMMAND = {"BridgeSetConfig"}
SECOND_COMMANDS = {"GetRoutesv6Count": "GetRoutesv6"}

# Request fields that no parameter fills: what tells commands of one number apart, and what the library adds.
CONSTANTS = {"cached", "proxy", "selected", "set", "lifAgain"}
# A parameter is narrower or wider than the field that it is stored in.
WIDTHS = {("prefixLen", 4): 1, ("value16", 2): 4}

NUMBERS = {"uint8_t": 1, "int8_t": 1, "uint16_t": 2, "uint32_t": 4, "int32_t": 4, "int": 4, "uint64_t": 8}
# What the interface says of a value, and the only kinds that then describe it here.
KINDS = {
    "ipv4": {"ipv4"},
    "ipv4_mask": {"ipv4"},
    "ipv6": {"ipv6"},
    "ip": {"bytes"},
    "mac": {"mac"},
    "mac_text": {"text"},
    "records": {"table"},
    "dhcp_servers": {"table"},
}


def function_of(command: str) -> str:
    """The function that sends the command."""
    for name in (command, SECOND_COMMANDS.get(command, ""), re.sub("(On|Off)$", "", command)):
        if name in FUNCTIONS:
            return name
    raise AssertionError(f"no function sends {command}")


def parameters_of(function: str) -> dict[str, dict]:
    """What the function is given to send; the members of a record that it is given count as parameters."""
    found = {}
    for one in FUNCTIONS[function]["parameters"]:
        if one["direction"] == "out" or one["kind"] in ("unsent", "switch", "size"):
            continue
        if one["kind"] == "record":
            members = RECORDS[one["type"]["base"]]["members"]
            found |= {member["name"]: member for member in members}
        else:
            found[one["name"]] = one
    return found


def words(fields: dict[str, dict]) -> dict[str, dict]:
    """Two words of an IPv6 address are one parameter: word1 and word2 are the address, dest1 and dest2 are dest."""
    joined = {}
    for name, one in fields.items():
        if one["kind"] == "ipv6_word":
            joined[re.sub("^word$", "address", name[:-1])] = {"kind": "ipv6", "width": 16}
        else:
            joined[name] = one
    return joined


def width_of(name: str, one: dict) -> int | None:
    """How wide the value is when it is sent, where the interface says so."""
    if "width" in one:
        return one["width"]
    if "limit" in one:
        return one["limit"]["field"]
    if one["kind"] == "mac":
        return 6
    if one["type"]["pointers"] > 0:
        return None
    width = NUMBERS[one["type"]["base"]]
    return WIDTHS.get((name, width), width)


def record_of(function: str) -> str | None:
    """The record that the function reads."""
    for one in FUNCTIONS[function]["parameters"]:
        if one["direction"] == "out" and one["kind"] in ("list", "table"):
            return LISTS[one["type"]["base"]]["record"]
        if one["direction"] == "out" and one["kind"] == "record":
            return one["type"]["base"]
    return None


class Commands(unittest.TestCase):
    def test_each_is_sent_by_a_function_of_its_chapter(self) -> None:
        for command, chapter in CHAPTERS.items():
            with self.subTest(command):
                self.assertEqual(FUNCTIONS[function_of(command)]["chapter"], chapter)

    def test_each_function_that_asks_the_module_has_one(self) -> None:
        sent = {function_of(command) for command in COMMANDS}
        # What fills a list that the caller holds is a part of what makes one.
        asking = {
            name
            for name, function in FUNCTIONS.items()
            if function["operation"] not in ("release", "make_key", "exchange", "fill_list")
        }
        self.assertEqual(asking - sent, SAME_COMMAND.keys() | ANY_COMMAND)
        for same in SAME_COMMAND.values():
            self.assertIn(same, sent)

    def test_chapters_are_in_the_order_of_the_header(self) -> None:
        self.assertEqual(
            [chapter["name"] for chapter in PROTOCOL["chapters"]],
            [chapter["name"] for chapter in INTERFACE["chapters"] if chapter["name"] != "channel"],
        )


class Requests(unittest.TestCase):
    def test_fields_are_what_functions_are_given(self) -> None:
        for name, command in COMMANDS.items():
            with self.subTest(name):
                given = words(parameters_of(function_of(name)))
                if name == "BridgeClusterNodeSetOff":
                    del given["mac"]  # of a node that is switched off, no address is sent
                if function_of(name) == "SoftRSSSetTunables":
                    del given["value2"]  # only read
                if function_of(name) == "ConfigureLifDhcpRelay":
                    given["relayCount"] = {"kind": "count", "width": 4}
                self.assertEqual({field["name"] for field in command["input"]["fields"]} - CONSTANTS, given.keys())

    def test_fields_are_as_wide_as_what_they_carry(self) -> None:
        checked = 0
        for name, command in COMMANDS.items():
            given = words(parameters_of(function_of(name)))
            for field in command["input"]["fields"]:
                width = width_of(field["name"], given[field["name"]]) if field["name"] in given else None
                if width is not None:
                    with self.subTest(f"{name}.{field['name']}"):
                        self.assertEqual(field["width"], width)
                        checked += 1
        self.assertGreater(checked, 250)

    def test_fields_are_of_the_kind_of_what_they_carry(self) -> None:
        for name, command in COMMANDS.items():
            given = words(parameters_of(function_of(name)))
            for field in command["input"]["fields"]:
                if field["name"] not in given:
                    continue
                one = given[field["name"]]
                with self.subTest(f"{name}.{field['name']}"):
                    if one["kind"] in KINDS:
                        self.assertIn(field["kind"], KINDS[one["kind"]])
                    elif "limit" in one:
                        self.assertEqual(field["kind"], "text")
                    else:
                        self.assertNotIn(field["kind"], ("text", "ipv4", "ipv6", "mac"))

    def test_tables_have_room_for_what_the_library_sends(self) -> None:
        servers = {f["name"]: f for f in COMMANDS["ConfigureLifDhcpRelay"]["input"]["fields"]}
        public = {m["name"]: m for m in RECORDS["LumoDhcpRelay"]["members"]}
        self.assertEqual(servers["servers"]["width"], public["servers"]["width"])
        self.assertEqual(
            servers["servers"]["offset"] - servers["relayCount"]["offset"], public["servers"]["offset"]
        )
        refs = {f["name"]: f for f in COMMANDS["SetLifPolicyTableRef"]["input"]["fields"]}
        self.assertEqual(refs["entries"]["entry"]["size"], RECORDS["LumoPolicyTableRefEntry"]["size"])


class Replies(unittest.TestCase):
    def compare(self, layout: dict, record: str, at: int, prefix: str, where: str) -> list[str]:
        """The fields of the layout that are not members of the record, which begins at an offset."""
        known = []
        fields = {field["name"]: field for field in layout["fields"]}
        for member in RECORDS[record]["members"]:
            name = prefix + member["name"]
            offset = at + member["offset"]
            with self.subTest(f"{where}.{name}"):
                if member["kind"] == "not_copied":
                    for field in layout["fields"]:
                        self.assertFalse(
                            field["offset"] < offset + member["width"] and offset < field["offset"] + field["width"]
                        )
                elif name in fields:
                    field = fields[name]
                    known.append(name)
                    self.assertEqual((field["offset"], field["width"]), (offset, member["width"]))
                    self.compare_kind(field, member, where)
                elif member["kind"] == "record":
                    known += self.compare(layout, member["type"]["base"], offset, name + ".", where)
                else:
                    parts = [one for one in fields if re.match(re.escape(name) + r"[.[]", one)]
                    known += parts
                    self.assertTrue(parts or (record, name) in SAID_OTHERWISE)
                    for part in parts:
                        self.assertGreaterEqual(fields[part]["offset"], offset)
                        self.assertLessEqual(
                            fields[part]["offset"] + fields[part]["width"], offset + member["width"]
                        )
                        if index := re.search(r"\[(\d+)]$", part):
                            width = member["width"] // member["type"]["length"]
                            place = (offset + int(index.group(1)) * width, width)
                            self.assertEqual((fields[part]["offset"], fields[part]["width"]), place)
        return known

    def compare_kind(self, field: dict, member: dict, where: str) -> None:
        if member["kind"] in KINDS:
            self.assertIn(field["kind"], KINDS[member["kind"]])
        elif member["type"]["base"] == "char":
            self.assertEqual(field["kind"], "text")
        elif "length" in member["type"] and NUMBERS.get(member["type"]["base"], 1) > 1:
            self.assertEqual(field["kind"], "table")
        if field["kind"] == "table":
            count = member["type"]["length"]
            self.assertEqual(field["entry"]["size"], field["width"] // count)
            if member["type"]["base"] in RECORDS:
                base = member["type"]["base"]
                self.assertEqual(field["entry"]["size"], RECORDS[base]["size"])
                self.compare_whole(field["entry"], base, f"{where}.{field['name']}")
            else:
                self.assertEqual(field["entry"]["size"], NUMBERS[member["type"]["base"]])

    def compare_whole(self, layout: dict, record: str, where: str) -> None:
        self.assertEqual(layout["size"], RECORDS[record]["size"], where)
        known = self.compare(layout, record, 0, "", where)
        others = {field["name"] for field in layout["fields"]} - set(known)
        if record not in OPAQUE:
            self.assertEqual(others, {field for owner, field in SAID_HERE if owner == record}, where)

    def test_records_are_those_of_the_header(self) -> None:
        compared = set()
        for name, command in COMMANDS.items():
            record = record_of(function_of(name))
            if record is not None:
                compared.add(record)
                self.compare_whole(command["reply"]["record"], record, name)
        self.assertEqual(compared, {record_of(function) for function in FUNCTIONS} - {None, "LumoEnvelope"})

    def test_lists_end_where_the_library_stops(self) -> None:
        compared = 0
        for name, command in COMMANDS.items():
            for one in FUNCTIONS[function_of(name)]["parameters"]:
                cap = LISTS.get(one["type"]["base"], {}).get("cap")
                if one["kind"] == "list" and cap is not None:
                    self.assertEqual(command["reply"]["most"], cap["value"], name)
                    compared += 1
        self.assertEqual(compared, 17)

    def test_values_are_called_what_they_are_in_the_header(self) -> None:
        compared = 0
        for name, command in COMMANDS.items():
            function = FUNCTIONS[function_of(name)]
            if function["operation"] == "get_value":
                out = [one["name"] for one in function["parameters"] if one["direction"] == "out"]
                self.assertEqual([field["name"] for field in command["reply"]["record"]["fields"]], out, name)
                self.assertEqual(command["reply"]["record"]["size"], 4, name)
                compared += 1
        self.assertEqual(compared, 10)

    def test_the_envelope_is_that_of_the_header(self) -> None:
        self.assertEqual(
            [(field["name"], field["offset"], field["width"]) for field in PROTOCOL["envelope"]["fields"]],
            [(one["name"], one["offset"], one["width"]) for one in RECORDS["LumoEnvelope"]["members"]],
        )


# Records of bytes that the library hands on as they are: what lies in them is known here alone.
OPAQUE = {"LumoCmdResult", "LumoVtepEntry"}
# A node's MAC address is two numbers in the header.
SAID_OTHERWISE = {
    ("LumoBridgeClusterNodeInfo", "value1"),
    ("LumoBridgeClusterNodeInfo", "value2"),
    ("LumoCmdResult", "bytes"),
    ("LumoVtepEntry", "bytes"),
}
SAID_HERE = {("LumoBridgeClusterNodeInfo", "mac")}


if __name__ == "__main__":
    unittest.main()
