"""Functions: what they do, what comes out, who frees it, and how they fail."""

import re

from .comments import Tag, function_comment
from .errors import describe_errors
from .interface import Interface, Object
from .mistakes import Mistake
from .parameters import describe_parameter
from .phrases import ParameterText
from .source import Function

RELEASE = "LUMOZEPH_Release"


def operation_of(interface: Interface, function: Function, parameters: list[Object]) -> str:
    """What a function does, by the shape of what it is given."""
    if function.name.startswith(RELEASE):
        return "release"
    if any(one["kind"] == "command" and one["type"]["base"] == "int32_t" for one in parameters) and any(
        one["direction"] == "in,out" for one in parameters
    ):
        return "exchange"
    out = [one for one in parameters if one["direction"] == "out" and one["null"]["effect"] != "meaning"]
    twice = [one for one in out if one["type"]["pointers"] == 2]
    if twice:
        return f"get_{ {'bytes': 'block'}.get(twice[0]['kind'], twice[0]['kind']) }"
    if any(one["direction"] == "in,out" and one["kind"] == "list" for one in parameters):
        return "fill_list"
    sized = [one for one in parameters if one["direction"] == "out" and "size" in one]
    if any(one["type"].get("length") for one in sized):
        return "make_key"
    if sized:
        return "get_raw"
    if any(one["type"]["base"] in interface.records for one in out):
        return "fill_record"
    return "get_value" if out else "send"


def result_parameter(operation: str, parameters: list[Object]) -> Object | None:
    """Which parameter a function is called for: what it stores there, or fills."""
    if operation == "fill_list":
        return next(one for one in parameters if one["direction"] == "in,out")
    out = [one for one in parameters if one["direction"] == "out"]
    if operation.startswith("get_") and (twice := [one for one in out if one["type"]["pointers"] == 2]):
        return twice[0]
    if operation in ("get_raw", "make_key"):
        return next(one for one in out if "size" in one)
    return out[0] if out and operation != "send" else None


def result_of(function: Function, operation: str, parameters: list[Object], said: list[ParameterText]) -> Object | None:
    """What comes out of a function, and who frees it."""
    given = result_parameter(operation, parameters)
    result: Object = {}
    for one, text in zip(parameters, said):
        owned = one is given and (operation == "fill_list" or one["type"]["pointers"] == 2)
        if text.release and not owned:
            raise Mistake(function.line, f"{function.name} does not hand over {one['name']}, which is to be freed")
        if one is given:
            result = {"parameter": one["name"], "type": one["type"]["base"]}
            if owned:
                result["release"] = text.release
            if owned and text.release is None and operation != "fill_list":
                raise Mistake(
                    function.line, f'{function.name} does not say who frees {one["name"]}: expected "free it with ..."'
                )
            if text.holder_size:
                result["holder_size"] = text.holder_size
        elif given and one["direction"] == "out" and one["kind"] == "count":
            result["count"] = one["name"]
    return result or None


def tags_of(function: Function, tags: list[Tag]) -> list[Tag]:
    """The tag of each parameter."""
    by_name = {tag.about: tag for tag in tags if tag.name == "param"}
    names = [parameter.name for parameter in function.parameters]
    for name in names:
        if name not in by_name:
            raise Mistake(function.line, f"the parameter {name} of {function.name} has no text: expected @param {name}")
    said = [tag.about for tag in tags if tag.name == "param"]
    if said != names:
        raise Mistake(
            function.line,
            f"the comment of {function.name} has the parameters {', '.join(said)}: expected {', '.join(names)}",
        )
    return [by_name[name] for name in names]


def describe_function(interface: Interface, function: Function) -> Object:
    if function.result != "int32_t":
        raise Mistake(function.line, f"{function.name} returns {function.result}: expected int32_t")
    text, tags = function_comment(function.comment)
    chapter = interface.chapter_at(function.line, function.name)
    described = [
        describe_parameter(interface, function, chapter, index, tag)
        for index, tag in enumerate(tags_of(function, tags))
    ]
    parameters = [one for one, _ in described]
    operation = operation_of(interface, function, parameters)
    about: Object = {
        "name": function.name,
        "chapter": chapter,
        "operation": operation,
        "brief": text.brief,
        "description": text.description,
        "returns": function.result,
        "fails": operation != "release" and "Always returns 0." not in " ".join(map(str, text.description)),
        "parameters": parameters,
    }
    if result := result_of(function, operation, parameters, [said for _, said in described]):
        about["result"] = result
    answers = [one["name"] for one in parameters if operation == "send" and one["direction"] == "out"]
    if answers:
        about["answer"] = answers[0]
    about["errors"] = describe_errors(interface, about, [tag for tag in tags if tag.name == "errno"])
    return about


def named_in(text: str) -> set[str]:
    return set(re.findall(r"\bLUMOZEPH\w+", text))


def pair_functions(interface: Interface, functions: list[Object]) -> None:
    """Connects workers with their reads, and reads with their releases, and holds both ends against each other."""
    by_name = {function["name"]: function for function in functions}
    lines = {function.name: function.line for function in interface.header.functions}
    for function in functions:
        if function["operation"] == "fill_list":
            pair = function["name"].replace("LUMOZEPH", "LUMOZEPH_", 1)
            if f"the worker of {pair}." not in function["brief"] or pair not in by_name:
                interface.mistakes.append(Mistake(lines[function["name"]], f'expected "the worker of {pair}."'))
                continue
            function["worker_of"] = pair
            by_name[pair]["worker"] = function["name"]
            release = by_name[pair]["result"]["release"]
            if function["result"]["release"] not in (None, release):
                interface.mistakes.append(Mistake(lines[function["name"]], f"{pair} is freed with {release}"))
            function["result"]["release"] = release
    for function in functions:
        if function["operation"] != "release":
            continue
        name = function["name"]
        frees = [one["name"] for one in functions if one.get("result", {}).get("release") == name]
        reads = {one for one in frees if "worker_of" not in by_name[one]}
        says_worker = "its worker" in function["brief"]
        if named_in(function["brief"]) != reads or says_worker != (len(reads) != len(frees)):
            expected = ", ".join(frees) or "no function"
            interface.mistakes.append(
                Mistake(lines[name], f"{name} frees what {expected} gives, and its comment says otherwise")
            )
        function["releases"] = frees
    for function in functions:
        release = function.get("result", {}).get("release")
        if release not in (None, "free") and by_name.get(release, {}).get("operation") != "release":
            interface.mistakes.append(Mistake(lines[function["name"]], f"there is no function {release}"))
