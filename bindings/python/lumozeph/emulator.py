"""The emulated module inside this process, for tests.

Calls of the module's device are answered here if the process has been started with liblumozeph-emulator preloaded, as
lumozeph-emulator run --in-process and the pytest plugin do. Every process has a module of its own; one that is forked
goes on with a copy of its parent's.
"""

import ctypes
import json
import os
import tempfile
from contextlib import contextmanager
from typing import Any, Callable, Dict, Iterator, List, Mapping, NamedTuple, Optional, Union

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
        self._load: Function = door.lumozeph_emulator_load
        self._save: Function = door.lumozeph_emulator_save
        self._advance: Function = door.lumozeph_emulator_advance
        door.lumozeph_emulator_advance.argtypes = (ctypes.c_uint64,)
        self._add_fault: Function = door.lumozeph_emulator_add_fault
        self._clear_faults: Function = door.lumozeph_emulator_clear_faults
        self._watch: Function = door.lumozeph_emulator_watch
        door.lumozeph_emulator_watch.argtypes = (ctypes.c_void_p, ctypes.c_void_p)
        # What the module calls must stay until it has another.
        self._callback: Any = None

    def reset(self) -> None:
        """Puts a new module in the place of this one: what was set is forgotten, and so are faults."""
        self._check(self._reset())

    def load(self, state: Union[str, "os.PathLike[str]", Mapping[str, Any]]) -> None:
        """Puts a new module in the place of this one, with a state: a JSON file's, or what would be in the file.

        What is wrong with it is said on standard error, with its line and column, and OSError has EINVAL; then nothing
        has changed.
        """
        if not isinstance(state, Mapping):
            self._check(self._load(os.fsencode(state)))
            return
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "state.json")
            with open(path, "w", encoding="utf-8") as file:
                json.dump(state, file, indent=2)
            self._check(self._load(os.fsencode(path)))

    def save(self, path: Union[str, "os.PathLike[str]"]) -> None:
        """Writes the state to a file, which is replaced."""
        self._check(self._save(os.fsencode(path)))

    def state(self) -> Dict[str, Any]:
        """The state, as it would be in a file. What is as it is in a new module is left out."""
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "state.json")
            self.save(path)
            with open(path, encoding="utf-8") as file:
                state: Dict[str, Any] = json.load(file)
        return state

    def advance(self, seconds: float) -> None:
        """Lets time pass for the module, beside what passes by itself."""
        nanoseconds = round(seconds * 1e9)
        if not 0 <= nanoseconds < 1 << 64:
            raise ValueError(f"{seconds} seconds cannot pass")
        self._check(self._advance(nanoseconds))

    def add_fault(self, fault: str) -> None:
        """Has commands go wrong from now on: "GetLifs#1=ENODEV", "Set*=delay:50ms"; lumozeph-emulator(1) has all kinds.

        What is wrong with the text is said on standard error, and OSError has EINVAL; then nothing has changed.
        """
        self._check(self._add_fault(fault.encode()))

    def clear_faults(self) -> None:
        """Takes all faults away. Commands that wait go on waiting."""
        self._check(self._clear_faults())

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
