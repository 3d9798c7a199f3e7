#include "foundation/textfile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "foundation/path.h"
#include "platform/error.h"
#include "platform/fault.h"
#include "tests/unit/test_files.h"

namespace {

using namespace std::literals;
using platform::FaultPoint;

class TextFile : public testing::Test {
protected:
    ~TextFile() override { platform::ClearFaults(); }

    tvstring Read(std::string_view bytes) {
        WriteBytes(m_Path, bytes);
        return ReadTextFile(m_Path);
    }

    std::string Written(const tvstring& text, int encoding) {
        EXPECT_TRUE(WriteTextFile(text, m_Path, encoding));
        const std::vector<u8> bytes = ReadBytes(m_Path);
        return {bytes.begin(), bytes.end()};
    }

    TempFolder m_Folder;
    tvstring m_Path = m_Folder.Path(u"text");
};

using ReadTextFileTest = TextFile;
using WriteTextFileTest = TextFile;

TEST_F(ReadTextFileTest, ReadsUtf8WithoutItsMark) {
    EXPECT_EQ(Read("\xEF\xBB\xBF"
                   "a\xE2\x82\xAC\r\n\xF0\x9F\x94\x91"),
              u"a\u20AC\r\n\U0001F511");
}

TEST_F(ReadTextFileTest, ReadsUtf16InBothOrders) {
    EXPECT_EQ(Read("\xFF\xFE"
                   "a\0\xAC\x20"sv),
              u"a\u20AC");
    EXPECT_EQ(Read("\xFE\xFF"
                   "\0a\x20\xAC"sv),
              u"a\u20AC");
}

TEST_F(ReadTextFileTest, ReadsAFileWithoutAMarkAsAnsi) {
    EXPECT_EQ(Read("a\x80\xE9"), u"a\u20AC\u00E9");
    EXPECT_EQ(Read("\xC3\xA9"), u"\u00C3\u00A9");
}

TEST_F(ReadTextFileTest, ReadsOddNumbersOfUtf16Bytes) {
    EXPECT_EQ(Read("\xFF\xFE"
                   "a\0b"sv),
              u"ab");
    EXPECT_EQ(Read("\xFE\xFF"
                   "\0a\x20"sv),
              u"a\u2000");
    EXPECT_EQ(Read("\xFF"), u"\u00FF");
}

TEST_F(ReadTextFileTest, StopsAtAZero) {
    EXPECT_EQ(Read("ab\0cd"sv), u"ab");
    EXPECT_EQ(Read("\xFF\xFE"
                   "a\0\0\0b\0"sv),
              u"a");
}

TEST_F(ReadTextFileTest, IsEmptyForAFileWithoutText) {
    EXPECT_TRUE(Read("").empty());
    EXPECT_TRUE(Read("\0abc"sv).empty());
    EXPECT_TRUE(Read("\xFF\xFE").empty());
    EXPECT_TRUE(Read("\xFE\xFF").empty());
    EXPECT_TRUE(Read("\xEF\xBB\xBF").empty());
}

TEST_F(ReadTextFileTest, IsEmptyForAFileThatCannotBeOpened) {
    EXPECT_TRUE(ReadTextFile(m_Path).empty());
    EXPECT_TRUE(ReadTextFile(m_Folder.Path()).empty());
    EXPECT_TRUE(ReadTextFile(u"").empty());
}

TEST_F(ReadTextFileTest, IsEmptyOnAnyFailure) {
    WriteBytes(m_Path, "abc");
    for (const FaultPoint point : {FaultPoint::OpenFile, FaultPoint::FileSize, FaultPoint::SeekFile,
                                   FaultPoint::AllocateZeroed, FaultPoint::ReadFile, FaultPoint::ShortRead}) {
        platform::OrderFault(point, platform::kErrorIoDevice);
        EXPECT_TRUE(ReadTextFile(m_Path).empty()) << static_cast<int>(point);
        platform::ClearFaults();
    }
    platform::OrderFault(FaultPoint::AllocateZeroed, platform::kErrorNotEnoughMemory, 1);
    EXPECT_TRUE(ReadTextFile(m_Path).empty());
    platform::ClearFaults();
    EXPECT_EQ(ReadTextFile(m_Path), u"abc");
}

TEST_F(ReadTextFileTest, IsEmptyForAFileLargerThanAnyText) {
    WriteBytes(m_Path, "abc");
    std::error_code error;
    std::filesystem::resize_file(test_files::SystemPath(m_Path), 0x8000'0000, error);
    ASSERT_FALSE(error) << error.message();
    EXPECT_TRUE(ReadTextFile(m_Path).empty());
}

TEST_F(ReadTextFileTest, LeavesTheFileToOthers) {
    WriteBytes(m_Path, "abc");
    const tvhandle reader = OpenFileHandle(m_Path, false);
    EXPECT_EQ(ReadTextFile(m_Path), u"abc");
}

TEST_F(ReadTextFileTest, ExpandsVariablesInThePath) {
    EXPECT_TRUE(ReadTextFile(u"%NOSUCHVAR%").empty());
}

TEST_F(WriteTextFileTest, WritesTheMarkAndTheText) {
    const tvstring text = u"a\u20AC";
    EXPECT_EQ(Written(text, TEXT_UTF16LE),
              "\xFF\xFE"
              "a\0\xAC\x20"sv);
    EXPECT_EQ(Written(text, TEXT_ANSI), "a\x80");
    EXPECT_EQ(Written(text, TEXT_UTF8),
              "\xEF\xBB\xBF"
              "a\xE2\x82\xAC");
    EXPECT_EQ(Written(text, TEXT_UTF16BE),
              "\xFE\xFF"
              "\0a\x20\xAC"sv);
}

TEST_F(WriteTextFileTest, NumbersTheEncodings) {
    EXPECT_EQ(static_cast<int>(TEXT_UTF16LE), 0);
    EXPECT_EQ(static_cast<int>(TEXT_ANSI), 1);
    EXPECT_EQ(static_cast<int>(TEXT_UTF8), 2);
    EXPECT_EQ(static_cast<int>(TEXT_UTF16BE), 3);
}

TEST_F(WriteTextFileTest, WritesNothingForAnEmptyText) {
    for (int encoding = TEXT_UTF16LE; encoding <= TEXT_UTF16BE; ++encoding) {
        WriteBytes(m_Path, "old content");
        EXPECT_EQ(Written(u"", encoding), "");
    }
}

TEST_F(WriteTextFileTest, ReplacesALongerFile) {
    WriteBytes(m_Path, "a much longer old content");
    EXPECT_EQ(Written(u"ab", TEXT_ANSI), "ab");
}

TEST_F(WriteTextFileTest, MakesMissingFolders) {
    const tvstring path = m_Folder.Path(u"new/folder/text");
    EXPECT_TRUE(WriteTextFile(u"ab", path, TEXT_ANSI));
    EXPECT_EQ(ReadTextFile(path), u"ab");
}

TEST_F(WriteTextFileTest, IsReadBackInEveryEncoding) {
    const tvstring text = u"first line\r\nsecond \u20AC \u00E9\r\n";
    for (int encoding = TEXT_UTF16LE; encoding <= TEXT_UTF16BE; ++encoding) {
        ASSERT_TRUE(WriteTextFile(text, m_Path, encoding));
        EXPECT_EQ(ReadTextFile(m_Path), text) << encoding;
    }
}

TEST_F(WriteTextFileTest, FailsWhereTheFileCannotBeOpened) {
    EXPECT_FALSE(WriteTextFile(u"ab", m_Folder.Path(), TEXT_UTF8));
    EXPECT_FALSE(WriteTextFile(u"ab", u"", TEXT_UTF8));
    const tvhandle reader = OpenFileHandle(m_Path, true);
    EXPECT_FALSE(WriteTextFile(u"ab", m_Path, TEXT_UTF8));
    EXPECT_EQ(platform::LastError(), platform::kErrorSharingViolation);
}

TEST_F(WriteTextFileTest, FailsWhereAWriteFails) {
    for (const int done : {0, 1}) {
        for (const FaultPoint point : {FaultPoint::WriteFile, FaultPoint::ShortWrite}) {
            platform::OrderFault(point, platform::kErrorDiskFull, done);
            EXPECT_FALSE(WriteTextFile(u"ab", m_Path, TEXT_UTF8));
            platform::ClearFaults();
        }
    }
}

}  // namespace
