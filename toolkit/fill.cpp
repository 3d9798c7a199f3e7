#include <algorithm>

#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/handle.h"
#include "toolkit/rect.h"

namespace {

// A part of a rectangle; of what lies outside nothing is filled.
void FillWithin(HDC dc, const RECT& rect, const RECT& part) {
    RECT inside;
    if (IntersectRect(&inside, &rect, &part)) ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &inside, nullptr, 0, nullptr);
}

// A walk along pixels that paints every other one.
class DotWalk {
public:
    DotWalk(HDC dc, COLORREF color, int x, int y) : m_Dc(dc), m_Color(color), m_X(x), m_Y(y) { Paint(); }

    void Go(int stepX, int stepY, int steps) {
        for (int i = 0; i < steps; ++i) {
            m_X += stepX;
            m_Y += stepY;
            Paint();
        }
    }

private:
    void Paint() {
        if (m_On) SetPixel(m_Dc, m_X, m_Y, m_Color);
        m_On = !m_On;
    }

    HDC m_Dc;
    COLORREF m_Color;
    int m_X;
    int m_Y;
    bool m_On = true;
};

// The client area in the coordinates of the whole window.
RECT ClientInWindow(HWND window, const RECT& windowRect) {
    RECT client{};
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    // In a window that is laid out from right to left, what was the left side has become the right one.
    if (client.left > client.right) std::swap(client.left, client.right);
    OffsetRect(&client, -windowRect.left, -windowRect.top);
    return client;
}

}  // namespace

void FillSolid(HDC dc, const RECT& rect, COLORREF color) {
    if (!IsColor(color)) return;
    SetBkColor(dc, color);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
}

void FillEdges(HDC dc, const RECT& rect, COLORREF color, unsigned edges, int width) {
    if (!IsColor(color) || width < 1) return;
    const COLORREF old = SetBkColor(dc, color);
    const auto [left, top, right, bottom] = rect;
    if (edges & EDGE_LEFT) FillWithin(dc, rect, {left, top, left + width, bottom});
    if (edges & EDGE_TOP) FillWithin(dc, rect, {left, top, right, top + width});
    if (edges & EDGE_RIGHT) FillWithin(dc, rect, {right - width, top, right, bottom});
    if (edges & EDGE_BOTTOM) FillWithin(dc, rect, {left, bottom - width, right, bottom});
    SetBkColor(dc, old);
}

void DrawBevel(HDC dc, const RECT& rect, COLORREF topLeft, COLORREF bottomRight, unsigned edges) {
    FillEdges(dc, rect, topLeft, edges & (EDGE_LEFT | EDGE_TOP), 1);
    FillEdges(dc, rect, bottomRight, edges & (EDGE_RIGHT | EDGE_BOTTOM), 1);
}

void DrawFocusDots(HDC dc, const RECT& rect, COLORREF color) {
    const int width = Width(rect);
    const int height = Height(rect);
    if (!IsColor(color) || width < 1 || height < 1) return;
    DotWalk walk(dc, color, rect.left, rect.bottom - 1);
    walk.Go(0, -1, height - 1);
    walk.Go(1, 0, width - 1);
    walk.Go(0, 1, height - 1);
    walk.Go(-1, 0, width - 1 - 1);  // the first pixel has been painted
}

void FrameNonClient(HWND window, COLORREF fill, COLORREF frame) {
    if (!IsColor(fill) && !IsColor(frame)) return;
    RECT rect{};
    GetWindowRect(window, &rect);
    const RECT client = ClientInWindow(window, rect);
    OffsetRect(&rect, -rect.left, -rect.top);
    const tvWindowDC dc(window);
    ExcludeClipRect(dc.Get(), client.left, client.top, client.right, client.bottom);
    FillSolid(dc.Get(), rect, fill);
    FillEdges(dc.Get(), rect, frame, EDGE_ALL, 1);
}

void FrameAroundBars(HWND window, COLORREF fill, COLORREF frame) {
    RECT rect{};
    GetWindowRect(window, &rect);
    OffsetRect(&rect, -rect.left, -rect.top);
    const bool hasEdge = (ExStyleOfWindow(window) & WS_EX_CLIENTEDGE) != 0;
    const tvWindowDC dc(window);
    if (hasEdge) FillEdges(dc.Get(), rect, fill, EDGE_ALL, GetSystemMetrics(SM_CXEDGE));
    FillEdges(dc.Get(), rect, frame, EDGE_ALL, 1);
}
