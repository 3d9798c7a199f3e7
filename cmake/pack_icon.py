#!/usr/bin/env python3
"""Packs PNG files of square pictures into one Windows icon file.

usage: pack_icon.py OUT.ico IN.png ...
"""

import struct
import sys

HEADER = struct.Struct("<HHH")  # reserved, 1 for icons, count
ENTRY = struct.Struct("<BBBBHHII")  # width, height, colours, reserved, planes, bits, size, offset
SIGNATURE = b"\x89PNG\r\n\x1a\n"


def read_picture(path):
    """The bytes of a PNG file and the length of its sides."""
    with open(path, "rb") as file:
        data = file.read()
    if data[:8] != SIGNATURE:
        raise ValueError(f"{path}: not a PNG file")
    width, height = struct.unpack(">II", data[16:24])
    if width != height or not 1 <= width <= 256:
        raise ValueError(f"{path}: {width} by {height} pixels, not a square of at most 256")
    return data, width


def pack(pictures):
    """The bytes of an icon file with pictures as of read_picture."""
    offset = HEADER.size + ENTRY.size * len(pictures)
    entries = b""
    for data, side in pictures:
        entries += ENTRY.pack(side % 256, side % 256, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    return HEADER.pack(0, 1, len(pictures)) + entries + b"".join(data for data, _ in pictures)


def main(arguments):
    if len(arguments) < 2:
        sys.exit(__doc__.strip())
    out, *paths = arguments
    try:
        pictures = [read_picture(path) for path in paths]
    except (OSError, ValueError) as error:
        sys.exit(f"pack_icon.py: {error}")
    with open(out, "wb") as file:
        file.write(pack(pictures))


if __name__ == "__main__":
    main(sys.argv[1:])
