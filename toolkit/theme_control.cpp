#include "toolkit/theme_control.h"

#include <map>

#include "toolkit/app.h"

namespace {

std::map<HMENU, MenuPainter*>& Painters() {
    static std::map<HMENU, MenuPainter*> painters;
    return painters;
}

HMENU ActivePopup() {
    const tvBaseApp* app = tvBaseApp::Get();
    return app == nullptr ? nullptr : app->m_activePopup;
}

MenuPainter* PainterOfItem(UINT id) {
    if (MenuPainter* active = MenuPainter::Find(ActivePopup())) return active;
    for (const auto& [menu, painter] : Painters()) {
        if (painter->HasItem(id)) return painter;
    }
    return nullptr;
}

void MeasureMenuItem(MEASUREITEMSTRUCT* item) {
    if (item->CtlType != ODT_MENU) return;
    if (MenuPainter* painter = PainterOfItem(item->itemID)) painter->OnMeasureItem(item);
}

bool DrawMenuItem(DRAWITEMSTRUCT* item) {
    if (item->CtlType != ODT_MENU) return false;
    MenuPainter* painter = MenuPainter::Find(reinterpret_cast<HMENU>(item->hwndItem));
    if (painter != nullptr) painter->OnDrawItem(item);
    return painter != nullptr;
}

void NotePopup(UINT message, WPARAM wParam) {
    tvBaseApp* app = tvBaseApp::Get();
    if (app == nullptr) return;
    auto* menu = reinterpret_cast<HMENU>(wParam);  // NOLINT(performance-no-int-to-ptr): a message's argument
    if (message == WM_INITMENUPOPUP) {
        app->m_activePopup = menu;
    } else if (app->m_activePopup == menu) {
        app->m_activePopup = nullptr;
    }
}

}  // namespace

void MenuPainter::Register(HMENU menu, MenuPainter* painter) {
    Painters()[menu] = painter;
}

void MenuPainter::Unregister(HMENU menu) {
    Painters().erase(menu);
}

MenuPainter* MenuPainter::Find(HMENU menu) {
    const auto found = Painters().find(menu);
    return found == Painters().end() ? nullptr : found->second;
}

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
        case WM_SETFOCUS:
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
