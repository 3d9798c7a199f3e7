// How long windows take to be painted, to change their theme and to appear, each beside the least that any
// program would need. Medians in milliseconds, one line each.
#include <cstdio>
#include <memory>

#include "foundation/path.h"
#include "tests/bench/median.h"
#include "tests/gallery/gallery_dialog.h"
#include "toolkit/app.h"
#include "toolkit/draw.h"
#include "toolkit/theme.h"

namespace {

void DispatchAll() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    GdiFlush();
}

void PrintBoth(const char* what, double ours, const char* other, double theirs) {
    std::printf("%-44s %8.2f ms   %-38s %8.2f ms   times %.2f\n", what, ours, other, theirs, ours / theirs);
}

// --- Repainting ---

void Repaint(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    GdiFlush();
}

// The area and the text of a window, painted straight.
BOOL CALLBACK PaintBarely(HWND window, LPARAM) {
    RECT rect{};
    GetClientRect(window, &rect);
    const tvClientDC dc(window);
    const tvSelected font(dc.Get(), TheTheme().Font());
    FillSolid(dc.Get(), rect, TheTheme().m_base);
    SetBkMode(dc.Get(), TRANSPARENT);
    wchar_t text[128] = {};
    const int length = GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    DrawTextW(dc.Get(), text, length, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    return TRUE;
}

void RepaintBarely(HWND window) {
    PaintBarely(window, 0);
    EnumChildWindows(window, PaintBarely, 0);
    GdiFlush();
}

void MeasureRepaint() {
    constexpr int kRuns = 21;
    GalleryDialog gallery;
    tvApp::Get()->m_mainWnd = &gallery;
    gallery.Create(nullptr);
    ShowWindow(gallery.Handle(), SW_SHOW);
    for (const char16_t* name : {u"Light", u"System Default"}) {
        TheTheme().Apply(TheTheme().FindTheme(name));
        DispatchAll();
        const double ours = MedianOf(kRuns, [&] { Repaint(gallery.Handle()); });
        const double bare = MedianOf(kRuns, [&] { RepaintBarely(gallery.Handle()); });
        PrintBoth(*name == u'L' ? "gallery repainted, Light" : "gallery repainted, System Default", ours,
                  "same areas filled, same texts drawn", bare);
        DispatchAll();
    }
    tvApp::Get()->m_mainWnd = nullptr;
}

// --- Changing the theme ---

class ManyButtons : public tvBaseDlg {
public:
    ManyButtons() {
        TemplateBegin(440, 180, DialogKind::Popup, kCount);
        for (u16 i = 0; i < kCount; ++i)
            AddControl(ATOM_BUTTON, static_cast<u16>(kFirst + i), 4 + i % 10 * 43, 4 + i / 10 * 17, 40, 14);
    }
    ~ManyButtons() override { Detach(Window::Destroy); }

    void OnSubclassControls() override {
        for (u16 i = 0; i < kCount; ++i) {
            SetDlgItemTextW(m_hWnd, kFirst + i, L"&Button");
            m_buttons[i].SubclassDlgItem(m_hWnd, kFirst + i);
        }
    }

private:
    static constexpr u16 kCount = 100;
    static constexpr u16 kFirst = 100;
    tvButton m_buttons[kCount];
};

void MeasureThemeSwitch() {
    constexpr int kRuns = 21;
    ManyButtons window;
    tvApp::Get()->m_mainWnd = &window;
    window.Create(nullptr);
    ShowWindow(window.Handle(), SW_SHOW);
    DispatchAll();
    int next = 0;
    const double switched = MedianOf(kRuns, [&] {
        TheTheme().Apply(next++ % 4);  // the colour themes
        DispatchAll();
    });
    const double bare = MedianOf(kRuns, [&] { RepaintBarely(window.Handle()); });
    PrintBoth("theme of 100 buttons switched and painted", switched, "same areas filled, same texts drawn",
              bare);
    tvApp::Get()->m_mainWnd = nullptr;
}

// --- Starting ---

bool RunProgram(tvstring command) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, Wide(command.data()), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &process) == FALSE)
        return false;
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 1;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code == 0;
}

bool MeasureStart() {
    constexpr int kRuns = 9;
    bool good = true;
    const auto timeOf = [&good](const char16_t* command) {
        return MedianOf(kRuns, [&] { good = RunProgram(ProgramPath(command)) && good; });
    };
    const double ours = timeOf(u"gallery.exe --first-paint");
    const double bare = timeOf(u"bare_window.exe");
    if (good)
        PrintBoth("gallery from start to first paint and end", ours, "a program with a bare window", bare);
    return good;
}

}  // namespace

int main() {
    const tvBaseApp app;
    MeasureRepaint();
    MeasureThemeSwitch();
    if (MeasureStart()) return 0;
    std::puts("gallery.exe or bare_window.exe is not beside this program, or fails");
    return 1;
}
