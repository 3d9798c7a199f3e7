#include "cli/item_reference.h"

#include <gtest/gtest.h>

#include "cli/failure.h"

namespace {

// What the call fails with.
template <typename Call>
Failure FailureOf(Call call) {
    try {
        call();
    } catch (const Failure& failure) {
        return failure;
    }
    return {ExitCode::Done, "no failure"};
}

class ItemReferenceTest : public testing::Test {
protected:
    ItemElement* Add(const char16_t* name) {
        auto* item = new ItemElement;
        item->m_Name = name;
        m_Database.Insert(item, nullptr);
        return item;
    }
    static EntryElement* AddEntry(VMRD_Item& item, u16 type, const char16_t* text) {
        auto* entry = new EntryElement(type, tvstring(text));
        item.Insert(entry, nullptr);
        return entry;
    }

    VMRD_DB m_Database;
};

TEST_F(ItemReferenceTest, FindsAnItemByItsExactName) {
    Add(u"mail");
    const ItemElement* item = Add(u"Mail");
    EXPECT_EQ(FindItem(m_Database, "Mail"), item);
    EXPECT_EQ(FailureOf([this] { FindItem(m_Database, "MAIL"); }).Code(), ExitCode::NotFound);
    EXPECT_EQ(FailureOf([this] { FindItem(m_Database, "Mai"); }).Code(), ExitCode::NotFound);
}

TEST_F(ItemReferenceTest, FindsAnItemByItsPosition) {
    const ItemElement* first = Add(u"b");
    const ItemElement* second = Add(u"a");
    EXPECT_EQ(FindItem(m_Database, "@1"), first);
    EXPECT_EQ(FindItem(m_Database, "@2"), second);
    EXPECT_EQ(PositionOf(m_Database, second), 2u);
    for (const char* outside : {"@0", "@3", "@99999999999999999999999"}) {
        EXPECT_EQ(FailureOf([&] { FindItem(m_Database, outside); }).Code(), ExitCode::NotFound);
    }
}

TEST_F(ItemReferenceTest, TakesTwoSignsForANameThatStartsWithOne) {
    const ItemElement* one = Add(u"@1");
    const ItemElement* two = Add(u"@@2");
    EXPECT_EQ(FindItem(m_Database, "@@1"), one);
    EXPECT_EQ(FindItem(m_Database, "@@@2"), two);
}

TEST_F(ItemReferenceTest, RefusesOtherTextsBehindTheSign) {
    for (const char* argument : {"@", "@x", "@1x", "@-1", "@ 1"}) {
        EXPECT_EQ(FailureOf([&] { ParseItemReference(argument); }).Code(), ExitCode::WrongUsage) << argument;
    }
}

TEST_F(ItemReferenceTest, ListsTheCandidatesOfAnAmbiguousName) {
    Add(u"x");
    Add(u"y");
    Add(u"x");
    const Failure failure = FailureOf([this] { FindItem(m_Database, "x"); });
    EXPECT_EQ(failure.Code(), ExitCode::NotFound);
    EXPECT_STREQ(failure.what(), "several items are named 'x': @1 @3");
}

TEST_F(ItemReferenceTest, FindsEntriesByField) {
    ItemElement* item = Add(u"x");
    const EntryElement* note1 = AddEntry(*item, VMRD_T_ADDITION, u"n");
    const EntryElement* password = AddEntry(*item, VMRD_T_PASSWORD, u"p");
    const EntryElement* username = AddEntry(*item, VMRD_T_USERNAME, u"u");
    const EntryElement* note2 = AddEntry(*item, VMRD_T_ADDITION, u"m");
    EXPECT_EQ(FindEntry(*item, ParseField("password")), password);
    EXPECT_EQ(FindEntry(*item, ParseField("username")), username);
    EXPECT_EQ(FindEntry(*item, ParseField("note:1")), note1);
    EXPECT_EQ(FindEntry(*item, ParseField("note:2")), note2);
    for (const char* field : {"program", "note:0", "note:3", "note:99999999999999999999999"}) {
        EXPECT_EQ(FailureOf([&] { FindEntry(*item, ParseField(field)); }).Code(), ExitCode::NotFound)
            << field;
    }
}

TEST_F(ItemReferenceTest, RefusesUnknownFields) {
    for (const char* field : {"", "Name", "note", "note:", "note:x", "note:-1", "note:1 ", "date"}) {
        EXPECT_EQ(FailureOf([&] { ParseField(field); }).Code(), ExitCode::WrongUsage) << field;
    }
}

TEST_F(ItemReferenceTest, NamesEntriesAsTheyAreFound) {
    std::size_t notes = 0;
    EXPECT_EQ(FieldName(VMRD_Entry(VMRD_T_ADDITION, u""), notes), "note:1");
    EXPECT_EQ(FieldName(VMRD_Entry(VMRD_T_PROGRAM, u""), notes), "program");
    EXPECT_EQ(FieldName(VMRD_Entry(VMRD_T_ADDITION, u""), notes), "note:2");
}

}  // namespace
