"""A sample for each command with each of its long options, and for each exit code.

The samples are held against what the program itself lists: an option without a sample fails the test, and so
does a sample whose option is gone.
"""

import json
import re
import shutil

from fake_clipboard import give_clipboard
from test_theme import theme
from vmr import MASTER, REPOSITORY, SECRET, VmrTest, item

# Words that stand for a path of the test are written in capitals; see setUp.
VALUES = {
    "--codepage": "1252",
    "--count": "2",
    "--max": "30",
    "--min": "5",
    "--mode": "any",
    "--name": "x",
    "--new-password-file": "NEW",
    "--note": "text",
    "--password-file": "MASTER",
    "--program": "p",
    "--search": "Bank",
    "--secret-file": "SECRET",
    "--sort": "az",
    "--timeout": "1",
    "--username": "u",
    "--value-file": "SECRET",
}

COMMON = ["--no-input", "--codepage"]
OPENING = ["--password-stdin", "--password-file"]
READING = [*OPENING, "--json"]
CLASSES = ["--min", "--max", "--upper", "--lower", "--digits", "--other"]

# command -> arguments, options that each sample has unless it is about them, all options besides the common
COMMANDS = {
    "new": (["OUT"], ["--password-file", "--name"], [*OPENING, "--name", "--force"]),
    "info": (["SAMPLE"], ["--password-file"], READING),
    "ls": (["SAMPLE"], ["--password-file"], [*READING, "--null", "--search", "--mode", "--in-passwords", "--sort"]),
    "show": (["SAMPLE", "Bank"], ["--password-file"], [*READING, "--reveal"]),
    "get": (["SAMPLE", "Bank", "name"], ["--password-file"], [*READING, "--no-newline"]),
    "add": (
        ["SAMPLE", "x"],
        ["--password-file"],
        [*OPENING, "--program", "--username", "--note", "--secret-stdin", "--secret-file", "--generate", *CLASSES],
    ),
    "set": (
        ["SAMPLE", "Bank", "password"],
        ["--password-file"],
        [*OPENING, "--stdin", "--value-file", "--generate", *CLASSES],
    ),
    "rm": (["SAMPLE", "Bank"], ["--password-file"], OPENING),
    "move": (["SAMPLE", "Bank", "down"], ["--password-file"], OPENING),
    "merge": (["SAMPLE", "Bank", "Mail"], ["--password-file"], OPENING),
    "rename": (["SAMPLE", "x"], ["--password-file"], OPENING),
    "passwd": (["SAMPLE"], ["--password-file", "--new-password-file"], [*OPENING, "--new-password-file"]),
    "export": (["SAMPLE", "OUT"], ["--password-file"], OPENING),
    "convert": (
        ["OLD", "OUT"],
        ["--password-file", "--new-password-file"],
        [*OPENING, "--new-password-file", "--force"],
    ),
    "dump": (["SAMPLE"], ["--password-file"], READING),
    "load": (["JSON", "OUT"], ["--password-file"], [*OPENING, "--force"]),
    "generate": ([], [], ["--json", "--count", *CLASSES]),
    "clip": (["SAMPLE", "Bank", "username"], ["--password-file", "--timeout"], [*OPENING, "--timeout"]),
    "theme check": (["THEME"], [], ["--json"]),
    "theme show": (["THEME"], [], ["--json"]),
    "lang check": (["LANGUAGE"], [], ["--json"]),
    "lang dump": (["LANGUAGE"], [], ["--json"]),
    "lang text": (["LANGUAGE", "global", "ok"], [], ["--json"]),
}

# exit code -> arguments; 130 needs a terminal and stands with the prompts
CODES = {
    0: ["ls", "--password-file", "MASTER", "SAMPLE"],
    1: ["move", "--password-file", "MASTER", "SAMPLE", "@1", "up"],
    2: ["nosuch"],
    3: ["get", "--password-file", "MASTER", "SAMPLE", "none", "name"],
    4: ["ls", "--password-file", "MASTER", "OUT"],
    5: ["ls", "--password-file", "MASTER", "SECRET"],
    6: ["ls", "--password-file", "NEW", "SAMPLE"],
    7: ["set", "--password-file", "MASTER", "--value-file", "LONG", "SAMPLE", "Bank", "program"],
    8: ["lang", "check", "INCOMPLETE"],
}


def sample_of(command, option):
    """Arguments and standard input of a run of the command with the option."""
    arguments, needed, _ = COMMANDS[command]
    chosen = [*needed, option] if option not in needed else list(needed)
    stdin = ""
    if command in ("add", "set") and option in CLASSES:
        chosen.append("--generate")
    elif command == "set" and option not in ("--stdin", "--value-file", "--generate"):
        chosen.append("--value-file")
    if option == "--password-stdin":
        chosen.remove("--password-file")
        stdin = "alt" if command == "convert" else MASTER
    if option in ("--stdin", "--secret-stdin"):
        stdin = SECRET
    words = [word for name in chosen for word in ([name, VALUES[name]] if name in VALUES else [name])]
    return [*command.split(), *words, *arguments], stdin


def long_options(text):
    return set(re.findall(r"(?<![\w-])--[a-z][a-z-]*", text))


class EveryOption(VmrTest):
    def setUp(self):
        super().setUp()
        give_clipboard(self)
        self.places = {
            "MASTER": self.master,
            "NEW": self.new_master,
            "SECRET": self.write("secret", SECRET),
            "LONG": self.write("long", "x" * 65536),
            "INCOMPLETE": self.write("incomplete.ini", "[global]\nok = OK\n"),
            "JSON": self.write("a.json", json.dumps({"version": 1, "name": "x", "items": [item("a")]})),
            "OLD": self.path("old.vmr"),
            "OUT": self.path("out"),
            "LANGUAGE": REPOSITORY / "resources" / "english.ini",
            "THEME": self.write("theme.ini", theme()),
        }
        shutil.copyfile(REPOSITORY / "tests" / "data" / "database" / "old-long.vmr", self.places["OLD"])

    def placed(self, args):
        return [self.places.get(arg, arg) for arg in args]

    def options_line(self, text):
        """The options as the help lists them, one a line."""
        return "\n".join(re.findall(r"(?m)^  (?:-\w, )?--[a-z-]+", text))

    def test_every_command_has_samples(self):
        text = self.vmr("--help").text
        block = re.search(r"(?ms)^commands:\n(.*?)^\S", text, re.IGNORECASE).group(1)
        listed = re.findall(r"(?m)^  ([a-z]+(?: [a-z]+)?)(?:  |$)", block)
        self.assertEqual(sorted(listed), sorted(COMMANDS))

    def test_every_option_has_a_sample(self):
        for command, (_, _, options) in COMMANDS.items():
            listed = long_options(self.options_line(self.vmr(*command.split(), "--help").text))
            self.assertEqual(listed, {*options, *COMMON, "--help"}, command)

    def test_every_sample_does_its_work(self):
        master = self.master.read_bytes()
        for command, (_, _, options) in COMMANDS.items():
            for option in [*options, *COMMON]:
                with self.subTest(f"{command} {option}"):
                    self.path("out").unlink(missing_ok=True)
                    self.places["SAMPLE"] = self.sample()
                    args, stdin = sample_of(command, option)
                    self.assertIn(option, args)
                    self.master.write_bytes(b"alt" if command == "convert" else master)
                    self.vmr(*self.placed(args), stdin=stdin)
                    self.master.write_bytes(master)

    def test_every_exit_code_comes_about(self):
        listed = re.findall(r"(?m)^ *(\d+)\b", self.vmr("--exit-codes").text)
        self.assertEqual([int(code) for code in listed], [*CODES, 130])
        self.places["SAMPLE"] = self.sample()
        for code, args in CODES.items():
            self.path("out").unlink(missing_ok=True)
            self.vmr(*self.placed(args), code=code)
