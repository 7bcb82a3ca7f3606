"""The emulated module inside this process, for tests.

Calls of the module's device are answered here if the process has been started with liblumozeph-emulator preloaded, as
lumozeph-emulator run --in-process and the pytest plugin do. Every process has a module of its own; one that is forked
goes on with a copy of its parent's.
"""

import ctypes
import os
from contextlib import contextmanager
from typing import Any, Callable, Iterator, List, NamedTuple, Optional

from ._library import Function

SONAME = "liblumozeph-emulator.so.1"


class Command(NamedTuple):
    """A command that the module has answered."""

    number: int
    """The ioctl's request."""
    error: int
    """0, or the errno that the module answers."""
    input: bytes
    """What was sent."""
    room: int
    """The room for the reply, in bytes."""
    reply: bytes
    """What the module replies; nothing if it answers an error."""


Watcher = Callable[[Command], None]


class _Command(ctypes.Structure):
    _fields_ = [
        ("number", ctypes.c_uint32),
        ("error", ctypes.c_int32),
        ("input", ctypes.c_void_p),
        ("input_length", ctypes.c_uint32),
        ("room", ctypes.c_uint32),
        ("reply", ctypes.c_void_p),
        ("reply_length", ctypes.c_uint32),
    ]


_Callback = ctypes.CFUNCTYPE(None, ctypes.POINTER(_Command), ctypes.c_void_p)


def library_name() -> str:
    """What is to be preloaded: the library that LUMOZEPH_EMULATOR_LIBRARY names, or that of the system."""
    return os.environ.get("LUMOZEPH_EMULATOR_LIBRARY") or SONAME


def is_here() -> bool:
    """Whether this process has a module of its own."""
    return hasattr(ctypes.CDLL(None), "lumozeph_emulator_reset")


class Module:
    """The module of this process. There is one, however many objects of this class there are."""

    def __init__(self) -> None:
        if not is_here():
            raise RuntimeError(f"this process has no emulated module: it was started without {SONAME} preloaded")
        door = ctypes.CDLL(None, use_errno=True)
        self._reset: Function = door.lumozeph_emulator_reset
        self._watch: Function = door.lumozeph_emulator_watch
        door.lumozeph_emulator_watch.argtypes = (ctypes.c_void_p, ctypes.c_void_p)
        # What the module calls must stay until it has another.
        self._callback: Any = None

    def reset(self) -> None:
        """Puts a new module in the place of this one: what was set is forgotten."""
        self._check(self._reset())

    def watch(self, watcher: Optional[Watcher]) -> None:
        """Has every command shown from now on; None: to nobody.

        The watcher is called in the thread that has issued the command, before the reply arrives there, for one command
        at a time. It cannot call operations itself: they fail with EDEADLK.
        """

        def shown(command: Any, _: Any) -> None:
            assert watcher is not None
            seen = command.contents
            watcher(
                Command(
                    seen.number,
                    seen.error,
                    ctypes.string_at(seen.input, seen.input_length) if seen.input else b"",
                    seen.room,
                    ctypes.string_at(seen.reply, seen.reply_length) if seen.reply else b"",
                )
            )

        callback = _Callback(shown) if watcher is not None else None
        self._check(self._watch(callback, None))
        self._callback = callback

    @contextmanager
    def journal(self) -> Iterator[List[Command]]:
        """Writes down what the module answers: with module.journal() as commands."""
        commands: List[Command] = []
        self.watch(commands.append)
        try:
            yield commands
        finally:
            self.watch(None)

    @staticmethod
    def _check(result: int) -> None:
        if result != 0:
            number = ctypes.get_errno()
            raise OSError(number, os.strerror(number))
