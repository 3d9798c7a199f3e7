"""`vmr new`: a database with the one item that a new database has."""

from vmr import DONE, FILE_FAILED, MASTER, NEW_MASTER, USAGE, VmrTest


class New(VmrTest):
    def new(self, file, *args, **how):
        return self.on("new", file, "--name", "My own", *args, **how)

    def test_has_one_item_with_three_empty_entries(self):
        file = self.path("a.vmr")
        self.new(file)
        content = self.dump(file)
        self.assertEqual(content["name"], "My own")
        self.assertEqual([one["name"] for one in content["items"]], ["New password item"])
        self.assertEqual(self.texts(file), [(3, ""), (4, ""), (5, "")])

    def test_dates_the_item(self):
        file = self.path("a.vmr")
        self.new(file)
        self.assertRegex(self.dump(file)["items"][0]["date"], r"^0x01[0-9a-f]{14}$")

    def test_prints_no_data(self):
        self.assertEqual(self.new(self.path("a.vmr")).out, b"")

    def test_writes_the_present_format(self):
        file = self.path("a.vmr")
        self.new(file)
        content = file.read_bytes()
        self.assertEqual(content[:4], b"VMR2")
        self.assertEqual((len(content) - 40) % 16, 0)
        self.assertNotIn("My own".encode("utf-16-le"), content)

    def test_never_overwrites(self):
        file = self.write("a.vmr", "precious")
        self.new(file, code=FILE_FAILED)
        self.assertEqual(file.read_bytes(), b"precious")

    def test_never_overwrites_a_database(self):
        file = self.sample()
        before = file.read_bytes()
        self.new(file, code=FILE_FAILED)
        self.assert_unchanged(file, before)

    def test_overwrites_when_forced(self):
        file = self.write("a.vmr", "worthless")
        self.new(file, "--force")
        self.assertEqual(self.dump(file)["name"], "My own")

    def test_needs_a_name(self):
        self.on("new", self.path("a.vmr"), code=USAGE)
        self.assertFalse(self.path("a.vmr").exists())

    def test_takes_the_password_from_standard_input(self):
        file = self.path("a.vmr")
        self.vmr("new", "--password-stdin", "--name", "x", file, stdin=MASTER + "\n")
        self.on("ls", file, code=DONE)

    def test_takes_a_password_outside_ascii(self):
        file = self.path("a.vmr")
        self.vmr("new", "--password-file", self.new_master, "--name", "x", file)
        self.vmr("ls", "--password-stdin", file, stdin=NEW_MASTER + "\n")

    def test_refuses_an_empty_password(self):
        file = self.path("a.vmr")
        self.vmr("new", "--password-stdin", "--name", "x", file, stdin="\n", code=USAGE)
        self.assertFalse(file.exists())

    def test_makes_no_folders(self):
        file = self.path("none") / "a.vmr"
        self.new(file, code=FILE_FAILED)
        self.assertFalse(file.parent.exists())

    def test_takes_a_name_and_path_outside_ascii(self):
        file = self.path("Größe 東京.vmr")
        self.on("new", file, "--name", "Ελλάδα 🔑")
        self.assertEqual(self.dump(file)["name"], "Ελλάδα 🔑")
