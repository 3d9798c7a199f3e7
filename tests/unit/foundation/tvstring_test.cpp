#include "foundation/tvstring.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>

#include "tests/unit/wipe_watch.h"

namespace {

using namespace std::string_view_literals;

constexpr std::u16string_view kLong = u"a text of more than seven units";

template <typename Text>
bool LiesInTheObject(const Text& text) {
    const auto* object = reinterpret_cast<const char*>(&text);
    const auto* units = reinterpret_cast<const char*>(text.data());
    return units >= object && units < object + sizeof text;
}

// --- Storage ---

TEST(Tvstring, IsEmptyAndTerminatedAtFirst) {
    const tvstring text;
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.size(), 0U);
    EXPECT_EQ(text.c_str()[0], u'\0');
}

TEST(Tvstring, KeepsUpToSevenUnitsInTheObject) {
    const tvstring text(u"1234567");
    EXPECT_EQ(text.size(), 7U);
    EXPECT_EQ(text.capacity(), 7U);
    EXPECT_TRUE(LiesInTheObject(text));
    EXPECT_EQ(text.c_str()[7], u'\0');
}

TEST(Tvstring, PutsEightUnitsIntoABlockOfItsOwn) {
    const tvstring text(u"12345678");
    EXPECT_GE(text.capacity(), 8U);
    EXPECT_FALSE(LiesInTheObject(text));
    EXPECT_EQ(text.c_str()[8], u'\0');
}

TEST(Tvstring, GrowsOutOfTheObjectWithTheEighthUnit) {
    tvstring text;
    for (char16_t unit = u'1'; unit <= u'7'; ++unit)
        text += unit;
    EXPECT_TRUE(LiesInTheObject(text));
    text += u'8';
    EXPECT_FALSE(LiesInTheObject(text));
    EXPECT_EQ(text, u"12345678");
}

TEST(TvstringA, KeepsUpToFifteenBytesInTheObject) {
    EXPECT_TRUE(LiesInTheObject(tvstringA("123456789012345")));
    EXPECT_FALSE(LiesInTheObject(tvstringA("1234567890123456")));
}

TEST(Tvstring, AppendsManyUnitsWithFewNewBlocks) {
    tvstring text;
    std::size_t growths = 0;
    for (int i = 0; i < 100'000; ++i) {
        const std::size_t before = text.capacity();
        text += u'x';
        if (text.capacity() != before) ++growths;
    }
    EXPECT_EQ(text.size(), 100'000U);
    EXPECT_LT(growths, 40U);
}

TEST(Tvstring, ReserveMakesRoomAndNeverShrinks) {
    tvstring text(u"abc");
    text.reserve(100);
    EXPECT_EQ(text.capacity(), 100U);
    const char16_t* block = text.data();
    text.reserve(5);
    text.append(97, u'x');
    EXPECT_EQ(text.data(), block);
    EXPECT_EQ(text.size(), 100U);
}

TEST(Tvstring, RefusesALengthThatThirtyTwoBitsCannotHold) {
    tvstring text(u"abc");
    EXPECT_THROW(text.reserve(std::size_t{1} << 31), std::length_error);
    EXPECT_EQ(text, u"abc");
}

// --- Content ---

TEST(Tvstring, HoldsAnEmbeddedZeroUnit) {
    const tvstring text(u"a\0b"sv);
    EXPECT_EQ(text.size(), 3U);
    EXPECT_EQ(text[1], u'\0');
    EXPECT_EQ(text, u"a\0b"sv);
    EXPECT_NE(text, u"a"sv);
    const tvstring copy(text);
    EXPECT_EQ(copy.size(), 3U);
    EXPECT_EQ(tvstring(u"a\0b\0", 4).size(), 4U);
}

TEST(Tvstring, TakesALengthFromAPointer) {
    EXPECT_EQ(tvstring(u"abcdef", 3), u"abc");
}

TEST(Tvstring, RepeatsAUnit) {
    EXPECT_EQ(tvstring(3, u'x'), u"xxx");
    EXPECT_EQ(tvstring(10, u'x').size(), 10U);
}

TEST(Tvstring, CopyingCopiesTheText) {
    tvstring text(kLong);
    tvstring copy(text);
    EXPECT_NE(copy.data(), text.data());
    copy[0] = u'A';
    EXPECT_EQ(text, kLong);
    text = copy;
    copy[0] = u'B';
    EXPECT_EQ(text[0], u'A');
}

TEST(Tvstring, MovingTakesTheBlockAndLeavesAnEmptyText) {
    tvstring text(kLong);
    const char16_t* block = text.data();
    tvstring taken(std::move(text));
    EXPECT_EQ(taken.data(), block);
    EXPECT_EQ(taken, kLong);
    EXPECT_TRUE(text.empty());  // NOLINT(bugprone-use-after-move): that it is empty is the point
    EXPECT_EQ(text.c_str()[0], u'\0');
    text = u"again";
    EXPECT_EQ(text, u"again");
}

TEST(Tvstring, MovingAShortTextLeavesNothingOfItBehind) {
    tvstring text(u"secret");
    const tvstring taken(std::move(text));
    EXPECT_EQ(taken, u"secret");
    // NOLINTNEXTLINE(bugprone-use-after-move): what is left is the point
    for (std::size_t i = 0; i <= text.capacity(); ++i)
        EXPECT_EQ(text.data()[i], u'\0');
}

TEST(Tvstring, StandsAssignmentToItself) {
    for (const std::u16string_view content : {u"short"sv, kLong}) {
        tvstring text(content);
        tvstring& same = text;
        text = same;
        EXPECT_EQ(text, content);
        text = std::move(same);
        EXPECT_EQ(text, content);
    }
}

TEST(Tvstring, AppendsItselfAlsoWhereItMustGrow) {
    tvstring text(u"abcd");
    text += text;
    EXPECT_EQ(text, u"abcdabcd");
    text += text;
    EXPECT_EQ(text, u"abcdabcdabcdabcd");
}

TEST(Tvstring, TakesAPartOfItselfAsArgument) {
    tvstring text(u"0123456789");
    text.assign(text.view().substr(3, 4));
    EXPECT_EQ(text, u"3456");
    text.append(text.view().substr(1));
    EXPECT_EQ(text, u"3456456");
    text.append(text.view().substr(0, 2));
    EXPECT_EQ(text, u"345645634");
}

TEST(Tvstring, TakesUnitsFromAnyAddress) {
    const char bytes[] =
        "\xFF"
        "a\0b\0c\0d\0e\0f\0g\0h\0i\0";
    tvstring text(kLong);
    text.assign_bytes(bytes + 1, 9);
    EXPECT_EQ(text, u"abcdefghi");
    text.assign_bytes(bytes + 3, 2);
    EXPECT_EQ(text, u"bc");
    text.assign_bytes(bytes + 1, 0);
    EXPECT_TRUE(text.empty());
}

TEST(Tvstring, ComparesUnitByUnit) {
    EXPECT_LT(tvstring(u"a"), tvstring(u"b"));
    EXPECT_LT(tvstring(u"a"), tvstring(u"aa"));
    EXPECT_GT(tvstring(u"a"), tvstring(u"A"));
    EXPECT_EQ(tvstring(u"a"), u"a");
    EXPECT_EQ(tvstring(u"a") + u"b", u"ab");
}

TEST(Tvstring, CountsASurrogatePairAsTwoUnits) {
    tvstring text(u"\U0001F511");
    EXPECT_EQ(text.size(), 2U);
    text.pop_back();
    EXPECT_EQ(text.size(), 1U);
    EXPECT_EQ(text[0], char16_t{0xD83D});
}

// --- Finding and cutting ---

TEST(Tvstring, NotFoundIsAllBitsSet) {
    const tvstring text(u"abc");
    EXPECT_EQ(text.find(u'x'), static_cast<std::size_t>(-1));
    EXPECT_EQ(text.find(u"cb"), tvstring::npos);
    EXPECT_EQ(text.rfind(u'x'), tvstring::npos);
    EXPECT_EQ(text.find(u'a', 1), tvstring::npos);
    EXPECT_EQ(text.find(u'a', 99), tvstring::npos);
}

TEST(Tvstring, FindsPositionsInUnits) {
    const tvstring text(u"\U0001F511\0ab a"sv);
    EXPECT_EQ(text.find(u"ab"), 3U);
    EXPECT_EQ(text.rfind(u'a'), 6U);
    EXPECT_EQ(text.rfind(u'a', 5), 3U);
}

TEST(Tvstring, CutsPositionsToWhatIsThere) {
    tvstring text(u"abcdef");
    EXPECT_EQ(text.substr(4, 99), u"ef");
    EXPECT_EQ(text.substr(6), u"");
    EXPECT_EQ(text.substr(99), u"");
    text.erase(4, 99);
    EXPECT_EQ(text, u"abcd");
    text.erase(99);
    EXPECT_EQ(text, u"abcd");
    text.replace(99, 1, u"e");
    EXPECT_EQ(text, u"abcde");
}

// --- Wiping ---

TEST(Tvstring, WipesItsBlockBeforeFreeingIt) {
    auto text = std::make_unique<tvstring>(kLong);
    const WipeWatch watch(text->data(), (text->capacity() + 1) * sizeof(char16_t));
    text.reset();
    EXPECT_TRUE(watch.Wiped());
}

TEST(Tvstring, WipesTheOldBlockWhenItGrows) {
    tvstring text(kLong);
    const WipeWatch watch(text.data(), text.size() * sizeof(char16_t));
    text.append(1000, u'x');
    EXPECT_TRUE(watch.Wiped());
}

TEST(Tvstring, WipesTheOldBlockWhenAnotherTextIsMovedIn) {
    tvstring text(kLong);
    const WipeWatch watch(text.data(), text.size() * sizeof(char16_t));
    text = tvstring(u"another text that lies in a block");
    EXPECT_TRUE(watch.Wiped());
}

TEST(TvstringA, WipesItsBlockBeforeFreeingIt) {
    auto bytes = std::make_unique<tvstringA>("more than fifteen bytes");
    const WipeWatch watch(bytes->data(), bytes->capacity() + 1);
    bytes.reset();
    EXPECT_TRUE(watch.Wiped());
}

TEST(Tvstring, WipesAShortTextInTheObjectWhenItGoes) {
    auto text = std::make_unique<tvstring>(u"secret!");
    ASSERT_TRUE(LiesInTheObject(*text));
    const WipeWatch watch(text->data(), 8 * sizeof(char16_t));
    text.reset();
    EXPECT_TRUE(watch.Wiped());
}

TEST(Tvstring, WipesAShortTextInTheObjectWhenItGrowsOutOfIt) {
    tvstring text(u"secret!");
    const WipeWatch watch(text.data(), 8 * sizeof(char16_t));
    text += u'?';
    EXPECT_TRUE(watch.Wiped());
}

TEST(Tvstring, OverwritesUnitsThatAreCutOff) {
    const auto isZeroBehind = [](const tvstring& text, std::size_t until) {
        return std::all_of(text.data() + text.size(), text.data() + until,
                           [](char16_t unit) { return unit == 0; });
    };
    const std::size_t length = kLong.size();
    tvstring text(kLong);
    text.resize(20);
    EXPECT_TRUE(isZeroBehind(text, length));
    text.erase(2, 3);
    EXPECT_TRUE(isZeroBehind(text, length));
    text.assign(u"xyz");
    EXPECT_TRUE(isZeroBehind(text, length));
    text.pop_back();
    EXPECT_TRUE(isZeroBehind(text, length));
    text.clear();
    EXPECT_TRUE(isZeroBehind(text, length));
}

// --- From ANSI bytes ---

TEST(Tvstring, ReadsAnsiBytesUpToTheFirstZero) {
    EXPECT_EQ(tvstring("abc\0def"), u"abc");
    EXPECT_EQ(tvstring("abc\0def", 7), u"abc\0def"sv);
    EXPECT_EQ(tvstring("abcdef", 2), u"ab");
    EXPECT_TRUE(tvstring("").empty());
}

// --- Against the standard library ---

class RandomEdits {
public:
    explicit RandomEdits(unsigned seed) : m_Random(seed) {}

    void Step() {
        const std::u16string piece = RandomText(12);
        const std::size_t at = Below(m_Model.size() + 1);
        const std::size_t count = Below(m_Model.size() - at + 4);
        switch (Below(14)) {
            case 0:
                m_Text = tvstring(piece), m_Model = piece;
                break;
            case 1:
                m_Text.assign(piece), m_Model.assign(piece);
                break;
            case 2:
                m_Text += piece, m_Model += piece;
                break;
            case 3:
                m_Text.push_back(u'p'), m_Model.push_back(u'p');
                break;
            case 4:
                m_Text.insert(at, piece), m_Model.insert(at, piece);
                break;
            case 5:
                m_Text.erase(at, count), m_Model.erase(at, count);
                break;
            case 6:
                m_Text.replace(at, count, piece), m_Model.replace(at, count, piece);
                break;
            case 7:
                m_Text.resize(count, u'r'), m_Model.resize(count, u'r');
                break;
            case 8:
                m_Text.append(count, u'q'), m_Model.append(count, u'q');
                break;
            case 9:
                AppendPartOfItself(at, count);
                break;
            case 10:
                AssignPartOfItself(at, count);
                break;
            case 11:
                MoveThroughAnother();
                break;
            case 12:
                m_Text.reserve(count * 2);
                break;
            default:
                PopOrClear();
                break;
        }
    }

    void Check() {
        ASSERT_EQ(std::u16string_view(m_Text), m_Model);
        ASSERT_EQ(m_Text.size(), m_Model.size());
        ASSERT_EQ(m_Text.c_str()[m_Model.size()], u'\0');
        ASSERT_GE(m_Text.capacity(), m_Model.size());
        const std::u16string piece = RandomText(2);
        const std::size_t at = Below(m_Model.size() + 2);
        ASSERT_EQ(m_Text.find(piece, at), m_Model.find(piece, at));
        ASSERT_EQ(m_Text.rfind(u'a', at), m_Model.rfind(u'a', at));
        ASSERT_EQ(m_Text.starts_with(piece), m_Model.starts_with(piece));
        ASSERT_EQ(m_Text.ends_with(piece), m_Model.ends_with(piece));
        if (at <= m_Model.size()) {
            ASSERT_EQ(std::u16string_view(m_Text.substr(at, 5)), m_Model.substr(at, 5));
        }
    }

private:
    std::size_t Below(std::size_t limit) { return m_Random() % limit; }

    std::u16string RandomText(std::size_t limit) {
        std::u16string text(Below(limit), u'\0');
        for (char16_t& unit : text)
            unit = u"ab\0\xD800"[Below(4)];
        return text;
    }

    void AppendPartOfItself(std::size_t at, std::size_t count) {
        if (m_Model.size() > 500) return;
        m_Text.append(m_Text.view().substr(at, count));
        m_Model.append(std::u16string(m_Model.substr(at, count)));
    }
    void AssignPartOfItself(std::size_t at, std::size_t count) {
        m_Text.assign(m_Text.view().substr(at, count));
        m_Model = std::u16string(m_Model.substr(at, count));
    }
    void MoveThroughAnother() {
        tvstring other(RandomText(20));
        other = std::move(m_Text);
        m_Text = RandomText(20);
        m_Text = std::move(other);
    }
    void PopOrClear() {
        if (Below(4) == 0) {
            m_Text.clear();
            m_Model.clear();
        } else if (!m_Model.empty()) {
            m_Text.pop_back();
            m_Model.pop_back();
        }
    }

    std::mt19937 m_Random;
    tvstring m_Text;
    std::u16string m_Model;
};

TEST(Tvstring, DoesWhatTheStandardStringDoesInAnyOrder) {
    for (unsigned seed = 1; seed <= 300; ++seed) {
        RandomEdits edits(seed);
        for (int step = 0; step < 60; ++step) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << " step " << step);
            edits.Step();
            ASSERT_NO_FATAL_FAILURE(edits.Check());
        }
    }
}

}  // namespace
