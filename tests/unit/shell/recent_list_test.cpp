#include "shell/recent_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/unit/shell/recent_fixture.h"

namespace {

using platform::FaultPoint;
using platform::kErrorAccessDenied;

using StoreRecentTest = RecentListTest;
using AddRecentTest = RecentListTest;
using RemoveRecentTest = RecentListTest;
using ClearRecentTest = RecentListTest;

TEST_F(RecentListTest, StartsEmptyWithEightPlaces) {
    EXPECT_TRUE(list.recentItems.empty());
    EXPECT_EQ(list.recentMax, 8);
    EXPECT_EQ(list.recentLastUpdated, 0U);
    EXPECT_EQ(std::u16string(kRecentKey), u"Software\\Tolvane\\Vaultmere\\Recent File List");
}

// --- StoreRecent ---

TEST_F(StoreRecentTest, MakesTheKeyAndWritesTheWholeList) {
    list.recentItems = {{u"c:\\ä.vmr", u"Ä"}, {u"b", u""}};
    list.recentLastUpdated = 0x0102030405060708;
    EXPECT_TRUE(list.StoreRecent());
    EXPECT_EQ(StoredFile(1), StoredText(u"c:\\ä.vmr|Ä"));
    EXPECT_EQ(StoredFile(2), "1:62000000");
    EXPECT_EQ(StoredFile(3), "absent");
    EXPECT_EQ(StoredStamp(), "11:0807060504030201");
}

TEST_F(StoreRecentTest, ReadsBackAsItWas) {
    list.recentItems = {{u"a", u"name"}, {u"b", u""}, {u" c ", u""}};
    list.StoreRecent();
    RecentList again;
    EXPECT_TRUE(again.LoadRecent());
    EXPECT_EQ(Shown(again), "[a>name][b>][ c >]");
}

TEST_F(StoreRecentTest, HasNoEscapeForABarInAPath) {
    list.recentItems = {{u"a|b", u"name"}};
    list.StoreRecent();
    EXPECT_EQ(StoredFiles(), "[a|b|name]");
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(Shown(), "[a>b|name]");
}

TEST_F(StoreRecentTest, RemovesTheTailOfAListThatHasBecomeShorter) {
    PutFiles({u"1", u"2", u"3", u"4"});
    list.recentItems = {{u"a", u""}};
    list.StoreRecent();
    EXPECT_EQ(StoredFiles(), "[a]");
    for (const int number : {2, 3, 4})
        EXPECT_EQ(StoredFile(number), "absent") << number;
}

TEST_F(StoreRecentTest, RemovesValuesBehindTheEighthToo) {
    PutFiles({u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"10", u"11"});
    list.LoadRecent();
    list.StoreRecent();
    EXPECT_EQ(StoredFile(8), StoredText(u"8"));
    for (const int number : {9, 10, 11})
        EXPECT_EQ(StoredFile(number), "absent") << number;
}

TEST_F(StoreRecentTest, RemovesValuesOfAnyType) {
    Put(kRecentKey, u"File1", 3, {1});
    Put(kRecentKey, u"File2", 4, {1});
    list.StoreRecent();
    EXPECT_EQ(StoredFile(1), "absent");
    EXPECT_EQ(StoredFile(2), "absent");
}

TEST_F(StoreRecentTest, LeavesStaleValuesBehindAGap) {
    PutFile(1, u"a");
    PutFile(3, u"c");
    list.LoadRecent();
    list.StoreRecent();
    EXPECT_EQ(StoredFile(1), StoredText(u"a"));
    EXPECT_EQ(StoredFile(2), "absent");
    EXPECT_EQ(StoredFile(3), StoredText(u"c"));
}

TEST_F(StoreRecentTest, ReachesAStaleValueOnceTheGapIsFilled) {
    PutFile(1, u"a");
    PutFile(3, u"c");
    list.recentItems = {{u"x", u""}, {u"y", u""}};
    list.StoreRecent();
    EXPECT_EQ(StoredFiles(), "[x][y]");
    EXPECT_EQ(StoredFile(3), "absent");
}

TEST_F(StoreRecentTest, ClosesTheGapOfADroppedText) {
    PutFiles({u"a", u"|x", u"c"});
    list.LoadRecent();
    list.StoreRecent();
    EXPECT_EQ(StoredFiles(), "[a][c]");
    EXPECT_EQ(StoredFile(3), "absent");
}

TEST_F(StoreRecentTest, LeavesNoGapForAnEntryThatCannotBeWritten) {
    PutFiles({u"1", u"2", u"3", u"4"});
    list.recentItems = {{u"a", u""}, {u"b", u""}, {u"c", u""}};
    list.recentLastUpdated = kNow;
    m_Faults.Fail(FaultPoint::WriteValue, kErrorAccessDenied, 1);
    EXPECT_TRUE(list.StoreRecent());
    EXPECT_EQ(StoredFiles(), "[a][c]");
    EXPECT_EQ(StoredFile(3), "absent");
    EXPECT_EQ(StoredFile(4), "absent");
    EXPECT_EQ(Shown(), "[a>][b>][c>]");
    list.recentItems.clear();
    EXPECT_TRUE(list.LoadRecent());
    EXPECT_EQ(list.recentLastUpdated, kNow);
}

TEST_F(StoreRecentTest, ForgetsThatTheTimeCannotBeWritten) {
    list.recentItems = {{u"a", u""}};
    m_Faults.Fail(FaultPoint::WriteValue, kErrorAccessDenied, 1);
    EXPECT_TRUE(list.StoreRecent());
    EXPECT_EQ(StoredFiles(), "[a]");
    EXPECT_EQ(StoredStamp(), "absent");
}

TEST_F(StoreRecentTest, FailsWhileTheKeyCannotBeOpened) {
    PutFiles({u"1"});
    list.recentItems = {{u"a", u""}};
    m_Faults.Fail(FaultPoint::OpenKey, kErrorAccessDenied);
    EXPECT_FALSE(list.StoreRecent());
    EXPECT_EQ(StoredFiles(), "[1]");
    EXPECT_EQ(Shown(), "[a>]");
}

// --- AddRecent ---

TEST_F(AddRecentTest, PutsAnEntryAtTheFrontAndWritesTheList) {
    list.AddRecent(u"a", u"A");
    list.AddRecent(u"b", u"");
    EXPECT_EQ(Shown(), "[b>][a>A]");
    EXPECT_EQ(StoredFiles(), "[b][a|A]");
}

TEST_F(AddRecentTest, StampsTheListWithTheSystemsTime) {
    list.AddRecent(u"a", u"");
    EXPECT_EQ(list.recentLastUpdated, kNow);
    EXPECT_EQ(
        StoredStamp(), "11:" + [] {
            std::vector<u8> bytes(8);
            std::memcpy(bytes.data(), &kNow, 8);
            return ToHex(bytes);
        }());
}

TEST_F(AddRecentTest, DoesNothingForAnEmptyPath) {
    list.AddRecent(u"", u"name");
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(list.recentLastUpdated, 0U);
    EXPECT_FALSE(Exists(kRecentKey));
}

TEST_F(AddRecentTest, CutsANameTo260Units) {
    for (const std::size_t length : {259U, 260U, 261U, 1000U}) {
        list.AddRecent(u"a", tvstring(length - 1, u'n') + u"x");
        const std::size_t expected = std::min<std::size_t>(length, 260);
        EXPECT_EQ(list.recentItems[0].name.size(), expected);
        EXPECT_EQ(list.recentItems[0].name.back(), length <= 260 ? u'x' : u'n') << length;
    }
    EXPECT_EQ(RecentList::kLongestName, 260U);
}

TEST_F(AddRecentTest, DropsTheOldestWithTheNinth) {
    for (const char16_t* path : {u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9"})
        list.AddRecent(path, u"");
    EXPECT_EQ(Shown(), "[9>][8>][7>][6>][5>][4>][3>][2>]");
    EXPECT_EQ(StoredFiles(), "[9][8][7][6][5][4][3][2]");
    EXPECT_EQ(StoredFile(9), "absent");
}

TEST_F(AddRecentTest, MovesAListedEntryToTheFrontWithItsNameAsItIsNow) {
    list.AddRecent(u"a", u"old");
    list.AddRecent(u"b", u"");
    list.AddRecent(u"c", u"");
    list.AddRecent(u"a", u"new");
    EXPECT_EQ(Shown(), "[a>new][c>][b>]");
    EXPECT_EQ(StoredFiles(), "[a|new][c][b]");
    EXPECT_EQ(StoredFile(4), "absent");
}

TEST_F(AddRecentTest, TakesPathsThatDifferInCaseForOneAndTheLaterFormStands) {
    list.AddRecent(u"C:\\Ä.vmr", u"1");
    list.AddRecent(u"b", u"");
    list.AddRecent(u"c:\\ä.VMR", u"2");
    EXPECT_EQ(Shown(), "[c:\\ä.VMR>2][b>]");
}

TEST_F(AddRecentTest, TellsPathsOfDifferentLengthApart) {
    list.AddRecent(u"straße", u"");
    list.AddRecent(u"strasse", u"");
    list.AddRecent(u"strass", u"");
    EXPECT_EQ(list.recentItems.size(), 3U);
}

TEST_F(AddRecentTest, RemovesEveryEntryOfThePath) {
    list.recentItems = {{u"A", u"1"}, {u"b", u""}, {u"a", u"2"}};
    list.AddRecent(u"a", u"3");
    EXPECT_EQ(Shown(), "[a>3][b>]");
}

TEST_F(AddRecentTest, TakesAnEntryOfTheListItself) {
    list.recentItems = {{u"a", u"1"}, {u"b", u"2"}};
    list.AddRecent(list.recentItems[1].path, list.recentItems[1].name);
    EXPECT_EQ(Shown(), "[b>2][a>1]");
}

TEST_F(AddRecentTest, ShortensAListThatWasTooLong) {
    for (int i = 0; i < 12; ++i)
        list.recentItems.push_back({FormatInt(i), u""});
    list.AddRecent(u"a", u"");
    EXPECT_EQ(Shown(), "[a>][0>][1>][2>][3>][4>][5>][6>]");
}

TEST_F(AddRecentTest, TakesOverWhatAnotherProcessHasWritten) {
    list.AddRecent(u"mine", u"");
    PutFiles({u"theirs", u"mine"});
    PutStamp(kNow + 1);
    SetTime(kNow + 2);
    list.AddRecent(u"new", u"");
    EXPECT_EQ(StoredFiles(), "[new][theirs][mine]");
    EXPECT_EQ(list.recentLastUpdated, kNow + 2);
}

TEST_F(AddRecentTest, DoesNotReloadAStoreOfTheSameTimeOrAnOlderOne) {
    list.AddRecent(u"mine", u"");
    for (const u64 stamp : {kNow, kNow - 1}) {
        PutFiles({u"theirs"});
        PutStamp(stamp);
        list.recentLastUpdated = kNow;
        list.recentItems = {{u"mine", u""}};
        list.AddRecent(u"new", u"");
        EXPECT_EQ(Shown(), "[new>][mine>]");
    }
}

TEST_F(AddRecentTest, DoesNotReloadAStoreWithoutATimeOfItsSize) {
    PutFiles({u"theirs"});
    list.AddRecent(u"a", u"");
    EXPECT_EQ(StoredFiles(), "[a]");
    PutFiles({u"theirs"});
    Put(kRecentKey, u"lastUpdated", platform::kRegQuadWord, std::vector<u8>(9, 0xFF));
    list.AddRecent(u"b", u"");
    EXPECT_EQ(StoredFiles(), "[b][a]");
}

TEST_F(AddRecentTest, StampsTheListThoughTheStoreIsFromTheFuture) {
    PutFiles({u"theirs"});
    PutStamp(kNow + 100);
    list.AddRecent(u"a", u"");
    EXPECT_EQ(Shown(), "[a>][theirs>]");
    EXPECT_EQ(list.recentLastUpdated, kNow);
}

TEST_F(AddRecentTest, LeavesTheStoreStaleWhileTheKeyCannotBeOpened) {
    list.AddRecent(u"a", u"");
    m_Faults.Fail(FaultPoint::OpenKey, kErrorAccessDenied, 1);
    SetTime(kNow + 1);
    list.AddRecent(u"b", u"");
    EXPECT_EQ(Shown(), "[b>][a>]");
    EXPECT_EQ(list.recentLastUpdated, kNow + 1);
    EXPECT_EQ(StoredFiles(), "[a]");
}

TEST_F(AddRecentTest, AddsThoughTheStoreCannotBeRead) {
    PutFiles({u"theirs"});
    PutStamp(kNow + 1);
    m_Faults.Fail(FaultPoint::OpenKey, kErrorAccessDenied);
    list.AddRecent(u"a", u"");
    EXPECT_EQ(StoredFiles(), "[a]");
}

// --- RemoveRecent ---

TEST_F(RemoveRecentTest, TakesOneEntryOutAndWritesTheList) {
    PutFiles({u"x", u"y", u"z"});
    list.recentItems = {{u"a", u""}, {u"b", u""}, {u"c", u""}};
    EXPECT_TRUE(list.RemoveRecent(1));
    EXPECT_EQ(Shown(), "[a>][c>]");
    EXPECT_EQ(StoredFiles(), "[a][c]");
    EXPECT_EQ(StoredFile(3), "absent");
    EXPECT_EQ(list.recentLastUpdated, kNow);
    EXPECT_NE(StoredStamp(), "absent");
}

TEST_F(RemoveRecentTest, TakesTheFirstAndTheLast) {
    list.recentItems = {{u"a", u""}, {u"b", u""}, {u"c", u""}};
    EXPECT_TRUE(list.RemoveRecent(2));
    EXPECT_TRUE(list.RemoveRecent(0));
    EXPECT_EQ(Shown(), "[b>]");
    EXPECT_TRUE(list.RemoveRecent(0));
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(StoredFiles(), "");
}

TEST_F(RemoveRecentTest, RefusesAnIndexWithoutAnEntry) {
    list.recentItems = {{u"a", u""}, {u"b", u""}};
    for (const int index : {-1, 2, 3, -2147483647})
        EXPECT_FALSE(list.RemoveRecent(index)) << index;
    EXPECT_EQ(Shown(), "[a>][b>]");
    EXPECT_EQ(list.recentLastUpdated, 0U);
    EXPECT_FALSE(Exists(kRecentKey));
}

TEST_F(RemoveRecentTest, TakesTheEntryOutThoughTheKeyCannotBeOpened) {
    list.AddRecent(u"a", u"");
    m_Faults.Fail(FaultPoint::OpenKey, kErrorAccessDenied);
    EXPECT_TRUE(list.RemoveRecent(0));
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(StoredFiles(), "[a]");
}

// --- ClearRecent ---

TEST_F(ClearRecentTest, EmptiesTheListAndTheStore) {
    PutFiles({u"x", u"y", u"z"});
    list.recentItems = {{u"a", u""}};
    list.ClearRecent();
    EXPECT_EQ(Shown(), "");
    for (const int number : {1, 2, 3})
        EXPECT_EQ(StoredFile(number), "absent");
    EXPECT_EQ(list.recentLastUpdated, kNow);
    EXPECT_NE(StoredStamp(), "absent");
}

TEST_F(ClearRecentTest, EmptiesTheListThoughTheKeyCannotBeOpened) {
    list.AddRecent(u"a", u"");
    m_Faults.Fail(FaultPoint::OpenKey, kErrorAccessDenied);
    SetTime(kNow + 1);
    list.ClearRecent();
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(list.recentLastUpdated, kNow + 1);
    EXPECT_EQ(StoredFiles(), "[a]");
}

}  // namespace
