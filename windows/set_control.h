// What dialogs and panes set of their controls: the text, whether it is shown, whether it can be used.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/wnd.h"

void SetText(const tvWnd& window, const tvstring& text);

// The language's text of this key.
void SetText(const tvWnd& window, const char16_t* section, const char16_t* key);

// Without giving it the keyboard.
void ShowIf(const tvWnd& window, bool shown);

void EnableIf(const tvWnd& window, bool enabled);
