"""Commands that only read: `info`, `ls`, `show`, `get`."""

from vmr import MASTER, SECRET, VmrTest, item


class Ls(VmrTest):
    def test_prints_names_in_stored_order(self):
        file = self.make(item("b"), item("a"), item("ä 東京 🔑"))
        self.assertEqual(self.on("ls", file).text, "b\na\nä 東京 🔑\n")

    def test_prints_one_line_for_a_name_of_two(self):
        file = self.make(item("a\r\nb"), item("c\nd\re"))
        self.assertEqual(self.on("ls", file).text, "a b\nc d e\n")

    def test_ends_names_with_nul(self):
        file = self.make(item("b"), item("a\nline"))
        for option in ("-0", "--null"):
            self.assertEqual(self.on("ls", file, option).out, b"b\0a\nline\0")

    def test_prints_json(self):
        file = self.make(item("b"), item("a"))
        listed = self.on("ls", file, "--json").json
        self.assertEqual(listed["version"], 1)
        self.assertEqual([(one["position"], one["name"]) for one in listed["items"]], [(1, "b"), (2, "a")])

    def test_json_has_both_forms_of_the_date(self):
        file = self.make(item("a", date="0x01db000000000000"))
        listed = self.on("ls", file, "--json").json["items"][0]
        self.assertEqual(set(listed), {"position", "name", "date", "modified"})
        self.assertEqual(listed["date"], "0x01db000000000000")
        self.assertRegex(listed["modified"], r"^2024-09-06T01:56:33(\.\d+)?$")

    def test_json_shows_no_secret(self):
        self.assertNotIn(SECRET, self.on("ls", self.sample(), "--json").text)

    def test_prints_nothing_for_no_items(self):
        file = self.make(name="nothing in it")
        self.assertEqual(self.on("ls", file).out, b"")
        self.assertEqual(self.on("ls", file, "--json").json, {"version": 1, "items": []})

    def test_says_nothing_on_standard_error(self):
        self.assertEqual(self.on("ls", self.sample()).err, b"")


class Info(VmrTest):
    def test_tells_name_and_numbers(self):
        told = self.on("info", self.sample()).text
        for word in ("Sample", "current", "3", "11"):
            self.assertIn(word, told)

    def test_prints_json(self):
        file = self.sample()
        told = self.on("info", file, "--json").json
        self.assertEqual(told["version"], 1)
        self.assertEqual(told["format"], "current")
        self.assertEqual(told["name"], "Sample")
        self.assertEqual(told["items"], 3)
        self.assertEqual(told["entries"], 11)
        self.assertIn(file.stat().st_size, told.values())

    def test_shows_no_secret(self):
        self.assertNotIn(SECRET, self.on("info", self.sample()).text)


class Show(VmrTest):
    def test_prints_one_item(self):
        shown = self.on("show", self.sample(), "Mail").text
        for text in ("Mail", "mail.exe", "erika@example", "first note", "second"):
            self.assertIn(text, shown)
        self.assertNotIn("bank.example", shown)

    def test_hides_passwords_and_says_so_in_one_line(self):
        run = self.on("show", self.sample(), "Bank")
        self.assertNotIn(SECRET, run.text)
        self.assertEqual(run.message.count("\n"), 1)
        self.assertIn("--reveal", run.message)

    def test_reveals_passwords(self):
        run = self.on("show", self.sample(), "Bank", "--reveal")
        self.assertIn(SECRET, run.text)
        self.assertEqual(run.err, b"")

    def test_needs_no_hint_where_no_password_is_hidden(self):
        self.assertEqual(self.on("show", self.sample(), "Mail").err, b"")

    def test_hidden_passwords_do_not_tell_their_length(self):
        file = self.make(item("a", password="12"), item("b", password="1" * 60))
        first, second = (self.on("show", file, f"@{n}").text for n in (1, 2))
        self.assertEqual(first.replace("a", "b"), second.replace("a", "b"))

    def test_prints_json(self):
        shown = self.on("show", self.sample(), "Mail", "--json").json
        self.assertEqual(shown["version"], 1)
        self.assertIn("first note", str(shown))

    def test_json_hides_passwords_too(self):
        file = self.sample()
        self.assertNotIn(SECRET, self.on("show", file, "Bank", "--json").text)
        self.assertIn(SECRET, self.on("show", file, "Bank", "--json", "--reveal").text)


class Get(VmrTest):
    def test_prints_the_raw_value_and_one_line_end(self):
        file = self.sample()
        self.assertEqual(self.on("get", file, "Bank", "password").out, SECRET.encode() + b"\n")
        self.assertEqual(self.on("get", file, "Mail", "note:2").out, b"second\r\nnote\n")

    def test_prints_no_line_end_when_told(self):
        file = self.sample()
        for option in ("-n", "--no-newline"):
            self.assertEqual(self.on("get", file, "Bank", "username", option).out, b"erika")

    def test_prints_an_empty_value(self):
        file = self.sample()
        self.assertEqual(self.on("get", file, "Empty", "program").out, b"\n")
        self.assertEqual(self.on("get", file, "Empty", "program", "-n").out, b"")

    def test_prints_control_characters_as_they_are(self):
        file = self.make(item("a", username="\x1b[1m\0\x7f\t"))
        self.assertEqual(self.on("get", file, "a", "username", "-n").out, b"\x1b[1m\0\x7f\t")

    def test_prints_text_outside_ascii_as_utf_8(self):
        file = self.make(item("a", username="Größe 東京 🔑"))
        self.assertEqual(self.on("get", file, "a", "username").text, "Größe 東京 🔑\n")

    def test_prints_json(self):
        got = self.on("get", self.sample(), "Bank", "username", "--json").json
        self.assertEqual(got["version"], 1)
        self.assertIn("erika", got.values())

    def test_says_nothing_on_standard_error(self):
        self.assertEqual(self.on("get", self.sample(), "Bank", "password").err, b"")


class ReadingLeavesTheFile(VmrTest):
    def test_as_it_was(self):
        file = self.sample()
        before, time = file.read_bytes(), file.stat().st_mtime_ns
        for command in (["ls"], ["info"], ["dump"], ["show", "Bank"], ["get", "Bank", "name"]):
            self.on(command[0], file, *command[1:])
        self.assert_unchanged(file, before)
        self.assertEqual(file.stat().st_mtime_ns, time)

    def test_even_where_it_is_read_only(self):
        file = self.sample()
        file.chmod(0o400)
        self.addCleanup(file.chmod, 0o600)
        self.assertEqual(self.on("ls", file).text, "Bank\nEmpty\nMail\n")
        self.vmr("ls", "--password-stdin", file, stdin=MASTER)
