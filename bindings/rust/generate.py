"""Writes what of the Rust layer is made from the description of the interface.

usage: generate.py DESCRIPTION --sources FOLDER
       generate.py DESCRIPTION TEMPLATE

Writes the generated files of the crates below FOLDER, which lies like bindings/rust/, formatted; or prints TEMPLATE,
filled.
"""

import functools
import os
import re
import subprocess
import sys
import textwrap

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "..", "api"))

import described
from described import snake, without_workers

RUSTFMT = "/usr/bin/rustfmt"
WIDTH = 112
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


class Operation(described.NamedOperation):
    """A function of C, as Rust sees it."""

    written = "what the module writes"
    empty_text = "EMPTY.as_ptr()"

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
                return Argument(name, "Ipv4Addr", words, {c_name: "raw_ipv4({})"})
            merged.add(mask["name"])
            accessors = {c_name: "raw_ipv4({}.address())", mask["name"]: "{}.mask().to_raw()"}
            return Argument(name, "Ipv4Prefix", f"{words}, and its mask", accessors)
        if kind == "ipv4_mask":  # Of no parameter's address.
            return Argument(name, "Ipv4Mask", words, {c_name: "{}.to_raw()"})
        if kind == "switch":
            words = self.switch_words(parameter, "on", "off")
            return Argument(name, "Switched", words, {c_name: f"{{}} as {rust_type(base).replace('c_int', 'i32')}"})
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
            records = next(p for p in self.inputs if p.get("size", {}).get("parameter") == c_name)
            merged.add(records["name"])
            return self.argument(records, merged)
        if kind == "record":
            for count, room in self.counts_in(base):
                self.guards.append(
                    (f"{{{name}}}.{snake(count)}() > {room}", f"the {count} of `{name}` is larger than {room}")
                )
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

    def ipv6_argument(self, parameter, merged):
        name, words, second, length = self.ipv6_parts(parameter)
        merged.add(second["name"])
        if not length:
            accessors = {parameter["name"]: "raw_ipv6({})[0]", second["name"]: "raw_ipv6({})[1]"}
            return Argument(snake(name), "Ipv6Addr", words, accessors)
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
        return "<'a>" if not self.is_aggregate and any(argument.is_name for argument in self.arguments) else ""

    @staticmethod
    def parameter_of(argument):
        if argument.is_name:
            return f"{argument.name}: impl Into<{argument.type}>"
        return f"{argument.name}: {argument.type}"

    @property
    def declared(self):
        """The parameters of the Rust function."""
        if self.is_aggregate:
            return f"with: &{self.struct_type}".replace("'a", "'_")
        if self.sized:
            return "buffer: &mut [u8]"
        declared = ", ".join(self.parameter_of(argument) for argument in self.arguments)
        return declared if self.function_generics else declared.replace("'a", "'_")

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
                if argument.is_name and not self.is_aggregate:
                    given += ".into()"
                lines.append(f"let {mutable}{argument.name} = {argument.prepared.format(given)};")
        return lines

    def passed(self, argument):
        return argument.name if argument.prepared else super().passed(argument)

    def call(self, **outs):
        """The call of the C function, with these for what it stores through."""
        return f"sys::{self.c_name}({self.passed_to_c(outs)})"

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
            return f"List<{camel(self.interface.record_in(base))}>"
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
        if not self.is_aggregate and not self.sized:
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
        failures += [f"{name}: {words}" for name, words in self.failures]
        if failures:
            lines += ["", "# Errors", ""]
            for words in failures:
                lines += wrapped(translated(words), "- ", "  ")
        return lines


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


class Interface(described.Interface):
    operation = Operation

    def __init__(self, description):
        super().__init__(description)
        self.macros = description["macros"]
        types = [camel(record["name"]) for record in self.records] + list(self.names.values())
        types += [operation.struct for operation in self.operations if operation.is_aggregate]
        assert len(set(types)) == len(types), "two types of one name"

    @functools.cached_property
    def names(self):
        """The types of texts, by their kinds."""
        return {kind["name"]: self.name_of(kind) for kind in self.kinds}

    @classmethod
    def name_of(cls, kind):
        """The type of texts of a kind."""
        name = camel(kind["name"])
        if kind["text"] == "The key of what it names.":
            return "AnyKey"
        if cls.is_key(kind):
            return f"{name}Key"
        return name if name in ("Text", "MacText") or name.endswith("Name") else f"{name}Name"

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
    interface = Interface(described.read(description_path))
    into = rest[1] if rest[0] == "--sources" else None
    folder = os.path.join(HERE, "templates") if into else os.path.dirname(os.path.abspath(rest[0]))
    environment = described.templates(folder)
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
