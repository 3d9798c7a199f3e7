// The order of names for the user, by comparison and by sort keys, and the search that ignores case.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"

namespace {

using platform::CompareForUser;
using platform::FindNoCase;
using platform::kNotFound;
using platform::SortKeyForUser;
using Random = std::mt19937;
using Key = std::vector<u8>;

Key KeyOf(const std::u16string& text) {
    Key key(SortKeyForUser(text.c_str(), nullptr, 0));
    EXPECT_EQ(SortKeyForUser(text.c_str(), key.data(), key.size()), key.size());
    return key;
}

// -1, 0 or 1 as the bytes say.
int CompareKeys(const Key& a, const Key& b) {
    return a < b ? -1 : b < a ? 1 : 0;
}

std::string Numbers(const std::u16string& text) {
    std::string numbers;
    for (const char16_t unit : text)
        numbers.append(" ").append(std::to_string(static_cast<unsigned>(unit)));
    return numbers;
}

void ExpectKeysInOrder(const std::u16string& a, const std::u16string& b) {
    const int order = CompareForUser(a.c_str(), b.c_str());
    ASSERT_EQ(CompareKeys(KeyOf(a), KeyOf(b)), order) << "a" << Numbers(a) << "\nb" << Numbers(b);
    ASSERT_EQ(CompareForUser(b.c_str(), a.c_str()), -order) << "a" << Numbers(a) << "\nb" << Numbers(b);
}

// --- Comparison ---

TEST(CompareForUser, TakesDigitsAsNumbers) {
    EXPECT_EQ(CompareForUser(u"Item 9", u"Item 10"), -1);
    EXPECT_EQ(CompareForUser(u"Item 10", u"Item 9"), 1);
    EXPECT_EQ(CompareForUser(u"2 b", u"10 a"), -1);
    EXPECT_EQ(CompareForUser(u"1.9", u"1.10"), -1);
    EXPECT_EQ(CompareForUser(u"a999999999999", u"a1000000000000"), -1);
}

TEST(CompareForUser, IgnoresCase) {
    EXPECT_EQ(CompareForUser(u"item 1", u"ITEM 1"), 0);
    EXPECT_EQ(CompareForUser(u"\u00E9t\u00E9", u"\u00C9T\u00C9"), 0);
    EXPECT_EQ(CompareForUser(u"\u0436", u"\u0416"), 0);
    EXPECT_EQ(CompareForUser(u"a", u"B"), -1);
    EXPECT_EQ(CompareForUser(u"B", u"a"), 1);
}

TEST(CompareForUser, PutsLettersWithAccentsBesideTheirOwn) {
    EXPECT_EQ(CompareForUser(u"e", u"\u00E9"), -1);
    EXPECT_EQ(CompareForUser(u"\u00E9", u"f"), -1);
    EXPECT_EQ(CompareForUser(u"\u00C9a", u"eb"), -1);
}

TEST(CompareForUser, PutsTheEmptyTextFirst) {
    EXPECT_EQ(CompareForUser(u"", u"a"), -1);
    EXPECT_EQ(CompareForUser(u"a", u""), 1);
    EXPECT_EQ(CompareForUser(u"", u""), 0);
    EXPECT_EQ(CompareForUser(u"ab", u"abc"), -1);
}

TEST(CompareForUser, EndsAtAZeroUnit) {
    EXPECT_EQ(CompareForUser(u"a\0b", u"a\0c"), 0);
    EXPECT_EQ(CompareForUser(u"a\0b", u"a"), 0);
}

// --- Sort keys ---

TEST(SortKeyForUser, TellsTheSizeWithoutRoom) {
    const std::size_t size = SortKeyForUser(u"Vaultmere", nullptr, 0);
    ASSERT_GT(size, 9U);
    for (const std::size_t room : {std::size_t{1}, size / 2, size - 1}) {
        Key key(size, 0xAA);
        EXPECT_EQ(SortKeyForUser(u"Vaultmere", key.data(), room), size);
        for (std::size_t i = room; i < size; ++i)
            ASSERT_EQ(key[i], 0xAA) << room;
    }
}

TEST(SortKeyForUser, WritesNothingBehindItsEnd) {
    for (const char16_t* text : {u"", u"a", u"Vaultmere 12", u"\u00E9t\u00E9 \u6F22"}) {
        const std::size_t size = SortKeyForUser(text, nullptr, 0);
        Key key(size + 40, 0xAA);
        EXPECT_EQ(SortKeyForUser(text, key.data(), key.size()), size);
        for (std::size_t i = size; i < key.size(); ++i)
            ASSERT_EQ(key[i], 0xAA);
    }
}

TEST(SortKeyForUser, HasAKeyForTheEmptyText) {
    EXPECT_GT(SortKeyForUser(u"", nullptr, 0), 0U);
    EXPECT_LT(KeyOf(u""), KeyOf(u"a"));
}

TEST(SortKeyForUser, IsTheSameForBothCases) {
    EXPECT_EQ(KeyOf(u"item 1"), KeyOf(u"ITEM 1"));
    EXPECT_EQ(KeyOf(u"\u00E9t\u00E9"), KeyOf(u"\u00C9T\u00C9"));
}

TEST(SortKeyForUser, TakesDigitsAsNumbers) {
    EXPECT_LT(KeyOf(u"Item 9"), KeyOf(u"Item 10"));
    EXPECT_LT(KeyOf(u"Item 99"), KeyOf(u"Item 100"));
    EXPECT_LT(KeyOf(u"Item 999 b"), KeyOf(u"Item 1000 a"));
}

TEST(SortKeyForUser, EndsAtAZeroUnit) {
    EXPECT_EQ(KeyOf(std::u16string(u"a\0b", 3)), KeyOf(u"a"));
}

TEST(SortKeyForUser, HasAKeyForALongText) {
    const std::u16string text(20'000, u'x');
    ExpectKeysInOrder(text + u"1", text + u"2");
}

// --- Keys against comparison ---

struct Pieces {
    std::vector<std::u16string_view> pieces;
    unsigned most;  // pieces in a name
};

std::u16string NameOf(Random& random, const Pieces& pieces) {
    std::u16string name;
    for (unsigned count = static_cast<unsigned>(random()) % (pieces.most + 1); count > 0; --count)
        name += pieces.pieces[random() % pieces.pieces.size()];
    return name;
}

// Pairs of names of the same pieces, half of them with the same beginning.
void ComparePairs(unsigned seed, const Pieces& pieces, int pairs) {
    Random random(seed);
    int equal = 0;
    for (int i = 0; i < pairs && !testing::Test::HasFatalFailure(); ++i) {
        const std::u16string start = random() % 2 == 0 ? u"" : NameOf(random, pieces);
        const std::u16string a = start + NameOf(random, pieces);
        const std::u16string b = start + NameOf(random, pieces);
        ExpectKeysInOrder(a, b);
        equal += CompareForUser(a.c_str(), b.c_str()) == 0 ? 1 : 0;
    }
    EXPECT_LT(equal, pairs / 2);
}

TEST(OrderProperty, OfKeysIsThatOfComparisonForPlainUnits) {
    std::u16string units;
    for (char16_t unit = 1; unit <= 0x7F; ++unit)
        units += unit;
    Pieces pieces{{}, 12};
    for (std::size_t i = 0; i < units.size(); ++i)
        pieces.pieces.push_back(std::u16string_view(units).substr(i, 1));
    ComparePairs(1, pieces, 10'000);
}

TEST(OrderProperty, OfKeysIsThatOfComparisonForNamesOfItems) {
    ComparePairs(
        2,
        {{u"Mail", u"mail", u" ", u"-", u"_", u".", u"@", u"example", u"Item", u"9", u"10", u"0", u"1"}, 6},
        10'000);
}

TEST(OrderProperty, OfKeysIsThatOfComparisonForNumbers) {
    ComparePairs(3,
                 {{u"0", u"00", u"1", u"9", u"10", u"099", u"100", u"255", u"256", u"999", u"1000", u"65536",
                   u"4294967296", u"12345678901234567890", u"a", u" ", u".", u"-"},
                  5},
                 10'000);
}

TEST(OrderProperty, OfKeysIsThatOfComparisonForPunctuation) {
    ComparePairs(4,
                 {{u"!", u"\"", u"#", u"$", u"%", u"&", u"'", u"(", u")", u"*", u"+",  u",",
                   u"-", u".",  u"/", u":", u";", u"<", u"=", u">", u"?", u"@", u"[",  u"\\",
                   u"]", u"^",  u"_", u"`", u"{", u"|", u"}", u"~", u"a", u"b", u"\t", u"\r\n"},
                  6},
                 10'000);
}

TEST(OrderProperty, OfKeysIsThatOfComparisonForLettersOfManyLanguages) {
    ComparePairs(5,
                 {{u"a",      u"\u00E4", u"\u00C4", u"\u00E9", u"e",      u"\u00DF", u"ss",     u"\u00F1",
                   u"\u00E5", u"\u0142", u"\u0131", u"i",      u"I",      u"\u0130", u"\u03B1", u"\u03C3",
                   u"\u03C2", u"\u0436", u"\u0416", u"\u0451", u"\u05D0", u"\u0627", u"\u0E01", u"\u3042",
                   u"\u30A2", u"\u6F22", u"\uAC00", u"1",      u"10",     u" "},
                  6},
                 10'000);
}

TEST(OrderProperty, OfKeysIsThatOfComparisonForOddUnits) {
    ComparePairs(
        6,
        {{u"e\u0301", u"\u00E9", u"\u0301", u"\u200B", u"\u00AD", u"\uFEFF", u"\uFFFD", u"\uFFFF",
          u"\U0001F511", u"\u00BD", u"\u00B2", u"\uFF11", u"\u0661", u"\uFB01", u"fi", u"a", u"2", u" "},
         5},
        5'000);
}

// A list that is put in order by its keys is in order by comparison too, each name with each.
TEST(OrderProperty, OfKeysIsOneOrderOfAllNames) {
    Random random(7);
    const Pieces pieces = {{u"a", u"B", u"\u00E9", u"9", u"10", u" ", u"-", u"'"}, 4};
    std::vector<std::u16string> names;
    for (int i = 0; i < 200; ++i)
        names.push_back(NameOf(random, pieces));
    std::sort(names.begin(), names.end(),
              [](const std::u16string& a, const std::u16string& b) { return KeyOf(a) < KeyOf(b); });
    for (std::size_t i = 0; i < names.size(); ++i) {
        for (std::size_t k = i + 1; k < names.size(); ++k)
            ASSERT_LE(CompareForUser(names[i].c_str(), names[k].c_str()), 0)
                << Numbers(names[i]) << " and" << Numbers(names[k]);
    }
}

// --- Finding ---

TEST(FindNoCaseOfNames, GivesTheFirstOfSeveralPlaces) {
    EXPECT_EQ(FindNoCase(u"one ONE One", u"One"), 0U);
    EXPECT_EQ(FindNoCase(u"xx ONE One", u"One"), 3U);
    EXPECT_EQ(FindNoCase(u"aaaaab", u"AAB"), 3U);
}

TEST(FindNoCaseOfNames, FindsNoEmptyWord) {
    EXPECT_EQ(FindNoCase(u"abc", u""), kNotFound);
    EXPECT_EQ(FindNoCase(u"", u""), kNotFound);
}

TEST(FindNoCaseOfNames, FindsAWordUpToItsZeroUnit) {
    EXPECT_EQ(FindNoCase(u"xab", u"AB\0cd"), 1U);
}

TEST(FindNoCaseOfNames, TakesUnitsThatAreNoLettersAsTheyAre) {
    EXPECT_EQ(FindNoCase(u"[\\]^", u"{"), kNotFound);
    EXPECT_EQ(FindNoCase(u"@", u"`"), kNotFound);
    EXPECT_EQ(FindNoCase(u"a\tb", u"\tB"), 1U);
}

TEST(FindNoCaseOfNames, IgnoresCaseInEveryAlphabet) {
    EXPECT_EQ(FindNoCase(u"x\u03B1\u03B2", u"\u0391\u0392"), 1U);
    EXPECT_EQ(FindNoCase(u"\u043F\u0430\u0440\u043E\u043B\u044C", u"\u0420\u041E"), 2U);
    EXPECT_EQ(FindNoCase(u"e", u"\u00E9"), kNotFound);
}

}  // namespace
