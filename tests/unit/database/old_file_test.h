// What tests of the old format share: files as its builder makes them, and a database that they are opened
// into.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "database/database.h"
#include "database/old_format.h"
#include "platform/clock.h"
#include "platform/error.h"
#include "platform/fault.h"
#include "platform/text.h"
#include "tests/unit/database/old_file_builder.h"
#include "tests/unit/test_files.h"

namespace old_file {

inline constexpr char kPassword[] = "alt";
inline constexpr char16_t kPasswordText[] = u"alt";
inline constexpr u32 kSomeError = 1234;

inline Item Mail() {
    return {"Mail", "me", "s3cret", "https://mail.example", "a\r\n\r\nb"};
}
inline Item Shop() {
    return {"Shop", "you", "pwd", "https://shop.example", ""};
}

// Entries as "type:text" with a blank behind each, the way expectations read best.
inline std::u16string EntriesOf(const ItemElement& item) {
    std::u16string entries;
    for (const EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next) {
        entries += static_cast<char16_t>(u'0' + entry->m_Type);
        entries += u':';
        entries += entry->m_Text.view();
        entries += u' ';
    }
    return entries;
}

inline std::u16string NamesOf(const VMRD_DB& database) {
    std::u16string names;
    for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next) {
        names += item->m_Name.view();
        names += u' ';
    }
    return names;
}

class OldFile : public testing::Test {
protected:
    OldFile() : m_File(m_Folder.Path(u"old.vmr")) {}
    ~OldFile() override {
        platform::ClearFaults();
        platform::ClearClock();
        platform::UseAnsiCodePage(0);
    }

    bool Open(const Bytes& bytes, const char16_t* password = kPasswordText) {
        WriteBytes(m_File, bytes);
        platform::SetLastError(kSomeError);
        return m_Database.OpenOld(m_File, password);
    }

    void ExpectRefused(const Bytes& bytes) {
        EXPECT_FALSE(Open(bytes));
        ExpectClosed();
    }

    void ExpectClosed() {
        EXPECT_FALSE(m_Database.m_Opened);
        EXPECT_FALSE(m_Database.m_Changed);
        EXPECT_TRUE(m_Database.m_Name.empty());
        EXPECT_EQ(m_Database.m_Count, 0);
        EXPECT_EQ(platform::LastError(), kSomeError);
    }

    TempFolder m_Folder;
    tvstring m_File;
    VMRD_DB m_Database;
};

inline Bytes CheckedFile(const CheckBlock& check) {
    Bytes file = NameHead("name");
    Append(file, ItemBlock(KeyOf(kPassword), PlainCheckBlock(check)));
    return file;
}

inline CheckBlock GoodCheck() {
    CheckBlock check;
    check.keyCopy = KeyOf(kPassword);
    return check;
}

}  // namespace old_file
