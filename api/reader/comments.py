"""The text of comments: paragraphs, tables of terms, numbered conventions, and the tags of a function's comment."""

import re
from dataclasses import dataclass
from typing import Any

from .mistakes import Mistake
from .source import Comment, Line

Block = Any  # a paragraph, or {"terms": [{"term", "text"}]}


def blocks_of(lines: list[Line], indentation: int = 0) -> list[Block]:
    """Paragraphs are set apart by empty lines. A table is what is indented further: a term, two spaces, its text."""
    blocks: list[Block] = []
    terms_at = 0  # where the terms of the table begin that is not ended
    in_paragraph = False
    for number, line in lines:
        text = line.strip()
        depth = len(line) - len(line.lstrip())
        if not text:
            in_paragraph, terms_at = False, 0
        elif depth < indentation:
            raise Mistake(number, f"expected an indentation of {indentation} at least")
        elif depth == indentation:
            terms_at = 0
            if in_paragraph:
                blocks[-1] += " " + text
            else:
                blocks.append(text)
            in_paragraph = True
        elif terms_at and depth > terms_at:
            blocks[-1]["terms"][-1]["text"] += " " + text
        else:
            term = re.fullmatch(r"(\S+) {2,}(\S.*)", text)
            if not term:
                raise Mistake(number, "what is indented is a table: expected a term, two spaces or more, and its text")
            if not terms_at:
                blocks.append({"terms": []})
            blocks[-1]["terms"].append({"term": term.group(1), "text": term.group(2)})
            terms_at, in_paragraph = depth, False
    return blocks


@dataclass(frozen=True)
class Text:
    """The prose of a comment: its first sentence, and what follows that."""

    brief: str
    description: list[Block]


def text_of(lines: list[Line], line: int) -> Text:
    blocks = blocks_of(lines)
    if not blocks or not isinstance(blocks[0], str):
        raise Mistake(line, "expected a sentence that says what this is")
    sentence = re.match(r"(.+?\.)(?: (?=[A-Z])|$)", blocks[0])
    if not sentence:
        raise Mistake(line, "the first sentence has no full stop")
    rest = blocks[0][sentence.end() :]
    return Text(sentence.group(1), [rest, *blocks[1:]] if rest else blocks[1:])


def words_of(comment: Comment) -> str:
    """A comment that is one paragraph."""
    return " ".join(line.text.strip() for line in comment.lines)


@dataclass(frozen=True)
class Tag:
    """@param or @errno, its direction, and what it is about."""

    name: str
    direction: str
    about: str
    line: int
    text: str


def function_comment(comment: Comment) -> tuple[Text, list[Tag]]:
    lines = comment.lines
    first = next((index for index, line in enumerate(lines) if line.text.startswith("@")), len(lines))
    tags: list[Tag] = []
    for number, text in lines[first:]:
        if text.startswith("@"):
            matched = re.fullmatch(
                r"@(param)(?:\[(in|out|in,out)\])? +(\w+) {2,}(\S.*)|@(errno) (E[A-Z]+|none) +(\S.*)", text
            )
            if not matched:
                raise Mistake(
                    number,
                    'expected "@param NAME  TEXT", "@param[out] ...", "@param[in,out] ..." or "@errno NAME  TEXT"',
                )
            param, direction, about, words, errno, error, condition = matched.groups()
            if param:
                tags.append(Tag("param", direction or "in", about, number, words))
            else:
                tags.append(Tag("errno", "", error, number, condition))
        elif text.startswith(" "):
            last = tags.pop()
            tags.append(Tag(last.name, last.direction, last.about, last.line, f"{last.text} {text.strip()}"))
        else:
            raise Mistake(number, "expected another tag, or the indented rest of the one before")
    return text_of(lines[:first], comment.line), tags


@dataclass(frozen=True)
class Convention:
    number: int
    title: str
    text: list[Block]


@dataclass(frozen=True)
class Preamble:
    introduction: list[Block]
    conventions: list[Convention]
    remarks: list[Block]


def preamble_of(comment: Comment) -> Preamble:
    """What the header says of itself: prose, the conventions, which are numbered from 1 and indented by 4, prose."""
    introduction: list[Line] = []
    remarks: list[Line] = []
    numbered: list[tuple[str, list[Line]]] = []
    for line in comment.lines:
        heading = re.fullmatch(r" ?(\d+)\. ([A-Za-z][A-Za-z ]*)\.(?: (\S.*))?", line.text)
        if heading:
            if int(heading.group(1)) != len(numbered) + 1:
                raise Mistake(line.number, f"expected the number {len(numbered) + 1}")
            numbered.append((heading.group(2), []))
            if heading.group(3):
                numbered[-1][1].append(Line(line.number, " " * 4 + heading.group(3)))
        elif not numbered:
            introduction.append(line)
        elif remarks or (line.text and not line.text.startswith(" ")):
            remarks.append(line)
        else:
            numbered[-1][1].append(line)
    return Preamble(
        blocks_of(introduction),
        [Convention(number, title, blocks_of(lines, 4)) for number, (title, lines) in enumerate(numbered, 1)],
        blocks_of(remarks),
    )
