"""Two processes and one file."""

import fcntl
import subprocess

from terminal import Terminal
from vmr import FILE_FAILED, MASTER, VmrTest, command_line, environment, item


def is_locked(file):
    with open(file, "rb") as probe:
        try:
            fcntl.flock(probe, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            return True
    return False


class LockedFile(VmrTest):
    def assert_refused(self, file):
        before = file.read_bytes()
        for command in (["ls"], ["add", "x"], ["dump"], ["rename", "x"]):
            run = self.on(command[0], file, *command[1:], code=FILE_FAILED)
            self.assertEqual(run.out, b"")
            self.assertIn("in use", run.message)
        self.assert_unchanged(file, before)

    def test_by_a_program_that_holds_it_alone(self):
        file = self.sample()
        with open(file, "rb") as other:
            fcntl.flock(other, fcntl.LOCK_EX)
            self.assert_refused(file)
        self.on("ls", file)

    def test_by_a_program_that_shares_it(self):
        file = self.sample()
        with open(file, "rb") as other:
            fcntl.flock(other, fcntl.LOCK_SH)
            self.assert_refused(file)

    def test_is_not_replaced_when_forced(self):
        file = self.sample()
        before = file.read_bytes()
        with open(file, "rb") as other:
            fcntl.flock(other, fcntl.LOCK_EX)
            self.on("new", file, "--name", "x", "--force", code=FILE_FAILED)
        self.assert_unchanged(file, before)

    def test_is_not_exported_into(self):
        file = self.sample()
        out = self.write("out.csv", "precious")
        with open(out, "rb") as other:
            fcntl.flock(other, fcntl.LOCK_EX)
            self.on("export", file, out, code=FILE_FAILED)
        self.assertEqual(out.read_bytes(), b"precious")


class TwoRuns(VmrTest):
    def test_the_second_is_refused_while_the_first_has_the_file_open(self):
        file = self.make(*(item(f"item {n}", "x" * 500) for n in range(1000)))
        first = subprocess.Popen(
            command_line(["dump", "--password-file", self.master, file]),
            stdout=subprocess.PIPE,
            env=environment(),
        )
        with first:
            first.stdout.read(1)  # the rest is more than a pipe holds
            self.on("ls", file, code=FILE_FAILED)
            first.stdout.read()
        self.assertEqual(first.returncode, 0)
        self.on("ls", file)

    def test_one_that_waits_for_a_password_holds_nothing(self):
        file = self.sample()
        terminal = Terminal(self.folder, command_line(["ls", file]))
        self.addCleanup(terminal.close)
        terminal.expect_prompt()
        self.assertFalse(is_locked(file))
        self.on("add", file, "new")
        terminal.type(MASTER + "\n")
        self.assertEqual(terminal.finish().text, "Bank\nEmpty\nMail\nnew\n")
