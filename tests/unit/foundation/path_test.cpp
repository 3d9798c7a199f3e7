#include "foundation/path.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "foundation/conversion.h"
#include "platform/error.h"
#include "platform/fault.h"
#include "tests/unit/environment.h"
#include "tests/unit/test_files.h"

namespace {

using platform::FaultPoint;
using platform::LastError;

constexpr bool kOnWindows = platform::kPathSeparator == u'\\';
constexpr char16_t kSeparator[] = {platform::kPathSeparator, 0};

std::string Utf8(const tvstring& text) {
    return std::string(ToUtf8(text).view());
}

// The path in this system's syntax.
tvstring Native(std::u16string path) {
    for (char16_t& unit : path) {
        if (unit == u'/') unit = platform::kPathSeparator;
    }
    return path;
}

bool IsFolder(const tvstring& path) {
    return std::filesystem::is_directory(test_files::SystemPath(path));
}

class PathTest : public testing::Test {
protected:
    ~PathTest() override { platform::ClearFaults(); }

    TempFolder m_Folder;
    tvstring m_File = m_Folder.Path(u"file");
};

using ExpandPathTest = PathTest;
using PathKindTest = PathTest;
using CreateDirectoriesTest = PathTest;
using OpenFileHandleTest = PathTest;

// --- ExpandPath ---

TEST_F(ExpandPathTest, LeavesAPathWithoutVariables) {
    EXPECT_EQ(ExpandPath(u""), u"");
    EXPECT_EQ(ExpandPath(u"plain/path"), u"plain/path");
}

TEST_F(ExpandPathTest, PutsVariablesIn) {
    const EnvironmentVariable first("VMR_TEST_FIRST", "one");
    const EnvironmentVariable second("VMR_TEST_SECOND", "two");
    EXPECT_EQ(ExpandPath(u"%VMR_TEST_FIRST%"), u"one");
    EXPECT_EQ(ExpandPath(u"a/%VMR_TEST_FIRST%/%VMR_TEST_SECOND%/b"), u"a/one/two/b");
    EXPECT_EQ(ExpandPath(u"%VMR_TEST_FIRST%%VMR_TEST_SECOND%"), u"onetwo");
}

TEST_F(ExpandPathTest, LeavesAVariableThatIsNotSet) {
    EXPECT_EQ(ExpandPath(u"%NOSUCHVAR%\\x"), u"%NOSUCHVAR%\\x");
    EXPECT_EQ(ExpandPath(u"%NOSUCHVAR%"), u"%NOSUCHVAR%");
}

TEST_F(ExpandPathTest, LeavesMarksThatEncloseNoName) {
    EXPECT_EQ(ExpandPath(u"100%"), u"100%");
    EXPECT_EQ(ExpandPath(u"%"), u"%");
    EXPECT_EQ(ExpandPath(u"a%%b"), u"a%%b");
}

TEST_F(ExpandPathTest, TakesLongValues) {
    const std::string value(2000, 'x');
    const EnvironmentVariable variable("VMR_TEST_LONG", value);
    EXPECT_EQ(Utf8(ExpandPath(u"%VMR_TEST_LONG%%VMR_TEST_LONG%")), value + value);
}

TEST_F(ExpandPathTest, LeavesWhatIsNoKnownFolder) {
    const tvstring unknown = u"%{00000000-1111-2222-3333-444444444444}%/x";
    EXPECT_EQ(ExpandPath(unknown), unknown);
    const tvstring noIdentifier = u"%a text of more than thirty-six units....%/x";
    EXPECT_EQ(ExpandPath(noIdentifier), noIdentifier);
}

TEST_F(ExpandPathTest, PutsKnownFoldersInWhereTheSystemHasThem) {
    const tvstring token = u"%{FDD39AD0-238F-46AF-ADB4-6C85480369C7}%";
    const auto documents = platform::KnownFolder(u"{FDD39AD0-238F-46AF-ADB4-6C85480369C7}");
    EXPECT_EQ(documents.has_value(), kOnWindows);
    const tvstring expected = documents ? tvstring(*documents) : token;
    EXPECT_EQ(ExpandPath(token), expected);
    EXPECT_EQ(ExpandPath(token + u"\\a.vmr"), expected + u"\\a.vmr");
    EXPECT_EQ(ExpandPath(tvstring(u"x") + token + token), tvstring(u"x") + expected + expected);
}

TEST_F(ExpandPathTest, GoesOnFromTheSecondMarkBehindATokenThatFails) {
    const tvstring token = u"%{FDD39AD0-238F-46AF-ADB4-6C85480369C7}%";
    EXPECT_EQ(ExpandPath(tvstring(u"100") + token), tvstring(u"100") + ExpandPath(token));
    EXPECT_EQ(ExpandPath(tvstring(u"%NOSUCHVAR") + token), tvstring(u"%NOSUCHVAR") + ExpandPath(token));
}

TEST_F(ExpandPathTest, FindsAKnownFolderInTheValueOfAVariable) {
    const EnvironmentVariable variable("VMR_TEST_TOKEN", "%{FDD39AD0-238F-46AF-ADB4-6C85480369C7}%");
    EXPECT_EQ(ExpandPath(u"%VMR_TEST_TOKEN%"), ExpandPath(u"%{FDD39AD0-238F-46AF-ADB4-6C85480369C7}%"));
}

// --- PathKind ---

TEST_F(PathKindTest, TellsNothingFileAndFolderApart) {
    WriteBytes(m_File, "");
    EXPECT_EQ(PathKind(u""), 0);
    EXPECT_EQ(PathKind(m_Folder.Path(u"missing")), 0);
    EXPECT_EQ(PathKind(m_File), 1);
    EXPECT_EQ(PathKind(m_Folder.Path()), 2);
}

TEST_F(PathKindTest, LooksAtTheExpandedPath) {
    const EnvironmentVariable variable("VMR_TEST_FOLDER", Utf8(m_Folder.Path()));
    WriteBytes(m_File, "");
    EXPECT_EQ(PathKind(u"%VMR_TEST_FOLDER%"), PATH_FOLDER);
    EXPECT_EQ(PathKind(Native(u"%VMR_TEST_FOLDER%/file")), PATH_FILE);
}

// --- CreateDirectories ---

TEST_F(CreateDirectoriesTest, MakesAllMissingParents) {
    const tvstring path = m_Folder.Path(u"a/bc/d e/f\u00E9");
    EXPECT_TRUE(CreateDirectories(path));
    EXPECT_TRUE(IsFolder(path));
}

TEST_F(CreateDirectoriesTest, MakesOneFolder) {
    EXPECT_TRUE(CreateDirectories(m_Folder.Path(u"a")));
    EXPECT_TRUE(IsFolder(m_Folder.Path(u"a")));
}

TEST_F(CreateDirectoriesTest, IsContentWithAnExistingFolder) {
    platform::OrderFault(FaultPoint::MakeFolder, platform::kErrorAccessDenied);
    EXPECT_TRUE(CreateDirectories(m_Folder.Path()));
    platform::ClearFaults();
    EXPECT_TRUE(std::filesystem::is_empty(test_files::SystemPath(m_Folder.Path())));
}

TEST_F(CreateDirectoriesTest, TakesSeparatorsAtTheEnd) {
    EXPECT_TRUE(CreateDirectories(m_Folder.Path(u"a/b") + kSeparator));
    EXPECT_TRUE(IsFolder(m_Folder.Path(u"a/b")));
    EXPECT_TRUE(CreateDirectories(m_Folder.Path(u"a") + kSeparator));
}

TEST_F(CreateDirectoriesTest, RefusesAnEmptyPath) {
    platform::SetLastError(7);
    EXPECT_FALSE(CreateDirectories(u""));
    EXPECT_EQ(LastError(), 0U);
}

TEST_F(CreateDirectoriesTest, RefusesAFileInTheWay) {
    WriteBytes(m_File, "content");
    EXPECT_FALSE(CreateDirectories(m_File));
    EXPECT_FALSE(CreateDirectories(m_Folder.Path(u"file/sub/folder")));
    EXPECT_EQ(ReadBytes(m_File).size(), 7U);
}

TEST_F(CreateDirectoriesTest, RefusesAPathWithoutASeparator) {
    EXPECT_FALSE(CreateDirectories(u"vmr-test-no-such-folder"));
    EXPECT_FALSE(CreateDirectories(Native(u"vmr-test-no-such-folder/sub")));
    EXPECT_EQ(PathKind(u"vmr-test-no-such-folder"), PATH_NONE);
}

TEST_F(CreateDirectoriesTest, ExpandsVariables) {
    const EnvironmentVariable variable("VMR_TEST_FOLDER", Utf8(m_Folder.Path()));
    EXPECT_TRUE(CreateDirectories(Native(u"%VMR_TEST_FOLDER%/a/b")));
    EXPECT_TRUE(IsFolder(m_Folder.Path(u"a/b")));
}

TEST_F(CreateDirectoriesTest, FailsWhereAFolderCannotBeMade) {
    platform::OrderFault(FaultPoint::MakeFolder, platform::kErrorAccessDenied, 1);
    EXPECT_FALSE(CreateDirectories(m_Folder.Path(u"a/b/c")));
    EXPECT_EQ(LastError(), platform::kErrorAccessDenied);
    EXPECT_TRUE(IsFolder(m_Folder.Path(u"a")));
    EXPECT_FALSE(IsFolder(m_Folder.Path(u"a/b")));
}

TEST_F(CreateDirectoriesTest, GoesOnWhereAFolderIsThereAlready) {
    std::filesystem::create_directory(test_files::SystemPath(m_Folder.Path(u"a")));
    platform::OrderFault(FaultPoint::MakeFolder, platform::kErrorAlreadyExists);
    EXPECT_TRUE(CreateDirectories(m_Folder.Path(u"a/b")));
}

// --- OpenFileHandle ---

TEST_F(OpenFileHandleTest, RefusesAnEmptyPath) {
    platform::SetLastError(7);
    EXPECT_FALSE(OpenFileHandle(u"", true));
    EXPECT_EQ(LastError(), 0U);
    platform::SetLastError(7);
    EXPECT_FALSE(OpenFileHandle(u"", false));
    EXPECT_EQ(LastError(), 0U);
}

TEST_F(OpenFileHandleTest, DoesNotMakeAFileForReading) {
    EXPECT_FALSE(OpenFileHandle(m_File, false));
    EXPECT_EQ(LastError(), platform::kErrorFileNotFound);
    EXPECT_EQ(PathKind(m_File), PATH_NONE);
    EXPECT_FALSE(OpenFileHandle(m_Folder.Path(u"new/file"), false));
    EXPECT_EQ(PathKind(m_Folder.Path(u"new")), PATH_NONE);
}

TEST_F(OpenFileHandleTest, MakesMissingFoldersForWriting) {
    const tvstring path = m_Folder.Path(u"new/folders/file");
    EXPECT_TRUE(OpenFileHandle(path, true));
    EXPECT_EQ(PathKind(path), PATH_FILE);
}

TEST_F(OpenFileHandleTest, EmptiesAnExistingFileForWriting) {
    WriteBytes(m_File, "old content");
    EXPECT_TRUE(OpenFileHandle(m_File, true));
    EXPECT_TRUE(ReadBytes(m_File).empty());
}

TEST_F(OpenFileHandleTest, ReplacesAReadOnlyFile) {
    using std::filesystem::perms;
    WriteBytes(m_File, "old content");
    const auto path = test_files::SystemPath(m_File);
    std::filesystem::permissions(path, perms::owner_write | perms::group_write | perms::others_write,
                                 std::filesystem::perm_options::remove);
    const auto file = OpenFileHandle(m_File, true);
    ASSERT_TRUE(file);
    u32 done = 0;
    EXPECT_TRUE(platform::WriteNativeFile(file.Get(), "new", 3, done));
    EXPECT_NE(std::filesystem::status(path).permissions() & perms::owner_write, perms::none);
}

TEST_F(OpenFileHandleTest, ExpandsVariables) {
    const EnvironmentVariable variable("VMR_TEST_FOLDER", Utf8(m_Folder.Path()));
    EXPECT_TRUE(OpenFileHandle(Native(u"%VMR_TEST_FOLDER%/new/file"), true));
    EXPECT_TRUE(OpenFileHandle(Native(u"%VMR_TEST_FOLDER%/new/file"), false));
    EXPECT_EQ(PathKind(m_Folder.Path(u"new/file")), PATH_FILE);
}

TEST_F(OpenFileHandleTest, SharesAFileThatIsRead) {
    WriteBytes(m_File, "content");
    const tvhandle first = OpenFileHandle(m_File, false);
    const tvhandle second = OpenFileHandle(m_File, false);
    EXPECT_TRUE(first);
    EXPECT_TRUE(second);
}

TEST_F(OpenFileHandleTest, DoesNotShareAFileThatIsWritten) {
    const tvhandle writer = OpenFileHandle(m_File, true);
    ASSERT_TRUE(writer);
    EXPECT_FALSE(OpenFileHandle(m_File, false));
    EXPECT_EQ(LastError(), platform::kErrorSharingViolation);
    EXPECT_FALSE(OpenFileHandle(m_File, true));
    EXPECT_EQ(LastError(), platform::kErrorSharingViolation);
}

TEST_F(OpenFileHandleTest, DoesNotEmptyAFileThatSomebodyReads) {
    WriteBytes(m_File, "content");
    {
        const tvhandle reader = OpenFileHandle(m_File, false);
        EXPECT_FALSE(OpenFileHandle(m_File, true));
        EXPECT_EQ(LastError(), platform::kErrorSharingViolation);
    }
    EXPECT_EQ(ReadBytes(m_File).size(), 7U);
}

TEST_F(OpenFileHandleTest, FailsForAFolder) {
    EXPECT_FALSE(OpenFileHandle(m_Folder.Path(), false));
    EXPECT_EQ(LastError(), platform::kErrorAccessDenied);
    EXPECT_FALSE(OpenFileHandle(m_Folder.Path(), true));
    EXPECT_EQ(LastError(), platform::kErrorAccessDenied);
}

TEST_F(OpenFileHandleTest, LeavesTheCauseInTheLastError) {
    WriteBytes(m_File, "content");
    for (const bool forWrite : {false, true}) {
        platform::OrderFault(FaultPoint::OpenFile, platform::kErrorTooManyOpenFiles);
        EXPECT_FALSE(OpenFileHandle(m_File, forWrite));
        EXPECT_EQ(LastError(), platform::kErrorTooManyOpenFiles);
    }
}

TEST_F(OpenFileHandleTest, TriesToOpenWhereAFolderCannotBeMade) {
    platform::OrderFault(FaultPoint::MakeFolder, platform::kErrorDiskFull, 0, 9);
    EXPECT_FALSE(OpenFileHandle(m_Folder.Path(u"new/file"), true));
    EXPECT_NE(LastError(), platform::kErrorDiskFull);
    EXPECT_NE(LastError(), 0U);
}

// --- Path texts ---

TEST(JoinPath, PutsOneSeparatorBetween) {
    EXPECT_EQ(JoinPath(u"a", u"b"), Native(u"a/b"));
    EXPECT_EQ(JoinPath(Native(u"a/"), u"b"), Native(u"a/b"));
    EXPECT_EQ(JoinPath(u"a", Native(u"/b")), Native(u"a/b"));
}

TEST(JoinPath, LeavesSeparatorsThatAreThere) {
    EXPECT_EQ(JoinPath(Native(u"a/"), Native(u"/b")), Native(u"a//b"));
}

TEST(JoinPath, AddsNothingToAnEmptySide) {
    EXPECT_EQ(JoinPath(u"", u"b"), u"b");
    EXPECT_EQ(JoinPath(u"a", u""), u"a");
    EXPECT_EQ(JoinPath(u"", u""), u"");
}

TEST(ParentFolder, CutsTheLastComponentAndItsSeparator) {
    EXPECT_EQ(ParentFolder(Native(u"/usr/bin/vmr")), Native(u"/usr/bin"));
    EXPECT_EQ(ParentFolder(Native(u"a/b/")), Native(u"a/b"));
    EXPECT_EQ(ParentFolder(u"vmr"), u"");
    EXPECT_EQ(ParentFolder(u""), u"");
}

TEST(ParentFolder, KeepsTheSeparatorOfARoot) {
    EXPECT_EQ(ParentFolder(Native(u"/vmr")), kSeparator);
    EXPECT_EQ(ParentFolder(Native(u"C:/vmr.exe")), kOnWindows ? u"C:\\" : u"C:");
    EXPECT_EQ(JoinPath(ParentFolder(Native(u"/vmr")), u"Lang"), Native(u"/Lang"));
}

TEST(ProgramPath, GivesTheProgramsFileForAnEmptyName) {
    const tvstring program = ProgramPath(u"");
    EXPECT_EQ(PathKind(program), PATH_FILE);
    EXPECT_EQ(program, tvstring(platform::ProgramFile()));
}

TEST(ProgramPath, GivesTheProgramsFolderForNull) {
    const tvstring folder = ProgramPath(nullptr);
    EXPECT_EQ(PathKind(folder), PATH_FOLDER);
    EXPECT_EQ(JoinPath(folder, FileNameOf(ProgramPath(u""))), ProgramPath(u""));
}

TEST(ProgramPath, JoinsTheFolderWithAName) {
    EXPECT_EQ(ProgramPath(u"Lang"), ProgramPath(nullptr) + kSeparator + u"Lang");
}

TEST(IsDotName, IsTrueForNoNameAndOneOrTwoDots) {
    EXPECT_TRUE(IsDotName(u""));
    EXPECT_TRUE(IsDotName(u"."));
    EXPECT_TRUE(IsDotName(u".."));
    EXPECT_FALSE(IsDotName(u"..."));
    EXPECT_FALSE(IsDotName(u".a"));
    EXPECT_FALSE(IsDotName(u"a"));
    EXPECT_FALSE(IsDotName(u" "));
}

TEST(FileNameOf, GivesTheLastComponent) {
    EXPECT_EQ(FileNameOf(Native(u"a/b.vmr")), u"b.vmr");
    EXPECT_EQ(FileNameOf(u"b.vmr"), u"b.vmr");
    EXPECT_EQ(FileNameOf(Native(u"a/b/")), Native(u"b/"));
    EXPECT_EQ(FileNameOf(Native(u"/")), Native(u"/"));
    EXPECT_EQ(FileNameOf(u""), u"");
    EXPECT_EQ(FileNameOf(u"C:b.vmr"), kOnWindows ? u"b.vmr" : u"C:b.vmr");
}

TEST(ExtensionOf, GivesTheLastComponentsExtensionWithItsDot) {
    EXPECT_EQ(ExtensionOf(Native(u"a/b.csv")), u".csv");
    EXPECT_EQ(ExtensionOf(u"b.tar.HTML"), u".HTML");
    EXPECT_EQ(ExtensionOf(u".htm"), u".htm");
    EXPECT_EQ(ExtensionOf(u"b."), u".");
}

TEST(ExtensionOf, IsEmptyWithoutADotInTheLastComponent) {
    EXPECT_EQ(ExtensionOf(Native(u"a.b/c")), u"");
    EXPECT_EQ(ExtensionOf(u"abc"), u"");
    EXPECT_EQ(ExtensionOf(u""), u"");
    EXPECT_EQ(ExtensionOf(u"a.b c"), u"");
}

}  // namespace
