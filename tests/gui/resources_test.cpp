// What vaultmere_window_resources gives a program: this one has it too.
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string_view>

#include "platform/resource.h"
#include "tests/gui/harness.h"
#include "toolkit/image.h"

namespace {

constexpr int kIcon = 101;
constexpr u16 kFirstMask = 102;
constexpr u16 kLastMask = 112;

std::span<const u8> Bytes(LPCWSTR type, int id) {
    HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(id), type);
    if (found == nullptr) return {};
    const void* data = LockResource(LoadResource(nullptr, found));
    return {static_cast<const u8*>(data), SizeofResource(nullptr, found)};
}

// The pixels of an icon at its own size, over black and over white; they differ where it is clear.
struct Coverage {
    int clear = 0;
    int painted = 0;
};
Coverage CoverageOf(HICON icon, int side) {
    const Canvas black(side, side, RGB(0, 0, 0));
    const Canvas white(side, side, RGB(255, 255, 255));
    for (const Canvas* canvas : {&black, &white})
        DrawIconEx(canvas->Dc(), 0, 0, icon, side, side, 0, nullptr, DI_NORMAL);
    Coverage coverage;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const COLORREF onBlack = black.At(x, y);
            const COLORREF onWhite = white.At(x, y);
            if (onBlack == RGB(0, 0, 0) && onWhite == RGB(255, 255, 255)) ++coverage.clear;
            if (onBlack == onWhite) ++coverage.painted;
        }
    }
    return coverage;
}

// The text behind a name in the version information.
tvstring VersionText(const char16_t* name) {
    const std::span<const u8> resource = Bytes(RT_VERSION, VS_VERSION_INFO);
    const auto* units = reinterpret_cast<const char16_t*>(resource.data());
    const std::u16string_view all(units, resource.size() / 2);
    const std::size_t key = all.find(std::u16string(name) + u'\0');
    if (key == std::u16string_view::npos) return {};
    std::size_t value = key + std::u16string_view(name).size() + 1;
    while (all[value] == 0)
        ++value;
    return all.data() + value;
}

}  // namespace

TEST(Resources, IconHasASizeForEachPlaceThatShowsIt) {
    const std::span<const u8> group = Bytes(RT_GROUP_ICON, kIcon);
    ASSERT_GE(group.size(), 6U);
    std::multiset<int> sides;
    constexpr std::size_t kEntry = 14;
    for (std::size_t at = 6; at + kEntry <= group.size(); at += kEntry) {
        EXPECT_EQ(group[at], group[at + 1]);
        EXPECT_EQ(group[at + 6], 32) << "bits a pixel";
        sides.insert(group[at] == 0 ? 256 : group[at]);
    }
    EXPECT_EQ(sides, (std::multiset<int>{16, 20, 24, 32, 40, 48, 64, 128, 256}));
}

TEST(Resources, IconIsPaintedAndClearAroundItsEdge) {
    for (const int side : {16, 20, 24, 32, 40, 48}) {
        const tvIconHandle icon(static_cast<HICON>(
            LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kIcon), IMAGE_ICON, side, side, 0)));
        ASSERT_TRUE(icon) << side;
        const Coverage coverage = CoverageOf(icon.Get(), side);
        EXPECT_GT(coverage.painted, side * side / 2) << side;
        EXPECT_GT(coverage.clear, side * side / 20) << side;
    }
}

TEST(Resources, MasksAreLargeForDialogsAndSmallerForTheButtonsOfThePane) {
    constexpr u16 kLastLarge = 107;
    for (u16 id = kFirstMask; id <= kLastMask; ++id) {
        tvimage image;
        ASSERT_TRUE(image.LoadPng(id)) << id;
        const u32 side = id <= kLastLarge ? 32 : 24;
        EXPECT_EQ(image.m_width, side) << id;
        EXPECT_EQ(image.m_height, side) << id;
    }
}

TEST(Resources, MasksAreStrokesOnNothing) {
    for (u16 id = kFirstMask; id <= kLastMask; ++id) {
        tvimage image;
        ASSERT_TRUE(image.LoadPng(id));
        tvBitmap pixels;
        ASSERT_TRUE(image.ToBitmap(pixels));
        int full = 0;
        int clear = 0;
        for (int y = 0; y < pixels.m_height; ++y) {
            for (int x = 0; x < pixels.m_width; ++x) {
                const u32 alpha = pixels.Row(y)[x] >> 24;
                full += alpha > 200 ? 1 : 0;
                clear += alpha == 0 ? 1 : 0;
            }
        }
        const int all = pixels.m_width * pixels.m_height;
        EXPECT_GT(full, all / 20) << id << " is too faint to be read";
        EXPECT_GT(clear, all / 3) << id;
    }
}

TEST(Resources, TheTwoPicturesOfTheShowButtonDiffer) {
    const std::span<const u8> show = Bytes(L"PNG", 111);
    const std::span<const u8> hide = Bytes(L"PNG", 112);
    ASSERT_FALSE(show.empty());
    EXPECT_FALSE(show.size() == hide.size() && std::memcmp(show.data(), hide.data(), show.size()) == 0);
}

TEST(Resources, ManifestAsksForWhatTheProgramIsMadeFor) {
    const std::span<const u8> bytes = Bytes(RT_MANIFEST, 1);
    const std::string_view manifest(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    for (const std::string_view wanted : {"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0",
                                          "level=\"asInvoker\"", ">system</dpiAwareness>", ">true</dpiAware>",
                                          ">true</longPathAware>", "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"})
        EXPECT_NE(manifest.find(wanted), std::string_view::npos) << wanted;
}

TEST(Resources, VersionNamesTheProgramAndItsMaker) {
    EXPECT_EQ(VersionText(u"ProductName"), u"Vaultmere");
    EXPECT_EQ(VersionText(u"CompanyName"), u"Tolvane");
    EXPECT_EQ(VersionText(u"ProductVersion"), VersionText(u"FileVersion"));
    EXPECT_NE(VersionText(u"ProductVersion"), u"");
}

TEST(Resources, EnglishTextIsThereBesides) {
    EXPECT_FALSE(platform::ResourceBytes(u"LANG", u"english.ini").empty());
}
