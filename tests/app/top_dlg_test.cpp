// The bar at the top of the main window.
#include "foundation/path.h"
#include "tests/app/ink.h"
#include "tests/app/keep_font.h"
#include "tests/app/other_language.h"
#include "toolkit/control_state.h"
#include "toolkit/theme.h"
#include "toolkit/tool_tip.h"
#include "windows/command_ids.h"

namespace {

constexpr int kMenu = CMD_MAIN_MENU;
constexpr int kFirstEdit = 2014;

HWND MenuWindow() {
    return FindWindowW(L"#32768", nullptr);
}

class TopBar : public AppTest {
protected:
    TopBar() {
        Open();
        SetForegroundWindow(Window());
        EXPECT_TRUE(PumpUntil([this] { return GetActiveWindow() == Window(); }));
    }

    // A database of this name, saved.
    void OpenDatabase(const char16_t* name = u"WW") {
        const tvstring path = MakeFile(u"bar.vmr", u"secret");
        DuringModal steps({AnswerWith(u"secret")});
        Main().OpenDatabase(path.c_str(), CVMRDlg::Quiet::No);
        ASSERT_TRUE(TheDatabase().m_Opened);
        Rename(name);
        Command(CMD_SAVE);
        Settle(Window());
    }
    void Rename(const char16_t* name) {
        TheDatabase().SetName(name);
        Main().OnAppNotify(APPN_TOPBAR, 0, 0, 0);
        Settle(Window());
    }

    [[nodiscard]] HWND Bar() const { return Main().m_topDlg.Handle(); }
    [[nodiscard]] bool IsShown(int id) const { return IsWindowVisible(Control(id)) != FALSE; }
    [[nodiscard]] LONG LeftOf(int id) const { return PlaceInParent(Control(id)).left; }
    // The ink of the name: what stands to the left of all buttons that are shown.
    [[nodiscard]] RECT NameInk() const {
        Settle(Window());
        const LONG end = IsShown(CMD_RENAME) ? LeftOf(CMD_RENAME) : LeftOf(kMenu);
        return InkIn(Picture(Bar()), TheTheme().m_button, {0, 0, end, ClientOf(Bar()).bottom});
    }

    // Carries out what opens a menu, and looks at that; then it is closed.
    static void OpenMenu(const std::function<void()>& action, const std::function<void(const RECT&)>& look) {
        const DuringModal during({[&look] {
            RECT place{};
            if (MenuWindow() == nullptr || IsWindowVisible(MenuWindow()) == FALSE) return false;
            GetWindowRect(MenuWindow(), &place);
            const LRESULT menu = SendMessageW(MenuWindow(), MN_GETHMENU, 0, 0);
            EXPECT_EQ(menu, reinterpret_cast<LRESULT>(TheAppData().mainMenu.Handle()));
            look(place);
            EndMenu();
            return true;
        }});
        action();
        EXPECT_TRUE(PumpUntil([&during] { return during.Done(); }));
        PumpQueue();
    }
    void ExpectMenuUnderTheRightEnd(const std::function<void()>& action) {
        RECT bar{};
        GetWindowRect(Bar(), &bar);
        OpenMenu(action, [&bar](const RECT& menu) {
            EXPECT_EQ(menu.right, bar.right);
            EXPECT_EQ(menu.top, bar.bottom);
        });
    }
};

// --- Buttons and name ---

TEST_F(TopBar, WithoutADatabaseShowsNoNameAndOnlyTheMenu) {
    TheDatabase().m_Name = u"WWWW";  // left over, of none that is open
    Rename(u"WWWW");
    EXPECT_TRUE(IsShown(kMenu));
    for (const int id : {CMD_RENAME, CMD_SET_PASSWORD, CMD_SAVE})
        EXPECT_FALSE(IsShown(id)) << id;
    const RECT ink = NameInk();
    EXPECT_TRUE(IsRectEmpty(&ink));
}

TEST_F(TopBar, ShowsTheSaveButtonAndAStarUntilTheDatabaseIsSaved) {
    OpenDatabase(u"WW");
    EXPECT_FALSE(IsShown(CMD_SAVE));
    const RECT saved = NameInk();
    Rename(u"WWW");
    EXPECT_TRUE(IsShown(CMD_SAVE));
    const RECT changed = NameInk();
    EXPECT_NEAR(changed.right - saved.right, WidthIn(Bar(), u"*W"), 1);
    Command(CMD_SAVE);
    EXPECT_FALSE(IsShown(CMD_SAVE));
    EXPECT_NEAR(NameInk().right - saved.right, WidthIn(Bar(), u"W"), 1);
}

TEST_F(TopBar, HasAButtonMoreRoomForTheNameOnceItIsSaved) {
    const tvstring name(400, u'W');
    OpenDatabase(u"WW");
    Rename(name.c_str());
    const RECT changed = NameInk();
    const LONG rename = LeftOf(CMD_RENAME);
    Command(CMD_SAVE);
    const LONG button = ClientOf(Control(CMD_SAVE)).right;
    EXPECT_EQ(LeftOf(CMD_RENAME) - rename, button + TheTheme().m_borderWidth);
    EXPECT_GT(NameInk().right, changed.right + button / 2);
}

TEST_F(TopBar, EndsALongNameInDotsBeforeTheButtons) {
    const tvstring name(400, u'W');
    OpenDatabase(name.c_str());
    for (const bool isChanged : {false, true}) {
        if (isChanged) Rename(tvstring(401, u'W').c_str());
        const RECT ink = NameInk();
        EXPECT_GE(ink.left, 8);
        EXPECT_GT(ink.right, ClientOf(Bar()).right / 3);
        EXPECT_LT(ink.right, LeftOf(CMD_RENAME));
        const LONG dots = WidthIn(Bar(), u"...") - 2;
        const RECT last =
            InkIn(Picture(Bar()), TheTheme().m_button, {ink.right - dots, ink.top, ink.right, ink.bottom});
        EXPECT_GT(last.top, (ink.top + ink.bottom) / 2);
        EXPECT_LT(last.top, last.bottom);
    }
}

// As a path would: the dots stand in front of the last backslash.
TEST_F(TopBar, KeepsWhatFollowsTheLastBackslashOfALongName) {
    OpenDatabase(u"WW");
    Rename(u"\\Tail");
    const RECT whole = NameInk();
    const Picture tail(Bar());
    tvstring name(400, u'W');
    Rename(name.append(u"\\Tail").c_str());
    const RECT ink = NameInk();
    const Picture shortened(Bar());
    ASSERT_LT(ink.right, LeftOf(CMD_RENAME));
    ASSERT_GT(ink.right, whole.right + WidthIn(Bar(), u"WWW")) << "a part of the folder stays";
    const LONG width = WidthIn(Bar(), u"Tail") - 1;
    for (LONG x = 0; x < width; ++x) {
        for (LONG y = 0; y < ClientOf(Bar()).bottom; ++y) {
            ASSERT_EQ(shortened.At(ink.right - width + x, y), tail.At(whole.right - width + x, y))
                << x << ", " << y;
        }
    }
    const LONG dots = ink.right - WidthIn(Bar(), u"...\\Tail") + 2;
    const RECT before = InkIn(shortened, TheTheme().m_button,
                              {dots, ink.top, ink.right - WidthIn(Bar(), u"\\Tail") - 1, ink.bottom});
    EXPECT_GT(before.top, (ink.top + ink.bottom) / 2) << "nothing but dots";
    EXPECT_LT(before.top, before.bottom);
}

TEST_F(TopBar, PaintsTheNameAnewInANewFont) {
    const KeepFont keep;
    OpenDatabase(u"WW");
    const RECT before = NameInk();
    const LOGFONTW font = keep.Doubled();
    TheTheme().SetFont(font, 1.0F);
    const RECT after = NameInk();
    EXPECT_GT(after.bottom - after.top, (before.bottom - before.top) * 3 / 2);
    EXPECT_EQ(ClientOf(Bar()).bottom, ClientOf(Control(kMenu)).bottom);
    platform::DeleteUserTree(u"Software\\Tolvane");
}

TEST_F(TopBar, TakesItsTextsFromTheNewLanguage) {
    EXPECT_EQ(TextOf(Control(CMD_SAVE)), u"Save");
    const OtherLanguage language(
        u"[global]\r\nmain_menu = Everything\r\n[file]\r\n"
        u"modify_title = Baptise\r\nsetpwd_title = Lock\r\nsave = Keep\r\n");
    OtherLanguage::Choose();
    EXPECT_EQ(TextOf(Control(kMenu)), u"Everything");
    EXPECT_EQ(TextOf(Control(CMD_RENAME)), u"Baptise");
    EXPECT_EQ(TextOf(Control(CMD_SET_PASSWORD)), u"Lock");
    EXPECT_EQ(TextOf(Control(CMD_SAVE)), u"Keep");
}

// --- The mouse ---

TEST_F(TopBar, DoubleClickedWithoutADatabaseDoesNothing) {
    const DuringModal nothing({});  // fails once a dialog stays
    DoubleClick(Bar(), 60, 10);
    PumpQueue();
    EXPECT_EQ(FrontDialog(), Window());
}

TEST_F(TopBar, DoubleClickedRenamesTheDatabase) {
    OpenDatabase(u"Old");
    tvstring asked;
    DuringModal steps({[&asked] {
                           HWND dialog = FrontDialog();
                           if (dialog == nullptr || tvWnd::FindDescendant(dialog, kFirstEdit) == nullptr)
                               return false;
                           asked = TextOf(tvWnd::FindDescendant(dialog, kFirstEdit));
                           return true;
                       },
                       AnswerWith(u"New")});
    DoubleClick(Bar(), 60, 10);
    EXPECT_TRUE(PumpUntil([] { return TheDatabase().m_Name == u"New"; }));
    EXPECT_EQ(asked, u"Old");
}

TEST_F(TopBar, HasAHandOverTheMenuButtonOnly) {
    OpenDatabase();
    const HCURSOR hand = LoadCursorW(nullptr, IDC_HAND);
    MoveMouseTo(Control(kMenu));
    EXPECT_TRUE(PumpUntil([hand] { return GetCursor() == hand; }));
    MoveMouseTo(Control(CMD_RENAME));
    EXPECT_TRUE(PumpUntil([hand] { return GetCursor() != hand; }));
}

TEST_F(TopBar, TellsTheFilesPathInItsTip) {
    OpenDatabase();
    const tvToolTipCtrl& tip = TheToolTip();
    tip.Send(TTM_SETDELAYTIME, TTDT_INITIAL, 20);
    MoveMouse(Bar(), 60, 10);
    EXPECT_TRUE(PumpUntil([&tip] { return IsWindowVisible(tip.Handle()) != FALSE; }));
    wchar_t text[1024] = {};
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = Bar();
    tool.uId = reinterpret_cast<UINT_PTR>(Bar());
    tool.lpszText = text;
    tip.Send(TTM_GETTEXTW, 1024, reinterpret_cast<LPARAM>(&tool));
    EXPECT_EQ(tvstring(platform::Units(text)), InFolder(u"bar.vmr"));
    MoveMouseAway();
    tip.Send(TTM_SETDELAYTIME, TTDT_AUTOMATIC, -1);
}

// --- The menu ---

TEST_F(TopBar, OpensTheMenuAtThePointer) {
    POINT at{60, 10};
    ClientToScreen(Bar(), &at);
    OpenMenu([this] { Click(Bar(), 60, 10, MouseButton::Right); },
             [&at](const RECT& menu) {
                 EXPECT_EQ(menu.left, at.x);
                 EXPECT_EQ(menu.top, at.y);
             });
}

TEST_F(TopBar, OpensTheMenuUnderItsRightEndForItsButton) {
    ExpectMenuUnderTheRightEnd([this] { Click(Control(kMenu)); });
}

// As the system makes it of the keys.
TEST_F(TopBar, OpensTheMenuUnderItsRightEndForTheKeyboard) {
    SetFocus(Control(kMenu));
    ExpectMenuUnderTheRightEnd([this] {
        SendMessageW(Control(kMenu), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Control(kMenu)), -1);
    });
}

}  // namespace
