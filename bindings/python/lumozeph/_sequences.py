"""What operations get, as sequences over memory as C lays it out."""

import ctypes
from typing import TYPE_CHECKING, Any, Iterator, Optional, Sequence, TypeVar, Union, overload

from ._library import Function, release

if TYPE_CHECKING:
    import numpy
    import numpy.typing

    from ._members import Record

R = TypeVar("R", bound="Record")

# It takes a parameter in the eyes of a checker only.
if TYPE_CHECKING:
    _Pointer = ctypes._Pointer[Any]
else:
    _Pointer = ctypes._Pointer


class Owner(_Pointer):
    """A pointer to what a function has handed out, and which is given back when the last reference to it goes.

    Records that lie there are such references. A process that is forked has copies of its own, and frees these.
    """

    __slots__ = ()
    free: Function

    def __del__(self) -> None:
        if self:
            self.free(self)


class TableOwner(Owner):
    """A pointer to a table. Release functions leave the array of one without entries allocated."""

    __slots__ = ()
    _free_array = release("free")

    def __del__(self) -> None:
        if self and self.contents.count == 0:
            self._free_array(self.contents.records)
        super().__del__()


class BlockOwner(Owner):
    """A pointer to what only the module interprets."""

    __slots__ = ()
    _type_ = ctypes.c_char
    free = release("free")


class _Memory:
    """So many pieces of so many bytes each, for numpy; keeps alive what they belong to."""

    def __init__(self, address: int, count: int, size: int, owner: Any) -> None:
        self._owner = owner
        self.__array_interface__ = {
            "version": 3,
            "shape": (count,),
            "typestr": f"|V{size}",
            "data": (address, True),
        }


class Records(Sequence[R]):
    """Records as they lie in memory, one behind the other. A slice is another sequence over the same memory.

    The records are made when they are asked for, and share the memory of the result, which stays as long as one of
    them does. copy.copy() makes one that has its own.
    """

    __slots__ = ("_items", "_indices", "_record")
    _SHOWN = 20

    def __init__(self, record: Any, items: Any, indices: range) -> None:
        self._record = record
        self._items = items
        self._indices = indices

    def __len__(self) -> int:
        return len(self._indices)

    @overload
    def __getitem__(self, index: int) -> R:
        ...

    @overload
    def __getitem__(self, index: slice) -> "Records[R]":
        ...

    def __getitem__(self, index: Union[int, slice]) -> Union[R, "Records[R]"]:
        if isinstance(index, slice):
            return Records(self._record, self._items, self._indices[index])
        try:
            found = self._indices[index]
        except IndexError:
            raise IndexError(f"record {index} of {len(self)}") from None
        record: R = self._items[found]
        return record

    def __iter__(self) -> Iterator[R]:
        return map(self._items.__getitem__, self._indices)

    def __reversed__(self) -> Iterator[R]:
        return map(self._items.__getitem__, reversed(self._indices))

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Records):
            return NotImplemented
        return len(self) == len(other) and all(mine == its for mine, its in zip(self, other))

    __hash__ = None  # type: ignore[assignment]

    def __repr__(self) -> str:
        shown = ", ".join(map(repr, self[: self._SHOWN]))
        return f"[{shown}]" if len(self) <= self._SHOWN else f"[{shown}, ... {len(self)} in all]"

    def as_array(self) -> "numpy.typing.NDArray[numpy.void]":
        """The records as a structured array of numpy, without a copy: the memory stays as long as the array does.

        Its fields have the names of the members. Texts are bytes, IPv4 addresses the numbers that int(IPv4Address)
        gives, other addresses bytes. Members that share a word are one field, value2_value3, which column() takes
        apart.
        """
        import numpy

        dtype = self._record.dtype()
        if not self._indices:
            return numpy.zeros(0, dtype)
        first = ctypes.addressof(self._items[0])
        size = ctypes.sizeof(self._record)
        last = max(self._indices[0], self._indices[-1])
        memory = _Memory(first, last + 1, size, self._items)
        array: "numpy.typing.NDArray[numpy.void]" = numpy.asarray(memory).view(dtype)
        step = self._indices.step
        if step > 0:
            return array[self._indices.start :: step]
        return array[::step][: len(self)]

    def __array__(self, dtype: Any = None, copy: Optional[bool] = None) -> "numpy.typing.NDArray[Any]":
        import numpy

        array = self.as_array()
        wanted = array if dtype is None else array.astype(dtype, copy=False)
        return numpy.array(wanted) if copy else wanted

    def column(self, name: str) -> "numpy.typing.NDArray[Any]":
        """One member of all records, as an array of numpy: as it lies in memory; computed if it is part of a word."""
        column: "numpy.typing.NDArray[Any]" = self._record.member(name).column(self.as_array())
        return column


class RecordList(Records[R]):
    """The list that an operation has read, up to the number of records that it reads at most."""

    __slots__ = ("_cap",)

    def __init__(self, record: Any, items: Any, indices: range, cap: int) -> None:
        super().__init__(record, items, indices)
        self._cap = cap

    @property
    def truncated(self) -> bool:
        """Whether the list is at its cap: there may be more than it holds."""
        return len(self) >= self._cap


class Entries(Sequence[bytes]):
    """Entries of so many bytes each, in the module's layout."""

    __slots__ = ("_owner", "_address", "_size", "_indices", "reported")

    reported: int
    """How many there are, as the module says."""

    def __init__(self, owner: Any, address: int, size: int, indices: range, reported: int) -> None:
        self._owner = owner
        self._address = address
        self._size = size
        self._indices = indices
        self.reported = reported

    def __len__(self) -> int:
        return len(self._indices)

    @overload
    def __getitem__(self, index: int) -> bytes:
        ...

    @overload
    def __getitem__(self, index: slice) -> Sequence[bytes]:
        ...

    def __getitem__(self, index: Union[int, slice]) -> Union[bytes, Sequence[bytes]]:
        if isinstance(index, slice):
            return Entries(self._owner, self._address, self._size, self._indices[index], self.reported)
        try:
            found = self._indices[index]
        except IndexError:
            raise IndexError(f"entry {index} of {len(self)}") from None
        return ctypes.string_at(self._address + found * self._size, self._size)

    def __repr__(self) -> str:
        return f"<{len(self)} entries of {self._size} bytes>"

    @property
    def truncated(self) -> bool:
        """Whether the module says that there are more than are here."""
        return self.reported > len(self)


class EntryBlock(Entries):
    """The entries that are sure to lie in a block, of which the library does not tell how much room it has."""

    __slots__ = ()
    SURE = 8000
    MOST = 30000

    def __init__(self, block: BlockOwner, size: int, reported: int) -> None:
        address = ctypes.addressof(block.contents)
        super().__init__(block, address, size, range(min(reported, self.SURE)), reported)

    def all(self) -> Entries:
        """As many entries as the module reports: for programs that trust it."""
        there = range(min(self.reported, self.MOST))
        return Entries(self._owner, self._address, self._size, there, self.reported)


def header(record: Any, count: Any) -> Any:
    """The type of what a list's pointer points to."""
    fields = {"_fields_": [("count", count), ("records", ctypes.POINTER(record))]}
    return type(f"{record.__name__}Header", (ctypes.Structure,), fields)
