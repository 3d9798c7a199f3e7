// What exported tables need.
#pragma once

#include "foundation/tvstring.h"

// Replaces, in place, & < > and the double quote by their character references. The single quote stays.
void EscapeHtml(tvstring& text);

// True if a file of this name is to be an HTML table: its extension is ".htm" or ".html", in letters of
// either case.
bool IsHtmlPath(const tvstring& path);
