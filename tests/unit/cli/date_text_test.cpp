#include "cli/date_text.h"

#include <gtest/gtest.h>

namespace {

constexpr u64 kSeptember = 133'700'133'967'890'000;  // 2024-09-05T12:36:36.7890000

TEST(IsoDate, HasSevenDigitsOfTheSecond) {
    EXPECT_EQ(FormatIsoDate(kSeptember), "2024-09-05T12:36:36.7890000");
}

TEST(IsoDate, StartsIn1601) {
    EXPECT_EQ(FormatIsoDate(0), "1601-01-01T00:00:00.0000000");
}

TEST(IsoDate, HasFiveDigitsForAYearAfter9999) {
    EXPECT_EQ(FormatIsoDate(0x7FFF'FFFF'FFFF'FFFF), "30828-09-14T02:48:05.4775807");
}

TEST(IsoDate, IsEmptyWhereNoCalendarTells) {
    EXPECT_EQ(FormatIsoDate(0x8000'0000'0000'0000), "");
    EXPECT_EQ(FormatPlainDate(0xFFFF'FFFF'FFFF'FFFF), "");
}

TEST(PlainDate, HasWholeSeconds) {
    EXPECT_EQ(FormatPlainDate(kSeptember), "2024-09-05 12:36:36");
}

TEST(ParseIsoDate, IsTheInverse) {
    u64 date = 0;
    ASSERT_TRUE(ParseIsoDate(u"2024-09-05T12:36:36.7890000", date));
    EXPECT_EQ(date, kSeptember);
    ASSERT_TRUE(ParseIsoDate(u"1601-01-01T00:00:00.0000000", date));
    EXPECT_EQ(date, 0u);
    ASSERT_TRUE(ParseIsoDate(u"12024-02-29T23:59:59", date));
    EXPECT_EQ(FormatIsoDate(date), "12024-02-29T23:59:59.0000000");
}

TEST(ParseIsoDate, TakesAShorterFractionOrNone) {
    u64 date = 0;
    ASSERT_TRUE(ParseIsoDate(u"2024-09-05T12:36:36.789", date));
    EXPECT_EQ(date, kSeptember);
    ASSERT_TRUE(ParseIsoDate(u"2024-09-05T12:36:36", date));
    EXPECT_EQ(date, kSeptember - 7'890'000);
}

TEST(ParseIsoDate, RefusesWhatIsNoDate) {
    for (const char16_t* text :
         {u"", u"2024-09-05", u"2024-09-05 12:36:36", u"2024-9-05T12:36:36", u"2024-09-05T12:36:36.",
          u"2024-09-05T12:36:36.12345678", u"2024-09-05T12:36:36Z", u"2024-09-05T12:36:36+02:00",
          u"2024-13-05T12:36:36", u"2023-02-29T12:36:36", u"2024-09-05T24:16:36", u"1600-12-31T23:59:59",
          u"2024-09-05T10:16", u"abcd-09-05T12:36:36", u"+024-09-05T12:36:36"}) {
        u64 date = 7;
        EXPECT_FALSE(ParseIsoDate(text, date));
        EXPECT_EQ(date, 7u);
    }
}

TEST(ParseHexDate, ReadsDigitsInEitherCase) {
    u64 date = 0;
    ASSERT_TRUE(ParseHexDate(u"0x01daFF5a6b3c0001", date));
    EXPECT_EQ(date, 0x01da'ff5a'6b3c'0001u);
    ASSERT_TRUE(ParseHexDate(u"0x0", date));
    EXPECT_EQ(date, 0u);
}

TEST(ParseHexDate, RefusesWhatIsNoSuchNumber) {
    for (const char16_t* text : {u"", u"0x", u"1", u"0x12345678901234567", u"0xg", u"0x1 ", u"0X1 "}) {
        u64 date = 7;
        EXPECT_FALSE(ParseHexDate(text, date));
        EXPECT_EQ(date, 7u);
    }
}

}  // namespace
