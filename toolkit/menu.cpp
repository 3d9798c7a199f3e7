// A menu's handle and its rows.
#include "toolkit/menu.h"

#include <utility>

#include "toolkit/app.h"
#include "toolkit/handle.h"
#include "toolkit/menu_item.h"
#include "toolkit/menu_map.h"
#include "toolkit/statics.h"

namespace {

// The number that stands for a submenu where an id is wanted. Handles of menus have no more bits than it.
UINT IdOf(HMENU submenu) {
    return static_cast<UINT>(reinterpret_cast<std::uintptr_t>(submenu));
}

}  // namespace

tvMenu::~tvMenu() {
    Detach(Menu::Destroy);
}

tvMenu* tvMenu::FromHandle(HMENU menu) {
    return menu == nullptr ? nullptr : TheMenuMap().Find(menu);
}

bool tvMenu::TakeNew(HMENU menu) {
    if (!Attach(menu, Kind::Owned)) return false;
    ApplyTheme();
    return true;
}

bool tvMenu::CreateMenu() {
    return TakeNew(::CreateMenu());
}

bool tvMenu::CreatePopup() {
    return TakeNew(CreatePopupMenu());
}

bool tvMenu::Attach(HMENU menu, Kind kind) {
    if (menu != m_hMenu) Detach(Menu::Destroy);
    if (menu == nullptr) return false;
    m_hMenu = menu;
    m_attached = kind == Kind::Attached ? 1 : 0;
    TheMenuMap().Add(menu, this);
    return true;
}

void tvMenu::Detach(Menu then) {
    if (m_hMenu == nullptr) return;
    const int count = then == Menu::Destroy ? GetItemCount() : 0;
    for (int i = 0; i < count; ++i) {
        if (HMENU submenu = ::GetSubMenu(m_hMenu, i)) TheMenuMap().DeleteMade(submenu);
    }
    const HMENU menu = std::exchange(m_hMenu, nullptr);
    const bool isOwned = std::exchange(m_attached, u8{0}) == 0;
    TheMenuMap().Remove(menu);
    if (then == Menu::Keep || !isOwned) return;
    tvMenuHandle(menu).Reset();
    // A window that takes its bar along leaves no submenus to be found.
    TheMenuMap().DeleteDead();
}

bool tvMenu::SetAsBar(HWND owner) const {
    if (m_hMenu == nullptr || SetMenu(owner, m_hMenu) == FALSE) return false;
    TheMenuMap().SetOwner(m_hMenu, owner);
    return true;
}

bool tvMenu::IsBar() const {
    return TheMenuMap().OwnerOf(m_hMenu) != nullptr;
}

// --- Rows ---

// A row with a submenu has the submenu for its id, by which it is found when it is to be measured.
bool tvMenu::AddItem(UINT id, const char16_t* text, HMENU submenu) {
    MENUITEMINFOW info = MenuItemInfo(MIIM_ID | MIIM_STRING | MIIM_FTYPE);
    if (submenu != nullptr) info.fMask |= MIIM_SUBMENU;
    info.fType = TypeBits(id == 0 && submenu == nullptr ? MFT_SEPARATOR : MFT_STRING);
    info.wID = id == 0 ? IdOf(submenu) : id;
    info.hSubMenu = submenu;
    tvstring kept = text == nullptr ? tvstring() : tvstring(text);
    info.dwTypeData = Wide(kept.data());
    return InsertMenuItemW(m_hMenu, static_cast<UINT>(GetItemCount()), TRUE, &info) != FALSE;
}

tvMenu* tvMenu::AddPopup(const char16_t* text) {
    if (m_hMenu == nullptr) return nullptr;
    tvMenuHandle popup(CreatePopupMenu());
    if (!popup || !AddItem(0, text, popup.Get())) return nullptr;
    tvMenu* wrapper = TheMenuMap().FindOrMake(popup.Detach(), *this);
    wrapper->ApplyTheme();
    return wrapper;
}

tvMenu* tvMenu::GetSubMenu(int position) const {
    const HMENU submenu = ::GetSubMenu(m_hMenu, position);
    return submenu == nullptr ? nullptr : TheMenuMap().FindOrMake(submenu, *this);
}

bool tvMenu::SetItemText(UINT id, const char16_t* text) const {
    MENUITEMINFOW info = MenuItemInfo(MIIM_STRING);
    tvstring kept = text == nullptr ? tvstring() : tvstring(text);
    info.dwTypeData = Wide(kept.data());
    return WriteMenuItem(m_hMenu, id, ItemBy::Id, info);
}

bool tvMenu::EnableItem(UINT id, bool on) const {
    constexpr UINT kOff = MF_GRAYED | MF_DISABLED;
    return m_hMenu != nullptr && EnableMenuItem(m_hMenu, id, MF_BYCOMMAND | (on ? 0U : kOff)) != -1;
}

bool tvMenu::CheckItem(UINT id, bool on) const {
    MENUITEMINFOW info = MenuItemInfo(MIIM_STATE | MIIM_FTYPE);
    if (!ReadMenuItem(m_hMenu, id, ItemBy::Id, info)) return false;
    info.fType &= ~UINT{MFT_RADIOCHECK};
    info.fState = on ? info.fState | MFS_CHECKED : info.fState & ~UINT{MFS_CHECKED};
    return WriteMenuItem(m_hMenu, id, ItemBy::Id, info);
}

int tvMenu::GetItemCount() const {
    const int count = m_hMenu == nullptr ? 0 : GetMenuItemCount(m_hMenu);
    return count < 0 ? 0 : count;
}

tvstring tvMenu::GetItemText(int position) const {
    return MenuItemText(m_hMenu, static_cast<UINT>(position), ItemBy::Position);
}

bool tvMenu::HasItem(UINT id) const {
    const int count = GetItemCount();
    for (int i = 0; i < count; ++i) {
        MENUITEMINFOW info = MenuItemInfo(MIIM_ID);
        if (ReadMenuItem(m_hMenu, static_cast<UINT>(i), ItemBy::Position, info) && info.wID == id)
            return true;
    }
    return false;
}

tvMenu* tvMenu::FindOwner(UINT id) {
    if (HasItem(id)) return this;
    const int count = GetItemCount();
    for (int i = 0; i < count; ++i) {
        tvMenu* submenu = GetSubMenu(i);
        tvMenu* owner = submenu == nullptr ? nullptr : submenu->FindOwner(id);
        if (owner != nullptr) return owner;
    }
    return nullptr;
}

bool tvMenu::IsSubMenuOf(HMENU menu, HMENU sub) {
    const int count = menu == nullptr || sub == nullptr ? 0 : GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        const HMENU below = ::GetSubMenu(menu, i);
        if (below != nullptr && (below == sub || IsSubMenuOf(below, sub))) return true;
    }
    return false;
}

int tvMenu::TrackPopup(int x, int y, HWND window, UINT flags) const {
    if (m_hMenu == nullptr) return 0;
    tvBaseApp* app = tvBaseApp::Get();
    const HMENU opened = m_hMenu;
    if (app != nullptr) app->m_activePopup = opened;
    const int result = TrackPopupMenu(opened, flags, x, y, 0, window, nullptr);
    // A window that is not in the theme's colours does not say when the menu closes.
    if (app != nullptr && app->m_activePopup == opened) app->m_activePopup = nullptr;
    return result;
}
