// Pixels of the harness.
#include <algorithm>
#include <cstdio>
#include <memory>

#include "tests/gui/harness.h"

namespace {

BITMAPINFO TopDown(int width, int height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

constexpr u32 kColorBits = 0xFFFFFF;

constexpr u32 SwapRedAndBlue(u32 color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

}  // namespace

Picture::Picture(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    if (rect.right < 1 || rect.bottom < 1) return;
    m_Width = rect.right;
    m_Height = rect.bottom;
    Canvas copy(m_Width, m_Height);
    {
        const tvClientDC source(window);
        BitBlt(copy.Dc(), 0, 0, m_Width, m_Height, source.Get(), 0, 0, SRCCOPY);
    }
    m_Pixels.resize(static_cast<std::size_t>(m_Width) * static_cast<std::size_t>(m_Height));
    const auto bitmap = static_cast<HBITMAP>(GetCurrentObject(copy.Dc(), OBJ_BITMAP));
    BITMAPINFO info = TopDown(m_Width, m_Height);
    GetDIBits(copy.Dc(), bitmap, 0, static_cast<UINT>(m_Height), m_Pixels.data(), &info, DIB_RGB_COLORS);
    for (u32& pixel : m_Pixels)
        pixel &= kColorBits;
}

COLORREF Picture::At(int x, int y) const {
    if (x < 0 || y < 0 || x >= m_Width || y >= m_Height) return CLR_INVALID;
    return SwapRedAndBlue(m_Pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_Width) +
                                   static_cast<std::size_t>(x)]);
}

int Picture::Count(const RECT& rect, COLORREF color) const {
    int count = 0;
    for (int y = rect.top; y < rect.bottom; ++y)
        for (int x = rect.left; x < rect.right; ++x)
            count += At(x, y) == color ? 1 : 0;
    return count;
}

int Picture::Count(COLORREF color) const {
    return static_cast<int>(std::count(m_Pixels.begin(), m_Pixels.end(), SwapRedAndBlue(color)));
}

Picture Picture::Part(const RECT& rect) const {
    const RECT all{0, 0, m_Width, m_Height};
    RECT cut{};
    Picture part;
    if (IntersectRect(&cut, &rect, &all) == FALSE) return part;
    part.m_Width = cut.right - cut.left;
    part.m_Height = cut.bottom - cut.top;
    for (int y = cut.top; y < cut.bottom; ++y) {
        const auto row = m_Pixels.begin() + static_cast<std::ptrdiff_t>(y) * m_Width;
        part.m_Pixels.insert(part.m_Pixels.end(), row + cut.left, row + cut.right);
    }
    return part;
}

bool Picture::Save(const char* path) const {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path, "wb"), std::fclose);
    if (file == nullptr || m_Pixels.empty()) return false;
    const BITMAPINFO info = TopDown(m_Width, m_Height);
    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42;
    header.bfOffBits = sizeof header + sizeof info.bmiHeader;
    header.bfSize = header.bfOffBits + static_cast<DWORD>(m_Pixels.size() * sizeof(u32));
    return std::fwrite(&header, sizeof header, 1, file.get()) == 1 &&
           std::fwrite(&info.bmiHeader, sizeof info.bmiHeader, 1, file.get()) == 1 &&
           std::fwrite(m_Pixels.data(), sizeof(u32), m_Pixels.size(), file.get()) == m_Pixels.size();
}

COLORREF PixelAt(HWND window, int x, int y) {
    return Picture(window).At(x, y);
}

Canvas::Canvas(int width, int height, COLORREF color)
    : m_Dc(CreateCompatibleDC(nullptr)), m_Bitmap(nullptr), m_Old(nullptr), m_Width(width), m_Height(height) {
    const BITMAPINFO info = TopDown(width, height);
    void* bits = nullptr;
    m_Bitmap = CreateDIBSection(m_Dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    m_Old = SelectObject(m_Dc, m_Bitmap);
    const RECT all{0, 0, width, height};
    SetBkColor(m_Dc, color);
    ExtTextOutW(m_Dc, 0, 0, ETO_OPAQUE, &all, nullptr, 0, nullptr);
}

Canvas::~Canvas() {
    SelectObject(m_Dc, m_Old);
    DeleteObject(m_Bitmap);
    DeleteDC(m_Dc);
}

int Canvas::Count(COLORREF color) const {
    int count = 0;
    for (int y = 0; y < m_Height; ++y)
        for (int x = 0; x < m_Width; ++x)
            count += At(x, y) == color ? 1 : 0;
    return count;
}
