"""The package against the emulated module in this process."""

import copy
import errno
import gc
import os
import pickle
import resource
from ipaddress import IPv4Address, IPv6Address
from pathlib import Path

import pytest
from rows import ROWS, name_of

import lumozeph


@pytest.fixture
def blue(lumozeph_module):
    """A module with an instance that has three LIFs and a route."""
    lumozeph.set_lumo_instance("blue")
    for number in range(3):
        lumozeph.set_lif(
            f"lif{number}",
            "",
            f"10.0.{number}.1",
            24,
            diAddress="0.0.0.0",
            instance="blue",
            mac=f"02:00:00:00:00:0{number}",
        )
        lumozeph.enable_lif("blue", f"lif{number}")
    lumozeph.set_lif_ipv6("blue", "lif0", "2001:db8::1", 64)
    lumozeph.set_route("192.0.2.0", 24, IPv4Address("10.0.0.2"), instance="blue")
    return lumozeph_module


@pytest.mark.parametrize("row", ROWS, ids=name_of)
def test_what_arrives_is_what_the_tables_say(row, lumozeph_module):
    lumozeph.set_lumo_instance("inst")
    with lumozeph_module.journal() as commands:
        try:
            row.call()
        except lumozeph.Error as failure:
            assert failure.operation == row.name
            # The second command is not sent if the first one fails.
            if row.shape == "CountedBlock":
                assert failure.errno == errno.ENOMEM
                return
            assert failure.errno == commands[-1].error
    last = commands[-1]
    assert last.number == row.command
    assert len(last.input) == row.operation["input"]
    assert [byte & named for byte, named in zip(last.input, row.named)] == list(row.sent)


def test_a_list_is_a_sequence(blue):
    lifs = lumozeph.get_lifs("blue")
    names = ["lif0", "lif1", "lif2"]
    assert [lif.lifName for lif in lifs] == names
    assert [lif.lifName for lif in reversed(lifs)] == names[::-1]
    assert [lif.lifName for lif in lifs[1:]] == names[1:]
    assert [lif.lifName for lif in lifs[::-2]] == names[::-2]
    assert [lif.lifName for lif in lifs[::-1][1:]] == names[::-1][1:]
    assert lifs[-1].lifName == "lif2"
    assert lifs[0] in lifs
    assert lifs[0] not in lifs[1:]
    assert lifs.index(lifs[1]) == 1
    assert lifs == lumozeph.get_lifs("blue")
    assert lifs != lifs[:2]
    assert repr(lifs) == repr(list(lifs))
    for beyond in (3, -4):
        with pytest.raises(IndexError, match=f"record {beyond} of 3"):
            lifs[beyond]


def test_a_record_reads_like_its_text(blue):
    lif = lumozeph.get_lif("blue", "lif0")
    assert (lif.lifName, lif.lifMac) == ("lif0", "02:00:00:00:00:00")
    assert (lif.ipAddr, lif.ipMask) == (IPv4Address("10.0.0.1"), IPv4Address("255.255.255.0"))
    (address,) = lif.ipv6Addrs
    assert (address.address, address.prefixLen) == (IPv6Address("2001:db8::1"), 64)
    assert repr(address) == "LifIpv6Addr(address=IPv6Address('2001:db8::1'), prefixLen=64, value=0)"
    assert lif == lumozeph.get_lifs("blue")[0]
    assert lif != lumozeph.get_lif("blue", "lif1")
    assert lif != "lif0"


def test_copies_have_memory_of_their_own(blue):
    lif = lumozeph.get_lifs("blue")[0]
    for twin in (copy.copy(lif), copy.deepcopy(lif), pickle.loads(pickle.dumps(lif))):
        assert twin == lif
        twin.lifName = "other"
        assert lif.lifName == "lif0"


def test_a_record_keeps_the_memory_of_its_list(blue):
    lif = lumozeph.get_lifs("blue")[1]
    addresses = lumozeph.get_lifs("blue")[0].ipv6Addrs
    gc.collect()
    # What would lie there now if it had been freed.
    others = [lumozeph.get_lifs("blue") for _ in range(3)]
    assert lif.lifName == "lif1"
    assert addresses[0].prefixLen == 64
    del others


def address_space():
    """What this process has, in bytes."""
    return int(Path("/proc/self/statm").read_text(encoding="ascii").split()[0]) * resource.getpagesize()


def test_results_are_freed(blue):
    for _ in range(5):
        lumozeph.get_lifs("blue")
    before = address_space()
    for _ in range(50):
        lifs = lumozeph.get_lifs("blue")
        addresses = lifs[0].ipv6Addrs
        del lifs
        assert len(addresses) == 1
    # Each has 5.7 MB.
    assert address_space() - before < 50 * 10**6


def test_arrays_share_the_memory_of_the_list(blue):
    numpy = pytest.importorskip("numpy")
    lifs = lumozeph.get_lifs("blue")
    array = lifs.as_array()
    assert array.shape == (3,)
    assert list(array["lifName"]) == [b"lif0", b"lif1", b"lif2"]
    assert list(array["ipAddr"]) == [int(lif.ipAddr) for lif in lifs]
    assert array[0]["ipv6Addrs"]["prefixLen"][0] == 64
    assert not array.flags.writeable
    lifs[1].lifValue1 = 4711
    assert array["lifValue1"][1] == 4711
    assert list(lifs[::-1].as_array()["lifName"]) == [b"lif2", b"lif1", b"lif0"]
    assert list(lifs[2:0:-1].as_array()["lifName"]) == [b"lif2", b"lif1"]
    assert list(lifs[1:].as_array()["lifName"]) == [b"lif1", b"lif2"]
    assert lifs[:0].as_array().shape == (0,)
    assert numpy.asarray(lifs).dtype == array.dtype
    assert list(lifs.column("ipMask")) == [0xFFFFFF00] * 3
    del lifs
    gc.collect()
    others = [lumozeph.get_lifs("blue") for _ in range(3)]
    assert array["lifValue1"][1] == 4711
    del others


def test_errors_are_those_of_the_system(blue):
    with pytest.raises(OSError) as caught:
        lumozeph.get_lifs("grey")
    failure = caught.value
    assert isinstance(failure, lumozeph.Error)
    assert (failure.errno, failure.operation) == (errno.ENOENT, "get_lifs")
    assert str(failure) == "get_lifs: No such file or directory"
    again = pickle.loads(pickle.dumps(failure))
    assert (again.errno, again.operation) == (failure.errno, failure.operation)
    # The entries of the module's own answer are there after a success.
    answer = lumozeph.CmdResult()
    lumozeph.set_route("198.51.100.0", 24, "10.0.0.2", instance="blue", result=answer)
    assert len(answer.bytes) == lumozeph.CMD_RESULT_SIZE


def test_the_fixture_begins_with_nothing(lumozeph_module):
    assert len(lumozeph.get_instances()) == 0
    lumozeph.set_lumo_instance("blue")
    assert len(lumozeph.get_instances()) == 1
    lumozeph_module.reset()
    assert len(lumozeph.get_instances()) == 0


def test_a_watcher_sees_what_the_module_answers(blue):
    with blue.journal() as commands:
        with pytest.raises(lumozeph.Error):
            lumozeph.get_lif("grey", "lif0")
        lumozeph.get_lif("blue", "lif0")
    assert [command.error for command in commands] == [errno.ENOENT, 0]
    assert commands[0].reply == b""
    assert commands[1].reply[:5] == b"lif0\0"
    assert commands[1].room == 576
    lumozeph.get_lif("blue", "lif0")
    assert len(commands) == 2


def test_a_forked_process_frees_its_own_copies(blue):
    lifs = lumozeph.get_lifs("blue")
    child = os.fork()
    if child == 0:
        try:
            name = lifs[1].lifName
            del lifs
            gc.collect()
            lumozeph.del_lif("lif0", "", "blue")
            os._exit(0 if name == "lif1" and len(lumozeph.get_lifs("blue")) == 2 else 1)
        finally:
            os._exit(2)
    assert os.waitpid(child, 0)[1] == 0
    assert [lif.lifName for lif in lifs] == ["lif0", "lif1", "lif2"]
    assert len(lumozeph.get_lifs("blue")) == 3


STATE = {"logLevel": 7, "instances": {"blue": {"lifs": {"eth0": {"address": "10.0.0.1/24", "enabled": True}}}}}


def test_a_state_is_loaded_from_a_dictionary_or_a_file_and_given_back(lumozeph_module, tmp_path):
    lumozeph_module.load(STATE)
    assert [lif.lifName for lif in lumozeph.get_lifs("blue")] == ["eth0"]
    assert lumozeph_module.state()["logLevel"] == 7
    lumozeph_module.save(tmp_path / "state.json")
    lumozeph_module.reset()
    assert len(lumozeph.get_instances()) == 0
    lumozeph_module.load(tmp_path / "state.json")
    assert [lif.lifName for lif in lumozeph.get_lifs("blue")] == ["eth0"]


@pytest.mark.parametrize("state", [{"logLevel": "seven"}, "no_such.json"])
def test_a_state_that_makes_no_sense_changes_nothing(state, blue, capfd):
    with pytest.raises(OSError) as failure:
        blue.load(state)
    assert failure.value.errno == errno.EINVAL
    assert "lumozeph-emulator: " in capfd.readouterr().err
    assert len(lumozeph.get_lifs("blue")) == 3


def test_time_passes_when_it_is_told_to(lumozeph_module):
    counting = {"lifs": {"eth0": {"address": "10.0.0.1/24", "statistics": {"0": {"value": 0, "rate": 1000000}}}}}
    lumozeph_module.load({"instances": {"blue": counting}})
    lumozeph_module.advance(2.5)
    assert lumozeph.get_lif_stats("blue", "eth0").counters[0] >= 2500000
    with pytest.raises(ValueError, match="-1 seconds"):
        lumozeph_module.advance(-1)


def test_faults_are_added_and_taken_away(blue, capfd):
    blue.add_fault("GetLifs=ENODEV")
    with pytest.raises(lumozeph.Error) as failure:
        lumozeph.get_lifs("blue")
    assert failure.value.errno == errno.ENODEV
    blue.clear_faults()
    assert len(lumozeph.get_lifs("blue")) == 3
    with pytest.raises(OSError) as refusal:
        blue.add_fault("GetLifs=ENOSENSE")
    assert refusal.value.errno == errno.EINVAL
    assert "ENOSENSE" in capfd.readouterr().err
    blue.add_fault("any=EIO")
    blue.reset()
    assert len(lumozeph.get_instances()) == 0
