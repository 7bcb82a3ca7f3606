"""Shows tables in a terminal of several widths: they fit, and are in bold there alone.

usage: terminal.py EMULATOR LUMOZEPHCTL

The terminal is tmux's. Inside a world, it types the command, and takes what is then on the screen.
"""

import os
import re
import shlex
import subprocess
import sys
import tempfile
import time

WIDTHS = (60, 80, 200)
BOLD = "\x1b[1m"

# A world with names that are too wide for most terminals.
SETUP = """
lumozephctl instance set blue text 'a text of some length'
lumozephctl lif add blue eth0 name an-uplink-with-a-rather-long-name address 10.1.0.1/16 mac 02:00:00:00:00:01
lumozephctl lif add blue ünïcödé address 10.2.0.1/16
lumozephctl lif set blue eth0 up address 2001:db8:1234:5678:9abc:def0:1234:5678/64
lumozephctl route add blue 10.9.0.0/16 via 10.1.0.254 dev eth0
lumozephctl bridge add a-bridge-with-a-name-of-sixty-three-letters-which-is-the-longest
"""

TABLES = ("instance list", "lif list blue", "route list blue", "-6 route list blue", "bridge list", "lif show blue eth0")


class Terminal:
    """Of one width, with a shell."""

    def __init__(self, socket, width):
        self.tmux = ["tmux", "-u", "-S", socket, "-f", "/dev/null"]
        self.width = width
        self.typed = 0
        self.call("new-session", "-d", "-x", str(width), "-y", "50", "exec sh")

    def call(self, *words):
        ended = subprocess.run([*self.tmux, *words], stdout=subprocess.PIPE, check=True, timeout=30)
        return ended.stdout.decode()

    def shown(self, command):
        """What the command shows, a line each, with the codes of what is bold."""
        # The mark stands on the screen when this command has ended, and not in what is typed.
        self.typed += 1
        mark = f"end{self.typed}"
        self.call("send-keys", "-l", f"clear; {command}; echo e''nd{self.typed}")
        self.call("send-keys", "Enter")
        deadline = time.monotonic() + 30
        while time.monotonic() < deadline:
            screen = self.call("capture-pane", "-p", "-e").split("\n")
            if mark in screen:
                return screen[: screen.index(mark)]
            time.sleep(0.02)
        sys.exit(f"{command}: does not end")

    def end(self):
        self.call("kill-server")


def without_codes(line):
    return re.sub("\x1b\\[[0-9;]*m", "", line)


def look_at(terminal, mistakes):
    for table in TABLES:
        lines = terminal.shown(f"lumozephctl {table}")
        plain = [without_codes(line) for line in lines]
        piped = terminal.shown(f"NO_COLOR=1 lumozephctl {table} | wc -l")
        # A line that is too long goes on in the next one, and there are more of them.
        if len(plain) != int(piped[0]):
            mistakes.append(f"{table} at {terminal.width}: {len(plain)} lines of {piped[0]}: {plain}")
        if " list" in table and not (BOLD in lines[0] and all(BOLD not in line for line in lines[1:])):
            mistakes.append(f"{table} at {terminal.width}: the head alone should be bold: {lines}")
        if any("\x1b" in line for line in terminal.shown(f"NO_COLOR=1 lumozephctl {table}")):
            mistakes.append(f"{table} at {terminal.width}: colours in spite of NO_COLOR")
        if terminal.shown(f"lumozephctl {table} | grep -c \"$(printf '\\033')\"") != ["0"]:
            mistakes.append(f"{table} at {terminal.width}: colours in a pipe")


def inside(folder):
    subprocess.run(["sh", "-ec", SETUP], check=True)
    mistakes = []
    columns = []
    for width in WIDTHS:
        terminal = Terminal(os.path.join(folder, f"tmux-{width}"), width)
        try:
            look_at(terminal, mistakes)
            columns.append(len(terminal.shown("lumozephctl instance list")[0].split()))
        finally:
            terminal.end()
    # A wider terminal shows more.
    if not columns[0] < columns[1] < columns[2]:
        mistakes.append(f"columns of instances at {WIDTHS}: {columns}")
    if mistakes:
        sys.exit("\n".join(mistakes))


def main():
    emulator, tool = sys.argv[1:]
    path = f"{os.path.dirname(os.path.abspath(tool))}:{os.environ['PATH']}"
    environment = {name: value for name, value in os.environ.items() if name not in ("NO_COLOR", "TMUX")}
    with tempfile.TemporaryDirectory() as folder:
        ended = subprocess.run(
            [emulator, "run", "--", sys.executable, "-B", __file__, "--inside", folder],
            env={**environment, "PATH": path, "LC_ALL": "C.UTF-8", "ENV": "", "PS1": "$ "},
            check=False,
        )
    sys.exit(ended.returncode)


if sys.argv[1] == "--inside":
    inside(sys.argv[2])
else:
    main()
