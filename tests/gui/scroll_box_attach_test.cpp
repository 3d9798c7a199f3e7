// How a control comes into its scroll box, and what both do together from then on.
#include "tests/gui/scroll_box_stage.h"

namespace {

tvstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return tvstring(platform::Units(name));
}

constexpr DWORD kEdges = WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE | WS_EX_STATICEDGE;

// An edit control of the system in a dialog, without a wrapper of its own.
HWND MakeEdit(HWND parent, DWORD style, DWORD exStyle, int id = kHosted) {
    return CreateWindowExW(exStyle, L"EDIT", L"", WS_CHILD | style, 30, 40, 150, 80, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
}

class PlainDialog : public testing::Test {
protected:
    PlainDialog() {
        UseTheme(kDark);
        m_Dialog.Add(ATOM_EDIT, kBefore, 5, 5, 80, 12);
        m_Dialog.Open();
    }
    KeepTheme m_Keep;
    TestDialog m_Dialog;
    tvScrollBox m_Box;
};

// --- Attaching ---

TEST(ScrollBox, TakesTheControlsIdAndItsPlace) {
    const LinesStage colored(kDark);
    const LinesStage plain(kSystem);
    ASSERT_NE(colored.Host(), nullptr);
    EXPECT_EQ(plain.Host(), nullptr);
    EXPECT_EQ(ClassOf(colored.Host()), u"tvScrollBx");
    EXPECT_EQ(GetParent(colored.Control()), colored.Host());
    EXPECT_EQ(colored.dialog.Item(kHosted), colored.Host());
    EXPECT_EQ(PlaceIn(colored.dialog.Handle(), colored.Host()),
              PlaceIn(plain.dialog.Handle(), plain.Control()));
}

TEST(ScrollBox, LeavesTheControlToBeFoundByItsId) {
    const LinesStage stage;
    EXPECT_EQ(tvWnd::FindDescendant(stage.dialog.Handle(), kHosted), stage.Control());
}

TEST(ScrollBox, IsTheOuterWindowOfItsControlAlone) {
    const LinesStage colored(kDark);
    EXPECT_EQ(tvScrollBox::OuterOf(colored.Control()), colored.Host());
    EXPECT_EQ(tvScrollBox::OuterOf(colored.Host()), colored.Host());
    EXPECT_EQ(tvScrollBox::OuterOf(colored.dialog.Item(kBefore)), colored.dialog.Item(kBefore));
    EXPECT_EQ(tvScrollBox::OuterOf(nullptr), nullptr);
    const LinesStage plain(kSystem);
    EXPECT_EQ(tvScrollBox::OuterOf(plain.Control()), plain.Control());
}

TEST(ScrollBox, TakesTheControlsPlaceInTheOrderOfWindows) {
    const LinesStage stage;
    EXPECT_EQ(GetWindow(stage.Host(), GW_HWNDPREV), stage.dialog.Item(kBefore));
    EXPECT_EQ(GetWindow(stage.Host(), GW_HWNDNEXT), stage.dialog.Item(kBehind));
}

TEST_F(PlainDialog, HasTheBoxOfItsFirstControlInFront) {
    HWND edit = MakeEdit(m_Dialog.Handle(), WS_VISIBLE, 0);
    SetWindowPos(edit, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    m_Box.Attach(edit);
    EXPECT_EQ(GetTopWindow(m_Dialog.Handle()), m_Box.Handle());
    EXPECT_EQ(GetWindow(m_Box.Handle(), GW_HWNDNEXT), m_Dialog.Item(kBefore));
}

TEST_F(PlainDialog, HasAWindowWithTheStylesOfAPane) {
    m_Box.Attach(MakeEdit(m_Dialog.Handle(), WS_VISIBLE | WS_TABSTOP, 0));
    const DWORD style = StyleOf(m_Box.Handle());
    EXPECT_EQ(style & (WS_BORDER | WS_TABSTOP), 0U);
    EXPECT_EQ(style & (WS_CLIPCHILDREN | DS_CONTROL | WS_CHILD), WS_CLIPCHILDREN | DS_CONTROL | WS_CHILD);
    const DWORD exStyle = ExStyleOfWindow(m_Box.Handle());
    EXPECT_EQ(exStyle & (WS_EX_TOOLWINDOW | WS_EX_CONTROLPARENT), DWORD{WS_EX_CONTROLPARENT});
    EXPECT_EQ(GetClassLongPtrW(m_Box.Handle(), GCL_STYLE) & CS_DBLCLKS, 0U);
}

TEST_F(PlainDialog, GivesItsBoxTheStartOfAGroup) {
    HWND edit = MakeEdit(m_Dialog.Handle(), WS_VISIBLE | WS_GROUP, 0);
    m_Box.Attach(edit);
    EXPECT_NE(StyleOf(m_Box.Handle()) & WS_GROUP, 0U);
    EXPECT_EQ(StyleOf(edit) & WS_GROUP, 0U);
    tvScrollBox other;
    other.Attach(MakeEdit(m_Dialog.Handle(), WS_VISIBLE, 0, kBehind));
    EXPECT_EQ(StyleOf(other.Handle()) & WS_GROUP, 0U);
}

TEST_F(PlainDialog, GivesItsBoxEveryKindOfFrame) {
    const struct {
        DWORD style;
        DWORD exStyle;
        u8 hasBorder;
    } kKinds[] = {{0, 0, 0}, {WS_BORDER, 0, 1}, {0, WS_EX_CLIENTEDGE, 1}, {0, WS_EX_STATICEDGE, 1}};
    for (const auto& kind : kKinds) {
        tvScrollBox box;
        // An edit control of the system may paint a border by itself.
        HWND control = CreateWindowExW(kind.exStyle, L"STATIC", L"", WS_CHILD | WS_VISIBLE | kind.style, 30,
                                       40, 150, 80, m_Dialog.Handle(), nullptr, nullptr, nullptr);
        const RECT place = PlaceInParent(control);
        box.Attach(control);
        SCOPED_TRACE(testing::Message() << kind.style << ", " << kind.exStyle);
        EXPECT_EQ(box.m_hasBorder, kind.hasBorder);
        EXPECT_EQ(StyleOf(control) & WS_BORDER, 0U);
        EXPECT_EQ(ExStyleOfWindow(control) & kEdges, 0U);
        EXPECT_EQ(PlaceInParent(box.Handle()), place);
        const LONG border = kind.hasBorder != 0 ? 2 : 0;
        RECT frame{};
        box.GetFrame(frame);
        EXPECT_EQ(frame, (RECT{border, border, border, border}));
        EXPECT_EQ(PlaceInParent(control),
                  Inset(ClientOf(box.Handle()), static_cast<int>(border), static_cast<int>(border)));
    }
}

TEST_F(PlainDialog, ShowsABoxOnlyAroundAVisibleControl) {
    m_Box.Attach(MakeEdit(m_Dialog.Handle(), 0, 0));
    EXPECT_FALSE(IsWindowVisible(m_Box.Handle()));
    tvScrollBox other;
    other.Attach(MakeEdit(m_Dialog.Handle(), WS_VISIBLE | WS_DISABLED, 0, kBehind));
    EXPECT_TRUE(IsWindowVisible(other.Handle()));
    EXPECT_FALSE(IsWindowEnabled(other.Handle()));
}

TEST_F(PlainDialog, HasNoBoxAroundWhatHasNoParent) {
    m_Box.Attach(nullptr);
    EXPECT_FALSE(m_Box.IsAttached());
    m_Box.Attach(m_Dialog.Handle());
    EXPECT_FALSE(m_Box.IsAttached());
}

TEST_F(PlainDialog, UsesABoxAgainForTheNextControl) {
    tvEdit edit;
    edit.SubclassWindow(MakeEdit(m_Dialog.Handle(), WS_VISIBLE | kLinesStyle, 0));
    HWND host = edit.m_scrollBox.Handle();
    DestroyWindow(edit.Handle());
    EXPECT_FALSE(edit.m_scrollBox.IsActive());
    EXPECT_FALSE(IsWindowVisible(host));
    edit.SubclassWindow(MakeEdit(m_Dialog.Handle(), WS_VISIBLE | kLinesStyle, 0, kBehind));
    EXPECT_EQ(edit.m_scrollBox.Handle(), host);
    EXPECT_EQ(GetParent(edit.Handle()), host);
    EXPECT_EQ(GetDlgCtrlID(host), kBehind);
    EXPECT_TRUE(IsWindowVisible(host));
}

TEST_F(PlainDialog, CanBeUsedAgainAfterAControlThatCouldNot) {
    tvEdit edit;
    edit.SubclassWindow(MakeEdit(m_Dialog.Handle(), WS_VISIBLE | WS_DISABLED | kLinesStyle, 0));
    HWND host = edit.m_scrollBox.Handle();
    EXPECT_FALSE(IsWindowEnabled(host));
    DestroyWindow(edit.Handle());
    edit.SubclassWindow(MakeEdit(m_Dialog.Handle(), WS_VISIBLE | kLinesStyle, 0, kBehind));
    ASSERT_EQ(edit.m_scrollBox.Handle(), host);
    EXPECT_TRUE(IsWindowEnabled(host));
}

TEST_F(PlainDialog, HasTheGroundOfEditBoxesForEachNewControl) {
    tvEdit edit;
    edit.SubclassWindow(MakeEdit(m_Dialog.Handle(), WS_VISIBLE | kLinesStyle, 0));
    edit.m_scrollBox.m_fillBase = 1;
    DestroyWindow(edit.Handle());
    edit.SubclassWindow(MakeEdit(m_Dialog.Handle(), WS_VISIBLE | kLinesStyle, 0, kBehind));
    ASSERT_TRUE(edit.m_scrollBox.IsActive());
    EXPECT_EQ(edit.m_scrollBox.m_fillBase, 0);
}

TEST(ScrollBox, IsThereForEditBoxesWithAFrameOrABar) {
    EXPECT_NE(LinesStage(kDark, kLinesStyle).Host(), nullptr);
    EXPECT_NE((BoxStage<tvEdit>(kDark, ATOM_EDIT, 0, 14).Host()), nullptr);
    EXPECT_EQ((BoxStage<tvEdit>(kSystem, ATOM_EDIT, 0, 14).Host()), nullptr);
}

TEST_F(PlainDialog, IsNotThereForAnEditBoxWithoutFrameAndBar) {
    tvEdit edit;
    edit.SubclassWindow(MakeEdit(m_Dialog.Handle(), WS_VISIBLE, 0));
    EXPECT_FALSE(edit.m_scrollBox.IsAttached());
}

TEST_F(PlainDialog, IsNotThereForAnEditBoxThatDoesWithout) {
    tvEdit edit;
    edit.m_useScrollBox = 0;
    edit.SubclassWindow(MakeEdit(m_Dialog.Handle(), WS_VISIBLE | kLinesStyle, WS_EX_CLIENTEDGE));
    EXPECT_FALSE(edit.m_scrollBox.IsAttached());
    EXPECT_EQ(GetParent(edit.Handle()), m_Dialog.Handle());
}

TEST(ScrollBox, GivesAnEditBoxOfOneLineTheHeightThatItsFrameTakes) {
    UseTheme(kDark);
    MoveMouseAway();
    const KeepTheme keep;
    tvEdit edit;
    edit.m_autoHeight = 1;
    TestDialog dialog;
    dialog.Add(ATOM_EDIT, kHosted, 20, 25, 120, 30);
    dialog.Wrap(edit, kHosted);
    dialog.Open();
    const RECT before = PlaceIn(dialog.Handle(), edit.m_scrollBox.Handle());
    dialog.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()));
    const RECT after = PlaceIn(dialog.Handle(), edit.m_scrollBox.Handle());
    EXPECT_EQ(Width(after), Width(before));
    EXPECT_GT(Height(after), Height(before));
    EXPECT_EQ(Height(after), Height(ClientOf(edit.Handle())) + 4);
}

// --- The room for the bar ---

TEST(ScrollBox, TakesTheRoomForFrameAndBarFromTheControl) {
    LinesStage stage;
    RECT frame{};
    stage.Box().GetFrame(frame);
    const LONG bar = GetSystemMetrics(SM_CXVSCROLL);
    EXPECT_EQ(frame, (RECT{2, 2, 2 + bar - 1, 2}));
    const RECT client = ClientOf(stage.Host());
    EXPECT_EQ(PlaceInParent(stage.Control()), (RECT{2, 2, client.right - frame.right, client.bottom - 2}));
}

TEST(ScrollBox, LeavesTheControlNothingButItsClientArea) {
    const LinesStage stage;
    RECT window{};
    GetWindowRect(stage.Control(), &window);
    EXPECT_EQ(SizeOf(stage.Control()), (SIZE{Width(window), Height(window)}));
    EXPECT_NE(StyleOf(stage.Control()) & WS_VSCROLL, 0U);
    EXPECT_EQ(SendMessageW(stage.Control(), WM_NCHITTEST, 0, MAKELPARAM(window.right - 2, window.top + 30)),
              HTCLIENT);
}

TEST(ScrollBox, GivesTheRoomForABarToAListWhoseRowsFit) {
    RowsStage stage(kDark, 3);
    EXPECT_EQ(StyleOf(stage.Control()) & WS_VSCROLL, 0U);
    EXPECT_EQ(PlaceInParent(stage.Control()), Inset(ClientOf(stage.Host()), 2, 2));
    EXPECT_TRUE(IsRectEmpty(&stage.Box().m_parts[SCROLL_BAR]));
    stage.AddRows(40);
    const LONG right = ClientOf(stage.Host()).right;
    const LONG bar = GetSystemMetrics(SM_CXVSCROLL);
    EXPECT_NE(StyleOf(stage.Control()) & WS_VSCROLL, 0U);
    EXPECT_EQ(PlaceInParent(stage.Control()).right, right - 2 - bar + 1);
    EXPECT_EQ(stage.Part(SCROLL_BAR).left, right - 1 - bar);
    EXPECT_EQ(stage.Part(SCROLL_BAR).right, right - 1);
    stage.control.DeleteAll();
    PumpQueue();
    EXPECT_EQ(PlaceInParent(stage.Control()), Inset(ClientOf(stage.Host()), 2, 2));
}

TEST(ScrollBox, NoticesABarThatComesOrGoes) {
    LinesStage stage;
    const LONG wide = PlaceInParent(stage.Control()).right;
    ShowScrollBar(stage.Control(), SB_VERT, FALSE);
    EXPECT_EQ(stage.Box().m_hasVScroll, 0);
    EXPECT_EQ(PlaceInParent(stage.Control()).right, wide + GetSystemMetrics(SM_CXVSCROLL) - 1);
    ShowScrollBar(stage.Control(), SB_VERT, TRUE);
    EXPECT_EQ(PlaceInParent(stage.Control()).right, wide);
}

TEST(ScrollBox, LaysTheControlOutAnewWithItsOwnSize) {
    const LinesStage stage;
    const RECT place = PlaceIn(stage.dialog.Handle(), stage.Host());
    MoveWindow(stage.Host(), 5, 6, Width(place) + 20, Height(place) + 10, TRUE);
    const RECT client = ClientOf(stage.Host());
    const RECT child = PlaceInParent(stage.Control());
    EXPECT_EQ(client, (RECT{0, 0, Width(place) + 20, Height(place) + 10}));
    EXPECT_EQ(child, (RECT{2, 2, client.right - 1 - GetSystemMetrics(SM_CXVSCROLL), client.bottom - 2}));
}

// --- What is done to the control ---

TEST(ScrollBox, GoesWhereTheControlIsMoved) {
    const LinesStage stage;
    MoveWindow(stage.Control(), 12, 34, 150, 90, TRUE);
    EXPECT_EQ(PlaceIn(stage.dialog.Handle(), stage.Host()), (RECT{12, 34, 162, 124}));
    EXPECT_EQ(PlaceInParent(stage.Control()).left, 2);
    EXPECT_EQ(PlaceInParent(stage.Control()).bottom, 88);
    SetWindowPos(stage.Control(), nullptr, 20, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(PlaceIn(stage.dialog.Handle(), stage.Host()), (RECT{20, 30, 170, 120}));
}

TEST(ScrollBox, TakesThePlaceInTheOrderOfWindowsThatTheControlIsPutTo) {
    const LinesStage stage;
    WINDOWPOS place{};
    place.hwnd = stage.Control();
    place.hwndInsertAfter = stage.dialog.Item(kBehind);
    place.flags = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    SendMessageW(stage.Control(), WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&place));
    EXPECT_EQ(place.flags, UINT{SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE});
    EXPECT_EQ(GetWindow(stage.Host(), GW_HWNDPREV), stage.dialog.Item(kBehind));
}

// The place that is named is that of a window which is none of the box's own neighbours.
TEST_F(PlainDialog, PutsABoxBehindThatOfAnotherControl) {
    tvEdit first;
    tvEdit second;
    first.SubclassWindow(MakeEdit(m_Dialog.Handle(), WS_VISIBLE | kLinesStyle, 0));
    second.SubclassWindow(MakeEdit(m_Dialog.Handle(), WS_VISIBLE | kLinesStyle, 0, kBehind));
    HWND host = first.m_scrollBox.Handle();
    HWND other = second.m_scrollBox.Handle();
    SetWindowPos(other, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ASSERT_EQ(GetTopWindow(m_Dialog.Handle()), other);
    WINDOWPOS place{};
    place.hwnd = second.Handle();
    place.hwndInsertAfter = first.Handle();
    place.flags = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    SendMessageW(second.Handle(), WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&place));
    EXPECT_EQ(GetWindow(other, GW_HWNDPREV), host);
    for (HWND end : {HWND_TOP, HWND_BOTTOM}) {
        place.hwndInsertAfter = end;
        place.flags = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
        SendMessageW(second.Handle(), WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&place));
        EXPECT_EQ(GetWindow(other, end == HWND_TOP ? GW_HWNDFIRST : GW_HWNDLAST), other);
    }
}

TEST(ScrollBox, IsShownAndHiddenWithTheControl) {
    const LinesStage stage;
    ShowWindow(stage.Control(), SW_HIDE);
    EXPECT_EQ(StyleOf(stage.Host()) & WS_VISIBLE, 0U);
    ShowWindow(stage.Control(), SW_SHOW);
    EXPECT_TRUE(IsWindowVisible(stage.Host()));
    EXPECT_TRUE(IsWindowVisible(stage.Control()));
    SetWindowPos(stage.Control(), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_HIDEWINDOW);
    EXPECT_EQ(StyleOf(stage.Host()) & WS_VISIBLE, 0U);
}

TEST(ScrollBox, StaysAsItIsWhileItsParentIsHidden) {
    const LinesStage stage;
    SendMessageW(stage.Control(), WM_SHOWWINDOW, FALSE, SW_PARENTCLOSING);
    EXPECT_NE(StyleOf(stage.Host()) & WS_VISIBLE, 0U);
}

TEST(ScrollBox, IsDisabledAndEnabledWithTheControl) {
    const LinesStage stage;
    EnableWindow(stage.Control(), FALSE);
    EXPECT_FALSE(IsWindowEnabled(stage.Host()));
    EnableWindow(stage.Control(), TRUE);
    EXPECT_TRUE(IsWindowEnabled(stage.Host()));
}

// --- What is for the control, and what comes from it ---

TEST(ScrollBox, HasTheControlsText) {
    const LinesStage stage;
    SetDlgItemTextW(stage.dialog.Handle(), kHosted, L"Through the box");
    EXPECT_EQ(TextOfWindow(stage.Control()), u"Through the box");
    SetWindowTextW(stage.Control(), L"To the control");
    EXPECT_EQ(TextOfWindow(stage.Host()), u"To the control");
}

TEST(ScrollBox, HasTheControlsNumber) {
    const BoxStage<tvEdit> stage(kDark, ATOM_EDIT, 0, 14);
    SetDlgItemInt(stage.dialog.Handle(), kHosted, 1234, FALSE);
    EXPECT_EQ(TextOfWindow(stage.Control()), u"1234");
    SetWindowTextW(stage.Control(), L"56");
    EXPECT_EQ(GetDlgItemInt(stage.dialog.Handle(), kHosted, nullptr, FALSE), 56U);
}

TEST(ScrollBox, PostsTheParentWhatTheControlTells) {
    LinesStage stage;
    PumpQueue();
    stage.dialog.m_commands.clear();
    SendMessageW(stage.Host(), WM_COMMAND, MAKEWPARAM(kHosted, EN_CHANGE),
                 reinterpret_cast<LPARAM>(stage.Control()));
    EXPECT_EQ(stage.dialog.CountCommands(kHosted), 0);
    EXPECT_TRUE(stage.Hears(WM_COMMAND, MAKEWPARAM(kHosted, EN_CHANGE)));
}

TEST(ScrollBox, PostsTheParentNothingThatIsNotOfTheControl) {
    LinesStage stage;
    PumpQueue();
    stage.dialog.m_commands.clear();
    SendMessageW(stage.Host(), WM_COMMAND, MAKEWPARAM(kBehind, BN_CLICKED), 0);
    PumpQueue();
    EXPECT_EQ(stage.dialog.CountCommands(kBehind), 0);
}

TEST(ScrollBox, LetsTheParentHearOnceOfASelectedRow) {
    RowsStage stage;
    PumpQueue();
    stage.dialog.m_commands.clear();
    stage.control.SetCurSel(2);
    EXPECT_TRUE(PumpUntil([&] { return stage.dialog.CountCommands(kHosted) == 1; }));
}

TEST(ScrollBox, PostsTheParentThatAContextMenuIsWanted) {
    LinesStage stage;
    stage.dialog.m_messages.clear();
    SendMessageW(stage.Host(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(stage.Control()), MAKELPARAM(3, 4));
    EXPECT_TRUE(stage.Hears(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(stage.Control())));
}

TEST(ScrollBox, PostsTheParentThatItIsToClose) {
    LinesStage stage;
    stage.dialog.m_messages.clear();
    SendMessageW(stage.Host(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(stage.Hears(WM_CLOSE, 0));
    EXPECT_EQ(stage.Box().m_result, 0);
    EXPECT_TRUE(IsWindow(stage.Host()));
}

TEST(ScrollBox, PostsTheParentTheMenuThatTheUserAsksTheControlFor) {
    RowsStage stage;
    const POINT at{20, 20};
    POINT onScreen = at;
    ClientToScreen(stage.Control(), &onScreen);
    stage.dialog.m_messages.clear();
    Click(stage.Control(), static_cast<int>(at.x), static_cast<int>(at.y), MouseButton::Right);
    EXPECT_TRUE(stage.Hears(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(stage.Control())));
    for (const MSG& got : stage.dialog.m_messages) {
        if (got.message == WM_CONTEXTMENU) {
            EXPECT_EQ(got.lParam, MAKELPARAM(onScreen.x, onScreen.y));
        }
    }
}

TEST(ScrollBox, LetsTheDialogGiveTheKeyboardToTheControl) {
    RowsStage stage;
    Focus(stage.dialog, stage.dialog.Item(kBefore));
    stage.dialog.Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(stage.Control()), TRUE);
    EXPECT_EQ(GetFocus(), stage.Control());
}

TEST(ScrollBox, IsPassedOverByTheTabKey) {
    LinesStage stage;
    Focus(stage.dialog, stage.dialog.Item(kBefore));
    TypeInDialog(stage.dialog, VK_TAB);
    EXPECT_EQ(GetFocus(), stage.Control());
    TypeInDialog(stage.dialog, VK_TAB);
    EXPECT_EQ(GetFocus(), stage.dialog.Item(kBehind));
}

// A control of several lines takes all keys, and tells its dialog of this one.
TEST(ScrollBox, LetsTheDialogHearOfEscape) {
    LinesStage stage;
    Focus(stage.dialog, stage.Control());
    TypeInDialog(stage.dialog, VK_ESCAPE);
    EXPECT_TRUE(stage.Hears(WM_CLOSE, 0));
}

TEST(ScrollBox, HandsTheKeyboardToTheControl) {
    LinesStage stage;
    SetFocus(stage.Host());
    EXPECT_TRUE(PumpUntil([&] { return GetFocus() == stage.Control(); }));
}

TEST(ScrollBox, LeavesTheCaretToTheControl) {
    LinesStage stage;
    Focus(stage.dialog, stage.Control());
    stage.control.Send(EM_SETSEL, 3, 3);
    POINT caret{};
    GetCaretPos(&caret);
    const LRESULT place = stage.control.Send(EM_POSFROMCHAR, 3);
    EXPECT_EQ(caret.x, LOWORD(place));
    EXPECT_EQ(caret.y, HIWORD(place));
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ASSERT_TRUE(GetGUIThreadInfo(GetCurrentThreadId(), &info));
    EXPECT_EQ(info.hwndCaret, stage.Control());
}

TEST(ScrollBox, GoesWithItsDialog) {
    LinesStage stage;
    HWND host = stage.Host();
    stage.dialog.Close();
    EXPECT_FALSE(IsWindow(host));
    EXPECT_FALSE(stage.Box().IsAttached());
    EXPECT_FALSE(stage.control.IsAttached());
}

// --- Changes of the theme ---

TEST(ScrollBox, StaysUnderSystemDefault) {
    LinesStage stage;
    const RECT place = PlaceInParent(stage.Control());
    HWND host = stage.Host();
    UseTheme(kSystem, stage.dialog.Handle());
    EXPECT_EQ(stage.Host(), host);
    EXPECT_EQ(GetParent(stage.Control()), host);
    EXPECT_EQ(PlaceInParent(stage.Control()), place);
    UseTheme(kLight, stage.dialog.Handle());
    EXPECT_EQ(PlaceInParent(stage.Control()), place);
}

TEST(ScrollBox, IsNotPutAroundAControlThatHasComeWithoutOne) {
    LinesStage stage(kSystem);
    UseTheme(kDark, stage.dialog.Handle());
    EXPECT_EQ(stage.Host(), nullptr);
    EXPECT_EQ(GetParent(stage.Control()), stage.dialog.Handle());
}

}  // namespace
