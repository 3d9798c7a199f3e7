#include "cli/byte_sink.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Keeps the pieces as they came.
class PieceSink : public ByteSink {
public:
    std::vector<std::string> pieces;

private:
    void Accept(std::string_view bytes) override { pieces.emplace_back(bytes); }
};

TEST(ByteSink, HandsOnNothingBeforeTheEndOfAShortOutput) {
    PieceSink sink;
    sink.Bytes("abc");
    sink.Byte('d');
    EXPECT_TRUE(sink.pieces.empty());
    sink.Finish();
    EXPECT_EQ(sink.pieces, std::vector<std::string>{"abcd"});
}

TEST(ByteSink, HandsOnNothingForNoOutput) {
    PieceSink sink;
    sink.Finish();
    EXPECT_TRUE(sink.pieces.empty());
}

TEST(ByteSink, KeepsCharactersWholeBetweenPieces) {
    for (std::size_t shift = 0; shift < 4; ++shift) {
        PieceSink sink;
        std::u16string text(shift, u'a');
        for (int i = 0; i < 50'000; ++i)
            text += u"\u00E9\u6771\U0001F511";
        sink.Text(text);
        sink.Finish();
        ASSERT_GT(sink.pieces.size(), 1u);
        for (const std::string& piece : sink.pieces) {
            EXPECT_NE(static_cast<unsigned char>(piece.front()) & 0xC0, 0x80);
        }
    }
}

TEST(ByteSink, LosesNothingOfALongOutput) {
    PieceSink sink;
    std::string expected;
    for (int i = 0; i < 40'000; ++i) {
        const std::string line = std::to_string(i) + "\n";
        sink.Bytes(line);
        expected += line;
    }
    sink.Finish();
    std::string all;
    for (const std::string& piece : sink.pieces)
        all += piece;
    EXPECT_EQ(all, expected);
}

TEST(ByteSink, PassesOnBytesThatAreNoUtf8) {
    PieceSink sink;
    const std::string bytes(200'000, '\x80');
    sink.Bytes(bytes);
    sink.Finish();
    std::string all;
    for (const std::string& piece : sink.pieces)
        all += piece;
    EXPECT_EQ(all, bytes);
}

TEST(ByteSink, ReplacesASurrogateWithoutItsPartner) {
    TextSink sink;
    constexpr char16_t kText[] = {u'a', 0xD83D, u'b'};
    sink.Text({kText, 3});
    sink.Finish();
    EXPECT_EQ(sink.Result().view(),
              "a\xEF\xBF\xBD"
              "b");
}

}  // namespace
