"""How an item is named: its exact name, `@N`, or `@@name` for a name that starts with `@`."""

from vmr import NOT_FOUND, USAGE, VmrTest, item


class ItemByName(VmrTest):
    def get(self, file, which, **how):
        return self.on("get", file, which, "name", **how).text

    def test_is_found_by_its_exact_name(self):
        file = self.make(item("a"), item("ab"), item("A"))
        self.assertEqual(self.get(file, "A"), "A\n")

    def test_is_not_found_by_a_part_or_in_other_letter_case(self):
        file = self.make(item("Bank account"))
        for name in ("Bank", "bank account", "Bank account ", ""):
            self.get(file, name, code=NOT_FOUND)

    def test_is_found_outside_ascii(self):
        file = self.make(item("Ελλάδα"), item("🔑"))
        self.assertEqual(self.get(file, "🔑"), "🔑\n")

    def test_composed_and_decomposed_letters_are_different_names(self):
        file = self.make(item("\u00e4"))
        self.get(file, "a\u0308", code=NOT_FOUND)

    def test_an_ambiguous_name_lists_the_candidates(self):
        file = self.make(item("x"), item("y"), item("x"), item("xx"))
        run = self.on("get", file, "x", "name", code=NOT_FOUND)
        self.assertEqual(run.out, b"")
        self.assertIn("@1", run.message)
        self.assertIn("@3", run.message)
        self.assertNotIn("@2", run.message)
        self.assertNotIn("@4", run.message)

    def test_an_ambiguous_name_changes_nothing(self):
        file = self.make(item("x"), item("x"))
        before = file.read_bytes()
        self.on("rm", file, "x", code=NOT_FOUND)
        self.on("set", file, "x", "username", "new", code=NOT_FOUND)
        self.assert_unchanged(file, before)


class ItemByPosition(VmrTest):
    def get(self, file, which, **how):
        return self.on("get", file, which, "name", **how).text

    def test_counts_from_one_in_stored_order(self):
        file = self.make(item("b"), item("a"), item("a"))
        self.assertEqual([self.get(file, f"@{n}") for n in (1, 2, 3)], ["b\n", "a\n", "a\n"])

    def test_outside_the_list_is_no_such_item(self):
        file = self.make(item("b"))
        for position in ("@0", "@2", "@99999999999999999999999"):
            self.get(file, position, code=NOT_FOUND)

    def test_is_nothing_but_digits(self):
        file = self.make(item("b"))
        for position in ("@", "@x", "@1x", "@-1", "@+1", "@ 1", "@1.0", "@0x1"):
            with self.subTest(position):
                self.get(file, position, code=USAGE)


class ItemWithAnAtSign(VmrTest):
    def test_is_written_with_two(self):
        file = self.make(item("first"), item("@1"), item("@@2"), item("@"))
        self.assertEqual(self.on("get", file, "@@1", "name").text, "@1\n")
        self.assertEqual(self.on("get", file, "@@@2", "name").text, "@@2\n")
        self.assertEqual(self.on("get", file, "@@", "name").text, "@\n")

    def test_one_alone_is_a_position(self):
        file = self.make(item("first"), item("@1"))
        self.assertEqual(self.on("get", file, "@1", "name").text, "first\n")

    def test_an_at_sign_inside_is_a_letter_like_any_other(self):
        file = self.make(item("me@home"))
        self.assertEqual(self.on("get", file, "me@home", "name").text, "me@home\n")


class ItemInAMessage(VmrTest):
    def test_gives_no_orders_to_a_terminal(self):
        file = self.make(item("\x1b[2Jx"), item("\x1b[2Jx"))
        for name in ("\x1b[2Jx", "none\x1b[2J\x9b"):
            run = self.on("get", file, name, "name", code=NOT_FOUND)
            self.assertNotRegex(run.message.rstrip("\n"), r"[\x00-\x1f\x7f-\x9f]")


class ItemThatLooksLikeAnOption(VmrTest):
    def test_stands_behind_two_dashes(self):
        file = self.make(item("--json"), item("-n"))
        self.assertEqual(self.on("get", "--", file, "--json", "name").text, "--json\n")
        self.assertEqual(self.on("get", "--", file, "-n", "name").text, "-n\n")
