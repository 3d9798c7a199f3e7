// What a database knew is nowhere in the memory of the process once it is closed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>

#include "database/container.h"
#include "database/database.h"
#include "database/hash_md5.h"
#include "foundation/conversion.h"
#include "foundation/secret_bytes.h"
#include "foundation/textops.h"
#include "platform/crypto.h"
#include "platform/text.h"
#include "tests/unit/database/faults.h"
#include "tests/unit/database/process_memory.h"
#include "tests/unit/database/secret_hunter.h"
#include "tests/unit/test_files.h"

namespace {

using platform::FaultPoint;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr std::size_t kShort = 7;  // stays inside a tvstring
constexpr std::size_t kLong = 70;

// The present time, for the date records of the items.
constexpr u64 kDate = 0x01dc'5a3b'7e91'c2d4;

using Salt = std::array<u8, kSaltSize>;

// Which texts are used: each time other ones, so that no test finds what another has left.
enum class Round : u32 { Rehearsal, Hunt, FailureRehearsal, FailureHunt, Control };

struct Secret {
    const char* name;
    u32 number;
    std::size_t length;

    [[nodiscard]] u32 NumberIn(Round round) const { return number + 1000 * static_cast<u32>(round); }
    [[nodiscard]] tvstring TextIn(Round round) const { return SecretText(NumberIn(round), length); }
};

constexpr Secret kPassword{"password", 1, 30};
constexpr Secret kNextPassword{"next password", 2, 40};
constexpr Secret kWrongPassword{"wrong password", 3, 30};
constexpr Secret kDatabaseName{"database name", 10, kLong};
constexpr Secret kItemName{"item name", 11, kLong};
constexpr Secret kShortItemName{"short item name", 12, kShort};
constexpr Secret kOldItemName{"old item name", 13, kLong};
constexpr Secret kUserName{"user name", 14, kShort};
constexpr Secret kEntry{"entry", 15, kLong};
constexpr Secret kOldEntry{"old entry", 16, kShort};
constexpr Secret kUndoneEntry{"undone entry", 17, kLong};
constexpr Secret kAddition{"addition", 18, 3000};
constexpr Secret kShortAddition{"short addition", 19, kShort};
constexpr Secret kRemovedAddition{"removed addition", 20, kLong};

constexpr Secret kPasswords[] = {kPassword, kNextPassword, kWrongPassword};
constexpr Secret kTexts[] = {kDatabaseName, kItemName,      kShortItemName,  kOldItemName,
                             kUserName,     kEntry,         kOldEntry,       kUndoneEntry,
                             kAddition,     kShortAddition, kRemovedAddition};

// What tests/data/heap_wipe/old.vmr was made of; nothing else may know these texts.
constexpr Secret kOldFormatPassword{"old format password", 30, 30};
constexpr Secret kOldFormatTexts[] = {
    {"old format database name", 31, kLong}, {"old format item name", 32, kShort},
    {"old format user name", 33, 200},       {"old format entry", 34, kLong},
    {"old format program", 35, kLong},       {"old format addition", 36, 300},
};

struct Failure {
    enum Operation { Save, Open } of;
    FaultPoint point;
    int after;
};
constexpr Failure kFailures[] = {
    {Failure::Open, FaultPoint::ReadFile, 1},       {Failure::Open, FaultPoint::AllocateZeroed, 1},
    {Failure::Open, FaultPoint::CipherProvider, 0}, {Failure::Open, FaultPoint::Decrypt, 0},
    {Failure::Open, FaultPoint::Decrypt, 1},        {Failure::Save, FaultPoint::CipherProvider, 0},
    {Failure::Save, FaultPoint::Encrypt, 0},        {Failure::Save, FaultPoint::Encrypt, 1},
    {Failure::Save, FaultPoint::OpenFile, 0},       {Failure::Save, FaultPoint::WriteFile, 0},
};

// Calls far down the stack, so that what is left there is not overwritten by whoever looks for it.
template <typename Function>
[[gnu::noinline]] void CallDeepDown(Function function) {
    volatile u8 gap[0x10000];
    gap[0] = 1;
    function();
    gap[sizeof gap - 1] = gap[0];
}

Salt SaltOf(const std::vector<u8>& container) {
    Salt salt{};
    std::memcpy(salt.data(), container.data() + 8, salt.size());
    return salt;
}

class HeapWipeTest : public testing::Test {
protected:
    HeapWipeTest() {
        platform::UseAnsiCodePage(1252);
        platform::SetClock(kDate, kDate);
    }
    ~HeapWipeTest() override { platform::UseAnsiCodePage(0); }

    [[nodiscard]] tvstring Text(const Secret& secret) const { return secret.TextIn(m_Round); }

    // A new database with every secret text in it, some of them in its history alone. Saved.
    void Make(VMRD_DB& database) const {
        database.MakeCurrent();
        database.New(Text(kDatabaseName));
        database.SetPath(m_Path);
        database.SetMasterPassword(Text(kPassword));
        ItemElement* item = database.m_Head;
        database.ModifyItem(item, Text(kOldItemName), &database);
        database.ModifyItem(item, Text(kItemName), &database);
        database.ModifyItem(database.AddNewItem(&database), Text(kShortItemName), &database);
        database.ModifyEntry(item->m_Head, Text(kUserName), item);
        database.ModifyEntry(item->m_Tail, Text(kOldEntry), item);
        database.ModifyEntry(item->m_Tail, Text(kEntry), item);
        database.ModifyEntry(item->m_Tail, Text(kUndoneEntry), item);
        database.Undo(nullptr, nullptr);
        database.AddNewEntry(Text(kAddition), item);
        database.AddNewEntry(Text(kShortAddition), item);
        ElementArray removed{database.AddNewEntry(Text(kRemovedAddition), item)};
        for (EntryElement* entry = item->m_Head; entry != nullptr; entry = entry->m_Next)
            ElementDisplay(entry);
        database.RemoveEntries(removed, item);
        ElementDisplay(item);
        database.DisplayName();
        ASSERT_TRUE(database.Save());
    }

    void Merge(VMRD_DB& database) const {
        ItemElement* item = database.m_Head;
        ElementArray entries{item->m_Tail->m_Prev, item->m_Tail};
        ASSERT_NE(database.MergeEntries(entries, u"", item), nullptr);
        ElementArray items{database.m_Tail, item};
        ASSERT_NE(database.MergeItems(items), nullptr);
        database.Undo(nullptr, nullptr);
    }

    void Export(VMRD_DB& database) const {
        for (const bool html : {false, true}) {
            EXPECT_FALSE(database.BuildExport(html).empty());
            EXPECT_TRUE(database.Export(m_Folder.Path(u"export.txt"), html));
        }
        std::filesystem::remove(test_files::SystemPath(m_Folder.Path(u"export.txt")));
    }

    // Another container in memory, read by another database.
    void Carry(const VMRD_DB& database) {
        const tvdata container = database.Serialize();
        m_Salts.push_back(SaltOf({container.Data(), container.Data() + container.Size()}));
        VMRD_DB carrier;
        std::memcpy(carrier.m_PwdHash, database.m_PwdHash, sizeof carrier.m_PwdHash);
        EXPECT_TRUE(carrier.Deserialize(container.Data(), container.Size()));
    }

    void CloseAndRememberSalt(VMRD_DB& database) {
        database.Close();
        m_Salts.push_back(SaltOf(ReadBytes(m_Path)));
    }

    // A save or an opening that fails, and nothing after it that would use the memory again.
    void Fail(VMRD_DB& database, const Failure& failure) const {
        Faults faults;
        if (failure.of == Failure::Save) {
            ASSERT_TRUE(database.Open(m_Path, Text(kPassword)));
        }
        faults.Fail(failure.point, 5, failure.after);
        EXPECT_FALSE(failure.of == Failure::Save ? database.Save() : database.Open(m_Path, Text(kPassword)));
        database.Close();
    }

    // One block of the cipher text damaged, another one each time: what stands behind it is decrypted well.
    void OpenDamaged(VMRD_DB& database) const {
        const tvstring path = m_Folder.Path(u"damaged.vmr");
        database.Close();
        const std::vector<u8> good = ReadBytes(m_Path);
        for (std::size_t place = kHeaderSize; place < good.size(); place += 16 * 17) {
            std::vector<u8> bytes = good;
            bytes[place] ^= 0x10;
            database.Close();
            WriteBytes(path, bytes);
            database.Open(path, Text(kPassword));
        }
    }

    void OpenOldFormat(VMRD_DB& database) const {
        if (m_Round == Round::Rehearsal) {
            EXPECT_TRUE(database.Open(DataPath(u"database/old-long.vmr"), u"alt"));
            return;
        }
        const tvstring path = DataPath(u"heap_wipe/old.vmr");
        EXPECT_FALSE(database.Open(path, Text(kWrongPassword)));
        ASSERT_TRUE(database.Open(path, SecretText(kOldFormatPassword.number, kOldFormatPassword.length)));
        EXPECT_EQ(database.m_Count, 1);
        EXPECT_TRUE(database.m_Name == SecretText(31, kLong));
        EXPECT_TRUE(database.m_Head->m_Tail->m_Text == SecretText(36, 300));
    }

    void OpenWithOtherPasswords(VMRD_DB& database) const {
        EXPECT_FALSE(database.Open(m_Path, Text(kWrongPassword)));
        ASSERT_TRUE(database.Open(m_Path, Text(kPassword)));
        ASSERT_TRUE(database.SetMasterPassword(Text(kNextPassword)));
        ASSERT_TRUE(database.Save());
        database.Undo(nullptr, nullptr);
        ASSERT_TRUE(database.Save());
    }

    // The parts of what a database goes through; each begins with it closed.
    static constexpr std::size_t kParts = 5;
    void Work(std::size_t part) {
        VMRD_DB database;
        database.MakeCurrent();
        if (part == 0) {
            Make(database);
            Merge(database);
        } else if (part == 1) {
            ASSERT_TRUE(database.Open(m_Path, Text(kPassword)));
            Export(database);
            Carry(database);
        } else if (part == 2) {
            OpenWithOtherPasswords(database);
        } else if (part == 3) {
            OpenDamaged(database);
        } else {
            OpenOldFormat(database);
        }
        CloseAndRememberSalt(database);
    }

    SecretHunter Hunter() const {
        SecretHunter hunter;
        for (const Secret& text : kTexts)
            hunter.AddText(text.name, text.NumberIn(m_Round), text.length);
        for (const Secret& password : kPasswords) {
            hunter.AddText(password.name, password.NumberIn(m_Round), password.length);
            hunter.AddNarrowText(std::string(password.name) + " in UTF-8", password.NumberIn(m_Round),
                                 password.length);
            SecretBytes<kKeySize> hash;
            HashPassword(Text(password), hash.Data());
            hunter.AddBytes(std::string("hash of ") + password.name, hash.Data(), kKeySize);
            if (!CipherWipesItsKeys()) continue;
            for (const Salt& salt : m_Salts) {
                SecretBytes<kKeySize> key;
                DeriveKey(hash.Data(), salt.data(), key.Data());
                hunter.AddBytes(std::string("key of ") + password.name, key.Data(), kKeySize);
            }
        }
        const tvstring date = FormatU64(kDate, U64Format::Hex);
        hunter.AddBytes("date record", reinterpret_cast<const u8*>(date.data()),
                        date.size() * sizeof(char16_t));
        if (m_Round == Round::Hunt) AddOldFormat(hunter);
        return hunter;
    }

    static void AddOldFormat(SecretHunter& hunter) {
        for (const Secret& text : kOldFormatTexts) {
            hunter.AddText(text.name, text.number, text.length);
            hunter.AddNarrowText(text.name, text.number, text.length);
        }
        hunter.AddText(kOldFormatPassword.name, kOldFormatPassword.number, kOldFormatPassword.length);
        hunter.AddNarrowText(kOldFormatPassword.name, kOldFormatPassword.number, kOldFormatPassword.length);
        const tvstringA password = ToAnsi(SecretText(kOldFormatPassword.number, kOldFormatPassword.length));
        SecretBytes<HashMD5::kDigestSize> key;
        HashMD5 hash;
        hash.Update(password.data(), password.size());
        hash.Final(key.Data());
        hunter.AddBytes("key of the old format", key.Data(), HashMD5::kDigestSize);
    }

    Faults m_Clock;
    TempFolder m_Folder;
    tvstring m_Path = m_Folder.Path(u"a.vmr");
    std::vector<Salt> m_Salts;
    Round m_Round = Round::Rehearsal;
};

// The first time that a library's function is called, the dynamic linker puts all vector registers on the
// stack, and whatever text was moved last is still in them. No program can keep that from happening within
// libraries that are not its own, so all is done once with other texts before it counts.
TEST_F(HeapWipeTest, NothingIsLeftOfAClosedDatabase) {
    for (const Round round : {Round::Rehearsal, Round::Hunt}) {
        m_Round = round;
        for (std::size_t part = 0; part < kParts; ++part) {
            std::vector<std::string> found;
            CallDeepDown([this, part] { Work(part); });
            CallDeepDown([this, &found] { found = Hunter().Find(); });
            if (round == Round::Rehearsal) continue;
            EXPECT_THAT(found, IsEmpty()) << "after part " << part;
        }
    }
}

TEST_F(HeapWipeTest, NothingIsLeftOfAFailure) {
    for (const Round round : {Round::FailureRehearsal, Round::FailureHunt}) {
        m_Round = round;
        CallDeepDown([this] { Work(0); });
        std::optional<SecretHunter> hunter;
        CallDeepDown([this, &hunter] { hunter = Hunter(); });
        for (const Failure& failure : kFailures) {
            CallDeepDown([this, &failure] {
                VMRD_DB database;
                Fail(database, failure);
            });
            const std::vector<std::string> found = hunter->Find();
            if (round == Round::FailureRehearsal) continue;
            EXPECT_THAT(found, IsEmpty()) << "after failure " << &failure - kFailures;
        }
    }
}

TEST_F(HeapWipeTest, WhatAnOpenDatabaseKnowsIsFound) {
    VMRD_DB database;
    m_Round = Round::Control;
    CallDeepDown([&] {
        Make(database);
        Carry(database);
    });
    const std::vector<std::string> found = Hunter().Find();
    for (const Secret& text : kTexts) {
        if (text.number == kUndoneEntry.number) continue;
        EXPECT_THAT(found, Contains(text.name));
    }
    EXPECT_THAT(found, Contains("hash of password"));
    EXPECT_THAT(found, Not(Contains(kUndoneEntry.name)));
    EXPECT_THAT(found, Not(Contains(kPassword.name)));
    EXPECT_THAT(found, Not(Contains("password in UTF-8")));
    EXPECT_THAT(found, Not(Contains("key of password")));
}

// Many key objects at a time: the first ones that are freed are soon used again.
TEST(HeapWipe, TheCipherLeavesNoKey) {
    SecretHunter hunter;
    CallDeepDown([&] {
        SecretBytes<kKeySize> bytes;
        for (u32 i = 0; i < kKeySize; ++i)
            bytes.Data()[i] = static_cast<u8>(i * i * 3 + 41);
        hunter.AddBytes("key", bytes.Data(), kKeySize);
        std::vector<platform::AesKey> keys(50);
        for (platform::AesKey& key : keys) {
            u8 block[16] = {};
            std::size_t done = 0;
            key = platform::MakeAesKey(bytes.Data());
            EXPECT_TRUE(platform::AesEncrypt(key, block, 15, block, sizeof block, done));
        }
        for (platform::AesKey key : keys)
            platform::DestroyAesKey(key);
    });
    EXPECT_EQ(hunter.Find().empty(), CipherWipesItsKeys());
}

TEST(HeapWipe, TheHashLeavesNoDigest) {
    SecretHunter hunter;
    CallDeepDown([&] {
        SecretBytes<kKeySize> digest;
        HashPassword(SecretText(102, 40), digest.Data());
        hunter.AddBytes("digest", digest.Data(), kKeySize);
    });
    hunter.AddText("text", 102, 40);
    hunter.AddNarrowText("bytes", 102, 40);
    EXPECT_THAT(hunter.Find(), IsEmpty());
}

TEST(HeapWipe, ConversionsLeaveNoText) {
    platform::UseAnsiCodePage(1252);
    for (const u32 number : {103, 104}) {  // see NothingIsLeftOfAClosedDatabase
        CallDeepDown([&] {
            const tvstring text = SecretText(number, 900);
            const tvstringA ansi = ToAnsi(text);
            const tvstring back(ansi.data(), ansi.size());
            const tvstringA utf8 = ToUtf8(text);
            EXPECT_TRUE(back == text);
            EXPECT_TRUE(FromUtf8(utf8) == text);
        });
    }
    SecretHunter hunter;
    hunter.AddText("text", 104, 900);
    hunter.AddNarrowText("bytes", 104, 900);
    EXPECT_THAT(hunter.Find(), IsEmpty());
    platform::UseAnsiCodePage(0);
}

TEST(SecretHunter, FindsATextUntilItIsWiped) {
    SecretHunter hunter;
    hunter.AddText("text", 100, 40);
    hunter.AddNarrowText("bytes", 100, 40);
    EXPECT_THAT(hunter.Find(), IsEmpty());
    auto text = std::make_unique<tvstring>(SecretText(100, 40));
    EXPECT_THAT(hunter.Find(), ElementsAre("text"));
    text.reset();
    EXPECT_THAT(hunter.Find(), IsEmpty());
}

TEST(SecretHunter, FindsWhatWasFreedWithoutBeingWiped) {
    SecretHunter hunter;
    hunter.AddText("text", 101, 3000);
    {
        const tvstring text = SecretText(101, 3000);
        void* block = platform::AllocateZeroed(6000);
        std::memcpy(block, text.data(), 6000);
        platform::FreeUnwiped(block, 6000);
    }
    EXPECT_THAT(hunter.Find(), ElementsAre("text"));
}

TEST(SecretHunter, FindsBytesOnTheStack) {
    SecretHunter hunter;
    volatile u8 bytes[32];
    for (std::size_t i = 0; i < sizeof bytes; ++i)
        bytes[i] = static_cast<u8>(i * i + 77);
    {
        u8 masked[32];
        for (std::size_t i = 0; i < sizeof bytes; ++i)
            masked[i] = bytes[i];
        hunter.AddBytes("bytes", masked, sizeof masked);
        platform::WipeMemory(masked, sizeof masked);
    }
    EXPECT_THAT(hunter.Find(), ElementsAre("bytes"));
    for (volatile u8& byte : bytes)
        byte = 0;
    EXPECT_THAT(hunter.Find(), IsEmpty());
}

}  // namespace
