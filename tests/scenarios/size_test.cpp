// Windows and fonts of all sizes: controls stand apart and within their panes.
#include <algorithm>
#include <array>

#include "tests/gui/sizes.h"
#include "tests/scenarios/size_stage.h"
#include "tests/scenarios/user.h"

namespace {

using namespace opened;

class Sizes : public SizeStage {};

TEST_P(Sizes, TheStartPageKeepsItsOrder) {
    ASSERT_TRUE(m_Program.Start());
    ExpectInOrderAtAllSizes(StartPane(), GetParam().font == kLargeFont ? Below::WhatIsCut : Below::Nothing);
}

TEST_P(Sizes, TheBarKeepsItsOrder) {
    OpenDatabase();
    ExpectInOrderAtAllSizes(TopPane());
}

TEST_P(Sizes, TheItemPaneKeepsItsOrder) {
    OpenDatabase();
    ExpectInOrderAtAllSizes(LeftPane());
}

TEST_P(Sizes, TheDetailPaneKeepsItsOrder) {
    OpenDatabase();
    ExpectInOrderAtAllSizes(DetailPaneOf(m_Program), Below::WhatIsCut);
}

// Everything is in its place also at each moment of a drag.
class Drag : public SizeStage {};

TEST_P(Drag, KeepsTheOrderOverTheWholeRange) {
    constexpr std::array<POINT, 6> kCorners = {
        {{20, 20}, {1270, 890}, {20, 890}, {20, 20}, {1270, 20}, {1270, 890}}};
    constexpr int kSteps = 8;
    OpenDatabase();
    HoldCorner();
    for (std::size_t i = 1; i < kCorners.size(); ++i) {
        const POINT from = kCorners[i - 1];
        const POINT to = kCorners[i];
        for (int step = 1; step <= kSteps; ++step) {
            MoveCornerTo(
                {from.x + (to.x - from.x) * step / kSteps, from.y + (to.y - from.y) * step / kSteps});
            ExpectAllPanesInOrder();
        }
    }
    LetGo();
}

class DividerDrag : public SizeStage {
protected:
    void Hold() const {
        const RECT place = PlaceOf(Divider());
        MoveMouse(Divider(), kGrip, static_cast<int>(place.bottom - place.top) / 2);
        Press();
        ASSERT_TRUE(PumpUntil([this] { return HoldsMouse(m_Program); })) << "the divider cannot be taken";
    }
    // To where its left edge would be, counted from that of the window.
    void Move(LONG left) const {
        const RECT room = RoomOf(m_Program.Main());
        const RECT place = PlaceOf(Divider());
        MoveMouse(m_Program.Main(), static_cast<int>(left) + kGrip,
                  static_cast<int>((place.top + place.bottom) / 2 - room.top));
    }
    // The panes are told when the divider has moved.
    [[nodiscard]] bool ArePanesBeside() const {
        const RECT place = PlaceOf(Divider());
        return PlaceOf(LeftPane()).right == place.left &&
               PlaceOf(DetailPaneOf(m_Program)).left == place.right;
    }
    // It stops at the same distance from either side.
    void FindMargin() {
        const LONG before = PlaceOf(Divider()).left;
        Hold();
        Move(0);
        Require([&] { return PlaceOf(Divider()).left < before && ArePanesBeside(); }, "it cannot be moved");
        m_Margin = PlaceOf(Divider()).left - RoomOf(m_Program.Main()).left;
        LetGo();
    }
    void MoveTo(LONG left) const {
        const RECT room = RoomOf(m_Program.Main());
        const RECT place = PlaceOf(Divider());
        const LONG most = room.right - room.left - m_Margin - (place.right - place.left);
        const LONG expected = room.left + std::clamp(left, m_Margin, std::max(m_Margin, most));
        Move(left);
        ASSERT_TRUE(PumpUntil([&] { return PlaceOf(Divider()).left == expected && ArePanesBeside(); }))
            << PlaceOf(Divider()).left << " for " << expected;
        SendMessageW(m_Program.Main(), WM_NULL, 0, 0);  // the panes have heard of it
    }
    [[nodiscard]] HWND Divider() const { return m_Program.Control(2002); }

    static constexpr int kGrip = 2;
    LONG m_Margin = 0;
};

TEST_P(DividerDrag, KeepsTheOrderInTheSmallestWindowAndInALargeOne) {
    constexpr std::array<POINT, 2> kCorners = {{{20, 20}, {1270, 890}}};
    constexpr LONG kSteps = 12;
    OpenDatabase();
    FindMargin();
    for (const POINT& corner : kCorners) {
        DragCornerTo(corner);
        const RECT room = RoomOf(m_Program.Main());
        Hold();
        for (LONG step = 0; step <= 2 * kSteps; ++step) {
            MoveTo((room.right - room.left) * std::min(step, 2 * kSteps - step) / kSteps);
            ExpectAllPanesInOrder();
        }
        LetGo();
    }
}

INSTANTIATE_TEST_SUITE_P(Themes, Sizes, testing::ValuesIn(kSizeCases), NameOfSizeCase);
INSTANTIATE_TEST_SUITE_P(Themes, DividerDrag, testing::ValuesIn(kSizeCases), NameOfSizeCase);
INSTANTIATE_TEST_SUITE_P(Themes, Drag, testing::ValuesIn(kSizeCases), NameOfSizeCase);

}  // namespace
