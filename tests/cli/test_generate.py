"""`generate`, and `--generate` of `add` and `set`."""

from vmr import USAGE, VmrTest

DIGITS = set("0123456789")
UPPER = set("ABCDEFGHJKLMNPQRSTUVWXYZ")
LOWER = set("abcdefghijkmnopqrstuvwxyz")
OTHER = set("~!@#$%^&*()_+|{}:\"<>,.?/\\;'")


class Generate(VmrTest):
    def passwords(self, *options):
        return self.vmr("generate", *options).text.splitlines()

    def test_gives_one_password_of_three_classes_and_usual_length(self):
        (password,) = self.passwords()
        self.assertTrue(12 <= len(password) <= 20)
        for characters in (UPPER, LOWER, DIGITS):
            self.assertTrue(characters & set(password))
        self.assertFalse(set(password) - UPPER - LOWER - DIGITS)

    def test_gives_as_many_as_asked_for_and_no_two_alike(self):
        passwords = self.passwords("--count", "200")
        self.assertEqual(len(set(passwords)), 200)

    def test_uses_the_classes_that_are_named_and_no_other(self):
        classes = {"--upper": UPPER, "--lower": LOWER, "--digits": DIGITS, "--other": OTHER}
        for option, characters in classes.items():
            letters = set("".join(self.passwords(option, "--count", "50")))
            self.assertTrue(letters <= characters, option)
        mixed = set("".join(self.passwords("--digits", "--other", "--count", "50")))
        self.assertTrue(mixed <= DIGITS | OTHER and mixed & DIGITS and mixed & OTHER)

    def test_every_named_class_is_in_every_password(self):
        options = ["--min", "4", "--max", "4", "--upper", "--lower", "--digits", "--other", "--count", "50"]
        for password in self.passwords(*options):
            for characters in (UPPER, LOWER, DIGITS, OTHER):
                self.assertEqual(len(characters & set(password)), 1, password)

    def test_keeps_to_the_lengths(self):
        lengths = {len(word) for word in self.passwords("--min", "6", "--max", "9", "--count", "300")}
        self.assertEqual(lengths, {6, 7, 8, 9})

    def test_the_length_that_is_not_given_gives_way(self):
        self.assertEqual({len(word) for word in self.passwords("--max", "8", "--count", "50")}, {8})
        self.assertEqual({len(word) for word in self.passwords("--min", "40", "--count", "50")}, {40})

    def test_takes_the_shortest_for_a_longest_below_it(self):
        self.assertEqual({len(word) for word in self.passwords("--min", "20", "--max", "12", "--count", "9")}, {20})

    def test_takes_lengths_out_of_range_as_the_nearest(self):
        self.assertEqual([len(word) for word in self.passwords("--min", "0", "--max", "1")], [4])
        self.assertEqual([len(word) for word in self.passwords("--min", "500", "--max", "501")], [128])

    def test_prints_json(self):
        content = self.vmr("generate", "--json", "--count", "3").json
        self.assertEqual(content["version"], 1)
        self.assertEqual(len(content["passwords"]), 3)

    def test_refuses_what_is_no_number(self):
        for options in (["--min", "x"], ["--max", "-1"], ["--count", "0"], ["--count", "many"], ["--min", "5x"]):
            self.vmr("generate", *options, code=USAGE)

    def test_takes_no_argument(self):
        self.vmr("generate", "12", code=USAGE)


class GenerateForAnItem(VmrTest):
    def password_of(self, file, name):
        return self.on("get", file, name, "password", "-n").text

    def test_add_stores_a_password_and_does_not_print_it(self):
        file = self.sample()
        run = self.on("add", file, "New", "--generate", "--min", "30", "--max", "30", "--lower")
        self.assertEqual(run.out + run.err, b"")
        password = self.password_of(file, "New")
        self.assertEqual(len(password), 30)
        self.assertTrue(set(password) <= LOWER)

    def test_set_stores_a_password(self):
        file = self.sample()
        run = self.on("set", file, "Bank", "password", "--generate", "--digits")
        self.assertEqual(run.out + run.err, b"")
        self.assertTrue(set(self.password_of(file, "Bank")) <= DIGITS)

    def test_set_generates_for_passwords_only(self):
        file = self.sample()
        before = file.read_bytes()
        self.on("set", file, "Bank", "username", "--generate", code=USAGE)
        self.assert_unchanged(file, before)

    def test_excludes_other_sources(self):
        file = self.sample()
        before = file.read_bytes()
        self.on("set", file, "Bank", "password", "--generate", "--stdin", code=USAGE)
        self.on("set", file, "Bank", "password", "--generate", "--value-file", self.master, code=USAGE)
        self.on("set", file, "Bank", "password", "value", "--generate", code=USAGE)
        self.on("add", file, "New", "--generate", "--secret-stdin", code=USAGE)
        self.on("add", file, "New", "--generate", "--secret-file", self.master, code=USAGE)
        self.assert_unchanged(file, before)

    def test_its_options_are_of_no_use_alone(self):
        file = self.sample()
        for options in (["--min", "5"], ["--max", "5"], ["--upper"], ["--lower"], ["--digits"], ["--other"]):
            self.on("add", file, "New", *options, code=USAGE)
            self.on("set", file, "Bank", "password", "--stdin", *options, code=USAGE)

    def test_looks_at_the_lengths_before_the_file(self):
        self.on("add", self.path("none.vmr"), "New", "--generate", "--min", "x", code=USAGE)
        self.on("set", self.path("none.vmr"), "Bank", "password", "--generate", "--max", "x", code=USAGE)
