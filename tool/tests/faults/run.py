"""Carries out every verb in a world in which each command meets with a fault.

usage: run.py EMULATOR LUMOZEPHCTL COMMANDS SCHEMA FAULT

The tool must end as it should, say in one line what went wrong, and print nothing of an answer that it does not have.
COMMANDS prints the command lines, and world.json is the world.
"""

import concurrent.futures
import json
import os
import re
import subprocess
import sys

import jsonschema

WORLD = os.path.join(os.path.dirname(os.path.abspath(__file__)), "world.json")

TOO_SHORT = "Bad message (EBADMSG): the reply of the module is malformed: do its version and that of the library fit?"

# What every verb says where the module refuses its commands.
REFUSALS = {
    "EIO": "Input/output error (EIO): the log of the kernel may say why",
    "EBUSY": "Device or resource busy (EBUSY): something still uses it",
    "ENODEV": "No such device (ENODEV): the device of the module is not there: is the module loaded on this host?",
}

# The library has but one errno for whatever goes wrong with it.
OUT_OF_MEMORY = (
    "Cannot allocate memory (ENOMEM): there is too little memory here or in the module; a read of IPv6 routes says so"
    " whatever fails"
)
ALWAYS_ENOMEM = {"GetRoutesv6"}

# The library sends no list of DHCP servers.
NEVER_SENT = {"dhcp-relay 10.0.0.1": "Invalid argument (EINVAL): the values make no sense to the library or to the module"}

# What a read says of a reply that is not as it should be. Others show what has arrived.
REPLIES = {
    "short:0": {"record": TOO_SHORT},
    "short:3": {"record": TOO_SHORT, "list": TOO_SHORT},
    "fragment": {"record": TOO_SHORT, "list": TOO_SHORT},
    "long": {},
    "garbage": {},
    "count:255": {},
}

# Of the operations that differ from those with the same kind of answer. Their replies are not checked, the number is the
# record, or there is another number in front of the records.
ODD = {
    "SoftRSSGetStats": {},
    "SoftRSSGetTunables": {},
    "GetMRoutingAllMcastGroups": {},
    "GetPolicyCount": {"short:0": TOO_SHORT, "short:3": TOO_SHORT, "fragment": TOO_SHORT},
    "GetMRoutingRemoteRcvrs": {
        "short:0": TOO_SHORT,
        "short:3": TOO_SHORT,
        "fragment": TOO_SHORT,
        "count:255": TOO_SHORT,
    },
}

# What they read is as much as a number in the reply says: at random, there may be too little of it, or too much.
COUNTED = {"GetRoutesv6", "GetMRoutingRemoteRcvrs"}

# Millions of records: those that are shown would be too many to look at.
NARROWED = {"GetBridgeBFDSessions": ["--filter", "value1!=0"]}


def carry_out(tool, workers):
    """Inside the world: carries out the command lines on standard input, and prints what becomes of each."""

    def one(line):
        ended = subprocess.run(
            [tool, *line], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=60
        )
        return [ended.returncode, ended.stdout.decode("latin-1"), ended.stderr.decode("latin-1")]

    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        json.dump(list(pool.map(one, json.load(sys.stdin))), sys.stdout)


def carried_out(emulator, tool, lines, options=(), workers=1):
    ended = subprocess.run(
        [emulator, "run", "--load", WORLD, "--clock", "manual", *options, "--"]
        + [sys.executable, "-B", __file__, "--inside", tool, str(workers)],
        input=json.dumps(lines),
        stdout=subprocess.PIPE,
        check=True,
        text=True,
    )
    return json.loads(ended.stdout)


class Judge:
    def __init__(self, schema):
        with open(schema, encoding="utf-8") as file:
            self.definitions = json.load(file)["$defs"]
        self.validators = {}
        self.mistakes = []

    def validator(self, definition):
        if definition not in self.validators:
            schema = {"$ref": f"#/$defs/{definition}", "$defs": self.definitions}
            self.validators[definition] = jsonschema.Draft202012Validator(schema)
        return self.validators[definition]

    def expect(self, holds, line, why, ended):
        if not holds:
            status, out, err = ended
            self.mistakes.append(f"{' '.join(line)}: {why}: {status}, {out[:200]!r}, {err[:400]!r}")

    def expect_valid(self, definition, text, line, ended):
        try:
            answer = json.loads(text.encode("latin-1"))
            # Of thousands of records that are all the same, some.
            self.validator(definition).validate(answer[:100] if isinstance(answer, list) else answer)
        except (ValueError, jsonschema.ValidationError) as error:
            self.expect(False, line, str(error).partition("\n")[0], ended)

    def expect_failure(self, line, reason, ended):
        status, out, err = ended
        reason = NEVER_SENT.get(" ".join(line[-2:]), reason)
        self.expect(status == 1 and out == "" and err.count("\n") == 1, line, "expected a line that says why", ended)
        if "-j" not in line:
            self.expect(re.fullmatch(f"lumozephctl: .*{re.escape(reason)}\n", err), line, f"expected '{reason}'", ended)
            return
        self.expect_valid("error", err, line, ended)
        if " (E" in reason:
            name = re.search(r"\((E\w+)\)", reason).group(1)
            self.expect(f'"errno":"{name}"' in err, line, f"expected {name}", ended)

    def expect_answer(self, operation, line, ended):
        status, out, err = ended
        self.expect(status == 0 and err == "", line, "expected an answer", ended)
        if "-j" in line:
            self.expect_valid(operation, out, line, ended)
        else:
            self.expect(not re.search("[\x00-\x09\x0b-\x1f\x7f]", out), line, "what a terminal would obey", ended)
            self.expect(out == "" or out.endswith("\n"), line, "expected whole lines", ended)


def main():
    emulator, tool, commands, schema, fault = sys.argv[1:]
    listed = subprocess.run([commands], stdout=subprocess.PIPE, check=True, text=True).stdout
    verbs = [line.split("\t") for line in listed.splitlines()]
    verbs = [(operation, answer, words.split()) for operation, answer, words in verbs]
    judge = Judge(schema)
    options = ["--fault", f"any={fault}"]

    def run(lines, **more):
        return carried_out(os.path.abspath(emulator), os.path.abspath(tool), lines, **more)

    if fault in REPLIES:
        reads = [(operation, answer, line) for operation, answer, line in verbs if answer != "nothing"]
        reads = [
            (operation, answer, style + NARROWED.get(operation, []) + line)
            for operation, answer, line in reads
            for style in ([], ["-j"])
        ]
        for (operation, answer, line), ended in zip(reads, run([line for *_, line in reads], options=options)):
            reason = ODD[operation].get(fault) if operation in ODD else REPLIES[fault].get(answer)
            if operation in COUNTED and fault == "garbage" and ended[0] != 0:
                reason = ""
            if reason is not None:
                judge.expect_failure(line, reason, ended)
            else:
                judge.expect_answer(operation, line, ended)
    elif fault in REFUSALS:
        refused = [(operation, style + line) for operation, _, line in verbs for style in ([], ["-j"])]
        for (operation, line), ended in zip(refused, run([line for _, line in refused], options=options)):
            judge.expect_failure(line, OUT_OF_MEMORY if operation in ALWAYS_ENOMEM else REFUSALS[fault], ended)
    elif fault == "hang":
        lines = [["--timeout", "0.05", *line] for *_, line in verbs]
        for line, ended in zip(lines, run(lines, options=options, workers=16)):
            judge.expect_failure(line, "no answer within 0.05 seconds: the module hangs, or is not done yet", ended)
    else:
        # One after the other, each with what the others have left.
        deletions = [line for *_, line in verbs if "delete" in line]
        lines = [line for *_, line in verbs if line not in deletions] + deletions[::-1]
        lines = [["--timeout", "60", *line] for line in lines]
        prompt = run(lines)
        for line, late, in_time in zip(lines, run(lines, options=options), prompt):
            judge.expect(late == in_time, line, "expected the same as without a delay", late)
        answered = sum(status == 0 for status, *_ in prompt)
        judge.expect(answered > len(verbs) / 2, [fault], "expected that most are carried out", [answered, "", ""])

    if judge.mistakes:
        sys.exit("\n".join(judge.mistakes))


if sys.argv[1] == "--inside":
    carry_out(sys.argv[2], int(sys.argv[3]))
else:
    main()
