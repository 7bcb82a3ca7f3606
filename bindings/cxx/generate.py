"""Writes what of the C++ layer is made from the description of the interface.

usage: generate.py DESCRIPTION TEMPLATE

Prints TEMPLATE, filled. core() in a template stands for a file of core/, whose includes go to the head of the header.
"""

import os
import re
import sys
import textwrap

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "..", "api"))

import described
from described import snake, without_workers

WIDTH = 120


def comment(text, tags=()):
    """A comment of these paragraphs, and of tags in columns."""
    if not tags and len(text) == 1 and len(text[0]) <= WIDTH - 8:
        return f"/** {text[0]} */"
    lines = []
    for number, paragraph in enumerate(text):
        if number > 0:
            lines.append("")
        if isinstance(paragraph, dict):
            terms = paragraph["terms"]
            width = max(len(term["term"]) for term in terms) + 2
            for term in terms:
                lines += hanging("  " + term["term"].ljust(width), term["text"])
        else:
            lines += textwrap.wrap(paragraph, WIDTH - 3, break_on_hyphens=False)
    if tags:
        lines.append("")
        width = max(len(tag) for tag, _ in tags) + 2
        for tag, words in tags:
            lines += hanging(tag.ljust(width), words)
    return "\n".join(["/**", *(f" * {line}".rstrip() for line in lines), " */"])


def hanging(head, words):
    return textwrap.wrap(
        words, WIDTH - 3, initial_indent=head, subsequent_indent=" " * len(head), break_on_hyphens=False
    )


def prose(paragraph):
    return textwrap.fill(paragraph, WIDTH, initial_indent=" * ", subsequent_indent=" * ", break_on_hyphens=False)


def fixed(c_type):
    return f"std::{c_type}" if re.match(r"u?int\d+_t$", c_type) else c_type


class Argument:
    """A parameter of a C++ function, or a member of its aggregate; what C gets of it stands in c, by parameter."""

    def __init__(self, name, cxx_type, words, c, default=""):
        self.name = name
        self.type = cxx_type
        self.words = words
        self.c = c
        self.default = default

    @property
    def is_number(self):
        return bool(re.match(r"std::u?int\d+_t$", self.type))


class Operation(described.NamedOperation):
    """A function of C, as C++ sees it."""

    empty_text = '""'

    def words(self, parameter):
        """What a parameter is, how much of it is used and what it is to be left out."""
        words = [parameter["summary"]] if parameter["summary"] else []
        limit = parameter.get("limit")
        if limit and limit["terminated"]:
            words.append(f"at most {limit['bytes']} bytes")
        elif limit:
            words.append(f"unterminated at {limit['bytes']} bytes")
        text = ", ".join(words)
        null = parameter.get("null", {})
        if "if" in null:
            condition = f"{snake(null['if']['parameter'])} is {null['if']['is']}"
            if null["effect"] == "error":
                return f"{text}; left out: {null['errno']} if {condition}, and otherwise {null['otherwise']}"
            return text
        if null.get("effect") == "meaning":
            return f"{text}; left out: {null['text']}"
        return text

    def argument(self, parameter, merged):
        kind = parameter["kind"]
        name = snake(parameter["name"])
        base = parameter["type"]["base"]
        words = self.words(parameter)
        null = parameter.get("null", {}).get("effect")
        c_name = parameter["name"]
        if kind == "ipv6_word":
            return self.ipv6_argument(parameter, merged)
        if kind == "ipv4":
            mask = next((p for p in self.inputs if p.get("mask_of") == c_name), None)
            if mask is None:
                return Argument(name, "ipv4", words, {c_name: "{}.value()"})
            merged.add(mask["name"])
            accessors = {c_name: "{}.address().value()", mask["name"]: "{}.mask().value()"}
            return Argument(name, "ipv4_prefix", f"{words}, and its mask", accessors)
        if kind == "ipv4_mask":  # Of no parameter's address.
            return Argument(name, "ipv4_mask", words, {c_name: "{}.value()"})
        if kind == "switch":
            words = self.switch_words(parameter, "on", "off")
            return Argument(name, "switched", words, {c_name: f"static_cast<{fixed(base)}>({{}})"})
        if kind == "mac":
            words = words.replace("6 bytes", "the MAC address")
            if null != "meaning":
                return Argument(name, "lumozeph::mac", words, {c_name: "{}.data()"})
            condition = parameter["null"].get("if")
            if condition:
                chooser = snake(condition["parameter"])
                self.guards.append(
                    (
                        f"!{{{name}}} && {{{chooser}}} != switched::off",
                        f"{name} is left out though {chooser} is not off",
                    )
                )
                words += f"; left out, if {chooser} is off: {parameter['null']['text']}"
            accessor = {c_name: "{0} ? {0}->data() : nullptr"}
            return Argument(name, "std::optional<lumozeph::mac>", words, accessor, "{}")
        if kind == "records":
            count = parameter["size"]["parameter"]
            merged.add(count)
            record = snake(base)
            return Argument(
                name,
                f"view<const {record}>",
                self.words(self.parameter(count)),
                {
                    c_name: "{}.data()",
                    count: f"detail::counted<{fixed(self.parameter(count)['type']['base'])}>({{}}.size())",
                },
                "{}",
            )
        if kind == "count":
            # Comes with its records.
            records = next(p for p in self.inputs if p.get("size", {}).get("parameter") == c_name)
            merged.add(records["name"])
            return self.argument(records, merged)
        if kind == "record":
            for count, room in self.counts_in(base):
                self.guards.append((f"{{{name}}}.{count} > {room}", f"{name}.{count} is larger than {room}"))
            return Argument(name, f"const {snake(base)}&", words, {c_name: "&{}"})
        if kind == "bytes":
            macro = parameter["size"]["macro"]
            return Argument(name, f"bytes_argument<{macro}>", words, {c_name: "{}.data()"})
        if kind == "dhcp_servers":
            return Argument(name, "char*", words, {c_name: "{}"}, "nullptr")
        if parameter["type"]["pointers"] == 0:
            return Argument(name, fixed(base), words, {c_name: "{}"}, "0")
        # Null is an error for some calls, or means something: the text may be left out.
        reference = f"{kind}_argument"
        if null == "meaning" or "if" in parameter["null"]:
            return Argument(name, f"maybe<{reference}>", words, {c_name: "{}.c_str()"}, "{}")
        return Argument(name, reference, words, {c_name: "{}.c_str()"})

    def ipv6_argument(self, parameter, merged):
        name, words, second, length = self.ipv6_parts(parameter)
        merged.add(second["name"])
        if not length:
            accessors = {parameter["name"]: "{}.word1()", second["name"]: "{}.word2()"}
            return Argument(snake(name), "ipv6", words, accessors)
        merged.add(length["name"])
        return Argument(
            snake(name),
            "ipv6_prefix",
            f"{words}, and its length {length['summary']}",
            {
                parameter["name"]: "{}.address().word1()",
                second["name"]: "{}.address().word2()",
                length["name"]: "{}.mask().value()",
            },
        )

    @property
    def aggregate(self):
        return f"{self.name}_arguments"

    @property
    def declared(self):
        """The parameters of the C++ function, but for where its result goes."""
        if self.is_aggregate:
            return [f"const {self.aggregate}& with"]
        declared = []
        for position, argument in enumerate(self.arguments):
            last = position == len(self.arguments) - 1
            default = f" = {argument.default}" if last and not argument.is_number and argument.default else ""
            declared.append(f"{argument.type} {argument.name}{default}")
        return declared

    def declaration(self, *outs, optional=()):
        """All parameters. Outs come behind what must be given; what may be left out comes last."""
        declared = self.declared
        given = [one for one in declared if " = " not in one]
        left_out = [one for one in declared if " = " in one]
        if outs and left_out:
            left_out = []
            given = [one.split(" = ")[0] for one in declared]
        return ", ".join([*given, *outs, *left_out, *optional])

    def call(self, **outs):
        """The call of the C function, with these for what it stores through."""
        return f"::{self.c_name}({self.passed_to_c(outs)})"

    @property
    def result_type(self):
        """What the function returns; what it fills in its noexcept form."""
        if self.result is None:
            return "void"
        base = self.result["type"]
        kind = self.result_parameter["kind"]
        if self.sized:
            return f"entries<{self.parameter(self.result['count'])['unit']['macro']}>"
        if self.shape == "get_block":
            return "route_v6_block"
        if self.shape == "get_record":
            return f"owned_{snake(base)}"
        if self.shape in ("get_list", "get_table", "fill_record"):
            return snake(base)
        if kind in ("mac", "ipv4"):
            return f"lumozeph::{kind}"
        if self.shape == "get_raw":
            return f"raw<{self.result_parameter['size']['macro']}>"
        return fixed(base)

    @property
    def buffer(self):
        """Where a raw read writes."""
        base = self.result["type"]
        name = snake(self.result["parameter"])
        if base == "uint8_t" and self.result_parameter["kind"] != "mac":
            return f"reinterpret_cast<std::uint8_t*>({name}.data())"
        return f"{name}.data()"

    @property
    def text(self):
        """The comment of the throwing form."""
        tags = []
        if not self.is_aggregate:
            for argument in self.arguments:
                tags.append((f"@param {argument.name}", argument.words))
        if self.sized:
            tags.append(("@param[out] buffer", "room for the entries"))
        if self.answer:
            tags.append(("@param[out] answer", f"{self.parameter(self.answer)['summary']}; null: it is not asked for"))
        if self.result:
            tags.append(("@return", self.returned))
        for _, words in self.guards:
            tags.append(("@throws error", f"EINVAL: {words}"))
        for name, words in self.failures:
            tags.append(("@throws error", f"{name}: {words}"))
        return comment([self.brief, *self.description], tags)


class Interface(described.Interface):
    operation = Operation

    def lists_of(self, chapter):
        return [one for one in self.description["lists"] if self.record(one["name"])["chapter"] == chapter]

    def tables_of(self, chapter):
        return [one for one in self.description["tables"] if self.record(one["name"])["chapter"] == chapter]

    def owned_of(self, chapter):
        """The records of single reads of a chapter, each with what frees it."""
        found = {}
        for operation in self.of_chapter(chapter):
            if operation.shape == "get_record":
                found.setdefault(operation.result["type"], operation.result["release"])
        earlier = {
            operation.result["type"]
            for one in self.chapters[: [c["name"] for c in self.chapters].index(chapter)]
            for operation in self.of_chapter(one["name"])
            if operation.shape == "get_record"
        }
        return {record: release for record, release in found.items() if record not in earlier}

    def counted_of(self, chapter):
        """The arrays of the chapter's records that another member counts, which may be larger than they are."""
        counted = []
        for record in self.records_of(chapter):
            members = {member["name"]: member for member in record["members"]}
            for member in record["members"]:
                for array in member.get("counts", []) if member.get("as_reported") else []:
                    counted.append({"record": record, "count": member["name"], "array": members[array["member"]]})
        return counted


class Core:
    """The files of core/, as parts of one header."""

    def __init__(self):
        self.includes = set()

    def __call__(self, name):
        with open(os.path.join(HERE, "core", name), encoding="utf-8") as file:
            lines = file.read().splitlines()
        kept = []
        for line in lines:
            if line.startswith("#include"):
                self.includes.add(line)
            elif line != "#pragma once":
                kept.append(line)
        return re.sub(r"\n{3,}", "\n\n", "\n".join(kept)).strip()


def main():
    description_path, template_path = sys.argv[1:]
    interface = Interface(described.read(description_path))
    core = Core()
    environment = described.templates(os.path.dirname(os.path.abspath(template_path)))
    environment.filters.update(
        snake=snake,
        comment=comment,
        prose=prose,
        position_in=lambda name, operation: operation.position(name),
        without_workers=without_workers,
        fixed=fixed,
    )
    environment.globals.update(core=core, interface=interface, is_key=Interface.is_key)
    text = environment.get_template(os.path.basename(template_path)).render()
    print(text.replace("#include <core>", "\n".join(sorted(core.includes))), end="")


if __name__ == "__main__":
    main()
