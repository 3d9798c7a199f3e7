#include "windows/top_dlg.h"

#include "database/database.h"
#include "foundation/language.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/app.h"
#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"
#include "toolkit/tool_tip.h"
#include "windows/dialog_layout.h"
#include "windows/set_control.h"

namespace {

constexpr u16 kRenameImage = 107;
constexpr u16 kSetPasswordImage = 103;
constexpr u16 kSaveImage = 105;

}  // namespace

CVMRTopDlg::CVMRTopDlg()
    : m_btnRename(kRenameImage, GLYPH_NONE),
      m_btnSetPassword(kSetPasswordImage, GLYPH_NONE),
      m_btnSave(kSaveImage, GLYPH_NONE),
      m_btnMenu(0, GLYPH_TRIANGLE) {}

CVMRTopDlg::~CVMRTopDlg() {
    Detach(Window::Destroy);
}

void CVMRTopDlg::BuildTemplate() {
    if (HasTemplate()) return;
    TemplateBegin(316, 30, DialogKind::Child, 4);
    AddControl(ATOM_BUTTON, CMD_RENAME, 167, 7, 30, 16);
    AddControl(ATOM_BUTTON, CMD_SET_PASSWORD, 204, 7, 30, 16);
    AddControl(ATOM_BUTTON, CMD_SAVE, 241, 7, 30, 16);
    AddControl(ATOM_BUTTON, CMD_MAIN_MENU, 279, 7, 30, 16);
}

void CVMRTopDlg::OnSubclassControls() {
    m_btnRename.SubclassDlgItem(m_hWnd, CMD_RENAME);
    m_btnSetPassword.SubclassDlgItem(m_hWnd, CMD_SET_PASSWORD);
    m_btnSave.SubclassDlgItem(m_hWnd, CMD_SAVE);
    m_btnMenu.SubclassDlgItem(m_hWnd, CMD_MAIN_MENU);
}

bool CVMRTopDlg::OnInitDialog() {
    TheToolTip().Create(nullptr, 0);
    const bool result = CVMRBaseDlg::OnInitDialog();
    TheToolTip().AddCallbackTool(m_hWnd);
    OnAppNotify(APPN_TOPBAR, 0, 0, 0);
    return result;
}

void CVMRTopDlg::OnUpdateText() {
    SetText(m_btnRename, u"file", u"modify_title");
    SetText(m_btnSetPassword, u"file", u"setpwd_title");
    SetText(m_btnSave, u"file", u"save");
    SetText(m_btnMenu, u"global", u"main_menu");
}

void CVMRTopDlg::OnUpdateState() {
    const VMRD_DB& database = TheDatabase();
    ShowIf(m_btnRename, database.m_Opened);
    ShowIf(m_btnSetPassword, database.m_Opened);
    ShowIf(m_btnSave, database.m_Opened && database.m_Changed);
    ShowIf(m_btnMenu, true);
}

// From the right edge. A save button that is hidden stays where it was.
void CVMRTopDlg::OnLayout() {
    const RECT client = ClientOf(m_hWnd);
    const LONG gap = TheTheme().m_borderWidth;
    LONG right = client.right;
    const auto place = [&](const tvWnd& button) {
        right -= SizeOf(button).cx;
        MoveTo(button, static_cast<int>(right), static_cast<int>(client.top));
        right -= gap;
    };
    place(m_btnMenu);
    if (TheDatabase().m_Changed) place(m_btnSave);
    place(m_btnSetPassword);
    place(m_btnRename);
}

void CVMRTopDlg::OnAppNotify(i32 code, NotifyArgument, NotifyArgument, NotifyArgument) {
    if (!IsAttached()) return;
    if (code == APPN_LANGUAGE) OnUpdateText();
    OnUpdateState();
    OnLayout();
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE);
}

// --- Painting ---

LONG CVMRTopDlg::NameEnd(const RECT& rect) const {
    constexpr LONG kButtons = 3;
    const LONG button = SizeOf(m_btnMenu).cx;
    const LONG gap = TheTheme().m_borderWidth;
    LONG end = rect.right - kButtons * button - (kButtons + 1) * gap;
    if (TheDatabase().m_Changed) end -= button + gap;
    return end;
}

void CVMRTopDlg::OnPaintDlg(HDC dc, const RECT& rect) {
    constexpr LONG kLeft = 8;
    FillSolid(dc, rect, TheTheme().Color(&tvColorTheme::m_button, COLOR_WINDOW));
    VMRD_DB& database = TheDatabase();
    if (!database.m_Opened) return;
    RECT place = {kLeft, rect.top, NameEnd(rect), rect.bottom};
    tvstring text = database.DisplayName();
    if (database.m_Changed) text.insert(0, u"*");
    if (TheTheme().m_isSystemDefault) SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &place,
              DT_SINGLELINE | DT_VCENTER | DT_PATH_ELLIPSIS | DT_END_ELLIPSIS);
}

// --- Messages ---

// The tip of the bar is the path of the database's file.
bool CVMRTopDlg::GiveTip(LPARAM lParam) {
    static tvstring path;  // has to stay where it is while the tip is shown
    auto* info = reinterpret_cast<NMTTDISPINFOW*>(lParam);
    const bool isAsked = info->hdr.code == TTN_GETDISPINFOW && info->hdr.hwndFrom == TheToolTip().Handle();
    if (!isAsked || !TheDatabase().m_Opened) return false;
    path = TheDatabase().m_Path;
    info->lpszText = Wide(path.data());
    return true;
}

void CVMRTopDlg::OpenMenu(int x, int y, UINT flags) {
    CVMRAppData& data = TheAppData();
    if (data.UpdateMainMenu()) data.mainMenu.TrackPopup(x, y, tvApp::MainWindow(), flags);
}

void CVMRTopDlg::OpenMenuBelow() const {
    RECT rect{};
    GetWindowRect(m_hWnd, &rect);
    OpenMenu(static_cast<int>(rect.right), static_cast<int>(rect.bottom), TPM_RIGHTALIGN);
}

void CVMRTopDlg::OnContextMenu(LPARAM lParam) const {
    const POINT point{static_cast<i16>(LOWORD(lParam)), static_cast<i16>(HIWORD(lParam))};
    if (point.x == -1 && point.y == -1) {
        PostMessageW(m_hWnd, WM_COMMAND, CMD_MAIN_MENU, 0);
    } else {
        OpenMenu(static_cast<int>(point.x), static_cast<int>(point.y), 0);
    }
}

// The bar is as high as its buttons.
void CVMRTopDlg::FitToFont() const {
    SetWindowPos(m_hWnd, nullptr, 0, 0, SizeOf(*this).cx, SizeOf(m_btnMenu).cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT CVMRTopDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT:
            if (PaintWindow(Fade::Yes)) return 0;  // from the last picture
            break;
        case WM_NOTIFY:
            if (GiveTip(lParam)) return 0;
            break;
        case WM_DESTROY:
            RemoveToolTip(m_hWnd);
            break;
        case WM_CONTEXTMENU:
            OnContextMenu(lParam);
            return 0;
        case WM_COMMAND:
            switch (LOWORD(wParam)) {
                case CMD_MAIN_MENU:
                    OpenMenuBelow();
                    return 0;
                case CMD_SAVE:
                case CMD_RENAME:
                case CMD_SET_PASSWORD:
                    PostMessageW(tvApp::MainWindow(), WM_COMMAND, wParam, 0);
                    return 0;
                default:
                    break;
            }
            break;
        case WM_LBUTTONDBLCLK:
            PostMessageW(tvApp::MainWindow(), WM_COMMAND, CMD_RENAME, 0);
            break;
        default:
            break;
    }
    const LRESULT result = CVMRBaseDlg::WindowProc(message, wParam, lParam);
    if (message == WM_SETFONT) FitToFont();
    return result;
}
