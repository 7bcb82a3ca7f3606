"""Puts the description together from the header, its comments and the annotations."""

from collections.abc import Callable, Sequence
from typing import Any

from .annotations import Annotations
from .comments import blocks_of, preamble_of, words_of
from .functions import describe_function, pair_functions
from .interface import Interface, Object
from .mistakes import Mistake, Mistakes
from .records import describe_holders, describe_record
from .source import Chapter, Header, Macro, Reader

# Which form of description this is. It changes when a reader of the description would have to.
FORMAT = 1


def each(interface: Interface, declared: Sequence[Any], describe: Callable[[Interface, Any], Object]) -> list[Object]:
    """Describes what can be described, so that all mistakes are found at once."""
    described = []
    for one in declared:
        try:
            about = describe(interface, one)
            interface.check_mentions(about, one.line)
            described.append(about)
        except Mistake as mistake:
            interface.mistakes.append(mistake)
    return described


def describe_macro(interface: Interface, macro: Macro) -> Object:
    before = [chapter.name for chapter in interface.header.chapters if chapter.line < macro.line]
    about: Object = {"name": macro.name, "value": macro.value, "text": words_of(macro.comment)}
    return {**about, "chapter": before[-1]} if before else about


def version_of(header: Header) -> str:
    values = {macro.name: macro.value for macro in header.macros}
    parts = [values.get(f"LUMOZEPH_VERSION_{part}") for part in ("MAJOR", "MINOR", "PATCH")]
    if None in parts:
        raise Mistake(1, "expected LUMOZEPH_VERSION_MAJOR, LUMOZEPH_VERSION_MINOR and LUMOZEPH_VERSION_PATCH")
    return ".".join(map(str, parts))


def describe_chapter(interface: Interface, chapter: Chapter) -> Object:
    if [one.name for one in interface.header.chapters].count(chapter.name) > 1:
        raise Mistake(chapter.line, f"there are two chapters {chapter.name}")
    return {"name": chapter.name, "title": chapter.title, "text": blocks_of(chapter.text)}


def described(reader: Reader, header: Header, annotations: Annotations, mistakes: list[Mistake]) -> Object:
    preamble = preamble_of(header.preamble)
    interface = Interface(header, annotations, preamble)
    interface.mistakes = mistakes
    interface.check_mentions([one.text for one in preamble.conventions], header.preamble.line)
    chapters = each(interface, header.chapters, describe_chapter)
    records = each(interface, header.records, describe_record)
    functions = each(interface, header.functions, describe_function)
    pair_functions(interface, functions)
    macros = each(interface, header.macros, describe_macro)
    lists = describe_holders(interface, records, functions, "list")
    tables = describe_holders(interface, records, functions, "table")
    if not mistakes:
        unasked = annotations.unasked(interface.used_kinds, reader.unused_plumbing)
        if unasked:
            raise Mistakes(unasked)
    return {
        "format": FORMAT,
        "version": version_of(header),
        "introduction": preamble.introduction,
        "conventions": [{"number": one.number, "title": one.title, "text": one.text} for one in preamble.conventions],
        "remarks": preamble.remarks,
        "chapters": chapters,
        "kinds": [{"name": name, "text": kind.text} for name, kind in annotations.kinds.items()],
        "macros": macros,
        "records": records,
        "lists": lists,
        "tables": tables,
        "functions": functions,
    }


def describe(path: str, text: str, annotations: Annotations) -> Object:
    """The whole description of the header of that name and text. All that is wrong with it is one exception."""
    if unknown := annotations.unknown():
        raise Mistakes(unknown)
    reader = Reader(path, text, annotations.plumbing)
    mistakes = reader.mistakes
    description = {}
    try:
        description = described(reader, reader.header(), annotations, mistakes)
    except Mistake as mistake:
        mistakes.append(mistake)
    if mistakes:
        raise Mistakes([f"{path}:{one.line}: {one.text}" for one in sorted(mistakes, key=lambda one: one.line)])
    return description
