#!/usr/bin/env python3
"""Writes bitmap files of 32 bits a pixel, with rows from the top, as PNG files.

usage: bmp_to_png.py FOLDER FILE.bmp ...     FOLDER/FILE.png of each
"""

import struct
import sys
import zlib
from pathlib import Path

BITMAP = struct.Struct("<2sIIIIiiHHIIIIII")
TRUE_COLOUR = 2


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def to_png(data):
    fields = BITMAP.unpack_from(data)
    mark, start, width, height, bits = fields[0], fields[3], fields[5], -fields[6], fields[8]
    if mark != b"BM" or bits != 32 or height <= 0:
        raise ValueError("not a bitmap of 32 bits with rows from the top")
    rows = bytearray()
    for y in range(height):
        row = data[start + 4 * width * y:start + 4 * width * (y + 1)]
        colours = bytearray(3 * width)
        colours[0::3], colours[1::3], colours[2::3] = row[2::4], row[1::4], row[0::4]
        rows += b"\0" + colours
    header = struct.pack(">IIBBBBB", width, height, 8, TRUE_COLOUR, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(bytes(rows), 9)) +
            chunk(b"IEND", b""))


def main(arguments):
    if len(arguments) < 2:
        sys.exit(__doc__.strip())
    for name in arguments[1:]:
        path = Path(name)
        try:
            (Path(arguments[0]) / path.with_suffix(".png").name).write_bytes(to_png(path.read_bytes()))
        except (OSError, ValueError) as error:
            sys.exit(f"bmp_to_png.py: {path}: {error}")


if __name__ == "__main__":
    main(sys.argv[1:])
