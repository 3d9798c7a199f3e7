"""The file of the window program: how it is protected, what it needs, how large it is.

VAULTMERE names it.
"""

import os
import unittest
from pathlib import Path

from pe_file import PeFile

HIGH_ENTROPY_ADDRESSES = 0x20
DYNAMIC_BASE = 0x40
NO_EXECUTE = 0x100
SHARED, EXECUTED, READ, WRITTEN = 0x10000000, 0x20000000, 0x40000000, 0x80000000

SYSTEM_LIBRARIES = {
    "advapi32.dll", "bcrypt.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "gdiplus.dll", "kernel32.dll", "msvcrt.dll",
    "ole32.dll", "shell32.dll", "shlwapi.dll", "user32.dll", "uxtheme.dll",
}


class Executable(unittest.TestCase):
    def setUp(self):
        self.path = Path(os.environ["VAULTMERE"])
        self.file = PeFile(self.path)

    def test_stands_at_addresses_that_nobody_can_guess(self):
        for flag in (DYNAMIC_BASE, HIGH_ENTROPY_ADDRESSES):
            self.assertTrue(self.file.flags & flag, hex(flag))

    def test_runs_no_memory_that_is_written(self):
        self.assertTrue(self.file.flags & NO_EXECUTE)
        for name, kind in self.file.sections:
            self.assertFalse(kind & EXECUTED and kind & WRITTEN, name)

    def test_watches_over_its_stack(self):
        self.assertIn(b"stack smashing detected", self.path.read_bytes())

    def test_shares_one_section_with_its_other_processes(self):
        shared = [(name, kind) for name, kind in self.file.sections if kind & SHARED]
        self.assertEqual([name for name, _ in shared], ["inst_dat"])  # names are cut at eight letters
        self.assertEqual(shared[0][1] & (READ | WRITTEN), READ | WRITTEN)

    def test_needs_the_systems_own_libraries_alone(self):
        self.assertLessEqual(set(self.file.imports), SYSTEM_LIBRARIES)

    def test_is_small_and_stripped(self):
        self.assertLessEqual(self.path.stat().st_size, 3 * 1024 * 1024)
        self.assertEqual(self.file.symbols, 0)


if __name__ == "__main__":
    unittest.main()
