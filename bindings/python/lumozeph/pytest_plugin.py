"""A pytest plugin: tests that call operations get an emulated module in their own process, and each a fresh one.

With the option --lumozeph-emulator, or lumozeph_emulator = true in pytest's configuration, pytest starts itself again
with the emulator preloaded. The fixture lumozeph_module is the module of the test.
"""

import os
import sys
from typing import Any, Iterator, List

import pytest

from lumozeph import emulator

STARTED = "LUMOZEPH_PYTEST_STARTED"


def pytest_addoption(parser: Any) -> None:
    words = "run the tests in a process that has an emulated module"
    parser.getgroup("lumozeph").addoption("--lumozeph-emulator", action="store_true", help=words)
    parser.addini("lumozeph_emulator", words, type="bool", default=False)


@pytest.hookimpl(hookwrapper=True, tryfirst=True)  # type: ignore[misc]
def pytest_load_initial_conftests(early_config: Any) -> Iterator[None]:
    # Before pytest redirects what the new process shall write to.
    wanted = early_config.known_args_namespace.lumozeph_emulator or early_config.getini("lumozeph_emulator")
    if wanted and not emulator.is_here():
        _start_again(early_config)
    # Another pytest, which a test starts, begins anew.
    os.environ.pop(STARTED, None)
    yield


def _start_again(config: Any) -> None:
    if STARTED in os.environ:
        raise pytest.UsageError(f"{emulator.library_name()} could not be preloaded; it comes with lumozeph-emulator")
    preloaded = " ".join(filter(None, [emulator.library_name(), os.environ.get("LD_PRELOAD")]))
    environment = {**os.environ, "LD_PRELOAD": preloaded, STARTED: "1"}
    sys.stdout.flush()
    sys.stderr.flush()
    os.execve(sys.executable, _command(config), environment)


def _command(config: Any) -> List[str]:
    """What this process was started with; before Python 3.10, as far as it is known."""
    original: List[str] = getattr(sys, "orig_argv", [])
    if original:
        return [sys.executable, *original[1:]]
    return [sys.executable, "-m", "pytest", *map(str, config.invocation_params.args)]


@pytest.fixture
def lumozeph_module() -> Iterator[emulator.Module]:
    """A module in which nothing is set yet."""
    if not emulator.is_here():
        pytest.fail("pytest runs without the option --lumozeph-emulator", pytrace=False)
    module = emulator.Module()
    module.reset()
    yield module
    module.watch(None)
    module.reset()
