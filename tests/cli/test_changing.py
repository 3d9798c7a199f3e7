"""`add`, `rm`, `move`, `merge`, `rename`: what they do, seen through `dump`."""

from vmr import DATE, FAILED, FILE_FAILED, LIMIT, NOT_FOUND, SECRET, USAGE, VmrTest, item


class Add(VmrTest):
    def test_appends_an_item(self):
        file = self.make(item("a"))
        secret = self.write("secret", SECRET + "\n")
        self.on(
            "add", file, "ä b", "--program", "p", "--username", "u", "--secret-file", secret,
            "--note", "one", "--note", "two",
        )  # fmt: skip
        self.assertEqual(self.names(file), ["a", "ä b"])
        self.assertEqual(
            self.texts(file, 2), [(3, "p"), (4, "u"), (5, SECRET), (6, "one"), (6, "two")]
        )

    def test_leaves_out_what_is_not_given(self):
        file = self.make(item("a"))
        self.on("add", file, "b")
        self.assertEqual(self.texts(file, 2), [(3, ""), (4, ""), (5, "")])

    def test_dates_the_new_item_only(self):
        file = self.make(item("a"))
        self.on("add", file, "b")
        old, new = self.dump(file)["items"]
        self.assertEqual(old["date"], DATE)
        self.assertGreater(new["date"], DATE)

    def test_takes_the_secret_from_standard_input(self):
        file = self.make(item("a"))
        self.on("add", file, "b", "--secret-stdin", stdin=SECRET + "\n")
        self.assertEqual(self.on("get", file, "b", "password", "-n").text, SECRET)

    def test_takes_the_secret_from_one_place(self):
        file = self.make(item("a"))
        secret = self.write("secret", SECRET)
        self.on("add", file, "b", "--secret-stdin", "--secret-file", secret, stdin=SECRET, code=USAGE)

    def test_takes_no_secret_as_an_argument(self):
        file = self.make(item("a"))
        self.on("add", file, "b", "--password", "given-openly", code=USAGE)
        self.on("add", file, "b", "--secret", "given-openly", code=USAGE)

    def test_may_repeat_a_name(self):
        file = self.make(item("a"))
        self.on("add", file, "a")
        self.assertEqual(self.names(file), ["a", "a"])

    def test_refuses_an_empty_name(self):
        file = self.make(item("a"))
        before = file.read_bytes()
        self.on("add", file, "", code=USAGE)
        self.assert_unchanged(file, before)

    def test_keeps_line_breaks_inside_a_note(self):
        file = self.make(item("a"))
        self.on("add", file, "b", "--note", "one\r\ntwo")
        self.assertEqual(self.texts(file, 2)[3:], [(6, "one\r\ntwo")])

    def test_refuses_a_text_too_long(self):
        file = self.make(item("a"))
        before = file.read_bytes()
        self.on("add", file, "b", "--secret-stdin", stdin="y" * 65536, code=LIMIT)
        self.assert_unchanged(file, before)

    def test_a_missing_secret_file_changes_nothing(self):
        file = self.make(item("a"))
        before = file.read_bytes()
        self.on("add", file, "b", "--secret-file", self.path("none"), code=FILE_FAILED)
        self.assert_unchanged(file, before)


class Rm(VmrTest):
    def test_removes_items(self):
        file = self.make(item("a"), item("b"), item("c"), item("d"))
        self.on("rm", file, "b", "@4")
        self.assertEqual(self.names(file), ["a", "c"])

    def test_takes_all_positions_as_they_stand_before(self):
        file = self.make(item("a"), item("b"), item("c"), item("d"))
        self.on("rm", file, "@1", "@2", "@3")
        self.assertEqual(self.names(file), ["d"])

    def test_removes_an_item_named_twice_once(self):
        file = self.make(item("a"), item("b"), item("c"))
        self.on("rm", file, "a", "@1")
        self.assertEqual(self.names(file), ["b", "c"])

    def test_removes_the_last_item(self):
        file = self.make(item("a"))
        self.on("rm", file, "a")
        self.assertEqual(self.names(file), [])

    def test_removes_nothing_if_one_is_not_there(self):
        file = self.make(item("a"), item("b"))
        before = file.read_bytes()
        self.on("rm", file, "a", "none", code=NOT_FOUND)
        self.assert_unchanged(file, before)

    def test_needs_an_item(self):
        self.on("rm", self.make(item("a")), code=USAGE)


class Move(VmrTest):
    def moved(self, which, direction):
        file = self.make(item("a"), item("b"), item("c"))
        self.on("move", file, which, direction)
        return self.names(file)

    def test_up(self):
        self.assertEqual(self.moved("c", "up"), ["a", "c", "b"])

    def test_down(self):
        self.assertEqual(self.moved("@1", "down"), ["b", "a", "c"])

    def test_last_but_one_down_to_the_end(self):
        self.assertEqual(self.moved("b", "down"), ["a", "c", "b"])

    def test_leaves_the_dates(self):
        file = self.make(item("a"), item("b"))
        self.on("move", file, "b", "up")
        self.assertEqual([one["date"] for one in self.dump(file)["items"]], [DATE, DATE])

    def test_beyond_the_ends_changes_nothing(self):
        file = self.make(item("a"), item("b"))
        before = file.read_bytes()
        for which, direction in (("a", "up"), ("b", "down")):
            self.on("move", file, which, direction, code=FAILED)
            self.assert_unchanged(file, before)

    def test_knows_two_directions(self):
        file = self.make(item("a"), item("b"))
        for direction in ("left", "UP", ""):
            self.on("move", file, "a", direction, code=USAGE)


class Merge(VmrTest):
    def test_appends_texts_of_the_second_to_the_first(self):
        file = self.make(
            item("a", "p1", "u1", "s1", ["n1"]), item("x"), item("b", "p2", "u2", SECRET, ["n2"])
        )
        self.on("merge", file, "a", "b")
        self.assertEqual(self.names(file), ["a", "x"])
        self.assertEqual(
            self.texts(file),
            [(3, "p1"), (4, "u1"), (5, "s1"), (6, "n1"), (6, "p2"), (6, "u2"), (6, SECRET), (6, "n2")],
        )

    def test_the_first_named_stays(self):
        file = self.make(item("a", "p1"), item("b", "p2"))
        self.on("merge", file, "b", "a")
        self.assertEqual(self.names(file), ["b"])
        self.assertEqual(self.texts(file), [(3, "p2"), (4, ""), (5, ""), (6, "p1")])

    def test_leaves_empty_entries_behind(self):
        file = self.make(item("a"), item("b"))
        self.on("merge", file, "a", "b")
        self.assertEqual(self.texts(file), [(3, ""), (4, ""), (5, "")])

    def test_dates_the_one_that_stays(self):
        file = self.make(item("a"), item("b"))
        self.on("merge", file, "a", "b")
        self.assertGreater(self.dump(file)["items"][0]["date"], DATE)

    def test_an_item_with_itself_is_refused(self):
        file = self.make(item("a"), item("b"))
        before = file.read_bytes()
        self.on("merge", file, "a", "@1", code=USAGE)
        self.assert_unchanged(file, before)

    def test_needs_two_items(self):
        self.on("merge", self.make(item("a")), "a", code=USAGE)


class Rename(VmrTest):
    def test_sets_the_name_of_the_database(self):
        file = self.sample()
        self.on("rename", file, "Größe 🔑")
        self.assertEqual(self.dump(file)["name"], "Größe 🔑")

    def test_leaves_the_items(self):
        file = self.sample()
        before = self.dump(file)["items"]
        self.on("rename", file, "other")
        self.assertEqual(self.dump(file)["items"], before)


class ChangeThatFails(VmrTest):
    def test_leaves_the_file_as_it_was(self):
        file = self.sample()
        before = file.read_bytes()
        long = self.write("long", "x" * 65536)
        for args, code in (
            (["set", "none", "username", "x"], NOT_FOUND),
            (["set", "Bank", "note:7", "x"], NOT_FOUND),
            (["set", "Bank", "note:+", "--value-file", long], LIMIT),
            (["add", "b", "--secret-file", long], LIMIT),
            (["rm", "none"], NOT_FOUND),
            (["move", "none", "up"], NOT_FOUND),
            (["merge", "Bank", "none"], NOT_FOUND),
            (["rename"], USAGE),
        ):
            with self.subTest(args[0]):
                self.assertEqual(self.on(args[0], file, *args[1:], code=code).out, b"")
                self.assert_unchanged(file, before)
