#include "windows/text_finder.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <utility>

#include "foundation/textops.h"
#include "platform/text.h"

namespace {

using namespace std::literals;
using Random = std::mt19937;

bool Finds(std::u16string_view word, std::u16string_view text) {
    return TextFinder(word).IsIn(text);
}

// What the system's search says of the same.
bool SystemFinds(const tvstring& word, const tvstring& text) {
    return platform::FindNoCase(text.c_str(), word.c_str()) != platform::kNotFound;
}

// The units as numbers, for the message of a failing test.
std::string Numbers(const tvstring& text) {
    std::string numbers;
    for (const char16_t unit : text)
        numbers.append(" ").append(std::to_string(static_cast<unsigned>(unit)));
    return numbers;
}

void ExpectAsTheSystem(const tvstring& word, const tvstring& text) {
    EXPECT_EQ(TextFinder(word).IsIn(text), SystemFinds(word, text))
        << "word" << Numbers(word) << "\ntext" << Numbers(text);
}

std::size_t Number(Random& random, std::size_t least, std::size_t most) {
    return std::uniform_int_distribution<std::size_t>(least, most)(random);
}

tvstring TextOf(Random& random, std::u16string_view units, std::size_t size) {
    tvstring text;
    for (std::size_t i = 0; i < size; ++i)
        text += units[Number(random, 0, units.size() - 1)];
    return text;
}

std::u16string PlainUnits() {
    std::u16string units;
    for (char16_t unit = 1; unit <= 0x7F; ++unit)
        units += unit;
    return units;
}

// Words of up to `longestWord` units in texts of up to 70, made of the same units. Half of the words are
// pieces of their text, with one unit changed now and then.
void CompareOnRandomTexts(Random& random, std::u16string_view units, std::size_t longestWord, int rounds) {
    int found = 0;
    int missing = 0;
    for (int i = 0; i < rounds; ++i) {
        const tvstring text = TextOf(random, units, Number(random, 0, 70));
        const std::size_t size = Number(random, 1, longestWord);
        tvstring word = TextOf(random, units, size);
        if (!text.empty() && Number(random, 0, 1) == 0) {
            word = text.substr(Number(random, 0, text.size() - 1), size);
            for (char16_t& unit : word) {
                if (unit < 0x80 && Number(random, 0, 1) == 0) unit = ToLowerAscii(tvstring(1, unit))[0];
            }
            if (Number(random, 0, 3) == 0)
                word[Number(random, 0, word.size() - 1)] = units[Number(random, 0, units.size() - 1)];
        }
        ExpectAsTheSystem(word, text);
        ++(SystemFinds(word, text) ? found : missing);
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(found, rounds / 20);
    EXPECT_GT(missing, rounds / 20);
}

// --- One word in one text ---

TEST(TextFinder, FindsAWordWhateverItsCase) {
    EXPECT_TRUE(Finds(u"MAIL", u"my mail account"));
    EXPECT_TRUE(Finds(u"mail", u"MY MAIL ACCOUNT"));
    EXPECT_TRUE(Finds(u"mAiL", u"MaIl"));
    EXPECT_FALSE(Finds(u"mall", u"my mail account"));
}

TEST(TextFinder, FindsAWordAtBothEnds) {
    EXPECT_TRUE(Finds(u"first", u"first and then the last"));
    EXPECT_TRUE(Finds(u"last", u"first and then the last"));
    EXPECT_TRUE(Finds(u"t", u"last"));
    EXPECT_TRUE(Finds(u"l", u"last"));
}

TEST(TextFinder, FindsAWholeText) {
    EXPECT_TRUE(Finds(u"The whole text it is.", u"the WHOLE text it is."));
    EXPECT_FALSE(Finds(u"The whole text it is.", u"the whole text it is"));
}

TEST(TextFinder, FindsNothingInAnEmptyText) {
    EXPECT_FALSE(Finds(u"a", u""));
    EXPECT_FALSE(Finds(u"\u00E9", u""));
    EXPECT_FALSE(Finds(u"", u""));
}

TEST(TextFinder, FindsNoEmptyWord) {
    EXPECT_FALSE(Finds(u"", u"abc"));
    EXPECT_FALSE(Finds(u"", u"\u00E9"));
}

TEST(TextFinder, FindsNoWordThatIsLongerThanTheText) {
    EXPECT_FALSE(Finds(u"aaa", u"aa"));
    EXPECT_FALSE(Finds(tvstring(100, u'a'), tvstring(99, u'a')));
    EXPECT_TRUE(Finds(tvstring(99, u'a'), tvstring(99, u'A')));
}

TEST(TextFinder, TriesAgainBehindAFalseStart) {
    EXPECT_TRUE(Finds(u"aab", u"aaaaaaaaaaaaaaaaaaaaaaab"));
    EXPECT_TRUE(Finds(u"abac", u"ababababababababac"));
    EXPECT_FALSE(Finds(u"abad", u"ababababababababac"));
    // First and last unit agree at every place, what stands between them nowhere.
    EXPECT_FALSE(Finds(u"aXa", u"aaaaaaaaaaaaaaaaaaaaaaaaa"));
}

TEST(TextFinder, KeepsTheWordAsItWasGiven) {
    EXPECT_EQ(TextFinder(u"MiXeD \u00C9").Word(), u"MiXeD \u00C9");
}

TEST(TextFinder, IgnoresCaseOutsideOfAscii) {
    EXPECT_TRUE(Finds(u"\u00C9T\u00C9", u"un \u00E9t\u00E9 chaud"));
    EXPECT_TRUE(Finds(u"\u0436", u"\u0416\u0437"));
    EXPECT_TRUE(Finds(u"ete", u"\u00E9t\u00E9 Ete"));
    EXPECT_FALSE(Finds(u"\u00E9", u"e"));
}

TEST(TextFinder, EndsAtAZeroUnit) {
    EXPECT_FALSE(Finds(u"cd", u"ab\0cd"sv));
    EXPECT_TRUE(Finds(u"ab", u"ab\0cd"sv));
    EXPECT_TRUE(Finds(u"ab\0xy"sv, u"an abbot"));
    EXPECT_FALSE(Finds(u"\0"sv, u"ab\0cd"sv));
}

// --- Letters and their neighbours ---

// The bit of case makes two letters one, but '@' no '`' and '[' no '{'. Tried at every place of texts of up
// to three steps of eight units, alone and as the first and the last unit of a longer word.
TEST(TextFinder, TakesUnitsThatDifferInTheBitOfCaseAsOneOnlyIfTheyAreLetters) {
    constexpr char16_t kCaseBit = 0x20;
    for (char16_t unit = 1; unit <= 0x7F; ++unit) {
        const auto other = static_cast<char16_t>(unit ^ kCaseBit);
        if (other == 0) continue;
        const tvstring sought(1, unit);
        const TextFinder alone(sought);
        const TextFinder asFirst(sought + u"-");
        const TextFinder asLast(u"-" + std::u16string(sought.view()));
        const bool isFound = IsAsciiLetter(unit);
        const char16_t around = unit == u'.' ? u',' : u'.';
        for (std::size_t size = 1; size <= 24; ++size) {
            for (std::size_t place = 0; place < size; ++place) {
                tvstring text = tvstring(place, around) + tvstring(1, other) + tvstring(size - place, around);
                ASSERT_EQ(alone.IsIn(text), isFound) << Numbers(text);
                text[place + 1] = u'-';
                ASSERT_EQ(asFirst.IsIn(text), isFound) << Numbers(text);
                text[place] = u'-';
                text[place + 1] = other;
                ASSERT_EQ(asLast.IsIn(text), isFound) << Numbers(text);
            }
        }
    }
}

TEST(TextFinder, AnswersForEveryPairOfPlainUnitsAsTheSystem) {
    for (const char16_t sought : PlainUnits()) {
        for (const char16_t there : PlainUnits()) {
            ExpectAsTheSystem(tvstring(1, sought), tvstring(1, there));
            ExpectAsTheSystem(tvstring(1, sought), tvstring(9, there));
        }
    }
}

// --- Places ---

// A word of every size at every place of a text of every size up to some steps of eight units, whole and with
// one unit wrong.
TEST(TextFinder, FindsAWordAtEveryPlace) {
    constexpr std::u16string_view kWord = u"AbCdEfGhIjKlMnOpQrSt";
    for (std::size_t wordSize = 1; wordSize <= kWord.size(); ++wordSize) {
        const TextFinder finder(kWord.substr(0, wordSize));
        const tvstring there = ToLowerAscii(finder.Word());
        for (std::size_t textSize = wordSize; textSize <= 42; ++textSize) {
            for (std::size_t place = 0; place + wordSize <= textSize; ++place) {
                tvstring text(textSize, u'_');
                text.replace(place, wordSize, there);
                ASSERT_TRUE(finder.IsIn(text)) << wordSize << " units at " << place << " of " << textSize;
                for (const std::size_t wrong : {place, place + wordSize / 2, place + wordSize - 1}) {
                    const char16_t right = std::exchange(text[wrong], u'_');
                    ASSERT_FALSE(finder.IsIn(text))
                        << wordSize << " units at " << place << " of " << textSize;
                    text[wrong] = right;
                }
            }
        }
    }
}

// One unit that is not plain, at every place, turns the search over to the system.
TEST(TextFinder, SeesAUnitThatIsNotPlainAtEveryPlace) {
    const TextFinder finder(u"zz");
    for (const char16_t odd : {u'\0', u'\u0080', u'\u00E9', u'\u212A', u'\uFFFF'}) {
        for (std::size_t size = 1; size <= 40; ++size) {
            for (std::size_t place = 0; place < size; ++place) {
                tvstring text(size, u'_');
                text[place] = odd;
                text.append(u"ZZ");
                ASSERT_EQ(finder.IsIn(text), odd != 0) << static_cast<unsigned>(odd) << " at " << place;
            }
        }
    }
}

// --- Whatever the texts ---

TEST(TextFinderProperty, AnswersAsTheSystemForPlainTexts) {
    Random random(1);
    CompareOnRandomTexts(random, PlainUnits(), 12, 20'000);
}

TEST(TextFinderProperty, AnswersAsTheSystemForTextsOfFewUnits) {
    Random random(2);
    CompareOnRandomTexts(random, u"aAb", 6, 20'000);
    CompareOnRandomTexts(random, u"@A`a", 4, 20'000);
    CompareOnRandomTexts(random, u"Zz[{", 4, 20'000);
}

TEST(TextFinderProperty, AnswersAsTheSystemForTextsOfManyLanguages) {
    Random random(3);
    CompareOnRandomTexts(
        random, u"abAB \u00E9\u00C9\u0436\u0416\u03C3\u03C2\u03A3\u0130\u0131iI\u00DF\u017Fs", 6, 20'000);
}

TEST(TextFinderProperty, AnswersAsTheSystemForTextsWithZeroUnits) {
    Random random(4);
    CompareOnRandomTexts(random, u"abAB\0"sv, 4, 20'000);
    CompareOnRandomTexts(random, u"abABcdCD.,;:-_\0\u00E9"sv, 3, 20'000);
}

}  // namespace
