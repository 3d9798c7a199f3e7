#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "foundation/language.h"
#include "tests/unit/database/recorded_operations.h"

using ::testing::ElementsAre;

namespace {

VMRD_Item* Named(VMRD_Item& item, const tvstring& name) {
    item.m_Name = name;
    item.m_Date = 77;
    return &item;
}

// --- New ---

TEST_F(Operations, NewStartsWithOneItemThatCannotBeTakenBack) {
    db.SetName(u"old");
    EXPECT_TRUE(db.New(u"fresh"));
    EXPECT_EQ(db.m_Name, u"fresh");
    EXPECT_EQ(db.m_Count, 1);
    EXPECT_EQ(Records(), 0U);
    EXPECT_EQ(db.m_Undo.SavedPos(), -1);
    EXPECT_TRUE(db.m_Opened);
    EXPECT_TRUE(db.m_Changed);
    EXPECT_EQ(Undo(), UNDO_NOTHING);
    EXPECT_EQ(db.m_Count, 1);
}

TEST_F(Operations, NewTakesTheNameOfTheDatabaseThatItCloses) {
    db.SetName(u"name");
    EXPECT_TRUE(db.New(db.m_Name));
    EXPECT_EQ(db.m_Name, u"name");
}

TEST_F(Operations, NewStaysChangedThroughUndo) {
    db.New(u"fresh");
    db.SetName(u"other");
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_TRUE(db.m_Changed);
}

TEST_F(Operations, NewDoesNotSaveInAutoSaveMode) {
    db.bAutoSave = true;
    EXPECT_TRUE(db.New(u"fresh"));
    EXPECT_TRUE(db.m_Changed);
    EXPECT_FALSE(db.m_File);
}

// --- AddNewItem, AddNewEntry ---

TEST_F(Operations, AddNewItemAppendsTheDefaultNameWithThreeEmptyBasicEntries) {
    PutItem(u"first");
    const ItemElement* item = db.AddNewItem(&db);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(db.m_Tail, item);
    EXPECT_EQ(item->m_Name, DefaultItemName());
    EXPECT_FALSE(item->m_Name.empty());
    EXPECT_EQ(item->m_Date, kNow);
    EXPECT_EQ(Entries(item), "[][][]");
    EXPECT_EQ(item->m_Head->m_Type, VMRD_T_PROGRAM);
    EXPECT_EQ(item->m_Head->m_Next->m_Type, VMRD_T_USERNAME);
    EXPECT_EQ(item->m_Tail->m_Type, VMRD_T_PASSWORD);
    EXPECT_TRUE(db.m_Changed);
    ExpectRecord(UNDO_ADD, UNDO_ITEMS, &db, 0);
}

TEST_F(Operations, AddNewItemNeedsAnOpenDatabase) {
    db.m_Opened = false;
    EXPECT_EQ(db.AddNewItem(&db), nullptr);
    EXPECT_EQ(db.m_Count, 0);
    ExpectUntouched();
}

TEST_F(Operations, AddNewItemToNothingGivesNull) {
    EXPECT_EQ(db.AddNewItem(nullptr), nullptr);
    ExpectUntouched();
}

TEST_F(Operations, AddNewEntryAppendsAnAdditionalEntry) {
    ItemElement* item = PutItem(u"item", {Username(u"me")});
    const EntryElement* entry = db.AddNewEntry(u"note", item);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(item->m_Tail, entry);
    EXPECT_EQ(entry->m_Type, VMRD_T_ADDITION);
    EXPECT_EQ(entry->m_Text, u"note");
    EXPECT_EQ(item->m_Date, kNow);
    EXPECT_TRUE(db.m_Changed);
    ExpectRecord(UNDO_ADD, UNDO_ENTRIES, item, kBefore);
}

TEST_F(Operations, AddNewEntryNeedsATextAnItemAndAnOpenDatabase) {
    ItemElement* item = PutItem(u"item");
    EXPECT_EQ(db.AddNewEntry(u"", item), nullptr);
    EXPECT_EQ(db.AddNewEntry(u"note", nullptr), nullptr);
    db.m_Opened = false;
    EXPECT_EQ(db.AddNewEntry(u"note", item), nullptr);
    EXPECT_EQ(item->m_Count, 0);
    EXPECT_EQ(item->m_Date, kBefore);
    ExpectUntouched();
}

// --- AddItems, AddEntries ---

TEST_F(Operations, AddItemsBeforeTheHeadPutsTheCopiesFirstInQueueOrder) {
    PutItem(u"old");
    VMRD_Item one;
    VMRD_Item two;
    ElementQueue queue{Named(one, u"1"), Named(two, u"2")};
    EXPECT_EQ(db.AddItems(queue, db.m_Head, &db), 2);
    EXPECT_EQ(Items(), "[1][2][old]");
    EXPECT_THAT(queue, ElementsAre(db.m_Head, db.m_Head->m_Next));
    EXPECT_EQ(db.m_Head->m_Date, 77U);
    EXPECT_TRUE(db.m_Changed);
    ExpectRecord(UNDO_ADD, UNDO_ITEMS, &db, 0);
    EXPECT_THAT(db.m_Undo.Front().m_Objects, ElementsAre(db.m_Head->m_Next, db.m_Head));
}

TEST_F(Operations, AddItemsBeforeNullAppendsInQueueOrder) {
    PutItem(u"old");
    VMRD_Item one;
    VMRD_Item two;
    ElementQueue queue{Named(one, u"1"), Named(two, u"2")};
    EXPECT_EQ(db.AddItems(queue, nullptr, &db), 2);
    EXPECT_EQ(Items(), "[old][1][2]");
}

TEST_F(Operations, AddItemsBetweenTwoAndUndoGivesBackTheOldOrder) {
    PutItem(u"a");
    ItemElement* last = PutItem(u"b");
    VMRD_Item one;
    ElementQueue queue{Named(one, u"1")};
    EXPECT_EQ(db.AddItems(queue, last, &db), 1);
    EXPECT_EQ(Items(), "[a][1][b]");
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(Items(), "[a][b]");
}

TEST_F(Operations, AddItemsCanCopyAnItemOfTheListItself) {
    ItemElement* item = PutItem(u"a", {Username(u"me")});
    ElementQueue queue{item};
    EXPECT_EQ(db.AddItems(queue, item, &db), 1);
    EXPECT_EQ(Items(), "[a][a]");
    EXPECT_EQ(Entries(db.m_Head), "[me]");
    EXPECT_EQ(db.m_Tail, item);
}

TEST_F(Operations, AddItemsToNothingEmptiesTheQueue) {
    VMRD_Item one;
    ElementQueue queue{&one};
    EXPECT_EQ(db.AddItems(queue, nullptr, nullptr), 0);
    EXPECT_TRUE(queue.empty());
    ExpectUntouched();
}

TEST_F(Operations, AddItemsOfAnEmptyQueueDoesNothing) {
    ElementQueue queue;
    EXPECT_EQ(db.AddItems(queue, nullptr, &db), 0);
    ExpectUntouched();
}

TEST_F(Operations, AddItemsBeforeAnElementOfNoListLeavesARecordAlone) {
    PutItem(u"old");
    ItemElement stranger;
    VMRD_Item one;
    ElementQueue queue{&one};
    EXPECT_EQ(db.AddItems(queue, &stranger, &db), 0);
    EXPECT_TRUE(queue.empty());
    EXPECT_EQ(Items(), "[old]");
    EXPECT_FALSE(db.m_Changed);
    EXPECT_EQ(Records(), 1U);
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(Items(), "[old]");
}

TEST_F(Operations, AddItemsPassesOverWhatIsNoItem) {
    VMRD_Item item;
    VMRD_Entry entry;
    ElementQueue queue{nullptr, &entry, Named(item, u"item")};
    EXPECT_EQ(db.AddItems(queue, nullptr, &db), 1);
    EXPECT_EQ(Items(), "[item]");
    ExpectRecord(UNDO_ADD, UNDO_ITEMS, &db, 0);
}

TEST_F(Operations, AddEntriesPutsTheCopiesBeforeThePlaceAndTouchesTheItem) {
    ItemElement* item = PutItem(u"item", {Username(u"me"), Addition(u"last")});
    VMRD_Entry one = Addition(u"1");
    VMRD_Entry two = Password(u"2");
    ElementQueue queue{&one, &two};
    EXPECT_EQ(db.AddEntries(queue, item->m_Tail, item), 2);
    EXPECT_EQ(Entries(item), "[me][1][2][last]");
    EXPECT_THAT(queue, ElementsAre(item->m_Head->m_Next, item->m_Tail->m_Prev));
    EXPECT_EQ(item->m_Tail->m_Prev->m_Type, VMRD_T_PASSWORD);
    EXPECT_EQ(item->m_Date, kNow);
    EXPECT_TRUE(db.m_Changed);
    ExpectRecord(UNDO_ADD, UNDO_ENTRIES, item, kBefore);
}

TEST_F(Operations, AddEntriesKeepsALaterDate) {
    ItemElement* item = PutItem(u"item");
    item->m_Date = kNow + 1;
    VMRD_Entry one = Addition(u"1");
    ElementQueue queue{&one};
    EXPECT_EQ(db.AddEntries(queue, nullptr, item), 1);
    EXPECT_EQ(item->m_Date, kNow + 1);
}

TEST_F(Operations, AddEntriesToNothingEmptiesTheQueue) {
    VMRD_Entry one;
    ElementQueue queue{&one};
    EXPECT_EQ(db.AddEntries(queue, nullptr, nullptr), 0);
    EXPECT_TRUE(queue.empty());
    ExpectUntouched();
}

TEST_F(Operations, AddEntriesOfAnEmptyQueueDoesNothing) {
    ItemElement* item = PutItem(u"item");
    ElementQueue queue;
    EXPECT_EQ(db.AddEntries(queue, nullptr, item), 0);
    EXPECT_EQ(item->m_Date, kBefore);
    ExpectUntouched();
}

TEST_F(Operations, AddEntriesPassesOverWhatIsNoEntry) {
    ItemElement* item = PutItem(u"item");
    VMRD_Item other;
    VMRD_Entry entry = Addition(u"1");
    ElementQueue queue{nullptr, &other, &entry};
    EXPECT_EQ(db.AddEntries(queue, nullptr, item), 1);
    EXPECT_EQ(Entries(item), "[1]");
    ExpectRecord(UNDO_ADD, UNDO_ENTRIES, item, kBefore);
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(item->m_Count, 0);
}

TEST_F(Operations, AddEntriesThatAddsNothingLeavesTheItemsDate) {
    ItemElement* item = PutItem(u"item", {Username(u"me")});
    EntryElement stranger;
    VMRD_Entry entry = Addition(u"1");
    ElementQueue queue{&entry};
    EXPECT_EQ(db.AddEntries(queue, &stranger, item), 0);
    EXPECT_EQ(item->m_Date, kBefore);
    EXPECT_FALSE(db.m_Changed);
    EXPECT_EQ(Records(), 1U);
}

// --- RemoveItems, RemoveEntries ---

TEST_F(Operations, RemoveItemsTakesThemOutAndUndoPutsThemIntoTheirPlaces) {
    ItemElement* a = PutItem(u"a");
    PutItem(u"b");
    ItemElement* c = PutItem(u"c", {Username(u"me")});
    ElementArray array{a, c};
    EXPECT_EQ(db.RemoveItems(array, &db), 2);
    EXPECT_THAT(array, ElementsAre(a, c));
    EXPECT_EQ(Items(), "[b]");
    EXPECT_TRUE(db.m_Changed);
    ExpectRecord(UNDO_REMOVE, UNDO_ITEMS, &db, 0);
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(Items(), "[a][b][c]");
    EXPECT_EQ(c->m_Date, kBefore);
    EXPECT_EQ(Entries(c), "[me]");
}

TEST_F(Operations, RemoveEntriesAndUndoGiveBackThePlaceAndTheDate) {
    ItemElement* item = PutItem(u"item", {Username(u"me"), Addition(u"1"), Addition(u"2")});
    EntryElement* entry = item->m_Head->m_Next;
    ElementArray array{entry};
    EXPECT_EQ(db.RemoveEntries(array, item), 1);
    EXPECT_THAT(array, ElementsAre(entry));
    EXPECT_EQ(Entries(item), "[me][2]");
    EXPECT_EQ(item->m_Date, kNow);
    EXPECT_TRUE(db.m_Changed);
    ExpectRecord(UNDO_REMOVE, UNDO_ENTRIES, item, kBefore);
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(Entries(item), "[me][1][2]");
    EXPECT_EQ(item->m_Head->m_Next, entry);
    EXPECT_EQ(item->m_Date, kBefore);
}

TEST_F(Operations, RemoveEntriesRemovesWhatItIsGivenBasicOrNot) {
    ItemElement* item = PutItem(u"item", {Password(u"secret")});
    ElementArray array{item->m_Head};
    EXPECT_EQ(db.RemoveEntries(array, item), 1);
    EXPECT_EQ(item->m_Count, 0);
}

TEST_F(Operations, RemoveLeavesOutWhatIsNotInTheList) {
    PutItem(u"a");
    ItemElement* b = PutItem(u"b");
    ItemElement stranger;
    EntryElement entry;
    ElementArray array{&stranger, nullptr, b, &entry, b};
    EXPECT_EQ(db.RemoveItems(array, &db), 1);
    EXPECT_THAT(array, ElementsAre(b));
    EXPECT_EQ(Items(), "[a]");
    EXPECT_THAT(db.m_Undo.Front().m_Objects, ElementsAre(b));
}

TEST_F(Operations, RemoveThatTakesNothingOutLeavesARecordAlone) {
    ItemElement* item = PutItem(u"item", {Username(u"me")});
    EntryElement stranger;
    ElementArray array{&stranger};
    EXPECT_EQ(db.RemoveEntries(array, item), 0);
    EXPECT_TRUE(array.empty());
    EXPECT_EQ(item->m_Date, kBefore);
    EXPECT_FALSE(db.m_Changed);
    EXPECT_EQ(Records(), 1U);
}

TEST_F(Operations, RemoveFromNothingEmptiesTheArray) {
    ItemElement* item = PutItem(u"item", {Username(u"me")});
    ElementArray items{item};
    ElementArray entries{item->m_Head};
    EXPECT_EQ(db.RemoveItems(items, nullptr), 0);
    EXPECT_EQ(db.RemoveEntries(entries, nullptr), 0);
    EXPECT_TRUE(items.empty());
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(item->m_Count, 1);
    ExpectUntouched();
}

TEST_F(Operations, RemoveOfAnEmptyArrayDoesNothing) {
    ItemElement* item = PutItem(u"item");
    ElementArray array;
    EXPECT_EQ(db.RemoveItems(array, &db), 0);
    EXPECT_EQ(db.RemoveEntries(array, item), 0);
    ExpectUntouched();
}

// --- MoveItems, MoveEntries ---

TEST_F(Operations, MoveItemsMovesOnePlaceUp) {
    PutItem(u"a");
    PutItem(u"b");
    ItemElement* c = PutItem(u"c");
    ElementArray array{c};
    EXPECT_EQ(db.MoveItems(array, true, &db), 1);
    EXPECT_EQ(Items(), "[a][c][b]");
    EXPECT_THAT(array, ElementsAre(c));
    EXPECT_EQ(c->m_Date, kBefore);
    EXPECT_TRUE(db.m_Changed);
    ExpectRecord(UNDO_MOVE, UNDO_ITEMS, &db, 0);
    EXPECT_TRUE(db.m_Undo.Front().m_Objects.empty());
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(Items(), "[a][b][c]");
}

TEST_F(Operations, MoveItemsMovesTheLastButOneDownToTheTail) {
    PutItem(u"a");
    ItemElement* b = PutItem(u"b");
    PutItem(u"c");
    ElementArray array{b};
    EXPECT_EQ(db.MoveItems(array, false, &db), 1);
    EXPECT_EQ(Items(), "[a][c][b]");
    EXPECT_EQ(db.m_Tail, b);
}

TEST_F(Operations, MoveItemsMovesOnePlaceDown) {
    ItemElement* a = PutItem(u"a");
    PutItem(u"b");
    PutItem(u"c");
    ElementArray array{a};
    EXPECT_EQ(db.MoveItems(array, false, &db), 1);
    EXPECT_EQ(Items(), "[b][a][c]");
}

TEST_F(Operations, MoveItemsMovesASelectionTogether) {
    PutItem(u"a");
    ItemElement* b = PutItem(u"b");
    ItemElement* c = PutItem(u"c");
    PutItem(u"d");
    ElementArray up{b, c};
    EXPECT_EQ(db.MoveItems(up, true, &db), 2);
    EXPECT_EQ(Items(), "[b][c][a][d]");
    ElementArray down{c, b};
    EXPECT_EQ(db.MoveItems(down, false, &db), 2);
    EXPECT_EQ(Items(), "[a][b][c][d]");
}

TEST_F(Operations, MoveItemsUpThatStartsWithTheHeadMovesNothingButLeavesARecord) {
    ItemElement* a = PutItem(u"a");
    ItemElement* b = PutItem(u"b");
    ElementArray array{a, b};
    EXPECT_EQ(db.MoveItems(array, true, &db), 0);
    EXPECT_TRUE(array.empty());
    EXPECT_FALSE(db.m_Changed);
    EXPECT_EQ(Records(), 1U);
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_THAT(ElementsOf<ItemElement>(db), ElementsAre(a, b));
}

TEST_F(Operations, MoveItemsDownThatStartsWithTheTailMovesNothingButLeavesARecord) {
    ItemElement* a = PutItem(u"a");
    ItemElement* b = PutItem(u"b");
    ElementArray array{b, a};
    EXPECT_EQ(db.MoveItems(array, false, &db), 0);
    EXPECT_EQ(Items(), "[a][b]");
    EXPECT_EQ(Records(), 1U);
}

TEST_F(Operations, MoveItemsStopsAtTheFirstThatHasReachedTheEnd) {
    PutItem(u"a");
    ItemElement* b = PutItem(u"b");
    ItemElement* c = PutItem(u"c");
    ElementArray array{b, b, c};
    EXPECT_EQ(db.MoveItems(array, true, &db), 1);
    EXPECT_THAT(array, ElementsAre(b));
    EXPECT_EQ(Items(), "[b][a][c]");
}

TEST_F(Operations, MoveItemsLeavesOutWhatIsNotInTheList) {
    PutItem(u"a");
    ItemElement* b = PutItem(u"b");
    ItemElement stranger;
    for (const bool up : {true, false}) {
        ElementArray array{nullptr, &stranger};
        EXPECT_EQ(db.MoveItems(array, up, &db), 0);
        EXPECT_TRUE(array.empty());
    }
    ElementArray array{&stranger, nullptr, b};
    EXPECT_EQ(db.MoveItems(array, true, &db), 1);
    EXPECT_THAT(array, ElementsAre(b));
}

TEST_F(Operations, MoveEntriesLeavesTheItemsDate) {
    ItemElement* item = PutItem(u"item", {Username(u"me"), Addition(u"1"), Addition(u"2")});
    EntryElement* last = item->m_Tail;
    ElementArray array{last};
    EXPECT_EQ(db.MoveEntries(array, true, item), 1);
    EXPECT_EQ(Entries(item), "[me][2][1]");
    EXPECT_EQ(item->m_Date, kBefore);
    EXPECT_TRUE(db.m_Changed);
    ExpectRecord(UNDO_MOVE, UNDO_ENTRIES, item, 0);
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(Entries(item), "[me][1][2]");
    EXPECT_EQ(item->m_Date, kBefore);
}

TEST_F(Operations, MoveInNothingEmptiesTheArray) {
    ItemElement* item = PutItem(u"item", {Username(u"me")});
    ElementArray items{item};
    ElementArray entries{item->m_Head};
    EXPECT_EQ(db.MoveItems(items, true, nullptr), 0);
    EXPECT_EQ(db.MoveEntries(entries, true, nullptr), 0);
    EXPECT_TRUE(items.empty());
    EXPECT_TRUE(entries.empty());
    ExpectUntouched();
}

TEST_F(Operations, MoveOfAnEmptyArrayDoesNothing) {
    ItemElement* item = PutItem(u"item");
    ElementArray array;
    EXPECT_EQ(db.MoveItems(array, true, &db), 0);
    EXPECT_EQ(db.MoveEntries(array, false, item), 0);
    ExpectUntouched();
}

}  // namespace
