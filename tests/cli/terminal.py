"""A terminal with a session on it, as a shell would give it to the program. Not for Windows programs.

The program is not the session's leader: when a leader ends, the system resets the terminal, and nobody could
see any more in which state the program left it.
"""

import fcntl
import os
import pty
import select
import signal
import subprocess
import termios
import time

from vmr import PATIENCE, Result, environment

LOCAL_FLAGS = 3
CTRL_C, CTRL_D, CTRL_BACKSLASH, ERASE = "\x03", "\x04", "\x1c", "\x7f"


class Terminal:
    """Runs a command on a new pseudo-terminal; its standard output and error go to files in `folder`.

    `on_screen` has standard output on the terminal instead. `stdin` is a file for standard input or None for
    nothing there; `prepare` may change the terminal's
    settings beforehand; `options` go to Popen.
    """

    def __init__(self, folder, command, stdin=None, on_screen=False, prepare=None, **options):
        self.screen = b""
        self.on_screen = on_screen
        self.main, self.sub = pty.openpty()
        if prepare is not None:
            prepare(self.sub)
        self.before = termios.tcgetattr(self.sub)
        self.out, self.err = folder / "stdout", folder / "stderr"
        self.report, report = os.pipe()
        hold, self.hold = os.pipe()
        self.leader = os.fork()
        if self.leader == 0:
            os.close(self.hold)
            self.lead(command, stdin, report, hold, options)
        os.close(report)
        os.close(hold)
        self.process = self.read_report()

    def lead(self, command, stdin, report, hold, options):
        """The session's leader: starts the program, tells its id and its end, then waits to be let go."""
        status = 1
        try:
            os.setsid()
            fcntl.ioctl(self.sub, termios.TIOCSCTTY, 0)
            signal.signal(signal.SIGINT, lambda *_: None)
            signal.signal(signal.SIGQUIT, lambda *_: None)
            given = stdin or os.devnull
            with open(given, "rb") as source, open(self.out, "wb") as out, open(self.err, "wb") as err:
                streams = {"stdin": source, "stdout": self.sub if self.on_screen else out, "stderr": err}
                run = subprocess.Popen(command, env=environment(), **streams, **options)
            os.write(report, b"%d\n" % run.pid)
            os.write(report, b"%d\n" % run.wait())
            os.read(hold, 1)
            status = 0
        finally:
            os._exit(status)

    def read_report(self):
        self.wait_until(lambda: select.select([self.report], [], [], 0)[0], "the program to tell")
        line = b""
        while not line.endswith(b"\n"):
            byte = os.read(self.report, 1)
            if not byte:
                raise AssertionError("the session ended early")
            line += byte
        return int(line)

    def wait_until(self, condition, what):
        deadline = time.monotonic() + PATIENCE
        while not condition():
            self.read_screen()
            if time.monotonic() > deadline:
                self.close()
                raise AssertionError(f"waited in vain for {what}; on the screen: {self.screen!r}")

    def read_screen(self):
        if select.select([self.main], [], [], 0.005)[0]:
            self.screen += os.read(self.main, 65536)

    # --- What a test does ---

    def expect_prompt(self, number=1):
        """Waits until the program asks for the `number`-th time; each prompt ends in a colon and a blank."""
        self.wait_until(lambda: self.screen.count(b": ") >= number, f"prompt {number}")

    def type(self, text):
        os.write(self.main, text.encode("utf-8"))

    def answer(self, text, number=1):
        self.expect_prompt(number)
        self.type(text + "\n")

    def echoes(self):
        return bool(termios.tcgetattr(self.sub)[LOCAL_FLAGS] & termios.ECHO)

    def signal(self, number):
        os.kill(self.process, number)

    def finish(self):
        """Waits for the program's end.

        Afterwards `after` holds the terminal's settings, `left_over` what the next program would read.
        """
        code = self.read_report()
        self.after = termios.tcgetattr(self.sub)
        self.read_screen()
        self.left_over = self.read_left_over()
        self.close()
        code = 128 - code if code < 0 else code  # as a shell tells the death by a signal
        return Result(code, self.out.read_bytes(), self.err.read_bytes())

    def read_left_over(self):
        """What was typed and not read, with or without a line end."""
        settings = termios.tcgetattr(self.sub)
        settings[LOCAL_FLAGS] &= ~termios.ICANON
        termios.tcsetattr(self.sub, termios.TCSANOW, settings)
        return os.read(self.sub, 65536) if select.select([self.sub], [], [], 0)[0] else b""

    def close(self):
        if self.hold is None:
            return
        os.close(self.hold)
        self.hold = None
        for descriptor in (self.main, self.sub, self.report):
            os.close(descriptor)
        try:
            os.kill(self.leader, signal.SIGKILL)
        finally:
            os.waitpid(self.leader, 0)
