#include "toolkit/menu_item.h"

MENUITEMINFOW MenuItemInfo(UINT mask) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = mask;
    return info;
}

bool ReadMenuItem(HMENU menu, UINT item, ItemBy by, MENUITEMINFOW& info) {
    return GetMenuItemInfoW(menu, item, static_cast<BOOL>(by), &info) != FALSE;
}

bool WriteMenuItem(HMENU menu, UINT item, ItemBy by, const MENUITEMINFOW& info) {
    return SetMenuItemInfoW(menu, item, static_cast<BOOL>(by), &info) != FALSE;
}

tvstring MenuItemText(HMENU menu, UINT item, ItemBy by) {
    MENUITEMINFOW info = MenuItemInfo(MIIM_STRING);
    if (!ReadMenuItem(menu, item, by, info) || info.cch == 0) return {};
    tvstring text(info.cch, u' ');
    info.dwTypeData = Wide(text.data());
    ++info.cch;  // the terminator
    return ReadMenuItem(menu, item, by, info) ? text : tvstring();
}
