// Windows and fonts of all sizes: controls stand apart and within their panes.
#include <algorithm>
#include <array>
#include <climits>

#include "shell/app_settings.h"
#include "tests/gui/sizes.h"
#include "tests/scenarios/opened.h"

namespace {

using namespace opened;

constexpr int kSmallFont = -9;
constexpr int kLargeFont = -26;

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

struct Case {
    const char16_t* theme;
    int font;  // 0: the system's own
    const char* name;
};

class Sizes : public Scenario, public testing::WithParamInterface<Case> {
protected:
    void SetUp() override {
        Scenario::SetUp();
        UseStoredTheme(GetParam().theme);
        if (GetParam().font != 0) UseStoredFont(GetParam().font);
    }

    void OpenDatabase() {
        const tvstring path = InFolder(u"a.VMR");
        MakeDatabase(path, u"A name of some length, longer than there is room for", u"secret");
        ASSERT_NE(m_Program.StartAsking(path), nullptr);
        Unlock(m_Program, u"secret");
        ASSERT_TRUE(WaitUntilOpen(m_Program));
        ASSERT_TRUE(
            PumpUntil([this] { return IsSeen(tvWnd::FindDescendant(DetailPaneOf(m_Program), kList)); }));
        MoveMouseAway();
    }

    // By the corner of the status bar, to a point of the display.
    void DragCornerTo(int x, int y) const {
        RECT client{};
        GetClientRect(m_Program.Main(), &client);
        MoveMouse(m_Program.Main(), static_cast<int>(client.right) - 4, static_cast<int>(client.bottom) - 4);
        Press();
        POINT point{x, y};
        ScreenToClient(m_Program.Main(), &point);
        MoveMouse(m_Program.Main(), static_cast<int>(point.x), static_cast<int>(point.y));
        Release();
        MoveMouseAway();
        ASSERT_TRUE(Stays());
    }
    // The window keeps its size and is painted.
    [[nodiscard]] bool Stays() const {
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

    // What stands one below the other without a height that gives way is cut at the bottom of a pane that is
    // too low for it: the details with their column of buttons, and under a large font the start page.
    enum class Below { Nothing, WhatIsCut };

    static void ExpectInOrder(HWND pane, Below below, const std::string& when) {
        RECT room = RoomOf(pane);
        if (below == Below::WhatIsCut) room.bottom = LONG_MAX;
        const std::vector<HWND> controls = ControlsOf(pane);
        for (std::size_t i = 0; i < controls.size(); ++i) {
            const RECT place = PlaceOf(controls[i]);
            const int id = GetDlgCtrlID(controls[i]);
            EXPECT_TRUE(IsWithin(place, room)) << when << id << ' ' << testing::PrintToString(place) << " in "
                                               << testing::PrintToString(room);
            for (std::size_t j = 0; j < i; ++j) {
                const RECT other = PlaceOf(controls[j]);
                RECT common{};
                EXPECT_FALSE(IntersectRect(&common, &place, &other) != FALSE)
                    << when << id << ' ' << testing::PrintToString(place) << " and "
                    << GetDlgCtrlID(controls[j]) << ' ' << testing::PrintToString(other);
            }
        }
    }

    void ExpectAllInOrder(HWND pane, Below below) const {
        std::string when = testing::PrintToString(PlaceOf(m_Program.Main())).append(": ");
        ExpectInOrder(m_Program.Main(), Below::Nothing, when);
        ExpectInOrder(pane, below, when);
    }

    // From the smallest size up, and from narrow and high to wide and low.
    void ExpectInOrderAtAllSizes(HWND pane, Below below = Below::Nothing) const {
        constexpr std::array<POINT, 6> kCorners = {
            {{20, 20}, {700, 500}, {1270, 890}, {20, 890}, {1270, 20}, {900, 650}}};
        SetWindowPos(m_Program.Main(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        ASSERT_TRUE(Stays());
        ExpectAllInOrder(pane, below);
        for (const POINT& corner : kCorners) {
            ASSERT_NO_FATAL_FAILURE(DragCornerTo(static_cast<int>(corner.x), static_cast<int>(corner.y)));
            ExpectAllInOrder(pane, below);
        }
    }

    [[nodiscard]] HWND TopPane() const { return GetParent(m_Program.Control(kSaveButton)); }
    [[nodiscard]] HWND LeftPane() const { return GetParent(GetParent(m_Program.Control(kSearchBox))); }
    [[nodiscard]] HWND StartPane() const { return GetParent(m_Program.Control(kCreateButton)); }

    Program m_Program;
};

TEST_P(Sizes, TheStartPageKeepsItsOrder) {
    ASSERT_TRUE(m_Program.Start());
    ExpectInOrderAtAllSizes(StartPane(), GetParam().font == kLargeFont ? Below::WhatIsCut : Below::Nothing);
}

TEST_P(Sizes, TheBarKeepsItsOrder) {
    ASSERT_NO_FATAL_FAILURE(OpenDatabase());
    ExpectInOrderAtAllSizes(TopPane());
}

TEST_P(Sizes, TheItemPaneKeepsItsOrder) {
    ASSERT_NO_FATAL_FAILURE(OpenDatabase());
    ExpectInOrderAtAllSizes(LeftPane());
}

TEST_P(Sizes, TheDetailPaneKeepsItsOrder) {
    ASSERT_NO_FATAL_FAILURE(OpenDatabase());
    ExpectInOrderAtAllSizes(DetailPaneOf(m_Program), Below::WhatIsCut);
}

INSTANTIATE_TEST_SUITE_P(Themes, Sizes,
                         testing::Values(Case{u"Light", 0, "Light"}, Case{u"Light", kSmallFont, "LightSmall"},
                                         Case{u"Light", kLargeFont, "LightLarge"},
                                         Case{u"Dark", kLargeFont, "DarkLarge"},
                                         Case{u"System Default", 0, "SystemDefault"},
                                         Case{u"System Default", kSmallFont, "SystemDefaultSmall"},
                                         Case{u"System Default", kLargeFont, "SystemDefaultLarge"}),
                         [](const auto& one) { return one.param.name; });

}  // namespace
