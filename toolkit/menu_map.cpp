#include "toolkit/menu_map.h"

#include <algorithm>

tvMenuMap::~tvMenuMap() {
    while (!m_menus.empty())
        m_menus.begin()->second->Detach(tvMenu::Menu::Destroy);
}

tvMenu* tvMenuMap::Find(HMENU menu) const {
    const auto found = m_menus.find(menu);
    return found == m_menus.end() ? nullptr : found->second;
}

void tvMenuMap::Remove(HMENU menu) {
    m_menus.erase(menu);
    m_bars.erase(menu);
}

tvMenu* tvMenuMap::FindByItem(UINT id) const {
    constexpr UINT kLeastHandle = 65535;  // commands are smaller
    if (id < kLeastHandle) return nullptr;
    for (const auto& [menu, wrapper] : m_menus) {
        if (wrapper->HasItem(id)) return wrapper;
    }
    return nullptr;
}

std::vector<tvMenu*> tvMenuMap::Owned() const {
    std::vector<tvMenu*> owned;
    for (const auto& [menu, wrapper] : m_menus) {
        if (wrapper->m_attached == 0) owned.push_back(wrapper);
    }
    return owned;
}

tvMenu* tvMenuMap::FindOrMake(HMENU submenu, const tvMenu& parent) {
    if (tvMenu* known = Find(submenu)) return known;
    std::unique_ptr<tvMenu>& made = m_made[submenu];
    made = std::make_unique<tvMenu>();
    made->m_plainItems = parent.m_plainItems;
    made->Attach(submenu, tvMenu::Kind::Attached);
    return made.get();
}

// The wrapper goes when it is out of the map: it deletes those of its own submenus.
void tvMenuMap::DeleteMade(HMENU submenu) {
    const auto taken = m_made.extract(submenu);
}

void tvMenuMap::DeleteDead() {
    std::vector<HMENU> dead;
    for (const auto& [menu, wrapper] : m_made) {
        if (IsMenu(menu) == FALSE) dead.push_back(menu);
    }
    for (const HMENU menu : dead)
        DeleteMade(menu);
}

HWND tvMenuMap::OwnerOf(HMENU bar) const {
    const auto found = m_bars.find(bar);
    return found == m_bars.end() ? nullptr : found->second;
}

void tvMenuMap::SetOwner(HMENU bar, HWND owner) {
    std::erase_if(m_bars, [owner](const auto& entry) { return entry.second == owner; });
    m_bars[bar] = owner;
}
