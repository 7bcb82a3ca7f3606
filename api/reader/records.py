"""Records, and the lists and tables that hold them."""

from .comments import text_of, words_of
from .interface import UNINTERPRETED, UNINTERPRETED_KINDS, Interface, Object, class_of
from .mistakes import Mistake
from .phrases import MemberText, member_text
from .source import Member, Record, Type


def type_object(said: Type) -> Object:
    described: Object = {"base": said.base, "const": said.const, "pointers": said.pointers}
    if said.length is not None:
        described["length"] = said.length
    return described


def declaration(said: Type, name: str) -> str:
    const = "const " if said.const else ""
    array = "" if said.length is None else f"[{said.length}]"
    return f"{const}{said.base}{'*' * said.pointers} {name}{array}"


def kind_of_member(
    interface: Interface, record: Record, member: Member, said: MemberText, counts: dict[str, list[Object]]
) -> str:
    if member.type.base in interface.records:
        return "records" if member.type.pointers or member.type.length else "record"
    if not said.is_copied:
        return "not_copied"
    if member.name in counts:
        return "count"
    type_class = class_of(member.type)
    annotated = interface.annotations.member(record.name, member.name, type_class)
    if annotated:
        return annotated
    if UNINTERPRETED.match(member.name):
        return UNINTERPRETED_KINDS[type_class]
    raise Mistake(
        member.line,
        f"{interface.annotations.path} does not say what {record.name}.{member.name} is: "
        f"expected [records.{record.name}] with {member.name}",
    )


def counted_by(record: Record, said: dict[str, MemberText], holder: str | None) -> dict[str, list[Object]]:
    """Which members count others: their names, each with what it counts."""
    counts: dict[str, list[Object]] = {}
    for member in record.members:
        count = said[member.name].count
        if holder and member.type.pointers:
            count = {"member": "count", "past": "zero" if holder == "list" else "nothing"}
        if count is None:
            continue
        if count["member"] not in said:
            raise Mistake(member.line, f"{record.name} has no member {count['member']}")
        counts.setdefault(count["member"], []).append({"member": member.name, "past": count["past"]})
    return counts


def describe_member(
    interface: Interface, record: Record, member: Member, said: MemberText, counts: dict[str, list[Object]]
) -> Object:
    what = f"{record.name}.{member.name}"
    offset = member.bit_offset // 8
    if record.packed and said.offset is None:
        raise Mistake(member.line, f"the comment of {what} does not begin with its offset")
    if said.offset is not None and said.offset != offset:
        raise Mistake(member.line, f"{what} is at {offset}, and its comment says {said.offset}")
    width = member.bit_width // 8 if member.type.length is None else member.bit_width // 8 // member.type.length
    whole = member.bit_width // 8 if class_of(member.type) == "bytes" else width
    kind = interface.kind(kind_of_member(interface, record, member, said, counts), whole, what, member.line)
    described: Object = {
        "name": member.name,
        "declaration": declaration(member.type, member.name)
        + (f" : {member.bit_width}" if member.is_bit_field else ""),
        "type": type_object(member.type),
        "offset": offset,
        "width": -(-member.bit_width // 8),
        "kind": kind,
        "text": said.text,
    }
    if member.is_bit_field:
        described["bits"] = {"offset": member.bit_offset % 8, "width": member.bit_width}
    if not said.is_copied:
        described["content"] = "undefined" if said.is_undefined else "zero"
    if class_of(member.type) == "text" and member.type.length:
        described["terminated"] = said.is_terminated
    if member.name in counts:
        described["counts"] = counts[member.name]
        described["as_reported"] = said.is_reported
    if said.room:
        described["room"] = interface.macro(said.room, member.line)
    return described


def describe_record(interface: Interface, record: Record) -> Object:
    text = text_of(record.comment.lines, record.comment.line)
    holder = interface.holder_of(record)
    said = {member.name: member_text(words_of(member.comment), member.comment.line) for member in record.members}
    counts = counted_by(record, said, holder)
    return {
        "name": record.name,
        "chapter": interface.chapter_at(record.line, record.name),
        "brief": text.brief,
        "description": text.description,
        "size": record.size,
        "packed": record.packed,
        "members": [describe_member(interface, record, member, said[member.name], counts) for member in record.members],
    }


def record_within(holder: Object) -> str:
    """Of what record a list or a table has several."""
    return str(next(member["type"]["base"] for member in holder["members"] if member["type"]["pointers"]))


def describe_holders(interface: Interface, records: list[Object], functions: list[Object], holder: str) -> list[Object]:
    """The lists, or the tables."""
    described = []
    for record in records:
        source = interface.records[record["name"]]
        if interface.holder_of(source) != holder:
            continue
        about: Object = {"name": record["name"], "record": record_within(record)}
        if holder == "list":
            room = next(member["room"] for member in record["members"] if "room" in member)
            about["cap"] = room
        given = [one for one in functions if one.get("result", {}).get("type") == record["name"]]
        if not given:
            interface.mistakes.append(Mistake(source.line, f"no function gives a {record['name']}"))
            continue
        about["release"] = given[0]["result"]["release"]
        about["functions"] = [one["name"] for one in given]
        if any(one["result"]["release"] != about["release"] for one in given):
            interface.mistakes.append(Mistake(source.line, f"{record['name']} is freed by more than one function"))
        described.append(about)
    return described
