#include "foundation/registry.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "platform/fault.h"
#include "tests/unit/registry_fixture.h"

namespace {

using platform::FaultPoint;
using platform::kErrorAccessDenied;
using platform::kErrorFileNotFound;
using platform::kErrorNone;
using platform::LastError;
using platform::NativeKey;

constexpr u32 kUnset = 4711;

class Registry : public RegistryTest {
protected:
    // Operations set the last error themselves, also where they succeed.
    Registry() { platform::SetLastError(kUnset); }

    // A key that is closed again.
    static RegKey Reading(const char16_t* subkey = kTestKey) { return {subkey, RegKey::For::Reading}; }
    static RegKey Writing(const char16_t* subkey = kTestKey) { return {subkey, RegKey::For::Writing}; }

    static std::vector<u8> BytesOf(const tvdata& data) {
        return data.Empty() ? std::vector<u8>() : std::vector<u8>(data.Data(), data.Data() + data.Size());
    }

    const std::vector<u8> m_Bytes = {1, 0, 0xFF};
};

using RegOpenUserKeyTest = Registry;
using RegReadValueTest = Registry;
using RegReadUserValueTest = Registry;
using RegWriteValueTest = Registry;
using RegistryForms = Registry;
using RegKeyTest = Registry;

// --- RegOpenUserKey ---

TEST_F(RegOpenUserKeyTest, GivesNothingForAnEmptySubkeyWithoutAnError) {
    for (const bool create : {false, true}) {
        for (const char16_t* subkey : {u"", static_cast<const char16_t*>(nullptr)}) {
            platform::SetLastError(kUnset);
            EXPECT_EQ(RegOpenUserKey(subkey, create), 0U);
            EXPECT_EQ(LastError(), kErrorNone);
        }
    }
}

TEST_F(RegOpenUserKeyTest, DoesNotMakeAKeyForReading) {
    EXPECT_EQ(RegOpenUserKey(kTestKey, false), 0U);
    EXPECT_EQ(LastError(), kErrorFileNotFound);
    EXPECT_FALSE(Exists(kTestKey));
}

TEST_F(RegOpenUserKeyTest, OpensForReadingOnly) {
    Put(kTestKey, u"v", 3, m_Bytes);
    platform::SetLastError(kUnset);
    const NativeKey key = RegOpenUserKey(kTestKey, false);
    EXPECT_NE(key, 0U);
    EXPECT_EQ(LastError(), kErrorNone);
    EXPECT_EQ(BytesOf(RegReadValue(key, u"v", nullptr)), m_Bytes);
    EXPECT_FALSE(RegWriteValue(key, u"v", "x", 1, 3));
    EXPECT_EQ(LastError(), kErrorAccessDenied);
    platform::CloseKey(key);
}

TEST_F(RegOpenUserKeyTest, MakesAKeyForWritingOnly) {
    const NativeKey key = RegOpenUserKey(kTestKey, true);
    EXPECT_NE(key, 0U);
    EXPECT_EQ(LastError(), kErrorNone);
    EXPECT_TRUE(RegWriteValue(key, u"v", "x", 1, 3));
    EXPECT_TRUE(RegReadValue(key, u"v", nullptr).Empty());
    EXPECT_EQ(LastError(), kErrorAccessDenied);
    platform::CloseKey(key);
}

TEST_F(RegOpenUserKeyTest, PutsTheSystemsFailureIntoTheLastError) {
    for (const bool create : {false, true}) {
        m_Faults.Fail(FaultPoint::OpenKey, 1234);
        EXPECT_EQ(RegOpenUserKey(kTestKey, create), 0U);
        EXPECT_EQ(LastError(), 1234U);
    }
    EXPECT_FALSE(Exists(kTestKey));
}

// --- RegReadValue ---

TEST_F(RegReadValueTest, GivesBytesAndType) {
    Put(kTestKey, u"v", 77, m_Bytes);
    const RegKey key = Reading();
    platform::SetLastError(kUnset);
    u32 type = kUnset;
    EXPECT_EQ(BytesOf(RegReadValue(key.Get(), u"V", &type)), m_Bytes);
    EXPECT_EQ(type, 77U);
    EXPECT_EQ(LastError(), kErrorNone);
}

TEST_F(RegReadValueTest, NeedsNoPlaceForTheType) {
    Put(kTestKey, u"v", 77, m_Bytes);
    EXPECT_EQ(BytesOf(RegReadValue(Reading().Get(), u"v", nullptr)), m_Bytes);
}

TEST_F(RegReadValueTest, GivesNothingWithoutAKey) {
    u32 type = kUnset;
    EXPECT_TRUE(RegReadValue(0, u"v", &type).Empty());
    EXPECT_EQ(type, 0U);
    EXPECT_EQ(LastError(), kErrorNone);
}

TEST_F(RegReadValueTest, TellsAMissingValueByTheLastError) {
    Put(kTestKey, u"v", 77, m_Bytes);
    u32 type = kUnset;
    EXPECT_TRUE(RegReadValue(Reading().Get(), u"missing", &type).Empty());
    EXPECT_EQ(type, 0U);
    EXPECT_EQ(LastError(), kErrorFileNotFound);
    EXPECT_TRUE(RegReadValue(Reading().Get(), u"missing", nullptr).Empty());
}

TEST_F(RegReadValueTest, TellsTheTypeOfAValueWithoutDataAndNoError) {
    Put(kTestKey, u"v", 77, {});
    const RegKey key = Reading();
    platform::SetLastError(kUnset);
    u32 type = kUnset;
    EXPECT_TRUE(RegReadValue(key.Get(), u"v", &type).Empty());
    EXPECT_EQ(type, 77U);
    EXPECT_EQ(LastError(), kErrorNone);
}

TEST_F(RegReadValueTest, GivesTheDefaultValueForAnEmptyName) {
    Put(kTestKey, u"", 3, m_Bytes);
    EXPECT_EQ(BytesOf(RegReadValue(Reading().Get(), u"", nullptr)), m_Bytes);
    EXPECT_EQ(BytesOf(RegReadValue(Reading().Get(), nullptr, nullptr)), m_Bytes);
}

TEST_F(RegReadValueTest, GivesNothingIfThereIsNoMemory) {
    Put(kTestKey, u"v", 77, m_Bytes);
    const RegKey key = Reading();
    m_Faults.Fail(FaultPoint::AllocateZeroed, 0);
    u32 type = kUnset;
    EXPECT_TRUE(RegReadValue(key.Get(), u"v", &type).Empty());
    EXPECT_EQ(type, 0U);
    EXPECT_EQ(LastError(), platform::kErrorNotEnoughMemory);
}

// Between the question for the size and the reading the value may have grown.
TEST_F(RegReadValueTest, GivesAWholeValueOrNothingWhileAnotherThreadChangesIt) {
    const std::vector<u8> bytes(50'000, 0xAB);
    Put(kTestKey, u"v", 77, bytes);
    std::atomic<bool> isDone = false;
    std::thread other([&bytes, &isDone] {
        const RegKey key = Writing();
        for (u32 size = 1; !isDone; size = size == 1 ? 50'000 : 1)
            RegWriteValue(key.Get(), u"v", bytes.data(), size, 77);
    });
    const RegKey key = Reading();
    bool hasFailed = false;
    for (int round = 0; round < 2000 && !hasFailed; ++round) {
        u32 type = kUnset;
        const std::vector<u8> read = BytesOf(RegReadValue(key.Get(), u"v", &type));
        hasFailed = read.empty();
        EXPECT_EQ(LastError(), hasFailed ? platform::kErrorMoreData : kErrorNone);
        EXPECT_EQ(type, hasFailed ? 0U : 77U);
        EXPECT_TRUE(hasFailed || read.size() == 1 || read.size() == bytes.size());
        EXPECT_EQ(read, std::vector<u8>(read.size(), 0xAB));
    }
    isDone = true;
    other.join();
}

TEST_F(RegReadValueTest, TellsThatTheKeyWasDeleted) {
    Put(kTestKey, u"v", 77, m_Bytes);
    const RegKey key = Reading();
    platform::DeleteUserTree(kTestKey);
    EXPECT_TRUE(RegReadValue(key.Get(), u"v", nullptr).Empty());
    EXPECT_EQ(LastError(), platform::kErrorKeyDeleted);
}

// --- RegReadUserValue ---

TEST_F(RegReadUserValueTest, OpensTheKeyForTheReading) {
    Put(kTestKey, u"v", 77, m_Bytes);
    platform::SetLastError(kUnset);
    u32 type = kUnset;
    EXPECT_EQ(BytesOf(RegReadUserValue(kTestKey, u"v", &type)), m_Bytes);
    EXPECT_EQ(type, 77U);
    EXPECT_EQ(LastError(), kErrorNone);
    EXPECT_EQ(BytesOf(RegReadUserValue(kTestKey, u"v", nullptr)), m_Bytes);
}

TEST_F(RegReadUserValueTest, GivesNothingForAKeyThatIsMissingOrEmpty) {
    u32 type = kUnset;
    EXPECT_TRUE(RegReadUserValue(kTestKey, u"v", &type).Empty());
    EXPECT_EQ(type, 0U);
    EXPECT_EQ(LastError(), kErrorFileNotFound);
    type = kUnset;
    EXPECT_TRUE(RegReadUserValue(u"", u"v", &type).Empty());
    EXPECT_EQ(type, 0U);
    EXPECT_EQ(LastError(), kErrorNone);
    EXPECT_TRUE(RegReadUserValue(nullptr, u"v", nullptr).Empty());
    EXPECT_FALSE(Exists(kTestKey));
}

TEST_F(RegReadUserValueTest, KeepsTheErrorOfTheReading) {
    Put(kTestKey, u"v", 77, m_Bytes);
    EXPECT_TRUE(RegReadUserValue(kTestKey, u"missing", nullptr).Empty());
    EXPECT_EQ(LastError(), kErrorFileNotFound);
}

// --- RegWriteValue ---

TEST_F(RegWriteValueTest, WritesBytesAndType) {
    const RegKey key = Writing();
    platform::SetLastError(kUnset);
    EXPECT_TRUE(RegWriteValue(key.Get(), u"v", m_Bytes.data(), 3, 77));
    EXPECT_EQ(LastError(), kErrorNone);
    EXPECT_EQ(Stored(kTestKey, u"v"), "77:0100ff");
}

TEST_F(RegWriteValueTest, WritesAnEmptyValueFromNull) {
    const RegKey key = Writing();
    EXPECT_TRUE(RegWriteValue(key.Get(), u"v", nullptr, 0, 77));
    EXPECT_EQ(Stored(kTestKey, u"v"), "77:");
}

TEST_F(RegWriteValueTest, RefusesNullWithASizeWithoutAnError) {
    Put(kTestKey, u"v", 3, m_Bytes);
    const RegKey key = Writing();
    platform::SetLastError(kUnset);
    EXPECT_FALSE(RegWriteValue(key.Get(), u"v", nullptr, 1, 77));
    EXPECT_EQ(LastError(), kErrorNone);
    EXPECT_EQ(Stored(kTestKey, u"v"), "3:0100ff");
}

TEST_F(RegWriteValueTest, RefusesNoKeyWithoutAnError) {
    EXPECT_FALSE(RegWriteValue(0, u"v", m_Bytes.data(), 3, 77));
    EXPECT_EQ(LastError(), kErrorNone);
}

TEST_F(RegWriteValueTest, PutsTheSystemsFailureIntoTheLastError) {
    const RegKey key = Writing();
    m_Faults.Fail(FaultPoint::WriteValue, 1234);
    EXPECT_FALSE(RegWriteValue(key.Get(), u"v", m_Bytes.data(), 3, 77));
    EXPECT_EQ(LastError(), 1234U);
    EXPECT_EQ(Stored(kTestKey, u"v"), "absent");
}

TEST_F(RegWriteValueTest, WritesTheDefaultValue) {
    EXPECT_TRUE(RegWriteValue(Writing().Get(), u"", m_Bytes.data(), 3, 3));
    EXPECT_EQ(Stored(kTestKey, u""), "3:0100ff");
}

// --- Forms of values ---

TEST_F(RegistryForms, AWordHasFourBytesOfAnyType) {
    for (const u32 type : {3U, 4U, 1U, 77U}) {
        Put(kTestKey, u"v", type, {0x78, 0x56, 0x34, 0x12});
        u32 word = 0;
        EXPECT_TRUE(RegReadWord(Reading().Get(), u"v", word));
        EXPECT_EQ(word, 0x12345678U);
    }
}

TEST_F(RegistryForms, NoWordIsReadFromAnotherSizeOrNothing) {
    u32 word = 7;
    EXPECT_FALSE(RegReadWord(0, u"v", word));
    for (const std::size_t size : {0U, 1U, 3U, 5U, 8U}) {
        Put(kTestKey, u"v", 4, std::vector<u8>(size, 1));
        EXPECT_FALSE(RegReadWord(Reading().Get(), u"v", word)) << size;
    }
    EXPECT_FALSE(RegReadWord(Reading().Get(), u"missing", word));
    EXPECT_EQ(word, 7U);
}

TEST_F(RegistryForms, AWordIsWrittenAsSuch) {
    EXPECT_TRUE(RegWriteWord(Writing().Get(), u"v", 0x12345678));
    EXPECT_EQ(Stored(kTestKey, u"v"), "4:78563412");
    EXPECT_FALSE(RegWriteWord(0, u"v", 1));
}

TEST_F(RegistryForms, ATextIsWrittenWithItsTerminatingZero) {
    EXPECT_TRUE(RegWriteText(Writing().Get(), u"v", u"aß\xD83D\xDE00"));
    EXPECT_EQ(Stored(kTestKey, u"v"), "1:6100df003dd800de0000");
    EXPECT_TRUE(RegWriteText(Writing().Get(), u"v", u""));
    EXPECT_EQ(Stored(kTestKey, u"v"), "1:0000");
    EXPECT_FALSE(RegWriteText(0, u"v", u"a"));
}

TEST_F(RegistryForms, ATextIsReadToItsFirstZero) {
    tvstring text = u"before";
    PutText(kTestKey, u"v", u"aß");
    EXPECT_TRUE(RegReadText(Reading().Get(), u"v", text));
    EXPECT_EQ(text, u"aß");
    Put(kTestKey, u"v", 1, {u8{'a'}, 0, u8{'b'}, 0, 0, 0, u8{'c'}, 0});
    EXPECT_TRUE(RegReadText(Reading().Get(), u"v", text));
    EXPECT_EQ(text, u"ab");
    Put(kTestKey, u"v", 1, {0, 0, u8{'c'}, 0, 0, 0});
    EXPECT_TRUE(RegReadText(Reading().Get(), u"v", text));
    EXPECT_EQ(text, u"");
}

TEST_F(RegistryForms, ATextWithoutDataIsEmpty) {
    Put(kTestKey, u"v", 1, {});
    tvstring text = u"before";
    EXPECT_TRUE(RegReadText(Reading().Get(), u"v", text));
    EXPECT_EQ(text, u"");
}

TEST_F(RegistryForms, ATextNeedsNoZeroAndNoWholeUnits) {
    tvstring text;
    Put(kTestKey, u"v", 1, {u8{'a'}, 0, u8{'b'}, 0});
    EXPECT_TRUE(RegReadText(Reading().Get(), u"v", text));
    EXPECT_EQ(text, u"ab");
    Put(kTestKey, u"v", 1, {u8{'a'}, 0, u8{'b'}, 0, u8{'c'}});
    EXPECT_TRUE(RegReadText(Reading().Get(), u"v", text));
    EXPECT_EQ(text, u"ab");
    Put(kTestKey, u"v", 1, {u8{'a'}});
    EXPECT_TRUE(RegReadText(Reading().Get(), u"v", text));
    EXPECT_EQ(text, u"");
}

TEST_F(RegistryForms, NoTextIsReadFromAnotherTypeOrNothing) {
    tvstring text = u"before";
    EXPECT_FALSE(RegReadText(0, u"v", text));
    for (const u32 type : {0U, 2U, 3U, 4U, 7U}) {
        Put(kTestKey, u"v", type, TextBytes(u"text"));
        EXPECT_FALSE(RegReadText(Reading().Get(), u"v", text)) << type;
    }
    EXPECT_FALSE(RegReadText(Reading().Get(), u"missing", text));
    EXPECT_EQ(text, u"before");
}

// --- RegKey ---

TEST_F(RegKeyTest, IsOpenIfTheKeyIs) {
    EXPECT_FALSE(Reading());
    EXPECT_EQ(Reading().Get(), 0U);
    EXPECT_TRUE(Writing());
    EXPECT_TRUE(Reading());
    EXPECT_FALSE(Writing(u""));
}

}  // namespace
