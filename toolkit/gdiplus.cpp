#include "toolkit/gdiplus.h"

#include "toolkit/late_functions.h"

namespace {

GdiPlusState& TheState() {
    static constinit GdiPlusState state;
    return state;
}

}  // namespace

bool GdiPlusState::Start() {
    if (m_Started.exchange(1) != 0) return false;
    const Gdiplus::GdiplusStartupInput input;
    ULONG_PTR token = 0;
    CallIfThere(TheLateFunctions().gdiplusStartup, &token, &input,
                static_cast<Gdiplus::GdiplusStartupOutput*>(nullptr));
    m_Token = token;
    return true;
}

void GdiPlusState::Stop() {
    const auto token = static_cast<ULONG_PTR>(m_Token.exchange(0));
    if (token != 0) CallIfThere(TheLateFunctions().gdiplusShutdown, token);
    m_Started = 0;
}

tvGdiPlus::tvGdiPlus() : m_first(TheState().Start()) {}

tvGdiPlus::~tvGdiPlus() {
    if (m_first) TheState().Stop();
}

namespace gdiplus {

Graphics SmoothGraphics(HDC dc) {
    Gdiplus::GpGraphics* graphics = nullptr;
    GdipCreateFromHDC(dc, &graphics);
    GdipSetSmoothingMode(graphics, Gdiplus::SmoothingModeAntiAlias);
    return Graphics(graphics);
}

Pen SolidPen(COLORREF color, float width) {
    Gdiplus::GpPen* pen = nullptr;
    GdipCreatePen1(OpaqueArgb(color), width, Gdiplus::UnitWorld, &pen);
    return Pen(pen);
}

Brush SolidBrush(COLORREF color) {
    Gdiplus::GpSolidFill* brush = nullptr;
    GdipCreateSolidFill(OpaqueArgb(color), &brush);
    return Brush(brush);
}

Path NewPath() {
    Gdiplus::GpPath* path = nullptr;
    GdipCreatePath(Gdiplus::FillModeAlternate, &path);
    return Path(path);
}

}  // namespace gdiplus
