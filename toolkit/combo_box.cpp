#include "toolkit/combo_box.h"

#include <algorithm>
#include <utility>

#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"

namespace {

constexpr DWORD kOwnerDrawn = CBS_OWNERDRAWFIXED;
constexpr int kLeastDrop = 64;  // pixels
constexpr int kNeverFitted = -1;

HDC ContextOf(WPARAM wParam) {
    return reinterpret_cast<HDC>(wParam);
}

int ScreenHeight(HWND window) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info) != FALSE)
        return Height(info.rcMonitor);
    return Height(ClientOf(GetDesktopWindow()));
}

// For list and edit box.
LRESULT PartColors(HDC dc) {
    const tvTheme& theme = TheTheme();
    SetTextColor(dc, theme.m_text);
    SetBkColor(dc, theme.m_editBg);
    return reinterpret_cast<LRESULT>(theme.m_editBrush.Get());
}

// The first child that is not the list.
HWND FirstChildBut(HWND parent, HWND list) {
    HWND child = GetTopWindow(parent);
    while (child != nullptr && child == list)
        child = GetWindow(child, GW_HWNDNEXT);
    return child;
}

}  // namespace

UINT WM_TVCOMBOBOX_RECREATED() {
    static const UINT message = RegisterWindowMessageW(L"WM_TVCOMBOBOX_RECREATED");
    return message;
}

tvComboBox::tvComboBox() {
    m_list.m_owner = this;
    m_edit.m_owner = this;
    m_edit.m_autoHeight = kNeverFitted;  // it fills the box
}

// The window goes, with list and edit box, while their wrappers are still there.
tvComboBox::~tvComboBox() {
    Detach(Window::Destroy);
}

bool tvComboBox::Create(HWND parent, int id, const RECT& rect, DWORD style) {
    if (IsAttached()) return false;
    const int height = Height(rect) < 1 ? ScreenHeight(parent) / 3 : Height(rect);
    const HWND window = CreateWindowExW(
        0, WC_COMBOBOXW, nullptr, WS_CHILD | style, rect.left, rect.top, Width(rect), height, parent,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    if (window == nullptr) return false;
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().Font()), FALSE);
    SubclassWindow(window);
    return true;
}

bool tvComboBox::KeepsWindow() {
    return false;
}

bool tvComboBox::NeedsRecreate() {
    if (!IsAttached() || KeepsWindow()) return false;
    const DWORD style = StyleOfWindow(m_hWnd);
    if ((style & CBS_OWNERDRAWVARIABLE) != 0) return true;
    if (TheTheme().m_isSystemDefault) return (style & kOwnerDrawn) != 0;
    constexpr DWORD kWanted = kOwnerDrawn | CBS_HASSTRINGS;
    return (style & kWanted) != kWanted;
}

bool tvComboBox::IsOwnerDrawn() const {
    return HasStyle(m_hWnd, kOwnerDrawn);
}

void tvComboBox::OnSubclassed() {
    if (!IsAttached()) return;
    ModifyStyle(0, WS_CLIPCHILDREN);
    if (m_dropHeight < 1) {
        RECT dropped{};
        Send(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
        m_dropHeight = std::max(Height(dropped), kLeastDrop);
    }
    if (NeedsRecreate()) {
        PostMessageW(m_hWnd, WM_SYSCOLORCHANGE, 0, reinterpret_cast<LPARAM>(&TheTheme()));
        return;
    }
    SubclassParts();
    FitItems();
    ReadUiState();
}

void tvComboBox::SubclassParts() {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(m_hWnd, &info);
    if (info.hwndList != nullptr) m_list.SubclassWindow(info.hwndList);
    HWND edit = info.hwndItem;
    if (edit == nullptr && TheTheme().m_isSystemDefault) edit = FirstChildBut(m_hWnd, info.hwndList);
    if (edit != nullptr && edit != m_hWnd) m_edit.SubclassWindow(edit);
}

void tvComboBox::FitItems() const {
    constexpr int kRow = 1;  // more than a line of text
    constexpr int kBox = 3;
    if (m_autoHeight == 0) return;
    const int line = TheTheme().TextHeight(m_font, nullptr);
    Send(CB_SETITEMHEIGHT, 0, line + kRow);
    Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), line + kBox);
}

void tvComboBox::ReadUiState() {
    m_uiState = static_cast<u32>(Send(WM_QUERYUISTATE));
}

// --- Messages ---

LRESULT tvComboBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (OnThemeMessage(m_hWnd, message, wParam, lParam, result)) return result;
    if (BeforeDefault(message, wParam, lParam, result)) return result;
    result = tvWnd::WindowProc(message, wParam, lParam);
    AfterDefault(message);
    return result;
}

// True if the message is done with.
bool tvComboBox::BeforeDefault(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_PAINT:
            if (!IsOwnerDrawn()) return false;
            PaintWindow();
            return true;
        case WM_ERASEBKGND:
            result = 1;
            return IsOwnerDrawn();
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORLISTBOX:
            if (TheTheme().m_isSystemDefault) return false;
            result = PartColors(ContextOf(wParam));
            return true;
        case WM_SYSCOLORCHANGE:
            if (lParam != reinterpret_cast<LPARAM>(&TheTheme())) return false;
            OnThemeChosen();
            return true;
        case WM_THEMECHANGED:
        case WM_DESTROY:
            m_theme.Reset();
            m_themeOpen = 0;
            return false;
        default:
            return false;
    }
}

void tvComboBox::AfterDefault(UINT message) {
    switch (message) {
        case WM_SETFONT:
            FitItems();
            break;
        case WM_SETFOCUS:
            if (IsOwnerDrawn()) InvalidateRect(m_hWnd, nullptr, FALSE);
            break;
        case WM_CHANGEUISTATE:
        case WM_UPDATEUISTATE:
            ReadUiState();
            if (IsOwnerDrawn()) InvalidateRect(m_hWnd, nullptr, FALSE);
            break;
        case CB_SETCURSEL:
            Repaint();
            break;
        case WM_MOUSEMOVE:
            if (IsOwnerDrawn()) TrackMouseLeaving(m_hWnd);
            OnMouse();
            break;
        case WM_MOUSELEAVE:
            OnMouse();
            break;
        default:
            break;
    }
}

void tvComboBox::Repaint() {
    if (IsOwnerDrawn()) ResetBuffer(m_hWnd, Redraw::Yes);
}

// The mouse has moved over the window or its edit box, or away.
void tvComboBox::OnMouse() {
    if (!IsAttached() || !IsOwnerDrawn()) return;
    const State now = MouseState();
    if (now != std::exchange(m_mouse, now)) InvalidateRect(m_hWnd, nullptr, FALSE);
}

void tvComboBox::OnThemeChosen() {
    if (NeedsRecreate()) {
        Recreate();
        return;
    }
    if (IsWindowVisible(m_hWnd) == FALSE) return;
    ResetBuffer(m_hWnd, Redraw::No);
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    m_edit.Send(WM_SYSCOLORCHANGE, 0, reinterpret_cast<LPARAM>(&TheTheme()));
    if (m_list.IsAttached())
        RedrawWindow(m_list.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
}

// --- The parts ---

LRESULT tvComboBox::_ListBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = tvWnd::WindowProc(message, wParam, lParam);
    const tvTheme& theme = TheTheme();
    if (!m_owner->IsAttached()) return result;
    // The system has only a part of the box painted when the list opens and closes.
    if (message == WM_WINDOWPOSCHANGED && m_owner->IsOwnerDrawn())
        InvalidateRect(m_owner->m_hWnd, nullptr, FALSE);
    if (message == WM_NCPAINT && !theme.m_isSystemDefault) {
        const bool isSimple = (StyleOfWindow(m_owner->m_hWnd) & CBS_DROPDOWNLIST) == CBS_SIMPLE;
        // A scroll bar, which has just been painted, is not to be filled over.
        const COLORREF fill = HasStyle(m_hWnd, WS_VSCROLL) ? kNoColor : theme.m_base;
        FrameNonClient(m_hWnd, fill, isSimple ? theme.m_border : theme.m_borderActive);
    }
    return result;
}

LRESULT tvComboBox::EditPart::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = tvEdit::WindowProc(message, wParam, lParam);
    switch (message) {
        case WM_MOUSEMOVE:
        case WM_MOUSELEAVE:
            m_owner->OnMouse();
            break;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            if (m_owner->IsAttached() && m_owner->IsOwnerDrawn())
                InvalidateRect(m_owner->m_hWnd, nullptr, FALSE);
            break;
        default:
            break;
    }
    return result;
}

// --- What the parent is asked ---

void tvComboBox::OnReflectCtlColor(HDC /*dc*/, LRESULT* result) {
    if (IsOwnerDrawn()) *result = reinterpret_cast<LRESULT>(GetStockObject(NULL_BRUSH));
}

int tvComboBox::OnReflectCompareItem(COMPAREITEMSTRUCT* item) {
    if (item->itemData1 == item->itemData2) return 0;
    return item->itemData1 < item->itemData2 ? -1 : 1;
}
