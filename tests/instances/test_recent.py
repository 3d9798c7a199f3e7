"""Recent lists of two processes that share one store."""

import random

from peer import IS_NATIVE, PeerTest

REG_SZ = 1


class TwoLists(PeerTest):
    def setUp(self):
        super().setUp()
        self.first = self.start("recent_peer")
        self.second = self.start("recent_peer")
        self.first.ask("wipe")
        self.addCleanup(self.first.ask, "wipe")

    def do(self, peer, command):
        """A change at a time of its own: within one tick of the clock the last writer's list stands."""
        self.assertTrue(peer.ask("later").done, "the clock stands still")
        self.assertTrue(peer.ask(command).done, command)

    def add(self, peer, *entries):
        for entry in entries:
            self.do(peer, "add " + entry)

    @staticmethod
    def list(peer):
        """The entries in a process's memory, without the bar where there is no name."""
        return [entry.removesuffix("|") for entry in peer.ask("list").told]

    def value(self, name):
        """A value of the store as type and bytes; nothing if there is none."""
        answer = self.second.ask("read " + name)
        if not answer.done:
            return None
        kind, digits = answer.told[0].split(":")
        return int(kind), bytes.fromhex(digits)

    def stored(self):
        """The texts in the store, up to the first that is absent."""
        texts = []
        while value := self.value(f"File{len(texts) + 1}"):
            kind, data = value
            self.assertEqual(kind, REG_SZ)
            text = data.decode("utf-16-le")
            self.assertEqual(text.find("\0"), len(text) - 1, "one zero, at the end")
            texts.append(text[:-1])
        return texts

    def stamp(self):
        kind, data = self.value("lastUpdated")
        self.assertEqual((kind, len(data)), (11, 8))
        return int.from_bytes(data, "little")

    def write_stamp(self, stamp):
        self.assertTrue(self.second.ask(f"write lastUpdated 11:{stamp.to_bytes(8, 'little').hex()}").done)

    def write_file(self, number, text):
        digits = (text + "\0").encode("utf-16-le").hex()
        self.assertTrue(self.second.ask(f"write File{number} 1:{digits}").done)

    # --- Adding ---

    def test_take_over_what_the_other_has_added(self):
        self.add(self.first, "a|A")
        self.add(self.second, "b|B")
        self.add(self.first, "c")
        self.add(self.second, "d")
        self.assertEqual(self.stored(), ["d", "c", "b|B", "a|A"])
        self.assertEqual(self.list(self.second), ["d", "c", "b|B", "a|A"])

    def test_know_nothing_of_the_other_until_they_load(self):
        self.add(self.first, "a")
        self.assertEqual(self.list(self.second), [])
        self.assertTrue(self.second.ask("load").done)
        self.assertEqual(self.list(self.second), ["a"])
        self.assertEqual(self.second.ask("stamp").told, self.first.ask("stamp").told)

    def test_stay_one_list_in_any_order_of_turns(self):
        chance = random.Random(1)
        expected = []
        for _ in range(60):
            path = f"path {chance.randrange(12)}"
            peer = chance.choice([self.first, self.second])
            self.add(peer, path)
            expected = [path, *(entry for entry in expected if entry != path)][:8]
            self.assertEqual(self.list(peer), expected)
            self.assertEqual(self.stored(), expected)
            self.assertEqual(int(peer.ask("stamp").told[0]), self.stamp())

    def test_drop_the_ninth_entry_whoever_added_it(self):
        for number in range(1, 10):
            self.add(self.first if number % 2 else self.second, str(number))
        self.assertEqual(self.stored(), ["9", "8", "7", "6", "5", "4", "3", "2"])
        self.assertIsNone(self.value("File9"))

    def test_take_one_path_in_other_letters_for_the_same(self):
        self.add(self.first, "C:\\Ä\\Vault.vmr|old", "b")
        self.add(self.second, "c:\\ä\\VAULT.VMR|new")
        self.assertEqual(self.stored(), ["c:\\ä\\VAULT.VMR|new", "b"])
        self.add(self.first, "C:\\ä\\vault.vmr")
        self.assertEqual(self.stored(), ["C:\\ä\\vault.vmr", "b"])

    def test_write_whole_lists_though_they_write_at_the_same_time(self):
        for number in range(50):
            self.first.send(f"add first {number}")
            self.second.send(f"add second {number}")
        for peer in [self.first, self.second] * 50:
            self.assertTrue(peer.answer().done)
        self.first.ask("load")  # refused if the other came with an earlier time but wrote later
        self.add(self.first, "last")
        stored = self.stored()
        self.assertEqual(stored[0], "last")
        self.assertLessEqual(len(stored), 8)
        self.assertEqual(self.list(self.first), stored)
        self.assertEqual(self.value("File9"), None)

    # --- Removing and clearing ---

    def test_see_what_the_other_has_removed_with_the_next_entry(self):
        self.add(self.first, "a", "b", "c")
        self.assertTrue(self.second.ask("load").done)
        self.do(self.second, "remove 1")
        self.assertEqual(self.stored(), ["c", "a"])
        self.assertIsNone(self.value("File3"))
        self.assertEqual(self.list(self.first), ["c", "b", "a"])
        self.add(self.first, "d")
        self.assertEqual(self.stored(), ["d", "c", "a"])

    def test_remove_from_their_own_copy_and_write_that(self):
        """A removal is told by its place in the list that the user sees, so nothing is read before it."""
        self.add(self.first, "a", "b")
        self.assertTrue(self.second.ask("load").done)
        self.add(self.first, "c")
        self.do(self.second, "remove 0")
        self.assertEqual(self.stored(), ["a"])
        self.add(self.first, "d")
        self.assertEqual(self.stored(), ["d", "a"])

    def test_remove_nothing_by_an_index_without_an_entry(self):
        self.add(self.first, "a")
        before = self.stamp()
        self.assertFalse(self.second.ask("remove 0").done)
        self.assertEqual((self.stored(), self.stamp()), (["a"], before))

    def test_clear_the_list_of_both(self):
        self.add(self.first, *(str(number) for number in range(8)))
        self.do(self.second, "clear")
        self.assertEqual([self.value(f"File{number}") for number in range(1, 10)], [None] * 9)
        self.assertTrue(self.first.ask("load").done)
        self.assertEqual(self.list(self.first), [])
        self.add(self.first, "new")
        self.assertEqual(self.stored(), ["new"])

    def test_do_not_bring_back_what_the_other_has_cleared(self):
        self.add(self.first, "a", "b")
        self.do(self.second, "clear")
        self.add(self.first, "c")
        self.assertEqual(self.stored(), ["c"])

    # --- Times ---

    def test_keep_a_list_that_is_newer_than_the_store(self):
        self.add(self.first, "a")
        self.write_file(1, "theirs")
        self.write_stamp(self.stamp() - 1)
        self.assertFalse(self.first.ask("load").done)
        self.assertEqual(self.list(self.first), ["a"])
        self.add(self.first, "b")
        self.assertEqual(self.stored(), ["b", "a"])

    def test_load_a_list_of_the_same_time(self):
        self.add(self.first, "a")
        self.write_file(1, "theirs")
        self.assertTrue(self.first.ask("load").done)
        self.assertEqual(self.list(self.first), ["theirs"])

    def test_load_a_list_without_a_time(self):
        self.add(self.first, "a")
        self.assertTrue(self.second.ask("delete lastUpdated").done)
        self.write_file(1, "theirs")
        stamp = self.first.ask("stamp").told
        self.assertTrue(self.first.ask("load").done)
        self.assertEqual(self.list(self.first), ["theirs"])
        self.assertEqual(self.first.ask("stamp").told, stamp)

    def test_have_nothing_to_load_without_a_key(self):
        self.assertFalse(self.first.ask("load").done)
        self.assertEqual(self.list(self.first), [])

    # --- What lies in the store ---

    def test_remove_the_tail_of_the_others_longer_list(self):
        self.add(self.first, "1", "2", "3", "4", "5")
        self.assertTrue(self.second.ask("store").done)
        self.assertEqual([self.value(f"File{number}") for number in range(1, 6)], [None] * 5)

    def test_end_at_a_gap_and_leave_what_lies_behind_it(self):
        self.add(self.first, "a", "b", "c", "d")
        self.assertTrue(self.second.ask("delete File2").done)
        self.assertTrue(self.first.ask("load").done)
        self.assertEqual(self.list(self.first), ["d"])
        self.do(self.first, "store")
        self.assertEqual(self.stored(), ["d"])
        self.assertEqual(self.value("File3"), (REG_SZ, "b\0".encode("utf-16-le")))
        self.add(self.first, "e")
        self.assertEqual(self.stored(), ["e", "d"])
        self.assertIsNone(self.value("File3"))
        self.assertIsNone(self.value("File4"))

    def test_remove_values_behind_the_eighth_once_they_are_reached(self):
        for number in range(1, 12):
            self.write_file(number, str(number))
        self.assertTrue(self.first.ask("load").done)
        self.assertEqual(self.list(self.first), ["1", "2", "3", "4", "5", "6", "7", "8"])
        self.do(self.first, "remove 7")
        self.assertEqual(self.stored(), ["1", "2", "3", "4", "5", "6", "7"])
        self.assertEqual([self.value(f"File{number}") for number in range(8, 12)], [None] * 4)


class Store(PeerTest):
    def test_is_a_file_of_the_user_where_the_system_has_no_registry(self):
        peer = self.start("recent_peer")
        peer.ask("load")
        file = self.folder / "vaultmere" / "registry"
        self.assertFalse(file.parent.exists())
        if IS_NATIVE:
            peer.ask("add a|Ä")
            self.assertIn("File1=1:6100", file.read_text("ascii"))
            self.assertEqual((file.stat().st_mode & 0o777, file.parent.stat().st_mode & 0o777), (0o600, 0o700))
