"""`dump` prints everything, and `load` makes a database of it again: each is the other's inverse."""

import json

from vmr import (
    DATE,
    FILE_FAILED,
    LIMIT,
    MASTER,
    NOT_A_DATABASE,
    SECRET,
    VmrTest,
    entry,
    item,
    without_modified,
)


class RoundTrip(VmrTest):
    def assert_survives(self, *items, name="Sample"):
        file = self.make(*items, name=name)
        self.assertEqual(
            without_modified(self.dump(file)), {"version": 1, "name": name, "items": list(items)}
        )

    def assert_text_survives(self, text):
        self.assert_survives(item(text, text, text, text, [text, text]), name=text)

    def test_of_a_sample(self):
        self.assert_survives(item("a", "b", "c", SECRET, ["d", "e\r\nf"]), item("g"))

    def test_of_letters_outside_ascii(self):
        self.assert_text_survives("Größe Ελλάδα 東京 a\u0308 \u200b \ufeff")

    def test_of_letters_outside_the_basic_plane(self):
        self.assert_text_survives("🔑 \U0010ffff")

    def test_of_lone_surrogates(self):
        self.assert_text_survives("a\ud800b \udc00 \udfff\udbff c\udc00\ud800")
        self.assert_text_survives("\ud83d")

    def test_of_zero_units(self):
        self.assert_text_survives("\0")
        self.assert_text_survives("a\0b\0")

    def test_of_units_that_are_no_characters(self):
        self.assert_text_survives("\uffff \ufffe \ufdd0 \x7f \x80 \x9f")

    def test_of_control_characters(self):
        self.assert_text_survives("".join(map(chr, range(1, 32))) + "x")

    def test_of_quotes_and_backslashes(self):
        self.assert_text_survives("\"quoted\" \\u0041 \\ / '")

    def test_of_line_breaks_at_both_ends(self):
        self.assert_text_survives("\r\n\nx\n\r")

    def test_of_the_longest_text(self):
        self.assert_survives(item("a", notes=["x" * 65535]), item("y" * 65535), name="z" * 65535)

    def test_of_a_text_longest_in_units(self):
        self.assert_survives(item("a", notes=["🔑" * 32767 + "x"]))

    def test_of_empty_texts(self):
        self.assert_survives(item(""), name="")

    def test_of_entries_in_any_order_and_number(self):
        odd = [entry(6, "n"), entry(5, "s"), entry(5, "t"), entry(6, ""), entry(3, "p")]
        self.assert_survives(
            {"name": "odd", "date": DATE, "entries": odd}, {"name": "bare", "date": DATE, "entries": []}
        )

    def test_of_dates(self):
        for date in ("0x0000000000000000", "0xffffffffffffffff", "0x8000000000000000", "0x0000000000000001"):
            self.assert_survives(item("a", date=date))

    def test_of_many_items(self):
        self.assert_survives(*(item(f"item {n}", f"p{n}", f"u{n}", f"s{n}") for n in range(2000)))

    def test_of_the_text_itself(self):
        first = self.sample()
        text = self.on("dump", first).text
        second = self.path("second.vmr")
        self.on("load", self.write("dump.json", text), second)
        self.assertEqual(self.on("dump", second).text, text)


class Dump(VmrTest):
    def test_has_version_name_and_items(self):
        content = self.dump(self.sample())
        self.assertEqual(list(content), ["version", "name", "items"])
        self.assertEqual(content["version"], 1)
        self.assertEqual(list(content["items"][0]), ["name", "date", "modified", "entries"])
        self.assertEqual(list(content["items"][0]["entries"][0]), ["type", "text"])

    def test_modified_is_the_date_made_readable(self):
        file = self.make(item("a", date="0x01db000000000000"))
        self.assertRegex(self.dump(file)["items"][0]["modified"], r"^2024-09-06T01:56:33(\.\d+)?$")

    def test_writes_lone_surrogates_as_escapes(self):
        text = self.on("dump", self.make(item("a\ud800b"))).text
        self.assertIn("a\\ud800b", text.lower())

    def test_ends_in_a_line_end(self):
        self.assertTrue(self.on("dump", self.sample()).text.endswith("}\n"))

    def test_takes_json_as_said(self):
        file = self.sample()
        self.assertEqual(self.on("dump", file).out, self.on("dump", file).out)

    def test_says_nothing_on_standard_error(self):
        self.assertEqual(self.on("dump", self.sample()).err, b"")


class Load(VmrTest):
    def load(self, content, code=0):
        text = content if isinstance(content, (str, bytes)) else json.dumps(content)
        file = self.path("loaded.vmr")
        run = self.on("load", "--force", self.write("in.json", text), file, code=code)
        self.assertEqual(run.out, b"")
        return file

    def refused(self, content, code=NOT_A_DATABASE):
        text = content if isinstance(content, (str, bytes)) else json.dumps(content)
        file = self.path("refused.vmr")
        self.on("load", self.write("in.json", text), file, code=code)
        self.assertFalse(file.exists())

    def test_reads_standard_input(self):
        file = self.path("a.vmr")
        text = json.dumps({"version": 1, "name": "x", "items": [item("a")]})
        self.on("load", "-", file, stdin=text)
        self.assertEqual(self.names(file), ["a"])

    def test_reads_the_password_before_the_data(self):
        file = self.path("a.vmr")
        text = json.dumps({"version": 1, "name": "x", "items": [item("a")]})
        self.vmr("load", "--password-stdin", "-", file, stdin=f"{MASTER}\n{text}")
        self.assertEqual(self.names(file), ["a"])

    def test_needs_no_readable_date(self):
        content = {"version": 1, "name": "x", "items": [{"name": "a", "date": DATE, "entries": []}]}
        self.assertEqual(self.dump(self.load(content))["items"][0]["date"], DATE)

    def test_takes_the_readable_date_for_want_of_the_other(self):
        for modified, date in (
            ("2024-09-06T00:25:41", "0x01dafff34de77080"),
            ("2024-09-06T00:25:41.5", "0x01dafff34e33bbc0"),
            ("1601-01-01T00:00:00.0000001", "0x0000000000000001"),
        ):
            one = {"name": "a", "modified": modified, "entries": []}
            file = self.load({"version": 1, "name": "x", "items": [one]})
            self.assertEqual(self.dump(file)["items"][0]["date"], date)

    def test_dates_an_item_without_a_date_with_the_present(self):
        file = self.load({"version": 1, "name": "x", "items": [{"name": "a", "entries": []}]})
        self.assertGreater(self.dump(file)["items"][0]["date"], DATE)

    def test_refuses_a_readable_date_that_is_none(self):
        for modified in ("2024-09-06", "2024-02-30T00:00:00", "2024-09-06T25:00:00", "1600-01-01T00:00:00"):
            one = {"name": "a", "modified": modified, "entries": []}
            self.refused({"version": 1, "name": "x", "items": [one]})

    def test_reads_a_mark_of_utf_8(self):
        text = json.dumps({"version": 1, "name": "x", "items": []})
        self.assertEqual(self.dump(self.load(b"\xef\xbb\xbf" + text.encode()))["name"], "x")

    def test_reads_plain_letters_as_well_as_escapes(self):
        text = '{"version":1,"name":"ä🔑\\u00e4\\ud83d\\udd11","items":[]}'
        self.assertEqual(self.dump(self.load(text))["name"], "ä🔑ä🔑")

    def test_refuses_what_is_no_json(self):
        for text in ("", "{", "no json", '{"version":1,"name":"x","items":[]} x', b"\xff\xfe{}"):
            with self.subTest(text):
                self.refused(text)

    def test_refuses_bytes_that_are_no_utf_8(self):
        self.refused(b'{"version":1,"name":"\xff","items":[]}')

    def test_refuses_another_version(self):
        for version in (0, 2, "1", None):
            self.refused({"version": version, "name": "x", "items": []})
        self.refused({"name": "x", "items": []})

    def test_refuses_what_is_missing_or_of_another_kind(self):
        good = item("a")
        for items in (
            {}, "x", 1, [1], [{}],
            [{**good, "name": 1}], [{**good, "date": 5}], [{**good, "date": "x"}],
            [{**good, "date": "0x"}], [{**good, "date": DATE + "0"}], [{**good, "date": "0x00zz"}],
            [{**good, "entries": {}}], [{**good, "entries": [{}]}],
            [{**good, "entries": [entry("3", "x")]}], [{**good, "entries": [entry(3, 1)]}],
            [{**good, "entries": [entry(3.5, "x")]}],
        ):  # fmt: skip
            with self.subTest(str(items)):
                self.refused({"version": 1, "name": "x", "items": items})
        self.refused({"version": 1, "name": 1, "items": []})
        self.refused([])

    def test_refuses_types_that_are_no_entries(self):
        for type_ in (-1, 0, 1, 2, 7, 8, 65539, 1 << 40):
            with self.subTest(type_):
                items = [{"name": "a", "date": DATE, "entries": [entry(type_, "x")]}]
                self.refused({"version": 1, "name": "x", "items": items})

    def test_refuses_a_text_too_long(self):
        long = "x" * 65536
        for content in (
            {"version": 1, "name": long, "items": []},
            {"version": 1, "name": "x", "items": [item(long)]},
            {"version": 1, "name": "x", "items": [item("a", notes=["🔑" * 32768])]},
        ):
            self.refused(content, code=LIMIT)

    def test_refuses_a_database_that_the_format_cannot_hold(self):
        self.refused({"version": 1, "name": "", "items": []}, code=LIMIT)

    def test_does_not_tell_what_it_found(self):
        self.refused(json.dumps({"version": 1, "name": "x", "items": [item("a", password=SECRET)]})[:-4])
        bad = {"name": "a", "date": DATE, "entries": [entry(9, SECRET)]}
        self.refused({"version": 1, "name": "x", "items": [bad]})

    def test_refuses_deep_nesting(self):
        self.refused("[" * 100000)

    def test_never_overwrites(self):
        file = self.sample()
        before = file.read_bytes()
        source = self.write("in.json", json.dumps({"version": 1, "name": "x", "items": []}))
        self.on("load", source, file, code=FILE_FAILED)
        self.assert_unchanged(file, before)
        self.on("load", "--force", source, file)
        self.assertEqual(self.dump(file)["name"], "x")

    def test_says_if_there_is_no_such_json(self):
        self.on("load", self.path("none.json"), self.path("a.vmr"), code=FILE_FAILED)
        self.assertFalse(self.path("a.vmr").exists())
