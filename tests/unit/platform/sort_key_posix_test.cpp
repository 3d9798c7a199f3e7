#include "platform/posix/sort_key.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using platform::PlainSortKeys;

class Collator {
public:
    explicit Collator(const char* locale) {
        UErrorCode status = U_ZERO_ERROR;
        m_Collator = ucol_open(locale, &status);
        ucol_setStrength(m_Collator, UCOL_SECONDARY);
        ucol_setAttribute(m_Collator, UCOL_NUMERIC_COLLATION, UCOL_ON, &status);
    }
    ~Collator() { ucol_close(m_Collator); }
    Collator(const Collator&) = delete;
    Collator& operator=(const Collator&) = delete;

    [[nodiscard]] const UCollator* Get() const { return m_Collator; }
    [[nodiscard]] std::string Key(const std::u16string& text) const {
        u8 key[2000];
        const std::int32_t size = ucol_getSortKey(m_Collator, text.c_str(), -1, key, sizeof key);
        return {reinterpret_cast<const char*>(key), static_cast<std::size_t>(size)};
    }

private:
    UCollator* m_Collator = nullptr;
};

std::string PlainKey(const PlainSortKeys& keys, const std::u16string& text) {
    u8 key[2000];
    return {reinterpret_cast<const char*>(key), keys.Key(text.c_str(), key, sizeof key)};
}

class PlainSortKey : public testing::TestWithParam<const char*> {};

TEST_P(PlainSortKey, IsWhatTheCollatorGives) {
    const Collator collator(GetParam());
    const PlainSortKeys keys(collator.Get());
    std::mt19937 generator(7);
    const auto random = [&generator] { return static_cast<unsigned>(generator()); };
    int plain = 0;
    for (int i = 0; i < 50'000; ++i) {
        std::u16string text;
        const std::size_t length = random() % 60;
        const unsigned range = random() % 3;
        while (text.size() < length) {
            const unsigned unit = range == 0   ? 1 + random() % 0x7F
                                  : range == 1 ? u'0' + random() % 12
                                               : 0x20 + random() % 0x5F;
            text += static_cast<char16_t>(unit);
        }
        const std::string key = PlainKey(keys, text);
        if (key.empty()) continue;
        ++plain;
        ASSERT_EQ(key, collator.Key(text)) << testing::PrintToString(text);
    }
    RecordProperty("plain", plain);
    EXPECT_GT(plain, 10'000);
}

INSTANTIATE_TEST_SUITE_P(Languages, PlainSortKey,
                         testing::Values("", "en_US", "de_DE", "fr_CA", "ja_JP", "sv_SE", "el_GR", "ru_RU",
                                         "he_IL"));

TEST(PlainSortKey, IsLeftToTheCollatorWhereLettersStandTogether) {
    const Collator collator("cs_CZ");
    const PlainSortKeys keys(collator.Get());
    EXPECT_TRUE(PlainKey(keys, u"chata").empty());
}

TEST(PlainSortKey, IsLeftToTheCollatorForOtherLettersAndLongNumbersAndTexts) {
    const Collator collator("");
    const PlainSortKeys keys(collator.Get());
    EXPECT_TRUE(PlainKey(keys, u"f\u00FCnf").empty());
    EXPECT_TRUE(PlainKey(keys, u"1000").empty());
    EXPECT_FALSE(PlainKey(keys, u"000999").empty());
    EXPECT_TRUE(PlainKey(keys, std::u16string(257, u'x')).empty());
    EXPECT_FALSE(PlainKey(keys, std::u16string(256, u'x')).empty());
}

TEST(PlainSortKey, TellsTheSizeWithoutRoom) {
    const Collator collator("");
    const PlainSortKeys keys(collator.Get());
    u8 key[4] = {9, 9, 9, 9};
    const std::size_t size = keys.Key(u"Vaultmere", key, 2);
    EXPECT_EQ(size, collator.Key(u"Vaultmere").size());
    EXPECT_EQ(key[2], 9);
}

}  // namespace
