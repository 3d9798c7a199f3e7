"""What the program says of files that cannot be opened, and of files that are no database."""

from vmr import (
    FILE_FAILED,
    NOT_A_DATABASE,
    USAGE,
    WRONG_PASSWORD,
    VmrTest,
    item,
)

READING = (["info"], ["ls"], ["show", "@1"], ["get", "@1", "name"], ["dump"])
CHANGING = (
    ["add", "x"], ["set", "@1", "username", "x"], ["rm", "@1"], ["move", "@1", "down"],
    ["merge", "@1", "@2"], ["rename", "x"],
)  # fmt: skip


class FileThatIsNotThere(VmrTest):
    def test_is_said_by_every_command(self):
        file = self.path("nosuchfile.vmr")
        for command in READING + CHANGING:
            with self.subTest(command[0]):
                run = self.on(command[0], file, *command[1:], code=FILE_FAILED)
                self.assertEqual(run.out, b"")
                self.assertIn("nosuchfile.vmr", run.message)
                self.assertFalse(file.exists())

    def test_tells_the_cause(self):
        run = self.on("ls", self.path("none.vmr"), code=FILE_FAILED)
        self.assertRegex(run.message.lower(), "no such file|not found|cannot find")

    def test_in_a_folder_that_is_not_there(self):
        self.on("ls", self.path("none") / "a.vmr", code=FILE_FAILED)

    def test_has_an_empty_name(self):
        self.on("ls", "", code=FILE_FAILED)


class FolderInsteadOfAFile(VmrTest):
    def test_is_said_by_every_command(self):
        folder = self.path("folder.vmr")
        folder.mkdir()
        for command in READING + CHANGING:
            with self.subTest(command[0]):
                self.on(command[0], folder, *command[1:], code=FILE_FAILED)

    def test_is_never_replaced(self):
        folder = self.path("folder.vmr")
        folder.mkdir()
        self.on("new", folder, "--name", "x", "--force", code=FILE_FAILED)
        self.assertTrue(folder.is_dir())


class FileThatIsNoDatabase(VmrTest):
    def refused(self, content):
        file = self.write("a.vmr", content)
        self.on("ls", file, code=NOT_A_DATABASE)
        self.on("add", file, "x", code=NOT_A_DATABASE)
        self.on("info", file, code=NOT_A_DATABASE)
        self.assert_unchanged(file, content)

    def test_is_empty(self):
        self.refused(b"")

    def test_is_too_short_for_a_head(self):
        self.refused(b"VMR2" + b"\0" * 7)

    def test_is_text(self):
        self.refused(b"This is a text and nothing else.")

    def test_has_another_signature(self):
        self.refused(b"VMR3" + bytes(100))
        self.refused(b"vmr2" + bytes(100))


class DamagedFile(VmrTest):
    """Damage cannot be told from a wrong password."""

    def refused(self, content):
        file = self.write("damaged.vmr", content)
        self.on("ls", file, code=WRONG_PASSWORD)
        self.on("rename", file, "x", code=WRONG_PASSWORD)
        self.assert_unchanged(file, content)

    def test_has_a_flipped_bit_in_its_first_block(self):
        content = bytearray(self.sample().read_bytes())
        content[40] ^= 0x10
        self.refused(bytes(content))

    def test_has_a_flipped_bit_in_its_salt(self):
        content = bytearray(self.sample().read_bytes())
        content[8] ^= 1
        self.refused(bytes(content))

    def test_is_a_head_only(self):
        self.refused(self.sample().read_bytes()[:40])

    def test_lacks_a_byte(self):
        self.refused(self.sample().read_bytes()[:-1])

    def test_lacks_its_last_blocks(self):
        self.refused(self.make(item("a" * 100)).read_bytes()[:-32])


class ForcedCommandThatFails(VmrTest):
    def test_leaves_the_file_it_was_to_replace(self):
        file = self.sample()
        before = file.read_bytes()
        empty = self.write("empty", "")
        forced = ["--force", "--password-file"]
        self.vmr("new", *forced, empty, "--name", "x", file, code=USAGE)
        self.vmr("new", *forced, self.master, "--name", "", file, code=USAGE)
        self.vmr("load", *forced, self.master, self.path("none.json"), file, code=FILE_FAILED)
        self.vmr("load", *forced, self.master, empty, file, code=NOT_A_DATABASE)
        self.vmr("convert", *forced, self.master, self.path("none.vmr"), file, code=FILE_FAILED)
        self.vmr("convert", *forced, self.master, empty, file, code=NOT_A_DATABASE)
        self.assert_unchanged(file, before)


class SavedFile(VmrTest):
    def test_is_encrypted_anew_each_time(self):
        file = self.sample()
        before = file.read_bytes()
        self.on("rename", file, "Sampel")
        after = file.read_bytes()
        self.assertEqual(len(after), len(before))
        self.assertNotEqual(after[8:40], before[8:40])
        self.assertNotEqual(after[40:56], before[40:56])

    def test_leaves_nothing_beside_it(self):
        file = self.sample()
        before = sorted(self.folder.iterdir())
        self.on("add", file, "x")
        self.assertEqual(sorted(self.folder.iterdir()), before)


