#include "platform/registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <latch>
#include <thread>
#include <vector>

#include "tests/unit/registry_fixture.h"

namespace {

using platform::CloseKey;
using platform::DeleteUserTree;
using platform::DeleteValue;
using platform::kErrorAccessDenied;
using platform::kErrorFileNotFound;
using platform::kErrorInvalidHandle;
using platform::kErrorInvalidParameter;
using platform::kErrorKeyDeleted;
using platform::kErrorMoreData;
using platform::kErrorNone;
using platform::KeyAccess;
using platform::NativeKey;
using platform::OpenUserKey;
using platform::QueryValue;
using platform::WriteValue;

class OpenKey {
public:
    OpenKey(const char16_t* subkey, KeyAccess access) : m_Status(OpenUserKey(subkey, access, m_Key)) {}
    ~OpenKey() { CloseKey(m_Key); }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;

    operator NativeKey() const { return m_Key; }  // NOLINT(google-explicit-constructor)
    [[nodiscard]] u32 Status() const { return m_Status; }

private:
    NativeKey m_Key = 0;
    u32 m_Status;
};

class RegistryStore : public RegistryTest {
protected:
    static u32 Write(NativeKey key, const char16_t* name, const std::vector<u8>& bytes, u32 type = 3) {
        return WriteValue(key, name, type, bytes.data(), static_cast<u32>(bytes.size()));
    }

    static u32 OpeningStatus(const char16_t* subkey) { return OpenKey(subkey, KeyAccess::Read).Status(); }

    // Makes a key with one value.
    static void Make(const char16_t* subkey) { Put(subkey, u"v", 3, {1}); }
};

constexpr const char16_t* kBelow = u"Software\\Tolvane\\Test\\Below\\It";

// --- Keys ---

TEST_F(RegistryStore, DoesNotOpenAMissingKeyForReading) {
    NativeKey key = 77;
    EXPECT_EQ(OpenUserKey(kTestKey, KeyAccess::Read, key), kErrorFileNotFound);
    EXPECT_EQ(key, 0U);
    EXPECT_EQ(OpeningStatus(kTestKey), kErrorFileNotFound);
}

TEST_F(RegistryStore, MakesAKeyThatIsOpenedForWriting) {
    NativeKey key = 0;
    EXPECT_EQ(OpenUserKey(kTestKey, KeyAccess::Write, key), kErrorNone);
    EXPECT_NE(key, 0U);
    EXPECT_EQ(OpeningStatus(kTestKey), kErrorNone);
    CloseKey(key);
    EXPECT_EQ(OpeningStatus(kTestKey), kErrorNone);
}

TEST_F(RegistryStore, MakesAKeyWithItsParents) {
    const OpenKey key(kBelow, KeyAccess::Write);
    for (const char16_t* parent :
         {u"Software", u"Software\\Tolvane", kTestKey, u"Software\\Tolvane\\Test\\Below"}) {
        EXPECT_EQ(OpeningStatus(parent), kErrorNone);
    }
}

TEST_F(RegistryStore, KeepsTheValuesOfAKeyThatIsOpenedAgain) {
    Make(kTestKey);
    const OpenKey again(kTestKey, KeyAccess::Write);
    EXPECT_EQ(again.Status(), kErrorNone);
    EXPECT_EQ(Stored(kTestKey, u"v"), "3:01");
}

TEST_F(RegistryStore, FindsKeysInAnyLetterCase) {
    Make(u"Software\\Tolvane\\Straße Ä");
    EXPECT_EQ(Stored(u"SOFTWARE\\tolvane\\STRAßE ä", u"v"), "3:01");
    EXPECT_EQ(OpeningStatus(u"SOFTWARE\\tolvane\\STRASSE ä"), kErrorFileNotFound);
}

TEST_F(RegistryStore, TakesOddNamesOfKeys) {
    const std::vector<const char16_t*> keys = {
        u"Software\\Tolvane\\a=b",  u"Software\\Tolvane\\[x]", u"Software\\Tolvane\\100%",
        u"Software\\Tolvane\\東京", u"Software\\Tolvane\\a/b", u"Software\\Tolvane\\%0041",
        u"Software\\Tolvane\\;#",
    };
    for (std::size_t i = 0; i < keys.size(); ++i)
        PutWord(keys[i], u"v", static_cast<u32>(i));
    for (std::size_t i = 0; i < keys.size(); ++i)
        EXPECT_EQ(Stored(keys[i], u"v"), "4:0" + std::to_string(i) + "000000");
    EXPECT_EQ(OpeningStatus(u"Software\\Tolvane\\A"), kErrorFileNotFound);
}

TEST_F(RegistryStore, CannotOpenAKeyWhileTheSystemFails) {
    Make(kTestKey);
    m_Faults.Fail(platform::FaultPoint::OpenKey, kErrorAccessDenied);
    NativeKey key = 77;
    EXPECT_EQ(OpenUserKey(kTestKey, KeyAccess::Read, key), kErrorAccessDenied);
    EXPECT_EQ(key, 0U);
    EXPECT_EQ(OpeningStatus(kTestKey), kErrorNone);
}

TEST_F(RegistryStore, ClosesNoKey) {
    CloseKey(0);
}

TEST_F(RegistryStore, RefusesAKeyThatIsNone) {
    u32 size = 0;
    EXPECT_EQ(QueryValue(0, u"v", nullptr, nullptr, size), kErrorInvalidHandle);
    EXPECT_EQ(Write(0, u"v", {1}), kErrorInvalidHandle);
    EXPECT_EQ(DeleteValue(0, u"v"), kErrorInvalidHandle);
}

// --- Access ---

TEST_F(RegistryStore, AKeyForReadingCannotBeChanged) {
    Make(kTestKey);
    const OpenKey key(kTestKey, KeyAccess::Read);
    EXPECT_EQ(Write(key, u"v", {2}), kErrorAccessDenied);
    EXPECT_EQ(Write(key, u"new", {2}), kErrorAccessDenied);
    EXPECT_EQ(DeleteValue(key, u"v"), kErrorAccessDenied);
    EXPECT_EQ(Stored(kTestKey, u"v"), "3:01");
    EXPECT_EQ(Stored(kTestKey, u"new"), "absent");
}

TEST_F(RegistryStore, AKeyForWritingCannotBeRead) {
    Make(kTestKey);
    const OpenKey key(kTestKey, KeyAccess::Write);
    u32 size = 0;
    EXPECT_EQ(QueryValue(key, u"v", nullptr, nullptr, size), kErrorAccessDenied);
    EXPECT_EQ(QueryValue(key, u"missing", nullptr, nullptr, size), kErrorAccessDenied);
}

// --- Values ---

TEST_F(RegistryStore, GivesTypeAndBytesBack) {
    const std::vector<u32> types = {
        0, platform::kRegString, platform::kRegBinary, platform::kRegWord, platform::kRegQuadWord, 77};
    const OpenKey key(kTestKey, KeyAccess::Write);
    const std::vector<u8> bytes = {0, 0xFF, u8{'a'}, u8{'\n'}, 0, 0};
    for (const u32 type : types) {
        EXPECT_EQ(Write(key, u"v", bytes, type), kErrorNone);
        EXPECT_EQ(Stored(kTestKey, u"v"), std::to_string(type) + ":00ff610a0000");
    }
}

TEST_F(RegistryStore, KnowsTheNumbersOfTheTypes) {
    EXPECT_EQ(platform::kRegString, 1U);
    EXPECT_EQ(platform::kRegBinary, 3U);
    EXPECT_EQ(platform::kRegWord, 4U);
    EXPECT_EQ(platform::kRegQuadWord, 11U);
}

TEST_F(RegistryStore, TellsTypeAndSizeWithoutABuffer) {
    Put(kTestKey, u"v", 77, {1, 2, 3});
    const OpenKey key(kTestKey, KeyAccess::Read);
    u32 type = 0;
    u32 size = 99;
    EXPECT_EQ(QueryValue(key, u"v", &type, nullptr, size), kErrorNone);
    EXPECT_EQ(type, 77U);
    EXPECT_EQ(size, 3U);
    size = 0;
    EXPECT_EQ(QueryValue(key, u"v", nullptr, nullptr, size), kErrorNone);
    EXPECT_EQ(size, 3U);
}

TEST_F(RegistryStore, FillsNoMoreThanTheValueHas) {
    Put(kTestKey, u"v", 3, {1, 2, 3});
    const OpenKey key(kTestKey, KeyAccess::Read);
    std::array<u8, 5> room = {9, 9, 9, 9, 9};
    u32 size = 5;
    EXPECT_EQ(QueryValue(key, u"v", nullptr, room.data(), size), kErrorNone);
    EXPECT_EQ(size, 3U);
    EXPECT_EQ(room, (std::array<u8, 5>{1, 2, 3, 9, 9}));
}

TEST_F(RegistryStore, FillsRoomThatIsJustEnough) {
    Put(kTestKey, u"v", 3, {1, 2, 3});
    const OpenKey key(kTestKey, KeyAccess::Read);
    std::array<u8, 3> room{};
    u32 size = 3;
    EXPECT_EQ(QueryValue(key, u"v", nullptr, room.data(), size), kErrorNone);
    EXPECT_EQ(room, (std::array<u8, 3>{1, 2, 3}));
}

TEST_F(RegistryStore, TellsTheSizeThatIsNeeded) {
    Put(kTestKey, u"v", 77, {1, 2, 3});
    const OpenKey key(kTestKey, KeyAccess::Read);
    std::array<u8, 3> room = {9, 9, 9};
    u32 type = 0;
    u32 size = 2;
    EXPECT_EQ(QueryValue(key, u"v", &type, room.data(), size), kErrorMoreData);
    EXPECT_EQ(size, 3U);
    EXPECT_EQ(type, 77U);
    EXPECT_EQ(room[2], 9);
}

TEST_F(RegistryStore, TellsAMissingValue) {
    Make(kTestKey);
    const OpenKey key(kTestKey, KeyAccess::Read);
    u32 size = 0;
    EXPECT_EQ(QueryValue(key, u"missing", nullptr, nullptr, size), kErrorFileNotFound);
    EXPECT_EQ(QueryValue(key, u"", nullptr, nullptr, size), kErrorFileNotFound);
}

TEST_F(RegistryStore, KeepsValuesWithoutData) {
    const OpenKey key(kTestKey, KeyAccess::Write);
    EXPECT_EQ(WriteValue(key, u"v", 77, nullptr, 0), kErrorNone);
    EXPECT_EQ(Stored(kTestKey, u"v"), "77:");
}

TEST_F(RegistryStore, ReplacesTypeAndBytesOfAValue) {
    const OpenKey key(kTestKey, KeyAccess::Write);
    EXPECT_EQ(Write(key, u"v", {1, 2, 3}), kErrorNone);
    EXPECT_EQ(Write(key, u"v", {4}, 4), kErrorNone);
    EXPECT_EQ(Stored(kTestKey, u"v"), "4:04");
}

TEST_F(RegistryStore, KeepsALargeValue) {
    const std::vector<u8> bytes = CountingBytes(300'000);
    Put(kTestKey, u"large", 3, bytes);
    EXPECT_EQ(Stored(kTestKey, u"large"), "3:" + ToHex(bytes));
}

TEST_F(RegistryStore, FindsValuesInAnyLetterCase) {
    Put(kTestKey, u"Naïve Äpfel", 3, {1});
    Put(kTestKey, u"NAÏVE ÄPFEL", 3, {2});
    EXPECT_EQ(Stored(kTestKey, u"naïve äpfel"), "3:02");
    Delete(kTestKey, u"nAÏVE äPFEL");
    EXPECT_EQ(Stored(kTestKey, u"Naïve Äpfel"), "absent");
}

TEST_F(RegistryStore, HasADefaultValueWithoutAName) {
    const OpenKey key(kTestKey, KeyAccess::Write);
    EXPECT_EQ(Write(key, u"", {1}), kErrorNone);
    EXPECT_EQ(Stored(kTestKey, u""), "3:01");
    EXPECT_EQ(Stored(kTestKey, nullptr), "3:01");
    EXPECT_EQ(Write(key, nullptr, {2}), kErrorNone);
    EXPECT_EQ(Stored(kTestKey, u""), "3:02");
    EXPECT_EQ(DeleteValue(key, nullptr), kErrorNone);
    EXPECT_EQ(Stored(kTestKey, u""), "absent");
}

TEST_F(RegistryStore, TakesOddNamesOfValues) {
    const std::vector<const char16_t*> names = {
        u"a=b", u"=",    u"[x]",  u"[",     u"]",   u"100%",   u"%",      u"%0041",
        u"A",   u"東京", u" a ",  u";a",    u"#a",  u"a\\b",   u"a\nb",   u"a\r\nb",
        u"\t",  u"a:b",  u"3:ff", u"a\x7F", u"\x1", u"\xD800", u"\xFFFF",
    };
    for (std::size_t i = 0; i < names.size(); ++i)
        Put(kTestKey, names[i], 3, {static_cast<u8>(i + 0x10)});
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(Stored(kTestKey, names[i]), "3:" + ToHex(std::array{static_cast<u8>(i + 0x10)})) << i;
}

TEST_F(RegistryStore, KeepsTheValuesOfKeysApart) {
    Put(kTestKey, u"v", 3, {1});
    Put(u"Software\\Tolvane\\Test 2", u"v", 3, {2});
    Put(kBelow, u"v", 3, {3});
    EXPECT_EQ(Stored(kTestKey, u"v"), "3:01");
    EXPECT_EQ(Stored(u"Software\\Tolvane\\Test 2", u"v"), "3:02");
    EXPECT_EQ(Stored(kBelow, u"v"), "3:03");
}

TEST_F(RegistryStore, ShowsAChangeToWhoHasTheKeyOpen) {
    Make(kTestKey);
    const OpenKey reader(kTestKey, KeyAccess::Read);
    Put(kTestKey, u"v", 3, {1, 2});
    u32 size = 0;
    EXPECT_EQ(QueryValue(reader, u"v", nullptr, nullptr, size), kErrorNone);
    EXPECT_EQ(size, 2U);
}

TEST_F(RegistryStore, WritesNothingWhileTheSystemFails) {
    Make(kTestKey);
    m_Faults.Fail(platform::FaultPoint::WriteValue, kErrorAccessDenied);
    const OpenKey key(kTestKey, KeyAccess::Write);
    EXPECT_EQ(Write(key, u"v", {2}), kErrorAccessDenied);
    EXPECT_EQ(Stored(kTestKey, u"v"), "3:01");
    EXPECT_EQ(Write(key, u"v", {2}), kErrorNone);
}

TEST_F(RegistryStore, LosesNothingThatIsWrittenAtTheSameTime) {
    constexpr int kThreads = 4;
    constexpr u32 kValues = 50;
    std::latch start(kThreads);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([thread, &start] {
            const OpenKey key(kTestKey, KeyAccess::Write);
            start.arrive_and_wait();
            for (u32 i = 0; i < kValues; ++i) {
                const char16_t name[] = {static_cast<char16_t>(u'a' + thread),
                                         static_cast<char16_t>(0x4E00 + i), 0};
                Write(key, name, {static_cast<u8>(i)});
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (int thread = 0; thread < kThreads; ++thread) {
        for (u32 i = 0; i < kValues; ++i) {
            const char16_t name[] = {static_cast<char16_t>(u'a' + thread), static_cast<char16_t>(0x4E00 + i),
                                     0};
            EXPECT_EQ(Stored(kTestKey, name), "3:" + ToHex(std::array{static_cast<u8>(i)}));
        }
    }
}

// --- Deleting ---

TEST_F(RegistryStore, DeletesOneValue) {
    Put(kTestKey, u"v", 3, {1});
    Put(kTestKey, u"v2", 3, {2});
    const OpenKey key(kTestKey, KeyAccess::Write);
    EXPECT_EQ(DeleteValue(key, u"v"), kErrorNone);
    EXPECT_EQ(Stored(kTestKey, u"v"), "absent");
    EXPECT_EQ(Stored(kTestKey, u"v2"), "3:02");
    EXPECT_EQ(DeleteValue(key, u"v"), kErrorFileNotFound);
}

TEST_F(RegistryStore, DeletesATreeButNotItsSiblingsAndParents) {
    for (const char16_t* key : {kTestKey, u"Software\\Tolvane\\Test\\Below", kBelow,
                                u"Software\\Tolvane\\Test 2", u"Software\\Tolvane\\Tes"}) {
        Make(key);
    }
    EXPECT_EQ(DeleteUserTree(u"software\\TOLVANE\\test"), kErrorNone);
    for (const char16_t* key : {kTestKey, u"Software\\Tolvane\\Test\\Below", kBelow})
        EXPECT_EQ(OpeningStatus(key), kErrorFileNotFound);
    EXPECT_EQ(Stored(u"Software\\Tolvane\\Test 2", u"v"), "3:01");
    EXPECT_EQ(Stored(u"Software\\Tolvane\\Tes", u"v"), "3:01");
    EXPECT_EQ(OpeningStatus(kProgramTree), kErrorNone);
}

TEST_F(RegistryStore, KeepsTheParentOfADeletedTree) {
    Make(kBelow);
    EXPECT_EQ(DeleteUserTree(kBelow), kErrorNone);
    EXPECT_EQ(OpeningStatus(kBelow), kErrorFileNotFound);
    EXPECT_EQ(OpeningStatus(u"Software\\Tolvane\\Test\\Below"), kErrorNone);
}

TEST_F(RegistryStore, DeletesNoMissingTree) {
    Make(kTestKey);
    EXPECT_EQ(DeleteUserTree(u"Software\\Tolvane\\Test\\missing"), kErrorFileNotFound);
    EXPECT_EQ(DeleteUserTree(u"Software\\Tolvane\\Te"), kErrorFileNotFound);
    EXPECT_EQ(Stored(kTestKey, u"v"), "3:01");
}

TEST_F(RegistryStore, NeverDeletesTheUsersRoot) {
    Make(kTestKey);
    EXPECT_EQ(DeleteUserTree(u""), kErrorInvalidParameter);
    EXPECT_EQ(Stored(kTestKey, u"v"), "3:01");
}

TEST_F(RegistryStore, TellsThatAnOpenKeyWasDeleted) {
    Make(kTestKey);
    const OpenKey reader(kTestKey, KeyAccess::Read);
    const OpenKey writer(kTestKey, KeyAccess::Write);
    DeleteUserTree(kTestKey);
    u32 size = 0;
    EXPECT_EQ(QueryValue(reader, u"v", nullptr, nullptr, size), kErrorKeyDeleted);
    EXPECT_EQ(Write(writer, u"v", {1}), kErrorKeyDeleted);
    EXPECT_EQ(DeleteValue(writer, u"v"), kErrorKeyDeleted);
    EXPECT_EQ(OpeningStatus(kTestKey), kErrorFileNotFound);
}

}  // namespace
