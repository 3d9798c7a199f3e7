// The list of recent databases: its rows, how they open and how they go.
#include "tests/app/keep_font.h"
#include "tests/app/menu_stage.h"
#include "tests/app/start_stage.h"

namespace {

HWND MenuWindow() {
    return FindWindowW(L"#32768", nullptr);
}

bool IsMenuOpen() {
    return MenuWindow() != nullptr && IsWindowVisible(MenuWindow()) != FALSE;
}

class RecentListBox : public StartTest {
protected:
    // A database file at the top of the list.
    tvstring AddFile(const char16_t* name = u"a.vmr") {
        tvstring path = MakeFile(name, u"one");
        TheAppData().AddRecent(path, u"There");
        return path;
    }

    // The box that asks about this entry, answered.
    static Step AskedAbout(tvstring path, int button) {
        return InBox(
            [path = std::move(path)](const tvMessageBox& box) {
                EXPECT_EQ(box.m_style, u32{MB_YESNO | MB_ICONERROR | MB_DEFBUTTON2});
                EXPECT_TRUE(box.m_text.starts_with(path)) << Letters(box.m_text);
                EXPECT_NE(box.m_text.find(u"remove it from recent list"), tvstring::npos);
            },
            button);
    }

    static Step ClearAsked(int button) {
        return InBox(
            [](const tvMessageBox& box) {
                EXPECT_EQ(box.m_style, u32{MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2});
                EXPECT_EQ(box.m_text, u"Are you sure you want to clear all recent records?");
            },
            button);
    }

    // Carries out an action with these steps, and waits until they are done.
    static void With(std::vector<Step> steps, const std::function<void()>& action) {
        const DuringModal during(std::move(steps));
        action();
        EXPECT_TRUE(PumpUntil([&during] { return during.Done(); }));
        PumpQueue();
    }

    // The same with the menu that the action opens: it is looked at and closed.
    static void WithMenu(const std::function<void(const RECT&)>& look, const std::function<void()>& action) {
        With({[&look] {
                 if (!IsMenuOpen()) return false;
                 RECT place{};
                 GetWindowRect(MenuWindow(), &place);
                 const LRESULT menu = SendMessageW(MenuWindow(), MN_GETHMENU, 0, 0);
                 EXPECT_EQ(menu, reinterpret_cast<LRESULT>(TheAppData().recentMenu.Handle()));
                 look(place);
                 EndMenu();
                 return true;
             }},
             action);
    }

    // Chooses a row of the menu that is opened with the right button, by the letter of the row.
    void Choose(int row, WORD letter, std::vector<Step> then = {}) {
        then.insert(then.begin(), [letter] {
            if (!IsMenuOpen()) return false;
            Type(letter);
            return true;
        });
        With(std::move(then), [this, row] { ClickRow(row, MouseButton::Right); });
    }

    // What the dialog's loop does with a key for the list.
    void SendKeyToList(WORD key) {
        MSG message{};
        message.hwnd = ListWindow();
        message.message = WM_KEYDOWN;
        message.wParam = key;
        message.lParam = 1;
        EXPECT_TRUE(Main().IsDialogMsg(&message));
    }

    [[nodiscard]] POINT OnScreen(POINT point) const {
        ClientToScreen(ListWindow(), &point);
        return point;
    }

    // The colour of a row's ground, between its name and its path.
    [[nodiscard]] COLORREF GroundOf(int row) const {
        Settle(ListWindow());
        const POINT at = MiddleOf(row);
        return Picture(ListWindow()).At(at.x, at.y);
    }
};

// --- Rows ---

TEST_F(RecentListBox, ShowsTheNewestFirstWithItsPathAsTheNote) {
    OpenWith(3);
    EXPECT_EQ(ShownNames(), "Name 1, Name 2, Name 3");
    EXPECT_EQ(List().ItemOfRow(0)->m_note, u"C:\\gone\\1.vmr");
    EXPECT_EQ(List().ItemOfRow(2)->m_note, u"C:\\gone\\3.vmr");
    EXPECT_TRUE(List().IsSingleSelect());
    EXPECT_EQ(List().GetCurSel(), -1);
}

TEST_F(RecentListBox, ShowsTheFileNameOfAnEntryWithoutAName) {
    TheAppData().AddRecent(u"C:\\some\\folder\\plain.vmr", u"");
    OpenWindow();
    EXPECT_EQ(ShownNames(), "plain.vmr");
    EXPECT_EQ(List().ItemOfRow(0)->m_note, u"C:\\some\\folder\\plain.vmr");
}

TEST_F(RecentListBox, KeepsATabInANameOutOfThePath) {
    TheAppData().AddRecent(u"C:\\x.vmr", u"a\tb");
    OpenWindow();
    EXPECT_EQ(List().ItemOfRow(0)->m_text, u"a\tb");
    EXPECT_EQ(List().ItemOfRow(0)->m_note, u"C:\\x.vmr");
}

TEST_F(RecentListBox, HasRowsOfOneLineHoweverLongTheirTexts) {
    TheAppData().AddRecent(tvstring(u"C:\\").append(tvstring(200, u'p')), tvstring(250, u'N'));
    TheAppData().AddRecent(u"C:\\x.vmr", u"x");
    OpenWindow();
    const int line = TheTheme().TextHeight(TheTheme().Font(), nullptr) + 2 * TheTheme().m_borderWidth;
    EXPECT_EQ(Height(RowRect(0)), line + line % 2);
    EXPECT_EQ(Height(RowRect(1)), line + line % 2);
}

TEST_F(RecentListBox, HasRowsNoHigherThanTheSystemTakes) {
    TheAppData().AddRecent(u"C:\\x.vmr", u"x");
    OpenWindow();
    const KeepFont keep;
    LOGFONTW huge = keep.Regular();
    huge.lfHeight = -400;
    TheTheme().SetFont(huge, 1.0F);
    EXPECT_EQ(List().CalcItemHeight(-1), 254);
}

TEST_F(RecentListBox, PaintsAPathAtTheRightAndShortensIt) {
    const tvstring longPath = tvstring(u"C:\\").append(tvstring(100, u'p')).append(u"\\end.vmr");
    TheAppData().AddRecent(longPath, tvstring(250, u'N'));
    TheAppData().AddRecent(u"C:\\W.vmr", u"W");
    OpenWindow();
    const Picture picture(ListWindow());
    const COLORREF ground = TheTheme().m_base;
    const RECT first = RowRect(0);
    const LONG middle = (first.left + first.right) / 2;
    const RECT path = InkIn(picture, ground, {middle, first.top, first.right, first.bottom});
    EXPECT_LE(path.right, first.right - TheTheme().m_borderWidth);
    EXPECT_GT(path.right, first.right - 12);
    EXPECT_LT(Width(path), 80);
    // The long name and the long path keep out of each other's half.
    const RECT second = RowRect(1);
    const LONG half = (Width(second) - 2 * TheTheme().m_borderWidth) / 2 - TheTheme().m_halfMarginX / 2;
    const LONG noteLeft = second.right - TheTheme().m_borderWidth - half;
    const LONG textRight = noteLeft - TheTheme().m_halfMarginX;
    const RECT between = InkIn(picture, ground, {textRight, second.top, noteLeft, second.bottom});
    EXPECT_TRUE(IsRectEmpty(&between));
    EXPECT_GT(Width(InkIn(picture, ground, {noteLeft, second.top, second.right, second.bottom})), half / 2);
}

TEST_F(RecentListBox, LiesFlatOnThePage) {
    OpenWith(3);
    UseTheme(u"Dark", Window());
    const tvTheme& theme = TheTheme();
    EXPECT_EQ(GroundOf(0), theme.m_base);
    const RECT client = ClientOf(ListWindow());
    EXPECT_EQ(Picture(ListWindow()).At(client.right / 2, client.bottom - 3), theme.m_base);  // no row
    PointAt(1);
    EXPECT_TRUE(PumpUntil([&] { return GroundOf(1) == theme.m_buttonOver; }));
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return GroundOf(1) == theme.m_base; }));
}

TEST_F(RecentListBox, ShowsTheCurrentRowOnlyWhileItHasTheKeyboard) {
    OpenWith(3);
    for (const char16_t* name : {u"Light", u"Dark", u"System Default"}) {
        UseTheme(name, Window());
        FocusList();
        List().SetCurSel(1);
        const tvTheme& theme = TheTheme();
        EXPECT_EQ(GroundOf(1), theme.Color(&tvColorTheme::m_buttonPush, COLOR_HIGHLIGHT)) << Letters(name);
        SetFocus(Page().m_createBtn.Handle());
        EXPECT_EQ(GroundOf(1), theme.Color(&tvColorTheme::m_base, COLOR_BTNFACE)) << Letters(name);
        EXPECT_EQ(GroundOf(0), GroundOf(1));
    }
}

// --- Opening ---

TEST_F(RecentListBox, OpensARowWithASingleClick) {
    AddGone(1);
    const tvstring path = AddFile();
    OpenWindow();
    With({AnswerWith(u"one")}, [this] { ClickRow(0); });
    EXPECT_TRUE(TheDatabase().m_Opened);
    EXPECT_EQ(TheDatabase().m_Path, path);
    EXPECT_NE(GetCapture(), ListWindow());
}

TEST_F(RecentListBox, DoesNotOpenBeforeTheButtonIsUp) {
    OpenWith(2);
    PointAt(0);
    {
        const DuringModal nothing({});  // fails once a dialog stays
        Press();
        EXPECT_TRUE(PumpUntil([this] { return GetCapture() == ListWindow(); }));
        EXPECT_EQ(FrontDialog(), Window());
    }
    With({AskedAbout(GonePath(1), IDNO)}, [] { Release(); });
}

TEST_F(RecentListBox, ActsOnTheRowWhereTheButtonComesUp) {
    OpenWith(3);
    PointAt(0);
    Press();
    PumpUntil([this] { return GetCapture() == ListWindow(); });
    PointAt(2);
    With({AskedAbout(GonePath(3), IDYES)}, [] { Release(); });
    EXPECT_EQ(ShownNames(), "Name 1, Name 2");
}

TEST_F(RecentListBox, DoesNothingForAButtonThatComesUpBesideTheRows) {
    OpenWith(2);
    const RECT client = ClientOf(ListWindow());
    const POINT places[] = {
        {client.right / 2, client.bottom - 3}, {client.right / 2, client.bottom + 20}, {-10, 5}};
    for (const POINT& place : places) {
        const DuringModal nothing({});
        PointAt(0);
        Press();
        EXPECT_TRUE(PumpUntil([this] { return GetCapture() == ListWindow(); }));
        MoveMouse(ListWindow(), place.x, place.y);
        Release();
        EXPECT_TRUE(PumpUntil([this] { return GetCapture() != ListWindow(); }));
        PumpQueue();
        EXPECT_EQ(FrontDialog(), Window());
    }
    EXPECT_EQ(ShownNames(), "Name 1, Name 2");
}

TEST_F(RecentListBox, DoesNothingForAButtonThatWasPressedElsewhere) {
    OpenWith(2);
    const DuringModal nothing({});
    SendMessageW(ListWindow(), WM_LBUTTONUP, 0, MAKELPARAM(MiddleOf(0).x, MiddleOf(0).y));
    PumpQueue();
    EXPECT_EQ(FrontDialog(), Window());
}

TEST_F(RecentListBox, OpensTheCurrentRowByEnterAndBySpace) {
    OpenWith(3);
    FocusList();
    List().SetCurSel(1);
    for (const WORD key : {WORD{VK_RETURN}, WORD{VK_SPACE}})
        With({AskedAbout(GonePath(2), IDNO)}, [this, key] { SendKeyToList(key); });
    EXPECT_EQ(ShownNames(), "Name 1, Name 2, Name 3");
}

TEST_F(RecentListBox, OpensNothingByKeysWithoutACurrentRow) {
    OpenWith(2);
    FocusList();
    ASSERT_EQ(List().GetCurSel(), -1);
    const DuringModal nothing({});
    SendKeyToList(VK_RETURN);
    SendKeyToList(VK_SPACE);
    EXPECT_EQ(FrontDialog(), Window());
}

TEST_F(RecentListBox, WantsEnterForItselfAndNoOtherKeyOfDialogs) {
    OpenWith(1);
    EXPECT_NE(List().Send(WM_GETDLGCODE, VK_RETURN) & DLGC_WANTMESSAGE, 0);
    EXPECT_EQ(List().Send(WM_GETDLGCODE, VK_TAB) & DLGC_WANTMESSAGE, 0);
    EXPECT_EQ(List().Send(WM_GETDLGCODE) & DLGC_WANTMESSAGE, 0);
    EXPECT_NE(List().Send(WM_GETDLGCODE, VK_RETURN) & DLGC_WANTARROWS, 0);  // the list box's own
}

TEST_F(RecentListBox, OpensAPathWithVariables) {
    const tvstring path = AddFile();
    TheAppData().ClearRecent();
    SetEnvironmentVariableW(L"VaultmereTests", Wide(InFolder(u"").c_str()));
    TheAppData().AddRecent(u"%VaultmereTests%\\a.vmr", u"There");
    OpenWindow();
    With({AnswerWith(u"one")}, [this] { ClickRow(0); });
    EXPECT_TRUE(TheDatabase().m_Opened);
    SetEnvironmentVariableW(L"VaultmereTests", nullptr);
}

TEST_F(RecentListBox, TakesAFolderForAFileThatIsGone) {
    const tvstring folder = InFolder(u"folder.vmr");
    ASSERT_NE(CreateDirectoryW(Wide(folder.c_str()), nullptr), FALSE);
    TheAppData().AddRecent(folder, u"Folder");
    OpenWindow();
    With({AskedAbout(folder, IDNO)}, [this] { EXPECT_FALSE(List().OpenRow(0)); });
    EXPECT_EQ(ShownNames(), "Folder");
}

TEST_F(RecentListBox, TellsWhetherThereWasSomethingToOpen) {
    const tvstring path = AddFile();
    TheAppData().recentItems.push_back({u"", u"Without a path"});
    OpenWindow();
    {
        const DuringModal nothing({});
        for (const int row : {-1, 1, 2, 100})
            EXPECT_FALSE(List().OpenRow(row)) << row;
    }
    With({AnswerWith(u"one")}, [this] { EXPECT_TRUE(List().OpenRow(0)); });
}

TEST_F(RecentListBox, TellsOfAFileThatIsHeldBySomebodyElse) {
    const tvstring path = AddFile();
    OpenWindow();
    const tvhandle held = HoldFile(path);
    Noting().m_notes.clear();
    EXPECT_TRUE(List().OpenRow(0));
    EXPECT_FALSE(TheDatabase().m_Opened);
    ASSERT_FALSE(Noting().m_notes.empty());
    EXPECT_TRUE(Noting().m_notes.back().starts_with("STATUS error ")) << Noting().m_notes.back();
}

// --- A file that is gone ---

TEST_F(RecentListBox, KeepsAMissingFileAfterNo) {
    OpenWith(3);
    With({AskedAbout(GonePath(2), IDNO)}, [this] { ClickRow(1); });
    EXPECT_EQ(ShownNames(), "Name 1, Name 2, Name 3");
    EXPECT_EQ(KeptNames(), "Name 1, Name 2, Name 3");
}

TEST_F(RecentListBox, RemovesJustAMissingFileAfterYes) {
    OpenWith(3);
    const int height = Height(ListPlace());
    With({AskedAbout(GonePath(2), IDYES)}, [this] { ClickRow(1); });
    EXPECT_EQ(ShownNames(), "Name 1, Name 3");
    EXPECT_EQ(KeptNames(), "Name 1, Name 3");
    EXPECT_EQ(Height(ListPlace()), height - Height(RowRect(0)));
}

TEST_F(RecentListBox, RemovesTheMissingFileThoughAnotherRowWasCurrent) {
    OpenWith(3);
    List().SetCurSel(0);
    With({AskedAbout(GonePath(3), IDYES)}, [this] { List().OpenRow(2); });
    EXPECT_EQ(ShownNames(), "Name 1, Name 2");
}

TEST_F(RecentListBox, RemovesNothingElseIfTheListChangesWhileTheUserIsAsked) {
    OpenWith(3);
    const Step change = [this] {
        if (dynamic_cast<tvMessageBox*>(tvWnd::FromHandle(FrontDialog())) == nullptr) return false;
        TheAppData().RemoveRecent(0);
        Main().OnAppNotify(APPN_START, 0, 0, 0);
        return true;
    };
    With({change, AnswerBox(IDYES)}, [this] { List().OpenRow(1); });
    EXPECT_EQ(ShownNames(), "Name 2, Name 3");
}

TEST_F(RecentListBox, HidesWithItsHeadingWhenTheLastEntryGoes) {
    OpenWith(1);
    ASSERT_TRUE(HasHeading());
    With({AskedAbout(GonePath(1), IDYES)}, [this] { ClickRow(0); });
    EXPECT_EQ(List().GetCount(), 0);
    EXPECT_FALSE(IsListShown());
    EXPECT_FALSE(HasHeading());
}

TEST_F(RecentListBox, RemovesNothingWithoutACurrentRow) {
    OpenWith(2);
    List().Send(WM_COMMAND, CMD_REMOVE);
    EXPECT_EQ(KeptNames(), "Name 1, Name 2");
    List().SetCurSel(1);
    TheAppData().recentItems.pop_back();  // behind the list's back
    List().Send(WM_COMMAND, CMD_REMOVE);
    EXPECT_EQ(TheAppData().recentItems.size(), 1U);
}

// --- The menu ---

TEST_F(RecentListBox, OpensItsMenuAtThePointerForTheRowThere) {
    OpenWith(3);
    const POINT at = OnScreen(MiddleOf(1));
    WithMenu(
        [this, &at](const RECT& place) {
            EXPECT_EQ(place.left, at.x);
            EXPECT_EQ(place.top, at.y);
            EXPECT_EQ(List().GetCurSel(), 1);
            EXPECT_EQ(GetFocus(), ListWindow());
            const tvMenu& menu = TheAppData().recentMenu;
            EXPECT_EQ(EnabledOf(menu), "32777 2009 32792 32795");
            EXPECT_EQ(GetMenuDefaultItem(menu.Handle(), FALSE, 0), UINT{CMD_OPEN});
        },
        [this] { ClickRow(1, MouseButton::Right); });
}

TEST_F(RecentListBox, HasNothingToOpenOrRemoveInTheMenuBesideTheRows) {
    OpenWith(2);
    List().SetCurSel(1);
    const RECT client = ClientOf(ListWindow());
    WithMenu(
        [](const RECT&) {
            const tvMenu& menu = TheAppData().recentMenu;
            EXPECT_EQ(EnabledOf(menu), "32792 32795");
            EXPECT_EQ(GetMenuDefaultItem(menu.Handle(), FALSE, 0), static_cast<UINT>(-1));
        },
        [&] { Click(ListWindow(), client.right / 2, client.bottom - 3, MouseButton::Right); });
}

TEST_F(RecentListBox, HasNothingToClearInTheMenuWithoutRows) {
    OpenWindow();
    WithMenu([](const RECT&) { EXPECT_EQ(EnabledOf(TheAppData().recentMenu), "32795"); },
             [this] { List().Send(WM_CONTEXTMENU, 0, MAKELPARAM(100, 100)); });
}

TEST_F(RecentListBox, OpensItsMenuInItsCornerForTheKeyboard) {
    OpenWith(2);
    const POINT corner = OnScreen({0, 0});
    WithMenu(
        [&corner](const RECT& place) {
            EXPECT_EQ(place.left, corner.x);
            EXPECT_EQ(place.top, corner.y);
        },
        [this] { List().Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(ListWindow()), -1); });
}

TEST_F(RecentListBox, OpensItsMenuAtThePointerForTheKeyboardToo) {
    OpenWith(2);
    PointAt(1);
    POINT pointer{};
    GetCursorPos(&pointer);
    WithMenu(
        [&pointer](const RECT& place) {
            EXPECT_EQ(place.left, pointer.x);
            EXPECT_EQ(place.top, pointer.y);
        },
        [this] { List().Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(ListWindow()), -1); });
}

TEST_F(RecentListBox, OpensItsMenuAtThePointerOverItsScrollBar) {
    OpenWith(8);
    Resize(10, 10);
    const tvScrollBox& box = List().m_scrollBox;
    const RECT bar = box.m_parts[SCROLL_BAR];
    ASSERT_FALSE(IsRectEmpty(&bar));
    MoveMouse(box.Handle(), static_cast<int>(bar.right) - 3, static_cast<int>(bar.top + bar.bottom) / 2);
    POINT pointer{};
    GetCursorPos(&pointer);
    WithMenu(
        [&pointer](const RECT& place) {
            EXPECT_EQ(place.left, pointer.x);
            EXPECT_EQ(place.top, pointer.y);
        },
        [this] { List().Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(ListWindow()), -1); });
}

TEST_F(RecentListBox, OpensNoMenuThatIsNotThere) {
    OpenWith(2);
    TheAppData().recentMenu.Detach(tvMenu::Menu::Destroy);
    List().Send(WM_CONTEXTMENU, 0, MAKELPARAM(100, 100));
    EXPECT_FALSE(IsMenuOpen());
    TheAppData().BuildMenus();
}

TEST_F(RecentListBox, OpensTheRowOfItsMenu) {
    AddGone(1);
    const tvstring path = AddFile();
    OpenWindow();
    Choose(0, 'O', {AnswerWith(u"one")});
    EXPECT_TRUE(TheDatabase().m_Opened);
    EXPECT_EQ(Noting().CountCommands(CMD_OPEN), 0);  // it is not the button's
}

TEST_F(RecentListBox, RemovesTheRowOfItsMenuWithoutAsking) {
    OpenWith(3);
    Choose(1, 'R');
    EXPECT_TRUE(PumpUntil([this] { return List().GetCount() == 2; }));
    EXPECT_EQ(ShownNames(), "Name 1, Name 3");
    EXPECT_EQ(KeptNames(), "Name 1, Name 3");
}

TEST_F(RecentListBox, ClearsNothingAfterNo) {
    OpenWith(3);
    Choose(1, 'A', {ClearAsked(IDNO)});
    EXPECT_EQ(ShownNames(), "Name 1, Name 2, Name 3");
    EXPECT_EQ(KeptNames(), "Name 1, Name 2, Name 3");
    EXPECT_TRUE(IsListShown());
}

TEST_F(RecentListBox, ClearsAllAfterYes) {
    OpenWith(3);
    Choose(1, 'A', {ClearAsked(IDYES)});
    EXPECT_TRUE(PumpUntil([this] { return !IsListShown(); }));
    EXPECT_EQ(List().GetCount(), 0);
    EXPECT_EQ(KeptNames(), "");
    EXPECT_FALSE(HasHeading());
    EXPECT_EQ(TheAppData().bHistory, 1);
}

TEST_F(RecentListBox, SwitchesTheHistoryOffAfterAsking) {
    OpenWith(3);
    Choose(1, 'D', {AnswerBox(IDYES)});
    EXPECT_TRUE(PumpUntil([this] { return !IsListShown(); }));
    EXPECT_EQ(TheAppData().bHistory, 0);
    EXPECT_EQ(KeptNames(), "");
}

TEST_F(RecentListBox, DoesNotSwitchTheHistoryOn) {
    OpenWith(1);
    TheAppData().bHistory = 0;
    List().Send(WM_COMMAND, CMD_HISTORY);
    PumpQueue();
    EXPECT_EQ(TheAppData().bHistory, 0);
    EXPECT_EQ(Noting().CountCommands(CMD_HISTORY), 0);
}

}  // namespace
