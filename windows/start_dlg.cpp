#include "windows/start_dlg.h"

#include <algorithm>

#include "foundation/language.h"
#include "foundation/textops.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/app.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"
#include "windows/base_button.h"
#include "windows/command_ids.h"
#include "windows/dialog_layout.h"
#include "windows/set_control.h"

namespace {

constexpr u16 kListId = 2005;
constexpr u32 kCreateImage = 104;
constexpr u32 kOpenImage = 106;

// The title comes from a menu's text.
void SetTexts(CVMRStartButton& button, const char16_t* title, const char16_t* note) {
    tvstring text = LangText(u"start", title);
    CleanCaption(text, false, CUT_UNLESS_ONE);
    SetText(button, text);
    button.SetNote(LangText(u"start", note));
}

int HeadingHeight() {
    return TheTheme().TextHeight(TheTheme().m_fontLarge.Get(), nullptr);
}

// From the lower button to the list: the heading stands in it.
int GapAboveList() {
    const tvTheme& theme = TheTheme();
    return theme.m_halfMarginY + theme.m_borderWidth + HeadingHeight();
}

}  // namespace

CVMRStartDlg::CVMRStartDlg() : m_createBtn(kCreateImage), m_openBtn(kOpenImage) {}

CVMRStartDlg::~CVMRStartDlg() {
    Detach(Window::Destroy);
}

void CVMRStartDlg::BuildTemplate() {
    if (HasTemplate()) return;
    TemplateBegin(310, 177, DialogKind::Child, 4);
    AddControl(ATOM_BUTTON, CMD_NEW, 7, 7, 296, 16);
    AddControl(ATOM_BUTTON, CMD_OPEN, 7, 35, 296, 16);
    DialogControl* list = AddControl(ATOM_LISTBOX, kListId, 7, 77, 296, 93);
    list->style &= ~static_cast<u32>(WS_BORDER);
    list->style |= LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWVARIABLE;
    list->exStyle &= ~static_cast<u32>(WS_EX_CLIENTEDGE | WS_EX_STATICEDGE);
}

void CVMRStartDlg::OnSubclassControls() {
    m_createBtn.SubclassDlgItem(m_hWnd, CMD_NEW);
    m_openBtn.SubclassDlgItem(m_hWnd, CMD_OPEN);
    m_recentList.SubclassDlgItem(m_hWnd, kListId);
}

bool CVMRStartDlg::OnInitDialog() {
    const bool result = CVMRBaseDlg::OnInitDialog();
    OnAppNotify(APPN_START, 0, 0, 0);
    return result;
}

void CVMRStartDlg::OnUpdateText() {
    SetTexts(m_createBtn, u"create", u"create_info");
    SetTexts(m_openBtn, u"open", u"open_info");
}

// --- The list ---

bool CVMRStartDlg::HasList() const {
    return TheAppData().bHistory != 0 && m_recentList.GetCount() > 0;
}

void CVMRStartDlg::OnAppNotify(i32 code, NotifyArgument, NotifyArgument, NotifyArgument) {
    if (!IsAttached()) return;
    if (code == APPN_LANGUAGE) OnUpdateText();
    m_recentList.Reload();
    ShowIf(m_recentList, HasList());
    OnLayout();
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

// --- Layout ---

// Lines that are too long are hard to read: the page stays narrow in the middle of a wide window.
RECT CVMRStartDlg::Page() const {
    constexpr int kLetters = 128;
    RECT client{};
    GetClientRect(m_hWnd, &client);
    const RECT room = Inset(client, TheTheme().m_marginX, 2 * TheTheme().m_marginY);
    int letter = 0;
    TheTheme().TextHeight(TheTheme().Font(), &letter);
    return CenteredBox(room, std::min(kLetters * letter, Width(room)), Height(room));
}

// Of whole rows, with one to spare if there is room for it.
int CVMRStartDlg::ListHeight(int room) {
    const int row = m_recentList.CalcItemHeight(-1);
    const int rows = std::min(m_recentList.GetCount() + 1, room / row);
    return std::max(rows, 1) * row;
}

// A block that leaves much room free stands a third of that from the top.
void CVMRStartDlg::OnLayout() {
    const RECT page = Page();
    const int button = static_cast<int>(SizeOf(m_createBtn).cy);
    const int margin = TheTheme().m_marginY;
    const int buttons = 2 * (margin + button);
    const int gap = GapAboveList();
    const int list = ListHeight(Height(page) - buttons - gap);
    const int block = buttons + (TheAppData().bHistory != 0 ? gap + list : 0);
    LONG top = page.top;
    if (block < Height(page) * 2 / 3) top += (Height(page) - block) / 3;

    Place(m_createBtn, BoxAt(page.left, top, Width(page), button));
    top += button + 2 * margin;
    Place(m_openBtn, BoxAt(page.left, top, Width(page), button));
    top += button + gap;
    Place(m_recentList, BoxAt(page.left, top, Width(page), list));
}

// --- Painting ---

void CVMRStartDlg::OnPaintDlg(HDC dc, const RECT&) {
    constexpr UINT kFlags = DT_SINGLELINE | DT_BOTTOM | DT_END_ELLIPSIS | DT_HIDEPREFIX;
    if (!HasList()) return;
    RECT place = m_recentList.ScreenPlace();
    MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&place), 2);
    place.bottom = place.top - TheTheme().m_borderWidth;
    place.top = place.bottom - HeadingHeight();
    const tvstring text = LangText(u"start", u"recent_title");
    const tvSelected font(dc, TheTheme().m_fontLarge.Get());
    DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &place, kFlags);
}

// --- Messages ---

LRESULT CVMRStartDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) != CMD_NEW && LOWORD(wParam) != CMD_OPEN) break;
            PostMessageW(tvApp::MainWindow(), WM_COMMAND, LOWORD(wParam), 0);
            return 0;
        default:
            break;
    }
    const LRESULT result = CVMRBaseDlg::WindowProc(message, wParam, lParam);
    if (message == WM_SETFONT && m_initDone) OnLayout();
    return result;
}
