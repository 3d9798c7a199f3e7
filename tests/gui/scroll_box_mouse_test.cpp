// What the mouse does on the bar of a scroll box, and the part that is under it.
#include "tests/gui/scroll_box_stage.h"

namespace {

template <typename Stage>
void MoveToPart(Stage& stage, int part) {
    const POINT at = stage.MiddleOf(part);
    MoveMouse(stage.Host(), static_cast<int>(at.x), static_cast<int>(at.y));
}

// Presses a part that the control handles, in a loop of the system's own, and lets it go when the condition
// holds.
template <typename Stage>
void HoldPart(Stage& stage, int part, const std::function<bool()>& until) {
    MoveToPart(stage, part);
    const DuringModal steps({[] {
                                 Press();
                                 return true;
                             },
                             until,
                             [] {
                                 Release();
                                 return true;
                             }});
    EXPECT_TRUE(PumpUntil([&] { return steps.Done(); }, 2 * kWaitLimit));
    PumpQueue();
}

// --- Arrows and pages ---

TEST(ScrollBoxMouse, ScrollsByLinesWithTheArrows) {
    LinesStage stage;
    HoldPart(stage, SCROLL_DOWN, [&] { return stage.TopLine() >= 1; });
    EXPECT_GE(stage.TopLine(), 1);
    const int before = stage.TopLine();
    HoldPart(stage, SCROLL_UP, [&] { return stage.TopLine() < before; });
    EXPECT_LT(stage.TopLine(), before);
}

TEST(ScrollBoxMouse, GoesOnScrollingWhileAnArrowIsHeld) {
    LinesStage stage;
    HoldPart(stage, SCROLL_DOWN, [&] { return stage.TopLine() >= 3; });
    EXPECT_GE(stage.TopLine(), 3);
}

TEST(ScrollBoxMouse, ShowsAnArrowThatIsHeld) {
    LinesStage stage;
    const POINT at = stage.MiddleOf(SCROLL_DOWN);
    HoldPart(stage, SCROLL_DOWN, [&] {
        return PixelAt(stage.Host(), static_cast<int>(at.x), static_cast<int>(at.y)) == TheTheme().m_icon;
    });
    EXPECT_TRUE(PumpUntil([&] {
        return PixelAt(stage.Host(), static_cast<int>(at.x), static_cast<int>(at.y)) == TheTheme().m_border;
    })) << "the mouse is still there";
}

TEST(ScrollBoxMouse, ScrollsByPagesBesideTheThumb) {
    LinesStage stage;
    HoldPart(stage, SCROLL_PAGE_DOWN, [&] { return stage.TopLine() >= 3; });
    const int page = stage.TopLine();
    EXPECT_GE(page, 3);
    HoldPart(stage, SCROLL_PAGE_UP, [&] { return stage.TopLine() < page; });
    EXPECT_LT(stage.TopLine(), page);
}

TEST(ScrollBoxMouse, ScrollsAListWithArrowsAndPages) {
    RowsStage stage;
    HoldPart(stage, SCROLL_DOWN, [&] { return stage.TopRow() >= 1; });
    const int row = stage.TopRow();
    HoldPart(stage, SCROLL_PAGE_DOWN, [&] { return stage.TopRow() > row + 1; });
    EXPECT_GT(stage.TopRow(), row + 1);
}

TEST(ScrollBoxMouse, TakesADoubleClickForTwoClicks) {
    LinesStage stage;
    const POINT at = stage.MiddleOf(SCROLL_THUMB);
    SendMessageW(stage.Host(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    PumpQueue();
    EXPECT_EQ(GetCapture(), stage.Host());
    ReleaseCapture();
    EXPECT_EQ(stage.Box().m_drag.capturedBy, nullptr);
}

TEST(ScrollBoxMouse, DoesNothingOnABarThatIsOfNoUse) {
    LinesStage stage;
    SetWindowTextW(stage.Control(), L"One line");
    Settle(stage.dialog.Handle());
    ASSERT_FALSE(IsRectEmpty(&stage.Box().m_parts[SCROLL_BAR]));
    ASSERT_NE(stage.Box().m_states[SCROLL_BAR] & STATE_SYSTEM_UNAVAILABLE, 0U);
    HandedOn handed(stage.control);
    for (const int part : {SCROLL_UP, SCROLL_PAGE_UP, SCROLL_THUMB, SCROLL_PAGE_DOWN, SCROLL_DOWN}) {
        MoveToPart(stage, part);
        Press();
        EXPECT_EQ(GetCapture(), nullptr);
        Release();
    }
    EXPECT_TRUE(handed.Of(WM_NCLBUTTONDOWN).empty());
    EXPECT_TRUE(handed.Of(WM_VSCROLL).empty());
}

// --- Dragging ---

TEST(ScrollBoxMouse, DragsTheThumb) {
    LinesStage stage;
    const RECT thumb = stage.Part(SCROLL_THUMB);
    const POINT at = stage.MiddleOf(SCROLL_THUMB);
    MoveToPart(stage, SCROLL_THUMB);
    Press();
    EXPECT_EQ(GetCapture(), stage.Host());
    MoveMouse(stage.Host(), static_cast<int>(at.x), static_cast<int>(at.y) + 15);
    EXPECT_EQ(stage.Box().m_drag.thumb.top, thumb.top + 15);
    EXPECT_TRUE(PumpUntil([&] { return stage.TopLine() > 0; }));
    const int top = stage.TopLine();
    EXPECT_LT(top, LastPosition(stage.Control()));
    Release();
    PumpQueue();
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(stage.TopLine(), top);
    EXPECT_EQ(ScrolledTo(stage.Control()), top);
}

template <typename Stage>
void DragBeyondTheTrack(Stage& stage) {
    const RECT track{0, stage.Part(SCROLL_UP).bottom, 0, stage.Part(SCROLL_DOWN).top};
    const POINT at = stage.MiddleOf(SCROLL_THUMB);
    const int last = LastPosition(stage.Control());
    ASSERT_GT(last, 0);
    MoveToPart(stage, SCROLL_THUMB);
    Press();
    MoveMouse(stage.Host(), static_cast<int>(at.x) + 60, static_cast<int>(track.bottom) + 80);
    EXPECT_EQ(stage.Box().m_drag.thumb.bottom, track.bottom);
    EXPECT_TRUE(PumpUntil([&] { return ScrolledTo(stage.Control()) == last; }));
    MoveMouse(stage.Host(), static_cast<int>(at.x) - 60, -40);
    EXPECT_EQ(stage.Box().m_drag.thumb.top, track.top);
    EXPECT_TRUE(PumpUntil([&] { return ScrolledTo(stage.Control()) == 0; }));
    MoveMouse(stage.Host(), static_cast<int>(at.x), static_cast<int>(track.bottom) + 80);
    Release();
    PumpQueue();
    EXPECT_EQ(ScrolledTo(stage.Control()), last);
}

TEST(ScrollBoxMouse, FollowsAThumbThatIsDraggedBeyondTheTrack) {
    LinesStage stage;
    DragBeyondTheTrack(stage);
    EXPECT_GT(stage.TopLine(), 10);
}

TEST(ScrollBoxMouse, FollowsTheThumbOfAListBeyondTheTrack) {
    RowsStage stage;
    DragBeyondTheTrack(stage);
    EXPECT_GT(stage.TopRow(), 10);
}

TEST(ScrollBoxMouse, TellsTheControlOfTheDragAndOfItsEnd) {
    LinesStage stage;
    const POINT at = stage.MiddleOf(SCROLL_THUMB);
    const HandedOn handed(stage.control);
    MoveToPart(stage, SCROLL_THUMB);
    Press();
    MoveMouse(stage.Host(), static_cast<int>(at.x), static_cast<int>(at.y) + 200);
    PumpQueue();
    const auto last = static_cast<WORD>(LastPosition(stage.Control()));
    EXPECT_EQ(handed.Of(WM_VSCROLL), std::vector<WPARAM>{MAKEWPARAM(SB_THUMBTRACK, last)});
    Release();
    PumpQueue();
    EXPECT_EQ(handed.Of(WM_VSCROLL).back(), WPARAM{MAKEWPARAM(SB_THUMBPOSITION, last)});
}

TEST(ScrollBoxMouse, EndsADragWhoseMouseIsTakenAway) {
    LinesStage stage;
    MoveToPart(stage, SCROLL_THUMB);
    Press();
    ASSERT_EQ(stage.Box().m_drag.capturedBy, stage.Host());
    SetCapture(stage.dialog.Handle());
    EXPECT_EQ(stage.Box().m_drag.capturedBy, nullptr);
    Release();
    ReleaseCapture();
}

// --- The wheel ---

TEST(ScrollBoxMouse, ScrollsWithTheWheelOverTheBar) {
    LinesStage stage;
    Focus(stage.dialog, stage.Control());
    const POINT at = stage.MiddleOf(SCROLL_PAGE_DOWN);
    RollWheel(stage.Host(), static_cast<int>(at.x), static_cast<int>(at.y), -1);
    EXPECT_TRUE(PumpUntil([&] { return stage.TopLine() > 0; }));
    EXPECT_EQ(stage.Part(SCROLL_THUMB).top > stage.Part(SCROLL_UP).bottom, true);
}

TEST(ScrollBoxMouse, PassesTheWheelOverItsBarToTheControl) {
    LinesStage stage;
    POINT at = stage.MiddleOf(SCROLL_PAGE_DOWN);
    MoveToPart(stage, SCROLL_PAGE_DOWN);
    ClientToScreen(stage.Host(), &at);
    SendMessageW(stage.Host(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), MAKELPARAM(at.x, at.y));
    EXPECT_EQ(stage.TopLine(), 0) << "it is posted";
    EXPECT_TRUE(PumpUntil([&] { return stage.TopLine() > 0; }));
}

TEST(ScrollBoxMouse, PassesOnTheWheelThatTheControlDoesNotTake) {
    LinesStage stage;
    POINT at = stage.MiddleOf(SCROLL_PAGE_DOWN);
    MoveToPart(stage, SCROLL_PAGE_DOWN);
    ClientToScreen(stage.Host(), &at);
    const HandedOn handed(stage.control);
    stage.dialog.m_messages.clear();
    const WPARAM zoom = MAKEWPARAM(MK_CONTROL, WHEEL_DELTA);
    SendMessageW(stage.Control(), WM_MOUSEWHEEL, zoom, MAKELPARAM(at.x, at.y));
    EXPECT_TRUE(stage.Hears(WM_MOUSEWHEEL, zoom));
    EXPECT_EQ(handed.Of(WM_MOUSEWHEEL).size(), 1U) << "it does not go round";
}

// --- The part under the mouse ---

TEST(ScrollBoxHot, IsThePartUnderTheMouse) {
    LinesStage stage;
    EXPECT_EQ(stage.Box().m_hotPart, SCROLL_NONE);
    for (const int part : {SCROLL_UP, SCROLL_THUMB, SCROLL_PAGE_DOWN, SCROLL_DOWN}) {
        MoveToPart(stage, part);
        EXPECT_TRUE(PumpUntil([&] { return stage.Box().m_hotPart == part; })) << part;
    }
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return stage.Box().m_hotPart == SCROLL_NONE; }));
}

TEST(ScrollBoxHot, IsNoneEachTimeThatTheMouseIsGone) {
    LinesStage stage;
    for (int i = 0; i < 3; ++i) {
        MoveToPart(stage, SCROLL_THUMB);
        ASSERT_TRUE(PumpUntil([&] { return stage.Box().m_hotPart == SCROLL_THUMB; })) << i;
        MoveMouseAway();
        EXPECT_TRUE(PumpUntil([&] { return stage.Box().m_hotPart == SCROLL_NONE; })) << i;
    }
}

TEST(ScrollBoxHot, IsTheBoxWithTheMouseOverTheControl) {
    LinesStage stage;
    MoveMouseTo(stage.Control());
    EXPECT_TRUE(PumpUntil([&] { return stage.Box().m_hotPart == SCROLL_HOST; }));
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return stage.Box().m_hotPart == SCROLL_NONE; }));
}

TEST(ScrollBoxHot, IsTheBoxWhileTheControlHasTheKeyboard) {
    LinesStage stage;
    Focus(stage.dialog, stage.Control());
    EXPECT_EQ(stage.Box().m_hotPart, SCROLL_HOST);
    Focus(stage.dialog, stage.dialog.Item(kBefore));
    EXPECT_EQ(stage.Box().m_hotPart, SCROLL_NONE);
}

TEST(ScrollBoxHot, IsNoneWhileAnotherWindowHasTheMouse) {
    LinesStage stage;
    MoveToPart(stage, SCROLL_THUMB);
    ASSERT_TRUE(PumpUntil([&] { return stage.Box().m_hotPart == SCROLL_THUMB; }));
    SetCapture(stage.dialog.Handle());
    stage.Box().Update();
    EXPECT_EQ(stage.Box().m_hotPart, SCROLL_NONE);
    ReleaseCapture();
    stage.Box().Update();
    EXPECT_EQ(stage.Box().m_hotPart, SCROLL_THUMB);
}

TEST(ScrollBoxHot, IsNoneUnderAnotherWindow) {
    LinesStage stage;
    MoveToPart(stage, SCROLL_THUMB);
    ASSERT_TRUE(PumpUntil([&] { return stage.Box().m_hotPart == SCROLL_THUMB; }));
    const RECT place = PlaceIn(stage.dialog.Handle(), stage.Host());
    SetWindowPos(stage.dialog.Item(kBehind), HWND_TOP, place.left, place.top, Width(place), Height(place), 0);
    stage.Box().Update();
    EXPECT_EQ(stage.Box().m_hotPart, SCROLL_NONE);
}

TEST(ScrollBoxHot, StaysTheThumbWhileThatIsDragged) {
    LinesStage stage;
    MoveToPart(stage, SCROLL_THUMB);
    Press();
    MoveMouse(stage.Host(), 20, 300);
    EXPECT_EQ(stage.Box().m_hotPart, SCROLL_THUMB);
    stage.Box().Update();
    EXPECT_EQ(stage.Box().m_hotPart, SCROLL_THUMB);
    MoveMouseAway();
    Release();
    EXPECT_TRUE(PumpUntil([&] { return stage.Box().m_hotPart == SCROLL_NONE; }));
}

}  // namespace
