#include "foundation/tvini.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundation/textfile.h"
#include "tests/unit/test_files.h"

namespace {

// The value of the key x:k in a document with the section x.
tvstring ValueOf(std::u16string_view key, const tvstring& lines) {
    tvini ini(nullptr);
    ini.Parse(tvstring(u"[x]\n") + lines);
    return ini.Get(u"x", key);
}

std::size_t CountOf(const tvstring& document) {
    tvini ini(nullptr);
    ini.Parse(document);
    std::size_t count = 0;
    for (const auto& section : ini.Sections())
        count += section.second.size();
    return count;
}

// --- tvstrmap ---

TEST(Tvstrmap, TakesKeysThatDifferInCaseForOne) {
    tvstrmap<int> map;
    map[u"Global"] = 1;
    map[u"global"] = 2;
    EXPECT_EQ(map.size(), 1U);
    EXPECT_EQ(map.find(u"GLOBAL")->second, 2);
    EXPECT_EQ(map.begin()->first, u"Global");
}

TEST(Tvstrmap, IgnoresCaseOutsideAsciiToo) {
    tvstrmap<int> map;
    map[u"\u00C4\u0416"] = 1;
    EXPECT_EQ(map.count(u"\u00E4\u0436"), 1U);
}

TEST(Tvstrmap, IsOrderedByUnitsAndNotByLanguage) {
    tvstrmap<int> map;
    for (const char16_t* key : {u"\u00E4", u"b", u"_", u"Z", u"a"})
        map[key] = 0;
    std::vector<tvstring> keys;
    for (const auto& entry : map)
        keys.push_back(entry.first);
    EXPECT_EQ(keys, (std::vector<tvstring>{u"a", u"b", u"Z", u"_", u"\u00E4"}));
}

TEST(Tvstrmap, TakesTheEmptyTextForTheFirst) {
    tvstrmap<int> map;
    map[u"a"] = 1;
    map[u""] = 0;
    EXPECT_EQ(map.begin()->second, 0);
    EXPECT_EQ(map.find(std::u16string_view())->second, 0);
}

// --- Construction and look-up ---

TEST(Tvini, KeepsTheNameOfTheDefaultSection) {
    EXPECT_EQ(tvini(u"global").DefaultSection(), u"global");
}

TEST(Tvini, TakesNoDefaultSectionFromNullOrAnEmptyName) {
    EXPECT_TRUE(tvini(nullptr).DefaultSection().empty());
    EXPECT_TRUE(tvini(u"").DefaultSection().empty());
}

TEST(Tvini, GivesAnEmptyTextForWhatIsMissing) {
    tvini ini(u"x");
    ini.Parse(u"[x]\nk = v");
    EXPECT_EQ(ini.Get(u"x", u"k"), u"v");
    EXPECT_EQ(ini.Get(u"x", u"none"), u"");
    EXPECT_EQ(ini.Get(u"none", u"k"), u"");
}

TEST(Tvini, GivesAnEmptyTextForEmptyArguments) {
    tvini ini(u"x");
    ini.Parse(u"[x]\nk = v");
    EXPECT_EQ(ini.Get(u"", u"k"), u"");
    EXPECT_EQ(ini.Get(u"x", u""), u"");
}

TEST(Tvini, FindsSectionsAndKeysInAnyCase) {
    tvini ini(nullptr);
    ini.Parse(u"[Global]\nsetpwd_Info = v");
    EXPECT_EQ(ini.Get(u"gLOBAL", u"SETPWD_info"), u"v");
}

TEST(Tvini, TellsAMissingKeyFromAnEmptyValue) {
    tvini ini(nullptr);
    ini.Parse(u"[x]\nk =");
    ASSERT_NE(ini.Find(u"x", u"k"), nullptr);
    EXPECT_TRUE(ini.Find(u"x", u"k")->empty());
    EXPECT_EQ(ini.Find(u"x", u"none"), nullptr);
}

TEST(Tvini, ClearEmptiesIt) {
    tvini ini(u"x");
    ini.Parse(u"[x]\nk = v");
    ini.Clear();
    EXPECT_TRUE(ini.Sections().empty());
    EXPECT_EQ(ini.DefaultSection(), u"x");
}

// --- Parse ---

TEST(TviniParse, ReadsPairs) {
    EXPECT_EQ(ValueOf(u"a", u"a = b"), u"b");
    EXPECT_EQ(ValueOf(u"a", u"a="), u"");
    EXPECT_EQ(CountOf(u"[x]\na="), 1U);
    EXPECT_EQ(CountOf(u"[x]\n=b"), 0U);
}

TEST(TviniParse, ReadsQuotedKeysAndValues) {
    EXPECT_EQ(ValueOf(u"a=b", u"\"a=b\" = c"), u"c");
    EXPECT_EQ(ValueOf(u"a", u"'a' = 'b'"), u"b");
    EXPECT_EQ(ValueOf(u"a", u"a = 'b"), u"'b");
    EXPECT_EQ(ValueOf(u"a", u"a = \"\""), u"\"\"");
}

TEST(TviniParse, AnOddBackslashPullsTheNextLineIn) {
    EXPECT_EQ(ValueOf(u"a", u"a = b\\\nc = d"), u"b c = d");
    EXPECT_EQ(CountOf(u"[x]\na = b\\\nc = d"), 1U);
}

TEST(TviniParse, AnEvenNumberOfBackslashesEndsTheLine) {
    EXPECT_EQ(ValueOf(u"a", u"a = b\\\\\nc = d"), u"b\\");
    EXPECT_EQ(ValueOf(u"c", u"a = b\\\\\nc = d"), u"d");
}

TEST(TviniParse, ACommentDoesNotEndAContinuedValue) {
    EXPECT_EQ(ValueOf(u"a", u"a = one\n; comment = 1\ntwo"), u"one two");
}

TEST(TviniParse, JoinsWithoutABlankBehindAnEscapedLineFeed) {
    EXPECT_EQ(ValueOf(u"a", u"a = one\\n\ntwo"), u"one\ntwo");
}

TEST(TviniParse, ReadsAKeyThatLooksLikeAComment) {
    EXPECT_EQ(ValueOf(u";x", u"\\;x = 1"), u"1");
    EXPECT_EQ(ValueOf(u"#x", u"\\#x = 1"), u"1");
}

TEST(TviniParse, DropsASectionWithoutKeys) {
    tvini ini(nullptr);
    EXPECT_TRUE(ini.Parse(u"[empty]\n[x]\nk = v\n[last]"));
    EXPECT_EQ(ini.Sections().size(), 1U);
}

TEST(TviniParse, AHeadWithoutANameEndsTheSection) {
    tvini ini(nullptr);
    ini.Parse(u"[x]\na = 1\n[]\nb = 2\n[y]\nc = 3");
    EXPECT_EQ(ini.Sections().size(), 2U);
    EXPECT_EQ(ini.Find(u"x", u"b"), nullptr);
    EXPECT_EQ(ini.Get(u"y", u"c"), u"3");
}

TEST(TviniParse, IgnoresEverythingInFrontOfTheFirstHead) {
    tvini ini(nullptr);
    EXPECT_TRUE(ini.Parse(u"a = 1\ntext\n[x]\nb = 2"));
    EXPECT_EQ(ini.Sections().size(), 1U);
    EXPECT_EQ(CountOf(u"a = 1\n[x]\nb = 2"), 1U);
}

TEST(TviniParse, ASectionNamedAgainContinuesTheFirst) {
    tvini ini(nullptr);
    ini.Parse(u"[x]\na = 1\n[y]\nb = 2\n[X]\nc = 3");
    EXPECT_EQ(ini.Sections().size(), 2U);
    EXPECT_EQ(ini.Get(u"x", u"a"), u"1");
    EXPECT_EQ(ini.Get(u"x", u"c"), u"3");
}

TEST(TviniParse, ALaterEqualKeyOverwrites) {
    EXPECT_EQ(ValueOf(u"key", u"key = 1\nKEY = 2"), u"2");
    EXPECT_EQ(CountOf(u"[x]\nkey = 1\nKEY = 2"), 1U);
}

TEST(TviniParse, UnescapesNamesKeysAndValues) {
    tvini ini(nullptr);
    ini.Parse(u"[a\\\\b]\n'c\\'d' = e\\tf");
    EXPECT_EQ(ini.Get(u"a\\b", u"c'd"), u"e\tf");
}

TEST(TviniParse, ReplacesEarlierContent) {
    tvini ini(nullptr);
    ini.Parse(u"[x]\na = 1");
    EXPECT_TRUE(ini.Parse(u"[y]\nb = 2"));
    EXPECT_EQ(ini.Sections().size(), 1U);
    EXPECT_EQ(ini.Find(u"x", u"a"), nullptr);
}

TEST(TviniParse, GivesFalseForADocumentWithoutAnyKey) {
    tvini ini(nullptr);
    EXPECT_FALSE(ini.Parse(u""));
    EXPECT_FALSE(ini.Parse(u" \r\n; comment"));
    EXPECT_FALSE(ini.Parse(u"[x]\n[y]"));
    EXPECT_FALSE(ini.Parse(u"a = 1"));
    EXPECT_TRUE(ini.Sections().empty());
}

TEST(TviniParse, DropsBadLinesWithoutAWord) {
    tvini ini(nullptr);
    EXPECT_TRUE(ini.Parse(u"[x]\n= 1\n\"\" = 2\nk = v"));
    EXPECT_EQ(ini.Sections().at(u"x").size(), 1U);
}

TEST(TviniParse, KnowsNoLimits) {
    constexpr std::size_t kMany = 5000;
    tvstring document;
    for (std::size_t i = 0; i < kMany; ++i) {
        const std::u16string number(1, static_cast<char16_t>(0x4E00 + i));
        document += u"[s" + number + u"]\nk" + number + u" = v\n";
    }
    document += u"[long]\nvalue = " + std::u16string(1'000'000, u'x');
    tvini ini(nullptr);
    EXPECT_TRUE(ini.Parse(document));
    EXPECT_EQ(ini.Sections().size(), kMany + 1);
    EXPECT_EQ(ini.Get(u"long", u"value").size(), 1'000'000U);
}

TEST(TviniParse, TakesOneValueOfVeryManyLines) {
    constexpr std::size_t kMany = 200'000;
    tvstring document(u"[x]\nk = v\n");
    for (std::size_t i = 0; i < kMany; ++i)
        document += u"w\n";
    EXPECT_EQ(CountOf(document), 1U);
    EXPECT_EQ(ValueOf(u"k", document).size(), 1 + 2 * kMany);
}

// --- OnKey ---

class Recorder : public tvini {
public:
    Recorder() : tvini(nullptr) {}

    std::vector<std::u16string> seen;

private:
    void OnKey(const tvstring& section, const tvstring& key, tvstring& value) override {
        const bool isStored = Find(section, key) != nullptr;
        seen.push_back(std::u16string(section) + u"/" + std::u16string(key) + u"/" + std::u16string(value) +
                       (isStored ? u"/stored" : u""));
        value += u"!";
    }
};

TEST(TviniOnKey, SeesEachPairBeforeItIsStoredAndMayChangeTheValue) {
    Recorder ini;
    ini.Parse(u"a = 0\n[x]\nb = 1\nB = \\t\n= 3\n[]\nc = 4");
    EXPECT_EQ(ini.seen, (std::vector<std::u16string>{u"x/b/1", u"x/B/\t/stored"}));
    EXPECT_EQ(ini.Get(u"x", u"b"), u"\t!");
}

// --- Load ---

TEST(TviniLoad, ReadsAFileOfEachEncoding) {
    const TempFolder folder;
    const tvstring path = folder.Path(u"a.ini");
    for (const int encoding : {TEXT_UTF16LE, TEXT_ANSI, TEXT_UTF8, TEXT_UTF16BE}) {
        ASSERT_TRUE(WriteTextFile(u"[x]\r\nk = caf\u00E9\r\n", path, encoding));
        tvini ini(nullptr);
        EXPECT_TRUE(ini.Load(path)) << encoding;
        EXPECT_EQ(ini.Get(u"x", u"k"), u"caf\u00E9") << encoding;
    }
}

TEST(TviniLoad, GivesFalseAndNothingForAFileThatCannotBeRead) {
    const TempFolder folder;
    tvini ini(nullptr);
    ini.Parse(u"[x]\nk = v");
    EXPECT_FALSE(ini.Load(folder.Path(u"none.ini")));
    EXPECT_TRUE(ini.Sections().empty());
}

TEST(TviniLoad, GivesFalseForAnEmptyFileAndAFolder) {
    const TempFolder folder;
    WriteBytes(folder.Path(u"a.ini"), "");
    tvini ini(nullptr);
    EXPECT_FALSE(ini.Load(folder.Path(u"a.ini")));
    EXPECT_FALSE(ini.Load(folder.Path()));
    EXPECT_FALSE(ini.Load(tvstring()));
}

}  // namespace
