// Reading the program's menus back from the system.
#pragma once

#include <string>

#include "toolkit/menu.h"

// The ids of a menu's rows in their order, "-" for a separator, a submenu's rows in brackets.
std::string TreeOf(HMENU menu);

// What the system says of a row with this id, wherever it stands; false also if there is none.
bool IsEnabled(const tvMenu& menu, UINT id);
bool IsChecked(const tvMenu& menu, UINT id);

// The ids of a range whose rows are checked, as "10111 10113"; the same for rows that can be chosen.
std::string CheckedIn(const tvMenu& menu, UINT first, UINT last);
std::string EnabledOf(const tvMenu& menu);

// The text of the row with this id as it was given, with mnemonic mark and shortcut; empty if there is none.
tvstring RowText(tvMenu& menu, UINT id);
