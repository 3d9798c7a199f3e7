// The settings store for tests: a file of their own where the store is a file. On Windows the program's keys
// are deleted before and after each test, and what the system keeps elsewhere is put back.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "foundation/product.h"
#include "foundation/registry.h"
#include "tests/unit/database/faults.h"
#include "tests/unit/database/hex.h"
#include "tests/unit/test_files.h"

class RegistryTest : public testing::Test {
protected:
    // Below the program's tree, which no test leaves behind.
    static constexpr const char16_t* kProgramTree = u"Software\\Tolvane";
    static constexpr const char16_t* kTestKey = u"Software\\Tolvane\\Test";

    static constexpr const char16_t* kPersonalizeKey =
        u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
    static constexpr const char16_t* kLightTheme = u"AppsUseLightTheme";

    RegistryTest() {
        UseOwnFile();
        platform::DeleteUserTree(kProgramTree);
        m_PersonalizeWasThere = Exists(kPersonalizeKey);
        m_LightThemeWasThere = Stored(kPersonalizeKey, kLightTheme) != "absent";
        m_LightTheme = RegReadUserValue(kPersonalizeKey, kLightTheme, &m_LightThemeType);
        if (m_LightThemeWasThere) Delete(kPersonalizeKey, kLightTheme);
    }
    ~RegistryTest() override {
        UseOwnFile();  // a test may have chosen the user's
        platform::ClearFaults();
        platform::DeleteUserTree(kProgramTree);
        if (!m_PersonalizeWasThere) {
            platform::DeleteUserTree(kPersonalizeKey);
        } else if (!m_LightThemeWasThere) {
            Delete(kPersonalizeKey, kLightTheme);
        } else {
            const RegKey key(kPersonalizeKey, RegKey::For::Writing);
            RegWriteValue(key.Get(), kLightTheme, m_LightTheme.Data(), m_LightTheme.Size(), m_LightThemeType);
        }
        platform::UseRegistryFile(u"");
    }

    static bool Exists(const char16_t* key) { return static_cast<bool>(RegKey(key, RegKey::For::Reading)); }

    // A value as "type:bytes" in hexadecimal digits, or "absent".
    static std::string Stored(const char16_t* key, const char16_t* name) {
        u32 type = 0;
        const tvdata data = RegReadUserValue(key, name, &type);
        if (platform::LastError() != platform::kErrorNone) return "absent";
        const std::string digits = data.Empty() ? "" : ToHex({data.Data(), data.Size()});
        return std::to_string(type).append(":").append(digits);
    }

    // Stores just these bytes: the system would take along a zero behind those of a string.
    static void Put(const char16_t* key, const char16_t* name, u32 type, std::vector<u8> bytes) {
        const RegKey opened(key, RegKey::For::Writing);
        const auto size = static_cast<u32>(bytes.size());
        bytes.insert(bytes.end(), {0xFF, 0xFF});
        EXPECT_TRUE(RegWriteValue(opened.Get(), name, bytes.data(), size, type));
    }

    static void PutWord(const char16_t* key, const char16_t* name, u32 word) {
        EXPECT_TRUE(RegWriteWord(RegKey(key, RegKey::For::Writing).Get(), name, word));
    }

    static void PutText(const char16_t* key, const char16_t* name, const tvstring& text) {
        EXPECT_TRUE(RegWriteText(RegKey(key, RegKey::For::Writing).Get(), name, text));
    }

    static void Delete(const char16_t* key, const char16_t* name) {
        platform::DeleteValue(RegKey(key, RegKey::For::Writing).Get(), name);
    }

    // The bytes of a string value: the text with its terminating zero.
    static std::vector<u8> TextBytes(const tvstring& text) {
        std::vector<u8> bytes((text.size() + 1) * sizeof(char16_t));
        std::memcpy(bytes.data(), text.c_str(), bytes.size());
        return bytes;
    }
    static std::string StoredText(const tvstring& text) {
        return std::string("1:").append(ToHex(TextBytes(text)));
    }

    TempFolder m_Folder;
    Faults m_Faults;

private:
    void UseOwnFile() { platform::UseRegistryFile(m_Folder.Path(u"registry").c_str()); }

    bool m_PersonalizeWasThere = false;
    bool m_LightThemeWasThere = false;
    u32 m_LightThemeType = 0;
    tvdata m_LightTheme;
};
