#include "platform/text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace std::literals;

std::u16string Decoded(u32 codePage, std::string_view bytes) {
    const std::size_t count = platform::BytesToUnits(codePage, bytes.data(), bytes.size(), nullptr, 0);
    std::u16string text(count, u'\0');
    EXPECT_EQ(platform::BytesToUnits(codePage, bytes.data(), bytes.size(), text.data(), count), count);
    return text;
}

std::string Encoded(u32 codePage, std::u16string_view text) {
    const std::size_t count = platform::UnitsToBytes(codePage, text.data(), text.size(), nullptr, 0);
    std::string bytes(count, '\0');
    EXPECT_EQ(platform::UnitsToBytes(codePage, text.data(), text.size(), bytes.data(), count), count);
    return bytes;
}

int Compare(std::u16string_view a, std::u16string_view b) {
    return platform::CompareOrdinalNoCase(a.data(), a.size(), b.data(), b.size());
}

int Natural(std::u16string_view a, std::u16string_view b) {
    return platform::CompareNatural(a.data(), a.size(), b.data(), b.size());
}

class AnsiCodePage : public testing::Test {
protected:
    ~AnsiCodePage() override { platform::UseAnsiCodePage(0); }
};

// --- Code pages ---

TEST_F(AnsiCodePage, IsTheWesternOneUnlessToldOtherwise) {
    EXPECT_EQ(Decoded(0, "\x80\x81\x99\xE9\xFF"), u"\u20AC\u0081\u2122\u00E9\u00FF");
    EXPECT_EQ(Encoded(0, u"\u20AC\u2122\u00E9"), "\x80\x99\xE9");
}

TEST_F(AnsiCodePage, CanBeAnother) {
    ASSERT_TRUE(platform::UseAnsiCodePage(1251));
    EXPECT_EQ(Decoded(0, "\xCF\xF0\xE8"), u"\u041F\u0440\u0438");
    EXPECT_EQ(Encoded(0, u"\u041F\u0440\u0438"), "\xCF\xF0\xE8");
    ASSERT_TRUE(platform::UseAnsiCodePage(0));
    EXPECT_EQ(Decoded(0, "\xCF"), u"\u00CF");
}

TEST_F(AnsiCodePage, CanHaveTwoBytesForAUnit) {
    ASSERT_TRUE(platform::UseAnsiCodePage(932));
    EXPECT_EQ(Decoded(0, "\x83\x65\x5C\xB1"), u"\u30C6\\\uFF71");
    EXPECT_EQ(Encoded(0, u"a\u30C6\uFF71"), "a\x83\x65\xB1");
    EXPECT_EQ(Encoded(0, u"\U0001F511"), "??");
}

TEST_F(AnsiCodePage, CanBeUtf8) {
    ASSERT_TRUE(platform::UseAnsiCodePage(65001));
    EXPECT_EQ(Decoded(0, "\xC3\xA9"), u"\u00E9");
    EXPECT_EQ(Encoded(0, u"\u00E9"), "\xC3\xA9");
}

TEST_F(AnsiCodePage, StaysWhereTheNewOneIsUnknown) {
    ASSERT_TRUE(platform::UseAnsiCodePage(1251));
    EXPECT_FALSE(platform::UseAnsiCodePage(99999));
    EXPECT_FALSE(platform::UseAnsiCodePage(1));
    EXPECT_EQ(Decoded(0, "\xCF"), u"\u041F");
}

TEST_F(AnsiCodePage, IsNeverAFormOfUtf16) {
    EXPECT_FALSE(platform::UseAnsiCodePage(1200));
    EXPECT_FALSE(platform::UseAnsiCodePage(1201));
    EXPECT_FALSE(platform::UseAnsiCodePage(13488));
}

TEST_F(AnsiCodePage, CoversTheUsualOnes) {
    for (const u32 page : {437U,  850U,  874U,  932U,  936U,  949U,  950U,   1250U,  1251U,  1252U,
                           1253U, 1254U, 1255U, 1256U, 1257U, 1258U, 20866U, 28591U, 28592U, 28605U}) {
        EXPECT_TRUE(platform::UseAnsiCodePage(page)) << page;
        EXPECT_EQ(Decoded(0, "Abc 1"), u"Abc 1") << page;
        EXPECT_EQ(Encoded(0, u"Abc 1"), "Abc 1") << page;
    }
}

TEST(CodePage, CanBeNamedDirectly) {
    EXPECT_EQ(Decoded(28591, "\xE9"), u"\u00E9");
    EXPECT_EQ(Decoded(28605, "\xA4"), u"\u20AC");
    EXPECT_EQ(Decoded(437, "\x82"), u"\u00E9");
    EXPECT_EQ(Encoded(1251, u"\u041F"), "\xCF");
}

TEST(CodePage, GivesNothingIfItIsUnknown) {
    EXPECT_EQ(Decoded(99999, "abc"), u"");
    EXPECT_EQ(Encoded(99999, u"abc"), "");
}

TEST(CodePage, GivesNothingForNothing) {
    EXPECT_EQ(Decoded(1252, ""), u"");
    EXPECT_EQ(Encoded(1252, u""), "");
    EXPECT_EQ(Decoded(platform::kCodePageUtf8, ""), u"");
    EXPECT_EQ(Encoded(platform::kCodePageUtf8, u""), "");
}

TEST(CodePage, PutsAQuestionMarkForEachUnitThatItLacks) {
    EXPECT_EQ(Encoded(1252, u"a\u0416b\u30C6"), "a?b?");
    EXPECT_EQ(Encoded(1252, u"\U0001F511"), "??");
    const char16_t lonely[] = {u'a', 0xD83D, u'b'};
    EXPECT_EQ(Encoded(1252, std::u16string_view(lonely, 3)), "a?b");
}

TEST(CodePage, GoesThereAndBackForEveryByteOfTheWesternOne) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.push_back(static_cast<char>(byte));
    EXPECT_EQ(Encoded(1252, Decoded(1252, bytes)), bytes);
}

// --- UTF-8 ---

TEST(Utf8, HasOneToFourBytesForACharacter) {
    constexpr std::string_view kBytes = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x94\x91";
    EXPECT_EQ(Decoded(platform::kCodePageUtf8, kBytes), u"a\u00E9\u20AC\U0001F511");
    EXPECT_EQ(Encoded(platform::kCodePageUtf8, u"a\u00E9\u20AC\U0001F511"), kBytes);
}

TEST(Utf8, HasReplacementsForWhatIsNone) {
    EXPECT_EQ(Decoded(platform::kCodePageUtf8,
                      "a\xFF"
                      "b"),
              u"a\uFFFD"
              u"b");
    EXPECT_EQ(Decoded(platform::kCodePageUtf8,
                      "a\x80"
                      "b"),
              u"a\uFFFD"
              u"b");
    EXPECT_EQ(Decoded(platform::kCodePageUtf8,
                      "a\xE2\x82"
                      "b"),
              u"a\uFFFD"
              u"b");
    EXPECT_EQ(Decoded(platform::kCodePageUtf8, "a\xE2\x82"), u"a\uFFFD");
    EXPECT_EQ(Decoded(platform::kCodePageUtf8, "\xC0\xAF"), u"\uFFFD\uFFFD");
}

TEST(Utf8, HasNoSurrogates) {
    const std::u16string decoded = Decoded(platform::kCodePageUtf8, "\xED\xA0\x80");
    EXPECT_FALSE(decoded.empty());
    EXPECT_EQ(decoded.find_first_not_of(u'\uFFFD'), std::u16string::npos);
    const char16_t lonely[] = {0xD800, u'a', 0xDC00};
    EXPECT_EQ(Encoded(platform::kCodePageUtf8, std::u16string_view(lonely, 3)),
              "\xEF\xBF\xBD"
              "a\xEF\xBF\xBD");
}

TEST(Utf8, KeepsAMarkThatStandsInside) {
    EXPECT_EQ(Decoded(platform::kCodePageUtf8,
                      "\xEF\xBB\xBF"
                      "a"),
              u"\uFEFF"
              u"a");
}

// --- Ordinal comparison ---

TEST(CompareOrdinalNoCase, IgnoresCaseInEveryAlphabet) {
    EXPECT_EQ(Compare(u"abcXYZ", u"ABCxyz"), 0);
    EXPECT_EQ(Compare(u"\u00E9\u00FC\u00FF", u"\u00C9\u00DC\u0178"), 0);
    EXPECT_EQ(Compare(u"\u03B1\u03A9", u"\u0391\u03C9"), 0);
    EXPECT_EQ(Compare(u"\u0436\u0416", u"\u0416\u0436"), 0);
    EXPECT_EQ(Compare(u"\u0561", u"\u0531"), 0);
}

TEST(CompareOrdinalNoCase, IsOrdinalElsewhere) {
    EXPECT_EQ(Compare(u"a", u"b"), -1);
    EXPECT_EQ(Compare(u"B", u"a"), 1);
    EXPECT_EQ(Compare(u"a2", u"a10"), 1);
    EXPECT_EQ(Compare(u"Z", u"["), -1);
    EXPECT_EQ(Compare(u"z", u"["), -1);
    EXPECT_EQ(Compare(u"e\u0301", u"\u00E9"), -1);
    EXPECT_EQ(Compare(u"\uFFFF", u"\U0001F511"), 1);
}

TEST(CompareOrdinalNoCase, PutsTheShorterFirst) {
    EXPECT_EQ(Compare(u"ab", u"ABC"), -1);
    EXPECT_EQ(Compare(u"abc", u"AB"), 1);
    EXPECT_EQ(Compare(u"", u""), 0);
    EXPECT_EQ(Compare(u"", u"a"), -1);
}

TEST(CompareOrdinalNoCase, LeavesLettersWhoseUpperCaseIsAnothersToo) {
    EXPECT_NE(Compare(u"\u0131", u"I"), 0);       // dotless i
    EXPECT_NE(Compare(u"\u0130", u"i"), 0);       // I with a dot
    EXPECT_NE(Compare(u"\u017F", u"S"), 0);       // long s
    EXPECT_NE(Compare(u"\u212A", u"k"), 0);       // Kelvin
    EXPECT_NE(Compare(u"\u03C2", u"\u03A3"), 0);  // final sigma
    EXPECT_NE(Compare(u"\u00B5", u"\u039C"), 0);  // micro
    EXPECT_NE(Compare(u"\u00DF", u"\u1E9E"), 0);  // sharp s
    EXPECT_NE(Compare(u"\u01C5", u"\u01C4"), 0);  // title case
}

TEST(CompareOrdinalNoCase, IgnoresNoCaseBehindTheBasicPlane) {
    EXPECT_NE(Compare(u"\U00010400", u"\U00010428"), 0);
}

TEST(CompareOrdinalNoCase, TakesZeroUnits) {
    EXPECT_EQ(Compare(u"a\0B"sv, u"A\0b"sv), 0);
    EXPECT_EQ(Compare(u"a\0b"sv, u"a\0c"sv), -1);
}

// --- Natural order ---

TEST(CompareNatural, ReadsDigitsAsNumbers) {
    EXPECT_EQ(Natural(u"a2", u"a10"), -1);
    EXPECT_EQ(Natural(u"a10", u"a2"), 1);
    EXPECT_EQ(Natural(u"2 b", u"10 a"), -1);
    EXPECT_EQ(Natural(u"1.9", u"1.10"), -1);
}

TEST(CompareNatural, IgnoresCase) {
    EXPECT_EQ(Natural(u"a", u"A"), 0);
    EXPECT_EQ(Natural(u"MAIL account", u"mail ACCOUNT"), 0);
    EXPECT_EQ(Natural(u"\u00E9", u"\u00C9"), 0);
    EXPECT_EQ(Natural(u"a", u"B"), -1);
    EXPECT_EQ(Natural(u"B", u"a"), 1);
}

TEST(CompareNatural, PutsLettersWithAccentsBesideTheirOwn) {
    EXPECT_EQ(Natural(u"e", u"\u00E9"), -1);
    EXPECT_EQ(Natural(u"\u00E9", u"f"), -1);
}

TEST(CompareNatural, PutsTheEmptyTextFirst) {
    EXPECT_EQ(Natural(u"", u"a"), -1);
    EXPECT_EQ(Natural(u"a", u""), 1);
    EXPECT_EQ(Natural(u"", u""), 0);
    EXPECT_EQ(Natural(u"ab", u"abc"), -1);
}

// --- Finding ---

TEST(FindNoCase, GivesTheFirstPosition) {
    EXPECT_EQ(platform::FindNoCase(u"Hello World", u"WORLD"), 6U);
    EXPECT_EQ(platform::FindNoCase(u"abcabc", u"BC"), 1U);
    EXPECT_EQ(platform::FindNoCase(u"aab", u"AB"), 1U);
    EXPECT_EQ(platform::FindNoCase(u"\u00C9t\u00E9", u"\u00E9T"), 0U);
    EXPECT_EQ(platform::FindNoCase(u"same", u"same"), 0U);
}

TEST(FindNoCase, GivesNotFound) {
    EXPECT_EQ(platform::FindNoCase(u"abc", u"d"), platform::kNotFound);
    EXPECT_EQ(platform::FindNoCase(u"abc", u"abcd"), platform::kNotFound);
    EXPECT_EQ(platform::FindNoCase(u"", u"a"), platform::kNotFound);
}

TEST(FindNoCase, EndsAtAZeroUnit) {
    EXPECT_EQ(platform::FindNoCase(u"ab\0cd", u"cd"), platform::kNotFound);
}

}  // namespace
