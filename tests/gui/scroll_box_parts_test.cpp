// The parts of a scroll bar and the drag of its thumb, from numbers.
#include "toolkit/scroll_parts.h"

#include <gtest/gtest.h>

#include "tests/gui/sizes.h"
#include "toolkit/rect.h"

namespace {

constexpr RECT kBar{100, 10, 117, 210};  // 200 pixels high
constexpr int kLine = 17;
constexpr int kLeast = 17;

ScrollRects PartsOf(const ScrollMeasure& measure) {
    ScrollRects parts{};
    parts[SCROLL_HOST] = {0, 0, 120, 220};
    PlaceScrollParts(measure, parts);
    return parts;
}

RECT Across(int top, int bottom) {
    return {kBar.left, top, kBar.right, bottom};
}

TEST(ScrollParts, FillTheBarFromArrowToArrow) {
    const ScrollRects parts = PartsOf({kBar, kLine, 50, 90, kLeast});
    EXPECT_EQ(parts[SCROLL_BAR], kBar);
    EXPECT_EQ(parts[SCROLL_UP], Across(10, 27));
    EXPECT_EQ(parts[SCROLL_PAGE_UP], Across(27, 60));
    EXPECT_EQ(parts[SCROLL_THUMB], Across(60, 100));
    EXPECT_EQ(parts[SCROLL_PAGE_DOWN], Across(100, 193));
    EXPECT_EQ(parts[SCROLL_DOWN], Across(193, 210));
    EXPECT_EQ(parts[SCROLL_HOST], (RECT{0, 0, 120, 220}));
}

TEST(ScrollParts, KeepTheThumbOffTheArrows) {
    EXPECT_EQ(PartsOf({kBar, kLine, 5, 45, kLeast})[SCROLL_THUMB], Across(27, 67));
    EXPECT_EQ(PartsOf({kBar, kLine, 160, 200, kLeast})[SCROLL_THUMB], Across(170, 193));
}

TEST(ScrollParts, LengthenAShortThumbAboutItsMiddle) {
    const ScrollRects parts = PartsOf({kBar, kLine, 90, 97, kLeast});
    EXPECT_EQ(parts[SCROLL_THUMB], Across(95, 112));
    EXPECT_EQ(parts[SCROLL_PAGE_UP].bottom, 95);
    EXPECT_EQ(parts[SCROLL_PAGE_DOWN].top, 112);
}

TEST(ScrollParts, PushALengthenedThumbIntoTheTrack) {
    EXPECT_EQ(PartsOf({kBar, kLine, 17, 24, kLeast})[SCROLL_THUMB], Across(27, 44));
    EXPECT_EQ(PartsOf({kBar, kLine, 176, 183, kLeast})[SCROLL_THUMB], Across(176, 193));
}

TEST(ScrollParts, KeepAThumbOfAnyLengthWithoutALeastOne) {
    EXPECT_EQ(PartsOf({kBar, kLine, 90, 97, 0})[SCROLL_THUMB], Across(100, 107));
}

TEST(ScrollParts, AreArrowsAloneWhereATrackIsTooShortForAThumb) {
    const RECT bar{0, 0, 17, 50};  // 16 between the arrows
    const ScrollRects parts = PartsOf({bar, kLine, 17, 25, kLeast});
    EXPECT_EQ(parts[SCROLL_UP], (RECT{0, 0, 17, 17}));
    EXPECT_EQ(parts[SCROLL_DOWN], (RECT{0, 33, 17, 50}));
    for (const int part : {SCROLL_PAGE_UP, SCROLL_THUMB, SCROLL_PAGE_DOWN})
        EXPECT_TRUE(IsRectEmpty(&parts[static_cast<std::size_t>(part)])) << part;
}

TEST(ScrollParts, HaveAThumbWhereATrackIsJustLongEnough) {
    const RECT bar{0, 0, 17, 51};
    EXPECT_EQ(PartsOf({bar, kLine, 17, 25, kLeast})[SCROLL_THUMB], (RECT{0, 17, 17, 34}));
}

TEST(ScrollParts, ShareALowBarBetweenTheArrows) {
    const RECT bar{0, 0, 17, 20};
    const ScrollRects parts = PartsOf({bar, kLine, 0, 0, kLeast});
    EXPECT_EQ(parts[SCROLL_UP], (RECT{0, 0, 17, 10}));
    EXPECT_EQ(parts[SCROLL_DOWN], (RECT{0, 10, 17, 20}));
}

// --- The part at a point ---

class ScrollHit : public testing::Test {
protected:
    [[nodiscard]] int At(int y, int x = 105) const { return HitScrollPart(m_Parts, m_States, {x, y}); }

    ScrollRects m_Parts = PartsOf({kBar, kLine, 50, 90, kLeast});
    ScrollStates m_States{};
};

TEST_F(ScrollHit, FindsEachPart) {
    EXPECT_EQ(At(10), SCROLL_UP);
    EXPECT_EQ(At(27), SCROLL_PAGE_UP);
    EXPECT_EQ(At(60), SCROLL_THUMB);
    EXPECT_EQ(At(100), SCROLL_PAGE_DOWN);
    EXPECT_EQ(At(193), SCROLL_DOWN);
}

TEST_F(ScrollHit, FindsWhatIsAroundTheBar) {
    EXPECT_EQ(At(5), SCROLL_HOST);
    EXPECT_EQ(At(50, 20), SCROLL_HOST);
    EXPECT_EQ(At(50, 130), SCROLL_NONE);
    EXPECT_EQ(At(-1), SCROLL_NONE);
}

TEST_F(ScrollHit, TakesAPartThatIsHeld) {
    m_States[SCROLL_UP] = STATE_SYSTEM_PRESSED;
    EXPECT_EQ(At(10), SCROLL_UP);
}

TEST_F(ScrollHit, PassesOverAPartThatIsOfNoUse) {
    m_States[SCROLL_PAGE_UP] = STATE_SYSTEM_INVISIBLE;
    EXPECT_EQ(At(40), SCROLL_BAR);
    m_States[SCROLL_BAR] = STATE_SYSTEM_UNAVAILABLE;
    EXPECT_EQ(At(40), SCROLL_HOST);
}

// --- Dragging ---

ScrollDrag TakenAt(int y) {
    ScrollDrag drag;
    drag.trackTop = 27;
    drag.trackEnd = 193;
    drag.thumb = Across(60, 100);
    drag.offset = y - 60;
    return drag;
}

TEST(ScrollDrag, KeepsTheThumbUnderTheMouse) {
    ScrollDrag drag = TakenAt(70);
    EXPECT_TRUE(DragThumb(drag, 90));
    EXPECT_EQ(drag.thumb, Across(80, 120));
    EXPECT_FALSE(DragThumb(drag, 90));
}

TEST(ScrollDrag, KeepsTheThumbInTheTrack) {
    ScrollDrag drag = TakenAt(70);
    EXPECT_TRUE(DragThumb(drag, -1000));
    EXPECT_EQ(drag.thumb, Across(27, 67));
    EXPECT_FALSE(DragThumb(drag, -2000));
    EXPECT_TRUE(DragThumb(drag, 1000));
    EXPECT_EQ(drag.thumb, Across(153, 193));
}

TEST(ScrollDrag, BringsTheThumbBackFromBeyondTheTrack) {
    ScrollDrag drag = TakenAt(70);
    DragThumb(drag, 1000);
    DragThumb(drag, 75);
    EXPECT_EQ(drag.thumb, Across(65, 105));
}

int PositionFor(int top, const ScrollRange& range) {
    ScrollDrag drag = TakenAt(60);
    drag.thumb = Across(top, top + 40);
    return DraggedPosition(drag, range);
}

TEST(ScrollDrag, StandsForAPositionBetweenTheEnds) {
    const ScrollRange range{0, 20, 12};  // the last position is 9
    EXPECT_EQ(PositionFor(27, range), 0);
    EXPECT_EQ(PositionFor(153, range), 9);
    EXPECT_EQ(PositionFor(90, range), 5);  // 4.5, rounded up
    EXPECT_EQ(PositionFor(89, range), 4);
}

TEST(ScrollDrag, CountsFromTheLeastPosition) {
    const ScrollRange range{5, 104, 10};
    EXPECT_EQ(PositionFor(27, range), 5);
    EXPECT_EQ(PositionFor(90, range), 50);  // 5 and half of 90
    EXPECT_EQ(PositionFor(153, range), 90);
}

TEST(ScrollDrag, StandsForTheLeastPositionWhereThereIsNoRoomToDrag) {
    ScrollDrag drag = TakenAt(60);
    drag.trackEnd = 67;
    drag.thumb = Across(27, 67);
    EXPECT_EQ(DraggedPosition(drag, {3, 20, 5}), 3);
    drag.trackEnd = 50;
    EXPECT_EQ(DraggedPosition(drag, {3, 20, 5}), 3);
}

}  // namespace
