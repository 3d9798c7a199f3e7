#include "toolkit/check_box.h"

#include <algorithm>

#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/statics.h"
#include "toolkit/theme.h"

namespace {

constexpr int kEdge = 3;      // around box and label
constexpr int kSpare = 2;     // beyond what the text needs
constexpr int kFree = 32000;  // a height without limit

UINT LabelFlags(u32 style) {
    UINT flags = DT_EXPANDTABS;
    flags |= (style & BS_MULTILINE) != 0 ? UINT{DT_WORDBREAK} : UINT{DT_SINGLELINE};
    const u32 across = style & BS_CENTER;
    if (across == BS_CENTER) flags |= DT_CENTER;
    if (across == BS_RIGHT) flags |= DT_RIGHT;
    const u32 down = style & BS_VCENTER;
    if (down == BS_TOP) return flags | DT_TOP;
    return flags | (down == BS_BOTTOM ? DT_BOTTOM : DT_VCENTER);
}

// All that LabelFlags can give: what else an owner has asked for stays through changes of the style.
constexpr u32 kFlagsOfStyle =
    DT_EXPANDTABS | DT_WORDBREAK | DT_SINGLELINE | DT_CENTER | DT_RIGHT | DT_VCENTER | DT_BOTTOM;

// A child window's place in its parent.
RECT PlaceOf(HWND window) {
    RECT rect;
    GetWindowRect(window, &rect);
    const HWND parent = GetAncestor(window, GA_PARENT);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

}  // namespace

tvCheckBox::~tvCheckBox() {
    Detach(Window::Destroy);
}

bool tvCheckBox::IsInFamily() const noexcept {
    switch (Type()) {
        case BS_CHECKBOX:
        case BS_AUTOCHECKBOX:
        case BS_RADIOBUTTON:
        case BS_3STATE:
        case BS_AUTO3STATE:
        case BS_AUTORADIOBUTTON:
            return true;
        default:
            return false;
    }
}

bool tvCheckBox::IsRadio() const noexcept {
    return Type() == BS_RADIOBUTTON || Type() == BS_AUTORADIOBUTTON;
}

bool tvCheckBox::HasThreeStates() const noexcept {
    return Type() == BS_3STATE || Type() == BS_AUTO3STATE;
}

bool tvCheckBox::UsesSystemLook() {
    return IsInFamily() ? TheTheme().m_isSystemDefault : tvButton::UsesSystemLook();
}

// The window may have a state already.
void tvCheckBox::OnSubclassed() {
    if (!IsAttached()) return;
    // The system's own state, which tvButton would answer with this one.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    m_check = static_cast<u32>(tvWnd::WindowProc(BM_GETCHECK, 0, 0));
    m_drawFlags = LabelFlags(static_cast<u32>(GetWindowLongPtrW(m_hWnd, GWL_STYLE)));
    m_boxKnown = false;
    tvButton::OnSubclassed();
    if (!IsInFamily()) {
        SetType(BS_AUTOCHECKBOX);
        SyncStyle();
    }
    SyncStyleFollowers();
}

LRESULT tvCheckBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (OnOwnMessage(message, wParam, result)) return result;
    result = tvButton::WindowProc(message, wParam, lParam);
    if (message == BM_GETSTATE && IsOwnerDrawn()) {
        constexpr LRESULT kCheckBits = BST_CHECKED | BST_INDETERMINATE;
        return (result & ~kCheckBits) | static_cast<LRESULT>(m_check);
    }
    AfterMessage(message, wParam, lParam);
    return result;
}

bool tvCheckBox::OnOwnMessage(UINT message, WPARAM wParam, LRESULT& result) {
    switch (message) {
        case BM_GETCHECK:
            result = static_cast<LRESULT>(m_check);
            return IsOwnerDrawn();
        case BM_SETCHECK:
            if (!IsOwnerDrawn()) return false;
            SetCheck(wParam);
            return true;
        case WM_SETFONT:
        case WM_THEMECHANGED:
            m_boxKnown = false;
            return false;
        case WM_NCDESTROY:
            RemovePropW(m_hWnd, Wide(kRadioProperty));
            return false;
        default:
            return false;
    }
}

void tvCheckBox::AfterMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case BM_SETCHECK:
            ReadCheckBack();
            break;
        case WM_STYLECHANGED:
            if (static_cast<int>(wParam) == GWL_STYLE) SyncStyleFollowers();
            break;
        case BM_SETSTYLE:
            SyncStyleFollowers();
            break;
        case WM_SYSCOLORCHANGE:
            if (lParam == reinterpret_cast<LPARAM>(&TheTheme())) {
                HandStateBack();
                MeasureAnew();
            }
            break;
        case WM_THEMECHANGED:
            MeasureAnew();
            break;
        default:
            break;
    }
}

void tvCheckBox::SetCheck(WPARAM state) {
    u32 check = state == BST_UNCHECKED ? BST_UNCHECKED : BST_CHECKED;
    if (state == BST_INDETERMINATE && HasThreeStates()) check = BST_INDETERMINATE;
    if (check == m_check) return;
    m_check = check;
    Repaint();
}

void tvCheckBox::ReadCheckBack() {
    // The system's own state, which tvButton would answer with this one.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    m_check = static_cast<u32>(tvWnd::WindowProc(BM_GETCHECK, 0, 0));
}

// What hangs on the style besides it.
void tvCheckBox::SyncStyleFollowers() {
    m_drawFlags = LabelFlags(m_style) | (m_drawFlags & ~kFlagsOfStyle);
    if (Type() == BS_AUTORADIOBUTTON) {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): a property is a number
        SetPropW(m_hWnd, Wide(kRadioProperty), reinterpret_cast<HANDLE>(INT_PTR{BS_AUTORADIOBUTTON}));
    } else {
        RemovePropW(m_hWnd, Wide(kRadioProperty));
    }
}

// The system keeps the state from now on, if the window has its true style again.
void tvCheckBox::HandStateBack() {
    if (!IsOwnerDrawn()) Send(BM_SETCHECK, m_check);
}

void tvCheckBox::MeasureAnew() {
    m_boxKnown = false;
    OnAutoFit();
}

bool tvCheckBox::OnReflectCommand(u16 code) {
    if (code != BN_CLICKED) return false;
    if (!IsOwnerDrawn()) {
        ReadCheckBack();
        return false;
    }
    switch (Type()) {
        case BS_AUTOCHECKBOX:
            SetCheck(m_check == BST_UNCHECKED ? BST_CHECKED : BST_UNCHECKED);
            break;
        case BS_AUTO3STATE:
            SetCheck((m_check + 1) % 3);
            break;
        case BS_AUTORADIOBUTTON:
            ChooseInGroup();
            break;
        default:
            break;
    }
    return false;
}

void tvCheckBox::ChooseInGroup() {
    SetCheck(BST_CHECKED);
    const HWND dialog = GetParent(m_hWnd);
    const HWND first = GetNextDlgGroupItem(dialog, m_hWnd, FALSE);
    HWND item = first;
    while (item != nullptr && item != m_hWnd) {
        const auto type = reinterpret_cast<INT_PTR>(GetPropW(item, Wide(kRadioProperty)));
        if (type == BS_AUTORADIOBUTTON) SendMessageW(item, BM_SETCHECK, BST_UNCHECKED, 0);
        item = GetNextDlgGroupItem(dialog, item, FALSE);
        if (item == first) return;  // this window is not among them, as when it is hidden
    }
}

int tvCheckBox::FitToText(int x, int y, int maxWidth, int maxHeight, bool exactWidth) {
    m_autoFit = 0;
    return Fit(x, y, maxWidth, maxHeight, exactWidth);
}

// The size that it gives itself fits.
void tvCheckBox::OnAutoFit() {
    if (m_autoFit == 0 || !IsAttached() || m_fitting) return;
    m_fitting = true;
    const RECT place = PlaceOf(m_hWnd);
    Fit(place.left, place.top, place.right - place.left, kFree, true);
    m_fitting = false;
}

int tvCheckBox::LabelWidth() {
    if (!IsAttached()) return 0;
    const Box& box = BoxSize();
    return std::max(Width(ClientOf(m_hWnd)) - box.side - box.gap - 2 * kEdge, 0);
}

int tvCheckBox::Fit(int x, int y, int maxWidth, int maxHeight, bool exactWidth) {
    if (!IsAttached()) return 0;
    const Box& box = BoxSize();
    const int least = box.side + box.gap + 2 * kEdge;
    RECT text{0, 0, maxWidth - least, maxHeight - 2 * kEdge};
    {
        const tvClientDC dc(m_hWnd);
        const tvSelected selected(dc.Get(), m_font);
        MeasureLabel(dc.Get(), text);
    }
    int width = maxWidth;
    if (!exactWidth) {
        const int wanted = least + kSpare + static_cast<int>(text.right - text.left);
        width = std::max(std::min(wanted, maxWidth), least);
    }
    int height = std::min(maxHeight, static_cast<int>(text.bottom - text.top) + 2 * kEdge + kSpare);
    height = std::max({height, box.lineHeight + 2 * kEdge, box.side + 2 * kEdge});
    const RECT wanted{x, y, x + width, y + height};
    const RECT place = PlaceOf(m_hWnd);
    if (!EqualRect(&place, &wanted)) {
        SetWindowPos(m_hWnd, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    return height;
}
