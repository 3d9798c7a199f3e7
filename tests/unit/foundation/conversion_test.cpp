#include "foundation/conversion.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using namespace std::string_view_literals;

tvstring Decoded(std::string_view bytes, u32 codePage) {
    tvstring text(u"before");
    FromCodePage(text, bytes.data(), bytes.size(), codePage);
    return text;
}

TEST(FromCodePage, ReplacesTheTextByTheBytesMeaning) {
    EXPECT_EQ(Decoded("\x80uro", 1252), u"\u20ACuro");
    EXPECT_EQ(Decoded("\xD0\x9F\xF0\x9F\x94\x91", kCodePageUtf8), u"\u041F\U0001F511");
}

TEST(FromCodePage, TakesZeroAsTheSystemsAnsiCodePage) {
    EXPECT_EQ(Decoded("\x80", kCodePageAnsi), u"\u20AC");
}

TEST(FromCodePage, ReadsUpToTheFirstZeroByteForALengthOfZero) {
    tvstring text;
    FromCodePage(text, "abc\0def", 0, kCodePageUtf8);
    EXPECT_EQ(text, u"abc");
}

TEST(FromCodePage, ReadsZeroBytesInsideAGivenLength) {
    EXPECT_EQ(Decoded("a\0b"sv, kCodePageUtf8), u"a\0b"sv);
}

TEST(FromCodePage, GivesAnEmptyTextForAnEmptyByteString) {
    tvstring text(u"before");
    FromCodePage(text, "", 0, kCodePageUtf8);
    EXPECT_TRUE(text.empty());
}

TEST(FromCodePage, GivesAnEmptyTextForNull) {
    tvstring text(u"before");
    FromCodePage(text, nullptr, 5, kCodePageUtf8);
    EXPECT_TRUE(text.empty());
}

TEST(FromCodePage, GivesAnEmptyTextWhenTheConversionYieldsNothing) {
    EXPECT_TRUE(Decoded("abc", 99999).empty());
}

TEST(FromCodePage, ReadsLongTexts) {
    const std::string bytes(100'000, 'x');
    EXPECT_EQ(Decoded(bytes, kCodePageUtf8), tvstring(100'000, u'x'));
    EXPECT_EQ(Decoded(bytes, kCodePageAnsi).size(), 100'000U);
}

TEST(FromUtf16BE, SwapsEachUnitUpToAZeroUnit) {
    tvstring text(u"before");
    FromUtf16BE(text, "\0a\x20\xAC\xD8\x3D\xDD\x11\0\0\0b\0\0");
    EXPECT_EQ(text, u"a\u20AC\U0001F511");
}

TEST(FromUtf16BE, IsNotEndedByOneZeroByte) {
    tvstring text;
    FromUtf16BE(text, "\x01\0\0\x01\0\0");
    EXPECT_EQ(text, u"\u0100\u0001");
}

TEST(FromUtf16BE, GivesAnEmptyTextForNothing) {
    tvstring text(u"before");
    FromUtf16BE(text, "\0\0");
    EXPECT_TRUE(text.empty());
    text = u"before";
    FromUtf16BE(text, nullptr);
    EXPECT_TRUE(text.empty());
}

TEST(ToAnsi, GivesTheBytesWithoutATerminatorInTheLength) {
    const tvstringA bytes = ToAnsi(u"a\u20AC\u00E9");
    EXPECT_EQ(bytes, "a\x80\xE9"sv);
    EXPECT_EQ(bytes.size(), 3U);
    EXPECT_EQ(bytes.c_str()[3], '\0');
}

TEST(ToAnsi, ReplacesWhatTheCodePageLacks) {
    EXPECT_EQ(ToAnsi(u"a\u0416z"), "a?z"sv);
}

TEST(ToAnsi, ReplacesBothHalvesOfAPair) {
    EXPECT_EQ(ToAnsi(u"\U0001F511"), "??"sv);
}

TEST(ToAnsi, KeepsZeroUnits) {
    EXPECT_EQ(ToAnsi(u"a\0b"sv), "a\0b"sv);
}

TEST(ToUtf8, GivesOneToFourBytesForACharacter) {
    EXPECT_EQ(ToUtf8(u"a\u00E9\u20AC\U0001F511"), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x94\x91"sv);
}

TEST(ToUtf8, ReplacesASurrogateWithoutItsPartner) {
    const char16_t lonely[] = {u'a', 0xD800, u'b', 0xDC00, 0xDBFF};
    EXPECT_EQ(ToUtf8(tvstring(lonely, 5)),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD\xEF\xBF\xBD"sv);
}

TEST(ToUtf8, KeepsZeroUnitsAndTheEmptyText) {
    EXPECT_EQ(ToUtf8(u"a\0b"sv), "a\0b"sv);
    EXPECT_TRUE(ToUtf8(u"").empty());
    EXPECT_TRUE(ToAnsi(u"").empty());
}

TEST(SwapBytes, SwapsTheTwoBytesOfEachUnitInACopy) {
    const tvstring text(u"a\u20AC\0"sv);
    EXPECT_EQ(SwapBytes(text), u"\u6100\uAC20\0"sv);
    EXPECT_EQ(text, u"a\u20AC\0"sv);
    EXPECT_EQ(SwapBytes(SwapBytes(text)), text);
}

TEST(FromUtf8, ReadsAKnownLengthWithZeroBytes) {
    EXPECT_EQ(FromUtf8("a\0\xC3\xA9"sv), u"a\0\u00E9"sv);
    EXPECT_TRUE(FromUtf8("").empty());
    EXPECT_EQ(FromUtf8("\0"sv), u"\0"sv);
}

TEST(Utf8, IsTheSameThereAndBackForEveryUnitThatIsNoSurrogate) {
    tvstring text;
    for (unsigned unit = 1; unit < 0x10000; ++unit) {
        if (unit < 0xD800 || unit > 0xDFFF) text += static_cast<char16_t>(unit);
    }
    EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
}

}  // namespace
