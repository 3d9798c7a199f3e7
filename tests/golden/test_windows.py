"""The look of every window and dialog of the program under each theme, against the pictures in tests/golden/windows.

To renew them after the look was changed on purpose: script/golden --renew, then look at each. WINDOW_PICTURES names the
program that takes them; golden.py tells the rest.
"""

import os
import re
import shutil
import tempfile
import unittest
from pathlib import Path

import golden

GOLDEN = golden.ROOT / "tests" / "golden" / "windows"
FAILED_TEST = re.compile(r"^\[  FAILED  \] ([^ ,]+)(?:, where .*)? \([0-9]+ ms\)", re.MULTILINE)


class WindowsTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp())
        cls.ended = cls.take()
        failed = FAILED_TEST.findall(cls.ended.stdout)
        if failed:  # a key or a click can get lost on a busy machine: once more
            cls.ended = cls.take("--gtest_filter=" + ":".join(failed))

    @classmethod
    def take(cls, *arguments):
        return golden.take(os.environ["WINDOW_PICTURES"], golden.windows_path(cls.folder), *arguments)

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.folder)

    def test_all_windows_can_be_shown(self):
        self.assertEqual(self.ended.returncode, 0, self.ended.stdout)

    def test_each_picture_has_a_golden_one(self):
        self.assertEqual(sorted(path.stem for path in self.folder.iterdir()),
                         sorted(path.stem for path in GOLDEN.iterdir()))


def add_tests():
    for golden_path in sorted(GOLDEN.glob("*.png")):
        def test(self, golden_path=golden_path):
            golden.check(self, self.folder / f"{golden_path.stem}.bmp", golden_path)
        setattr(WindowsTest, "test_look_of_" + golden_path.stem.lower().replace("-", "_"), test)


add_tests()

if __name__ == "__main__":
    unittest.main()
