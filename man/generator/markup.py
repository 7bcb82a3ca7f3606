"""Plain text of the description, turned into mdoc(7)."""

import re

ERRNO = re.compile(r"E[A-Z]{3,}\Z")
MANUAL = re.compile(r"([a-z_0-9]+)\(([1-9])\)\Z")
MACRO = re.compile(r"LUMOZEPH_[A-Z0-9_]+\Z")
RECORD = re.compile(r"Lumo[A-Z]\w*(\.\w+)?\Z")
MEMBER = re.compile(r"[a-z]+[A-Z0-9]\w*\Z")
NAME = re.compile(r"LUMOZEPH|Lumo[A-Z]|[a-z]+[A-Z0-9]")
WORD = re.compile(r"([\"(]*)(\w+\([1-9]?\)|.*?)([\".,;:)]*)\Z")
SENTENCE_END = re.compile(r"(?<=[.:]) (?=[A-Z@(])")


class Markup:
    """Knows what words are names: of functions, and of the parameters of one of them. A parameter that reads like a
    word of English is one where the text says @name, or names it before " is "."""

    def __init__(self, functions, page=None, parameters=()):
        self.functions = functions
        self.page = page
        self.parameters = frozenset(parameters)

    def text(self, plain):
        """Lines of mdoc: sentences begin on new ones, and so do names."""
        lines = []
        for sentence in SENTENCE_END.split(plain):
            lines += self._sentence(sentence.split(" "))
        return "\n".join(lines)

    def paragraphs(self, text):
        """A text of the description: paragraphs, and tables of terms."""
        blocks = []
        for paragraph in text:
            if isinstance(paragraph, str):
                blocks.append(".Pp\n" + self.text(paragraph))
            else:
                blocks.append(self._terms(paragraph["terms"]))
        return "\n".join(blocks)

    def sentence(self, plain):
        """The same, from words that need not be a sentence yet."""
        return self.text(as_sentence(plain))

    def _terms(self, terms):
        width = max(len(term["term"]) for term in terms) + 2
        items = [f".It {term['term']}\n{self.text(term['text'])}" for term in terms]
        return f".Bl -tag -width {'x' * width} -compact -offset indent\n" + "\n".join(items) + "\n.El"

    def _sentence(self, words):
        lines = []
        plain = []
        for index, word in enumerate(words):
            before, core, after = WORD.match(word).groups()
            macro = self._macro(core, words, index)
            if macro is None:
                plain.append(escape(word))
                continue
            if plain:
                lines.append(guard(" ".join(plain)))
                plain = []
            lines.append(marked_up(before, macro, after))
        if plain:
            lines.append(guard(" ".join(plain)))
        return lines

    def _macro(self, core, words, index):
        if core == self.page:
            return f"Fn {core}"
        if core in self.functions:
            return f"Xr {core} 3"
        if core == "free()":
            return "Xr free 3"
        manual = MANUAL.match(core)
        if manual:
            return f"Xr {manual[1]} {manual[2]}"
        if MACRO.match(core):
            return f"Dv {core}"
        if core.startswith("USE_"):
            return f"Ev {core}"
        if core.startswith("/pelt/"):
            return f"Pa {core}"
        if ERRNO.match(core):
            return f"Er {core}"
        if RECORD.match(core):
            return f"Vt {core}"
        if core.startswith("@"):
            return f"Fa {core[1:]}"
        if core in self.parameters and (MEMBER.match(core) or is_subject(words, index)):
            return f"Fa {core}"
        if MEMBER.match(core):
            return f"Va {core}"
        return None


def is_subject(words, index):
    following = words[index + 1 : index + 4]
    return following[:1] == ["is"] or (following[:1] == ["or"] and following[2:3] == ["is"])


def marked_up(before, macro, after):
    if before and after.startswith(")"):
        return " ".join([".Pq", macro, *after[1:]])
    if before:
        macro = f"Pf {before} {macro}"
    return " ".join(["." + macro, *after])


def escape(text):
    return text.replace("\\", "\\e")


def guard(line):
    """A line of text that does not look like a request."""
    return "\\&" + line if line[:1] in (".", "'") else line


def as_sentence(plain):
    """Begins with a capital unless it begins with a name, and ends with a full stop."""
    first = plain.split(" ")[0]
    if not first.startswith("@") and not MEMBER.match(first) and not MACRO.match(first):
        plain = plain[:1].upper() + plain[1:]
    return plain if plain.endswith(".") else plain + "."


def literal(text):
    """Lines that are shown as they are."""
    return "\n".join(guard(escape(line)) for line in text.split("\n"))


def table_text(plain):
    """Text in a table, where there are no macros. Names are not hyphenated."""
    words = ("\\%" + escape(word) if NAME.match(word) else escape(word) for word in plain.split(" "))
    return guard(" ".join(words))
