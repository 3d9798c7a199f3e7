#include "toolkit/statics.h"

#include "toolkit/button_split.h"
#include "toolkit/menu_look.h"
#include "toolkit/menu_map.h"
#include "toolkit/smooth_shapes.h"
#include "toolkit/system.h"
#include "toolkit/theme.h"
#include "toolkit/tool_tip.h"
#include "toolkit/wnd.h"

namespace {

// Before the objects of all other sources.
constexpr int kFirst = 1000;

[[gnu::init_priority(kFirst)]] tvTheme g_Theme;
[[gnu::init_priority(kFirst)]] tvWndMap g_WndMap;
[[gnu::init_priority(kFirst)]] tvToolTipCtrl g_ToolTip;
[[gnu::init_priority(kFirst)]] tvGdiPlus g_GdiPlus;
[[gnu::init_priority(kFirst)]] tvMenuLook g_MenuLook;
[[gnu::init_priority(kFirst)]] tvMenuMap g_MenuMap;
[[gnu::init_priority(kFirst)]] tvSmoothShapes g_SmoothShapes;

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

tvSmoothShapes& TheSmoothShapes() {
    return g_SmoothShapes;
}
