#include <algorithm>

#include "database/clipboard.h"
#include "database/database.h"
#include "foundation/textops.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/theme.h"
#include "windows/command_ids.h"

namespace {

constexpr u32 kFilterModes = 4;

// Checks the row at `checked` of the popup that has the row `firstId`, and no other.
void CheckOne(tvMenu& menu, UINT firstId, int checked) {
    tvMenu* popup = menu.FindOwner(firstId);
    if (popup == nullptr) return;
    const int count = popup->GetItemCount();
    for (int i = 0; i < count; ++i)
        popup->CheckItem(firstId + static_cast<UINT>(i), i == checked);
}

int CurrentLanguageIndex() {
    const auto& languages = Language().Languages();
    const auto isCurrent = [](const LANGINFO& language) {
        return EqualNoCase(language.m_File, Language().Current());
    };
    return static_cast<int>(std::find_if(languages.begin(), languages.end(), isCurrent) - languages.begin());
}

bool IsPasteOffered(bool entries) {
    const u32 format = entries ? EntriesClipboardFormat() : ItemsClipboardFormat();
    return format != 0 && IsClipboardFormatAvailable(format) != FALSE;
}

// What adds an item does so at once; what adds an entry asks for its text first.
tvstring AddText(bool entries) {
    tvstring text = LangText(u"global", u"add");
    if (!entries) CleanCaption(text, true, CUT_UNLESS_ONE);
    return text;
}

}  // namespace

bool CVMRAppData::UpdateMainMenu() {
    if (mainMenu.Handle() == nullptr) return false;
    const VMRD_DB& database = TheDatabase();
    CheckOne(mainMenu, CMD_FIRST_THEME, TheTheme().FindTheme(TheTheme().m_name));
    CheckOne(mainMenu, CMD_FIRST_LANGUAGE, CurrentLanguageIndex());
    mainMenu.CheckItem(CMD_CLEAR_CLIPBOARD, bAutoClearClipboard != 0);
    mainMenu.CheckItem(CMD_AUTO_SAVE, database.bAutoSave);
    mainMenu.CheckItem(CMD_HISTORY, bHistory != 0);
    mainMenu.CheckItem(CMD_AUTO_OPEN, bAutoOpen != 0);
    mainMenu.CheckItem(CMD_FILTER_PASSWORDS, database.bFilterPWD);

    const u32 mode = filterFlag < kFilterModes ? filterFlag : 0;
    for (u32 i = 0; i < kFilterModes; ++i)
        mainMenu.CheckItem(CMD_FILTER_ALL + i, i == mode);

    mainMenu.EnableItem(CMD_UNDO, database.m_Opened && database.m_Undo.Count() != 0);
    for (const u16 id : {CMD_RENAME, CMD_SET_PASSWORD, CMD_SAVE, CMD_SAVE_AS, CMD_EXPORT, CMD_CLOSE})
        mainMenu.EnableItem(id, database.m_Opened);
    return true;
}

bool CVMRAppData::UpdateItemMenu(const ListState& list) {
    if (itemMenu.Handle() == nullptr) return false;
    const i32 selected = std::max(list.selected, 0);
    const bool isAny = selected > 0;
    itemMenu.EnableItem(CMD_RENAME, selected == 1);
    for (const u16 id : {CMD_MOVE_UP, CMD_MOVE_DOWN})
        itemMenu.EnableItem(id, isAny && selected < list.rows);
    for (const u16 id : {CMD_REMOVE, CMD_COPY, CMD_CUT, CMD_DESELECT_ALL, CMD_INVERT_SELECTION})
        itemMenu.EnableItem(id, isAny);
    itemMenu.EnableItem(CMD_MERGE, list.entries ? selected > 1 : selected == 2);
    itemMenu.EnableItem(CMD_SELECT_ALL, selected < list.rows);
    itemMenu.EnableItem(CMD_PASTE, IsPasteOffered(list.entries));
    itemMenu.SetItemText(CMD_RENAME, LangText(u"global", list.entries ? u"modify" : u"rename").c_str());
    itemMenu.SetItemText(CMD_ADD, AddText(list.entries).c_str());
    return true;
}
