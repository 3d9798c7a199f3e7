// How menus follow the theme.
#include "toolkit/menu.h"
#include "toolkit/menu_item.h"
#include "toolkit/menu_look.h"
#include "toolkit/menu_map.h"
#include "toolkit/statics.h"
#include "toolkit/theme.h"

namespace {

UINT TypeOf(HMENU menu, int position) {
    MENUITEMINFOW info = MenuItemInfo(MIIM_FTYPE);
    return ReadMenuItem(menu, static_cast<UINT>(position), ItemBy::Position, info) ? info.fType : 0;
}

void SetTypeOf(HMENU menu, int position, UINT type) {
    MENUITEMINFOW info = MenuItemInfo(MIIM_FTYPE);
    info.fType = type;
    WriteMenuItem(menu, static_cast<UINT>(position), ItemBy::Position, info);
}

// Of submenus too; null for the system's own.
void SetBackground(HMENU menu, HBRUSH brush) {
    MENUINFO info{};
    info.cbSize = sizeof info;
    info.fMask = MIM_BACKGROUND | MIM_APPLYTOSUBMENUS;
    info.hbrBack = brush;
    SetMenuInfo(menu, &info);
}

// What of an item is handed on: what is not there must not be asked for.
UINT MaskFor(const MENUITEMINFOW& info, const tvstring& text) {
    UINT mask = MIIM_STATE | MIIM_ID | MIIM_FTYPE;
    if (!text.empty()) mask |= MIIM_STRING;
    if (info.hbmpItem != nullptr) mask |= MIIM_BITMAP;
    if (info.dwItemData != 0) mask |= MIIM_DATA;
    if (info.hbmpChecked != nullptr || info.hbmpUnchecked != nullptr) mask |= MIIM_CHECKMARKS;
    return mask;
}

}  // namespace

bool tvMenu::IsOwnerDraw() {
    return !TheTheme().m_isSystemDefault && m_plainItems == 0;
}

HBRUSH tvMenu::GetBackBrush() {
    return TheTheme().m_isSystemDefault ? GetSysColorBrush(COLOR_MENU) : TheTheme().m_baseBrush.Get();
}

UINT tvMenu::TypeBits(UINT type) {
    constexpr UINT kOwnerDraw = MFT_OWNERDRAW;
    return IsOwnerDraw() ? type | kOwnerDraw : type & ~kOwnerDraw;
}

void tvMenu::ApplyTheme() {
    if (m_hMenu == nullptr || !IsOwnerDraw()) return;
    SetBackground(m_hMenu, GetBackBrush());
    SyncOwnerDraw();
}

void tvMenu::SyncOwnerDraw() {
    const int count = GetItemCount();
    for (int i = 0; i < count; ++i) {
        const UINT type = TypeOf(m_hMenu, i);
        const UINT wanted = TypeBits(type);
        if (wanted == type) continue;
        SetTypeOf(m_hMenu, i, wanted);
        if (tvMenu* submenu = GetSubMenu(i)) submenu->SyncOwnerDraw();
    }
}

// --- Making anew ---

bool tvMenu::Rebuild() {
    const HWND owner = TheMenuMap().OwnerOf(m_hMenu);
    tvMenu copy;
    copy.m_plainItems = m_plainItems;
    const bool made = owner == nullptr ? copy.CreatePopup() : copy.CreateMenu();
    if (!made || !copy.CopyItems(m_hMenu)) return false;
    const HMENU menu = copy.m_hMenu;
    copy.Detach(Menu::Keep);
    Attach(menu, Kind::Owned);
    if (owner != nullptr) SetAsBar(owner);
    return true;
}

bool tvMenu::CopyItems(HMENU from) {
    const int count = GetMenuItemCount(from);
    for (int i = 0; i < count; ++i) {
        if (!CopyItem(from, static_cast<UINT>(i))) return false;
    }
    return count >= 0;
}

bool tvMenu::CopyItem(HMENU from, UINT position) {
    constexpr UINT kAll =
        MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_CHECKMARKS | MIIM_DATA | MIIM_BITMAP | MIIM_FTYPE;
    static_assert(kAll == 431);
    MENUITEMINFOW info = MenuItemInfo(kAll);
    if (!ReadMenuItem(from, position, ItemBy::Position, info)) return false;
    tvstring text = MenuItemText(from, position, ItemBy::Position);
    if (info.hSubMenu != nullptr) return CopyPopup(info, text);
    info.fMask = MaskFor(info, text);
    info.fType = TypeBits(info.fType);
    info.fState &= ~UINT{MFS_HILITE};
    info.dwTypeData = Wide(text.data());
    return InsertMenuItemW(m_hMenu, static_cast<UINT>(GetItemCount()), TRUE, &info) != FALSE;
}

bool tvMenu::CopyPopup(const MENUITEMINFOW& item, const tvstring& text) {
    tvMenu* popup = AddPopup(text.c_str());
    if (popup == nullptr || !popup->CopyItems(item.hSubMenu)) return false;
    MENUITEMINFOW state = MenuItemInfo(MIIM_STATE);
    state.fState = item.fState & ~UINT{MFS_HILITE};
    return WriteMenuItem(m_hMenu, static_cast<UINT>(GetItemCount() - 1), ItemBy::Position, state);
}

// --- Changes ---

// The system keeps the size of a row that was measured here, also when it is to paint the row itself.
void tvMenu::FollowTheme() {
    if (m_hMenu == nullptr) return;
    if (m_plainItems == 0 && !IsOwnerDraw()) {
        const bool wasOwnerDraw = (TypeOf(m_hMenu, 0) & MFT_OWNERDRAW) != 0;
        // The brush of the former theme is no more.
        if (!wasOwnerDraw || !Rebuild()) SetBackground(m_hMenu, nullptr);
    }
    ApplyTheme();
    if (HWND owner = TheMenuMap().OwnerOf(m_hMenu)) DrawMenuBar(owner);
}

void tvMenu::OnThemeChosen() {
    for (tvMenu* menu : TheMenuMap().Owned())
        menu->FollowTheme();
}

void tvMenu::OnFontChosen() {
    if (!TheMenuLook().TakeFont()) return;
    for (tvMenu* menu : TheMenuMap().Owned()) {
        if (menu->IsOwnerDraw()) menu->Rebuild();
    }
}
