// What a list box does with its messages.
#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/list_box.h"
#include "toolkit/theme.h"

namespace {

int XOf(LPARAM lParam) {
    return static_cast<short>(LOWORD(lParam));
}

int YOf(LPARAM lParam) {
    return static_cast<short>(HIWORD(lParam));
}

// What would change the rows behind the back of the class.
bool ChangesRows(UINT message) {
    switch (message) {
        case LB_ADDSTRING:
        case LB_INSERTSTRING:
        case LB_DELETESTRING:
        case LB_RESETCONTENT:
        case LB_DIR:
        case LB_ADDFILE:
        case LB_SETITEMDATA:
        case LB_SETCOUNT:
            return true;
        default:
            return false;
    }
}

bool IsHeld(int key) {
    return GetAsyncKeyState(key) < 0;
}

}  // namespace

void tvMListBox::OnSubclassed() {
    if (m_hWnd == nullptr) return;
    RECT client{};
    GetClientRect(m_hWnd, &client);
    m_lastWidth = client.right;
    m_lastHeight = client.bottom;
    ResetDrag();
    OnFontSet();
    if (TheTheme().m_ready && !TheTheme().m_isSystemDefault) m_scrollBox.Attach(m_hWnd);
}

LRESULT tvMListBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (OnThemeMessage(m_hWnd, message, wParam, lParam, result)) return result;
    if (m_internalChange == 0 && ChangesRows(message)) return LB_ERR;
    if (m_scrollBox.BeforeControl(message, wParam, lParam, result)) return result;
    if (BeforeDefault(message, wParam, lParam, result)) return result;
    result = tvWnd::WindowProc(message, wParam, lParam);
    AfterDefault(message, lParam);
    m_scrollBox.AfterControl(message);
    return result;
}

// True if the message is done with.
bool tvMListBox::BeforeDefault(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case LB_SETSEL:
        case LB_SETCURSEL:
            result = SetSelection(message, wParam, lParam);
            return true;
        case WM_ERASEBKGND:
            result = 1;
            // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's argument
            if (wParam != 0) EraseBelow(reinterpret_cast<HDC>(wParam));
            return true;
        // In a scroll box there is no frame; the system would take its time to paint one nobody sees.
        case WM_NCPAINT:
            return m_scrollBox.IsActive();
        case WM_SYSCOLORCHANGE:
            // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's argument
            if (reinterpret_cast<tvTheme*>(lParam) != &TheTheme()) return false;
            RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
            return true;
        case WM_KEYDOWN:
            return OnKeyDown(wParam);
        case WM_TIMER:
            OnTimer(wParam);
            return false;
        case WM_MOUSEMOVE:
            OnMouseMove(XOf(lParam), YOf(lParam));
            return false;
        case WM_MOUSELEAVE:
            OnMouseGone();
            return false;
        case WM_LBUTTONUP:
            UndoEmptyClick(XOf(lParam), YOf(lParam));
            return false;
        case WM_RBUTTONDOWN:
            if (!IsSingleSelect()) BeginDrag(XOf(lParam), YOf(lParam));
            return false;
        case WM_RBUTTONUP:
            OnRightUp(XOf(lParam), YOf(lParam));
            return false;
        case WM_NCDESTROY:
            OnGone();
            return false;
        default:
            return false;
    }
}

void tvMListBox::AfterDefault(UINT message, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            OnSized(LOWORD(lParam), HIWORD(lParam));
            break;
        case WM_SETFONT:
            OnFontSet();
            break;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            // All selected rows look different, not only the current one.
            InvalidateRect(m_hWnd, nullptr, FALSE);
            break;
        case WM_NCPAINT:
            PaintFrame();
            break;
        default:
            break;
    }
}

// Without a scroll box: the list came under another theme.
void tvMListBox::PaintFrame() const {
    const tvTheme& theme = TheTheme();
    if (theme.m_isSystemDefault) return;
    if (HasStyle(m_hWnd, WS_VSCROLL)) {
        FrameAroundBars(m_hWnd, theme.m_base, theme.m_border);
    } else {
        FrameNonClient(m_hWnd, theme.m_base, theme.m_border);
    }
}

void tvMListBox::OnGone() {
    m_items.Clear();
    m_hotIndex = -1;
    m_tracking = 0;
    m_bulk = 0;
    m_measureLater = false;
    ResetDrag();
}

// The system asks for the height of each new row.
void tvMListBox::OnReflectMeasureItem(MEASUREITEMSTRUCT* item) {
    const int height = m_newHeight != 0 ? m_newHeight : CalcItemHeight(-1);
    item->itemHeight = static_cast<UINT>(height);
}

void tvMListBox::OnSized(int width, int height) {
    m_lastHeight = height;
    if (width == m_lastWidth) return;
    m_lastWidth = width;
    if (m_deleting) {
        m_measureLater = true;
    } else {
        MeasureAll();
    }
}

void tvMListBox::OnFontSet() {
    const tvClientDC dc(m_hWnd);
    const tvSelected font(dc.Get(), m_font);
    m_measureDC.Prepare(dc.Get(), m_lastWidth, m_lastHeight);
    m_line = 0;
    MeasureAll();
}

// --- Keyboard ---

bool tvMListBox::OnKeyDown(WPARAM key) {
    switch (key) {
        case VK_SPACE:
            return Ask(LB_GETANCHORINDEX) < 0 || !HasSelection();
        case 'A':
            if (!IsHeld(VK_CONTROL)) return false;
            SelectAll();
            return true;
        case 'C':
            if (!IsHeld(VK_CONTROL)) return false;
            CopySelection();
            return true;
        default:
            return false;
    }
}

// --- Mouse ---

void tvMListBox::InvalidateRow(int row) const {
    RECT rect{};
    if (row >= 0 && GetItemRect(row, rect) >= 0) InvalidateRect(m_hWnd, &rect, FALSE);
}

void tvMListBox::OnMouseMove(int x, int y) {
    if (m_tracking == 0) {
        m_tracking = 1;
        TrackMouseLeaving(m_hWnd);
    }
    const int hot = HitTest(x, y);
    if (hot != m_hotIndex) {
        InvalidateRow(m_hotIndex);
        InvalidateRow(hot);
        m_hotIndex = hot;
    }
    if (GetKeyState(VK_RBUTTON) < 0 && GetCapture() == m_hWnd && !IsSingleSelect()) DragTo(x, y);
}

void tvMListBox::OnMouseGone() {
    m_hotIndex = -1;
    m_tracking = 0;
    InvalidateRect(m_hWnd, nullptr, FALSE);
}
