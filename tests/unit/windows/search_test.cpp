#include "windows/search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/database/open_database.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr u8 kAllModes[] = {FilterAll, FilterExact, FilterAny, FilterWithout, 4, 255};

std::vector<std::u16string> WordsOf(const tvstring& text, u8 mode) {
    const ItemFilter filter(text, mode, SearchPasswords::No);
    std::vector<std::u16string> words;
    for (const TextFinder& word : filter.Words())
        words.emplace_back(word.Word().view());
    return words;
}

class Search : public OpenDatabase {
protected:
    // Whether an element stays in the view.
    static bool Stays(const VMRD_Element* element, const tvstring& text, u8 mode,
                      SearchPasswords passwords = SearchPasswords::No) {
        return MatchesFilter(element, text, mode, passwords);
    }

    ItemElement* account = PutItem(u"Mail account", {Program(u"https://mail.example"), Username(u"me@mail"),
                                                     Password(u"hidden tulip"), Addition(u"second note")});
};

TEST_F(Search, HasTheNumbersOfTheModesAsTheirValues) {
    EXPECT_EQ(FilterAll, 0);
    EXPECT_EQ(FilterExact, 1);
    EXPECT_EQ(FilterAny, 2);
    EXPECT_EQ(FilterWithout, 3);
}

// --- Words ---

TEST_F(Search, CutsTheTextAtBlanks) {
    EXPECT_THAT(WordsOf(u"one two", FilterAll), ElementsAre(u"one", u"two"));
    EXPECT_THAT(WordsOf(u"  one   two ", FilterAny), ElementsAre(u"one", u"two"));
    EXPECT_THAT(WordsOf(u"one", FilterWithout), ElementsAre(u"one"));
    EXPECT_THAT(WordsOf(u"one two", 200), ElementsAre(u"one", u"two"));
}

TEST_F(Search, CutsAtNothingElse) {
    EXPECT_THAT(WordsOf(u"one\ttwo", FilterAll), ElementsAre(u"one\ttwo"));
    EXPECT_THAT(WordsOf(u"one\r\ntwo\u00A0three\u3000four", FilterAll),
                ElementsAre(u"one\r\ntwo\u00A0three\u3000four"));
}

TEST_F(Search, TakesTheWholeTextAsTheExactPhrase) {
    EXPECT_THAT(WordsOf(u" one  two ", FilterExact), ElementsAre(u" one  two "));
    EXPECT_THAT(WordsOf(u"   ", FilterExact), ElementsAre(u"   "));
}

TEST_F(Search, HasNoWordForAnEmptyText) {
    for (const u8 mode : kAllModes)
        EXPECT_THAT(WordsOf(u"", mode), IsEmpty());
}

TEST_F(Search, OrdersItsWordsByTheirUnits) {
    EXPECT_THAT(WordsOf(u"b a ab B \u00E9 Z \uFFFF \U0001F511", FilterAll),
                ElementsAre(u"B", u"Z", u"a", u"ab", u"b", u"\u00E9", u"\U0001F511", u"\uFFFF"));
}

TEST_F(Search, HasEachWordOnceButBothCasesOfIt) {
    EXPECT_THAT(WordsOf(u"alpha alpha", FilterAll), ElementsAre(u"alpha"));
    EXPECT_THAT(WordsOf(u"alpha ALPHA alpha", FilterAll), ElementsAre(u"ALPHA", u"alpha"));
}

// --- What always stays ---

TEST_F(Search, KeepsEverythingWithoutAText) {
    for (const u8 mode : kAllModes) {
        EXPECT_TRUE(Stays(account, u"", mode));
        EXPECT_TRUE(Stays(account->m_Head, u"", mode));
    }
}

TEST_F(Search, KeepsNull) {
    for (const u8 mode : kAllModes)
        EXPECT_TRUE(Stays(nullptr, u"nowhere", mode));
}

TEST_F(Search, OfBlanksAloneIsNoneButForTheExactPhrase) {
    for (const u8 mode : {u8{FilterAll}, u8{FilterAny}, u8{FilterWithout}, u8{4}})
        EXPECT_TRUE(Stays(account, u"  ", mode));
    EXPECT_TRUE(Stays(account, u" ", FilterExact));
    EXPECT_FALSE(Stays(account, u"  ", FilterExact));
    EXPECT_TRUE(Stays(PutItem(u"two  blanks"), u"  ", FilterExact));
    EXPECT_FALSE(Stays(PutItem(u"none"), u" ", FilterExact));
}

// --- Fields ---

TEST_F(Search, LooksIntoNameAndEntriesOfEveryTypeButThePassword) {
    for (const char16_t* word : {u"account", u"https", u"me@", u"second"}) {
        EXPECT_TRUE(Stays(account, word, FilterAll));
        EXPECT_TRUE(Stays(account, word, FilterExact));
        EXPECT_TRUE(Stays(account, word, FilterAny));
        EXPECT_FALSE(Stays(account, word, FilterWithout));
    }
}

TEST_F(Search, FindsAWordOfThePasswordOnlyIfAskedTo) {
    for (const u8 mode : {u8{FilterAll}, u8{FilterExact}, u8{FilterAny}, u8{4}}) {
        EXPECT_FALSE(Stays(account, u"tulip", mode, SearchPasswords::No));
        EXPECT_TRUE(Stays(account, u"tulip", mode, SearchPasswords::Yes));
    }
}

TEST_F(Search, WithoutAWordOfThePasswordKeepsTheItemUnlessAskedToLookThere) {
    EXPECT_TRUE(Stays(account, u"tulip", FilterWithout, SearchPasswords::No));
    EXPECT_FALSE(Stays(account, u"tulip", FilterWithout, SearchPasswords::Yes));
}

TEST_F(Search, LooksIntoEveryPassword) {
    const ItemElement* item = PutItem(u"two", {Password(u"first"), Password(u"second"), Program(u"third")});
    EXPECT_FALSE(Stays(item, u"second", FilterAll, SearchPasswords::No));
    EXPECT_TRUE(Stays(item, u"second", FilterAll, SearchPasswords::Yes));
    EXPECT_TRUE(Stays(item, u"third", FilterAll, SearchPasswords::No));
}

TEST_F(Search, LooksIntoAnEntryOfAnyTypeThatIsAskedForAlone) {
    const VMRD_Entry password = Password(u"hidden tulip");
    EXPECT_TRUE(Stays(&password, u"tulip", FilterAll, SearchPasswords::No));
    EXPECT_FALSE(Stays(&password, u"tulip", FilterWithout, SearchPasswords::No));
    EXPECT_FALSE(Stays(&password, u"account", FilterAll));
    const VMRD_Entry addition = Addition(u"note");
    EXPECT_TRUE(Stays(&addition, u"NOTE", FilterAny));
}

TEST_F(Search, FindsNothingInAnEmptyEntryAndAnEmptyName) {
    const ItemElement* item = PutItem(u"", {Program(u""), Addition(u"")});
    EXPECT_FALSE(Stays(item, u"a", FilterAll));
    EXPECT_FALSE(Stays(item, u" ", FilterExact));
    EXPECT_FALSE(Stays(item, u"a", FilterAny));
    EXPECT_TRUE(Stays(item, u"a", FilterWithout));
    const VMRD_Entry entry = Addition(u"");
    EXPECT_FALSE(Stays(&entry, u"a", FilterAll));
    EXPECT_TRUE(Stays(&entry, u"a", FilterWithout));
}

TEST_F(Search, FindsEntriesOfAnItemWithAnEmptyName) {
    EXPECT_TRUE(Stays(PutItem(u"", {Program(u""), Addition(u"note")}), u"note", FilterAll));
}

TEST_F(Search, IgnoresCase) {
    EXPECT_TRUE(Stays(account, u"mAIL aCCOUNT", FilterExact));
    EXPECT_TRUE(Stays(PutItem(u"\u00C9t\u00E9"), u"\u00E9T\u00C9", FilterAll));
}

TEST_F(Search, LooksAtTheTextItselfAndNotAtItsOneLineForm) {
    const VMRD_Entry entry = Addition(u"one\r\ntwo");
    EXPECT_FALSE(Stays(&entry, u"one two", FilterExact));
    EXPECT_TRUE(Stays(&entry, u"one\r\ntwo", FilterExact));
}

// --- Modes ---

TEST_F(Search, ForAllWordsWantsEach) {
    EXPECT_TRUE(Stays(account, u"second account", FilterAll));
    EXPECT_TRUE(Stays(account, u"note https me@", FilterAll));
    EXPECT_FALSE(Stays(account, u"account nowhere", FilterAll));
    EXPECT_FALSE(Stays(account, u"nowhere account", FilterAll));
}

TEST_F(Search, ForAllWordsCountsAWordInEachFieldThatHasIt) {
    const ItemElement* both = PutItem(u"alpha", {Program(u""), Username(u"ALPHA"), Password(u"")});
    const ItemElement* one = PutItem(u"alpha alpha", {Program(u""), Username(u"gamma"), Password(u"")});
    EXPECT_TRUE(Stays(both, u"alpha beta", FilterAll));
    EXPECT_FALSE(Stays(both, u"alpha beta gamma", FilterAll));
    EXPECT_FALSE(Stays(one, u"alpha beta", FilterAll));
}

TEST_F(Search, ForAllWordsCountsBothCasesOfAWordInOneField) {
    EXPECT_TRUE(Stays(PutItem(u"only alpha"), u"alpha ALPHA", FilterAll));
    EXPECT_TRUE(Stays(PutItem(u"only alpha"), u"alpha alpha", FilterAll));
    EXPECT_FALSE(Stays(PutItem(u"only alpha"), u"alpha ALPHA beta", FilterAll));
}

// "alpha" and "ALPHA" hit in three fields each: six pairs, which do for six words.
TEST_F(Search, ForAllWordsCountsPairsOverAllFields) {
    const ItemElement* item =
        PutItem(u"alpha", {Program(u"nothing"), Username(u"alpha"), Addition(u"Alpha")});
    EXPECT_TRUE(Stays(item, u"alpha ALPHA beta gamma delta eps", FilterAll));
    EXPECT_FALSE(Stays(item, u"alpha ALPHA beta gamma delta eps zeta", FilterAll));
}

TEST_F(Search, ForTheExactPhraseWantsItWhole) {
    EXPECT_TRUE(Stays(account, u"mail account", FilterExact));
    EXPECT_FALSE(Stays(account, u"account mail", FilterExact));
    EXPECT_FALSE(Stays(account, u"mail account ", FilterExact));
    EXPECT_FALSE(Stays(account, u"mail  account", FilterExact));
}

TEST_F(Search, ForAnyWordWantsOne) {
    EXPECT_TRUE(Stays(account, u"nowhere note", FilterAny));
    EXPECT_TRUE(Stays(account, u"mail nowhere", FilterAny));
    EXPECT_FALSE(Stays(account, u"nowhere neither", FilterAny));
}

TEST_F(Search, WithoutWordsWantsNone) {
    EXPECT_FALSE(Stays(PutItem(u"x", {Program(u"has a in it")}), u"a b", FilterWithout));
    EXPECT_FALSE(Stays(PutItem(u"b"), u"a b", FilterWithout));
    EXPECT_FALSE(Stays(PutItem(u"x", {Program(u""), Username(u""), Addition(u"A")}), u"a b", FilterWithout));
    EXPECT_TRUE(Stays(PutItem(u"x", {Program(u"y")}), u"a b", FilterWithout));
}

TEST_F(Search, TakesAnyOtherModeAsAllWords) {
    for (const u8 mode : {u8{4}, u8{7}, u8{128}, u8{255}}) {
        EXPECT_TRUE(Stays(account, u"second account", mode));
        EXPECT_FALSE(Stays(account, u"account nowhere", mode));
        EXPECT_FALSE(Stays(account, u"nowhere", mode));
    }
}

TEST_F(Search, StartsToCountAnewForEachElement) {
    const ItemFilter filter(u"alpha beta", FilterAll, SearchPasswords::No);
    const ItemElement* alpha = PutItem(u"alpha");
    const ItemElement* both = PutItem(u"alpha beta");
    EXPECT_FALSE(filter.Matches(alpha));
    EXPECT_FALSE(filter.Matches(alpha));
    EXPECT_TRUE(filter.Matches(both));
    EXPECT_FALSE(filter.Matches(alpha));
}

}  // namespace
