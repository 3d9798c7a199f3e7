// How the rows of a menu are measured and painted.
#include <string_view>

#include "toolkit/draw.h"
#include "toolkit/handle.h"
#include "toolkit/menu.h"
#include "toolkit/menu_item.h"
#include "toolkit/menu_look.h"
#include "toolkit/rect.h"
#include "toolkit/statics.h"
#include "toolkit/theme.h"

namespace {

constexpr UINT kLine = DT_VCENTER | DT_SINGLELINE;

bool IsDisabled(UINT state) {
    return (state & (ODS_DISABLED | ODS_GRAYED)) != 0;
}

bool IsSelected(UINT state) {
    return (state & ODS_SELECTED) != 0;
}

// Of a row in the visual style.
int StyleState(UINT state) {
    if (IsDisabled(state)) return IsSelected(state) ? MPI_DISABLEDHOT : MPI_DISABLED;
    return IsSelected(state) ? MPI_HOT : MPI_NORMAL;
}

// The style that is in force: none under a colour theme.
HTHEME StyleInForce() {
    return TheTheme().m_isSystemDefault ? TheMenuLook().Style() : nullptr;
}

COLORREF GroundColor(UINT state) {
    const tvTheme& theme = TheTheme();
    const bool selected = IsSelected(state);
    if (theme.m_isSystemDefault)
        return GetSysColor(selected && !IsDisabled(state) ? COLOR_MENUHILIGHT : COLOR_MENU);
    if (!selected) return theme.m_base;
    return IsDisabled(state) ? theme.m_button : theme.m_buttonPush;
}

COLORREF MarkColor(UINT state) {
    const tvTheme& theme = TheTheme();
    if (!theme.m_isSystemDefault) return IsDisabled(state) ? theme.m_textGray : theme.m_icon;
    if (IsDisabled(state)) return GetSysColor(COLOR_GRAYTEXT);
    return GetSysColor(IsSelected(state) ? COLOR_HIGHLIGHTTEXT : COLOR_3DDKSHADOW);
}

COLORREF TextColor(UINT state) {
    const tvTheme& theme = TheTheme();
    if (!theme.m_isSystemDefault) return IsDisabled(state) ? theme.m_textGray : theme.m_text;
    COLORREF color = 0;
    const HTHEME style = StyleInForce();
    if (style != nullptr &&
        SUCCEEDED(GetThemeColor(style, MENU_POPUPITEM, StyleState(state), TMT_TEXTCOLOR, &color)))
        return color;
    if (IsDisabled(state)) return GetSysColor(COLOR_GRAYTEXT);
    return GetSysColor(IsSelected(state) ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT);
}

void DrawGround(HDC dc, const RECT& rect, UINT state) {
    if (const HTHEME style = StyleInForce()) {
        DrawThemeBackground(style, dc, MENU_POPUPBACKGROUND, 0, &rect, nullptr);
        DrawThemeBackground(style, dc, MENU_POPUPITEM, StyleState(state), &rect, nullptr);
    } else {
        FillSolid(dc, rect, GroundColor(state));
    }
}

void DrawSeparator(HDC dc, const RECT& rect) {
    if (const HTHEME style = StyleInForce()) {
        DrawThemeBackground(style, dc, MENU_POPUPSEPARATOR, 0, &rect, nullptr);
        return;
    }
    const int middle = rect.top + Height(rect) / 2;
    FillSolid(dc, {rect.left, middle, rect.right, middle + 1},
              TheTheme().Color(&tvColorTheme::m_border, COLOR_BTNSHADOW));
}

// Its width; painted too unless it is only to be measured.
int DrawLine(HDC dc, const RECT& rect, std::u16string_view text, UINT flags, tvMenu::Pass pass) {
    if (text.empty()) return 0;
    const auto length = static_cast<int>(text.size());
    RECT size{};
    DrawTextW(dc, Wide(text.data()), length, &size, flags | DT_CALCRECT);
    RECT place = rect;
    if (pass == tvMenu::Pass::Paint) DrawTextW(dc, Wide(text.data()), length, &place, flags);
    return Width(size);
}

}  // namespace

int tvMenu::GetRowHeight() {
    constexpr int kPadding = 12;
    return TheTheme().TextHeight(GetFont(false), nullptr) + kPadding;
}

int tvMenu::GetAccelGap() {
    constexpr int kLetters = 4;
    int averageWidth = 0;
    TheTheme().TextHeight(GetFont(false), &averageWidth);
    return kLetters * averageWidth;
}

HFONT tvMenu::GetFont(bool bold) {
    return bold ? TheTheme().m_fontBold.Get() : TheTheme().Font();
}

int tvMenu::DrawCheck(HDC dc, const RECT& rect, UINT state, bool, Pass pass) {
    if (pass == Pass::Measure) return GetRowHeight();
    RECT box = BoxAt(rect.left, rect.top, Height(rect), Height(rect));
    if (const HTHEME style = StyleInForce()) {
        InflateRect(&box, 0, -2);
        box.right -= 4;
        const bool disabled = IsDisabled(state);
        DrawThemeBackground(style, dc, MENU_POPUPCHECKBACKGROUND, disabled ? MCB_DISABLED : MCB_NORMAL, &box,
                            nullptr);
        DrawThemeBackground(style, dc, MENU_POPUPCHECK, disabled ? MC_CHECKMARKDISABLED : MC_CHECKMARKNORMAL,
                            &box, nullptr);
    } else {
        constexpr double kScale = 0.7;
        DrawMark(dc, box, kNoColor, kNoColor, MarkColor(state), MarkKind::Tick, kScale);
    }
    return GetRowHeight();
}

int tvMenu::DrawArrow(HDC dc, const RECT& rect, UINT state, Pass pass) {
    if (pass == Pass::Measure) return GetRowHeight();
    const RECT box = BoxAt(rect.right - Height(rect), rect.top, Height(rect), Height(rect));
    if (const HTHEME style = StyleInForce()) {
        DrawThemeBackground(style, dc, MENU_POPUPSUBMENU, IsDisabled(state) ? MSM_DISABLED : MSM_NORMAL, &box,
                            nullptr);
    } else {
        constexpr double kScale = 0.45;
        DrawChevron(dc, box, MarkColor(state), Axis::Horizontal, Heading::Forward, kScale);
    }
    return GetRowHeight();
}

int tvMenu::DrawItemText(HDC dc, const RECT& rect, const tvstring& text, UINT state, Pass pass) {
    const UINT prefix = (state & ODS_NOACCEL) != 0 ? UINT{DT_HIDEPREFIX} : 0U;
    if (pass == Pass::Paint) SetTextColor(dc, TextColor(state));
    if (IsBar()) return DrawLine(dc, rect, text, DT_CENTER | kLine | prefix, pass);
    const std::size_t first = text.find(u'\t');
    const std::u16string_view name = text.view().substr(0, first);
    const int width = DrawLine(dc, rect, name, kLine | prefix, pass);
    if (first == tvstring::npos) return width + GetAccelGap() / 2;
    const std::u16string_view shortcut = text.view().substr(text.rfind(u'\t') + 1);
    return width + GetAccelGap() + DrawLine(dc, rect, shortcut, DT_RIGHT | kLine | prefix, pass);
}

void tvMenu::OnMeasureItem(MEASUREITEMSTRUCT* item) {
    constexpr UINT kUsualWidth = 160;
    item->itemHeight = 0;
    item->itemWidth = kUsualWidth;
    MENUITEMINFOW found = MenuItemInfo(MIIM_FTYPE);
    if (!ReadMenuItem(m_hMenu, item->itemID, ItemBy::Id, found)) return;
    if ((found.fType & MFT_SEPARATOR) != 0) {
        const int height = TheTheme().m_halfMarginY;
        item->itemHeight = static_cast<UINT>(height + height % 2);
        item->itemWidth = item->itemHeight;
        return;
    }
    const tvClientDC screen(nullptr);
    const HDC canvas = TheMenuLook().Canvas(screen.Get(), 0, 0);
    const HDC dc = canvas == nullptr ? screen.Get() : canvas;
    const tvSelected font(dc, GetFont(true));  // the widest that it can become
    const RECT nowhere{};
    const tvstring text = MenuItemText(m_hMenu, item->itemID, ItemBy::Id);
    int width = DrawItemText(dc, nowhere, text, 0, Pass::Measure);
    if (!IsBar()) {
        width += DrawCheck(dc, nowhere, 0, false, Pass::Measure) + DrawArrow(dc, nowhere, 0, Pass::Measure);
        width -= GetSystemMetrics(SM_CXMENUCHECK);  // which the system adds by itself
    }
    item->itemWidth = static_cast<UINT>(width);
    item->itemHeight = static_cast<UINT>(GetRowHeight());
}

void tvMenu::OnDrawItem(DRAWITEMSTRUCT* item) {
    const RECT target = item->rcItem;
    const int width = Width(target);
    const int height = Height(target);
    const HDC canvas = TheMenuLook().Canvas(item->hDC, width, height);
    const HDC dc = canvas == nullptr ? item->hDC : canvas;
    const RECT rect = canvas == nullptr ? target : BoxAt(0, 0, width, height);
    DrawGround(dc, rect, item->itemState);
    DrawContent(dc, rect, item->itemID, item->itemState);
    if (canvas != nullptr) BitBlt(item->hDC, target.left, target.top, width, height, canvas, 0, 0, SRCCOPY);
    // The system would paint its own arrow over it.
    ExcludeClipRect(item->hDC, target.left, target.top, target.right, target.bottom);
}

void tvMenu::DrawContent(HDC dc, RECT rect, UINT id, UINT state) {
    MENUITEMINFOW item = MenuItemInfo(MIIM_FTYPE | MIIM_STATE | MIIM_SUBMENU);
    if (!ReadMenuItem(m_hMenu, id, ItemBy::Id, item)) return;
    const RECT whole = rect;
    if (!IsBar()) {
        const bool isChecked = id != 0 && (item.fState & MFS_CHECKED) != 0;
        const bool isRadio = (item.fType & MFT_RADIOCHECK) != 0;
        rect.left += DrawCheck(dc, rect, state, isRadio, isChecked ? Pass::Paint : Pass::Measure);
        rect.right -= DrawArrow(dc, rect, state, item.hSubMenu == nullptr ? Pass::Measure : Pass::Paint);
    }
    if ((item.fType & MFT_SEPARATOR) != 0) {
        DrawSeparator(dc, whole);
        return;
    }
    const tvstring text = MenuItemText(m_hMenu, id, ItemBy::Id);
    if (text.empty()) return;
    const tvSelected font(dc, GetFont((state & ODS_DEFAULT) != 0));
    SetBkMode(dc, TRANSPARENT);
    DrawItemText(dc, rect, text, state, Pass::Paint);
}
