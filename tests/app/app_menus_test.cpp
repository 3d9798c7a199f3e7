// The rows of the four menus and their texts.
#include "tests/app/language_stage.h"
#include "tests/app/menu_stage.h"
#include "toolkit/theme.h"

namespace {

class AppMenus : public CommandTest {
protected:
    AppMenus() { TheAppData().BuildMenus(); }
    ~AppMenus() override { TheAppData().BuildMenus(); }

    CVMRAppData& m_data = TheAppData();
};

using AppMenusInTwoLanguages = LanguageTest;

// --- Rows ---

TEST_F(AppMenus, MainMenuHasNoLanguagesWithOneLanguageOnly) {
    ASSERT_EQ(Language().Languages().size(), 1U);
    EXPECT_EQ(TreeOf(m_data.mainMenu.Handle()),
              "32804 32783 32784 - 32776 32777 32778 32779 32781 32780 - [10111 10112 10113 10114 10115] "
              "32771 [32798 32799 32800 32801 - 32802] [32793 32795 32794 32796 - 32797] - 32773 32772");
    EXPECT_EQ(m_data.mainMenu.FindOwner(CMD_FIRST_LANGUAGE), nullptr);
    EXPECT_TRUE(m_data.UpdateMainMenu());
}

TEST_F(AppMenusInTwoLanguages, MainMenuHasThemBelowTheThemes) {
    EXPECT_EQ(
        TreeOf(TheAppData().mainMenu.Handle()),
        "32804 32783 32784 - 32776 32777 32778 32779 32781 32780 - [10111 10112 10113 10114 10115] "
        "[10222 10223] 32771 [32798 32799 32800 32801 - 32802] [32793 32795 32794 32796 - 32797] - 32773 "
        "32772");
    EXPECT_EQ(RowText(TheAppData().mainMenu, 10222), u"English");
    EXPECT_EQ(RowText(TheAppData().mainMenu, 10223), u"Deutsch");
}

TEST_F(AppMenus, ItemMenu) {
    EXPECT_EQ(TreeOf(m_data.itemMenu.Handle()),
              "32782 2009 32783 - 2007 2008 - 32785 32786 32787 - 32789 32790 32791 - 32788");
}

TEST_F(AppMenus, RecentMenu) {
    EXPECT_EQ(TreeOf(m_data.recentMenu.Handle()), "32777 - 2009 32792 - 32795");
}

TEST_F(AppMenus, DetailMenu) {
    EXPECT_EQ(TreeOf(m_data.detailMenu.Handle()), "2010 2011 2012 2013");
}

// --- Texts ---

TEST_F(AppMenus, KeepMarksAndShortcuts) {
    EXPECT_EQ(RowText(m_data.mainMenu, CMD_UNDO), u"&Undo\tCtrl+Z");
    EXPECT_EQ(RowText(m_data.mainMenu, CMD_NEW), u"Create &New Database...");
    EXPECT_EQ(RowText(m_data.mainMenu, CMD_ABOUT), u"About Vaultmere");
    EXPECT_EQ(RowText(m_data.itemMenu, CMD_COPY), u"&Copy\tCtrl+C");
    EXPECT_EQ(RowText(m_data.recentMenu, CMD_OPEN), u"&Open");
    EXPECT_EQ(RowText(m_data.recentMenu, CMD_REMOVE), u"&Remove From List");
    EXPECT_EQ(RowText(m_data.recentMenu, CMD_HISTORY), u"&Disable Recent History");
    EXPECT_EQ(RowText(m_data.detailMenu, CMD_DETAIL_SHOW_PASSWORD), u"Show Password");
}

TEST_F(AppMenus, CallAThemeByItsNameWhereTheLanguageHasNone) {
    TheTheme().m_themes.push_back(TheTheme().m_themes.front());
    TheTheme().m_themes.back().m_name = u"Amber & Ash";
    m_data.BuildMenus();
    EXPECT_EQ(RowText(m_data.mainMenu, 10116), u"Amber & Ash");
    EXPECT_EQ(RowText(m_data.mainMenu, 10115), u"System Default");
    TheTheme().m_themes.pop_back();
}

TEST_F(AppMenusInTwoLanguages, AreBuiltAnewWhenTheLanguageChanges) {
    CVMRAppData& data = TheAppData();
    UseSecond();
    EXPECT_EQ(RowText(data.mainMenu, CMD_UNDO), u"Zurueck");
    EXPECT_EQ(RowText(data.itemMenu, CMD_COPY), u"Abschrift");
    EXPECT_EQ(RowText(data.recentMenu, CMD_OPEN), u"Auf");
    EXPECT_EQ(RowText(data.detailMenu, CMD_DETAIL_MODIFY), u"Anders");
    UseEnglish();
    EXPECT_EQ(RowText(data.mainMenu, CMD_UNDO), u"&Undo\tCtrl+Z");
    EXPECT_EQ(RowText(data.detailMenu, CMD_DETAIL_MODIFY), u"&Modify...");
}

}  // namespace
