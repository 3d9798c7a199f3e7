// How large a check box makes itself, and how it is painted.
#include <algorithm>

#include "tests/gui/button_stage.h"
#include "toolkit/check_box.h"
#include "toolkit/text_draw.h"

namespace {

using BoxStage = Stage<tvCheckBox>;

constexpr int kEdge = 6;  // above and below the box, together

int LineHeight(HWND window) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): as the message has it
    return TheTheme().TextHeight(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), nullptr);
}

SIZE TextSize(HWND window, const char16_t* text, UINT flags = DT_SINGLELINE, int width = 1000) {
    const tvClientDC dc(window);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): as the message has it
    const tvSelected selected(dc.Get(), reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)));
    RECT rect{0, 0, width, 1000};
    MeasureText(text, flags, dc.Get(), rect);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

int Gap(HWND window) {
    return static_cast<int>(TextSize(window, u"0").cx) / 2;
}

// Of the box, under a colour theme.
int Side(HWND window) {
    return std::max(13, LineHeight(window));
}

int SystemSide(HWND window) {
    const tvClientDC dc(window);
    const tvThemeHandle theme(OpenThemeData(window, L"Button"));
    SIZE size{};
    if (SUCCEEDED(GetThemePartSize(theme.Get(), dc.Get(), BP_CHECKBOX, 1, nullptr, TS_DRAW, &size)))
        return size.cx;
    return 13 * GetDeviceCaps(dc.Get(), LOGPIXELSX) / 96;
}

int SideIn(std::u16string_view theme, HWND window) {
    return theme == kSystem ? SystemSide(window) : Side(window);
}

UNDER_EACH_THEME(CheckBoxFit);

TEST_P(CheckBoxFit, HasRoomForItsLabelBesideTheBox) {
    BoxStage stage(GetParam(), BS_AUTOCHECKBOX, u"Caption");
    stage.button.FitToText(7, 9, 1000, 1000, false);
    const SIZE text = TextSize(stage.Window(), u"Caption");
    EXPECT_EQ(stage.button.LabelWidth(), text.cx + 2);
    SetWindowPos(stage.Window(), nullptr, 0, 0, 4, 20, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(stage.button.LabelWidth(), 0);
    EXPECT_EQ(tvCheckBox().LabelWidth(), 0);
}

TEST_P(CheckBoxFit, TakesTheWidthOfBoxAndText) {
    BoxStage stage(GetParam(), BS_AUTOCHECKBOX, u"Caption");
    const HWND window = stage.Window();
    const SIZE text = TextSize(window, u"Caption");
    const int least = SideIn(GetParam(), window) + Gap(window) + 6;
    const int height = stage.button.FitToText(7, 9, 1000, 1000, false);
    const RECT place = PlaceIn(stage.dialog.Handle(), window);
    EXPECT_EQ(place.left, 7);
    EXPECT_EQ(place.top, 9);
    EXPECT_EQ(place.right - place.left, least + 2 + text.cx);
    EXPECT_EQ(place.bottom - place.top, height);
    EXPECT_EQ(height, std::max<int>(text.cy + 8, SideIn(GetParam(), window) + kEdge));
}

TEST_P(CheckBoxFit, StaysWithinItsLimits) {
    BoxStage stage(GetParam(), BS_AUTOCHECKBOX, u"A caption that is longer than its room");
    const HWND window = stage.Window();
    const int side = SideIn(GetParam(), window);
    stage.button.FitToText(0, 0, 60, 1000, false);
    EXPECT_EQ(SizeOf(window).cx, 60);
    const int lowest = std::max(side, LineHeight(window)) + kEdge;
    EXPECT_EQ(stage.button.FitToText(0, 0, 60, 5, false), lowest);
    EXPECT_EQ(SizeOf(window).cy, lowest);
    stage.button.FitToText(0, 0, 4, 1000, false);
    EXPECT_EQ(SizeOf(window).cx, side + Gap(window) + 6);
}

TEST_P(CheckBoxFit, KeepsAnExactWidth) {
    BoxStage stage(GetParam(), BS_AUTOCHECKBOX, u"x");
    stage.button.FitToText(0, 0, 300, 1000, true);
    EXPECT_EQ(SizeOf(stage.Window()).cx, 300);
}

TEST_P(CheckBoxFit, WrapsItsTextIfItMay) {
    const char16_t* text = u"Several words that need more than one line";
    BoxStage stage(GetParam(), BS_AUTOCHECKBOX | BS_MULTILINE, text);
    const HWND window = stage.Window();
    const int room = 120 - SideIn(GetParam(), window) - Gap(window) - 6;
    const SIZE wrapped = TextSize(window, text, DT_WORDBREAK, room);
    ASSERT_GT(wrapped.cy, 2 * LineHeight(window) - 4);
    EXPECT_EQ(stage.button.FitToText(0, 0, 120, 1000, true), wrapped.cy + 8);
}

TEST_P(CheckBoxFit, FollowsTextAndFontByItself) {
    BoxStage stage(GetParam(), BS_AUTOCHECKBOX | BS_MULTILINE, u"One");
    const HWND window = stage.Window();
    const SIZE before = SizeOf(window);
    EXPECT_EQ(stage.button.m_autoFit, 1);
    SetWindowTextW(window, L"Several words that certainly need more than one line");
    EXPECT_EQ(SizeOf(window).cx, before.cx);
    EXPECT_GT(SizeOf(window).cy, before.cy);
    SetWindowTextW(window, L"One");
    EXPECT_EQ(SizeOf(window).cy, before.cy);
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()), TRUE);
    EXPECT_GT(SizeOf(window).cy, before.cy);
}

TEST_P(CheckBoxFit, KeepsTheHeightThatItsTextNeeds) {
    const BoxStage stage(GetParam(), BS_AUTOCHECKBOX, u"One");
    const SIZE before = SizeOf(stage.Window());
    SetWindowPos(stage.Window(), nullptr, 0, 0, 70, 99, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(SizeOf(stage.Window()).cx, 70);
    EXPECT_EQ(SizeOf(stage.Window()).cy, before.cy);
}

TEST_P(CheckBoxFit, DoesNothingByItselfOnceItWasFitted) {
    BoxStage stage(GetParam(), BS_AUTOCHECKBOX, u"One");
    stage.button.FitToText(0, 0, 100, 1000, true);
    EXPECT_EQ(stage.button.m_autoFit, 0);
    SetWindowPos(stage.Window(), nullptr, 0, 0, 70, 99, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(SizeOf(stage.Window()).cy, 99);
}

TEST_P(CheckBoxFit, ChangesNothingWhereItFits) {
    BoxStage stage(GetParam(), BS_AUTOCHECKBOX, u"One");
    stage.button.FitToText(3, 4, 100, 1000, false);
    const HandedOn handed(stage.button);
    stage.button.FitToText(3, 4, 100, 1000, false);
    EXPECT_TRUE(handed.Of(WM_WINDOWPOSCHANGING).empty());
    stage.button.FitToText(3, 5, 100, 1000, false);
    EXPECT_EQ(handed.Of(WM_WINDOWPOSCHANGING).size(), 1U);
}

TEST(CheckBoxFitting, MeasuresItsBoxAnewWhenTheThemeChanges) {
    BoxStage stage(kLight, BS_AUTOCHECKBOX, u"");
    const HWND window = stage.Window();
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()), TRUE);
    ASSERT_NE(SystemSide(window), Side(window));
    const int inLight = static_cast<int>(SizeOf(window).cy);
    EXPECT_EQ(inLight, std::max<int>(LineHeight(window), Side(window)) + kEdge);
    stage.button.FitToText(0, 0, 1, 1, false);
    EXPECT_EQ(SizeOf(window).cx, Side(window) + Gap(window) + 6);
    UseTheme(kSystem, stage.dialog.Handle());
    stage.button.FitToText(0, 0, 1, 1, false);
    EXPECT_EQ(SizeOf(window).cx, SystemSide(window) + Gap(window) + 6);
}

TEST(CheckBoxFitting, MeasuresItsBoxAnewWhenTheVisualStyleChanges) {
    struct CountingBox : tvCheckBox {
        void OnAutoFit() override {
            ++m_fits;
            tvCheckBox::OnAutoFit();
        }
        int m_fits = 0;
    };
    Stage<CountingBox> stage(kLight, BS_AUTOCHECKBOX, u"");
    const HWND window = stage.Window();
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()), TRUE);
    ASSERT_NE(SystemSide(window), Side(window));
    ASSERT_TRUE(TheTheme().Apply(TheTheme().FindTheme(tvstring(kSystem))));  // without a word
    const auto fittedWidth = [&] {
        stage.button.FitToText(0, 0, 1, 1, false);
        return SizeOf(window).cx;
    };
    EXPECT_EQ(fittedWidth(), Side(window) + Gap(window) + 6);
    const int fits = stage.button.m_fits;
    SendMessageW(window, WM_THEMECHANGED, 0, 0);
    EXPECT_GT(stage.button.m_fits, fits);
    EXPECT_EQ(fittedWidth(), SystemSide(window) + Gap(window) + 6);
}

// --- Painting ---

class PaintedBox : public tvCheckBox {
public:
    PaintedBox() { m_noAnimation = 1; }
};
using PaintedStage = Stage<PaintedBox>;

UNDER_COLOR_THEMES(CheckBoxPicture);

// The rectangle of the box in the window: 2 from the left, in the middle.
RECT BoxIn(HWND window) {
    const int side = Side(window);
    const int top = 3 + static_cast<int>(SizeOf(window).cy - 6 - side) / 2;
    return {2, top, 2 + side, top + side};
}

TEST_P(CheckBoxPicture, IsABoxInTheColorsOfTheTheme) {
    const PaintedStage stage(GetParam(), BS_AUTOCHECKBOX);
    const Sheet sheet(stage.Window(), 0);
    const RECT box = BoxIn(stage.Window());
    EXPECT_EQ(sheet.At(0, 0), TheTheme().m_base);
    EXPECT_EQ(sheet.At(1, box.top + 3), TheTheme().m_base);
    EXPECT_EQ(sheet.At(box.left, box.top + 3), TheTheme().m_icon);
    EXPECT_EQ(sheet.At(box.left + 1, box.top + 3), TheTheme().m_editBg);
    EXPECT_EQ(sheet.At(box.left + 4, box.top), TheTheme().m_icon);
    EXPECT_GT(sheet.Count(TheTheme().m_text), 10);
}

TEST_P(CheckBoxPicture, ShowsItsState) {
    const PaintedStage stage(GetParam(), BS_AUTO3STATE);
    const RECT box = BoxIn(stage.Window());
    const int x = (box.left + box.right) / 2;
    const int y = (box.top + box.bottom) / 2;
    const auto marks = [&](WPARAM state) {
        SendMessageW(stage.Window(), BM_SETCHECK, state, 0);
        const Sheet sheet(stage.Window(), 0);
        int count = 0;
        for (int i = box.left + 1; i < box.right - 2; ++i)
            for (int k = box.top + 1; k < box.bottom - 2; ++k)
                count += sheet.At(i, k) == TheTheme().m_icon ? 1 : 0;
        return std::pair(count, sheet.At(x, y) == TheTheme().m_icon);
    };
    EXPECT_EQ(marks(BST_UNCHECKED), std::pair(0, false));
    const auto ticked = marks(BST_CHECKED);
    EXPECT_GT(ticked.first, 10);
    const auto filled = marks(BST_INDETERMINATE);
    EXPECT_GT(filled.first, ticked.first);
    EXPECT_TRUE(filled.second);
    EXPECT_EQ(marks(BST_UNCHECKED), std::pair(0, false));
}

TEST_P(CheckBoxPicture, OnTheDisplayFollowsAClick) {
    const PaintedStage stage(GetParam(), BS_AUTOCHECKBOX);
    const Picture before = stage.Look();
    Click(stage.Window(), 6, 8);
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return SendMessageW(stage.Window(), BM_GETCHECK, 0, 0) == BST_CHECKED; }));
    const RECT box = BoxIn(stage.Window());
    const int marked = before.Count(box, TheTheme().m_icon) + 10;
    EXPECT_TRUE(PumpUntil([&] { return stage.Look().Count(box, TheTheme().m_icon) > marked; }));
}

TEST_P(CheckBoxPicture, ShowsTheMouseByItsFrame) {
    const PaintedStage stage(GetParam(), BS_AUTOCHECKBOX);
    const RECT box = BoxIn(stage.Window());
    MoveMouseTo(stage.Window());
    EXPECT_TRUE(
        PumpUntil([&] { return stage.Look().At(box.left, box.top + 3) == TheTheme().m_borderActive; }));
    EXPECT_EQ(stage.Look().At(0, 0), TheTheme().m_base);
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return stage.Look().At(box.left, box.top + 3) == TheTheme().m_icon; }));
}

TEST_P(CheckBoxPicture, IsGrayWhenItIsDisabled) {
    const PaintedStage stage(GetParam(), BS_AUTOCHECKBOX);
    EnableWindow(stage.Window(), FALSE);
    const Picture picture = stage.Look();
    const RECT box = BoxIn(stage.Window());
    EXPECT_EQ(picture.At(0, 0), TheTheme().m_base);
    EXPECT_EQ(picture.At(box.left, box.top + 3), TheTheme().m_border);
    EXPECT_EQ(picture.At(box.left + 1, box.top + 3), TheTheme().m_button);
    EXPECT_GT(picture.Count(TheTheme().m_textGray), 10);
    EXPECT_EQ(picture.Count(TheTheme().m_text), 0);
}

TEST_P(CheckBoxPicture, OfARadioButtonIsRound) {
    const PaintedStage stage(GetParam(), BS_AUTORADIOBUTTON);
    const RECT box = BoxIn(stage.Window());
    const int middle = (box.left + box.right) / 2;
    const int down = (box.top + box.bottom) / 2;
    const Sheet empty(stage.Window(), 0);
    EXPECT_EQ(empty.At(box.left, box.top), TheTheme().m_base);
    EXPECT_EQ(empty.At(middle, down), TheTheme().m_editBg);
    EXPECT_EQ(empty.At(box.left, down), TheTheme().m_icon);
    SendMessageW(stage.Window(), BM_SETCHECK, BST_CHECKED, 0);
    const Sheet chosen(stage.Window(), 0);
    EXPECT_EQ(chosen.At(middle, down), TheTheme().m_icon);
    const int inset = Side(stage.Window()) / 4;
    EXPECT_EQ(chosen.At(box.left + inset - 2, down), TheTheme().m_editBg);
    EXPECT_EQ(chosen.At(box.left + inset + 1, down), TheTheme().m_icon);
}

TEST_P(CheckBoxPicture, HasItsBoxAtTheRightIfTheStyleSaysSo) {
    for (const bool byExtendedStyle : {false, true}) {
        PaintedStage stage(GetParam(), BS_AUTOCHECKBOX | (byExtendedStyle ? 0UL : DWORD{BS_LEFTTEXT}));
        if (byExtendedStyle) stage.button.ModifyStyleEx(0, WS_EX_RIGHT);
        const Sheet sheet(stage.Window(), 0);
        const RECT box = BoxIn(stage.Window());
        const int side = Side(stage.Window());
        const int left = static_cast<int>(sheet.size.cx) - 2 - side;
        EXPECT_EQ(sheet.At(left, box.top + 3), TheTheme().m_icon);
        EXPECT_EQ(sheet.At(left + 1, box.top + 3), TheTheme().m_editBg);
        EXPECT_EQ(sheet.At(left - 1, box.top + 3), TheTheme().m_base);
        // The text begins at the left edge.
        EXPECT_LE(sheet.ExtentOf(TheTheme().m_text).left, 5);
    }
}

TEST(CheckBoxPlace, OfBoxAndTextFollowsTheStyle) {
    // In this theme the text has a colour of its own.
    PaintedStage stage(kLight, BS_AUTOCHECKBOX, u"n");
    stage.button.FitToText(0, 0, 120, 1000, true);
    SetWindowPos(stage.Window(), nullptr, 0, 0, 120, 80, SWP_NOMOVE | SWP_NOZORDER);
    const auto extents = [&](unsigned align) {
        stage.button.SetContentAlign(align);
        const Sheet sheet(stage.Window(), 0);
        return std::pair(sheet.ExtentOf(TheTheme().m_editBg), sheet.ExtentOf(TheTheme().m_text));
    };
    const auto [topBox, topText] = extents(0);
    const auto [middleBox, middleText] = extents(ALIGN_MIDDLE);
    const auto [bottomBox, bottomText] = extents(ALIGN_BOTTOM | ALIGN_RIGHT);
    EXPECT_EQ(topBox.top, 4);
    EXPECT_LT(topText.bottom, 30);
    EXPECT_NEAR(middleBox.top + middleBox.bottom, 80, 2);
    EXPECT_GT(middleText.top, 30);
    EXPECT_LT(middleText.bottom, 55);
    EXPECT_GE(bottomBox.bottom, 75);
    EXPECT_GT(bottomText.top, 55);
    EXPECT_LT(topText.left, 40);
    EXPECT_GT(bottomText.left, 100);
}

TEST_P(CheckBoxPicture, CentersTextOfSeveralLines) {
    PaintedStage stage(GetParam(), BS_AUTOCHECKBOX | BS_MULTILINE, u"nn nn nn nn");
    stage.button.FitToText(0, 0, 60, 1000, true);
    SetWindowPos(stage.Window(), nullptr, 0, 0, 60, 120, SWP_NOMOVE | SWP_NOZORDER);
    const RECT text = Sheet(stage.Window(), 0).ExtentOf(TheTheme().m_text);
    EXPECT_GT(text.bottom - text.top, LineHeight(stage.Window()));
    EXPECT_NEAR(text.top + text.bottom, 120, 8);
}

TEST_P(CheckBoxPicture, HasDotsAroundItsTextWithTheFocus) {
    PaintedStage stage(GetParam(), BS_AUTOCHECKBOX, u"n");
    const HWND window = stage.Window();
    const int textLeft = 2 + Side(window) + Gap(window);
    const SIZE text = TextSize(window, u"n");
    const int textTop = static_cast<int>(SizeOf(window).cy - text.cy) / 2;
    Focus(stage.dialog, window);
    const Sheet with(window, ODS_FOCUS);
    const Sheet without(window, 0);
    RECT dots{};
    for (int y = 0; y < with.size.cy; ++y) {
        for (int x = 0; x < with.size.cx; ++x) {
            const RECT pixel{x, y, x + 1, y + 1};
            if (with.At(x, y) != without.At(x, y)) UnionRect(&dots, &dots, &pixel);
        }
    }
    EXPECT_EQ(dots.left, textLeft - 1);
    EXPECT_EQ(dots.top, textTop - 1);
    EXPECT_NEAR(dots.right, textLeft + text.cx + 1, 1);
    EXPECT_NEAR(dots.bottom, textTop + text.cy + 1, 1);
    EXPECT_TRUE(Sheet(window, ODS_FOCUS | ODS_NOFOCUSRECT) == without);
}

TEST_P(CheckBoxPicture, KeepsTheDotsInsideTheWindow) {
    PaintedStage stage(GetParam(), BS_AUTOCHECKBOX, u"A caption that is longer than its room");
    stage.button.FitToText(0, 0, 60, 1000, true);
    const Sheet with(stage.Window(), ODS_FOCUS);
    const int right = static_cast<int>(with.size.cx) - 1;
    int dots = 0;
    for (int y = 0; y < with.size.cy; ++y) {
        EXPECT_EQ(with.At(right, y), TheTheme().m_base);
        dots += with.At(right - 1, y) == TheTheme().m_text ? 1 : 0;
    }
    EXPECT_GT(dots, 3);
}

TEST_P(CheckBoxPicture, WithoutTextHasNoDots) {
    const PaintedStage stage(GetParam(), BS_AUTOCHECKBOX, u"");
    EXPECT_TRUE(Sheet(stage.Window(), ODS_FOCUS) == Sheet(stage.Window(), 0));
}

}  // namespace
