#include "windows/main_dlg.h"

#include <algorithm>

#include "database/database.h"
#include "foundation/path.h"
#include "foundation/product.h"
#include "shell/app.h"
#include "shell/app_data.h"
#include "shell/command_line.h"
#include "shell/last_window.h"
#include "shell/statics.h"
#include "shell/window_placement.h"
#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"
#include "windows/dialog_layout.h"

namespace {

constexpr u16 kStatusBarId = 2001;
constexpr u16 kSplitterId = 2002;

void ShowPane(const tvWnd& window, bool shown) {
    ShowWindow(window.Handle(), shown ? SW_SHOW : SW_HIDE);
}

}  // namespace

CVMRDlg::~CVMRDlg() {
    Detach(Window::Destroy);
}

void CVMRDlg::BuildTemplate() {
    if (HasTemplate()) return;
    TemplateBegin(450, 250, DialogKind::Popup, 4);
    AddControl(ATOM_BUTTON, kSplitterId, 179, 7, 6, 218);
    AddControl(ATOM_STATIC, kStatusBarId, 7, 229, 436, 14)->style |= SS_OWNERDRAW;
    DialogHeader* header = m_builder.Header();
    header->style &= ~static_cast<u32>(DS_MODALFRAME);
    header->style |= WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_THICKFRAME;
}

void CVMRDlg::OnSubclassControls() {
    m_splitter.SubclassDlgItem(m_hWnd, kSplitterId);
    m_statusBar.SubclassDlgItem(m_hWnd, kStatusBarId);
}

// --- Opening ---

bool CVMRDlg::OnInitDialog() {
    Send(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(TheTheme().m_icons.Find(ICON_APPLICATION)));
    Send(WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(TheTheme().m_icons.Find(ICON_APPLICATION_SMALL)));
    SetWindowTextW(m_hWnd, Wide(kAppName.data()));
    CreatePanes();
    SetUpSplitter();
    CVMRBaseDlg::OnInitDialog();
    RestorePlacement();
    UpdatePanes();
    ShowWindow(m_hWnd, SW_SHOW);
    OpenFromCommandLine();
    return true;
}

void CVMRDlg::CreatePanes() {
    CVMRBaseDlg* const panes[] = {&m_topDlg, &m_leftDlg, &m_rightDlg, &m_startDlg};
    for (CVMRBaseDlg* pane : panes) {
        pane->BuildTemplate();
        pane->Create(m_hWnd);
    }
    ShowPane(m_topDlg, true);
}

// The splitter stays as far from either side as the left pane is wide at first.
void CVMRDlg::SetUpSplitter() {
    const int width = static_cast<int>(SizeOf(m_leftDlg).cx);
    m_splitter.m_marginTop = width;
    m_splitter.m_marginLeft = width;
    m_splitter.m_vertical = 0;
    m_splitter.m_fill = kNoColor;
    m_splitter.m_frameColor = kNoColor;
    if (IsWindowVisible(m_splitter.Handle()) != FALSE)
        RedrawWindow(m_splitter.Handle(), nullptr, nullptr, RDW_INVALIDATE);
    m_spPercent = static_cast<float>(width) / static_cast<float>(Width(ClientOf(m_hWnd)));
}

void CVMRDlg::RestorePlacement() {
    const float fromTemplate = m_spPercent;
    LoadStorePlacement(LoadStore::Load, m_hWnd, m_spPercent);
    if (m_spPercent != fromTemplate) OnLayout();
}

// Nothing is said of a path that leads nowhere.
void CVMRDlg::OpenFromCommandLine() {
    const CVMRAppData& data = TheAppData();
    tvstring path = PathFromArguments(CVMRApp::Arguments());
    if (path.empty() && data.bAutoOpen != 0 && !data.recentItems.empty())
        path = data.recentItems.front().path;
    if (PathKind(path) != PATH_FILE) return;
    path = ExpandPath(path);
    OnAppNotify(APPN_OPENDB, AsArgument(path.c_str()), 1, 0);
}

// --- Layout ---

void CVMRDlg::OnLayout() {
    RECT rest = ClientOf(m_hWnd);
    const int statusHeight = static_cast<int>(SizeOf(m_statusBar).cy);
    Place(m_statusBar, {rest.left, rest.bottom - statusHeight, rest.right, rest.bottom});
    rest.bottom -= statusHeight;

    const int topHeight = static_cast<int>(SizeOf(m_topDlg).cy);
    Place(m_topDlg, {rest.left, rest.top, rest.right, rest.top + topHeight});
    rest.top += topHeight;

    Place(m_startDlg, rest);

    const LONG edge = rest.left + static_cast<LONG>(static_cast<float>(Width(rest)) * m_spPercent);
    Place(m_splitter, {edge, rest.top, edge + TheTheme().m_marginX, rest.bottom});
    const RECT splitter = PlaceOf(m_splitter);  // which has limits of its own
    Place(m_leftDlg, {rest.left, rest.top, splitter.left, rest.bottom});
    Place(m_rightDlg, {splitter.right, rest.top, rest.right, rest.bottom});
}

void CVMRDlg::UpdatePanes() const {
    const bool isOpen = TheDatabase().m_Opened;
    ShowPane(m_startDlg, !isOpen);
    ShowPane(m_leftDlg, isOpen);
    ShowPane(m_rightDlg, isOpen);
    ShowPane(m_splitter, isOpen);
}

// The message is posted: meanwhile the window may have been minimised, and has no width then.
void CVMRDlg::OnSplit() {
    if (Width(ClientOf(m_hWnd)) <= 0) return;
    const RECT splitter = PlaceOf(m_splitter);
    m_spPercent = static_cast<float>(splitter.left) / static_cast<float>(Width(ClientOf(m_hWnd)));
    OnLayout();
}

// --- Messages ---

// What another process has changed holds here too.
void CVMRDlg::OnSharedSetting(WPARAM setting) {
    CVMRAppData& data = TheAppData();
    switch (static_cast<SharedSetting>(LOWORD(setting))) {
        case SharedSetting::History:
            data.LoadStoreHistory(LoadStore::Load, data);
            OnAppNotify(APPN_START, 0, 0, 0);
            break;
        case SharedSetting::ClearClipboard:
            data.LoadStoreClearClipboard(LoadStore::Load);
            break;
    }
}

bool CVMRDlg::IsInGrip(LPARAM screenPoint) const {
    constexpr LONG kSide = 10;
    POINT point{static_cast<i16>(LOWORD(screenPoint)), static_cast<i16>(HIWORD(screenPoint))};
    ScreenToClient(m_hWnd, &point);
    const RECT client = ClientOf(m_hWnd);
    const RECT grip{client.right - kSide, client.bottom - kSide, client.right, client.bottom};
    return PtInRect(&grip, point) != FALSE;
}

// The status bar lets clicks through; one on it takes the message away.
void CVMRDlg::OnClick() {
    POINT point{};
    GetCursorPos(&point);
    RECT bar{};
    GetWindowRect(m_statusBar.Handle(), &bar);
    if (PtInRect(&bar, point) != FALSE) OnAppNotify(APPN_STATUS, STATUS_INFORMATION, 0, 0);
}

bool CVMRDlg::OnOwnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const auto otherWindow = reinterpret_cast<HWND>(lParam);
    if (message == WM_TVBUTTON_SPLIT && wParam == kSplitterId && otherWindow == m_splitter.Handle())
        OnSplit();
    if (message == WM_VMR && WM_VMR != 0 && otherWindow != m_hWnd) OnSharedSetting(wParam);
    switch (message) {
        case WM_DESTROY:
            LoadStorePlacement(LoadStore::Store, m_hWnd, m_spPercent);
            return false;
        case WM_CLOSE:
            result = 0;
            return !DiscardPrompt();
        case WM_NCHITTEST:
            result = HTBOTTOMRIGHT;
            return IsInGrip(lParam);
        case WM_COMMAND:
            OnCommand(LOWORD(wParam));
            return false;
        case WM_LBUTTONDOWN:
            OnClick();
            return false;
        default:
            return false;
    }
}

LRESULT CVMRDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool isMaximised = message == WM_SYSCOMMAND && LOWORD(wParam) == SC_MAXIMIZE;
    if (message == WM_MOVE || message == WM_SIZE || isMaximised) NoteLastMainWindow(m_hWnd);
    LRESULT result = 0;
    if (OnOwnMessage(message, wParam, lParam, result)) return result;
    return CVMRBaseDlg::WindowProc(message, wParam, lParam);
}

namespace {

bool IsEdit(HWND window) {
    constexpr int kLongest = 64;
    wchar_t name[kLongest] = {};
    GetClassNameW(window, name, kLongest);
    return lstrcmpW(name, L"Edit") == 0;
}

}  // namespace

// An edit box has an undo of its own, and dialogs in front keep their keys.
bool CVMRDlg::PreTranslateMsg(MSG* msg) {
    constexpr LPARAM kAltIsDown = 1 << 29;
    const bool isF10 = msg->message == WM_SYSKEYDOWN && (msg->lParam & kAltIsDown) == 0;
    if (isF10 && GetFocus() == nullptr) PostMessageW(m_hWnd, WM_NEXTDLGCTL, 0, 0);
    const bool isZ = msg->message == WM_KEYDOWN && msg->wParam == 'Z';
    if (isZ && msg->hwnd != m_hWnd && IsEdit(msg->hwnd)) return false;
    HACCEL accelerators = TheAppData().hAccel.Get();
    const bool isMine = msg->hwnd == m_hWnd || IsChild(m_hWnd, msg->hwnd) != FALSE;
    return accelerators != nullptr && isMine && TranslateAcceleratorW(m_hWnd, accelerators, msg) != 0;
}
