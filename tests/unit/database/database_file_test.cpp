// Reading and writing databases: Serialize and Deserialize, Open and Save.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "database/database.h"
#include "database/record.h"
#include "platform/error.h"
#include "tests/unit/database/faults.h"
#include "tests/unit/database/hex.h"
#include "tests/unit/database/made_container.h"
#include "tests/unit/database/tree.h"
#include "tests/unit/test_files.h"

namespace {

using platform::FaultPoint;
using platform::LastError;

constexpr u64 kSecond = 1'700'000'000;
constexpr u64 kDate = 133701477937561600;

const Tree kOneEmptyItem{u"", {{u"x", kDate, {{3, u""}, {4, u""}, {5, u""}}}}};

bool CanOpen(const tvstring& path) {
    return bool(tvhandle(
        platform::OpenNativeFile(path.c_str(), platform::FileAccess::Read, platform::FileSharing::None)));
}

void SetPassword(VMRD_DB& database, const tvstring& password = kPassword) {
    HashPassword(password, database.m_PwdHash);
}

// --- Serialize ---

class SerializeTest : public ::testing::Test {
protected:
    void SetUp() override {
        Fill(m_Database, kOneEmptyItem);
        SetPassword(m_Database);
    }
    [[nodiscard]] std::string SerializedHex() const {
        const tvdata data = m_Database.Serialize();
        return ToHex({data.Data(), data.Size()});
    }

    VMRD_DB m_Database;
};

TEST_F(SerializeTest, WritesAnItemWithThreeEmptyEntriesAsFiftyEightBytes) {
    Faults faults;
    faults.FixSalt(kSecond);
    EXPECT_EQ(SerializedHex(),
              "564d5232"
              "3a000000"
              "76b7aa3b30771ae3f6dca15c140180ddc5ad6eac484608eff919fab674185b61"
              "74b1504fe84508a8ff21fa91dec8fb05452c6b65331c4a678b0a6c6b80ae226b"
              "dd5e3cd5078ec3bedf252c907b812d4dcbed8400e41d0b5c758972ffa36c60a1");
}

TEST_F(SerializeTest, WritesNameItemsDatesAndEntriesInTheirOrder) {
    Faults faults;
    faults.FixSalt(kSecond);
    m_Database.Clear();
    Fill(m_Database,
         {u"Gold",
          {{u"Gr\u00f6\u00dfe", 1, {{3, u"a"}, {6, u"\U0001f600"}}}, {u"", 0xffff'ffff'ffff'ffff, {}}}});
    EXPECT_EQ(SerializedHex(),
              "564d5232"
              "7c000000"
              "76b7aa3b30771ae3f6dca15c140180ddc5ad6eac484608eff919fab674185b61"
              "3e5484261ecbcfbf8dcf8836eb4a9235fc4bb1014aad0c9940260172eda3cf5f"
              "309df4a07dfb869a6aa4ef073586d5f9f290371c227b005b451074e213f13c95"
              "be0982422ddababf4e735f3aff5f9794b4207dc6d84df21c12db0f54f969f269"
              "157d6cb21cfbfe772bd00bd9dd5172427f5d8c4d054caf7da225003502ddac9d");
}

TEST_F(SerializeTest, GivesOtherBytesEachTime) {
    EXPECT_NE(SerializedHex(), SerializedHex());
}

TEST_F(SerializeTest, IsEmptyWithoutAMasterPassword) {
    std::ranges::fill(m_Database.m_PwdHash, u8{0});
    EXPECT_TRUE(m_Database.Serialize().Empty());
}

TEST_F(SerializeTest, IsEmptyWithNeitherNameNorItems) {
    m_Database.Clear();
    EXPECT_TRUE(m_Database.Serialize().Empty());
    m_Database.m_Name = u"n";
    EXPECT_FALSE(m_Database.Serialize().Empty());
}

TEST_F(SerializeTest, IsEmptyForAnEntryOfNoRecordType) {
    m_Database.m_Head->m_Tail->m_Type = 8;
    EXPECT_TRUE(m_Database.Serialize().Empty());
    m_Database.m_Head->m_Tail->m_Type = 0;
    EXPECT_TRUE(m_Database.Serialize().Empty());
}

TEST_F(SerializeTest, IsEmptyWithoutMemory) {
    Faults faults;
    faults.Fail(FaultPoint::AllocateZeroed, 8);
    EXPECT_TRUE(m_Database.Serialize().Empty());
}

TEST_F(SerializeTest, IsEmptyWhenTheCipherFails) {
    Faults faults;
    EXPECT_TRUE((faults.Fail(FaultPoint::CipherProvider, 0), m_Database.Serialize().Empty()));
    EXPECT_TRUE((faults.Fail(FaultPoint::Encrypt, 0), m_Database.Serialize().Empty()));
    EXPECT_TRUE((faults.Fail(FaultPoint::Encrypt, 0, 1), m_Database.Serialize().Empty()));
    EXPECT_FALSE(m_Database.Serialize().Empty());
}

TEST_F(SerializeTest, FillsWholeBlocksAtEverySize) {
    for (std::size_t length = 0; length < 20; ++length) {
        m_Database.m_Head->m_Name = tvstring(length, u'n');
        const tvdata data = m_Database.Serialize();
        const std::size_t plain = 56 + 2 * length;
        EXPECT_EQ(data.Size(), kHeaderSize + (plain / 16 + 1) * 16);
        VMRD_DB copy;
        SetPassword(copy);
        EXPECT_TRUE(copy.Deserialize(data.Data(), data.Size()));
        EXPECT_EQ(TreeOf(copy), TreeOf(m_Database));
    }
}

// --- Deserialize ---

class DeserializeTest : public ::testing::Test {
protected:
    void SetUp() override { SetPassword(m_Database); }
    bool Take(const std::vector<u8>& container) {
        return m_Database.Deserialize(container.data(), container.size());
    }
    bool TakeStream(const std::vector<u8>& stream) { return Take(MadeContainer(stream)); }

    VMRD_DB m_Database;
};

TEST_F(DeserializeTest, TakesTheKnownContainer) {
    ASSERT_TRUE(
        Take(FromHex("564d52323a000000"
                     "76b7aa3b30771ae3f6dca15c140180ddc5ad6eac484608eff919fab674185b61"
                     "74b1504fe84508a8ff21fa91dec8fb05452c6b65331c4a678b0a6c6b80ae226b"
                     "dd5e3cd5078ec3bedf252c907b812d4dcbed8400e41d0b5c758972ffa36c60a1")));
    EXPECT_EQ(TreeOf(m_Database), kOneEmptyItem);
}

TEST_F(DeserializeTest, RefusesNull) {
    EXPECT_FALSE(m_Database.Deserialize(nullptr, 100));
}

TEST_F(DeserializeTest, RefusesUpToFortyBytes) {
    const std::vector<u8> good = MadeContainer(Stream({{1, u"n"}}));
    for (const std::size_t size : {0, 1, 39, 40}) {
        EXPECT_FALSE(m_Database.Deserialize(good.data(), size)) << size;
    }
}

TEST_F(DeserializeTest, RefusesFortyOneBytesAtDecryption) {
    std::vector<u8> bytes = MadeContainer(Stream({{1, u"n"}}), 0);
    bytes.resize(41);
    EXPECT_FALSE(Take(bytes));
}

TEST_F(DeserializeTest, RefusesWithoutAMasterPasswordEvenWhatWouldDecrypt) {
    std::ranges::fill(m_Database.m_PwdHash, u8{0});
    const std::vector<u8> stream = Stream({{1, u"n"}});
    EXPECT_FALSE(Take(MadeContainer(stream, static_cast<u32>(stream.size()), m_Database.m_PwdHash)));
    EXPECT_FALSE(TakeStream(stream));
}

TEST_F(DeserializeTest, RefusesAnotherMagic) {
    for (const std::size_t place : {0, 1, 2, 3}) {
        std::vector<u8> bytes = MadeContainer(Stream({{1, u"n"}}));
        bytes[place] ^= 0x20;
        EXPECT_FALSE(Take(bytes)) << place;
    }
}

TEST_F(DeserializeTest, RefusesAPlainSizeAboveWhatFollowsTheHeader) {
    const std::vector<u8> stream = Stream({{1, u"name of 14"}});
    ASSERT_EQ(stream.size(), 24U);
    EXPECT_FALSE(Take(MadeContainer(stream, 33)));
    EXPECT_FALSE(Take(MadeContainer(stream, 0x8000'0000)));
    EXPECT_FALSE(Take(MadeContainer(stream, 0xffff'ffff)));
}

TEST_F(DeserializeTest, RefusesAPlainSizeAboveWhatIsDecrypted) {
    const std::vector<u8> stream = Stream({{1, u"name of 14"}});
    EXPECT_FALSE(Take(MadeContainer(stream, 32)));
    EXPECT_FALSE(Take(MadeContainer(stream, 25)));
    EXPECT_TRUE(Take(MadeContainer(stream, 24)));
}

TEST_F(DeserializeTest, LeavesTheDatabaseAloneWhenItRefusesBeforeReading) {
    Fill(m_Database, kOneEmptyItem);
    std::vector<u8> bytes = MadeContainer(Stream({{1, u"n"}}));
    bytes[0] = 'X';
    EXPECT_FALSE(Take(bytes));
    EXPECT_EQ(TreeOf(m_Database), kOneEmptyItem);
    EXPECT_TRUE(m_Database.HasMasterPassword());
}

TEST_F(DeserializeTest, ResetsTheDatabaseWhenARecordDoesNotParse) {
    EXPECT_FALSE(TakeStream(Stream({{1, u"n"}, {2, u"item"}, {6, u"text"}, {8, u""}})));
    EXPECT_EQ(TreeOf(m_Database), Tree());
    EXPECT_FALSE(m_Database.HasMasterPassword());
}

TEST_F(DeserializeTest, RefusesWhenTheCipherFails) {
    Faults faults;
    for (const int after : {0, 1}) {
        faults.Fail(FaultPoint::Decrypt, 0, after);
        EXPECT_FALSE(TakeStream(Stream({{1, u"n"}})));
    }
    const std::vector<u8> good = MadeContainer(Stream({{1, u"n"}}));
    faults.Fail(FaultPoint::CipherProvider, 0);
    EXPECT_FALSE(Take(good));
    faults.Fail(FaultPoint::AllocateZeroed, 8);
    EXPECT_FALSE(Take(good));
    EXPECT_TRUE(Take(good));
}

TEST_F(DeserializeTest, IgnoresDecryptedBytesBeyondThePlainSize) {
    std::vector<u8> stream = Stream({{2, u"a"}, {4, u"u"}});
    const auto size = static_cast<u32>(stream.size());
    stream.insert(stream.end(), 40, 0xff);
    EXPECT_TRUE(Take(MadeContainer(stream, size)));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"", {{u"a", 0, {{4, u"u"}}}}}));
}

TEST_F(DeserializeTest, TakesAPlainSizeOfZeroAsAnEmptyDatabase) {
    EXPECT_TRUE(Take(MadeContainer(std::vector<u8>(5, 0xff), 0)));
    EXPECT_EQ(TreeOf(m_Database), Tree());
    EXPECT_TRUE(m_Database.HasMasterPassword());
}

TEST_F(DeserializeTest, TakesALastRecordThatRunsPastThePlainSizeWithinTheDecryptedBytes) {
    const std::vector<u8> stream = Stream({{2, u"a"}, {6, u"abcd"}});
    EXPECT_TRUE(Take(MadeContainer(stream, static_cast<u32>(stream.size() - 4))));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"", {{u"a", 0, {{6, u"abcd"}}}}}));
}

TEST_F(DeserializeTest, CutsALastRecordThatRunsPastTheDecryptedBytes) {
    std::vector<u8> stream = Stream({{2, u"a"}, {6, u"abcd"}});
    stream[8] = 0xff;  // the length of the last record
    EXPECT_TRUE(TakeStream(stream));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"", {{u"a", 0, {{6, u"abcd"}}}}}));
}

TEST_F(DeserializeTest, RefusesFewerThanFourBytesAtTheEnd) {
    for (const std::size_t rest : {1, 2, 3}) {
        SetPassword(m_Database);
        std::vector<u8> stream = Stream({{2, u"a"}});
        stream.insert(stream.end(), rest, 0);
        EXPECT_FALSE(TakeStream(stream)) << rest;
    }
}

TEST_F(DeserializeTest, RefusesTypesOutsideOneToSeven) {
    for (const u16 type : {u16{0}, u16{8}, u16{0x300}, u16{0xffff}}) {
        SetPassword(m_Database);
        EXPECT_FALSE(TakeStream(Stream({{2, u"a"}, {type, u"text"}}))) << type;
    }
}

TEST_F(DeserializeTest, RefusesAnEntryOrDateBeforeAnyItem) {
    for (u16 type = 3; type <= 7; ++type) {
        SetPassword(m_Database);
        EXPECT_FALSE(TakeStream(Stream({{1, u"n"}, {type, u"text"}, {2, u"a"}}))) << type;
    }
}

TEST_F(DeserializeTest, TakesNamesInAnyPlaceAndKeepsTheLast) {
    EXPECT_TRUE(TakeStream(Stream({{1, u"first"}, {2, u"a"}, {1, u"middle"}, {6, u"t"}, {1, u"last"}})));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"last", {{u"a", 0, {{6, u"t"}}}}}));
}

TEST_F(DeserializeTest, GivesAnItemWithoutDateTheDateZero) {
    EXPECT_TRUE(TakeStream(Stream({{2, u"a"}, {2, u"b"}, {7, u"5"}})));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"", {{u"a", 0, {}}, {u"b", 5, {}}}}));
}

TEST_F(DeserializeTest, KeepsTheLastDateOfAnItem) {
    EXPECT_TRUE(TakeStream(Stream({{2, u"a"}, {7, u"0x5"}, {6, u"t"}, {7, u"0x6"}})));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"", {{u"a", 6, {{6, u"t"}}}}}));
}

TEST_F(DeserializeTest, TakesDatesInDecimalInEitherHexadecimalFormOrEmpty) {
    EXPECT_TRUE(TakeStream(
        Stream({{2, u"a"}, {7, u"255"}, {2, u"b"}, {7, u"0XfF"}, {2, u"c"}, {7, u"9"}, {7, u""}})));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"", {{u"a", 255, {}}, {u"b", 255, {}}, {u"c", 0, {}}}}));
}

TEST_F(DeserializeTest, KeepsEntriesOfAnyTypeInTheirOrder) {
    const Tree tree{u"", {{u"", 0, {{6, u"1"}, {5, u""}, {5, u"2"}, {3, u"3"}, {4, u"4"}, {6, u""}}}}};
    EXPECT_TRUE(
        TakeStream(Stream({{2, u""}, {6, u"1"}, {5, u""}, {5, u"2"}, {3, u"3"}, {4, u"4"}, {6, u""}})));
    EXPECT_EQ(TreeOf(m_Database), tree);
}

TEST_F(DeserializeTest, GetsTheLongestTextBackWhole) {
    Tree tree = kOneEmptyItem;
    tree.items[0].entries.push_back({6, std::u16string(65535, u'z')});
    Fill(m_Database, tree);
    const tvdata data = m_Database.Serialize();
    VMRD_DB copy;
    SetPassword(copy);
    EXPECT_TRUE(copy.Deserialize(data.Data(), data.Size()));
    EXPECT_EQ(TreeOf(copy), tree);
}

TEST_F(DeserializeTest, TakesTheLastUnitOfATooLongTextForTheNextType) {
    std::u16string text(65536, u'z');
    text.back() = 4;
    Fill(m_Database, {u"", {{u"a", 0, {{6, text}, {3, u"xyz"}}}}});
    const tvdata data = m_Database.Serialize();
    VMRD_DB copy;
    SetPassword(copy);
    // Type 4 and, for a length, type 3: the length of the next record and two of its three units.
    ASSERT_FALSE(copy.Deserialize(data.Data(), data.Size()));
    m_Database.m_Head->m_Tail->m_Text = u"xy";
    const tvdata fitting = m_Database.Serialize();
    SetPassword(copy);
    ASSERT_TRUE(copy.Deserialize(fitting.Data(), fitting.Size()));
    text.pop_back();
    EXPECT_EQ(TreeOf(copy), (Tree{u"", {{u"a", 0, {{6, text}, {4, u"\u0002xy"}}}}}));
}

// --- Open ---

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
        EXPECT_EQ(LastError(), error);
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
