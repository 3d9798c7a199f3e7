// How a combo box is painted.
#include "toolkit/combo_box.h"
#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"
#include "toolkit/system.h"
#include "toolkit/theme.h"

struct tvComboBox::Look {
    RECT client{};
    RECT text{};
    RECT arrow{};  // empty: there is none
    HWND list = nullptr;
    bool hasEdit = false;
    bool isSimple = false;
    bool arrowAtLeft = false;
    bool isPressed = false;
    State state = STATE_IDLE;
    State arrowState = STATE_IDLE;
};

namespace {

constexpr UINT kTextFlags = DT_VCENTER | DT_SINGLELINE | DT_EXPANDTABS | DT_NOPREFIX;

COMBOBOXINFO InfoOf(HWND window) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(window, &info);
    return info;
}

bool IsArrowAtLeft(HWND window) {
    return (ExStyleOfWindow(window) & WS_EX_LEFTSCROLLBAR) != 0;
}

// As far as the edge of the window.
RECT ArrowRect(HWND window, const COMBOBOXINFO& info, const RECT& client) {
    RECT arrow = info.rcButton;
    if (IsRectEmpty(&arrow) != FALSE) return {};
    arrow.top = client.top;
    arrow.bottom = client.bottom;
    (IsArrowAtLeft(window) ? arrow.left : arrow.right) = IsArrowAtLeft(window) ? client.left : client.right;
    return arrow;
}

// The states of the visual style are counted from 1.
int ThemeState(tvComboBox::State state) {
    switch (state) {
        case tvComboBox::STATE_DISABLED:
            return CBXS_DISABLED;
        case tvComboBox::STATE_ACTIVE:
            return CBXS_PRESSED;
        case tvComboBox::STATE_HOT:
            return CBXS_HOT;
        default:
            return CBXS_NORMAL;
    }
}

void DrawRow(HDC dc, const tvstring& text, RECT rect) {
    rect = Inset(rect, 1, 1);
    DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &rect, kTextFlags);
}

}  // namespace

void tvComboBox::DrawItemExtra(HDC, RECT&, State) {}

// --- What is painted ---

// On the arrow it is active.
tvComboBox::State tvComboBox::MouseState() const {
    const RECT client = ClientOf(m_hWnd);
    if (PtInRect(&client, MouseIn(m_hWnd)) == FALSE) return STATE_IDLE;
    const RECT arrow = ArrowRect(m_hWnd, InfoOf(m_hWnd), client);
    return PtInRect(&arrow, MouseIn(m_hWnd)) != FALSE ? STATE_ACTIVE : STATE_HOT;
}

bool tvComboBox::HasFocus(HWND list) const {
    const HWND focus = GetFocus();
    return focus == m_hWnd || (list != nullptr && focus == list);
}

tvComboBox::Look tvComboBox::CurrentLook(const RECT& client) const {
    const COMBOBOXINFO info = InfoOf(m_hWnd);
    Look look;
    look.client = client;
    look.text = info.rcItem;
    look.arrow = ArrowRect(m_hWnd, info, client);
    look.arrowAtLeft = IsArrowAtLeft(m_hWnd);
    look.list = info.hwndList;
    look.hasEdit = m_edit.IsAttached();
    look.isSimple = (StyleOfWindow(m_hWnd) & CBS_DROPDOWNLIST) == CBS_SIMPLE;
    look.isPressed = (info.stateButton & STATE_SYSTEM_PRESSED) != 0;
    if (HasStyle(m_hWnd, WS_DISABLED)) {
        look.state = look.arrowState = STATE_DISABLED;
        return look;
    }
    const State mouse = MouseState();
    const bool isOpen = info.hwndList != nullptr && IsWindowVisible(info.hwndList) != FALSE;
    const bool isTyping = look.hasEdit && GetFocus() == m_edit.Handle();
    if (look.isPressed || GetCapture() == m_hWnd || isOpen || isTyping) {
        look.state = STATE_ACTIVE;
    } else if (mouse != STATE_IDLE) {
        look.state = STATE_HOT;
    }
    if (mouse == STATE_ACTIVE) look.arrowState = look.state;
    return look;
}

void tvComboBox::OpenTheme() {
    if (m_themeOpen != 0) return;
    m_themeOpen = 1;
    if (IsVisualStyleActive()) m_theme.Reset(OpenThemeData(m_hWnd, L"COMBOBOX"));
}

void tvComboBox::PaintWindow() {
    const bool systemDefault = TheTheme().m_isSystemDefault;
    if (systemDefault) OpenTheme();
    const bool classic = systemDefault && !m_theme;
    PaintWhole(m_hWnd, m_font, nullptr, classic ? Fade::No : Fade::Yes);
}

void tvComboBox::OnDraw(HDC dc, const RECT& rect, void* /*paint*/) {
    const Look look = CurrentLook(rect);
    SetBkMode(dc, TRANSPARENT);
    DrawGround(dc, look);
    if (look.isSimple) DrawListGround(dc, look);
    if (IsRectEmpty(&look.arrow) == FALSE) DrawArrow(dc, look);
    RECT text = look.text;
    DrawItemExtra(dc, text, look.state);
    if (look.hasEdit) return;
    DrawFocus(dc, look);
    DrawSelection(dc, text, look);
}

// --- Ground and frame ---

void tvComboBox::DrawGround(HDC dc, const Look& look) const {
    if (TheTheme().m_isSystemDefault) {
        DrawSystems(dc, look);
    } else {
        DrawColored(dc, look);
    }
}

void tvComboBox::DrawColored(HDC dc, const Look& look) {
    const tvTheme& theme = TheTheme();
    COLORREF fill = look.hasEdit ? theme.m_editBg : theme.m_button;
    COLORREF frame = theme.m_border;
    if (look.state == STATE_DISABLED) {
        fill = look.hasEdit ? theme.m_base : theme.m_buttonDisable;
    } else if (look.state != STATE_IDLE) {
        if (!look.hasEdit) fill = theme.m_buttonOver;
        frame = theme.m_borderActive;
    }
    FillSolid(dc, look.client, fill);
    FillEdges(dc, look.client, frame, EDGE_ALL, 1);
}

void tvComboBox::DrawSystems(HDC dc, const Look& look) const {
    const bool disabled = look.state == STATE_DISABLED;
    if (m_theme) {
        FillSolid(dc, look.client, GetSysColor(disabled ? COLOR_BTNFACE : COLOR_WINDOW));
        DrawThemeBackground(m_theme.Get(), dc, look.hasEdit ? CP_BORDER : CP_READONLY, ThemeState(look.state),
                            &look.client, nullptr);
        return;
    }
    RECT edge = look.client;
    FillSolid(dc, edge, GetSysColor(disabled ? COLOR_BTNFACE : COLOR_WINDOW));
    DrawEdge(dc, &edge, EDGE_SUNKEN, BF_RECT);
}

// Below the edit box of one whose list is always open.
void tvComboBox::DrawListGround(HDC dc, const Look& look) {
    if (look.list == nullptr || IsWindowVisible(look.list) == FALSE) return;
    const tvTheme& theme = TheTheme();
    RECT below = look.client;
    below.top = PlaceInParent(look.list).top;
    FillSolid(dc, below, theme.Color(&tvColorTheme::m_base, COLOR_BTNFACE));
    const COLORREF line = look.state == STATE_DISABLED
                              ? theme.Color(&tvColorTheme::m_border, COLOR_BTNSHADOW)
                              : theme.Color(&tvColorTheme::m_borderActive, COLOR_HIGHLIGHT);
    FillEdges(dc, below, line, EDGE_TOP, 1);
}

// --- The arrow ---

void tvComboBox::DrawArrow(HDC dc, const Look& look) const {
    if (!TheTheme().m_isSystemDefault) {
        DrawColoredArrow(dc, look);
    } else if (m_theme) {
        const int part = look.arrowAtLeft ? CP_DROPDOWNBUTTONRIGHT : CP_DROPDOWNBUTTONLEFT;
        DrawThemeBackground(m_theme.Get(), dc, part, ThemeState(look.arrowState), &look.arrow, nullptr);
    } else {
        UINT state = DFCS_SCROLLDOWN;
        if (look.state == STATE_DISABLED) state |= DFCS_INACTIVE;
        if (look.isPressed && GetKeyState(VK_LBUTTON) < 0) state |= DFCS_PUSHED;
        RECT arrow = Inset(look.arrow, 1, 1);
        DrawFrameControl(dc, &arrow, DFC_SCROLL, state);
    }
}

void tvComboBox::DrawColoredArrow(HDC dc, const Look& look) {
    constexpr double kScale = 0.55;
    const tvTheme& theme = TheTheme();
    if (look.arrowState > STATE_IDLE) {
        RECT inside = look.arrow;
        const RECT framed = Inset(look.client, 1, 1);
        IntersectRect(&inside, &inside, &framed);
        FillSolid(dc, inside, theme.m_buttonOver);
        FillEdges(dc, look.arrow, theme.m_borderActive, look.arrowAtLeft ? EDGE_RIGHT : EDGE_LEFT, 1);
    }
    const COLORREF color = look.state == STATE_DISABLED ? theme.m_border : theme.m_icon;
    DrawChevron(dc, look.arrow, color, Axis::Vertical, Heading::Forward, kScale);
}

// --- The text ---

void tvComboBox::DrawFocus(HDC dc, const Look& look) const {
    if ((m_uiState & UISF_HIDEFOCUS) != 0 || look.state == STATE_ACTIVE || !HasFocus(look.list)) return;
    const tvTheme& theme = TheTheme();
    DrawFocusDots(dc, look.text,
                  look.state == STATE_DISABLED ? theme.Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT)
                                               : theme.Color(&tvColorTheme::m_text, COLOR_WINDOWTEXT));
}

void tvComboBox::DrawSelection(HDC dc, RECT rect, const Look& look) const {
    const tvTheme& theme = TheTheme();
    const bool disabled = look.state == STATE_DISABLED;
    COLORREF color = disabled ? theme.Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT)
                              : theme.Color(&tvColorTheme::m_text, COLOR_WINDOWTEXT);
    if (theme.m_isSystemDefault && !m_theme && HasFocus(look.list)) {
        FillSolid(dc, look.text, GetSysColor(COLOR_HIGHLIGHT));
        color = GetSysColor(COLOR_HIGHLIGHTTEXT);
    }
    const auto selection = static_cast<int>(Send(CB_GETCURSEL));
    if (selection < 0) return;
    const tvstring text = ItemText(selection);
    SetTextColor(dc, color);
    if (!theme.m_isSystemDefault || !m_theme) {
        DrawRow(dc, text, rect);
        return;
    }
    rect = Inset(rect, 1, 1);
    DrawThemeText(m_theme.Get(), dc, CP_READONLY, ThemeState(look.state), Wide(text.c_str()),
                  static_cast<int>(text.size()), kTextFlags, 0, &rect);
}

// --- The rows of the list ---

void tvComboBox::OnReflectDrawItem(DRAWITEMSTRUCT* item) {
    const auto index = static_cast<int>(item->itemID);
    const bool isBox = (item->itemState & ODS_COMBOBOXEDIT) != 0;
    if (isBox && index == static_cast<int>(Send(CB_GETCURSEL))) return;  // OnDraw has painted it
    const tvTheme& theme = TheTheme();
    const bool selected = (item->itemState & ODS_SELECTED) != 0;
    const bool disabled = (item->itemState & ODS_DISABLED) != 0;
    FillSolid(item->hDC, item->rcItem,
              selected ? theme.Color(&tvColorTheme::m_buttonPush, COLOR_HIGHLIGHT)
                       : theme.Color(&tvColorTheme::m_editBg, COLOR_WINDOW));
    if (index < 0) return;
    RECT rect = item->rcItem;
    const State chosen = selected ? STATE_ACTIVE : STATE_IDLE;
    DrawItemExtra(item->hDC, rect, disabled ? STATE_DISABLED : chosen);
    SetBkMode(item->hDC, TRANSPARENT);
    SetTextColor(item->hDC, disabled ? theme.Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT)
                                     : theme.Color(&tvColorTheme::m_text,
                                                   selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    DrawRow(item->hDC, ItemText(index), rect);
}
