#include "shell/app_settings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "tests/unit/registry_fixture.h"

namespace {

using enum LoadStore;
using platform::FaultPoint;

// What was told to the others, and what the store held then.
struct Notice {
    SharedSetting setting;
    std::string history;
    std::string firstFile;
};
std::vector<Notice>& Notices() {
    static std::vector<Notice> notices;
    return notices;
}

class AppSettingsTest : public RegistryTest {
protected:
    AppSettingsTest() {
        Notices().clear();
        settings.m_Notice = [](SharedSetting setting) {
            Notices().push_back({setting, Setting(u"bHistory"), Stored(kRecentKey, u"File1")});
        };
    }

    static std::string Setting(const char16_t* name) { return Stored(kSettingsKey, name); }
    static void PutSetting(const char16_t* name, u32 word) { PutWord(kSettingsKey, name, word); }

    // Values that a setting of four bytes does not take.
    static void PutWrongSize(const char16_t* name, std::size_t size) {
        Put(kSettingsKey, name, 4, std::vector<u8>(size, 2));
    }
    static constexpr std::size_t kWrongSizes[] = {0, 1, 3, 5, 8};

    AppSettings settings;
    RecentList recent;
    VMRD_DB database;
};

TEST_F(AppSettingsTest, HaveTheirDefaults) {
    EXPECT_EQ(settings.bAutoClearClipboard, 1);
    EXPECT_EQ(settings.bHistory, 1);
    EXPECT_EQ(settings.bAutoOpen, 0);
    EXPECT_EQ(settings.filterFlag, 0U);
    EXPECT_EQ(settings.bShowPassword, 0);
    EXPECT_FALSE(database.bAutoSave);
    EXPECT_FALSE(database.bFilterPWD);
}

TEST_F(AppSettingsTest, KeepTheirDefaultsWhereNothingIsStored) {
    settings.LoadStoreHistory(Load, recent);
    settings.LoadStoreClearClipboard(Load);
    settings.LoadStoreAutoOpen(Load);
    settings.LoadStoreFilterFlag(Load);
    LoadStoreAutoSave(Load, database);
    LoadStoreFilterPwd(Load, database);
    EXPECT_EQ(settings.bAutoClearClipboard, 1);
    EXPECT_EQ(settings.bHistory, 1);
    EXPECT_EQ(settings.bAutoOpen, 0);
    EXPECT_EQ(settings.filterFlag, 0U);
    EXPECT_FALSE(database.bAutoSave);
    EXPECT_FALSE(database.bFilterPWD);
    EXPECT_FALSE(Exists(kSettingsKey));
}

// --- bHistory ---

TEST_F(AppSettingsTest, HistoryIsOnForAnyValueButZero) {
    for (const u32 word : {1U, 2U, 0x100U, 0x80000000U}) {
        PutSetting(u"bHistory", word);
        settings.bHistory = 0;
        settings.LoadStoreHistory(Load, recent);
        EXPECT_EQ(settings.bHistory, 1) << word;
    }
    PutSetting(u"bHistory", 0);
    settings.LoadStoreHistory(Load, recent);
    EXPECT_EQ(settings.bHistory, 0);
}

TEST_F(AppSettingsTest, HistoryOfAnotherSizeStaysAsItWas) {
    for (const std::size_t size : kWrongSizes) {
        PutWrongSize(u"bHistory", size);
        for (const u8 before : {u8{0}, u8{1}}) {
            settings.bHistory = before;
            settings.LoadStoreHistory(Load, recent);
            EXPECT_EQ(settings.bHistory, before) << size;
        }
    }
}

TEST_F(AppSettingsTest, HistoryIsWrittenAsZeroOrOne) {
    settings.LoadStoreHistory(Store, recent);
    EXPECT_EQ(Setting(u"bHistory"), "4:01000000");
    settings.bHistory = 0;
    settings.LoadStoreHistory(Store, recent);
    EXPECT_EQ(Setting(u"bHistory"), "4:00000000");
}

TEST_F(AppSettingsTest, LoadingAHistoryThatIsOnReadsTheRecentList) {
    PutText(kRecentKey, u"File1", u"a.vmr");
    settings.LoadStoreHistory(Load, recent);
    ASSERT_EQ(recent.recentItems.size(), 1U);
    EXPECT_EQ(recent.recentItems[0].path, u"a.vmr");
}

TEST_F(AppSettingsTest, LoadingAHistoryThatIsOffClearsTheRecentListAlsoInTheStore) {
    PutSetting(u"bHistory", 0);
    PutText(kRecentKey, u"File1", u"a.vmr");
    recent.recentItems.push_back({u"b.vmr", u""});
    settings.LoadStoreHistory(Load, recent);
    EXPECT_TRUE(recent.recentItems.empty());
    EXPECT_EQ(Stored(kRecentKey, u"File1"), "absent");
}

TEST_F(AppSettingsTest, StoringAHistoryThatIsOnLeavesTheRecentListAlone) {
    PutText(kRecentKey, u"File1", u"a.vmr");
    recent.recentItems.push_back({u"b.vmr", u""});
    settings.LoadStoreHistory(Store, recent);
    ASSERT_EQ(recent.recentItems.size(), 1U);
    EXPECT_EQ(recent.recentItems[0].path, u"b.vmr");
    EXPECT_EQ(Stored(kRecentKey, u"File1"), StoredText(u"a.vmr"));
    ASSERT_EQ(Notices().size(), 1U);
    EXPECT_EQ(Notices()[0].setting, SharedSetting::History);
}

TEST_F(AppSettingsTest, StoringAHistoryThatIsOffClearsTheRecentListAndThenTellsTheOthers) {
    PutText(kRecentKey, u"File1", u"a.vmr");
    recent.recentItems.push_back({u"b.vmr", u""});
    settings.bHistory = 0;
    settings.LoadStoreHistory(Store, recent);
    EXPECT_TRUE(recent.recentItems.empty());
    ASSERT_EQ(Notices().size(), 1U);
    EXPECT_EQ(Notices()[0].history, "4:00000000");
    EXPECT_EQ(Notices()[0].firstFile, "absent");
}

TEST_F(AppSettingsTest, LoadingTellsNobody) {
    settings.LoadStoreHistory(Load, recent);
    PutSetting(u"bHistory", 0);
    settings.LoadStoreHistory(Load, recent);
    settings.LoadStoreClearClipboard(Load);
    EXPECT_TRUE(Notices().empty());
}

TEST_F(AppSettingsTest, ALoadedHistoryIsNotWrittenBack) {
    PutSetting(u"bHistory", 0x100);
    settings.LoadStoreHistory(Load, recent);
    EXPECT_EQ(Setting(u"bHistory"), "4:00010000");
}

TEST_F(AppSettingsTest, NeedNobodyWhoTellsTheOthers) {
    settings.m_Notice = nullptr;
    settings.LoadStoreHistory(Store, recent);
    settings.LoadStoreClearClipboard(Store);
    EXPECT_EQ(Setting(u"bHistory"), "4:01000000");
    EXPECT_EQ(Setting(u"bAutoClearClipboard"), "4:01000000");
}

TEST_F(AppSettingsTest, HistoryTakesEffectThoughItCannotBeWritten) {
    settings.bHistory = 0;
    recent.recentItems.push_back({u"b.vmr", u""});
    m_Faults.Fail(FaultPoint::OpenKey, platform::kErrorAccessDenied);
    settings.LoadStoreHistory(Store, recent);
    EXPECT_EQ(settings.bHistory, 0);
    EXPECT_TRUE(recent.recentItems.empty());
    EXPECT_EQ(Notices().size(), 1U);
    EXPECT_EQ(Setting(u"bHistory"), "absent");
}

// --- bAutoClearClipboard ---

TEST_F(AppSettingsTest, ClearClipboardIsTheLowByte) {
    PutSetting(u"bAutoClearClipboard", 0x100);
    settings.LoadStoreClearClipboard(Load);
    EXPECT_EQ(settings.bAutoClearClipboard, 0);
    PutSetting(u"bAutoClearClipboard", 0x101);
    settings.LoadStoreClearClipboard(Load);
    EXPECT_EQ(settings.bAutoClearClipboard, 1);
}

TEST_F(AppSettingsTest, ClearClipboardOfAnotherSizeStaysAsItWas) {
    for (const std::size_t size : kWrongSizes) {
        PutWrongSize(u"bAutoClearClipboard", size);
        settings.LoadStoreClearClipboard(Load);
        EXPECT_EQ(settings.bAutoClearClipboard, 1) << size;
    }
}

TEST_F(AppSettingsTest, ClearClipboardIsWrittenAndToldToTheOthers) {
    settings.bAutoClearClipboard = 0;
    settings.LoadStoreClearClipboard(Store);
    EXPECT_EQ(Setting(u"bAutoClearClipboard"), "4:00000000");
    settings.bAutoClearClipboard = 1;
    settings.LoadStoreClearClipboard(Store);
    EXPECT_EQ(Setting(u"bAutoClearClipboard"), "4:01000000");
    ASSERT_EQ(Notices().size(), 2U);
    EXPECT_EQ(Notices()[0].setting, SharedSetting::ClearClipboard);
}

TEST_F(AppSettingsTest, TellTheOthersByTheirMessages) {
    EXPECT_EQ(static_cast<u16>(SharedSetting::History), 0x8000);
    EXPECT_EQ(static_cast<u16>(SharedSetting::ClearClipboard), 0x8001);
}

// --- bAutoOpen ---

TEST_F(AppSettingsTest, AutoOpenIsTheLowByte) {
    PutSetting(u"bAutoOpen", 0x101);
    settings.LoadStoreAutoOpen(Load);
    EXPECT_EQ(settings.bAutoOpen, 1);
    PutSetting(u"bAutoOpen", 0x100);
    settings.LoadStoreAutoOpen(Load);
    EXPECT_EQ(settings.bAutoOpen, 0);
}

TEST_F(AppSettingsTest, AutoOpenOfAnotherSizeStaysAsItWas) {
    for (const std::size_t size : kWrongSizes) {
        PutWrongSize(u"bAutoOpen", size);
        settings.LoadStoreAutoOpen(Load);
        EXPECT_EQ(settings.bAutoOpen, 0) << size;
    }
}

TEST_F(AppSettingsTest, AutoOpenIsWrittenAndToldToNobody) {
    settings.bAutoOpen = 1;
    settings.LoadStoreAutoOpen(Store);
    EXPECT_EQ(Setting(u"bAutoOpen"), "4:01000000");
    EXPECT_TRUE(Notices().empty());
}

// --- FilterFlag ---

TEST_F(AppSettingsTest, FilterFlagIsCutToThree) {
    const u32 cases[][2] = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 3}, {0x100, 3}, {0xFFFFFFFF, 3}};
    for (const auto& [stored, expected] : cases) {
        PutSetting(u"FilterFlag", stored);
        settings.LoadStoreFilterFlag(Load);
        EXPECT_EQ(settings.filterFlag, expected) << stored;
    }
    EXPECT_EQ(Setting(u"FilterFlag"), "4:ffffffff");
}

TEST_F(AppSettingsTest, FilterFlagOfAnotherSizeStaysAsItWas) {
    settings.filterFlag = 1;
    for (const std::size_t size : kWrongSizes) {
        PutWrongSize(u"FilterFlag", size);
        settings.LoadStoreFilterFlag(Load);
        EXPECT_EQ(settings.filterFlag, 1U) << size;
    }
}

TEST_F(AppSettingsTest, FilterFlagIsWrittenAsItIs) {
    settings.filterFlag = 2;
    settings.LoadStoreFilterFlag(Store);
    EXPECT_EQ(Setting(u"FilterFlag"), "4:02000000");
    EXPECT_EQ(settings.filterFlag, 2U);
    EXPECT_TRUE(Notices().empty());
}

// --- bAutoSave, bFilterPWD ---

struct DatabaseFlag {
    const char16_t* name;
    void (*operation)(LoadStore, VMRD_DB&);
    bool VMRD_DB::*flag;
};
constexpr DatabaseFlag kDatabaseFlags[] = {
    {u"bAutoSave", LoadStoreAutoSave, &VMRD_DB::bAutoSave},
    {u"bFilterPWD", LoadStoreFilterPwd, &VMRD_DB::bFilterPWD},
};

TEST_F(AppSettingsTest, TheDatabasesFlagsAreTheLowByte) {
    for (const auto& [name, operation, flag] : kDatabaseFlags) {
        for (const u32 on : {1U, 0x80U, 0x102U}) {
            PutSetting(name, on);
            database.*flag = false;
            operation(Load, database);
            EXPECT_TRUE(database.*flag) << on;
        }
        for (const u32 off : {0U, 0x100U, 0xFFFFFF00U}) {
            PutSetting(name, off);
            database.*flag = true;
            operation(Load, database);
            EXPECT_FALSE(database.*flag) << off;
        }
    }
}

TEST_F(AppSettingsTest, TheDatabasesFlagsStayAsTheyWereWhereNoneIsStored) {
    for (const auto& [name, operation, flag] : kDatabaseFlags) {
        for (const bool before : {false, true}) {
            database.*flag = before;
            operation(Load, database);
            EXPECT_EQ(database.*flag, before);
            for (const std::size_t size : kWrongSizes) {
                PutWrongSize(name, size);
                operation(Load, database);
                EXPECT_EQ(database.*flag, before) << size;
            }
            Delete(kSettingsKey, name);
        }
    }
}

TEST_F(AppSettingsTest, TheDatabasesFlagsAreWritten) {
    for (const auto& [name, operation, flag] : kDatabaseFlags) {
        database.*flag = true;
        operation(Store, database);
        EXPECT_EQ(Setting(name), "4:01000000");
        EXPECT_TRUE(database.*flag);
        database.*flag = false;
        operation(Store, database);
        EXPECT_EQ(Setting(name), "4:00000000");
    }
}

// --- Sort ---

TEST_F(AppSettingsTest, SortIsALowByteUpToFour) {
    const u32 cases[][2] = {{0, 0},   {1, 1},   {4, 4},   {5, 0},         {255, 0},
                            {256, 0}, {259, 3}, {261, 0}, {0xFFFFFF02, 2}};
    for (const auto& [stored, expected] : cases) {
        PutSetting(u"Sort", stored);
        EXPECT_EQ(LoadStoreSort(Load, 4), expected) << stored;
    }
}

TEST_F(AppSettingsTest, SortIsTheFirstOrderWhereNoneIsStored) {
    EXPECT_EQ(LoadStoreSort(Load, 4), 0U);
    for (const std::size_t size : kWrongSizes) {
        PutWrongSize(u"Sort", size);
        EXPECT_EQ(LoadStoreSort(Load, 4), 0U) << size;
    }
}

TEST_F(AppSettingsTest, SortIsWrittenWithinItsRange) {
    EXPECT_EQ(LoadStoreSort(Store, 3), 3U);
    EXPECT_EQ(Setting(u"Sort"), "4:03000000");
    EXPECT_EQ(LoadStoreSort(Store, 4), 4U);
    EXPECT_EQ(Setting(u"Sort"), "4:04000000");
    for (const u32 value : {5U, 259U, static_cast<u32>(-1)}) {
        LoadStoreSort(Store, 1);
        EXPECT_EQ(LoadStoreSort(Store, value), 0U) << value;
        EXPECT_EQ(Setting(u"Sort"), "4:00000000") << value;
    }
}

// --- Theme, Lang ---

struct NameSetting {
    const char16_t* name;
    tvstring (*operation)(LoadStore, const tvstring&);
};
constexpr NameSetting kNames[] = {{u"Theme", LoadStoreThemeName}, {u"Lang", LoadStoreLangName}};

TEST_F(AppSettingsTest, NamesAreWrittenWithTheirZero) {
    for (const auto& [name, operation] : kNames) {
        EXPECT_EQ(operation(Store, u"Grün"), u"Grün");
        EXPECT_EQ(Setting(name), "1:47007200fc006e000000");
        EXPECT_EQ(operation(Load, u"unlike"), u"Grün");
    }
}

TEST_F(AppSettingsTest, NamesAreEmptyWhereNoneIsStored) {
    for (const auto& [name, operation] : kNames) {
        EXPECT_EQ(operation(Load, u"unlike"), u"");
        Put(kSettingsKey, name, 3, TextBytes(u"binary"));
        EXPECT_EQ(operation(Load, u"unlike"), u"");
        Put(kSettingsKey, name, 1, {});
        EXPECT_EQ(operation(Load, u"unlike"), u"");
    }
}

TEST_F(AppSettingsTest, AnEmptyNameIsNotWritten) {
    for (const auto& [name, operation] : kNames) {
        operation(Store, u"name");
        EXPECT_EQ(operation(Store, u""), u"");
        EXPECT_EQ(Setting(name), StoredText(u"name"));
    }
}

// --- Font ---

TEST_F(AppSettingsTest, AFontIsWrittenWhole) {
    u8 record[kFontRecordSize];
    const std::vector<u8> bytes = CountingBytes(kFontRecordSize);
    std::copy(bytes.begin(), bytes.end(), record);
    EXPECT_TRUE(LoadStoreFontRecord(Store, record));
    EXPECT_EQ(Setting(u"Font"), "3:" + ToHex(bytes));
    EXPECT_EQ(bytes.size(), 92U);
    u8 again[kFontRecordSize] = {};
    EXPECT_TRUE(LoadStoreFontRecord(Load, again));
    EXPECT_EQ(ToHex(again), ToHex(bytes));
}

TEST_F(AppSettingsTest, AFontOfAnotherSizeIsIgnored) {
    u8 record[kFontRecordSize] = {};
    EXPECT_FALSE(LoadStoreFontRecord(Load, record));
    for (const std::size_t size : {0U, 91U, 93U}) {
        Put(kSettingsKey, u"Font", 3, std::vector<u8>(size, 1));
        EXPECT_FALSE(LoadStoreFontRecord(Load, record)) << size;
    }
    EXPECT_EQ(ToHex(record), std::string(184, '0'));
}

TEST_F(AppSettingsTest, TheFontForPasswordsIsHigherByThreeTenths) {
    EXPECT_EQ(PasswordFontHeight(0), 0);
    EXPECT_EQ(PasswordFontHeight(-1), -1);
    EXPECT_EQ(PasswordFontHeight(-11), -14);
    EXPECT_EQ(PasswordFontHeight(-12), -15);
    EXPECT_EQ(PasswordFontHeight(15), 19);
    // The factor is a single, which is a little less than 1.3.
    EXPECT_EQ(PasswordFontHeight(-10), -12);
    EXPECT_EQ(PasswordFontHeight(20), 25);
    EXPECT_EQ(PasswordFontHeight(1'000'000), 1'299'999);
}

TEST_F(AppSettingsTest, TheFontForPasswordsHasAHeightForAnyRecord) {
    constexpr i32 kLargest = std::numeric_limits<i32>::max();
    EXPECT_EQ(PasswordFontHeight(kLargest), kLargest);
    EXPECT_EQ(PasswordFontHeight(std::numeric_limits<i32>::min()), -kLargest);
}

}  // namespace
