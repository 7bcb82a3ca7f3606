"""The pytest plugin, in projects that use it."""

import os
import subprocess
import sys

import pytest

TESTS = """
import lumozeph

def test_sets(lumozeph_module):
    assert len(lumozeph.get_instances()) == 0
    lumozeph.set_lumo_instance("blue")

def test_finds_nothing_of_what_others_set(lumozeph_module):
    assert len(lumozeph.get_instances()) == 0
"""


@pytest.fixture
def pytest_in(tmp_path):
    """Runs pytest in a project that has these tests and this configuration."""

    def run(*options, configuration="", **environment):
        (tmp_path / "test_project.py").write_text(TESTS, encoding="utf-8")
        (tmp_path / "pytest.ini").write_text("[pytest]\n" + configuration, encoding="utf-8")
        return subprocess.run(
            [sys.executable, "-m", "pytest", "-p", "no:cacheprovider", "-p", "lumozeph.pytest_plugin", *options],
            cwd=tmp_path,
            env={**os.environ, **environment},
            capture_output=True,
            text=True,
            timeout=60,
            check=False,
        )

    return run


def test_an_option_gives_each_test_a_module(pytest_in):
    result = pytest_in("--lumozeph-emulator")
    assert result.returncode == 0, result.stdout + result.stderr
    assert "2 passed" in result.stdout


def test_so_does_the_configuration(pytest_in):
    result = pytest_in(configuration="lumozeph_emulator = true\n")
    assert result.returncode == 0, result.stdout + result.stderr
    assert "2 passed" in result.stdout


def test_without_either_the_fixture_says_what_is_missing(pytest_in):
    result = pytest_in()
    assert result.returncode == 1
    assert "--lumozeph-emulator" in result.stdout
    assert "2 errors" in result.stdout


def test_a_library_that_is_not_there_is_told(pytest_in):
    result = pytest_in("--lumozeph-emulator", LUMOZEPH_EMULATOR_LIBRARY="/no/such/library.so")
    assert result.returncode == 4
    assert "/no/such/library.so could not be preloaded" in result.stderr
