"""What is known of the interface beyond the header. Remembers what was asked for: nothing stands there in vain."""

import tomllib
from collections.abc import Iterator
from dataclasses import dataclass
from typing import Any

from .mistakes import Mistakes


SECTIONS = {"header", "kinds", "parameters", "chapters", "functions", "addresses", "records"}


@dataclass(frozen=True)
class Kind:
    """What a parameter or a member means."""

    text: str
    of: list[str]  # the classes of C types that may have it: text, number, bytes; none where the header tells the kind
    width: int | None
    words: str
    convention: str | None
    unlimited: bool


def kind_of(entry: dict[str, Any]) -> Kind:
    of = entry.get("of", [])
    return Kind(
        text=entry["text"],
        of=[of] if isinstance(of, str) else of,
        width=entry.get("width"),
        words=entry.get("words", ""),
        convention=entry.get("convention"),
        unlimited=entry.get("unlimited", False),
    )


def entries_of(tables: dict[str, Any]) -> Iterator[tuple[tuple[str, str], list[str]]]:
    """Section and name of each line, and its words."""
    for name in ("parameters", "addresses"):
        for key, words in tables.get(name, {}).items():
            yield (name, key), words
    for name in ("chapters", "functions", "records"):
        for owner, table in tables.get(name, {}).items():
            for key, words in table.items():
                yield (f"{name}.{owner}", key), [words] if isinstance(words, str) else words


class Annotations:
    def __init__(self, path: str, text: str) -> None:
        self.path = path
        try:
            tables = tomllib.loads(text)
        except tomllib.TOMLDecodeError as error:
            raise Mistakes([f"{path}: {error}"]) from None
        if misnamed := sorted(tables.keys() - SECTIONS):
            raise Mistakes([f"{path}: [{name}]: there is no such section" for name in misnamed])
        self.plumbing: list[str] = tables["header"]["plumbing"]
        self.kinds = {name: kind_of(entry) for name, entry in tables["kinds"].items()}
        self.entries = dict(entries_of(tables))
        self.asked: set[tuple[str, str, str]] = set()

    def parameter(self, function: str, chapter: str, name: str, type_class: str) -> str | None:
        """What its function says of a parameter that is a text, a number or bytes, or else its chapter, or its name."""
        for section in (f"functions.{function}", f"chapters.{chapter}", "parameters"):
            for kind in self.entries.get((section, name), []):
                if type_class in self.kinds[kind].of:
                    self.asked.add((section, name, kind))
                    return kind
        return None

    def member(self, record: str, name: str, type_class: str) -> str | None:
        for kind in self.entries.get((f"records.{record}", name), []):
            if type_class in self.kinds[kind].of:
                self.asked.add((f"records.{record}", name, kind))
                return kind
        return None

    def address_of(self, parameter: str) -> tuple[str, int] | None:
        """Of which address a parameter is a word, and which of its two."""
        for (section, address), words in self.entries.items():
            if section == "addresses" and parameter in words:
                self.asked.add((section, address, parameter))
                return address, words.index(parameter) + 1
        return None

    def unknown(self) -> list[str]:
        """Names of kinds that are none."""
        return [
            f"{self.path}: [{section}] {name}: there is no kind {kind}"
            for (section, name), kinds in self.entries.items()
            for kind in kinds
            if section != "addresses" and kind not in self.kinds
        ]

    def unasked(self, used: set[str], unused_plumbing: set[str]) -> list[str]:
        """What nothing in the header takes. The kinds that are in use are given."""
        found = [f"[header] plumbing: the header does not define {name}" for name in sorted(unused_plumbing)]
        found += [f"[kinds] {name}: nothing is of this kind" for name in self.kinds if name not in used]
        found += [
            f"[{section}] {name}: nothing in the header is {word}"
            if section != "addresses"
            else f"[{section}] {name}: no function has a parameter {word}"
            for (section, name), words in self.entries.items()
            for word in words
            if (section, name, word) not in self.asked
        ]
        return [f"{self.path}: {text}" for text in found]
