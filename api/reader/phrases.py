"""The fixed phrases of comments, which say what programs have to know.

A comment may say anything else, too. But where a word stands that belongs to one of these phrases, the phrase has to be
there, so that nothing gets lost because it is said in other words.
"""

import re
from dataclasses import dataclass
from typing import Any

from .mistakes import Mistake

Fact = dict[str, Any]

NULL = (
    '"null: E...", "null: E... if NAME is N, and otherwise TEXT", "null: TEXT", "may be null if NAME is N" or '
    '"null or any other pointer if NAME is N, when TEXT", as a clause of its own'
)
FREE = '"free it with LUMOZEPH_Release..." or "free it with free()", as a clause of its own'

# Words of parameters and members that must have been part of a phrase, with what was expected.
PARAMETER_WORDS = {
    r"\bnull\b(?! after)": NULL,
    r"\bfree\b": FREE,
    r"\bat most\b": '"at most N bytes" or "at most LUMOZEPH_..."',
    r"\bunterminated\b": '"unterminated at N bytes"',
    r"\broom\b": '"room for N bytes", where N is a number, a macro or another parameter',
    r"\bzeroed\b": '"N zeroed bytes from calloc(3)"',
    r"\bnot 0\b": '"not 0: TEXT; 0: TEXT" or "not 0, or 0: TEXT"',
    r"\bpassed on\b": '"passed on as it stands"',
    r"\beight bytes\b": '"TEXT\'s first eight bytes" or "TEXT\'s last eight bytes"',
    r"\bdivided\b": '"divided by LUMOZEPH_..."',
}
MEMBER_WORDS = {
    r"\bpast\b": '"zero past NAME", "undefined past NAME" or "past NAME as the module sent them"',
    r"\bcopied\b": '"not copied" or "not copied, undefined"',
    r"\breported\b": '"as reported"',
    r"\bterminated\b": '"not necessarily terminated"',
    r"\broom\b": '"room for LUMOZEPH_..."',
}


class Prose:
    """A text from which phrases are taken."""

    def __init__(self, text: str, line: int) -> None:
        self.rest = text
        self.line = line

    def take(self, pattern: str) -> re.Match[str] | None:
        found = re.search(pattern, self.rest)
        if found:
            self.rest = f"{self.rest[: found.start()]}\n{self.rest[found.end() :]}"
        return found

    def end(self, words: dict[str, str]) -> None:
        for word, expected in words.items():
            if found := re.search(word, self.rest):
                raise Mistake(self.line, f'"{found[0]}" is not understood here: expected {expected}')


@dataclass
class ParameterText:
    """What the text behind @param says."""

    summary: str  # without what null means, who frees it, and how long it may be
    null: Fact | None = None
    release: str | None = None
    limit: Fact | None = None
    size: Fact | None = None
    most: str | None = None
    switch: Fact | None = None
    word: tuple[str, int] | None = None  # of what address, and which of its two
    mask_of: str | None = None
    unit: str | None = None
    holder_size: int | None = None
    is_passed_on: bool = False
    is_unsent: bool = False


def null_of(clause: str, line: int) -> Fact:
    if found := re.fullmatch(r"null: (E[A-Z]+)", clause):
        return {"effect": "error", "errno": found[1]}
    if found := re.fullmatch(r"null: (E[A-Z]+) if (\w+) is (\d+), and otherwise (.+)", clause):
        condition = {"parameter": found[2], "is": int(found[3])}
        return {"effect": "error", "errno": found[1], "if": condition, "otherwise": found[4]}
    if found := re.fullmatch(r"null: (?!E[A-Z])(.+)", clause):
        return {"effect": "meaning", "text": found[1]}
    if found := re.fullmatch(r"may be null if (\w+) is (\d+)", clause):
        return {"effect": "meaning", "if": {"parameter": found[1], "is": int(found[2])}}
    if found := re.fullmatch(r"null or any other pointer if (\w+) is (\d+), when (.+)", clause):
        return {"effect": "meaning", "text": found[3], "if": {"parameter": found[1], "is": int(found[2])}}
    raise Mistake(line, f'"{clause}" is not understood: expected {NULL}')


def release_of(clause: str, line: int) -> str:
    found = re.fullmatch(r"free (?:it|them) with (LUMOZEPH_\w+|free\(\))", clause)
    if not found:
        raise Mistake(line, f'"{clause}" is not understood: expected {FREE}')
    return found[1].removesuffix("()")


def size_of(amount: str) -> Fact:
    if amount.isdigit():
        return {"bytes": int(amount)}
    return {"macro": amount} if amount.startswith("LUMOZEPH_") else {"parameter": amount, "unit": "bytes"}


def without_limits(text: str) -> str:
    def between(found: re.Match[str]) -> str:
        return ", " if found[1] and found[2] == ", " else ""

    return re.sub(r"(^|, )(?:at most|unterminated at) \d+ bytes(, |(?=; |\. |$))", between, text)


def parameter_text(text: str, line: int) -> ParameterText:
    clauses = re.split(r"(; |\. (?=[A-Z]))", text)
    null = release = None
    plain = ""
    for separator, clause in zip(["", *clauses[1::2]], clauses[::2]):
        if re.match(r"(may be )?null\b(?! after)", clause) and null is None:
            null = null_of(clause, line)
        elif re.match(r"free\b", clause) and release is None:
            release = release_of(clause, line)
        else:
            plain += (separator if plain else "") + clause

    said = ParameterText(summary=without_limits(plain), null=null, release=release)
    prose = Prose(plain, line)
    if found := prose.take(r"\b(at most|unterminated at) (\d+) bytes\b"):
        said.limit = {"bytes": int(found[2]), "unterminated": found[1] != "at most"}
    if found := prose.take(r"\bat most (LUMOZEPH_\w+)"):
        said.most = found[1]
    if found := prose.take(r"\broom for (\w+) bytes\b") or prose.take(r"^(\d+|LUMOZEPH_\w+) bytes\b"):
        said.size = size_of(found[1])
    elif found := prose.take(r"^(?!second\b)(\w+) of them\b"):
        said.size = {"parameter": found[1], "unit": "elements"}
    if found := prose.take(r"^(\d+) zeroed bytes from calloc\(3\)"):
        said.holder_size = int(found[1])
    if found := prose.take(r"^not 0: (.+); 0: (.+)$"):
        said.switch = {"on": found[1], "off": found[2]}
    elif found := prose.take(r"^not 0, or 0: (.+)$"):
        said.switch = {"chooses": found[1]}
    if found := prose.take(r"^(.+)'s (first|last) eight bytes$"):
        said.word = (found[1], 1 if found[2] == "first" else 2)
    if found := prose.take(r"\bthe mask value of (\w+)"):
        said.mask_of = found[1]
    if found := prose.take(r"\bdivided by (LUMOZEPH_\w+)"):
        said.unit = found[1]
    said.is_passed_on = prose.take(r"\bpassed on as (?:it stands|they stand)\b") is not None
    said.is_unsent = prose.take(r"\bnot sent\b") is not None
    prose.end(PARAMETER_WORDS)
    return said


@dataclass
class MemberText:
    """What the comment behind a member says."""

    offset: int | None
    text: str
    is_copied: bool = True
    is_undefined: bool = False
    is_reported: bool = False
    is_terminated: bool = True
    count: Fact | None = None
    room: str | None = None


def member_text(text: str, line: int) -> MemberText:
    found = re.fullmatch(r"(\d+)(?:: (.+))?", text)
    said = MemberText(int(found[1]), found[2] or "") if found else MemberText(None, text)
    prose = Prose(said.text, line)
    if found := prose.take(r"\bnot copied(, undefined)?"):
        said.is_copied, said.is_undefined = False, bool(found[1])
    said.is_reported = prose.take(r"\bas reported\b") is not None
    said.is_terminated = prose.take(r"\bnot necessarily terminated\b") is None
    if found := prose.take(r"\b(zero|undefined) past (\w+)"):
        said.count = {"member": found[2], "past": found[1]}
    elif found := prose.take(r"\bpast (\w+) as the module sent them\b"):
        said.count = {"member": found[1], "past": "as sent"}
    elif found := prose.take(r"\bexactly (\w+) of them\b"):
        said.count = {"member": found[1], "past": "nothing"}
    if found := prose.take(r"\broom for (LUMOZEPH_\w+)"):
        said.room = found[1]
    prose.take(r"\broom at \w+ in bytes\b")
    prose.end(MEMBER_WORDS)
    return said


@dataclass(frozen=True)
class ErrnoText:
    """What the text behind @errno does to what the conventions say of that errno."""

    text: str
    is_added: bool = False
    is_never: bool = False


def errno_text(text: str) -> ErrnoText:
    if text == "never":
        return ErrnoText("", is_never=True)
    return ErrnoText(text.removeprefix("also "), is_added=text.startswith("also "))
