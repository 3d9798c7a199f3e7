#include "toolkit/abdraw.h"

tvPaintDC::tvPaintDC(HWND window, HFONT font) : m_hWnd(window), m_dc(nullptr) {
    m_dc = BeginPaint(window, &m_paint);
    SetBkMode(m_dc, TRANSPARENT);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's answer
    if (font == kWindowFont) font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    if (font != nullptr) SelectObject(m_dc, font);
}

tvPaintDC::~tvPaintDC() {
    EndPaint(m_hWnd, &m_paint);
}
