"""Prints the description of a header as JSON.

usage: python3 -m reader HEADER ANNOTATIONS SCHEMA
"""

import json
import sys
from pathlib import Path

import jsonschema

from .annotations import Annotations
from .description import describe
from .json_text import json_text
from .mistakes import Mistakes


def main(arguments: list[str]) -> int:
    if len(arguments) != 3:
        print("usage: python3 -m reader HEADER ANNOTATIONS SCHEMA", file=sys.stderr)
        return 2
    header, annotations, schema = (Path(name) for name in arguments)
    try:
        known = Annotations(str(annotations), annotations.read_text())
        description = describe(str(header), header.read_text(), known)
        jsonschema.validate(description, json.loads(schema.read_text()))
    except Mistakes as mistakes:
        print(mistakes, file=sys.stderr)
        return 1
    except jsonschema.ValidationError as error:
        print(f"{schema} does not allow {error.json_path}: {error.message}", file=sys.stderr)
        return 1
    print(json_text(description))
    return 0


sys.exit(main(sys.argv[1:]))
