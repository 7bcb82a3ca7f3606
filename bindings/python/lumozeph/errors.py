"""The exception of every operation."""

import ctypes
import errno
import os
from typing import Tuple, Type


class Error(OSError):
    """An operation has failed.

    Attributes:
        errno: why, as one of the numbers of the module errno
        strerror: the same in words
        operation: the name of the function: "get_lifs"
    """

    operation: str

    def __init__(self, number: int, operation: str) -> None:
        super().__init__(number, os.strerror(number))
        self.operation = operation

    def __str__(self) -> str:
        return f"{self.operation}: {self.strerror}"

    def __reduce__(self) -> Tuple[Type["Error"], Tuple[int, str]]:
        return type(self), (self.errno or 0, self.operation)


def failure(operation: str) -> Error:
    """Why the call before has failed. The one failure that leaves errno untouched is told as EOVERFLOW."""
    return Error(ctypes.get_errno() or errno.EOVERFLOW, operation)
