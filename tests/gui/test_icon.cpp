#include "tests/gui/test_icon.h"

#include "toolkit/bitmap.h"

tvIconHandle SolidIcon(int side, COLORREF color) {
    tvBitmap picture;
    tvBitmap mask;
    if (!picture.CreateDib(side, side) || !mask.CreateDib(side, side)) return {};
    const u32 pixel = 0xFF000000U | static_cast<u32>(GetRValue(color)) << 16 |
                      static_cast<u32>(GetGValue(color)) << 8 | GetBValue(color);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            picture.Row(y)[x] = pixel;
            mask.Row(y)[x] = 0;
        }
    }
    ICONINFO info{TRUE, 0, 0, mask.Get(), picture.Get()};
    return tvIconHandle(CreateIconIndirect(&info));
}
