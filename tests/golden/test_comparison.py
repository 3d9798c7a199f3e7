"""That the comparison of pictures finds what it is there to find."""

import struct
import unittest

import golden


class ComparisonTest(unittest.TestCase):
    @staticmethod
    def picture(pixels, width=64):
        return golden.Picture(width, [bytes(pixels[i:i + 3 * width]) for i in range(0, len(pixels), 3 * width)])

    def differing(self, count, by, corner=0):
        """Two pictures of which so many pixels differ, in rows of 8 from a corner on."""
        plain = bytearray(b"\x80" * (64 * 64 * 3))
        changed = bytearray(plain)
        for i in range(count):
            changed[3 * ((corner + i // 8) * 64 + corner + i % 8)] += by
        return golden.differences(self.picture(changed), self.picture(plain))

    def test_a_missing_glyph_is_found(self):
        self.assertEqual(self.differing(60, 100), {(0, 0): 60})

    def test_a_missing_glyph_is_found_where_tiles_meet(self):
        self.assertEqual(len(self.differing(64, 100, corner=28)), 4)

    def test_a_few_pixels_are_passed_over(self):
        self.assertEqual(self.differing(10, 100), {})

    def test_a_slight_shade_is_passed_over(self):
        self.assertEqual(self.differing(400, 24), {})

    def test_another_size_is_found(self):
        one, other = self.picture(b"\x80" * (64 * 64 * 3)), self.picture(b"\x80" * (64 * 63 * 3))
        self.assertEqual(golden.differences(one, other), {"size": (64, 64), "golden size": (64, 63)})

    def test_a_bitmap_is_read_as_the_program_writes_it(self):
        head = struct.pack("<2sIIIIiiHHIIIIII", b"BM", 70, 0, 54, 40, 2, -2, 1, 32, 0, 0, 0, 0, 0, 0)
        pixels = bytes((3, 2, 1, 0, 6, 5, 4, 0, 9, 8, 7, 0, 12, 11, 10, 0))  # blue, green, red
        picture = golden.Picture.from_png(golden.bmp_to_png.to_png(head + pixels))
        self.assertEqual((picture.width, picture.rows), (2, [bytes((1, 2, 3, 4, 5, 6)), bytes((7, 8, 9, 10, 11, 12))]))


if __name__ == "__main__":
    unittest.main()
