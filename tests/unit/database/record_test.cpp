#include "database/record.h"

#include <gtest/gtest.h>

#include "tests/unit/database/faults.h"
#include "tests/unit/database/hex.h"
#include "tests/unit/database/made_container.h"

namespace {

using platform::FaultPoint;

constexpr u16 kNoRecordTypes[] = {0, 8, 9, 0x100, 0x300, 0xffff};

std::string HexOf(const tvbuffer<u8>& stream) {
    return ToHex({stream.Data(), stream.Size()});
}

// What ReadRecord says of some bytes of which all belong to the stream.
struct Parsed {
    explicit Parsed(const std::vector<u8>& bytes) : Parsed(bytes, bytes.size()) {}
    Parsed(const std::vector<u8>& bytes, std::size_t remaining)
        : taken(ReadRecord(bytes.data(), remaining, bytes.size(), type, text)) {}

    u16 type = 99;
    tvstring text = u"left over";
    std::size_t taken;
};

TEST(WriteRecord, WritesTypeLengthAndUnits) {
    tvbuffer<u8> stream(512);
    EXPECT_TRUE(WriteRecord(stream, 6, u"a\u20ac"));
    EXPECT_EQ(HexOf(stream),
              "0600"
              "0200"
              "6100"
              "ac20");
}

TEST(WriteRecord, AppendsToWhatIsThere) {
    tvbuffer<u8> stream(512);
    EXPECT_TRUE(WriteRecord(stream, 1, u"n"));
    EXPECT_TRUE(WriteRecord(stream, 7, u""));
    EXPECT_EQ(HexOf(stream),
              "010001006e00"
              "07000000");
}

TEST(WriteRecord, TakesAnEmptyTextAsFourBytes) {
    for (u16 type = 1; type <= 7; ++type) {
        tvbuffer<u8> stream(512);
        EXPECT_TRUE(WriteRecord(stream, type, u"")) << type;
        EXPECT_EQ(stream.Size(), 4U) << type;
    }
}

TEST(WriteRecord, RefusesTypesOutsideOneToSevenAndWritesNothing) {
    for (const u16 type : kNoRecordTypes) {
        tvbuffer<u8> stream(512);
        EXPECT_FALSE(WriteRecord(stream, type, u"text")) << type;
        EXPECT_EQ(stream.Size(), 0U) << type;
    }
}

TEST(WriteRecord, KeepsEmbeddedZerosAndLoneSurrogates) {
    tvbuffer<u8> stream(512);
    const char16_t units[] = {0xd800, 0, 0xdc00};
    EXPECT_TRUE(WriteRecord(stream, 3, tvstring(units, 3)));
    EXPECT_EQ(HexOf(stream),
              "0300"
              "0300"
              "00d8"
              "0000"
              "00dc");
}

TEST(WriteRecord, StatesTheLengthOfTheLongestText) {
    tvbuffer<u8> stream(512);
    EXPECT_TRUE(WriteRecord(stream, 6, tvstring(65535, u'z')));
    EXPECT_EQ(stream.Size(), 4U + 2 * 65535);
    EXPECT_EQ(ToHex({stream.Data(), 6}),
              "0600"
              "ffff"
              "7a00");
}

TEST(WriteRecord, WritesAllOfATooLongTextUnderAFalseLength) {
    tvbuffer<u8> stream(512);
    tvstring text(65536, u'z');
    text[65535] = u'!';
    EXPECT_TRUE(WriteRecord(stream, 6, text));
    EXPECT_EQ(stream.Size(), 4U + 2 * 65536);
    EXPECT_EQ(ToHex({stream.Data(), 6}),
              "0600"
              "ffff"
              "7a00");
    EXPECT_EQ(ToHex({stream.Data() + stream.Size() - 2, 2}), "2100");
}

TEST(WriteRecord, FailsWithoutMemoryAndWritesNothing) {
    Faults faults;
    faults.Fail(FaultPoint::AllocateZeroed, 8);
    tvbuffer<u8> stream(512);
    EXPECT_FALSE(WriteRecord(stream, 6, u"text"));
    EXPECT_EQ(stream.Size(), 0U);
}

TEST(RecordSize, IsWhatWriteRecordAppends) {
    for (const std::size_t length : {0, 1, 7, 8, 511, 65535, 65536}) {
        tvbuffer<u8> stream(512);
        const tvstring text(length, u'z');
        ASSERT_TRUE(WriteRecord(stream, 6, text));
        EXPECT_EQ(RecordSize(text), stream.Size()) << length;
    }
}

TEST(ReadRecord, GivesTypeTextAndTheBytesTaken) {
    const Parsed parsed(FromHex("0600 0200 6100 ac20 0500"));
    EXPECT_EQ(parsed.taken, 8U);
    EXPECT_EQ(parsed.type, 6);
    EXPECT_EQ(parsed.text, u"a\u20ac");
}

TEST(ReadRecord, TakesFourBytesForAnEmptyText) {
    const Parsed parsed(FromHex("0500 0000"));
    EXPECT_EQ(parsed.taken, 4U);
    EXPECT_EQ(parsed.type, 5);
    EXPECT_EQ(parsed.text, u"");
}

TEST(ReadRecord, RefusesFewerThanFourBytesAndClearsTheOutputs) {
    for (const std::size_t remaining : {0, 1, 2, 3}) {
        const Parsed parsed(FromHex("0500 0000"), remaining);
        EXPECT_EQ(parsed.taken, 0U) << remaining;
        EXPECT_EQ(parsed.type, 0) << remaining;
        EXPECT_EQ(parsed.text, u"") << remaining;
    }
}

TEST(ReadRecord, RefusesTypesOutsideOneToSevenButTellsThem) {
    for (const u16 type : kNoRecordTypes) {
        const Parsed parsed(Record(type, u"text"));
        EXPECT_EQ(parsed.taken, 0U);
        EXPECT_EQ(parsed.type, type);
        EXPECT_EQ(parsed.text, u"");
    }
}

TEST(ReadRecord, AcceptsAllTypesFromOneToSeven) {
    for (u16 type = 1; type <= 7; ++type) {
        const Parsed parsed(Record(type, u"text"));
        EXPECT_EQ(parsed.taken, 12U);
        EXPECT_EQ(parsed.type, type);
        EXPECT_EQ(parsed.text, u"text");
    }
}

TEST(ReadRecord, DoesNotHoldTheLengthAgainstWhatRemains) {
    const Parsed parsed(FromHex("0600 0300 6100 6200 6300"), 6);
    EXPECT_EQ(parsed.taken, 10U);
    EXPECT_EQ(parsed.text, u"abc");
}

TEST(ReadRecord, CutsTheTextToTheBytesPresent) {
    const Parsed even(FromHex("0600 ffff 6100 6200"));
    EXPECT_EQ(even.taken, 4U + 2 * 65535);
    EXPECT_EQ(even.text, u"ab");
    const Parsed odd(FromHex("0600 0300 6100 62"));
    EXPECT_EQ(odd.taken, 10U);
    EXPECT_EQ(odd.text, u"a");
}

TEST(ReadRecord, ReadsTheLongestTextWhole) {
    const std::u16string text(65535, u'z');
    const Parsed parsed(Record(6, text));
    EXPECT_EQ(parsed.taken, 4U + 2 * 65535);
    EXPECT_EQ(parsed.text, tvstring(text));
}

TEST(ReadRecord, FindsTheLastUnitOfATooLongTextWhereTheNextTypeStands) {
    tvbuffer<u8> stream(512);
    tvstring text(65536, u'z');
    text[65535] = 4;
    ASSERT_TRUE(WriteRecord(stream, 6, text));
    ASSERT_TRUE(WriteRecord(stream, 3, u"next"));
    const std::vector<u8> bytes(stream.Data(), stream.Data() + stream.Size());
    const Parsed first(bytes);
    EXPECT_EQ(first.text.size(), 65535U);
    ASSERT_EQ(first.taken, 4U + 2 * 65535);
    // The unit reads as type 4, and the type of the next record as its length.
    const Parsed second(std::vector<u8>(bytes.begin() + 4 + 2 * 65535, bytes.end()));
    EXPECT_EQ(second.type, 4);
    EXPECT_EQ(second.taken, 4U + 2 * 3);
}

TEST(WriteDateRecord, WritesSixteenLowerCaseDigits) {
    tvbuffer<u8> stream(512);
    EXPECT_TRUE(WriteDateRecord(stream, 133701477937561600));
    EXPECT_EQ(HexOf(stream),
              "0700"
              "1200"
              "30007800"
              "30003100640062003000300063003900"
              "32006100360039006300300030003000");
}

TEST(WriteDateRecord, WritesWhatParseDateReads) {
    for (const u64 date : {u64{0}, u64{1}, u64{133701477937561600}, u64{0xffff'ffff'ffff'ffff}}) {
        tvbuffer<u8> stream(512);
        ASSERT_TRUE(WriteDateRecord(stream, date));
        EXPECT_EQ(stream.Size(), kDateRecordSize);
        const Parsed parsed(std::vector<u8>(stream.Data(), stream.Data() + stream.Size()));
        EXPECT_EQ(parsed.taken, kDateRecordSize);
        EXPECT_EQ(parsed.type, 7);
        EXPECT_EQ(parsed.text.size(), 18U);
        EXPECT_EQ(ParseDate(parsed.text), date);
    }
}

TEST(WriteDateRecord, FailsWithoutMemory) {
    Faults faults;
    faults.Fail(FaultPoint::AllocateZeroed, 8);
    tvbuffer<u8> stream(512);
    EXPECT_FALSE(WriteDateRecord(stream, 1));
}

TEST(ParseDate, GivesZeroForAnEmptyText) {
    EXPECT_EQ(ParseDate(u""), 0U);
}

TEST(ParseDate, ReadsHexadecimalBehindEitherPrefix) {
    EXPECT_EQ(ParseDate(u"0x1aF"), 0x1afU);
    EXPECT_EQ(ParseDate(u"0X1Af"), 0x1afU);
    EXPECT_EQ(ParseDate(u"0x"), 0U);
}

TEST(ParseDate, ReadsAnythingElseAsDecimal) {
    EXPECT_EQ(ParseDate(u"133500000000000001"), 133500000000000001U);
    EXPECT_EQ(ParseDate(u"18446744073709551615"), 0xffff'ffff'ffff'ffffU);
    EXPECT_EQ(ParseDate(u"0"), 0U);
    EXPECT_EQ(ParseDate(u"010"), 10U);
}

TEST(ParseDate, StopsAtTheFirstUnitThatIsNoDigitOfTheBase) {
    EXPECT_EQ(ParseDate(u"12a4"), 12U);
    EXPECT_EQ(ParseDate(u"0x1g2"), 1U);
    EXPECT_EQ(ParseDate(u" 12"), 0U);
    EXPECT_EQ(ParseDate(u"-1"), 0U);
    EXPECT_EQ(ParseDate(u"x12"), 0U);
}

}  // namespace
