"""Writes the tables of operations and records that the tool works from.

usage: describe.py DESCRIPTION TEMPLATE OUT
"""

import json
import os
import re
import sys

import jinja2

WORD_SIZES = {"char": 1, "int": 4}


def size_of(base):
    number = re.fullmatch(r"u?int(\d+)_t", base)
    return int(number[1]) // 8 if number else WORD_SIZES[base]


def is_signed(base):
    return not base.startswith("uint")


def plain(name):
    """The name of a function as the tool has it."""
    return re.sub(r"^LUMOZEPH_?", "", name)


class Member:
    def __init__(self, member, record, record_names):
        kind_forms = {"ipv4": "Ipv4", "ipv4_mask": "Ipv4", "ipv6": "Ipv6", "ip": "Ip", "mac": "Mac", "bytes": "Bytes"}
        base = member["type"]["base"]
        length = member["type"].get("length", 0)
        self.name = member["name"]
        self.kind = member["kind"]
        self.offset = member["offset"]
        self.record = base if base in record_names else None
        if self.record:
            self.form = "Records"
        elif base == "char":
            self.form, length = "Text", 0
        elif self.kind in kind_forms:
            self.form = kind_forms[self.kind]
            if self.form not in ("Ipv4",):
                length = 0
        else:
            self.form = "SignedNumber" if is_signed(base) else "Number"
        self.length = length
        self.width = member["width"] // max(length, 1)
        self.depends_on = self.dependence(record)

    def dependence(self, record):
        names = [one["name"] for one in record["members"] if one["kind"] != "not_copied"]
        for one in record["members"]:
            if any(counted["member"] == self.name for counted in one.get("counts", [])):
                return names.index(one["name"])
            if self.form == "Ip" and one["kind"] == "address_family":
                return names.index(one["name"])
        return -1


class Parameter:
    def __init__(self, parameter, record_names):
        base = parameter["type"]["base"]
        kind = parameter["kind"]
        null = parameter.get("null", {})
        self.name = parameter["name"]
        self.kind = kind
        self.summary = parameter["summary"]
        self.type = base
        self.address = parameter.get("address", {}).get("name", "")
        self.record = base if base in record_names else None
        self.may_be_left_out = null.get("effect") == "meaning" or kind == "unsent"
        self.partner = -1
        self.size = 0
        if self.record:
            self.input = "Records" if kind == "records" else "Record"
        elif kind == "mac":
            self.input, self.size = "Mac", 6
        elif kind == "bytes":
            self.input, self.size = "Bytes", parameter["size"]["bytes"]
        elif parameter["type"]["pointers"]:
            self.input = "Text"
        elif kind == "ipv6_word":
            self.input, self.size = "Ipv6Word", 8
        else:
            self.input = "Ipv4" if kind in ("ipv4", "ipv4_mask") else "SignedNumber" if is_signed(base) else "Number"
            self.size = size_of(base)

    def argument(self, position):
        """What of the arguments is passed on to C."""
        if self.input == "Text" and self.kind == "dhcp_servers":
            return f"in.writable({position})"
        if self.input == "Text":
            return f"in.text({position})"
        if self.input in ("Record", "Records"):
            return f"in.bytes<const {self.record}>({position})"
        if self.input == "Mac":
            return f"in.bytes<const std::uint8_t>({position})"
        if self.input == "Bytes":
            return f"in.bytes<const void>({position})"
        return f"in.number<{self.type if self.type == 'int' else 'std::' + self.type}>({position})"


class Operation:
    def __init__(self, function, description, record_names):
        self.c_name = function["name"]
        self.name = plain(self.c_name)
        self.chapter = function["chapter"]
        self.brief = function["brief"]
        result = function.get("result") or {}
        every = function["parameters"]
        out = next((one for one in every if one["name"] == result.get("parameter")), None)
        outs = {result.get("parameter"), result.get("count"), function.get("answer")}
        outs |= {one["name"] for one in every if one["kind"] == "size"}
        inputs = [one for one in every if one["name"] not in outs]
        self.parameters = [Parameter(one, record_names) for one in inputs]
        for position, one in enumerate(inputs):
            for other, parameter in enumerate(self.parameters):
                words = parameter.address and parameter.address == self.parameters[position].address
                if one.get("size", {}).get("parameter") == parameter.name or (words and other != position):
                    self.parameters[position].partner = other
                    self.parameters[other].partner = position
        for parameter in self.parameters:
            if parameter.input == "Records":
                parameter.may_be_left_out = True
                self.parameters[parameter.partner].may_be_left_out = True

        self.command_result = function.get("answer")
        self.result = result.get("parameter", "")
        self.answer, self.record, self.cap, self.form, self.release = "Nothing", None, 0, "Number", None
        given = {parameter.name: parameter.argument(i) for i, parameter in enumerate(self.parameters)}
        if self.command_result:
            given[self.command_result] = "&out.command_result()"
        if out:
            self.answered(function, out, result, description, given)
        self.arguments = ", ".join(given[one["name"]] for one in every)

    def answered(self, function, out, result, description, given):
        shape = function["operation"]
        base = out["type"]["base"]
        self.release = result.get("release")
        lists = {one["name"]: one for one in description["lists"] + description["tables"]}
        if shape == "get_value":
            self.answer = "Value"
            self.form = "Ipv4" if out["kind"] == "ipv4" else "Number"
            given[self.result] = "&value"
        elif shape in ("get_record", "fill_record"):
            self.answer, self.record = "Record", base
            given[self.result] = "&record"
        elif base in lists:
            self.answer, self.record = "List", lists[base]["record"]
            self.cap = lists[base].get("cap", {}).get("value", 0)
            self.list = base
            given[self.result] = "&list"
        elif "count" in result:
            self.answer = "Entries"
            count = next(one for one in function["parameters"] if one["name"] == result["count"])
            self.entry = count["unit"]["macro"]
            given[result["count"]] = "&count"
            if shape == "get_block":
                given[self.result] = "&block"
            else:
                given[self.result] = "buffer"
                size = next(one for one in function["parameters"] if one["kind"] == "size")
                self.cap = "std::size_t {LUMOZEPH_BRIDGE_ENDPOINTS_MAX} * " + self.entry
                given[size["name"]] = f"static_cast<std::{size['type']['base']}>({self.cap})"
        else:
            self.answer = "Bytes"
            self.form = "Mac" if out["kind"] == "mac" else "Bytes"
            self.cap = out["size"]["bytes"]
            given[self.result] = f"out.room<{base if base == 'void' else 'std::' + base}>({self.cap})"
        self.shape = shape


def filled(template, description):
    records = [one for one in description["records"] if one["name"] not in ("LumoEnvelope", "LumoCmdResult")]
    lists = {one["name"] for one in description["lists"] + description["tables"]}
    records = [one for one in records if one["name"] not in lists]
    names = {one["name"] for one in records}
    operations = [
        Operation(one, description, names)
        for one in description["functions"]
        if one["operation"] not in ("release", "fill_list", "exchange", "make_key")
    ]
    environment = jinja2.Environment(
        loader=jinja2.FileSystemLoader(os.path.dirname(os.path.abspath(template))),
        trim_blocks=True,
        lstrip_blocks=True,
        keep_trailing_newline=True,
        undefined=jinja2.StrictUndefined,
    )
    environment.filters["quoted"] = json.dumps
    environment.filters["boolean"] = lambda value: "true" if value else "false"
    members = {
        one["name"]: [Member(member, one, names) for member in one["members"] if member["kind"] != "not_copied"]
        for one in records
    }
    return environment.get_template(os.path.basename(template)).render(
        records=records, members=members, operations=operations
    )


def main():
    description_path, template, out = sys.argv[1:]
    with open(description_path, encoding="utf-8") as file:
        description = json.load(file)
    text = filled(template, description)
    with open(out, "w", encoding="utf-8") as file:
        file.write(text)


if __name__ == "__main__":
    main()
