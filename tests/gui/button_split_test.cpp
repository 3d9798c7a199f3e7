// Dividers between panes, dragged with the mouse.
#include "toolkit/button_split.h"

#include <algorithm>

#include "tests/gui/button_stage.h"
#include "toolkit/system.h"

namespace {

// The user's setting that windows follow the mouse while they are dragged.
class FullDragging {
public:
    explicit FullDragging(bool on) {
        SystemParametersInfoW(SPI_GETDRAGFULLWINDOWS, 0, &m_Before, 0);
        SystemParametersInfoW(SPI_SETDRAGFULLWINDOWS, on ? TRUE : FALSE, nullptr, 0);
    }
    ~FullDragging() {
        SystemParametersInfoW(SPI_SETDRAGFULLWINDOWS, static_cast<UINT>(m_Before), nullptr, 0);
    }
    FullDragging(const FullDragging&) = delete;
    FullDragging& operator=(const FullDragging&) = delete;

private:
    BOOL m_Before = FALSE;
};

template <bool IsVertical>
class Divider : public tvButton_Split {
public:
    Divider() {
        m_vertical = IsVertical ? 1 : 0;
        m_noAnimation = 1;
    }
};

constexpr int kX = 120;
constexpr int kY = 80;
constexpr int kThin = 6;
constexpr int kLong = 60;

// A dialog with a divider at kX, kY, which neither fills nor touches the client area.
template <bool IsVertical>
class Split : public Stage<Divider<IsVertical>> {
public:
    explicit Split(std::u16string_view theme = kLight) : Stage<Divider<IsVertical>>(theme) {
        const int width = IsVertical ? kLong : kThin;
        const int height = IsVertical ? kThin : kLong;
        SetWindowPos(this->Window(), nullptr, kX, kY, width, height, SWP_NOZORDER);
        Settle(this->dialog.Handle());
        this->dialog.m_onMessage = [this](UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
            if (message == WM_TVBUTTON_SPLIT) {
                ++m_told;
                EXPECT_EQ(wParam, WPARAM{kButton});
                EXPECT_EQ(lParam, reinterpret_cast<LPARAM>(this->Window()));
                if (m_layout) m_layout();
            }
            return false;
        };
    }

    [[nodiscard]] RECT Place() const { return PlaceIn(this->dialog.Handle(), this->Window()); }

    // Drags the divider from its middle by so many pixels. `held` is carried out before the button is let go.
    void Drag(
        int dx, int dy, const std::function<void()>& held = [] {}) {
        const HWND parent = this->dialog.Handle();
        const int x = kX + (IsVertical ? kLong : kThin) / 2;
        const int y = kY + (IsVertical ? kThin : kLong) / 2;
        MoveMouse(parent, x, y);
        const auto move = [=](int toX, int toY) {
            return [=] {
                MoveMouse(parent, toX, toY);
                return true;
            };
        };
        const DuringModal during({[this] { return GetCapture() == this->Window(); },
                                  move(x + dx / 2, y + dy / 2), move(x + dx, y + dy),
                                  [held] {
                                      held();
                                      Release();
                                      return true;
                                  }});
        Press();
        PumpUntil([&] { return during.Done(); });
        MoveMouseAway();
        Settle(parent);
    }

    int m_told = 0;
    std::function<void()> m_layout;
};
using Sideways = Split<false>;
using UpAndDown = Split<true>;

LRESULT HitTest(HWND window) {
    return SendMessageW(window, WM_NCHITTEST, 0, 0);
}

// --- Dragging, with windows that follow the mouse (true) and without ---

class SplitDrag : public testing::TestWithParam<bool> {
protected:
    FullDragging m_setting{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(FullWindows, SplitDrag, testing::Bool(),
                         [](const auto& one) { return one.param ? "On" : "Off"; });

TEST_P(SplitDrag, MovesItSidewaysAndTellsTheParent) {
    Sideways split;
    split.Drag(40, 0);
    EXPECT_EQ(split.Place().left, kX + 40);
    EXPECT_EQ(split.Place().right, kX + 40 + kThin);
    EXPECT_GE(split.m_told, 1);
}

TEST_P(SplitDrag, MovesItUpAndDownAndTellsTheParent) {
    UpAndDown split;
    split.Drag(0, -30);
    EXPECT_EQ(split.Place().top, kY - 30);
    EXPECT_EQ(split.Place().bottom, kY - 30 + kThin);
    EXPECT_GE(split.m_told, 1);
}

TEST_P(SplitDrag, LeavesTheOtherAxisAlone) {
    Sideways sideways;
    sideways.Drag(-30, 25);
    EXPECT_EQ(sideways.Place().left, kX - 30);
    EXPECT_EQ(sideways.Place().top, kY);
    EXPECT_EQ(sideways.Place().bottom, kY + kLong);
    sideways.dialog.Close();
    UpAndDown upAndDown;
    upAndDown.Drag(-30, 25);
    EXPECT_EQ(upAndDown.Place().left, kX);
    EXPECT_EQ(upAndDown.Place().right, kX + kLong);
    EXPECT_EQ(upAndDown.Place().top, kY + 25);
}

TEST_P(SplitDrag, MovesItWhileTheMouseIsHeldOnlyIfWindowsFollow) {
    Sideways split;
    LONG heldAt = -1;
    int toldWhileHeld = -1;
    split.Drag(40, 0, [&] {
        heldAt = split.Place().left;
        toldWhileHeld = split.m_told;
    });
    EXPECT_EQ(heldAt, GetParam() ? kX + 40 : kX);
    if (GetParam()) {
        EXPECT_GE(toldWhileHeld, 1);
    } else {
        EXPECT_EQ(toldWhileHeld, 0);
        EXPECT_EQ(split.m_told, 1);
    }
}

TEST_P(SplitDrag, EndsAtTheMargin) {
    Sideways split;
    split.button.m_marginLeft = 50;
    split.button.m_marginTop = 70;
    split.Drag(-115, 0);
    EXPECT_EQ(split.Place().left, 50);
    EXPECT_EQ(split.Place().top, kY);
    EXPECT_EQ(split.Place().right, 50 + kThin);
    split.dialog.Close();
    Sideways other;
    other.button.m_marginLeft = 50;
    const LONG width = SizeOf(other.dialog.Handle()).cx;
    other.Drag(static_cast<int>(width) - kX, 0);
    EXPECT_EQ(other.Place().right, width - 50);
    EXPECT_EQ(other.Place().left, width - 50 - kThin);
}

TEST_P(SplitDrag, UpAndDownEndsAtTheOtherMargin) {
    UpAndDown split;
    split.button.m_marginLeft = 500;
    split.button.m_marginTop = 20;
    split.Drag(0, -kY);
    EXPECT_EQ(split.Place().top, 20);
    EXPECT_EQ(split.Place().left, kX);
}

TEST_P(SplitDrag, LetsTheParentLayItselfOut) {
    Sideways split;
    const HWND edit = split.dialog.Item(kEdit);
    split.m_layout = [&] {
        const RECT place = split.Place();
        SetWindowPos(edit, nullptr, 0, 0, place.left, 20, SWP_NOZORDER);
        // The divider takes its own part in the layout.
        SetWindowPos(split.Window(), nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER);
    };
    split.Drag(44, 0);
    RECT rect{};
    GetWindowRect(edit, &rect);
    EXPECT_EQ(rect.right - rect.left, kX + 44);
    EXPECT_LE(split.m_told, 4);
}

TEST_P(SplitDrag, IsTakenBackByEscape) {
    Sideways split;
    LONG laidOutAt = kX;
    split.m_layout = [&] { laidOutAt = split.Place().left; };
    split.Drag(40, 0, [&] {
        KeyDown(VK_ESCAPE);
        KeyUp(VK_ESCAPE);
    });
    EXPECT_EQ(split.Place().left, kX);
    EXPECT_EQ(laidOutAt, kX);
}

TEST_P(SplitDrag, IsOverWhenTheMouseIsLetGo) {
    Sideways split;
    split.Drag(20, 0);
    const int told = split.m_told;
    SetWindowPos(split.Window(), nullptr, kX, kY, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    PumpQueue();
    EXPECT_EQ(split.Place().left, kX);
    EXPECT_EQ(split.m_told, told);
}

TEST_P(SplitDrag, IsNoLongerLitWhenItIsLetGoBeyondItsEnd) {
    Sideways split;
    split.button.m_marginLeft = kX - 10;
    const int all = kThin * kLong;
    const COLORREF hot = TheTheme().m_editBg;
    split.Drag(-60, 0, [&] {
        Settle(split.Window());
        EXPECT_EQ(Picture(split.Window()).Count(hot), all);
        EXPECT_TRUE(PumpUntil([&] { return split.button.m_hover == 0; }));
        Settle(split.Window());
    });
    EXPECT_EQ(split.Place().left, kX - 10);
    EXPECT_TRUE(PumpUntil([&] { return split.Look().Count(TheTheme().m_base) == all; }, 1000));
}

TEST_P(SplitDrag, EndsQuietlyIfTheDividerIsDestroyedMeanwhile) {
    Sideways split;
    split.Drag(20, 0, [&] { DestroyWindow(split.Window()); });
    EXPECT_FALSE(split.button.IsAttached());
    EXPECT_EQ(GetCapture(), nullptr);
}

// --- What it is ---

TEST(SplitWindow, TellsByARegisteredMessage) {
    EXPECT_GE(WM_TVBUTTON_SPLIT, 0xC000U);
}

TEST(SplitWindow, IsNoStopOfTheTabulatorAndHasNoText) {
    Sideways split;
    UseTheme(kLight, split.dialog.Handle());
    EXPECT_EQ(StyleOf(split.Window()) & WS_TABSTOP, 0U);
    EXPECT_NE(StyleOf(split.Window()) & WS_CLIPSIBLINGS, 0U);
    EXPECT_EQ(split.button.m_parent, split.dialog.Handle());
    TestDialog dialog;
    dialog.Open();
    tvButton_Split named;
    const HWND made = CreateWindowExW(0, L"BUTTON", L"Text", WS_CHILD, 0, 0, 9, 9, dialog.Handle(), nullptr,
                                      nullptr, nullptr);
    SetWindowLongPtrW(made, GWL_STYLE, WS_CHILD | WS_TABSTOP);
    named.SubclassWindow(made);
    EXPECT_EQ(StyleOf(made) & (WS_TABSTOP | WS_CLIPSIBLINGS), DWORD{WS_CLIPSIBLINGS});
    EXPECT_EQ(TextOf(made), u"");
    EXPECT_EQ(named.m_text, u"");
}

TEST(SplitWindow, IsAllCaption) {
    const Sideways split;
    EXPECT_EQ(HitTest(split.Window()), HTCAPTION);
}

TEST(SplitWindow, ShowsInWhichDirectionItMoves) {
    const Sideways sideways;
    MoveMouseTo(sideways.Window());
    EXPECT_TRUE(PumpUntil([] { return GetCursor() == LoadSharedCursor(32644); }));
    const UpAndDown upAndDown;
    MoveMouseTo(upAndDown.Window());
    EXPECT_TRUE(PumpUntil([] { return GetCursor() == LoadSharedCursor(32645); }));
}

TEST(SplitWindow, IsMovedByTheProgramWithoutAWord) {
    Sideways split;
    SetWindowPos(split.Window(), nullptr, kX + 10, kY + 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    PumpQueue();
    EXPECT_EQ(split.Place().left, kX + 10);
    EXPECT_EQ(split.Place().top, kY + 5);
    EXPECT_EQ(split.m_told, 0);
}

TEST(SplitWindow, IsKeptInTheClientArea) {
    const Sideways split;
    const SIZE room = SizeOf(split.dialog.Handle());
    SetWindowPos(split.Window(), nullptr, 5000, 5000, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(split.Place().right, room.cx);
    EXPECT_EQ(split.Place().bottom, room.cy);
    SetWindowPos(split.Window(), nullptr, -50, -60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(split.Place().left, 0);
    EXPECT_EQ(split.Place().top, 0);
    EXPECT_EQ(split.Place().bottom, kLong);
}

TEST(SplitWindow, TakesTheSizeThatItIsGiven) {
    const Sideways split;
    const SIZE room = SizeOf(split.dialog.Handle());
    SetWindowPos(split.Window(), nullptr, 5000, 3, 9, 30, SWP_NOZORDER);
    EXPECT_EQ(split.Place().right, room.cx);
    EXPECT_EQ(split.Place().right - split.Place().left, 9);
    EXPECT_EQ(split.Place().bottom - split.Place().top, 30);
    SetWindowPos(split.Window(), nullptr, 40, 0, 9, static_cast<int>(room.cy) + 50, SWP_NOZORDER);
    EXPECT_EQ(split.Place().top, 0);
    EXPECT_EQ(split.Place().bottom, room.cy + 50);
}

TEST(SplitWindow, StaysWhereItIsWhenItIsShown) {
    Sideways split;
    split.button.m_marginLeft = kX + 50;  // it stands in the margin now
    ShowWindow(split.Window(), SW_HIDE);
    ShowWindow(split.Window(), SW_SHOW);
    EXPECT_EQ(split.Place().left, kX);
}

void PressAgain() {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    ASSERT_EQ(SendInput(1, &input, sizeof input), 1U);
    PumpQueue();
}

TEST(SplitWindow, IsNotMaximisedByADoubleClick) {
    Sideways split;
    const HandedOn handed(split.button);
    split.Drag(0, 0);
    MoveMouse(split.dialog.Handle(), kX + kThin / 2, kY + kLong / 2);
    const UINT before = GetDoubleClickTime();
    SetDoubleClickTime(5000);
    PressAgain();
    EXPECT_TRUE(PumpUntil([&] { return !handed.Of(WM_NCLBUTTONDBLCLK).empty(); }));
    SetDoubleClickTime(before);
    Release();
    EXPECT_FALSE(IsZoomed(split.Window()));
    EXPECT_EQ(split.Place().left, kX);
}

TEST(SplitWindow, LocksItsAxisWhileItIsSizedToo) {
    const Sideways sideways;
    const UpAndDown upAndDown;
    for (const UINT message : {UINT{WM_SIZING}, UINT{WM_MOVING}}) {
        RECT now{};
        GetWindowRect(sideways.Window(), &now);
        RECT rect{1, 2, 300, 400};
        SendMessageW(sideways.Window(), message, 0, reinterpret_cast<LPARAM>(&rect));
        EXPECT_EQ(rect.left, 1);
        EXPECT_EQ(rect.right, 300);
        EXPECT_EQ(rect.top, now.top);
        EXPECT_EQ(rect.bottom, now.bottom);
        GetWindowRect(upAndDown.Window(), &now);
        rect = {1, 2, 300, 400};
        SendMessageW(upAndDown.Window(), message, 0, reinterpret_cast<LPARAM>(&rect));
        EXPECT_EQ(rect.left, now.left);
        EXPECT_EQ(rect.right, now.right);
        EXPECT_EQ(rect.top, 2);
        EXPECT_EQ(rect.bottom, 400);
    }
}

TEST(SplitWindow, TellsTheParentWhileItHasTheMouse) {
    Sideways split;
    SetCapture(split.Window());
    SetWindowPos(split.Window(), nullptr, kX + 10, kY, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(split.m_told, 0);  // posted, not sent
    PumpQueue();
    EXPECT_EQ(split.m_told, 1);
    SetWindowPos(split.Window(), nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_FRAMECHANGED);
    PumpQueue();
    EXPECT_EQ(split.m_told, 1);
    ReleaseCapture();
}

// --- Painting ---

UNDER_EACH_THEME(SplitPicture);

COLORREF Base() {
    return TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE);
}
COLORREF Hot() {
    return TheTheme().Color(&tvColorTheme::m_editBg, COLOR_WINDOW);
}

TEST_P(SplitPicture, IsPlainAndLightsUpUnderTheMouse) {
    const Sideways split(GetParam());
    const int all = kThin * kLong;
    EXPECT_EQ(TypeOf(split.Window()), DWORD{BS_OWNERDRAW});
    EXPECT_EQ(split.Look().Count(Base()), all);
    MoveMouseTo(split.Window());
    EXPECT_TRUE(PumpUntil([&] { return split.Look().Count(Hot()) == all; }));
    EXPECT_EQ(split.button.m_hover, 1);
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return split.Look().Count(Base()) == all; }));
    EXPECT_EQ(split.button.m_hover, 0);
}

TEST_P(SplitPicture, HasTheColorsThatItIsGiven) {
    Sideways split(GetParam());
    split.button.m_fill = RGB(10, 20, 30);
    EXPECT_EQ(Sheet(split.Window(), 0).Count(RGB(10, 20, 30)), kThin * kLong);
    split.button.m_frameColor = RGB(90, 80, 70);
    split.button.SetSides(true, false, true, false);
    const Sheet sheet(split.Window(), 0);
    EXPECT_EQ(sheet.Count(RGB(90, 80, 70)), 2 * kLong);
    EXPECT_EQ(sheet.At(0, 5), RGB(90, 80, 70));
    EXPECT_EQ(sheet.At(kThin - 1, 5), RGB(90, 80, 70));
    EXPECT_EQ(sheet.Count(RGB(10, 20, 30)), (kThin - 2) * kLong);
    MoveMouseTo(split.Window());
    EXPECT_EQ(Sheet(split.Window(), 0).Count(RGB(10, 20, 30)), (kThin - 2) * kLong);
}

TEST_P(SplitPicture, AsAButtonHasTheLookOfOne) {
    struct ButtonLike : tvButton_Split {
        ButtonLike() {
            m_asButton = 1;
            m_noAnimation = 1;
        }
    };
    Stage<ButtonLike> stage(GetParam());
    EXPECT_EQ(TypeOf(stage.Window()), IsColored() ? BS_OWNERDRAW : BS_PUSHBUTTON);
    if (!IsColored()) return;
    const Sheet sheet(stage.Window(), ODS_FOCUS);
    EXPECT_EQ(sheet.At(0, 0), TheTheme().m_borderActive);
    EXPECT_EQ(sheet.At(3, 3), TheTheme().m_button);
    // Neither a caption, though the window was given one, nor dots.
    EXPECT_EQ(sheet.Count(TheTheme().m_text), 0);
}

}  // namespace
