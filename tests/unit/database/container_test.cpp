#include "database/container.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <numeric>

#include "platform/error.h"
#include "tests/unit/database/faults.h"
#include "tests/unit/database/hex.h"
#include "tests/unit/test_files.h"

namespace {

using platform::FaultPoint;
using platform::LastError;

constexpr u64 kSecond = 1'700'000'000;

std::vector<u8> CountingKey() {
    std::vector<u8> key(kKeySize);
    std::iota(key.begin(), key.end(), u8{0});
    return key;
}

std::string HexOf(const tvdata& data) {
    return ToHex({data.Data(), data.Size()});
}

std::string HashOf(const tvstring& password) {
    u8 hash[kKeySize] = {};
    HashPassword(password, hash);
    return ToHex(hash);
}

std::string NewSalt() {
    u8 salt[kSaltSize] = {};
    GenerateSalt(salt);
    return ToHex(salt);
}

// --- Hash and key ---

TEST(HashPassword, IsTheSha3OfTheUtf8Form) {
    EXPECT_EQ(HashOf(u"correct horse"), "e2bb427c913c99e9663c5d0e97472bd8618656cabbca6274c2743b0ebf107ce3");
    EXPECT_EQ(HashOf(u"p\u00e4ssw\u00f6rd \u20ac"),
              "fedc89429b5651cf397b258b3bceff514ffbe354acb26b80420a000d7bffd584");
    EXPECT_EQ(HashOf(u"\U0001f511"), "ca9223c80289e538cd9c549515f5a843c9f5eced87551cf280f00beac30c0d35");
}

TEST(HashPassword, TakesALoneSurrogateAsTheReplacementCharacter) {
    const char16_t units[] = {u'x', 0xd800, u'y'};
    EXPECT_EQ(HashOf(tvstring(units, 3)), "bb72210e51dd39ea562ece4aaaecf10ac23f6a3014672939ebbebeb07a6e428d");
}

TEST(DeriveKey, IsTheSha3OfHashAndSalt) {
    u8 hash[kKeySize] = {};
    HashPassword(u"correct horse", hash);
    const std::vector<u8> salt = FromHex("76b7aa3b30771ae3f6dca15c140180ddc5ad6eac484608eff919fab674185b61");
    u8 key[kKeySize] = {};
    DeriveKey(hash, salt.data(), key);
    EXPECT_EQ(ToHex(key), "4d849904b89d540cf91a8b8f3727edc97268afc52cf8e1ff22b5eab9dfa35cd6");
}

// --- Salt ---

TEST(GenerateSalt, GivesOtherBytesEachTime) {
    EXPECT_NE(NewSalt(), NewSalt());
}

TEST(GenerateSalt, FallsBackToTheTwisterSeededWithTheSecond) {
    Faults faults;
    faults.FixSalt(kSecond);
    EXPECT_EQ(NewSalt(), "76b7aa3b30771ae3f6dca15c140180ddc5ad6eac484608eff919fab674185b61");
}

TEST(GenerateSalt, SeedsAnewEachTimeItFallsBack) {
    Faults faults;
    faults.FixSalt(kSecond);
    EXPECT_EQ(NewSalt(), NewSalt());
    faults.FixSalt(kSecond + 1);
    EXPECT_EQ(NewSalt(), "dafb3f73df379c2fa329e7dfd9300804209ce09be9ab02017681190bbec47f67");
}

// --- Cipher ---

TEST(Encrypt, GivesTheCipherTextOfEachFilling) {
    struct {
        std::size_t size;
        const char* cipher;
    } const rows[] = {
        {1, "e1abb6d0483d79db0c6ec423ccbfd2de"},
        {15, "c68b243c2f8bee8ffa6ace7ab165c6b0"},
        {16, "5a6e045708fb7196f02e553d02c3a69282877d1bd26cd1815595064df1adbad0"},
        {17, "5a6e045708fb7196f02e553d02c3a692653ae950fb9ae79a99ce64e1b44cac5c"},
        {32,
         "5a6e045708fb7196f02e553d02c3a692c77147ebd5121de8d0fae7762423b6bf593bed5ff3acce639b6d00f1d9b5986e"},
    };
    for (const auto& row : rows) {
        const std::vector<u8> plain = CountingBytes(row.size);
        EXPECT_EQ(HexOf(Encrypt(plain.data(), plain.size(), CountingKey().data())), row.cipher) << row.size;
    }
}

TEST(Encrypt, StartsFromZerosEachTime) {
    const std::vector<u8> plain = CountingBytes(40);
    EXPECT_EQ(HexOf(Encrypt(plain.data(), plain.size(), CountingKey().data())),
              HexOf(Encrypt(plain.data(), plain.size(), CountingKey().data())));
}

TEST(EncryptContainer, EncryptsBehindTheHeaderAndKeepsIt) {
    for (std::size_t size = 1; size <= 50; ++size) {
        const std::vector<u8> plain = CountingBytes(kHeaderSize + size);
        tvbuffer<u8> stream(512);
        ASSERT_TRUE(stream.Append(plain.data(), static_cast<u32>(plain.size())));
        const tvdata container = EncryptContainer(stream, CountingKey().data());
        EXPECT_EQ(HexOf(container),
                  ToHex({plain.data(), kHeaderSize}) +
                      HexOf(Encrypt(plain.data() + kHeaderSize, size, CountingKey().data())));
        EXPECT_EQ(stream.Size(), 0U);
    }
}

TEST(EncryptContainer, IsEmptyForAHeaderAlone) {
    const std::vector<u8> plain = CountingBytes(kHeaderSize);
    tvbuffer<u8> stream(512);
    ASSERT_TRUE(stream.Append(plain.data(), kHeaderSize));
    EXPECT_TRUE(EncryptContainer(stream, CountingKey().data()).Empty());
}

TEST(Decrypt, GivesBackWhatWasEncrypted) {
    for (std::size_t size = 1; size <= 70; ++size) {
        const std::vector<u8> plain = CountingBytes(size);
        const tvdata cipher = Encrypt(plain.data(), plain.size(), CountingKey().data());
        ASSERT_EQ(cipher.Size(), (size / 16 + 1) * 16);
        EXPECT_EQ(HexOf(Decrypt(cipher.Data(), cipher.Size(), CountingKey().data())), ToHex(plain));
    }
}

TEST(Decrypt, IsEmptyForAnythingButWholeBlocks) {
    const std::vector<u8> plain = CountingBytes(40);
    const tvdata cipher = Encrypt(plain.data(), plain.size(), CountingKey().data());
    for (const u32 size : {1U, 15U, 17U, 47U}) {
        EXPECT_TRUE(Decrypt(cipher.Data(), size, CountingKey().data()).Empty()) << size;
    }
}

TEST(Decrypt, IsEmptyForAWrongFilling) {
    const std::vector<u8> plain = CountingBytes(40);
    const tvdata cipher = Encrypt(plain.data(), plain.size(), CountingKey().data());
    // The first two blocks alone end in the bytes 30 and 31: more than a block, so no filling.
    EXPECT_TRUE(Decrypt(cipher.Data(), 32, CountingKey().data()).Empty());
}

class Cipher : public ::testing::TestWithParam<tvdata (*)(const u8*, std::size_t, const u8*)> {
protected:
    // A block with a right filling, so that both directions would succeed.
    [[nodiscard]] tvdata Run() const { return GetParam()(m_Block.data(), m_Block.size(), m_Key.data()); }

    std::vector<u8> m_Key = CountingKey();
    std::vector<u8> m_Block = FromHex("e1abb6d0483d79db0c6ec423ccbfd2de");
};

TEST_P(Cipher, WorksWhenNothingFails) {
    EXPECT_FALSE(Run().Empty());
}

TEST_P(Cipher, IsEmptyForNoDataOrNoKey) {
    EXPECT_TRUE(GetParam()(nullptr, 16, m_Key.data()).Empty());
    EXPECT_TRUE(GetParam()(m_Block.data(), 0, m_Key.data()).Empty());
    EXPECT_TRUE(GetParam()(m_Block.data(), 16, nullptr).Empty());
}

TEST_P(Cipher, IsEmptyWithoutAKeyObject) {
    Faults faults;
    faults.Fail(FaultPoint::CipherProvider, 0);
    EXPECT_TRUE(Run().Empty());
}

TEST_P(Cipher, IsEmptyWhenTheSizeIsNotToldOrTheWorkFails) {
    for (const int after : {0, 1}) {
        Faults faults;
        faults.Fail(FaultPoint::Encrypt, 0, after).Fail(FaultPoint::Decrypt, 0, after);
        EXPECT_TRUE(Run().Empty()) << after;
    }
}

TEST_P(Cipher, IsEmptyWithoutMemory) {
    Faults faults;
    faults.Fail(FaultPoint::AllocateZeroed, 8);
    EXPECT_TRUE(Run().Empty());
}

INSTANTIATE_TEST_SUITE_P(BothWays, Cipher,
                         ::testing::Values([](const u8* data, std::size_t size,
                                              const u8* key) { return Encrypt(data, size, key); },
                                           &Decrypt));

// --- Opening ---

class OpenDatabaseFileTest : public ::testing::Test {
protected:
    // Opens a file of these bytes for reading.
    i32 OpenBytes(std::string_view bytes) {
        WriteBytes(m_Path, bytes);
        platform::SetLastError(77);
        return OpenDatabaseFile(m_Handle, m_Path, false);
    }

    static bool IsFree(const tvstring& path) {
        return bool(tvhandle(
            platform::OpenNativeFile(path.c_str(), platform::FileAccess::Read, platform::FileSharing::None)));
    }

    TempFolder m_Folder;
    tvstring m_Path = m_Folder.Path(u"a.vmr");
    tvhandle m_Handle;
};

TEST_F(OpenDatabaseFileTest, RefusesAnEmptyPathWithErrorTwo) {
    for (const bool forWrite : {false, true}) {
        platform::SetLastError(77);
        EXPECT_EQ(OpenDatabaseFile(m_Handle, u"", forWrite), kCannotOpen);
        EXPECT_EQ(LastError(), 2U);
    }
}

TEST_F(OpenDatabaseFileTest, ClosesTheOldHandleFirst) {
    ASSERT_EQ(OpenBytes("VMR2 and more"), 13);
    EXPECT_FALSE(IsFree(m_Path));
    EXPECT_EQ(OpenDatabaseFile(m_Handle, u"", false), kCannotOpen);
    EXPECT_FALSE(m_Handle);
    EXPECT_TRUE(IsFree(m_Path));
}

TEST_F(OpenDatabaseFileTest, FailsWithTheSystemsCodeForAMissingFile) {
    EXPECT_EQ(OpenDatabaseFile(m_Handle, m_Folder.Path(u"none.vmr"), false), kCannotOpen);
    EXPECT_EQ(LastError(), platform::kErrorFileNotFound);
    EXPECT_FALSE(m_Handle);
}

TEST_F(OpenDatabaseFileTest, FailsWithTheSystemsCodeForAMissingFolder) {
    for (const bool forWrite : {false, true}) {
        platform::SetLastError(77);
        EXPECT_EQ(OpenDatabaseFile(m_Handle, m_Folder.Path(u"none/a.vmr"), forWrite), kCannotOpen);
        EXPECT_TRUE(LastError() == platform::kErrorFileNotFound ||
                    LastError() == platform::kErrorPathNotFound)
            << LastError();
    }
}

TEST_F(OpenDatabaseFileTest, IsDeniedAFolder) {
    for (const bool forWrite : {false, true}) {
        EXPECT_EQ(OpenDatabaseFile(m_Handle, m_Folder.Path(), forWrite), kCannotOpen);
        EXPECT_EQ(LastError(), platform::kErrorAccessDenied);
    }
}

TEST_F(OpenDatabaseFileTest, GivesTheSizeOfADatabaseFileAndKeepsItOpen) {
    EXPECT_EQ(OpenBytes("VMR2 and more of it"), 19);
    EXPECT_EQ(LastError(), 0U);
    EXPECT_TRUE(m_Handle);
    EXPECT_FALSE(IsFree(m_Path));
    EXPECT_EQ(LastError(), platform::kErrorSharingViolation);
}

TEST_F(OpenDatabaseFileTest, LeavesTheFilePointerAtTheStart) {
    ASSERT_EQ(OpenBytes("VMR2 and more of it"), 19);
    EXPECT_EQ(HexOf(ReadWholeFile(m_Handle, 4)), "564d5232");
}

TEST_F(OpenDatabaseFileTest, RefusesFewerThanTwelveBytesWithErrorThirteen) {
    for (const std::string_view bytes : {"", "VMR2", "VMR2 and mo"}) {
        EXPECT_EQ(OpenBytes(bytes), kCannotOpen);
        EXPECT_EQ(LastError(), 13U);
        EXPECT_FALSE(m_Handle);
        EXPECT_TRUE(IsFree(m_Path));
    }
    EXPECT_EQ(OpenBytes("VMR2 and mor"), 12);
}

TEST_F(OpenDatabaseFileTest, RefusesTwoGibibytesWithErrorThirteen) {
    WriteBytes(m_Path, std::string_view("VMR2 and more"));
    std::filesystem::resize_file(test_files::SystemPath(m_Path), 0x7fff'ffff);
    EXPECT_EQ(OpenDatabaseFile(m_Handle, m_Path, false), 0x7fff'ffff);
    m_Handle.Close();
    std::filesystem::resize_file(test_files::SystemPath(m_Path), 0x8000'0000);
    EXPECT_EQ(OpenDatabaseFile(m_Handle, m_Path, false), kCannotOpen);
    EXPECT_EQ(LastError(), 13U);
    EXPECT_FALSE(m_Handle);
}

TEST_F(OpenDatabaseFileTest, TellsAnOldDatabaseAndClosesIt) {
    EXPECT_EQ(OpenBytes("VTMR01 and more"), kOldDatabase);
    EXPECT_EQ(LastError(), 0U);
    EXPECT_FALSE(m_Handle);
    EXPECT_TRUE(IsFree(m_Path));
}

TEST_F(OpenDatabaseFileTest, RefusesAnotherSignatureWithErrorThirteen) {
    for (const std::string_view bytes :
         {"VMR1 and more", "VTMR00 and more", "vmr2 and more", " VMR2 and more"}) {
        EXPECT_EQ(OpenBytes(bytes), kNotDatabase);
        EXPECT_EQ(LastError(), 13U);
        EXPECT_FALSE(m_Handle);
        EXPECT_TRUE(IsFree(m_Path));
    }
}

TEST_F(OpenDatabaseFileTest, KeepsTheSystemsCodeWhenTheSizeIsNotTold) {
    Faults faults;
    faults.Fail(FaultPoint::FileSize, 1117);
    EXPECT_EQ(OpenBytes("VMR2 and more"), kCannotOpen);
    EXPECT_EQ(LastError(), 1117U);
    EXPECT_FALSE(m_Handle);
    faults.Fail(FaultPoint::FileSize, 0);
    EXPECT_EQ(OpenBytes("VMR2 and more"), kCannotOpen);
    EXPECT_EQ(LastError(), 13U);
}

TEST_F(OpenDatabaseFileTest, ClosesTheFileWhenReadingFails) {
    for (const FaultPoint point : {FaultPoint::ReadFile, FaultPoint::ShortRead, FaultPoint::SeekFile}) {
        Faults faults;
        faults.Fail(point, 1117);
        EXPECT_EQ(OpenBytes("VMR2 and more"), kCannotOpen);
        EXPECT_EQ(LastError(), 1117U);
        EXPECT_FALSE(m_Handle);
        EXPECT_TRUE(IsFree(m_Path));
    }
}

TEST_F(OpenDatabaseFileTest, MakesAFileForWriting) {
    EXPECT_EQ(OpenDatabaseFile(m_Handle, m_Path, true), 1);
    EXPECT_TRUE(m_Handle);
    EXPECT_FALSE(IsFree(m_Path));
    m_Handle.Close();
    EXPECT_TRUE(ReadBytes(m_Path).empty());
}

TEST_F(OpenDatabaseFileTest, EmptiesAnExistingFileForWriting) {
    WriteBytes(m_Path, std::string_view("what was there"));
    EXPECT_EQ(OpenDatabaseFile(m_Handle, m_Path, true), 1);
    m_Handle.Close();
    EXPECT_TRUE(ReadBytes(m_Path).empty());
}

TEST_F(OpenDatabaseFileTest, LeavesAFileThatAnotherHandleHoldsAsItIs) {
    ASSERT_EQ(OpenBytes("VMR2 and more"), 13);
    tvhandle second;
    for (const bool forWrite : {false, true}) {
        platform::SetLastError(0);
        EXPECT_EQ(OpenDatabaseFile(second, m_Path, forWrite), kCannotOpen);
        EXPECT_EQ(LastError(), platform::kErrorSharingViolation);
        EXPECT_FALSE(second);
    }
    m_Handle.Close();
    EXPECT_EQ(ReadBytes(m_Path).size(), 13U);
}

TEST_F(OpenDatabaseFileTest, LeavesTheFileAsItIsWhenOpeningFails) {
    for (const bool forWrite : {false, true}) {
        Faults faults;
        faults.Fail(FaultPoint::OpenFile, 5);
        WriteBytes(m_Path, std::string_view("VMR2 and more"));
        EXPECT_EQ(OpenDatabaseFile(m_Handle, m_Path, forWrite), kCannotOpen);
        EXPECT_EQ(LastError(), 5U);
        EXPECT_FALSE(m_Handle);
        EXPECT_EQ(ReadBytes(m_Path).size(), 13U);
    }
}

// --- Reading ---

class ReadWholeFileTest : public OpenDatabaseFileTest {
protected:
    void SetUp() override { ASSERT_EQ(OpenBytes("VMR2 and more of it"), 19); }
};

TEST_F(ReadWholeFileTest, GivesExactlyTheBytesAskedFor) {
    const tvdata all = ReadWholeFile(m_Handle, 19);
    EXPECT_EQ(std::string(all.Data(), all.Data() + all.Size()), "VMR2 and more of it");
}

TEST_F(ReadWholeFileTest, IsEmptyForASizeBelowOne) {
    EXPECT_TRUE(ReadWholeFile(m_Handle, 0).Empty());
    EXPECT_TRUE(ReadWholeFile(m_Handle, -1).Empty());
}

TEST_F(ReadWholeFileTest, IsEmptyForAnEmptyHandle) {
    m_Handle.Close();
    EXPECT_TRUE(ReadWholeFile(m_Handle, 19).Empty());
    const tvhandle invalid(platform::NativeFile(std::intptr_t{-1}));
    EXPECT_TRUE(ReadWholeFile(invalid, 19).Empty());
}

TEST_F(ReadWholeFileTest, IsEmptyWhenFewerBytesCome) {
    EXPECT_TRUE(ReadWholeFile(m_Handle, 20).Empty());
}

TEST_F(ReadWholeFileTest, IsEmptyWhenReadingFails) {
    for (const FaultPoint point : {FaultPoint::ReadFile, FaultPoint::ShortRead, FaultPoint::AllocateZeroed}) {
        Faults faults;
        faults.Fail(point, 1117);
        EXPECT_TRUE(ReadWholeFile(m_Handle, 19).Empty());
    }
}

}  // namespace
