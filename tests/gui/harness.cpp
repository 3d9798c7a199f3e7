#include "tests/gui/harness.h"

#include <gtest/gtest.h>

#include "toolkit/app.h"
#include "toolkit/theme.h"

namespace {

constexpr DWORD kStep = 5;  // milliseconds between two looks at a condition while no message comes

void Dispatch(MSG& message, tvDialog* dialog) {
    if (message.message == WM_QUIT) return;
    tvApp* app = tvApp::Get();
    if (app != nullptr && app->PreTranslateAppMsg(&message)) return;
    if (dialog != nullptr) {
        if (dialog->PreTranslateMsg(&message)) return;
        if (dialog->IsDialogMsg(&message)) return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

// In a step of DuringModal input stays in the queue: it is the modal loop's.
bool DispatchOne(tvDialog* dialog) {
    constexpr UINT kAllButInput = PM_QS_PAINT | PM_QS_POSTMESSAGE | PM_QS_SENDMESSAGE;
    const UINT which = DuringModal::InStep() ? kAllButInput : 0;
    MSG message;
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | which) == FALSE) return false;
    Dispatch(message, dialog);
    return true;
}

BOOL CALLBACK HasUpdate(HWND window, LPARAM found) {
    if (IsWindowVisible(window) == FALSE || GetUpdateRect(window, nullptr, FALSE) == FALSE) return TRUE;
    *reinterpret_cast<bool*>(found) = true;  // NOLINT(performance-no-int-to-ptr): as it was given below
    return FALSE;
}

bool NeedsPaint(HWND window) {
    bool found = false;
    if (HasUpdate(window, reinterpret_cast<LPARAM>(&found)) != FALSE)
        EnumChildWindows(window, HasUpdate, reinterpret_cast<LPARAM>(&found));
    return found;
}

}  // namespace

// --- Waiting ---

bool PumpUntil(const std::function<bool()>& condition, int limit, tvDialog* dialog) {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(limit);
    for (;;) {
        if (condition()) return true;
        if (DispatchOne(dialog)) continue;
        if (GetTickCount64() >= end) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kStep, QS_ALLINPUT);
    }
}

void PumpQueue(tvDialog* dialog) {
    constexpr int kMost = 10000;  // a window that never ends to paint would keep the queue full for ever
    for (int i = 0; i < kMost; ++i)
        if (!DispatchOne(dialog)) return;
    ADD_FAILURE() << "the queue does not become empty";
}

void Settle(HWND window) {
    EXPECT_TRUE(PumpUntil([window] { return !NeedsPaint(window); }))
        << "the window is never done with painting";
    PumpQueue();
    GdiFlush();
}

namespace {
DuringModal* g_During = nullptr;
}

DuringModal::DuringModal(std::vector<std::function<bool()>> steps, int limit)
    : m_Steps(std::move(steps)),
      m_Deadline(GetTickCount64() + static_cast<ULONGLONG>(limit)),
      m_Limit(limit) {
    EXPECT_EQ(g_During, nullptr) << "one at a time";
    g_During = this;
    m_Timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTick);
}

DuringModal::~DuringModal() {
    KillTimer(nullptr, m_Timer);
    g_During = nullptr;
    EXPECT_TRUE(Done()) << "the modal loop ended before step " << m_Next;
}

void CALLBACK DuringModal::OnTick(HWND, UINT, UINT_PTR, DWORD) {
    if (g_During != nullptr) g_During->Tick();
}

bool DuringModal::InStep() noexcept {
    return g_During != nullptr && g_During->m_InStep;
}

void DuringModal::Tick() {
    if (m_InStep) return;
    if (GetTickCount64() > m_Deadline) {
        if (!std::exchange(m_Failed, true)) {
            ADD_FAILURE() << (Done() ? "the modal loop does not end after step " : "no end of step ")
                          << m_Next;
        }
        if (HWND front = FrontDialog()) PostMessageW(front, WM_CLOSE, 0, 0);
        return;
    }
    if (Done()) return;
    m_InStep = true;
    if (m_Steps[m_Next]()) {
        ++m_Next;
        m_Deadline = GetTickCount64() + static_cast<ULONGLONG>(m_Limit);
    }
    m_InStep = false;
}

HWND FrontDialog(const char16_t* className) {
    struct Search {
        const wchar_t* className;
        HWND found;
    } search{Wide(className), nullptr};
    const auto look = [](HWND window, LPARAM lParam) -> BOOL {
        auto* wanted = reinterpret_cast<Search*>(lParam);  // NOLINT(performance-no-int-to-ptr)
        wchar_t name[64] = {};
        GetClassNameW(window, name, 64);
        const bool fits = *wanted->className == 0
                              ? lstrcmpW(name, L"#32770") == 0 || tvWnd::FromHandle(window) != nullptr
                              : lstrcmpW(name, wanted->className) == 0;
        if (!fits || IsWindowVisible(window) == FALSE || IsWindowEnabled(window) == FALSE) return TRUE;
        if (lstrcmpW(name, L"tooltips_class32") == 0) return TRUE;
        wanted->found = window;
        return FALSE;
    };
    EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// --- The dialog ---

TestDialog::TestDialog(int cx, int cy, DialogKind kind) {
    constexpr int kControls = 16;
    TemplateBegin(cx, cy, kind, kControls);
}

TestDialog::~TestDialog() {
    Close();
}

void TestDialog::Add(u16 atom, u16 id, int x, int y, int cx, int cy, u32 styles) {
    DialogControl* control = AddControl(atom, id, x, y, cx, cy);
    ASSERT_NE(control, nullptr);
    control->style |= styles;
}

void TestDialog::Open() {
    ASSERT_TRUE(Create(nullptr));
    ShowWindow(m_hWnd, SW_SHOW);
    SetForegroundWindow(m_hWnd);
    const auto hasKeyboard = [this] {
        return GetForegroundWindow() == m_hWnd && GetActiveWindow() == m_hWnd;
    };
    ASSERT_TRUE(PumpUntil(hasKeyboard, kWaitLimit, this)) << "the dialog does not come to the front";
    Settle(m_hWnd);
}

void TestDialog::Close() {
    tvApp* app = tvApp::Get();
    if (app != nullptr && app->m_mainWnd == this) app->m_mainWnd = nullptr;
    if (m_hWnd != nullptr) DestroyWindow(m_hWnd);
}

void TestDialog::BeMain() {
    tvApp::Get()->m_mainWnd = this;
}

int TestDialog::CountCommands(WORD id) const {
    return static_cast<int>(
        std::count_if(m_commands.begin(), m_commands.end(), [id](const Command& c) { return c.id == id; }));
}

void TestDialog::OnSubclassControls() {
    for (const Wrapping& wrap : m_wraps)
        wrap.wrapper->SubclassDlgItem(m_hWnd, wrap.id);
}

bool TestDialog::OnInitDialog() {
    const bool result = tvBaseDlg::OnInitDialog();
    if (m_onInit) m_onInit();
    return result;
}

void TestDialog::OnPaintDlg(HDC dc, const RECT& rect) {
    tvBaseDlg::OnPaintDlg(dc, rect);
    if (m_onPaint) m_onPaint(dc, rect);
}

LRESULT TestDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (m_keepMessages) m_messages.push_back({m_hWnd, message, wParam, lParam, 0, {}});
    if (message == WM_COMMAND) m_commands.push_back({LOWORD(wParam), HIWORD(wParam)});
    LRESULT result = 0;
    if (m_onMessage && m_onMessage(message, wParam, lParam, result)) return result;
    return tvBaseDlg::WindowProc(message, wParam, lParam);
}

// --- Themes ---

void UseTheme(std::u16string_view name, HWND window) {
    const int index = TheTheme().FindTheme(tvstring(name));
    ASSERT_GE(index, 0) << "no theme of this name";
    ASSERT_TRUE(TheTheme().Apply(index));
    if (window == nullptr) window = tvApp::MainWindow();
    if (window == nullptr) return;
    if (window != tvApp::MainWindow())
        PostMessageW(window, WM_SYSCOLORCHANGE, 0, reinterpret_cast<LPARAM>(&TheTheme()));
    PumpQueue();
    Settle(window);
}

KeepTheme::KeepTheme() : m_Name(TheTheme().m_name) {}

KeepTheme::~KeepTheme() {
    TheTheme().Apply(TheTheme().FindTheme(m_Name));
}
