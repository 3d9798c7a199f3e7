#include "foundation/tvstream.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "foundation/path.h"
#include "platform/error.h"
#include "platform/fault.h"
#include "tests/unit/test_files.h"
#include "tests/unit/wipe_watch.h"

namespace {

using namespace std::literals;
using platform::FaultPoint;

constexpr u32 kError = 1117;

class Tvstream : public testing::Test {
protected:
    ~Tvstream() override { platform::ClearFaults(); }

    // The text that SetText makes of a file's bytes.
    static std::u16string TextOf(std::string_view fileBytes) {
        const std::string image = std::string(fileBytes) + "\0\0\0"s;
        tvstream stream;
        EXPECT_TRUE(stream.SetText(image.data()));
        EXPECT_EQ(stream.Position(), 0U);
        EXPECT_EQ(stream.Size(), stream.Memory().Size());
        std::u16string text(static_cast<std::size_t>(stream.Size() / 2), u'\0');
        std::memcpy(text.data(), stream.Memory().Data(), text.size() * 2);
        return text;
    }

    [[nodiscard]] tvhandle OpenForReading() const { return OpenFileHandle(m_Path, false); }
    [[nodiscard]] tvhandle OpenForWriting() const { return OpenFileHandle(m_Path, true); }

    // Content, size and position of the stream on the file.
    static std::string ReadAll(tvstream& stream, u32 count) {
        std::string bytes(count, '\0');
        bytes.resize(stream.Read(bytes.data(), count));
        return bytes;
    }

    [[nodiscard]] std::string FileContent() const {
        const std::vector<u8> bytes = ReadBytes(m_Path);
        return {bytes.begin(), bytes.end()};
    }

    TempFolder m_Folder;
    tvstring m_Path = m_Folder.Path(u"file");
};

// --- On memory ---

TEST_F(Tvstream, HoldsNothingAtFirst) {
    tvstream stream;
    u8 byte = 0;
    EXPECT_EQ(stream.Size(), 0U);
    EXPECT_EQ(stream.Position(), 0U);
    EXPECT_EQ(stream.Read(&byte, 1), 0U);
    EXPECT_FALSE(stream.Write(&byte, 1));
}

TEST_F(Tvstream, OpensOnAZeroFilledBlock) {
    tvstream stream;
    ASSERT_TRUE(stream.OpenMemory(10));
    EXPECT_EQ(stream.Size(), 10U);
    EXPECT_EQ(ReadAll(stream, 99), std::string(10, '\0'));
}

TEST_F(Tvstream, DoesNotOpenOnNoMemory) {
    tvstream stream;
    ASSERT_TRUE(stream.OpenMemory(10));
    EXPECT_FALSE(stream.OpenMemory(0));
    EXPECT_EQ(stream.Size(), 0U);
    platform::OrderFault(FaultPoint::AllocateZeroed, kError);
    EXPECT_FALSE(stream.OpenMemory(10));
    EXPECT_EQ(stream.Size(), 0U);
}

TEST_F(Tvstream, WritesToMemoryInsideTheRangeOnly) {
    tvstream stream;
    ASSERT_TRUE(stream.OpenMemory(5));
    EXPECT_TRUE(stream.Write("abc", 3));
    EXPECT_EQ(stream.Position(), 3U);
    EXPECT_FALSE(stream.Write("defg", 3));
    EXPECT_EQ(stream.Position(), 3U);
    EXPECT_EQ(stream.Size(), 5U);
    EXPECT_TRUE(stream.Write("de", 2));
    EXPECT_FALSE(stream.Write("f", 1));
    EXPECT_EQ(std::memcmp(stream.Memory().Data(), "abcde", 5), 0);
}

TEST_F(Tvstream, ReadsAtMostWhatIsLeft) {
    tvstream stream;
    ASSERT_TRUE(
        stream.SetText("\xFF\xFE"
                       "ab\0\0"));
    u8 bytes[8] = {};
    EXPECT_EQ(stream.Read(bytes, 1), 1U);
    EXPECT_EQ(stream.Read(nullptr, 1), 0U);
    EXPECT_EQ(stream.Position(), 1U);
    EXPECT_EQ(stream.Read(bytes, 8), 1U);
    EXPECT_EQ(bytes[0], 'b');
    EXPECT_EQ(stream.Read(bytes, 8), 0U);
    EXPECT_EQ(stream.Position(), 2U);
}

TEST_F(Tvstream, WritesNothingForACountOfZeroOrANullBuffer) {
    tvstream stream;
    EXPECT_TRUE(stream.Write("a", 0));
    EXPECT_TRUE(stream.Write(nullptr, 0));
    EXPECT_FALSE(stream.Write(nullptr, 1));
    ASSERT_TRUE(stream.OpenMemory(5));
    EXPECT_TRUE(stream.Write(nullptr, 0));
    EXPECT_FALSE(stream.Write(nullptr, 1));
    EXPECT_EQ(stream.Position(), 0U);
}

TEST_F(Tvstream, ResetDropsAndWipesTheBlock) {
    tvstream stream;
    ASSERT_TRUE(stream.OpenMemory(6));
    ASSERT_TRUE(stream.Write("secret", 6));
    const WipeWatch watch(stream.Memory().Data(), 6);
    stream.Reset();
    EXPECT_TRUE(watch.Wiped());
    EXPECT_EQ(stream.Size(), 0U);
    EXPECT_EQ(stream.Position(), 0U);
}

// --- On a file ---

TEST_F(Tvstream, ReadsAFileFromItsBeginning) {
    WriteBytes(m_Path, "0123456789");
    tvhandle file = OpenForReading();
    ASSERT_TRUE(platform::SeekNativeFile(file.Get(), 4));
    tvstream stream;
    ASSERT_TRUE(stream.OpenFile(std::move(file)));
    EXPECT_EQ(stream.Size(), 10U);
    EXPECT_EQ(stream.Position(), 0U);
    EXPECT_EQ(ReadAll(stream, 4), "0123");
    EXPECT_EQ(stream.Position(), 4U);
    EXPECT_EQ(ReadAll(stream, 99), "456789");
    EXPECT_EQ(ReadAll(stream, 1), "");
    EXPECT_EQ(stream.Position(), 10U);
}

TEST_F(Tvstream, DoesNotOpenOnAnEmptyHandle) {
    tvstream stream;
    EXPECT_FALSE(stream.OpenFile(tvhandle()));
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the system's invalid handle
    EXPECT_FALSE(stream.OpenFile(tvhandle(reinterpret_cast<platform::NativeFile>(std::intptr_t{-1}))));
}

TEST_F(Tvstream, ClosesAFileWhoseSizeOrBeginningCannotBeHad) {
    WriteBytes(m_Path, "0123456789");
    for (const FaultPoint point : {FaultPoint::FileSize, FaultPoint::SeekFile}) {
        tvstream stream;
        platform::OrderFault(point, kError);
        EXPECT_FALSE(stream.OpenFile(OpenForReading()));
        EXPECT_EQ(platform::LastError(), kError);
        EXPECT_EQ(stream.Size(), 0U);
        EXPECT_TRUE(OpenForWriting());
        WriteBytes(m_Path, "0123456789");
    }
}

TEST_F(Tvstream, GrowsWhenAFileIsWritten) {
    tvstream stream;
    ASSERT_TRUE(stream.OpenFile(OpenForWriting()));
    EXPECT_EQ(stream.Size(), 0U);
    EXPECT_TRUE(stream.Write("abc", 3));
    EXPECT_TRUE(stream.Write("de", 2));
    EXPECT_EQ(stream.Size(), 5U);
    EXPECT_EQ(stream.Position(), 5U);
    stream.Reset();
    EXPECT_EQ(FileContent(), "abcde");
}

TEST_F(Tvstream, StartsAtSizeZeroOnAFileThatIsMadeAnew) {
    WriteBytes(m_Path, "a long old content");
    tvstream stream;
    ASSERT_TRUE(stream.OpenFile(OpenForWriting()));
    EXPECT_EQ(stream.Size(), 0U);
    EXPECT_TRUE(stream.Write("new", 3));
    EXPECT_EQ(stream.Size(), 3U);
    stream.Reset();
    EXPECT_EQ(FileContent(), "new");
}

TEST_F(Tvstream, ReadsNothingWhenTheSystemFails) {
    WriteBytes(m_Path, "0123456789");
    tvstream stream;
    ASSERT_TRUE(stream.OpenFile(OpenForReading()));
    platform::OrderFault(FaultPoint::ReadFile, kError);
    EXPECT_EQ(ReadAll(stream, 4), "");
    EXPECT_EQ(stream.Position(), 0U);
    platform::OrderFault(FaultPoint::ShortRead, 0);
    EXPECT_EQ(ReadAll(stream, 4), "012");
    EXPECT_EQ(stream.Position(), 3U);
}

TEST_F(Tvstream, FailsUnlessTheSystemWritesAll) {
    tvstream stream;
    ASSERT_TRUE(stream.OpenFile(OpenForWriting()));
    platform::OrderFault(FaultPoint::WriteFile, platform::kErrorDiskFull);
    EXPECT_FALSE(stream.Write("0123", 4));
    EXPECT_EQ(platform::LastError(), platform::kErrorDiskFull);
    EXPECT_EQ(stream.Size(), 2U);
    platform::OrderFault(FaultPoint::ShortWrite, 0);
    EXPECT_FALSE(stream.Write("4567", 4));
    EXPECT_EQ(stream.Size(), 5U);
    EXPECT_EQ(stream.Position(), 5U);
}

TEST_F(Tvstream, ResetClosesTheFile) {
    tvstream stream;
    ASSERT_TRUE(stream.OpenFile(OpenForWriting()));
    EXPECT_FALSE(OpenForReading());
    stream.Reset();
    EXPECT_TRUE(OpenForReading());
    EXPECT_EQ(stream.Size(), 0U);
}

TEST_F(Tvstream, LetsGoOfTheFileWhenOpenedOnMemory) {
    tvstream stream;
    ASSERT_TRUE(stream.OpenFile(OpenForWriting()));
    ASSERT_TRUE(stream.OpenMemory(4));
    EXPECT_TRUE(OpenForReading());
    EXPECT_TRUE(stream.Write("abcd", 4));
    EXPECT_EQ(FileContent(), "");
}

// --- Text ---

TEST_F(Tvstream, TellsTheEncodingByTheFirstBytes) {
    EXPECT_EQ(TextOf("\xFF\xFE"
                     "a\0\xAC\x20"sv),
              u"a\u20AC");
    EXPECT_EQ(TextOf("\xFE\xFF"
                     "\0a\x20\xAC"sv),
              u"a\u20AC");
    EXPECT_EQ(TextOf("\xEF\xBB\xBF"
                     "a\xE2\x82\xAC"),
              u"a\u20AC");
    EXPECT_EQ(TextOf("a\x80"), u"a\u20AC");
}

TEST_F(Tvstream, TakesAMarkThatIsNotCompleteForAnsi) {
    EXPECT_EQ(TextOf("\xFF"), u"\u00FF");
    EXPECT_EQ(TextOf("\xFE\xFE"), u"\u00FE\u00FE");
    EXPECT_EQ(TextOf("\xEF\xBB"), u"\u00EF\u00BB");
    EXPECT_EQ(TextOf("a\xFF\xFE"), u"a\u00FF\u00FE");
}

TEST_F(Tvstream, ReadsUtf16UpToTheFirstZeroUnit) {
    EXPECT_EQ(TextOf("\xFF\xFE"
                     "a\0b\0\0\0c\0"sv),
              u"ab");
    EXPECT_EQ(TextOf("\xFE\xFF"
                     "\0a\0b\0\0\0c"sv),
              u"ab");
    EXPECT_EQ(TextOf("\xFF\xFE"
                     "\0\x01\x01\0"sv),
              u"\u0100\u0001");
}

TEST_F(Tvstream, CompletesAnOddNumberOfUtf16Bytes) {
    EXPECT_EQ(TextOf("\xFF\xFE"
                     "a\0b"sv),
              u"ab");
    EXPECT_EQ(TextOf("\xFE\xFF"
                     "\0a\x20"sv),
              u"a\u2000");
}

TEST_F(Tvstream, ReadsBytesUpToTheFirstZeroByte) {
    EXPECT_EQ(TextOf("ab\0cd"sv), u"ab");
    EXPECT_EQ(TextOf("\xEF\xBB\xBF"
                     "ab\0cd"sv),
              u"ab");
}

TEST_F(Tvstream, HoldsTwoZeroBytesForAnEmptyText) {
    EXPECT_EQ(TextOf(""), u"\0"sv);
    EXPECT_EQ(TextOf("\0abc"sv), u"\0"sv);
    EXPECT_EQ(TextOf("\xFF\xFE"), u"\0"sv);
    EXPECT_EQ(TextOf("\xFE\xFF"), u"\0"sv);
    EXPECT_EQ(TextOf("\xEF\xBB\xBF"), u"\0"sv);
}

TEST_F(Tvstream, ResetsForNoText) {
    tvstream stream;
    ASSERT_TRUE(stream.OpenMemory(5));
    EXPECT_FALSE(stream.SetText(nullptr));
    EXPECT_EQ(stream.Size(), 0U);
    EXPECT_TRUE(stream.Memory().Empty());
}

TEST_F(Tvstream, HasNoTextWithoutMemory) {
    tvstream stream;
    platform::OrderFault(FaultPoint::AllocateZeroed, kError);
    EXPECT_FALSE(stream.SetText("abc\0"));
    EXPECT_EQ(stream.Size(), 0U);
}

}  // namespace
