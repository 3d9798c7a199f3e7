"""`convert` reads the old format and writes the present one under a new master password."""

import shutil

from vmr import FAILED, FILE_FAILED, LIMIT, MASTER, NOT_A_DATABASE, REPOSITORY, USAGE, WRONG_PASSWORD, VmrTest

OLD_PASSWORD = "alt"


class Convert(VmrTest):
    def setUp(self):
        super().setUp()
        self.old = self.path("old.vmr")
        shutil.copyfile(REPOSITORY / "tests" / "data" / "database" / "old-long.vmr", self.old)
        self.old_password = self.write("old.txt", OLD_PASSWORD)
        self.new = self.path("new.vmr")

    def convert(self, *args, **how):
        old = ["--no-input", "--password-file", self.old_password]
        return self.vmr("convert", *old, "--new-password-file", self.master, *args, self.old, self.new, **how)

    def test_makes_a_file_of_the_present_format(self):
        self.assertEqual(self.convert().out, b"")
        self.assertEqual(self.new.read_bytes()[:4], b"VMR2")
        self.assertEqual(len(self.names(self.new)), 4)

    def test_reads_texts_in_the_code_page_told(self):
        western = self.dump_of("1252")
        cyrillic = self.dump_of("1251")
        self.assertIn("ü", western)
        self.assertEqual(western.encode("cp1252"), cyrillic.encode("cp1251"))

    def dump_of(self, code_page):
        self.convert("--force", "--codepage", code_page)
        content = self.dump(self.new)
        texts = [entry["text"] for one in content["items"] for entry in one["entries"]]
        return "\n".join([content["name"], *(one["name"] for one in content["items"]), *texts])

    def test_refuses_a_code_page_that_is_none(self):
        for code_page in ("x", "", "-1", "99999", "1252x"):
            self.convert("--codepage", code_page, code=USAGE)

    def test_leaves_the_old_file(self):
        before = self.old.read_bytes()
        self.convert()
        self.assert_unchanged(self.old, before)

    def test_takes_both_passwords_from_standard_input(self):
        stdin = f"{OLD_PASSWORD}\n{MASTER}\n"
        self.vmr("convert", "--password-stdin", self.old, self.new, stdin=stdin)
        self.assertEqual(len(self.names(self.new)), 4)

    def test_does_not_take_over_the_old_password(self):
        old = ["--password-file", self.old_password, self.old]
        self.vmr("convert", "--no-input", *old, self.new, code=USAGE)
        self.assertFalse(self.new.exists())

    def test_never_overwrites(self):
        self.new.write_bytes(b"precious")
        self.convert(code=FILE_FAILED)
        self.assertEqual(self.new.read_bytes(), b"precious")
        self.convert("--force")
        self.assertEqual(len(self.names(self.new)), 4)

    def test_refuses_a_wrong_password(self):
        self.old_password.write_text("neu")
        self.convert(code=WRONG_PASSWORD)
        self.assertFalse(self.new.exists())

    def test_refuses_what_is_no_database(self):
        self.old.write_bytes(b"This is a text and nothing else.")
        self.convert(code=NOT_A_DATABASE)

    def test_refuses_the_present_format(self):
        current = self.sample()
        args = ["--password-file", self.master, "--new-password-file", self.new_master]
        self.vmr("convert", *args, current, self.new, code=FAILED)
        self.assertFalse(self.new.exists())

    def test_says_if_the_old_file_is_missing(self):
        self.old.unlink()
        self.convert(code=FILE_FAILED)
        self.assertFalse(self.new.exists())


class OldFile(VmrTest):
    """Commands that only read take an old file too; one that changes cannot write it back."""

    def setUp(self):
        super().setUp()
        self.old = self.path("old.vmr")
        shutil.copyfile(REPOSITORY / "tests" / "data" / "database" / "old-long.vmr", self.old)
        self.old_password = self.write("old.txt", OLD_PASSWORD)

    def read(self, command, *args, **how):
        return self.vmr(command, "--password-file", self.old_password, self.old, *args, **how)

    def test_is_told_by_info(self):
        told = self.read("info", "--json").json
        self.assertEqual(told["format"], "old")
        self.assertEqual(told["items"], 4)
        self.assertIn("old", self.read("info").text)

    def test_can_be_read(self):
        self.assertEqual(len(self.read("ls", "--json").json["items"]), 4)
        self.assertEqual(len(self.read("dump").json["items"]), 4)

    def test_is_never_changed(self):
        before = self.old.read_bytes()
        for command in (["add", "x"], ["rm", "@1"], ["rename", "x"], ["set", "@1", "username", "x"]):
            self.read(command[0], *command[1:], code=LIMIT)
            self.assert_unchanged(self.old, before)
