#include "tests/scenarios/program.h"

#include <sstream>
#include <vector>

#include "foundation/path.h"

namespace {

constexpr int kStartLimit = 20000;  // milliseconds

struct Search {
    DWORD process;
    bool dialogs;
    const wchar_t* className;
    HWND found;
};

bool IsMainWindow(HWND window) {
    return GetWindow(window, GW_OWNER) == nullptr && GetDlgItem(window, 2001) != nullptr;
}

bool IsDialog(HWND window) {
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    return GetWindow(window, GW_OWNER) != nullptr && (style & WS_CAPTION) == WS_CAPTION;
}

BOOL CALLBACK Look(HWND window, LPARAM lParam) {
    auto* search = reinterpret_cast<Search*>(lParam);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search->process || IsWindowVisible(window) == FALSE) return TRUE;
    if (search->className != nullptr) {
        wchar_t name[64] = {};
        GetClassNameW(window, name, static_cast<int>(std::size(name)));
        if (lstrcmpW(name, search->className) != 0) return TRUE;
    } else if (search->dialogs ? !IsDialog(window) : !IsMainWindow(window)) {
        return TRUE;
    }
    search->found = window;
    return FALSE;
}

HWND Find(DWORD process, bool dialogs, const wchar_t* className = nullptr) {
    Search search{process, dialogs, className, nullptr};
    EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

struct Windows {
    DWORD process;
    std::vector<HWND> found;
};

BOOL CALLBACK TakeVisible(HWND window, LPARAM lParam) {
    auto* windows = reinterpret_cast<Windows*>(lParam);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == windows->process && IsWindowVisible(window) != FALSE) windows->found.push_back(window);
    return TRUE;
}

// Null also if there are several.
HWND OnlyWindow(DWORD process) {
    Windows windows{process, {}};
    EnumWindows(TakeVisible, reinterpret_cast<LPARAM>(&windows));
    return windows.found.size() == 1 ? windows.found.front() : nullptr;
}

// True if the window is in front, has the keyboard, waits for what comes and takes it. A foreground that was
// lost to the desktop, since the display told late of a window that has gone, is given back.
bool IsReady(HWND window) {
    constexpr UINT kLimit = 1000;
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    HWND front = GetForegroundWindow();
    if (front == nullptr || front == GetDesktopWindow()) SetForegroundWindow(window);
    if (GetForegroundWindow() != window) return false;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    const bool hasKeyboard = info.hwndFocus == window || IsChild(window, info.hwndFocus) != FALSE;
    DWORD_PTR answer = 0;
    return hasKeyboard && SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kLimit, &answer) != 0 &&
           IsWindowEnabled(window) != FALSE;
}

// What stands in the way of a window, for the message of a test.
std::string Describe(HWND window) {
    std::ostringstream text;
    const auto tell = [&text](const char* role, HWND which) {
        char caption[64] = {};
        char name[64] = {};
        if (which != nullptr) {
            GetWindowTextA(which, caption, static_cast<int>(std::size(caption)));
            GetClassNameA(which, name, static_cast<int>(std::size(name)));
        }
        text << "; " << role << ": " << which << " " << name << " \"" << caption << "\"";
    };
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    tell("wanted", window);
    tell("in front", GetForegroundWindow());
    tell("with the keyboard", info.hwndFocus);
    return text.str();
}

HMENU OpenMenu(DWORD process) {
    HWND popup = Find(process, false, L"#32768");
    return popup == nullptr ? nullptr : reinterpret_cast<HMENU>(SendMessageW(popup, MN_GETHMENU, 0, 0));
}

// Of the client area, as it is on the display: the window is another process's.
template <typename Take>
void ForEachPixel(HWND window, Take take) {
    const Picture display(GetDesktopWindow());
    RECT rect{};
    GetClientRect(window, &rect);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x)
            take(display.At(x, y));
    }
}

PROCESS_INFORMATION CreateProcessOf(const tvstring& program, const tvstring& arguments) {
    tvstring command = u"\"";
    const bool isWhole = program.find(u'\\') != tvstring::npos;
    command.append(isWhole ? program : ProgramPath(program.c_str())).append(u"\" ").append(arguments);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    EXPECT_NE(CreateProcessW(nullptr, Wide(command.data()), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                             &start, &process),
              FALSE)
        << "the program does not start";
    CloseHandle(process.hThread);
    return process;
}

}  // namespace

bool TypeWithControl(WORD key, const std::function<bool()>& effect, int limit) {
    constexpr int kTries = 3;
    constexpr int kSoon = 2000;
    for (int i = 0; i < kTries; ++i) {
        bool isLost = false;
        const auto isSettled = [&] {
            isLost = (GetAsyncKeyState(VK_CONTROL) & 0x8000) == 0;
            return isLost || effect();
        };
        KeyDown(VK_CONTROL);
        KeyDown(key);
        KeyUp(key);
        const bool isOver = PumpUntil(isSettled, limit);
        const bool hasCome = isLost ? PumpUntil(effect, kSoon) : isOver;
        KeyUp(VK_CONTROL);
        if (hasCome || !isLost) return hasCome;
    }
    return false;
}

tvstring TextOf(HWND window) {
    wchar_t text[1024] = {};
    SendMessageW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
    return tvstring(Units(text));
}

u64 LookOf(HWND window) {
    u64 sum = 1469598103934665603ULL;
    ForEachPixel(window, [&sum](COLORREF color) { sum = (sum ^ color) * 1099511628211ULL; });
    return sum;
}

int CountPixels(HWND window, COLORREF color) {
    int count = 0;
    ForEachPixel(window, [&](COLORREF pixel) { count += pixel == color ? 1 : 0; });
    return count;
}

COLORREF ColorAt(HWND window, int x, int y) {
    POINT point{x, y};
    ClientToScreen(window, &point);
    return Picture(GetDesktopWindow()).At(point.x, point.y);
}

Program::~Program() {
    if (m_Process == nullptr) return;
    TerminateProcess(m_Process, 1);
    WaitForSingleObject(m_Process, INFINITE);
    CloseHandle(m_Process);
}

bool Program::Start(const tvstring& arguments) {
    return StartCopy(u"vaultmere.exe", arguments);
}

bool Program::StartCopy(const tvstring& program, const tvstring& arguments) {
    if (!Launch(program, arguments)) return false;
    Activate();
    return true;
}

HWND Program::StartAsking(const tvstring& arguments) {
    return Launch(u"vaultmere.exe", arguments) ? WaitForDialog() : nullptr;
}

HWND Program::StartRefusing(const tvstring& program, const tvstring& arguments) {
    Begin(program, arguments);
    HWND message = nullptr;
    EXPECT_TRUE(
        PumpUntil([&] { return (message = OnlyWindow(m_Id)) != nullptr && IsReady(message); }, kStartLimit))
        << "no message comes" << Describe(message);
    return message;
}

// Programs take the system's time for a double click over as they start. Two clicks of a test are never one,
// however quick they come.
void Program::Begin(const tvstring& program, const tvstring& arguments) {
    constexpr UINT kNoDoubleClick = 1;  // milliseconds
    SetDoubleClickTime(kNoDoubleClick);
    if (m_Process != nullptr) CloseHandle(m_Process);
    const PROCESS_INFORMATION process = CreateProcessOf(program, arguments);
    m_Process = process.hProcess;
    m_Id = process.dwProcessId;
}

bool Program::Launch(const tvstring& program, const tvstring& arguments) {
    Begin(program, arguments);
    const bool isThere = PumpUntil([this] { return (m_Main = Find(m_Id, false)) != nullptr; }, kStartLimit);
    EXPECT_TRUE(isThere) << "no main window comes";
    return isThere;
}

DWORD Program::Run(const tvstring& program, const tvstring& arguments) {
    const PROCESS_INFORMATION process = CreateProcessOf(program, arguments);
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hProcess);
    return code;
}

void Program::Activate() const {
    SetForegroundWindow(m_Main);
    EXPECT_TRUE(PumpUntil([this] { return IsReady(m_Main); })) << "it does not come to the front";
}

HWND Program::Control(int id) const {
    return tvWnd::FindDescendant(m_Main, id);
}

bool Program::Sees(int id) const {
    HWND control = Control(id);
    return control != nullptr && IsWindowVisible(control) != FALSE;
}

HWND Program::Dialog() const {
    return Find(m_Id, true);
}

HWND Program::WaitForDialog(int limit) const {
    HWND dialog = nullptr;
    const auto isThere = [&] {
        dialog = Dialog();
        return dialog != nullptr && IsReady(dialog);
    };
    EXPECT_TRUE(PumpUntil(isThere, limit)) << "no dialog comes" << Describe(dialog);
    return dialog;
}

bool Program::WaitForNoDialog() const {
    return PumpUntil([this] { return Dialog() == nullptr && IsReady(m_Main); });
}

HMENU Program::WaitForMenu() const {
    EXPECT_TRUE(PumpUntil([this] { return OpenMenu(m_Id) != nullptr; })) << "no menu opens";
    return OpenMenu(m_Id);
}

bool Program::WaitForNoMenu() const {
    return PumpUntil([this] { return OpenMenu(m_Id) == nullptr; });
}

// The application key asks the bar for its menu, or the list for its own; the button answers to a blank.
void Program::OpenMenuByKeyboard() const {
    SetForegroundWindow(m_Main);
    for (int i = 0; i < 8 && OpenMenu(m_Id) == nullptr; ++i) {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(m_Main, nullptr), &info);
        if (info.hwndFocus == Control(2006)) {
            Type(VK_SPACE);
            break;
        }
        HWND before = info.hwndFocus;
        Type(VK_TAB);
        PumpUntil([&] {
            GetGUIThreadInfo(GetWindowThreadProcessId(m_Main, nullptr), &info);
            return info.hwndFocus != before;
        });
    }
    EXPECT_NE(WaitForMenu(), nullptr);
}

void Program::Choose(std::u16string_view letters) const {
    OpenMenuByKeyboard();
    for (const char16_t letter : letters)
        Type(static_cast<WORD>(letter));
    EXPECT_TRUE(WaitForNoMenu()) << "the menu stays";
}

void Program::ChooseByKeys(std::initializer_list<WORD> keys) const {
    OpenMenuByKeyboard();
    for (const WORD key : keys)
        Type(key);
    EXPECT_TRUE(WaitForNoMenu()) << "the menu stays";
}

bool Program::HasEnded(int limit) {
    if (!PumpUntil([this] { return WaitForSingleObject(m_Process, 0) == WAIT_OBJECT_0; }, limit))
        return false;
    DWORD code = 1;
    GetExitCodeProcess(m_Process, &code);
    return code == 0;
}

bool Program::Quit() {
    Activate();
    Type(VK_F4, HOLD_ALT);
    return HasEnded();
}
