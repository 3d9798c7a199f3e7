// Where a window stands at first, and what is kept of that.
#include <cstring>

#include "foundation/product.h"
#include "foundation/registry.h"
#include "shell/last_window.h"
#include "shell/window_placement.h"
#include "tests/app/app_stage.h"
#include "tests/gui/sizes.h"

namespace {

constexpr float kFromTemplate = 0.4F;
constexpr RECT kPlace{100, 120, 500, 420};

void StoreRect(const RECT& rect) {
    const RegKey key(kSettingsKey, RegKey::For::Writing);
    ASSERT_TRUE(RegWriteValue(key.Get(), u"WindowPos", &rect, sizeof rect, kRegBinary));
}

void StoreRest(u32 maximised, float fraction) {
    const RegKey key(kSettingsKey, RegKey::For::Writing);
    ASSERT_TRUE(RegWriteWord(key.Get(), u"WindowMax", maximised));
    ASSERT_TRUE(RegWriteValue(key.Get(), u"SpPercent", &fraction, sizeof fraction, kRegBinary));
}

template <typename Value>
Value Stored(const char16_t* name) {
    Value value{};
    const tvdata data = RegReadUserValue(kSettingsKey, name, nullptr);
    EXPECT_EQ(data.Size(), sizeof value);
    if (data.Size() == sizeof value) std::memcpy(&value, data.Data(), sizeof value);
    return value;
}

RECT WorkArea() {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

// A window that could be a main window, hidden, 300 by 200 at (50, 60).
class Placement : public AppTest {
protected:
    Placement() {
        NoteLastMainWindow(nullptr);
        m_Plain = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 50, 60, 300, 200, nullptr, nullptr,
                                  nullptr, nullptr);
    }
    ~Placement() override {
        DestroyWindow(m_Plain);
        NoteLastMainWindow(nullptr);
    }
    void Load() { LoadStorePlacement(LoadStore::Load, m_Plain, m_Fraction); }
    void Store() { LoadStorePlacement(LoadStore::Store, m_Plain, m_Fraction); }
    [[nodiscard]] RECT Place() const {
        RECT rect{};
        GetWindowRect(m_Plain, &rect);
        return rect;
    }
    [[nodiscard]] RECT Restored() const {
        WINDOWPLACEMENT placement{};
        placement.length = sizeof placement;
        GetWindowPlacement(m_Plain, &placement);
        return placement.rcNormalPosition;
    }
    // Two thirds of the work area's width, in its middle, at the window's own proportions.
    [[nodiscard]] static RECT FirstPlace() {
        const RECT area = WorkArea();
        const LONG width = (area.right - area.left) * 2 / 3;
        const LONG height = width * 200 / 300;
        const LONG left = area.left + (area.right - area.left - width) / 2;
        const LONG top = area.top + (area.bottom - area.top - height) / 2;
        return {left, top, left + width, top + height};
    }
    void ExpectFirstPlace() const {
        const RECT expected = FirstPlace();
        EXPECT_NEAR(Place().left, expected.left, 1);
        EXPECT_NEAR(Place().top, expected.top, 1);
        EXPECT_NEAR(Place().right, expected.right, 1);
        EXPECT_NEAR(Place().bottom, expected.bottom, 1);
    }

    HWND m_Plain = nullptr;
    float m_Fraction = kFromTemplate;
};

// --- Load ---

TEST_F(Placement, OfAFirstRunIsInTheMiddle) {
    Load();
    ExpectFirstPlace();
    EXPECT_FALSE(IsWindowVisible(m_Plain));
    EXPECT_EQ(m_Fraction, kFromTemplate);
}

TEST_F(Placement, OfAFirstRunLeavesALargeWindowWhereItIs) {
    SetWindowPos(m_Plain, nullptr, 10, 20, WorkArea().right - 30, 200, SWP_NOZORDER | SWP_NOACTIVATE);
    const RECT before = Place();
    Load();
    EXPECT_EQ(Place(), before);
}

TEST_F(Placement, OfZerosIsThatOfAFirstRunAndTheRestIsNotRead) {
    StoreRect({0, 0, 0, 0});
    StoreRest(1, 0.7F);
    Load();
    ExpectFirstPlace();
    EXPECT_FALSE(IsZoomed(m_Plain));
    EXPECT_EQ(m_Fraction, kFromTemplate);
}

TEST_F(Placement, IsTheStoredOne) {
    StoreRect(kPlace);
    StoreRest(0, 0.7F);
    Load();
    EXPECT_EQ(Place(), kPlace);
    EXPECT_FALSE(IsWindowVisible(m_Plain));
    EXPECT_EQ(m_Fraction, 0.7F);
}

TEST_F(Placement, LeavesAVisibleWindowVisible) {
    ShowWindow(m_Plain, SW_SHOWNOACTIVATE);
    StoreRect(kPlace);
    Load();
    EXPECT_EQ(Place(), kPlace);
    EXPECT_TRUE(IsWindowVisible(m_Plain));
}

TEST_F(Placement, IsMaximisedForAnythingButZero) {
    StoreRect(kPlace);
    StoreRest(7, 0.7F);
    Load();
    EXPECT_TRUE(IsZoomed(m_Plain));
    EXPECT_EQ(Restored(), kPlace);
}

TEST_F(Placement, OfAMonitorThatHasGoneIsInTheWorkArea) {
    const RECT area = WorkArea();
    // The last of these is still to be seen in part.
    for (const POINT at : {POINT{5000, 3000}, POINT{9000, 9000}, POINT{area.right - 90, area.bottom - 80}}) {
        StoreRect({at.x, at.y, at.x + 400, at.y + 300});
        Load();
        EXPECT_EQ(Place(), (RECT{area.right - 400, area.bottom - 300, area.right, area.bottom}));
    }
    StoreRect({-5000, -3000, -4600, -2700});
    Load();
    EXPECT_EQ(Place(), (RECT{area.left, area.top, area.left + 400, area.top + 300}));
}

TEST_F(Placement, LargerThanTheWorkAreaStandsAtItsTopLeft) {
    const RECT area = WorkArea();
    StoreRect({50, 60, 50 + 9000, 60 + 9000});
    Load();
    EXPECT_EQ(Place().left, area.left);
    EXPECT_EQ(Place().top, area.top);
}

TEST_F(Placement, IsBesideTheWindowThatWasMovedLast) {
    StoreRect(kPlace);
    StoreRest(1, 0.7F);
    const HWND other = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 200, 150, 350,
                                       250, nullptr, nullptr, nullptr, nullptr);
    NoteLastMainWindow(other);
    RECT frame{};
    AdjustWindowRect(&frame, WS_POPUP | WS_CAPTION | WS_SYSMENU, FALSE);
    const LONG shift = frame.bottom - frame.top;
    Load();
    EXPECT_EQ(Place(), (RECT{200 + shift, 150 + shift, 550 + shift, 400 + shift}));
    EXPECT_FALSE(IsZoomed(m_Plain));  // since the other one is not
    DestroyWindow(other);
}

TEST_F(Placement, IsNotedOfTheWindowThatIsSizedOrMaximised) {
    Open();
    NoteLastMainWindow(nullptr);
    SetWindowPos(Window(), nullptr, 0, 0, 900, 700, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(VisibleLastMainWindow(), Window());
    NoteLastMainWindow(nullptr);
    SendMessageW(Window(), WM_SYSCOMMAND, SC_MAXIMIZE, 0);
    EXPECT_EQ(VisibleLastMainWindow(), Window());
    NoteLastMainWindow(nullptr);
    SendMessageW(Window(), WM_SYSCOMMAND, SC_MAXIMIZE, 0);
    EXPECT_EQ(VisibleLastMainWindow(), Window()) << "its size stays, it is noted all the same";
}

// --- Store ---

TEST_F(Placement, IsStoredAsItIsAfterRestoring) {
    ShowWindow(m_Plain, SW_SHOWMAXIMIZED);
    m_Fraction = 0.6F;
    Store();
    EXPECT_EQ(Stored<RECT>(u"WindowPos"), (RECT{50, 60, 350, 260}));
    EXPECT_EQ(Stored<u32>(u"WindowMax"), 1U);
    EXPECT_EQ(Stored<float>(u"SpPercent"), 0.6F);
}

TEST_F(Placement, OfAMinimisedWindowIsMaximisedIfItWasThatBefore) {
    ShowWindow(m_Plain, SW_MINIMIZE);
    Store();
    EXPECT_EQ(Stored<u32>(u"WindowMax"), 0U);
    EXPECT_EQ(Stored<RECT>(u"WindowPos"), (RECT{50, 60, 350, 260}));
    ShowWindow(m_Plain, SW_SHOWMAXIMIZED);
    ShowWindow(m_Plain, SW_MINIMIZE);
    Store();
    EXPECT_EQ(Stored<u32>(u"WindowMax"), 1U);
    EXPECT_EQ(Stored<RECT>(u"WindowPos"), (RECT{50, 60, 350, 260}));
}

TEST_F(Placement, OfTheMainWindowIsStoredWhenItCloses) {
    Open();
    const RECT place{30, 40, 30 + 900, 40 + 600};
    SetWindowPos(Window(), nullptr, 30, 40, 900, 600, SWP_NOZORDER | SWP_NOACTIVATE);
    Main().m_spPercent = 0.55F;
    DestroyWindow(Window());
    EXPECT_EQ(Stored<RECT>(u"WindowPos"), place);
    EXPECT_EQ(Stored<u32>(u"WindowMax"), 0U);
    EXPECT_EQ(Stored<float>(u"SpPercent"), 0.55F);
}

TEST_F(Placement, OfTheMainWindowIsTakenWhenItOpens) {
    const RECT place{30, 40, 30 + 900, 40 + 600};
    StoreRect(place);
    StoreRest(0, 0.55F);
    Open();
    RECT now{};
    GetWindowRect(Window(), &now);
    EXPECT_EQ(now, place);
    EXPECT_EQ(Main().m_spPercent, 0.55F);
}

}  // namespace
