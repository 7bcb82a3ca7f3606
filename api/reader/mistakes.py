"""What is wrong with the header or with the annotations, and where."""


class Mistake(Exception):
    """One of them, with its line in the header."""

    def __init__(self, line: int, text: str) -> None:
        super().__init__(text)
        self.line = line
        self.text = text


class Mistakes(Exception):
    """All of them, each with file and line or section."""

    def __init__(self, lines: list[str]) -> None:
        super().__init__("\n".join(lines))
        self.lines = lines
