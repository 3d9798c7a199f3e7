// Files of the old format that other programs made, in tests/data/database; cases.json tells what is in each.
#include <gtest/gtest.h>

#include "database/database.h"
#include "platform/error.h"
#include "platform/text.h"
#include "tests/unit/test_files.h"

namespace {

class OldVectors : public testing::Test {
protected:
    OldVectors() { platform::UseAnsiCodePage(1252); }
    ~OldVectors() override { platform::UseAnsiCodePage(0); }

    bool Open(const char16_t* file, const char16_t* password = u"alt") {
        return m_Database.Open(DataPath(tvstring(u"database/") + file), password);
    }

    // The texts of all items, each behind its type, which is 2 for an item's name.
    [[nodiscard]] std::vector<std::u16string> Texts() const {
        std::vector<std::u16string> texts;
        for (const ItemElement* item = m_Database.m_Head; item != nullptr; item = item->m_Next) {
            texts.push_back(u"2:" + std::u16string(item->m_Name.view()));
            for (const EntryElement* entry = item->m_Head; entry != nullptr; entry = entry->m_Next) {
                const auto digit = static_cast<char16_t>(u'0' + entry->m_Type);
                texts.push_back(std::u16string(1, digit) + u":" + std::u16string(entry->m_Text.view()));
            }
        }
        return texts;
    }

    VMRD_DB m_Database;
};

using Texts = std::vector<std::u16string>;

Texts Mail() {
    return {u"2:Mail", u"3:https://mail.example", u"4:me", u"5:s3cret", u"6:a", u"6:b"};
}
Texts Nameless() {
    return {u"2:Unknown", u"3:", u"4:", u"5:"};
}
Texts Size() {
    return {u"2:Gr\u00f6\u00dfe", u"3:C:\\Programme\\x.exe", u"4:m\u00fcller", u"5:\u00df\u20ac",
            u"6:one line"};
}

Texts Joined(std::initializer_list<Texts> parts) {
    Texts all;
    for (const Texts& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

Texts LongestItem() {
    return {u"2:" + std::u16string(598, u'n'), u"3:" + std::u16string(598, u'q'),
            u"4:" + std::u16string(598, u'u'), u"5:" + std::u16string(598, u'p'),
            u"6:" + std::u16string(598, u'r')};
}

TEST_F(OldVectors, LongFormIsRead) {
    ASSERT_TRUE(Open(u"old-long.vmr"));
    EXPECT_EQ(m_Database.m_Name, u"Alt public");
    EXPECT_EQ(Texts(), Joined({Mail(), Nameless(), Size(), LongestItem()}));
}

TEST_F(OldVectors, ShortFormIsRead) {
    ASSERT_TRUE(Open(u"old-short.vmr"));
    EXPECT_EQ(m_Database.m_Name, u"Alt public");
    EXPECT_EQ(Texts(), Joined({Mail(), Nameless(), Size(), LongestItem()}));
}

TEST_F(OldVectors, BadItemIsDropped) {
    ASSERT_TRUE(Open(u"old-bad-item.vmr"));
    EXPECT_EQ(m_Database.m_Name, u"skip");
    EXPECT_EQ(Texts(), Joined({Mail(), Size()}));
}

TEST_F(OldVectors, MissingBlocksAreSkipped) {
    ASSERT_TRUE(Open(u"old-missing-blocks.vmr"));
    EXPECT_EQ(m_Database.m_Name, u"Unknown");
    EXPECT_EQ(Texts(), Joined({Mail(), Nameless()}));
}

TEST_F(OldVectors, LongestNameIsRead) {
    ASSERT_TRUE(Open(u"old-name-598.vmr"));
    EXPECT_EQ(m_Database.m_Name, tvstring(598, u'B'));
    EXPECT_EQ(Texts(), Mail());
}

TEST_F(OldVectors, BadFilesAreRefused) {
    for (const char16_t* file : {u"old-name-599.vmr", u"old-block-16.vmr", u"old-block-20.vmr",
                                 u"old-block-36.vmr", u"old-block-48.vmr"}) {
        EXPECT_FALSE(Open(file));
        EXPECT_FALSE(m_Database.m_Opened);
        EXPECT_EQ(platform::LastError(), 0U);
    }
}

TEST_F(OldVectors, WrongPasswordIsRefused) {
    EXPECT_FALSE(Open(u"old-wrong-password.vmr", u"neu"));
    EXPECT_FALSE(m_Database.m_Opened);
    EXPECT_EQ(platform::LastError(), 0U);
    EXPECT_TRUE(Open(u"old-wrong-password.vmr", u"alt"));
}

}  // namespace
