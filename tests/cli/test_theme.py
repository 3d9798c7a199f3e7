"""`theme check` and `theme show`: for those who make themes."""

from vmr import DONE, FAILED, FILE_FAILED, FOUND, VmrTest

ROLES = ["base", "border", "border_active", "button", "button_over", "button_push", "button_disable", "text",
         "text_gray", "edit_bg", "link", "icon"]


def theme(name="Mine", version="TVTHEME_1_0", **values):
    """A theme file in which every role is #102030 unless told otherwise; None leaves a role out."""
    roles = {role: values.get(role, "#102030") for role in ROLES}
    lines = ["[colortheme]", f"_version = {version}", f"_name = {name}"]
    return "\n".join(lines + [f"{role} = {value}" for role, value in roles.items() if value is not None]) + "\n"


class ThemeTest(VmrTest):
    def file(self, text, encoding="utf-8-sig"):
        return self.write("mine.ini", text.encode(encoding))


class ThemeShow(ThemeTest):
    def show(self, text, **how):
        return self.vmr("theme", "show", self.file(text), "--json", **how).json

    def test_prints_the_name_and_the_twelve_roles(self):
        content = self.show(theme(name="Größe", link="rgb(1, 0x20, 255)"))
        self.assertEqual(content["version"], 1)
        self.assertEqual(content["name"], "Größe")
        self.assertEqual(list(content["colors"]), ROLES)
        self.assertEqual(content["colors"]["link"], "#0120ff")
        self.assertEqual(content["colors"]["base"], "#102030")

    def test_prints_lines(self):
        lines = self.vmr("theme", "show", self.file(theme(icon="#abc"))).text.splitlines()
        self.assertEqual(lines[0].split(), ["name", "Mine"])
        self.assertEqual([line.split()[0] for line in lines[1:]], ROLES)
        self.assertEqual(lines[-1].split(), ["icon", "#0a0b0c"])

    def test_follows_references(self):
        colors = self.show(theme(base="%icon", icon="%link", link="0x0000FF"))["colors"]
        self.assertEqual((colors["base"], colors["link"]), ("#ff0000", "#ff0000"))

    def test_reads_each_encoding(self):
        for encoding in ("utf-8-sig", "utf-16"):
            run = self.vmr("theme", "show", self.file(theme(name="東京"), encoding), "--json")
            self.assertEqual(run.json["name"], "東京")

    def test_of_a_file_that_is_no_theme(self):
        run = self.vmr("theme", "show", self.file(theme(text=None)), code=FAILED)
        self.assertIn("theme check", run.message)

    def test_of_a_missing_file(self):
        self.vmr("theme", "show", self.path("none.ini"), code=FILE_FAILED)


class ThemeCheck(ThemeTest):
    def findings(self, text, code=FOUND):
        found = self.vmr("theme", "check", self.file(text), "--json", code=code).json["findings"]
        return [(one["line"], one["kind"], one["key"]) for one in found]

    def test_finds_nothing_in_a_good_file(self):
        self.assertEqual(self.findings(theme(base="%icon"), code=DONE), [])
        self.assertEqual(self.vmr("theme", "check", self.file(theme())).out, b"")

    def test_finds_values_that_are_no_colours(self):
        self.assertEqual(self.findings(theme(base="none", border="#12345", link="rgb(1,2)", icon="0x1000000")),
                         [(4, "bad-color", "base"), (5, "bad-color", "border"), (14, "bad-color", "link"),
                          (15, "bad-color", "icon")])

    def test_finds_references_that_lead_nowhere_or_back(self):
        self.assertEqual(self.findings(theme(base="%nosuch", button="%button", text="%link", link="%text")),
                         [(4, "unknown-role", "base"), (7, "cycle", "button"), (11, "cycle", "text"),
                          (14, "cycle", "link")])

    def test_finds_what_is_missing(self):
        self.assertEqual(self.findings(theme(icon=None, base="")),
                         [(4, "missing-key", "base"), (0, "missing-key", "icon")])
        self.assertEqual(self.findings("[colortheme]\n")[:2],
                         [(0, "missing-key", "_version"), (0, "missing-key", "_name")])

    def test_finds_another_version(self):
        self.assertEqual(self.findings(theme(version="TVTHEME_2_0")), [(2, "wrong-version", "_version")])

    def test_finds_what_the_program_takes_no_notice_of(self):
        text = "stray line = 1\n" + theme() + "colour = #fff\nbase = #000\n[other]\nx = 1\n"
        self.assertEqual(self.findings(text), [(1, "bad-line", ""), (17, "unknown-key", "colour"),
                                               (18, "duplicate-key", "base"), (19, "unknown-section", "other")])

    def test_prints_a_line_for_each_finding(self):
        run = self.vmr("theme", "check", self.file(theme(button="#1234")), code=FOUND)
        self.assertRegex(run.text, r"mine\.ini:7: button: is no colour: #1234\n$")

    def test_of_a_missing_file(self):
        self.vmr("theme", "check", self.path("none.ini"), code=FILE_FAILED)
