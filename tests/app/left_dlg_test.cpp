// The pane of the item list: its controls and what it does when it is told something.
#include <gmock/gmock.h>

#include "tests/app/item_stage.h"
#include "tests/app/menu_stage.h"
#include "tests/app/other_language.h"
#include "tests/gui/secret_memory.h"
#include "toolkit/draw.h"
#include "toolkit/tool_tip.h"

using testing::ElementsAre;

namespace {

class LeftDlg : public ItemTest {
protected:
    [[nodiscard]] HWND Box() const { return Pane().m_filterEdit.Handle(); }
    [[nodiscard]] tvstring SortText(int row) const {
        wchar_t text[100] = {};
        Pane().m_sortCombo.Send(CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
        return Units(text);
    }
    [[nodiscard]] int SortChoice() const { return static_cast<int>(Pane().m_sortCombo.Send(CB_GETCURSEL)); }
    static u32 StoredSort() { return LoadStoreSort(LoadStore::Load, 99); }
    [[nodiscard]] static bool CanPress(const CVMRBaseButton& button) {
        return IsWindowEnabled(button.Handle()) != FALSE;
    }
    // Start and end of what is selected in the search box.
    [[nodiscard]] DWORD Marked() const { return static_cast<DWORD>(SendMessageW(Box(), EM_GETSEL, 0, 0)); }
    void Resize(int width, int height) const {
        MoveWindow(Window(), 0, 0, width, height, TRUE);
        PumpQueue();
        Settle(Window());
    }
};

// --- Controls ---

TEST_F(LeftDlg, HasItsControlsInTheOrderOfTheTabKey) {
    OpenWith({u"a"});
    std::vector<int> ids;
    for (HWND child = GetWindow(Pane().Handle(), GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT))
        ids.push_back(GetDlgCtrlID(child));
    EXPECT_THAT(ids, ElementsAre(2003, 2004, 2005, 2006, 2007, 2008, 2009, 32782));
    EXPECT_EQ(Pane().m_menuBtn.m_glyph, GLYPH_DOTS);
    EXPECT_EQ(Pane().m_upBtn.m_glyph, GLYPH_UP);
    EXPECT_EQ(Pane().m_downBtn.m_glyph, GLYPH_DOWN);
    EXPECT_EQ(Pane().m_removeBtn.m_glyph, GLYPH_BIN);
    EXPECT_EQ(Pane().m_addBtn.m_glyph, GLYPH_NONE);
    EXPECT_EQ(Pane().m_filterEdit.m_autoHeight, -1);
}

TEST_F(LeftDlg, TheTemplateHasThePlacesOfItsControls) {
    CVMRLeftDlg pane;
    pane.BuildTemplate();
    const DialogHeader* header = pane.m_builder.Header();
    EXPECT_EQ(header->cx, 200);
    EXPECT_EQ(header->cy, 218);
    EXPECT_EQ(header->count, 8);
    const i16 places[][5] = {{2003, 7, 7, 69, 68},     {2004, 94, 7, 99, 12},
                             {2005, 7, 33, 186, 134},  {2006, 7, 171, 29, 16},
                             {2007, 39, 171, 29, 16},  {2008, 71, 171, 29, 16},
                             {2009, 103, 171, 29, 16}, {static_cast<i16>(32782), 135, 171, 58, 16}};
    for (int i = 0; i < 8; ++i) {
        const DialogControl* control = pane.Item(i);
        const auto& place = places[i];
        EXPECT_EQ(static_cast<i16>(control->id), place[0]);
        EXPECT_EQ(control->x, place[1]) << control->id;
        EXPECT_EQ(control->y, place[2]) << control->id;
        EXPECT_EQ(control->cx, place[3]) << control->id;
        EXPECT_EQ(control->cy, place[4]) << control->id;
    }
    EXPECT_EQ(pane.Item(0)->style & (CBS_DROPDOWNLIST | WS_TABSTOP), u32{CBS_DROPDOWNLIST | WS_TABSTOP});
    constexpr u32 kList = LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWVARIABLE;
    EXPECT_EQ(pane.Item(2)->style & kList, kList);
    const std::size_t size = pane.m_builder.Size();
    pane.BuildTemplate();
    EXPECT_EQ(pane.m_builder.Size(), size);
}

TEST_F(LeftDlg, ControlsHaveTheTextsOfTheLanguage) {
    OpenWith({u"a"});
    EXPECT_EQ(TextOf(Pane().m_upBtn.Handle()), u"Move Up");
    EXPECT_EQ(TextOf(Pane().m_downBtn.Handle()), u"Move Down");
    EXPECT_EQ(TextOf(Pane().m_removeBtn.Handle()), u"Remove");
    EXPECT_EQ(TextOf(Pane().m_addBtn.Handle()), u"Add");
    EXPECT_EQ(Pane().m_sortCombo.Send(CB_GETCOUNT), 5);
    EXPECT_EQ(SortText(0), u"Unsorted");
    EXPECT_EQ(SortText(1), u"A - Z");
    EXPECT_EQ(SortText(2), u"Z - A");
    EXPECT_EQ(SortText(3), u"New - Old");
    EXPECT_EQ(SortText(4), u"Old - New");
    EXPECT_EQ(Pane().m_filterEdit.m_cue, u"Type here to search");
    EXPECT_EQ(Pane().m_filterEdit.m_cueOnFocus, 1);
}

TEST_F(LeftDlg, AnotherLanguageChangesTheTextsAndKeepsTheOrder) {
    const OtherLanguage other(
        u"[global]\r\nadd = &Dazu...\r\nmoveup = Auf\r\n[itemlist]\r\nsort_az = Von A\r\n"
        u"[search]\r\ntip = Suche\r\n");
    OpenWith({u"b", u"a"});
    ChooseOrder(SortAZ);
    OtherLanguage::Choose();
    EXPECT_EQ(TextOf(Pane().m_addBtn.Handle()), u"Dazu");
    EXPECT_EQ(TextOf(Pane().m_upBtn.Handle()), u"Auf");
    EXPECT_EQ(SortText(1), u"Von A");
    EXPECT_EQ(SortText(2), u"Z - A");
    EXPECT_EQ(Pane().m_sortCombo.Send(CB_GETCOUNT), 5);
    EXPECT_EQ(SortChoice(), SortAZ);
    EXPECT_EQ(Pane().m_filterEdit.m_cue, u"Suche");
    EXPECT_EQ(Rows(), "[a][b]");
}

TEST_F(LeftDlg, ButtonsFollowTheSelection) {
    OpenWith({u"a", u"b", u"c"});
    const auto pressable = [this] {
        std::string can;
        for (const CVMRBaseButton* button :
             {&Pane().m_menuBtn, &Pane().m_upBtn, &Pane().m_downBtn, &Pane().m_removeBtn, &Pane().m_addBtn})
            can += CanPress(*button) ? '+' : '-';
        return can;
    };
    EXPECT_EQ(pressable(), "+---+");
    Select({0});
    EXPECT_EQ(pressable(), "+++++");
    Select({0, 1, 2});
    EXPECT_EQ(pressable(), "+--++");
    Select({});
    EXPECT_EQ(pressable(), "+---+");
}

TEST_F(LeftDlg, ButtonsDoWhatTheySay) {
    OpenWith({u"a", u"b"});
    ClickRow(0);
    Click(Pane().m_downBtn.Handle());
    EXPECT_TRUE(PumpUntil([this] { return Rows() == "[b][a*]"; }));
    Click(Pane().m_upBtn.Handle());
    EXPECT_TRUE(PumpUntil([this] { return Rows() == "[a*][b]"; }));
    Click(Pane().m_removeBtn.Handle());
    EXPECT_TRUE(PumpUntil([this] { return Rows() == "[b]"; }));
    Click(Pane().m_addBtn.Handle());
    EXPECT_TRUE(PumpUntil([this] { return Rows() == "[b][New password item*]"; }));
    EXPECT_EQ(GetFocus(), ListWindow());
}

// A button that cannot be pressed any more would keep the keyboard, and no key would do anything.
TEST_F(LeftDlg, ButtonsThatAreDisabledHandTheKeyboardToTheList) {
    OpenWith({u"a", u"b", u"c"});
    ClickRow(1);
    SetFocus(Pane().m_removeBtn.Handle());
    Type(VK_SPACE);
    EXPECT_TRUE(PumpUntil([this] { return Rows() == "[a][c]" && !CanPress(Pane().m_removeBtn); }));
    EXPECT_EQ(GetFocus(), ListWindow());
    for (const CVMRBaseButton* button : {&Pane().m_upBtn, &Pane().m_downBtn}) {
        Select({0});
        ASSERT_TRUE(CanPress(*button));
        SetFocus(button->Handle());
        Select({0, 1});
        EXPECT_FALSE(CanPress(*button));
        EXPECT_EQ(GetFocus(), ListWindow());
    }
    SetFocus(Box());
    Select({});
    EXPECT_EQ(GetFocus(), Box());
}

// --- Layout ---

class LayoutOfTheLeftPane : public LeftDlg, public testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Widths, LayoutOfTheLeftPane, testing::Values(900, 1003, 1200));

TEST_P(LayoutOfTheLeftPane, InPixels) {
    OpenWith({u"a"});
    Resize(GetParam(), 700);
    const RECT client = ClientOf(Pane().Handle());
    const int right = static_cast<int>(client.right);
    const int width = right - 8;
    const int columns = width / 5 * 2;
    const RECT combo = PlaceInParent(Pane().m_sortCombo.Handle());
    const int height = Height(combo);
    EXPECT_EQ(combo, (RECT{8, 10, 8 + columns - 8, 10 + height}));
    EXPECT_EQ(OuterPlace(Box()), (RECT{8 + columns, 10, right, 10 + height}));

    const RECT menu = PlaceInParent(Pane().m_menuBtn.Handle());
    const int w = Width(menu);
    EXPECT_GE(Height(menu), 24);
    EXPECT_EQ(menu.bottom, client.bottom - 10);
    LONG left = 8;
    for (const CVMRBaseButton* button :
         {&Pane().m_menuBtn, &Pane().m_upBtn, &Pane().m_downBtn, &Pane().m_removeBtn}) {
        EXPECT_EQ(PlaceInParent(button->Handle()), (RECT{left, menu.top, left + w, menu.bottom}));
        left += w + 8;
    }
    EXPECT_EQ(PlaceInParent(Pane().m_addBtn.Handle()), (RECT{left, menu.top, right, menu.bottom}));
    EXPECT_EQ(OuterPlace(ListWindow()), (RECT{8, 10 + height + 10, right, menu.top - 10}));
}

TEST_F(LeftDlg, TheSearchBoxAndTheListReachTheSplitter) {
    OpenWith({u"a"});
    RECT splitter{};
    GetWindowRect(Main().m_splitter.Handle(), &splitter);
    for (const HWND window : {Box(), ListWindow(), Pane().m_addBtn.Handle()}) {
        EXPECT_EQ(OuterScreenPlace(window).right, splitter.left);
    }
}

TEST_F(LeftDlg, AComboBoxThatWasMadeAnewStandsInItsPlace) {
    OpenWith({u"b", u"a"});
    ChooseOrder(SortAZ);
    const HWND before = Pane().m_sortCombo.Handle();
    const RECT place = PlaceInParent(before);
    UseTheme(u"System Default", Window());
    PumpQueue();
    ASSERT_NE(Pane().m_sortCombo.Handle(), before);
    const RECT now = PlaceInParent(Pane().m_sortCombo.Handle());
    EXPECT_EQ(now.left, place.left);
    EXPECT_EQ(now.top, place.top);
    EXPECT_EQ(now.right, place.right);
    EXPECT_EQ(SortChoice(), SortAZ);
    EXPECT_EQ(OuterPlace(Box()).bottom, now.bottom);
}

// --- Order ---

TEST_F(LeftDlg, TheOrderIsTakenFromTheSettings) {
    LoadStoreSort(LoadStore::Store, SortZA);
    OpenWith({u"a", u"b"});
    EXPECT_EQ(SortChoice(), SortZA);
    EXPECT_EQ(Rows(), "[b][a]");
}

TEST_F(LeftDlg, TheOrderIsKeptWhenTheWindowGoes) {
    OpenWith({u"a"});
    ChooseOrder(SortOldNew);
    EXPECT_EQ(StoredSort(), u32{SortNone});
    Close();
    EXPECT_EQ(StoredSort(), u32{SortOldNew});
}

TEST_F(LeftDlg, NoOrderAtAllIsKeptAsNone) {
    LoadStoreSort(LoadStore::Store, SortZA);
    OpenWith({u"a"});
    Pane().m_sortCombo.Send(CB_SETCURSEL, static_cast<WPARAM>(-1));
    Close();
    EXPECT_EQ(StoredSort(), u32{SortNone});
}

TEST_F(LeftDlg, AChoiceOrdersTheRows) {
    OpenWith({u"b", u"a"});
    ChooseOrder(SortAZ);
    EXPECT_EQ(Rows(), "[a][b]");
    ChooseOrder(SortNone);
    EXPECT_EQ(Rows(), "[b][a]");
    ChooseOrder(SortAZ);
    Pane().m_sortCombo.Send(CB_SETCURSEL, static_cast<WPARAM>(-1));
    PaneCommand(2003, CBN_SELCHANGE);
    EXPECT_EQ(Rows(), "[b][a]") << "no choice is none";
}

TEST_F(LeftDlg, OtherNoticesOfTheComboBoxDoNothing) {
    OpenWith({u"b", u"a"});
    Pane().m_sortCombo.Send(CB_SETCURSEL, SortAZ);
    PaneCommand(2003, CBN_DROPDOWN);
    EXPECT_EQ(Rows(), "[b][a]");
}

TEST_F(LeftDlg, TheKeyboardChoosesAnOrder) {
    OpenWith({u"b", u"a"});
    SetFocus(Pane().m_sortCombo.Handle());
    Type(VK_DOWN);
    EXPECT_TRUE(PumpUntil([this] { return Rows() == "[a][b]"; }));
}

// --- Search ---

TEST_F(LeftDlg, EachLetterTypedFillsTheListAnew) {
    OpenWith({u"ab", u"b", u"abc", u"c"});
    Select({0, 2});
    SetFocus(Box());
    std::string told = Doing([this] {
        TypeText(u"a");
        EXPECT_TRUE(PumpUntil([this] { return Rows() == "[ab*][abc*]"; }));
    });
    EXPECT_EQ(told.substr(0, 10), "COUNTS 2 2");
    TypeText(u"bc");
    EXPECT_TRUE(PumpUntil([this] { return Rows() == "[abc*]"; }));
    Type(VK_BACK);
    EXPECT_TRUE(PumpUntil([this] { return Rows() == "[ab][abc*]"; }));
}

TEST_F(LeftDlg, OtherNoticesOfTheSearchBoxDoNothing) {
    OpenWith({u"a"});
    Select({0});
    EXPECT_EQ(Doing([this] { PaneCommand(2004, EN_UPDATE); }), "");
}

TEST_F(LeftDlg, TheFirstClickIntoTheSearchBoxSelectsItsText) {
    OpenWith({u"a"});
    SearchFor(u"some");
    Click(Box(), 5, 8);
    EXPECT_TRUE(PumpUntil([this] { return Marked() == MAKELONG(0, 4); }));
    EXPECT_EQ(Pane().m_filterEdit.m_prevFocus, ListWindow());
    Click(Box(), static_cast<int>(ClientOf(Box()).right) - 5, 8);
    EXPECT_TRUE(PumpUntil([this] { return Marked() == MAKELONG(4, 4); }));
}

TEST_F(LeftDlg, AClickIntoTheSearchBoxWithTheKeyboardPlacesTheCaret) {
    OpenWith({u"a"});
    SearchFor(u"some");
    SetFocus(Box());
    SendMessageW(Box(), EM_SETSEL, 0, 0);
    Click(Box(), static_cast<int>(ClientOf(Box()).right) - 5, 8);
    EXPECT_TRUE(PumpUntil([this] { return Marked() == MAKELONG(4, 4); }));
    EXPECT_EQ(Pane().m_filterEdit.m_prevFocus, Box());
}

class InvertedSearch : public LeftDlg, public testing::WithParamInterface<const char16_t*> {};
INSTANTIATE_TEST_SUITE_P(Themes, InvertedSearch, testing::Values(u"Light", u"Dark", u"System Default"),
                         [](const auto& theme) {
                             const std::u16string_view name(theme.param);
                             return name == u"Light" ? "Light" : name == u"Dark" ? "Dark" : "SystemDefault";
                         });

TEST_P(InvertedSearch, IsMarkedInTheTipAndByTheColour) {
    UseTheme(GetParam());
    OpenWith({u"a"});
    const COLORREF contrast = ContrastColor(TheTheme().Color(&tvColorTheme::m_editBg, COLOR_WINDOW));
    SearchFor(u"WWWW");
    Settle(Box());
    EXPECT_EQ(Picture(Box()).Count(contrast), 0);
    Command(CMD_FILTER_WITHOUT);
    EXPECT_EQ(Pane().m_filterEdit.m_cue, u"! Type here to search");
    Settle(Box());
    EXPECT_GT(Picture(Box()).Count(contrast), 20);
    EXPECT_EQ(Rows(), "[a]");
    COLORREF color = 0;
    EXPECT_TRUE(Pane().m_filterEdit.GetTextColor(color));
    EXPECT_EQ(color, contrast);
    Command(CMD_FILTER_ALL);
    EXPECT_EQ(Pane().m_filterEdit.m_cue, u"Type here to search");
    EXPECT_EQ(Rows(), "");
    Settle(Box());
    EXPECT_EQ(Picture(Box()).Count(contrast), 0);
}

// --- Refused moves ---

struct Refusal {
    const char* name;
    int order;
    const char16_t* search;
};
void PrintTo(const Refusal& value, std::ostream* out) {
    *out << value.name;
}
class RefusesToMove : public LeftDlg, public testing::WithParamInterface<Refusal> {};
INSTANTIATE_TEST_SUITE_P(Because, RefusesToMove,
                         testing::Values(Refusal{"OfAnOrder", SortNewOld, u""},
                                         Refusal{"OfASearch", SortNone, u"a"},
                                         Refusal{"OfABlank", SortNone, u" "},
                                         Refusal{"OfBoth", SortNewOld, u"a"}),
                         [](const auto& why) { return why.param.name; });

TEST_P(RefusesToMove, AndSaysSo) {
    OpenWith({u"a1", u"a2"});
    ChooseOrder(GetParam().order);
    SearchFor(GetParam().search);
    Select({1});
    for (const u16 id : {CMD_MOVE_UP, CMD_MOVE_DOWN}) {
        EXPECT_EQ(Doing([&] { PaneCommand(id); }),
                  "ERROR The operation cannot be performed while sort or search is enabled");
    }
    EXPECT_EQ(Items(), "[a1][a2]");
    EXPECT_FALSE(TheDatabase().m_Changed);
}

// --- What it is told ---

TEST_F(LeftDlg, AnEditedItemIsRepaintedWhereThereIsNeitherOrderNorSearch) {
    OpenWith({u"b", u"a"});
    Select({0});
    for (const NotifyArgument sort : {0, 1}) {
        EXPECT_EQ(Doing([&] { Pane().OnAppNotify(APPN_ITEMCHANGED, sort, 0, 0); }), "");
        EXPECT_NE(GetUpdateRect(ListWindow(), nullptr, FALSE), FALSE);
        Settle(ListWindow());
    }
    EXPECT_EQ(Rows(), "[b*][a]");
}

TEST_F(LeftDlg, AnEditedItemIsOrderedAgainOrMatchedAnew) {
    OpenWith({u"b1", u"a1"});
    SearchFor(u"1");
    ChooseOrder(SortAZ);
    TheDatabase().m_Head->m_Name = u"A";
    EXPECT_EQ(Doing([this] { Main().OnAppNotify(APPN_ITEMCHANGED, 1, 0, 0); }), "ITEMCHANGED");
    EXPECT_EQ(Rows(), "[A][a1]");
    List().m_Source = nullptr;
    Main().OnAppNotify(APPN_ITEMCHANGED, 0, 0, 0);
    EXPECT_EQ(Rows(), "[a1]");
    EXPECT_EQ(List().m_Source, &TheDatabase());
}

TEST_F(LeftDlg, AnotherWayToSearchFillsTheListAnew) {
    OpenWith({u"ab", u"a"});
    SearchFor(u"a b");
    EXPECT_EQ(Rows(), "[ab]");
    TheAppData().filterFlag = 2;
    List().m_Source = nullptr;
    Main().OnAppNotify(APPN_FILTERCHANGED, 0, 0, 0);
    EXPECT_EQ(Rows(), "[ab][a]");
}

TEST_F(LeftDlg, TheListIsTakenFromTheDatabaseWithItsSearch) {
    OpenWith({u"a", u"b"});
    SearchFor(u"a");
    Pane().OnAppNotify(APPN_DBLIST, 1, 0, 0);
    EXPECT_EQ(List().m_Source, nullptr);
    EXPECT_EQ(Rows(), "");
    EXPECT_EQ(TextOf(Box()), u"");
    EXPECT_EQ(List().FilterText(), u"");
}

TEST_F(LeftDlg, TheListIsGivenToTheDatabaseWithARowAndTheKeyboard) {
    OpenWith({u"a", u"b", u"c"});
    Select({0, 1});
    SetFocus(Box());
    Pane().OnAppNotify(APPN_DBLIST, 0, 2, 0);
    EXPECT_EQ(Rows(), "[a][b][c*]");
    EXPECT_EQ(GetFocus(), Box());
    Pane().OnAppNotify(APPN_DBLIST, 0, 0, 1);
    EXPECT_EQ(Rows(), "[a*][b][c]");
    EXPECT_EQ(GetFocus(), ListWindow());
}

TEST_F(LeftDlg, ARowThatIsNotThereIsNotSelected) {
    OpenWith({u"a", u"b"});
    Select({1});
    Pane().OnAppNotify(APPN_DBLIST, 0, -1, 0);
    EXPECT_EQ(Rows(), "[a][b*]");
    Pane().OnAppNotify(APPN_DBLIST, 0, 2, 0);
    EXPECT_EQ(Rows(), "[a][b*]");
}

TEST_F(LeftDlg, WhatAnUndoHasTouchedIsSelected) {
    OpenWith({u"a", u"b", u"c"});
    Select({0});
    ElementArray changed{TheDatabase().Tail()};
    const NotifyArgument owner = AsArgument(static_cast<VMRD_Object*>(&TheDatabase()));
    Main().OnAppNotify(APPN_ROWSCHANGED, owner, AsArgument(&changed), 1);
    EXPECT_EQ(Rows(), "[a*][b][c*]");
    Main().OnAppNotify(APPN_ROWSCHANGED, owner, AsArgument(&changed), 0);
    EXPECT_EQ(Rows(), "[a][b][c*]");
}

// An item that is not in the list, since the search leaves it out or since it is gone.
TEST_F(LeftDlg, AnItemOfAnUndoWithoutARowIsNotSelected) {
    OpenWith({u"a", u"b", u"c"});
    ElementArray hidden{TheDatabase().Tail()};
    const NotifyArgument owner = AsArgument(static_cast<VMRD_Object*>(&TheDatabase()));
    SearchFor(u"a");
    ASSERT_EQ(Rows(), "[a]");
    Select({0});
    Main().OnAppNotify(APPN_ROWSCHANGED, owner, AsArgument(&hidden), 1);
    EXPECT_EQ(Rows(), "[a*]");
    Main().OnAppNotify(APPN_ROWSCHANGED, owner, AsArgument(&hidden), 0);
    EXPECT_EQ(Rows(), "[a]");
}

TEST_F(LeftDlg, AnItemThatAnUndoTookAwayHasItsNeighboursUnselected) {
    OpenWith({u"a", u"b"});
    VMRD_DB& database = TheDatabase();
    ASSERT_NE(database.AddNewItem(&database), nullptr);
    Main().OnAppNotify(APPN_DBLIST, 0, 2, 0);
    ASSERT_EQ(List().GetCount(), 3);
    Command(CMD_UNDO);
    EXPECT_EQ(Rows(), "[a][b]");
}

// Passwords are searched for as well.
TEST_F(LeftDlg, LeavesNothingOfTheTextThatWasSearchedFor) {
    OpenWith({u"a", u"b"});
    const int before = CountSecrets();
    SetWindowTextW(Box(), Wide(Secret().c_str()));
    EXPECT_GT(CountSecrets(), before);
    Main().OnAppNotify(APPN_DBLIST, 1, 0, 0);
    EXPECT_EQ(TextOf(Box()), u"");
    EXPECT_EQ(Pane().m_list.FilterText(), u"");
    EXPECT_EQ(CountSecrets(), before);
}

TEST_F(LeftDlg, LeavesNothingOfThatWhenTheWindowGoes) {
    OpenWith({u"a", u"b"});
    const int before = CountSecrets();
    SetWindowTextW(Box(), Wide(Secret().c_str()));
    EXPECT_GT(CountSecrets(), before);
    DestroyWindow(Box());
    const tvstring nothing;
    Pane().m_list.SetView(nullptr, &nothing);
    EXPECT_EQ(CountSecrets(), before);
}

TEST_F(LeftDlg, HearsNothingWithoutAWindow) {
    CVMRLeftDlg pane;
    for (const i32 code : {APPN_LANGUAGE, APPN_ITEMCHANGED, APPN_FILTERCHANGED, APPN_DBLIST})
        pane.OnAppNotify(code, 0, 0, 0);
    EXPECT_EQ(pane.m_list.m_Source, nullptr);
}

// --- Rounds ---

TEST_F(LeftDlg, AWholeRoundThroughTheCommandsOfTheDatabase) {
    OpenWith({u"a", u"b"});
    Select({1});
    TheDatabase().m_Changed = false;
    Command(CMD_CLOSE);
    EXPECT_EQ(Rows(), "");
    EXPECT_FALSE(IsWindowVisible(Pane().Handle()));
    const DuringModal steps({AnswerWith(u"New")});
    Command(CMD_NEW);
    EXPECT_EQ(Rows(), "[New password item*]");
    EXPECT_EQ(GetFocus(), ListWindow());
}

}  // namespace
