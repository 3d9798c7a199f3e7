// The commands of the item list: what they do to the items, the rows and the selection, and who is told.
#include <gmock/gmock.h>

#include "tests/app/command_stage.h"
#include "tests/app/item_stage.h"

using testing::ElementsAre;

namespace {

class ItemListCommands : public ItemTest {
protected:
    static int Undos() { return static_cast<int>(TheDatabase().m_Undo.Count()); }
};

// --- Add ---

TEST_F(ItemListCommands, AddAppendsAnItemAndSelectsItAlone) {
    OpenWith({u"a", u"b"});
    Select({0, 1});
    EXPECT_EQ(Doing([this] { List().AddNew(); }), "TOPBAR; REPAINT; COUNTS 3 1");
    EXPECT_EQ(Rows(), "[a][b][New password item*]");
    EXPECT_EQ(Items(), "[a][b][New password item]");
    EXPECT_EQ(Undos(), 1);
}

TEST_F(ItemListCommands, AddShowsTheItemUntilTheNextRefreshThoughItDoesNotMatch) {
    OpenWith({u"ab", u"b"});
    SearchFor(u"b");
    List().AddNew();
    EXPECT_EQ(Rows(), "[ab][b][New password item*]");
    List().Refresh();
    EXPECT_EQ(Rows(), "[ab][b]");
}

TEST_F(ItemListCommands, AddOrdersTheRows) {
    OpenWith({u"z", u"a"});
    ChooseOrder(SortAZ);
    List().AddNew();
    EXPECT_EQ(Rows(), "[a][New password item*][z]");
    EXPECT_EQ(Items(), "[z][a][New password item]");
}

TEST_F(ItemListCommands, AddBringsTheItemIntoSight) {
    OpenWith(200);
    List().AddNew();
    RECT row{};
    List().GetItemRect(200, row);
    EXPECT_GE(row.top, 0);
    EXPECT_LE(row.bottom, ClientOf(ListWindow()).bottom);
}

TEST_F(ItemListCommands, AddDoesNothingWithoutAnOpenDatabase) {
    OpenWith({u"a"});
    TheDatabase().m_Opened = false;
    EXPECT_EQ(Doing([this] { List().AddNew(); }), "");
    EXPECT_EQ(Rows(), "[a]");
    TheDatabase().m_Opened = true;
}

TEST_F(ItemListCommands, TheCommandAddGivesTheListTheKeyboard) {
    OpenWith({u"a"});
    SetFocus(Pane().m_filterEdit.Handle());
    PaneCommand(CMD_ADD);
    EXPECT_EQ(GetFocus(), ListWindow());
    EXPECT_EQ(Rows(), "[a][New password item*]");
}

// --- Remove ---

TEST_F(ItemListCommands, RemoveTakesTheSelectedItemsOut) {
    OpenWith({u"a", u"b", u"c", u"d"});
    Select({0, 2});
    EXPECT_EQ(Doing([this] { List().RemoveSelected(); }), "TOPBAR; COUNTS 2 0");
    EXPECT_EQ(Rows(), "[b][d]");
    EXPECT_EQ(Items(), "[b][d]");
    EXPECT_EQ(Undos(), 1);
    Command(CMD_UNDO);
    EXPECT_EQ(Items(), "[a][b][c][d]");
    EXPECT_EQ(Rows(), "[a*][b][c*][d]");
}

TEST_F(ItemListCommands, RemoveGoesByTheElementsWhateverTheOrder) {
    OpenWith({u"b", u"a", u"c"});
    ChooseOrder(SortZA);
    Select({0});
    List().RemoveSelected();
    EXPECT_EQ(Rows(), "[b][a]");
    EXPECT_EQ(Items(), "[b][a]");
}

TEST_F(ItemListCommands, RemoveOfNothingDoesNothing) {
    OpenWith({u"a"});
    EXPECT_EQ(Doing([this] { List().RemoveSelected(); }), "");
    EXPECT_EQ(Rows(), "[a]");
    EXPECT_EQ(Undos(), 0);
}

TEST_F(ItemListCommands, RemoveTellsOfTheSelectionThatIsGone) {
    OpenWith({u"a", u"b"});
    Select({0});
    List().RemoveSelected();
    EXPECT_EQ(Doing([] { PumpQueue(); }), "");
    Select({0});
    EXPECT_EQ(Doing([this] {
                  List().RemoveSelected();
                  PumpQueue();
              }).substr(0, 36),
              "TOPBAR; COUNTS 0 0; SHOWITEM none; C");
}

TEST_F(ItemListCommands, WhereFewerWereRemovedTheRowsAreMadeAnew) {
    OpenWith({u"a", u"b", u"c"});
    ItemElement* const astray = TheDatabase().m_Head;
    ASSERT_TRUE(TheDatabase().Unlink(astray, Unlinked::Keep));
    const std::unique_ptr<ItemElement> owner(astray);
    Select({0, 1});
    EXPECT_EQ(Doing([this] { List().RemoveSelected(); }), "COUNTS 1 0; TOPBAR; COUNTS 1 0");
    EXPECT_EQ(Rows(), "[c]");
    EXPECT_EQ(Items(), "[c]");
    TheDatabase().m_Undo.Clear();
}

// --- Move ---

TEST_F(ItemListCommands, MoveTakesAdjacentItemsAndTheirSelectionAlong) {
    OpenWith({u"a", u"b", u"c", u"d"});
    Select({1, 2});
    EXPECT_EQ(Doing([this] { List().MoveSelected(false); }), "TOPBAR; COUNTS 4 2");
    EXPECT_EQ(Rows(), "[a][d][b*][c*]");
    EXPECT_EQ(Items(), "[a][d][b][c]");
    List().MoveSelected(true);
    List().MoveSelected(true);
    EXPECT_EQ(Rows(), "[b*][c*][a][d]");
    EXPECT_EQ(Items(), "[b][c][a][d]");
    EXPECT_EQ(Undos(), 3);
}

TEST_F(ItemListCommands, MoveTakesItemsThatStandApart) {
    OpenWith({u"a", u"b", u"c", u"d"});
    Select({1, 3});
    List().MoveSelected(true);
    EXPECT_EQ(Rows(), "[b*][a][d*][c]");
    EXPECT_EQ(Items(), "[b][a][d][c]");
}

// A list from which nothing is to be moved, and the direction.
struct Unmovable {
    const char* name;
    std::vector<int> selected;
    bool up;
    int order;
    const char16_t* search;
};
void PrintTo(const Unmovable& value, std::ostream* out) {
    *out << value.name;
}

class NothingMoves : public ItemListCommands, public testing::WithParamInterface<Unmovable> {};
INSTANTIATE_TEST_SUITE_P(Where, NothingMoves,
                         testing::Values(Unmovable{"NothingIsSelected", {}, true, SortNone, u""},
                                         Unmovable{"TheFirstGoesUp", {0}, true, SortNone, u""},
                                         Unmovable{"TheFirstOfSeveralGoesUp", {0, 2}, true, SortNone, u""},
                                         Unmovable{"TheLastGoesDown", {2}, false, SortNone, u""},
                                         Unmovable{"TheLastOfSeveralGoesDown", {0, 2}, false, SortNone, u""},
                                         Unmovable{"AnOrderIsInForce", {1}, true, SortAZ, u""},
                                         Unmovable{"ASearchIsInForce", {1}, true, SortNone, u"a"},
                                         Unmovable{"TheSearchIsABlank", {1}, true, SortNone, u" "}),
                         [](const auto& where) { return where.param.name; });

TEST_P(NothingMoves, AndNobodyIsTold) {
    OpenWith({u"a1", u"a2", u"a3"});
    ChooseOrder(GetParam().order);
    SearchFor(GetParam().search);
    Select(GetParam().selected);
    const std::string before = Rows();
    EXPECT_EQ(Doing([this] { List().MoveSelected(GetParam().up); }), "");
    EXPECT_EQ(Rows(), before);
    EXPECT_EQ(Items(), "[a1][a2][a3]");
    EXPECT_EQ(Undos(), 0);
}

TEST_F(ItemListCommands, ARowThatIsOutOfStepWithTheItemsIsNeverMoved) {
    OpenWith({u"a", u"b", u"c", u"d"});
    Select({1});
    std::swap(List().ItemOfRow(2)->m_data, List().ItemOfRow(3)->m_data);
    EXPECT_EQ(Doing([this] { List().MoveSelected(true); }), "");
    EXPECT_EQ(Items(), "[a][b][c][d]");
    EXPECT_EQ(Undos(), 0);
}

TEST_F(ItemListCommands, ARowWhoseUpperNeighbourIsOutOfStepIsNeverMoved) {
    OpenWith({u"a", u"b", u"c", u"d"});
    Select({2});
    std::swap(List().ItemOfRow(0)->m_data, List().ItemOfRow(1)->m_data);
    List().MoveSelected(false);
    EXPECT_EQ(Items(), "[a][b][c][d]");
}

TEST_F(ItemListCommands, ARowWithoutAnElementIsNeverMoved) {
    OpenWith({u"a", u"b", u"c"});
    Select({1});
    List().ItemOfRow(1)->m_data = 0;
    List().MoveSelected(true);
    EXPECT_EQ(Items(), "[a][b][c]");
}

TEST_F(ItemListCommands, TheListIsNotMovedWhileItShowsFewerItemsThanThereAre) {
    OpenWith({u"a", u"b"});
    Put(u"c");
    Select({0});
    List().MoveSelected(false);
    EXPECT_EQ(Items(), "[b][a][c]");
    Select({0});
    List().MoveSelected(false);
    EXPECT_EQ(Items(), "[a][b][c]");
    Select({1});
    List().MoveSelected(true);
    EXPECT_EQ(Items(), "[a][b][c]");
}

// --- Copy and cut ---

TEST_F(ItemListCommands, CopyPutsASingleItemOnTheClipboardWithItsName) {
    OpenWith({u"a", u"b"});
    Select({1});
    EXPECT_EQ(Doing([this] { EXPECT_TRUE(List().CopySelection()); }), "");
    EXPECT_THAT(FormatsOnClipboard(), testing::IsSupersetOf({ItemsClipboardFormat(), u32{CF_UNICODETEXT}}));
}

TEST_F(ItemListCommands, CopyOfSeveralItemsLeavesNoText) {
    OpenWith({u"a", u"b"});
    Select({0, 1});
    EXPECT_TRUE(List().CopySelection());
    EXPECT_THAT(FormatsOnClipboard(), ElementsAre(ItemsClipboardFormat()));
}

TEST_F(ItemListCommands, CopyOfNothingLeavesTheClipboardAlone) {
    OpenWith({u"a"});
    EXPECT_FALSE(List().CopySelection());
    EXPECT_TRUE(FormatsOnClipboard().empty());
}

TEST_F(ItemListCommands, CutCopiesAndRemoves) {
    OpenWith({u"a", u"b"});
    Select({0});
    PaneCommand(CMD_CUT);
    EXPECT_EQ(Rows(), "[b]");
    PaneCommand(CMD_PASTE);
    EXPECT_EQ(Rows(), "[b][a*]");
}

TEST_F(ItemListCommands, CutRemovesNothingThatCouldNotBeCopied) {
    OpenWith({u"a", u"b"});
    Select({0});
    ASSERT_TRUE(OpenClipboard(Window()));
    PaneCommand(CMD_CUT);
    CloseClipboard();
    EXPECT_EQ(Items(), "[a][b]");
    EXPECT_EQ(Rows(), "[a*][b]");
}

// --- Paste ---

TEST_F(ItemListCommands, PasteAppendsWhereNothingIsSelected) {
    OpenWith({u"a", u"b", u"c"});
    Select({0, 2});
    ASSERT_TRUE(List().CopySelection());
    Select({});
    EXPECT_EQ(Doing([this] { EXPECT_TRUE(List().PasteFromClipboard()); }), "TOPBAR; COUNTS 5 2");
    EXPECT_EQ(Rows(), "[a][b][c][a*][c*]");
    EXPECT_EQ(Items(), "[a][b][c][a][c]");
    EXPECT_EQ(List().ElementOf(4), TheDatabase().Tail());
    EXPECT_EQ(Undos(), 1);
}

TEST_F(ItemListCommands, PasteStandsInFrontOfTheFirstSelected) {
    OpenWith({u"a", u"b", u"c"});
    Select({0, 2});
    ASSERT_TRUE(List().CopySelection());
    Select({1, 2});
    EXPECT_TRUE(List().PasteFromClipboard());
    EXPECT_EQ(Rows(), "[a][a*][c*][b][c]");
    EXPECT_EQ(Items(), "[a][a][c][b][c]");
}

TEST_F(ItemListCommands, PasteMatchesAndOrdersNothing) {
    OpenWith({u"b", u"a", u"x"});
    Select({2});
    ASSERT_TRUE(List().CopySelection());
    ChooseOrder(SortAZ);
    const tvstring search(u"!");
    SearchFor(u"a");
    Select({0});
    List().PasteFromClipboard();
    EXPECT_EQ(Rows(), "[x*][a]");
    EXPECT_EQ(Items(), "[b][x][a][x]");
}

TEST_F(ItemListCommands, PasteBringsTheFirstItemIntoSight) {
    OpenWith(200);
    Select({0, 1, 2});
    ASSERT_TRUE(List().CopySelection());
    Select({});
    List().Send(LB_SETTOPINDEX, 0);
    List().PasteFromClipboard();
    RECT row{};
    List().GetItemRect(200, row);
    EXPECT_GE(row.top, 0);
    EXPECT_LE(row.bottom, ClientOf(ListWindow()).bottom);
}

TEST_F(ItemListCommands, PasteOfAnEmptyClipboardDoesNothing) {
    OpenWith({u"a"});
    Select({0});
    EXPECT_EQ(Doing([this] { EXPECT_FALSE(List().PasteFromClipboard()); }), "");
    EXPECT_EQ(Rows(), "[a*]");
    EXPECT_EQ(Undos(), 0);
}

TEST_F(ItemListCommands, PasteOfEntriesDoesNothing) {
    OpenWith({u"a"});
    VMRD_Entry entry(VMRD_T_ADDITION, u"e");
    ASSERT_TRUE(CopyEntries(Window(), {&entry}));
    EXPECT_FALSE(List().PasteFromClipboard());
    EXPECT_EQ(Items(), "[a]");
}

TEST_F(ItemListCommands, AListOfNoKindPastesNothing) {
    OpenWith({u"a"});
    Select({0});
    ASSERT_TRUE(List().CopySelection());
    List().m_Kind = 2;
    EXPECT_FALSE(List().PasteFromClipboard());
    EXPECT_EQ(Items(), "[a]");
}

TEST_F(ItemListCommands, TheCommandPasteGivesTheListTheKeyboard) {
    OpenWith({u"a"});
    Select({0});
    PaneCommand(CMD_COPY);
    SetFocus(Pane().m_filterEdit.Handle());
    PaneCommand(CMD_PASTE);
    EXPECT_EQ(GetFocus(), ListWindow());
    EXPECT_EQ(Rows(), "[a*][a]");
}

// --- The selection ---

TEST_F(ItemListCommands, SelectAllDeselectAllAndInvert) {
    OpenWith({u"a", u"b", u"c"});
    PaneCommand(CMD_SELECT_ALL);
    EXPECT_EQ(Rows(), "[a*][b*][c*]");
    List().SetSel(1, false);
    PaneCommand(CMD_INVERT_SELECTION);
    EXPECT_EQ(Rows(), "[a][b*][c]");
    PaneCommand(CMD_DESELECT_ALL);
    EXPECT_EQ(Rows(), "[a][b][c]");
}

TEST_F(ItemListCommands, AClickShowsTheItemAndTellsTheCounts) {
    OpenWith({u"a", u"b", u"c"});
    EXPECT_EQ(Doing([this] { ClickRow(1); }), "SHOWITEM b; COUNTS 3 1");
    EXPECT_EQ(Rows(), "[a][b*][c]");
    EXPECT_EQ(Doing([this] { ClickRow(2, MouseButton::Left, HOLD_CTRL); }), "SHOWITEM none; COUNTS 3 2");
    EXPECT_EQ(Rows(), "[a][b*][c*]");
}

TEST_F(ItemListCommands, ADoubleClickRenames) {
    OpenWith({u"a", u"b"});
    const POINT at = MiddleOf(1);
    const DuringModal renaming({PressButton(IDCANCEL)});
    const std::string told =
        Doing([&] { DoubleClick(ListWindow(), static_cast<int>(at.x), static_cast<int>(at.y)); });
    EXPECT_NE(told.find("RENAMEITEM"), std::string::npos) << told;
    EXPECT_TRUE(PumpUntil([&renaming] { return renaming.Done(); })) << "no dialog asks for the name";
}

TEST_F(ItemListCommands, TheCommandModifyRenames) {
    OpenWith({u"a"});
    EXPECT_EQ(Doing([this] { PaneCommand(CMD_RENAME); }), "RENAMEITEM");
}

TEST_F(ItemListCommands, OtherCommandsAreLeftAlone) {
    OpenWith({u"a"});
    Select({0});
    EXPECT_EQ(Doing([this] {
                  PaneCommand(CMD_DETAIL_MODIFY);
                  PaneCommand(CMD_UNDO);
                  PaneCommand(kItemListId, LBN_SETFOCUS);
              }),
              "");
    EXPECT_EQ(Rows(), "[a*]");
}

}  // namespace
