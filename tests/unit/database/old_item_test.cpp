// The body of an item of the old format by itself, and what objects of that format leave in memory.
#include <gtest/gtest.h>

#include <algorithm>

#include "database/old_format.h"
#include "foundation/path.h"
#include "tests/unit/database/old_file_builder.h"
#include "tests/unit/test_files.h"

using namespace old_file;

namespace {

constexpr char kPassword[] = "alt";
constexpr char16_t kPasswordText[] = u"alt";

Item Mail() {
    return {"Mail", "me", "s3cret", "https://mail.example", "a\r\n\r\nb"};
}

TEST(ParseOldItem, TakesTheExtraFieldOfTheLongForm) {
    const Bytes body = LongBody(Mail());
    VMRD_OldItem item;
    ASSERT_TRUE(ParseOldItem(body.data(), body.size(), item));
    for (u32 i = 0; i < 6; ++i)
        EXPECT_EQ(item.m_Extra[i], i + 1);
    EXPECT_STREQ(item.m_Texts[OLD_NAME], "Mail");
    EXPECT_STREQ(item.m_Texts[OLD_USERNAME], "me");
    EXPECT_STREQ(item.m_Texts[OLD_PASSWORD], "s3cret");
    EXPECT_STREQ(item.m_Texts[OLD_PROGRAM], "https://mail.example");
    EXPECT_STREQ(item.m_Texts[OLD_ADDITION], "a\r\n\r\nb");
}

TEST(ParseOldItem, LeavesTheExtraFieldThatIsNotThere) {
    Bytes body = LongBody(Mail());
    body.pop_back();
    VMRD_OldItem item;
    EXPECT_TRUE(ParseOldItem(body.data(), body.size(), item));
    EXPECT_EQ(item.m_Extra[0], 0U);
}

TEST(ParseOldItem, AcceptsAnotherExtraLengthThatSumsUp) {
    Bytes body = LongBody(Mail());
    PutWord(body, 6, 999);
    PutWord(body, 0, WordAt(body, 0) - 24 + 999);
    VMRD_OldItem item;
    EXPECT_TRUE(ParseOldItem(body.data(), body.size(), item));
    EXPECT_EQ(item.m_Extra[0], 0U);
    EXPECT_STREQ(item.m_Texts[OLD_NAME], "Mail");
}

TEST(ParseOldItem, TestsTheStartOfAShortFormsNameForAnExtraField) {
    Bytes body = ShortBody({std::string("\x18\0\0\0", 4), "", "", "", ""});
    for (u32 value = 1; value <= 6; ++value)
        AppendWord(body, value);
    VMRD_OldItem item;
    ASSERT_TRUE(ParseOldItem(body.data(), body.size(), item));
    EXPECT_EQ(item.m_Extra[5], 6U);
    EXPECT_STREQ(item.m_Texts[OLD_NAME], "\x18");
}

TEST(ParseOldItem, PrefersTheLongFormWhereBothSumUp) {
    Bytes body = ShortBody({std::string("\0\0\0\0abcd", 8), "", "", "", ""});
    VMRD_OldItem item;
    AppendText(body, "efgh");
    ASSERT_TRUE(ParseOldItem(body.data(), body.size(), item));
    EXPECT_STREQ(item.m_Texts[OLD_NAME], "abcdefgh");
}

TEST(ParseOldItem, AcceptsTextsThatEndWithTheBody) {
    const Bytes body = ShortBody({"nnnnnnnn", "", "", "", ""});
    VMRD_OldItem item;
    ASSERT_EQ(body.size(), 32U);
    EXPECT_TRUE(ParseOldItem(body.data(), body.size(), item));
    EXPECT_STREQ(item.m_Texts[OLD_NAME], "nnnnnnnn");
    EXPECT_FALSE(ParseOldItem(body.data(), body.size() - 1, item));
}

TEST(ParseOldItem, RefusesLengthsThatOnlySumUpWrappedAround) {
    Bytes body(32, 0);
    PutWord(body, 1, 0x80000000);
    PutWord(body, 2, 0x80000000);
    VMRD_OldItem item;
    EXPECT_FALSE(ParseOldItem(body.data(), body.size(), item));
}

TEST(ParseOldItem, RefusesABodyWithoutAllItsWords) {
    const Bytes body(32, 0);
    VMRD_OldItem item;
    for (std::size_t size = 0; size < 28; ++size)
        EXPECT_FALSE(ParseOldItem(body.data(), size, item)) << size;
    EXPECT_TRUE(ParseOldItem(body.data(), 28, item));
}

TEST(ParseOldItem, LeavesTheItemAsItWasWhenItFails) {
    Bytes body = LongBody(Mail());
    body.resize(48);
    VMRD_OldItem item;
    EXPECT_FALSE(ParseOldItem(body.data(), body.size(), item));
    for (const auto& text : item.m_Texts)
        EXPECT_STREQ(text, "");
}

// Wiping.

template <typename Object>
bool Holds(const Object* place, std::string_view bytes) {
    const auto* first = reinterpret_cast<const char*>(place);
    return std::search(first, first + sizeof(Object), bytes.begin(), bytes.end()) != first + sizeof(Object);
}

TEST(OldRecords, ItemLeavesNoTextBehind) {
    const Bytes body = LongBody(Mail());
    alignas(VMRD_OldItem) u8 place[sizeof(VMRD_OldItem)];
    auto* item = new (place) VMRD_OldItem;
    ASSERT_TRUE(ParseOldItem(body.data(), body.size(), *item));
    const auto* bytes = reinterpret_cast<const VMRD_OldItem*>(place);
    ASSERT_TRUE(Holds(bytes, "s3cret"));
    item->~VMRD_OldItem();
    for (const char* text : {"Mail", "me", "s3cret", "https", "a\r\n"})
        EXPECT_FALSE(Holds(bytes, text));
}

TEST(OldRecords, DatabaseLeavesNeitherKeyNorNameBehind) {
    const Bytes file = File("Private", kPassword, {LongBody(Mail())});
    const TempFolder folder;
    WriteBytes(folder.Path(u"old.vmr"), file);
    tvstream stream;
    ASSERT_TRUE(stream.OpenFile(OpenFileHandle(folder.Path(u"old.vmr"), false)));

    alignas(VMRD_OldDB) u8 place[sizeof(VMRD_OldDB)];
    auto* database = new (place) VMRD_OldDB;
    ASSERT_TRUE(ReadOldDatabase(stream, kPasswordText, *database));
    const Key key = KeyOf(kPassword);
    const std::string_view keyBytes(reinterpret_cast<const char*>(key.data()), key.size());
    const auto* bytes = reinterpret_cast<const VMRD_OldDB*>(place);
    ASSERT_TRUE(Holds(bytes, keyBytes));
    ASSERT_TRUE(Holds(bytes, "Private"));
    database->~VMRD_OldDB();
    EXPECT_FALSE(Holds(bytes, keyBytes));
    EXPECT_FALSE(Holds(bytes, "Private"));
}

}  // namespace
