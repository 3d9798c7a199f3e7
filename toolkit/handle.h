// Owners of the system's handles. Each owns one and releases it in the way of its kind when it is replaced or
// destroyed; none is copied. Guards below put back what they have changed.
#pragma once

#include <utility>

#include "toolkit/win32.h"

// `Release` is what gives a handle of the kind back to the system.
template <typename Handle, auto Release>
class tvowner {
public:
    tvowner() noexcept = default;
    explicit tvowner(Handle handle) noexcept : m_Handle(handle) {}
    tvowner(tvowner&& other) noexcept : m_Handle(other.Detach()) {}
    tvowner& operator=(tvowner&& other) noexcept {
        if (this != &other) Reset(other.Detach());
        return *this;
    }
    tvowner(const tvowner&) = delete;
    tvowner& operator=(const tvowner&) = delete;
    ~tvowner() { Reset(); }

    // Releases what is owned and takes the new handle.
    void Reset(Handle handle = nullptr) noexcept {
        const Handle old = std::exchange(m_Handle, handle);
        if (old != nullptr && old != handle) Release(old);
    }

    // Gives up the handle without releasing it.
    [[nodiscard]] Handle Detach() noexcept { return std::exchange(m_Handle, nullptr); }

    [[nodiscard]] Handle Get() const noexcept { return m_Handle; }
    explicit operator bool() const noexcept { return m_Handle != nullptr; }

private:
    Handle m_Handle = nullptr;
};

namespace handle_release {
// NOLINTBEGIN(misc-use-anonymous-namespace): one name for each kind in the aliases below
inline void Object(HGDIOBJ object) noexcept {
    DeleteObject(object);
}
inline void Font(HFONT font) noexcept {
    DeleteObject(font);
}
inline void Brush(HBRUSH brush) noexcept {
    DeleteObject(brush);
}
inline void Bitmap(HBITMAP bitmap) noexcept {
    DeleteObject(bitmap);
}
inline void Region(HRGN region) noexcept {
    DeleteObject(region);
}
inline void Pen(HPEN pen) noexcept {
    DeleteObject(pen);
}
inline void Icon(HICON icon) noexcept {
    DestroyIcon(icon);
}
inline void Menu(HMENU menu) noexcept {
    DestroyMenu(menu);
}
inline void MemoryDC(HDC dc) noexcept {
    DeleteDC(dc);
}
inline void Theme(HTHEME theme) noexcept {
    CloseThemeData(theme);
}
inline void Accelerators(HACCEL table) noexcept {
    DestroyAcceleratorTable(table);
}
// NOLINTEND(misc-use-anonymous-namespace)
}  // namespace handle_release

using tvFontHandle = tvowner<HFONT, handle_release::Font>;
using tvBrushHandle = tvowner<HBRUSH, handle_release::Brush>;
using tvBitmapHandle = tvowner<HBITMAP, handle_release::Bitmap>;
using tvRegionHandle = tvowner<HRGN, handle_release::Region>;
using tvPenHandle = tvowner<HPEN, handle_release::Pen>;
using tvIconHandle = tvowner<HICON, handle_release::Icon>;
using tvMenuHandle = tvowner<HMENU, handle_release::Menu>;
using tvMemoryDCHandle = tvowner<HDC, handle_release::MemoryDC>;
using tvThemeHandle = tvowner<HTHEME, handle_release::Theme>;
using tvAcceleratorHandle = tvowner<HACCEL, handle_release::Accelerators>;

// --- Guards ---

// An object selected into a device context for a while. With a null object nothing is selected.
class tvSelected {
public:
    tvSelected(HDC dc, HGDIOBJ object) noexcept
        : m_Dc(dc), m_Old(object == nullptr ? nullptr : SelectObject(dc, object)) {}
    ~tvSelected() {
        if (m_Old != nullptr) SelectObject(m_Dc, m_Old);
    }
    tvSelected(const tvSelected&) = delete;
    tvSelected& operator=(const tvSelected&) = delete;

private:
    HDC m_Dc;
    HGDIOBJ m_Old;
};

// The device context of a window's client area, or of the screen for null.
class tvClientDC {
public:
    explicit tvClientDC(HWND window) noexcept : m_Window(window), m_Dc(GetDC(window)) {}
    ~tvClientDC() {
        if (m_Dc != nullptr) ReleaseDC(m_Window, m_Dc);
    }
    tvClientDC(const tvClientDC&) = delete;
    tvClientDC& operator=(const tvClientDC&) = delete;

    [[nodiscard]] HDC Get() const noexcept { return m_Dc; }

private:
    HWND m_Window;
    HDC m_Dc;
};

// The device context of a whole window, its frame included.
class tvWindowDC {
public:
    explicit tvWindowDC(HWND window) noexcept : m_Window(window), m_Dc(GetWindowDC(window)) {}
    ~tvWindowDC() {
        if (m_Dc != nullptr) ReleaseDC(m_Window, m_Dc);
    }
    tvWindowDC(const tvWindowDC&) = delete;
    tvWindowDC& operator=(const tvWindowDC&) = delete;

    [[nodiscard]] HDC Get() const noexcept { return m_Dc; }

private:
    HWND m_Window;
    HDC m_Dc;
};
