// How long the main window takes with many items: opening a file, a keystroke in the search box, a change of
// item, a step of the wheel; each until everything is painted. Medians in milliseconds, and the limits. It
// needs a display.
#include <cstdio>
#include <memory>

#include "database/element.h"
#include "foundation/path.h"
#include "platform/windows_api.h"
#include "shell/app.h"
#include "shell/start.h"
#include "shell/statics.h"
#include "tests/bench/median.h"
#include "tests/bench/sample_data.h"
#include "toolkit/app.h"
#include "toolkit/theme.h"
#include "windows/main_dlg.h"

#include <psapi.h>  // wants the system's types

namespace {

constexpr char16_t kRareLetter = u'~';    // in the name of one item of a hundred
constexpr char16_t kCommonLetter = u'|';  // in every name
constexpr int kRareEvery = 100;

void DispatchAll() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    GdiFlush();
}

void Print(const char* what, double milliseconds, double limit) {
    std::printf("  %-48s %9.1f ms   (%.0f wanted)%s\n", what, milliseconds, limit,
                milliseconds > limit ? "   TOO LONG" : "");
}

tvstring MakeFile(int items) {
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    tvstring path = JoinPath(Units(folder), u"list-times.VMR");
    auto database = std::make_unique<VMRD_DB>();
    FillSample(*database, items);
    int row = 0;
    for (ItemElement* item = database->m_Head; item != nullptr; item = item->m_Next, ++row) {
        item->m_Name += kCommonLetter;
        if (row % kRareEvery == 0) item->m_Name += kRareLetter;
    }
    database->SetPath(path);
    database->SetMasterPassword(kSamplePassword);
    if (!database->Save()) std::puts("the file cannot be written");
    return path;
}

std::chrono::steady_clock::time_point g_confirmedAt;  // the moment the password dialog was answered

// Answers the password dialog as soon as it is there.
void CALLBACK Answer(HWND, UINT, UINT_PTR timer, DWORD) {
    constexpr int kEdit = 2014;
    HWND dialog = GetForegroundWindow();
    HWND edit = tvWnd::FindDescendant(dialog, kEdit);
    if (edit == nullptr) return;
    KillTimer(nullptr, timer);
    SetWindowTextW(edit, Wide(kSamplePassword));
    g_confirmedAt = std::chrono::steady_clock::now();
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

double MillisecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void MeasureOpening(CVMRDlg& window, const tvstring& path, double limit) {
    constexpr int kRuns = 5;
    constexpr UINT kSoon = 10;
    std::vector<double> times;
    for (int i = 0; i < kRuns; ++i) {
        SetTimer(nullptr, 0, kSoon, Answer);
        window.OpenDatabase(path.c_str(), CVMRDlg::Quiet::No);
        DispatchAll();
        times.push_back(MillisecondsSince(g_confirmedAt));
    }
    std::nth_element(times.begin(), times.begin() + kRuns / 2, times.end());
    Print("password confirmed to filled list", times[kRuns / 2], limit);
}

void MeasureKey(const CVMRDlg& window, const char* what, char16_t letter, double limit) {
    constexpr int kRuns = 7;
    HWND edit = window.m_leftDlg.m_filterEdit.Handle();
    std::vector<double> times;
    for (int i = 0; i < kRuns; ++i) {
        const auto start = std::chrono::steady_clock::now();
        SendMessageW(edit, WM_CHAR, letter, 1);
        DispatchAll();
        times.push_back(MillisecondsSince(start));
        SetWindowTextW(edit, L"");
        DispatchAll();
    }
    std::nth_element(times.begin(), times.begin() + kRuns / 2, times.end());
    Print(what, times[kRuns / 2], limit);
}

void MeasureSmallSteps(const CVMRDlg& window) {
    constexpr int kRuns = 31;
    constexpr double kSwitchLimit = 30;
    constexpr double kWheelLimit = 16;
    HWND list = window.m_leftDlg.m_list.Handle();
    SetFocus(list);
    Print("another item chosen by a key",
          MedianOf(kRuns,
                   [list] {
                       SendMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
                       SendMessageW(list, WM_KEYUP, VK_DOWN, 1);
                       DispatchAll();
                   }),
          kSwitchLimit);
    Print("a step of the wheel",
          MedianOf(kRuns,
                   [list] {
                       SendMessageW(list, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
                       DispatchAll();
                   }),
          kWheelLimit);
}

struct Limits {
    double open;
    double rare;
    double all;
};

void MeasureAll(int items, const Limits& limits) {
    constexpr double kMegabyte = 1024.0 * 1024.0;
    std::printf("%d items\n", items);
    const tvstring path = MakeFile(items);
    {
        CVMRDlg window;
        TheApp().m_mainWnd = &window;
        window.BuildTemplate();
        window.Create(nullptr);
        DispatchAll();
        MeasureOpening(window, path, limits.open);
        MeasureKey(window, "a keystroke that leaves 1 %", kRareLetter, limits.rare);
        MeasureKey(window, "a keystroke that leaves all", kCommonLetter, limits.all);
        MeasureSmallSteps(window);
        PROCESS_MEMORY_COUNTERS memory{};
        memory.cb = sizeof memory;
        K32GetProcessMemoryInfo(GetCurrentProcess(), &memory, memory.cb);
        std::printf("  %-48s %9.1f MB   (150 wanted with 60000 items)\n", "memory, at most so far",
                    static_cast<double>(memory.PeakWorkingSetSize) / kMegabyte);
    }
    TheApp().m_mainWnd = nullptr;
    DispatchAll();
    TheDatabase().Reset();
    TheDatabase().m_File.Close();
    DeleteFileW(Wide(path.c_str()));
}

}  // namespace

int main() {
    constexpr int kMany = 10000;
    constexpr int kVeryMany = 60000;
    if (!InitializeApplication()) return 1;
    TheTheme().Apply(TheTheme().FindTheme(u"Light"));
    MeasureAll(kMany, {600, 30, 80});
    MeasureAll(kVeryMany, {600, 80, 400});
    return 0;
}
