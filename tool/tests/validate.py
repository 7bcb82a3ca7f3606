"""Validates the JSON of sessions against the schema of what the tool prints.

usage: validate.py SCHEMA STATE_SCHEMA LUMOZEPHCTL_DOCUMENTS SESSION...
"""

import json
import shlex
import subprocess
import sys

import jsonschema

# 426,080 bytes that no session shows.
TOO_LONG = {"DumpFLTable"}

ABOUT_THE_STATE = {"save", "diff", "apply"}


def operation_of(words, verbs):
    """The operation that the words of a command line mean."""
    ipv6 = "-6" in words
    is_dry = "--dry-run" in words
    if words[0] == "cat" or "watch" in words:
        return "event"
    if "--rates" in words:
        return "rates"
    words = [word for word in words[1:] if not word.startswith("-")]
    if words[0] == "batch" or words[0] in ABOUT_THE_STATE:
        return words[0]
    if is_dry:
        return "request"
    if words[0] == "call":
        return words[1].removeprefix("LUMOZEPH_")
    if words[0] == "raw":
        return "raw"
    meant = [
        (family, operation)
        for verb, family, operation, _ in verbs
        if words[: len(verb.split())] == verb.split()
    ]
    return dict(meant).get("6" if ipv6 else "4")


def answers_in(session, verbs):
    """Each JSON document of a session, with the definition that it must fulfil."""
    with open(session, encoding="utf-8") as file:
        commands = file.read().split("$ ")[1:]
    for command in commands:
        line, _, printed = command.partition("\n")
        words = shlex.split(line)
        is_json = {"-j", "--json", "--json-pretty"} & set(words) or words[1:3] == ["save", "-"]
        if "complete" in words:
            continue
        if words[-2:] == ["cat", "events.jsonl"]:
            words = ["cat", "events.jsonl", "-j"]
        elif words[0] != "lumozephctl" or {">", "|"} & set(words) or not is_json:
            continue
        printed, failed, _ = printed.partition("[1]\n") if "[1]\n" in printed else printed.partition("[2]\n")
        operation = operation_of(words, verbs)
        is_one = "--json-pretty" in words or operation == "save"
        # Where a record is left out by a condition, there is nothing.
        for document in [printed] if is_one and printed else printed.splitlines():
            answer = json.loads(document)
            # A difference is no error, and what was done before one is an answer, too.
            is_error = "error" in answer if operation == "batch" or operation in ABOUT_THE_STATE else failed
            yield line, "error" if is_error else operation, answer


def main():
    schema_path, state_schema_path, documents, *sessions = sys.argv[1:]
    with open(schema_path, encoding="utf-8") as file:
        schema = json.load(file)
    with open(state_schema_path, encoding="utf-8") as file:
        schema["$defs"]["save"] = json.load(file)
    jsonschema.Draft202012Validator.check_schema(schema)
    listed = subprocess.run([documents, "verbs"], stdout=subprocess.PIPE, check=True, text=True).stdout
    verbs = [line.split("\t") for line in listed.splitlines()]
    # Each line of a batch has what its own command answers.
    schema["$defs"]["batch"] = {"anyOf": [{"$ref": f"#/$defs/{name}"} for name in schema["$defs"]]}
    seen = set()
    for session in sessions:
        for line, definition, answer in answers_in(session, verbs):
            one = {"$ref": f"#/$defs/{definition}", "$defs": schema["$defs"]}
            checker = jsonschema.Draft202012Validator(one, format_checker=jsonschema.FormatChecker())
            for error in checker.iter_errors(answer):
                sys.exit(f"{session}: {line}: {error.message}")
            seen.add(definition)
    missing = {operation for *_, operation, does in verbs if does == "reads"} - seen - TOO_LONG
    if missing:
        sys.exit(f"no session shows the JSON of {', '.join(sorted(missing))}")


main()
