#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "database/container.h"
#include "tests/unit/database/recorded_operations.h"
#include "tests/unit/test_files.h"

using ::testing::ElementsAre;

namespace {

// --- ModifyItem, ModifyEntry ---

TEST_F(Operations, ModifyItemSetsTheNameTouchesTheItemAndEmptiesItsDisplay) {
    ItemElement* item = PutItem(u"old");
    ElementDisplay(item);
    EXPECT_TRUE(db.ModifyItem(item, u"new", &db));
    EXPECT_EQ(item->m_Name, u"new");
    EXPECT_TRUE(item->m_Display.empty());
    EXPECT_EQ(item->m_Date, kNow);
    EXPECT_TRUE(db.m_Changed);
    ExpectRecord(UNDO_MODIFY, UNDO_ITEM_NAME, &db, kBefore);
    EXPECT_THAT(db.m_Undo.Front().m_Objects, ElementsAre(item));
    EXPECT_EQ(db.m_Undo.Front().m_OldText, u"old");
}

TEST_F(Operations, ModifyItemWithThePresentNameLeavesDateAndHistoryAlone) {
    ItemElement* item = PutItem(u"name");
    EXPECT_FALSE(db.ModifyItem(item, u"name", &db));
    EXPECT_EQ(item->m_Date, kBefore);
    ExpectUntouched();
}

TEST_F(Operations, ModifyItemRefusesAnEmptyName) {
    ItemElement* item = PutItem(u"name");
    EXPECT_FALSE(db.ModifyItem(item, u"", &db));
    EXPECT_EQ(item->m_Name, u"name");
    ExpectUntouched();
}

TEST_F(Operations, ModifyItemTellsLetterCaseApartAndKeepsLineBreaks) {
    ItemElement* item = PutItem(u"name");
    EXPECT_TRUE(db.ModifyItem(item, u"Name", &db));
    EXPECT_TRUE(db.ModifyItem(item, u"\r\nName\n", &db));
    EXPECT_EQ(item->m_Name, u"\r\nName\n");
}

TEST_F(Operations, ModifyItemNeedsNoParent) {
    ItemElement* item = PutItem(u"old");
    EXPECT_TRUE(db.ModifyItem(item, u"new", nullptr));
    ExpectRecord(UNDO_MODIFY, UNDO_ITEM_NAME, nullptr, kBefore);
}

TEST_F(Operations, ModifyEntrySetsTheTextTouchesTheItemAndEmptiesTheDisplay) {
    ItemElement* item = PutItem(u"item", {Password(u"old")});
    ElementDisplay(item->m_Head);
    EXPECT_TRUE(db.ModifyEntry(item->m_Head, u"new", item));
    EXPECT_EQ(item->m_Head->m_Text, u"new");
    EXPECT_TRUE(item->m_Head->m_Display.empty());
    EXPECT_EQ(item->m_Date, kNow);
    EXPECT_TRUE(db.m_Changed);
    ExpectRecord(UNDO_MODIFY, UNDO_ENTRY_TEXT, item, kBefore);
    EXPECT_THAT(db.m_Undo.Front().m_Objects, ElementsAre(item->m_Head));
    EXPECT_EQ(db.m_Undo.Front().m_OldText, u"old");
}

TEST_F(Operations, ModifyEntryCutsLineBreaksFromBothEndsAlone) {
    ItemElement* item = PutItem(u"item", {Addition(u"old")});
    EXPECT_TRUE(db.ModifyEntry(item->m_Head, u"\r\n\n \ta\r\nb\t \r\r\n", item));
    EXPECT_EQ(item->m_Head->m_Text, u" \ta\r\nb\t ");
}

TEST_F(Operations, ModifyEntryWithATextThatDiffersInOuterLineBreaksOnlyDoesNothing) {
    ItemElement* item = PutItem(u"item", {Addition(u"text")});
    EXPECT_FALSE(db.ModifyEntry(item->m_Head, u"text", item));
    EXPECT_FALSE(db.ModifyEntry(item->m_Head, u"\r\ntext\n", item));
    EXPECT_EQ(item->m_Date, kBefore);
    ExpectUntouched();
}

TEST_F(Operations, ModifyEntryCanEmptyTheText) {
    ItemElement* item = PutItem(u"item", {Addition(u"text")});
    EXPECT_TRUE(db.ModifyEntry(item->m_Head, u"\r\n", item));
    EXPECT_TRUE(item->m_Head->m_Text.empty());
}

TEST_F(Operations, ModifyEntryNeedsAParent) {
    ItemElement* item = PutItem(u"item", {Addition(u"text")});
    EXPECT_FALSE(db.ModifyEntry(item->m_Head, u"new", nullptr));
    EXPECT_EQ(item->m_Head->m_Text, u"text");
    ExpectUntouched();
}

TEST_F(Operations, ModifyOfNothingDoesNothing) {
    ItemElement* item = PutItem(u"item");
    EXPECT_FALSE(db.ModifyItem(nullptr, u"new", &db));
    EXPECT_FALSE(db.ModifyEntry(nullptr, u"new", item));
    ExpectUntouched();
}

TEST_F(Operations, ModifyWorksForTheOtherClassToo) {
    ItemElement* item = PutItem(u"item", {Addition(u"text")});
    EXPECT_TRUE(db.ModifyItem(item->m_Head, u"new text", item));
    EXPECT_TRUE(db.ModifyEntry(item, u"new name", &db));
    EXPECT_EQ(item->m_Head->m_Text, u"new text");
    EXPECT_EQ(item->m_Name, u"new name");
}

// --- SetName, SetPath, SetMasterPassword ---

TEST_F(Operations, SetNameIsRecordedAndEmptiesTheDisplayName) {
    db.DisplayName();
    db.SetName(u"name");
    EXPECT_EQ(db.m_Name, u"name");
    EXPECT_TRUE(db.m_Display.empty());
    EXPECT_TRUE(db.m_Changed);
    ExpectRecord(UNDO_MODIFY, UNDO_DB_NAME, &db, 0);
    EXPECT_THAT(db.m_Undo.Front().m_Objects, ElementsAre(static_cast<VMRD_Object*>(&db)));
}

TEST_F(Operations, SetNameToThePresentNameDoesNothing) {
    db.m_Name = u"name";
    db.DisplayName();
    db.SetName(u"name");
    EXPECT_EQ(db.m_Display, u"name");
    ExpectUntouched();
    db.SetName(u"Name");
    EXPECT_EQ(Records(), 1U);
}

TEST_F(Operations, SetNameMayEmptyTheName) {
    db.m_Name = u"name";
    db.SetName(u"");
    EXPECT_TRUE(db.m_Name.empty());
    EXPECT_EQ(Records(), 1U);
}

TEST_F(Operations, SetPathIsNotRecorded) {
    db.DisplayName();
    db.SetPath(u"file.vmr");
    EXPECT_EQ(db.m_Path, u"file.vmr");
    EXPECT_TRUE(db.m_Display.empty());
    EXPECT_TRUE(db.m_Changed);
    EXPECT_EQ(Records(), 0U);
}

TEST_F(Operations, SetPathInOtherLetterCaseChangesNothing) {
    db.m_Path = u"Folder/\u00c4file.vmr";
    db.DisplayName();
    db.SetPath(u"folder/\u00e4FILE.vmr");
    EXPECT_EQ(db.m_Path, u"Folder/\u00c4file.vmr");
    EXPECT_FALSE(db.m_Display.empty());
    ExpectUntouched();
}

TEST_F(Operations, SetMasterPasswordTakesTheHash) {
    u8 hash[kPasswordHashSize];
    HashPassword(u"password", hash);
    EXPECT_TRUE(db.SetMasterPassword(u"password"));
    EXPECT_TRUE(std::equal(std::begin(hash), std::end(hash), db.m_PwdHash));
    EXPECT_TRUE(db.m_Changed);
    ExpectRecord(UNDO_MASTERPWD, 0, &db, 0);
    EXPECT_THAT(db.m_Undo.Front().m_Objects, ElementsAre(static_cast<VMRD_Object*>(&db)));
}

TEST_F(Operations, SetMasterPasswordToThePresentOneDoesNothing) {
    EXPECT_FALSE(db.SetMasterPassword(u""));
    ExpectUntouched();
    EXPECT_TRUE(db.SetMasterPassword(u"password"));
    EXPECT_FALSE(db.SetMasterPassword(u"password"));
    EXPECT_EQ(Records(), 1U);
}

TEST_F(Operations, SetMasterPasswordToAnEmptyTextTakesItAwayAndSaveRefuses) {
    const TempFolder folder;
    db.m_Name = u"name";
    db.m_Path = folder.Path(u"a.vmr");
    EXPECT_TRUE(db.SetMasterPassword(u"password"));
    EXPECT_TRUE(db.Save());
    EXPECT_TRUE(db.SetMasterPassword(u""));
    EXPECT_FALSE(db.HasMasterPassword());
    EXPECT_FALSE(db.Save());
    EXPECT_TRUE(db.m_Changed);
    EXPECT_TRUE(db.SetMasterPassword(u"password"));
    EXPECT_TRUE(db.Save());
    EXPECT_FALSE(db.m_Changed);
}

// --- Auto-save ---

class AutoSave : public Operations {
protected:
    AutoSave() {
        db.m_Path = folder.Path(u"a.vmr");
        db.SetMasterPassword(u"password");
        db.bAutoSave = true;
    }
    // True once for each save: the flag is false after one.
    bool Saved() {
        const bool saved = !db.m_Changed && db.m_Undo.SavedPos() == static_cast<i32>(Records());
        db.m_Changed = true;
        db.m_Undo.MarkSaved();
        return saved;
    }

    TempFolder folder;
};

TEST_F(AutoSave, FollowsEachChange) {
    ItemElement* item = PutItem(u"item", {Username(u"me")});
    PutItem(u"other");
    ElementArray array{item};
    db.MoveItems(array, false, &db);
    EXPECT_TRUE(Saved());
    db.ModifyItem(item, u"renamed", &db);
    EXPECT_TRUE(Saved());
    EntryElement* entry = db.AddNewEntry(u"text", item);
    EXPECT_TRUE(Saved());
    db.ModifyEntry(entry, u"other text", item);
    EXPECT_TRUE(Saved());
    ElementArray entries{entry};
    db.MoveEntries(entries, true, item);
    EXPECT_TRUE(Saved());
    db.RemoveEntries(entries, item);
    EXPECT_TRUE(Saved());
    db.AddNewItem(&db);
    EXPECT_TRUE(Saved());
    db.RemoveItems(array, &db);
    EXPECT_TRUE(Saved());
    db.SetName(u"name");
    EXPECT_TRUE(Saved());
    db.SetPath(folder.Path(u"b.vmr"));
    EXPECT_TRUE(Saved());
    db.SetMasterPassword(u"another");
    EXPECT_TRUE(Saved());
}

TEST_F(AutoSave, FollowsNoRefusedChange) {
    ItemElement* item = PutItem(u"item");
    db.m_Changed = true;
    db.ModifyItem(item, u"item", &db);
    db.SetName(u"");
    db.SetMasterPassword(u"password");
    ElementArray array{item};
    db.MoveItems(array, true, &db);
    EXPECT_TRUE(db.m_Changed);
    EXPECT_FALSE(db.m_File);
}

TEST_F(AutoSave, WritesWhatTheDatabaseHoldsThen) {
    ItemElement* item = db.AddNewItem(&db);
    db.ModifyItem(item, u"mail", &db);
    db.Close();
    VMRD_DB saved;
    ASSERT_TRUE(saved.Open(folder.Path(u"a.vmr"), u"password"));
    EXPECT_EQ(TextsOf<ItemElement>(saved), "[mail]");
}

// --- Carriers ---

class Carrier : public Operations {
protected:
    ~Carrier() override {
        EXPECT_EQ(carrier.m_Undo.Count(), 0U);
        EXPECT_EQ(Records(), 0U);
    }
    VMRD_DB carrier;
    VMRD_Item item;
};

TEST_F(Carrier, RecordsNothing) {
    carrier.m_Opened = true;
    ItemElement* added = carrier.AddNewItem(&carrier);
    ASSERT_NE(added, nullptr);
    EXPECT_NE(carrier.AddNewEntry(u"text", added), nullptr);
    ElementArray array{added->m_Tail};
    EXPECT_EQ(carrier.MoveEntries(array, true, added), 1);
    EXPECT_TRUE(carrier.ModifyItem(added, u"new", &carrier));
    EXPECT_TRUE(carrier.ModifyEntry(added->m_Head, u"new", added));
    carrier.SetName(u"name");
    EXPECT_TRUE(carrier.SetMasterPassword(u"password"));
    EXPECT_TRUE(carrier.m_Changed);
    EXPECT_EQ(carrier.Undo(nullptr, nullptr), UNDO_NOTHING);
    EXPECT_EQ(TextsOf<EntryElement>(*added), "[new][][text][]");
}

TEST_F(Carrier, DestroysWhatIsRemovedFromIt) {
    ElementQueue queue{&item};
    EXPECT_EQ(carrier.AddItems(queue, nullptr, &carrier), 1);
    ElementArray array{queue.front()};
    EXPECT_EQ(carrier.RemoveItems(array, &carrier), 0);  // a leak shows under the sanitizers
    EXPECT_TRUE(array.empty());
    EXPECT_EQ(carrier.m_Count, 0);
}

TEST_F(Carrier, IsNotRecordedByTheOpenDatabaseEither) {
    ElementQueue queue{&item};
    EXPECT_EQ(db.AddItems(queue, nullptr, &carrier), 1);
    ElementArray array{queue.front()};
    EXPECT_EQ(db.MoveItems(array, true, &carrier), 0);
    array.assign({queue.front()});
    EXPECT_EQ(db.RemoveItems(array, &carrier), 0);
    EXPECT_EQ(carrier.m_Count, 0);
}

TEST_F(Operations, ThatCannotBeRecordedLeaveTheNewestRecordAsItIs) {
    ItemElement* kept = PutItem(u"kept");
    ElementArray removed{PutItem(u"removed")};
    db.RemoveItems(removed, &db);
    VMRD_DB carrier;
    VMRD_Item item;
    ElementQueue queue{&item};
    db.AddItems(queue, nullptr, &carrier);
    ElementArray array{queue.front()};
    db.RemoveItems(array, &carrier);
    EXPECT_THAT(db.m_Undo.Front().m_Objects, ElementsAre(removed.front()));
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_THAT(ElementsOf<ItemElement>(db), ElementsAre(kept, removed.front()));
}

}  // namespace
