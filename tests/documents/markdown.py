"""What the tests of the documents need to know of Markdown."""

import re
from dataclasses import dataclass, field
from pathlib import Path


@dataclass
class Block:
    """A fenced block: ```LANGUAGE NAME"""

    language: str
    name: str
    line: int
    lines: list[str] = field(default_factory=list)


@dataclass
class Document:
    path: Path
    blocks: list[Block] = field(default_factory=list)
    prose: list[tuple[int, str]] = field(default_factory=list)

    def anchors(self):
        headings = (line.lstrip("#").strip() for _, line in self.prose if re.match(r"#+ ", line))
        return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def read(path):
    document = Document(path)
    block = None
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if line.startswith("```"):
            if block is None:
                language, _, name = line[3:].partition(" ")
                block = Block(language, name, number)
            else:
                document.blocks.append(block)
                block = None
        elif block is not None:
            block.lines.append(line)
        else:
            document.prose.append((number, line))
    if block is not None:
        raise ValueError(f"{path}:{block.line}: a block without an end")
    return document
