"""Pictures, and how they are compared with golden ones.

A picture is cut into tiles of 32 by 32 pixels. It is as it should be if in no tile more than 1 of 100 pixels are far
from the golden one's, that is by more than 24 of 255 in red, green or blue. The fonts are pinned: programs take DejaVu
Sans in a fixed size for their pictures, whatever the system's settings.

PICTURE_RUNNER names what runs the programs (wine); a display has to be there. A picture that is not as it should be is
left in build/golden-failed.
"""

import os
import struct
import subprocess
import sys
import zlib
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FAILED = ROOT / "build" / "golden-failed"
sys.path.insert(0, str(ROOT / "script"))

import bmp_to_png  # noqa: E402

TILE = 32  # pixels
FAR = 24  # of 255
SHARE = 0.01  # of a tile


class Picture:
    """Pixels of 8 bits each of red, green and blue, as rows of bytes."""

    def __init__(self, width, rows):
        self.width = width
        self.height = len(rows)
        self.rows = rows

    @classmethod
    def from_png(cls, data):
        packed = b""
        width = height = 0
        place = 8
        while place < len(data):
            (length,) = struct.unpack(">I", data[place:place + 4])
            kind = data[place + 4:place + 8]
            body = data[place + 8:place + 8 + length]
            if kind == b"IHDR":
                width, height, depth, colors, _, _, interlaced = struct.unpack(">IIBBBBB", body)
                if (depth, colors, interlaced) != (8, 2, 0):
                    raise ValueError("not a PNG file of the kind that is written here")
            elif kind == b"IDAT":
                packed += body
            place += 12 + length
        return cls(width, unfilter(zlib.decompress(packed), width * 3, height))

    def __eq__(self, other):
        return self.width == other.width and self.rows == other.rows


def unfilter(data, length, count):
    """Rows of `length` bytes, each of which has the number of its filter in front."""
    rows = []
    above = bytes(length)
    for place in range(0, count * (length + 1), length + 1):
        kind, row = data[place], bytearray(data[place + 1:place + 1 + length])
        if kind == 1:
            for i in range(3, length):
                row[i] = (row[i] + row[i - 3]) & 255
        elif kind == 2:
            row = bytearray((a + b) & 255 for a, b in zip(row, above))
        elif kind == 3:
            for i in range(length):
                left = row[i - 3] if i >= 3 else 0
                row[i] = (row[i] + (left + above[i]) // 2) & 255
        elif kind == 4:
            for i in range(length):
                row[i] = (row[i] + paeth(row, above, i)) & 255
        rows.append(bytes(row))
        above = rows[-1]
    return rows


def paeth(row, above, i):
    """Which of left, above and above left is nearest to left + above - above left."""
    left, corner = (row[i - 3], above[i - 3]) if i >= 3 else (0, 0)
    guess = left + above[i] - corner
    distances = (abs(guess - left), abs(guess - above[i]), abs(guess - corner))
    return (left, above[i], corner)[distances.index(min(distances))]


def far_tiles(got, golden):
    """The tiles, by their top left pixels, in which too many pixels are far apart, with how many."""
    counts = {}
    for y, (one, other) in enumerate(zip(got.rows, golden.rows)):
        if one == other:
            continue
        for x in range(got.width):
            pixels = zip(one[3 * x:3 * x + 3], other[3 * x:3 * x + 3])
            if any(abs(a - b) > FAR for a, b in pixels):
                tile = (x // TILE * TILE, y // TILE * TILE)
                counts[tile] = counts.get(tile, 0) + 1
    return {tile: count for tile, count in sorted(counts.items()) if count > SHARE * TILE * TILE}


def differences(got, golden):
    """What is not as it should be; nothing if all is."""
    if (got.width, got.height) != (golden.width, golden.height):
        return {"size": (got.width, got.height), "golden size": (golden.width, golden.height)}
    return {} if got == golden else far_tiles(got, golden)


def check(test, path, golden_path):
    """Fails the test if the picture, a PNG or BMP file, is not as the golden one, a PNG file."""
    data = path.read_bytes()
    if path.suffix == ".bmp":
        data = bmp_to_png.to_png(data)
    golden_data = golden_path.read_bytes()
    if data == golden_data:
        return
    found = differences(Picture.from_png(data), Picture.from_png(golden_data))
    if found:
        FAILED.mkdir(parents=True, exist_ok=True)
        (FAILED / golden_path.name).write_bytes(data)
    test.assertEqual(found, {}, f"see {FAILED / golden_path.name}")


def windows_path(path):
    """As a program under Wine has it; on Windows itself nothing changes."""
    return str(path) if os.name == "nt" else "Z:" + str(path).replace("/", "\\")


def take(program, *arguments):
    """Runs a program that takes pictures, with dates as in the USA. Gives how it ended, with all that it printed."""
    command = os.environ.get("PICTURE_RUNNER", "").split() + [program, *arguments]
    return subprocess.run(command, check=False, timeout=1200, text=True, errors="replace",
                          env={**os.environ, "LC_ALL": "C.UTF-8"}, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
