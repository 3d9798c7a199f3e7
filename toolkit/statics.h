// The toolkit's own objects that live as long as the process: the theme, the map of windows, the tool tip,
// GDI+, what menus share with the map of menus, and the smooth shapes that are kept. They are made in this
// order before the program starts, and go in the reverse one. Each is found by the operation of its own
// header.
#pragma once

#include "toolkit/menu_look.h"
#include "toolkit/menu_map.h"
#include "toolkit/theme.h"
#include "toolkit/tool_tip.h"
#include "toolkit/wnd.h"
