// What the tests of menus share: reading rows back from the system, and a menu with one row of each kind.
#pragma once

#include <gtest/gtest.h>

#include "tests/gui/harness.h"
#include "toolkit/menu.h"
#include "toolkit/menu_item.h"
#include "toolkit/menu_map.h"
#include "toolkit/statics.h"
#include "toolkit/theme.h"

inline MENUITEMINFOW RowAt(HMENU menu, int position) {
    MENUITEMINFOW info =
        MenuItemInfo(MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_DATA | MIIM_BITMAP);
    EXPECT_TRUE(ReadMenuItem(menu, static_cast<UINT>(position), ItemBy::Position, info))
        << "no row at " << position;
    return info;
}

inline bool IsOwnerDrawnAt(HMENU menu, int position) {
    return (RowAt(menu, position).fType & MFT_OWNERDRAW) != 0;
}

inline HBRUSH BackOf(HMENU menu) {
    MENUINFO info{};
    info.cbSize = sizeof info;
    info.fMask = MIM_BACKGROUND;
    EXPECT_NE(GetMenuInfo(menu, &info), FALSE);
    return info.hbrBack;
}

inline constexpr UINT kOpen = 32777;
inline constexpr UINT kSave = 32778;
inline constexpr UINT kDeep = 32779;

// Open, a line, a submenu with one row, Save: positions 0 to 3.
inline void FillMenu(tvMenu& menu) {
    menu.AddItem(kOpen, u"&Open...\tCtrl+O");
    menu.AddItem(0, nullptr);
    menu.AddPopup(u"&More")->AddItem(kDeep, u"Deep");
    menu.AddItem(kSave, u"Save");
}

class MenuTest : public testing::Test {
protected:
    MenuTest() { UseTheme(u"Dark"); }

    KeepTheme m_Keep;
};
