"""How the pages say what the description says: sentences for people, from phrases that stand beside each other in the
header."""

import re

# Whose name or key a parameter is, where the header says "its".
OWNERS = {
    "bridge": "bridge",
    "cluster": "cluster",
    "connection": "connection",
    "endpoint": "endpoint",
    "endpoint_name": "endpoint",
    "instance": "instance",
    "lif": "LIF",
    "lif_second_name": "LIF",
    "policy_table": "table",
    "policy_table_name": "table",
    "target": "target",
}

# What is clear beside a declaration, and needs more words in a list of arguments.
LONGER = {
    "the instance's key": "the instance's key (its name, or its UUID as text)",
    "IPv4": "an IPv4 address",
    "IPv4 address of the destination": "the IPv4 address of the destination",
    "IPv4 address of the destination network": "the IPv4 address of the destination network",
    "IPv4 address of the next hop": "the IPv4 address of the next hop",
    "designated-instance address, IPv4": "the IPv4 address of the designated instance",
    "the mask value of address": "the mask value of @address",
    "6 bytes": "a MAC address of 6 bytes",
    "in bits; only its low byte is sent": "the length of the prefix in bits, of which only the low byte is sent",
    "in bytes": "the MTU in bytes",
    "first selector": "the first selector",
    "second selector": "the second selector",
    "first of the two values that select the ports; sent as 32 bits":
        "the first of the two values that select the ports, sent as 32 bits",
    "first of the two numbers that name the policy": "the first of the two numbers that name the policy",
    "second of them": "the second of them",
    "name of the LIF": "the name of the LIF",
    "name of the outgoing LIF": "the name of the outgoing LIF",
    "name of the LIF that the entry is on": "the name of the LIF that the entry is on",
    "name of the LIF that the neighbour is on": "the name of the LIF that the neighbour is on",
    "addresses separated by commas, in writable memory: EINVAL, and the commas that were passed, in practice the first "
    "one, are overwritten with NUL":
        "addresses separated by commas, in writable memory. The call fails with EINVAL then, and overwrites the commas "
        "that it has passed, in practice the first one, with NUL",
    "count of them": "as many entries as @count says",
    "value1 of which is sent": "the record, of which value1 is sent",
    "room for size bytes": "a buffer with room for @size bytes",
    "bytes at buffer": "the number of bytes at @buffer",
    "16 zeroed bytes from calloc(3). After a failure it has been freed, unless the device call failed":
        "a list of 16 zeroed bytes from calloc(3). After a failure it has been freed, unless the device call failed: "
        "then it is untouched, and still the caller's",
}


def phrase(parameter, function):
    """What a parameter is, as far as it does not concern null and limits."""
    said = parameter["summary"]
    kind = parameter["kind"]
    if said.startswith("its ") and kind in OWNERS:
        said = f"the {OWNERS[kind]}'s {said[4:]}"
    if kind == "receiver_value" and said == "the value":
        return f"the value that the {'address is' if function['operation'] == 'get_value' else 'receivers are'} under"
    said = LONGER.get(said, said)
    if parameter["direction"] == "out" and parameter["type"]["pointers"] == 2:
        return stored(said)
    if function["operation"] == "fill_record" and parameter["direction"] == "out":
        return f"the record that is filled, {said}"
    if function.get("answer") == parameter["name"]:
        return "where the module's answer is stored"
    if kind == "ipv4" and said.startswith("IPv4, "):
        return "an IPv4 address, " + said[6:]
    if kind == "text" and not said:
        return "a text that the library does not interpret"
    if said.startswith("room for "):
        said = "a buffer with " + said
    if "switch" in parameter:
        return switch(parameter["switch"])
    size = parameter.get("size", {})
    if "macro" in size:
        said = said.replace(size["macro"] + " bytes", f"{size['macro']} ({size['bytes']}) bytes")
    return said


def stored(said):
    """Of a pointer that the function stores."""
    first, *rest = said.split(". ")
    rest = ["It is " + sentence[:1].lower() + sentence[1:] for sentence in rest]
    return ". ".join([f"where a pointer to {first} is stored", *rest])


def switch(choice):
    if "chooses" in choice:
        return f"whether it is 0 {choice['chooses']}"
    if choice["on"] == "on":
        return "not 0 switches it on, 0 switches it off"
    return f"not 0 {choice['on']}, 0 {choice['off']}"


def limit(said, most):
    if re.search(r"[.;,:]", re.sub(r"\(.*?\)", "", said)) or said.startswith(("ignored", "sent")):
        return f"{said}. At most {most['bytes']} bytes of it are used"
    return f"{said}, at most {most['bytes']} bytes"


def null(facts):
    """What null means, if it means something."""
    condition = facts.get("if")
    when = f"if @{condition['parameter']} is {condition['is']}" if condition else ""
    if facts["effect"] == "error":
        if condition:
            return f"Null is rejected {when}, and means {facts['otherwise']} otherwise"
        return "Null is rejected"
    said = facts.get("text")
    if said is None:
        return f"It may be null {when}"
    if condition:
        return f"It may be null {when}: {said} then"
    if said == "handed to it, too":
        return "Null is handed to the module, too"
    if said.startswith("it "):
        return f"Null means that {said}"
    if said.endswith((" is sent", " happens")):
        return f"If it is null, {said}"
    return f"Null means {said}"


def argument(parameter, function):
    """One sentence or a few."""
    said = phrase(parameter, function)
    if "limit" in parameter:
        said = limit(said, parameter["limit"])
    facts = parameter.get("null", {"effect": "undefined"})
    if facts["effect"] != "undefined":
        said = f"{said}. {null(facts)}"
    return said


def untested(function):
    """The pointers that must not be null."""
    pointers = [parameter for parameter in function["parameters"] if "null" in parameter]
    names = ["@" + pointer["name"] for pointer in pointers if pointer["null"]["effect"] == "undefined"]
    if not names:
        return ""
    if len(names) == 1:
        return f"{names[0]} must not be null; this is not tested."
    if len(names) == len(pointers):
        return "None of the pointers may be null; this is not tested."
    return f"{enumerated(names)} must not be null; this is not tested."


def enumerated(words, conjunction="and"):
    if len(words) == 1:
        return words[0]
    return f"{', '.join(words[:-1])} {conjunction} {words[-1]}"


def result(function):
    """The parameter that a function is called for."""
    name = function["result"]["parameter"]
    return next(parameter for parameter in function["parameters"] if parameter["name"] == name)


def keeps(function):
    """Whether what the module does not write into the caller's buffer stays there."""
    return "untouched on failure" not in result(function)["summary"]


def cut(function):
    """What becomes of texts that are too long."""
    limits = [parameter["limit"] for parameter in function["parameters"] if "limit" in parameter]
    sentences = []
    if limits:
        sentences.append("A longer text is cut without an error.")
    if any(not most["terminated"] for most in limits):
        wide = sorted({most["field"] for most in limits if not most["terminated"]})
        sentences.append(f"One of {enumerated([str(field) for field in wide], 'or')} bytes is sent without a NUL.")
    return " ".join(sentences)


# The first word of a description in NAME, and what follows "or".
VERB = re.compile(r"\A(\w+)\b|(?<=, or )(\w+)")


def imperative(brief):
    """Reads all, or removes it. -> read all, or remove it"""
    return VERB.sub(lambda match: infinitive(match[0].lower()), brief.rstrip("."))


def infinitive(verb):
    if not verb.endswith("s"):
        return verb
    return verb[:-2] if re.search(r"(sh|ch)es\Z", verb) else verb[:-1]


# Kinds of which there is no more to say than what a member's name says.
UNINTERPRETED = frozenset(("value", "text", "bytes", "flags", "state", "mode", "counter", "record", "records"))


def meaning(member, kinds):
    """What a member is, also where the header leaves that to its name."""
    if member["text"] or member["kind"] in UNINTERPRETED:
        return member["text"]
    said = kinds[member["kind"]].rstrip(".")
    return said[:1].lower() + said[1:] if said[1:2].islower() or said[1:2] == " " else said


# What the names of functions begin with, or end in, and what else says how a thing is dealt with rather than which one.
DEALING = re.compile(
    r"\ALUMOZEPH_?|Get|Set|Del|Add|Release|Reset|Clear|Enable|Disable|UnPlumb|Plumb|Dump|Flush|Configure|Resolve"
    r"|All|Cached"
)


def thing(name):
    """What a function deals with: the same for set, get, delete and release of one or of many."""
    rest = DEALING.sub("", name).replace("Policies", "Policy").replace("Entries", "Entry")
    return re.sub(r"s(?=v6\Z|\Z)", "", rest)


def declaration(declared):
    """As manual pages write it: the star with the name."""
    return re.sub(r"(\w)(\*+) ", r"\1 \2", declared)


def lowered(brief):
    return brief[:1].lower() + brief[1:]


def heading(title):
    """A heading within a line."""
    return lowered(title) if title[1:2].islower() else title


# How sentences of the description begin whose subject is the function.
HEADLESS = {
    "Always": "It always",
    "For": "It is for",
    "Opens": "It opens",
    "Sends": "It sends",
    "Sets": "It sets",
    "Zeroes": "It zeroes",
}


def with_subjects(text):
    """The paragraphs about a function, as sentences."""
    return [re.sub(r"(\A|(?<=\. ))\w+", lambda first: HEADLESS.get(first[0], first[0]), paragraph)
            if isinstance(paragraph, str) else paragraph for paragraph in text]


def reason(error, function):
    """When an error is given: @text is null and @kind is 4."""
    said = error["text"]
    if error["name"] == "EBADMSG" and error["from"] == "conventions":
        # What is said of one record, or of a list.
        one, rest = said.split(", or a list ")
        return one if function["operation"] == "get_record" else f"the module's reply {rest}"
    if error["from"] == "parameters":
        names = "|".join(parameter["name"] for parameter in function["parameters"])
        said = re.sub(rf"\b({names})(?= (or \w+ )?is )", r"@\1", said).replace(", and ", " and ")
    return f"also {said}" if said.startswith(("if ", "unless ")) else said


def alternatives(reasons):
    """The reasons for one error: in one sentence, unless one of them begins a sentence of its own."""
    said = reasons[0]
    for reason in reasons[1:]:
        said += f". {reason[:1].upper()}{reason[1:]}" if reason.startswith("also ") else f", or {reason}"
    return said


def beyond_the_count(table):
    """What is said of a table's records beside how many there are."""
    records = next(member for member in table["members"] if member["name"] == "records")
    return records["text"].split("; ")[1]


def unset(error):
    """When a call fails that leaves errno as it was."""
    return "The call also fails, without setting errno, if " + error["text"].removeprefix("errno is not set: ")


def with_references(text):
    """The paragraphs about a chapter, as a page apart from that of bridges says them."""
    return [paragraph.replace(" as with bridges", " as with bridges (lumozeph_bridges(7))")
            if isinstance(paragraph, str) else paragraph for paragraph in text]
