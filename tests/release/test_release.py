"""What users get: that the same sources give the same bytes, and what the zip holds.

VMR names the native vmr, with which the packed texts are checked.
"""

import hashlib
import io
import os
import subprocess
import unittest
import zipfile

from building import FOLDER, ROOT, first_release, second_release

VMR = os.environ.get("VMR", str(ROOT / "build/linux/bin/vmr"))


class Release(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.first = first_release()
        cls.second = second_release()
        zips = [name for name in cls.first if name.endswith(".zip")]
        assert len(zips) == 1, cls.first.keys()
        cls.zip_name = zips[0]
        cls.version = cls.zip_name.removeprefix("vaultmere-").removesuffix(".zip")
        cls.archive = zipfile.ZipFile(io.BytesIO(cls.first[cls.zip_name]))

    def packed(self, name):
        return self.archive.read(f"vaultmere-{self.version}/{name}")

    def test_is_the_same_bytes_when_it_is_built_again(self):
        self.assertEqual(sorted(self.first), sorted(self.second))
        for name, data in self.first.items():
            self.assertEqual(hashlib.sha256(data).hexdigest(), hashlib.sha256(self.second[name]).hexdigest(), name)

    def test_consists_of_zip_installer_and_sums(self):
        self.assertEqual(sorted(self.first), ["SHA256SUMS", f"vaultmere-{self.version}-setup.exe", self.zip_name])

    def test_sums_are_those_of_the_files(self):
        sums = dict(reversed(line.split("  ", 1)) for line in self.first["SHA256SUMS"].decode().splitlines())
        self.assertEqual(len(sums), 2)
        for name, digest in sums.items():
            self.assertEqual(digest, hashlib.sha256(self.first[name]).hexdigest(), name)

    def test_zip_holds_programs_texts_themes_and_licences(self):
        names = {name.removeprefix(f"vaultmere-{self.version}/") for name in self.archive.namelist()}
        self.assertLessEqual({"vaultmere.exe", "vmr.exe", "README.txt", "Lang/english.ini", "Theme/slate.ini",
                              "licences/gcc-runtime.txt", "licences/lucide.txt"}, names)
        self.assertEqual(names, {name for name in names if name.count("/") <= 1}, "nothing lies deeper")

    def test_every_packed_file_has_the_same_time(self):
        self.assertEqual(len({info.date_time for info in self.archive.infolist()}), 1)

    def test_packed_english_is_the_built_in_text(self):
        self.assertEqual(self.packed("Lang/english.ini"), (ROOT / "resources/english.ini").read_bytes())

    def test_readme_names_the_version(self):
        self.assertIn(self.version, self.packed("README.txt").decode())

    def test_programs_hold_no_path_of_the_build(self):
        for program in ("vaultmere.exe", "vmr.exe"):
            for text in (str(ROOT), str(FOLDER)):
                self.assertNotIn(text.encode(), self.packed(program), program)

    def test_packed_languages_and_themes_are_without_a_finding(self):
        for folder, command in (("Lang", "lang"), ("Theme", "theme")):
            for path in sorted((ROOT / "packaging" / folder).glob("*.ini")):
                done = subprocess.run([VMR, command, "check", str(path)], capture_output=True, text=True, check=False)
                self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""), path.name)


if __name__ == "__main__":
    unittest.main()
