"""`lang check`, `lang dump`, `lang text`: for those who translate."""

from vmr import DONE, FILE_FAILED, FOUND, NOT_FOUND, REPOSITORY, USAGE, VmrTest

ENGLISH = REPOSITORY / "resources" / "english.ini"


class LangTest(VmrTest):
    def language(self, text, encoding="utf-8-sig"):
        return self.write("deutsch.ini", text.encode(encoding))


class LangDump(LangTest):
    def table(self, text="", **how):
        return self.vmr("lang", "dump", self.language(text, **how)).json

    def test_of_the_english_file_has_each_section(self):
        table = self.vmr("lang", "dump", ENGLISH).json
        sections = [".info", "global", "theme", "file", "search", "moresettings", "shelltype", "statusbar"]
        for section in sections + ["itemlist", "itemdetail", "start", "pwdgen"]:
            self.assertIn(section, table)
        self.assertEqual(table["global"]["ok"], "OK")

    def test_resolves_references(self):
        table = self.vmr("lang", "dump", ENGLISH).json
        self.assertEqual(table["start"]["create"], "Create &New Database...")
        self.assertEqual(table["file"]["needpwd_title"], "&Open Database...")
        self.assertIn("click OK to confirm", table["itemdetail"]["merge_info"])
        self.assertEqual(table["global"]["about"], "About Vaultmere")

    def test_keeps_the_places_of_arguments(self):
        self.assertEqual(self.vmr("lang", "dump", ENGLISH).json["global"]["version"], "Version %0")

    def test_lays_the_file_over_the_built_in_text(self):
        table = self.table("[global]\ncancel = Abbrechen\n")
        self.assertEqual(table["global"]["cancel"], "Abbrechen")
        self.assertEqual(table["global"]["retry"], "&Retry")
        self.assertEqual(table["pwdgen"]["gen"], "&Generate")

    def test_reads_each_encoding(self):
        for encoding in ("utf-8-sig", "utf-16"):
            table = self.table("[global]\ncancel = Größe 東京\n", encoding=encoding)
            self.assertEqual(table["global"]["cancel"], "Größe 東京")

    def test_of_a_missing_file(self):
        self.vmr("lang", "dump", self.path("none.ini"), code=FILE_FAILED)


class LangCheck(LangTest):
    def check(self, text, code=FOUND):
        return self.vmr("lang", "check", self.language(text), code=code)

    def lines_with(self, run, *words):
        printed = (run.text + run.message).splitlines()
        return [line for line in printed if all(word in line for word in words)]

    def test_finds_nothing_in_the_english_file(self):
        run = self.vmr("lang", "check", ENGLISH, code=DONE)
        self.assertEqual(run.out, b"")

    def test_finds_missing_keys(self):
        text = ENGLISH.read_bytes().decode("utf-16").replace("retry = &Retry\r\n", "")
        self.assertTrue(self.lines_with(self.check(text), "global", "retry"))

    def test_finds_unknown_keys_with_their_line(self):
        text = ENGLISH.read_bytes().decode("utf-16").replace("retry =", "nosuchkey = x\r\nretry =")
        line = text.splitlines().index("nosuchkey = x") + 1
        self.assertTrue(self.lines_with(self.check(text), "nosuchkey", str(line)))

    def test_finds_unknown_sections(self):
        text = ENGLISH.read_bytes().decode("utf-16") + "\r\n[nosuchsection]\r\na = b\r\n"
        self.assertTrue(self.lines_with(self.check(text), "nosuchsection"))

    def test_finds_references_to_nothing_with_their_line(self):
        text = ENGLISH.read_bytes().decode("utf-16").replace("yes = &Yes", "yes = %nosuchthing")
        line = text.splitlines().index("yes = %nosuchthing") + 1
        self.assertTrue(self.lines_with(self.check(text), "nosuchthing", str(line)))

    def test_finds_references_to_what_stands_further_down(self):
        text = ENGLISH.read_bytes().decode("utf-16").replace("yes = &Yes", "yes = %abort")
        self.assertTrue(self.lines_with(self.check(text), "abort"))

    def test_prints_json(self):
        text = ENGLISH.read_bytes().decode("utf-16").replace("retry = &Retry\r\n", "")
        run = self.vmr("lang", "check", "--json", self.language(text), code=FOUND)
        self.assertEqual(run.json["version"], 1)
        self.assertIn("retry", run.text)

    def test_of_a_missing_file(self):
        self.vmr("lang", "check", self.path("none.ini"), code=FILE_FAILED)


class LangText(LangTest):
    def text(self, *args, **how):
        return self.vmr("lang", "text", ENGLISH, *args, **how).text

    def test_gives_a_text(self):
        self.assertEqual(self.text("global", "cancel"), "Cancel\n")

    def test_puts_arguments_in(self):
        self.assertEqual(self.text("global", "version", "2.0.0"), "Version 2.0.0\n")
        self.assertEqual(
            self.text("statusbar", "items", "7", "%0", "1"), "Total 7, search result %0, selected 1\n"
        )

    def test_leaves_missing_arguments_empty(self):
        self.assertEqual(self.text("global", "version"), "Version \n")

    def test_finds_a_key_in_any_letter_case(self):
        self.assertEqual(self.text("GLOBAL", "Cancel"), "Cancel\n")

    def test_takes_an_empty_section_for_the_default_one(self):
        self.assertEqual(self.text("", "cancel"), "Cancel\n")

    def test_makes_one_percent_sign_of_two(self):
        language = self.language("[global]\ncancel = 100%% %6 %\n")
        self.assertEqual(self.vmr("lang", "text", language, "global", "cancel").text, "100% %6 %\n")

    def test_of_a_key_that_is_not_there(self):
        self.assertEqual(self.text("global", "nosuchkey", code=NOT_FOUND), "")
        self.assertEqual(self.text("nosuchsection", "ok", code=NOT_FOUND), "")

    def test_takes_six_arguments(self):
        language = self.language("[global]\ncancel = %0%1%2%3%4%5\n")
        args = ["lang", "text", language, "global", "cancel", *"abcdef"]
        self.assertEqual(self.vmr(*args).text, "abcdef\n")
        self.vmr(*args, "g", code=USAGE)

    def test_prints_json(self):
        run = self.vmr("lang", "text", "--json", ENGLISH, "global", "cancel")
        self.assertEqual(run.json["version"], 1)
        self.assertIn("Cancel", run.json.values())


class LangUsage(LangTest):
    def test_needs_one_of_its_commands(self):
        self.vmr("lang", code=USAGE)
        self.vmr("lang", "nosuch", ENGLISH, code=USAGE)
