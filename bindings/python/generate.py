"""Writes what of the Python layer is made from the description of the interface.

usage: generate.py DESCRIPTION TEMPLATE

Prints TEMPLATE, filled.
"""

import json
import os
import re
import sys
import textwrap

import jinja2

WIDTH = 120
KINDS_OF_OTHERS = ("release", "fill_list", "exchange", "make_key")
NUMBERS = {"uint8_t": "u8", "uint16_t": "u16", "uint32_t": "u32", "int32_t": "i32"}


def snake(name):
    """The name of a function: that of C in small letters, with a line between its words."""
    name = re.sub(r"^LUMOZEPH_?", "", name)
    name = name.replace("UnPlumb", "Unplumb").replace("MRout", "Mrout")
    name = re.sub(r"(?<!Ip)v6$", "_v6", name)
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name).lower()


def bare(name):
    """The name of a record or a macro without what C needs before it."""
    return re.sub(r"^(LUMOZEPH_|Lumo(?=[A-Z]))", "", name)


def in_python(text):
    """A text of the description with the names that things have here."""
    text = re.sub(r"\bLUMOZEPH_?[A-Z][A-Za-z0-9]*[a-z][A-Za-z0-9]*\b", lambda name: snake(name[0]), text)
    text = re.sub(r"\b(LUMOZEPH_[A-Z0-9_]+|Lumo[A-Z]\w+)\b", lambda name: bare(name[0]), text)
    return re.sub(r"\bnull\b", "None", re.sub(r"^Null\b", "None", text))


def sentences(paragraphs):
    """Paragraphs without what is said of the workers of lists, which have no name here."""
    kept = []
    for paragraph in paragraphs:
        if isinstance(paragraph, str):
            paragraph = " ".join(one for one in re.split(r"(?<=\.) ", paragraph) if "worker" not in one)
        if paragraph:
            kept.append(paragraph)
    return kept


def filled(text, indent, first=None):
    return textwrap.wrap(
        text,
        WIDTH,
        initial_indent=indent if first is None else first,
        subsequent_indent=indent,
        break_on_hyphens=False,
        break_long_words=False,
    )


def docstring(paragraphs, sections=(), indent="    "):
    """Paragraphs, and sections that are a title and pairs of a name and its words, or words alone."""
    lines = filled(in_python(paragraphs[0]), indent, indent + '"""')
    for paragraph in paragraphs[1:]:
        lines.append("")
        if isinstance(paragraph, dict):
            for term in paragraph["terms"]:
                lines += filled(f"{term['term']}: {in_python(term['text'])}", indent + "        ", indent + "    ")
        else:
            lines += filled(in_python(paragraph), indent)
    for title, entries in sections:
        lines += ["", f"{indent}{title}:"]
        for name, words in entries:
            words = in_python(words)
            entry = f"{name}: {words}" if name and words else name or words
            lines += filled(entry, indent + "        ", indent + "    ")
    if len(lines) == 1 and len(lines[0]) + 3 <= WIDTH:
        return lines[0] + '"""'
    return "\n".join([*(line.rstrip() for line in lines), indent + '"""'])


def signature(name, parameters, returned="", ending=":"):
    """A definition on one line, or with a line for each parameter if they are too many."""
    line = f"def {name}({', '.join(parameters)}){returned}{ending}"
    if len(line) <= WIDTH:
        return line
    return "\n".join([f"def {name}(", *(f"    {one}," for one in parameters), f"){returned}{ending}"])


def statement(before, parts, after):
    """A call on one line, or with its arguments on lines of their own."""
    line = f"{before}{', '.join(parts)}{after}"
    indent = re.match(r" *", before)[0]
    if len(line) <= WIDTH:
        return line
    together = f"{indent}    {', '.join(parts)}"
    if len(together) <= WIDTH:
        return "\n".join([before, together, indent + after])
    return "\n".join([before, *(f"{indent}    {part}," for part in parts), indent + after])


class Argument:
    """A parameter of a function here; passed is what C gets of it, by the name of C's parameter."""

    def __init__(self, name, annotation, words, passed, default=None):
        self.name = name
        self.annotation = annotation
        self.words = words
        self.passed = passed
        self.default = default


class Operation:
    """A function of C, as Python sees it."""

    def __init__(self, function, interface):
        self.c_name = function["name"]
        self.name = snake(self.c_name)
        self.shape = function["operation"]
        self.chapter = function["chapter"]
        self.paragraphs = [function["brief"], *sentences(function["description"])]
        self.parameters = function["parameters"]
        self.interface = interface
        self.answer = function.get("answer")
        self.result = function.get("result")
        self.errors = [error for error in function["errors"] if error["from"] == "function"]
        self.leaves_errno = any(error["name"] == "none" for error in function["errors"])
        self.guards = []
        outs = {self.answer, self.result and self.result["parameter"], self.result and self.result.get("count")}
        self.sized = next((p for p in self.parameters if p.get("size", {}).get("unit") == "bytes"), None)
        self.inputs = [p for p in self.parameters if p["name"] not in outs and p["kind"] != "unsent"]
        self.takes_many = len(self.inputs) > 3 or sum(self.is_number(p) for p in self.inputs) > 1
        self.arguments = []
        taken = set()
        for parameter in self.inputs:
            if parameter["name"] not in taken:
                argument = self.argument(parameter)
                taken.update(argument.passed)
                self.arguments.append(argument)
        if self.answer:
            words = f"{self.parameter(self.answer)['summary']} is stored here"
            self.arguments.append(
                Argument(self.answer, "Optional[CmdResult]", words, {self.answer: self.answer}, "None")
            )

    @staticmethod
    def is_number(parameter):
        return parameter["type"]["pointers"] == 0 and parameter["kind"] not in (
            "ipv4",
            "ipv4_mask",
            "ipv6_word",
            "switch",
        )

    def parameter(self, name):
        return next(p for p in self.parameters if p["name"] == name)

    @staticmethod
    def words(parameter):
        """What a parameter is, how much of it is used and what it means to leave it out."""
        words = [parameter["summary"]] if parameter["summary"] else []
        limit = parameter.get("limit")
        if limit:
            words.append(f"at most {limit['bytes']} bytes" if limit["terminated"] else f"cut to {limit['bytes']} bytes")
        text = ", ".join(words)
        null = parameter.get("null", {})
        if "if" in null:
            condition = f"{null['if']['parameter']} is {null['if']['is']}"
            if null["effect"] == "error":
                return f"{text}; None: {null['errno']} if {condition}, and otherwise {null['otherwise']}"
            return text
        return f"{text}; None: {null['text']}" if null.get("effect") == "meaning" else text

    def argument(self, parameter):
        name = parameter["name"]
        kind = parameter["kind"]
        base = parameter["type"]["base"]
        null = parameter.get("null", {})
        may_be_none = null.get("effect") == "meaning" or "if" in null
        words = self.words(parameter)
        if kind == "ipv6_word":
            address = parameter["address"]["name"]
            second = next(p for p in self.inputs if p.get("address") == {"name": address, "word": 2})
            words = re.sub(r"'s first eight bytes$", "", parameter["summary"])
            return Argument(address, "IPv6Argument", words, {name: f"*c.ipv6({address})", second["name"]: ""})
        if kind == "ipv4":
            return Argument(name, "IPv4Argument", words, {name: f"c.ipv4({name})"})
        if kind == "ipv4_mask":
            return Argument(name, "MaskArgument", f"{words}; a number: that of a length", {name: f"c.mask({name})"})
        if kind == "switch":
            switch = parameter["switch"]
            words = switch["chooses"] if "chooses" in switch else f"True: {switch['on']}; False: {switch['off']}"
            return Argument(name, "bool", words, {name: f"1 if {name} else 0"})
        if kind == "mac":
            return self.mac(parameter, may_be_none, words)
        if kind in ("count", "records") and parameter["direction"] == "in":
            records = next(p for p in self.inputs if p["kind"] == "records")
            count = records["size"]["parameter"]
            record = bare(records["type"]["base"])
            number = NUMBERS[self.parameter(count)["type"]["base"]]
            passed = {
                count: f"c.{number}(len({records['name']}))",
                records["name"]: f"c.records({record}, {records['name']})",
            }
            words = self.words(self.parameter(count))
            return Argument(records["name"], f"Sequence[{record}]", words, passed, "()")
        if kind == "record":
            self.guard_count(name, base)
            words = re.sub(r"; its size must not exceed.*$", "", words)
            return Argument(name, bare(base), words, {name: name})
        if kind == "bytes":
            macro = bare(parameter["size"]["macro"])
            return Argument(name, "BytesArgument", f"{words}: {macro} bytes", {name: f"c.block({name}, {macro})"})
        if kind == "dhcp_servers":
            words = "addresses separated by commas: EINVAL; None: no servers"
            return Argument(name, "Optional[str]", words, {name: f"c.writable({name})"}, "None")
        if name == self.size_argument:
            return Argument(name, "int", "room for entries, in bytes", {name: f"c.{NUMBERS[base]}({name})"})
        if parameter["type"]["pointers"] == 0:
            default = "0" if kind == "value" and self.takes_many else None
            return Argument(name, "int", words, {name: f"c.{NUMBERS[base]}({name})"}, default)
        if may_be_none:
            return Argument(name, "Optional[str]", words, {name: f"c.maybe_text({name})"}, "None")
        return Argument(name, "str", words, {name: f"c.text({name})"})

    def mac(self, parameter, may_be_none, words):
        name = parameter["name"]
        words = words.replace("6 bytes", "the MAC address") or "the MAC address"
        if not may_be_none:
            return Argument(name, "MacArgument", words, {name: f"c.mac({name})"})
        condition = parameter["null"].get("if")
        if condition:
            chooser = condition["parameter"]
            words += f"; may be None if {chooser} is false"
            self.guards.append(
                (
                    f"{name} is None and {chooser}",
                    f'"{name} is needed if {chooser} is true"',
                    f"{name} is None though {chooser} is true",
                )
            )
        return Argument(name, "Optional[MacArgument]", words, {name: f"c.maybe_mac({name})"}, "None")

    def guard_count(self, name, record):
        """A count in a record of the caller's must not be larger than the array beside it."""
        members = next(one for one in self.interface.records if one["name"] == record)["members"]
        arrays = [member for member in members if "length" in member["type"]]
        for count in (member for member in members if member["kind"] == "count"):
            length = arrays[0]["type"]["length"]
            words = f"{name}.{count['name']} is larger than {length}"
            self.guards.append((f"{name}.{count['name']} > {length}", f'"{words}"', words))

    @property
    def size_argument(self):
        return self.sized["size"]["parameter"] if self.sized else None

    def parameter_list(self, written):
        """The parameters: what may be left out, and all that follows it, is given by name, unless it is one."""
        first = next((i for i, one in enumerate(self.arguments) if one.default is not None), len(self.arguments))
        listed = [written(one) for one in self.arguments]
        if first < len(self.arguments) - 1:
            listed.insert(first, "*")
        return listed

    @property
    def definition(self):
        return signature(
            self.name,
            self.parameter_list(lambda one: one.name if one.default is None else f"{one.name}={one.default}"),
        )

    @property
    def declaration(self):
        def written(one):
            return f"{one.name}: {one.annotation}" + (f" = {one.default}" if one.default is not None else "")

        return signature(self.name, self.parameter_list(written), f" -> {self.returned_type}", ": ...")

    def call(self, **outs):
        """What is passed to the C function, with these for what it stores through."""
        passed = dict(outs)
        for argument in self.arguments:
            passed.update(argument.passed)
        for parameter in self.parameters:
            if parameter["kind"] == "unsent":
                passed[parameter["name"]] = 'b""' if parameter["type"]["pointers"] else "0"
        return [passed[p["name"]] for p in self.parameters if passed[p["name"]]]

    def condition(self, **outs):
        return statement(f"    if _{bare(self.c_name)}(", self.call(**outs), "):")

    @property
    def c_types(self):
        return [self.c_type(parameter) for parameter in self.parameters]

    def c_type(self, parameter):
        c_type = parameter["type"]
        if c_type["pointers"] == 0:
            return "c_" + re.sub(r"_t$", "", c_type["base"])
        if parameter["name"] == self.answer or parameter["kind"] in ("record", "records") and c_type["const"]:
            return f"POINTER({bare(c_type['base'])})"
        return "c_char_p" if parameter["direction"] != "out" else "c_void_p"

    @property
    def bound(self):
        return statement(f"_{bare(self.c_name)} = function(", [f'"{self.c_name}"', *self.c_types], ")")

    @property
    def result_parameter(self):
        return self.parameter(self.result["parameter"])

    @property
    def record(self):
        """The record that is read, once or several times."""
        lists = {one["name"]: one for one in self.interface.lists}
        return bare(lists[self.result["type"]]["record"] if self.result["type"] in lists else self.result["type"])

    @property
    def returned_type(self):
        if self.result is None:
            return "None"
        kind = self.result_parameter["kind"]
        if self.sized:
            return "Entries"
        if self.shape in ("get_record", "fill_record"):
            return self.record
        if self.shape == "get_raw":
            return "str" if kind == "mac" else "bytes"
        if self.shape == "get_value":
            return "IPv4Address" if kind == "ipv4" else "int"
        return {
            "get_list": f"RecordList[{self.record}]",
            "get_table": f"Records[{self.record}]",
            "get_block": "EntryBlock",
        }[self.shape]

    @property
    def returned(self):
        if self.sized:
            return "the entries that lie in so many bytes, and how many the module reports"
        if self.shape == "get_block":
            return "the entries"
        if self.result_parameter["kind"] == "mac":
            return "the address"
        if self.shape == "get_raw":
            return f"{self.result_parameter['size']['macro']} bytes; those that the module has not written are zero"
        words = re.sub(r",? ?(untouched|undefined) (on|if|after) .*$", "", self.result_parameter["summary"])
        words = re.sub(r"(written by the module itself), also before it fails; .*$", "as the module writes it", words)
        words = re.sub(r"\. Untouched .*$|, also before it fails.*$", "", words)
        return re.sub(r"^IPv4, .*$", "the address", words) or "the value"

    @property
    def docstring(self):
        sections = []
        if self.arguments:
            sections.append(("Args", [(argument.name, argument.words) for argument in self.arguments]))
        if self.result:
            sections.append(("Returns", [("", self.returned)]))
        raised = [("ValueError", words) for _, _, words in self.guards]
        for error in self.errors:
            if error["name"] == "none":
                text = re.sub(r"^errno is not set: ", "", error["text"])
                raised.append(("Error", f"EOVERFLOW: {text}"))
            else:
                raised.append(("Error", f"{error['name']}: {error['text']}"))
        if raised:
            sections.append(("Raises", raised))
        return docstring(self.paragraphs, sections)


class RecordClass:
    """A record, and how Python reads its members."""

    TYPES = {
        "Number": "int",
        "Bits": "int",
        "Text": "str",
        "Bytes": "bytes",
        "Mac": "str",
        "IPv4": "IPv4Address",
        "IPv6": "IPv6Address",
        "IP": "Union[IPv4Address, IPv6Address, bytes]",
        "Numbers": "Tuple[int, ...]",
    }
    TAKEN = {
        "Bytes": "BytesArgument",
        "Mac": "MacArgument",
        "IPv4": "IPv4Argument",
        "IPv6": "IPv6Argument",
        "IP": "Union[IPv4Argument, IPv6Argument, bytes]",
        "Numbers": "Sequence[int]",
    }

    def __init__(self, record):
        self.c_name = record["name"]
        self.name = bare(self.c_name)
        self.size = record["size"]
        self.chapter = record["chapter"]
        counted_by = {
            array["member"]: member["name"]
            for member in record["members"]
            if member.get("as_reported")
            for array in member.get("counts", [])
        }
        self.lines = []
        self.members = []
        words = []
        for member in record["members"]:
            kind, arguments = self.kind(member, record["members"], counted_by.get(member["name"]))
            listed = [f'"{member["name"]}"', *arguments]
            self.lines.append(f"{kind}({', '.join(listed)})")
            if kind != "Gap":
                self.members.append((member["name"], self.read_as(kind, member), self.taken_as(kind, member)))
                words.append((member["name"], member["text"]))
        paragraphs = [record["brief"], *sentences(record["description"])]
        # What is said of members behind the end of a table, and of what goes with a release, can not be seen here.
        told = [(name, text) for name, text in words if text and not re.search(r"\bpast \w+$|_Release", text)]
        sections = [("Attributes", told)]
        self.docstring = docstring(paragraphs, [section for section in sections if section[1]])

    @staticmethod
    def kind(member, members, counted_by):
        """The class of a member, and what it is made with."""
        base = member["type"]["base"]
        length = member["type"].get("length")
        c_type = "c_" + re.sub(r"_t$", "", base)
        counted = [f'counted_by="{counted_by}"'] if counted_by else []
        if member["kind"] == "not_copied":
            return "Gap", [str(member["width"])]
        if "bits" in member:
            # Those that share a word lie one behind the other.
            beside = [one for one in members if "bits" in one]
            shift = 8 * (member["offset"] - beside[0]["offset"]) + member["bits"]["offset"]
            word = "_".join(one["name"] for one in beside)
            return "Bits", [c_type, str(shift), str(member["bits"]["width"]), f'"{word}"']
        if base == "char":
            return "Text", [str(length)] + ([] if member["terminated"] else ["terminated=False"])
        if base.startswith("Lumo"):
            return ("Nested", [bare(base)]) if length is None else ("Table", [bare(base), str(length), *counted])
        if base == "uint8_t" and length is not None:
            kinds = {"mac": "Mac", "ipv6": "IPv6", "ip": "IP"}
            if member["kind"] == "ip":
                family = next(one for one in members if one["kind"] == "address_family")
                return "IP", [f'"{family["name"]}"']
            return (kinds[member["kind"]], []) if member["kind"] in kinds else ("Bytes", [str(length)])
        if member["kind"] in ("ipv4", "ipv4_mask"):
            return "IPv4", []
        return ("Number", [c_type]) if length is None else ("Numbers", [c_type, str(length), *counted])

    def read_as(self, kind, member):
        if kind in ("Nested", "Table"):
            record = bare(member["type"]["base"])
            return record if kind == "Nested" else f"Records[{record}]"
        return self.TYPES[kind]

    def taken_as(self, kind, member):
        if kind in ("Nested", "Table"):
            record = bare(member["type"]["base"])
            return record if kind == "Nested" else f"Iterable[{record}]"
        return self.TAKEN.get(kind, self.TYPES[kind])


class Interface:
    def __init__(self, description):
        self.version = description["version"]
        self.chapters = description["chapters"]
        self.records = description["records"]
        self.lists = description["lists"] + description["tables"]
        self.macros = [macro for macro in description["macros"] if "chapter" in macro]
        self.operations = [
            Operation(function, self)
            for function in description["functions"]
            if function["operation"] not in KINDS_OF_OTHERS
        ]
        lists = {one["name"] for one in self.lists}
        self.classes = [
            RecordClass(record)
            for record in self.records
            if record["name"] not in lists and record["name"] != "LumoEnvelope"
        ]

    def of_chapter(self, chapter):
        return [operation for operation in self.operations if operation.chapter == chapter]

    def classes_of(self, chapter):
        return [one for one in self.classes if one.chapter == chapter]

    def owners_of(self, chapter):
        """The lists of a chapter, each with the type of its count and what frees it."""
        for one in self.lists:
            record = next(record for record in self.records if record["name"] == one["name"])
            if record["chapter"] == chapter:
                count = next(member for member in record["members"] if member["name"] == "count")
                yield {
                    "name": bare(one["name"]),
                    "brief": record["brief"],
                    "base": "Owner" if "cap" in one else "TableOwner",
                    "record": bare(one["record"]),
                    "count": "c_" + re.sub(r"_t$", "", count["type"]["base"]),
                    "release": one["release"],
                }

    def cap_of(self, operation):
        one = next(one for one in self.lists if one["name"] == operation.result["type"])
        return bare(one["cap"]["macro"])

    def releases_of(self, chapter):
        """What frees the records of a chapter's single reads, where no chapter before has named it."""
        named = []
        for operation in self.operations:
            if operation.shape == "get_record" and operation.result["release"] not in [name for name, _ in named]:
                named.append((operation.result["release"], operation.chapter))
        return [name for name, first in named if first == chapter]


def with_imports(text, interface):
    """Fills the import of records with those that the text names."""
    names = [bare(macro["name"]) for macro in interface.macros] + [one.name for one in interface.classes]
    used = [name for name in names if re.search(rf"\b{name}\b", text)]
    used.sort(key=lambda name: (not name.isupper(), name))
    listed = "".join(f"    {name},\n" for name in used)
    return text.replace("from .records import used\n", f"from .records import (\n{listed})\n")


def main():
    description_path, template_path = sys.argv[1:]
    with open(description_path, encoding="utf-8") as file:
        interface = Interface(json.load(file))
    environment = jinja2.Environment(
        loader=jinja2.FileSystemLoader(os.path.dirname(os.path.abspath(template_path))),
        trim_blocks=True,
        lstrip_blocks=True,
        keep_trailing_newline=True,
        undefined=jinja2.StrictUndefined,
    )
    environment.filters.update(bare=bare, in_python=in_python)
    environment.globals.update(interface=interface)
    print(with_imports(environment.get_template(os.path.basename(template_path)).render(), interface), end="")


if __name__ == "__main__":
    main()
