"""Issues every command of the device, well formed and otherwise.

usage: every_command.py NAME, with the description of the wire on the standard input
"""
import ctypes
import fcntl
import json
import os
import sys

DEVICE = "/pelt/devices/char/zephdriver/kola_lumo"


class Envelope(ctypes.Structure):
    _pack_ = 1
    _fields_ = [
        ("in_len", ctypes.c_uint32),
        ("in_ptr", ctypes.c_uint64),
        ("out_len", ctypes.c_uint32),
        ("out_ptr", ctypes.c_uint64),
    ]


def issue(device, number, sent, room):
    request = ctypes.create_string_buffer(sent, len(sent))
    reply = ctypes.create_string_buffer(max(room, 1))
    envelope = Envelope(len(sent), ctypes.addressof(request), room, ctypes.addressof(reply))
    try:
        fcntl.ioctl(device, number, envelope)
    except OSError:
        pass


def main():
    name = sys.argv[1].encode()
    device = os.open(DEVICE, os.O_RDWR)
    commands = [command for chapter in json.load(sys.stdin)["chapters"] for command in chapter["commands"]]
    # What is to be shown must not have been deleted.
    for command in sorted(commands, key=lambda command: "Get" not in command["name"]):
        size = command["input"]["size"]
        filled = bytearray(size)
        for field in command["input"]["fields"]:
            if field["kind"] == "text":
                filled[field["offset"] : field["offset"] + len(name)] = name
        room = min(command["reply"]["record"]["size"] * command["reply"]["most"] + 4096, 1 << 23)
        odd = bytes(0xFF - at % 251 for at in range(size))
        for sent in (bytes(size), bytes(filled), odd, odd + b"too long", odd[:-1]):
            issue(device, command["number"], sent, room)
    issue(device, 70, b"no command", 0)
    issue(device, 9, bytes(5000), 4)
    try:
        fcntl.ioctl(device, 9, 8)
    except OSError:
        pass


main()
