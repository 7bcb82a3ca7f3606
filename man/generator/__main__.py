"""Writes the manual pages, and the same as HTML.

usage: generator DESCRIPTION MAN MANDOC OUTPUT

DESCRIPTION is the interface's, api/lumozeph.json; MAN is the folder of the hand-written pages and of the examples;
MANDOC is the program that turns pages into HTML. Below OUTPUT, man3 and man7 are made anew, and html.
"""

import pathlib
import shutil
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "api"))

import described
import web
import words
from examples import example_of, read_examples
from markup import Markup, literal, table_text

DATE = "November 21, 2026"


# What does not lie in a packed record as it lies elsewhere.
WIDE = frozenset(("int16_t", "uint16_t", "int32_t", "uint32_t", "uint64_t", "void"))


class Pages:
    def __init__(self, description, man):
        self.description = description
        self.version = description["version"]
        self.functions = {function["name"]: function for function in description["functions"]}
        self.records = {record["name"]: record for record in description["records"]}
        self.holders = {holder["name"]: holder for holder in description["lists"] + description["tables"]}
        self.chapters = {chapter["name"]: chapter for chapter in description["chapters"]}
        self.kinds = {kind["name"]: kind["text"] for kind in description["kinds"]}
        self.examples = read_examples(man / "examples")
        self.markup = Markup(self.functions)
        self.templates = described.templates([man, pathlib.Path(__file__).parent / "templates"])
        self.templates.filters.update(literal=literal, sentence=self.markup.sentence, title=title)
        self.templates.globals.update(
            date=DATE,
            version=self.version,
            chapters=self.chapters.values(),
            holders=self.holders,
            words=words,
            program=self.program,
        )

    def rendered(self):
        """Pairs of a page's name, as lumozeph.7, and its text."""
        yield "lumozeph.7", self.templates.get_template("lumozeph.7.j2").render()
        for chapter in self.chapters.values():
            yield f"lumozeph_{chapter['name']}.7", self.chapter_page(chapter)
        for function in self.functions.values():
            yield f"{function['name']}.3", self.function_page(function)

    def program(self, path):
        """An example by its path, for the page that is written by hand."""
        chapter, name = path.split("/")
        return next(example for example in self.examples if (example.chapter, example.name) == (chapter, name))

    def chapter_page(self, chapter):
        def here(all_of_them):
            return [each for each in all_of_them if each.get("chapter") == chapter["name"]]

        records = [record for record in here(self.records.values()) if record["name"] not in self.holders]
        names = [record["name"] for record in records]
        return self.templates.get_template("chapter.7.j2").render(
            chapter=chapter,
            markup=self.markup,
            functions=here(self.functions.values()),
            macros=here(self.description["macros"]),
            records=[self.record(record) for record in records],
            holders_here=[holder for holder in self.holders.values() if holder["record"] in names],
        )

    def function_page(self, function):
        names = [parameter["name"] for parameter in function["parameters"]]
        markup = Markup(self.functions, function["name"], names)
        shown = [] if function["operation"] in ("release", "fill_list") else self.records_of(function)
        members = [member for record in shown for member in record["members"]]
        kinds = {entry["kind"] for entry in [*function["parameters"], *members]}
        result = function.get("result", {})
        return self.templates.get_template("function.3.j2").render(
            f=function,
            chapter=self.chapters[function["chapter"]],
            markup=markup,
            arguments=[(parameter["name"], markup.sentence(words.argument(parameter, function)))
                       for parameter in function["parameters"]],
            kinds=kinds,
            numbers=[member for member in members if member["type"]["base"] in WIDE],
            holder=self.holders.get(result.get("type")),
            release=self.functions.get(result.get("release")),
            records_by_name=self.records,
            records=[self.record(record) for record in shown],
            errors=self.errors(function, markup),
            contacts=function["operation"] not in ("release", "make_key"),
            error_names={error["name"] for error in function["errors"]},
            example=example_of(function, self.examples),
            related=self.related(function),
        )

    def records_of(self, function):
        """The records that a function's arguments are, or hold, and those within them."""
        found = []

        def add(name):
            name = self.holders[name]["record"] if name in self.holders else name
            if name not in self.records or self.records[name] in found:
                return
            found.append(self.records[name])
            for member in self.records[name]["members"]:
                add(member["type"]["base"])

        for parameter in function["parameters"]:
            add(parameter["type"]["base"])
        return found

    def record(self, record):
        members = [(member, table_text(words.meaning(member, self.kinds))) for member in record["members"]]
        return record, members

    def errors(self, function, markup):
        """Pairs of a name and what it means; the device's own are the template's."""
        said = {}
        for error in function["errors"]:
            if error["name"] not in ("other", "none"):
                said.setdefault(error["name"], []).append(words.reason(error, function))
        return [(name, markup.sentence(words.alternatives(reasons))) for name, reasons in said.items()]

    def related(self, function):
        """What a reader of this page looks for next: in its chapter, and what takes the other half of a pair."""
        near = set(example_of(function, self.examples).calls)
        near.update(other for other in self.functions if words.thing(other) == words.thing(function["name"]))
        near = {name for name in near if self.functions[name]["chapter"] == function["chapter"]}
        near.update(function.get("releases", ()))
        near.update((function.get("worker"), function.get("worker_of"), function.get("result", {}).get("release")))
        near.discard(function["name"])
        return sorted(near & self.functions.keys(), key=str.lower)


def title(name):
    return name.upper()


def main():
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    description, man, mandoc, output = (pathlib.Path(argument) for argument in sys.argv[1:])
    pages = Pages(described.read(description), man)
    for folder in ("man3", "man7", "html"):
        shutil.rmtree(output / folder, ignore_errors=True)
        (output / folder).mkdir(parents=True)
    for name, text in pages.rendered():
        (output / f"man{name[-1]}" / name).write_text(text, encoding="utf-8")
    for page in man.glob("*.3"):
        shutil.copyfile(page, output / "man3" / page.name)
    web.write(pages, mandoc, output, man)


if __name__ == "__main__":
    main()
