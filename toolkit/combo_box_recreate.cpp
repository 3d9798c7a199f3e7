// How a combo box gets a new window in place of the old one.
#include <array>
#include <vector>

#include "toolkit/combo_box.h"
#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"

struct tvComboBox::Kept {
    DWORD style = 0;
    HWND parent = nullptr;
    int id = 0;
    RECT place{};
    HWND previous = nullptr;  // in the z-order
    bool hadFocus = false;
    HFONT font = nullptr;
    tvstring text;
    tvstring cue;
    std::vector<tvstring> items;
    LRESULT selection = CB_ERR;
    LRESULT minVisible = 0;
    LRESULT droppedWidth = 0;
    LRESULT extendedUi = 0;
    LRESULT horizontalExtent = 0;
    LRESULT topIndex = 0;
    LRESULT locale = 0;
};

tvstring tvComboBox::ItemText(int index) const {
    const LRESULT length = Send(CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
    if (length <= 0) return {};
    tvstring text(static_cast<std::size_t>(length), u' ');
    Send(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    return text;
}

tvComboBox::Kept tvComboBox::Read() const {
    constexpr DWORD kOwnerDrawBits = CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE;
    Kept kept;
    // The system has taken the scroll bar of the list out of the window's style. It shows only if it is
    // needed.
    kept.style = (StyleOfWindow(m_hWnd) & ~kOwnerDrawBits) | WS_VSCROLL;
    kept.parent = GetAncestor(m_hWnd, GA_PARENT);
    kept.id = GetDlgCtrlID(m_hWnd);
    kept.place = PlaceInParent(m_hWnd);
    kept.place.bottom = kept.place.top + m_dropHeight;
    kept.previous = GetWindow(m_hWnd, GW_HWNDPREV);
    const HWND focus = GetFocus();
    kept.hadFocus = focus == m_hWnd || IsChild(m_hWnd, focus) != FALSE;
    kept.font = m_font;
    kept.text = TextOfWindow(m_hWnd);
    std::array<char16_t, 1024> cue{};
    Send(CB_GETCUEBANNER, reinterpret_cast<WPARAM>(cue.data()), static_cast<LPARAM>(cue.size()));
    cue.back() = u'\0';
    kept.cue = cue.data();
    const int count = static_cast<int>(Send(CB_GETCOUNT));
    for (int i = 0; i < count; ++i)
        kept.items.push_back(ItemText(i));
    kept.selection = Send(CB_GETCURSEL);
    kept.minVisible = Send(CB_GETMINVISIBLE);
    kept.droppedWidth = Send(CB_GETDROPPEDWIDTH);
    kept.extendedUi = Send(CB_GETEXTENDEDUI);
    kept.horizontalExtent = Send(CB_GETHORIZONTALEXTENT);
    kept.topIndex = Send(CB_GETTOPINDEX);
    kept.locale = Send(CB_GETLOCALE);
    return kept;
}

void tvComboBox::Restore(const Kept& kept) const {
    for (const tvstring& item : kept.items)
        Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    SetWindowTextW(m_hWnd, Wide(kept.text.c_str()));
    if (kept.selection != CB_ERR) Send(CB_SETCURSEL, static_cast<WPARAM>(kept.selection));
    Send(CB_SETMINVISIBLE, static_cast<WPARAM>(kept.minVisible));
    if (!kept.cue.empty()) Send(CB_SETCUEBANNER, 0, reinterpret_cast<LPARAM>(kept.cue.c_str()));
    Send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(kept.droppedWidth));
    Send(CB_SETEXTENDEDUI, static_cast<WPARAM>(kept.extendedUi));
    Send(CB_SETHORIZONTALEXTENT, static_cast<WPARAM>(kept.horizontalExtent));
    Send(CB_SETTOPINDEX, static_cast<WPARAM>(kept.topIndex));
    Send(CB_SETLOCALE, static_cast<WPARAM>(kept.locale));
}

// False if no new window could be made: then there is none.
bool tvComboBox::Recreate() {
    constexpr UINT kOnlyOrder = SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOSENDCHANGING;
    const Kept kept = Read();
    m_list.Detach(Window::Keep);
    m_edit.Detach(Window::Keep);
    Detach(Window::Destroy);
    const DWORD drawn = TheTheme().m_isSystemDefault ? 0 : DWORD{CBS_OWNERDRAWFIXED};
    if (!Create(kept.parent, kept.id, kept.place, kept.style | CBS_HASSTRINGS | drawn)) return false;
    SetWindowPos(m_hWnd, kept.previous, 0, 0, 0, 0, kOnlyOrder);
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(kept.font));
    Restore(kept);
    if (kept.hadFocus) SetFocus(m_hWnd);
    PostMessageW(kept.parent, WM_TVCOMBOBOX_RECREATED(), static_cast<WPARAM>(kept.id), 0);
    return true;
}
