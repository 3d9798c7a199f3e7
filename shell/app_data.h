// CVMRAppData, what the program owns beside its main window and keeps longer than that: the recent list, the
// menus, icons and fonts, and the settings. There is one, TheAppData().
#pragma once

#include "foundation/language.h"
#include "shell/app_settings.h"
#include "shell/recent_list.h"
#include "toolkit/font.h"
#include "toolkit/menu.h"

class tvMListBox;

// What the settings of looks and language make.
struct AppLook {
    tvMenu mainMenu;
    tvMenu itemMenu;    // of the item list and the entry list
    tvMenu recentMenu;  // of the recent list
    tvMenu detailMenu;  // of the basic entries of an item
    tvIconHandle hIconSetPwd;
    tvIconHandle hIconNeedPwd;
    tvAcceleratorHandle hAccel;
    tvfont font;  // for passwords, higher than that of dialogs
};

// Fields in their order: those of the recent list, of the looks, of the settings, and its own.
struct CVMRAppData : RecentList, AppLook, AppSettings {
    // --- The settings that need windows ---

    // Load puts the stored theme in force, or the one that suits the system. Store puts that of the index in
    // force and keeps its name; nothing happens for an index outside the list. The icons are made anew.
    void LoadStoreTheme(LoadStore direction, int index = 0);

    // Load: false if no language can be used at all. Store changes to the language, whatever its file holds,
    // with all menus and texts, and keeps it; an empty file name is none.
    bool LoadStoreLang(LoadStore direction, const tvstring& file = {});

    // Load takes the stored font for all windows; without one they keep the system's. Store takes and keeps
    // the font that is given. The font for passwords follows either.
    void LoadStoreFont(LoadStore direction, const LOGFONTW* chosen = nullptr);

    // --- Menus (app_menus.cpp, app_menu_state.cpp) ---

    // Makes all four anew, in the language in use.
    void BuildMenus();

    // Sets checks, and what can be chosen. False if the menu has no handle: then it must not be opened.
    bool UpdateMainMenu();

    // The number of items and of those that are selected in a list that the menu is for, and what may be
    // pasted.
    struct ListState {
        i32 rows = 0;
        i32 selected = 0;
        bool entries = false;  // the list of entries; otherwise that of items
    };
    bool UpdateItemMenu(const ListState& list);

    // Ctrl+S and Ctrl+Z.
    void MakeAccelerators();

    // --- Own fields ---

    // Called when the language has changed; may be null.
    void (*m_OnLanguage)() = nullptr;

private:
    void RenewIcons();
};
