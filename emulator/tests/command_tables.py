"""The tables of commands in the README say of each command what the description of the wire says: its number, its name, the
fields of its request and the shape of its reply. What it does and which errors it answers is written by hand.

usage: command_tables.py DUMP-PROTOCOL README [--update]
"""
import json
import re
import subprocess
import sys

HEAD = "| command | request | effect | reply | errors |\n|---|---|---|---|---|\n"
ROW = re.compile(r"^\| (\d+) `\w+` \| .*? \| (.*?) \| .*? \| (.*?) \|$", re.MULTILINE)


def request(command):
    return ", ".join(field["name"] for field in command["input"]["fields"]) or "-"


def reply(command):
    described = command["reply"]
    size = described["record"]["size"]
    return {
        "nothing": "-",
        "result": f"{size} bytes, if there is room",
        "record": f"{size} bytes",
        "list": f"at most {described['most']} of {size} bytes",
        "ended_list": f"at most {described['most']} of {size} bytes, and one of zeros",
        "counted_list": f"{described['head']['size']} bytes, and at most {described['most']} of {size}",
    }[described["shape"]]


def tables(chapters, by_hand):
    text = ""
    for chapter in chapters:
        text += f"\n**{chapter['name']}**\n\n{HEAD}"
        for command in chapter["commands"]:
            effect, errors = by_hand.get(command["number"], ("", ""))
            if not effect:
                sys.exit(f"{command['name']}: no effect is written")
            text += (
                f"| {command['number']} `{command['name']}` | {request(command)} | {effect} | {reply(command)}"
                f" | {errors} |\n"
            )
    return text


def main():
    dump_protocol, path = sys.argv[1:3]
    described = json.loads(subprocess.run([dump_protocol], check=True, capture_output=True, text=True).stdout)
    with open(path, encoding="utf-8") as file:
        document = file.read()
    begin, end = "<!-- commands -->\n", "\n<!-- end -->"
    before, rest = document.split(begin)
    written, after = rest.split(end, 1)
    by_hand = {int(number): (effect, errors) for number, effect, errors in ROW.findall(written)}
    made = tables(described["chapters"], by_hand).rstrip("\n")
    if "--update" in sys.argv:
        with open(path, "w", encoding="utf-8") as file:
            file.write(before + begin + made + end + after)
    elif made != written:
        sys.exit(f"{path} is not what {sys.argv[0]} --update makes of it")


main()
