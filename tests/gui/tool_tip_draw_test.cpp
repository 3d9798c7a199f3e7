// What tool tips look like.
#include "tests/gui/late_functions_guard.h"
#include "tests/gui/message_box_harness.h"
#include "tests/gui/sizes.h"
#include "tests/gui/tool_tip_harness.h"
#include "toolkit/rect.h"

namespace {

class ToolTipDraw : public ToolTipTest, public testing::WithParamInterface<const char16_t*> {
protected:
    void SetUp() override {
        ToolTipTest::SetUp();
        UseTheme(GetParam(), m_Dialog.Handle());
    }
    [[nodiscard]] static bool IsSystemDefault() { return TheTheme().m_isSystemDefault; }

    // The picture of the tip with this text; empty if it does not show.
    Picture TipWith(const tvstring& text) {
        RemoveToolTip(m_First);
        AddToolTip(m_First, text);
        const bool shown = HoverShowsTip(m_First);
        EXPECT_TRUE(shown);
        return shown ? Picture(TheToolTip().Handle()) : Picture();
    }
};

// Under System Default the system paints all of it.
class ToolTipColors : public ToolTipDraw {};

RECT Whole(const Picture& picture) {
    return {0, 0, picture.Width(), picture.Height()};
}

// Columns from the first to the last that have the colour.
int InkWidth(const Picture& picture, COLORREF color) {
    RECT ink{};
    for (int x = 0; x < picture.Width(); ++x) {
        const RECT column = BoxAt(x, 0, 1, picture.Height());
        if (picture.Count(column, color) != 0) UnionRect(&ink, &ink, &column);
    }
    return Width(ink);
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Themes, ToolTipDraw, testing::ValuesIn(kTestedThemes), NameOfTheme);
INSTANTIATE_TEST_SUITE_P(Themes, ToolTipColors, testing::Values(u"Light", u"Dark"), NameOfTheme);

TEST_P(ToolTipDraw, ShowsAMenuTextAsPlainText) {
    const Picture menuText = TipWith(u"Move &Up\tCtrl+Up");
    const Picture plain = TipWith(u"Move Up");
    EXPECT_GT(plain.Width(), 20);
    EXPECT_EQ(menuText, plain);
    EXPECT_FALSE(TipWith(u"Move Down") == plain);
}

TEST_P(ToolTipDraw, HasTheColoursOfTheTheme) {
    const Picture picture = TipWith(u"HHHH");
    if (IsSystemDefault()) {
        EXPECT_FALSE(TheToolTip().m_hasFrame) << "the system paints it";
        EXPECT_GT(picture.Count(picture.At(3, picture.Height() - 3)), Width(Whole(picture)));
        return;
    }
    EXPECT_TRUE(TheToolTip().m_hasFrame);
    const RECT whole = Whole(picture);
    const RECT inner = Inset(whole, 1, 1);
    const int frame = Width(whole) * Height(whole) - Width(inner) * Height(inner);
    EXPECT_EQ(picture.Count(TheTheme().m_border) - picture.Count(inner, TheTheme().m_border), frame);
    EXPECT_GT(picture.Count(inner, TheTheme().m_base), Width(inner) * Height(inner) / 2);
    EXPECT_GT(picture.Count(inner, TheTheme().m_text), 10);
}

TEST_P(ToolTipColors, DoesNotFade) {
    static int asked;
    asked = 0;
    const LateFunctionsGuard guard;
    TheLateFunctions().bufferedPaintRenderAnimation.Replace([](HWND, HDC) -> BOOL {
        ++asked;
        return FALSE;
    });
    TipWith(u"First");
    TipWith(u"Second");
    InvalidateRect(TheToolTip().Handle(), nullptr, FALSE);
    Settle(TheToolTip().Handle());
    EXPECT_EQ(asked, 0);
}

TEST_P(ToolTipColors, BreaksItsTextIntoLinesWhereItMayNotBeWider) {
    const Picture oneLine = TipWith(u"HHHH HHHH HHHH");
    TheToolTip().Send(TTM_SETMAXTIPWIDTH, 0, oneLine.Width() / 2);
    const Picture lines = TipWith(u"HHHH HHHH HHHH");
    TheToolTip().Send(TTM_SETMAXTIPWIDTH, 0, -1);
    EXPECT_LT(lines.Width(), oneLine.Width());
    EXPECT_EQ(lines.Count(TheTheme().m_text), oneLine.Count(TheTheme().m_text)) << "nothing is cut off";
}

TEST_P(ToolTipColors, KeepsItsTextClearOfTheFrame) {
    const Picture picture = TipWith(u"HHHH");
    const RECT whole = Whole(picture);
    const RECT inner = Inset(whole, 2, 2);
    EXPECT_EQ(picture.Count(TheTheme().m_text), picture.Count(inner, TheTheme().m_text));
}

TEST_P(ToolTipDraw, IsPaintedAnewWithTheNextText) {
    TipWith(u"First text");
    EXPECT_GT(TipWith(u"A longer second text").Width(), TipWith(u"Third").Width());
}

TEST_P(ToolTipColors, PaintsTheTextThatTheWindowGives) {
    const auto answer = [&](UINT message, WPARAM, LPARAM lParam, LRESULT&) {
        auto* info = reinterpret_cast<NMTTDISPINFOW*>(lParam);
        if (message != WM_NOTIFY || info->hdr.code != TTN_GETDISPINFOW) return false;
        info->lpszText = const_cast<wchar_t*>(L"HHHH");
        return true;
    };
    const Picture expected = TipWith(u"HHHH");
    RemoveToolTip(m_First);
    m_Dialog.m_onMessage = answer;
    TheToolTip().AddCallbackTool(m_Dialog.Handle());
    MoveMouseAway();
    MoveMouse(m_Dialog.Handle(), 150, 90);
    ASSERT_TRUE(PumpUntil([] { return IsUp(TheToolTip()); }));
    Settle(TheToolTip().Handle());
    const Picture asked(TheToolTip().Handle());
    RemoveToolTip(m_Dialog.Handle());
    EXPECT_EQ(asked, expected);

    tvToolTipCtrl tracked;
    tracked.Create(m_Dialog.Handle(), 0);
    tracked.AddTrackingTool(m_Dialog.Handle());
    tracked.Track(m_Dialog.Handle(), true, 300, 300);
    Settle(tracked.Handle());
    EXPECT_GT(Picture(tracked.Handle()).Count(TheTheme().m_text), 10);
}

TEST_P(ToolTipColors, TakesMarksAsTheyAreIfItsStyleSaysSo) {
    const auto inkWith = [&](DWORD style) {
        tvToolTipCtrl tip;
        tip.Create(m_Dialog.Handle(), style);
        m_Dialog.m_onMessage = [](UINT message, WPARAM, LPARAM lParam, LRESULT&) {
            auto* info = reinterpret_cast<NMTTDISPINFOW*>(lParam);
            if (message != WM_NOTIFY || info->hdr.code != TTN_GETDISPINFOW) return false;
            info->lpszText = const_cast<wchar_t*>(L"&&HH");
            return true;
        };
        tip.AddTrackingTool(m_Dialog.Handle());
        tip.Track(m_Dialog.Handle(), true, 300, 300);
        Settle(tip.Handle());
        return InkWidth(Picture(tip.Handle()), TheTheme().m_text);
    };
    EXPECT_GT(inkWith(TTS_NOPREFIX), inkWith(0) + 3);
}

TEST_P(ToolTipColors, BalloonIsFramedAlongItsShape) {
    tvToolTipCtrl tip;
    tip.Create(m_Dialog.Handle(), TTS_BALLOON);
    m_Dialog.m_onMessage = [](UINT message, WPARAM, LPARAM lParam, LRESULT&) {
        auto* info = reinterpret_cast<NMTTDISPINFOW*>(lParam);
        if (message != WM_NOTIFY || info->hdr.code != TTN_GETDISPINFOW) return false;
        info->lpszText = const_cast<wchar_t*>(L"In a balloon of some width");
        return true;
    };
    tip.AddTrackingTool(m_Dialog.Handle());
    tip.Track(m_Dialog.Handle(), true, 300, 300);
    Settle(tip.Handle());
    const Picture picture(tip.Handle());
    const int middle = picture.Width() / 2;
    int framed = 0;
    for (int y = 0; y < picture.Height(); ++y)
        framed += picture.At(middle, y) == TheTheme().m_border ? 1 : 0;
    EXPECT_EQ(framed, 2) << "above and below";
    EXPECT_NE(picture.At(0, 0), TheTheme().m_border) << "no corner is one of the shape";
}
