#include "toolkit/statics.h"

#include "toolkit/button_split.h"
#include "toolkit/menu_look.h"
#include "toolkit/menu_map.h"
#include "toolkit/system.h"
#include "toolkit/theme.h"
#include "toolkit/tool_tip.h"
#include "toolkit/wnd.h"

namespace {

tvTheme g_Theme;
tvWndMap g_WndMap;
tvToolTipCtrl g_ToolTip;
tvGdiPlus g_GdiPlus;
tvMenuLook g_MenuLook;
tvMenuMap g_MenuMap;

}  // namespace

const UINT WM_TVBUTTON_SPLIT = RegisterWindowMessageW(L"WM_TVBUTTON_SPLIT");

tvTheme& TheTheme() {
    return g_Theme;
}

tvWndMap& TheWndMap() {
    return g_WndMap;
}

tvToolTipCtrl& TheToolTip() {
    return g_ToolTip;
}

tvMenuLook& TheMenuLook() {
    return g_MenuLook;
}

tvMenuMap& TheMenuMap() {
    return g_MenuMap;
}
