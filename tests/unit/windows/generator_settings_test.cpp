// The generator's request as it is kept in the settings store.
#include <gtest/gtest.h>

#include "tests/unit/registry_fixture.h"
#include "windows/generator.h"

namespace {

using platform::FaultPoint;
using Use = std::array<u8, kPassGenClasses>;  // digits, upper case, lower case, other

PassGenRequest WithUse(Use use) {
    return {use, 12, 20};
}

// --- The bits ---

TEST(PassGenOptionBits, StandInAnOrderOfTheirOwn) {
    EXPECT_EQ(OptionBits(WithUse({0, 1, 0, 0})), 1U);
    EXPECT_EQ(OptionBits(WithUse({0, 0, 1, 0})), 2U);
    EXPECT_EQ(OptionBits(WithUse({1, 0, 0, 0})), 4U);
    EXPECT_EQ(OptionBits(WithUse({0, 0, 0, 1})), 8U);
    EXPECT_EQ(OptionBits(WithUse({1, 1, 1, 1})), 15U);
    EXPECT_EQ(OptionBits(WithUse({})), 0U);
}

TEST(PassGenOptionBits, AreTakenBack) {
    for (u32 bits = 0; bits < 16; ++bits) {
        PassGenRequest request;
        TakeOptionBits(request, bits);
        EXPECT_EQ(OptionBits(request), bits);
        for (const u8 use : request.use)
            EXPECT_LE(use, 1);
    }
    PassGenRequest request;
    TakeOptionBits(request, 1);
    EXPECT_EQ(request.use, (Use{0, 1, 0, 0}));
    TakeOptionBits(request, 4 | 8);
    EXPECT_EQ(request.use, (Use{1, 0, 0, 1}));
}

TEST(PassGenOptionBits, AreFour) {
    PassGenRequest request;
    TakeOptionBits(request, 0xFFFF'FFF0);
    EXPECT_EQ(request.use, (Use{}));
    TakeOptionBits(request, 0xFFFF'FFF5);
    EXPECT_EQ(OptionBits(request), 5U);
}

TEST(PassGenOptionBits, AreSevenUnlessToldOtherwise) {
    EXPECT_EQ(OptionBits(PassGenRequest()), 7U);
}

// --- The store ---

class PassGenOptions : public RegistryTest {
protected:
    static constexpr const char16_t* kMinLen = u"PassGenMinLen";
    static constexpr const char16_t* kMaxLen = u"PassGenMaxLen";
    static constexpr const char16_t* kOptions = u"PassGenOptions";

    static void PutLengths(u32 minLength, u32 maxLength) {
        PutWord(kSettingsKey, kMinLen, minLength);
        PutWord(kSettingsKey, kMaxLen, maxLength);
    }
    static void ExpectLoaded(i32 minLength, i32 maxLength, u32 bits) {
        const PassGenRequest request = LoadPassGenOptions();
        EXPECT_EQ(request.minLength, minLength);
        EXPECT_EQ(request.maxLength, maxLength);
        EXPECT_EQ(OptionBits(request), bits);
    }
    static void ExpectStored(const std::string& minLength, const std::string& maxLength,
                             const std::string& bits) {
        EXPECT_EQ(Stored(kSettingsKey, kMinLen), minLength);
        EXPECT_EQ(Stored(kSettingsKey, kMaxLen), maxLength);
        EXPECT_EQ(Stored(kSettingsKey, kOptions), bits);
    }
};

TEST_F(PassGenOptions, HaveDefaultsWithoutAStore) {
    ExpectLoaded(12, 20, 7);
    EXPECT_FALSE(Exists(kSettingsKey));
}

TEST_F(PassGenOptions, HaveADefaultForEachAbsentValue) {
    PutWord(kSettingsKey, kMaxLen, 50);
    ExpectLoaded(12, 50, 7);
    PutWord(kSettingsKey, kOptions, 9);
    ExpectLoaded(12, 50, 9);
    PutWord(kSettingsKey, kMinLen, 13);
    ExpectLoaded(13, 50, 9);
}

TEST_F(PassGenOptions, HaveDefaultsWhereTheStoreCannotBeRead) {
    PutLengths(5, 6);
    m_Faults.Fail(FaultPoint::OpenKey, 5);
    ExpectLoaded(12, 20, 7);
    ExpectLoaded(5, 6, 7);
}

TEST_F(PassGenOptions, HaveDefaultsForValuesOfAnotherSize) {
    Put(kSettingsKey, kMinLen, 4, {5, 0});
    Put(kSettingsKey, kMaxLen, 4, {30, 0, 0, 0, 0});
    Put(kSettingsKey, kOptions, 3, {});
    ExpectLoaded(12, 20, 7);
    Put(kSettingsKey, kMinLen, 11, {5, 0, 0, 0, 0, 0, 0, 0});
    Put(kSettingsKey, kOptions, 4, {1, 0, 0});
    ExpectLoaded(12, 20, 7);
}

TEST_F(PassGenOptions, AreTakenFromFourBytesOfAnyType) {
    Put(kSettingsKey, kMinLen, 3, {5, 0, 0, 0});
    Put(kSettingsKey, kOptions, 1, {8, 0, 0, 0});
    ExpectLoaded(5, 20, 8);
}

TEST_F(PassGenOptions, AreNormalisedWhenTheyAreLoaded) {
    PutLengths(20, 12);
    ExpectLoaded(20, 20, 7);
    PutLengths(0, 500);
    ExpectLoaded(4, 128, 7);
    PutLengths(0xFFFF'FFFF, 0x8000'0000);
    ExpectLoaded(4, 4, 7);
    PutWord(kSettingsKey, kOptions, 0xFFFF'FFF2);
    ExpectLoaded(4, 4, 2);
}

TEST_F(PassGenOptions, AreStoredAsWords) {
    PassGenRequest request = {{1, 0, 0, 1}, 5, 77};
    StorePassGenOptions(request);
    ExpectStored("4:05000000", "4:4d000000", "4:0c000000");
    ExpectLoaded(5, 77, 12);
}

TEST_F(PassGenOptions, AreNormalisedWhenTheyAreStored) {
    StorePassGenOptions({{}, 20, 12});
    ExpectStored("4:14000000", "4:14000000", "4:00000000");
    StorePassGenOptions({{}, -5, 5000});
    ExpectStored("4:04000000", "4:80000000", "4:00000000");
}

TEST_F(PassGenOptions, LoseUnknownBitsWhenTheyAreStoredAgain) {
    PutWord(kSettingsKey, kOptions, 0xFFFF'FFF3);
    StorePassGenOptions(LoadPassGenOptions());
    EXPECT_EQ(Stored(kSettingsKey, kOptions), "4:03000000");
}

TEST_F(PassGenOptions, AreNotStoredWhereTheStoreCannotBeOpened) {
    StorePassGenOptions({{1, 1, 1, 1}, 5, 6});
    m_Faults.Fail(FaultPoint::OpenKey, 5);
    StorePassGenOptions({{}, 7, 8});
    ExpectLoaded(5, 6, 15);
}

TEST_F(PassGenOptions, LeaveTheOtherSettings) {
    PutWord(kSettingsKey, u"Another", 1);
    StorePassGenOptions(PassGenRequest());
    EXPECT_EQ(Stored(kSettingsKey, u"Another"), "4:01000000");
}

}  // namespace
