#include "tests/bench/plain_copy.h"

#include <iterator>

#include "toolkit/control_state.h"
#include "toolkit/dialog_class.h"
#include "toolkit/draw.h"
#include "toolkit/theme.h"

namespace {

void PaintItem(const DRAWITEMSTRUCT& item) {
    RECT rect = item.rcItem;
    FillSolid(item.hDC, rect, TheTheme().m_button);
    SetBkMode(item.hDC, TRANSPARENT);
    wchar_t text[128] = {};
    const int length = GetWindowTextW(item.hwndItem, text, static_cast<int>(std::size(text)));
    DrawTextW(item.hDC, text, length, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

LRESULT CALLBACK PlainProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_DRAWITEM) return DefDlgProcW(window, message, wParam, lParam);
    PaintItem(*reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
    return TRUE;
}

HWND MakeLike(HWND original, HWND parent, const wchar_t* className) {
    const tvstring text = TextOfWindow(original);
    RECT place = PlaceInParent(original);
    if (parent == nullptr) GetWindowRect(original, &place);
    const HWND made =
        CreateWindowExW(ExStyleOfWindow(original), className, Wide(text.c_str()), StyleOfWindow(original),
                        place.left, place.top, place.right - place.left, place.bottom - place.top, parent,
                        nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(made, WM_SETFONT, static_cast<WPARAM>(SendMessageW(original, WM_GETFONT, 0, 0)), FALSE);
    return made;
}

// What the system makes by itself, as the list of a combo box, is there already.
void CopyChildren(HWND original, HWND copy) {
    if (copy == nullptr || GetTopWindow(copy) != nullptr) return;
    for (HWND child = GetTopWindow(original); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t className[64] = {};
        GetClassNameW(child, className, static_cast<int>(std::size(className)));
        const HWND made = MakeLike(child, copy, className);
        SetWindowPos(made, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        CopyChildren(child, made);
    }
}

}  // namespace

HWND MakePlainCopy(HWND original) {
    WNDCLASSW plain{};
    plain.lpfnWndProc = PlainProc;
    plain.hInstance = GetModuleHandleW(nullptr);
    plain.cbWndExtra = DLGWINDOWEXTRA;
    plain.lpszClassName = L"PlainCopy";
    if (RegisterClassOnce(plain) == 0) return nullptr;
    const HWND copy = MakeLike(original, nullptr, plain.lpszClassName);
    CopyChildren(original, copy);
    return copy;
}
