"""Copies of one process that another pastes. Only on Windows do processes share a clipboard."""

import random
import unittest

from peer import IS_NATIVE, PeerTest

MAIL = [
    "item 133500000000000000 Mail",
    "entry 3 https://mail.example",
    "entry 4 me@mail.example",
    "entry 5 tulip",
    "entry 6 a note\\nof two lines",
    "entry 6 ",
]
BANK = ["item 18446744073709551615 Bänk 漢字 🔑", "entry 3 ", "entry 4 ", "entry 5 пароль"]
EMPTY = ["item 0 ", "entry 3 ", "entry 4 ", "entry 5 "]

KEY_HASH = slice(0, 32)
MAGIC_AND_PLAIN_SIZE = slice(32, 40)
SALT = slice(40, 72)
CIPHER = slice(72, None)


@unittest.skipIf(IS_NATIVE, "natively each process has a clipboard of its own")
class TwoClipboards(PeerTest):
    def setUp(self):
        super().setUp()
        self.first = self.start("clipboard_peer")
        self.second = self.start("clipboard_peer")
        self.clear()
        self.addCleanup(self.clear)

    def clear(self):
        self.assertTrue(self.first.ask("clear").done)

    def fill(self, peer, *items):
        for line in sum(items, []):
            self.assertTrue(peer.ask(line).done, line)
        self.assertEqual(peer.ask("items").told, sum(items, []))

    def copy(self, peer, command):
        self.assertTrue(peer.ask(command).done, command)

    def pasted(self, peer, command):
        answer = peer.ask(command)
        self.assertTrue(answer.done, command)
        return answer.told

    def block(self, peer):
        return bytes.fromhex(self.pasted(peer, "block")[0])

    # --- Items ---

    def test_give_items_with_all_they_have(self):
        self.fill(self.first, MAIL, BANK, EMPTY)
        self.copy(self.first, "copy-items")
        self.assertEqual(self.pasted(self.second, "paste-items"), MAIL + BANK + EMPTY)

    def test_give_items_in_the_order_of_the_copy(self):
        self.fill(self.first, MAIL, BANK, EMPTY)
        self.copy(self.first, "copy-items 2 0")
        self.assertEqual(self.pasted(self.second, "paste-items"), EMPTY + MAIL)

    def test_give_back_what_was_pasted(self):
        self.fill(self.first, MAIL, BANK)
        self.copy(self.first, "copy-items")
        self.fill(self.second, MAIL, BANK)
        self.copy(self.second, "copy-items 1")
        self.assertEqual(self.pasted(self.first, "paste-items"), BANK)

    def test_give_many_items(self):
        self.copy(self.first, "many 3000")
        self.copy(self.first, "copy-items")
        expected = [line for i in range(3000) for line in (f"item {i} item {i}", f"entry 6 text {i}")]
        self.assertEqual(self.pasted(self.second, "paste-items"), expected)

    def test_give_an_item_without_any_text(self):
        self.fill(self.first, EMPTY)
        self.copy(self.first, "copy-items")
        self.assertEqual(self.pasted(self.second, "paste-items"), EMPTY)
        self.assertFalse(self.second.ask("text").done)

    # --- Entries ---

    def test_give_entries_with_type_and_text(self):
        self.fill(self.first, BANK, MAIL)
        self.copy(self.first, "copy-entries")
        self.assertEqual(self.pasted(self.second, "paste-entries"), ["item 0 VaultmereItem", *MAIL[1:]])

    def test_give_entries_apart_from_items(self):
        self.fill(self.first, MAIL)
        self.copy(self.first, "copy-entries 3 4")
        self.assertFalse(self.second.ask("paste-items").done)
        self.copy(self.first, "copy-items")
        self.assertFalse(self.second.ask("paste-entries").done)

    # --- Text ---

    def test_leave_the_text_of_a_single_element(self):
        self.fill(self.first, MAIL, BANK)
        self.copy(self.first, "copy-items 1")
        self.assertEqual(self.second.ask("text").told, ["Bänk 漢字 🔑"])
        self.copy(self.first, "copy-entries 2")
        self.assertEqual(self.second.ask("text").told, ["пароль"])

    def test_leave_no_text_of_several_elements(self):
        self.fill(self.first, MAIL, BANK)
        self.copy(self.first, "copy-items 1")
        self.copy(self.first, "copy-items")
        self.assertFalse(self.second.ask("text").done)
        self.copy(self.first, "copy-entries")
        self.assertFalse(self.second.ask("text").done)

    # --- Blocks ---

    def test_of_the_same_item_differ_in_all_but_magic_and_plain_size(self):
        self.fill(self.first, MAIL)
        self.fill(self.second, MAIL)
        blocks = []
        for peer in (self.first, self.first, self.second):
            self.copy(peer, "copy-items")
            block = self.block(self.second)
            self.assertEqual(block, self.block(self.first))
            blocks.append(block)
        parts = [(block[KEY_HASH], block[SALT], block[CIPHER]) for block in blocks]
        for part in zip(*parts):
            self.assertEqual(len(set(part)), 3)
            self.assertEqual(len({len(bytes_of_one) for bytes_of_one in part}), 1)
        self.assertEqual(len({block[MAGIC_AND_PLAIN_SIZE] for block in blocks}), 1)
        self.assertEqual(blocks[0][32:36], b"VMR2")

    # --- Processes ---

    def test_keep_what_a_process_has_left_that_is_gone(self):
        gone = self.start("clipboard_peer")
        self.fill(gone, MAIL)
        self.copy(gone, "copy-items")
        gone.close()
        self.assertEqual(self.pasted(self.second, "paste-items"), MAIL)

    def test_are_left_while_another_program_has_the_clipboard_open(self):
        other = self.start("window_win32_peer")
        self.fill(self.first, MAIL)
        self.copy(self.first, "copy-items")
        self.assertTrue(other.ask("hold").done)
        self.assertFalse(self.second.ask("paste-items").done)
        self.assertFalse(self.first.ask("copy-items").done)
        self.assertFalse(self.first.ask("copy-entries").done)
        self.assertTrue(other.ask("release").done)
        self.assertEqual(self.pasted(self.second, "paste-items"), MAIL)
        self.copy(self.first, "copy-items")

    def test_give_way_to_another_program_and_back(self):
        other = self.start("window_win32_peer")
        self.fill(self.first, MAIL)
        self.copy(self.first, "copy-items")
        self.assertTrue(other.ask("own").done)
        self.assertFalse(self.second.ask("paste-items").done)
        self.assertEqual(self.second.ask("text").told, ["of another program"])
        self.copy(self.first, "copy-items")
        self.assertEqual(self.pasted(self.second, "paste-items"), MAIL)
        self.assertEqual(self.second.ask("text").told, ["Mail"])

    def test_take_turns(self):
        chance = random.Random(1)
        self.fill(self.first, MAIL, BANK, EMPTY)
        self.fill(self.second, MAIL, BANK, EMPTY)
        items = [MAIL, BANK, EMPTY]
        for _ in range(40):
            places = [chance.randrange(3) for _ in range(chance.randrange(1, 4))]
            source, target = chance.sample([self.first, self.second], 2)
            self.copy(source, "copy-items " + " ".join(map(str, places)))
            self.assertEqual(self.pasted(target, "paste-items"), [line for place in places for line in items[place]])
