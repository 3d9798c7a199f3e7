// Failures of a real system instead of ordered ones.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "database/database.h"
#include "platform/error.h"
#include "tests/unit/database/made_container.h"
#include "tests/unit/test_files.h"

namespace {

using platform::LastError;

class RealFailureTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_Database.New(u"new");
        m_Database.SetMasterPassword(kPassword);
    }
    u32 SaveTo(const tvstring& path) {
        m_Database.SetPath(path);
        EXPECT_FALSE(m_Database.Save());
        EXPECT_TRUE(m_Database.m_Opened);
        EXPECT_TRUE(m_Database.m_Changed);
        return LastError();
    }
    u32 OpenFrom(const tvstring& path) {
        EXPECT_FALSE(m_Database.Open(path, kPassword));
        EXPECT_FALSE(m_Database.m_Opened);
        return LastError();
    }

    TempFolder m_Folder;
    VMRD_DB m_Database;
};

TEST_F(RealFailureTest, SaysThatTheDiskIsFull) {
    EXPECT_EQ(SaveTo(u"/dev/full"), platform::kErrorDiskFull);
}

TEST_F(RealFailureTest, FindsNoFileInAMissingFolder) {
    EXPECT_EQ(SaveTo(m_Folder.Path(u"none/a.vmr")), platform::kErrorFileNotFound);
    EXPECT_EQ(OpenFrom(m_Folder.Path(u"none/a.vmr")), platform::kErrorFileNotFound);
}

TEST_F(RealFailureTest, FindsNoPathThroughAFile) {
    WriteBytes(m_Folder.Path(u"file"), std::string_view("no folder"));
    EXPECT_EQ(SaveTo(m_Folder.Path(u"file/a.vmr")), platform::kErrorPathNotFound);
    EXPECT_EQ(OpenFrom(m_Folder.Path(u"file/a.vmr")), platform::kErrorPathNotFound);
}

TEST_F(RealFailureTest, IsDeniedAFolder) {
    EXPECT_EQ(SaveTo(m_Folder.Path()), platform::kErrorAccessDenied);
    EXPECT_EQ(OpenFrom(m_Folder.Path()), platform::kErrorAccessDenied);
}

TEST_F(RealFailureTest, TakesDevicesForNoDatabase) {
    EXPECT_EQ(OpenFrom(u"/dev/null"), platform::kErrorInvalidData);
}

// Takes the rights of nobody until it goes: tests may run as the owner of the system, who is denied nothing.
class WithoutPrivileges {
public:
    WithoutPrivileges() { EXPECT_EQ(Become(65534), 0); }
    ~WithoutPrivileges() { EXPECT_EQ(Become(0), 0); }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

private:
    static int Become(::uid_t user) { return ::getuid() == 0 ? ::seteuid(user) : 0; }
};

TEST_F(RealFailureTest, IsDeniedWhatItMayNotReadOrWrite) {
    const tvstring path = m_Folder.Path(u"a.vmr");
    WriteBytes(path, MadeContainer(Stream({{1, u"n"}})));
    std::filesystem::permissions(test_files::SystemPath(path), std::filesystem::perms::owner_read);
    {
        const WithoutPrivileges nobody;
        EXPECT_EQ(SaveTo(path), platform::kErrorAccessDenied);
    }
    std::filesystem::permissions(test_files::SystemPath(path), std::filesystem::perms::none);
    const WithoutPrivileges nobody;
    EXPECT_EQ(OpenFrom(path), platform::kErrorAccessDenied);
}

TEST_F(RealFailureTest, MakesFilesForTheirOwnerAlone) {
    const tvstring path = m_Folder.Path(u"a.vmr");
    m_Database.SetPath(path);
    ASSERT_TRUE(m_Database.Save());
    EXPECT_EQ(std::filesystem::status(test_files::SystemPath(path)).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

}  // namespace
