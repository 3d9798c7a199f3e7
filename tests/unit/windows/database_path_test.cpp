#include "windows/database_path.h"

#include <gtest/gtest.h>

namespace {

TEST(DatabasePath, IsAbsoluteOnADrive) {
    EXPECT_TRUE(IsAbsolutePath(u"C:\\"));
    EXPECT_TRUE(IsAbsolutePath(u"C:\\a.VMR"));
    EXPECT_FALSE(IsAbsolutePath(u"C:"));
    EXPECT_FALSE(IsAbsolutePath(u"C:a.VMR"));
    EXPECT_FALSE(IsAbsolutePath(u"C:/a.VMR"));
}

TEST(DatabasePath, IsAbsoluteOnAShare) {
    EXPECT_TRUE(IsAbsolutePath(u"\\\\server\\share\\a.VMR"));
    EXPECT_TRUE(IsAbsolutePath(u"\\\\\\"));
    EXPECT_FALSE(IsAbsolutePath(u"\\\\server"));
    EXPECT_FALSE(IsAbsolutePath(u"\\a\\b"));
}

TEST(DatabasePath, IsNotAbsoluteElsewhere) {
    for (const char16_t* path : {u"", u"a", u"a.VMR", u"folder\\a.VMR", u"..\\a.VMR"})
        EXPECT_FALSE(IsAbsolutePath(path));
}

TEST(ErrorCode, StandsBehindTheMessage) {
    EXPECT_EQ(WithErrorCode(u"Failed to open file C:\\a.VMR", 5),
              u"Failed to open file C:\\a.VMR [0x00000005]");
    EXPECT_EQ(WithErrorCode(u"x", 0xFFFFFFFF), u"x [0xffffffff]");
}

TEST(ErrorCode, IsNotToldForNoError) {
    EXPECT_EQ(WithErrorCode(u" Failed. \r\n", 0), u" Failed. \r\n");
}

TEST(ErrorCode, FollowsTheTrimmedMessage) {
    EXPECT_EQ(WithErrorCode(u"\t Failed to save.\r\n.", 32), u"Failed to save [0x00000020]");
}

}  // namespace
