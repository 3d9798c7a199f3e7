#include "toolkit/dialog.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/gui/import_slot.h"
#include "tests/gui/small_dialog.h"
#include "tests/gui/test_app.h"

namespace {

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
    EXPECT_EQ(RunModal(dialog, {Step([&] { dialog.EndDialog(77); })}), 77);
    EXPECT_FALSE(dialog.IsAttached());
}

TEST(DialogModal, TakesAResultOfZeroAsTwo) {
    SmallDialog dialog;
    EXPECT_EQ(RunModal(dialog, {Step([&] { dialog.EndDialog(0); })}), 2);
}

TEST(DialogModal, ForgetsTheResultOfTheRunBefore) {
    SmallDialog dialog;
    RunModal(dialog, {Step([&] { dialog.EndDialog(5); })});
    EXPECT_EQ(RunModal(dialog, {Step([&] {
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
    EXPECT_EQ(RunModal(dialog, {Step([&] { dialog.Send(WM_CLOSE); })}), 2);
}

TEST(DialogModal, EndsWithTheIdOfAnOkOrCancelButtonThatIsClicked) {
    for (const u16 id : {kOk, kCancel}) {
        SmallDialog dialog({kOk, kCancel});
        EXPECT_EQ(RunModal(dialog, {InFront(dialog), Step([&] { Click(GetDlgItem(dialog.Handle(), id)); })}),
                  id);
    }
}

TEST(DialogModal, EndsByEscapeWithTheCancelButton) {
    SmallDialog dialog({kOk, kCancel});
    EXPECT_EQ(RunModal(dialog, {InFront(dialog), Step([] { Type(VK_ESCAPE); })}), kCancel);
}

TEST(DialogModal, EndsByEscapeWithoutACancelButtonIfItHasASystemMenu) {
    SmallDialog dialog({kOk});
    EXPECT_EQ(RunModal(dialog, {InFront(dialog), Step([] { Type(VK_ESCAPE); })}), 2);
}

TEST(DialogModal, DoesNotEndByEscapeWithoutACancelButtonAndSystemMenu) {
    SmallDialog dialog({kOk});
    dialog.m_OnInit = [&] { dialog.ModifyStyle(WS_SYSMENU, 0); };
    EXPECT_EQ(RunModal(dialog, {InFront(dialog), Step([] { Type(VK_ESCAPE); }), Step([&] {
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
        EXPECT_EQ(RunModal(dialog, {Step([&] {
                               dialog.Send(WM_COMMAND, kOk);
                               EXPECT_EQ(dialog.m_result, 0);
                               dialog.EndDialog(9);
                           })}),
                  9);
    }
}

TEST(DialogModal, MovesTheFocusByTab) {
    SmallDialog dialog({kOk, kCancel});
    RunModal(dialog, {InFront(dialog), Step([] { Type(VK_TAB); }),
                      [&] { return GetFocus() == GetDlgItem(dialog.Handle(), kCancel); },
                      Step([&] { dialog.EndDialog(1); })});
}

TEST(DialogModal, LeavesItsResultWhenTheProgramIsToQuitAndHandsThatOn) {
    SmallDialog dialog;
    EXPECT_EQ(RunModal(dialog, {Step([] { PostQuitMessage(3); })}), 0);
    MSG msg;
    ASSERT_TRUE(PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(msg.wParam, 3U);
}

BOOL WINAPI FailToGetAMessage(MSG*, HWND, UINT, UINT) {
    return -1;
}

TEST(DialogModal, EndsWhenNoMessageCanBeHad) {
    TestDialog owner;
    owner.Open();
    owner.BeMain();
    SmallDialog dialog;
    int result = 4711;
    {
        const ImportSlot slot(L"user32.dll", "GetMessageW", reinterpret_cast<ULONG_PTR>(&FailToGetAMessage));
        result = dialog.DoModal();
    }
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(dialog.IsAttached());
    EXPECT_TRUE(IsWindowEnabled(owner.Handle()));
    MSG msg;
    EXPECT_FALSE(PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "nobody has asked for the end";
}

TEST(DialogModal, DisablesItsOwnerWhileItRuns) {
    TestDialog owner;
    owner.Open();
    owner.BeMain();
    SmallDialog dialog;
    RunModal(dialog, {Step([&] {
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
    RunModal(dialog, {Step([&] { dialog.EndDialog(1); })});
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
    RunModal(dialog, {Step([&] {
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
    RunModal(dialog, {Step([&] {
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
    EXPECT_EQ(dialog.Run({Step([&] {
        dialog.Send(WM_CLOSE);
        EXPECT_FALSE(dialog.IsAttached());
    })}),
              0);
    EXPECT_FALSE(IsToQuit());
}

TEST(DialogMain, EndsWithTheIdOfItsButtonAndGoesAtOnce) {
    for (const u16 id : {kOk, kCancel}) {
        MainDialog dialog({kOk, kCancel});
        EXPECT_EQ(dialog.Run({Step([&] {
            dialog.Send(WM_COMMAND, id);
            EXPECT_FALSE(dialog.IsAttached());
        })}),
                  id);
        EXPECT_TRUE(IsToQuit());
    }
}

TEST(DialogMain, DoesNotEndByEscapeWithoutACancelButton) {
    MainDialog dialog({kOk});
    EXPECT_EQ(dialog.Run({InFront(dialog), Step([] { Type(VK_ESCAPE); }), Step([&] {
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

}  // namespace
