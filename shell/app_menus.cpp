#include <array>
#include <span>

#include "foundation/textops.h"
#include "shell/app_data.h"
#include "toolkit/theme.h"
#include "windows/command_ids.h"

namespace {

// A row of a menu: a command with its text, or, with id 0, a separator.
struct MenuRow {
    u16 id = 0;
    const char16_t* section = nullptr;
    const char16_t* key = nullptr;
};
constexpr MenuRow kSeparator{};

constexpr std::array kDatabaseRows = {
    MenuRow{CMD_UNDO, u"global", u"undo"},
    MenuRow{CMD_RENAME, u"file", u"modify_title"},
    MenuRow{CMD_SET_PASSWORD, u"file", u"setpwd_title"},
    kSeparator,
    MenuRow{CMD_NEW, u"file", u"new"},
    MenuRow{CMD_OPEN, u"file", u"open"},
    MenuRow{CMD_SAVE, u"file", u"save"},
    MenuRow{CMD_SAVE_AS, u"file", u"saveas"},
    MenuRow{CMD_EXPORT, u"file", u"export"},
    MenuRow{CMD_CLOSE, u"file", u"close"},
    kSeparator,
};
constexpr std::array kFontRow = {MenuRow{CMD_FONT, u"global", u"font"}};
constexpr std::array kSearchRows = {
    MenuRow{CMD_FILTER_ALL, u"search", u"option_all"},
    MenuRow{CMD_FILTER_EXACT, u"search", u"option_exact"},
    MenuRow{CMD_FILTER_ANY, u"search", u"option_any"},
    MenuRow{CMD_FILTER_WITHOUT, u"search", u"option_without"},
    kSeparator,
    MenuRow{CMD_FILTER_PASSWORDS, u"search", u"option_incpwd"},
};
// Not in the order of their ids.
constexpr std::array kSettingRows = {
    MenuRow{CMD_CLEAR_CLIPBOARD, u"moresettings", u"clearclipboard"},
    MenuRow{CMD_HISTORY, u"moresettings", u"history"},
    MenuRow{CMD_AUTO_SAVE, u"moresettings", u"autosave"},
    MenuRow{CMD_AUTO_OPEN, u"moresettings", u"autoopen"},
    kSeparator,
    MenuRow{CMD_FILE_TYPE, u"shelltype", u"title"},
};
constexpr std::array kHelpRows = {
    kSeparator,
    MenuRow{CMD_HELP, u"global", u"help"},
    MenuRow{CMD_ABOUT, u"global", u"about"},
};

constexpr std::array kItemRows = {
    MenuRow{CMD_ADD, u"global", u"add"},
    MenuRow{CMD_REMOVE, u"global", u"remove"},
    MenuRow{CMD_RENAME, u"global", u"rename"},
    kSeparator,
    MenuRow{CMD_MOVE_UP, u"global", u"moveup"},
    MenuRow{CMD_MOVE_DOWN, u"global", u"movedown"},
    kSeparator,
    MenuRow{CMD_COPY, u"global", u"copy"},
    MenuRow{CMD_CUT, u"global", u"cut"},
    MenuRow{CMD_PASTE, u"global", u"paste"},
    kSeparator,
    MenuRow{CMD_SELECT_ALL, u"global", u"selectall"},
    MenuRow{CMD_DESELECT_ALL, u"global", u"deselectall"},
    MenuRow{CMD_INVERT_SELECTION, u"global", u"invertselection"},
    kSeparator,
    MenuRow{CMD_MERGE, u"global", u"merge"},
};
constexpr std::array kRecentRows = {
    MenuRow{CMD_OPEN, u"start", u"recent_open"},
    kSeparator,
    MenuRow{CMD_REMOVE, u"start", u"recent_remove"},
    MenuRow{CMD_RECENT_CLEAR, u"start", u"recent_clear"},
    kSeparator,
    MenuRow{CMD_HISTORY, u"start", u"recent_disable"},
};
constexpr std::array kDetailRows = {
    MenuRow{CMD_DETAIL_MODIFY, u"global", u"modify"},
    MenuRow{CMD_DETAIL_COPY, u"global", u"copy"},
    MenuRow{CMD_DETAIL_GO, u"global", u"go"},
    MenuRow{CMD_DETAIL_SHOW_PASSWORD, u"itemdetail", u"show_pwd"},
};

void AddRows(tvMenu& menu, std::span<const MenuRow> rows) {
    for (const MenuRow& row : rows) {
        if (row.id == 0) {
            menu.AddItem(0, nullptr, nullptr);
        } else {
            menu.AddItem(row.id, LangText(row.section, row.key).c_str());
        }
    }
}

void Rebuild(tvMenu& menu, std::span<const MenuRow> rows) {
    if (menu.CreatePopup()) AddRows(menu, rows);
}

// A row that opens a menu has its mnemonic, and nothing else of what a menu text may hold.
tvMenu* AddPopup(tvMenu& menu, const char16_t* section, const char16_t* key) {
    tvstring text = LangText(section, key);
    CleanCaption(text, true, KEEP_DOTS);
    return menu.AddPopup(text.c_str());
}

void AddPopup(tvMenu& menu, const char16_t* section, std::span<const MenuRow> rows) {
    if (tvMenu* popup = AddPopup(menu, section, u"title")) AddRows(*popup, rows);
}

// Themes have names of their own where the language has none for them.
void AddThemes(tvMenu& menu) {
    tvMenu* popup = AddPopup(menu, u"theme", u"title");
    if (popup == nullptr) return;
    UINT id = CMD_FIRST_THEME;
    for (const tvColorTheme& theme : TheTheme().m_themes) {
        if (id == CMD_FIRST_LANGUAGE) break;  // the ids from there on are taken
        const tvstring text = LangText(u"theme", theme.m_name);
        popup->AddItem(id++, text.empty() ? theme.m_name.c_str() : text.c_str());
    }
}

void AddLanguages(tvMenu& menu) {
    const auto& languages = Language().Languages();
    if (languages.size() < 2) return;
    tvMenu* popup = AddPopup(menu, u"global", u"language");
    if (popup == nullptr) return;
    UINT id = CMD_FIRST_LANGUAGE;
    for (const LANGINFO& language : languages)
        popup->AddItem(id++, language.m_Name.c_str());
}

}  // namespace

void CVMRAppData::BuildMenus() {
    Rebuild(mainMenu, kDatabaseRows);
    AddThemes(mainMenu);
    AddLanguages(mainMenu);
    AddRows(mainMenu, kFontRow);
    AddPopup(mainMenu, u"search", kSearchRows);
    AddPopup(mainMenu, u"moresettings", kSettingRows);
    AddRows(mainMenu, kHelpRows);

    Rebuild(itemMenu, kItemRows);
    Rebuild(recentMenu, kRecentRows);
    Rebuild(detailMenu, kDetailRows);
}
