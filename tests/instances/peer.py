"""Processes that wait for commands, so that a test can let several of them take turns.

PEERS        the folder of the programs
PEER_RUNNER  what runs them, e.g. "wine"; nothing for native programs

A command is a line; the answer ends with a line "ok" or "no", and what it tells stands in lines "= ..." before.
Natively the settings store of a test is a file in its own temporary folder. On Windows it is the user's
registry, in which the program's tree is deleted before and after each test.
"""

import os
import select
import shlex
import subprocess
import tempfile
import time
import unittest
from dataclasses import dataclass, field
from pathlib import Path

PEERS = Path(os.environ.get("PEERS", "build/linux/bin")).resolve()
RUNNER = shlex.split(os.environ.get("PEER_RUNNER", ""))
IS_NATIVE = not RUNNER

# A process that doesn't answer must not hold up the rest.
PATIENCE = 30


@dataclass
class Answer:
    """What a process said to a command."""

    done: bool
    told: list = field(default_factory=list)


class Peer:
    """A running program."""

    def __init__(self, name, env):
        program = PEERS / (name if IS_NATIVE else name + ".exe")
        self.process = subprocess.Popen(
            [*RUNNER, str(program)], stdin=subprocess.PIPE, stdout=subprocess.PIPE, env=env, bufsize=0
        )
        self.name = name
        self.waiting = b""

    def send(self, command):
        """Gives a command without waiting for its answer."""
        self.process.stdin.write(command.encode("utf-8") + b"\n")

    def answer(self):
        """The answer to the oldest command that has none yet."""
        told = []
        limit = time.monotonic() + PATIENCE
        while True:
            line = self.line(limit)
            if line in ("ok", "no"):
                return Answer(line == "ok", told)
            if not line.startswith("= "):
                raise AssertionError(f"{self.name} said: {line}")
            told.append(line[2:])

    def ask(self, command):
        self.send(command)
        return self.answer()

    def line(self, limit):
        while b"\n" not in self.waiting:
            ready, _, _ = select.select([self.process.stdout], [], [], max(0, limit - time.monotonic()))
            if not ready:
                raise AssertionError(f"{self.name} did not answer within {PATIENCE} seconds")
            more = os.read(self.process.stdout.fileno(), 4096)
            if not more:
                raise AssertionError(f"{self.name} has ended with {self.process.wait(PATIENCE)}")
            self.waiting += more
        line, self.waiting = self.waiting.split(b"\n", 1)
        return line.decode("utf-8").rstrip("\r")

    def close(self):
        """Ends the program; gives its exit code."""
        self.process.stdin.close()
        try:
            return self.process.wait(PATIENCE)
        finally:
            self.process.kill()
            self.process.wait()
            self.process.stdout.close()


class PeerTest(unittest.TestCase):
    """A test with an empty settings store, in which programs can be started."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vmr-peer-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name).resolve()
        self.env = {**os.environ, "LC_ALL": "C.UTF-8", "TZ": "UTC", "XDG_CONFIG_HOME": str(self.folder)}
        if not IS_NATIVE:
            self.env.setdefault("WINEDEBUG", "-all")

    def start(self, name):
        """Starts a program, which ends with the test if not before; it must then do so by itself."""
        peer = Peer(name, self.env)
        self.addCleanup(lambda: self.assertEqual(peer.close(), 0, f"the end of {name}"))
        return peer
