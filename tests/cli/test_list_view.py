"""`ls` with --search, --mode, --in-passwords and --sort."""

from vmr import DONE, SECRET, USAGE, VmrTest, item

OLDEST, MIDDLE, NEWEST = "0x01da000000000000", "0x01db000000000000", "0x01dc000000000000"


class ListView(VmrTest):
    def setUp(self):
        super().setUp()
        self.file = self.make(
            item("Item 10", "https://alpha.example/", "erika", SECRET, date=MIDDLE),
            item("item 9", "alpha.exe", "Alpha", "", ["a note with\r\nbeta"], date=NEWEST),
            item("Zebra", "", "Größe", "alpha beta", date=OLDEST),
        )

    def listed(self, *options, **how):
        return self.on("ls", self.file, *options, **how).text.splitlines()

    def test_without_options_is_in_stored_order(self):
        self.assertEqual(self.listed(), ["Item 10", "item 9", "Zebra"])

    def test_sorts_numbers_by_value_and_ignores_case(self):
        self.assertEqual(self.listed("--sort", "az"), ["item 9", "Item 10", "Zebra"])
        self.assertEqual(self.listed("--sort", "za"), ["Zebra", "Item 10", "item 9"])

    def test_sorts_by_date(self):
        self.assertEqual(self.listed("--sort", "newold"), ["item 9", "Item 10", "Zebra"])
        self.assertEqual(self.listed("--sort", "oldnew"), ["Zebra", "Item 10", "item 9"])

    def test_sort_none_is_stored_order(self):
        self.assertEqual(self.listed("--sort", "none"), ["Item 10", "item 9", "Zebra"])

    def test_finds_a_word_in_any_field_but_the_password(self):
        self.assertEqual(self.listed("--search", "ALPHA"), ["Item 10", "item 9"])
        self.assertEqual(self.listed("--search", "note"), ["item 9"])
        self.assertEqual(self.listed("--search", "GRÖSSE".replace("SS", "ß")), ["Zebra"])

    def test_looks_into_passwords_only_when_told_to(self):
        self.assertEqual(self.listed("--search", "alpha beta", "--mode", "exact"), [])
        self.assertEqual(self.listed("--search", "alpha beta", "--mode", "exact", "--in-passwords"), ["Zebra"])

    def test_mode_all_wants_each_word(self):
        self.assertEqual(self.listed("--search", "erika https"), ["Item 10"])
        self.assertEqual(self.listed("--search", "erika note", "--mode", "all"), [])

    def test_mode_all_counts_a_word_in_two_fields_twice(self):
        self.assertEqual(self.listed("--search", "alpha nowhere"), ["item 9"])

    def test_mode_any_wants_one_word(self):
        self.assertEqual(self.listed("--search", "erika größe", "--mode", "any"), ["Item 10", "Zebra"])

    def test_mode_exact_takes_the_text_as_a_whole(self):
        self.assertEqual(self.listed("--search", "m 1", "--mode", "exact"), ["Item 10"])
        self.assertEqual(self.listed("--search", "1 m", "--mode", "exact"), [])

    def test_mode_without_leaves_out_what_holds_a_word(self):
        self.assertEqual(self.listed("--search", "erika größe", "--mode", "without"), ["item 9"])

    def test_an_empty_text_and_one_of_blanks_find_everything(self):
        self.assertEqual(len(self.listed("--search", "")), 3)
        self.assertEqual(len(self.listed("--search", "   ")), 3)
        self.assertEqual(self.listed("--search", "   ", "--mode", "exact"), [])

    def test_nothing_found_is_no_failure(self):
        self.assertEqual(self.listed("--search", "nosuchword", code=DONE), [])

    def test_json_tells_the_place_in_stored_order(self):
        items = self.on("ls", self.file, "--sort", "za", "--json").json["items"]
        self.assertEqual([(one["position"], one["name"]) for one in items],
                         [(3, "Zebra"), (1, "Item 10"), (2, "item 9")])

    def test_search_works_with_null(self):
        self.assertEqual(self.on("ls", self.file, "--search", "zebra", "-0").out, b"Zebra\0")

    def test_refuses_other_modes_and_orders_before_asking_for_the_password(self):
        for option in ("--mode", "--sort"):
            run = self.vmr("ls", self.file, option, "sideways", code=USAGE)
            self.assertIn(f"{option} takes one of", run.message)

    def test_sorts_more_rows_than_are_sorted_by_comparing(self):
        names = [f"name {number}" for number in range(200)]
        self.file = self.make(*[item(name) for name in sorted(names)])
        self.assertEqual(self.listed("--sort", "az"), names)
        self.assertEqual(self.listed("--sort", "za"), names[::-1])
