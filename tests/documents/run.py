"""Follows a document as its reader would: writes the files that it shows and types the commands of its console blocks.

usage: run.py DOCUMENT INSTALLED-TREE LIBDIR

A block ```c list.c is a file, which is put into a copy of the document's own folder. A block ```console holds commands,
"$ " before each and "> " before the lines that continue it, and what they print, where "..." stands for anything. A
command that fails is an error, unless the document shows its status with "echo $?". Commands that need root are left out,
and the project's own scripts, which have callers of their own.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from dataclasses import dataclass, field
from pathlib import Path

import markdown

LEFT_OUT = re.compile(r".*\bsudo |apt-get |scripts/|cmake --preset ")
STEP = re.compile(r"\s+- (.*)")
END = "== end of command"


@dataclass
class Command:
    text: str
    line: int
    output: list[str] = field(default_factory=list)


def commands_of(block):
    """The commands of a console block, or of a CI job's list of them."""
    commands = []
    for number, line in enumerate(block.lines, block.line + 1):
        if block.language == "yaml":
            step = STEP.match(line)
            if step:
                commands.append(Command(step[1], number, ["..."]))
        elif line.startswith("$ "):
            commands.append(Command(line[2:], number))
        elif line.startswith("> "):
            commands[-1].text += "\n" + line[2:]
        else:
            commands[-1].output.append(line)
    return [command for command in commands if not LEFT_OUT.match(command.text)]


def matches(shown, printed):
    pattern = "".join(
        r"(?:.*\n)*?" if line == "..." else re.escape(line).replace(r"\.\.\.", ".*") + "\n" for line in shown
    )
    return re.fullmatch(pattern, printed) is not None


def run(commands, folder, environment):
    """Types all commands into one shell; what each printed, and its status."""
    script = "".join(
        f"{command.text}\nstatus=$?; printf '{END} %d\\n' $status; (exit $status)\n" for command in commands
    )
    result = subprocess.run(
        ["bash"],
        input=script,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        cwd=folder,
        env=environment,
        text=True,
        timeout=120,
        check=False,
    )
    parts = re.split(rf"{END} (\d+)\n", result.stdout)
    return list(zip(parts[0::2], map(int, parts[1::2])))


def stop_worlds(environment):
    """Those that a command that failed has kept from being stopped."""
    script = "lumozeph-emulator list | cut -d ' ' -f 1 | xargs -r -n 1 lumozeph-emulator stop"
    if shutil.which("lumozeph-emulator", path=environment["PATH"]):
        subprocess.run(["sh", "-c", script], env=environment, check=True)


def first_mistake(document, environment):
    with tempfile.TemporaryDirectory() as folder:
        # Worlds have names, which are nobody else's here, and Ansible remembers things.
        environment = environment | {"XDG_RUNTIME_DIR": folder, "ANSIBLE_HOME": f"{folder}/ansible"}
        try:
            return follow(document, folder, environment)
        finally:
            stop_worlds(environment)


def follow(document, folder, environment):
    for file in document.path.parent.iterdir():
        if file.is_file():
            shutil.copy(file, folder)
    for block in document.blocks:
        where = f"{document.path}:{block.line}"
        if block.language not in ("console", "text") and not block.name:
            return f"{where}: a block without a name can not be tried"
        if block.name:
            Path(folder, block.name).write_text("\n".join(block.lines) + "\n", encoding="utf-8")
        commands = commands_of(block) if block.language in ("console", "yaml") else []
        results = run(commands, folder, environment)
        if len(results) != len(commands):
            return f"{where}: the shell ended early"
        for number, (command, (printed, status)) in enumerate(zip(commands, results)):
            shown = f"{document.path}:{command.line}: $ {command.text}"
            following = commands[number + 1].text if number + 1 < len(commands) else ""
            if status != 0 and following != "echo $?":
                return f"{shown}\nexits {status}:\n{printed}"
            elif not matches(command.output, printed):
                return f"{shown}\nprints:\n{printed}"
        print(f"{where}: {len(commands)} commands")
    return None


def main():
    path, root, libdir = sys.argv[1:]
    installed = Path(root)
    environment = {
        "PATH": f"{installed}/bin:/usr/local/bin:/usr/bin:/bin",
        "PKG_CONFIG_PATH": f"{installed}/{libdir}/pkgconfig",
        "CMAKE_PREFIX_PATH": root,
        "LD_LIBRARY_PATH": f"{installed}/{libdir}",
        "LC_ALL": "C.UTF-8",
        "HOME": os.environ.get("HOME", "/"),
        "PYTHONDONTWRITEBYTECODE": "1",
        "PYTHONPATH": f"{installed}/python",
    }
    sys.exit(first_mistake(markdown.read(Path(path)), environment))


main()
