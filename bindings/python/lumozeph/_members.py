"""Records as C lays them out, and what their members read as."""

import ctypes
import ipaddress
from functools import lru_cache
from typing import TYPE_CHECKING, Any, Callable, Dict, List, Optional, Tuple, Type, TypeVar

from . import _arguments
from ._sequences import Records

if TYPE_CHECKING:
    import numpy
    import numpy.typing

    Column = numpy.typing.NDArray[Any]

    class _Structure:
        """What of ctypes.Structure records are seen to have: not its attributes of any name."""

        _fields_: List[Any]

        @classmethod
        def from_buffer_copy(cls: Type["S"], source: Any, offset: int = 0) -> "S":
            ...

        def __bytes__(self) -> bytes:
            ...

    S = TypeVar("S", bound=_Structure)
else:
    _Structure = ctypes.Structure


class Member:
    """A member of a record. This one reads as ctypes makes it; others are descriptors around what ctypes has."""

    def __init__(self, name: str, c_type: Any) -> None:
        self.name = name
        self.c_type = c_type

    @property
    def field(self) -> Tuple[Any, ...]:
        """What ctypes is told."""
        return self.name, self.c_type

    def take_over(self, record: Any) -> None:
        """Keeps what ctypes has made of the field."""
        self.raw = record.__dict__[self.name]

    @property
    def column_name(self) -> str:
        """The name of the field that has it in an array."""
        return self.name

    def dtype(self) -> Any:
        raise NotImplementedError

    def column(self, array: "Column") -> "Column":
        return array[self.column_name]

    def store(self, record: "Record", value: Any) -> None:
        self.raw.__set__(record, value)


class Gap(Member):
    """Bytes that mean nothing."""

    def __init__(self, name: str, size: int) -> None:
        super().__init__(name, ctypes.c_uint8 * size)

    def take_over(self, record: Any) -> None:
        delattr(record, self.name)


def _within(value: Any, c_type: Any) -> int:
    """A number that the type can hold."""
    size = 8 * ctypes.sizeof(c_type)
    least, most = (0, 2**size - 1) if c_type(-1).value > 0 else (-(2 ** (size - 1)), 2 ** (size - 1) - 1)
    return _arguments.number(value, least, most)


def _kind(c_type: Any) -> str:
    """The type in numpy's words."""
    sign = "u" if c_type(-1).value > 0 else "i"
    return f"={sign}{ctypes.sizeof(c_type)}"


class Number(Member):
    def store(self, record: "Record", value: Any) -> None:
        self.raw.__set__(record, _within(value, self.c_type))

    def dtype(self) -> Any:
        return _kind(self.c_type)


class Bits(Member):
    """Some bits of a word, which the members beside it share: all of them are told the word's name in an array."""

    def __init__(self, name: str, c_type: Any, shift: int, width: int, word: str) -> None:
        super().__init__(name, c_type)
        self.shift = shift
        self.width = width
        self.word = word

    @property
    def field(self) -> Tuple[Any, ...]:
        return self.name, self.c_type, self.width

    @property
    def column_name(self) -> str:
        return self.word

    def dtype(self) -> Any:
        return _kind(self.c_type)

    def column(self, array: "Column") -> "Column":
        column: "Column" = array[self.word] >> self.shift & ((1 << self.width) - 1)
        return column

    def store(self, record: "Record", value: Any) -> None:
        self.raw.__set__(record, _arguments.number(value, 0, (1 << self.width) - 1))


class _Converted(Member):
    """A member that is a descriptor itself."""

    def take_over(self, record: Any) -> None:
        super().take_over(record)
        setattr(record, self.name, self)

    def __get__(self, record: Any, owner: Any = None) -> Any:
        return self if record is None else self.load(record)

    def __set__(self, record: Any, value: Any) -> None:
        self.store(record, value)

    def load(self, record: Any) -> Any:
        raise NotImplementedError


class Text(_Converted):
    def __init__(self, name: str, size: int, terminated: bool = True) -> None:
        super().__init__(name, ctypes.c_char * size)
        self.room = size - 1 if terminated else size

    def load(self, record: Any) -> str:
        text: bytes = self.raw.__get__(record)
        return text.decode("utf-8", "surrogateescape")

    def store(self, record: Any, value: str) -> None:
        text = _arguments.text(value)
        if len(text) > self.room:
            raise ValueError(f"{self.name} has room for {self.room} bytes, not for {len(text)}")
        self.raw.__set__(record, text)

    def dtype(self) -> Any:
        return f"S{ctypes.sizeof(self.c_type)}"


class _Octets(_Converted):
    """A member that is made of single bytes."""

    def __init__(self, name: str, size: int) -> None:
        super().__init__(name, ctypes.c_uint8 * size)
        self.size = size

    def load_bytes(self, record: Any) -> bytes:
        return bytes(self.raw.__get__(record))

    def store_bytes(self, record: Any, value: bytes) -> None:
        if len(value) > self.size:
            raise ValueError(f"{self.name} has room for {self.size} bytes, not for {len(value)}")
        self.raw.__get__(record)[:] = value.ljust(self.size, b"\0")

    def dtype(self) -> Any:
        return "u1", (self.size,)


class Bytes(_Octets):
    def load(self, record: Any) -> bytes:
        return self.load_bytes(record)

    def store(self, record: Any, value: _arguments.BytesArgument) -> None:
        self.store_bytes(record, bytes(value))


class Mac(_Octets):
    def __init__(self, name: str) -> None:
        super().__init__(name, _arguments.MAC_SIZE)

    def load(self, record: Any) -> str:
        return self.load_bytes(record).hex(":")

    def store(self, record: Any, value: _arguments.MacArgument) -> None:
        self.store_bytes(record, _arguments.mac(value))


class IPv4(_Converted):
    """An address or a mask, in network order."""

    def __init__(self, name: str) -> None:
        super().__init__(name, ctypes.c_uint32.__ctype_be__)  # type: ignore[attr-defined]

    def load(self, record: Any) -> ipaddress.IPv4Address:
        return ipaddress.IPv4Address(self.raw.__get__(record))

    def store(self, record: Any, value: _arguments.IPv4Argument) -> None:
        self.raw.__set__(record, int(ipaddress.IPv4Address(value)))

    def dtype(self) -> Any:
        return ">u4"


class IPv6(_Octets):
    def __init__(self, name: str) -> None:
        super().__init__(name, 16)

    def load(self, record: Any) -> ipaddress.IPv6Address:
        return ipaddress.IPv6Address(self.load_bytes(record))

    def store(self, record: Any, value: _arguments.IPv6Argument) -> None:
        self.store_bytes(record, ipaddress.IPv6Address(value).packed)


class IP(_Octets):
    """An address of the family that another member tells. That of an unknown one is its bytes."""

    FAMILY_IPV4 = 1
    FAMILY_IPV6 = 3

    def __init__(self, name: str, family: str) -> None:
        super().__init__(name, 16)
        self.family = family

    def load(self, record: Any) -> Any:
        content = self.load_bytes(record)
        family = getattr(record, self.family)
        if family == self.FAMILY_IPV4:
            return ipaddress.IPv4Address(content[:4])
        return ipaddress.IPv6Address(content) if family == self.FAMILY_IPV6 else content

    def store(self, record: Any, value: Any) -> None:
        """Of an address, the family is set, too."""
        if isinstance(value, (bytes, bytearray)):
            self.store_bytes(record, bytes(value))
            return
        address = ipaddress.ip_address(value)
        self.store_bytes(record, address.packed)
        setattr(record, self.family, self.FAMILY_IPV4 if address.version == 4 else self.FAMILY_IPV6)


class Numbers(_Converted):
    """Several numbers: as many as another member counts, but never more than there are."""

    def __init__(self, name: str, c_type: Any, length: int, counted_by: Optional[str] = None) -> None:
        super().__init__(name, c_type * length)
        self.number_type = c_type
        self.length = length
        self.counted_by = counted_by

    def load(self, record: Any) -> Tuple[int, ...]:
        numbers = self.raw.__get__(record)
        if self.counted_by is None:
            return tuple(numbers)
        return tuple(numbers[: min(getattr(record, self.counted_by), self.length)])

    def store(self, record: Any, value: Any) -> None:
        numbers = [_within(one, self.number_type) for one in value]
        if len(numbers) > self.length:
            raise ValueError(f"{self.name} has room for {self.length} numbers, not for {len(numbers)}")
        self.raw.__get__(record)[:] = numbers + [0] * (self.length - len(numbers))

    def dtype(self) -> Any:
        return _kind(self.number_type), (self.length,)


class Nested(Member):
    """A record within the record."""

    def dtype(self) -> Any:
        return self.c_type.dtype()


class Table(_Converted):
    """Records within the record: as many as another member counts, but never more than there is room for."""

    def __init__(self, name: str, record: Any, length: int, counted_by: Optional[str] = None) -> None:
        super().__init__(name, record * length)
        self.record = record
        self.length = length
        self.counted_by = counted_by

    def load(self, record: Any) -> "Records[Record]":
        count = self.length if self.counted_by is None else min(getattr(record, self.counted_by), self.length)
        return Records(self.record, self.raw.__get__(record), range(count))

    def store(self, record: Any, value: Any) -> None:
        """What counts them is set, too."""
        records = list(value)
        if len(records) > self.length:
            raise ValueError(f"{self.name} has room for {self.length} records, not for {len(records)}")
        there = self.raw.__get__(record)
        for index in range(self.length):
            there[index] = records[index] if index < len(records) else self.record()
        if self.counted_by is not None:
            setattr(record, self.counted_by, len(records))

    def dtype(self) -> Any:
        return self.record.dtype(), (self.length,)


class Record(_Structure):
    """What all records have: members by name, comparison and a text.

    Members are converted whenever they are read. Those that are not given to a new record are zero or empty.
    """

    __slots__ = ()
    _pack_ = 1
    _layout_ = "ms"
    _members: Dict[str, Member] = {}

    def __init__(self, **members: Any) -> None:
        super().__init__()
        for name, value in members.items():
            setattr(self, name, value)

    def __setattr__(self, name: str, value: Any) -> None:
        self.member(name).store(self, value)

    def __eq__(self, other: object) -> bool:
        if type(other) is not type(self):
            return NotImplemented
        return all(getattr(self, name) == getattr(other, name) for name in self._members)

    __hash__ = None  # type: ignore[assignment]

    def __repr__(self) -> str:
        members = ", ".join(f"{name}={getattr(self, name)!r}" for name in self._members)
        return f"{type(self).__name__}({members})"

    def __reduce__(self) -> Tuple[Any, ...]:
        """For copies, which have memory of their own, and for pickle."""
        return _restored, (type(self), bytes(self))

    @classmethod
    def member(cls, name: str) -> Member:
        try:
            return cls._members[name]
        except KeyError:
            raise AttributeError(f"{cls.__name__} has no member {name!r}") from None

    @classmethod
    @lru_cache(maxsize=None)
    def dtype(cls) -> "numpy.dtype[numpy.void]":
        """The type of an array's elements: what has a name, where it lies."""
        import numpy

        fields = {member.column_name: (member.dtype(), member.raw.offset) for member in cls._members.values()}
        layout: Any = {
            "names": list(fields),
            "formats": [kind for kind, _ in fields.values()],
            "offsets": [offset for _, offset in fields.values()],
            "itemsize": len(bytes(cls())),
        }
        dtype: "numpy.dtype[numpy.void]" = numpy.dtype(layout)
        return dtype


R = TypeVar("R", bound=Record)


def _restored(record: Type[R], content: bytes) -> R:
    return record.from_buffer_copy(content)


def members(*listed: Member) -> Callable[[Type[R]], Type[R]]:
    """Gives a record these members, one behind the other."""

    def laid_out(record: Type[R]) -> Type[R]:
        fields: List[Any] = [member.field for member in listed]
        record._fields_ = fields
        for member in listed:
            member.take_over(record)
        record._members = {member.name: member for member in listed if not isinstance(member, Gap)}
        return record

    return laid_out


def taken(out: Any, free: Callable[[Any], int]) -> Any:
    """A copy of the record that a function has handed out, which is given back."""
    try:
        return type(out)._type_.from_buffer_copy(out.contents)
    finally:
        free(out)
