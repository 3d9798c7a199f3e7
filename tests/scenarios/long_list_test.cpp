// A database of ten thousand items in the window.
#include "tests/scenarios/long_list_stage.h"

namespace {

using namespace opened;

TEST_P(LongList, ScrollsByTheWheel) {
    ASSERT_TRUE(HasTop(0));
    RollWheel(m_List, 20, 20, -1);
    ASSERT_TRUE(PumpUntil([this] { return TopOf(m_List) > 0; }));
    const int notch = TopOf(m_List);
    RollWheel(m_List, 20, 20, -10);
    EXPECT_TRUE(HasTop(11 * notch)) << TopOf(m_List);
    RollWheel(m_List, 20, 20, 1);
    EXPECT_TRUE(HasTop(10 * notch)) << TopOf(m_List);
    RollWheel(m_List, 20, 20, 20);
    EXPECT_TRUE(HasTop(0)) << TopOf(m_List);
    EXPECT_EQ(SelectedIn(m_List), 1) << "the selection stays";
}

// The bar of a list on the display: its middle, its ends and the middle of its thumb. What GetScrollBarInfo
// tells of another process's list is nothing under Wine, so the thumb is looked for: it has another colour
// than the track, and stands below the upper arrow.
struct Bar {
    int x;
    int top;
    int bottom;
    int thumb;
};

Bar BarOf(HWND list) {
    RECT room{};
    GetClientRect(list, &room);
    MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&room), 2);
    Bar bar{static_cast<int>(room.right) + GetSystemMetrics(SM_CXVSCROLL) / 2, static_cast<int>(room.top),
            static_cast<int>(room.bottom), 0};
    int first = bar.top + GetSystemMetrics(SM_CYVSCROLL);
    int behind = first;
    const auto isThere = [&] {
        const Picture display(GetDesktopWindow());
        const COLORREF track = display.At(bar.x, (bar.top + bar.bottom) / 2);
        const auto isTrack = [&](int y) { return y >= bar.bottom || display.At(bar.x, y) == track; };
        for (first = bar.top + GetSystemMetrics(SM_CYVSCROLL); first < bar.bottom && isTrack(first);)
            ++first;
        for (behind = first; !isTrack(behind);)
            ++behind;
        return behind - first >= 3 && behind < (bar.top + bar.bottom) / 2;
    };
    EXPECT_TRUE(PumpUntil(isThere)) << "the bar has no thumb";
    bar.thumb = (first + behind) / 2;
    return bar;
}

void MoveOnDisplay(int x, int y) {
    MoveMouse(GetDesktopWindow(), x, y);
}

TEST_P(LongList, ScrollsByTheThumb) {
    constexpr int kSteps = 8;
    // The system's own thumb goes back to where it was once the mouse is far from the bar.
    const int beyond = GetParam()[0] == u'S' ? 0 : 50;
    const Bar bar = BarOf(m_List);
    const int arrow = GetSystemMetrics(SM_CYVSCROLL);
    const int way = bar.bottom - arrow - (bar.thumb - bar.top - arrow) - bar.thumb;
    MoveOnDisplay(bar.x, bar.thumb);
    Press();
    ASSERT_TRUE(PumpUntil([this] { return HoldsMouse(m_Program); })) << "the thumb cannot be taken";
    for (int step = 1; step < kSteps; ++step) {
        MoveOnDisplay(bar.x, bar.thumb + way * step / kSteps);
        const int row = LastTop() * step / kSteps;
        EXPECT_TRUE(PumpUntil([&] { return std::abs(TopOf(m_List) - row) < kItems / 50; }))
            << "it follows the mouse: " << TopOf(m_List) << " in place of " << row;
    }
    MoveOnDisplay(bar.x, bar.bottom + beyond);
    EXPECT_TRUE(HasTop(LastTop())) << TopOf(m_List);
    MoveOnDisplay(bar.x, bar.top - beyond);
    EXPECT_TRUE(HasTop(0)) << TopOf(m_List);
    MoveOnDisplay(bar.x, bar.bottom + beyond);
    Release();
    EXPECT_TRUE(HasTop(LastTop())) << TopOf(m_List);
    EXPECT_EQ(SelectedIn(m_List), 1) << "the selection stays";
}

TEST_P(LongList, ScrollsByKeysAndShowsTheItemThatIsReached) {
    Type(VK_END);
    EXPECT_TRUE(HasTop(LastTop())) << TopOf(m_List);
    EXPECT_EQ(ShownName(m_Program), NameOf(kItems - 1));
    Type(VK_UP);
    EXPECT_EQ(ShownName(m_Program), NameOf(kItems - 2));
    Type(VK_HOME);
    EXPECT_TRUE(HasTop(0));
    EXPECT_EQ(ShownName(m_Program), NameOf(0));
    Type(VK_NEXT);
    Type(VK_NEXT);
    ASSERT_TRUE(PumpUntil([this] { return TopOf(m_List) > 0; }));
    const int page = kItems - LastTop();
    EXPECT_GT(TopOf(m_List), page / 2);
    EXPECT_LT(TopOf(m_List), 2 * page);
    Type(VK_HOME);
    ASSERT_TRUE(HasTop(0));
    Type(VK_END, HOLD_SHIFT);
    EXPECT_TRUE(HasSelected(kItems));
}

TEST_P(LongList, IsSearchedWithEachCharacter) {
    SearchFor(u"needle");
    EXPECT_TRUE(HasRows(kWithWord)) << RowsOf(m_List);
    EXPECT_EQ(SelectedIn(m_List), 1) << "the first item still matches";
    TypeText(u"s");
    EXPECT_TRUE(HasRows(0)) << RowsOf(m_List);
    EXPECT_EQ(SelectedIn(m_List), 0);
    Type(VK_BACK);
    EXPECT_TRUE(HasRows(kWithWord)) << RowsOf(m_List);
    GoToList();
    Type(VK_END);
    EXPECT_EQ(ShownName(m_Program), NameOf(kItems - kItems / kWithWord));
    SearchFor(u"user777");
    EXPECT_TRUE(HasRows(11)) << "by their user names: " << RowsOf(m_List);
    GoToList();
    SearchFor(u"");
    EXPECT_TRUE(HasRows(kItems)) << RowsOf(m_List);
}

INSTANTIATE_TEST_SUITE_P(Themes, LongList, testing::ValuesIn(kLongListThemes), NameOfLongListTheme);

}  // namespace
