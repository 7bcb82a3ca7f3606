"""Types the commands of a session in a world of its own, and compares what comes with what stands there.

usage: follow.py EMULATOR LUMOZEPHCTL SESSION [--update]

A line that begins with "$ " is a command; what follows it is what it prints, standard output and error together, and
its exit status in brackets if that is not 0. "fault add SPEC" and "fault clear" are of the world. --update writes what
comes instead.
"""

import difflib
import os
import subprocess
import sys
import tempfile


def commands_in(session):
    with open(session, encoding="utf-8") as file:
        return [line[2:].rstrip("\n") for line in file if line.startswith("$ ")]


def script(commands, emulator, world):
    """A shell's script that prints the session."""
    lines = [f"fault() {{ '{emulator}' world {world} fault \"$@\"; }}"]
    for command in commands:
        quoted = command.replace("'", "'\\''")
        lines += [f"printf '%s\\n' '$ {quoted}'", f"{{ {command}; }} 2>&1", 's=$?; [ "$s" -eq 0 ] || echo "[$s]"']
    return "\n".join(lines) + "\n"


def followed(emulator, tool, session):
    with tempfile.TemporaryDirectory(prefix="session-") as scratch:
        name = os.path.basename(scratch)
        path = f"{os.path.dirname(os.path.abspath(tool))}:{os.environ['PATH']}"
        world = subprocess.run(
            [emulator, "run", "--world", name, "--", "sh", "-c", script(commands_in(session), emulator, name)],
            cwd=scratch,
            env={**os.environ, "PATH": path, "LC_ALL": "C.UTF-8"},
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            check=True,
        )
    return world.stdout.decode()


def main():
    emulator, tool, session, *options = sys.argv[1:]
    comes = followed(os.path.abspath(emulator), tool, session)
    if options == ["--update"]:
        with open(session, "w", encoding="utf-8") as file:
            file.write(comes)
        return 0
    with open(session, encoding="utf-8") as file:
        stands = file.read()
    difference = "".join(difflib.unified_diff(stands.splitlines(True), comes.splitlines(True), session, "what comes"))
    print(difference, end="")
    return 1 if difference else 0


if __name__ == "__main__":
    sys.exit(main())
