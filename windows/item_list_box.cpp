#include "windows/item_list_box.h"

#include "windows/command_ids.h"
#include "windows/item_list_box_commands.h"
#include "windows/item_list_box_paint.h"
#include "windows/item_list_box_view.h"

template <typename TOwner, typename TElement>
CVMRListBox<TOwner, TElement>::~CVMRListBox() {
    Detach(Window::Destroy);
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::OnSubclassed() {
    tvMListBox::OnSubclassed();
    m_HoverRow = -1;
    if (!IsAttached()) return;
    TheToolTip().Create(nullptr, 0);
    TheToolTip().AddTrackingTool(m_hWnd);
}

// --- Keys ---

namespace {

// The command of a key, or 0.
NotifyArgument CommandOfKey(WPARAM key) {
    switch (key) {
        case VK_DELETE:
            return CMD_REMOVE;
        case VK_SPACE:
        case VK_RETURN:
            return CMD_RENAME;
        default:
            break;
    }
    if (GetKeyState(VK_CONTROL) >= 0) return 0;
    switch (key) {
        case 'X':
            return CMD_CUT;
        case 'V':
            return CMD_PASTE;
        case VK_UP:
            return CMD_MOVE_UP;
        case VK_DOWN:
            return CMD_MOVE_DOWN;
        default:
            return 0;
    }
}

}  // namespace

// The main window hands the command to the pane that owns the list.
template <typename TOwner, typename TElement>
bool CVMRListBox<TOwner, TElement>::OnKey(WPARAM key) const {
    const NotifyArgument command = CommandOfKey(key);
    if (command == 0) return false;
    NotifyMainWindow(APPN_FORWARDCMD, command, AsArgument(m_hWnd));
    return true;
}

// --- Messages ---

// True if the message is done with.
template <typename TOwner, typename TElement>
bool CVMRListBox<TOwner, TElement>::BeforeBase(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_KEYDOWN:
            result = 0;
            return OnKey(wParam);
        case WM_NOTIFY:
            // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's argument
            return OnTipNotice(reinterpret_cast<NMHDR*>(lParam), result);
        case WM_MOUSELEAVE:
            HideTip();
            return false;
        case WM_DESTROY:
            HideTip();
            TheToolTip().RemoveTool(m_hWnd);
            return false;
        default:
            return false;
    }
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::AfterBase(UINT message, WPARAM wParam, LRESULT& result) {
    switch (message) {
        case WM_MOUSEMOVE:
            OnHover();
            break;
        case WM_SETFONT:
            TakeTipFont();
            break;
        case WM_PAINT:
            PaintEmpty();
            break;
        case WM_GETDLGCODE:
            if (wParam == VK_RETURN) result |= DLGC_WANTMESSAGE;
            break;
        case WM_ERASEBKGND:
            // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's argument
            if (wParam != 0 && HasHint()) DrawHint(reinterpret_cast<HDC>(wParam));
            break;
        default:
            break;
    }
}

template <typename TOwner, typename TElement>
LRESULT CVMRListBox<TOwner, TElement>::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (BeforeBase(message, wParam, lParam, result)) return result;
    result = tvMListBox::WindowProc(message, wParam, lParam);
    AfterBase(message, wParam, result);
    return result;
}

template class CVMRListBox<VMRD_DB, VMRD_Item>;
template class CVMRListBox<VMRD_Item, VMRD_Entry>;
