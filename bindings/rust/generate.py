"""Writes what of the Rust layer is made from the description of the interface.

usage: generate.py DESCRIPTION --sources FOLDER
       generate.py DESCRIPTION TEMPLATE

Writes the generated files of the crates below FOLDER, which lies like bindings/rust/, formatted; or prints TEMPLATE,
filled.
"""

import json
import os
import re
import subprocess
import sys
import textwrap

import jinja2

HERE = os.path.dirname(os.path.abspath(__file__))
RUSTFMT = "/usr/bin/rustfmt"
WIDTH = 112
# More parameters than these, or two that could be swapped, are a struct.
MOST_PARAMETERS = 3
# A reply that is larger lies in memory of its own.
LARGEST_IN_PLACE = 4096

C_TYPES = {
    "int": "c_int",
    "char": "c_char",
    "void": "c_void",
    **{f"{sign}int{bits}_t": f"{sign or 'i'}{bits}" for sign in ("", "u") for bits in (8, 16, 32, 64)},
}


def rust_type(base):
    return C_TYPES.get(base, base)


def snake(name):
    """The name of a function, member or parameter here: that of C in small letters, with a line between its words."""
    name = re.sub(r"^(LUMOZEPH_?|Lumo(?=[A-Z]))", "", name)
    name = name.replace("UnPlumb", "Unplumb").replace("MRout", "Mrout")
    name = re.sub(r"(?<!Ip)v6$", "_v6", name)
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name).lower()


def camel(name):
    """The name of a type here."""
    return "".join(word.capitalize() for word in snake(name).split("_"))


def raw_type(declared):
    """A type as C has it."""
    name = rust_type(declared["base"])
    pointers = declared["pointers"]
    if "length" in declared:
        return f"[{name}; {declared['length']}]"
    for level in range(pointers):
        constant = declared["const"] and level == 0
        name = f"*{'const' if constant else 'mut'} {name}"
    return name


def identifier(name):
    return f"r#{name}" if name in ("ref", "type") else name


def wrapped(text, indent="", hanging="", width=WIDTH):
    return textwrap.wrap(
        text, width, initial_indent=indent, subsequent_indent=hanging, break_on_hyphens=False, break_long_words=False
    )


def marked_up(text):
    """The names of C in a text, as code."""
    return re.sub(r"\b(LUMOZEPH\w*|Lumo[A-Z]\w*(\.\w+)?)", r"`\1`", text)


def translated(text):
    """The names of C in a text, as they are here."""

    def name_here(match):
        name = match[0]
        if name.startswith("LUMOZEPH") and (name == name.upper() or name == "LUMOZEPHIoctl"):
            return f"`{name}`"
        if name.startswith("LUMOZEPH"):
            return f"`{snake(name)}`"
        record, _, member = name.partition(".")
        return f"`{camel(record)}::{snake(member)}`" if member else f"`{camel(record)}`"

    return re.sub(r"\b(LUMOZEPH\w*|Lumo[A-Z]\w*(\.\w+)?)", name_here, text)


def paragraphs_of(text, words):
    lines = []
    for paragraph in text:
        if lines:
            lines.append("")
        if isinstance(paragraph, dict):
            for term in paragraph["terms"]:
                lines += wrapped(words(f"`{term['term']}`: {term['text']}"), "- ", "  ")
        else:
            lines += wrapped(words(paragraph))
    return lines


def documented(lines, prefix="///"):
    return "\n".join(f"{prefix} {line}".rstrip() for line in lines)


def raw_comment(text):
    return documented(paragraphs_of(text, marked_up))


def comment(*text, prefix="///"):
    return documented(paragraphs_of(text, translated), prefix)


def without_workers(paragraphs):
    """What is not said of the workers of lists, which have no name here."""
    kept = []
    for paragraph in paragraphs:
        if paragraph.startswith("The pair") or "LUMOZEPHGet" in paragraph:
            continue
        sentences = [sentence for sentence in re.split(r"(?<=\.) ", paragraph) if "worker" not in sentence]
        kept.append(" ".join(sentences))
    return kept


class Argument:
    """A parameter of a Rust function, or a field of its struct; what C gets of it stands in c, by parameter."""

    def __init__(self, name, rust, words, c, default=None, prepared=None):
        self.name = name
        self.type = rust
        self.words = words
        self.c = c
        # Of what may be left out.
        self.default = default
        # What must be done with it before the call.
        self.prepared = prepared

    @property
    def is_number(self):
        return bool(re.fullmatch(r"[iu]\d+", self.type))

    @property
    def is_name(self):
        return self.type.endswith("<'a>")

    @property
    def setter_type(self):
        """What its setter takes."""
        optional = re.fullmatch(r"Option<(.*)>", self.type)
        inner = optional[1] if optional else self.type
        return f"impl Into<{inner}>" if inner.endswith("<'a>") else inner

    @property
    def setter_value(self):
        value = f"{self.name}.into()" if self.setter_type.startswith("impl") else self.name
        return f"Some({value})" if self.type.startswith("Option<") else value

    @property
    def has_lifetime(self):
        return "'a" in self.type


class Operation:
    """A function of C, as Rust sees it."""

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
        if limit:
            words.append(f"at most {limit['bytes']} bytes")
        text = ", ".join(words)
        null = parameter.get("null", {})
        if "if" in null:
            condition = f"`{snake(null['if']['parameter'])}` is {null['if']['is']}"
            if null["effect"] == "error":
                return f"{text}; left out: {null['errno']} if {condition}, and otherwise {null['otherwise']}"
            return text
        if null.get("effect") == "meaning":
            return f"{text}; left out: {null['text']}" if text else f"left out: {null['text']}"
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
                return Argument(name, "Ipv4Addr", words, {c_name: "raw_ipv4({})"})
            merged.add(mask["name"])
            accessors = {c_name: "raw_ipv4({}.address())", mask["name"]: "{}.mask().to_raw()"}
            return Argument(name, "Ipv4Prefix", f"{words}, and its mask", accessors)
        if kind == "ipv4_mask":  # Of no parameter's address.
            return Argument(name, "Ipv4Mask", words, {c_name: "{}.to_raw()"})
        if kind == "switch":
            return Argument(
                name, "Switched", self.switch(parameter), {c_name: f"{{}} as {rust_type(base).replace('c_int', 'i32')}"}
            )
        if kind == "mac":
            words = words.replace("6 bytes", "the MAC address")
            if null != "meaning":
                return Argument(name, "Mac", words, {c_name: "{}.as_bytes().as_ptr()"})
            condition = parameter["null"].get("if")
            if condition:
                chooser = snake(condition["parameter"])
                self.guards.append(
                    (
                        f"{{{name}}}.is_none() && {{{chooser}}} != Switched::Off",
                        f"`{name}` is left out though `{chooser}` is not off",
                    )
                )
                words += f"; left out, if `{chooser}` is off: {parameter['null']['text']}"
            accessor = {c_name: "{}.as_ref().map_or(ptr::null(), |mac| mac.as_bytes().as_ptr())"}
            return Argument(name, "Option<Mac>", words, accessor, "None")
        if kind == "records":
            count = parameter["size"]["parameter"]
            merged.add(count)
            width = rust_type(self.parameter(count)["type"]["base"])
            return Argument(
                name,
                f"&[{camel(base)}]",
                self.words(self.parameter(count)),
                {c_name: "{}.as_ptr().cast()", count: f"{width}::try_from({{}}.len()).unwrap_or({width}::MAX)"},
            )
        if kind == "count":
            # Comes with its records.
            records = next(p for p in inputs if p.get("size", {}).get("parameter") == c_name)
            merged.add(records["name"])
            return self.argument(records, inputs, merged)
        if kind == "record":
            self.guard_count(name, base)
            return Argument(name, f"&{camel(base)}", words, {c_name: "{}.as_raw()"})
        if kind == "bytes":
            size = parameter["size"]
            words = words.replace(f"{size['macro']} bytes, sent", "sent")
            return Argument(name, f"&'a [u8; sys::{size['macro']}]", words, {c_name: "{}.as_ptr().cast()"})
        if kind == "dhcp_servers":
            words = "the servers; EINVAL if there are any"
            return Argument(name, "&[IpAddr]", words, {c_name: "{}.as_mut_ptr()"}, prepared="ServerList::of({})")
        if parameter["type"]["pointers"] == 0:
            return Argument(name, rust_type(base), words, {c_name: "{}"}, "0")
        # Null is an error for some calls, or means something: the text may be left out.
        reference = f"{self.interface.names[kind]}<'a>"
        size = parameter["limit"]["bytes"] + 1
        if null == "meaning" or "if" in parameter["null"]:
            prepared = f"Terminated::<{size}>::of_maybe({{}}, OPERATION)?"
            return Argument(name, f"Option<{reference}>", words, {c_name: "{}.as_ptr()"}, "None", prepared)
        return Argument(
            name, reference, words, {c_name: "{}.as_ptr()"}, None, f"Terminated::<{size}>::of({{}}, OPERATION)?"
        )

    def guard_count(self, name, record):
        """A count in a record of the caller's must not be larger than the array beside it."""
        members = next(one for one in self.interface.description["records"] if one["name"] == record)["members"]
        arrays = [member for member in members if "length" in member["type"]]
        for count in (member for member in members if member["kind"] == "count"):
            length = arrays[0]["type"]["length"]
            self.guards.append(
                (
                    f"{{{name}}}.{snake(count['name'])}() > {length}",
                    f"the {count['name']} of `{name}` is larger than {length}",
                )
            )

    def ipv6_argument(self, parameter, inputs, merged):
        name = parameter["address"]["name"]
        words = re.sub(r"'s first eight bytes$", "", parameter["summary"])
        second = next(p for p in inputs if p.get("address") == {"name": name, "word": 2})
        after = inputs[inputs.index(second) + 1 :]
        merged.add(second["name"])
        if not after or after[0]["kind"] != "prefix_length":
            accessors = {parameter["name"]: "raw_ipv6({})[0]", second["name"]: "raw_ipv6({})[1]"}
            return Argument(snake(name), "Ipv6Addr", words, accessors)
        length = after[0]
        merged.add(length["name"])
        return Argument(
            snake(name),
            "Ipv6Prefix",
            f"{words}, and its length",
            {
                parameter["name"]: "raw_ipv6({}.address())[0]",
                second["name"]: "raw_ipv6({}.address())[1]",
                length["name"]: "{}.length().into()",
            },
        )

    @staticmethod
    def switch(parameter):
        switch = parameter["switch"]
        return switch["chooses"] if "chooses" in switch else f"on: {switch['on']}; off: {switch['off']}"

    @property
    def is_struct(self):
        """Whether there are many arguments, or some of which swapping would go unnoticed."""
        if self.sized:
            return False
        numbers = sum(argument.is_number for argument in self.arguments)
        types = [argument.type for argument in self.arguments]
        return len(types) > MOST_PARAMETERS or numbers > 1 or len(set(types)) < len(types)

    @property
    def struct(self):
        return camel(self.c_name)

    @property
    def struct_type(self):
        return f"{self.struct}{self.generics}"

    @property
    def required(self):
        return [argument for argument in self.arguments if argument.default is None]

    @property
    def optional(self):
        return [argument for argument in self.arguments if argument.default is not None]

    @property
    def generics(self):
        return "<'a>" if any(argument.has_lifetime for argument in self.arguments) else ""

    @property
    def function_generics(self):
        """A name is given as anything that becomes one, and its lifetime is said; what is left out may do without."""
        return "<'a>" if not self.is_struct and any(argument.is_name for argument in self.arguments) else ""

    @staticmethod
    def parameter_of(argument):
        if argument.is_name:
            return f"{argument.name}: impl Into<{argument.type}>"
        return f"{argument.name}: {argument.type}"

    @property
    def declared(self):
        """The parameters of the Rust function."""
        if self.is_struct:
            return f"with: &{self.struct_type}".replace("'a", "'_")
        if self.sized:
            return "buffer: &mut [u8]"
        declared = ", ".join(self.parameter_of(argument) for argument in self.arguments)
        return declared if self.function_generics else declared.replace("'a", "'_")

    def access(self, name):
        return f"with.{name}" if self.is_struct else name

    @property
    def preparations(self):
        """What is done with arguments before the call."""
        lines = []
        for condition in self.rejected:
            lines.append(f"if {condition} {{ return Err(Error::rejected(OPERATION)); }}")
        for argument in self.arguments:
            if argument.prepared:
                mutable = "mut " if ".as_mut_ptr" in "".join(argument.c.values()) else ""
                given = self.access(argument.name)
                if argument.is_name and not self.is_struct:
                    given += ".into()"
                lines.append(f"let {mutable}{argument.name} = {argument.prepared.format(given)};")
        return lines

    def call(self, **outs):
        """The call of the C function, with these for what it stores through."""
        given = dict(outs)
        for argument in self.arguments:
            for c_name, pattern in argument.c.items():
                given[c_name] = pattern.format(argument.name if argument.prepared else self.access(argument.name))
        for parameter in self.parameters:
            if parameter["kind"] == "unsent":
                given[parameter["name"]] = "EMPTY.as_ptr()" if parameter["type"]["pointers"] else "0"
        return f"sys::{self.c_name}({', '.join(given[p['name']] for p in self.parameters)})"

    @property
    def rejected(self):
        """The conditions under which C would read what is not there."""
        names = {argument.name: self.access(argument.name) for argument in self.arguments}
        return [condition.format(**names) for condition, _ in self.guards]

    @property
    def result_parameter(self):
        return self.parameter(self.result["parameter"])

    @property
    def room(self):
        """The size of a raw reply, in bytes."""
        return f"sys::{self.result_parameter['size']['macro']}"

    @property
    def is_boxed(self):
        return self.shape == "get_raw" and not self.sized and self.result_parameter["size"]["bytes"] > LARGEST_IN_PLACE

    @property
    def result_type(self):
        if self.result is None:
            return "()"
        base = self.result["type"]
        kind = self.result_parameter["kind"]
        if self.sized:
            return f"Entries<'_, {{ sys::{self.parameter(self.result['count'])['unit']['macro']} }}>"
        if self.shape == "get_block":
            return f"EntryBlock<{{ sys::{self.parameter(self.result['count'])['unit']['macro']} }}>"
        if self.shape == "get_record":
            return f"Owned<{camel(base)}>"
        if self.shape in ("get_list", "get_table"):
            return f"List<{camel(self.interface.record_of(base))}>"
        if self.shape == "fill_record":
            return camel(base)
        if kind == "mac":
            return "Mac"
        if kind == "ipv4":
            return "Ipv4Addr"
        if self.shape == "get_raw":
            return f"Box<[u8; {self.room}]>" if self.is_boxed else f"[u8; {self.room}]"
        return rust_type(base)

    @property
    def lines(self):
        """The documentation."""
        lines = paragraphs_of([self.brief, *self.description], translated)
        items = []
        if not self.is_struct and not self.sized:
            items += [(f"`{argument.name}`", argument.words) for argument in self.arguments]
        if self.sized:
            items.append(("`buffer`", "room for the entries"))
        if items:
            lines.append("")
            for name, words in items:
                lines += wrapped(translated(f"{name}: {words}" if words else name), "- ", "  ")
        if self.result:
            lines += ["", *wrapped(translated(f"Returns {self.returned}."))]
        failures = [f"EINVAL: {words}" for _, words in self.guards]
        failures += [f"{error['name']}: {error['text']}" for error in self.errors if error["name"] != "none"]
        if self.leaves_errno:
            left = next(error for error in self.errors if error["name"] == "none")
            failures.append("EOVERFLOW: " + re.sub(r"^errno is not set: ", "", left["text"]))
        if failures:
            lines += ["", "# Errors", ""]
            for words in failures:
                lines += wrapped(translated(words), "- ", "  ")
        return lines

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
        words = re.sub(r"(written by the module itself), also before it fails; .*$", "what the module writes", words)
        words = re.sub(r"\. Untouched .*$|, also before it fails.*$", "", words)
        return re.sub(r"^IPv4, .*$", "the address", words) or "the value"


class Member:
    """A member of a record, as its accessor gives it."""

    def __init__(self, member, record, interface):
        self.member = member
        self.c_name = member["name"]
        self.name = snake(self.c_name)
        self.kind = member["kind"]
        self.interface = interface
        self.record = record
        self.base = member["type"]["base"]
        self.length = member["type"].get("length")
        self.counted_by = next(
            (
                count["name"]
                for count in record["members"]
                if count.get("as_reported")
                for array in count.get("counts", [])
                if array["member"] == self.c_name
            ),
            None,
        )

    @property
    def is_scalar(self):
        return self.length is None and not self.base.startswith("Lumo") and self.kind not in ("ipv4", "ipv4_mask")

    @property
    def words(self):
        if self.counted_by:
            return f"As many as `{snake(self.counted_by)}` says, but no more than there is room for."
        text = self.member["text"]
        return text[0].upper() + text[1:] + "." if text else ""

    @property
    def type(self):
        number = rust_type(self.base)
        if self.kind in self.interface.names and self.length:
            return f"{self.interface.names[self.kind]}<'_>"
        if self.kind == "ipv4":
            return "Ipv4Addr"
        if self.kind == "ipv4_mask":
            return "Ipv4Mask"
        if self.kind == "ipv6":
            return "Ipv6Addr"
        if self.kind == "mac":
            return "Mac"
        if self.base.startswith("Lumo"):
            record = camel(self.base)
            if self.length is None:
                return f"&{record}"
            return f"&[{record}]" if self.counted_by else f"&[{record}; {self.length}]"
        if self.length is None:
            return number
        if number == "u8":
            return f"&[u8; {self.length}]"
        return f"impl ExactSizeIterator<Item = {number}>" if self.counted_by else f"[{number}; {self.length}]"

    @property
    def value(self):
        field = f"self.0.{self.c_name}"
        if "bits" in self.member:
            return f"self.0.{self.c_name}()"
        if self.kind in self.interface.names and self.length:
            return f"Name::of_field(&{field})"
        if self.kind == "ipv4":
            return f"ipv4_from_raw({field})"
        if self.kind == "ipv4_mask":
            return f"Ipv4Mask::from_raw({field})"
        if self.kind == "ipv6":
            return f"Ipv6Addr::from({field})"
        if self.kind == "mac":
            return f"Mac::new({field})"
        count = f"self.0.{self.counted_by} as usize" if self.counted_by else ""
        if self.base.startswith("Lumo"):
            if self.length is None:
                return f"one_record(&{field})"
            return f"records(&{field}, {count})" if self.counted_by else f"all_records(&{field})"
        if self.length is not None and rust_type(self.base) == "u8":
            return f"&{field}"
        return f"{field}.into_iter().take({count})" if self.counted_by else field


class Interface:
    def __init__(self, description):
        self.description = description
        self.version = description["version"]
        self.chapters = description["chapters"]
        self.macros = description["macros"]
        functions = [
            function
            for function in description["functions"]
            if function["operation"] not in ("release", "fill_list", "exchange", "make_key")
        ]
        used = {p["kind"] for function in functions for p in function["parameters"] if self.is_name(p)}
        self.kinds = [kind for kind in description["kinds"] if kind["name"] in used]
        self.names = {kind["name"]: self.name_of(kind) for kind in self.kinds}
        self.operations = [Operation(function, self) for function in functions]
        types = [self.rust_record(record) for record in self.all_records] + list(self.names.values())
        types += [operation.struct for operation in self.operations if operation.is_struct]
        assert len(set(types)) == len(types), "two types of one name"

    @staticmethod
    def is_name(parameter):
        text = parameter["type"] == {"base": "char", "const": True, "pointers": 1}
        return text and parameter["kind"] != "unsent" and parameter["direction"] == "in"

    @staticmethod
    def is_key(kind):
        return kind["text"].startswith("The key of")

    @classmethod
    def name_of(cls, kind):
        """The type of texts of a kind."""
        name = camel(kind["name"])
        if kind["text"] == "The key of what it names.":
            return "AnyKey"
        if cls.is_key(kind):
            return f"{name}Key"
        return name if name in ("Text", "MacText") or name.endswith("Name") else f"{name}Name"

    rust_record = staticmethod(lambda record: camel(record["name"]))

    def raw_of(self, chapter, what):
        return [one for one in self.description[what] if one["chapter"] == chapter]

    def of_chapter(self, chapter):
        return [operation for operation in self.operations if operation.chapter == chapter]

    @property
    def lists(self):
        return self.description["lists"] + self.description["tables"]

    def record_of(self, one):
        return next(each["record"] for each in self.lists if each["name"] == one)

    @property
    def all_records(self):
        """The records that have a name here: all but those that are lists."""
        lists = {one["name"] for one in self.lists}
        return [r for r in self.description["records"] if r["name"] not in lists and r["name"] != "LumoEnvelope"]

    def records_of(self, chapter):
        return [record for record in self.all_records if record["chapter"] == chapter]

    def members_of(self, record):
        return [Member(member, record, self) for member in record["members"] if member["kind"] != "not_copied"]

    def prefixes_of(self, record):
        """The addresses of a record whose mask, or length, lies behind them."""
        members = record["members"]
        lengths = {"ipv4": "ipv4_mask", "ipv6": "prefix_length"}
        return [
            {"address": address["name"], "kind": address["kind"], "length": length["name"]}
            for address, length in zip(members, members[1:])
            if lengths.get(address["kind"]) == length["kind"]
        ]

    def given(self, record):
        """Whether callers fill such records."""
        return any(
            p["direction"] == "in" and p["type"]["base"] == record["name"] and p["type"]["const"]
            for function in self.description["functions"]
            for p in function["parameters"]
        )

    def list_of(self, record):
        """The list of such records, if there is one."""
        return next((one for one in self.lists if one["record"] == record["name"]), None)

    def release_of(self, record):
        """What frees one such record that a read has handed out, if one does."""
        return next(
            (
                o.result["release"]
                for o in self.operations
                if o.shape == "get_record" and o.result["type"] == record["name"]
            ),
            None,
        )

    def fields_of(self, record):
        """The fields of a packed record as C has it, with bit-fields that share a word as one of them."""
        fields = []
        for member in record["members"]:
            if "bits" not in member:
                fields.append(
                    {
                        "name": member["name"],
                        "type": raw_type(member["type"]),
                        "offset": member["offset"],
                        "text": member["text"],
                        "bits": [],
                    }
                )
                continue
            bits = {
                "name": member["name"],
                "shift": 8 * member["offset"] + member["bits"]["offset"],
                "width": member["bits"]["width"],
                "text": member["text"],
            }
            if bits["shift"] % 32 == 0:
                kind = rust_type(member["type"]["base"])
                fields.append(
                    {
                        "name": "",
                        "type": kind,
                        "offset": member["offset"],
                        "text": "",
                        "bits": [],
                        "from": bits["shift"],
                    }
                )
            word = fields[-1]
            bits["shift"] -= word["from"]
            word["bits"].append(bits)
            word["name"] = "_and_".join(each["name"] for each in word["bits"])
        return fields


def generated(interface, environment):
    """Path and text of each generated file of the crates."""

    def filled(template, **names):
        return environment.get_template(template).render(**names)

    chapters = [chapter for chapter in interface.chapters if interface.of_chapter(chapter["name"])]
    yield "lumozeph-sys/src/lib.rs", filled("sys.rs.jinja")
    yield "lumozeph-sys/tests/layout.rs", filled("layout.rs.jinja")
    yield "lumozeph/src/generated/mod.rs", filled("generated.rs.jinja", chapters=chapters)
    yield "lumozeph/src/generated/names.rs", filled("names.rs.jinja")
    for chapter in chapters:
        yield f"lumozeph/src/generated/{chapter['name']}.rs", filled("chapter.rs.jinja", chapter=chapter)


def formatted(text):
    # The configuration is found from where the program runs.
    command = [RUSTFMT, "--edition", "2021", "--config-path", HERE]
    return subprocess.run(command, input=text, stdout=subprocess.PIPE, check=True, text=True).stdout


def main():
    description_path, *rest = sys.argv[1:]
    with open(description_path, encoding="utf-8") as file:
        interface = Interface(json.load(file))
    into = rest[1] if rest[0] == "--sources" else None
    folder = os.path.join(HERE, "templates") if into else os.path.dirname(os.path.abspath(rest[0]))
    environment = jinja2.Environment(
        loader=jinja2.FileSystemLoader(folder),
        trim_blocks=True,
        lstrip_blocks=True,
        keep_trailing_newline=True,
        undefined=jinja2.StrictUndefined,
    )
    environment.filters.update(
        snake=snake,
        camel=camel,
        identifier=identifier,
        raw_type=raw_type,
        raw_comment=raw_comment,
        documented=documented,
        translated=translated,
        without_workers=without_workers,
        position_in=lambda name, operation: operation.position(name),
    )
    environment.globals.update(interface=interface, is_key=Interface.is_key, comment=comment)
    if not into:
        print(environment.get_template(os.path.basename(rest[0])).render(), end="")
        return
    for path, text in generated(interface, environment):
        os.makedirs(os.path.dirname(os.path.join(into, path)), exist_ok=True)
        with open(os.path.join(into, path), "w", encoding="utf-8") as file:
            file.write(formatted(text))


if __name__ == "__main__":
    main()
