#include "toolkit/theme_list.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "foundation/conversion.h"
#include "foundation/textfile.h"
#include "tests/unit/registry_fixture.h"
#include "tests/unit/toolkit/theme_texts.h"

namespace {

class ThemeListTest : public RegistryTest {
protected:
    // Makes a theme file; its base is another colour than that of any built-in theme.
    void MakeTheme(std::u16string_view file, std::u16string_view name) {
        const tvstring path = m_Folder.Path(tvstring(u"Theme/") + file);
        ASSERT_TRUE(WriteTextFile(ThemeText(name), path, TEXT_UTF8));
    }

    void Load(bool clearFirst = false) { list.LoadThemes(m_Pattern, clearFirst); }

    [[nodiscard]] std::string Names() const {
        std::string names;
        for (const tvColorTheme& theme : list.m_themes)
            names.append("[").append(ToUtf8(theme.m_name).view()).append("]");
        return names;
    }

    [[nodiscard]] u32 BaseOf(const tvstring& name) const {
        const int index = list.FindTheme(name);
        return index < 0 ? kNoColor : list.m_themes[static_cast<std::size_t>(index)].m_base;
    }

    static void PreferDark() { PutWord(kPersonalizeKey, kLightTheme, 0); }

    static constexpr const char* kBuiltIn = "[Light][Dark][Blue][Green][System Default]";
    static constexpr u32 kMadeBase = 1;

    tvstring m_Pattern = m_Folder.Path(u"Theme/*.ini");
    ThemeList list;
};

using LoadThemesTest = ThemeListTest;
using FindThemeTest = ThemeListTest;
using DefaultThemeTest = ThemeListTest;
using SystemDarkTest = ThemeListTest;

// --- Built-in themes ---

struct RoleColors {
    std::u16string_view role;
    u32 light[3];
    u32 dark[3];
    u32 blue[3];
    u32 green[3];
};

constexpr RoleColors kColors[] = {
    {u"base", {240, 240, 240}, {37, 37, 37}, {0, 60, 108}, {12, 92, 12}},
    {u"border", {173, 173, 173}, {133, 133, 133}, {128, 177, 216}, {136, 190, 136}},
    {u"border_active", {0, 122, 204}, {0, 122, 204}, {53, 183, 53}, {255, 255, 255}},
    {u"button", {222, 222, 222}, {51, 51, 51}, {0, 77, 138}, {16, 124, 16}},
    {u"button_over", {209, 231, 248}, {77, 77, 77}, {0, 85, 155}, {40, 137, 40}},
    {u"button_push", {147, 197, 238}, {104, 104, 104}, {0, 117, 213}, {46, 158, 46}},
    {u"button_disable", {204, 204, 204}, {51, 51, 51}, {0, 60, 108}, {12, 92, 12}},
    {u"text", {0, 0, 0}, {218, 218, 218}, {255, 255, 255}, {255, 255, 255}},
    {u"text_gray", {128, 128, 128}, {133, 133, 133}, {128, 128, 128}, {136, 190, 136}},
    {u"edit_bg", {255, 255, 255}, {30, 30, 30}, {0, 45, 79}, {9, 66, 9}},
    {u"link", {0, 0, 204}, {0, 122, 204}, {53, 183, 53}, {255, 255, 255}},
    {u"icon", {128, 128, 128}, {218, 218, 218}, {159, 196, 225}, {186, 218, 186}},
};

TEST_F(ThemeListTest, HoldsTheBuiltInThemesInTheirOrder) {
    EXPECT_EQ(Names(), kBuiltIn);
    EXPECT_TRUE(list.m_allowSystemDefault);
}

TEST_F(ThemeListTest, KnowsTheColorsOfTheBuiltInThemes) {
    const auto expect = [this](std::size_t index, const RoleColors& colors, const u32(&rgb)[3]) {
        const u32 color = list.m_themes[index].*kThemeRoles[FindThemeRole(colors.role)].color;
        EXPECT_EQ(color, rgb[0] | rgb[1] << 8 | rgb[2] << 16) << index << ' ' << color;
    };
    for (const RoleColors& colors : kColors) {
        expect(0, colors, colors.light);
        expect(1, colors, colors.dark);
        expect(2, colors, colors.blue);
        expect(3, colors, colors.green);
        expect(4, colors, colors.light);
    }
    EXPECT_EQ(std::size(kColors), kThemeRoles.size());
}

TEST_F(ThemeListTest, EndsWithoutSystemDefaultWhereThatIsNotAllowed) {
    list.m_allowSystemDefault = false;
    list.AddBuiltInThemes();
    EXPECT_EQ(Names(), "[Light][Dark][Blue][Green]");
}

TEST_F(ThemeListTest, HoldsNothingElseOnceTheBuiltInThemesAreAdded) {
    list.m_themes.push_back({});
    list.AddBuiltInThemes();
    EXPECT_EQ(Names(), kBuiltIn);
}

TEST_F(ThemeListTest, HasItsLastEntryForSystemDefault) {
    for (const int index : {-1, 0, 1, 3, 5})
        EXPECT_FALSE(list.IsSystemDefault(index)) << index;
    EXPECT_TRUE(list.IsSystemDefault(4));
    list.m_allowSystemDefault = false;
    EXPECT_FALSE(list.IsSystemDefault(4));
    list.m_allowSystemDefault = true;
    list.m_themes.clear();
    EXPECT_FALSE(list.IsSystemDefault(-1));
}

// --- LoadThemes ---

TEST_F(LoadThemesTest, KeepsTheBuiltInThemesWithoutAFolder) {
    Load();
    EXPECT_EQ(Names(), kBuiltIn);
    Load(true);
    EXPECT_EQ(Names(), kBuiltIn);
}

TEST_F(LoadThemesTest, RestoresTheBuiltInThemesWithoutAFile) {
    MakeTheme(u"_a.ini", u"A");
    list.m_themes = {{}};
    Load();
    EXPECT_EQ(Names(), kBuiltIn);
}

TEST_F(LoadThemesTest, AddsAThemeBeforeSystemDefault) {
    MakeTheme(u"a.ini", u"A");
    Load();
    EXPECT_EQ(Names(), "[Light][Dark][Blue][Green][A][System Default]");
    EXPECT_EQ(BaseOf(u"A"), kMadeBase);
}

TEST_F(LoadThemesTest, AddsNoSecondSystemDefaultWhenItRunsAgain) {
    MakeTheme(u"a.ini", u"A");
    Load();
    Load();
    EXPECT_EQ(Names(), "[Light][Dark][Blue][Green][A][System Default]");
}

TEST_F(LoadThemesTest, ReplacesAThemeOfTheSameNameAtItsPlace) {
    MakeTheme(u"a.ini", u"Dark");
    Load();
    EXPECT_EQ(Names(), kBuiltIn);
    EXPECT_EQ(BaseOf(u"Dark"), kMadeBase);
    EXPECT_EQ(list.m_themes[1].m_base, kMadeBase);
}

TEST_F(LoadThemesTest, ReplacesAThemeOfTheSameNameInOtherLetters) {
    MakeTheme(u"a.ini", u"dARK");
    Load();
    EXPECT_EQ(Names(), "[Light][dARK][Blue][Green][System Default]");
}

TEST_F(LoadThemesTest, HoldsAThemeOfTwoFilesOnce) {
    MakeTheme(u"a.ini", u"A");
    MakeTheme(u"b.ini", u"a");
    Load();
    EXPECT_EQ(list.m_themes.size(), 6U);
    EXPECT_EQ(list.FindTheme(u"A"), 4);
}

TEST_F(LoadThemesTest, HoldsOnlyTheFilesThemesAfterClearing) {
    MakeTheme(u"a.ini", u"A");
    Load(true);
    EXPECT_EQ(Names(), "[A][System Default]");
}

TEST_F(LoadThemesTest, AddsNoSystemDefaultWhereThatIsNotAllowed) {
    MakeTheme(u"a.ini", u"A");
    list.m_allowSystemDefault = false;
    Load();
    EXPECT_EQ(Names(), "[Light][Dark][Blue][Green][A]");
}

TEST_F(LoadThemesTest, PassesOverFilesThatBeginWithALowLine) {
    MakeTheme(u"_test.ini", u"Test");
    MakeTheme(u"a_.ini", u"A");
    Load();
    EXPECT_EQ(Names(), "[Light][Dark][Blue][Green][A][System Default]");
}

TEST_F(LoadThemesTest, PassesOverFilesOfAnotherExtension) {
    MakeTheme(u"a.txt", u"A");
    MakeTheme(u"ini", u"B");
    MakeTheme(u"c.ini.bak", u"C");
    MakeTheme(u"d.INI", u"D");
    Load();
    EXPECT_EQ(Names(), "[Light][Dark][Blue][Green][D][System Default]");
}

TEST_F(LoadThemesTest, PassesOverFolders) {
    std::filesystem::create_directories(test_files::SystemPath(m_Folder.Path(u"Theme/folder.ini")));
    list.m_themes[0].m_name = u"Gone";  // there is no file, so the list is restored
    Load();
    EXPECT_EQ(Names(), kBuiltIn);
    MakeTheme(u"folder.ini/deep.ini", u"Deep");
    Load();
    EXPECT_EQ(Names(), kBuiltIn);
}

TEST_F(LoadThemesTest, PassesOverAFileThatIsNoTheme) {
    MakeTheme(u"a.ini", u"A");
    WriteBytes(m_Folder.Path(u"Theme/b.ini"), "[colortheme]\n_version = TVTHEME_1_0\n_name = B\n");
    WriteBytes(m_Folder.Path(u"Theme/c.ini"), "");
    Load();
    EXPECT_EQ(Names(), "[Light][Dark][Blue][Green][A][System Default]");
}

TEST_F(LoadThemesTest, KeepsTheListWhereNoFileIsATheme) {
    WriteTextFile(u"[x]\na=b\n", m_Folder.Path(u"Theme/a.ini"), TEXT_UTF8);
    list.m_themes[0].m_name = u"Kept";
    Load();
    EXPECT_EQ(Names(), "[Kept][Dark][Blue][Green][System Default]");
}

TEST_F(LoadThemesTest, FallsBackToTheBuiltInThemesWhereNothingIsLeft) {
    WriteTextFile(u"[x]\na=b\n", m_Folder.Path(u"Theme/a.ini"), TEXT_UTF8);
    Load(true);
    EXPECT_EQ(Names(), kBuiltIn);
    list.m_themes.clear();
    Load();
    EXPECT_EQ(Names(), kBuiltIn);
}

TEST_F(LoadThemesTest, KeepsALastEntryThatIsNotSystemDefault) {
    MakeTheme(u"a.ini", u"A");
    list.m_allowSystemDefault = false;
    list.AddBuiltInThemes();
    Load();
    list.m_allowSystemDefault = true;
    Load();
    EXPECT_EQ(Names(), "[Light][Dark][Blue][Green][A][System Default]");
}

TEST_F(LoadThemesTest, LooksIntoTheFolderOfThePatternOnly) {
    MakeTheme(u"deep/a.ini", u"A");
    WriteTextFile(ThemeText(u"B"), m_Folder.Path(u"b.ini"), TEXT_UTF8);
    Load();
    EXPECT_EQ(Names(), kBuiltIn);
}

// --- FindTheme, IndexForStored ---

TEST_F(FindThemeTest, FindsANameInAnyCase) {
    EXPECT_EQ(list.FindTheme(u"Light"), 0);
    EXPECT_EQ(list.FindTheme(u"gREEN"), 3);
    EXPECT_EQ(list.FindTheme(u"system default"), 4);
}

TEST_F(FindThemeTest, FindsNoOtherName) {
    for (const char16_t* name : {u"", u"Ligh", u"Lights", u" Light", u"Red"})
        EXPECT_EQ(list.FindTheme(name), -1);
    list.m_themes[0].m_name.clear();
    EXPECT_EQ(list.FindTheme(u""), -1);
}

TEST_F(FindThemeTest, FindsTheFirstOfAName) {
    list.m_themes[2].m_name = u"LIGHT";
    EXPECT_EQ(list.FindTheme(u"light"), 0);
}

TEST_F(DefaultThemeTest, IsTheStoredThemeWhereThereIsOne) {
    PreferDark();
    EXPECT_EQ(list.IndexForStored(u"blue"), 2);
    EXPECT_EQ(list.IndexForStored(u"Light"), 0);
    EXPECT_EQ(list.IndexForStored(u"System Default"), 4);
}

TEST_F(DefaultThemeTest, IsTheSystemsPreferenceForANameThatNamesNoTheme) {
    for (const char16_t* name : {u"", u"Red"})
        EXPECT_EQ(list.IndexForStored(name), 0);
    PreferDark();
    for (const char16_t* name : {u"", u"Red"})
        EXPECT_EQ(list.IndexForStored(name), 1);
}

TEST_F(DefaultThemeTest, IsSystemDefaultWhereThatIsAllowed) {
    PreferDark();
    EXPECT_EQ(list.DefaultIndex(), 4);
    list.m_themes.pop_back();
    EXPECT_EQ(list.DefaultIndex(), 3);
}

TEST_F(DefaultThemeTest, IsTheSystemsPreferenceWithoutSystemDefault) {
    for (const bool allowed : {false, true}) {
        list.m_allowSystemDefault = allowed;
        if (allowed) list.m_themes.clear();
        EXPECT_EQ(list.DefaultIndex(), 0);
        PreferDark();
        EXPECT_EQ(list.DefaultIndex(), 1);
        Delete(kPersonalizeKey, kLightTheme);
    }
}

// --- IsSystemDark ---

TEST_F(SystemDarkTest, IsNotWithoutTheValue) {
    EXPECT_FALSE(IsSystemDark());
    PutWord(kPersonalizeKey, u"Other", 0);
    EXPECT_FALSE(IsSystemDark());
    Delete(kPersonalizeKey, u"Other");
}

TEST_F(SystemDarkTest, IsForAZeroOnly) {
    PreferDark();
    EXPECT_TRUE(IsSystemDark());
    for (const u32 word : {1U, 2U, 0x100U, 0x80000000U}) {
        PutWord(kPersonalizeKey, kLightTheme, word);
        EXPECT_FALSE(IsSystemDark()) << word;
    }
}

TEST_F(SystemDarkTest, IsNotForAnotherSize) {
    for (const std::size_t size : {0U, 3U, 5U, 8U}) {
        Put(kPersonalizeKey, kLightTheme, platform::kRegWord, std::vector<u8>(size, 0));
        EXPECT_FALSE(IsSystemDark()) << size;
    }
}

TEST_F(SystemDarkTest, IsNotForAnotherType) {
    for (const u32 type : {0U, 1U, 3U, 5U, 11U}) {
        Put(kPersonalizeKey, kLightTheme, type, {0, 0, 0, 0});
        EXPECT_FALSE(IsSystemDark()) << type;
    }
}

TEST_F(SystemDarkTest, IsNotWhileTheKeyCannotBeOpened) {
    PreferDark();
    m_Faults.Fail(platform::FaultPoint::OpenKey, platform::kErrorAccessDenied);
    EXPECT_FALSE(IsSystemDark());
}

}  // namespace
