"""The committed schema of states is the one that is made of their description, and the example worlds are valid.

usage: schema_test.py DUMP-SCHEMA SCHEMA WORLDS
"""
import json
import os
import subprocess
import sys

import jsonschema


def main():
    dump_schema, path, worlds = sys.argv[1:]
    made = subprocess.run([dump_schema], check=True, capture_output=True, text=True).stdout
    with open(path, encoding="utf-8") as file:
        if file.read() != made:
            sys.exit(f"{path} is not what {os.path.basename(dump_schema)} prints")
    schema = json.loads(made)
    jsonschema.Draft7Validator.check_schema(schema)
    validator = jsonschema.Draft7Validator(schema)
    files = sorted(os.listdir(worlds))
    if not files:
        sys.exit(f"{worlds}: nothing to validate")
    for name in files:
        with open(os.path.join(worlds, name), encoding="utf-8") as file:
            validator.validate(json.load(file))
    for wrong in ({"logLevel": -1}, {"loglevel": 1}, {"instances": {"a": {"lifs": {"b": {"enabled": 1}}}}}, []):
        if validator.is_valid(wrong):
            sys.exit(f"valid: {wrong}")


main()
