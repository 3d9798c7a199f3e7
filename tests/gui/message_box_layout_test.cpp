#include "toolkit/message_box_layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/gui/sizes.h"
#include "toolkit/rect.h"

namespace {

// Margins 10 and 12, buttons 80 by 24, a limit of 400 and a screen of 1000 by 700.
MessageBoxMetrics Metrics(int buttons = 1) {
    MessageBoxMetrics metrics;
    metrics.marginX = 10;
    metrics.marginY = 12;
    metrics.border = 2;
    metrics.button = {80, 24};
    metrics.gap = 6;
    metrics.limit = 400;
    metrics.frame = {8, 30};
    metrics.workArea = {1000, 700};
    metrics.icon = {32, 32};
    metrics.buttons = buttons;
    return metrics;
}

// A text of so many letters, each 1 wide, in lines of a height, wrapped anywhere. Notes the widths asked for.
struct Letters {
    int count;
    int lineHeight = 16;
    std::vector<int> asked = {};

    TextMeasure Measure() {
        return [this](int width) -> SIZE {
            asked.push_back(width);
            const int lines = std::max((count + width - 1) / width, 1);
            return {std::min(count, width), lines * lineHeight};
        };
    }
};

}  // namespace

// --- The text ---

TEST(MessageBoxLayout, ShortTextIsThreeTimesAsWideAsHigh) {
    Letters body{5};
    EXPECT_EQ(MeasureMessage(Metrics(), {}, body.Measure()), (SIZE{48, 16}));
    EXPECT_EQ(body.asked.back(), 48) << "measured again at the width that it gets";
}

TEST(MessageBoxLayout, TextOfTheRightShapeKeepsItsWidth) {
    Letters body{49};
    EXPECT_EQ(MeasureMessage(Metrics(), {}, body.Measure()), (SIZE{49, 16}));
    EXPECT_EQ(body.asked.size(), 1U);
}

TEST(MessageBoxLayout, FirstWidthIsTheLimitLessTheRest) {
    Letters body{60};
    MeasureMessage(Metrics(), {}, body.Measure());
    EXPECT_EQ(body.asked.front(), 400 - 42 - 40 - 8);
}

TEST(MessageBoxLayout, WithoutAnIconThereIsNoColumn) {
    MessageBoxMetrics metrics = Metrics();
    metrics.icon = {};
    Letters body{60};
    MeasureMessage(metrics, {}, body.Measure());
    EXPECT_EQ(body.asked.front(), 400 - 40 - 8);
}

TEST(MessageBoxLayout, WidensUpToTheLimitForAHighText) {
    Letters body{310 * 20};  // 20 lines of 310
    // 20 lines are 320 high, so the text may be 400 wide, which makes 16 lines of it.
    EXPECT_EQ(MeasureMessage(Metrics(), {}, body.Measure()), (SIZE{400, 16 * 16}));
}

TEST(MessageBoxLayout, TriesLargerWidthsForATextTooHighForTheScreen) {
    const int highest = 700 - 48 - 30 - 24;
    Letters body{400 * (highest / 16 + 1)};  // one line too many at 400
    const SIZE size = MeasureMessage(Metrics(), {}, body.Measure());
    const int width = 1000 * 5 / 8 - 90;
    EXPECT_EQ(size.cx, width);
    EXPECT_LE(size.cy, highest);
    EXPECT_EQ(body.asked, (std::vector<int>{310, 400, width}));
}

TEST(MessageBoxLayout, GrowsToSevenEighthsOfTheScreenAndNoMore) {
    Letters body{1000000};
    const SIZE size = MeasureMessage(Metrics(), {}, body.Measure());
    EXPECT_EQ(body.asked, (std::vector<int>{310, 400, 535, 660, 785}));
    EXPECT_EQ(size.cx, 785);
    EXPECT_EQ(size.cx + 42 + 40 + 8, 1000 * 7 / 8);
    EXPECT_GT(size.cy, 700) << "the last width stands though the text is too high";
}

TEST(MessageBoxLayout, StopsAtThreeQuartersIfThatIsEnough) {
    const int highest = 700 - 48 - 30 - 24;
    Letters body{535 * (highest / 16) + 600};
    EXPECT_EQ(MeasureMessage(Metrics(), {}, body.Measure()).cx, 660);
    EXPECT_EQ(body.asked.back(), 660);
}

TEST(MessageBoxLayout, TextThatJustFitsIsNotWidened) {
    MessageBoxMetrics metrics = Metrics();
    metrics.workArea.cy = 48 + 30 + 24 + 16 * 10;
    Letters fits{400 * 10};
    EXPECT_EQ(MeasureMessage(metrics, {}, fits.Measure()), (SIZE{400, 160}));
    metrics.workArea.cy -= 1;
    Letters tooHigh{400 * 10};
    EXPECT_GT(MeasureMessage(metrics, {}, tooHigh.Measure()).cx, 400);
}

TEST(MessageBoxLayout, WidthsThatLeaveNothingForTheTextArePassedOver) {
    MessageBoxMetrics metrics = Metrics();
    metrics.limit = 90;  // 90 is taken by icon, margins and frame
    Letters body{100};
    MeasureMessage(metrics, {}, body.Measure());
    EXPECT_EQ(body.asked.front(), 535);
}

TEST(MessageBoxLayout, IsEmptyOnAScreenWithoutRoom) {
    MessageBoxMetrics metrics = Metrics();
    metrics.limit = 50;
    metrics.workArea = {60, 60};
    Letters body{100};
    EXPECT_EQ(MeasureMessage(metrics, {}, body.Measure()), (SIZE{0, 0}));
    EXPECT_TRUE(body.asked.empty());
}

TEST(MessageBoxLayout, HeadingStandsAboveTheBody) {
    Letters heading{200, 30};
    Letters body{150, 16};
    EXPECT_EQ(MeasureMessage(Metrics(), heading.Measure(), body.Measure()), (SIZE{200, 30 + 2 + 16}));
}

TEST(MessageBoxLayout, WidthIsThatOfTheWiderOfHeadingAndBody) {
    Letters heading{100, 30};
    Letters body{250, 16};
    EXPECT_EQ(MeasureMessage(Metrics(), heading.Measure(), body.Measure()).cx, 250);
}

// --- The client area ---

TEST(MessageBoxLayout, ClientHoldsIconTextButtonsAndMargins) {
    EXPECT_EQ(MessageBoxClient(Metrics(), {300, 100}, {}), (SIZE{42 + 300 + 40, 100 + 48 + 24}));
}

TEST(MessageBoxLayout, IconMakesALowTextHigher) {
    EXPECT_EQ(MessageBoxClient(Metrics(), {300, 16}, {}).cy, 32 + 48 + 24);
}

TEST(MessageBoxLayout, ButtonsWidenANarrowText) {
    EXPECT_EQ(MessageBoxClient(Metrics(3), {20, 16}, {}).cx, 42 + (10 + 2 * 6 + 3 * 80) + 40);
    EXPECT_EQ(MessageBoxClient(Metrics(1), {20, 16}, {}).cx, 42 + (10 + 80) + 40);
}

TEST(MessageBoxLayout, CheckBoxAddsItsHeightAndAMargin) {
    EXPECT_EQ(MessageBoxClient(Metrics(), {300, 100}, {90, 20}), (SIZE{382, 100 + 48 + 24 + 20 + 12}));
}

TEST(MessageBoxLayout, WideCheckBoxWidensTheBox) {
    const SIZE client = MessageBoxClient(Metrics(), {100, 100}, {400, 20});
    EXPECT_EQ(client.cx, 42 + (400 - 42 - 10) + 40);
    const RECT frame = {15, 12, client.cx - 15, client.cy - 12};
    EXPECT_EQ(Width(frame), 400) << "it fits between the sides";
}

TEST(MessageBoxLayout, CheckBoxMayBeAsWideAsALimitedBox) {
    EXPECT_EQ(CheckBoxLimit(Metrics()), 42 + 10 + 400);
}

TEST(MessageBoxLayout, IsNeverHigherThanTheScreen) {
    EXPECT_EQ(MessageBoxClient(Metrics(), {700, 5000}, {}).cy, 700 - 30);
}

// --- The title ---

TEST(MessageBoxLayout, TitleWidensANarrowBox) {
    // The title bar takes 92 of 100, a button of it 20, the text 200.
    EXPECT_EQ(WidthForCaption(Metrics(), 150, {100, 92, 20, 200}), 8 + 20 + 200 + 10);
}

TEST(MessageBoxLayout, TitleNeverMakesABoxNarrower) {
    EXPECT_EQ(WidthForCaption(Metrics(), 300, {100, 92, 20, 200}), 300);
}

TEST(MessageBoxLayout, TitleWidensUpToTheLimit) {
    EXPECT_EQ(WidthForCaption(Metrics(), 150, {100, 92, 20, 2000}), 400);
}

TEST(MessageBoxLayout, TitleLeavesABoxOfTheLimitAlone) {
    EXPECT_EQ(WidthForCaption(Metrics(), 400, {100, 92, 20, 2000}), 400);
    EXPECT_EQ(WidthForCaption(Metrics(), 700, {100, 92, 20, 2000}), 700);
}

// --- Places ---

TEST(MessageBoxLayout, ButtonsStandAtTheBottomRightFromRightToLeft) {
    const SIZE client = {500, 300};
    EXPECT_EQ(ButtonPlace(Metrics(3), client, 0), BoxAt(500 - 15 - 80, 300 - 12 - 24, 80, 24));
    EXPECT_EQ(ButtonPlace(Metrics(3), client, 1), BoxAt(500 - 15 - 166, 264, 80, 24));
    EXPECT_EQ(ButtonPlace(Metrics(3), client, 2), BoxAt(500 - 15 - 252, 264, 80, 24));
}

TEST(MessageBoxLayout, CheckBoxStandsAtTheLeftAboveTheButtons) {
    const POINT place = CheckBoxPlace(Metrics(), {500, 300}, {90, 20});
    EXPECT_EQ(place.x, 15);
    EXPECT_EQ(place.y + 20, 300 - 12 - 24 - 12);
}

TEST(MessageBoxLayout, TextHasItsHeightBetweenTheMargins) {
    for (const SIZE check : {SIZE{}, SIZE{90, 20}}) {
        const SIZE client = MessageBoxClient(Metrics(), {300, 100}, check);
        const RECT area = MessageArea(Metrics(), client, check);
        EXPECT_EQ(area.left, 20);
        EXPECT_EQ(area.top, 12);
        EXPECT_EQ(Width(area), 42 + 300);
        EXPECT_GE(Height(area), 100);
    }
}

TEST(MessageBoxLayout, TextThatIsTooHighEndsAboveCheckBoxAndButtons) {
    const SIZE check = {90, 20};
    const SIZE client = MessageBoxClient(Metrics(), {700, 5000}, check);
    const RECT area = MessageArea(Metrics(), client, check);
    EXPECT_LE(area.bottom, CheckBoxPlace(Metrics(), client, check).y);
    EXPECT_LE(area.bottom, ButtonPlace(Metrics(), client, 0).top);
}
