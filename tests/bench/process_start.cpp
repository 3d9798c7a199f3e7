#include "tests/bench/process_start.h"

#include "foundation/path.h"
#include "platform/windows_api.h"

namespace {

struct Search {
    DWORD process;
    HWND found;
};

BOOL CALLBACK LookForWindow(HWND window, LPARAM lParam) {
    auto* search = reinterpret_cast<Search*>(lParam);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search->process || IsWindowVisible(window) == FALSE) return TRUE;
    search->found = window;
    return FALSE;
}

Milliseconds Now() {
    LARGE_INTEGER count;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// A window that answers has dealt with what was before in its queue; painting comes last of all.
bool IsPainted(HWND window) {
    constexpr UINT kLimit = 5000;
    DWORD_PTR answer = 0;
    return SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kLimit, &answer) != 0 &&
           GetUpdateRect(window, nullptr, FALSE) == FALSE;
}

}  // namespace

Milliseconds StartOf(const char16_t* name, const char16_t* arguments) {
    constexpr DWORD kLimit = 20000;
    constexpr DWORD kPause = 2;  // so that the looking takes no time from what is looked at
    tvstring command = u"\"";
    command.append(ProgramPath(name)).append(u"\" ").append(arguments);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    const Milliseconds from = Now();
    if (CreateProcessW(nullptr, platform::Wide(command.data()), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &start, &process) == FALSE)
        return -1;
    WaitForInputIdle(process.hProcess, kLimit);
    Search search{process.dwProcessId, nullptr};
    while ((search.found == nullptr || !IsPainted(search.found)) && Now() - from < kLimit) {
        Sleep(kPause);
        EnumWindows(LookForWindow, reinterpret_cast<LPARAM>(&search));
    }
    const Milliseconds taken = search.found == nullptr ? -1 : Now() - from;
    PostMessageW(search.found, WM_CLOSE, 0, 0);
    if (WaitForSingleObject(process.hProcess, kLimit) != WAIT_OBJECT_0) TerminateProcess(process.hProcess, 1);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return taken;
}
