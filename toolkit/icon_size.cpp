#include "toolkit/icon_size.h"

#include "toolkit/handle.h"

SIZE IconSize(HICON icon) {
    ICONINFO info{};
    if (icon == nullptr || GetIconInfo(icon, &info) == FALSE) return {};
    const tvBitmapHandle color(info.hbmColor);
    const tvBitmapHandle mask(info.hbmMask);
    BITMAP bitmap{};
    GetObjectW(color ? color.Get() : mask.Get(), sizeof bitmap, &bitmap);
    // Without colours, the mask of the shape stands above that of the picture.
    return {bitmap.bmWidth, color ? bitmap.bmHeight : bitmap.bmHeight / 2};
}
