"""The device that device.c puts in the place of the module's, for tests that script what it does."""

import ctypes
import os
from contextlib import contextmanager
from dataclasses import dataclass
from typing import Any, Callable, Iterator, List, Union

_here = ctypes.CDLL(None)
_Answer = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_uint32, ctypes.c_void_p)


class Envelope(ctypes.Structure):
    _pack_ = 1
    _layout_ = "ms"
    _fields_ = [
        ("in_length", ctypes.c_uint32),
        ("input", ctypes.c_void_p),
        ("out_length", ctypes.c_uint32),
        ("out", ctypes.c_void_p),
    ]


@dataclass
class Sent:
    """A command that has arrived."""

    number: int
    input: bytes
    room: int


@contextmanager
def device(*answers: Union[int, bytes, Callable[[bytes], int]]) -> Iterator[List[Sent]]:
    """A device that gives these answers, the last one again: an errno, what makes it of the input, or a reply."""
    sent: List[Sent] = []
    failures: List[BaseException] = []

    def answer(command: int, argument: int) -> int:
        try:
            envelope = Envelope.from_address(argument)
            content = ctypes.string_at(envelope.input, envelope.in_length) if envelope.input else b""
            what = answers[min(len(sent), len(answers) - 1)]
            sent.append(Sent(command, content, envelope.out_length))
            if callable(what):
                what = what(content)
            if isinstance(what, int):
                return what
            reply = what[: envelope.out_length]
            ctypes.memmove(envelope.out, reply, len(reply))
            envelope.out_length = len(reply)
        except BaseException as failure:  # It would be lost between here and the call.
            failures.append(failure)
        return 0

    callback: Any = _Answer(answer)
    _here.device_answer(callback)
    try:
        yield sent
    finally:
        _here.device_answer(None)
        if failures:
            raise failures[0]


@contextmanager
def gate() -> Iterator[int]:
    """A descriptor: every call of the device waits until a byte is written there."""
    reading, writing = os.pipe()
    _here.device_gate(reading)
    try:
        yield writing
    finally:
        _here.device_gate(-1)
        os.close(reading)
        os.close(writing)


def open_descriptors() -> int:
    """How many descriptors of the device nobody has closed."""
    count: int = _here.device_open_descriptors()
    return count
