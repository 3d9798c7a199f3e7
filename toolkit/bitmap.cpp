#include "toolkit/bitmap.h"

#include <algorithm>

void tvBitmap::Reset() {
    m_handle.Reset();
    m_width = 0;
    m_height = 0;
    m_bits = nullptr;
}

bool tvBitmap::CreateCompatible(HDC dc, int width, int height) {
    Reset();
    if (width < 1 || height < 1) return false;
    m_handle.Reset(CreateCompatibleBitmap(dc, width, height));
    if (!m_handle) return false;
    m_width = width;
    m_height = height;
    return true;
}

bool tvBitmap::CreateDib(int width, int height) {
    Reset();
    if (width < 1 || height < 1) return false;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    m_handle.Reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!m_handle) return false;
    m_width = width;
    m_height = height;
    m_bits = static_cast<u8*>(bits);
    return true;
}

u32* tvBitmap::Row(int row) const noexcept {
    if (m_bits == nullptr || row < 0 || row >= m_height) return nullptr;
    const auto below = static_cast<std::size_t>(m_height - row - 1);
    return reinterpret_cast<u32*>(m_bits) + below * static_cast<std::size_t>(m_width);
}

HDC tvMemDC::Prepare(HDC target, HGDIOBJ font, int width, int height) {
    if (!m_dc) {
        m_dc.Reset(CreateCompatibleDC(target));
        SetBkMode(m_dc.Get(), TRANSPARENT);
    }
    // To select a font takes time even if it is there already.
    if (GetCurrentObject(m_dc.Get(), OBJ_FONT) != font) SelectObject(m_dc.Get(), font);
    m_usedWidth = std::max(width, 1);
    m_usedHeight = std::max(height, 1);
    if ((m_usedWidth > m_bitmap.m_width || m_usedHeight > m_bitmap.m_height) && !Grow(target)) Reset();
    return m_dc.Get();
}

bool tvMemDC::Grow(HDC target) {
    const int width = std::max(m_usedWidth, m_bitmap.m_width);
    const int height = std::max(m_usedHeight, m_bitmap.m_height);
    tvBitmap larger;
    const bool made =
        m_useDib ? larger.CreateDib(width, height) : larger.CreateCompatible(target, width, height);
    const HGDIOBJ old = made ? SelectObject(m_dc.Get(), larger.Get()) : nullptr;
    if (old == nullptr) return false;
    if (m_oldBitmap == nullptr) m_oldBitmap = old;
    m_bitmap = std::move(larger);
    return true;
}

void tvMemDC::Reset() {
    if (m_oldBitmap != nullptr) SelectObject(m_dc.Get(), m_oldBitmap);
    m_oldBitmap = nullptr;
    m_dc.Reset();
    m_bitmap.Reset();
    m_usedWidth = 0;
    m_usedHeight = 0;
}
