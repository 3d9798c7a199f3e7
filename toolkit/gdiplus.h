// The flat functions of GDI+, owners of what they make, and what the toolkit makes with them.
#pragma once

#include <atomic>

#include "platform/types.h"
#include "toolkit/handle.h"

// After windows.h, whose types it needs.
#include <gdiplus.h>

// Whether GDI+ runs. Atomic, since objects that are made before the program starts may start it.
class GdiPlusState {
public:
    // False if it has been started before.
    bool Start();
    void Stop();

private:
    std::atomic<u64> m_Started = 0;
    std::atomic<u64> m_Token = 0;
};

namespace gdiplus {

using namespace Gdiplus::DllExports;  // NOLINT(google-build-using-namespace): the functions under one name

namespace release {
// NOLINTBEGIN(misc-use-anonymous-namespace): one name for each kind in the aliases below
inline void Graphics(Gdiplus::GpGraphics* graphics) noexcept {
    GdipDeleteGraphics(graphics);
}
inline void Pen(Gdiplus::GpPen* pen) noexcept {
    GdipDeletePen(pen);
}
inline void Brush(Gdiplus::GpBrush* brush) noexcept {
    GdipDeleteBrush(brush);
}
inline void Path(Gdiplus::GpPath* path) noexcept {
    GdipDeletePath(path);
}
inline void LineCap(Gdiplus::GpCustomLineCap* cap) noexcept {
    GdipDeleteCustomLineCap(cap);
}
inline void Image(Gdiplus::GpImage* image) noexcept {
    GdipDisposeImage(image);
}
inline void Bitmap(Gdiplus::GpBitmap* bitmap) noexcept {
    GdipDisposeImage(bitmap);
}
// NOLINTEND(misc-use-anonymous-namespace)
}  // namespace release

using Graphics = tvowner<Gdiplus::GpGraphics*, release::Graphics>;
using Pen = tvowner<Gdiplus::GpPen*, release::Pen>;
using Brush = tvowner<Gdiplus::GpBrush*, release::Brush>;
using Path = tvowner<Gdiplus::GpPath*, release::Path>;
using LineCap = tvowner<Gdiplus::GpCustomLineCap*, release::LineCap>;
using Bitmap = tvowner<Gdiplus::GpBitmap*, release::Bitmap>;

// Each is null if GDI+ fails; GDI+ then refuses what is asked for with it.

// Draws on a device context, with smooth edges.
Graphics SmoothGraphics(HDC dc);

// An opaque colour, of a line or of an area.
Pen SolidPen(COLORREF color, float width);
Brush SolidBrush(COLORREF color);

Path NewPath();

constexpr Gdiplus::ARGB OpaqueArgb(COLORREF color) {
    return 0xFF000000U | (color & 0xFFU) << 16 | (color & 0xFF00U) | (color >> 16 & 0xFFU);
}

}  // namespace gdiplus
