"""The parameters of a function."""

import re

from .comments import Tag
from .interface import UNINTERPRETED, UNINTERPRETED_KINDS, Interface, Object, class_of
from .mistakes import Mistake
from .phrases import ParameterText, parameter_text
from .records import declaration, type_object
from .source import Function, Parameter


def kind_of_parameter(
    interface: Interface, function: Function, chapter: str, parameter: Parameter, said: ParameterText
) -> str:
    record = interface.records.get(parameter.type.base)
    if record:
        holder = interface.holder_of(record)
        return holder or ("records" if said.size and said.size.get("unit") == "elements" else "record")
    if parameter.type.base == "void" and function.name.startswith("LUMOZEPH_Release"):
        return "record"
    if said.is_unsent:
        return "unsent"
    if said.switch:
        return "switch"
    if said.word:
        return "ipv6_word"
    type_class = class_of(parameter.type)
    annotated = interface.annotations.parameter(function.name, chapter, parameter.name, type_class)
    if annotated:
        return annotated
    if UNINTERPRETED.match(parameter.name) or said.is_passed_on:
        return UNINTERPRETED_KINDS[type_class]
    raise Mistake(
        function.line,
        f"{interface.annotations.path} does not say what the parameter {parameter.name} of {function.name} is: "
        f"expected {parameter.name} in [parameters], [chapters.{chapter}] or [functions.{function.name}], "
        f"with a kind of {type_class}",
    )


def null_of_parameter(function: Function, index: int, said: ParameterText, line: int) -> Object:
    if said.null is None:
        return {"effect": "undefined"}
    if index in function.nonnull:
        raise Mistake(
            line, f"LUMOZEPH_NONNULL of {function.name} has {index + 1}, and the comment says what null means"
        )
    return said.null


def limit_of(interface: Interface, said: ParameterText, kind: str, line: int) -> Object | None:
    """How long a text may be: what its comment says, or else the convention for its kind."""
    if said.limit:
        count = said.limit["bytes"]
        return {
            "bytes": count,
            "field": count if said.limit["unterminated"] else count + 1,
            "terminated": not said.limit["unterminated"],
        }
    about = interface.annotations.kinds[kind]
    if about.unlimited or kind == "unsent":
        return None
    if about.convention is None:
        raise Mistake(line, f'a text of the kind {kind} says how long it may be: expected "at most N bytes"')
    found = re.search(r"\bat most (\d+) bytes\b", interface.convention(about.convention))
    if not found:
        raise Mistake(line, f'the convention "{about.convention}" does not say "at most N bytes"')
    return {"bytes": int(found[1]), "field": int(found[1]) + 1, "terminated": True}


def check_names(function: Function, said: ParameterText, line: int) -> None:
    """What a parameter's text says of other parameters is about some that are there."""
    names = {parameter.name for parameter in function.parameters}
    mentioned = [said.mask_of, (said.size or {}).get("parameter"), (said.null or {}).get("if", {}).get("parameter")]
    for name in mentioned:
        if name is not None and name not in names:
            raise Mistake(line, f"{function.name} has no parameter {name}")


def describe_parameter(
    interface: Interface, function: Function, chapter: str, index: int, tag: Tag
) -> tuple[Object, ParameterText]:
    parameter = function.parameters[index]
    said = parameter_text(tag.text, tag.line)
    check_names(function, said, tag.line)
    what = f"the parameter {parameter.name} of {function.name}"
    kind = kind_of_parameter(interface, function, chapter, parameter, said)
    type_class = class_of(parameter.type)
    size = interface.size(said.size, tag.line) if said.size else {}
    width = parameter.width if type_class == "number" else size.get("bytes")
    interface.kind(kind, width, what, tag.line)
    if interface.annotations.kinds[kind].words not in tag.text:
        raise Mistake(tag.line, f'{what} is of the kind {kind}: expected "{interface.annotations.kinds[kind].words}"')
    if tag.direction != "in" and (
        not parameter.type.pointers and parameter.type.length is None or parameter.type.const
    ):
        raise Mistake(tag.line, f"{what} cannot be [{tag.direction}]: it is passed by value, or const")

    described: Object = {
        "name": parameter.name,
        "declaration": declaration(parameter.type, parameter.name),
        "type": type_object(parameter.type),
        "direction": tag.direction,
        "kind": kind,
        "text": tag.text,
        "summary": said.summary,
    }
    if parameter.type.pointers or parameter.type.length is not None:
        described["null"] = null_of_parameter(function, index, said, tag.line)
    if type_class == "text" and tag.direction != "out" and (limit := limit_of(interface, said, kind, tag.line)):
        described["limit"] = limit
    if size:
        described["size"] = size
    elif type_class == "bytes" and parameter.type.base != "void" or kind == "bytes" and parameter.type.pointers == 1:
        raise Mistake(
            tag.line, f'{what} does not say how many bytes there are: expected "N bytes" or "room for N bytes"'
        )
    if said.most:
        described["most"] = interface.macro(said.most, tag.line)
    if said.unit:
        described["unit"] = interface.size({"macro": said.unit}, tag.line)
    if said.switch:
        described["switch"] = said.switch
    if kind == "ipv6_word":
        described["address"] = word_of(interface, what, parameter, said, tag.line)
    if said.mask_of:
        described["mask_of"] = said.mask_of
    return described, said


def word_of(interface: Interface, what: str, parameter: Parameter, said: ParameterText, line: int) -> Object:
    found = interface.annotations.address_of(parameter.name)
    if found is None:
        raise Mistake(line, f"{interface.annotations.path} does not say of which address {what} is a word: [addresses]")
    address, word = found
    if said.word and said.word[1] != word:
        raise Mistake(line, f"{what} is word {word} in [addresses], and its comment says otherwise")
    return {"name": address, "word": word}
