#include "toolkit/image.h"

#include "toolkit/com_pointer.h"
#include "toolkit/gdiplus.h"

namespace {

constexpr Gdiplus::PixelFormat kFormat = PixelFormat32bppARGB;
static_assert(kFormat == 2498570);

constexpr u32 kAlphaBits = 0xFF000000;

using Stream = tvcomptr<IStream>;

Gdiplus::GpBitmap* AsBitmap(void* bitmap) {
    return static_cast<Gdiplus::GpBitmap*>(bitmap);
}

// The bytes of a PNG in the program's resources; null if there is none.
Stream OpenPng(u16 resourceId) {
    const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(resourceId), L"PNG");
    if (resource == nullptr) return Stream();
    const void* bytes = LockResource(LoadResource(nullptr, resource));
    return Stream(SHCreateMemStream(static_cast<const BYTE*>(bytes), SizeofResource(nullptr, resource)));
}

// All pixels of a picture, in memory until the object goes; none if that fails.
class Pixels {
public:
    Pixels(Gdiplus::GpBitmap* bitmap, u32 width, u32 height, UINT mode) : m_Bitmap(bitmap) {
        const Gdiplus::Rect all(0, 0, static_cast<int>(width), static_cast<int>(height));
        if (bitmap == nullptr || gdiplus::GdipBitmapLockBits(bitmap, &all, mode, kFormat, &m_Data) != 0)
            m_Bitmap = nullptr;
    }
    ~Pixels() {
        if (m_Bitmap != nullptr) gdiplus::GdipBitmapUnlockBits(m_Bitmap, &m_Data);
    }
    Pixels(const Pixels&) = delete;
    Pixels& operator=(const Pixels&) = delete;

    explicit operator bool() const { return m_Bitmap != nullptr; }
    [[nodiscard]] u32* Row(u32 row) const {
        auto* first = static_cast<u8*>(m_Data.Scan0);
        return reinterpret_cast<u32*>(first + static_cast<std::ptrdiff_t>(row) * m_Data.Stride);
    }

private:
    Gdiplus::GpBitmap* m_Bitmap;
    Gdiplus::BitmapData m_Data{};
};

// A mask of the screen's kind that hides nothing.
bool MakeEmptyMask(tvBitmap& mask, int width, int height) {
    const tvClientDC screen(nullptr);
    if (!mask.CreateCompatible(screen.Get(), width, height)) return false;
    const tvMemoryDCHandle dc(CreateCompatibleDC(screen.Get()));
    const tvSelected selected(dc.Get(), mask.Get());
    return PatBlt(dc.Get(), 0, 0, width, height, BLACKNESS) != FALSE;
}

}  // namespace

tvimage::~tvimage() {
    Reset();
}

void tvimage::Reset() {
    const gdiplus::Bitmap old(AsBitmap(m_bitmap));
    m_bitmap = nullptr;
    m_width = 0;
    m_height = 0;
}

bool tvimage::LoadPng(u16 resourceId) {
    Reset();
    const Stream stream = OpenPng(resourceId);
    if (!stream) return false;
    Gdiplus::GpBitmap* decoded = nullptr;
    if (gdiplus::GdipCreateBitmapFromStream(stream.Get(), &decoded) != 0) return false;
    const gdiplus::Bitmap first(decoded);
    UINT width = 0;
    UINT height = 0;
    gdiplus::GdipGetImageWidth(first.Get(), &width);
    gdiplus::GdipGetImageHeight(first.Get(), &height);
    Gdiplus::GpBitmap* clone = nullptr;
    gdiplus::GdipCloneBitmapAreaI(0, 0, static_cast<int>(width), static_cast<int>(height), kFormat,
                                  first.Get(), &clone);
    if (clone == nullptr) return false;
    m_bitmap = clone;
    m_width = width;
    m_height = height;
    return true;
}

// NOLINTNEXTLINE(readability-make-member-function-const): it changes the picture
bool tvimage::Tint(COLORREF color) {
    const Pixels pixels(AsBitmap(m_bitmap), m_width, m_height,
                        Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeWrite);
    if (!pixels) return false;
    const u32 tint = gdiplus::OpaqueArgb(color) & ~kAlphaBits;
    for (u32 y = 0; y < m_height; ++y) {
        u32* row = pixels.Row(y);
        for (u32 x = 0; x < m_width; ++x)
            row[x] = (row[x] & kAlphaBits) | tint;
    }
    return true;
}

bool tvimage::ToBitmap(tvBitmap& out) const {
    out.Reset();
    const Pixels pixels(AsBitmap(m_bitmap), m_width, m_height, Gdiplus::ImageLockModeRead);
    if (!pixels || !out.CreateDib(static_cast<int>(m_width), static_cast<int>(m_height))) return false;
    for (u32 y = 0; y < m_height; ++y) {
        const u32* from = pixels.Row(y);
        u32* to = out.Row(static_cast<int>(y));
        for (u32 x = 0; x < m_width; ++x)
            to[x] = (from[x] & kAlphaBits) == 0 ? 0 : from[x];
    }
    return true;
}

tvIconHandle tvimage::ToIcon() const {
    tvBitmap colors;
    tvBitmap mask;
    if (!ToBitmap(colors) || !MakeEmptyMask(mask, colors.m_width, colors.m_height)) return tvIconHandle();
    ICONINFO info{};
    info.fIcon = TRUE;
    info.hbmMask = mask.Get();
    info.hbmColor = colors.Get();
    return tvIconHandle(CreateIconIndirect(&info));
}
