#include "toolkit/dialog.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/gui/harness.h"
#include "tests/gui/test_app.h"

namespace {

constexpr u16 kOk = IDOK;
constexpr u16 kCancel = IDCANCEL;
constexpr u16 kEdit = 100;

// A dialog of some buttons that does something when it starts.
class SmallDialog : public tvDialog {
public:
    explicit SmallDialog(std::initializer_list<u16> buttons = {}) {
        TemplateBegin(120, 60, DialogKind::Popup, 4);
        int x = 5;
        for (const u16 id : buttons) {
            AddControl(ATOM_BUTTON, id, x, 40, 30, 14);
            x += 35;
        }
    }
    void OnSubclassControls() override { m_Order += "S"; }
    bool OnInitDialog() override {
        m_Order += "I";
        if (m_OnInit) m_OnInit();
        return m_FocusIsFree;
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_NULL) ++m_Nulls;
        return tvDialog::WindowProc(message, wParam, lParam);
    }
    std::string m_Order;
    std::function<void()> m_OnInit;
    bool m_FocusIsFree = true;
    int m_Nulls = 0;
};

// The result of a modal run of which each step is done when it gives true.
int RunModal(SmallDialog& dialog, std::vector<std::function<bool()>> steps) {
    DuringModal during(std::move(steps));
    const int result = dialog.DoModal();
    EXPECT_TRUE(during.Done());
    return result;
}

std::function<bool()> Once(const std::function<void()>& action) {
    return [action] {
        action();
        return true;
    };
}

std::function<bool()> InFront(const SmallDialog& dialog) {
    return [&dialog] { return GetForegroundWindow() == dialog.Handle(); };
}

TEST(Dialog, SubclassesControlsBeforeItStarts) {
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(nullptr));
    EXPECT_EQ(dialog.m_Order, "SI");
    DestroyWindow(dialog.Handle());
    EXPECT_FALSE(dialog.IsAttached());
}

TEST(Dialog, IsOfAClassThatIsTheSystemsDialogUnderAnotherName) {
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(nullptr));
    wchar_t name[32];
    GetClassNameW(dialog.Handle(), name, 32);
    EXPECT_STREQ(name, L"tvThemeWnd");
    WNDCLASSW stock{};
    WNDCLASSW ours{};
    ASSERT_TRUE(GetClassInfoW(nullptr, MAKEINTRESOURCEW(32770), &stock));
    ASSERT_TRUE(GetClassInfoW(GetModuleHandleW(nullptr), L"tvThemeWnd", &ours));
    EXPECT_EQ(ours.cbWndExtra, stock.cbWndExtra);
}

TEST(Dialog, CannotBeMadeTwiceNorWithoutATemplate) {
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(nullptr));
    EXPECT_FALSE(dialog.Create(nullptr));
    EXPECT_EQ(dialog.DoModal(), -1);
    tvDialog empty;
    EXPECT_FALSE(empty.Create(nullptr));
    EXPECT_EQ(empty.DoModal(), -1);
    empty.m_templateId = 999;
    EXPECT_FALSE(empty.Create(nullptr));
}

TEST(Dialog, CanBeMadeAgainAfterItsWindowHasGone) {
    SmallDialog dialog;
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(dialog.Create(nullptr));
        DestroyWindow(dialog.Handle());
    }
}

TEST(Dialog, GivesTheFontItWasGiven) {
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(nullptr));
    dialog.Send(WM_SETFONT, 0x4711);
    EXPECT_EQ(dialog.Send(WM_GETFONT), 0x4711);
    dialog.m_font = nullptr;
}

TEST(DialogModal, EndsWithTheResultOfEndDialog) {
    SmallDialog dialog;
    EXPECT_EQ(RunModal(dialog, {Once([&] { dialog.EndDialog(77); })}), 77);
    EXPECT_FALSE(dialog.IsAttached());
}

TEST(DialogModal, TakesAResultOfZeroAsTwo) {
    SmallDialog dialog;
    EXPECT_EQ(RunModal(dialog, {Once([&] { dialog.EndDialog(0); })}), 2);
}

TEST(DialogModal, ForgetsTheResultOfTheRunBefore) {
    SmallDialog dialog;
    RunModal(dialog, {Once([&] { dialog.EndDialog(5); })});
    EXPECT_EQ(RunModal(dialog, {Once([&] {
                           EXPECT_EQ(dialog.m_result, 0);
                           dialog.EndDialog(6);
                       })}),
              6);
}

TEST(DialogModal, IsWokenByTheEnd) {
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(nullptr));
    PumpQueue();
    dialog.m_Nulls = 0;
    dialog.EndDialog(1);
    EXPECT_EQ(dialog.m_Nulls, 0);
    PumpQueue();
    EXPECT_EQ(dialog.m_Nulls, 1);
}

TEST(DialogModal, MayEndBeforeItHasBegun) {
    SmallDialog dialog;
    dialog.m_OnInit = [&] { dialog.EndDialog(8); };
    EXPECT_EQ(dialog.DoModal(), 8);
}

TEST(DialogModal, HasNoResultWithoutAWindow) {
    SmallDialog dialog;
    dialog.EndDialog(7);
    EXPECT_EQ(dialog.m_result, 0);
}

TEST(DialogModal, EndsWithTwoWhenItIsClosed) {
    SmallDialog dialog;
    EXPECT_EQ(RunModal(dialog, {Once([&] { dialog.Send(WM_CLOSE); })}), 2);
}

TEST(DialogModal, EndsWithTheIdOfAnOkOrCancelButtonThatIsClicked) {
    for (const u16 id : {kOk, kCancel}) {
        SmallDialog dialog({kOk, kCancel});
        EXPECT_EQ(RunModal(dialog, {InFront(dialog), Once([&] { Click(GetDlgItem(dialog.Handle(), id)); })}),
                  id);
    }
}

TEST(DialogModal, EndsByEscapeWithTheCancelButton) {
    SmallDialog dialog({kOk, kCancel});
    EXPECT_EQ(RunModal(dialog, {InFront(dialog), Once([] { Type(VK_ESCAPE); })}), kCancel);
}

TEST(DialogModal, EndsByEscapeWithoutACancelButtonIfItHasASystemMenu) {
    SmallDialog dialog({kOk});
    EXPECT_EQ(RunModal(dialog, {InFront(dialog), Once([] { Type(VK_ESCAPE); })}), 2);
}

TEST(DialogModal, DoesNotEndByEscapeWithoutACancelButtonAndSystemMenu) {
    SmallDialog dialog({kOk});
    dialog.m_OnInit = [&] { dialog.ModifyStyle(WS_SYSMENU, 0); };
    EXPECT_EQ(RunModal(dialog, {InFront(dialog), Once([] { Type(VK_ESCAPE); }), Once([&] {
                                    EXPECT_EQ(dialog.m_result, 0);
                                    dialog.EndDialog(9);
                                })}),
              9);
}

TEST(DialogModal, DoesNotEndByAButtonThatIsHiddenOrDisabled) {
    for (const bool hidden : {true, false}) {
        SmallDialog dialog({kOk});
        dialog.m_OnInit = [&] {
            const HWND button = GetDlgItem(dialog.Handle(), kOk);
            hidden ? ShowWindow(button, SW_HIDE) : EnableWindow(button, FALSE);
        };
        EXPECT_EQ(RunModal(dialog, {Once([&] {
                               dialog.Send(WM_COMMAND, kOk);
                               EXPECT_EQ(dialog.m_result, 0);
                               dialog.EndDialog(9);
                           })}),
                  9);
    }
}

TEST(DialogModal, MovesTheFocusByTab) {
    SmallDialog dialog({kOk, kCancel});
    RunModal(dialog, {InFront(dialog), Once([] { Type(VK_TAB); }),
                      [&] { return GetFocus() == GetDlgItem(dialog.Handle(), kCancel); },
                      Once([&] { dialog.EndDialog(1); })});
}

TEST(DialogModal, LeavesItsResultWhenTheProgramIsToQuitAndHandsThatOn) {
    SmallDialog dialog;
    EXPECT_EQ(RunModal(dialog, {Once([] { PostQuitMessage(3); })}), 0);
    MSG msg;
    ASSERT_TRUE(PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(msg.wParam, 3U);
}

TEST(DialogModal, DisablesItsOwnerWhileItRuns) {
    TestDialog owner;
    owner.Open();
    owner.BeMain();
    SmallDialog dialog;
    RunModal(dialog, {Once([&] {
                 EXPECT_FALSE(IsWindowEnabled(owner.Handle()));
                 EXPECT_EQ(GetWindow(dialog.Handle(), GW_OWNER), owner.Handle());
                 dialog.EndDialog(1);
             })});
    EXPECT_TRUE(IsWindowEnabled(owner.Handle()));
    EXPECT_EQ(GetActiveWindow(), owner.Handle());
}

TEST(DialogModal, LeavesAnOwnerDisabledThatWasSo) {
    TestDialog owner;
    owner.Open();
    owner.BeMain();
    EnableWindow(owner.Handle(), FALSE);
    SmallDialog dialog;
    RunModal(dialog, {Once([&] { dialog.EndDialog(1); })});
    EXPECT_FALSE(IsWindowEnabled(owner.Handle()));
}

TEST(DialogModal, EnablesItsOwnerAgainIfItCannotBeMade) {
    TestDialog owner;
    owner.Open();
    owner.BeMain();
    tvDialog empty;
    EXPECT_EQ(empty.DoModal(), -1);
    EXPECT_TRUE(IsWindowEnabled(owner.Handle()));
}

TEST(DialogModal, IsOwnedByWhatStandsOnTopOfTheMainWindow) {
    TestDialog main;
    main.Open();
    main.BeMain();
    SmallDialog between;
    ASSERT_TRUE(between.Create(main.Handle()));
    ShowWindow(between.Handle(), SW_SHOW);
    ASSERT_EQ(GetLastActivePopup(main.Handle()), between.Handle());
    SmallDialog dialog;
    RunModal(dialog, {Once([&] {
                 EXPECT_EQ(GetWindow(dialog.Handle(), GW_OWNER), between.Handle());
                 dialog.EndDialog(1);
             })});
}

TEST(DialogModal, IsOwnedByTheWindowAroundAPaneThatIsTheMainOne) {
    TestDialog around;
    around.Open();
    TestDialog pane(50, 30, DialogKind::Child);
    ASSERT_TRUE(pane.Create(around.Handle()));
    pane.BeMain();
    SmallDialog dialog;
    RunModal(dialog, {Once([&] {
                 EXPECT_EQ(GetWindow(dialog.Handle(), GW_OWNER), around.Handle());
                 dialog.EndDialog(1);
             })});
}

// --- The main window, which runs like any dialog ---

// Makes a dialog the main window for the length of a test.
class MainDialog : public SmallDialog {
public:
    using SmallDialog::SmallDialog;
    int Run(std::vector<std::function<bool()>> steps) {
        TestApp::Get().m_mainWnd = this;
        const int result = RunModal(*this, std::move(steps));
        TestApp::Get().m_mainWnd = nullptr;
        return result;
    }
};

bool IsToQuit() {
    MSG msg;
    return PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != FALSE;
}

TEST(DialogMain, GoesWhenItIsClosedAndEndsTheLoopWithoutAResult) {
    MainDialog dialog;
    EXPECT_EQ(dialog.Run({Once([&] {
        dialog.Send(WM_CLOSE);
        EXPECT_FALSE(dialog.IsAttached());
    })}),
              0);
    EXPECT_FALSE(IsToQuit());
}

TEST(DialogMain, EndsWithTheIdOfItsButtonAndGoesAtOnce) {
    for (const u16 id : {kOk, kCancel}) {
        MainDialog dialog({kOk, kCancel});
        EXPECT_EQ(dialog.Run({Once([&] {
            dialog.Send(WM_COMMAND, id);
            EXPECT_FALSE(dialog.IsAttached());
        })}),
                  id);
        EXPECT_TRUE(IsToQuit());
    }
}

TEST(DialogMain, DoesNotEndByEscapeWithoutACancelButton) {
    MainDialog dialog({kOk});
    EXPECT_EQ(dialog.Run({InFront(dialog), Once([] { Type(VK_ESCAPE); }), Once([&] {
                              EXPECT_TRUE(dialog.IsAttached());
                              EXPECT_EQ(dialog.m_result, 0);
                              dialog.EndDialog(9);
                          })}),
              9);
    IsToQuit();
}

// A dialog that runs above the main window goes with it, and so must both loops.
TEST(DialogMain, EndsTheLoopsOfTheDialogsAboveItToo) {
    MainDialog main;
    SmallDialog above;
    above.m_OnInit = [&main] { PostMessageW(main.Handle(), WM_CLOSE, 0, 0); };
    int ofAbove = -7;
    // Should the main loop miss the end it would wait for ever.
    static bool wasLate;
    wasLate = false;
    const UINT_PTR guard = SetTimer(nullptr, 0, kWaitLimit, [](HWND, UINT, UINT_PTR, DWORD) {
        wasLate = true;
        PostQuitMessage(0);
    });
    TestApp::Get().m_mainWnd = &main;
    TestApp::Get().m_onMessage = [&](MSG* msg) {
        if (msg->message != WM_APP + 1) return false;
        ofAbove = above.DoModal();
        return true;
    };
    main.m_OnInit = [&main] { PostMessageW(main.Handle(), WM_APP + 1, 0, 0); };
    EXPECT_EQ(main.DoModal(), 0);
    TestApp::Get().m_mainWnd = nullptr;
    KillTimer(nullptr, guard);
    EXPECT_FALSE(wasLate);
    EXPECT_EQ(ofAbove, 0);
    EXPECT_FALSE(above.IsAttached());
    EXPECT_FALSE(IsToQuit());
}

TEST(DialogCommands, OfAPaneDoNotEndIt) {
    TestDialog around;
    around.Open();
    TestDialog pane(50, 30, DialogKind::Child);
    pane.Add(ATOM_BUTTON, IDOK, 0, 0, 20, 14);
    ASSERT_TRUE(pane.Create(around.Handle()));
    pane.Send(WM_COMMAND, IDOK);
    pane.Send(WM_COMMAND, IDCANCEL);
    EXPECT_EQ(pane.m_result, 0);
}

TEST(DialogCommands, OfOtherControlsDoNotEndIt) {
    SmallDialog dialog({kOk, kEdit});
    ASSERT_TRUE(dialog.Create(nullptr));
    dialog.Send(WM_COMMAND, kEdit);
    EXPECT_EQ(dialog.m_result, 0);
}

TEST(DialogModal, LooksAtMessagesInItsOrder) {
    class ShowingDialog : public SmallDialog {
    public:
        bool PreTranslateMsg(MSG* msg) override {
            if (msg->message == WM_APP + 3) m_Order += "p";
            return msg->message == WM_APP + 5;
        }
        bool IsDialogMsg(MSG* msg) override {
            if (msg->message == WM_APP + 3) m_Order += "d";
            return SmallDialog::IsDialogMsg(msg);
        }
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message >= WM_APP + 3 && message <= WM_APP + 5) m_Order += "w";
            if (message == WM_APP + 6) EndDialog(1);
            return SmallDialog::WindowProc(message, wParam, lParam);
        }
    };
    ShowingDialog dialog;
    TestApp::Get().m_onMessage = [&dialog](MSG* msg) {
        if (msg->message == WM_APP + 3) dialog.m_Order += "a";
        return msg->message == WM_APP + 4;
    };
    dialog.m_OnInit = [&] {
        for (const UINT message : {3U, 4U, 5U, 6U})
            PostMessageW(dialog.Handle(), WM_APP + message, 0, 0);
    };
    EXPECT_EQ(dialog.DoModal(), 1);
    EXPECT_EQ(dialog.m_Order, "SIapdw");
}

RECT RectOf(const tvWnd& wnd) {
    RECT rect{};
    GetWindowRect(wnd.Handle(), &rect);
    return rect;
}

void ExpectInTheMiddle(const RECT& inner, const RECT& outer) {
    EXPECT_EQ(inner.left, (outer.left + outer.right) / 2 - (inner.right - inner.left) / 2);
    EXPECT_EQ(inner.top, (outer.top + outer.bottom) / 2 - (inner.bottom - inner.top) / 2);
}

TEST(DialogPlace, IsTheMiddleOfItsOwner) {
    TestDialog owner(300, 200);
    owner.Open();
    SetWindowPos(owner.Handle(), nullptr, 100, 80, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(owner.Handle()));
    ExpectInTheMiddle(RectOf(dialog), RectOf(owner));
}

TEST(DialogPlace, IsInsideTheWorkArea) {
    TestDialog owner(60, 40);
    owner.Open();
    SetWindowPos(owner.Handle(), nullptr, -100, -60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(owner.Handle()));
    RECT inner;
    GetWindowRect(dialog.Handle(), &inner);
    RECT area;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    EXPECT_EQ(inner.left, area.left);
    EXPECT_EQ(inner.top, area.top);
}

TEST(DialogPlace, IsPulledBackFromTheRightAndTheBottom) {
    TestDialog owner(60, 40);
    owner.Open();
    RECT area;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    SetWindowPos(owner.Handle(), nullptr, area.right - 30, area.bottom - 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(owner.Handle()));
    EXPECT_EQ(RectOf(dialog).right, area.right);
    EXPECT_EQ(RectOf(dialog).bottom, area.bottom);
}

TEST(DialogPlace, OfADialogThatIsTooLargeIsTheTopAndTheLeft) {
    RECT area;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    SmallDialog dialog;
    dialog.m_template.Header()->cx = 2000;
    dialog.m_template.Header()->cy = 2000;
    ASSERT_TRUE(dialog.Create(nullptr));
    EXPECT_EQ(RectOf(dialog).left, area.left);
    EXPECT_EQ(RectOf(dialog).top, area.top);
    EXPECT_GT(RectOf(dialog).right, area.right);
}

TEST(DialogPlace, IsTheMiddleOfTheMainWindowIfItHasNoOwner) {
    TestDialog main(200, 100);
    main.Open();
    main.BeMain();
    SetWindowPos(main.Handle(), nullptr, 90, 70, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(nullptr));
    ExpectInTheMiddle(RectOf(dialog), RectOf(main));
}

TEST(DialogPlace, IsTheMiddleOfTheScreenForAnOwnerThatIsHiddenOrMinimized) {
    RECT area;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    for (const int how : {SW_HIDE, SW_MINIMIZE}) {
        TestDialog owner(100, 50);
        owner.Open();
        SetWindowPos(owner.Handle(), nullptr, 20, 20, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        ShowWindow(owner.Handle(), how);
        SmallDialog dialog;
        ASSERT_TRUE(dialog.Create(owner.Handle()));
        ExpectInTheMiddle(RectOf(dialog), area);
    }
}

TEST(DialogPlace, OfTheMainWindowIsTheMiddleOfTheScreen) {
    RECT area;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    SmallDialog dialog;
    TestApp::Get().m_mainWnd = &dialog;
    ASSERT_TRUE(dialog.Create(nullptr));
    TestApp::Get().m_mainWnd = nullptr;
    ExpectInTheMiddle(RectOf(dialog), area);
}

TEST(DialogPlace, OfAPaneIsNotChanged) {
    TestDialog around;
    around.Open();
    TestDialog pane(50, 30, DialogKind::Child);
    ASSERT_TRUE(pane.Create(around.Handle()));
    SetWindowPos(pane.Handle(), nullptr, 3, 4, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    const RECT before = RectOf(pane);
    pane.CenterWindow();
    const RECT after = RectOf(pane);
    EXPECT_TRUE(EqualRect(&before, &after));
}

TEST(DialogPlace, StaysWhereTheDialogHasPutItself) {
    SmallDialog dialog;
    dialog.m_OnInit = [&] { SetWindowPos(dialog.Handle(), nullptr, 3, 4, 0, 0, SWP_NOSIZE | SWP_NOZORDER); };
    ASSERT_TRUE(dialog.Create(nullptr));
    RECT rect;
    GetWindowRect(dialog.Handle(), &rect);
    EXPECT_EQ(rect.left, 3);
    EXPECT_EQ(rect.top, 4);
}

// Without the frame that the system itself makes a modal one.
void MakeSizable(DialogTemplate& made) {
    u32& style = made.Header()->style;
    style = (style & ~u32{DS_MODALFRAME}) | WS_THICKFRAME;
}

TEST(DialogSize, OfADialogWithASizableFrameIsAlsoItsLeast) {
    class SizableDialog : public SmallDialog {
    public:
        SizableDialog() { MakeSizable(m_template); }
    };
    SizableDialog dialog;
    ASSERT_TRUE(dialog.Create(nullptr));
    RECT rect;
    GetWindowRect(dialog.Handle(), &rect);
    EXPECT_EQ(dialog.m_minWidth, rect.right - rect.left);
    EXPECT_EQ(dialog.m_minHeight, rect.bottom - rect.top);
    EXPECT_NE(GetWindowLongPtrW(dialog.Handle(), GWL_EXSTYLE) & WS_EX_DLGMODALFRAME, 0);
    SetWindowPos(dialog.Handle(), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
    RECT after;
    GetWindowRect(dialog.Handle(), &after);
    EXPECT_EQ(after.right - after.left, rect.right - rect.left);
}

TEST(DialogSize, OfASizableDialogWithAnIconGetsNoOtherFrame) {
    class IconDialog : public SmallDialog {
    public:
        IconDialog() { MakeSizable(m_template); }
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            return message == WM_GETICON ? 1 : SmallDialog::WindowProc(message, wParam, lParam);
        }
    };
    IconDialog dialog;
    ASSERT_TRUE(dialog.Create(nullptr));
    EXPECT_EQ(GetWindowLongPtrW(dialog.Handle(), GWL_EXSTYLE) & WS_EX_DLGMODALFRAME, 0);
}

TEST(DialogSize, OfADialogWithoutASizableFrameHasNoLeast) {
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(nullptr));
    EXPECT_EQ(dialog.m_minWidth, 0);
    EXPECT_EQ(dialog.m_minHeight, 0);
    MINMAXINFO info{};
    dialog.m_minWidth = 50;
    dialog.Send(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    EXPECT_NE(info.ptMinTrackSize.x, 50);  // both values are needed
    dialog.m_minHeight = 60;
    dialog.Send(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    EXPECT_EQ(info.ptMinTrackSize.x, 50);
    EXPECT_EQ(info.ptMinTrackSize.y, 60);
}

TEST(DialogResource, IsMadeInItsClassWithItsControls) {
    constexpr u16 kPlain = 911;
    constexpr u16 kExtended = 912;
    const struct {
        u16 id;
        const wchar_t* className;
    } kKnown[] = {{kPlain, L"TVPLAINTEST"}, {kExtended, L"TVEXTENDEDTEST"}};
    for (const auto& known : kKnown) {
        SmallDialog dialog({kCancel});
        dialog.m_templateId = known.id;
        ASSERT_TRUE(dialog.Create(nullptr));
        EXPECT_EQ(dialog.m_Order, "SI");
        wchar_t name[32];
        GetClassNameW(dialog.Handle(), name, 32);
        EXPECT_STREQ(name, known.className);
        EXPECT_NE(GetDlgItem(dialog.Handle(), kEdit), nullptr);
        EXPECT_EQ(GetDlgItem(dialog.Handle(), kCancel), nullptr);
    }
}

TEST(DialogFocus, IsThatOfTheDialogWhichHasSetIt) {
    SmallDialog dialog({kOk, kCancel});
    dialog.m_FocusIsFree = false;
    dialog.m_OnInit = [&] { SetFocus(GetDlgItem(dialog.Handle(), kCancel)); };
    RunModal(dialog, {InFront(dialog), Once([&] {
                          EXPECT_EQ(GetFocus(), GetDlgItem(dialog.Handle(), kCancel));
                          dialog.EndDialog(1);
                      })});
}

TEST(DialogKeys, AreNotAnsweredByListsThatAskWhatToDoWithThem) {
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(nullptr));
    EXPECT_EQ(dialog.Send(WM_VKEYTOITEM), -1);
    EXPECT_EQ(dialog.Send(WM_CHARTOITEM), -1);
}

}  // namespace
