// Databases in files: Open and Save.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "database/record.h"
#include "tests/unit/database/database_file_fixture.h"
#include "tests/unit/database/faults.h"
#include "tests/unit/database/hex.h"

namespace {

using platform::FaultPoint;
using platform::LastError;

class OpenTest : public DatabaseFileTest {};

TEST_F(OpenTest, LoadsTheFileAndLeavesTheDatabaseOpenAndClean) {
    m_Database.MakeCurrent();
    platform::SetLastError(77);
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    EXPECT_EQ(LastError(), 0U);
    EXPECT_TRUE(m_Database.m_Opened);
    EXPECT_FALSE(m_Database.m_Changed);
    EXPECT_EQ(m_Database.m_Path, m_Path);
    EXPECT_EQ(TreeOf(m_Database), kOneEmptyItem);
    EXPECT_EQ(m_Database.m_Undo.Count(), 0U);
    EXPECT_EQ(m_Database.m_Undo.SavedPos(), 0);
    u8 hash[kKeySize];
    HashPassword(kPassword, hash);
    EXPECT_EQ(ToHex(m_Database.m_PwdHash), ToHex(hash));
}

TEST_F(OpenTest, HoldsTheFileAgainstEverybodyElse) {
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    EXPECT_TRUE(m_Database.m_File);
    VMRD_DB second;
    EXPECT_FALSE(second.Open(m_Path, kPassword));
    EXPECT_EQ(LastError(), platform::kErrorSharingViolation);
    for (const auto sharing : {platform::FileSharing::None, platform::FileSharing::ReadWrite}) {
        EXPECT_FALSE(tvhandle(platform::OpenNativeFile(m_Path.c_str(), platform::FileAccess::Read, sharing)));
        EXPECT_EQ(LastError(), platform::kErrorSharingViolation);
    }
}

TEST_F(OpenTest, WorksOnTheFileOfTheOpenDatabase) {
    OpenAndChange();
    EXPECT_TRUE(m_Database.Open(m_Path, kPassword));
    EXPECT_EQ(TreeOf(m_Database), kOneEmptyItem);
}

TEST_F(OpenTest, TakesTheOpenDatabasesOwnPath) {
    OpenAndChange();
    EXPECT_TRUE(m_Database.Open(m_Database.m_Path, kPassword));
    EXPECT_EQ(m_Database.m_Path, m_Path);
}

TEST_F(OpenTest, KeepsTheSettings) {
    m_Database.bAutoSave = m_Database.bFilterPWD = true;
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    EXPECT_TRUE(m_Database.bAutoSave);
    EXPECT_TRUE(m_Database.bFilterPWD);
}

TEST_F(OpenTest, ClosesWhatWasOpenEvenIfItFails) {
    OpenAndChange();
    ExpectRefused(m_Folder.Path(u"none.vmr"), kPassword, platform::kErrorFileNotFound);
    EXPECT_TRUE(CanOpen(m_Path));
}

TEST_F(OpenTest, RefusesAnEmptyPasswordOnceItHasClosed) {
    OpenAndChange();
    EXPECT_FALSE(m_Database.Open(m_Path, u""));
    ExpectClosed();
    EXPECT_TRUE(CanOpen(m_Path));
}

TEST_F(OpenTest, RefusesAnEmptyPasswordBeforeAnEmptyPath) {
    platform::SetLastError(77);
    EXPECT_FALSE(m_Database.Open(u"", u""));
    EXPECT_EQ(LastError(), 77U);
}

TEST_F(OpenTest, RefusesAnEmptyPathWithErrorTwo) {
    ExpectRefused(u"", kPassword, 2);
}

TEST_F(OpenTest, RefusesALockedFileWithTheSystemsCode) {
    const tvhandle other(platform::OpenNativeFile(m_Path.c_str(), platform::FileAccess::Read,
                                                  platform::FileSharing::ReadWrite));
    ExpectRefused(m_Path, kPassword, platform::kErrorSharingViolation);
}

TEST_F(OpenTest, RefusesAnUnreadableFileWithTheSystemsCode) {
    Faults faults;
    faults.Fail(FaultPoint::OpenFile, platform::kErrorAccessDenied);
    ExpectRefused(m_Path, kPassword, platform::kErrorAccessDenied);
}

TEST_F(OpenTest, RefusesAFolder) {
    ExpectRefused(m_Folder.Path(), kPassword, platform::kErrorAccessDenied);
}

TEST_F(OpenTest, RefusesFewerThanTwelveBytesWithErrorThirteen) {
    WriteBytes(m_Path, std::string_view("VMR2 and mo"));
    ExpectRefused(m_Path, kPassword, 13);
    EXPECT_TRUE(CanOpen(m_Path));
}

TEST_F(OpenTest, RefusesTwoGibibytesWithErrorThirteen) {
    std::filesystem::resize_file(test_files::SystemPath(m_Path), 0x8000'0000);
    ExpectRefused(m_Path, kPassword, 13);
}

TEST_F(OpenTest, RefusesAnotherSignatureWithErrorThirteen) {
    WriteBytes(m_Path, std::string_view("PK\3\4 an archive"));
    ExpectRefused(m_Path, kPassword, 13);
    EXPECT_TRUE(CanOpen(m_Path));
}

TEST_F(OpenTest, RefusesTheRightMagicInFewerThanFortyOneBytesWithErrorZero) {
    const std::vector<u8> good = ReadBytes(m_Path);
    for (const std::size_t size : {12, 39, 40, 41}) {
        WriteBytes(m_Path, good.data(), size);
        ExpectRefused(m_Path, kPassword, 0);
        EXPECT_TRUE(CanOpen(m_Path));
    }
}

TEST_F(OpenTest, RefusesAPlainSizeAboveWhatTheFileHoldsWithErrorZero) {
    WriteBytes(m_Path, MadeContainer(Stream({{1, u"n"}}), 17));
    ExpectRefused(m_Path, kPassword, 0);
}

TEST_F(OpenTest, RefusesAWrongPasswordWithErrorZero) {
    // Each password in turn fails on the filling, on the size or on the records; none may be told apart.
    for (char16_t last = u'a'; last <= u'z'; ++last) {
        ExpectRefused(m_Path, tvstring(1, last), 0);
    }
    EXPECT_TRUE(CanOpen(m_Path));
}

TEST_F(OpenTest, RefusesADamagedStreamWithErrorZero) {
    WriteStream(Stream({{2, u"a"}, {6, u"t"}, {9, u""}}));
    ExpectRefused(m_Path, kPassword, 0);
    EXPECT_TRUE(CanOpen(m_Path));
}

TEST_F(OpenTest, RefusesAFailingProbeWithTheSystemsCode) {
    for (const FaultPoint point :
         {FaultPoint::FileSize, FaultPoint::ReadFile, FaultPoint::ShortRead, FaultPoint::SeekFile}) {
        Faults faults;
        faults.Fail(point, 1117);
        ExpectRefused(m_Path, kPassword, 1117);
        EXPECT_TRUE(CanOpen(m_Path));
    }
}

TEST_F(OpenTest, RefusesAFailingReadOfTheWholeWithErrorZero) {
    for (const FaultPoint point : {FaultPoint::ReadFile, FaultPoint::ShortRead}) {
        Faults faults;
        faults.Fail(point, 1117, 1);
        ExpectRefused(m_Path, kPassword, 0);
        EXPECT_TRUE(CanOpen(m_Path));
    }
    Faults faults;
    faults.Fail(FaultPoint::AllocateZeroed, 8);
    ExpectRefused(m_Path, kPassword, 0);
}

TEST_F(OpenTest, RefusesAFailingCipherWithErrorZero) {
    for (const FaultPoint point : {FaultPoint::CipherProvider, FaultPoint::Decrypt}) {
        Faults faults;
        faults.Fail(point, 0);
        ExpectRefused(m_Path, kPassword, 0);
    }
}

TEST_F(OpenTest, TakesAnEmptyStreamAsAnEmptyDatabase) {
    WriteBytes(m_Path, MadeContainer(std::vector<u8>(3, 1), 0));
    EXPECT_TRUE(m_Database.Open(m_Path, kPassword));
    EXPECT_TRUE(m_Database.m_Opened);
    EXPECT_EQ(TreeOf(m_Database), Tree());
}

TEST_F(OpenTest, LeavesTheFileAsItIs) {
    const std::vector<u8> before = ReadBytes(m_Path);
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    m_Database.Close();
    ExpectRefused(m_Path, u"wrong", 0);
    EXPECT_EQ(ReadBytes(m_Path), before);
}

TEST_F(OpenTest, KeepsTheFileLockedThroughResetUntilClose) {
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    m_Database.Reset();
    EXPECT_TRUE(m_Database.m_File);
    EXPECT_FALSE(CanOpen(m_Path));
    m_Database.Close();
    EXPECT_TRUE(CanOpen(m_Path));
}

TEST_F(OpenTest, ReleasesTheFileWithTheDatabase) {
    {
        VMRD_DB database;
        ASSERT_TRUE(database.Open(m_Path, kPassword));
        EXPECT_FALSE(CanOpen(m_Path));
    }
    EXPECT_TRUE(CanOpen(m_Path));
}

// --- Save ---

class SaveTest : public DatabaseFileTest {
protected:
    void SetUp() override {
        DatabaseFileTest::SetUp();
        m_Database.MakeCurrent();
    }

    // Save fails with this error, and the database in memory is as it was.
    void ExpectSaveFails(u32 error) {
        const Tree before = TreeOf(m_Database);
        const tvstring path = m_Database.m_Path;
        platform::SetLastError(77);
        EXPECT_FALSE(m_Database.Save());
        EXPECT_EQ(LastError(), error);
        EXPECT_TRUE(m_Database.m_Opened);
        EXPECT_TRUE(m_Database.m_Changed);
        EXPECT_EQ(m_Database.m_Path, path);
        EXPECT_EQ(TreeOf(m_Database), before);
    }
    // What the file holds once the database has let go of it.
    std::vector<u8> BytesAfterClose() {
        m_Database.Close();
        return ReadBytes(m_Path);
    }
};

TEST_F(SaveTest, WritesWhatOpenLoads) {
    OpenAndChange();
    const Tree tree = TreeOf(m_Database);
    ASSERT_TRUE(m_Database.Save());
    EXPECT_FALSE(m_Database.m_Changed);
    EXPECT_TRUE(m_Database.m_Opened);
    m_Database.Close();
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    EXPECT_EQ(TreeOf(m_Database), tree);
}

TEST_F(SaveTest, WritesTheSerializedContainerAndNothingElse) {
    Faults faults;
    faults.FixSalt(kSecond);
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    ASSERT_TRUE(m_Database.Save());
    EXPECT_EQ(ToHex(BytesAfterClose()),
              "564d52323a000000"
              "76b7aa3b30771ae3f6dca15c140180ddc5ad6eac484608eff919fab674185b61"
              "74b1504fe84508a8ff21fa91dec8fb05452c6b65331c4a678b0a6c6b80ae226b"
              "dd5e3cd5078ec3bedf252c907b812d4dcbed8400e41d0b5c758972ffa36c60a1");
}

TEST_F(SaveTest, ReplacesALongerFile) {
    WriteStream(Stream({{2, u"a"}, {6, std::u16string(5000, u'z')}}));
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    ElementArray items{m_Database.m_Head};
    m_Database.RemoveItems(items, &m_Database);
    m_Database.SetName(u"n");
    ASSERT_TRUE(m_Database.Save());
    EXPECT_EQ(BytesAfterClose().size(), kHeaderSize + 16);
}

TEST_F(SaveTest, GivesAnotherFileWithTheSameContentEachTime) {
    OpenAndChange();
    const Tree tree = TreeOf(m_Database);
    ASSERT_TRUE(m_Database.Save());
    const std::vector<u8> first = BytesAfterClose();
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    ASSERT_TRUE(m_Database.Save());
    const std::vector<u8> second = BytesAfterClose();
    EXPECT_NE(first, second);
    EXPECT_EQ(first.size(), second.size());
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    EXPECT_EQ(TreeOf(m_Database), tree);
}

TEST_F(SaveTest, MarksTheSavedPositionAndEmptiesTheDisplayName) {
    OpenAndChange();
    EXPECT_EQ(m_Database.DisplayName(), u"changed");
    m_Database.m_Name.clear();
    ASSERT_TRUE(m_Database.Save());
    EXPECT_EQ(m_Database.m_Undo.SavedPos(), 1);
    EXPECT_EQ(m_Database.m_Display, u"");
    EXPECT_EQ(m_Database.DisplayName(), u"a.vmr");
}

TEST_F(SaveTest, MakesTheFileOfANewDatabase) {
    const tvstring path = m_Folder.Path(u"new.vmr");
    m_Database.New(u"new");
    m_Database.SetPath(path);
    m_Database.SetMasterPassword(kPassword);
    const Tree tree = TreeOf(m_Database);
    ASSERT_TRUE(m_Database.Save());
    m_Database.Close();
    ASSERT_TRUE(m_Database.Open(path, kPassword));
    EXPECT_EQ(TreeOf(m_Database), tree);
}

TEST_F(SaveTest, KeepsTheWriteHandleUntilTheNextSaveOrClose) {
    OpenAndChange();
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(m_Database.Save());
        EXPECT_TRUE(m_Database.m_File);
        EXPECT_FALSE(CanOpen(m_Path));
        EXPECT_EQ(LastError(), platform::kErrorSharingViolation);
        u32 done = 0;
        EXPECT_TRUE(platform::WriteNativeFile(m_Database.m_File.Get(), "x", 1, done));
    }
    m_Database.Close();
    EXPECT_TRUE(CanOpen(m_Path));
}

TEST_F(SaveTest, TakesANewMasterPasswordWithTheNextSave) {
    OpenAndChange();
    ASSERT_TRUE(m_Database.SetMasterPassword(u"another"));
    ASSERT_TRUE(m_Database.Save());
    m_Database.Close();
    EXPECT_FALSE(m_Database.Open(m_Path, kPassword));
    EXPECT_TRUE(m_Database.Open(m_Path, u"another"));
}

TEST_F(SaveTest, GoesToTheNewPathAndLetsGoOfTheOldFile) {
    const std::vector<u8> before = ReadBytes(m_Path);
    OpenAndChange();
    const tvstring path = m_Folder.Path(u"b.vmr");
    m_Database.SetPath(path);
    ASSERT_TRUE(m_Database.Save());
    EXPECT_TRUE(CanOpen(m_Path));
    EXPECT_FALSE(CanOpen(path));
    EXPECT_EQ(BytesAfterClose(), before);
}

TEST_F(SaveTest, FailsAtOnceWithNoDatabaseOpen) {
    m_Database.m_Path = m_Path;
    m_Database.m_Name = u"n";
    m_Database.m_Display = u"cached";
    SetPassword(m_Database);
    const std::vector<u8> before = ReadBytes(m_Path);
    platform::SetLastError(77);
    EXPECT_FALSE(m_Database.Save());
    EXPECT_EQ(LastError(), 77U);
    EXPECT_EQ(m_Database.m_Display, u"cached");
    EXPECT_EQ(BytesAfterClose(), before);
}

TEST_F(SaveTest, FailsWithErrorZeroWithoutAPathAndTouchesNothing) {
    const std::vector<u8> before = ReadBytes(m_Path);
    OpenAndChange();
    m_Database.m_Path.clear();
    EXPECT_EQ(m_Database.DisplayName(), u"changed");
    ExpectSaveFails(0);
    EXPECT_EQ(m_Database.m_Display, u"");
    EXPECT_FALSE(CanOpen(m_Path));
    EXPECT_EQ(BytesAfterClose(), before);
}

TEST_F(SaveTest, FailsWithErrorZeroWithoutAMasterPasswordAndTouchesNothing) {
    const std::vector<u8> before = ReadBytes(m_Path);
    OpenAndChange();
    m_Database.SetMasterPassword(u"");
    ExpectSaveFails(0);
    EXPECT_FALSE(CanOpen(m_Path));
    EXPECT_EQ(BytesAfterClose(), before);
}

TEST_F(SaveTest, FailsWithErrorZeroWhenThereIsNothingToWriteAndTouchesNothing) {
    const std::vector<u8> before = ReadBytes(m_Path);
    OpenAndChange();
    m_Database.SetName(u"");
    ElementArray items{m_Database.m_Head};
    m_Database.RemoveItems(items, &m_Database);
    ExpectSaveFails(0);
    EXPECT_EQ(BytesAfterClose(), before);
}

TEST_F(SaveTest, FailsWithErrorZeroWithoutMemoryOrCipherAndTouchesNothing) {
    const std::vector<u8> before = ReadBytes(m_Path);
    OpenAndChange();
    for (const FaultPoint point :
         {FaultPoint::AllocateZeroed, FaultPoint::CipherProvider, FaultPoint::Encrypt}) {
        Faults faults;
        faults.Fail(point, 8);
        ExpectSaveFails(0);
        EXPECT_FALSE(CanOpen(m_Path));
    }
    EXPECT_EQ(BytesAfterClose(), before);
}

TEST_F(SaveTest, FailsWithTheSystemsCodeAndLeavesTheOldFileWhenItCannotBeOpened) {
    const std::vector<u8> before = ReadBytes(m_Path);
    OpenAndChange();
    Faults faults;
    faults.Fail(FaultPoint::OpenFile, platform::kErrorAccessDenied);
    ExpectSaveFails(platform::kErrorAccessDenied);
    EXPECT_FALSE(m_Database.m_File);
    EXPECT_EQ(BytesAfterClose(), before);
}

TEST_F(SaveTest, FailsWhenAnotherHandleHoldsTheFileAndLeavesItAsItIs) {
    OpenAndChange();
    const tvstring path = m_Folder.Path(u"b.vmr");
    WriteBytes(path, std::string_view("somebody's"));
    m_Database.SetPath(path);
    {
        const tvhandle other(
            platform::OpenNativeFile(path.c_str(), platform::FileAccess::Read, platform::FileSharing::None));
        ExpectSaveFails(platform::kErrorSharingViolation);
    }
    EXPECT_EQ(ReadBytes(path).size(), 10U);
    EXPECT_TRUE(m_Database.Save());
}

TEST_F(SaveTest, FailsInAMissingFolder) {
    OpenAndChange();
    m_Database.SetPath(m_Folder.Path(u"none/a.vmr"));
    EXPECT_FALSE(m_Database.Save());
    EXPECT_TRUE(LastError() == platform::kErrorFileNotFound || LastError() == platform::kErrorPathNotFound);
    EXPECT_TRUE(m_Database.m_Changed);
}

TEST_F(SaveTest, IsDeniedAFolder) {
    OpenAndChange();
    m_Database.SetPath(m_Folder.Path());
    ExpectSaveFails(platform::kErrorAccessDenied);
}

TEST_F(SaveTest, LeavesAPartOfTheFileWhenWritingFailsAndStaysChanged) {
    OpenAndChange();
    const i32 savedPos = m_Database.m_Undo.SavedPos();
    const std::size_t whole = m_Database.Serialize().Size();
    Faults faults;
    faults.Fail(FaultPoint::WriteFile, platform::kErrorDiskFull);
    ExpectSaveFails(platform::kErrorDiskFull);
    EXPECT_EQ(m_Database.m_Undo.SavedPos(), savedPos);
    EXPECT_EQ(BytesAfterClose().size(), whole / 2);
}

TEST_F(SaveTest, SucceedsAfterAFailure) {
    OpenAndChange();
    const Tree tree = TreeOf(m_Database);
    Faults faults;
    faults.Fail(FaultPoint::WriteFile, platform::kErrorDiskFull);
    ExpectSaveFails(platform::kErrorDiskFull);
    EXPECT_TRUE(m_Database.Save());
    m_Database.Close();
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    EXPECT_EQ(TreeOf(m_Database), tree);
}

TEST_F(SaveTest, TakesAShortWriteThatTheSystemCallsGoodForGood) {
    OpenAndChange();
    const std::size_t whole = m_Database.Serialize().Size();
    Faults faults;
    faults.Fail(FaultPoint::ShortWrite, 0);
    EXPECT_TRUE(m_Database.Save());
    EXPECT_FALSE(m_Database.m_Changed);
    EXPECT_EQ(BytesAfterClose().size(), whole - 1);
}

TEST_F(SaveTest, IsDoneWithEachChangeWhenSavingIsAutomatic) {
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    m_Database.bAutoSave = true;
    m_Database.SetName(u"automatic");
    EXPECT_FALSE(m_Database.m_Changed);
    m_Database.Close();
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    EXPECT_EQ(m_Database.m_Name, u"automatic");
}

TEST_F(SaveTest, LeavesTheDatabaseChangedWhenAnAutomaticSaveFails) {
    ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
    m_Database.bAutoSave = true;
    Faults faults;
    faults.Fail(FaultPoint::OpenFile, platform::kErrorAccessDenied);
    m_Database.SetName(u"automatic");
    EXPECT_TRUE(m_Database.m_Changed);
}

}  // namespace
