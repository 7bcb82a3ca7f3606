"""What worlds say of how they differ from files is as the committed schema says, and so are their states.

usage: patch_schema_test.py EMULATOR PATCH-SCHEMA STATE-SCHEMA WORLDS
"""

import json
import os
import subprocess
import sys
import tempfile

import jsonschema


def validator(path):
    with open(path, encoding="utf-8") as file:
        schema = json.load(file)
    jsonschema.Draft7Validator.check_schema(schema)
    return jsonschema.Draft7Validator(schema)


def main():
    emulator, patch_schema, state_schema, worlds = sys.argv[1:]
    patches, states = validator(patch_schema), validator(state_schema)
    name = f"patch-schema-{os.getpid()}"
    files = [os.path.join(worlds, file) for file in sorted(os.listdir(worlds))]
    seen = set()
    with tempfile.NamedTemporaryFile("w", suffix=".json") as level:
        level.write('{"logLevel": 1}')
        level.flush()
        files.append(level.name)
        for one, other in zip(files, files[1:] + files[:1]):
            world = [emulator, "run", "--world", name, "--load", one, "--", emulator, "world", name]
            got = subprocess.run([*world, "get"], stdout=subprocess.PIPE, check=True)
            states.validate(json.loads(got.stdout))
            said = subprocess.run([*world, "diff", other], stdout=subprocess.PIPE, check=False)
            if said.returncode != 1:
                sys.exit(f"{one} and {other} do not differ: {said.returncode}")
            patch = json.loads(said.stdout)
            patches.validate(patch)
            seen.update(operation["op"] for operation in patch)
    if seen != {"add", "remove", "replace"}:
        sys.exit(f"nothing to validate but {seen}")
    for wrong in ({}, [{}], [{"op": "add", "path": "/a"}], [{"op": "remove", "path": "a"}], [{"op": "move", "path": "/a"}]):
        if patches.is_valid(wrong):
            sys.exit(f"valid: {wrong}")


main()
