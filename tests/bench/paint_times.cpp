// How long windows take to be painted and to change their theme, each beside the least that any program would
// need. Medians in milliseconds, one line each.
#include <cstdio>
#include <memory>

#include "foundation/conversion.h"
#include "tests/bench/median.h"
#include "tests/bench/plain_copy.h"
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

void Print(const char* what, const Medians& times) {
    std::printf("%-44s %8.2f ms   same areas filled, same texts drawn %8.2f ms   times %.2f\n", what,
                times.first, times.second, times.first / times.second);
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

Medians MeasureRepaintOf(HWND window) {
    constexpr int kRuns = 41;
    DispatchAll();
    return MediansOf(
        kRuns, [window] { Repaint(window); }, [window] { RepaintBarely(window); });
}

// The theme comes before the windows, as in the gallery itself: only a colour theme gives them scroll boxes.
void MeasureRepaintIn(const char16_t* theme) {
    TheTheme().Apply(TheTheme().FindTheme(theme));
    GalleryDialog gallery;
    tvApp::Get()->m_mainWnd = &gallery;
    gallery.Create(nullptr);
    ShowWindow(gallery.Handle(), SW_SHOW);
    const tvstringA what = ToUtf8(tvstring(u"gallery repainted, ").append(theme));
    Print(what.c_str(), MeasureRepaintOf(gallery.Handle()));
    const HWND copy = MakePlainCopy(gallery.Handle());
    Print("  the system's windows of the same kinds", MeasureRepaintOf(copy));
    DestroyWindow(copy);
    DispatchAll();
    tvApp::Get()->m_mainWnd = nullptr;
}

void MeasureRepaint() {
    for (const char16_t* theme : {u"Light", u"Dark", u"System Default"})
        MeasureRepaintIn(theme);
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
    const auto change = [&next] {
        TheTheme().Apply(next++ % 4);  // the colour themes
        DispatchAll();
    };
    Print("theme of 100 buttons switched and painted",
          MediansOf(kRuns, change, [&window] { RepaintBarely(window.Handle()); }));
    tvApp::Get()->m_mainWnd = nullptr;
}

}  // namespace

int main() {
    const tvBaseApp app;
    MeasureRepaint();
    MeasureThemeSwitch();
    return 0;
}
