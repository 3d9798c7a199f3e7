#include "toolkit/draw.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"
#include "windows/top_dlg.h"

namespace {

constexpr i32 kLeastHeight = 50;  // pixels

}  // namespace

CVMRTopButton::CVMRTopButton(u32 iconId, int glyph) : CVMRBaseButton(kSquare, kLeastHeight, iconId, glyph) {
    SetSideMask(0);
    if (m_alwaysDefault == 0) {
        m_alwaysDefault = 1;
        Repaint();
    }
}

CVMRTopButton::~CVMRTopButton() {
    Detach(Window::Destroy);
}

// The chevron of the menu stands in the lower part, whose height is a multiple of five pixels.
void CVMRTopButton::DrawContent(HDC dc, RECT rect, const tvButtonColors& colors) {
    constexpr int kStep = 5;
    constexpr SIZE kChevron{14, 8};
    if (m_glyph != GLYPH_TRIANGLE) {
        CVMRBaseButton::DrawContent(dc, rect, colors);
        return;
    }
    rect.top = rect.bottom - Height(rect) / kStep * kStep;
    const LONG left = rect.left + (Width(rect) - kChevron.cx) / 2;
    const LONG top = rect.top + (Height(rect) - kChevron.cy) / 2;
    DrawChevron(dc, {left, top, left + kChevron.cx, top + kChevron.cy}, colors.m_text, Axis::Vertical,
                Heading::Forward, 1.0);
}

void CVMRTopButton::GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) {
    CVMRBaseButton::GetColors(item, colors);
    if (colors.m_hot != 0 || colors.m_pushed != 0) colors.m_face = TheTheme().m_buttonPush;
    m_sides = TheTheme().m_isSystemDefault && !m_theme ? u8{EDGE_ALL} : u8{0};
}

LRESULT CVMRTopButton::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETCURSOR && m_glyph == GLYPH_TRIANGLE) {
        SetCursor(LoadCursorW(nullptr, IDC_HAND));
        return TRUE;
    }
    return CVMRBaseButton::WindowProc(message, wParam, lParam);
}
