"""The programs that pages show."""

import re

FIRST_LINE = re.compile(r"/\* (.*) \*/\n")
PRINTS = re.compile(r"\n/\* prints:\n(.*) \*/\n\Z", re.S)
CALL = re.compile(r"\b(LUMOZEPH_?[A-Z][A-Za-z0-9]*)\(")


class Example:
    def __init__(self, path):
        whole = path.read_text(encoding="utf-8")
        first = FIRST_LINE.match(whole)
        prints = PRINTS.search(whole)
        self.chapter = path.parent.name
        self.name = path.stem
        self.says = first[1]
        self.program = whole[first.end() : prints.start() if prints else None].strip("\n")
        self.prints = "\n".join(line[3:] for line in prints[1].splitlines()) if prints else ""
        self.calls = frozenset(CALL.findall(self.program))


def read_examples(folder):
    return [Example(path) for path in sorted(folder.glob("*/*.c"))]


def example_of(function, examples):
    """The first of the function's own chapter that calls it, or the first of another."""
    calling = [example for example in examples if function["name"] in example.calls]
    calling.sort(key=lambda example: example.chapter != function["chapter"])
    return calling[0]
