#include "cli/json_reader.h"

#include <gtest/gtest.h>

#include <random>

#include "cli/json_writer.h"

namespace {

tvstring ReadText(std::string_view json) {
    JsonReader reader(json);
    tvstring text;
    reader.Text(text);
    reader.End();
    return text;
}

std::string ErrorOf(std::string_view json) {
    try {
        JsonReader reader(json);
        reader.Skip();
        reader.End();
    } catch (const JsonError& error) {
        return error.what();
    }
    return {};
}

TEST(JsonReader, ReadsAnObjectKeyByKey) {
    JsonReader reader(" { \"a\" : 1 , \"b\" : [ 2 , 3 ] } ");
    tvstring key;
    reader.OpenObject();
    ASSERT_TRUE(reader.NextKey(key));
    EXPECT_EQ(key, u"a");
    EXPECT_EQ(reader.Number(), 1u);
    ASSERT_TRUE(reader.NextKey(key));
    reader.OpenArray();
    ASSERT_TRUE(reader.NextElement());
    EXPECT_EQ(reader.Number(), 2u);
    ASSERT_TRUE(reader.NextElement());
    EXPECT_EQ(reader.Number(), 3u);
    EXPECT_FALSE(reader.NextElement());
    EXPECT_FALSE(reader.NextKey(key));
    reader.End();
}

TEST(JsonReader, ReadsEmptyContainers) {
    JsonReader reader("[{},[]]");
    tvstring key;
    reader.OpenArray();
    ASSERT_TRUE(reader.NextElement());
    reader.OpenObject();
    EXPECT_FALSE(reader.NextKey(key));
    ASSERT_TRUE(reader.NextElement());
    reader.OpenArray();
    EXPECT_FALSE(reader.NextElement());
    EXPECT_FALSE(reader.NextElement());
}

TEST(JsonReader, PassesOverAMarkInFront) {
    EXPECT_EQ(ReadText("\xEF\xBB\xBF\"a\""), u"a");
}

TEST(JsonReader, ReadsEscapes) {
    EXPECT_EQ(ReadText(R"("\"\\\/\b\f\n\r\t\u00e9\u00E9")"), u"\"\\/\b\f\n\r\t\u00E9\u00E9");
}

TEST(JsonReader, TakesEscapedSurrogatesAsTheUnitsTheyName) {
    EXPECT_EQ(ReadText(R"("\ud83d\udd11")"), u"\U0001F511");
    EXPECT_EQ(ReadText(R"("\ud83d")"), tvstring(1, char16_t{0xD83D}));
    EXPECT_EQ(ReadText(R"("\udd11\ud83d")").size(), 2u);
}

TEST(JsonReader, KeepsAnEscapedZero) {
    EXPECT_EQ(ReadText(R"("a\u0000b")"), tvstring(u"a\0b", 3));
}

TEST(JsonReader, ReadsUtf8) {
    EXPECT_EQ(ReadText("\"\xC3\xA9\xE6\x9D\xB1\xF0\x9F\x94\x91\xEF\xBF\xBF\""),
              u"\u00E9\u6771\U0001F511\xFFFF");
}

TEST(JsonReader, RefusesBytesThatAreNotUtf8) {
    EXPECT_EQ(ErrorOf("\"\xFF\""), "line 1, column 2: not valid UTF-8");
    EXPECT_EQ(ErrorOf("\"\xC0\x80\""), "line 1, column 2: not valid UTF-8");
    EXPECT_EQ(ErrorOf("\"\xED\xA0\x80\""), "line 1, column 2: not valid UTF-8");
    EXPECT_EQ(ErrorOf("\"\xE6\x9D\""), "line 1, column 2: not valid UTF-8");
}

TEST(JsonReader, RefusesUnknownAndUnfinishedEscapes) {
    for (const char* json : {R"("\x")", R"("\u12g4")", R"("\u12)", R"("\)", R"("\u123")"}) {
        EXPECT_NE(ErrorOf(json), "") << json;
    }
}

TEST(JsonReader, RefusesControlCharactersInAString) {
    EXPECT_NE(ErrorOf("\"a\nb\""), "");
}

TEST(JsonReader, RefusesWhatIsNotJson) {
    for (const char* json :
         {"",         " ",     "[",          "{",   "[1",  "[1,]", "[,1]",     "[1 2]", "{\"a\"}",
          "{\"a\":}", "{a:1}", "{\"a\":1,}", "tru", "nul", "01",   "-",        "1.",    "1e",
          "+1",       "\"a",   "[1]]",       "1 2", "'a'", "[1}",  "{\"a\":1]"}) {
        EXPECT_NE(ErrorOf(json), "") << json;
    }
}

TEST(JsonReader, PassesOverValuesOfEveryKind) {
    for (const char* json : {"null", "true", "false", "0", "-0.5e+10", "1E5", "\"a\"", "[]", "{}",
                             R"([[],{"a":[1,{"b":null}]},"x"])"}) {
        EXPECT_EQ(ErrorOf(json), "") << json;
    }
}

TEST(JsonReader, RefusesNestingThatNeverEnds) {
    EXPECT_NE(ErrorOf(std::string(100'000, '[')), "");
}

TEST(JsonReader, ReadsWholeNumbersOnly) {
    EXPECT_EQ(JsonReader("18446744073709551615").Number(), 0xFFFF'FFFF'FFFF'FFFF);
    for (const char* json : {"18446744073709551616", "-1", "1.0", "1e2", "\"1\"", "01"}) {
        EXPECT_THROW(JsonReader(json).Number(), JsonError) << json;
    }
}

TEST(JsonReader, TellsLineAndColumn) {
    EXPECT_EQ(ErrorOf("[\n  1,\n  x]"), "line 3, column 3: a value is expected here");
}

TEST(JsonReader, ReadsBackWhatTheWriterWrote) {
    std::mt19937 random(20);  // NOLINT(cert-msc51-cpp): the same texts each time
    constexpr char16_t kInteresting[] = {0,      0x1F,   u'"',   u'\\',  0x7F,   0x80,   0x7FF,
                                         0x800,  0xD7FF, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000,
                                         0xFEFF, 0xFFFD, 0xFFFE, 0xFFFF, u'a',   u'\n'};
    for (int round = 0; round < 2000; ++round) {
        tvstring text;
        for (std::size_t i = random() % 40; i > 0; --i) {
            text.push_back(random() % 2 == 0 ? kInteresting[random() % std::size(kInteresting)]
                                             : static_cast<char16_t>(random()));
        }
        TextSink sink;
        JsonWriter(sink).Text(text);
        sink.Finish();
        ASSERT_EQ(ReadText(sink.Result()), text);
    }
}

}  // namespace
