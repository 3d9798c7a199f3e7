#include "tests/app/menu_stage.h"

namespace {

constexpr UINT kNone = static_cast<UINT>(-1);

void Append(std::string& text, const std::string& word) {
    if (!text.empty()) text.append(" ");
    text.append(word);
}

UINT IdAt(HMENU menu, int position) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID;
    return GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info) == FALSE ? kNone : info.wID;
}

UINT StateOf(const tvMenu& menu, UINT id) {
    return GetMenuState(menu.Handle(), id, MF_BYCOMMAND);
}

}  // namespace

std::string TreeOf(HMENU menu) {
    std::string tree;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        const HMENU submenu = GetSubMenu(menu, i);
        const UINT id = IdAt(menu, i);
        if (submenu != nullptr) {
            Append(tree, std::string("[").append(TreeOf(submenu)).append("]"));
        } else {
            Append(tree, id == 0 ? "-" : std::to_string(id));
        }
    }
    return tree;
}

bool IsEnabled(const tvMenu& menu, UINT id) {
    const UINT state = StateOf(menu, id);
    return state != kNone && (state & (MF_GRAYED | MF_DISABLED)) == 0;
}

bool IsChecked(const tvMenu& menu, UINT id) {
    const UINT state = StateOf(menu, id);
    return state != kNone && (state & MF_CHECKED) != 0;
}

std::string CheckedIn(const tvMenu& menu, UINT first, UINT last) {
    std::string ids;
    for (UINT id = first; id <= last; ++id)
        if (IsChecked(menu, id)) Append(ids, std::to_string(id));
    return ids;
}

std::string EnabledOf(const tvMenu& menu) {
    std::string ids;
    for (int i = 0; i < menu.GetItemCount(); ++i) {
        const UINT id = IdAt(menu.Handle(), i);
        if (id != 0 && IsEnabled(menu, id)) Append(ids, std::to_string(id));
    }
    return ids;
}

tvstring RowText(tvMenu& menu, UINT id) {
    const tvMenu* owner = menu.FindOwner(id);
    if (owner == nullptr) return {};
    for (int i = 0; i < owner->GetItemCount(); ++i)
        if (IdAt(owner->Handle(), i) == id) return owner->GetItemText(i);
    return {};
}
