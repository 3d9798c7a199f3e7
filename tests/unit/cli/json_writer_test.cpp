#include "cli/json_writer.h"

#include <gtest/gtest.h>

namespace {

std::string Written(std::u16string_view text) {
    TextSink sink;
    JsonWriter(sink).Text(text);
    sink.Finish();
    return std::string(sink.Result().view());
}

TEST(JsonWriter, PutsCommasBetweenValuesOnly) {
    TextSink sink;
    JsonWriter json(sink);
    json.OpenObject().Key("a").Number(1).Key("b").OpenArray().Null().Bool(true).OpenObject().CloseObject();
    json.CloseArray().Key("c").Ascii("x").CloseObject();
    sink.Finish();
    EXPECT_EQ(sink.Result().view(), R"({"a":1,"b":[null,true,{}],"c":"x"})");
}

TEST(JsonWriter, WritesTheLargestNumber) {
    TextSink sink;
    JsonWriter(sink).Number(0xFFFF'FFFF'FFFF'FFFF);
    sink.Finish();
    EXPECT_EQ(sink.Result().view(), "18446744073709551615");
}

TEST(JsonWriter, EscapesQuotesAndBackslashes) {
    EXPECT_EQ(Written(u"a\"b\\c/"), R"("a\"b\\c/")");
}

TEST(JsonWriter, EscapesControlCharacters) {
    EXPECT_EQ(Written(u"\b\f\n\r\t"), R"("\b\f\n\r\t")");
    EXPECT_EQ(Written({u"\0\x1B\x7F\x85", 4}), R"("\u0000\u001b\u007f\u0085")");
}

TEST(JsonWriter, WritesTextOutsideAsciiAsUtf8) {
    EXPECT_EQ(Written(u"\u00E9\u6771"), "\"\xC3\xA9\xE6\x9D\xB1\"");
    EXPECT_EQ(Written(u"\U0001F511"), "\"\xF0\x9F\x94\x91\"");
    EXPECT_EQ(Written(u"\xFFFF"), "\"\xEF\xBF\xBF\"");
}

TEST(JsonWriter, EscapesASurrogateWithoutItsPartner) {
    constexpr char16_t kHighAtTheEnd[] = {u'a', 0xD83D};
    constexpr char16_t kLowFirst[] = {0xDD11, 0xD83D, u'a'};
    EXPECT_EQ(Written({kHighAtTheEnd, 2}), R"("a\ud83d")");
    EXPECT_EQ(Written({kLowFirst, 3}), R"("\udd11\ud83da")");
}

TEST(JsonWriter, WritesKeysLikeTexts) {
    TextSink sink;
    JsonWriter(sink).OpenObject().Key(u"\"\u00E9").Null().CloseObject();
    sink.Finish();
    EXPECT_EQ(sink.Result().view(), "{\"\\\"\xC3\xA9\":null}");
}

}  // namespace
