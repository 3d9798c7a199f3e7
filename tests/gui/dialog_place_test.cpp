// Where dialogs stand, how large they are, and what they are made from.
#include "toolkit/dialog.h"

#include <gtest/gtest.h>

#include "tests/gui/small_dialog.h"
#include "tests/gui/test_app.h"

namespace {

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
    dialog.m_builder.Header()->cx = 2000;
    dialog.m_builder.Header()->cy = 2000;
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
        SizableDialog() { MakeSizable(m_builder); }
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
        IconDialog() { MakeSizable(m_builder); }
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
    RunModal(dialog, {InFront(dialog), Step([&] {
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
