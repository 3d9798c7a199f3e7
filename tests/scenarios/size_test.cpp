// Windows and fonts of all sizes: controls stand apart and within their panes.
#include <array>

#include "tests/gui/sizes.h"
#include "tests/scenarios/size_stage.h"

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

INSTANTIATE_TEST_SUITE_P(Themes, Sizes, testing::ValuesIn(kSizeCases), NameOfSizeCase);
INSTANTIATE_TEST_SUITE_P(Themes, Drag, testing::ValuesIn(kSizeCases), NameOfSizeCase);

}  // namespace
