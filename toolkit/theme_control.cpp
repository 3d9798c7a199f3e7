#include "toolkit/theme_control.h"

#include "toolkit/app.h"
#include "toolkit/menu_map.h"
#include "toolkit/statics.h"

namespace {

HMENU ActivePopup() {
    const tvBaseApp* app = tvBaseApp::Get();
    return app == nullptr ? nullptr : app->m_activePopup;
}

tvMenu* MenuOfItem(UINT id) {
    tvMenu* active = tvMenu::FromHandle(ActivePopup());
    return active != nullptr ? active : TheMenuMap().FindByItem(id);
}

void MeasureMenuItem(MEASUREITEMSTRUCT* item) {
    if (item->CtlType != ODT_MENU) return;
    if (tvMenu* menu = MenuOfItem(item->itemID)) menu->OnMeasureItem(item);
}

bool DrawMenuItem(DRAWITEMSTRUCT* item) {
    if (item->CtlType != ODT_MENU) return false;
    tvMenu* menu = tvMenu::FromHandle(reinterpret_cast<HMENU>(item->hwndItem));
    if (menu != nullptr) menu->OnDrawItem(item);
    return menu != nullptr;
}

// The active popup is the one at the root: what opens and closes below it changes nothing.
void NotePopup(UINT message, WPARAM wParam) {
    tvBaseApp* app = tvBaseApp::Get();
    auto* menu = reinterpret_cast<HMENU>(wParam);  // NOLINT(performance-no-int-to-ptr): a message's argument
    if (app == nullptr || tvMenu::IsSubMenuOf(app->m_activePopup, menu)) return;
    app->m_activePopup = message == WM_INITMENUPOPUP ? menu : nullptr;
}

}  // namespace

bool tvtheme_control::OnThemeMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                     LRESULT& result) {
    switch (message) {
        case WM_MEASUREITEM:
            MeasureMenuItem(
                reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));  // NOLINT(performance-no-int-to-ptr)
            result = 1;
            return true;
        case WM_DRAWITEM:
            result = 1;
            return DrawMenuItem(
                reinterpret_cast<DRAWITEMSTRUCT*>(lParam));  // NOLINT(performance-no-int-to-ptr)
        case WM_DESTROY:
            ResetBuffer(window, Redraw::No);
            return false;
        case WM_SIZE:
        case WM_KILLFOCUS:
        case WM_SETFONT:
            ResetBuffer(window, Redraw::Yes);
            return false;
        case WM_INITMENUPOPUP:
        case WM_UNINITMENUPOPUP:
            NotePopup(message, wParam);
            return false;
        default:
            return false;
    }
}
