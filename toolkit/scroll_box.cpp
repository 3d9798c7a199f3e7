// How a scroll box comes about, and what it does with its messages and with those of its control.
#include "toolkit/scroll_box.h"

#include <algorithm>

#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/statics.h"
#include "toolkit/system.h"
#include "toolkit/theme.h"

namespace {

constexpr DWORD kEdges = WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE | WS_EX_STATICEDGE;
constexpr UINT kSameGeometry = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER;
constexpr int kBorder = 2;  // the frame, and a pixel of the ground

void ChangeStyle(HWND window, int index, DWORD remove, DWORD add) {
    const auto old = static_cast<DWORD>(GetWindowLongPtrW(window, index));
    SetWindowLongPtrW(window, index, static_cast<LONG_PTR>((old & ~remove) | add));
}

POINT PointOf(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

// The window goes while the wrapper is still a scroll box.
tvScrollBox::~tvScrollBox() {
    Detach(Window::Destroy);
}

// --- Attaching ---

void tvScrollBox::Attach(HWND child, void* /*reserved*/) {
    constexpr int kWidth = 248;  // dialog units, of no account
    constexpr int kHeight = 79;
    const HWND parent = IsWindow(child) != FALSE ? GetAncestor(child, GA_PARENT) : nullptr;
    if (parent == nullptr || parent == GetDesktopWindow() || parent == m_hWnd) return;
    if (IsAttached() && GetAncestor(m_hWnd, GA_PARENT) != parent) Detach(Window::Destroy);
    if (!IsAttached()) {
        m_builder.m_className = u"tvScrollBx";
        TemplateBegin(kWidth, kHeight, DialogKind::Child, 0);
        m_child = nullptr;
        if (!Create(parent)) return;
    }
    m_fillBase = 0;
    HWND before = GetWindow(child, GW_HWNDPREV);
    if (before == m_hWnd) before = GetWindow(m_hWnd, GW_HWNDPREV);
    TakePlaceOf(child, before);
    TakeFrameFrom(child);
    OnLayout();
    EnableWindow(m_hWnd, HasStyle(child, WS_DISABLED) ? FALSE : TRUE);
    if (HasStyle(child, WS_VISIBLE)) ShowWindow(m_hWnd, SW_SHOWNA);
}

void tvScrollBox::TakePlaceOf(HWND child, HWND before) {
    const RECT place = PlaceInParent(child);
    SetWindowLongPtrW(m_hWnd, GWLP_ID, GetDlgCtrlID(child));
    const auto classStyle = static_cast<DWORD>(GetClassLongPtrW(m_hWnd, GCL_STYLE));
    SetClassLongPtrW(m_hWnd, GCL_STYLE, static_cast<LONG_PTR>(classStyle & ~DWORD{CS_DBLCLKS}));
    SetWindowPos(m_hWnd, before == nullptr ? HWND_TOP : before, place.left, place.top, Width(place),
                 Height(place), SWP_NOACTIVATE);
    SetParent(child, m_hWnd);
    m_child = child;
}

void tvScrollBox::TakeFrameFrom(HWND child) {
    constexpr UINT kRefresh =
        SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED | SWP_NOSENDCHANGING;
    const DWORD style = StyleOfWindow(child);
    m_hasVScroll = (style & WS_VSCROLL) != 0 ? 1 : 0;
    m_hasBorder = (style & WS_BORDER) != 0 || (ExStyleOfWindow(child) & kEdges) != 0 ? 1 : 0;
    ChangeStyle(m_hWnd, GWL_STYLE, WS_GROUP, style & WS_GROUP);
    ChangeStyle(child, GWL_STYLE, WS_BORDER | WS_GROUP, 0);
    ChangeStyle(child, GWL_EXSTYLE, kEdges, 0);
    SetWindowPos(child, nullptr, 0, 0, 0, 0, kRefresh);
}

// The focus stays where it is.
bool tvScrollBox::OnInitDialog() {
    tvBaseDlg::OnInitDialog();
    OpenTheme();
    m_tracking = 0;
    m_hotPart = SCROLL_NONE;
    m_drag = {};
    ModifyStyle(WS_BORDER | WS_TABSTOP, WS_CLIPCHILDREN | DS_CONTROL);
    ModifyStyleEx(WS_EX_TOOLWINDOW, WS_EX_CONTROLPARENT);
    return false;
}

void tvScrollBox::OpenTheme() {
    m_theme.Reset(IsVisualStyleActive() ? OpenThemeData(m_hWnd, L"ScrollBar") : nullptr);
}

// --- The control's place ---

HWND tvScrollBox::OuterOf(HWND control) {
    HWND parent = control == nullptr ? nullptr : GetAncestor(control, GA_PARENT);
    const auto* box = dynamic_cast<const tvScrollBox*>(FromHandle(parent));
    return box != nullptr && box->m_child == control ? parent : control;
}

void tvScrollBox::GetFrame(RECT& out) const {
    const LONG border = m_hasBorder != 0 ? kBorder : 0;
    out = {border, border, border, border};
    if (m_hasVScroll != 0) out.right += GetSystemMetrics(SM_CXVSCROLL) - 1;
}

void tvScrollBox::OnLayout() {
    if (!IsActive() || m_measuring) return;
    RECT frame{};
    GetFrame(frame);
    const RECT client = ClientOf(m_hWnd);
    RECT wanted{client.left + frame.left, client.top + frame.top, client.right - frame.right,
                client.bottom - frame.bottom};
    wanted.right = std::max(wanted.left, wanted.right);
    wanted.bottom = std::max(wanted.top, wanted.bottom);
    const RECT now = PlaceInParent(m_child);
    if (EqualRect(&now, &wanted) != FALSE) return;
    ResetBuffer(m_hWnd, tvabdraw::Redraw::No);
    SetWindowPos(m_child, nullptr, wanted.left, wanted.top, Width(wanted), Height(wanted),
                 SWP_NOZORDER | SWP_NOSENDCHANGING);
    Redraw(false);
}

void tvScrollBox::OnChildStyleChanged() {
    if (!IsActive()) return;
    const u8 hasBar = HasStyle(m_child, WS_VSCROLL) ? 1 : 0;
    if (hasBar == m_hasVScroll) return;
    m_hasVScroll = hasBar;
    OnLayout();
}

// The control reserves nothing: what it would take for a bar stays part of its client area.
bool tvScrollBox::MeasureFrame(WPARAM wParam, LPARAM lParam) {
    tvWnd* control = FromHandle(m_child);
    if (wParam == 0 || control == nullptr) return false;
    auto* place = reinterpret_cast<NCCALCSIZE_PARAMS*>(
        lParam);  // NOLINT(performance-no-int-to-ptr): a message's argument
    const NCCALCSIZE_PARAMS before = *place;
    control->tvWnd::WindowProc(WM_NCCALCSIZE, wParam, lParam);
    *place = before;
    // The system is about to put the control where it was: its new place waits until that is done.
    m_measuring = true;
    OnChildStyleChanged();
    m_measuring = false;
    return true;
}

// Whoever moves the control has the box in mind, and may put it behind a control that stands in a box, too.
void tvScrollBox::FollowMove(WINDOWPOS& place) {
    const UINT shown = place.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW);
    if ((place.flags & kSameGeometry) != kSameGeometry || shown != 0) {
        const UINT kept = place.flags & (kSameGeometry | SWP_NOREDRAW | SWP_NOCOPYBITS);
        SetWindowPos(m_hWnd, OuterOf(place.hwndInsertAfter), place.x, place.y, place.cx, place.cy,
                     kept | shown | SWP_NOACTIVATE);
    }
    place.flags |= kSameGeometry;
}

// The box stays for the next control.
void tvScrollBox::OnChildGone() {
    m_child = nullptr;
    m_childHasWheel = false;
    m_drag = {};
    if (GetCapture() == m_hWnd) ReleaseCapture();
    ShowWindow(m_hWnd, SW_HIDE);
}

// --- Messages of the control ---

bool tvScrollBox::BeforeControl(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (!IsActive()) return false;
    switch (message) {
        case WM_NCCALCSIZE:
            return MeasureFrame(wParam, lParam);
        case WM_NCHITTEST:
            result = HTCLIENT;
            return true;
        case WM_PAINT:
        case WM_PRINTCLIENT:
            Update();
            return false;
        case WM_SHOWWINDOW:
            if (lParam == 0) ShowWindow(m_hWnd, wParam != 0 ? SW_SHOWNA : SW_HIDE);
            return false;
        case WM_ENABLE:
            EnableWindow(m_hWnd, wParam != 0 ? TRUE : FALSE);
            return false;
        case WM_WINDOWPOSCHANGING:
            FollowMove(*reinterpret_cast<WINDOWPOS*>(lParam));  // NOLINT(performance-no-int-to-ptr)
            return false;
        case WM_MOUSEWHEEL:
            m_childHasWheel = true;
            return false;
        case WM_NCDESTROY:
            OnChildGone();
            return false;
        default:
            return false;
    }
}

void tvScrollBox::AfterControl(UINT message) {
    if (!IsActive()) return;
    switch (message) {
        case WM_MOUSEWHEEL:
            m_childHasWheel = false;
            Update();
            break;
        case WM_VSCROLL:
            Update();
            break;
        case WM_SETFOCUS:
            RenewHotPart();
            Redraw(false);
            break;
        case WM_WINDOWPOSCHANGED:
            OnLayout();
            break;
        default:
            break;
    }
}

// --- Messages of the box ---

LRESULT tvScrollBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (OnThemeMessage(m_hWnd, message, wParam, lParam, result)) return result;
    if (OnBoxMessage(message, wParam, lParam, result)) return result;
    if (OnMouse(message, wParam, lParam)) return 0;
    if (PassOn(message, wParam, lParam, result)) return result;
    return tvBaseDlg::WindowProc(message, wParam, lParam);
}

// True if the message is done with.
bool tvScrollBox::OnBoxMessage(UINT message, WPARAM wParam, LPARAM, LRESULT& result) {
    switch (message) {
        case WM_ERASEBKGND:
            result = 1;
            return true;
        case WM_PAINT:
            PaintBox();
            return true;
        case WM_PRINTCLIENT:
            // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's argument
            OnDraw(reinterpret_cast<HDC>(wParam), ClientOf(m_hWnd), nullptr);
            return true;
        case WM_THEMECHANGED:
            OpenTheme();
            Redraw(false);
            return false;
        case WM_DESTROY:
            m_theme.Reset();
            return false;
        default:
            return false;
    }
}

// What is for the control, or from it for the parent.
bool tvScrollBox::PassOn(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (!IsActive()) return false;
    switch (message) {
        case WM_SETTEXT:
        case WM_GETTEXT:
        case WM_GETTEXTLENGTH:
            result = SendMessageW(m_child, message, wParam, lParam);
            return true;
        case WM_COMMAND:
            if (LOWORD(wParam) != GetDlgCtrlID(m_hWnd)) return false;
            PostMessageW(GetParent(m_hWnd), message, wParam, lParam);
            return true;
        case WM_CONTEXTMENU:
        case WM_CLOSE:  // what a control of several lines makes of Escape
            PostMessageW(GetParent(m_hWnd), message, wParam, lParam);
            return true;
        case WM_MOUSEWHEEL:
            if (m_childHasWheel || WindowFromPoint(PointOf(lParam)) != m_hWnd) return false;
            PostMessageW(m_child, message, wParam, lParam);
            return true;
        default:
            return false;
    }
}
