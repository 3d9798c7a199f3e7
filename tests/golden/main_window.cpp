// The main window: its start page, and its panes in the states that show something of their own.
#include "tests/golden/picture_stage.h"
#include "windows/command_ids.h"

namespace {

void AddRecent() {
    TheAppData().AddRecent(u"D:\\Archive\\A folder with a long name\\and another one in it\\old.vmr", u"");
    TheAppData().AddRecent(u"C:\\Users\\Somebody\\Documents\\work.vmr", u"Work & more");
    TheAppData().AddRecent(u"C:\\Users\\Somebody\\Documents\\private.vmr", u"Private");
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Themes, WindowPictures,
                         testing::Values(u"Light", u"Dark", u"Blue", u"Green", u"System Default"),
                         [](const testing::TestParamInfo<const char16_t*>& theme) {
                             std::string name;
                             for (const char16_t unit : tvstring(theme.param))
                                 if (unit != u' ') name += static_cast<char>(unit);
                             return name;
                         });

// --- The start page ---

TEST_P(WindowPictures, StartPageAtFirst) {
    OpenMain();
    Take(Window(), "start-page-first");
}

TEST_P(WindowPictures, StartPage) {
    AddRecent();
    OpenMain();
    Take(Window(), "start-page");
}

// --- A database ---

TEST_P(WindowPictures, Database) {
    OpenDatabase();
    Take(Window(), "database");
}

// The button to save appears.
TEST_P(WindowPictures, ChangedDatabaseWithAMessage) {
    OpenDatabase();
    Main().m_leftDlg.m_list.AddNew();
    TheAppData().bShowPassword = 1;
    SelectItems({0});
    const tvstring text = u"The changes could not be saved.";
    Main().OnAppNotify(APPN_STATUS, STATUS_ERROR, AsArgument(text.c_str()), 0);
    Take(Window(), "database-changed");
}

TEST_P(WindowPictures, NothingMatches) {
    OpenDatabase();
    SetWindowTextW(Main().m_leftDlg.m_filterEdit.Handle(), L"nothing of the kind");
    EXPECT_TRUE(PumpUntil([this] { return Main().m_rightDlg.m_Item == nullptr; }));
    Take(Window(), "database-no-match");
}

TEST_P(WindowPictures, ButtonsBesideAField) {
    OpenDatabase();
    CVMRRightDlg& pane = Main().m_rightDlg;
    const RECT field = pane.m_fields[VMRD_T_PASSWORD].m_textRect;
    MoveMouse(pane.Handle(), static_cast<int>(field.left) + 4, static_cast<int>(field.top) + 4);
    EXPECT_TRUE(PumpUntil([&pane] { return IsWindowVisible(pane.m_copyHover.Handle()) != FALSE; }));
    Take(Window(), "database-field-buttons");
}
