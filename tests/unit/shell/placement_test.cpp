#include "shell/placement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "tests/unit/registry_fixture.h"

using platform::FaultPoint;

static void PrintTo(const ScreenRect& rect, std::ostream* out) {
    *out << rect.left << ',' << rect.top << ' ' << rect.right << ',' << rect.bottom;
}

namespace {

using enum LoadStore;

constexpr i32 kLeast = std::numeric_limits<i32>::min();
constexpr i32 kMost = std::numeric_limits<i32>::max();

template <typename Value>
std::vector<u8> BytesOf(const Value& value) {
    std::vector<u8> bytes(sizeof value);
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

// --- What is stored ---

class PlacementTest : public RegistryTest {
protected:
    static std::string Setting(const char16_t* name) { return Stored(kSettingsKey, name); }
    static void PutBytes(const char16_t* name, const std::vector<u8>& bytes) {
        Put(kSettingsKey, name, platform::kRegBinary, bytes);
    }
    static void PutPosition(const ScreenRect& rect) { PutBytes(u"WindowPos", BytesOf(rect)); }

    // What is loaded over a maximised window with a fraction of 0.5.
    static StoredPlacement Loaded() {
        StoredPlacement placement{{1, 2, 3, 4}, true, 0.5F};
        LoadPlacement(placement);
        return placement;
    }
};

TEST_F(PlacementTest, IsEmptyWhereNothingIsStored) {
    const StoredPlacement placement = Loaded();
    EXPECT_EQ(placement.position, ScreenRect());
    EXPECT_FALSE(placement.maximised);
    EXPECT_EQ(placement.spPercent, 0.5F);
    EXPECT_FALSE(Exists(kSettingsKey));
}

TEST_F(PlacementTest, IsWrittenAsThreeValues) {
    StorePlacement({{-1, 2, 0x10203, 4}, true, 0.25F});
    EXPECT_EQ(Setting(u"WindowPos"), "3:ffffffff020000000302010004000000");
    EXPECT_EQ(Setting(u"WindowMax"), "4:01000000");
    EXPECT_EQ(Setting(u"SpPercent"), "3:0000803e");
    StorePlacement({{-1, 2, 0x10203, 4}, false, 0.25F});
    EXPECT_EQ(Setting(u"WindowMax"), "4:00000000");
}

TEST_F(PlacementTest, IsReadAsItWasWritten) {
    StorePlacement({{-1, -2, 300, 400}, true, 0.25F});
    const StoredPlacement placement = Loaded();
    EXPECT_EQ(placement.position, (ScreenRect{-1, -2, 300, 400}));
    EXPECT_TRUE(placement.maximised);
    EXPECT_EQ(placement.spPercent, 0.25F);
}

TEST_F(PlacementTest, IsWrittenThoughThePositionIsEmpty) {
    StorePlacement({{}, false, 0.25F});
    EXPECT_EQ(Setting(u"WindowPos"), "3:" + std::string(32, '0'));
}

TEST_F(PlacementTest, IsMaximisedForAnyValueButZero) {
    PutPosition({0, 0, 1, 1});
    EXPECT_FALSE(Loaded().maximised);
    for (const u32 word : {1U, 2U, 0x100U, 0x80000000U}) {
        PutWord(kSettingsKey, u"WindowMax", word);
        EXPECT_TRUE(Loaded().maximised) << word;
    }
    PutWord(kSettingsKey, u"WindowMax", 0);
    EXPECT_FALSE(Loaded().maximised);
}

TEST_F(PlacementTest, IsNotMaximisedByAValueOfAnotherSize) {
    PutPosition({0, 0, 1, 1});
    for (const std::size_t size : {0U, 1U, 3U, 5U, 8U}) {
        Put(kSettingsKey, u"WindowMax", platform::kRegWord, std::vector<u8>(size, 1));
        EXPECT_FALSE(Loaded().maximised) << size;
    }
}

TEST_F(PlacementTest, CountsAPositionOfAllZerosAsAbsentWithAllThatComesWithIt) {
    StorePlacement({{}, true, 0.25F});
    const StoredPlacement placement = Loaded();
    EXPECT_EQ(placement.position, ScreenRect());
    EXPECT_FALSE(placement.maximised);
    EXPECT_EQ(placement.spPercent, 0.5F);
}

TEST_F(PlacementTest, CountsAnEmptyPositionAsAbsent) {
    for (const ScreenRect& rect : {ScreenRect{5, 5, 5, 9}, ScreenRect{5, 5, 9, 5}, ScreenRect{9, 5, 5, 9},
                                   ScreenRect{5, 9, 9, 5}, ScreenRect{kMost, 0, kLeast, 9}}) {
        StorePlacement({rect, true, 0.25F});
        const StoredPlacement placement = Loaded();
        EXPECT_EQ(placement.position, ScreenRect());
        EXPECT_FALSE(placement.maximised);
        EXPECT_EQ(placement.spPercent, 0.5F);
    }
}

TEST_F(PlacementTest, CountsAPositionOfAnotherSizeAsAbsent) {
    for (const std::size_t size : {0U, 15U, 17U, 32U}) {
        StorePlacement({{0, 0, 1, 1}, true, 0.25F});
        PutBytes(u"WindowPos", std::vector<u8>(size, 1));
        const StoredPlacement placement = Loaded();
        EXPECT_EQ(placement.position, ScreenRect()) << size;
        EXPECT_FALSE(placement.maximised) << size;
        EXPECT_EQ(placement.spPercent, 0.5F) << size;
    }
}

TEST_F(PlacementTest, TakesAFractionWithinItsBounds) {
    const float inside[] = {std::nextafter(0.1F, 1.0F), 0.25F, 0.5F, std::nextafter(0.99F, 0.0F)};
    for (const float fraction : inside) {
        StorePlacement({{0, 0, 1, 1}, false, fraction});
        EXPECT_EQ(Loaded().spPercent, fraction);
    }
}

TEST_F(PlacementTest, RefusesAFractionAtItsBoundsAndBeyond) {
    const float outside[] = {0.1F,
                             0.99F,
                             std::nextafter(0.1F, 0.0F),
                             std::nextafter(0.99F, 1.0F),
                             0.0F,
                             -0.5F,
                             1.0F,
                             50.0F,
                             std::numeric_limits<float>::infinity(),
                             -std::numeric_limits<float>::infinity(),
                             std::numeric_limits<float>::quiet_NaN()};
    for (const float fraction : outside) {
        EXPECT_FALSE(IsSplitterFraction(fraction)) << fraction;
        StorePlacement({{0, 0, 1, 1}, true, fraction});
        EXPECT_EQ(Loaded().spPercent, 0.5F) << fraction;
        EXPECT_TRUE(Loaded().maximised);
    }
}

TEST_F(PlacementTest, RefusesAFractionOfAnotherSize) {
    PutPosition({0, 0, 1, 1});
    for (const std::size_t size : {0U, 3U, 5U, 8U}) {
        PutBytes(u"SpPercent", std::vector<u8>(size, 0x3E));
        EXPECT_EQ(Loaded().spPercent, 0.5F) << size;
    }
    PutBytes(u"SpPercent", BytesOf(0.25));
    EXPECT_EQ(Loaded().spPercent, 0.5F);
}

TEST_F(PlacementTest, IsNotWrittenWhileTheKeyCannotBeOpened) {
    StorePlacement({{0, 0, 1, 1}, true, 0.25F});
    m_Faults.Fail(FaultPoint::OpenKey, platform::kErrorAccessDenied);
    StorePlacement({{0, 0, 2, 2}, false, 0.75F});
    const StoredPlacement placement = Loaded();
    EXPECT_EQ(placement.position, (ScreenRect{0, 0, 1, 1}));
    EXPECT_TRUE(placement.maximised);
    EXPECT_EQ(placement.spPercent, 0.25F);
}

TEST_F(PlacementTest, IsEmptyWhileTheKeyCannotBeOpened) {
    StorePlacement({{0, 0, 1, 1}, true, 0.25F});
    m_Faults.Fail(FaultPoint::OpenKey, platform::kErrorAccessDenied);
    EXPECT_EQ(Loaded().position, ScreenRect());
}

TEST_F(PlacementTest, LosesOnlyTheValueThatCannotBeWritten) {
    m_Faults.Fail(FaultPoint::WriteValue, platform::kErrorAccessDenied, 1);
    StorePlacement({{0, 0, 1, 1}, true, 0.25F});
    EXPECT_EQ(Setting(u"WindowMax"), "absent");
    EXPECT_EQ(Loaded().position, (ScreenRect{0, 0, 1, 1}));
    EXPECT_EQ(Loaded().spPercent, 0.25F);
}

// --- ScreenRect ---

TEST(ScreenRect, HasWidthAndHeight) {
    constexpr ScreenRect kRect{-10, 5, 20, 9};
    EXPECT_EQ(kRect.Width(), 30);
    EXPECT_EQ(kRect.Height(), 4);
    EXPECT_FALSE(kRect.IsEmpty());
}

TEST(ScreenRect, WrapsASizeThatIsTooLarge) {
    EXPECT_EQ((ScreenRect{kLeast, 0, kMost, 1}.Width()), -1);
    EXPECT_FALSE((ScreenRect{kLeast, 0, kMost, 1}.IsEmpty()));
}

// --- FirstRunRect ---

constexpr ScreenRect kWorkArea{0, 0, 1920, 1040};

TEST(FirstRunRect, IsTwoThirdsOfTheWorkAreaWideInItsMiddleAndKeepsTheProportions) {
    EXPECT_EQ(FirstRunRect(kWorkArea, {10, 20, 610, 420}), (ScreenRect{320, 93, 1600, 946}));
}

TEST(FirstRunRect, StandsInAWorkAreaThatDoesNotBeginAtZero) {
    EXPECT_EQ(FirstRunRect({-1920, 40, 0, 1080}, {10, 20, 610, 420}), (ScreenRect{-1600, 133, -320, 986}));
}

TEST(FirstRunRect, CutsFractionsOff) {
    // 2/3 of 1000 is 666.67; 201 / 300 of 666 is 446.22
    EXPECT_EQ(FirstRunRect({0, 0, 1000, 1000}, {0, 0, 300, 201}), (ScreenRect{167, 277, 833, 723}));
}

TEST(FirstRunRect, MayBeHigherThanTheWorkArea) {
    // 900 / 600 of 1280 is 1920; 1040 - 1920 is -880
    EXPECT_EQ(FirstRunRect(kWorkArea, {0, 0, 600, 900}), (ScreenRect{320, -440, 1600, 1480}));
}

TEST(FirstRunRect, IsThePresentOneForAWindowThatIsAsLarge) {
    for (const ScreenRect& present : {ScreenRect{5, 5, 1285, 805}, ScreenRect{5, 5, 1905, 105}}) {
        EXPECT_EQ(FirstRunRect(kWorkArea, present), present);
    }
    EXPECT_EQ(FirstRunRect(kWorkArea, {5, 5, 1283, 804}), (ScreenRect{320, 120, 1600, 920}));
}

TEST(FirstRunRect, IsThePresentOneWhereTheHeightWouldNotGrow) {
    // 100 / 1279 of 1280 is 100.08
    EXPECT_EQ(FirstRunRect(kWorkArea, {0, 0, 1279, 100}), (ScreenRect{0, 0, 1279, 100}));
}

TEST(FirstRunRect, IsThePresentOneForAWindowWithoutSize) {
    for (const ScreenRect& present : {ScreenRect{}, ScreenRect{5, 5, 5, 50}, ScreenRect{5, 5, 50, 5},
                                      ScreenRect{9, 0, 5, 9}, ScreenRect{0, 9, 9, 0}}) {
        EXPECT_EQ(FirstRunRect(kWorkArea, present), present);
    }
}

TEST(FirstRunRect, IsThePresentOneForAHeightBeyondAllScreens) {
    constexpr ScreenRect kPresent{0, 0, 1, 2'000'000};
    EXPECT_EQ(FirstRunRect(kWorkArea, kPresent), kPresent);
}

// --- IntoWorkArea ---

TEST(IntoWorkArea, LeavesARectangleThatLiesInside) {
    for (const ScreenRect& rect : {ScreenRect{100, 100, 200, 200}, kWorkArea, ScreenRect{0, 0, 1, 1}}) {
        EXPECT_EQ(IntoWorkArea(rect, kWorkArea), rect);
    }
}

TEST(IntoWorkArea, PullsTheRightAndBottomEdgeIn) {
    EXPECT_EQ(IntoWorkArea({1900, 1000, 2100, 1100}, kWorkArea), (ScreenRect{1720, 940, 1920, 1040}));
}

TEST(IntoWorkArea, PullsTheLeftAndTopEdgeIn) {
    EXPECT_EQ(IntoWorkArea({-50, -1, 150, 99}, kWorkArea), (ScreenRect{0, 0, 200, 100}));
}

TEST(IntoWorkArea, BringsARectangleOfAMonitorThatHasGone) {
    EXPECT_EQ(IntoWorkArea({5000, -3000, 5200, -2900}, kWorkArea), (ScreenRect{1720, 0, 1920, 100}));
    EXPECT_EQ(IntoWorkArea({100, 100, 300, 200}, {-1920, 40, 0, 1080}), (ScreenRect{-200, 100, 0, 200}));
}

TEST(IntoWorkArea, AlignsARectangleThatIsTooLargeToItsTopLeft) {
    EXPECT_EQ(IntoWorkArea({500, 500, 3500, 3500}, kWorkArea), (ScreenRect{0, 0, 3000, 3000}));
    EXPECT_EQ(IntoWorkArea({-5000, 500, -1000, 600}, {-100, 40, 1820, 1080}),
              (ScreenRect{-100, 500, 3900, 600}));
}

TEST(IntoWorkArea, TakesAnyNumbers) {
    EXPECT_EQ(IntoWorkArea({kMost - 10, kMost - 10, kMost, kMost}, kWorkArea),
              (ScreenRect{1910, 1030, 1920, 1040}));
    EXPECT_EQ(IntoWorkArea({kLeast, kLeast, kLeast + 10, kLeast + 10}, kWorkArea),
              (ScreenRect{0, 0, 10, 10}));
    const ScreenRect largest = IntoWorkArea({kLeast, kLeast, kMost, kMost}, kWorkArea);
    EXPECT_EQ(largest.left, 0);
    EXPECT_EQ(largest.top, 0);
}

// --- Shifted ---

TEST(Shifted, MovesAllEdgesByTheSameNumber) {
    EXPECT_EQ(Shifted({1, 2, 30, 40}, 25), (ScreenRect{26, 27, 55, 65}));
    EXPECT_EQ(Shifted({1, 2, 30, 40}, 0), (ScreenRect{1, 2, 30, 40}));
    EXPECT_EQ(Shifted({1, 2, 30, 40}, -5), (ScreenRect{-4, -3, 25, 35}));
}

TEST(Shifted, WrapsAround) {
    EXPECT_EQ(Shifted({kMost, 0, kMost, 0}, 1), (ScreenRect{kLeast, 1, kLeast, 1}));
}

// --- InputDlgSize ---

class InputDlgSizeTest : public PlacementTest {
protected:
    static void PutSize(const ScreenSize& size) { PutBytes(u"InputDlgSize", BytesOf(size)); }

    static ScreenSize LoadedOver(ScreenSize present, bool expected) {
        EXPECT_EQ(LoadStoreInputDlgSize(Load, present), expected);
        return present;
    }
};

TEST_F(InputDlgSizeTest, IsWrittenAsTwoWords) {
    ScreenSize size{0x102, 0x304};
    EXPECT_TRUE(LoadStoreInputDlgSize(Store, size));
    EXPECT_EQ(Setting(u"InputDlgSize"), "3:0201000004030000");
    EXPECT_EQ(size, (ScreenSize{0x102, 0x304}));
}

TEST_F(InputDlgSizeTest, IsNotWrittenBelowOne) {
    for (ScreenSize size : {ScreenSize{0, 5}, ScreenSize{5, 0}, ScreenSize{-1, 5}, ScreenSize{5, -1}}) {
        EXPECT_FALSE(LoadStoreInputDlgSize(Store, size));
    }
    EXPECT_EQ(Setting(u"InputDlgSize"), "absent");
    ScreenSize least{1, 1};
    EXPECT_TRUE(LoadStoreInputDlgSize(Store, least));
}

TEST_F(InputDlgSizeTest, IsTheLargerOfThePresentAndTheStoredOneEachWay) {
    PutSize({300, 200});
    EXPECT_EQ(LoadedOver({100, 100}, true), (ScreenSize{300, 200}));
    EXPECT_EQ(LoadedOver({400, 100}, true), (ScreenSize{400, 200}));
    EXPECT_EQ(LoadedOver({100, 250}, true), (ScreenSize{300, 250}));
    EXPECT_EQ(LoadedOver({400, 250}, true), (ScreenSize{400, 250}));
}

TEST_F(InputDlgSizeTest, TakesAStoredSizeBelowOneForLessThanThePresent) {
    PutSize({-5, 200});
    EXPECT_EQ(LoadedOver({100, 100}, true), (ScreenSize{100, 200}));
}

TEST_F(InputDlgSizeTest, StaysAsItWasWhereBothAreBelowOne) {
    PutSize({0, 200});
    EXPECT_EQ(LoadedOver({0, 100}, false), (ScreenSize{0, 100}));
    PutSize({200, 0});
    EXPECT_EQ(LoadedOver({100, -1}, false), (ScreenSize{100, -1}));
    PutSize({1, 1});
    EXPECT_EQ(LoadedOver({0, 0}, true), (ScreenSize{1, 1}));
}

TEST_F(InputDlgSizeTest, StaysAsItWasWhereNoneIsStored) {
    EXPECT_EQ(LoadedOver({100, 100}, false), (ScreenSize{100, 100}));
    for (const std::size_t size : {0U, 7U, 9U, 16U}) {
        PutBytes(u"InputDlgSize", std::vector<u8>(size, 1));
        EXPECT_EQ(LoadedOver({100, 100}, false), (ScreenSize{100, 100})) << size;
    }
}

}  // namespace
