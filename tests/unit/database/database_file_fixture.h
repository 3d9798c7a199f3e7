// What tests of databases in files share.
#pragma once

#include <gtest/gtest.h>

#include "database/database.h"
#include "platform/error.h"
#include "platform/file.h"
#include "tests/unit/database/made_container.h"
#include "tests/unit/database/tree.h"
#include "tests/unit/test_files.h"

inline constexpr u64 kSecond = 1'700'000'000;
inline constexpr u64 kDate = 133701477937561600;

inline const Tree kOneEmptyItem{u"", {{u"x", kDate, {{3, u""}, {4, u""}, {5, u""}}}}};

inline bool CanOpen(const tvstring& path) {
    return bool(tvhandle(
        platform::OpenNativeFile(path.c_str(), platform::FileAccess::Read, platform::FileSharing::None)));
}

inline void SetPassword(VMRD_DB& database, const tvstring& password = kPassword) {
    HashPassword(password, database.m_PwdHash);
}

class DatabaseFileTest : public ::testing::Test {
protected:
    // A file at m_Path with kOneEmptyItem under kPassword.
    void SetUp() override {
        WriteStream(Stream({{2, u"x"}, {7, u"0x01db00c92a69c000"}, {3, u""}, {4, u""}, {5, u""}}));
    }
    void WriteStream(const std::vector<u8>& stream) { WriteBytes(m_Path, MadeContainer(stream)); }

    // m_Database as it is once open and changed, and its file held.
    void OpenAndChange() {
        ASSERT_TRUE(m_Database.Open(m_Path, kPassword));
        m_Database.SetName(u"changed");
        ASSERT_TRUE(m_Database.m_Changed);
    }

    // Open fails, whatever was open before, with this error; the database is closed and holds no file.
    void ExpectRefused(const tvstring& path, const tvstring& password, u32 error) {
        platform::SetLastError(77);
        EXPECT_FALSE(m_Database.Open(path, password));
        EXPECT_EQ(platform::LastError(), error);
        ExpectClosed();
    }
    void ExpectClosed() {
        EXPECT_FALSE(m_Database.m_Opened);
        EXPECT_FALSE(m_Database.m_Changed);
        EXPECT_FALSE(m_Database.m_File);
        EXPECT_FALSE(m_Database.HasMasterPassword());
        EXPECT_EQ(m_Database.m_Path, u"");
        EXPECT_EQ(m_Database.m_Display, u"");
        EXPECT_EQ(TreeOf(m_Database), Tree());
        EXPECT_EQ(m_Database.m_Count, 0);
        EXPECT_EQ(m_Database.m_Undo.Count(), 0U);
        EXPECT_EQ(m_Database.m_Undo.SavedPos(), 0);
    }

    TempFolder m_Folder;
    tvstring m_Path = m_Folder.Path(u"a.vmr");
    VMRD_DB m_Database;
};
