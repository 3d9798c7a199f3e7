// What is checked and what can be chosen in the menus when they open.
#include <algorithm>

#include "database/clipboard.h"
#include "tests/app/language_stage.h"
#include "tests/app/menu_stage.h"
#include "toolkit/theme.h"

namespace {

using ListState = CVMRAppData::ListState;

class MenuState : public CommandTest {
protected:
    MenuState() {
        m_data.BuildMenus();
        OpenClipboard(nullptr);
        EmptyClipboard();
        CloseClipboard();
    }
    ~MenuState() override { m_data.BuildMenus(); }

    std::string Enabled(const ListState& list) {
        EXPECT_TRUE(m_data.UpdateItemMenu(list));
        return EnabledOf(m_data.itemMenu);
    }

    CVMRAppData& m_data = TheAppData();
};

// --- The main menu ---

TEST_F(MenuState, ChecksTheThemeInForceAndNoOther) {
    UseTheme(u"Green");
    ASSERT_TRUE(m_data.UpdateMainMenu());
    EXPECT_EQ(CheckedIn(m_data.mainMenu, CMD_FIRST_THEME, CMD_LAST_THEME), "10114");
    UseTheme(u"Light");
    ASSERT_TRUE(m_data.UpdateMainMenu());
    EXPECT_EQ(CheckedIn(m_data.mainMenu, CMD_FIRST_THEME, CMD_LAST_THEME), "10111");
}

TEST_F(MenuState, FindsTheThemeByItsNameWhenTheListHasAnotherOrder) {
    auto& themes = TheTheme().m_themes;
    std::rotate(themes.begin(), themes.begin() + 2, themes.end());
    ASSERT_TRUE(m_data.UpdateMainMenu());
    EXPECT_EQ(CheckedIn(m_data.mainMenu, CMD_FIRST_THEME, CMD_LAST_THEME), "10114");
    std::rotate(themes.begin(), themes.end() - 2, themes.end());
    EXPECT_EQ(themes.front().m_name, u"Light");
}

using MenuStateInTwoLanguages = LanguageTest;

TEST_F(MenuStateInTwoLanguages, ChecksTheLanguageInUse) {
    tvMenu& menu = TheAppData().mainMenu;
    ASSERT_TRUE(TheAppData().UpdateMainMenu());
    EXPECT_EQ(CheckedIn(menu, CMD_FIRST_LANGUAGE, CMD_LAST_LANGUAGE), "10222");
    UseSecond();
    ASSERT_TRUE(TheAppData().UpdateMainMenu());
    EXPECT_EQ(CheckedIn(menu, CMD_FIRST_LANGUAGE, CMD_LAST_LANGUAGE), "10223");
}

TEST_F(MenuState, ChecksEachSettingByItself) {
    m_data.bHistory = 0;
    const auto checked = [&] {
        EXPECT_TRUE(m_data.UpdateMainMenu());
        return CheckedIn(m_data.mainMenu, CMD_CLEAR_CLIPBOARD, CMD_FILE_TYPE) + " " +
               CheckedIn(m_data.mainMenu, CMD_FILTER_PASSWORDS, CMD_FILTER_PASSWORDS);
    };
    EXPECT_EQ(checked(), " ");
    m_data.bAutoClearClipboard = 1;
    EXPECT_EQ(checked(), "32793 ");
    m_data.bAutoClearClipboard = 0;
    TheDatabase().bAutoSave = true;
    EXPECT_EQ(checked(), "32794 ");
    TheDatabase().bAutoSave = false;
    m_data.bHistory = 1;
    EXPECT_EQ(checked(), "32795 ");
    m_data.bHistory = 0;
    m_data.bAutoOpen = 1;
    EXPECT_EQ(checked(), "32796 ");
    m_data.bAutoOpen = 0;
    TheDatabase().bFilterPWD = true;
    EXPECT_EQ(checked(), " 32802");
}

TEST_F(MenuState, ChecksOneModeOfTheSearchAndTheFirstForAnyThatIsUnknown) {
    const auto checked = [&](u32 flag) {
        m_data.filterFlag = flag;
        EXPECT_TRUE(m_data.UpdateMainMenu());
        return CheckedIn(m_data.mainMenu, CMD_FILTER_ALL, CMD_FILTER_WITHOUT);
    };
    EXPECT_EQ(checked(1), "32799");
    EXPECT_EQ(checked(2), "32800");
    EXPECT_EQ(checked(3), "32801");
    EXPECT_EQ(checked(0), "32798");
    EXPECT_EQ(checked(3), "32801");
    EXPECT_EQ(checked(4), "32798");
    EXPECT_EQ(checked(7), "32798");
}

TEST_F(MenuState, OffersTheCommandsOfADatabaseWhileOneIsOpen) {
    constexpr u16 kCommands[] = {CMD_RENAME, CMD_SET_PASSWORD, CMD_SAVE, CMD_SAVE_AS, CMD_EXPORT, CMD_CLOSE};
    ASSERT_TRUE(m_data.UpdateMainMenu());
    for (const u16 id : kCommands)
        EXPECT_FALSE(IsEnabled(m_data.mainMenu, id)) << id;
    EXPECT_TRUE(IsEnabled(m_data.mainMenu, CMD_NEW));
    EXPECT_TRUE(IsEnabled(m_data.mainMenu, CMD_OPEN));
    TheDatabase().New(u"My passwords");
    ASSERT_TRUE(m_data.UpdateMainMenu());
    for (const u16 id : kCommands)
        EXPECT_TRUE(IsEnabled(m_data.mainMenu, id)) << id;
}

TEST_F(MenuState, OffersUndoWhileThereIsSomethingToTakeBack) {
    TheDatabase().New(u"My passwords");
    m_data.UpdateMainMenu();
    EXPECT_FALSE(IsEnabled(m_data.mainMenu, CMD_UNDO));
    TheDatabase().SetName(u"Other");
    m_data.UpdateMainMenu();
    EXPECT_TRUE(IsEnabled(m_data.mainMenu, CMD_UNDO));
    TheDatabase().m_Opened = false;
    m_data.UpdateMainMenu();
    EXPECT_FALSE(IsEnabled(m_data.mainMenu, CMD_UNDO));
}

TEST_F(MenuState, IsNoneForAMenuWithoutHandle) {
    m_data.mainMenu.Detach(tvMenu::Menu::Destroy);
    EXPECT_FALSE(m_data.UpdateMainMenu());
    m_data.itemMenu.Detach(tvMenu::Menu::Destroy);
    EXPECT_FALSE(m_data.UpdateItemMenu({3, 1, false}));
    OpenNoting();
    SendMessageW(Main().m_topDlg.Handle(), WM_COMMAND, CMD_MAIN_MENU, 0);
    EXPECT_EQ(FindWindowW(L"#32768", nullptr), nullptr) << "no popup is open";
}

// --- The menu of a list ---

TEST_F(MenuState, OfItemsWithNoneSelectedOffersAddAndSelectAll) {
    EXPECT_EQ(Enabled({3, 0, false}), "32782 32789");
}

TEST_F(MenuState, CountsNoSelectionForLessThanNone) {
    EXPECT_EQ(Enabled({3, 2, false}), "32782 2009 2007 2008 32785 32786 32789 32790 32791 32788");
    EXPECT_EQ(Enabled({3, -1, false}), "32782 32789");
    EXPECT_EQ(Enabled({0, -1, false}), "32782") << "there is nothing to select";
}

TEST_F(MenuState, OffersRenameForOneItem) {
    EXPECT_EQ(Enabled({3, 1, false}), "32782 2009 32783 2007 2008 32785 32786 32789 32790 32791");
}

TEST_F(MenuState, OffersMergeForTwoItemsExactly) {
    EXPECT_EQ(Enabled({4, 2, false}), "32782 2009 2007 2008 32785 32786 32789 32790 32791 32788");
    EXPECT_EQ(Enabled({4, 3, false}), "32782 2009 2007 2008 32785 32786 32789 32790 32791");
}

TEST_F(MenuState, OffersNoMoveAndNoSelectAllWithAllSelected) {
    EXPECT_EQ(Enabled({3, 3, false}), "32782 2009 32785 32786 32790 32791");
    EXPECT_EQ(Enabled({3, 3, true}), "32782 2009 32785 32786 32790 32791 32788");
}

TEST_F(MenuState, OffersMergeForTwoEntriesAndMore) {
    EXPECT_EQ(Enabled({3, 0, true}), "32782 32789");
    EXPECT_EQ(Enabled({3, 1, true}), "32782 2009 32783 2007 2008 32785 32786 32789 32790 32791");
    EXPECT_EQ(Enabled({3, 2, true}), "32782 2009 2007 2008 32785 32786 32789 32790 32791 32788");
    EXPECT_EQ(Enabled({4, 3, true}), "32782 2009 2007 2008 32785 32786 32789 32790 32791 32788");
    EXPECT_EQ(Enabled({3, -1, true}), "32782 32789");
}

TEST_F(MenuState, OffersPasteForWhatTheClipboardHas) {
    RegisterItemsFormat();
    RegisterEntriesFormat();
    const auto put = [](u32 format) {
        ASSERT_NE(format, 0U);
        ASSERT_TRUE(OpenClipboard(nullptr));
        EmptyClipboard();
        SetClipboardData(format, GlobalAlloc(GMEM_MOVEABLE, 1));
        CloseClipboard();
    };
    put(ItemsClipboardFormat());
    EXPECT_EQ(Enabled({3, 0, false}), "32782 32787 32789");
    EXPECT_EQ(Enabled({3, 0, true}), "32782 32789");
    put(EntriesClipboardFormat());
    EXPECT_EQ(Enabled({3, 0, false}), "32782 32789");
    EXPECT_EQ(Enabled({3, 0, true}), "32782 32787 32789");
}

TEST_F(MenuState, NamesWhatAddAndRenameDoToTheList) {
    m_data.UpdateItemMenu({3, 1, true});
    EXPECT_EQ(RowText(m_data.itemMenu, CMD_ADD), u"&Add...");
    EXPECT_EQ(RowText(m_data.itemMenu, CMD_RENAME), u"&Modify...");
    m_data.UpdateItemMenu({3, 1, false});
    EXPECT_EQ(RowText(m_data.itemMenu, CMD_ADD), u"&Add");
    EXPECT_EQ(RowText(m_data.itemMenu, CMD_RENAME), u"Rena&me...");
    m_data.UpdateItemMenu({3, 1, true});
    EXPECT_EQ(RowText(m_data.itemMenu, CMD_ADD), u"&Add...");
}

TEST_F(MenuStateInTwoLanguages, NamesAddInTheLanguageInUse) {
    UseSecond();
    TheAppData().UpdateItemMenu({3, 1, false});
    EXPECT_EQ(RowText(TheAppData().itemMenu, CMD_ADD), u"Dazu");
}

}  // namespace
