#include "shell/load_store.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/registry_fixture.h"

namespace {

using enum LoadStore;
using platform::FaultPoint;

class LoadStoreTest : public RegistryTest {
protected:
    static std::string Setting(const char16_t* name) { return Stored(kSettingsKey, name); }
    static void PutSetting(const char16_t* name, u32 type, const std::vector<u8>& bytes) {
        Put(kSettingsKey, name, type, bytes);
    }
};

TEST_F(LoadStoreTest, KeepsSettingsUnderOneKey) {
    EXPECT_EQ(std::u16string(kSettingsKey), u"Software\\Tolvane\\Vaultmere\\Settings");
}

TEST_F(LoadStoreTest, MakesTheKeyWithTheFirstWriteOnly) {
    u8 byte = 0;
    u32 word = 0;
    tvstring text;
    EXPECT_FALSE(LoadStoreBool(Load, u"v", byte));
    EXPECT_FALSE(LoadStoreInt(Load, u"v", word));
    EXPECT_FALSE(LoadStoreBytes(Load, u"v", &word, sizeof word));
    EXPECT_FALSE(LoadStoreText(Load, u"v", text));
    EXPECT_FALSE(Exists(kSettingsKey));
    EXPECT_TRUE(LoadStoreBool(Store, u"v", byte));
    EXPECT_TRUE(Exists(kSettingsKey));
}

// --- LoadStoreBool ---

TEST_F(LoadStoreTest, ABoolIsTheLowestByteOfAWord) {
    PutSetting(u"v", 4, {0x05, 0x01, 0x02, 0x03});
    u8 byte = 9;
    EXPECT_TRUE(LoadStoreBool(Load, u"v", byte));
    EXPECT_EQ(byte, 5);
    PutSetting(u"v", 4, {0x00, 0x01, 0x00, 0x00});
    EXPECT_TRUE(LoadStoreBool(Load, u"v", byte));
    EXPECT_EQ(byte, 0);
}

TEST_F(LoadStoreTest, ABoolIsWrittenAsAWordExtendedWithZeros) {
    u8 byte = 0xFF;
    EXPECT_TRUE(LoadStoreBool(Store, u"v", byte));
    EXPECT_EQ(byte, 0xFF);
    EXPECT_EQ(Setting(u"v"), "4:ff000000");
}

TEST_F(LoadStoreTest, ABoolOfAnotherSizeIsNotTaken) {
    u8 byte = 9;
    for (const std::size_t size : {0U, 1U, 3U, 5U, 8U}) {
        PutSetting(u"v", 4, std::vector<u8>(size, 1));
        EXPECT_FALSE(LoadStoreBool(Load, u"v", byte)) << size;
    }
    EXPECT_EQ(byte, 9);
}

// --- LoadStoreInt ---

TEST_F(LoadStoreTest, AnIntIsAWordOfAnyType) {
    u32 word = 0;
    for (const u32 type : {4U, 3U, 1U}) {
        PutSetting(u"v", type, {0x78, 0x56, 0x34, 0x12});
        EXPECT_TRUE(LoadStoreInt(Load, u"v", word));
        EXPECT_EQ(word, 0x12345678U);
    }
}

TEST_F(LoadStoreTest, AnIntIsWrittenAsAWord) {
    u32 word = 0x12345678;
    EXPECT_TRUE(LoadStoreInt(Store, u"v", word));
    EXPECT_EQ(word, 0x12345678U);
    EXPECT_EQ(Setting(u"v"), "4:78563412");
}

TEST_F(LoadStoreTest, AnIntOfAnotherSizeIsNotTaken) {
    u32 word = 9;
    for (const std::size_t size : {0U, 1U, 3U, 5U, 8U}) {
        PutSetting(u"v", 4, std::vector<u8>(size, 1));
        EXPECT_FALSE(LoadStoreInt(Load, u"v", word)) << size;
    }
    EXPECT_EQ(word, 9U);
}

// --- LoadStoreBytes ---

TEST_F(LoadStoreTest, BytesAreWrittenAsBinary) {
    u8 bytes[3] = {1, 0, 3};
    EXPECT_TRUE(LoadStoreBytes(Store, u"v", bytes, sizeof bytes));
    EXPECT_EQ(Setting(u"v"), "3:010003");
}

TEST_F(LoadStoreTest, BytesAreTakenInTheirSizeOnly) {
    u8 bytes[3] = {9, 9, 9};
    for (const std::size_t size : {0U, 2U, 4U}) {
        PutSetting(u"v", 3, std::vector<u8>(size, 1));
        EXPECT_FALSE(LoadStoreBytes(Load, u"v", bytes, sizeof bytes)) << size;
    }
    EXPECT_EQ(ToHex(bytes), "090909");
    PutSetting(u"v", 3, {1, 2, 3});
    EXPECT_TRUE(LoadStoreBytes(Load, u"v", bytes, sizeof bytes));
    EXPECT_EQ(ToHex(bytes), "010203");
}

// --- LoadStoreText ---

TEST_F(LoadStoreTest, ATextIsWrittenAsAStringWithItsZero) {
    tvstring text = u"aß";
    EXPECT_TRUE(LoadStoreText(Store, u"v", text));
    EXPECT_EQ(Setting(u"v"), "1:6100df000000");
    tvstring again;
    EXPECT_TRUE(LoadStoreText(Load, u"v", again));
    EXPECT_EQ(again, u"aß");
}

TEST_F(LoadStoreTest, ATextOfAnotherTypeIsNotTaken) {
    PutSetting(u"v", 3, TextBytes(u"text"));
    tvstring text = u"before";
    EXPECT_FALSE(LoadStoreText(Load, u"v", text));
    EXPECT_EQ(text, u"before");
}

// --- Failures ---

TEST_F(LoadStoreTest, NothingIsReadOrWrittenWhileTheKeyCannotBeOpened) {
    PutSetting(u"v", 4, {1, 0, 0, 0});
    u8 byte = 9;
    u32 word = 9;
    tvstring text = u"9";
    for (const LoadStore direction : {Load, Store}) {
        platform::OrderFault(FaultPoint::OpenKey, platform::kErrorAccessDenied, 0, 4);
        EXPECT_FALSE(LoadStoreBool(direction, u"v", byte));
        EXPECT_FALSE(LoadStoreInt(direction, u"v", word));
        EXPECT_FALSE(LoadStoreBytes(direction, u"v", &word, sizeof word));
        EXPECT_FALSE(LoadStoreText(direction, u"v", text));
    }
    EXPECT_EQ(byte, 9);
    EXPECT_EQ(word, 9U);
    EXPECT_EQ(text, u"9");
    EXPECT_EQ(Setting(u"v"), "4:01000000");
}

TEST_F(LoadStoreTest, AFailedWriteIsTold) {
    u8 byte = 9;
    u32 word = 9;
    tvstring text = u"9";
    platform::OrderFault(FaultPoint::WriteValue, platform::kErrorAccessDenied, 0, 4);
    EXPECT_FALSE(LoadStoreBool(Store, u"v", byte));
    EXPECT_FALSE(LoadStoreInt(Store, u"v", word));
    EXPECT_FALSE(LoadStoreBytes(Store, u"v", &word, sizeof word));
    EXPECT_FALSE(LoadStoreText(Store, u"v", text));
    EXPECT_EQ(byte, 9);
    EXPECT_EQ(Setting(u"v"), "absent");
}

}  // namespace
