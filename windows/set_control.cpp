#include "windows/set_control.h"

#include "foundation/language.h"

void SetText(const tvWnd& window, const tvstring& text) {
    SetWindowTextW(window.Handle(), Wide(text.c_str()));
}

void SetText(const tvWnd& window, const char16_t* section, const char16_t* key) {
    SetText(window, LangText(section, key));
}

void ShowIf(const tvWnd& window, bool shown) {
    ShowWindow(window.Handle(), shown ? SW_SHOWNA : SW_HIDE);
}

void EnableIf(const tvWnd& window, bool enabled) {
    EnableWindow(window.Handle(), enabled ? TRUE : FALSE);
}
