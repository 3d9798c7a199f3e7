"""The look of the gallery under each theme, against the pictures in tests/golden/gallery.

To renew them after the look was changed on purpose: script/gallery --renew, then look at each. GALLERY names the
program; golden.py tells the rest.
"""

import os
import shutil
import tempfile
import unittest
from pathlib import Path

import golden

GOLDEN = golden.ROOT / "tests" / "golden" / "gallery"
THEMES = ("Light", "Dark", "Blue", "Green", "System-Default")


class GalleryTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp())
        cls.ended = golden.take(os.environ["GALLERY"], "--pictures", golden.windows_path(cls.folder))

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.folder)

    def check(self, theme):
        self.assertEqual(self.ended.returncode, 0, self.ended.stdout)
        golden.check(self, self.folder / f"{theme}.png", GOLDEN / f"{theme}.png")


def add_tests():
    for theme in THEMES:
        def test(self, theme=theme):
            self.check(theme)
        setattr(GalleryTest, "test_looks_as_it_should_under_" + theme.lower().replace("-", "_"), test)


add_tests()

if __name__ == "__main__":
    unittest.main()
