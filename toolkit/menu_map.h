// tvMenuMap, which finds the wrapper of a menu's handle and knows which menus are the bars of which windows.
// Wrappers of submenus that nobody else has made live here.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "toolkit/menu.h"

class tvMenuMap {
public:
    tvMenuMap() = default;
    // Detaches the wrappers that are left.
    ~tvMenuMap();
    tvMenuMap(const tvMenuMap&) = delete;
    tvMenuMap& operator=(const tvMenuMap&) = delete;

    [[nodiscard]] tvMenu* Find(HMENU menu) const;
    void Add(HMENU menu, tvMenu* wrapper) { m_menus[menu] = wrapper; }
    void Remove(HMENU menu);
    [[nodiscard]] std::size_t Count() const noexcept { return m_menus.size(); }

    // The menu with a row of this id, for ids that are handles of submenus; null for others.
    [[nodiscard]] tvMenu* FindByItem(UINT id) const;

    // The wrappers that own their menus.
    [[nodiscard]] std::vector<tvMenu*> Owned() const;

    // --- Wrappers of submenus ---

    // The wrapper of a submenu: a new one unless there is one.
    tvMenu* FindOrMake(HMENU submenu, const tvMenu& parent);

    // Deletes the wrapper of a submenu if it was made here, and those of menus that are no more.
    void DeleteMade(HMENU submenu);
    void DeleteDead();

    // --- Menu bars ---

    [[nodiscard]] HWND OwnerOf(HMENU bar) const;
    void SetOwner(HMENU bar, HWND owner);

private:
    std::map<HMENU, tvMenu*> m_menus;
    std::map<HMENU, HWND> m_bars;
    std::map<HMENU, std::unique_ptr<tvMenu>> m_made;
};

tvMenuMap& TheMenuMap();
