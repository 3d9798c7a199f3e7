"""`vmr clip` on the clipboard of Windows, seen by another process. What Linux desktops do stands in tests/cli."""

import json
import subprocess
import time
import unittest

from peer import IS_NATIVE, PATIENCE, PEERS, RUNNER, PeerTest

MASTER = "Kestrel-quartz 9!"
NOTE = "Größe 東京"


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


@unittest.skipIf(IS_NATIVE, "natively the clipboard is reached through programs of the desktop")
class Clip(PeerTest):
    def setUp(self):
        super().setUp()
        self.watcher = self.start("clipboard_peer")
        self.watcher.ask("clear")
        self.master = self.folder / "master"
        self.master.write_text(MASTER + "\n")
        self.database = self.folder / "a.vmr"
        entries = [{"type": kind, "text": text} for kind, text in ((3, ""), (4, "erika"), (5, "s3cret"), (6, NOTE))]
        content = {"version": 1, "name": "x", "items": [{"name": "Mail", "date": "0x1", "entries": entries}]}
        source = self.folder / "a.json"
        source.write_text(json.dumps(content))
        self.vmr("load", windows_path(source), windows_path(self.database)).wait(PATIENCE)

    def vmr(self, command, *args):
        words = [*RUNNER, str(PEERS / "vmr.exe"), command, "--no-input", "--password-file",
                 windows_path(self.master), *args]
        process = subprocess.Popen(words, env=self.env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def clip(self, field, seconds):
        return self.vmr("clip", windows_path(self.database), "Mail", field, "--timeout", str(seconds))

    def held(self):
        return self.watcher.ask("text").told

    def wait_until_held(self, text):
        limit = time.monotonic() + PATIENCE
        while self.held() != [text]:
            self.assertLess(time.monotonic(), limit, f"{text} never came")

    def test_puts_the_field_there_and_clears_it_after_the_time(self):
        process = self.clip("password", 2)
        self.wait_until_held("s3cret")
        self.assertEqual(process.wait(PATIENCE), 0)
        self.assertEqual(self.held(), [])

    def test_takes_a_text_of_any_letters(self):
        process = self.clip("note:1", 1)
        self.wait_until_held(NOTE)
        self.assertEqual(process.wait(PATIENCE), 0)

    def test_leaves_what_somebody_else_has_put_there(self):
        process = self.clip("username", 2)
        self.wait_until_held("erika")
        self.watcher.ask("item 0 Something else")
        self.watcher.ask("copy-items")
        self.assertEqual(process.wait(PATIENCE), 0)
        self.assertEqual(self.held(), ["Something else"])
