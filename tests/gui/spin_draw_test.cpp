// What a spin control looks like.
#include <string>

#include "tests/gui/input_stage.h"
#include "toolkit/edit.h"
#include "toolkit/spin.h"

namespace {

constexpr u16 kSpin = 40;

std::string Text(const RECT& rect) {
    return std::to_string(rect.left) + ' ' + std::to_string(rect.top) + ' ' + std::to_string(rect.right) +
           ' ' + std::to_string(rect.bottom);
}

// Notes what it draws.
class NotingSpin : public tvSpinCtrl {
public:
    void DrawPart(HDC dc, const RECT& rect, bool second, bool pushed, bool horizontal) override {
        m_drawn.push_back(std::string(second ? "second " : "first ") + (pushed ? "pushed " : "") +
                          (horizontal ? "across " : "") + Text(rect));
        tvSpinCtrl::DrawPart(dc, rect, second, pushed, horizontal);
    }
    void DrawBack(HDC dc, const RECT& rect) override {
        m_drawn.push_back(std::string("back ").append(Text(rect)));
        tvSpinCtrl::DrawBack(dc, rect);
    }
    void DrawBuddyEdge(HDC dc, const RECT& rect, bool left) override {
        m_drawn.push_back(std::string(left ? "left " : "right ") + Text(rect));
        tvSpinCtrl::DrawBuddyEdge(dc, rect, left);
    }
    std::vector<std::string> Take() { return std::exchange(m_drawn, {}); }
    std::vector<std::string> m_drawn;
};

class SpinDraw : public EachTheme {
protected:
    SpinDraw() {
        UseTheme(GetParam());
        MoveMouseAway();
        m_Dialog.Add(ATOM_EDIT, kOther, 5, 5, 80, 12);
        m_Dialog.Add(ATOM_EDIT, kInput, 60, 40, 50, 14);
        m_Dialog.Wrap(m_Edit, kInput);
        m_Dialog.Open();
    }
    void Make(DWORD style, bool joined = true, int width = 20) {
        ASSERT_TRUE(m_Spin.Create(m_Dialog.Handle(), kSpin, WS_VISIBLE | style));
        if (joined) m_Spin.Send(UDM_SETBUDDY, reinterpret_cast<WPARAM>(m_Edit.Handle()));
        m_Spin.Send(UDM_SETRANGE32, 0, 100);
        m_Edit.m_autoHeight = -1;
        MoveWindow(m_Edit.Handle(), 100, 60, 80, 23, TRUE);
        m_Spin.OnAutoFit();
        if (!joined) MoveWindow(m_Spin.Handle(), 0, 60, width, 23, TRUE);
        if (width != 0) Resize(width);
        Settle(m_Dialog.Handle());
    }
    // To a size that does not hang on the font.
    void Resize(int width) {
        const RECT place = PlaceIn(m_Dialog.Handle(), m_Spin.Handle());
        MoveWindow(m_Spin.Handle(), place.left, place.top, width, 23, TRUE);
    }
    std::vector<std::string> Drawn() {
        m_Spin.Take();
        m_Spin.ResetBuffer(m_Spin.Handle(), tvabdraw::Redraw::Yes);
        UpdateWindow(m_Spin.Handle());
        return m_Spin.Take();
    }
    Picture Look() {
        Settle(m_Dialog.Handle());
        return Picture(m_Spin.Handle());
    }
    COLORREF AtDialog(int x, int y) {
        Settle(m_Dialog.Handle());
        return PixelAt(m_Dialog.Handle(), x, y);
    }

    KeepTheme m_Keep;
    tvEdit m_Edit;
    NotingSpin m_Spin;
    TestDialog m_Dialog;
};
INSTANTIATE_TEST_SUITE_P(Themes, SpinDraw, testing::Values(kLight, kDark), ThemeName);

using Lines = std::vector<std::string>;

TEST_P(SpinDraw, GoesFromTheGroundToTheHalves) {
    Make(0, false);
    EXPECT_EQ(Drawn(), (Lines{"back 0 0 20 23", "first 1 1 19 12", "second 1 12 19 22"}));
}

TEST_P(SpinDraw, LeavesRoomForTheFrameThatItSharesWithItsBuddy) {
    Make(UDS_ALIGNRIGHT);
    EXPECT_EQ(Drawn(), (Lines{"right 0 0 20 23", "first 2 2 18 12", "second 2 12 18 21"}));
    m_Spin.Detach(tvWnd::Window::Destroy);
    Make(UDS_ALIGNLEFT);
    EXPECT_EQ(Drawn(), (Lines{"left 0 0 20 23", "first 2 2 18 12", "second 2 12 18 21"}));
}

TEST_P(SpinDraw, GoesAcrossIfItIsHorizontal) {
    Make(UDS_HORZ, false);
    EXPECT_EQ(Drawn(), (Lines{"back 0 0 20 23", "first across 1 1 10 22", "second across 10 1 19 22"}));
}

TEST_P(SpinDraw, StandsOnTheGroundOfTheDialogByItself) {
    Make(0, false);
    const Picture look = Look();
    EXPECT_EQ(look.At(0, 5), TheTheme().m_base);
    EXPECT_EQ(look.At(1, 5), TheTheme().m_border);
    EXPECT_EQ(look.At(2, 2), TheTheme().m_button);
    EXPECT_EQ(look.At(19, 22), TheTheme().m_base);
}

TEST_P(SpinDraw, HasAFrameAtAllSidesButTheBuddys) {
    const tvTheme& theme = TheTheme();
    Make(UDS_ALIGNRIGHT);
    Picture look = Look();
    EXPECT_EQ(look.Count({0, 0, 20, 1}, theme.m_border), 20);
    EXPECT_EQ(look.Count({0, 22, 20, 23}, theme.m_border), 20);
    EXPECT_EQ(look.Count({19, 0, 20, 23}, theme.m_border), 23);
    EXPECT_EQ(look.Count({0, 1, 1, 22}, theme.m_editBg), 21);
    m_Spin.Detach(tvWnd::Window::Destroy);
    Make(UDS_ALIGNLEFT);
    look = Look();
    EXPECT_EQ(look.Count({0, 0, 1, 23}, theme.m_border), 23);
    EXPECT_EQ(look.Count({19, 1, 20, 22}, theme.m_editBg), 21);
}

TEST_P(SpinDraw, LooksJoinedToItsBuddy) {
    const tvTheme& theme = TheTheme();
    for (const DWORD side : {DWORD{UDS_ALIGNRIGHT}, DWORD{UDS_ALIGNLEFT}}) {
        Make(side, true, 0);
        HWND buddy = OuterOf(m_Dialog.Handle(), m_Edit.Handle());
        const RECT edit = PlaceIn(m_Dialog.Handle(), buddy);
        const int seam = side == UDS_ALIGNRIGHT ? edit.right - 2 : edit.left + 2;
        const int middle = edit.top + 11;
        for (int x = seam - 2; x < seam + 2; ++x) {
            EXPECT_EQ(AtDialog(x, middle), theme.m_editBg) << x - seam;
            EXPECT_EQ(AtDialog(x, edit.top), theme.m_border) << x - seam;
            EXPECT_EQ(AtDialog(x, edit.bottom - 1), theme.m_border) << x - seam;
        }
        m_Spin.Detach(tvWnd::Window::Destroy);
        SetWindowRgn(buddy, nullptr, FALSE);
    }
}

TEST_P(SpinDraw, LightsTheHalfUnderTheMouse) {
    const tvTheme& theme = TheTheme();
    Make(0, false);
    MoveMouse(m_Spin.Handle(), 10, 4);
    EXPECT_TRUE(PumpUntil([&] { return Look().At(2, 2) == theme.m_buttonOver; }));
    Picture look = Look();
    EXPECT_EQ(look.At(1, 5), theme.m_borderActive);
    EXPECT_EQ(look.At(2, 20), theme.m_button);
    EXPECT_EQ(look.At(1, 18), theme.m_border);
    MoveMouse(m_Spin.Handle(), 10, 20);
    EXPECT_TRUE(PumpUntil([&] { return Look().At(2, 20) == theme.m_buttonOver; }));
    EXPECT_EQ(Look().At(2, 2), theme.m_button);
    Press();
    EXPECT_TRUE(PumpUntil([&] { return Look().At(2, 20) == theme.m_buttonPush; }));
    EXPECT_EQ(Look().At(2, 2), theme.m_button);
    Release();
    EXPECT_TRUE(PumpUntil([&] { return Look().At(2, 20) == theme.m_buttonOver; }));
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return Look().At(2, 20) == theme.m_button; }));
}

TEST_P(SpinDraw, HasTrianglesThatPointUpAndDown) {
    Make(0, false);
    const Picture look = Look();
    const auto rowsOf = [&](int top, int bottom) {
        std::vector<int> counts;
        for (int y = top; y < bottom; ++y)
            if (const int count = look.Count({2, y, 18, y + 1}, TheTheme().m_text)) counts.push_back(count);
        return counts;
    };
    // As wide as a third of the half, 18 pixels, made odd.
    EXPECT_EQ(rowsOf(2, 11), (std::vector<int>{1, 3, 5, 7}));
    EXPECT_EQ(rowsOf(13, 21), (std::vector<int>{7, 5, 3, 1}));
}

TEST_P(SpinDraw, HasTrianglesThatPointAside) {
    Make(UDS_HORZ, false);
    const Picture look = Look();
    const auto columnsOf = [&](int left, int right) {
        std::vector<int> counts;
        for (int x = left; x < right; ++x)
            if (const int count = look.Count({x, 2, x + 1, 21}, TheTheme().m_text)) counts.push_back(count);
        return counts;
    };
    // Five pixels at least.
    EXPECT_EQ(columnsOf(2, 9), (std::vector<int>{1, 3, 5}));
    EXPECT_EQ(columnsOf(11, 18), (std::vector<int>{5, 3, 1}));
}

TEST_P(SpinDraw, IsLeftToTheSystemUnderSystemDefault) {
    Make(UDS_ALIGNRIGHT);
    EXPECT_FALSE(Drawn().empty());
    const Picture before = Look();
    UseTheme(kSystem, m_Dialog.Handle());
    EXPECT_TRUE(Drawn().empty());
    EXPECT_FALSE(Look() == before);
    UseTheme(GetParam(), m_Dialog.Handle());
    EXPECT_TRUE(Look() == before);
}

TEST_P(SpinDraw, LeavesNothingOfAThemeBehind) {
    Make(0, false);
    const COLORREF border = TheTheme().m_border;
    UseTheme(kSystem, m_Dialog.Handle());
    const Picture look = Look();
    EXPECT_EQ(look.Count({0, 0, 20, 1}, border) + look.Count({0, 11, 20, 12}, border), 0);
}

}  // namespace
