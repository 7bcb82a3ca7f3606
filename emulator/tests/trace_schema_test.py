"""The committed schema of traces is the one that is made of the description of the wire, and lines of traces are valid.

usage: trace_schema_test.py DUMP-SCHEMA SCHEMA DUMP-PROTOCOL EMULATOR STATE NAME
"""
import copy
import json
import os
import subprocess
import sys
import tempfile

import jsonschema


def traced(emulator, protocol, state, name):
    """A line for each command, of a world that begins with a state in which something has the name."""
    program = os.path.join(os.path.dirname(os.path.abspath(__file__)), "every_command.py")
    with tempfile.NamedTemporaryFile() as trace:
        run = ["run", "--load", state, "--opens", "--trace", trace.name, "--trace-format", "json"]
        faults = ["--fault", "GetLogLevel#2=short:3", "--fault", "GetLifs#1=fragment", "--fault", "SetLogLevel=EBUSY"]
        subprocess.run([emulator, *run, *faults, "--", sys.executable, program, name], input=protocol, check=True)
        return [json.loads(line) for line in trace.read().splitlines()]


def wrong_lines(line):
    """What a valid line of GetLogLevel must not be."""
    for change in (
        {"order": -1},
        {"command": "GetLogLevels"},
        {"errno": "ENOENT"},
        {"reply": {"records": [{"level": "4"}], "count": 1}},
        {"reply": {"records": [{}], "count": 1}},
        {"request": {"level": 4}},
        {"time": "now"},
        {"else": 1},
    ):
        yield {**copy.deepcopy(line), **change}


def main():
    dump_schema, path, dump_protocol, emulator, state, name = sys.argv[1:]
    made = subprocess.run([dump_schema], check=True, capture_output=True, text=True).stdout
    with open(path, encoding="utf-8") as file:
        if file.read() != made:
            sys.exit(f"{path} is not what {os.path.basename(dump_schema)} prints")
    schema = json.loads(made)
    jsonschema.Draft7Validator.check_schema(schema)
    validator = jsonschema.Draft7Validator(schema)

    protocol = subprocess.run([dump_protocol], check=True, capture_output=True).stdout
    lines = traced(emulator, protocol, state, name)
    for line in lines:
        if not validator.is_valid(line):
            sys.exit(f"not valid: {json.dumps(line)[:2000]}")
    names = {command["name"] for chapter in json.loads(protocol)["chapters"] for command in chapter["commands"]}
    if names - {line.get("command") for line in lines}:
        sys.exit(f"not seen: {names - {line.get('command') for line in lines}}")
    answered = [line for line in lines if line.get("reply", {}).get("records")]
    for member, least in (("reply", 40), ("input", 200), ("unreadable", 1), ("open", 1), ("faults", 5)):
        if sum(member in line for line in lines) < least:
            sys.exit(f"too few lines have '{member}'")
    if not any(line["reply"]["count"] > len(line["reply"]["records"]) for line in answered):
        sys.exit("no reply is longer than what is shown of it")
    level = next(line for line in answered if line["command"] == "GetLogLevel")
    for wrong in wrong_lines(level):
        if validator.is_valid(wrong):
            sys.exit(f"valid: {wrong}")


main()
