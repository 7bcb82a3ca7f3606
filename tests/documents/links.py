"""Checks that what the documents point to is there: links, their anchors, and paths in backticks.

usage: links.py TREE DOCUMENT...
"""

import re
import sys
from pathlib import Path

import markdown

# A path of the tree, as opposed to a pattern, a placeholder or something that is built or installed.
PATH = re.compile(r"`([a-z][\w.-]*/[\w./-]*|[A-Z]+\.md)`")

PLACEHOLDER = re.compile(r"/[A-Z]+[._]")


def is_there(target, document, tree):
    path, _, anchor = target.partition("#")
    found = (document.path.parent / path).resolve() if path else document.path
    if not found.exists() or tree not in found.parents:
        return False
    return not anchor or anchor in markdown.read(found).anchors()


def missing(document, tree, folders):
    for number, line in document.prose:
        for target in re.findall(r"\]\(([^)]+)\)", line):
            if not re.match(r"https?:", target) and not is_there(target, document, tree):
                yield f"{document.path}:{number}: {target} leads nowhere"
        for path in PATH.findall(line):
            if path.split("/")[0] in folders and not PLACEHOLDER.search(path) and not any((base / path).exists() for base in (tree, document.path.parent)):
                yield f"{document.path}:{number}: there is no {path}"


def main():
    tree, *paths = (Path(argument).resolve() for argument in sys.argv[1:])
    folders = {path.name for path in tree.iterdir()} - {"build"}
    documents = [markdown.read(path) for path in paths]
    mistakes = [mistake for document in documents for mistake in missing(document, tree, folders)]
    links = sum(len(re.findall(r"\]\(|`", line)) for document in documents for _, line in document.prose)
    print("\n".join(mistakes) or f"{len(documents)} documents, {links} links and names looked at")
    sys.exit(1 if mistakes or links == 0 else 0)


main()
