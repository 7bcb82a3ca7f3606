"""The committed description, against the library that is built, the compilers, and itself."""

import json
import os
import subprocess
import tempfile
import unittest
from collections.abc import Iterator
from pathlib import Path

import jsonschema

API = Path(__file__).parent.parent
HEADERS = API.parent / "include"
DESCRIPTION = json.loads((API / "lumozeph.json").read_text())
SCHEMA = json.loads((API / "lumozeph.schema.json").read_text())
COMPILERS = ("cc", "clang", "aarch64-linux-gnu-gcc")


def named(part: str) -> dict[str, dict]:
    return {one["name"]: one for one in DESCRIPTION[part]}


class Description(unittest.TestCase):
    def test_matches_the_schema(self) -> None:
        jsonschema.Draft202012Validator.check_schema(SCHEMA)
        jsonschema.validate(DESCRIPTION, SCHEMA)

    def test_schema_allows_nothing_that_it_does_not_name(self) -> None:
        def objects(part: object) -> Iterator[dict]:
            if isinstance(part, dict):
                if part.get("type") == "object":
                    yield part
                for one in part.values():
                    yield from objects(one)
            elif isinstance(part, list):
                for one in part:
                    yield from objects(one)

        self.assertGreater(len(list(objects(SCHEMA))), 20)
        for one in objects(SCHEMA):
            self.assertIs(one.get("additionalProperties"), False, one.get("required"))

    def test_operations_are_explained(self) -> None:
        explained = (API / "README.md").read_text()
        for operation in {one["operation"] for one in DESCRIPTION["functions"]}:
            self.assertIn(f"`{operation}`", explained)

    def test_names_are_unique(self) -> None:
        for part in ("chapters", "kinds", "macros", "records", "lists", "tables", "functions"):
            self.assertEqual(len(named(part)), len(DESCRIPTION[part]), part)

    def test_every_chapter_has_a_function_and_every_function_a_chapter(self) -> None:
        self.assertEqual({one["chapter"] for one in DESCRIPTION["functions"]}, named("chapters").keys())

    def test_briefs_tell_functions_apart(self) -> None:
        briefs: dict[str, list[str]] = {}
        for one in DESCRIPTION["functions"]:
            briefs.setdefault(one["brief"], []).append(one["name"])
        self.assertEqual([names for names in briefs.values() if len(names) > 1], [])

    def test_kinds_are_explained(self) -> None:
        of_parameters = {one["kind"] for function in DESCRIPTION["functions"] for one in function["parameters"]}
        of_members = {one["kind"] for record in DESCRIPTION["records"] for one in record["members"]}
        self.assertEqual(of_parameters | of_members, named("kinds").keys())

    def test_lists_name_their_record_their_cap_and_their_release(self) -> None:
        self.assertGreaterEqual(len(DESCRIPTION["lists"]), 15)
        for one in DESCRIPTION["lists"]:
            records = {member["name"]: member for member in named("records")[one["name"]]["members"]}
            self.assertEqual(records["records"]["type"]["base"], one["record"])
            self.assertTrue(named("records")[one["record"]]["packed"])
            self.assertEqual(named("macros")[one["cap"]["macro"]]["value"], one["cap"]["value"])
            self.assertEqual(named("functions")[one["release"]]["releases"], one["functions"])

    def test_what_is_released_is_of_the_type_that_the_release_takes(self) -> None:
        for one in DESCRIPTION["functions"]:
            release = one.get("result", {}).get("release")
            if release in (None, "free"):
                continue
            (parameter,) = named("functions")[release]["parameters"]
            self.assertIn(parameter["type"]["base"], (one["result"]["type"], "void"), one["name"])

    def test_every_allocation_has_a_release(self) -> None:
        for one in DESCRIPTION["functions"]:
            twice = [parameter["name"] for parameter in one["parameters"] if parameter["type"]["pointers"] == 2]
            if twice:
                self.assertEqual([one["result"]["parameter"]], twice)
                self.assertIn("release", one["result"])


class Library(unittest.TestCase):
    def test_exports_what_is_described(self) -> None:
        listed = subprocess.run(
            ["nm", "-D", "--defined-only", os.environ["LUMOZEPH_LIBRARY"]], check=True, capture_output=True, text=True
        )
        fields = [line.split() for line in listed.stdout.splitlines()]
        # The version node is an absolute symbol.
        exported = {name.partition("@")[0] for _, symbol, name in fields if symbol != "A"}
        self.assertEqual(exported, named("functions").keys())


def declared(described: dict, name: str) -> str:
    """A declaration that is made of a type."""
    const = "const " if described["const"] else ""
    array = f"[{described['length']}]" if "length" in described else ""
    return f"{const}{described['base']}{'*' * described['pointers']} {name}{array}"


def assertions() -> Iterator[str]:
    """Everything that a compiler can say of the description, as C11."""
    yield "#include <lumozeph.h>\n#include <stddef.h>\n#include <string.h>"
    for macro in DESCRIPTION["macros"]:
        yield f'_Static_assert({macro["name"]} == {macro["value"]}, "");'
    for function in DESCRIPTION["functions"]:
        as_written = [one["declaration"] for one in function["parameters"]]
        by_type = [declared(one["type"], one["name"]) for one in function["parameters"]]
        for parameters in (as_written, by_type):
            yield f"{function['returns']} {function['name']}({', '.join(parameters) or 'void'});"
    for record in DESCRIPTION["records"]:
        name = record["name"]
        yield f'_Static_assert(sizeof({name}) == {record["size"]}, "{name}");'
        yield f'_Static_assert((_Alignof({name}) == 1) == {int(record["packed"])}, "{name}");'
        for member in record["members"]:
            if "bits" in member:
                continue
            field = f"{name}, {member['name']}"
            value = f"((({name}*)0)->{member['name']})"
            yield f'_Static_assert(offsetof({field}) == {member["offset"]}, "{field}");'
            yield f'_Static_assert(sizeof{value} == {member["width"]}, "{field}");'
            described = declared(member["type"], "")
            yield f'_Static_assert(__builtin_types_compatible_p(__typeof__{value}, {described}), "{field}");'


def bit_fields() -> Iterator[str]:
    """A program that sets all bits of each bit-field and looks where they are."""
    yield "int main(void)\n{"
    for record in DESCRIPTION["records"]:
        for member in record["members"]:
            if "bits" in member:
                all_set = (1 << member["bits"]["width"]) - 1
                bits = all_set << member["bits"]["offset"]
                set_bytes = ", ".join(str(bits >> 8 * index & 255) for index in range(member["width"]))
                yield (
                    f"    {{ {record['name']} set = {{0}}; set.{member['name']} = {all_set};\n"
                    f"      unsigned char expected[{record['size']}] = {{0}}, bytes[] = {{{set_bytes}}};\n"
                    f"      memcpy(expected + {member['offset']}, bytes, sizeof bytes);\n"
                    f"      if (memcmp(&set, expected, sizeof set) != 0) return 1; }}"
                )
    yield "}"


class Compilers(unittest.TestCase):
    def setUp(self) -> None:
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.source = Path(scratch.name) / "assertions.c"
        self.program = Path(scratch.name) / "assertions"

    def compiled(self, compiler: str, text: str, *options: str) -> subprocess.CompletedProcess:
        self.source.write_text(text)
        return subprocess.run(
            [compiler, "-std=c11", "-Wall", "-Werror", f"-I{HEADERS}", *options, self.source],
            capture_output=True,
            text=True,
        )

    def test_see_the_same_declarations_offsets_and_sizes(self) -> None:
        text = "\n".join(assertions())
        self.assertGreater(text.count("offsetof"), 200)
        for compiler in COMPILERS:
            with self.subTest(compiler):
                compiled = self.compiled(compiler, text, "-fsyntax-only")
                self.assertEqual(compiled.returncode, 0, compiled.stderr)

    def test_would_see_another_offset(self) -> None:
        text = "\n".join(assertions()).replace(
            "offsetof(LumoLifInfo, lifMac) == 140", "offsetof(LumoLifInfo, lifMac) == 141"
        )
        compiled = self.compiled("cc", text, "-fsyntax-only")
        self.assertIn("LumoLifInfo, lifMac", compiled.stderr)

    def test_put_bit_fields_where_they_are_described(self) -> None:
        text = "\n".join([*assertions(), *bit_fields()])
        self.assertIn("set.value2", text)
        compiled = self.compiled("cc", text, "-o", str(self.program))
        self.assertEqual(compiled.returncode, 0, compiled.stderr)
        self.assertEqual(subprocess.run([self.program]).returncode, 0)


if __name__ == "__main__":
    unittest.main()
