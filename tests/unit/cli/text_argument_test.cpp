#include "cli/text_argument.h"

#include <gtest/gtest.h>

#include "cli/failure.h"
#include "cli/utf8.h"

namespace {

ExitCode CodeOf(const std::string& argument) {
    try {
        StoredArgument(argument, "the text");
    } catch (const Failure& failure) {
        return failure.Code();
    }
    return ExitCode::Done;
}

TEST(StoredArgument, IsUtf8) {
    EXPECT_EQ(StoredArgument("\xC3\xA9\xF0\x9F\x94\x91", "the text"), u"\u00E9\U0001F511");
    EXPECT_EQ(CodeOf("a\xFF"), ExitCode::WrongUsage);
}

TEST(StoredArgument, HasAtMostWhatTheFormatHolds) {
    EXPECT_EQ(CodeOf(std::string(65535, 'x')), ExitCode::Done);
    EXPECT_EQ(CodeOf(std::string(65536, 'x')), ExitCode::FormatLimit);
}

TEST(ForMessage, HasNoControlCharactersAndNoOddUnits) {
    constexpr char16_t kText[] = {u'a', 0x1B, 0x0A, 0x9B, 0xD800, u'b'};
    EXPECT_EQ(ForMessage(tvstring(kText, 6)),
              "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"
              "b");
}

TEST(DecodeUtf8, TakesTheShortestFormOnly) {
    char32_t codePoint = 0;
    EXPECT_EQ(DecodeUtf8("a", codePoint), 1u);
    EXPECT_EQ(DecodeUtf8("\xF4\x8F\xBF\xBF", codePoint), 4u);
    EXPECT_EQ(codePoint, 0x10FFFFu);
    for (const char* bytes : {"\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF",
                              "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xC3",
                              "\xC3"
                              "a",
                              ""}) {
        EXPECT_EQ(DecodeUtf8(bytes, codePoint), 0u);
    }
}

TEST(EncodeUtf8, IsTheInverse) {
    for (const char32_t original : {0u, 0x7Fu, 0x80u, 0x7FFu, 0x800u, 0xFFFFu, 0x10000u, 0x10FFFFu}) {
        char bytes[4];
        char32_t back = 0;
        const std::size_t length = EncodeUtf8(original, bytes);
        EXPECT_EQ(DecodeUtf8({bytes, length}, back), length);
        EXPECT_EQ(back, original);
    }
}

}  // namespace
