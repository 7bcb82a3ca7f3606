"""The shared object, and its functions as this package calls them."""

import ctypes
import os
from typing import Any, Callable

SONAME = "liblumozeph.so.1"

Function = Callable[..., int]


def _load(use_errno: bool) -> ctypes.CDLL:
    path = os.environ.get("LUMOZEPH_LIBRARY") or SONAME
    try:
        return ctypes.CDLL(path, use_errno=use_errno)
    except OSError as error:
        raise ImportError(f"lumozeph needs its library: {error}", name="lumozeph", path=path) from error


_calling = _load(use_errno=True)
# Results are freed whenever their last reference goes, also between a call that fails and the look at its errno, which
# must not change then.
_freeing = _load(use_errno=False)


def function(name: str, *parameters: Any) -> Function:
    """The function of this name, with the types of its parameters in C. Other threads run during a call."""
    found = _calling[name]
    found.argtypes = parameters
    found.restype = ctypes.c_int32
    return found


def release(name: str) -> Function:
    """The function that frees what another one has handed out, or free itself."""
    found = _freeing[name] if name != "free" else ctypes.CDLL(None).free
    found.argtypes = (ctypes.c_void_p,)
    found.restype = ctypes.c_int32 if name != "free" else None
    return found
