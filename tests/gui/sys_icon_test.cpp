#include "toolkit/sys_icon.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "tests/gui/late_functions_guard.h"
#include "tests/gui/sizes.h"
#include "toolkit/icon_size.h"

namespace {

HICON MakeIcon(int width, int height) {
    const std::array<BYTE, 1024> bits{};
    return CreateIcon(nullptr, width, height, 1, 1, bits.data(), bits.data());
}

bool IsIcon(HICON icon) {
    const SIZE size = IconSize(icon);
    return size.cx > 0;
}

class SystemIcons : public testing::Test {
protected:
    SystemIcons() {
        asked.clear();
        given.clear();
        failed.clear();
    }

    // Gives an icon of its own for each number and size, and notes it.
    static HRESULT WINAPI GiveIcon(SHSTOCKICONID id, UINT flags, SHSTOCKICONINFO* info) {
        EXPECT_EQ(info->cbSize, sizeof *info);
        asked.insert({id, flags});
        info->hIcon = given[{id, flags}] = MakeIcon(16, 16);
        return S_OK;
    }
    static HRESULT WINAPI GiveNoIcon(SHSTOCKICONID, UINT, SHSTOCKICONINFO*) { return S_OK; }
    static HRESULT WINAPI Fail(SHSTOCKICONID, UINT, SHSTOCKICONINFO* info) {
        info->hIcon = MakeIcon(16, 16);
        failed.insert(info->hIcon);
        return E_FAIL;
    }

    static inline std::set<std::pair<int, UINT>> asked;
    static inline std::map<std::pair<int, UINT>, HICON> given;
    static inline std::set<HICON> failed;
    LateFunctionsGuard guard;
};

constexpr UINT kLarge = 0x100;  // SHGSI_ICON
constexpr UINT kSmall = 0x101;  // with SHGSI_SMALLICON

TEST_F(SystemIcons, AreAskedForByTheirNumbersAndSizes) {
    TheLateFunctions().shGetStockIconInfo.Replace(GiveIcon);
    tvsysicon icons;
    const std::map<int, std::pair<int, UINT>> expected = {
        {3, {79, kLarge}}, {4, {79, kSmall}}, {5, {78, kLarge}}, {6, {78, kSmall}},
        {7, {80, kLarge}}, {8, {80, kSmall}}, {9, {23, kLarge}}, {10, {23, kSmall}},
    };
    for (const auto& [key, what] : expected) {
        HICON icon = icons.Find(key);
        EXPECT_NE(icon, nullptr) << key;
        EXPECT_EQ(icon, given[what]) << key;
    }
    EXPECT_EQ(asked.size(), 8U);
}

TEST_F(SystemIcons, AreLoadedOnce) {
    TheLateFunctions().shGetStockIconInfo.Replace(GiveIcon);
    tvsysicon icons;
    HICON first = icons.Find(ICON_ERROR);
    asked.clear();
    EXPECT_EQ(icons.Find(ICON_ERROR), first);
    EXPECT_TRUE(asked.empty());
}

// Wine's User32 has none of them.
HICON OfUser32(int resource, int width, int height) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(L"user32.dll"), MAKEINTRESOURCEW(resource),
                                         IMAGE_ICON, width, height, LR_SHARED));
}

TEST_F(SystemIcons, ComeFromUser32WhereTheShellHasNone) {
    if (OfUser32(101, 0, 0) == nullptr) GTEST_SKIP() << "this system's User32 has no such icons";
    for (auto* function : {static_cast<decltype(&GiveNoIcon)>(nullptr), &GiveNoIcon}) {
        TheLateFunctions().shGetStockIconInfo.Replace(function);
        tvsysicon icons;
        const std::map<int, int> resources = {{3, 104}, {5, 101}, {7, 103}, {9, 102}};
        for (const auto& [key, resource] : resources) {
            EXPECT_EQ(icons.Find(key),
                      OfUser32(resource, GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON)));
            EXPECT_EQ(icons.Find(key + 1),
                      OfUser32(resource, GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON)));
        }
    }
}

TEST_F(SystemIcons, AreThereOnEverySystem) {
    for (auto* function : {static_cast<decltype(&GiveNoIcon)>(nullptr), &GiveNoIcon}) {
        TheLateFunctions().shGetStockIconInfo.Replace(function);
        tvsysicon icons;
        std::set<HICON> different;
        for (const int key : {3, 5, 7, 9}) {
            EXPECT_EQ(IconSize(icons.Find(key)), icons.SizeOf(key)) << key;
            different.insert(icons.Find(key));
        }
        EXPECT_EQ(different.size(), 4U);
    }
}

TEST_F(SystemIcons, OfAShellThatFailsAreNotTaken) {
    TheLateFunctions().shGetStockIconInfo.Replace(Fail);
    tvsysicon icons;
    for (int key = 3; key <= 10; ++key)
        EXPECT_FALSE(failed.contains(icons.Find(key))) << key;
    EXPECT_EQ(failed.size(), 8U);
    for (HICON icon : failed)
        DestroyIcon(icon);
}

TEST_F(SystemIcons, OfAnUnknownKeyAreNull) {
    tvsysicon icons;
    for (const int key : {-1, 0, 1, 2, 11, 100}) {
        EXPECT_EQ(icons.Find(key), nullptr) << key;
        EXPECT_EQ(icons.SizeOf(key), (SIZE{0, 0})) << key;
    }
}

TEST_F(SystemIcons, GoWithTheirOwner) {
    TheLateFunctions().shGetStockIconInfo.Replace(GiveIcon);
    std::optional<tvsysicon> icons(std::in_place);
    HICON stock = icons->Find(ICON_WARNING);
    HICON added = MakeIcon(32, 32);
    icons->Add(ICON_APPLICATION, added);
    EXPECT_TRUE(IsIcon(stock));
    icons.reset();
    EXPECT_FALSE(IsIcon(stock));
    EXPECT_FALSE(IsIcon(added));
}

// --- Added ones ---

TEST_F(SystemIcons, OfTheProgramAreAddedWithTheirSizes) {
    tvsysicon icons;
    HICON large = MakeIcon(48, 40);
    HICON small = MakeIcon(20, 20);
    icons.Add(ICON_APPLICATION, large);
    icons.Add(ICON_APPLICATION_SMALL, small);
    EXPECT_EQ(icons.Find(ICON_APPLICATION), large);
    EXPECT_EQ(icons.Find(ICON_APPLICATION_SMALL), small);
    EXPECT_EQ(icons.SizeOf(ICON_APPLICATION), (SIZE{48, 40}));
    EXPECT_EQ(icons.SizeOf(ICON_APPLICATION_SMALL), (SIZE{20, 20}));
}

TEST_F(SystemIcons, TakeThePlaceOfOthersWhichGo) {
    tvsysicon icons;
    HICON first = MakeIcon(16, 16);
    HICON second = MakeIcon(32, 32);
    icons.Add(ICON_APPLICATION, first);
    icons.Add(ICON_APPLICATION, second);
    EXPECT_FALSE(IsIcon(first));
    EXPECT_EQ(icons.Find(ICON_APPLICATION), second);
    icons.Add(ICON_APPLICATION, second);
    EXPECT_TRUE(IsIcon(second));
}

TEST_F(SystemIcons, AddedBeforeTheFirstUseStay) {
    TheLateFunctions().shGetStockIconInfo.Replace(GiveIcon);
    tvsysicon icons;
    HICON mine = MakeIcon(16, 16);
    icons.Add(ICON_QUESTION, mine);
    EXPECT_EQ(icons.Find(ICON_QUESTION), mine);
    EXPECT_NE(icons.Find(ICON_QUESTION_SMALL), nullptr);
}

TEST_F(SystemIcons, NullIsNotAdded) {
    tvsysicon icons;
    icons.Add(ICON_APPLICATION, nullptr);
    EXPECT_EQ(icons.Find(ICON_APPLICATION), nullptr);
    EXPECT_EQ(icons.SizeOf(ICON_APPLICATION), (SIZE{0, 0}));
}

TEST_F(SystemIcons, OfMessagesHaveTheSystemsTwoSizes) {
    tvsysicon icons;
    for (const int key : {3, 5, 7, 9})
        EXPECT_EQ(icons.SizeOf(key), (SIZE{GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON)})) << key;
    for (const int key : {4, 6, 8, 10})
        EXPECT_EQ(icons.SizeOf(key), (SIZE{GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON)}))
            << key;
}

TEST_F(SystemIcons, SizeOfAMessageIsThatOfTheInformation) {
    tvsysicon icons;
    icons.Add(ICON_INFORMATION, MakeIcon(24, 24));
    icons.Add(ICON_ERROR, MakeIcon(48, 48));
    EXPECT_EQ(icons.SizeOf(ICON_ERROR), (SIZE{24, 24}));
    EXPECT_EQ(icons.SizeOf(ICON_WARNING), (SIZE{24, 24}));
}

}  // namespace
