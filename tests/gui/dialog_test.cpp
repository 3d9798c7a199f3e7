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
    RunModal(dialog, {Once([&] { dialog.EndDialog(1); })});
    EXPECT_LE(dialog.m_Nulls, 1);
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

TEST(DialogPlace, IsTheMiddleOfItsOwner) {
    TestDialog owner(300, 200);
    owner.Open();
    SetWindowPos(owner.Handle(), nullptr, 100, 80, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(owner.Handle()));
    RECT outer;
    RECT inner;
    GetWindowRect(owner.Handle(), &outer);
    GetWindowRect(dialog.Handle(), &inner);
    EXPECT_EQ(inner.left, (outer.left + outer.right) / 2 - (inner.right - inner.left) / 2);
    EXPECT_EQ(inner.top, (outer.top + outer.bottom) / 2 - (inner.bottom - inner.top) / 2);
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

TEST(DialogPlace, StaysWhereTheDialogHasPutItself) {
    SmallDialog dialog;
    dialog.m_OnInit = [&] { SetWindowPos(dialog.Handle(), nullptr, 3, 4, 0, 0, SWP_NOSIZE | SWP_NOZORDER); };
    ASSERT_TRUE(dialog.Create(nullptr));
    RECT rect;
    GetWindowRect(dialog.Handle(), &rect);
    EXPECT_EQ(rect.left, 3);
    EXPECT_EQ(rect.top, 4);
}

TEST(DialogSize, OfADialogWithASizableFrameIsAlsoItsLeast) {
    class SizableDialog : public SmallDialog {
    public:
        SizableDialog() { m_template.Header()->style |= WS_THICKFRAME; }
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

TEST(DialogKeys, AreNotAnsweredByListsThatAskWhatToDoWithThem) {
    SmallDialog dialog;
    ASSERT_TRUE(dialog.Create(nullptr));
    EXPECT_EQ(dialog.Send(WM_VKEYTOITEM), -1);
    EXPECT_EQ(dialog.Send(WM_CHARTOITEM), -1);
}

}  // namespace
