// Captions that come from the texts of menus.
#pragma once

#include "foundation/tvstring.h"

// Takes the mnemonic marks out, each with the brackets around its letter if there are any, as in "(&X)" or
// "[&X]", and trims white space at both ends. A doubled "&" stays.
void RemoveMarks(tvstring& text);
tvstring WithoutMarks(tvstring text);

// Cuts the text at its first tab, behind which a shortcut stands.
void CutShortcut(tvstring& text);
