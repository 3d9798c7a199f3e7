// tvBitmap, an owned bitmap, and tvMemDC, a memory context with a bitmap that only grows: the back of a
// double buffer.
#pragma once

#include "platform/types.h"
#include "toolkit/handle.h"

class tvBitmap {
public:
    // Both replace what is there and refuse sizes below 1, as they do if the system fails: it is empty then.

    // A bitmap of the kind that the context draws on.
    bool CreateCompatible(HDC dc, int width, int height);

    // 32 bits a pixel, with the pixels in memory; rows run bottom-up.
    bool CreateDib(int width, int height);

    void Reset();

    // The pixels of a row counted from the top; null unless it is a DIB. 32 bits each: 0xAARRGGBB.
    [[nodiscard]] u32* Row(int row) const noexcept;

    [[nodiscard]] HBITMAP Get() const noexcept { return m_handle.Get(); }

    // --- Fields, in their order ---

    tvBitmapHandle m_handle;
    int m_width = 0;
    int m_height = 0;
    u8* m_bits = nullptr;
};

class tvMemDC {
public:
    tvMemDC() = default;
    ~tvMemDC() { Reset(); }
    tvMemDC(const tvMemDC&) = delete;
    tvMemDC& operator=(const tvMemDC&) = delete;

    // A context like `target`, with this font, transparent background mode and a bitmap of at least this size
    // (and at least 1 by 1). Null if the system fails. A smaller size than before keeps the bitmap.
    HDC Prepare(HDC target, HGDIOBJ font, int width, int height);

    // The same with the font that the target has.
    HDC Prepare(HDC target, int width, int height) {
        return Prepare(target, GetCurrentObject(target, OBJ_FONT), width, height);
    }

    void Reset();

    // --- Fields, in their order ---

    bool m_useDib = false;
    tvMemoryDCHandle m_dc;
    tvBitmap m_bitmap;
    HGDIOBJ m_oldBitmap = nullptr;
    int m_usedWidth = 0;
    int m_usedHeight = 0;

private:
    // A new bitmap, with room for the used size and that of the old one.
    bool Grow(HDC target);
};
