// The commands that choose a theme or a language.
#include "foundation/path.h"
#include "tests/app/language_stage.h"
#include "tests/app/menu_stage.h"
#include "tests/app/text_file.h"
#include "toolkit/theme.h"

namespace {

const Notes kNothing;

// A text that is kept in the settings.
tvstring KeptText(const char16_t* name) {
    tvstring text;
    LoadStoreText(LoadStore::Load, name, text);
    return text;
}

// --- Themes ---

using ThemeCommand = CommandTest;

TEST_F(ThemeCommand, PutsTheThemeInForceAndKeepsItsName) {
    OpenNoting();
    NotesOf(CMD_FIRST_THEME + 1);
    EXPECT_EQ(TheTheme().m_name, u"Dark");
    EXPECT_EQ(KeptText(u"Theme"), u"Dark");
}

TEST_F(ThemeCommand, DoesNothingForAnIdOfTheRangeBehindTheList) {
    OpenNoting();
    for (const u16 id : {u16{CMD_FIRST_THEME + 5}, u16{CMD_LAST_THEME}}) {
        EXPECT_EQ(NotesOf(id), kNothing);
        EXPECT_EQ(TheTheme().m_name, u"Light");
        EXPECT_EQ(KeptText(u"Theme"), u"");
    }
}

TEST_F(ThemeCommand, DoesNothingOutsideOfTheRangeHoweverManyThemesThereAre) {
    constexpr std::size_t kMany = 105;
    auto& themes = TheTheme().m_themes;
    const std::vector<tvColorTheme> before = themes;
    while (themes.size() < kMany)
        themes.push_back(before[1]);
    OpenNoting();
    for (const u16 id : {u16{CMD_FIRST_THEME - 1}, u16{CMD_LAST_THEME + 1}, u16{CMD_LAST_THEME + 4}}) {
        NotesOf(id);
        EXPECT_EQ(TheTheme().m_name, u"Light") << id;
        EXPECT_EQ(KeptText(u"Theme"), u"") << id;
    }
    NotesOf(CMD_LAST_THEME);
    EXPECT_EQ(TheTheme().m_name, u"Dark");
    themes = before;
}

// --- Languages ---

using LanguageCommand = LanguageTest;

TEST_F(LanguageCommand, ChangesAndKeepsTheLanguage) {
    OpenNoting();
    NotesOf(CMD_FIRST_LANGUAGE + 1);
    EXPECT_EQ(Language().Current(), SecondFile());
    EXPECT_EQ(KeptText(u"Lang"), SecondFile());
    EXPECT_EQ(LangText(u"global", u"undo"), u"Zurueck");
    NotesOf(CMD_FIRST_LANGUAGE);
    EXPECT_EQ(Language().Current(), u"english.ini");
    EXPECT_EQ(KeptText(u"Lang"), u"english.ini");
}

TEST_F(LanguageCommand, GivesAllPanesTheirTextsAnew) {
    OpenNoting();
    const HWND button = Main().m_topDlg.m_btnSetPassword.Handle();
    EXPECT_EQ(TextOf(button), u"Set Master Password");
    EXPECT_EQ(NotesOf(CMD_FIRST_LANGUAGE + 1), Notes{"LANGUAGE"});
    EXPECT_EQ(TextOf(button), u"Kennwort");
}

TEST_F(LanguageCommand, DoesNothingForAnIdBehindTheListOrTheRange) {
    OpenNoting();
    for (const u16 id : {u16{CMD_FIRST_LANGUAGE - 1}, u16{CMD_FIRST_LANGUAGE + 2}, u16{CMD_LAST_LANGUAGE},
                         u16{CMD_LAST_LANGUAGE + 1}}) {
        EXPECT_EQ(NotesOf(id), kNothing);
        EXPECT_EQ(Language().Current(), u"english.ini");
        EXPECT_EQ(KeptText(u"Lang"), u"");
    }
}

// --- More themes than ids ---

class ManyThemes : public LanguageTest {
protected:
    static constexpr std::size_t kMany = 115;  // the ids of languages begin 111 behind the first theme's

    ManyThemes() : m_Before(TheTheme().m_themes) {
        while (TheTheme().m_themes.size() < kMany)
            TheTheme().m_themes.push_back(m_Before[1]);
        TheAppData().BuildMenus();
    }
    ~ManyThemes() override {
        TheTheme().m_themes = m_Before;
        TheAppData().BuildMenus();
    }

private:
    std::vector<tvColorTheme> m_Before;
};

TEST_F(ManyThemes, CheckTheThemeAndTheLanguageInForceAlone) {
    tvMenu& menu = TheAppData().mainMenu;
    ASSERT_TRUE(TheAppData().UpdateMainMenu());
    EXPECT_EQ(CheckedIn(menu, CMD_FIRST_THEME, CMD_FIRST_LANGUAGE - 1), "10111");
    EXPECT_EQ(CheckedIn(menu, CMD_FIRST_LANGUAGE, CMD_LAST_LANGUAGE), "10222");
    EXPECT_EQ(RowText(menu, CMD_FIRST_LANGUAGE), u"English");
    EXPECT_EQ(RowText(menu, CMD_FIRST_LANGUAGE + 1), u"Deutsch");
}

TEST_F(ManyThemes, AreNoLanguages) {
    OpenNoting();
    const tvMenu* themes = TheAppData().mainMenu.FindOwner(CMD_FIRST_THEME);
    ASSERT_NE(themes, nullptr);
    for (int i = CMD_LAST_THEME - CMD_FIRST_THEME + 1; i < themes->GetItemCount(); ++i) {
        const UINT id = GetMenuItemID(themes->Handle(), i);
        NotesOf(static_cast<u16>(id));
        EXPECT_EQ(Language().Current(), u"english.ini") << id;
        EXPECT_EQ(TheTheme().m_name, u"Light") << id;
    }
}

// The menu ends where the ids of languages begin: the themes behind are not in it.
TEST_F(ManyThemes, HaveNoRowWithAnIdOfALanguage) {
    const tvMenu* themes = TheAppData().mainMenu.FindOwner(CMD_FIRST_THEME);
    ASSERT_NE(themes, nullptr);
    ASSERT_EQ(themes->GetItemCount(), CMD_FIRST_LANGUAGE - CMD_FIRST_THEME);
    EXPECT_EQ(GetMenuItemID(themes->Handle(), themes->GetItemCount() - 1), CMD_FIRST_LANGUAGE - 1U);
    EXPECT_NE(TheAppData().mainMenu.FindOwner(CMD_FIRST_LANGUAGE), themes);
}

// --- More languages than ids ---

class ManyLanguages : public CommandTest {
protected:
    static constexpr int kMany = 104;  // with English; there are 101 ids

    ManyLanguages() {
        EXPECT_TRUE(CreateDirectories(ProgramPath(u"Lang")));
        for (int i = 1; i < kMany; ++i) {
            tvstring text = u"[.info]\r\nname=";
            text.append(Name(i)).append(u"\r\n[global]\r\nundo=Undo ").append(Name(i)).append(u"\r\n");
            WriteTextFile(File(i), text);
        }
        Language().EnumLanguages();
        TheAppData().BuildMenus();
        EXPECT_EQ(Language().Languages().size(), std::size_t{kMany});
    }
    ~ManyLanguages() override {
        Close();
        TheAppData().LoadStoreLang(LoadStore::Store, u"english.ini");
        for (int i = 1; i < kMany; ++i)
            DeleteFileW(Wide(File(i).c_str()));
        RemoveDirectoryW(Wide(ProgramPath(u"Lang").c_str()));
        Language().EnumLanguages();
        TheAppData().BuildMenus();
    }

    static tvstring Name(int index) { return Units(std::to_wstring(index).c_str()); }
    static tvstring FileOf(u16 id) {
        const std::size_t index = id - std::size_t{CMD_FIRST_LANGUAGE};
        return Language().Languages()[index].m_File;
    }

private:
    static tvstring File(int index) {
        tvstring name = u"app-tests-many-";
        return JoinPath(ProgramPath(u"Lang"), name.append(Name(index)).append(u".ini"));
    }
};

TEST_F(ManyLanguages, HaveARowEach) {
    tvMenu& menu = TheAppData().mainMenu;
    const tvMenu* languages = menu.FindOwner(CMD_FIRST_LANGUAGE);
    ASSERT_NE(languages, nullptr);
    EXPECT_EQ(languages->GetItemCount(), kMany);
    EXPECT_EQ(RowText(menu, CMD_FIRST_LANGUAGE), u"English");
    EXPECT_EQ(RowText(menu, CMD_LAST_LANGUAGE + 3), Language().Languages()[kMany - 1].m_Name);
}

TEST_F(ManyLanguages, AreChosenUpToTheLastId) {
    OpenNoting();
    NotesOf(CMD_LAST_LANGUAGE);
    EXPECT_EQ(Language().Current(), FileOf(CMD_LAST_LANGUAGE));
    EXPECT_EQ(KeptText(u"Lang"), FileOf(CMD_LAST_LANGUAGE));
}

TEST_F(ManyLanguages, BehindTheLastIdDoNothing) {
    OpenNoting();
    for (const u16 id :
         {u16{CMD_LAST_LANGUAGE + 1}, u16{CMD_LAST_LANGUAGE + 2}, u16{CMD_LAST_LANGUAGE + 3}}) {
        EXPECT_EQ(NotesOf(id), kNothing) << id;
        EXPECT_EQ(Language().Current(), u"english.ini") << id;
        EXPECT_EQ(KeptText(u"Lang"), u"") << id;
    }
}

// It may be the one of the settings.
TEST_F(ManyLanguages, BehindTheLastIdAreCheckedWhileTheyAreInForce) {
    constexpr u16 kBehind = CMD_LAST_LANGUAGE + 2;
    TheAppData().LoadStoreLang(LoadStore::Store, FileOf(kBehind));
    ASSERT_TRUE(TheAppData().UpdateMainMenu());
    EXPECT_EQ(CheckedIn(TheAppData().mainMenu, CMD_FIRST_LANGUAGE, CMD_LAST_LANGUAGE + 3),
              std::to_string(kBehind));
}

}  // namespace
