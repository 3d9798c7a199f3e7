"""Disks that are full, names and arguments that only this system allows."""

import os
import resource
import signal
import subprocess
from pathlib import Path

from vmr import FILE_FAILED, LIMIT, PATIENCE, Result, VmrTest, command_line, environment, item


def files_up_to(size):
    """A disk with room for no more than `size` bytes in a file."""

    def limit():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))

    return limit


class FullDisk(VmrTest):
    def run_limited(self, size, command, file, *args):
        command = [command, "--password-file", self.master, file, *args]
        run = subprocess.run(
            command_line(command),
            capture_output=True,
            preexec_fn=files_up_to(size),
            env=environment(),
            timeout=PATIENCE,
            check=False,
        )
        self.check_result(command, Result(run.returncode, run.stdout, run.stderr), FILE_FAILED)

    def test_leaves_what_could_be_written(self):
        file = self.make(*(item(f"item {n}") for n in range(100)))
        before = file.read_bytes()
        self.run_limited(1000, "add", file, "x")
        after = file.read_bytes()
        self.assertEqual(len(after), 1000)
        self.assertEqual(after[:4], b"VMR2")
        self.assertNotEqual(after[8:40], before[8:40])

    def test_leaves_a_part_of_an_export(self):
        file = self.make(*(item(f"item {n}") for n in range(100)))
        before = file.read_bytes()
        self.run_limited(1000, "export", file, self.path("out.csv"))
        self.assertEqual(self.path("out.csv").stat().st_size, 1000)
        self.assert_unchanged(file, before)

    def test_is_told_by_export(self):
        run = self.on("export", self.sample(), Path("/dev/full"), code=FILE_FAILED)
        self.assertIn("full", run.message.replace("/dev/full", ""))

    def test_does_not_hinder_reading(self):
        file = self.sample()
        run = subprocess.run(
            command_line(["ls", "--password-file", self.master, file]),
            stdout=subprocess.PIPE,
            preexec_fn=files_up_to(0),
            env=environment(),
            timeout=PATIENCE,
            check=True,
        )
        self.assertEqual(run.stdout, b"Bank\nEmpty\nMail\n")


class LongArgument(VmrTest):
    """A Windows command line cannot be that long."""

    def test_is_refused_as_a_name(self):
        file = self.sample()
        before = file.read_bytes()
        long = "x" * 65536
        self.on("rename", file, long, code=LIMIT)
        self.on("set", file, "Bank", "name", long, code=LIMIT)
        self.on("add", file, long, code=LIMIT)
        self.on("new", self.path("a.vmr"), "--name", long, code=LIMIT)
        self.assertFalse(self.path("a.vmr").exists())
        self.assert_unchanged(file, before)

    def test_is_refused_as_an_entry(self):
        file = self.sample()
        before = file.read_bytes()
        long = "x" * 65536
        self.on("set", file, "Bank", "username", long, code=LIMIT)
        for option in ("--program", "--username", "--note"):
            self.on("add", file, "x", option, long, code=LIMIT)
        self.assert_unchanged(file, before)

    def test_of_the_longest_text_fits(self):
        file = self.sample()
        self.on("rename", file, "x" * 65535)
        self.assertEqual(self.dump(file)["name"], "x" * 65535)


class NameOfAFile(VmrTest):
    def test_may_hold_bytes_that_are_no_utf_8(self):
        file = self.sample()
        odd = self.folder / os.fsdecode(b"a\xff\xe4.vmr")
        file.rename(odd)
        self.assertEqual(self.on("ls", odd).text, "Bank\nEmpty\nMail\n")
        self.on("add", odd, "x")
        self.assertEqual(self.names(odd)[-1], "x")

    def test_may_hold_line_ends_and_backslashes(self):
        file = self.sample()
        odd = self.folder / "a\n\\b.vmr"
        file.rename(odd)
        self.on("add", odd, "x")
        self.assertEqual(self.names(odd)[-1], "x")

    def test_may_lead_through_a_link(self):
        file = self.sample()
        link = self.path("link.vmr")
        link.symlink_to(file)
        self.on("add", link, "x")
        self.assertTrue(link.is_symlink())
        self.assertEqual(self.names(file)[-1], "x")

    def test_may_be_a_device_and_then_is_no_database(self):
        for device in ("/dev/null", "/dev/zero"):
            self.on("ls", Path(device), code=5)


class FileMadeAnew(VmrTest):
    def test_is_its_owners_alone(self):
        old_mask = os.umask(0o000)
        self.addCleanup(os.umask, old_mask)
        self.on("new", self.path("a.vmr"), "--name", "x")
        self.on("export", self.path("a.vmr"), self.path("a.csv"))
        for name in ("a.vmr", "a.csv"):
            self.assertEqual(self.path(name).stat().st_mode & 0o777, 0o600, name)

    def test_keeps_its_rights_when_saved(self):
        file = self.sample()
        file.chmod(0o640)
        self.on("add", file, "x")
        self.assertEqual(file.stat().st_mode & 0o777, 0o640)
