#include "windows/item_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "foundation/textops.h"
#include "tests/unit/database/open_database.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class ListView : public OpenDatabase {
protected:
    ListView() { view.SetSource(&db); }

    // Names of the rows, each in brackets, a selected one with a star.
    [[nodiscard]] std::string Shown() const {
        std::string names;
        for (const ViewRow& row : view.Rows()) {
            names.append("[").append(std::string_view(ToUtf8(ElementText(row.m_data))));
            names.append(row.selected ? "*]" : "]");
        }
        return names;
    }

    bool Search(const tvstring& text) { return view.SetView(nullptr, &text); }
    bool Order(int sort) { return view.SetView(&sort, nullptr); }

    ItemElement* PutDated(const tvstring& name, u64 date) {
        ItemElement* item = PutItem(name);
        item->m_Date = date;
        return item;
    }

    ItemView view;
};

// --- Source ---

TEST_F(ListView, StartsWithoutRowsOrderAndText) {
    EXPECT_THAT(view.Rows(), IsEmpty());
    EXPECT_EQ(view.Sort(), SortNone);
    EXPECT_EQ(view.FilterText(), u"");
    EXPECT_TRUE(view.CanMove());
    EXPECT_FALSE(view.HasNoMatch());
}

TEST_F(ListView, ShowsTheItemsInTheOrderOfTheDatabase) {
    PutItem(u"b");
    PutItem(u"c");
    PutItem(u"a");
    EXPECT_TRUE(view.Refresh());
    EXPECT_EQ(Shown(), "[b][c][a]");
    EXPECT_EQ(view.Rows()[0].m_data, db.m_Head);
}

TEST_F(ListView, HasNoRowsOfADatabaseWithoutItems) {
    EXPECT_FALSE(view.Refresh());
    EXPECT_THAT(view.Rows(), IsEmpty());
}

TEST_F(ListView, HasNoRowsWithoutASource) {
    PutItem(u"a");
    ASSERT_TRUE(view.Refresh());
    view.SetSource(static_cast<const ItemList*>(nullptr));
    EXPECT_FALSE(view.Refresh());
    EXPECT_THAT(view.Rows(), IsEmpty());
    view.SetSource(static_cast<const EntryList*>(nullptr));
    EXPECT_FALSE(view.Refresh());
    ItemView fresh;
    EXPECT_FALSE(fresh.Refresh());
}

TEST_F(ListView, SaysThatRowsWereBuiltEvenIfNothingMatches) {
    PutItem(u"a");
    EXPECT_TRUE(Search(u"nowhere"));
    EXPECT_THAT(view.Rows(), IsEmpty());
}

TEST_F(ListView, ShowsOfTheEntriesOnlyAdditionalOnes) {
    const ItemElement* item = PutItem(u"a", {Program(u"p"), Username(u"u"), Addition(u"first"),
                                             Password(u"w"), Addition(u"second"), Addition(u"")});
    view.SetSource(static_cast<const EntryList*>(item));
    EXPECT_TRUE(view.Refresh());
    EXPECT_EQ(Shown(), "[first][second][]");
}

TEST_F(ListView, BuildsNoRowsOfAnItemWithBasicEntriesAlone) {
    const ItemElement* item = PutItem(u"a", {Program(u"p")});
    view.SetSource(static_cast<const EntryList*>(item));
    EXPECT_TRUE(view.Refresh());
    EXPECT_THAT(view.Rows(), IsEmpty());
}

TEST_F(ListView, SearchesAndOrdersEntriesToo) {
    const ItemElement* item = PutItem(u"a", {Addition(u"note 10"), Addition(u"other"), Addition(u"Note 9")});
    view.SetSource(static_cast<const EntryList*>(item));
    const int sort = SortAZ;
    const tvstring text = u"note";
    EXPECT_TRUE(view.SetView(&sort, &text));
    EXPECT_EQ(Shown(), "[Note 9][note 10]");
}

// --- Search text and order ---

TEST_F(ListView, LeavesOutWhatDoesNotMatch) {
    PutItem(u"alpha");
    PutItem(u"beta");
    PutItem(u"gamma", {Program(u"ALPHA")});
    EXPECT_TRUE(Search(u"alpha"));
    EXPECT_EQ(Shown(), "[alpha][gamma]");
    EXPECT_TRUE(Search(u""));
    EXPECT_EQ(Shown(), "[alpha][beta][gamma]");
}

TEST_F(ListView, KeepsTheTextAsTyped) {
    PutItem(u"alpha");
    Search(u"  Alpha ");
    EXPECT_EQ(view.FilterText(), u"  Alpha ");
    EXPECT_EQ(Shown(), "[alpha]");
}

TEST_F(ListView, PutsTheRowsInOrder) {
    PutDated(u"b", 3);
    PutDated(u"a", 1);
    PutDated(u"c", 2);
    EXPECT_TRUE(Order(SortAZ));
    EXPECT_EQ(Shown(), "[a][b][c]");
    EXPECT_TRUE(Order(SortZA));
    EXPECT_EQ(Shown(), "[c][b][a]");
    EXPECT_TRUE(Order(SortNewOld));
    EXPECT_EQ(Shown(), "[b][c][a]");
    EXPECT_TRUE(Order(SortOldNew));
    EXPECT_EQ(Shown(), "[a][c][b]");
    EXPECT_TRUE(Order(SortNone));
    EXPECT_EQ(Shown(), "[b][a][c]");
    EXPECT_EQ(TextsOf<ItemElement>(db), "[b][a][c]");
}

TEST_F(ListView, KeepsTiesOfUpTo32RowsInTheOrderOfTheDatabase) {
    for (int i = 0; i < 31; ++i)
        PutDated(tvstring(1, static_cast<char16_t>(u'a' + i)), 7);
    PutDated(u"older", 6);
    Order(SortNone);
    view.Refresh();
    const ElementArray all = [this] {
        ElementArray elements;
        for (const ViewRow& row : view.Rows())
            elements.push_back(row.m_data);
        return elements;
    }();
    ASSERT_EQ(all.size(), 32U);
    Order(SortNewOld);
    for (std::size_t i = 0; i < 32; ++i)
        EXPECT_EQ(view.Rows()[i].m_data, all[i]);
    Order(SortOldNew);
    EXPECT_EQ(view.Rows()[0].m_data, all[31]);
    for (std::size_t i = 0; i < 31; ++i)
        EXPECT_EQ(view.Rows()[i + 1].m_data, all[i]);
}

// Also where a search leaves that many of a longer list, whose ties have no defined order.
TEST_F(ListView, KeepsTiesByNameOfUpTo32RowsInTheOrderOfTheDatabase) {
    ElementArray ties;
    for (std::size_t i = 0; i < 32; ++i)
        ties.push_back(PutItem(i % 2 == 0 ? u"tie" : u"TIE"));
    const auto shown = [this] {
        ElementArray elements;
        for (const ViewRow& row : view.Rows())
            elements.push_back(row.m_data);
        return elements;
    };
    for (const int sort : {SortAZ, SortZA}) {
        Order(sort);
        EXPECT_EQ(shown(), ties);
    }
    for (int i = 0; i < 10; ++i)
        PutItem(u"another");
    for (const int sort : {SortAZ, SortZA}) {
        Search(u"");
        Order(sort);
        view.Refresh();
        Search(u"tie");
        EXPECT_EQ(shown(), ties);
    }
}

TEST_F(ListView, TakesOrderAndTextAtOnce) {
    PutItem(u"b1");
    PutItem(u"c");
    PutItem(u"a1");
    const int sort = SortAZ;
    const tvstring text = u"1";
    EXPECT_TRUE(view.SetView(&sort, &text));
    EXPECT_EQ(view.Sort(), SortAZ);
    EXPECT_EQ(view.FilterText(), u"1");
    EXPECT_EQ(Shown(), "[a1][b1]");
}

TEST_F(ListView, LeavesThePartThatIsNotGiven) {
    PutItem(u"b1");
    PutItem(u"a1");
    PutItem(u"c");
    Search(u"1");
    Order(SortAZ);
    EXPECT_EQ(view.FilterText(), u"1");
    EXPECT_EQ(Shown(), "[a1][b1]");
    Search(u"c");
    EXPECT_EQ(view.Sort(), SortAZ);
    EXPECT_FALSE(view.SetView(nullptr, nullptr));
}

TEST_F(ListView, RefreshesOnlyForAChange) {
    PutItem(u"a1");
    const int sort = SortAZ;
    const tvstring text = u"1";
    ASSERT_TRUE(view.SetView(&sort, &text));
    PutItem(u"a2 1");
    EXPECT_FALSE(view.SetView(&sort, &text));
    EXPECT_FALSE(view.SetView(&sort, nullptr));
    EXPECT_FALSE(view.SetView(nullptr, &text));
    EXPECT_EQ(Shown(), "[a1]");
    const int other = SortZA;
    EXPECT_TRUE(view.SetView(&other, &text));
    EXPECT_EQ(Shown(), "[a2 1][a1]");
    PutItem(u"a3 11");
    const tvstring longer = u"11";
    EXPECT_TRUE(view.SetView(&other, &longer));
    EXPECT_EQ(Shown(), "[a3 11]");
}

TEST_F(ListView, TakesATextOfOtherCaseOrMoreBlanksAsAnother) {
    PutItem(u"a");
    Search(u"a");
    PutItem(u"A");
    EXPECT_TRUE(Search(u"A"));
    EXPECT_EQ(Shown(), "[a][A]");
    EXPECT_TRUE(Search(u"A "));
    EXPECT_EQ(view.FilterText(), u"A ");
}

TEST_F(ListView, TakesItsOwnTextAsNoChange) {
    PutItem(u"a");
    Search(u"a");
    EXPECT_FALSE(view.SetView(nullptr, &view.FilterText()));
    EXPECT_EQ(view.FilterText(), u"a");
}

// --- Options of the search ---

TEST_F(ListView, SearchesByTheModeFromTheNextRefreshOn) {
    PutItem(u"a b");
    PutItem(u"b a");
    PutItem(u"a");
    PutItem(u"c");
    Search(u"a b");
    EXPECT_EQ(Shown(), "[a b][b a]");
    view.SetOptions(FilterExact, SearchPasswords::No);
    EXPECT_EQ(Shown(), "[a b][b a]");
    EXPECT_TRUE(view.Refresh());
    EXPECT_EQ(Shown(), "[a b]");
    view.SetOptions(FilterAny, SearchPasswords::No);
    view.Refresh();
    EXPECT_EQ(Shown(), "[a b][b a][a]");
    view.SetOptions(FilterWithout, SearchPasswords::No);
    view.Refresh();
    EXPECT_EQ(Shown(), "[c]");
}

TEST_F(ListView, TakesTheLowByteOfTheMode) {
    PutItem(u"a b");
    PutItem(u"b a");
    Search(u"a b");
    view.SetOptions(0xABCD'EF01, SearchPasswords::No);
    view.Refresh();
    EXPECT_EQ(Shown(), "[a b]");
    view.SetOptions(0x0000'0100, SearchPasswords::No);
    view.Refresh();
    EXPECT_EQ(Shown(), "[a b][b a]");
}

TEST_F(ListView, SearchesPasswordsIfAskedTo) {
    PutItem(u"a", {Password(u"tulip")});
    Search(u"tulip");
    EXPECT_EQ(Shown(), "");
    view.SetOptions(FilterAll, SearchPasswords::Yes);
    view.Refresh();
    EXPECT_EQ(Shown(), "[a]");
    view.SetOptions(FilterAll, SearchPasswords::No);
    view.Refresh();
    EXPECT_EQ(Shown(), "");
}

// --- Selection ---

TEST_F(ListView, KeepsTheSelectionOfElementsThatStillHaveARow) {
    PutItem(u"b1");
    PutItem(u"c");
    PutItem(u"a1");
    view.Refresh();
    view.Select(0, true);
    view.Select(1, true);
    EXPECT_EQ(Shown(), "[b1*][c*][a1]");
    Order(SortAZ);
    EXPECT_EQ(Shown(), "[a1][b1*][c*]");
    Search(u"1");
    EXPECT_EQ(Shown(), "[a1][b1*]");
    Search(u"");
    EXPECT_EQ(Shown(), "[a1][b1*][c]");
    EXPECT_EQ(view.CountSelected(), 1U);
}

TEST_F(ListView, LosesTheSelectionWithItsSource) {
    PutItem(u"a");
    view.Refresh();
    view.Select(0, true);
    view.SetSource(static_cast<const ItemList*>(nullptr));
    view.Refresh();
    view.SetSource(&db);
    view.Refresh();
    EXPECT_EQ(Shown(), "[a]");
}

TEST_F(ListView, GivesTheSelectedElementsInTheOrderOfTheRows) {
    ItemElement* b = PutItem(u"b");
    PutItem(u"c");
    ItemElement* a = PutItem(u"a");
    Order(SortAZ);
    view.Select(1, true);
    view.Select(0, true);
    EXPECT_THAT(view.Selected(), ElementsAre(a, b));
    EXPECT_EQ(view.CountSelected(), 2U);
    view.Select(0, false);
    EXPECT_THAT(view.Selected(), ElementsAre(b));
}

TEST_F(ListView, SelectsOneElementOnly) {
    PutItem(u"a");
    ItemElement* b = PutItem(u"b");
    view.Refresh();
    view.Select(0, true);
    view.SelectOnly(b);
    EXPECT_EQ(Shown(), "[a][b*]");
    view.SelectOnly(nullptr);
    EXPECT_EQ(Shown(), "[a][b]");
}

// --- Resort ---

TEST_F(ListView, ResortsTheRowsThatAreThere) {
    ItemElement* first = PutItem(u"a1");
    PutItem(u"b1");
    PutItem(u"c1");
    const int sort = SortAZ;
    const tvstring text = u"1";
    view.SetView(&sort, &text);
    view.Select(0, true);
    first->m_Name = u"z";
    PutItem(u"new 1");
    view.Resort();
    EXPECT_EQ(Shown(), "[b1][c1][z*]");
}

TEST_F(ListView, ResortsIntoNoOrderWhereTheOrderIsImpossible) {
    PutItem(u"b");
    PutItem(u"a");
    Order(7);
    EXPECT_EQ(view.Sort(), 7);
    EXPECT_EQ(Shown(), "[b][a]");
    view.Resort();
    EXPECT_EQ(view.Sort(), SortNone);
    EXPECT_EQ(Shown(), "[b][a]");
    Order(5);
    view.Resort();
    EXPECT_EQ(view.Sort(), SortNone);
    Order(SortOldNew);
    view.Resort();
    EXPECT_EQ(view.Sort(), SortOldNew);
}

TEST_F(ListView, LeavesTheRowsWhereItResortsWithoutAnOrder) {
    PutItem(u"b");
    PutItem(u"a");
    Order(SortAZ);
    db.m_Head->m_Name = u"0";
    int none = SortNone;
    view.SetView(&none, nullptr);
    view.Resort();
    EXPECT_EQ(Shown(), "[0][a]");
}

// --- Single rows ---

TEST_F(ListView, AddsARowWithoutAMatchAndSelectsItAlone) {
    PutItem(u"b1");
    PutItem(u"d1");
    const int sort = SortAZ;
    const tvstring text = u"1";
    view.SetView(&sort, &text);
    view.Select(0, true);
    view.AddRow(PutItem(u"c"));
    EXPECT_EQ(Shown(), "[b1][c*][d1]");
    view.Refresh();
    EXPECT_EQ(Shown(), "[b1][d1]");
}

TEST_F(ListView, AddsARowAtTheEndWithoutAnOrder) {
    PutItem(u"b");
    view.Refresh();
    view.AddRow(PutItem(u"a"));
    EXPECT_EQ(Shown(), "[b][a*]");
}

TEST_F(ListView, InsertsRowsWhereTheFirstSelectedOneStands) {
    PutItem(u"a1");
    PutItem(u"b1");
    PutItem(u"c1");
    const int sort = SortAZ;
    const tvstring text = u"1";
    view.SetView(&sort, &text);
    view.Select(1, true);
    view.Select(2, true);
    const ElementQueue queue = {PutItem(u"z"), PutItem(u"y")};
    view.InsertRows(queue);
    EXPECT_EQ(Shown(), "[a1][z][y][b1*][c1*]");
}

TEST_F(ListView, InsertsRowsAtTheEndWhereNoneIsSelected) {
    PutItem(u"b");
    Order(SortAZ);
    const ElementQueue queue = {PutItem(u"d"), PutItem(u"a")};
    view.InsertRows(queue);
    EXPECT_EQ(Shown(), "[b][d][a]");
    view.InsertRows({});
    EXPECT_EQ(Shown(), "[b][d][a]");
}

TEST_F(ListView, InsertsRowsIntoAnEmptyView) {
    ItemElement* a = PutItem(u"a");
    view.InsertRows({a});
    EXPECT_EQ(Shown(), "[a]");
}

TEST_F(ListView, TakesRowsOutAndKeepsTheOrderOfTheRest) {
    ItemElement* b = PutItem(u"b");
    PutItem(u"d");
    PutItem(u"a");
    ItemElement* c = PutItem(u"c");
    Order(SortZA);
    view.Select(0, true);
    EXPECT_EQ(Shown(), "[d*][c][b][a]");
    view.RemoveRows({b, c, nullptr});
    EXPECT_EQ(Shown(), "[d*][a]");
    view.RemoveRows({b});
    view.RemoveRows({});
    EXPECT_EQ(Shown(), "[d*][a]");
}

TEST_F(ListView, TakesARowOutThatDoesNotMatchAnyMore) {
    ItemElement* a = PutItem(u"a1");
    PutItem(u"b1");
    Search(u"1");
    a->m_Name = u"a";
    view.RemoveRows({a});
    EXPECT_EQ(Shown(), "[b1]");
}

// --- What holds of the view ---

TEST_F(ListView, LetsElementsMoveOnlyWithoutOrderAndText) {
    PutItem(u"a");
    EXPECT_TRUE(view.CanMove());
    Search(u"a");
    EXPECT_FALSE(view.CanMove());
    Search(u" ");
    EXPECT_EQ(Shown(), "[a]");
    EXPECT_FALSE(view.CanMove());
    Search(u"");
    EXPECT_TRUE(view.CanMove());
    Order(SortOldNew);
    EXPECT_FALSE(view.CanMove());
    Order(SortNone);
    EXPECT_TRUE(view.CanMove());
}

TEST_F(ListView, HasNoMatchIfNothingInTheSourceMatches) {
    PutItem(u"a");
    view.Refresh();
    EXPECT_FALSE(view.HasNoMatch());
    Search(u"nowhere");
    EXPECT_TRUE(view.HasNoMatch());
    Search(u"a");
    EXPECT_FALSE(view.HasNoMatch());
}

TEST_F(ListView, SaysNothingOfAMatchInADatabaseWithoutItems) {
    Search(u"nowhere");
    EXPECT_FALSE(view.HasNoMatch());
    view.SetSource(static_cast<const ItemList*>(nullptr));
    EXPECT_FALSE(view.HasNoMatch());
}

TEST_F(ListView, SaysNothingOfAMatchWithoutAText) {
    PutItem(u"a");
    EXPECT_THAT(view.Rows(), IsEmpty());
    EXPECT_FALSE(view.HasNoMatch());
}

// Hundreds of items with a search and an order in force: the same as match and order one by one.
TEST_F(ListView, OfManyItemsIsWhatMatchAndOrderSayOfEach) {
    for (int i = 0; i < 500; ++i)
        PutDated(u"item " + FormatInt(i * 7919 % 500), static_cast<u64>(i % 50));
    for (const int sort : {SortAZ, SortZA, SortNewOld, SortOldNew}) {
        const tvstring text = u"3";
        view.SetView(&sort, &text);
        view.Refresh();
        std::size_t matching = 0;
        for (const ItemElement* item : ElementsOf<ItemElement>(db))
            matching += MatchesFilter(item, text, FilterAll, SearchPasswords::No) ? 1U : 0U;
        ASSERT_EQ(view.Rows().size(), matching);
        ASSERT_GT(matching, kStableRows);
        for (std::size_t i = 1; i < matching; ++i)
            ASSERT_FALSE(CompareRows(sort, view.Rows()[i], view.Rows()[i - 1])) << sort << " at " << i;
    }
}

}  // namespace
