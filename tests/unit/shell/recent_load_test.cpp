#include "shell/recent_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/shell/recent_fixture.h"

namespace {

using platform::FaultPoint;
using platform::kErrorAccessDenied;

using LoadRecentTest = RecentListTest;

TEST_F(LoadRecentTest, LeavesTheListWithoutAKey) {
    list.recentItems.push_back({u"a", u""});
    EXPECT_FALSE(list.LoadRecent());
    EXPECT_EQ(Shown(), "[a>]");
    EXPECT_FALSE(Exists(kRecentKey));
}

TEST_F(LoadRecentTest, LeavesTheListWhileTheKeyCannotBeOpened) {
    PutFiles({u"b"});
    PutStamp(kNow);
    list.recentItems.push_back({u"a", u""});
    m_Faults.Fail(FaultPoint::OpenKey, kErrorAccessDenied);
    EXPECT_FALSE(list.LoadRecent());
    EXPECT_EQ(Shown(), "[a>]");
    EXPECT_EQ(list.recentLastUpdated, 0U);
}

TEST_F(LoadRecentTest, ReplacesTheListInTheOrderOfTheNumbers) {
    PutFiles({u"c:\\one.vmr|One", u"c:\\two.vmr", u"drei|Drei"});
    PutStamp(kNow);
    list.recentItems.push_back({u"a", u""});
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(Shown(), "[c:\\one.vmr>One][c:\\two.vmr>][drei>Drei]");
    EXPECT_EQ(list.recentLastUpdated, kNow);
}

TEST_F(LoadRecentTest, EmptiesTheListForAKeyWithoutValues) {
    PutStamp(kNow);
    list.recentItems.push_back({u"a", u""});
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(Shown(), "");
}

TEST_F(LoadRecentTest, RefusesAnOlderStore) {
    PutFiles({u"b"});
    PutStamp(kNow - 1);
    list.recentItems.push_back({u"a", u""});
    list.recentLastUpdated = kNow;
    EXPECT_FALSE(list.LoadRecent());
    EXPECT_EQ(Shown(), "[a>]");
    EXPECT_EQ(list.recentLastUpdated, kNow);
}

TEST_F(LoadRecentTest, TakesAStoreOfTheSameTime) {
    PutFiles({u"b"});
    PutStamp(kNow);
    list.recentLastUpdated = kNow;
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(Shown(), "[b>]");
}

TEST_F(LoadRecentTest, ComparesTimesAsUnsignedNumbersOf64Bits) {
    PutFiles({u"b"});
    const u64 cases[][2] = {{0x1'00000000, 0xFFFFFFFF}, {0x80000000'00000000, 0x7FFFFFFF'FFFFFFFF}};
    for (const auto& [later, earlier] : cases) {
        list.recentLastUpdated = earlier;
        PutStamp(later);
        EXPECT_TRUE(list.LoadRecent());
        EXPECT_EQ(list.recentLastUpdated, later);
        PutStamp(earlier);
        EXPECT_FALSE(list.LoadRecent());
    }
}

TEST_F(LoadRecentTest, TakesAStoreWithoutATimeAndKeepsItsOwn) {
    PutFiles({u"b"});
    list.recentLastUpdated = kNow;
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(Shown(), "[b>]");
    EXPECT_EQ(list.recentLastUpdated, kNow);
}

TEST_F(LoadRecentTest, TakesATimeOfAnotherSizeForNone) {
    PutFiles({u"b"});
    list.recentLastUpdated = kNow;
    for (const std::size_t size : {0U, 4U, 7U, 9U, 16U}) {
        Put(kRecentKey, u"lastUpdated", platform::kRegQuadWord, std::vector<u8>(size, 0));
        list.recentItems.clear();
        EXPECT_TRUE(list.LoadRecent()) << size;
        EXPECT_EQ(Shown(), "[b>]") << size;
        EXPECT_EQ(list.recentLastUpdated, kNow) << size;
    }
}

TEST_F(LoadRecentTest, TakesATimeOfAnyType) {
    PutStamp(kNow, platform::kRegBinary);
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(list.recentLastUpdated, kNow);
}

TEST_F(LoadRecentTest, EndsAtTheFirstNumberThatIsAbsent) {
    PutFile(1, u"a");
    PutFile(3, u"c");
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(Shown(), "[a>]");
}

TEST_F(LoadRecentTest, EndsAtTheFirstValueThatIsNoString) {
    PutFiles({u"a", u"b", u"c"});
    for (const u32 type : {2U, 3U, 4U}) {
        Put(kRecentKey, u"File2", type, TextBytes(u"b"));
        EXPECT_TRUE(list.LoadRecent());
        EXPECT_EQ(Shown(), "[a>]") << type;
    }
}

TEST_F(LoadRecentTest, SkipsAnEmptyText) {
    PutFiles({u"a", u"", u"c"});
    Put(kRecentKey, u"File4", platform::kRegString, {});
    PutFile(5, u"e");
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(Shown(), "[a>][c>][e>]");
}

TEST_F(LoadRecentTest, ReadsNoMoreThanEightValues) {
    PutFiles({u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"10"});
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(Shown(), "[1>][2>][3>][4>][5>][6>][7>][8>]");
}

TEST_F(LoadRecentTest, CountsSkippedTextsAmongTheEight) {
    PutFiles({u"", u"|x", u"3", u"4", u"5", u"6", u"7", u"8", u"9"});
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(Shown(), "[3>][4>][5>][6>][7>][8>]");
}

TEST_F(LoadRecentTest, ReadsNothingByTheNameOfTheFormatsBuffer) {
    PutText(kRecentKey, u"File000", u"never");
    PutText(kRecentKey, u"File0", u"never");
    PutText(kRecentKey, u"File01", u"never");
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(Shown(), "");
}

TEST_F(LoadRecentTest, PartsATextAtItsFirstBar) {
    EXPECT_EQ(LoadedFrom(u"a.vmr|name"), "[a.vmr>name]");
    EXPECT_EQ(LoadedFrom(u"a|b|c"), "[a>b|c]");
    EXPECT_EQ(LoadedFrom(u"a||c"), "[a>|c]");
    EXPECT_EQ(LoadedFrom(u"a|"), "[a>]");
}

TEST_F(LoadRecentTest, DropsATextThatBeginsWithABar) {
    EXPECT_EQ(LoadedFrom(u"|name"), "");
    EXPECT_EQ(LoadedFrom(u"|"), "");
    PutFiles({u"a", u"|x", u"c"});
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(Shown(), "[a>][c>]");
}

TEST_F(LoadRecentTest, TrimsBothPartsOfAParted) {
    EXPECT_EQ(LoadedFrom(u" \t\r\na b\n\r\t | \t\r\nc d\n\r\t "), "[a b>c d]");
    EXPECT_EQ(LoadedFrom(u"a| "), "[a>]");
    EXPECT_EQ(LoadedFrom(u"\u00A0a\u00A0|\u00A0b"), "[\u00A0a\u00A0>\u00A0b]");
}

TEST_F(LoadRecentTest, KeepsTheBlanksOfATextWithoutABar) {
    EXPECT_EQ(LoadedFrom(u" a\t"), "[ a\t>]");
    EXPECT_EQ(LoadedFrom(u" "), "[ >]");
}

TEST_F(LoadRecentTest, KeepsAnEntryWhosePathIsTrimmedToNothing) {
    EXPECT_EQ(LoadedFrom(u" |name"), "[>name]");
}

TEST_F(LoadRecentTest, KeepsALongName) {
    const tvstring name(300, u'n');
    PutFile(1, tvstring(u"a|") + name);
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(list.recentItems[0].name, name);
}

// --- FormatRecent, ParseRecent ---

TEST(RecentForm, HasTheNameBehindABar) {
    EXPECT_EQ(FormatRecent({u"path", u"name"}), u"path|name");
    EXPECT_EQ(FormatRecent({u"path", u""}), u"path");
}

TEST(RecentForm, ForgetsTheFormerEntry) {
    RecentItem item{u"before", u"before"};
    EXPECT_TRUE(ParseRecent(u"path", item));
    EXPECT_EQ(item.path, u"path");
    EXPECT_EQ(item.name, u"");
}

TEST(RecentForm, RefusesATextWithoutAPath) {
    RecentItem item;
    EXPECT_FALSE(ParseRecent(u"", item));
    EXPECT_FALSE(ParseRecent(u"|", item));
    EXPECT_FALSE(ParseRecent(u"|name", item));
}

}  // namespace
