// Escaping of texts in exported tables.
#pragma once

#include "foundation/tvstring.h"

// Replaces, in place, & < > and the double quote by their character references. The single quote stays.
void EscapeHtml(tvstring& text);
