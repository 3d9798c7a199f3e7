#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/database/recorded_operations.h"
#include "tests/unit/test_files.h"

using ::testing::ElementsAre;

namespace {

class Merge : public Operations {
protected:
    static ElementArray All(const ItemElement* item) {
        const auto elements = ElementsOf<EntryElement>(*item);
        return {elements.begin(), elements.end()};
    }
};

tvstring Long(std::size_t length) {
    return {length, u'x'};
}

// --- MergeEntries ---

TEST_F(Merge, EntriesStandOnLinesOfTheirOwnInTheFirst) {
    ItemElement* item =
        PutItem(u"item", {Username(u"me"), Addition(u"a"), Addition(u""), Addition(u"b\r\nc")});
    EntryElement* first = item->m_Head->m_Next;
    ElementArray array{first, item->m_Tail->m_Prev, item->m_Tail};
    EXPECT_EQ(db.MergeEntries(array, u"", item), first);
    EXPECT_EQ(Entries(item), "[me][a\r\nb\r\nc]");
    EXPECT_EQ(array.size(), 2U);
    EXPECT_EQ(item->m_Date, kNow);
    EXPECT_TRUE(db.m_Changed);
}

TEST_F(Merge, EntriesAreReversedInTwoSteps) {
    ItemElement* item = PutItem(u"item", {Addition(u"a"), Addition(u"b"), Addition(u"c")});
    ElementArray array = All(item);
    db.MergeEntries(array, u"", item);
    EXPECT_EQ(Records(), 2U);
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(Entries(item), "[a\r\nb\r\nc][b][c]");
    EXPECT_EQ(item->m_Date, kNow);
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(Entries(item), "[a][b][c]");
    EXPECT_EQ(item->m_Date, kBefore);
}

TEST_F(Merge, EntriesFollowTheOrderOfTheArray) {
    ItemElement* item = PutItem(u"item", {Addition(u"a"), Addition(u"b"), Addition(u"c")});
    ElementArray array{item->m_Tail, item->m_Head};
    EntryElement* last = item->m_Tail;
    EXPECT_EQ(db.MergeEntries(array, u"", item), last);
    EXPECT_EQ(Entries(item), "[b][c\r\na]");
}

TEST_F(Merge, EntriesKeepTheTypeOfTheFirst) {
    ItemElement* item = PutItem(u"item", {Password(u"secret"), Addition(u"a")});
    ElementArray array = All(item);
    EntryElement* merged = db.MergeEntries(array, u"", item);
    EXPECT_EQ(merged->m_Type, VMRD_T_PASSWORD);
}

TEST_F(Merge, EntriesTakeAGivenTextInstead) {
    ItemElement* item = PutItem(u"item", {Addition(u"a"), Addition(u"b")});
    ElementArray array = All(item);
    EXPECT_EQ(db.MergeEntries(array, u"\r\ngiven\r\n", item), item->m_Head);
    EXPECT_EQ(Entries(item), "[given]");
}

TEST_F(Merge, EntriesWithTheTextOfTheFirstAreOnlyRemoved) {
    ItemElement* item = PutItem(u"item", {Addition(u"a"), Addition(u"")});
    ElementArray array = All(item);
    EXPECT_EQ(db.MergeEntries(array, u"", item), item->m_Head);
    EXPECT_EQ(Entries(item), "[a]");
    EXPECT_EQ(Records(), 1U);
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(Entries(item), "[a][]");
}

TEST_F(Merge, EntriesLetAnEmptyFirstTakeTheOthersText) {
    ItemElement* item = PutItem(u"item", {Addition(u""), Addition(u"b")});
    ElementArray array = All(item);
    EXPECT_EQ(db.MergeEntries(array, u"", item), item->m_Head);
    EXPECT_EQ(Entries(item), "[b]");
}

TEST_F(Merge, EntriesWithoutAnyTextAreRefused) {
    ItemElement* item = PutItem(u"item", {Addition(u""), Addition(u"")});
    ElementArray array = All(item);
    EXPECT_EQ(db.MergeEntries(array, u"", item), nullptr);
    EXPECT_EQ(array.size(), 2U);
    EXPECT_EQ(item->m_Count, 2);
    EXPECT_EQ(Records(), 0U);
}

TEST_F(Merge, EntriesFewerThanTwoAreRefused) {
    ItemElement* item = PutItem(u"item", {Addition(u"a")});
    ElementArray none;
    ElementArray one = All(item);
    EXPECT_EQ(db.MergeEntries(none, u"text", item), nullptr);
    EXPECT_EQ(db.MergeEntries(one, u"text", item), nullptr);
    EXPECT_EQ(Entries(item), "[a]");
    EXPECT_EQ(Records(), 0U);
}

TEST_F(Merge, EntriesOfNothingAreRefused) {
    ItemElement* item = PutItem(u"item", {Addition(u"a"), Addition(u"b")});
    ElementArray array = All(item);
    EXPECT_EQ(db.MergeEntries(array, u"", nullptr), nullptr);
    ElementArray withNull{nullptr, item->m_Head};
    EXPECT_EQ(db.MergeEntries(withNull, u"", item), nullptr);
    ElementArray withItem{item, item->m_Head};
    EXPECT_EQ(db.MergeEntries(withItem, u"", item), nullptr);
    EXPECT_EQ(Entries(item), "[a][b]");
    EXPECT_EQ(Records(), 0U);
    EXPECT_FALSE(db.m_Changed);
}

TEST_F(Merge, EntriesPassNullOverBehindTheFirst) {
    ItemElement* item = PutItem(u"item", {Addition(u"a"), Addition(u"b")});
    ElementArray array{item->m_Head, nullptr, item->m_Tail};
    EXPECT_EQ(db.MergeEntries(array, u"", item), item->m_Head);
    EXPECT_EQ(Entries(item), "[a\r\nb]");
}

TEST_F(Merge, EntriesOf65535UnitsSucceed) {
    ItemElement* item = PutItem(u"item", {Addition(Long(65535 - 3)), Addition(u"y")});
    ElementArray array = All(item);
    EXPECT_EQ(db.MergeEntries(array, u"", item), item->m_Head);
    EXPECT_EQ(item->m_Head->m_Text.size(), 65535U);
    EXPECT_EQ(item->m_Count, 1);
}

TEST_F(Merge, EntriesOf65536UnitsAreRefusedAndNothingHasChanged) {
    ItemElement* item = PutItem(u"item", {Addition(Long(65535 - 2)), Addition(u"y")});
    ElementArray array = All(item);
    EXPECT_EQ(db.MergeEntries(array, u"", item), nullptr);
    EXPECT_EQ(array.size(), 2U);
    EXPECT_EQ(item->m_Head->m_Text.size(), 65533U);
    EXPECT_EQ(item->m_Count, 2);
    EXPECT_EQ(item->m_Date, kBefore);
    EXPECT_EQ(Records(), 0U);
    EXPECT_FALSE(db.m_Changed);
}

TEST_F(Merge, EntriesTakeAGivenTextOfUpTo65535Units) {
    ItemElement* item = PutItem(u"item", {Addition(u"a"), Addition(u"b")});
    ElementArray array = All(item);
    EXPECT_EQ(db.MergeEntries(array, Long(65536), item), nullptr);
    EXPECT_EQ(item->m_Count, 2);
    EXPECT_EQ(db.MergeEntries(array, Long(65535), item), item->m_Head);
    EXPECT_EQ(item->m_Head->m_Text.size(), 65535U);
}

// --- MergeItems ---

TEST_F(Merge, ItemsGiveTheirTextsToTheFirstAsAdditionalEntries) {
    ItemElement* a = PutItem(u"a", {Program(u"a.exe"), Username(u"anne"), Password(u"pa")});
    ItemElement* b = PutItem(u"b", {Program(u"b.exe"), Username(u""), Password(u"pb"), Addition(u"note")});
    ItemElement* c = PutItem(u"c", {Username(u"carl")});
    ElementArray array{a, b, c};
    EXPECT_EQ(db.MergeItems(array), a);
    EXPECT_EQ(Items(), "[a]");
    EXPECT_EQ(Entries(a), "[a.exe][anne][pa][b.exe][pb][note][carl]");
    EXPECT_EQ(a->m_Head->m_Type, VMRD_T_PROGRAM);
    for (const EntryElement* entry = a->m_Head->m_Next->m_Next->m_Next; entry != nullptr;
         entry = entry->m_Next) {
        EXPECT_EQ(entry->m_Type, VMRD_T_ADDITION);
    }
    EXPECT_THAT(array, ElementsAre(b, c));
    EXPECT_EQ(a->m_Date, kNow);
    EXPECT_TRUE(db.m_Changed);
}

TEST_F(Merge, ItemsAreReversedInTwoSteps) {
    ItemElement* a = PutItem(u"a", {Username(u"anne")});
    ItemElement* b = PutItem(u"b", {Username(u"bert"), Password(u"pb")});
    ElementArray array{a, b};
    db.MergeItems(array);
    EXPECT_EQ(Records(), 2U);
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(Items(), "[a][b]");
    EXPECT_EQ(Entries(a), "[anne][bert][pb]");
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(Entries(a), "[anne]");
    EXPECT_EQ(a->m_Date, kBefore);
    EXPECT_EQ(Entries(b), "[bert][pb]");
    EXPECT_EQ(b->m_Head->m_Type, VMRD_T_USERNAME);
    EXPECT_EQ(b->m_Tail->m_Type, VMRD_T_PASSWORD);
    EXPECT_EQ(b->m_Date, kBefore);
}

TEST_F(Merge, ItemsGoIntoTheFirstOfTheArrayWhereverItStands) {
    ItemElement* a = PutItem(u"a", {Addition(u"1")});
    PutItem(u"b");
    ItemElement* c = PutItem(u"c", {Addition(u"3")});
    ElementArray array{c, a};
    EXPECT_EQ(db.MergeItems(array), c);
    EXPECT_EQ(Items(), "[b][c]");
    EXPECT_EQ(Entries(c), "[3][1]");
}

TEST_F(Merge, ItemsWithEmptyEntriesOnlyAreRemovedAndAddNothing) {
    ItemElement* a = PutItem(u"a", {Username(u"")});
    ItemElement* b = PutItem(u"b", {Username(u""), Password(u"")});
    ElementArray array{a, b};
    EXPECT_EQ(db.MergeItems(array), a);
    EXPECT_EQ(Items(), "[a]");
    EXPECT_EQ(a->m_Count, 1);
    EXPECT_EQ(a->m_Date, kNow);
    EXPECT_EQ(Records(), 1U);
    EXPECT_EQ(Undo(), UNDO_DONE);
    EXPECT_EQ(Items(), "[a][b]");
    EXPECT_EQ(b->m_Count, 2);
    EXPECT_EQ(b->m_Head->m_Type, VMRD_T_USERNAME);
}

TEST_F(Merge, ItemsFewerThanTwoAreRefused) {
    ElementArray none;
    ElementArray one{PutItem(u"a")};
    EXPECT_EQ(db.MergeItems(none), nullptr);
    EXPECT_EQ(db.MergeItems(one), nullptr);
    EXPECT_EQ(one.size(), 1U);
    EXPECT_EQ(Records(), 0U);
    EXPECT_FALSE(db.m_Changed);
}

TEST_F(Merge, ItemsIntoNothingAreRefusedAndNothingHasChanged) {
    ItemElement* full = PutItem(u"a", {Username(u"anne")});
    ItemElement* empty = PutItem(u"b");
    for (ItemElement* other : {full, empty}) {
        ElementArray withNull{nullptr, other};
        EXPECT_EQ(db.MergeItems(withNull), nullptr);
        ElementArray withEntry{full->m_Head, other};
        EXPECT_EQ(db.MergeItems(withEntry), nullptr);
    }
    EXPECT_EQ(Items(), "[a][b]");
    EXPECT_EQ(full->m_Head->m_Type, VMRD_T_USERNAME);
    EXPECT_EQ(Records(), 0U);
    EXPECT_FALSE(db.m_Changed);
}

TEST_F(Merge, ItemsPassNullOverBehindTheFirst) {
    ItemElement* a = PutItem(u"a");
    ItemElement* b = PutItem(u"b", {Username(u"bert")});
    ElementArray array{a, nullptr, b};
    EXPECT_EQ(db.MergeItems(array), a);
    EXPECT_EQ(Items(), "[a]");
    EXPECT_EQ(Entries(a), "[bert]");
}

TEST_F(Merge, ItemsAreSavedInAutoSaveMode) {
    const TempFolder folder;
    db.m_Path = folder.Path(u"a.vmr");
    db.SetMasterPassword(u"password");
    db.bAutoSave = true;
    ElementArray array{PutItem(u"a"), PutItem(u"b", {Username(u"bert")})};
    db.MergeItems(array);
    EXPECT_FALSE(db.m_Changed);
    db.Close();
    VMRD_DB saved;
    ASSERT_TRUE(saved.Open(folder.Path(u"a.vmr"), u"password"));
    EXPECT_EQ(TextsOf<ItemElement>(saved), "[a]");
    EXPECT_EQ(TextsOf<EntryElement>(*saved.m_Head), "[bert]");
    EXPECT_EQ(saved.m_Head->m_Date, kNow);
}

TEST_F(Merge, ItemsThatAddNothingAreSavedWithTheDateOfTheFirst) {
    const TempFolder folder;
    db.m_Path = folder.Path(u"a.vmr");
    db.SetMasterPassword(u"password");
    db.bAutoSave = true;
    ElementArray array{PutItem(u"a"), PutItem(u"b")};
    db.MergeItems(array);
    db.Close();
    VMRD_DB saved;
    ASSERT_TRUE(saved.Open(folder.Path(u"a.vmr"), u"password"));
    EXPECT_EQ(TextsOf<ItemElement>(saved), "[a]");
    EXPECT_EQ(saved.m_Head->m_Date, kNow);
}

}  // namespace
