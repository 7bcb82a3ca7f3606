"""JSON that is read and compared by people: what fits into a line is one."""

import json
from typing import Any

WIDTH = 120


def json_text(value: Any, indentation: int = 0, used: int = 0) -> str:
    """Text of a value that stands behind so many characters, some of them its indentation."""
    line = json.dumps(value, ensure_ascii=False)
    # A comma may follow.
    if indentation + used + len(line) < WIDTH or not isinstance(value, (dict, list)) or not value:
        return line
    inner = indentation + 2
    if isinstance(value, dict):
        opening, closing = "{", "}"
        keys = [json.dumps(key) + ": " for key in value]
        parts = [key + json_text(one, inner, len(key)) for key, one in zip(keys, value.values())]
    else:
        opening, closing = "[", "]"
        parts = [json_text(one, inner) for one in value]
    return opening + ",".join(f"\n{' ' * inner}{part}" for part in parts) + f"\n{' ' * indentation}{closing}"
