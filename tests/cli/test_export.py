"""`export`: which format a file's name chooses, and what is in it."""

import csv
import io
from html.parser import HTMLParser

from vmr import FILE_FAILED, SECRET, VmrTest, item


class Cells(HTMLParser):
    """Collects the texts of the table's cells, row by row."""

    def __init__(self):
        super().__init__()
        self.rows = []
        self.inside = False

    def handle_starttag(self, tag, attrs):
        if tag == "tr":
            self.rows.append([])
        if tag == "td":
            self.rows[-1].append("")
        self.inside = self.inside or tag == "td"

    def handle_endtag(self, tag):
        self.inside = self.inside and tag != "td"

    def handle_data(self, data):
        if self.inside:
            self.rows[-1][-1] += data


ROW = ["Bänk \"1\"", "a,b", "<erika> & 'co'", SECRET, ["first", "second"]]
LABELS = ["", "Program, document or url:", "Username:", "Password:", "Additional entries:"]


class Export(VmrTest):
    def export(self, out, *args, **how):
        file = self.make(item(*ROW), name="Title ä", file=f"{len(list(self.folder.iterdir()))}.vmr")
        self.assertEqual(self.on("export", file, self.path(out), *args, **how).out, b"")
        return self.path(out).read_bytes()

    def test_of_csv(self):
        content = self.export("out.csv")
        self.assertEqual(content[:3], b"\xef\xbb\xbf")
        rows = list(csv.reader(io.StringIO(content[3:].decode("utf-8"), newline="")))
        self.assertEqual(rows[0], ["Title ä", "", "", "", ""])
        self.assertEqual(rows[1:], [LABELS, [*ROW[:4], "first\r\nsecond"]])

    def test_of_html(self):
        content = self.export("out.html").decode("utf-8")
        self.assertTrue(content.startswith("<!DOCTYPE html>\r\n"))
        self.assertTrue(content.endswith("</html>"))
        cells = Cells()
        cells.feed(content)
        self.assertEqual(cells.rows, [["Title ä"], LABELS, [*ROW[:4], "first\r\nsecond"]])

    def test_the_file_name_chooses_the_format(self):
        for name in ("a.htm", "b.html", "c.HTM", "d.Html", "e.csv.html"):
            self.assertTrue(self.export(name).startswith(b"<!DOCTYPE"), name)
        for name in ("f.csv", "g.txt", "h", "html", "i.html.csv", "j.htmlx"):
            self.assertTrue(self.export(name).startswith(b"\xef\xbb\xbf\"Title"), name)

    def test_of_no_items(self):
        file = self.make(name="none")
        self.on("export", file, self.path("out.csv"))
        self.assertEqual(len(self.path("out.csv").read_bytes().splitlines()), 2)

    def test_replaces_an_older_one(self):
        out = self.write("out.csv", "older" * 1000)
        self.on("export", self.sample(), out)
        self.assertIn(SECRET.encode(), out.read_bytes())
        self.assertNotIn(b"older", out.read_bytes())

    def test_onto_the_database_itself_is_refused(self):
        file = self.sample()
        before = file.read_bytes()
        self.on("export", file, file, code=FILE_FAILED)
        self.assert_unchanged(file, before)

    def test_onto_a_folder_is_a_failure(self):
        folder = self.path("out.csv")
        folder.mkdir()
        self.on("export", self.sample(), folder, code=FILE_FAILED)

    def test_leaves_the_database(self):
        file = self.sample()
        before = file.read_bytes()
        self.on("export", file, self.path("out.csv"))
        self.assert_unchanged(file, before)
