"""What all parts of the description look things up in."""

import re
from collections.abc import Iterator
from dataclasses import dataclass, field
from typing import Any

from .annotations import Annotations
from .comments import Preamble
from .mistakes import Mistake
from .phrases import Fact
from .source import Header, Record, Type

Object = dict[str, Any]

# What the library does not interpret is called so, in parameters and in records.
UNINTERPRETED = re.compile(r"(?i).*(value|text|data|block|bytes|word)s?\d*$")
UNINTERPRETED_KINDS = {"text": "text", "number": "value", "bytes": "bytes"}

# A name that a text mentions. "LUMOZEPH_GetBridge..." stands for many.
MENTIONED = re.compile(r"\bLUMOZEPH\w*\b(?!\.\.\.)|\bLumo[A-Z]\w*\b(?:\.\w+)?")


def class_of(said: Type) -> str:
    """Texts are of char, bytes are behind pointers and in arrays of uint8_t, and all else is a number."""
    if said.base == "char":
        return "text"
    if said.base == "void" or (said.base == "uint8_t" and (said.pointers or said.length)):
        return "bytes"
    return "number"


@dataclass
class Interface:
    header: Header
    annotations: Annotations
    preamble: Preamble
    mistakes: list[Mistake] = field(default_factory=list)
    used_kinds: set[str] = field(default_factory=set)

    def __post_init__(self) -> None:
        self.macros = {macro.name: macro.value for macro in self.header.macros}
        self.records = {record.name: record for record in self.header.records}
        functions = {function.name for function in self.header.functions}
        members = {f"{record.name}.{member.name}" for record in self.header.records for member in record.members}
        self.mentionable = functions | members | self.macros.keys() | self.records.keys()

    def chapter_at(self, line: int, name: str) -> str:
        before = [chapter.name for chapter in self.header.chapters if chapter.line < line]
        if not before:
            raise Mistake(line, f"{name} stands before the first chapter")
        return before[-1]

    def convention(self, title: str) -> str:
        for one in self.preamble.conventions:
            if one.title == title:
                return " ".join(texts_in(one.text))
        raise Mistake(self.header.preamble.line, f'there is no convention "{title}"')

    def errno_terms(self) -> dict[str, str]:
        """What the conventions say of each errno, in a sentence."""
        for one in self.preamble.conventions:
            if one.title == "errno":
                terms = [term for block in one.text if isinstance(block, dict) for term in block["terms"]]
                return {term["term"]: term["text"].partition(". ")[0].rstrip(";.") for term in terms}
        raise Mistake(self.header.preamble.line, 'there is no convention "errno"')

    def macro(self, name: str, line: int) -> Object:
        if name not in self.macros:
            raise Mistake(line, f"there is no macro {name}")
        return {"macro": name, "value": self.macros[name]}

    def size(self, said: Fact, line: int) -> Object:
        """A number of bytes or elements, with its value where the header fixes it."""
        if "macro" not in said:
            return said
        return {"macro": said["macro"], "bytes": self.macro(said["macro"], line)["value"]}

    def holder_of(self, record: Record) -> str | None:
        """How a struct holds records behind a pointer: as a list, with room, or as a table of exactly so many."""
        if record.packed:
            return None
        behind = [member for member in record.members if member.type.pointers]
        if len(record.members) != 2 or len(behind) != 1 or behind[0].type.base not in self.records:
            raise Mistake(record.line, f"{record.name} is neither packed nor a count with a pointer to records")
        return "list" if "room for " in behind[0].comment.lines[0].text else "table"

    def kind(self, name: str, width: int | None, what: str, line: int) -> str:
        """Notes that a kind is in use, for something that is so wide."""
        kind = self.annotations.kinds.get(name)
        if kind is None:
            raise Mistake(line, f"{self.annotations.path} does not say what the kind {name} is")
        if kind.width is not None and width is not None and width != kind.width:
            raise Mistake(line, f"{what} is {width} bytes wide, and {name} is {kind.width}")
        self.used_kinds.add(name)
        return name

    def check_mentions(self, part: Any, line: int) -> None:
        """Every function, macro, record and member that a text mentions is there."""
        for text in texts_in(part):
            for name in MENTIONED.findall(text):
                if name not in self.mentionable:
                    raise Mistake(line, f"there is nothing called {name}")


def texts_in(value: Any) -> Iterator[str]:
    """All strings of a part of the description."""
    if isinstance(value, str):
        yield value
    elif isinstance(value, dict):
        for one in value.values():
            yield from texts_in(one)
    elif isinstance(value, list):
        for one in value:
            yield from texts_in(one)
