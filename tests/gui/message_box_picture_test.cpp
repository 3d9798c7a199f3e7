// What a message box looks like.
#include <gtest/gtest.h>

#include "tests/gui/message_box_harness.h"
#include "tests/gui/sizes.h"
#include "tests/gui/test_icon.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"

namespace {

constexpr COLORREF kIconColors[] = {RGB(1, 2, 250), RGB(250, 200, 1), RGB(250, 1, 2), RGB(2, 200, 250)};
constexpr int kIconKeys[] = {ICON_INFORMATION, ICON_WARNING, ICON_ERROR, ICON_QUESTION};

COLORREF BaseColor() {
    return TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE);
}
COLORREF TextColor() {
    return TheTheme().Color(&tvColorTheme::m_text, COLOR_BTNTEXT);
}

// With icons of known colours in place of the system's.
class MessageBoxPicture : public testing::TestWithParam<const char16_t*> {
protected:
    MessageBoxPicture() {
        UseTheme(GetParam());
        const int side = GetSystemMetrics(SM_CXICON);
        for (int i = 0; i < 4; ++i)
            TheTheme().m_icons.Add(kIconKeys[i], SolidIcon(side, kIconColors[i]).Detach());
    }

    // Shows a box and takes its picture.
    void Show(u32 style, const tvstring& text = u"The question.", const tvstring& heading = u"") {
        BoxUnderTest box;
        box.m_heading = heading;
        const auto look = Once([&] {
            MoveMouseAway();
            Settle(box.Handle());
            m_Picture = Picture(box.Handle());
            m_Icon = BoxAt(2 * TheTheme().m_marginX, TheTheme().m_marginY, GetSystemMetrics(SM_CXICON),
                           GetSystemMetrics(SM_CYICON));
            m_Buttons = box.PlaceOf(box.m_button3.Handle()).top;
            m_Buffered = box.m_hasFrame;
            m_Erased = box.Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(tvClientDC(box.Handle()).Get()));
        });
        box.Answer(style, {look, Key(VK_ESCAPE)}, text);
    }

    // The smallest rectangle around the pixels above the buttons that have the colour; empty if none has.
    [[nodiscard]] RECT Ink(COLORREF color) const {
        RECT ink{};
        for (int y = 0; y < m_Buttons; ++y) {
            for (int x = 0; x < m_Picture.Width(); ++x) {
                const RECT pixel = BoxAt(x, y, 1, 1);
                if (m_Picture.At(x, y) == color) UnionRect(&ink, &ink, &pixel);
            }
        }
        return ink;
    }

    Picture m_Picture;
    RECT m_Icon{};
    int m_Buttons = 0;
    bool m_Buffered = false;
    LRESULT m_Erased = 0;

private:
    KeepTheme m_Keep;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Themes, MessageBoxPicture, testing::ValuesIn(kTestedThemes), NameOfTheme);

TEST_P(MessageBoxPicture, IsPaintedThroughTheBufferWithoutErasing) {
    Show(MB_OK);
    EXPECT_TRUE(m_Buffered);
    EXPECT_EQ(m_Erased, 1);
}

TEST_P(MessageBoxPicture, HasTheBackgroundOfTheTheme) {
    Show(MB_OK);
    EXPECT_EQ(m_Picture.At(0, 0), BaseColor());
    EXPECT_EQ(m_Picture.At(m_Picture.Width() - 1, m_Picture.Height() - 1), BaseColor());
}

TEST_P(MessageBoxPicture, HasTheIconOfItsStyle) {
    constexpr u32 kStyles[] = {MB_ICONINFORMATION, MB_ICONWARNING, MB_ICONERROR, MB_ICONQUESTION};
    for (int i = 0; i < 4; ++i) {
        Show(MB_RETRYCANCEL | kStyles[i]);
        EXPECT_EQ(Ink(kIconColors[i]), m_Icon) << i;
    }
}

TEST_P(MessageBoxPicture, HasTheUsualIconOfItsSetWithoutAStyle) {
    constexpr struct {
        u32 style;
        int icon;
    } kUsual[] = {{MB_OK, 0}, {9, 0}, {MB_OKCANCEL, 1}, {MB_YESNO, 3}, {MB_YESNOCANCEL, 3}};
    for (const auto& usual : kUsual) {
        Show(usual.style);
        EXPECT_EQ(Ink(kIconColors[usual.icon]), m_Icon) << usual.style;
    }
}

TEST_P(MessageBoxPicture, HasNoIconWhereNoneIsUsual) {
    for (const u32 style : {u32{MB_ABORTRETRYIGNORE}, u32{MB_RETRYCANCEL}, u32{MB_CANCELTRYCONTINUE}}) {
        Show(style);
        for (const COLORREF color : kIconColors)
            EXPECT_EQ(Ink(color), RECT{}) << style;
        EXPECT_GE(Ink(TextColor()).left, m_Icon.right + TheTheme().m_marginX) << "its column stays free";
    }
}

TEST_P(MessageBoxPicture, HasNoColumnForTheIconIfThereIsToBeNone) {
    Show(MB_OK | MESSAGE_ICON_NONE);
    const RECT ink = Ink(TextColor());
    EXPECT_GE(ink.left, m_Icon.left);
    EXPECT_LT(ink.left, m_Icon.left + 8);
    for (const COLORREF color : kIconColors)
        EXPECT_EQ(Ink(color), RECT{});
}

TEST_P(MessageBoxPicture, HasATickInTheColourOfTheTheme) {
    Show(MB_OK | MESSAGE_ICON_TICK);
    const RECT tick = Ink(TheTheme().Color(&tvColorTheme::m_borderActive, COLOR_HOTLIGHT));
    RECT inside;
    ASSERT_TRUE(IntersectRect(&inside, &tick, &m_Icon));
    EXPECT_EQ(inside, tick);
    EXPECT_GT(Width(tick), 8);
    EXPECT_GE(Ink(TextColor()).left, m_Icon.right);
}

TEST_P(MessageBoxPicture, HasALowTextInTheMiddleOfTheIcon) {
    Show(MB_OK, u"HHHH");
    const RECT ink = Ink(TextColor());
    EXPECT_GE(ink.left, m_Icon.right + TheTheme().m_marginX);
    EXPECT_NEAR((ink.top + ink.bottom) / 2, (m_Icon.top + m_Icon.bottom) / 2, 2);
}

TEST_P(MessageBoxPicture, HasAHighTextFromTheTop) {
    Show(MB_OK, u"H\r\nH\r\nH\r\nH\r\nH");
    EXPECT_LT(Ink(TextColor()).top, m_Icon.top + 8);
    EXPECT_GT(Ink(TextColor()).bottom, m_Icon.bottom);
}

TEST_P(MessageBoxPicture, HasAMarkInTheTextAsItIs) {
    Show(MB_OK | MESSAGE_ICON_NONE, u"&H");
    const int withMark = Width(Ink(TextColor()));
    Show(MB_OK | MESSAGE_ICON_NONE, u"H");
    EXPECT_GT(withMark, Width(Ink(TextColor())) + 3);
}

TEST_P(MessageBoxPicture, GoesToTheNextStopForATabInTheText) {
    Show(MB_OK | MESSAGE_ICON_NONE, u"H\tH");
    const LONG right = Ink(TextColor()).right;
    Show(MB_OK | MESSAGE_ICON_NONE, u"HHH\tH");
    EXPECT_EQ(Ink(TextColor()).right, right);
}

TEST_P(MessageBoxPicture, HasAHeadingAboveTheTextInTheLargeFont) {
    Show(MB_OK | MESSAGE_ICON_NONE, u"H");
    const int small = Height(Ink(TextColor()));
    Show(MB_OK | MESSAGE_ICON_NONE, u"", u"H");
    const RECT heading = Ink(TextColor());
    EXPECT_GT(Height(heading), small);
    Show(MB_OK | MESSAGE_ICON_NONE, u"H", u"H");
    const RECT both = Ink(TextColor());
    EXPECT_EQ(both.top, heading.top);
    EXPECT_GE(Height(both), Height(heading) + TheTheme().m_borderWidth + small);
}

TEST_P(MessageBoxPicture, HasALowHeadingInTheMiddleOfTheIconAndTheTextBelow) {
    Show(MB_OK, u"", u"HHHH");
    const RECT heading = Ink(TextColor());
    EXPECT_NEAR((heading.top + heading.bottom) / 2, (m_Icon.top + m_Icon.bottom) / 2, 2);
    Show(MB_OK, u"H", u"HHHH");
    EXPECT_EQ(Ink(TextColor()).top, heading.top);
    EXPECT_GT(Ink(TextColor()).bottom, heading.bottom + TheTheme().m_borderWidth);
}

TEST_P(MessageBoxPicture, HasNothingOfATextThatIsTooHighBetweenAndBelowTheButtons) {
    tvstring text;
    for (int i = 0; i < 6000; ++i)
        text += u"word after word ";
    Show(MB_OK, text);
    const RECT below = {0, m_Buttons - TheTheme().m_marginY + 2, m_Picture.Width() / 2, m_Picture.Height()};
    EXPECT_EQ(m_Picture.Count(below, BaseColor()), Width(below) * Height(below));
    EXPECT_GT(Ink(TextColor()).bottom, m_Buttons - 60);
}
