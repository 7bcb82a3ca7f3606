"""What functions and records take, and what they refuse. No call arrives anywhere."""

import ast
import inspect
import ipaddress
import re

import pytest
from rows import DESCRIPTION, NAMES, RECORDS, ROOT

import lumozeph
from lumozeph import _arguments as c


@pytest.mark.parametrize("value", ["192.0.2.1", ipaddress.IPv4Address("192.0.2.1")])
def test_an_ipv4_address_lies_in_memory_in_network_order(value):
    assert c.ipv4(value).to_bytes(4, "little") == bytes([192, 0, 2, 1])


@pytest.mark.parametrize("value", ["192.0.2", "192.0.2.256", "192.0.2.01", "", "2001:db8::1", "192.0.2.1\0"])
def test_other_texts_are_no_ipv4_addresses(value):
    with pytest.raises(ValueError):
        c.ipv4(value)


@pytest.mark.parametrize(
    "value, expected",
    [(24, "255.255.255.0"), (0, "0.0.0.0"), (32, "255.255.255.255"), ("255.0.255.0", "255.0.255.0")],
)
def test_a_mask_is_a_length_or_four_bytes(value, expected):
    assert c.mask(value).to_bytes(4, "little") == ipaddress.IPv4Address(expected).packed


@pytest.mark.parametrize("value", [33, -1])
def test_a_mask_of_another_length_is_refused(value):
    with pytest.raises(OverflowError):
        c.mask(value)


@pytest.mark.parametrize("value", ["2001:db8::1", ipaddress.IPv6Address("2001:db8::1")])
def test_an_ipv6_address_is_two_words_of_its_bytes(value):
    word1, word2 = c.ipv6(value)
    content = word1.to_bytes(8, "little") + word2.to_bytes(8, "little")
    assert content == ipaddress.IPv6Address("2001:db8::1").packed


@pytest.mark.parametrize("value", ["fe80::1%eth0", "2001:db8", "10.0.0.1", ipaddress.IPv6Address("fe80::1%eth0")])
def test_other_texts_and_scopes_are_no_ipv6_addresses(value):
    with pytest.raises(ValueError):
        c.ipv6(value)


@pytest.mark.parametrize("value", [ipaddress.IPv6Address("::1"), 1, None, b"\x0a\0\0\1"])
def test_an_address_of_another_type_is_refused(value):
    with pytest.raises((TypeError, AttributeError)):
        c.ipv4(value)


@pytest.mark.parametrize("value", ["02:00:5e:00:53:0a", "02-00-5E-00-53-0A", bytes([2, 0, 0x5E, 0, 0x53, 10])])
def test_a_mac_address_is_six_bytes(value):
    assert c.mac(value) == bytes([2, 0, 0x5E, 0, 0x53, 10])


@pytest.mark.parametrize(
    "value",
    ["", "02:00:5e:00:53", "02:00:5e:00:53:0a:0b", "2:0:5e:0:53:a", "02:00:5e:00:53:0g", " 2:00:5e:00:53:0a", b"12345"],
)
def test_other_texts_are_no_mac_addresses(value):
    with pytest.raises(ValueError):
        c.mac(value)


def test_a_text_keeps_the_bytes_that_it_was_read_from():
    assert c.text("br\xfccke") == b"br\xc3\xbccke"
    assert c.text(b"\xff\xfe".decode("utf-8", "surrogateescape")) == b"\xff\xfe"
    with pytest.raises(ValueError, match="null"):
        c.text("a\0b")


@pytest.mark.parametrize("value", [None, 1, b"blue"])
def test_a_text_is_needed(value):
    with pytest.raises((TypeError, AttributeError)):
        lumozeph.get_lifs(value)


@pytest.mark.parametrize(
    "check, most", [(c.u8, 2**8 - 1), (c.u16, 2**16 - 1), (c.u32, 2**32 - 1), (c.i32, 2**31 - 1)]
)
def test_a_number_must_fit(check, most):
    assert check(most) == most
    with pytest.raises(OverflowError):
        check(most + 1)
    with pytest.raises(OverflowError):
        check(-(2**31) - 1)
    with pytest.raises(TypeError):
        check(1.0)


def test_what_c_would_read_beyond_is_refused():
    with pytest.raises(ValueError, match="size"):
        lumozeph.soft_rss_table_set("target", lumozeph.RssIndTable(size=129))
    with pytest.raises(ValueError, match="mac"):
        lumozeph.bridge_cluster_node_set("cluster", "node", on=True)
    with pytest.raises(ValueError, match="63 bytes instead of 64"):
        lumozeph.bridge_local_transport_node_set("a", "b", "c", block=bytes(63), on=True)


def test_a_record_is_made_of_its_members():
    lif = lumozeph.LifInfo(
        lifName="uplink",
        ipAddr="10.0.0.2",
        lifMac="02:00:00:00:00:0a",
        lifFlags=b"\1\2",
        ipv6Addrs=[lumozeph.LifIpv6Addr(address="2001:db8::1", prefixLen=64)],
        dhcpRelay=lumozeph.DhcpRelay(servers=[lumozeph.DhcpRelayServer(address="10.0.0.9")]),
    )
    assert (lif.lifName, str(lif.ipAddr), lif.lifMac, lif.lifFlags) == (
        "uplink",
        "10.0.0.2",
        "02:00:00:00:00:0a",
        b"\1\2\0\0",
    )
    assert (lif.ipv6Count, len(lif.ipv6Addrs), str(lif.ipv6Addrs[0].address)) == (1, 1, "2001:db8::1")
    assert lif.dhcpRelay.servers[0].address == ipaddress.IPv4Address("10.0.0.9")
    assert lif.ipMask == ipaddress.IPv4Address(0)
    assert lumozeph.Stats(counters=range(5)).counters == (0, 1, 2, 3, 4) + (0,) * 95


@pytest.mark.parametrize(
    "make, failure",
    [
        (lambda: lumozeph.LifInfo(lifName=64 * "x"), ValueError),
        (lambda: lumozeph.LifInfo(lifNmae="x"), AttributeError),
        (lambda: lumozeph.LifInfo(lifValue1=2**32), OverflowError),
        (lambda: lumozeph.LifInfo(ipv6Addrs=11 * [lumozeph.LifIpv6Addr()]), ValueError),
        (lambda: lumozeph.CmdResult(bytes=bytes(89)), ValueError),
        (lambda: lumozeph.BridgeFdbEntry(value2=2**24), OverflowError),
        (lambda: lumozeph.Stats(counters=101 * [0]), ValueError),
        (lambda: hash(lumozeph.LifInfo()), TypeError),
    ],
)
def test_what_a_record_cannot_hold_is_refused(make, failure):
    with pytest.raises(failure):
        make()


def test_an_address_of_a_family_is_one():
    server = lumozeph.DhcpRelayServer(address="2001:db8::9")
    assert (server.family, server.address) == (3, ipaddress.IPv6Address("2001:db8::9"))
    server.family = 2
    assert server.address == ipaddress.IPv6Address("2001:db8::9").packed


def test_a_part_of_a_word_is_a_column():
    numpy = pytest.importorskip("numpy")
    entry = lumozeph.BridgeFdbEntry(value2=0x123456, value3=0x78)
    entries = lumozeph.Records(lumozeph.BridgeFdbEntry, (lumozeph.BridgeFdbEntry * 2)(entry, entry), range(2))
    assert list(entries.as_array()["value2_value3"]) == [0x78123456] * 2
    assert list(entries.column("value2")) == [0x123456] * 2
    assert list(entries.column("value3")) == [0x78] * 2
    assert entries.column("mac").dtype == numpy.uint8
    with pytest.raises(AttributeError):
        entries.column("value9")


@pytest.mark.parametrize("c_name", sorted(name for name in RECORDS if hasattr(lumozeph, name[4:])))
def test_records_lie_as_the_description_says(c_name):
    record = getattr(lumozeph, c_name[4:])
    for member in RECORDS[c_name]["members"]:
        if member["kind"] != "not_copied" and "bits" not in member:
            raw = record.member(member["name"]).raw
            assert (raw.offset, raw.size) == (member["offset"], member["width"]), member["name"]
    assert record.from_buffer_copy(bytes(RECORDS[c_name]["size"])) == record()


def test_stubs_have_the_members_of_records():
    stub = ast.parse((ROOT / "bindings" / "python" / "lumozeph" / "records.pyi").read_text(encoding="utf-8"))
    for record in (one for one in stub.body if isinstance(one, ast.ClassDef)):
        construct, *members = record.body
        names = [one.target.id if isinstance(one, ast.AnnAssign) else one.name for one in members]
        assert list(dict.fromkeys(names)) == list(getattr(lumozeph, record.name)._members)
        assert [one.arg for one in construct.args.kwonlyargs] == list(dict.fromkeys(names))


def test_operations_have_the_names_that_they_have_in_cxx():
    header = (ROOT / "bindings" / "cxx" / "lumozeph.hpp").read_text(encoding="utf-8")
    for name in NAMES.values():
        assert re.search(rf"^inline \S+ {name}\(", header, re.MULTILINE), name


def test_every_operation_says_what_it_does():
    briefs = {NAMES[one["name"]]: one["brief"] for one in DESCRIPTION["functions"] if one["name"] in NAMES}
    for name, brief in briefs.items():
        assert inspect.getdoc(getattr(lumozeph, name)).split()[:2] == brief.split()[:2]


def test_the_version_is_that_of_the_header():
    assert lumozeph.__version__ == DESCRIPTION["version"]
