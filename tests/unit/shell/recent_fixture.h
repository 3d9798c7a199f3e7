// A recent list and the values that hold it in the store, for the tests of both.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "foundation/conversion.h"
#include "foundation/textops.h"
#include "platform/clock.h"
#include "shell/recent_list.h"
#include "tests/unit/registry_fixture.h"

class RecentListTest : public RegistryTest {
protected:
    static constexpr u64 kNow = 133'000'000'000'000'000;
    static constexpr u64 kLocalNow = kNow + 72'000'000'000;

    RecentListTest() { SetTime(kNow); }

    // The local time is not what counts.
    static void SetTime(u64 time) { platform::SetClock(time + (kLocalNow - kNow), time); }

    static tvstring ValueName(int number) { return tvstring(u"File") + FormatInt(number); }

    static void PutFile(int number, const tvstring& text) {
        PutText(kRecentKey, ValueName(number).c_str(), text);
    }
    static void PutFiles(const std::vector<const char16_t*>& texts) {
        for (std::size_t i = 0; i < texts.size(); ++i)
            PutFile(static_cast<int>(i + 1), texts[i]);
    }
    static void PutStamp(u64 stamp, u32 type = platform::kRegQuadWord) {
        std::vector<u8> bytes(sizeof stamp);
        std::memcpy(bytes.data(), &stamp, sizeof stamp);
        Put(kRecentKey, u"lastUpdated", type, bytes);
    }

    static std::string StoredFile(int number) { return Stored(kRecentKey, ValueName(number).c_str()); }
    static std::string StoredStamp() { return Stored(kRecentKey, u"lastUpdated"); }

    // The texts of File1 and so on, up to the first that is absent.
    static std::string StoredFiles() {
        std::string shown;
        const RegKey key(kRecentKey, RegKey::For::Reading);
        tvstring text;
        for (int number = 1; RegReadText(key.Get(), ValueName(number).c_str(), text); ++number)
            shown += "[" + Utf8(text) + "]";
        return shown;
    }

    static std::string Utf8(const tvstring& text) { return std::string(ToUtf8(text).view()); }

    // The entries as "[path>name]".
    [[nodiscard]] static std::string Shown(const RecentList& list) {
        std::string shown;
        for (const RecentItem& item : list.recentItems)
            shown += "[" + Utf8(item.path) + ">" + Utf8(item.name) + "]";
        return shown;
    }
    [[nodiscard]] std::string Shown() const { return Shown(list); }

    // What is loaded from one stored text.
    static std::string LoadedFrom(const tvstring& text) {
        PutFile(1, text);
        RecentList loaded;
        EXPECT_TRUE(loaded.LoadRecent());
        return Shown(loaded);
    }

    RecentList list;
};
