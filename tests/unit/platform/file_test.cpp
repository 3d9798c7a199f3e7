#include "platform/file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "foundation/path.h"
#include "platform/clock.h"
#include "platform/error.h"
#include "platform/fault.h"
#include "tests/unit/environment.h"
#include "tests/unit/test_files.h"

namespace {

using namespace std::literals;
using platform::FaultPoint;
using platform::FileAccess;
using platform::FileSharing;
using platform::LastError;

constexpr bool kOnWindows = platform::kPathSeparator == u'\\';

class NativeFileTest : public testing::Test {
protected:
    ~NativeFileTest() override { platform::ClearFaults(); }

    [[nodiscard]] tvhandle Read(FileSharing sharing = FileSharing::ReadWrite) const {
        return tvhandle(platform::OpenNativeFile(m_Path.c_str(), FileAccess::Read, sharing));
    }
    [[nodiscard]] tvhandle Create(FileSharing sharing = FileSharing::None) const {
        return tvhandle(platform::OpenNativeFile(m_Path.c_str(), FileAccess::CreateNew, sharing));
    }
    static std::string Content(const tvhandle& file, u32 count) {
        std::string bytes(count, '\0');
        u32 done = 0;
        EXPECT_TRUE(platform::ReadNativeFile(file.Get(), bytes.data(), count, done));
        return bytes.substr(0, done);
    }
    static u64 Size(const tvhandle& file) {
        u64 size = 99;
        EXPECT_TRUE(platform::NativeFileSize(file.Get(), size));
        return size;
    }
    [[nodiscard]] std::string OnDisk() const {
        const std::vector<u8> bytes = ReadBytes(m_Path);
        return {bytes.begin(), bytes.end()};
    }

    TempFolder m_Folder;
    tvstring m_Path = m_Folder.Path(u"file \u00E9\u0416\U0001F511");
};

// --- Opening ---

TEST_F(NativeFileTest, IsNotOpenForNullAndTheInvalidHandle) {
    EXPECT_FALSE(platform::IsOpen(nullptr));
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the system's invalid handle
    EXPECT_FALSE(platform::IsOpen(reinterpret_cast<platform::NativeFile>(std::intptr_t{-1})));
    platform::CloseNativeFile(nullptr);
}

TEST_F(NativeFileTest, OpensAnExistingFileForReading) {
    WriteBytes(m_Path, "content");
    const tvhandle file = Read();
    ASSERT_TRUE(file);
    EXPECT_EQ(Content(file, 99), "content");
}

TEST_F(NativeFileTest, DoesNotOpenWhatIsNotThere) {
    EXPECT_FALSE(Read());
    EXPECT_EQ(LastError(), platform::kErrorFileNotFound);
}

TEST_F(NativeFileTest, DoesNotOpenAFolder) {
    std::filesystem::create_directory(test_files::SystemPath(m_Path));
    EXPECT_FALSE(Read());
    EXPECT_EQ(LastError(), platform::kErrorAccessDenied);
    EXPECT_FALSE(Create());
    EXPECT_EQ(LastError(), platform::kErrorAccessDenied);
}

TEST_F(NativeFileTest, MakesAFile) {
    {
        const tvhandle file = Create();
        ASSERT_TRUE(file);
        EXPECT_EQ(Size(file), 0U);
    }
    EXPECT_EQ(OnDisk(), "");
}

TEST_F(NativeFileTest, MakesAFileForItsOwnerAlone) {
    using std::filesystem::perms;
    const tvhandle file = Create();
    ASSERT_TRUE(file);
    const perms rights = std::filesystem::status(test_files::SystemPath(m_Path)).permissions();
    EXPECT_NE(rights & perms::owner_write, perms::none);
    if (!kOnWindows) {
        EXPECT_EQ(rights, perms::owner_read | perms::owner_write);
    }
}

TEST_F(NativeFileTest, EmptiesAnExistingFile) {
    WriteBytes(m_Path, "old content");
    {
        const tvhandle file = Create();
        EXPECT_EQ(Size(file), 0U);
    }
    EXPECT_EQ(OnDisk(), "");
}

TEST_F(NativeFileTest, LeavesNothingOfALongerFile) {
    WriteBytes(m_Path, "a long old content");
    u32 done = 0;
    {
        const tvhandle file = Create();
        ASSERT_TRUE(platform::WriteNativeFile(file.Get(), "new", 3, done));
        EXPECT_EQ(Size(file), 3U);
        ASSERT_TRUE(platform::WriteNativeFile(file.Get(), "er", 2, done));
        EXPECT_EQ(Size(file), 5U);
    }
    EXPECT_EQ(OnDisk(), "newer");
}

TEST_F(NativeFileTest, FailsAsOrdered) {
    platform::OrderFault(FaultPoint::OpenFile, platform::kErrorTooManyOpenFiles, 1, 2);
    EXPECT_TRUE(Create());
    EXPECT_FALSE(Create());
    EXPECT_EQ(LastError(), platform::kErrorTooManyOpenFiles);
    EXPECT_FALSE(Read());
    EXPECT_TRUE(Read());
}

// --- Sharing ---

TEST_F(NativeFileTest, IsSharedByReaders) {
    WriteBytes(m_Path, "content");
    const tvhandle first = Read();
    EXPECT_TRUE(Read());
}

TEST_F(NativeFileTest, IsRefusedToASecondOneWithoutSharing) {
    WriteBytes(m_Path, "content");
    const tvhandle first = Read(FileSharing::None);
    ASSERT_TRUE(first);
    for (const FileSharing sharing : {FileSharing::None, FileSharing::ReadWrite}) {
        EXPECT_FALSE(Read(sharing));
        EXPECT_EQ(LastError(), platform::kErrorSharingViolation);
        EXPECT_FALSE(Create(sharing));
        EXPECT_EQ(LastError(), platform::kErrorSharingViolation);
    }
    EXPECT_EQ(Content(first, 99), "content");
}

TEST_F(NativeFileTest, IsNotToBeHadAloneWhileItIsShared) {
    WriteBytes(m_Path, "content");
    const tvhandle first = Read(FileSharing::ReadWrite);
    EXPECT_FALSE(Read(FileSharing::None));
    EXPECT_EQ(LastError(), platform::kErrorSharingViolation);
    EXPECT_FALSE(Create(FileSharing::None));
    EXPECT_EQ(LastError(), platform::kErrorSharingViolation);
    EXPECT_EQ(Content(first, 99), "content");
}

TEST_F(NativeFileTest, IsFreeAgainWhenClosed) {
    WriteBytes(m_Path, "content");
    EXPECT_TRUE(Read(FileSharing::None));
    EXPECT_TRUE(Read(FileSharing::None));
}

// The other process runs this test from the start, so the file's name must be the same in both.
TEST(NativeFileDeathTest, IsRefusedToAnotherProcess) {
    const tvstring path = ProgramPath(u"sharing-test.tmp");
    const auto open = [&](FileAccess access) {
        return tvhandle(platform::OpenNativeFile(path.c_str(), access, FileSharing::None));
    };
    tvhandle mine = open(FileAccess::CreateNew);
    EXPECT_EXIT(std::exit(open(FileAccess::Read) ? 0 : static_cast<int>(LastError())),
                testing::ExitedWithCode(32), "");
    EXPECT_TRUE(mine);
    mine.Close();
    std::filesystem::remove(test_files::SystemPath(path));
}

// --- Reading and writing ---

TEST_F(NativeFileTest, ReadsToTheEnd) {
    WriteBytes(m_Path, "0123456789");
    const tvhandle file = Read();
    EXPECT_EQ(Content(file, 4), "0123");
    EXPECT_EQ(Content(file, 99), "456789");
    EXPECT_EQ(Content(file, 99), "");
}

TEST_F(NativeFileTest, SeeksFromTheStart) {
    WriteBytes(m_Path, "0123456789");
    const tvhandle file = Read();
    EXPECT_TRUE(platform::SeekNativeFile(file.Get(), 7));
    EXPECT_EQ(Content(file, 99), "789");
    EXPECT_TRUE(platform::SeekNativeFile(file.Get(), 0));
    EXPECT_EQ(Content(file, 1), "0");
}

TEST_F(NativeFileTest, WritesAllThatIsGiven) {
    const std::string content(1'000'000, 'x');
    u32 done = 0;
    {
        const tvhandle file = Create();
        EXPECT_TRUE(platform::WriteNativeFile(file.Get(), content.data(), 1'000'000, done));
        EXPECT_EQ(done, 1'000'000U);
    }
    EXPECT_EQ(OnDisk(), content);
}

TEST_F(NativeFileTest, WritesNothingForACountOfZero) {
    const tvhandle file = Create();
    u32 done = 99;
    EXPECT_TRUE(platform::WriteNativeFile(file.Get(), "", 0, done));
    EXPECT_EQ(done, 0U);
}

TEST_F(NativeFileTest, DoesNotWriteToAFileOpenedForReading) {
    WriteBytes(m_Path, "content");
    const tvhandle file = Read();
    u32 done = 99;
    EXPECT_FALSE(platform::WriteNativeFile(file.Get(), "x", 1, done));
    EXPECT_EQ(done, 0U);
    EXPECT_NE(LastError(), 0U);
    EXPECT_EQ(OnDisk(), "content");
}

TEST_F(NativeFileTest, FailsOnAnEmptyHandle) {
    u8 byte = 0;
    u32 done = 99;
    u64 value = 0;
    EXPECT_FALSE(platform::ReadNativeFile(nullptr, &byte, 1, done));
    EXPECT_EQ(LastError(), platform::kErrorInvalidHandle);
    EXPECT_EQ(done, 0U);
    EXPECT_FALSE(platform::WriteNativeFile(nullptr, &byte, 1, done));
    EXPECT_FALSE(platform::NativeFileSize(nullptr, value));
    EXPECT_FALSE(platform::SeekNativeFile(nullptr, 0));
    EXPECT_FALSE(platform::NativeFileWriteTime(nullptr, value));
}

TEST_F(NativeFileTest, TellsWhenItWasWritten) {
    const u64 before = platform::SystemTimeTicks();
    WriteBytes(m_Path, "content");
    u64 written = 0;
    ASSERT_TRUE(platform::NativeFileWriteTime(Read().Get(), written));
    constexpr u64 kTwoSeconds = 20'000'000;
    EXPECT_GE(written + kTwoSeconds, before);
    EXPECT_LE(written, platform::SystemTimeTicks() + kTwoSeconds);
}

TEST_F(NativeFileTest, FailsInEachOperationAsOrdered) {
    const tvhandle file = Create();
    u8 bytes[4] = {};
    u32 done = 99;
    u64 value = 0;
    platform::OrderFault(FaultPoint::ReadFile, 1117);
    EXPECT_FALSE(platform::ReadNativeFile(file.Get(), bytes, 4, done));
    EXPECT_EQ(done, 0U);
    platform::OrderFault(FaultPoint::WriteFile, 112);
    EXPECT_FALSE(platform::WriteNativeFile(file.Get(), bytes, 4, done));
    EXPECT_EQ(done, 2U);
    EXPECT_EQ(LastError(), 112U);
    platform::OrderFault(FaultPoint::ShortWrite, 0);
    EXPECT_TRUE(platform::WriteNativeFile(file.Get(), bytes, 4, done));
    EXPECT_EQ(done, 3U);
    platform::OrderFault(FaultPoint::FileSize, 6);
    EXPECT_FALSE(platform::NativeFileSize(file.Get(), value));
    platform::OrderFault(FaultPoint::SeekFile, 6);
    EXPECT_FALSE(platform::SeekNativeFile(file.Get(), 0));
    platform::OrderFault(FaultPoint::WriteTime, 6);
    EXPECT_FALSE(platform::NativeFileWriteTime(file.Get(), value));
    EXPECT_EQ(LastError(), 6U);
}

// --- Paths ---

TEST_F(NativeFileTest, TellsFilesAndFoldersApart) {
    EXPECT_FALSE(platform::PathExists(m_Path.c_str()));
    EXPECT_FALSE(platform::PathIsFolder(m_Path.c_str()));
    WriteBytes(m_Path, "");
    EXPECT_TRUE(platform::PathExists(m_Path.c_str()));
    EXPECT_FALSE(platform::PathIsFolder(m_Path.c_str()));
    EXPECT_TRUE(platform::PathExists(m_Folder.Path().c_str()));
    EXPECT_TRUE(platform::PathIsFolder(m_Folder.Path().c_str()));
}

TEST_F(NativeFileTest, MakesOneFolder) {
    EXPECT_TRUE(platform::MakeFolder(m_Path.c_str()));
    EXPECT_TRUE(platform::PathIsFolder(m_Path.c_str()));
    EXPECT_FALSE(platform::MakeFolder(m_Path.c_str()));
    EXPECT_EQ(LastError(), platform::kErrorAlreadyExists);
    EXPECT_FALSE(platform::MakeFolder(m_Folder.Path(u"a/b").c_str()));
    EXPECT_NE(LastError(), platform::kErrorAlreadyExists);
}

TEST_F(NativeFileTest, DoesNotMakeAFolderWhereAFileIs) {
    WriteBytes(m_Path, "");
    EXPECT_FALSE(platform::MakeFolder(m_Path.c_str()));
    EXPECT_EQ(LastError(), platform::kErrorAlreadyExists);
}

TEST_F(NativeFileTest, CanBeMadeWritable) {
    using std::filesystem::perms;
    EXPECT_FALSE(platform::ClearFileAttributes(m_Path.c_str()));
    EXPECT_EQ(LastError(), platform::kErrorFileNotFound);
    WriteBytes(m_Path, "content");
    const auto path = test_files::SystemPath(m_Path);
    std::filesystem::permissions(path, perms::owner_write, std::filesystem::perm_options::remove);
    EXPECT_TRUE(platform::ClearFileAttributes(m_Path.c_str()));
    EXPECT_NE(std::filesystem::status(path).permissions() & perms::owner_write, perms::none);
    EXPECT_TRUE(platform::ClearFileAttributes(m_Path.c_str()));
}

TEST_F(NativeFileTest, ListsNamesByTheirExtension) {
    for (const char16_t* name : {u"a.ini", u"b.INI", u"c.txt", u"d.in", u"e\u00E9.ini", u"ini"})
        WriteBytes(m_Folder.Path(name), "");
    auto names = platform::ListNames(m_Folder.Path().c_str(), u"ini");
    ASSERT_TRUE(names.has_value());
    std::sort(names->begin(), names->end());
    EXPECT_EQ(*names, (std::vector<std::u16string>{u"a.ini", u"b.INI", u"e\u00E9.ini"}));
}

TEST_F(NativeFileTest, ListsNothingWithoutAFolder) {
    EXPECT_FALSE(platform::ListNames(m_Folder.Path(u"missing").c_str(), u"ini"));
    EXPECT_NE(LastError(), 0U);
    const auto names = platform::ListNames(m_Folder.Path().c_str(), u"ini");
    EXPECT_TRUE(!names.has_value() || names->empty());
}

TEST(ExpandEnvironment, PutsInWhatIsSet) {
    const EnvironmentVariable variable("VMR_TEST_NAME", "a value");
    EXPECT_EQ(platform::ExpandEnvironment(u"%VMR_TEST_NAME%/%NOSUCHVAR%/%"), u"a value/%NOSUCHVAR%/%");
    EXPECT_EQ(platform::ExpandEnvironment(u""), u"");
}

TEST(KnownFolder, IsNothingForWhatIsNoIdentifier) {
    EXPECT_FALSE(platform::KnownFolder(u""));
    EXPECT_FALSE(platform::KnownFolder(u"no identifier, but a text of some length"));
    EXPECT_FALSE(platform::KnownFolder(u"{00000000-1111-2222-3333-444444444444}"));
}

TEST(ProgramFile, IsTheFileOfTheRunningProgram) {
    const std::u16string program = platform::ProgramFile();
    EXPECT_TRUE(platform::PathExists(program.c_str()));
    EXPECT_FALSE(platform::PathIsFolder(program.c_str()));
    EXPECT_NE(program.find(platform::kPathSeparator), std::u16string::npos);
    EXPECT_LE(program.size(), 259U);
}

TEST(IsPathSeparator, IsTrueForASlashAndTheSystemsOwn) {
    EXPECT_TRUE(platform::IsPathSeparator(u'/'));
    EXPECT_TRUE(platform::IsPathSeparator(platform::kPathSeparator));
    EXPECT_EQ(platform::IsPathSeparator(u'\\'), kOnWindows);
    EXPECT_FALSE(platform::IsPathSeparator(u':'));
}

}  // namespace
