"""What stands in the header: its declarations as libclang sees them, each with the comment that belongs to it."""

import re
from collections.abc import Iterator
from dataclasses import dataclass, field
from typing import Any, NamedTuple

from clang.cindex import Cursor, CursorKind, Diagnostic, Index, TokenKind, TranslationUnit, TypeKind

from .mistakes import Mistake, Mistakes


class Line(NamedTuple):
    """A line of a comment, without what only makes it one."""

    number: int
    text: str


@dataclass(frozen=True)
class Comment:
    lines: list[Line]
    last_line: int

    @property
    def line(self) -> int:
        return self.lines[0].number


@dataclass(frozen=True)
class Type:
    """What is said of a value: BASE, with so many stars behind it, or an array of so many."""

    base: str
    const: bool
    pointers: int
    length: int | None


@dataclass(frozen=True)
class Parameter:
    name: str
    type: Type
    width: int  # of the value, or of that behind a pointer


@dataclass(frozen=True)
class Function:
    name: str
    line: int
    result: str
    parameters: list[Parameter]
    nonnull: set[int]
    comment: Comment


@dataclass(frozen=True)
class Member:
    name: str
    line: int
    type: Type
    bit_offset: int
    bit_width: int
    is_bit_field: bool
    comment: Comment


@dataclass(frozen=True)
class Record:
    name: str
    line: int
    size: int
    packed: bool
    members: list[Member]
    comment: Comment


@dataclass(frozen=True)
class Macro:
    name: str
    line: int
    value: int
    comment: Comment


@dataclass(frozen=True)
class Chapter:
    name: str
    title: str
    line: int
    text: list[Line]


@dataclass
class Header:
    preamble: Comment
    chapters: list[Chapter] = field(default_factory=list)
    functions: list[Function] = field(default_factory=list)
    records: list[Record] = field(default_factory=list)
    macros: list[Macro] = field(default_factory=list)


class Token(NamedTuple):
    is_comment: bool
    text: str
    offset: int
    line: int
    last_line: int


def lines_of(token: Token, opening: str) -> list[Line]:
    raw = token.text[len(opening) :].removesuffix("*/").split("\n")
    lines = [Line(token.line, raw[0].strip())]
    for number, text in enumerate(raw[1:], token.line + 1):
        matched = re.fullmatch(r" \*(?: (.*))?|", text.rstrip())
        if not matched:
            raise Mistake(number, 'a line of this comment does not begin with " * "')
        lines.append(Line(number, matched.group(1) or ""))
    while len(lines) > 1 and lines[0].text == "":
        del lines[0]
    while len(lines) > 1 and lines[-1].text == "":
        del lines[-1]
    return lines


def chapter_of(token: Token) -> Chapter:
    lines = lines_of(token, "/*")
    if len(lines) < 3 or not re.fullmatch("-+ \\*", lines[0].text) or not re.fullmatch("-+", lines[-1].text.strip()):
        raise Mistake(token.line, "a chapter begins with its name between two rules of the same length")
    heading = re.fullmatch(r"(\w+): (\S.*)", lines[1].text)
    if not heading:
        raise Mistake(lines[1].number, 'expected "NAME: TITLE", the name and the title of a chapter')
    text = lines[2:-1]
    return Chapter(heading.group(1), heading.group(2), lines[1].number, text[1:] if text else [])


def type_of(clang_type: Any) -> Type:
    length = None
    base = clang_type
    if base.kind == TypeKind.CONSTANTARRAY:
        length, base = base.element_count, base.element_type
    pointers = 0
    while base.kind == TypeKind.POINTER:
        pointers, base = pointers + 1, base.get_pointee()
    return Type(base.spelling.removeprefix("const "), base.is_const_qualified(), pointers, length)


def width_of(clang_type: Any) -> int:
    return int((clang_type.get_pointee() if clang_type.kind == TypeKind.POINTER else clang_type).get_size())


class Reader:
    """Reads one header. What it finds wrong it collects."""

    def __init__(self, path: str, text: str, plumbing: list[str]) -> None:
        self.path = path
        self.text = text
        self.mistakes: list[Mistake] = []
        self.plumbing = plumbing
        self.unused_plumbing = set(plumbing)
        self.index = Index.create()
        unit = self.parsed()
        self.tokens = [
            Token(
                token.kind == TokenKind.COMMENT,
                token.spelling,
                token.location.offset,
                token.extent.start.line,
                token.extent.end.line,
            )
            for token in unit.get_tokens(extent=unit.cursor.extent)
        ]
        self.before: dict[int, Token] = {}
        self.behind: dict[int, Token] = {}
        self.chapters: list[Chapter] = []
        self.sort_comments()
        self.cursors = [one for one in unit.cursor.get_children() if str(one.location.file) == path]

    def parsed(self) -> Any:
        unit = self.index.parse(
            self.path,
            args=["-x", "c", "-std=c11"],
            unsaved_files=[(self.path, self.text)],
            options=TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD,
        )
        errors = [one for one in unit.diagnostics if one.severity >= Diagnostic.Error]
        if errors:
            raise Mistakes([f"{one.location.file}:{one.location.line}: {one.spelling}" for one in errors])
        return unit

    def sort_comments(self) -> None:
        for token in self.tokens:
            if not token.is_comment:
                continue
            if token.text.startswith("/**<"):
                self.behind[token.line] = token
            elif token.text.startswith("/**"):
                self.before[token.last_line + 1] = token
            elif token.text.startswith("/* --"):
                try:
                    self.chapters.append(chapter_of(token))
                except Mistake as mistake:
                    self.mistakes.append(mistake)

    def comment_before(self, line: int, what: str) -> Comment:
        token = self.before.pop(line, None)
        if token is None:
            raise Mistake(line, f"{what} has no comment: expected /** ... */ directly above it")
        return Comment(lines_of(token, "/**"), token.last_line)

    def comment_behind(self, line: int, what: str) -> Comment:
        token = self.behind.pop(line, None)
        if token is None:
            raise Mistake(line, f"{what} has no comment: expected /**< ... */ behind it")
        return Comment(lines_of(token, "/**<"), token.last_line)

    def header(self) -> Header:
        header = Header(self.preamble(), self.chapters)
        for cursor in self.cursors:
            try:
                if cursor.kind == CursorKind.FUNCTION_DECL:
                    header.functions.append(self.function(cursor))
                elif cursor.kind == CursorKind.STRUCT_DECL and cursor.is_definition():
                    header.records.append(self.record(cursor))
            except Mistake as mistake:
                self.mistakes.append(mistake)
        header.macros = list(self.macros())
        for token in (*self.before.values(), *self.behind.values()):
            self.mistakes.append(Mistake(token.line, "this comment belongs to nothing"))
        return header

    def preamble(self) -> Comment:
        for line, token in self.before.items():
            comment = Comment(lines_of(token, "/**"), token.last_line)
            if comment.lines[0].text == "@file":
                del self.before[line]
                return Comment(comment.lines[1:], comment.last_line)
        raise Mistakes([f"{self.path}:1: expected a comment of the whole file, which begins with @file"])

    def function(self, cursor: Cursor) -> Function:
        line = cursor.extent.start.line
        arguments = list(cursor.get_arguments())
        return Function(
            name=cursor.spelling,
            line=line,
            result=cursor.result_type.spelling,
            parameters=[
                Parameter(argument.spelling, type_of(argument.type), width_of(argument.type)) for argument in arguments
            ],
            nonnull=self.nonnull(cursor.extent.start.offset),
            comment=self.comment_before(line, cursor.spelling),
        )

    def nonnull(self, offset: int) -> set[int]:
        """The parameters that the attribute behind a declaration counts, from 0."""
        words = []
        for token in self.tokens:
            if token.offset >= offset:
                if token.text == ";":
                    break
                words.append(token.text)
        if "LUMOZEPH_NONNULL" not in words:
            return set()
        return {int(word) - 1 for word in words[words.index("LUMOZEPH_NONNULL") :] if word.isdigit()}

    def record(self, cursor: Cursor) -> Record:
        line = cursor.extent.start.line
        return Record(
            name=cursor.spelling,
            line=line,
            size=cursor.type.get_size(),
            packed=any(one.kind == CursorKind.PACKED_ATTR for one in cursor.get_children()),
            members=[self.member(cursor.spelling, one) for one in cursor.type.get_fields()],
            comment=self.comment_before(line, cursor.spelling),
        )

    def member(self, record: str, cursor: Cursor) -> Member:
        line = cursor.extent.end.line
        is_bit_field = cursor.is_bitfield()
        return Member(
            name=cursor.spelling,
            line=line,
            type=type_of(cursor.type),
            bit_offset=cursor.get_field_offsetof(),
            bit_width=cursor.get_bitfield_width() if is_bit_field else 8 * cursor.type.get_size(),
            is_bit_field=is_bit_field,
            comment=self.comment_behind(line, f"{record}.{cursor.spelling}"),
        )

    def macros(self) -> Iterator[Macro]:
        defined: dict[str, int] = {}
        for cursor in self.cursors:
            if cursor.kind == CursorKind.MACRO_DEFINITION:
                defined[cursor.spelling] = cursor.location.line
        comments: dict[str, Comment] = {}
        for name, line in defined.items():
            if name in self.plumbing:
                self.unused_plumbing.discard(name)
                continue
            try:
                comments[name] = self.comment_before(line, name)
            except Mistake as mistake:
                self.mistakes.append(mistake)
        values = self.values(list(comments))
        for name, comment in comments.items():
            if name in values:
                yield Macro(name, defined[name], values[name], comment)
            else:
                self.mistakes.append(Mistake(defined[name], f"{name} is not an integer constant"))

    def values(self, names: list[str]) -> dict[str, int]:
        """What macros are, each as the value of an enumerator behind the header."""
        enumerators = "".join(f"enum {{ value_of_{name} = ({name}) }};\n" for name in names)
        unit = self.index.parse(
            "values.c", args=["-x", "c", "-std=c11"], unsaved_files=[("values.c", self.text + enumerators)]
        )
        wrong = {one.location.line for one in unit.diagnostics if one.severity >= Diagnostic.Error}
        return {
            constant.spelling.removeprefix("value_of_"): constant.enum_value
            for one in unit.cursor.get_children()
            if one.kind == CursorKind.ENUM_DECL and one.location.line not in wrong
            for constant in one.get_children()
        }
