"""What functions take, turned into what C takes. Whatever C would misunderstand is refused."""

import ctypes
from ipaddress import IPv4Address, IPv6Address
from operator import index
from socket import AF_INET, AF_INET6, htonl, inet_pton
from sys import byteorder
from typing import Any, Optional, SupportsIndex, Tuple, Union

IPv4Argument = Union[str, IPv4Address]
IPv6Argument = Union[str, IPv6Address]
MaskArgument = Union[int, str, IPv4Address]
MacArgument = Union[str, bytes]
BytesArgument = Union[bytes, bytearray, memoryview]

MAC_SIZE = 6


def text(value: str) -> bytes:
    """A text as the bytes that it was read from: those that are no UTF-8 come from surrogates, as in names of files."""
    try:
        encoded = value.encode()
    except UnicodeEncodeError:
        encoded = value.encode("utf-8", "surrogateescape")
    if b"\0" in encoded:
        raise ValueError("embedded null character")
    return encoded


def maybe_text(value: Optional[str]) -> Optional[bytes]:
    return None if value is None else text(value)


def number(value: SupportsIndex, least: int, most: int) -> int:
    found = index(value)
    if not least <= found <= most:
        raise OverflowError(f"{found} is not in {least} to {most}")
    return found


# These are part of nearly every call, and call nothing that they need not.


def u8(value: SupportsIndex) -> int:
    found = index(value)
    return found if 0 <= found <= 0xFF else number(value, 0, 0xFF)


def u16(value: SupportsIndex) -> int:
    found = index(value)
    return found if 0 <= found <= 0xFFFF else number(value, 0, 0xFFFF)


def u32(value: SupportsIndex) -> int:
    found = index(value)
    return found if 0 <= found <= 0xFFFFFFFF else number(value, 0, 0xFFFFFFFF)


def i32(value: SupportsIndex) -> int:
    found = index(value)
    return found if -0x80000000 <= found <= 0x7FFFFFFF else number(value, -0x80000000, 0x7FFFFFFF)


def ipv4(value: IPv4Argument) -> int:
    """The four bytes of an address as a number in host order that lies in memory as they do."""
    if isinstance(value, str):
        try:
            return int.from_bytes(inet_pton(AF_INET, value), byteorder)
        except (OSError, ValueError):
            value = IPv4Address(value)
    if not isinstance(value, IPv4Address):
        raise TypeError(f"not an IPv4 address: {value!r}")
    return htonl(int(value))


def mask(value: MaskArgument) -> int:
    """A mask, which a number is the length of."""
    if isinstance(value, int):
        return htonl(0xFFFFFFFF << (32 - number(value, 0, 32)) & 0xFFFFFFFF)
    return ipv4(value)


def ipv6(value: IPv6Argument) -> Tuple[int, int]:
    """The two words that hold the sixteen bytes of an address."""
    if isinstance(value, str):
        try:
            packed = inet_pton(AF_INET6, value)
        except (OSError, ValueError):
            packed = _without_scope(IPv6Address(value)).packed
    elif isinstance(value, IPv6Address):
        packed = _without_scope(value).packed
    else:
        raise TypeError(f"not an IPv6 address: {value!r}")
    return int.from_bytes(packed[:8], byteorder), int.from_bytes(packed[8:], byteorder)


def _without_scope(address: IPv6Address) -> IPv6Address:
    if address.scope_id is not None:
        raise ValueError(f"an address with a scope: {address}")
    return address


def mac(value: MacArgument) -> bytes:
    """The six bytes of "02:00:00:00:00:0a" or "02-00-00-00-00-0A"."""
    if not isinstance(value, str):
        return block(value, MAC_SIZE)
    pairs = value.replace("-", ":").split(":")
    if len(pairs) != MAC_SIZE or not all(len(pair) == 2 and pair.isalnum() for pair in pairs):
        raise ValueError(f"not a MAC address: {value!r}")
    try:
        return bytes.fromhex("".join(pairs))
    except ValueError:
        raise ValueError(f"not a MAC address: {value!r}") from None


def maybe_mac(value: Optional[MacArgument]) -> Optional[bytes]:
    return None if value is None else mac(value)


def block(value: BytesArgument, size: int) -> bytes:
    """Exactly so many bytes."""
    if isinstance(value, str) or isinstance(value, int):
        raise TypeError(f"bytes are needed, not {type(value).__name__}")
    copy = bytes(value)
    if len(copy) != size:
        raise ValueError(f"{len(copy)} bytes instead of {size}")
    return copy


def records(record: Any, values: Any) -> Any:
    """These records one behind the other."""
    return (record * len(values))(*values) if values else None


def writable(value: Optional[str]) -> Optional["ctypes.Array[ctypes.c_char]"]:
    """A copy that C may write into."""
    return None if value is None else ctypes.create_string_buffer(text(value))
