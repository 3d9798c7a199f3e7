#include "foundation/textops.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using namespace std::string_view_literals;

tvstring Trimmed(tvstring text, std::u16string_view set, unsigned flags) {
    Trim(text, set, flags);
    return text;
}

tvstring Replaced(tvstring text, std::u16string_view find, const char16_t* replace) {
    ReplaceAll(text, find, replace);
    return text;
}

std::vector<std::u16string> Pieces(const tvstring& text, std::u16string_view separator) {
    std::vector<tvstring> out = {u"before"};
    Split(text, separator, out);
    std::vector<std::u16string> pieces;
    for (const tvstring& piece : out)
        pieces.emplace_back(piece.view());
    return pieces;
}

enum Marks : bool { REMOVE_MARKS = false, KEEP_MARKS = true };

tvstring Cleaned(tvstring text, Marks marks = REMOVE_MARKS, int dots = CUT_UNLESS_ONE) {
    CleanCaption(text, marks, dots);
    return text;
}

std::vector<u8> HexBytes(const tvstring& text, std::size_t capacity, ByteOrder order = ByteOrder::Forward) {
    std::vector<u8> bytes(capacity, 0xEE);
    bytes.resize(HexToBytes(text, bytes.data(), capacity, order));
    return bytes;
}

// --- Comparison ---

TEST(Equal, AsksForTheSameLengthAndUnits) {
    EXPECT_TRUE(Equal(u"abc", u"abc"));
    EXPECT_FALSE(Equal(u"abc", u"abC"));
    EXPECT_FALSE(Equal(u"abc", u"abcd"));
    EXPECT_FALSE(Equal(u"a\0b"sv, u"a\0c"sv));
    EXPECT_FALSE(Equal(u"a\0"sv, u"a"));
    EXPECT_TRUE(Equal(u"", u""));
}

TEST(EqualNoCase, IgnoresCaseButNotLength) {
    EXPECT_TRUE(EqualNoCase(u"Path\\FILE", u"path\\file"));
    EXPECT_FALSE(EqualNoCase(u"abc", u"abcd"));
    EXPECT_FALSE(EqualNoCase(u"abc", u"abd"));
    EXPECT_FALSE(EqualNoCase(u"stra\u00DFe", u"STRASSE"));
    EXPECT_TRUE(EqualNoCase(u"", u""));
}

TEST(CompareNoCase, GivesMinusOneZeroOrOne) {
    EXPECT_EQ(CompareNoCase(u"a", u"B"), -1);
    EXPECT_EQ(CompareNoCase(u"B", u"a"), 1);
    EXPECT_EQ(CompareNoCase(u"Global", u"gLOBAL"), 0);
    EXPECT_EQ(CompareNoCase(u"a", u"ab"), -1);
    EXPECT_EQ(CompareNoCase(u"", u"a"), -1);
    EXPECT_EQ(CompareNoCase(u"", u""), 0);
}

TEST(CompareNoCase, ComparesZeroUnitsLikeOthers) {
    EXPECT_EQ(CompareNoCase(u"a\0B"sv, u"A\0b"sv), 0);
    EXPECT_EQ(CompareNoCase(u"a\0b"sv, u"a\0c"sv), -1);
}

TEST(CompareNoCase, OrdersUnitsByTheirUpperCaseForm) {
    EXPECT_EQ(CompareNoCase(u"_", u"a"), 1);
    EXPECT_EQ(CompareNoCase(u"2", u"10"), 1);
    EXPECT_EQ(CompareNoCase(u"z", u"\u00E9"), -1);
}

TEST(CompareNatural, ReadsDigitsAsNumbersAndIgnoresCase) {
    EXPECT_EQ(CompareNatural(u"item 2", u"Item 10"), -1);
    EXPECT_EQ(CompareNatural(u"ITEM 10", u"item 2"), 1);
    EXPECT_EQ(CompareNatural(u"Item", u"iTEM"), 0);
}

TEST(FindNoCase, FindsAWordInAnyCase) {
    EXPECT_EQ(FindNoCase(u"The Password", u"pASS"), 4U);
    EXPECT_EQ(FindNoCase(u"aaab", u"AB"), 2U);
    EXPECT_EQ(FindNoCase(u"\u0416\u0443\u043A", u"\u0423\u041A"), 1U);
}

TEST(FindNoCase, FindsNothingForAnEmptyTextOrWord) {
    EXPECT_EQ(FindNoCase(u"", u"a"), kNoPosition);
    EXPECT_EQ(FindNoCase(u"a", u""), kNoPosition);
    EXPECT_EQ(FindNoCase(u"", u""), kNoPosition);
    EXPECT_EQ(FindNoCase(u"abc", u"abcd"), kNoPosition);
    EXPECT_EQ(kNoPosition, static_cast<std::size_t>(-1));
}

TEST(ToLowerAscii, ChangesAToZOnlyInACopy) {
    const tvstring text(u"AZaz@[\u00C9\u0416");
    EXPECT_EQ(ToLowerAscii(text), u"azaz@[\u00C9\u0416");
    EXPECT_EQ(text, u"AZaz@[\u00C9\u0416");
}

TEST(IsAsciiLetter, IsTrueForAToZInBothCases) {
    for (unsigned unit = 0; unit < 0x300; ++unit) {
        const bool letter = (unit >= 0x41 && unit <= 0x5A) || (unit >= 0x61 && unit <= 0x7A);
        EXPECT_EQ(IsAsciiLetter(static_cast<char16_t>(unit)), letter) << unit;
    }
}

// --- Trim ---

TEST(Trim, CutsFromTheEndsTold) {
    EXPECT_EQ(Trimmed(u"  a b  ", u" ", TRIM_START), u"a b  ");
    EXPECT_EQ(Trimmed(u"  a b  ", u" ", TRIM_END), u"  a b");
    EXPECT_EQ(Trimmed(u"  a b  ", u" ", TRIM_BOTH), u"a b");
    EXPECT_EQ(Trimmed(u"  a b  ", u" ", 0), u"  a b  ");
}

TEST(Trim, CutsAnyUnitOfTheSet) {
    EXPECT_EQ(Trimmed(u"\t\r\n a\tb \n", kWhiteSpace, TRIM_BOTH), u"a\tb");
    EXPECT_EQ(Trimmed(u"xyxax", u"xy", TRIM_BOTH), u"a");
}

TEST(Trim, EmptiesATextOfOnlyWhiteSpace) {
    for (const unsigned flags : {1U, 2U, 3U})
        EXPECT_EQ(Trimmed(u" \r\n\t \t", u" \r\n\t", flags), u"");
}

TEST(Trim, DoesNothingForAnEmptyTextOrSet) {
    EXPECT_EQ(Trimmed(u"", u" ", TRIM_BOTH), u"");
    EXPECT_EQ(Trimmed(u" a ", u"", TRIM_BOTH), u" a ");
}

TEST(Trim, CutsAZeroUnitOnlyIfTheSetHasIt) {
    EXPECT_EQ(Trimmed(u"\0a\0"sv, u" ", TRIM_BOTH), u"\0a\0"sv);
    EXPECT_EQ(Trimmed(u"\0a\0"sv, u"\0"sv, TRIM_BOTH), u"a");
}

TEST(TrimmedView, NarrowsTheViewWithoutTouchingTheText) {
    const std::u16string_view text = u" ab ";
    const std::u16string_view kept = TrimmedView(text, u" ", TRIM_BOTH);
    EXPECT_EQ(kept, u"ab"sv);
    EXPECT_EQ(kept.data(), text.data() + 1);
}

// --- ReplaceAll ---

TEST(ReplaceAll, DoesNotSearchAReplacementAgain) {
    EXPECT_EQ(Replaced(u"aaaa", u"aa", u"a"), u"aa");
    EXPECT_EQ(Replaced(u"aaa", u"a", u"aa"), u"aaaaaa");
    EXPECT_EQ(Replaced(u"xxy", u"xy", u"y"), u"xy");
}

TEST(ReplaceAll, ReplacesFromLeftToRight) {
    EXPECT_EQ(Replaced(u"aaaaa", u"aa", u"b"), u"bba");
    EXPECT_EQ(Replaced(u"a.b.c", u".", u", "), u"a, b, c");
}

TEST(ReplaceAll, DeletesForANullReplacement) {
    EXPECT_EQ(Replaced(u"a\r\nb\r\n", u"\r\n", nullptr), u"ab");
    EXPECT_EQ(Replaced(u"\r\n", u"\r\n", nullptr), u"");
}

TEST(ReplaceAll, LeavesTheTextWhereNothingIsFound) {
    EXPECT_EQ(Replaced(u"abc", u"x", u"y"), u"abc");
    EXPECT_EQ(Replaced(u"abc", u"", u"y"), u"abc");
    EXPECT_EQ(Replaced(u"", u"a", u"y"), u"");
}

TEST(ReplaceAll, ReplacesEmbeddedZeroUnits) {
    tvstring text(u"a\0b\0"sv);
    ReplaceAll(text, u"\0"sv, u"--"sv);
    EXPECT_EQ(text, u"a--b--");
}

// --- Split ---

TEST(Split, DropsEmptyPieces) {
    EXPECT_EQ(Pieces(u"a\r\n\r\nb", u"\r\n"), (std::vector<std::u16string>{u"a", u"b"}));
    EXPECT_EQ(Pieces(u",,a,,b,,", u","), (std::vector<std::u16string>{u"a", u"b"}));
    EXPECT_TRUE(Pieces(u",,,", u",").empty());
    EXPECT_TRUE(Pieces(u"", u",").empty());
}

TEST(Split, GivesTheWholeTextWithoutASeparatorInIt) {
    EXPECT_EQ(Pieces(u"abc", u","), (std::vector<std::u16string>{u"abc"}));
    EXPECT_EQ(Pieces(u"a\nb", u"\r\n"), (std::vector<std::u16string>{u"a\nb"}));
}

// --- CleanCaption ---

TEST(CleanCaption, LeavesAnEmptyText) {
    EXPECT_EQ(Cleaned(u""), u"");
}

TEST(CleanCaption, CutsTheShortcutPart) {
    EXPECT_EQ(Cleaned(u"&Save\tCtrl+S"), u"Save");
    EXPECT_EQ(Cleaned(u"a\tb\tc"), u"a");
}

TEST(CleanCaption, PassesOverLeadingTabs) {
    EXPECT_EQ(Cleaned(u"\t\tSave\tCtrl+S"), u"\t\tSave");
    EXPECT_EQ(Cleaned(u"\tSave"), u"\tSave");
    EXPECT_EQ(Cleaned(u"\t\t"), u"\t\t");
}

TEST(CleanCaption, CutsAnyNumberOfDotsButOne) {
    EXPECT_EQ(Cleaned(u"Wait.", KEEP_MARKS, 0), u"Wait.");
    EXPECT_EQ(Cleaned(u"Wait..", KEEP_MARKS, 0), u"Wait");
    EXPECT_EQ(Cleaned(u"Wait...", KEEP_MARKS, 0), u"Wait");
    EXPECT_EQ(Cleaned(u"Wait....", KEEP_MARKS, 0), u"Wait");
    EXPECT_EQ(Cleaned(u"Wait", KEEP_MARKS, 0), u"Wait");
    EXPECT_EQ(Cleaned(u"...", KEEP_MARKS, 0), u"");
    EXPECT_EQ(Cleaned(u".", KEEP_MARKS, 0), u".");
}

TEST(CleanCaption, CutsExactlyThreeDots) {
    EXPECT_EQ(Cleaned(u"Save As...", REMOVE_MARKS, 1), u"Save As");
    EXPECT_EQ(Cleaned(u"Wait.", REMOVE_MARKS, 1), u"Wait.");
    EXPECT_EQ(Cleaned(u"Wait..", REMOVE_MARKS, 1), u"Wait..");
    EXPECT_EQ(Cleaned(u"Wait....", REMOVE_MARKS, 1), u"Wait....");
}

TEST(CleanCaption, KeepsDotsForOtherValues) {
    EXPECT_EQ(Cleaned(u"Wait...", REMOVE_MARKS, 2), u"Wait...");
    EXPECT_EQ(Cleaned(u"Wait..", REMOVE_MARKS, -1), u"Wait..");
}

TEST(CleanCaption, CutsDotsInFrontOfTheShortcut) {
    EXPECT_EQ(Cleaned(u"&Open...\tCtrl+O", REMOVE_MARKS, 1), u"Open");
}

TEST(CleanCaption, RemovesSingleMarksAndKeepsPairs) {
    EXPECT_EQ(Cleaned(u"R&&D"), u"R&&D");
    EXPECT_EQ(Cleaned(u"&File"), u"File");
    EXPECT_EQ(Cleaned(u"a&b&c"), u"abc");
    EXPECT_EQ(Cleaned(u"end&"), u"end");
    EXPECT_EQ(Cleaned(u"&"), u"");
    EXPECT_EQ(Cleaned(u"&&"), u"&&");
    EXPECT_EQ(Cleaned(u"a&&&b"), u"a&&b");
    EXPECT_EQ(Cleaned(u"&&&"), u"&&");
}

TEST(CleanCaption, KeepsMarksWhenTold) {
    EXPECT_EQ(Cleaned(u"&Save...\tCtrl+S", KEEP_MARKS, 1), u"&Save");
}

// --- Numbers ---

TEST(FormatInt, WritesDecimal) {
    EXPECT_EQ(FormatInt(0), u"0");
    EXPECT_EQ(FormatInt(-17), u"-17");
    EXPECT_EQ(FormatInt(std::numeric_limits<i32>::min()), u"-2147483648");
    EXPECT_EQ(FormatInt(std::numeric_limits<i32>::max()), u"2147483647");
}

TEST(FormatU64, WritesSixteenLowerCaseHexDigits) {
    EXPECT_EQ(FormatU64(0, U64Format::Hex), u"0x0000000000000000");
    EXPECT_EQ(FormatU64(0x0123456789ABCDEF, U64Format::Hex), u"0x0123456789abcdef");
    EXPECT_EQ(FormatU64(~u64{0}, U64Format::Hex), u"0xffffffffffffffff");
}

TEST(FormatU64, WritesDecimal) {
    EXPECT_EQ(FormatU64(0, U64Format::Decimal), u"0");
    EXPECT_EQ(FormatU64(~u64{0}, U64Format::Decimal), u"18446744073709551615");
}

TEST(WriteHexU64, WritesWhatFormatU64Writes) {
    char16_t out[kHexU64Length];
    WriteHexU64(0xFEDCBA9876543210, out);
    EXPECT_EQ(std::u16string_view(out, kHexU64Length), u"0xfedcba9876543210"sv);
}

TEST(ParseU64, ReadsDecimalUpToTheFirstOtherUnit) {
    EXPECT_EQ(ParseU64(u"0"), 0U);
    EXPECT_EQ(ParseU64(u"123abc"), 123U);
    EXPECT_EQ(ParseU64(u"18446744073709551615"), ~u64{0});
    EXPECT_EQ(ParseU64(u"a1"), 0U);
    EXPECT_EQ(ParseU64(u" 1"), 0U);
    EXPECT_EQ(ParseU64(u"-1"), 0U);
    EXPECT_EQ(ParseU64(u"\u0661"), 0U);
}

TEST(ParseU64, ReadsHexBehindItsPrefix) {
    EXPECT_EQ(ParseU64(u"0x10"), 16U);
    EXPECT_EQ(ParseU64(u"0XfFg"), 255U);
    EXPECT_EQ(ParseU64(u"0xffffffffffffffff"), ~u64{0});
    EXPECT_EQ(ParseU64(u"0x0x5"), 0U);
}

TEST(ParseU64, GivesZeroForNothing) {
    EXPECT_EQ(ParseU64(u""), 0U);
    EXPECT_EQ(ParseU64(u"0x"), 0U);
    EXPECT_EQ(ParseU64(u"x10"), 0U);
}

// --- Bytes ---

TEST(BytesToHex, WritesTwoLowerCaseDigitsAByte) {
    const u8 bytes[] = {0x00, 0x0A, 0xF0, 0xFF};
    EXPECT_EQ(BytesToHex(bytes, 4), u"000af0ff");
}

TEST(BytesToHex, GivesAnEmptyTextForNothing) {
    const u8 bytes[] = {1};
    EXPECT_EQ(BytesToHex(nullptr, 4), u"");
    EXPECT_EQ(BytesToHex(bytes, 0), u"");
}

TEST(HexToBytes, PutsAZeroInFrontOfAnOddNumberOfDigits) {
    EXPECT_EQ(HexBytes(u"0xABC", 2), (std::vector<u8>{0x0A, 0xBC}));
    EXPECT_EQ(HexBytes(u"f", 1), (std::vector<u8>{0x0F}));
}

TEST(HexToBytes, PassesOverPrefixesAndWhateverIsNoDigit) {
    EXPECT_EQ(HexBytes(u"{0x12, 0XAB; cd-EF}", 8), (std::vector<u8>{0x12, 0xAB, 0xCD, 0xEF}));
    EXPECT_EQ(HexBytes(u"1x2", 8), (std::vector<u8>{0x12}));
}

TEST(HexToBytes, WritesTheFirstPairLastWhenReversed) {
    EXPECT_EQ(HexBytes(u"010203", 8, ByteOrder::Reversed), (std::vector<u8>{3, 2, 1}));
}

TEST(HexToBytes, WritesNothingWhereTheRoomIsTooSmall) {
    u8 bytes[3] = {9, 9, 9};
    EXPECT_EQ(HexToBytes(u"01020304", bytes, 3, ByteOrder::Forward), 0U);
    EXPECT_EQ(HexToBytes(u"01020304", bytes, 3, ByteOrder::Reversed), 0U);
    EXPECT_EQ(bytes[0], 9);
    EXPECT_EQ(bytes[2], 9);
}

TEST(HexToBytes, GivesZeroForNoTextOrNoPlace) {
    u8 byte = 9;
    EXPECT_EQ(HexToBytes(u"", &byte, 1, ByteOrder::Forward), 0U);
    EXPECT_EQ(HexToBytes(u"01", nullptr, 1, ByteOrder::Forward), 0U);
    EXPECT_EQ(HexToBytes(u"xyz", &byte, 1, ByteOrder::Forward), 0U);
    EXPECT_EQ(byte, 9);
}

TEST(HexToBytes, ReadsBackWhatBytesToHexWrites) {
    std::vector<u8> bytes(256);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<u8>(i);
    EXPECT_EQ(HexBytes(BytesToHex(bytes.data(), bytes.size()), 256), bytes);
}

}  // namespace
