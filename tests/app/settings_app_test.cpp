// The settings of looks and language: theme, language and font.
#include <cstring>
#include <functional>

#include "foundation/product.h"
#include "foundation/registry.h"
#include "shell/start.h"
#include "tests/app/app_stage.h"
#include "tests/app/keep_font.h"
#include "tests/app/other_language.h"
#include "toolkit/message_box.h"

namespace {

constexpr const char16_t* kPersonalize = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
constexpr const char16_t* kLightApps = u"AppsUseLightTheme";

void StoreText(const char16_t* name, const tvstring& text) {
    const RegKey key(kSettingsKey, RegKey::For::Writing);
    ASSERT_TRUE(RegWriteText(key.Get(), name, text));
}

// What is stored, byte by byte; empty if it is no string.
tvstring StoredUnits(const char16_t* name) {
    u32 type = 0;
    const tvdata data = RegReadUserValue(kSettingsKey, name, &type);
    if (type != kRegString) return {};
    return {reinterpret_cast<const char16_t*>(data.Data()), data.Size() / sizeof(char16_t)};
}

tvstring WithZero(tvstring text) {
    text.push_back(u'\0');
    return text;
}

// --- Theme ---

class ThemeSetting : public AppTest {
protected:
    ThemeSetting() { Prefer(kRegWord, 1); }
    ~ThemeSetting() override {
        const RegKey key(kPersonalize, RegKey::For::Writing);
        platform::DeleteValue(key.Get(), kLightApps);
        UseTheme(u"Light");
    }
    // What the system is told to prefer.
    static void Prefer(u32 type, u32 light) {
        const RegKey key(kPersonalize, RegKey::For::Writing);
        ASSERT_TRUE(RegWriteValue(key.Get(), kLightApps, &light, sizeof light, type));
    }
    static tvstring Loaded() {
        TheAppData().LoadStoreTheme(LoadStore::Load);
        return TheTheme().m_name;
    }
};

TEST_F(ThemeSetting, TakesTheStoredOne) {
    StoreText(u"Theme", u"green");
    EXPECT_EQ(Loaded(), u"Green");
}

TEST_F(ThemeSetting, FollowsTheSystemWithoutAUsableName) {
    for (const char16_t* name : {u"", u"No such theme"}) {
        StoreText(u"Theme", name);
        Prefer(kRegWord, 0);
        EXPECT_EQ(Loaded(), u"Dark");
        Prefer(kRegWord, 1);
        EXPECT_EQ(Loaded(), u"Light");
    }
}

TEST_F(ThemeSetting, CountsAPreferenceOfAnotherTypeAsNone) {
    Prefer(kRegString, 0);
    EXPECT_EQ(Loaded(), u"Light");
}

TEST_F(ThemeSetting, IsAppliedAndStoredWithItsZero) {
    const int blue = TheTheme().FindTheme(u"Blue");
    TheAppData().LoadStoreTheme(LoadStore::Store, blue);
    EXPECT_EQ(TheTheme().m_name, u"Blue");
    EXPECT_EQ(StoredUnits(u"Theme"), WithZero(u"Blue"));
}

TEST_F(ThemeSetting, IsNotStoredOutsideTheList) {
    const int count = static_cast<int>(TheTheme().m_themes.size());
    for (const int index : {-1, count}) {
        TheAppData().LoadStoreTheme(LoadStore::Store, index);
        EXPECT_EQ(TheTheme().m_name, u"Light");
        EXPECT_EQ(StoredUnits(u"Theme"), u"");
    }
}

TEST_F(ThemeSetting, MakesTheIconsAnewWhateverComesOfIt) {
    CVMRAppData& data = TheAppData();
    const std::function<void()> ways[] = {
        [&data] { data.LoadStoreTheme(LoadStore::Load); },
        [&data] { data.LoadStoreTheme(LoadStore::Store, 1); },
        [&data] { data.LoadStoreTheme(LoadStore::Store, -1); },
    };
    for (const auto& way : ways) {
        data.hIconSetPwd.Reset();
        data.hIconNeedPwd.Reset();
        way();
        EXPECT_TRUE(data.hIconSetPwd);
        EXPECT_TRUE(data.hIconNeedPwd);
    }
}

// System Default stays the last.
TEST_F(ThemeSetting, OfAFileIsAddedToTheBuiltInOnesAtTheStart) {
    const tvstring folder = ProgramPath(u"Theme");
    const tvstring path = JoinPath(folder, u"app-tests.ini");
    ASSERT_TRUE(CreateDirectories(folder));
    tvstring text = u"[colortheme]\r\n_version = TVTHEME_1_0\r\n_name = Tests\r\n";
    for (const ThemeRole& role : kThemeRoles)
        text.append(role.key).append(u" = #102030\r\n");
    WriteTextFile(path, text);
    EXPECT_TRUE(InitializeApplication());
    DeleteFileW(Wide(path.c_str()));
    RemoveDirectoryW(Wide(folder.c_str()));
    std::vector<tvstring> names;
    for (const tvColorTheme& theme : TheTheme().m_themes)
        names.push_back(theme.m_name);
    EXPECT_EQ(names,
              (std::vector<tvstring>{u"Light", u"Dark", u"Blue", u"Green", u"Tests", u"System Default"}));
    TheTheme().AddBuiltInThemes();
}

// --- Language ---

class LanguageSetting : public AppTest {
protected:
    OtherLanguage m_Other{u"[global]\r\nok = Agreed\r\n"};
};

TEST_F(LanguageSetting, TakesTheStoredOneWithTheCaptionsOfMessageBoxes) {
    StoreText(u"Lang", OtherLanguage::kFile);
    EXPECT_TRUE(TheAppData().LoadStoreLang(LoadStore::Load));
    EXPECT_EQ(Language().Current(), OtherLanguage::kFile);
    EXPECT_EQ(tvMessageBox::GetButtonText(IDOK, nullptr, false), u"Agreed");
}

TEST_F(LanguageSetting, IsEnglishWithoutAStoredOne) {
    OtherLanguage::Choose();
    platform::DeleteUserTree(kSettingsKey);
    EXPECT_TRUE(TheAppData().LoadStoreLang(LoadStore::Load));
    EXPECT_EQ(Language().Current(), u"english.ini");
    EXPECT_EQ(LangText(u"global", u"ok"), u"OK");
}

TEST_F(LanguageSetting, IsStoredWithItsZeroAndReachesTheWindow) {
    Open();
    const HMENU before = TheAppData().mainMenu.Handle();
    OtherLanguage::Choose();
    EXPECT_EQ(StoredUnits(u"Lang"), WithZero(OtherLanguage::kFile));
    EXPECT_EQ(LangText(u"global", u"ok"), u"Agreed");
    EXPECT_NE(TheAppData().mainMenu.Handle(), before);
}

TEST_F(LanguageSetting, OfAnEmptyNameChangesOnlyTheCaptions) {
    tvMessageBox::SetButtonText(IDOK, u"Changed");
    const i32 changes = Language().LoadCount();
    const HMENU menu = TheAppData().mainMenu.Handle();
    TheAppData().LoadStoreLang(LoadStore::Store, {});
    EXPECT_EQ(Language().LoadCount(), changes);
    EXPECT_EQ(StoredUnits(u"Lang"), u"");
    EXPECT_EQ(TheAppData().mainMenu.Handle(), menu);
    EXPECT_EQ(tvMessageBox::GetButtonText(IDOK, nullptr, false), u"OK");
}

// --- Font ---

LOGFONTW Read(HFONT font) {
    LOGFONTW read{};
    GetObjectW(font, sizeof read, &read);
    return read;
}

class FontSetting : public AppTest {
protected:
    FontSetting() {
        m_Chosen = m_Keep.Regular();
        m_Chosen.lfHeight = -33;
        m_Chosen.lfItalic = 1;
    }
    ~FontSetting() override { platform::DeleteUserTree(kSettingsKey); }
    void StoreBytes(u32 count) const {
        u8 bytes[sizeof m_Chosen + 1] = {};
        std::memcpy(bytes, &m_Chosen, sizeof m_Chosen);
        const RegKey key(kSettingsKey, RegKey::For::Writing);
        ASSERT_TRUE(RegWriteValue(key.Get(), u"Font", bytes, count, kRegBinary));
    }
    static LONG PasswordHeight() { return Read(TheAppData().font.Get()).lfHeight; }
    static LONG LargeHeight() { return Read(TheTheme().m_fontLarge.Get()).lfHeight; }

    KeepFont m_Keep;
    LOGFONTW m_Chosen{};
};

TEST_F(FontSetting, TakesTheStoredOneForAllFonts) {
    StoreBytes(92);
    TheAppData().LoadStoreFont(LoadStore::Load);
    EXPECT_EQ(Read(TheTheme().Font()).lfHeight, -33);
    EXPECT_EQ(Read(TheTheme().Font()).lfItalic, 1);
    EXPECT_EQ(PasswordHeight(), -42);  // 42.9
    EXPECT_EQ(LargeHeight(), -47);     // 47.85
}

TEST_F(FontSetting, IgnoresARecordOfAnotherSize) {
    constexpr float kOtherFactor = 2.0F;
    TheTheme().SetFont(m_Keep.Regular(), kOtherFactor);
    const LONG large = LargeHeight();
    const HFONT before = TheTheme().Font();
    for (const u32 size : {90U, 91U, 93U}) {
        StoreBytes(size);
        TheAppData().LoadStoreFont(LoadStore::Load);
        EXPECT_EQ(TheTheme().Font(), before) << size;
        EXPECT_EQ(LargeHeight(), large) << size;  // only a font that the user chose changes the factor
        const double expected = m_Keep.Regular().lfHeight * double{1.3F};
        EXPECT_EQ(PasswordHeight(), static_cast<LONG>(expected)) << size;
    }
}

TEST_F(FontSetting, IsTakenAndStoredAsAWhole) {
    TheAppData().LoadStoreFont(LoadStore::Store, &m_Chosen);
    EXPECT_EQ(Read(TheTheme().Font()).lfHeight, -33);
    EXPECT_EQ(PasswordHeight(), -42);
    EXPECT_EQ(LargeHeight(), -47);
    u32 type = 0;
    const tvdata data = RegReadUserValue(kSettingsKey, u"Font", &type);
    EXPECT_EQ(type, kRegBinary);
    ASSERT_EQ(data.Size(), 92U);
    EXPECT_EQ(std::memcmp(data.Data(), &m_Chosen, 92), 0);
}

}  // namespace
