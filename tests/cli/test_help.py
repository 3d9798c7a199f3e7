"""`--help`, `--version`, `--exit-codes`, `--man`, and what is said of a wrong command line."""

import re

from vmr import USAGE, VmrTest

COMMANDS = [
    *([word] for word in "new info ls show get add set rm move merge rename".split()),
    *([word] for word in "passwd export convert dump load".split()),
    *(["lang", word] for word in ("check", "dump", "text")),
]
CODES = [0, 1, 2, 3, 4, 5, 6, 7, 8, 130]


class Help(VmrTest):
    def test_lists_the_commands(self):
        text = self.vmr("--help").text
        for command in COMMANDS:
            self.assertRegex(text, rf"(?m)^ +{' '.join(command)}\b")

    def test_of_each_command_names_it(self):
        for command in COMMANDS:
            run = self.vmr(*command, "--help")
            self.assertIn(f"vmr {' '.join(command)}", run.text)
            self.assertEqual(run.err, b"")

    def test_is_one_with_the_short_option(self):
        self.assertEqual(self.vmr("-h").text, self.vmr("--help").text)

    def test_fits_a_terminal(self):
        for args in [["--help"], ["--exit-codes"], *([*command, "--help"] for command in COMMANDS)]:
            for line in self.vmr(*args).text.splitlines():
                self.assertLessEqual(len(line), 100, line)

    def test_names_no_way_to_give_a_secret_as_an_argument(self):
        for command in COMMANDS:
            options = re.findall(r"--[a-z-]+", self.vmr(*command, "--help").text)
            self.assertFalse({"--password", "--secret", "--master", "--new-password"} & set(options))


class ProgramOptions(VmrTest):
    def test_version(self):
        run = self.vmr("--version")
        self.assertEqual(run.text, "vmr 2.0.0\n")

    def test_exit_codes(self):
        lines = self.vmr("--exit-codes").text.splitlines()
        self.assertEqual([int(line.split()[0]) for line in lines if line.split()[0].isdigit()], CODES)

    def test_man(self):
        page = self.vmr("--man").text
        self.assertTrue(page.startswith(".TH"))
        plain = page.replace("\\-", "-").replace("\\fB", "").replace("\\fR", "")
        names = [" ".join(command) for command in COMMANDS]
        for word in (*names, "--password-stdin", "--new-password-file", "--no-input", "130"):
            self.assertIn(word, plain)

    def test_man_tells_what_help_tells(self):
        plain = self.vmr("--man").text.replace("\\-", "-")
        for command in COMMANDS:
            for option in re.findall(r"--[a-z][a-z-]+", self.vmr(*command, "--help").text):
                self.assertIn(option, plain)


class WrongUsage(VmrTest):
    def wrong(self, *args):
        run = self.vmr(*args, code=USAGE)
        self.assertEqual(run.out, b"")
        return run

    def test_of_no_command(self):
        self.wrong()

    def test_of_an_unknown_command(self):
        self.assertIn("nosuch", self.wrong("nosuch").message)

    def test_of_an_unknown_option(self):
        for command in COMMANDS:
            self.wrong(*command, "--nosuch")
        self.wrong("--nosuch")

    def test_of_missing_arguments(self):
        for command in COMMANDS:
            self.wrong(*command)

    def test_of_arguments_too_many(self):
        file = self.sample()
        for command in (["ls"], ["info"], ["dump"], ["rename", "a"], ["show", "a"], ["get", "a", "name"]):
            self.wrong(command[0], "--password-file", self.master, file, *command[1:], "surplus")

    def test_of_an_option_without_its_value(self):
        self.wrong("ls", "a.vmr", "--password-file")

    def test_of_a_password_option_given_twice(self):
        args = ["--password-file", self.master, "--password-file", self.master]
        self.wrong("ls", *args, self.sample())
