#include "database/undo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>

#include "tests/unit/database/open_database.h"
#include "tests/unit/test_files.h"

using ::testing::ElementsAre;

namespace {

class UndoHistory : public OpenDatabase {
protected:
    // A change that is recorded, to a name that was not there before.
    void Change() { db.SetName(FreshName()); }
    void Change(int times) {
        for (int i = 0; i < times; ++i)
            Change();
    }
    int TakeBack() { return history.Undo(nullptr, nullptr); }
    void Save() {
        db.m_Changed = false;
        history.MarkSaved();
    }
    tvstring FreshName() {
        const std::string digits = std::to_string(++m_Names);
        return std::u16string(digits.begin(), digits.end());
    }

    VMRD_Undo& history = db.m_Undo;
    ElementArray items{nullptr};
    ElementArray entries{nullptr};

private:
    int m_Names = 0;
};

// --- Push ---

TEST_F(UndoHistory, HoldsAtMost4096Records) {
    EXPECT_EQ(VMRD_Undo::kMaxDepth, 4096);
}

TEST_F(UndoHistory, PutsTheNewestRecordInFront) {
    EXPECT_TRUE(history.Push(UNDO_MOVE, UNDO_ITEMS, &db, 0));
    EXPECT_TRUE(history.Push(UNDO_MODIFY, UNDO_ITEM_NAME, &db, 77));
    EXPECT_EQ(history.Count(), 2U);
    EXPECT_EQ(history.Front().m_Op, UNDO_MODIFY);
    EXPECT_EQ(history.Front().m_Kind, UNDO_ITEM_NAME);
    EXPECT_EQ(history.Front().m_Target, &db);
    EXPECT_EQ(history.Front().m_OldDate, 77U);
    EXPECT_TRUE(history.Front().m_Objects.empty());
    EXPECT_TRUE(history.Front().m_OldText.empty());
}

TEST_F(UndoHistory, OfADatabaseThatIsNotTheOpenOneRefusesRecords) {
    VMRD_DB carrier;
    EXPECT_FALSE(carrier.m_Undo.Push(UNDO_MOVE, UNDO_ITEMS, &carrier, 0));
    EXPECT_EQ(carrier.m_Undo.Count(), 0U);
    EXPECT_EQ(history.Count(), 0U);
}

TEST_F(UndoHistory, SavesTheOrderOfItemsForAnythingButAModification) {
    ItemElement* a = PutItem(u"a");
    ItemElement* b = PutItem(u"b");
    for (const u32 op : {UNDO_ADD, UNDO_MOVE, UNDO_MASTERPWD}) {
        EXPECT_TRUE(history.Push(op, UNDO_ITEMS, &db, 0));
        EXPECT_THAT(history.Front().m_Order, ElementsAre(a, b));
    }
    EXPECT_TRUE(history.Push(UNDO_MODIFY, UNDO_DB_NAME, &db, 0));
    EXPECT_TRUE(history.Front().m_Order.empty());
}

TEST_F(UndoHistory, SavesTheOrderOfEntriesForAnythingButAModification) {
    ItemElement* item = PutItem(u"a", {Username(u"x"), Addition(u"y")});
    EXPECT_TRUE(history.Push(UNDO_MOVE, UNDO_ENTRIES, item, 0));
    EXPECT_THAT(history.Front().m_Order, ElementsAre(item->m_Head, item->m_Tail));
    EXPECT_TRUE(history.Push(UNDO_MODIFY, UNDO_ITEM_NAME, item, 0));
    EXPECT_TRUE(history.Front().m_Order.empty());
}

TEST_F(UndoHistory, SavesNoOrderForAnotherKind) {
    ItemElement* item = PutItem(u"a", {Username(u"x")});
    EXPECT_TRUE(history.Push(UNDO_ADD, UNDO_ENTRY_TEXT, item, 0));
    EXPECT_TRUE(history.Front().m_Order.empty());
}

// --- AddObject ---

TEST_F(UndoHistory, RefusesAnObjectWithoutARecord) {
    EXPECT_FALSE(history.AddObject(&db));
}

TEST_F(UndoHistory, TakesTheObjectsOfAListChangeAndPassesNullOver) {
    ItemElement* a = PutItem(u"a");
    ItemElement* b = PutItem(u"b");
    history.Push(UNDO_MOVE, UNDO_ITEMS, &db, 0);
    EXPECT_TRUE(history.AddObject(a));
    EXPECT_TRUE(history.AddObject(nullptr));
    EXPECT_TRUE(history.AddObject(b));
    EXPECT_THAT(history.Front().m_Objects, ElementsAre(a, b));
    EXPECT_TRUE(history.Front().m_OldText.empty());
}

TEST_F(UndoHistory, KeepsTheTextThatAModificationReplaces) {
    ItemElement* item = PutItem(u"item", {Username(u"entry")});
    db.m_Name = u"database";
    history.Push(UNDO_MODIFY, UNDO_DB_NAME, &db, 0);
    EXPECT_TRUE(history.AddObject(&db));
    EXPECT_EQ(history.Front().m_OldText, u"database");
    history.Push(UNDO_MODIFY, UNDO_ITEM_NAME, &db, 0);
    EXPECT_TRUE(history.AddObject(item));
    EXPECT_EQ(history.Front().m_OldText, u"item");
    history.Push(UNDO_MODIFY, UNDO_ENTRY_TEXT, item, 0);
    EXPECT_TRUE(history.AddObject(item->m_Head));
    EXPECT_EQ(history.Front().m_OldText, u"entry");
}

TEST_F(UndoHistory, RefusesAModificationOfNothingOrOfAnUnknownKind) {
    history.Push(UNDO_MODIFY, UNDO_ITEM_NAME, &db, 0);
    EXPECT_FALSE(history.AddObject(nullptr));
    history.Push(UNDO_MODIFY, 3, &db, 0);
    EXPECT_FALSE(history.AddObject(&db));
    EXPECT_TRUE(history.Front().m_OldText.empty());
}

TEST_F(UndoHistory, KeepsTheBytesOfAnOldMasterPasswordHashIn16Units) {
    for (std::size_t i = 0; i < kPasswordHashSize; ++i)
        db.m_PwdHash[i] = static_cast<u8>(i + 1);
    history.Push(UNDO_MASTERPWD, 0, &db, 0);
    EXPECT_TRUE(history.AddObject(&db));
    ASSERT_EQ(history.Front().m_OldText.size(), 16U);
    EXPECT_EQ(std::memcmp(history.Front().m_OldText.data(), db.m_PwdHash, kPasswordHashSize), 0);
}

TEST_F(UndoHistory, RefusesAMasterPasswordOfNothingOrOfAnotherKind) {
    history.Push(UNDO_MASTERPWD, 0, &db, 0);
    EXPECT_FALSE(history.AddObject(nullptr));
    history.Push(UNDO_MASTERPWD, 2, &db, 0);
    EXPECT_FALSE(history.AddObject(&db));
    EXPECT_TRUE(history.Front().m_OldText.empty());
}

// --- Undo ---

TEST_F(UndoHistory, ThatIsEmptyTakesNothingBackAndEmptiesTheArrays) {
    EXPECT_EQ(history.Undo(&items, &entries), UNDO_NOTHING);
    EXPECT_TRUE(items.empty());
    EXPECT_TRUE(entries.empty());
    EXPECT_FALSE(db.m_Changed);
}

TEST_F(UndoHistory, MayBeAskedWithoutArrays) {
    ItemElement* item = PutItem(u"item", {Username(u"entry"), Addition(u"other")});
    db.ModifyItem(item, u"renamed", &db);
    db.ModifyEntry(item->m_Head, u"changed", item);
    ElementArray moved{item->m_Tail};
    db.MoveEntries(moved, true, item);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(TakeBack(), UNDO_DONE);
    EXPECT_EQ(item->m_Name, u"item");
    EXPECT_EQ(TextsOf<EntryElement>(*item), "[entry][other]");
}

TEST_F(UndoHistory, RelinksItemsAndShowsThem) {
    ItemElement* a = PutItem(u"a");
    ItemElement* b = PutItem(u"b");
    ElementArray array{b};
    db.MoveItems(array, true, &db);
    history.AddObject(b);
    EXPECT_EQ(TextsOf<ItemElement>(db), "[b][a]");
    EXPECT_EQ(history.Undo(&items, &entries), UNDO_DONE);
    EXPECT_THAT(ElementsOf<ItemElement>(db), ElementsAre(a, b));
    EXPECT_THAT(items, ElementsAre(b));
    EXPECT_TRUE(entries.empty());
}

TEST_F(UndoHistory, RelinksEntriesAndShowsThemWithTheirItem) {
    ItemElement* item = PutItem(u"item", {Addition(u"1"), Addition(u"2")});
    EntryElement* first = item->m_Head;
    EntryElement* second = item->m_Tail;
    ElementArray array{first};
    db.RemoveEntries(array, item);
    EXPECT_EQ(history.Undo(&items, &entries), UNDO_DONE);
    EXPECT_THAT(ElementsOf<EntryElement>(*item), ElementsAre(first, second));
    EXPECT_THAT(items, ElementsAre(item));
    EXPECT_THAT(entries, ElementsAre(first));
}

TEST_F(UndoHistory, PutsTheDatabasesNameBackAndShowsNothing) {
    db.SetName(u"old");
    db.SetName(u"new");
    EXPECT_EQ(db.DisplayName(), u"new");
    EXPECT_EQ(history.Undo(&items, &entries), UNDO_DONE);
    EXPECT_EQ(db.m_Name, u"old");
    EXPECT_EQ(db.DisplayName(), u"old");
    EXPECT_TRUE(items.empty());
    EXPECT_TRUE(entries.empty());
}

TEST_F(UndoHistory, PutsAnItemsNameBackAndShowsTheItem) {
    ItemElement* item = PutItem(u"old");
    db.ModifyItem(item, u"new", &db);
    EXPECT_EQ(ElementDisplay(item), u"new");
    EXPECT_EQ(history.Undo(&items, &entries), UNDO_DONE);
    EXPECT_EQ(item->m_Name, u"old");
    EXPECT_EQ(ElementDisplay(item), u"old");
    EXPECT_THAT(items, ElementsAre(item));
    EXPECT_TRUE(entries.empty());
}

TEST_F(UndoHistory, PutsAnEntrysTextBackAndShowsItWithItsItem) {
    ItemElement* item = PutItem(u"item", {Username(u"old")});
    db.ModifyEntry(item->m_Head, u"new", item);
    EXPECT_EQ(ElementDisplay(item->m_Head), u"new");
    EXPECT_EQ(history.Undo(&items, &entries), UNDO_DONE);
    EXPECT_EQ(item->m_Head->m_Text, u"old");
    EXPECT_EQ(ElementDisplay(item->m_Head), u"old");
    EXPECT_THAT(items, ElementsAre(item));
    EXPECT_THAT(entries, ElementsAre(item->m_Head));
}

TEST_F(UndoHistory, PutsTheMasterPasswordBackAndSaysSo) {
    db.SetMasterPassword(u"old");
    u8 old[kPasswordHashSize];
    std::copy(std::begin(db.m_PwdHash), std::end(db.m_PwdHash), old);
    db.SetMasterPassword(u"new");
    EXPECT_EQ(history.Undo(&items, &entries), UNDO_DONE_MASTERPWD);
    EXPECT_TRUE(std::equal(std::begin(old), std::end(old), db.m_PwdHash));
    EXPECT_TRUE(items.empty());
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(history.Undo(&items, &entries), UNDO_DONE_MASTERPWD);
    EXPECT_FALSE(db.HasMasterPassword());
    EXPECT_EQ(history.Undo(&items, &entries), UNDO_NOTHING);
}

// What Undo makes of a record that nothing can be done with: it goes, and the database counts as changed.
class UselessRecord : public UndoHistory {
protected:
    ~UselessRecord() override {
        EXPECT_EQ(history.Undo(&items, &entries), UNDO_NOTHING);
        EXPECT_EQ(history.Count(), 1U);
        EXPECT_TRUE(items.empty());
        EXPECT_TRUE(entries.empty());
        EXPECT_TRUE(db.m_Changed);
        EXPECT_EQ(item->m_Name, u"item");
        EXPECT_EQ(item->m_Date, kBefore);
        EXPECT_EQ(TextsOf<EntryElement>(*item), "[entry]");
    }

    ItemElement* item = PutItem(u"item", {Username(u"entry")});
    bool older = history.Push(UNDO_MOVE, UNDO_ITEMS, &db, 0);
};

TEST_F(UselessRecord, IsAListChangeOfAnotherKind) {
    EXPECT_TRUE(history.Push(UNDO_MOVE, UNDO_ENTRY_TEXT, item, 77));
}

TEST_F(UselessRecord, IsAModificationWithoutObjects) {
    EXPECT_TRUE(history.Push(UNDO_MODIFY, UNDO_ITEM_NAME, &db, 77));
}

TEST_F(UselessRecord, IsAModificationOfAnotherKind) {
    EXPECT_TRUE(history.Push(UNDO_MODIFY, 3, item, 77));
    history.AddObject(item);
}

TEST_F(UselessRecord, IsAListChangeOfNothing) {
    EXPECT_TRUE(history.Push(UNDO_MOVE, UNDO_ENTRIES, nullptr, 77));
}

TEST_F(UselessRecord, IsAMasterPasswordWithoutObjects) {
    EXPECT_TRUE(history.Push(UNDO_MASTERPWD, 0, &db, 77));
}

TEST_F(UselessRecord, IsAnUnknownOperation) {
    EXPECT_TRUE(history.Push(5, UNDO_ITEM_NAME, item, 77));
    history.AddObject(item);
}

// --- Dates ---

TEST_F(UndoHistory, PutsTheDateOfTheTargetBackForChangesToEntries) {
    ItemElement* item = PutItem(u"item", {Addition(u"1")});
    db.AddNewEntry(u"2", item);
    EXPECT_EQ(item->m_Date, kNow);
    TakeBack();
    EXPECT_EQ(item->m_Date, kBefore);
    db.ModifyEntry(item->m_Head, u"new", item);
    EXPECT_EQ(item->m_Date, kNow);
    TakeBack();
    EXPECT_EQ(item->m_Date, kBefore);
}

TEST_F(UndoHistory, PutsTheDateOfTheItemBackForAChangeOfItsName) {
    ItemElement* item = PutItem(u"item");
    db.ModifyItem(item, u"new", &db);
    EXPECT_EQ(item->m_Date, kNow);
    TakeBack();
    EXPECT_EQ(item->m_Date, kBefore);
}

TEST_F(UndoHistory, LeavesTheDateWhereTheItemHadNone) {
    ItemElement* item = PutItem(u"item", {Username(u"old")});
    item->m_Date = 0;
    db.ModifyEntry(item->m_Head, u"new", item);
    TakeBack();
    EXPECT_EQ(item->m_Head->m_Text, u"old");
    EXPECT_EQ(item->m_Date, kNow);
}

TEST_F(UndoHistory, LeavesTheDateOfAnItemThatWasRenamedWithoutAParent) {
    ItemElement* item = PutItem(u"old");
    db.ModifyItem(item, u"new", nullptr);
    TakeBack();
    EXPECT_EQ(item->m_Name, u"old");
    EXPECT_EQ(item->m_Date, kNow);
}

TEST_F(UndoHistory, LeavesTheDateForKind0) {
    ItemElement* item = PutItem(u"item");
    item->m_Date = kNow;
    history.Push(UNDO_MOVE, UNDO_ITEMS, &db, 77);
    history.AddObject(item);
    EXPECT_EQ(TakeBack(), UNDO_DONE);
    EXPECT_EQ(item->m_Date, kNow);
}

// --- The changed flag ---

TEST_F(UndoHistory, FindsTheWayBackToTheOpenedState) {
    Save();
    Change(2);
    TakeBack();
    EXPECT_TRUE(db.m_Changed);
    TakeBack();
    EXPECT_FALSE(db.m_Changed);
    EXPECT_EQ(history.SavedPos(), 0);
}

TEST_F(UndoHistory, FindsTheWayBackToTheOpenedStateAgainAndAgain) {
    Save();
    for (int i = 0; i < 2; ++i) {
        Change();
        EXPECT_TRUE(db.m_Changed);
        TakeBack();
        EXPECT_FALSE(db.m_Changed);
    }
}

TEST_F(UndoHistory, MarksTheDatabaseChangedAfterASave) {
    Change(2);
    Save();
    EXPECT_EQ(history.SavedPos(), 2);
    TakeBack();
    EXPECT_TRUE(db.m_Changed);
    TakeBack();
    EXPECT_TRUE(db.m_Changed);
}

TEST_F(UndoHistory, RecognisesTheStepBackToASavedStateWithOlderRecordsOnce) {
    Change(2);
    Save();
    Change();
    TakeBack();
    EXPECT_FALSE(db.m_Changed);
    EXPECT_EQ(history.SavedPos(), -1);
    TakeBack();
    EXPECT_TRUE(db.m_Changed);
    TakeBack();
    EXPECT_TRUE(db.m_Changed);
}

TEST_F(UndoHistory, HasNoWayBackToASavedStateInADatabaseThatIsChanged) {
    db.m_Changed = true;
    history.MarkSaved();
    EXPECT_EQ(history.SavedPos(), -1);
    Change();
    TakeBack();
    EXPECT_TRUE(db.m_Changed);
}

TEST_F(UndoHistory, MarksTheFlagForAMasterPasswordToo) {
    Save();
    db.SetMasterPassword(u"password");
    EXPECT_EQ(TakeBack(), UNDO_DONE_MASTERPWD);
    EXPECT_FALSE(db.m_Changed);
}

// --- Depth ---

TEST_F(UndoHistory, DropsTheOldestRecordWithThe4097thChange) {
    Change(4096);
    EXPECT_EQ(history.Count(), 4096U);
    Change();
    EXPECT_EQ(history.Count(), 4096U);
    for (int i = 0; i < 4096; ++i)
        ASSERT_EQ(TakeBack(), UNDO_DONE);
    EXPECT_EQ(TakeBack(), UNDO_NOTHING);
    EXPECT_EQ(db.m_Name, u"1");
}

TEST_F(UndoHistory, MovesTheSavedPositionWithEachDroppedRecord) {
    Change(10);
    Save();
    Change(4096);
    EXPECT_EQ(history.SavedPos(), 0);
    for (int i = 1; i < 4096; ++i) {
        TakeBack();
        ASSERT_TRUE(db.m_Changed) << i;
    }
    TakeBack();
    EXPECT_FALSE(db.m_Changed);
    EXPECT_EQ(db.m_Name, u"10");
}

TEST_F(UndoHistory, CannotReachASavedStateThatWasDropped) {
    Save();
    Change(4096);
    EXPECT_EQ(history.SavedPos(), 0);
    Change();
    EXPECT_EQ(history.SavedPos(), -1);
    Change(3);
    EXPECT_EQ(history.SavedPos(), -1);
    for (int i = 0; i < 4096; ++i) {
        ASSERT_EQ(TakeBack(), UNDO_DONE);
        ASSERT_TRUE(db.m_Changed) << i;
    }
    EXPECT_EQ(TakeBack(), UNDO_NOTHING);
}

TEST_F(UndoHistory, DestroysRemovedElementsWithTheRecordThatIsDropped) {
    ItemElement* item = PutItem(u"item", {Addition(u"1"), Addition(u"2")});
    PutItem(u"gone", {Addition(u"with it")});
    ElementArray entry{item->m_Head};
    ElementArray whole{db.m_Tail};
    EXPECT_EQ(db.RemoveEntries(entry, item), 1);
    EXPECT_EQ(db.RemoveItems(whole, &db), 1);
    Change(4096);  // a leak or a double free shows under the sanitizers
    for (int i = 0; i < 4096; ++i)
        ASSERT_EQ(TakeBack(), UNDO_DONE);
    EXPECT_EQ(TextsOf<ItemElement>(db), "[item]");
    EXPECT_EQ(TextsOf<EntryElement>(*item), "[2]");
}

TEST_F(UndoHistory, KeepsAddedElementsWhenTheirRecordIsDropped) {
    ItemElement* item = db.AddNewItem(&db);
    EntryElement* entry = db.AddNewEntry(u"text", item);
    Change(4096);
    EXPECT_EQ(db.m_Head, item);
    EXPECT_EQ(item->m_Tail, entry);
    EXPECT_EQ(entry->m_Text, u"text");
}

TEST_F(UndoHistory, TakesARemovalBackWhenTheRecordOfTheAdditionWasDropped) {
    ItemElement* item = db.AddNewItem(&db);
    Change(4095);
    ElementArray array{item};
    EXPECT_EQ(db.RemoveItems(array, &db), 1);
    EXPECT_EQ(history.Count(), 4096U);
    EXPECT_EQ(TakeBack(), UNDO_DONE);
    EXPECT_EQ(db.m_Head, item);
    EXPECT_EQ(item->m_Count, 3);
}

// --- Discarding ---

TEST_F(UndoHistory, DiscardsNothingWithoutRecords) {
    history.DiscardFront();
    EXPECT_EQ(history.Count(), 0U);
}

TEST_F(UndoHistory, DestroysAddedElementsThatWereTakenBack) {
    PutItem(u"first");
    ItemElement* item = db.AddNewItem(&db);
    db.AddNewEntry(u"text", item);
    EXPECT_EQ(TakeBack(), UNDO_DONE);
    EXPECT_EQ(item->m_Count, 3);
    EXPECT_EQ(TakeBack(), UNDO_DONE);
    EXPECT_EQ(TextsOf<ItemElement>(db), "[first]");
}

TEST_F(UndoHistory, IsClearedWithTheElementsThatItOwnsAndTheSavedPosition) {
    ItemElement* item = PutItem(u"item", {Addition(u"1"), Addition(u"2")});
    PutItem(u"gone", {Addition(u"with it")});
    ElementArray entry{item->m_Head};
    ElementArray whole{db.m_Tail};
    db.RemoveEntries(entry, item);
    db.RemoveItems(whole, &db);
    db.AddNewEntry(u"3", item);
    Save();
    EXPECT_EQ(history.SavedPos(), 3);
    history.Clear();
    EXPECT_EQ(history.Count(), 0U);
    EXPECT_EQ(history.SavedPos(), 0);
    EXPECT_EQ(TextsOf<EntryElement>(*item), "[2][3]");
}

TEST_F(UndoHistory, OwnsTheEntriesOfAnItemThatItOwnsToo) {
    ItemElement* item = PutItem(u"item", {Addition(u"1"), Addition(u"2")});
    ElementArray entry{item->m_Head};
    ElementArray whole{item};
    db.RemoveEntries(entry, item);
    db.RemoveItems(whole, &db);
    EXPECT_EQ(TakeBack(), UNDO_DONE);
    EXPECT_EQ(TakeBack(), UNDO_DONE);
    EXPECT_EQ(TextsOf<EntryElement>(*item), "[1][2]");
}

// --- Saving ---

TEST_F(UndoHistory, IsNotAReasonToSaveInAutoSaveMode) {
    const TempFolder folder;
    db.m_Path = folder.Path(u"a.vmr");
    db.SetMasterPassword(u"password");
    Change();
    db.bAutoSave = true;
    Change();
    EXPECT_FALSE(db.m_Changed);
    TakeBack();
    EXPECT_TRUE(db.m_Changed);
    db.Close();
    VMRD_DB saved;
    EXPECT_TRUE(saved.Open(folder.Path(u"a.vmr"), u"password"));
    EXPECT_EQ(saved.m_Name, u"2");
}

}  // namespace
