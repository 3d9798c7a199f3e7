// The commands that change settings: what they keep, and what they tell.
#include <optional>

#include "tests/app/command_stage.h"
#include "toolkit/theme.h"

namespace {

const Notes kNothing;

// A number that is kept in the settings, if there is one.
std::optional<u32> Kept(const char16_t* name) {
    u32 word = 0;
    if (!LoadStoreInt(LoadStore::Load, name, word)) return std::nullopt;
    return word;
}

using SettingCommand = CommandTest;

TEST_F(SettingCommand, TogglesClearingTheClipboard) {
    OpenNoting();
    EXPECT_EQ(NotesOf(CMD_CLEAR_CLIPBOARD), kNothing);
    EXPECT_EQ(TheAppData().bAutoClearClipboard, 1);
    EXPECT_EQ(Kept(u"bAutoClearClipboard"), 1U);
    NotesOf(CMD_CLEAR_CLIPBOARD);
    EXPECT_EQ(TheAppData().bAutoClearClipboard, 0);
    EXPECT_EQ(Kept(u"bAutoClearClipboard"), 0U);
}

TEST_F(SettingCommand, TogglesAutoSaveAndTellsTheStatusBar) {
    OpenNoting();
    EXPECT_EQ(NotesOf(CMD_AUTO_SAVE), Notes{"STATUS repaint"});
    EXPECT_TRUE(TheDatabase().bAutoSave);
    EXPECT_EQ(Kept(u"bAutoSave"), 1U);
    EXPECT_EQ(NotesOf(CMD_AUTO_SAVE), Notes{"STATUS repaint"});
    EXPECT_FALSE(TheDatabase().bAutoSave);
    EXPECT_EQ(Kept(u"bAutoSave"), 0U);
}

TEST_F(SettingCommand, TogglesAutoOpen) {
    OpenNoting();
    EXPECT_EQ(NotesOf(CMD_AUTO_OPEN), kNothing);
    EXPECT_EQ(TheAppData().bAutoOpen, 1);
    EXPECT_EQ(Kept(u"bAutoOpen"), 1U);
    NotesOf(CMD_AUTO_OPEN);
    EXPECT_EQ(TheAppData().bAutoOpen, 0);
    EXPECT_EQ(Kept(u"bAutoOpen"), 0U);
}

TEST_F(SettingCommand, TogglesSearchingInPasswordsAndTellsStatusBarAndList) {
    OpenNoting();
    EXPECT_EQ(NotesOf(CMD_FILTER_PASSWORDS), (Notes{"STATUS repaint", "FILTER"}));
    EXPECT_TRUE(TheDatabase().bFilterPWD);
    EXPECT_EQ(Kept(u"bFilterPWD"), 1U);
    NotesOf(CMD_FILTER_PASSWORDS);
    EXPECT_FALSE(TheDatabase().bFilterPWD);
    EXPECT_EQ(Kept(u"bFilterPWD"), 0U);
}

TEST_F(SettingCommand, ChoosesAModeOfTheSearchAndTellsOnlyOfAChange) {
    OpenNoting();
    EXPECT_EQ(NotesOf(CMD_FILTER_ALL), kNothing);
    EXPECT_EQ(Kept(u"FilterFlag"), std::nullopt);
    for (const u16 id : {CMD_FILTER_EXACT, CMD_FILTER_ANY, CMD_FILTER_WITHOUT, CMD_FILTER_ALL}) {
        const u32 mode = id - u32{CMD_FILTER_ALL};
        EXPECT_EQ(NotesOf(id), Notes{"FILTER"});
        EXPECT_EQ(TheAppData().filterFlag, mode);
        EXPECT_EQ(Kept(u"FilterFlag"), mode);
        EXPECT_EQ(NotesOf(id), kNothing);
    }
}

// --- History ---

class HistoryCommand : public CommandTest {
protected:
    HistoryCommand() { TheAppData().AddRecent(u"C:\\a.vmr", u"a"); }
};

TEST_F(HistoryCommand, AsksBeforeItSwitchesOffAndNoChangesNothing) {
    OpenNoting();
    const DuringModal steps({InBox(
        [](const tvMessageBox& box) {
            EXPECT_EQ(box.m_style, u32{MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2});
            EXPECT_TRUE(box.m_text.starts_with(u"Disabling recent history feature will also remove"));
        },
        IDNO)});
    EXPECT_EQ(NotesOf(CMD_HISTORY), kNothing);
    EXPECT_EQ(TheAppData().bHistory, 1);
    EXPECT_EQ(Kept(u"bHistory"), std::nullopt);
    EXPECT_EQ(TheAppData().recentItems.size(), 1U);
}

TEST_F(HistoryCommand, ForgetsTheRecentOnesAfterYes) {
    OpenNoting();
    const DuringModal steps({AnswerBox(IDYES)});
    EXPECT_EQ(NotesOf(CMD_HISTORY), Notes{"START"});
    EXPECT_EQ(TheAppData().bHistory, 0);
    EXPECT_EQ(Kept(u"bHistory"), 0U);
    EXPECT_TRUE(TheAppData().recentItems.empty());
}

TEST_F(HistoryCommand, SwitchesOnWithoutAsking) {
    OpenNoting();
    TheAppData().bHistory = 0;
    const DuringModal noPrompt({});
    EXPECT_EQ(NotesOf(CMD_HISTORY), Notes{"START"});
    EXPECT_EQ(TheAppData().bHistory, 1);
    EXPECT_EQ(Kept(u"bHistory"), 1U);
}

// --- Font and help ---

// The font that is kept, if one is: a record of 92 bytes.
bool IsFontKept(LOGFONTW& font) {
    return LoadStoreBytes(LoadStore::Load, u"Font", &font, sizeof font);
}

Step InFontDialog(int button) {
    return [button] {
        const HWND dialog = FrontDialog(u"#32770");
        if (dialog == nullptr) return false;
        PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
        return true;
    };
}

LOGFONTW FontInForce() {
    LOGFONTW font{};
    GetObjectW(TheTheme().Font(), sizeof font, &font);
    return font;
}

using FontCommand = CommandTest;

TEST_F(FontCommand, KeepsNothingWhenItIsCancelled) {
    OpenNoting();
    const DuringModal steps({InFontDialog(IDCANCEL)});
    EXPECT_EQ(NotesOf(CMD_FONT), kNothing);
    LOGFONTW font{};
    EXPECT_FALSE(IsFontKept(font));
}

TEST_F(FontCommand, StartsFromTheFontInForceAndKeepsTheChosenOne) {
    const LOGFONTW before = FontInForce();
    LOGFONTW larger = before;
    larger.lfHeight = -21;
    TheTheme().SetFont(larger, 1.45F);
    OpenNoting();
    {
        const DuringModal steps({InFontDialog(IDOK)});
        NotesOf(CMD_FONT);
    }
    LOGFONTW font{};
    EXPECT_TRUE(IsFontKept(font));
    EXPECT_EQ(font.lfHeight, -21);
    EXPECT_EQ(FontInForce().lfHeight, -21);
    Close();
    TheTheme().SetFont(before, 1.45F);
}

using HelpCommand = CommandTest;

TEST_F(HelpCommand, IsTheMessageOfTheHelpKey) {
    OpenNoting();
    EXPECT_EQ(NotesOf(CMD_HELP), kNothing);
    EXPECT_EQ(Noting().m_helps, 1);
}

// --- Commands of panes ---

TEST_F(CommandTest, CommandsOfPanesDoNothingInTheMainWindow) {
    OpenFile();
    for (const u16 id : {CMD_ADD, CMD_COPY, CMD_CUT, CMD_PASTE, CMD_MERGE, CMD_SELECT_ALL, CMD_DESELECT_ALL,
                         CMD_INVERT_SELECTION, CMD_RECENT_CLEAR})
        EXPECT_EQ(NotesOf(id), kNothing);
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_EQ(TheDatabase().m_Count, 1U);
    EXPECT_EQ(TheAppData().recentItems.size(), 1U);
}

}  // namespace
