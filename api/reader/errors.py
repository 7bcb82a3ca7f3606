"""What errno may be after a failure: what the conventions say, and what a function's comment does to that."""

from .comments import Tag
from .interface import Interface, Object
from .mistakes import Mistake
from .phrases import errno_text

# Which operations allocate memory, and which know how long a reply has to be.
ALLOCATES = {"get_list", "fill_list", "get_record", "get_table", "get_block"}
MEASURES = {"get_list", "fill_list", "get_record"}


def alternatives(words: list[str]) -> str:
    return words[0] if len(words) == 1 else f"{', '.join(words[:-1])} or {words[-1]}"


def rejected_nulls(parameters: list[Object]) -> list[Object]:
    errors = []
    always = [
        one["name"] for one in parameters if one.get("null", {}).get("effect") == "error" and "if" not in one["null"]
    ]
    if always:
        errors.append({"name": "EINVAL", "text": f"{alternatives(always)} is null", "from": "parameters"})
    for one in parameters:
        null = one.get("null", {})
        if null.get("effect") == "error" and "if" in null:
            condition = f"{null['if']['parameter']} is {null['if']['is']}"
            errors.append({"name": "EINVAL", "text": f"{one['name']} is null, and {condition}", "from": "parameters"})
    return errors


def describe_errors(interface: Interface, function: Object, tags: list[Tag]) -> list[Object]:
    if not function["fails"]:
        if tags:
            raise Mistake(tags[0].line, f"{function['name']} does not fail")
        return []
    operation = function["operation"]
    terms = interface.errno_terms()
    errors = rejected_nulls(function["parameters"])
    for name, operations in (("ENOMEM", ALLOCATES), ("EBADMSG", MEASURES)):
        if operation in operations:
            errors.append({"name": name, "text": terms[name], "from": "conventions"})
    for tag in tags:
        said = errno_text(tag.text)
        before = [error for error in errors if error["name"] == tag.about and error["from"] == "conventions"]
        if said.is_never:
            if not before:
                raise Mistake(tag.line, f"{function['name']} has no {tag.about} that could be never")
            errors.remove(before[0])
            continue
        if before and not said.is_added:
            errors.remove(before[0])
        errors.append({"name": tag.about, "text": said.text, "from": "function"})
    order = ["EINVAL", "ENOMEM", "EBADMSG", "none"]
    for error in errors:
        if error["name"] not in order:
            raise Mistake(tags[0].line, f"{error['name']} is not among the errno that the conventions name")
    errors.sort(key=lambda error: order.index(error["name"]))
    return [*errors, {"name": "other", "text": terms["other"], "from": "conventions"}]
