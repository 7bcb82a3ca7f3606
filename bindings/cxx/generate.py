"""Writes what of the C++ layer is made from the description of the interface.

usage: generate.py DESCRIPTION TEMPLATE

Prints TEMPLATE, filled. core() in a template stands for a file of core/, whose includes go to the head of the header.
"""

import json
import os
import re
import sys
import textwrap

import jinja2

HERE = os.path.dirname(os.path.abspath(__file__))
WIDTH = 120
# More parameters than these, or two that could be swapped, are an aggregate.
MOST_PARAMETERS = 3


def snake(name):
    """The name of a function, record or member here: that of C in small letters, with a line between its words."""
    name = re.sub(r"^(LUMOZEPH_?|Lumo(?=[A-Z]))", "", name)
    name = name.replace("UnPlumb", "Unplumb").replace("MRout", "Mrout")
    name = re.sub(r"(?<!Ip)v6$", "_v6", name)
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name).lower()


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


def without_workers(paragraphs):
    """What is not said of the workers of lists, which have no name here."""
    kept = []
    for paragraph in paragraphs:
        if paragraph.startswith("The pair") or "LUMOZEPHGet" in paragraph:
            continue
        sentences = [sentence for sentence in re.split(r"(?<=\.) ", paragraph) if "worker" not in sentence]
        kept.append(" ".join(sentences))
    return kept


def fixed(c_type):
    return f"std::{c_type}" if re.match(r"u?int\d+_t$", c_type) else c_type


class Argument:
    """A parameter of a C++ function, or a member of its aggregate; what C gets of it stands in c, by parameter."""

    def __init__(self, name, kind, cxx_type, words, c, default=""):
        self.name = name
        self.kind = kind
        self.type = cxx_type
        self.words = words
        self.c = c
        self.default = default

    @property
    def is_number(self):
        return bool(re.match(r"std::u?int\d+_t$", self.type))


class Operation:
    """A function of C, as C++ sees it."""

    def __init__(self, function, interface):
        self.c_name = function["name"]
        self.name = snake(self.c_name)
        self.shape = function["operation"]
        self.brief = function["brief"]
        self.description = function["description"]
        self.chapter = function["chapter"]
        self.parameters = function["parameters"]
        self.interface = interface
        self.answer = function.get("answer")
        self.result = function.get("result")
        self.errors = [error for error in function["errors"] if error["from"] == "function"]
        self.leaves_errno = any(error["name"] == "none" for error in function["errors"])
        self.arguments = []
        self.guards = []
        outs = {self.answer, self.result and self.result["parameter"], self.result and self.result.get("count")}
        # The caller's buffer of a size of its own.
        self.sized = next((p for p in self.parameters if p.get("size", {}).get("unit") == "bytes"), None)
        inputs = [p for p in self.parameters if p["name"] not in outs and p["kind"] not in ("unsent", "size")]
        merged = set()
        for parameter in inputs:
            if parameter["name"] not in merged:
                self.arguments.append(self.argument(parameter, inputs, merged))

    def position(self, name):
        return [p["name"] for p in self.parameters].index(name)

    def parameter(self, name):
        return next(p for p in self.parameters if p["name"] == name)

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

    def argument(self, parameter, inputs, merged):
        kind = parameter["kind"]
        name = snake(parameter["name"])
        base = parameter["type"]["base"]
        words = self.words(parameter)
        null = parameter.get("null", {}).get("effect")
        c_name = parameter["name"]
        if kind == "ipv6_word":
            return self.ipv6_argument(parameter, inputs, merged)
        if kind == "ipv4":
            mask = next((p for p in inputs if p.get("mask_of") == c_name), None)
            if mask is None:
                return Argument(name, kind, "ipv4", words, {c_name: "{}.value()"})
            merged.add(mask["name"])
            accessors = {c_name: "{}.address().value()", mask["name"]: "{}.mask().value()"}
            return Argument(name, kind, "ipv4_prefix", f"{words}, and its mask", accessors)
        if kind == "ipv4_mask":  # Of no parameter's address.
            return Argument(name, kind, "ipv4_mask", words, {c_name: "{}.value()"})
        if kind == "switch":
            return Argument(
                name, kind, "switched", self.switch(parameter), {c_name: f"static_cast<{fixed(base)}>({{}})"}
            )
        if kind == "mac":
            words = words.replace("6 bytes", "the MAC address")
            if null != "meaning":
                return Argument(name, kind, "lumozeph::mac", words, {c_name: "{}.data()"})
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
            return Argument(name, kind, "std::optional<lumozeph::mac>", words, accessor, "{}")
        if kind == "records":
            count = parameter["size"]["parameter"]
            merged.add(count)
            record = snake(base)
            return Argument(
                name,
                kind,
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
            records = next(p for p in inputs if p.get("size", {}).get("parameter") == c_name)
            merged.add(records["name"])
            return self.argument(records, inputs, merged)
        if kind == "record":
            self.guard_count(name, base)
            return Argument(name, kind, f"const {snake(base)}&", words, {c_name: "&{}"})
        if kind == "bytes":
            macro = parameter["size"]["macro"]
            return Argument(name, kind, f"bytes_argument<{macro}>", words, {c_name: "{}.data()"})
        if kind == "dhcp_servers":
            return Argument(name, kind, "char*", words, {c_name: "{}"}, "nullptr")
        if parameter["type"]["pointers"] == 0:
            return Argument(name, kind, fixed(base), words, {c_name: "{}"}, "0")
        # Null is an error for some calls, or means something: the text may be left out.
        reference = f"{kind}_argument"
        if null == "meaning" or "if" in parameter["null"]:
            return Argument(name, kind, f"maybe<{reference}>", words, {c_name: "{}.c_str()"}, "{}")
        return Argument(name, kind, reference, words, {c_name: "{}.c_str()"})

    def guard_count(self, name, record):
        """A count in a record of the caller's must not be larger than the array beside it."""
        members = next(one for one in self.interface.description["records"] if one["name"] == record)["members"]
        arrays = [member for member in members if "length" in member["type"]]
        for count in (member for member in members if member["kind"] == "count"):
            length = arrays[0]["type"]["length"]
            self.guards.append(
                (f"{{{name}}}.{count['name']} > {length}", f"{name}.{count['name']} is larger than {length}")
            )

    def ipv6_argument(self, parameter, inputs, merged):
        name = parameter["address"]["name"]
        words = re.sub(r"'s first eight bytes$", "", parameter["summary"])
        second = next(p for p in inputs if p.get("address") == {"name": name, "word": 2})
        after = inputs[inputs.index(second) + 1 :]
        merged.add(second["name"])
        if not after or after[0]["kind"] != "prefix_length":
            accessors = {parameter["name"]: "{}.word1()", second["name"]: "{}.word2()"}
            return Argument(snake(name), "ipv6", "ipv6", words, accessors)
        length = after[0]
        merged.add(length["name"])
        return Argument(
            snake(name),
            "ipv6",
            "ipv6_prefix",
            f"{words}, and its length {length['summary']}",
            {
                parameter["name"]: "{}.address().word1()",
                second["name"]: "{}.address().word2()",
                length["name"]: "{}.mask().value()",
            },
        )

    @staticmethod
    def switch(parameter):
        switch = parameter["switch"]
        return switch["chooses"] if "chooses" in switch else f"on: {switch['on']}; off: {switch['off']}"

    @property
    def is_aggregate(self):
        """Whether there are many arguments, or some of which swapping would go unnoticed."""
        if self.sized:
            return False
        numbers = sum(argument.is_number for argument in self.arguments)
        types = [argument.type for argument in self.arguments]
        return len(types) > MOST_PARAMETERS or numbers > 1 or len(set(types)) < len(types)

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

    def access(self, name):
        return f"with.{name}" if self.is_aggregate else name

    def call(self, **outs):
        """The call of the C function, with these for what it stores through."""
        given = dict(outs)
        for argument in self.arguments:
            for c_name, pattern in argument.c.items():
                given[c_name] = pattern.format(self.access(argument.name))
        for parameter in self.parameters:
            if parameter["kind"] == "unsent":
                given[parameter["name"]] = '""' if parameter["type"]["pointers"] else "0"
        return f"::{self.c_name}({', '.join(given[p['name']] for p in self.parameters)})"

    @property
    def rejected(self):
        """The conditions under which C would read what is not there."""
        names = {argument.name: self.access(argument.name) for argument in self.arguments}
        return [condition.format(**names) for condition, _ in self.guards]

    @property
    def result_parameter(self):
        return self.parameter(self.result["parameter"])

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
        for error in self.errors:
            if error["name"] != "none":
                tags.append(("@throws error", f"{error['name']}: {error['text']}"))
        if self.leaves_errno:
            left = next(error for error in self.errors if error["name"] == "none")
            tags.append(("@throws error", "EOVERFLOW: " + re.sub(r"^errno is not set: ", "", left["text"])))
        paragraphs = [self.brief, *(p for p in self.description)]
        return comment(paragraphs, tags)

    @property
    def returned(self):
        if self.sized:
            return "the entries that lie in the buffer, and how many the module reports"
        if self.shape == "get_block":
            return "the entries"
        if self.result_parameter["kind"] == "mac":
            return "the address"
        if self.shape == "get_raw":
            return f"{self.result_parameter['size']['macro']} bytes"
        words = re.sub(r",? ?(untouched|undefined) (on|if|after) .*$", "", self.result_parameter["summary"])
        words = re.sub(r"(written by the module itself), also before it fails; .*$", "as the module writes it", words)
        words = re.sub(r"\. Untouched .*$|, also before it fails.*$", "", words)
        return re.sub(r"^IPv4, .*$", "the address", words) or "the value"


class Interface:
    def __init__(self, description):
        self.description = description
        self.version = description["version"]
        self.chapters = description["chapters"]
        self.operations = [
            Operation(function, self)
            for function in description["functions"]
            if function["operation"] not in ("release", "fill_list", "exchange", "make_key")
        ]
        used = {p["kind"] for o in self.operations for p in o.parameters if self.is_name(p)}
        self.kinds = [kind for kind in description["kinds"] if kind["name"] in used]

    @staticmethod
    def is_name(parameter):
        text = parameter["type"] == {"base": "char", "const": True, "pointers": 1}
        return text and parameter["kind"] != "unsent" and parameter["direction"] == "in"

    @staticmethod
    def is_key(kind):
        return kind["text"].startswith("The key of")

    def of_chapter(self, chapter):
        return [operation for operation in self.operations if operation.chapter == chapter]

    def records_of(self, chapter):
        """The records that have a name here: all but those that are lists."""
        lists = {one["name"] for one in self.description["lists"] + self.description["tables"]}
        return [
            record
            for record in self.description["records"]
            if record["chapter"] == chapter and record["name"] not in lists and record["name"] != "LumoEnvelope"
        ]

    def lists_of(self, chapter):
        chapters = {record["name"]: record["chapter"] for record in self.description["records"]}
        return [one for one in self.description["lists"] if chapters[one["name"]] == chapter]

    def tables_of(self, chapter):
        chapters = {record["name"]: record["chapter"] for record in self.description["records"]}
        return [one for one in self.description["tables"] if chapters[one["name"]] == chapter]

    def brief_of(self, record):
        return next(one for one in self.description["records"] if one["name"] == record)["brief"]

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
    with open(description_path, encoding="utf-8") as file:
        interface = Interface(json.load(file))
    core = Core()
    environment = jinja2.Environment(
        loader=jinja2.FileSystemLoader(os.path.dirname(os.path.abspath(template_path))),
        trim_blocks=True,
        lstrip_blocks=True,
        keep_trailing_newline=True,
        undefined=jinja2.StrictUndefined,
    )
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
