#include "tests/scenarios/size_stage.h"

#include <algorithm>
#include <array>
#include <climits>

#include "shell/app_settings.h"
#include "tests/gui/sizes.h"

using namespace opened;

RECT PlaceOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

RECT RoomOf(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

bool IsWithin(const RECT& inner, const RECT& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

namespace {

// Those of a field stand outside of the pane while the mouse is elsewhere.
bool IsHoverButton(HWND control) {
    const int id = GetDlgCtrlID(control);
    return id >= 2010 && id <= 2013;
}

std::vector<HWND> ControlsOf(HWND pane) {
    std::vector<HWND> controls;
    for (HWND child = GetWindow(pane, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        if (IsWindowVisible(child) != FALSE && !IsHoverButton(child)) controls.push_back(child);
    return controls;
}

LOGFONTW FontOf(int height) {
    LOGFONTW font{};
    font.lfHeight = height;
    font.lfWeight = FW_NORMAL;
    lstrcpyW(font.lfFaceName, L"Tahoma");
    return font;
}

void UseStoredFont(int height) {
    const LOGFONTW font = FontOf(height);
    u8 record[kFontRecordSize] = {};
    std::copy_n(reinterpret_cast<const u8*>(&font), kFontRecordSize, record);
    LoadStoreFontRecord(LoadStore::Store, record);
}

}  // namespace

void SizeStage::SetUp() {
    Scenario::SetUp();
    UseStoredTheme(GetParam().theme);
    if (GetParam().font != 0) UseStoredFont(GetParam().font);
}

void SizeStage::Open(const tvstring& path) {
    ASSERT_NE(m_Program.StartAsking(path), nullptr);
    Unlock(m_Program, u"secret");
    ASSERT_TRUE(WaitUntilOpen(m_Program));
    ASSERT_TRUE(PumpUntil([this] { return IsSeen(tvWnd::FindDescendant(DetailPaneOf(m_Program), kList)); }));
    GoToTheEdge();
}

void SizeStage::OpenDatabase() {
    const tvstring path = InFolder(u"a.VMR");
    MakeDatabase(path, u"A name of some length, longer than there is room for", u"secret");
    Open(path);
}

void SizeStage::GoToTheEdge() {
    constexpr UINT kFlags = SWP_NOZORDER | SWP_NOACTIVATE;
    const RECT place = PlaceOf(m_Program.Main());
    MoveMouseAway();
    SetWindowPos(m_Program.Main(), nullptr, 0, 0, 1, 1, kFlags);
    const RECT least = PlaceOf(m_Program.Main());
    m_Least = {least.right, least.bottom};
    SetWindowPos(m_Program.Main(), nullptr, 0, 0, static_cast<int>(place.right - place.left),
                 static_cast<int>(place.bottom - place.top), kFlags);
    ASSERT_TRUE(Stays());
}

void SizeStage::DragCornerTo(POINT point) {
    HoldCorner();
    MoveCornerTo(point);
    LetGo();
    MoveMouseAway();
    ASSERT_TRUE(Stays());
}

void SizeStage::HoldCorner() {
    constexpr LONG kIn = 4;  // pixels
    const RECT place = PlaceOf(m_Program.Main());
    const RECT room = RoomOf(m_Program.Main());
    m_Beyond = {place.right - room.right + kIn, place.bottom - room.bottom + kIn};
    MoveMouse(m_Program.Main(), static_cast<int>(room.right - room.left - kIn),
              static_cast<int>(room.bottom - room.top - kIn));
    Press();
    ASSERT_TRUE(PumpUntil([this] { return HoldsMouse(m_Program); })) << "the corner cannot be taken";
}

void SizeStage::MoveCornerTo(POINT point) const {
    const POINT corner{std::max(m_Least.x, point.x + m_Beyond.x), std::max(m_Least.y, point.y + m_Beyond.y)};
    ScreenToClient(m_Program.Main(), &point);
    MoveMouse(m_Program.Main(), static_cast<int>(point.x), static_cast<int>(point.y));
    const auto follows = [&] {
        const RECT place = PlaceOf(m_Program.Main());
        return place.right == corner.x && place.bottom == corner.y;
    };
    ASSERT_TRUE(PumpUntil(follows)) << testing::PrintToString(PlaceOf(m_Program.Main())) << " for "
                                    << corner.x << ", " << corner.y;
    SendMessageW(m_Program.Main(), WM_NULL, 0, 0);  // the panes have heard of it
}

void SizeStage::LetGo() const {
    Release();
    ASSERT_TRUE(PumpUntil([this] { return !HoldsMouse(m_Program); })) << "the mouse is held";
}

bool SizeStage::Stays() const {
    u64 last = 0;
    return PumpUntil([&] {
        DWORD_PTR answer = 0;
        SendMessageTimeoutW(m_Program.Main(), WM_NULL, 0, 0, SMTO_NORMAL, kWaitLimit, &answer);
        const u64 now = LookOf(m_Program.Main());
        const bool same = now == last;
        last = now;
        return same;
    });
}

void SizeStage::ExpectInOrder(HWND pane, Below below, const std::string& when) {
    RECT room = RoomOf(pane);
    if (below == Below::WhatIsCut) room.bottom = LONG_MAX;
    const std::vector<HWND> controls = ControlsOf(pane);
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const RECT place = PlaceOf(controls[i]);
        const int id = GetDlgCtrlID(controls[i]);
        EXPECT_TRUE(IsWithin(place, room))
            << when << id << ' ' << testing::PrintToString(place) << " in " << testing::PrintToString(room);
        for (std::size_t j = 0; j < i; ++j) {
            const RECT other = PlaceOf(controls[j]);
            RECT common{};
            EXPECT_FALSE(IntersectRect(&common, &place, &other) != FALSE)
                << when << id << ' ' << testing::PrintToString(place) << " and " << GetDlgCtrlID(controls[j])
                << ' ' << testing::PrintToString(other);
        }
    }
}

void SizeStage::ExpectAllInOrder(HWND pane, Below below) const {
    const std::string when = testing::PrintToString(PlaceOf(m_Program.Main())).append(": ");
    ExpectInOrder(m_Program.Main(), Below::Nothing, when);
    ExpectInOrder(pane, below, when);
}

void SizeStage::ExpectAllPanesInOrder() const {
    ExpectAllInOrder(TopPane(), Below::Nothing);
    ExpectAllInOrder(LeftPane(), Below::Nothing);
    ExpectAllInOrder(DetailPaneOf(m_Program), Below::WhatIsCut);
}

void SizeStage::ExpectInOrderAtAllSizes(HWND pane, Below below) {
    constexpr std::array<POINT, 6> kCorners = {
        {{20, 20}, {700, 500}, {1270, 890}, {20, 890}, {1270, 20}, {900, 650}}};
    GoToTheEdge();
    ExpectAllInOrder(pane, below);
    for (const POINT& corner : kCorners) {
        DragCornerTo(corner);
        ExpectAllInOrder(pane, below);
    }
}

std::string NameOfSizeCase(const testing::TestParamInfo<SizeCase>& one) {
    return one.param.name;
}
