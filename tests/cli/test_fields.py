"""`get` and `set`: which fields there are, where a value comes from, and from where no password comes."""

from vmr import DATE, FILE_FAILED, LIMIT, NOT_FOUND, SECRET, USAGE, VmrTest, entry, item


class FieldRules(VmrTest):
    def test_each_name_is_a_field(self):
        file = self.make(item("Bank", "prog", "user", "pwd", ["one", "two"]))
        for field, value in {
            "name": "Bank",
            "program": "prog",
            "username": "user",
            "password": "pwd",
            "note:1": "one",
            "note:2": "two",
        }.items():
            self.assertEqual(self.on("get", file, "Bank", field).text, value + "\n")

    def test_notes_are_counted_among_notes_only(self):
        entries = [entry(6, "one"), entry(5, "p"), entry(6, "two"), entry(3, "q")]
        file = self.make({"name": "odd", "date": DATE, "entries": entries})
        self.assertEqual(self.on("get", file, "odd", "note:2").text, "two\n")

    def test_a_note_that_is_not_there(self):
        file = self.make(item("a", notes=["one"]))
        for field in ("note:0", "note:2", "note:99999999999999999999"):
            self.on("get", file, "a", field, code=NOT_FOUND)
            self.on("set", file, "a", field, "x", code=NOT_FOUND)

    def test_a_basic_field_that_is_not_there(self):
        file = self.make({"name": "bare", "date": DATE, "entries": []})
        for field in ("program", "username", "password"):
            self.on("get", file, "bare", field, code=NOT_FOUND)
        before = file.read_bytes()
        self.on("set", file, "bare", "username", "x", code=NOT_FOUND)
        self.assert_unchanged(file, before)

    def test_any_other_word_is_refused(self):
        file = self.make(item("a"))
        for field in ("", "Name", "user", "note", "note:", "note:x", "note:1x", "note:-1", "note:+1", "date"):
            with self.subTest(field):
                self.on("get", file, "a", field, code=USAGE)
                self.on("set", file, "a", field, "x", code=USAGE)

    def test_a_note_to_come_cannot_be_read(self):
        self.on("get", self.make(item("a")), "a", "note:+", code=USAGE)


class SetAField(VmrTest):
    def test_from_an_argument(self):
        file = self.make(item("a", "p", "u", "s", ["n"]))
        for field in ("program", "username", "note:1"):
            self.on("set", file, "a", field, "new " + field)
        self.assertEqual(
            self.texts(file), [(3, "new program"), (4, "new username"), (5, "s"), (6, "new note:1")]
        )

    def test_name(self):
        file = self.make(item("a"), item("b"))
        self.on("set", file, "a", "name", "ä")
        self.assertEqual(self.names(file), ["ä", "b"])

    def test_from_standard_input(self):
        file = self.make(item("a"))
        self.on("set", file, "a", "program", "--stdin", stdin="from stdin\n")
        self.assertEqual(self.on("get", file, "a", "program").text, "from stdin\n")

    def test_from_a_file(self):
        file = self.make(item("a"))
        self.on("set", file, "a", "note:+", "--value-file", self.write("value", "zwei\r\nZeilen ä\r\n"))
        self.assertEqual(self.on("get", file, "a", "note:1", "-n").text, "zwei\r\nZeilen ä")

    def test_prints_no_data(self):
        self.assertEqual(self.on("set", self.make(item("a")), "a", "username", "x").out, b"")

    def test_appends_a_note(self):
        file = self.make(item("a", notes=["one"]))
        self.on("set", file, "a", "note:+", "two")
        self.assertEqual(self.texts(file)[3:], [(6, "one"), (6, "two")])

    def test_appends_no_empty_note(self):
        file = self.make(item("a"))
        before = file.read_bytes()
        for text in ("", "\r\n"):
            self.on("set", file, "a", "note:+", text, code=USAGE)
        self.assert_unchanged(file, before)

    def test_empties_an_entry(self):
        file = self.make(item("a", "p"))
        self.on("set", file, "a", "program", "")
        self.assertEqual(self.texts(file)[0], (3, ""))

    def test_never_empties_a_name(self):
        file = self.make(item("a"))
        before = file.read_bytes()
        self.on("set", file, "a", "name", "", code=USAGE)
        self.assert_unchanged(file, before)

    def test_cuts_line_breaks_at_both_ends(self):
        file = self.make(item("a"))
        self.on("set", file, "a", "program", "--value-file", self.write("value", "\r\n\n x \n y\n\n\r\n"))
        self.assertEqual(self.texts(file)[0], (3, " x \n y"))

    def test_touches_the_date(self):
        file = self.make(item("a"), item("b"))
        self.on("set", file, "a", "username", "x")
        changed, other = self.dump(file)["items"]
        self.assertGreater(changed["date"], DATE)
        self.assertEqual(other["date"], DATE)

    def test_the_present_value_leaves_the_date(self):
        file = self.make(item("a", username="u"))
        self.on("set", file, "a", "username", "u")
        self.assertEqual(self.dump(file)["items"][0]["date"], DATE)

    def test_needs_a_value(self):
        file = self.make(item("a"))
        self.on("set", file, "a", "username", code=USAGE)

    def test_takes_only_one_value(self):
        file = self.make(item("a"))
        value = self.write("value", "x")
        self.on("set", file, "a", "username", "x", "--stdin", code=USAGE)
        self.on("set", file, "a", "username", "x", "--value-file", value, code=USAGE)
        self.on("set", file, "a", "username", "--stdin", "--value-file", value, code=USAGE)

    def test_a_missing_value_file_changes_nothing(self):
        file = self.make(item("a"))
        before = file.read_bytes()
        self.on("set", file, "a", "username", "--value-file", self.path("none"), code=FILE_FAILED)
        self.assert_unchanged(file, before)

    def test_a_text_too_long_changes_nothing(self):
        file = self.make(item("a"))
        before = file.read_bytes()
        for field in ("username", "name", "note:+", "password"):
            self.on("set", file, "a", field, "--stdin", stdin="x" * 65536, code=LIMIT)
        self.assert_unchanged(file, before)

    def test_the_longest_text_fits(self):
        file = self.make(item("a"))
        self.on("set", file, "a", "note:+", "--stdin", stdin="x" * 65535)
        self.assertEqual(self.on("get", file, "a", "note:1", "-n").text, "x" * 65535)

    def test_length_is_counted_in_units(self):
        file = self.make(item("a"))
        self.on("set", file, "a", "username", "--stdin", stdin="x" + "🔑" * 32767)
        self.on("set", file, "a", "username", "--stdin", stdin="🔑" * 32768, code=LIMIT)


class SetAPassword(VmrTest):
    def test_from_standard_input(self):
        file = self.make(item("a"))
        self.on("set", file, "a", "password", "--stdin", stdin=SECRET + "\n")
        self.assertEqual(self.on("get", file, "a", "password", "-n").text, SECRET)

    def test_from_a_file(self):
        file = self.make(item("a"))
        self.on("set", file, "a", "password", "--value-file", self.write("value", SECRET + "\r\n"))
        self.assertEqual(self.on("get", file, "a", "password", "-n").text, SECRET)

    def test_never_from_an_argument(self):
        file = self.make(item("a", password=SECRET))
        before = file.read_bytes()
        run = self.on("set", file, "a", "password", "given-openly", code=USAGE)
        self.assertNotIn("given-openly", run.message)
        self.assert_unchanged(file, before)
