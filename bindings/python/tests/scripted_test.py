"""Every operation against a device that answers as the tables of operations/ say, or with every errno."""

import ctypes
import errno
import os
import signal
import struct
import threading
import time
from ipaddress import IPv4Address, IPv6Address

import pytest
from device import device, gate, open_descriptors
from rows import DESCRIPTION, NAMES, RECORDS, ROWS, name_of

import lumozeph

FIRST_OF_EACH = list({row.name: row for row in reversed(ROWS)}.values())
WITH_LAYOUTS = [row for row in ROWS if row.operation["layouts"]]


def pattern(size):
    """Bytes of which none is zero and no two neighbours are the same."""
    return (bytes(range(1, 128)) * (size // 127 + 1))[:size]


def replies_to(row):
    """What the device answers to a row: first, where there are two commands, and then."""
    count = struct.pack("<I", 2)
    if row.shape in ("SingleRead", "ListRead"):
        replies = [bytes.fromhex(one) for one in row.operation["layouts"][0]["replies"]]
        return [replies[1] if row.shape == "SingleRead" else b"".join(replies)]
    if row.shape == "CountedTable":
        return [count + pattern(2 * 68)]
    if row.shape == "CountedArrays":
        block = pattern(row.operation["room"])
        return [block[:4] + struct.pack("<I", 3) + block[8:]]
    if row.shape == "CountedBlock":
        return [count, pattern(2 * 776)]
    if row.shape == "CountedRead":
        return [pattern(2 * 235)]
    return [pattern(row.operation["room"])]


@pytest.fixture(autouse=True)
def closes_the_device():
    yield
    assert open_descriptors() == 0


@pytest.mark.parametrize("row", ROWS, ids=name_of)
def test_sends_what_the_tables_say(row):
    with device(*replies_to(row)) as sent:
        row.call()
    last = sent[-1]
    assert last.number == row.command
    assert len(last.input) == row.operation["input"]
    if row.shape != "CountedRead":
        assert last.room == row.operation["room"]
    assert [byte & named for byte, named in zip(last.input, row.named)] == list(row.sent)


@pytest.mark.parametrize("row", WITH_LAYOUTS, ids=name_of)
def test_gets_the_records_that_the_tables_say(row):
    for layout in row.operation["layouts"]:
        replies = [bytes.fromhex(one) for one in layout["replies"]]
        expected = [bytes.fromhex(one) for one in layout["records"]]
        with device(b"".join(replies) if row.shape == "ListRead" else replies[0]):
            result = row.call()
        if row.shape != "ListRead":
            result, expected = [result], expected[:1]
        assert [bytes(record) for record in result] == expected


# What an operation gets that is no record.
@pytest.mark.parametrize("row", [row for row in ROWS if row not in WITH_LAYOUTS], ids=name_of)
def test_gets_what_the_device_replies(row):
    replies = replies_to(row)
    reply = replies[-1]
    with device(*replies):
        arguments = row.arguments()
        result = getattr(lumozeph, row.name)(**arguments)
    if row.shape == "ResultSend":
        assert arguments["result"].bytes == reply
    elif row.shape in ("Send", "SetValue", "Bare"):
        assert result is None
    elif row.function["operation"] == "get_value":
        assert result == (IPv4Address(reply) if isinstance(result, IPv4Address) else struct.unpack("<I", reply)[0])
    elif row.shape == "CountedTable":
        assert b"".join(bytes(entry) for entry in result) == reply[4:]
    elif row.shape == "CountedBlock":
        assert b"".join(result) == reply
        assert b"".join(result.all()) == reply
    elif row.shape == "CountedRead":
        room = arguments["size"] // 235
        assert list(result) == [reply[235 * i : 235 * i + 235] for i in range(min(room, 2))]
        assert result.reported == 2
        assert result.truncated == (room < 2)
    elif isinstance(result, lumozeph.RssStats):
        assert result.rssEntryCount == 3
        assert result.rssWord == struct.unpack_from("<3I", reply, 8)
    elif isinstance(result, lumozeph.RssTunables):
        assert bytes(result) == reply
    elif isinstance(result, str):
        assert result == reply.hex(":")
    else:
        assert result == reply


def failures_of(row, count):
    """What so many calls raise."""
    operation = getattr(lumozeph, row.name)
    arguments = row.arguments()
    failures = []
    for _ in range(count):
        try:
            operation(**arguments)
        except lumozeph.Error as failure:
            failures.append((failure.errno, failure.operation))
    return failures


@pytest.mark.parametrize("row", FIRST_OF_EACH, ids=name_of)
def test_tells_every_errno_of_the_device(row):
    numbers = range(1, 134)
    expected = [(number, row.name) for number in numbers]
    if row.shape == "CountedBlock":
        count = replies_to(row)[0]
        with device(*(answer for number in numbers for answer in (count, number))):
            assert failures_of(row, len(numbers)) == expected
        # Without the number of routes, there is no memory for them.
        expected = [(errno.ENOMEM, row.name)] * len(numbers)
    with device(*numbers):
        assert failures_of(row, len(numbers)) == expected


@pytest.mark.parametrize("row", ROWS, ids=name_of)
def test_tells_that_there_is_no_device(row):
    with pytest.raises(lumozeph.Error) as caught:
        row.call()
    assert caught.value.errno == (errno.ENOMEM if row.shape == "CountedBlock" else errno.ENOENT)


@pytest.mark.parametrize("row", [row for row in WITH_LAYOUTS if row.operation["fragment"] == "rejected"], ids=name_of)
def test_tells_that_a_reply_is_too_short(row):
    with device(b"x"), pytest.raises(lumozeph.Error) as caught:
        row.call()
    assert caught.value.errno == errno.EBADMSG


def test_other_threads_run_during_a_call():
    signal.alarm(30)  # Ends this process if none does.
    with device(0), gate() as opened:
        caller = threading.Thread(target=lumozeph.set_log_level, args=(7,))
        caller.start()
        while open_descriptors() == 0:
            time.sleep(0.001)
        os.write(opened, b"x")
        caller.join()
    signal.alarm(0)


def test_each_thread_has_errors_of_its_own():
    mistakes = []

    def work(number):
        for _ in range(300):
            try:
                lumozeph.set_log_level(number)
                mistakes.append(number)
            except lumozeph.Error as failure:
                if failure.errno != number:
                    mistakes.append(failure)

    with device(lambda content: content[0]):
        threads = [threading.Thread(target=work, args=(number,)) for number in range(1, 5)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
    assert mistakes == []


def test_tells_the_failure_that_leaves_errno_as_it_was():
    # Entries of 2 GiB: fewer bytes than the reply has, as 32-bit numbers are compared.
    with device(struct.pack("<I", 0x80000000 // 68 + 1) + bytes(68)), pytest.raises(lumozeph.Error) as caught:
        lumozeph.get_mrouting_remote_rcvrs("blue", 1)
    assert caught.value.errno == errno.EOVERFLOW


def test_frees_the_array_of_a_table_without_entries():
    with device(bytes(4)):
        table = lumozeph.get_mrouting_remote_rcvrs("blue", 1)
    assert len(table) == 0 and list(table) == []


@pytest.mark.parametrize("reported, sure, there", [(7999, 7999, 7999), (8001, 8000, 8001)])
def test_entries_of_a_block_end_where_it_surely_does(reported, sure, there):
    with device(struct.pack("<I", reported), bytes(776 * reported)):
        routes = lumozeph.get_routes_v6("blue")
    assert (len(routes), len(routes.all()), routes.reported) == (sure, there, reported)
    assert routes.truncated == (reported > sure)
    assert routes.all()[-1] == bytes(776)


def test_a_list_at_its_cap_may_be_longer():
    with device(bytes(256 * 1000)):
        assert lumozeph.get_instances().truncated
    with device(bytes(256 * 999)):
        assert not lumozeph.get_instances().truncated


def test_the_longest_list_is_an_array_without_a_copy():
    pytest.importorskip("numpy")
    record = bytes(range(39))
    with device(record * lumozeph.BRIDGE_BFD_SESSIONS_MAX):
        sessions = lumozeph.get_bridge_bfd_sessions()
    array = sessions.as_array()
    assert array.shape == (lumozeph.BRIDGE_BFD_SESSIONS_MAX,)
    assert array.__array_interface__["data"][0] == ctypes.addressof(sessions[0])
    (value,) = struct.unpack_from("<I", record, lumozeph.BridgeBfdSessionInfo.member("value4").raw.offset)
    assert (array["value4"] == value).all()


def test_a_long_list_is_not_shown_whole():
    with device(bytes(12 * 21)):
        groups = lumozeph.get_mrouting_all_mcast_groups("blue")
    assert repr(groups) == f"[{', '.join([repr(groups[0])] * 20)}, ... 21 in all]"
    assert repr(groups[1:]) == repr(list(groups[1:]))


def test_tables_end_where_their_room_does():
    reply = bytearray(668)
    reply[17:18] = bytes([200])  # as many next hops as no route has
    with device(bytes(reply)):
        route = lumozeph.get_resolve_route("blue", "192.0.2.1", 32)
    assert route.nextHopCount == 200
    assert len(route.nextHops) == 8


def expected_of(member, members, content):
    """What a member must read as, from its bytes."""
    kind, base = member["kind"], member["type"]["base"]
    lies = content[member["offset"] : member["offset"] + member["width"]]
    if "bits" in member:
        return int.from_bytes(lies, "little") >> member["bits"]["offset"] & (2 ** member["bits"]["width"] - 1)
    if base == "char":
        return lies.split(b"\0")[0].decode("utf-8", "surrogateescape")
    if kind in ("ipv4", "ipv4_mask"):
        return IPv4Address(lies)
    if kind == "ipv6":
        return IPv6Address(lies)
    if kind == "mac":
        return ":".join(f"{byte:02x}" for byte in lies)
    if kind == "ip":
        family = next(one for one in members if one["kind"] == "address_family")
        number = expected_of(family, members, content)
        return IPv4Address(lies[:4]) if number == 1 else IPv6Address(lies) if number == 3 else lies
    if base == "uint8_t" and "length" in member["type"]:
        return lies
    width = {"uint8_t": 1, "uint16_t": 2, "uint32_t": 4, "int32_t": 4, "uint64_t": 8}[base]
    numbers = tuple(
        int.from_bytes(lies[i : i + width], "little", signed=base == "int32_t") for i in range(0, len(lies), width)
    )
    return numbers if "length" in member["type"] else numbers[0]


def expect_members(record, description, content):
    """Each member that is no gap reads as it must, those of nested records, too."""
    for member in description["members"]:
        if member["kind"] == "not_copied":
            assert not hasattr(record, member["name"])
            continue
        value = getattr(record, member["name"])
        if member["kind"] not in ("record", "records"):
            assert value == expected_of(member, description["members"], content), member["name"]
            continue
        nested = RECORDS[member["type"]["base"]]
        entries = [value] if member["kind"] == "record" else list(value)
        for index, entry in enumerate(entries):
            start = member["offset"] + index * nested["size"]
            expect_members(entry, nested, content[start : start + nested["size"]])


@pytest.mark.parametrize("row", WITH_LAYOUTS, ids=name_of)
def test_members_read_as_the_description_says(row):
    described = RECORDS[
        next(
            (one["record"] for one in DESCRIPTION["lists"] if one["name"] == row.function["result"]["type"]),
            row.function["result"]["type"],
        )
    ]
    for layout in row.operation["layouts"]:
        reply = bytes.fromhex(layout["replies"][2])
        with device(reply):
            result = row.call()
        record = result[0] if row.shape == "ListRead" else result
        expect_members(record, described, bytes.fromhex(layout["records"][2]))


def test_every_operation_of_the_tables_is_here():
    assert {row.operation["function"] for row in ROWS} == set(NAMES)
    assert len(NAMES) == len(set(NAMES.values())) >= 146
