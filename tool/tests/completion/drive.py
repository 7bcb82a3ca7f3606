"""Types lines into a shell and has it complete them.

usage: drive.py SHELL COMPLETION

SHELL is bash, zsh or fish. bash and zsh have a key here that puts all that may follow into the line, which is then printed
word by word; fish tells.
"""

import os
import pty
import re
import signal
import subprocess
import sys
import tempfile

SETUP = [
    "instance set blue",
    "instance set green",
    "lif add blue eth0 address 10.1.0.1/16",
    "lif add blue 'uplink 1'",
    "bridge add br0",
    "connection plumb 02:00:00:00:00:0a",
    "connection plumb 03:00:00:00:00:0b",
]

# A line, and the words that it becomes.
CASES = [
    ("lumozephctl rou", ["route"]),
    ("lumozephctl ba", ["batch"]),
    ("lumozephctl route l", ["route", "list"]),
    ("lumozephctl policy t", ["policy", "table"]),
    ("lumozephctl lif show ", ["lif", "show", "blue", "green"]),
    ("lumozephctl lif show b", ["lif", "show", "blue"]),
    ("lumozephctl lif show blue ", ["lif", "show", "blue", "eth0", "uplink 1"]),
    ("lumozephctl lif show blue upl", ["lif", "show", "blue", "uplink 1"]),
    ("lumozephctl -j lif show blue e", ["-j", "lif", "show", "blue", "eth0"]),
    ("lumozephctl route add blue 10.0.0.0/8 ", ["route", "add", "blue", "10.0.0.0/8", "dev", "param", "via"]),
    (
        "lumozephctl route add blue 2001:db8::/32 via 2001:db8::1 d",
        ["route", "add", "blue", "2001:db8::/32", "via", "2001:db8::1", "dev"],
    ),
    ("lumozephctl lif set blue eth0 mtu 1400 mu", ["lif", "set", "blue", "eth0", "mtu", "1400", "multicast"]),
    ("lumozephctl fdb list ", ["fdb", "list", "br0"]),
    ("lumozephctl connection show 02:00:", ["connection", "show", "02:00:00:00:00:0a"]),
    ("lumozephctl call SetRo", ["call", "SetRoute", "SetRoutev6"]),
    ("lumozephctl call GetLif instance=bl", ["call", "GetLif", "instance=blue"]),
    ("lumozephctl call GetLif inst", ["call", "GetLif", "instance="]),
    ("lumozephctl watch bri", ["watch", "bridge"]),
    ("lumozephctl watch lif=g", ["watch", "lif=green"]),
    ("lumozephctl lif list blue --fields lifName,diI", ["lif", "list", "blue", "--fields", "lifName,diIp"]),
    ("lumozephctl --dry", ["--dry-run"]),
    ("lumozephctl --address-order h", ["--address-order", "host"]),
    ("lumozephctl batch lin", ["batch", "lines.batch"]),
    ("lumozephctl diff lin", ["diff", "lines.batch"]),
    ("lumozephctl save - --instance b", ["save", "-", "--instance", "blue"]),
    ("lumozephctl graph g", ["graph", "green"]),
]
PROMPT = "@@"

BASH = """
PS1={prompt!r}
bind 'set enable-bracketed-paste off'
bind '"\\C-t": insert-completions'
source {script!r}
"""

ZSH = """
PS1={prompt!r} PS2= RPS1=
unsetopt prompt_cr prompt_sp
unset zle_bracketed_paste
fpath=({folder!r} $fpath)
autoload -Uz compinit && compinit -u -D
bindkey -e
complete_all() {{ _main_complete; compstate[insert]=all }}
zle -C complete-all complete-word complete_all
bindkey '^T' complete-all
"""


class Terminal:
    """An interactive shell."""

    def __init__(self, *words):
        self.process, self.descriptor = pty.fork()
        if self.process == 0:
            os.environ.update(TERM="dumb", HISTFILE="/dev/null", COLUMNS="1000", LINES="50")
            os.execvp(words[0], words)

    def type(self, text):
        os.write(self.descriptor, text.encode())

    def read_to(self, mark):
        text = ""
        while not re.search(mark, text):
            text += os.read(self.descriptor, 65536).decode(errors="replace")
        return text

    def end(self):
        os.kill(self.process, signal.SIGKILL)
        os.waitpid(self.process, 0)
        os.close(self.descriptor)


def completed_by_terminal(words, setup):
    terminal = Terminal(*words)
    terminal.type(setup.replace("\n", "\r") + "stty -echo; printf '%s\\n' rea''dy\r")
    terminal.read_to("ready\r?\n")
    for number, (line, _) in enumerate(CASES):
        # The beginning of the line becomes the words of printf.
        begin = f"printf '<%s>' {number} "
        terminal.type(line + "\x14" + "\x01" + begin + "\x05" + "; echo en''d\r")
        printed = terminal.read_to("end\r?\n")
        shown = re.search(rf"<{number}>(.*)end\r?\n", printed, re.DOTALL)
        yield re.findall(r"<([^>]*)>", shown[1])[1:]
    terminal.end()


def completed_by_fish(script):
    for line, _ in CASES:
        told = subprocess.run(
            ["fish", "--no-config", "-c", "source $argv[1]; complete --do-complete $argv[2]", script, line],
            stdout=subprocess.PIPE,
            check=True,
            text=True,
        ).stdout
        words = line.split(" ")[1:-1]
        yield words + sorted(each.partition("\t")[0] for each in told.splitlines())


def completed(shell, script):
    if shell == "fish":
        return completed_by_fish(script)
    template = BASH if shell == "bash" else ZSH
    setup = template.format(prompt=PROMPT, script=script, folder=os.path.dirname(script))
    words = ["bash", "--norc", "--noprofile", "-i"] if shell == "bash" else ["zsh", "-f", "-i"]
    return completed_by_terminal(words, setup)


def main():
    shell, script = sys.argv[1], os.path.abspath(sys.argv[2])
    signal.alarm(100)
    status = 0
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        with open("lines.batch", "w", encoding="utf-8") as file:
            file.write("\n".join(SETUP) + "\n")
        subprocess.run(["lumozephctl", "batch", "lines.batch"], check=True)
        for (line, expected), words in zip(CASES, completed(shell, script)):
            # Shells have orders of their own.
            typed = line.count(" ") - 1
            if words[:typed] + sorted(words[typed:]) != expected:
                print(f"{shell}: {line!r} becomes {words}, not {expected}")
                status = 1
    return status


sys.exit(main())
