// Reading the rows of the system's menus.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/win32.h"

// What a row is told by. An id is looked for in submenus too.
enum class ItemBy { Id = FALSE, Position = TRUE };

// An empty record with its size and mask.
MENUITEMINFOW MenuItemInfo(UINT mask);

// What the mask asks for; false if there is no such row.
bool ReadMenuItem(HMENU menu, UINT item, ItemBy by, MENUITEMINFOW& info);
bool WriteMenuItem(HMENU menu, UINT item, ItemBy by, const MENUITEMINFOW& info);

// Empty also if there is no such row.
tvstring MenuItemText(HMENU menu, UINT item, ItemBy by);
