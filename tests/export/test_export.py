"""Exported tables, read back by other programs' readers: Python's for CSV, html5lib for HTML.

Run as: VMR=build/linux/bin/vmr python3 -m unittest discover -s tests/export
"""

import csv
import io
import sys
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[1] / "cli"))

# pylint: disable=wrong-import-position
from vmr import SECRET, VmrTest, entry, item  # noqa: E402

try:
    import html5lib
except ImportError:  # a Python beside the system's own, which has it as a package
    sys.path.append("/usr/lib/python3/dist-packages")
    import html5lib

LABELS = ["", "Program, document or url:", "Username:", "Password:", "Additional entries:"]

NASTY = [
    "",
    '"',
    '""',
    '","',
    '"\r\n"',
    "a,b;c\td",
    "  blanks  ",
    "it's",
    "<b>bold</b>",
    "</td></tr></table>",
    "<script>alert(1)</script>",
    "<!-- no comment -->",
    "&amp;",
    "&lt;&#60;&quot",
    "&",
    "<>&\"'",
    "two\r\nlines",
    "\r\nfirst and last empty\r\n",
    "line feed\nalone",
    "Grüße, Ελλάδα, Привет, 東京",
    "\U0001f511 key \U0001d11e",
    "e\u0301 \u200b\u202e\u2028",
    "=1+1",
    "\uffffname\uffff",
    "name prog uname pwd note",
    "%0 %title% {note} \\n $1",
    "x" * 65535,
    '"' * 20000,
    "<" * 20000,
]


def joined(notes, separator):
    """One cell of all additional entries: a separator only behind what isn't empty."""
    note = ""
    for text in notes:
        note += (separator if note else "") + text
    return note


def row_of(one, separator="\r\n"):
    """The cells of an item."""
    texts = {type_: "" for type_ in (3, 4, 5)}
    filled = set()
    for part in one["entries"]:
        if part["type"] in texts and part["type"] not in filled:
            filled.add(part["type"])
            texts[part["type"]] = part["text"]
    notes = [part["text"] for part in one["entries"] if part["type"] == 6]
    return [one["name"], texts[3], texts[4], texts[5], joined(notes, separator)]


def as_html_reads(text):
    """Every line end is one line feed."""
    return text.replace("\r\n", "\n").replace("\r", "\n")


def cells_of(document):
    """The texts of all cells row by row. A `br` counts as a mark, so that it's told from a line end."""
    html = "{http://www.w3.org/1999/xhtml}"
    rows = []
    for row in document.iter(html + "tr"):
        cells = []
        for cell in row:
            assert cell.tag == html + "td", cell.tag
            text = cell.text or ""
            for child in cell:
                assert child.tag == html + "br", child.tag
                text += "<br>" + (child.tail or "")
            cells.append(text)
        rows.append(cells)
    return rows


class ReadBack(VmrTest):
    """Each nasty text in each cell, and all of them beside each other."""

    def setUp(self):
        super().setUp()
        self.items = []
        for number, text in enumerate(NASTY):
            other = NASTY[(number + 7) % len(NASTY)]
            self.items.append(item(text or "unnamed", other, text, text, [text, other]))
        self.items += [
            item("quotes", 'a"b', '"', SECRET, ['"', "", '"']),
            item("notes", notes=["", "", "a", "", "b", ""]),
            item("nothing"),
            {**item("no entries"), "entries": []},
            {
                **item("twice"),
                "entries": [
                    entry(5, "p1"),
                    entry(6, "n1"),
                    entry(3, ""),
                    entry(4, "u1"),
                    entry(3, "late"),
                    entry(6, "n2"),
                    entry(5, "p2"),
                ],
            },
        ]

    def exported(self, name, title):
        file = self.make(*self.items, name=title)
        self.on("export", file, self.path(name))
        return self.path(name).read_bytes()

    def check_rows(self, rows, expected):
        self.assertEqual(len(rows), len(expected))
        for number, (row, want) in enumerate(zip(rows, expected)):
            self.assertEqual(len(row), 5, f"row {number}")
            for column in range(5):
                self.assertTrue(row[column] == want[column], f"row {number}, column {column}")

    def test_csv(self):
        content = self.exported("out.csv", "Title, with a comma")
        self.assertTrue(content.startswith(b"\xef\xbb\xbf"))
        text = content[3:].decode("utf-8")
        csv.field_size_limit(1 << 24)
        rows = list(csv.reader(io.StringIO(text, newline=""), strict=True))
        self.check_rows(rows[:2], [["Title, with a comma", "", "", "", ""], LABELS])
        self.check_rows(rows[2:], [row_of(one) for one in self.items])

    def test_html(self):
        title = "Title <with> \"marks\" & 'more' \U0001f511"
        content = self.exported("out.html", title)
        self.assertTrue(content.startswith(b"<!DOCTYPE html>\r\n<html>"))
        parser = html5lib.HTMLParser()
        document = parser.parse(content)
        self.assertEqual(parser.documentEncoding, "utf-8")
        titles = [one.text for one in document.iter("{http://www.w3.org/1999/xhtml}title")]
        self.assertEqual(titles, [title])
        errors = {code for _, code, _ in parser.errors} - {"invalid-codepoint"}
        self.assertEqual(errors, set())
        rows = cells_of(document)
        self.assertEqual(rows[0], [title])
        self.check_rows(rows[1:2], [LABELS])
        wanted = [[as_html_reads(cell) for cell in row_of(one, "<br>\r\n")] for one in self.items]
        self.check_rows(rows[2:], wanted)
