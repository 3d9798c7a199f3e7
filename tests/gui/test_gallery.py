"""The look of the gallery under each theme, against the pictures in tests/gui/golden.

A picture is cut into tiles of 32 by 32 pixels. It is as it should be if in no tile more than 1 of 100 pixels are far
from the golden one's, that is by more than 24 of 255 in red, green or blue. The fonts are pinned: the gallery takes
DejaVu Sans in a fixed size for its pictures, whatever the system's settings.

To renew the golden pictures after the look was changed on purpose: script/gallery --renew, then look at each.

GALLERY names the program, GALLERY_RUNNER what runs it (wine); a display has to be there. A picture that is not as it
should be is left in build/gallery-failed.
"""

import os
import shutil
import struct
import subprocess
import tempfile
import unittest
import zlib
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "gui" / "golden"
FAILED = ROOT / "build" / "gallery-failed"
THEMES = ("Light", "Dark", "Blue", "Green", "System-Default")

TILE = 32  # pixels
FAR = 24  # of 255
SHARE = 0.01  # of a tile


class Picture:
    """The pixels of a PNG file with 8 bits each of red, green and blue, as rows of bytes."""

    def __init__(self, path):
        data = path.read_bytes()
        packed = b""
        place = 8
        while place < len(data):
            (length,) = struct.unpack(">I", data[place:place + 4])
            kind = data[place + 4:place + 8]
            body = data[place + 8:place + 8 + length]
            if kind == b"IHDR":
                self.width, self.height, depth, colors, _, _, interlaced = struct.unpack(">IIBBBBB", body)
                if (depth, colors, interlaced) != (8, 2, 0):
                    raise ValueError(f"{path}: not a PNG file of the kind that the gallery writes")
            elif kind == b"IDAT":
                packed += body
            place += 12 + length
        self.rows = unfilter(zlib.decompress(packed), self.width * 3, self.height)


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


def windows_path(path):
    """As a program under Wine has it; on Windows itself nothing changes."""
    return str(path) if os.name == "nt" else "Z:" + str(path).replace("/", "\\")


class GalleryTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp())
        command = os.environ.get("GALLERY_RUNNER", "").split() + [os.environ["GALLERY"]]
        cls.ended = subprocess.run(command + ["--pictures", windows_path(cls.folder)], check=False, timeout=300,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.folder)

    def check(self, theme):
        self.assertEqual(self.ended.returncode, 0, self.ended.stdout)
        path = self.folder / f"{theme}.png"
        golden_path = GOLDEN / f"{theme}.png"
        if path.read_bytes() == golden_path.read_bytes():
            return
        got, golden = Picture(path), Picture(golden_path)
        far = {"size": (got.width, got.height)}
        if (got.width, got.height) == (golden.width, golden.height):
            far = far_tiles(got, golden)
        if far:
            FAILED.mkdir(parents=True, exist_ok=True)
            shutil.copy(path, FAILED)
        self.assertEqual(far, {}, f"see {FAILED / path.name}")


def add_tests():
    for theme in THEMES:
        def test(self, theme=theme):
            self.check(theme)
        setattr(GalleryTest, "test_looks_as_it_should_under_" + theme.lower().replace("-", "_"), test)


add_tests()


class ComparisonTest(unittest.TestCase):
    """That the comparison finds what it is there to find."""

    @staticmethod
    def picture(pixels, width=64):
        made = Picture.__new__(Picture)
        made.width, made.height = width, len(pixels) // (3 * width)
        made.rows = [bytes(pixels[i:i + 3 * width]) for i in range(0, len(pixels), 3 * width)]
        return made

    def differing(self, count, by, corner=0):
        """Two pictures of which so many pixels differ, in rows of 8 from a corner on."""
        plain = bytearray(b"\x80" * (64 * 64 * 3))
        changed = bytearray(plain)
        for i in range(count):
            changed[3 * ((corner + i // 8) * 64 + corner + i % 8)] += by
        return far_tiles(self.picture(changed), self.picture(plain))

    def test_a_missing_glyph_is_found(self):
        self.assertEqual(self.differing(60, 100), {(0, 0): 60})

    def test_a_missing_glyph_is_found_where_tiles_meet(self):
        self.assertEqual(len(self.differing(64, 100, corner=28)), 4)

    def test_a_few_pixels_are_passed_over(self):
        self.assertEqual(self.differing(10, 100), {})

    def test_a_slight_shade_is_passed_over(self):
        self.assertEqual(self.differing(400, 24), {})


if __name__ == "__main__":
    unittest.main()
