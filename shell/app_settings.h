// The settings whose home is the application itself, each with its operation: loading reads it from the
// store, storing writes it at once. A value that is absent or of another size leaves the default.
#pragma once

#include "database/database.h"
#include "shell/load_store.h"
#include "shell/recent_list.h"

// What the other processes of the program are told after a shared setting was written here.
enum class SharedSetting : u16 {
    History = 0x8000,
    ClearClipboard = 0x8001,
};
using SharedSettingNotice = void (*)(SharedSetting setting);

// FilterFlag: how the words of a search are taken. A larger stored value is cut to the largest one.
inline constexpr u32 kLargestFilterFlag = 3;
// Sort: the order of the item list. Anything larger is the first one.
inline constexpr u32 kLargestSort = 4;

struct AppSettings {
    // Load reads the recent list, or clears it, here and in the store, with the setting off. Store clears it
    // with the setting off and then gives notice.
    void LoadStoreHistory(LoadStore direction, RecentList& recent);
    // Store gives notice.
    void LoadStoreClearClipboard(LoadStore direction);
    void LoadStoreAutoOpen(LoadStore direction);
    void LoadStoreFilterFlag(LoadStore direction);

    // --- Fields, in their order ---

    u8 bAutoClearClipboard = 1;
    u8 bHistory = 1;
    u8 bAutoOpen = 0;
    u32 filterFlag = 0;
    u8 bShowPassword = 0;  // not stored

    // Who tells the others; may be null.
    SharedSettingNotice m_Notice = nullptr;
};

// Settings whose home is the database object.
void LoadStoreAutoSave(LoadStore direction, VMRD_DB& database);
void LoadStoreFilterPwd(LoadStore direction, VMRD_DB& database);

// Gives the order in force: the stored one, or what was stored.
u32 LoadStoreSort(LoadStore direction, u32 value);

// The name of the theme that was picked, and the file name of the language; empty if none is stored. Storing
// an empty name does nothing.
tvstring LoadStoreThemeName(LoadStore direction, const tvstring& name);
tvstring LoadStoreLangName(LoadStore direction, const tvstring& fileName);

// The font that the user chose, as the system's own record of it.
inline constexpr u32 kFontRecordSize = 92;
bool LoadStoreFontRecord(LoadStore direction, u8 (&record)[kFontRecordSize]);

// The height of the font for passwords, from that of the dialog font.
i32 PasswordFontHeight(i32 height);
