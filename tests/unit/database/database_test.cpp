#include "database/database.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "platform/error.h"
#include "platform/file.h"
#include "tests/unit/database/open_database.h"
#include "tests/unit/test_files.h"

namespace {

bool IsLocked(const tvstring& path) {
    tvhandle handle(
        platform::OpenNativeFile(path.c_str(), platform::FileAccess::Read, platform::FileSharing::None));
    return !handle && platform::LastError() == platform::kErrorSharingViolation;
}

// Whether the database stands in a file that opens with this password.
bool CanBeOpened(const tvstring& path, const tvstring& password) {
    VMRD_DB other;
    return other.Open(path, password);
}

TEST(Database, IsClosedAtFirst) {
    VMRD_DB db;
    EXPECT_FALSE(db.m_File);
    EXPECT_FALSE(db.bAutoSave);
    EXPECT_FALSE(db.bFilterPWD);
    EXPECT_FALSE(db.m_Changed);
    EXPECT_FALSE(db.m_Opened);
    EXPECT_TRUE(db.m_Name.empty());
    EXPECT_TRUE(db.m_Display.empty());
    EXPECT_TRUE(db.m_Path.empty());
    EXPECT_FALSE(db.HasMasterPassword());
    EXPECT_EQ(db.m_Count, 0);
    EXPECT_EQ(db.m_Undo.Count(), 0U);
    EXPECT_EQ(db.m_Undo.SavedPos(), 0);
}

TEST(Database, IsCurrentFromMakeCurrentToItsEnd) {
    auto db = std::make_unique<VMRD_DB>();
    EXPECT_NE(VMRD_DB::Current(), db.get());
    db->MakeCurrent();
    EXPECT_EQ(VMRD_DB::Current(), db.get());
    db.reset();
    EXPECT_EQ(VMRD_DB::Current(), nullptr);
}

TEST(Database, GivesItsPlaceToAnotherWithItsHistory) {
    VMRD_DB first;
    VMRD_DB second;
    first.MakeCurrent();
    first.SetName(u"name");
    first.MakeCurrent();
    EXPECT_EQ(first.m_Undo.Count(), 1U);
    second.MakeCurrent();
    EXPECT_EQ(VMRD_DB::Current(), &second);
    EXPECT_EQ(first.m_Undo.Count(), 0U);
    EXPECT_EQ(first.m_Name, u"name");
}

TEST(Database, ThatIsNotCurrentEndsWithoutTakingTheCurrentOneAway) {
    VMRD_DB db;
    db.MakeCurrent();
    { VMRD_DB carrier; }
    EXPECT_EQ(VMRD_DB::Current(), &db);
}

class DatabaseState : public OpenDatabase {
protected:
    void Fill() {
        PutItem(u"mail", {Username(u"me")});
        db.SetName(u"name");
        db.SetPath(folder.Path(u"a.vmr"));
        db.SetMasterPassword(u"password");
        db.DisplayName();
    }

    TempFolder folder;
};

TEST_F(DatabaseState, IsEmptiedByReset) {
    Fill();
    ElementArray removed{db.m_Head};
    db.RemoveItems(removed, &db);
    PutItem(u"other");
    db.Reset();
    EXPECT_TRUE(db.m_Name.empty());
    EXPECT_TRUE(db.m_Display.empty());
    EXPECT_TRUE(db.m_Path.empty());
    EXPECT_FALSE(db.HasMasterPassword());
    EXPECT_FALSE(db.m_Changed);
    EXPECT_FALSE(db.m_Opened);
    EXPECT_EQ(db.m_Count, 0);
    EXPECT_EQ(db.m_Undo.Count(), 0U);
    EXPECT_EQ(db.m_Undo.SavedPos(), 0);
}

TEST_F(DatabaseState, KeepsItsSettingsOnResetAndClose) {
    db.bAutoSave = true;
    db.bFilterPWD = true;
    db.Reset();
    EXPECT_TRUE(db.bAutoSave);
    EXPECT_TRUE(db.bFilterPWD);
    db.Close();
    EXPECT_TRUE(db.bAutoSave);
    EXPECT_TRUE(db.bFilterPWD);
}

TEST_F(DatabaseState, KeepsTheFileLockedOnResetUntilClose) {
    Fill();
    const tvstring path = db.m_Path;
    ASSERT_TRUE(db.Save());
    EXPECT_TRUE(IsLocked(path));
    db.Reset();
    EXPECT_TRUE(db.m_File);
    EXPECT_TRUE(IsLocked(path));
    db.Close();
    EXPECT_FALSE(db.m_File);
    EXPECT_FALSE(IsLocked(path));
}

TEST_F(DatabaseState, IsClosedByClose) {
    Fill();
    db.Close();
    EXPECT_FALSE(db.m_Opened);
    EXPECT_FALSE(db.m_Changed);
    EXPECT_EQ(db.m_Count, 0);
    EXPECT_TRUE(db.m_Name.empty());
}

TEST_F(DatabaseState, LetsGoOfItsFileWhenItEnds) {
    const tvstring path = folder.Path(u"a.vmr");
    {
        VMRD_DB brief;
        brief.m_Opened = true;
        brief.m_Name = u"name";
        brief.m_Path = path;
        brief.SetMasterPassword(u"password");
        ASSERT_TRUE(brief.Save());
        EXPECT_TRUE(IsLocked(path));
    }
    EXPECT_FALSE(IsLocked(path));
}

TEST_F(DatabaseState, IsChangedByChanged) {
    db.Changed();
    EXPECT_TRUE(db.m_Changed);
    EXPECT_TRUE(db.m_Opened);
}

TEST_F(DatabaseState, IsNotSavedByChangedOtherwise) {
    Fill();
    db.Changed();
    EXPECT_TRUE(db.m_Changed);
    EXPECT_FALSE(db.m_File);
    EXPECT_FALSE(std::filesystem::exists(test_files::SystemPath(db.m_Path)));
}

TEST_F(DatabaseState, IsSavedByChangedInAutoSaveMode) {
    Fill();
    db.bAutoSave = true;
    db.Changed();
    EXPECT_FALSE(db.m_Changed);
    EXPECT_EQ(db.m_Undo.SavedPos(), static_cast<i32>(db.m_Undo.Count()));
    const tvstring path = db.m_Path;
    db.Close();
    EXPECT_TRUE(CanBeOpened(path, u"password"));
}

TEST_F(DatabaseState, StaysChangedInAutoSaveModeWhereItCannotBeSaved) {
    db.bAutoSave = true;
    db.Changed();
    EXPECT_TRUE(db.m_Changed);
    db.m_Path = folder.Path(u"a.vmr");
    db.Changed();
    EXPECT_TRUE(db.m_Changed);
    EXPECT_FALSE(std::filesystem::exists(test_files::SystemPath(db.m_Path)));
}

TEST_F(DatabaseState, IsOpenAndChangedAfterNew) {
    Fill();
    ASSERT_TRUE(db.Save());
    EXPECT_TRUE(db.New(u"fresh"));
    EXPECT_TRUE(db.m_Opened);
    EXPECT_TRUE(db.m_Changed);
    EXPECT_EQ(db.m_Name, u"fresh");
    EXPECT_TRUE(db.m_Path.empty());
    EXPECT_FALSE(db.m_File);
    EXPECT_FALSE(db.HasMasterPassword());
    EXPECT_EQ(db.m_Count, 1);
}

TEST(DisplayName, IsTheName) {
    VMRD_DB db;
    db.m_Name = u"name";
    db.m_Path = u"file.vmr";
    EXPECT_EQ(db.DisplayName(), u"name");
    EXPECT_EQ(db.m_Display, u"name");
}

TEST(DisplayName, OfADatabaseWithoutNameIsTheFileName) {
    VMRD_DB db;
    db.m_Path = test_files::PathText(std::filesystem::path(u"folder") / u"file.vmr");
    EXPECT_EQ(db.DisplayName(), u"file.vmr");
}

TEST(DisplayName, WithNeitherNameNorPathIsOneBlankAndStaysSo) {
    VMRD_DB db;
    EXPECT_EQ(db.DisplayName(), u" ");
    EXPECT_EQ(db.DisplayName(), u" ");
    db.m_Path = u"file.vmr";
    db.m_Name = u"name";
    EXPECT_EQ(db.DisplayName(), u" ");
    db.SetName(u"other");
    EXPECT_EQ(db.DisplayName(), u"other");
}

TEST(DisplayName, IsFoundAnewAfterTheNameOrThePathWasSet) {
    VMRD_DB db;
    EXPECT_EQ(db.DisplayName(), u" ");
    db.SetPath(u"file.vmr");
    EXPECT_EQ(db.DisplayName(), u"file.vmr");
    db.SetName(u"name");
    EXPECT_EQ(db.DisplayName(), u"name");
    db.SetName(u"");
    EXPECT_EQ(db.DisplayName(), u"file.vmr");
}

TEST(DisplayName, IsKeptOnceFound) {
    VMRD_DB db;
    db.m_Name = u"name";
    EXPECT_EQ(db.DisplayName(), u"name");
    db.m_Name = u"other";
    EXPECT_EQ(db.DisplayName(), u"name");
}

TEST(HasMasterPassword, IsSetByAnyByteOfTheHash) {
    VMRD_DB db;
    EXPECT_FALSE(db.HasMasterPassword());
    for (const std::size_t place : {std::size_t{0}, std::size_t{31}}) {
        db.m_PwdHash[place] = 1;
        EXPECT_TRUE(db.HasMasterPassword());
        db.m_PwdHash[place] = 0;
    }
}

}  // namespace
