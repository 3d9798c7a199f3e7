"""`clip` on a desktop of this system, most of it with stand-ins for the desktop's programs."""

import os
import shutil
import signal
import subprocess
import time
import unittest

from fake_clipboard import give_clipboard
from vmr import DONE, FAILED, INTERRUPTED, NOT_FOUND, PATIENCE, SECRET, USAGE, VmrTest, command_line, environment

USER = "erika"


class ClipTest(VmrTest):
    def setUp(self):
        super().setUp()
        self.clipboard = give_clipboard(self)
        self.file = self.sample()

    def clip(self, *args, **how):
        return self.on("clip", self.file, *args, **how)

    def start(self, *args):
        """Starts the program and returns once the clipboard holds something."""
        words = ["clip", "--no-input", "--password-file", self.master, self.file, *args]
        process = subprocess.Popen(command_line(words), env=environment(self.surroundings),
                                   stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        self.message = process.stderr.readline().decode()
        self.assertIn("on the clipboard for", self.message)
        return process

    def held(self):
        return self.clipboard.read_bytes() if self.clipboard.exists() else b""

    def calls(self):
        return (self.clipboard.parent / "clipboard.calls").read_text()


class Clip(ClipTest):
    def test_puts_the_field_there_and_clears_it_after_the_time(self):
        begin = time.monotonic()
        process = self.start("Bank", "password", "--timeout", "1")
        self.assertEqual(self.held(), SECRET.encode())
        self.assertEqual(process.wait(PATIENCE), DONE)
        self.assertGreaterEqual(time.monotonic() - begin, 1)
        self.assertEqual(self.held(), b"")

    def test_leaves_what_somebody_else_has_put_there(self):
        process = self.start("Bank", "username", "--timeout", "1")
        self.clipboard.write_text("something else")
        self.assertEqual(process.wait(PATIENCE), DONE)
        self.assertEqual(self.held(), b"something else")

    def test_leaves_a_text_that_only_starts_alike(self):
        process = self.start("Bank", "username", "--timeout", "1")
        self.clipboard.write_text(USER + " and more")
        self.assertEqual(process.wait(PATIENCE), DONE)
        self.assertEqual(self.held(), (USER + " and more").encode())

    def test_waits_fifteen_seconds_unless_told_otherwise(self):
        process = self.start("Bank", "username")
        self.assertIn("for 15 seconds", self.message)
        with self.assertRaises(subprocess.TimeoutExpired):
            process.wait(1.5)
        self.assertEqual(self.held(), USER.encode())

    def test_clears_at_once_when_it_is_interrupted(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            process = self.start("Bank", "username", "--timeout", "600")
            process.send_signal(number)
            self.assertEqual(process.wait(PATIENCE), INTERRUPTED)
            self.assertEqual(self.held(), b"")

    def test_goes_on_waiting_after_it_was_stopped(self):
        process = self.start("Bank", "username", "--timeout", "2")
        process.send_signal(signal.SIGSTOP)
        process.send_signal(signal.SIGCONT)
        with self.assertRaises(subprocess.TimeoutExpired):
            process.wait(0.5)
        self.assertEqual(process.wait(PATIENCE), DONE)

    def test_gives_no_secret_to_anybody_as_an_argument(self):
        process = self.start("Bank", "password", "--timeout", "1")
        process.wait(PATIENCE)
        self.assertNotIn(SECRET, self.calls())

    def test_lets_go_of_the_database_while_it_waits(self):
        process = self.start("Bank", "username", "--timeout", "600")
        self.on("rename", self.file, "New name")
        process.send_signal(signal.SIGINT)
        process.wait(PATIENCE)

    def test_takes_a_text_of_many_lines_and_letters(self):
        text = "Größe\r\n東京 " + "x" * 200_00
        self.on("set", self.file, "Bank", "note:+", "--stdin", stdin=text)
        process = self.start("Bank", "note:1", "--timeout", "1")
        self.assertEqual(self.held(), text.encode())
        process.wait(PATIENCE)
        self.assertEqual(self.held(), b"")

    def test_refuses_an_empty_field_and_leaves_the_clipboard(self):
        self.clipboard.write_text("before")
        self.clip("Empty", "password", code=FAILED)
        self.assertEqual(self.held(), b"before")

    def test_refuses_a_field_and_an_item_that_are_not_there(self):
        self.clip("Bank", "note:1", code=NOT_FOUND)
        self.clip("None", "name", code=NOT_FOUND)
        self.clip("Bank", "note:+", code=USAGE)

    def test_refuses_other_times(self):
        for seconds in ("0", "86401", "-1", "soon", ""):
            self.clip("Bank", "name", "--timeout", seconds, code=USAGE)

    def test_tells_of_a_program_that_fails(self):
        (self.clipboard.parent / "xclip").write_text("#!/bin/sh\nexit 1\n")
        self.clip("Bank", "name", code=FAILED)

    def test_does_not_wait_for_a_program_that_hangs(self):
        (self.clipboard.parent / "xclip").write_text("#!/bin/sh\nexec sleep 600\n")
        self.clip("Bank", "name", code=FAILED)

    def test_tells_that_there_is_no_desktop_before_asking_for_the_password(self):
        self.surroundings.update(DISPLAY="", WAYLAND_DISPLAY="")
        run = self.vmr("clip", self.file, "Bank", "name", code=FAILED)
        self.assertIn("xclip", run.message)

    def test_tells_that_the_programs_are_missing(self):
        self.surroundings["PATH"] = str(self.folder)
        self.clip("Bank", "name", code=FAILED)


class ClipOnWayland(ClipTest):
    def test_uses_its_own_programs(self):
        self.clipboard = give_clipboard(self, ("xclip", "wl-copy", "wl-paste"), "WAYLAND_DISPLAY")
        process = self.start("Bank", "username", "--timeout", "1")
        self.assertEqual(self.held(), USER.encode())
        self.assertEqual(process.wait(PATIENCE), DONE)
        self.assertEqual(self.held(), b"")
        self.assertNotIn("xclip", self.calls())

    def test_falls_back_on_x11_without_them(self):
        self.surroundings["WAYLAND_DISPLAY"] = ":fake"
        process = self.start("Bank", "username", "--timeout", "1")
        self.assertEqual(process.wait(PATIENCE), DONE)
        self.assertIn("xclip", self.calls())


@unittest.skipUnless(shutil.which("xclip") and shutil.which("Xvfb"), "needs xclip and Xvfb")
class ClipOnX11(ClipTest):
    def setUp(self):
        super().setUp()
        reading, writing = os.pipe()
        server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-nolisten", "tcp"], pass_fds=[writing],
                                  stderr=subprocess.DEVNULL)
        self.addCleanup(server.wait)
        self.addCleanup(server.terminate)
        os.close(writing)
        with os.fdopen(reading) as number:
            display = ":" + number.readline().strip()
        self.surroundings = {"DISPLAY": display, "WAYLAND_DISPLAY": ""}

    def held(self):
        run = subprocess.run(["xclip", "-selection", "clipboard", "-out"], env=environment(self.surroundings),
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=PATIENCE, check=False)
        return run.stdout

    def test_puts_the_field_on_the_real_clipboard_and_clears_it(self):
        process = self.start("Bank", "password", "--timeout", "2")
        self.assertEqual(self.held(), SECRET.encode())
        self.assertEqual(process.wait(PATIENCE), DONE)
        self.assertEqual(self.held(), b"")

    def test_leaves_what_somebody_else_has_put_there(self):
        process = self.start("Bank", "username", "--timeout", "2")
        subprocess.run(["xclip", "-selection", "clipboard", "-in"], env=environment(self.surroundings),
                       input=b"something else", stdout=subprocess.DEVNULL, timeout=PATIENCE, check=True)
        self.assertEqual(process.wait(PATIENCE), DONE)
        self.assertEqual(self.held(), b"something else")
