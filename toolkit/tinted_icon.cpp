#include "toolkit/draw.h"
#include "toolkit/image.h"
#include "toolkit/theme.h"

tvIconHandle LoadTintedIcon(u16 resourceId, COLORREF color) {
    tvimage image;
    if (resourceId == 0 || !image.LoadPng(resourceId)) return tvIconHandle();
    if (!IsColor(color)) color = TheTheme().Color(&tvColorTheme::m_icon, COLOR_3DDKSHADOW);
    if (IsColor(color)) image.Tint(color);
    return image.ToIcon();
}
