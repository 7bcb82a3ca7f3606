"""The description of the interface, as what is made from it looks at it.

The layers in bindings/ derive their operations and interface from those here; tool/ and man/ only read and fill.
"""

import json
import re

import jinja2

# What functions do that serve others alone: they have no name of their own in a layer.
OF_OTHERS = ("release", "fill_list", "exchange", "make_key")
# More arguments than these, or two that could be swapped, are an aggregate.
MOST_ARGUMENTS = 3


def read(path):
    with open(path, encoding="utf-8") as file:
        return json.load(file)


def templates(folder):
    """What fills the templates in a folder, or in several."""
    return jinja2.Environment(
        loader=jinja2.FileSystemLoader(folder),
        trim_blocks=True,
        lstrip_blocks=True,
        keep_trailing_newline=True,
        undefined=jinja2.StrictUndefined,
    )


def snake(name):
    """The name of a function, record or member in small letters, with a line between its words."""
    name = re.sub(r"^(LUMOZEPH_?|Lumo(?=[A-Z]))", "", name)
    name = name.replace("UnPlumb", "Unplumb").replace("MRout", "Mrout")
    name = re.sub(r"(?<!Ip)v6$", "_v6", name)
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name).lower()


def without_workers(paragraphs):
    """What is not said of the workers of lists, which have no name in a layer."""
    kept = []
    for paragraph in paragraphs:
        if paragraph.startswith("The pair") or "LUMOZEPHGet" in paragraph:
            continue
        sentences = [sentence for sentence in re.split(r"(?<=\.) ", paragraph) if "worker" not in sentence]
        kept.append(" ".join(sentences))
    return kept


class Operation:
    """A function of C, as every layer sees it."""

    # What is returned, where layers say it in different words.
    entries = "the entries that lie in the buffer, and how many the module reports"
    raw = "{} bytes"
    written = "as the module writes it"

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
        # The caller's buffer of a size of its own.
        self.sized = next((p for p in self.parameters if p.get("size", {}).get("unit") == "bytes"), None)
        outs = {self.answer, self.result and self.result["parameter"], self.result and self.result.get("count")}
        self.inputs = [p for p in self.parameters if p["name"] not in outs and p["kind"] != "unsent"]

    def position(self, name):
        return [p["name"] for p in self.parameters].index(name)

    def parameter(self, name):
        return next(p for p in self.parameters if p["name"] == name)

    @property
    def result_parameter(self):
        return self.parameter(self.result["parameter"])

    @property
    def returned(self):
        """What the result is."""
        if self.sized:
            return self.entries
        if self.shape == "get_block":
            return "the entries"
        if self.result_parameter["kind"] == "mac":
            return "the address"
        if self.shape == "get_raw":
            return self.raw.format(self.result_parameter["size"]["macro"])
        words = re.sub(r",? ?(untouched|undefined) (on|if|after) .*$", "", self.result_parameter["summary"])
        words = re.sub(r"(written by the module itself), also before it fails; .*$", self.written, words)
        words = re.sub(r"\. Untouched .*$|, also before it fails.*$", "", words)
        return re.sub(r"^IPv4, .*$", "the address", words) or "the value"

    @property
    def failures(self):
        """The errors of its own and when they come. Where C leaves errno as it was, a layer has one of them, too."""
        return [
            ("EOVERFLOW", re.sub(r"^errno is not set: ", "", error["text"]))
            if error["name"] == "none"
            else (error["name"], error["text"])
            for error in self.errors
        ]

    def counts_in(self, record):
        """The counts in a record of the caller's, each with the room beside it, which it must not exceed."""
        members = self.interface.record(record)["members"]
        lengths = [member["type"]["length"] for member in members if "length" in member["type"]]
        return [(member["name"], lengths[0]) for member in members if member["kind"] == "count"]

    @staticmethod
    def switch_words(parameter, on, off):
        """What a switch does, with the words of a layer for its positions."""
        switch = parameter["switch"]
        return switch["chooses"] if "chooses" in switch else f"{on}: {switch['on']}; {off}: {switch['off']}"

    def ipv6_parts(self, parameter):
        """Of the address that a parameter begins: name and words, its second word, and its length if that follows."""
        name = parameter["address"]["name"]
        second = next(p for p in self.inputs if p.get("address") == {"name": name, "word": 2})
        after = self.inputs[self.inputs.index(second) + 1 :]
        length = after[0] if after and after[0]["kind"] == "prefix_length" else None
        return name, re.sub(r"'s first eight bytes$", "", parameter["summary"]), second, length


class NamedOperation(Operation):
    """The same where arguments that could be swapped are given by name, as members of an aggregate."""

    # What stands for a text that is not sent.
    empty_text = None

    def __init__(self, function, interface):
        super().__init__(function, interface)
        self.inputs = [p for p in self.inputs if p["kind"] != "size"]
        self.arguments = []
        # Conditions under which C would read what is not there, with their words.
        self.guards = []
        merged = set()
        for parameter in self.inputs:
            if parameter["name"] not in merged:
                self.arguments.append(self.argument(parameter, merged))

    def argument(self, parameter, merged):
        """What a parameter becomes; c has what C gets of that, by parameter. Others that it takes in go to merged."""
        raise NotImplementedError

    @property
    def is_aggregate(self):
        """Whether there are many arguments, or some of which swapping would go unnoticed."""
        if self.sized:
            return False
        numbers = sum(argument.is_number for argument in self.arguments)
        types = [argument.type for argument in self.arguments]
        return len(types) > MOST_ARGUMENTS or numbers > 1 or len(set(types)) < len(types)

    def access(self, name):
        return f"with.{name}" if self.is_aggregate else name

    @property
    def rejected(self):
        """The conditions of guards."""
        names = {argument.name: self.access(argument.name) for argument in self.arguments}
        return [condition.format(**names) for condition, _ in self.guards]

    def passed(self, argument):
        """What an argument is called where C gets it."""
        return self.access(argument.name)

    def passed_to_c(self, outs):
        """What C gets for its parameters, in their order, with these for what it stores through."""
        given = dict(outs)
        for argument in self.arguments:
            for c_name, pattern in argument.c.items():
                given[c_name] = pattern.format(self.passed(argument))
        for parameter in self.parameters:
            if parameter["kind"] == "unsent":
                given[parameter["name"]] = self.empty_text if parameter["type"]["pointers"] else "0"
        return ", ".join(given[p["name"]] for p in self.parameters)


class Interface:
    """All that is described, as every layer sees it."""

    # The class of operations: a layer has its own.
    operation = Operation

    def __init__(self, description):
        self.description = description
        self.version = description["version"]
        self.chapters = description["chapters"]
        self.lists = description["lists"] + description["tables"]
        functions = [function for function in description["functions"] if function["operation"] not in OF_OTHERS]
        used = {p["kind"] for function in functions for p in function["parameters"] if self.is_name(p)}
        # Of the texts that are sent.
        self.kinds = [kind for kind in description["kinds"] if kind["name"] in used]
        self.operations = [self.operation(function, self) for function in functions]

    @staticmethod
    def is_name(parameter):
        text = parameter["type"] == {"base": "char", "const": True, "pointers": 1}
        return text and parameter["kind"] != "unsent" and parameter["direction"] == "in"

    @staticmethod
    def is_key(kind):
        return kind["text"].startswith("The key of")

    def of_chapter(self, chapter):
        return [operation for operation in self.operations if operation.chapter == chapter]

    def record(self, name):
        return next(record for record in self.description["records"] if record["name"] == name)

    @property
    def records(self):
        """Those that have a name in a layer: all but those that are lists."""
        lists = {one["name"] for one in self.lists}
        return [r for r in self.description["records"] if r["name"] not in lists and r["name"] != "LumoEnvelope"]

    def records_of(self, chapter):
        return [record for record in self.records if record["chapter"] == chapter]

    def record_in(self, name):
        """The record that a list or table of this name holds, or the record of this name."""
        return next((one["record"] for one in self.lists if one["name"] == name), name)
