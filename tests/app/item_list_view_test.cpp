// The rows of the item list: which items they stand for, in which order, and which are selected.
#include <gmock/gmock.h>

#include "tests/app/item_stage.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ItemListView : public ItemTest {};

// --- Rows ---

TEST_F(ItemListView, ShowsTheItemsOfTheOpenDatabaseWhenTheWindowOpens) {
    OpenWith({u"b", u"a", u"c"});
    EXPECT_EQ(Rows(), "[b][a][c]");
    EXPECT_EQ(List().m_Source, &TheDatabase());
    EXPECT_EQ(List().m_Kind, LIST_ITEMS);
    EXPECT_EQ(List().m_HoverRow, -1);
    EXPECT_FALSE(List().IsSingleSelect());
}

TEST_F(ItemListView, ARowPointsToItsItemAndHoldsNoText) {
    OpenWith({u"a", u"b"});
    const tvMListItem* row = List().ItemOfRow(1);
    EXPECT_EQ(List().ElementOf(1), TheDatabase().m_Head->m_Next);
    EXPECT_EQ(row->m_text, u"");
    EXPECT_EQ(row->m_note, u"");
    EXPECT_EQ(List().ElementOf(2), nullptr);
    EXPECT_EQ(List().ElementOf(-1), nullptr);
}

TEST_F(ItemListView, ARefreshTellsTheCounts) {
    OpenWith({u"a", u"b", u"c"});
    Select({1});
    EXPECT_EQ(Doing([this] { EXPECT_TRUE(List().Refresh()); }), "COUNTS 3 1");
}

TEST_F(ItemListView, ARefreshOfAnEmptyDatabaseTellsNothing) {
    OpenWith({});
    EXPECT_EQ(Doing([this] { EXPECT_FALSE(List().Refresh()); }), "");
    EXPECT_EQ(Rows(), "");
}

TEST_F(ItemListView, ARefreshKeepsTheSelectionWithItsElements) {
    OpenWith({u"a", u"b", u"c"});
    Select({0, 2});
    TheDatabase().Relink(
        std::vector<ItemElement*>{TheDatabase().Tail(), TheDatabase().m_Head->m_Next, TheDatabase().m_Head});
    List().Refresh();
    EXPECT_EQ(Rows(), "[c*][b][a*]");
}

TEST_F(ItemListView, AnElementThatHasNoRowAnyMoreDropsOutOfTheSelection) {
    OpenWith({u"ab", u"b", u"ac"});
    Select({1, 2});
    SearchFor(u"a");
    EXPECT_EQ(Rows(), "[ab][ac*]");
    SearchFor(u"");
    EXPECT_EQ(Rows(), "[ab][b][ac*]");
}

TEST_F(ItemListView, ARefreshBringsTheSelectionIntoSight) {
    OpenWith(200);
    Select({150});
    List().Refresh();
    RECT row{};
    List().GetItemRect(150, row);
    EXPECT_GE(row.top, 0);
    EXPECT_LE(row.bottom, ClientOf(ListWindow()).bottom);
}

// --- Detached ---

TEST_F(ItemListView, WithoutASourceThereAreNoRowsAndNoCommands) {
    OpenWith({u"a", u"b"});
    Select({0});
    ASSERT_TRUE(List().CopySelection());
    List().m_Source = nullptr;
    EXPECT_EQ(Doing([this] {
                  EXPECT_FALSE(List().Refresh());
                  List().AddNew();
                  List().RemoveSelected();
                  List().MoveSelected(true);
                  EXPECT_FALSE(List().PasteFromClipboard());
                  EXPECT_FALSE(List().CopySelection());
              }),
              "");
    EXPECT_EQ(Rows(), "");
    EXPECT_EQ(Items(), "[a][b]");
}

TEST_F(ItemListView, ASelectionThatGoesWithTheRowsIsTold) {
    OpenWith({u"a", u"b"});
    Select({0});
    EXPECT_EQ(Doing([this] {
                  List().m_Source = nullptr;
                  List().Refresh();
                  PumpQueue();
              }),
              "SHOWITEM none; COUNTS 0 0");
}

// --- Order and search ---

TEST_F(ItemListView, ASettingThatIsNoChangeDoesNothing) {
    OpenWith({u"b", u"a"});
    const int none = SortNone;
    const tvstring text;
    EXPECT_EQ(Doing([&] { List().SetView(&none, &text); }), "");
    EXPECT_EQ(Doing([&] { List().SetView(nullptr, nullptr); }), "");
}

TEST_F(ItemListView, ASettingThatIsAChangeMakesTheRowsAnew) {
    OpenWith({u"b", u"a", u"ac"});
    const int order = SortAZ;
    EXPECT_EQ(Doing([&] { List().SetView(&order, nullptr); }), "COUNTS 3 0");
    EXPECT_EQ(Rows(), "[a][ac][b]");
    const tvstring text(u"a");
    EXPECT_EQ(Doing([&] { List().SetView(nullptr, &text); }), "COUNTS 2 0");
    EXPECT_EQ(Rows(), "[a][ac]");
    EXPECT_EQ(List().Sort(), SortAZ);
    EXPECT_EQ(List().FilterText(), u"a");
}

TEST_F(ItemListView, PasswordsTakePartInASearchIfTheUserWantsIt) {
    OpenWith({u"a", u"b"});
    TheDatabase().m_Head->m_Tail->m_Text = u"secret";
    SearchFor(u"secret");
    EXPECT_EQ(Rows(), "");
    Command(CMD_FILTER_PASSWORDS);
    EXPECT_EQ(Rows(), "[a]");
}

TEST_F(ItemListView, AResortOrdersTheRowsWithTheirSelectionAndTellsNothing) {
    OpenWith({u"b", u"a", u"c"});
    ChooseOrder(SortAZ);
    Select({0});
    EXPECT_EQ(Rows(), "[a*][b][c]");
    TheDatabase().m_Head->m_Next->m_Name = u"z";
    EXPECT_EQ(Doing([this] { List().Resort(); }), "");
    EXPECT_EQ(Rows(), "[b][c][z*]");
}

TEST_F(ItemListView, AResortMatchesNothingAnew) {
    OpenWith({u"ab", u"ac"});
    SearchFor(u"a");
    TheDatabase().m_Head->m_Name = u"x";
    List().Resort();
    EXPECT_EQ(Rows(), "[x][ac]");
    List().Refresh();
    EXPECT_EQ(Rows(), "[ac]");
}

TEST_F(ItemListView, AnImpossibleOrderIsNoneAfterAResort) {
    OpenWith({u"b", u"a"});
    const int impossible = 7;
    List().SetView(&impossible, nullptr);
    EXPECT_EQ(Rows(), "[b][a]");
    List().Resort();
    EXPECT_EQ(List().Sort(), SortNone);
    EXPECT_EQ(Rows(), "[b][a]");
}

// --- Reading the selection ---

TEST_F(ItemListView, GivesTheFirstSelectedRowAndItsElement) {
    OpenWith({u"a", u"b", u"c"});
    VMRD_Item* item = TheDatabase().m_Head;
    EXPECT_EQ(List().GetFirstSelected(&item, false), -1);
    EXPECT_EQ(item, nullptr);
    Select({1, 2});
    EXPECT_EQ(List().GetFirstSelected(&item, false), 1);
    EXPECT_EQ(item, TheDatabase().m_Head->m_Next);
    EXPECT_EQ(List().GetFirstSelected(nullptr, false), 1);
    EXPECT_EQ(List().GetFirstSelected(&item, true), -1);
    EXPECT_EQ(item, nullptr);
    Select({2});
    EXPECT_EQ(List().GetFirstSelected(&item, true), 2);
    EXPECT_EQ(item, TheDatabase().Tail());
}

TEST_F(ItemListView, ARowWithoutAnElementIsNoFirstSelected) {
    OpenWith({u"a"});
    Select({0});
    List().ItemOfRow(0)->m_data = 0;
    VMRD_Item* item = nullptr;
    EXPECT_EQ(List().GetFirstSelected(&item, false), -1);
    EXPECT_EQ(item, nullptr);
}

TEST_F(ItemListView, AppendsTheSelectedElementsInTheOrderOfTheRows) {
    OpenWith({u"a", u"b", u"c"});
    VMRD_Element* const a = TheDatabase().m_Head;
    VMRD_Element* const c = TheDatabase().Tail();
    ElementArray elements{c};
    EXPECT_EQ(List().GetSelectedElements(&elements), 0);
    EXPECT_EQ(List().GetSelectedElements(nullptr), 0);
    Select({2, 0});
    EXPECT_EQ(List().GetSelectedElements(&elements), 2);
    EXPECT_THAT(elements, ElementsAre(c, a, c));
    EXPECT_EQ(List().GetSelectedElements(nullptr), 2);
}

TEST_F(ItemListView, CountsASelectedRowWithoutAnElementButAppendsNothing) {
    OpenWith({u"a", u"b"});
    Select({0, 1});
    List().ItemOfRow(0)->m_data = 0;
    ElementArray elements;
    EXPECT_EQ(List().GetSelectedElements(&elements), 2);
    EXPECT_EQ(elements.size(), 1U);
}

// --- Setting the selection ---

TEST_F(ItemListView, SelectsTheRowsOfElementsAlone) {
    OpenWith({u"a", u"b", u"c"});
    Select({0});
    const ElementArray elements{TheDatabase().Tail(), TheDatabase().m_Head->m_Next};
    List().SelectElements(&elements, true);
    EXPECT_EQ(Rows(), "[a][b*][c*]");
}

TEST_F(ItemListView, SelectsTheRowsOfElementsBesides) {
    OpenWith({u"a", u"b", u"c"});
    Select({0});
    const ElementArray elements{TheDatabase().Tail()};
    List().SelectElements(&elements, false);
    EXPECT_EQ(Rows(), "[a*][b][c*]");
}

TEST_F(ItemListView, SelectingNoElementsOnlyClears) {
    OpenWith({u"a", u"b"});
    Select({0});
    List().SelectElements(nullptr, false);
    EXPECT_EQ(Rows(), "[a*][b]");
    List().SelectElements(nullptr, true);
    EXPECT_EQ(Rows(), "[a][b]");
}

TEST_F(ItemListView, ManyRowsThatAreSelectedMakeOneNotice) {
    OpenWith(50);
    ElementArray elements;
    for (int row = 10; row < 40; ++row)
        elements.push_back(List().ElementOf(row));
    EXPECT_EQ(Doing([&] {
                  List().SelectElements(&elements, true);
                  AwaitNotice();
              }),
              "SHOWITEM none; COUNTS 50 30");
}

}  // namespace
