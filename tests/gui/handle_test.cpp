#include "toolkit/handle.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

std::vector<int>& Released() {
    static std::vector<int> released;
    return released;
}

int Numbers[4] = {0, 1, 2, 3};

void Note(int* number) noexcept {
    Released().push_back(*number);
}

using Owner = tvowner<int*, Note>;

class Handle : public testing::Test {
protected:
    Handle() { Released().clear(); }
};

TEST_F(Handle, IsReleasedWithItsOwner) {
    { const Owner owner(&Numbers[1]); }
    EXPECT_EQ(Released(), std::vector<int>{1});
}

TEST_F(Handle, NullIsNotReleased) {
    { const Owner owner; }
    EXPECT_TRUE(Released().empty());
    EXPECT_FALSE(Owner());
}

TEST_F(Handle, IsReleasedWhenAnotherTakesItsPlace) {
    Owner owner(&Numbers[1]);
    owner.Reset(&Numbers[2]);
    EXPECT_EQ(Released(), std::vector<int>{1});
    EXPECT_EQ(owner.Get(), &Numbers[2]);
}

TEST_F(Handle, StaysWhenItTakesItsOwnPlace) {
    Owner owner(&Numbers[1]);
    owner.Reset(&Numbers[1]);
    EXPECT_TRUE(Released().empty());
}

TEST_F(Handle, ThatIsDetachedIsNotReleased) {
    Owner owner(&Numbers[1]);
    EXPECT_EQ(owner.Detach(), &Numbers[1]);
    EXPECT_FALSE(owner);
    owner.Reset();
    EXPECT_TRUE(Released().empty());
}

TEST_F(Handle, MovesFromOwnerToOwner) {
    Owner first(&Numbers[1]);
    Owner second(std::move(first));
    EXPECT_FALSE(first);  // NOLINT(bugprone-use-after-move): that it is empty is what is tested
    EXPECT_EQ(second.Get(), &Numbers[1]);
    Owner third(&Numbers[3]);
    third = std::move(second);
    EXPECT_EQ(third.Get(), &Numbers[1]);
    EXPECT_EQ(Released(), std::vector<int>{3});
}

TEST_F(Handle, MovedToItselfStays) {
    Owner owner(&Numbers[1]);
    Owner& same = owner;
    owner = std::move(same);
    EXPECT_EQ(owner.Get(), &Numbers[1]);
    EXPECT_TRUE(Released().empty());
}

TEST_F(Handle, OfTheSystemIsGoneWithItsOwner) {
    HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    HRGN region = CreateRectRgn(0, 0, 1, 1);
    HMENU menu = CreatePopupMenu();
    HDC dc = CreateCompatibleDC(nullptr);
    {
        const tvBrushHandle brushOwner(brush);
        const tvRegionHandle regionOwner(region);
        const tvMenuHandle menuOwner(menu);
        const tvMemoryDCHandle dcOwner(dc);
        EXPECT_EQ(GetObjectType(brush), static_cast<DWORD>(OBJ_BRUSH));
        EXPECT_EQ(GetObjectType(region), static_cast<DWORD>(OBJ_REGION));
        EXPECT_TRUE(IsMenu(menu));
        EXPECT_EQ(GetObjectType(dc), static_cast<DWORD>(OBJ_MEMDC));
    }
    EXPECT_EQ(GetObjectType(brush), 0U);
    EXPECT_EQ(GetObjectType(region), 0U);
    EXPECT_FALSE(IsMenu(menu));
    EXPECT_EQ(GetObjectType(dc), 0U);
}

TEST(Selected, PutsBackWhatWasSelected) {
    const tvMemoryDCHandle dc(CreateCompatibleDC(nullptr));
    const HGDIOBJ before = GetCurrentObject(dc.Get(), OBJ_BRUSH);
    {
        const tvSelected selected(dc.Get(), GetStockObject(GRAY_BRUSH));
        EXPECT_EQ(GetCurrentObject(dc.Get(), OBJ_BRUSH), GetStockObject(GRAY_BRUSH));
    }
    EXPECT_EQ(GetCurrentObject(dc.Get(), OBJ_BRUSH), before);
}

TEST(Selected, LeavesAllAsItIsForNull) {
    const tvMemoryDCHandle dc(CreateCompatibleDC(nullptr));
    SelectObject(dc.Get(), GetStockObject(GRAY_BRUSH));
    { const tvSelected selected(dc.Get(), nullptr); }
    EXPECT_EQ(GetCurrentObject(dc.Get(), OBJ_BRUSH), GetStockObject(GRAY_BRUSH));
}

TEST(WindowContexts, AreThoseOfTheClientAreaOfTheWholeWindowAndOfTheScreen) {
    HWND window = CreateWindowExW(WS_EX_CLIENTEDGE, L"STATIC", nullptr, WS_POPUP, 30, 40, 50, 60, nullptr,
                                  nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    POINT origin{};
    {
        const tvWindowDC whole(window);
        EXPECT_EQ(WindowFromDC(whole.Get()), window);
        GetDCOrgEx(whole.Get(), &origin);
        EXPECT_EQ(origin.x, 30);
    }
    {
        const tvClientDC client(window);
        EXPECT_EQ(WindowFromDC(client.Get()), window);
        GetDCOrgEx(client.Get(), &origin);
        EXPECT_EQ(origin.x, 30 + GetSystemMetrics(SM_CXEDGE));
    }
    const tvClientDC screen(nullptr);
    EXPECT_EQ(GetDeviceCaps(screen.Get(), HORZRES), GetSystemMetrics(SM_CXSCREEN));
    DestroyWindow(window);
}

}  // namespace
