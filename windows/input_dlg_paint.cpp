#include <algorithm>

#include "toolkit/rect.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"
#include "windows/dialog_layout.h"
#include "windows/input_dlg.h"

namespace {

constexpr UINT kTextFlags = DT_WORDBREAK | DT_EDITCONTROL | DT_HIDEPREFIX;

LONG HeightOf(HDC dc, const tvstring& text, const RECT& place) {
    RECT measured = place;
    MeasureText(text, kTextFlags, dc, measured);
    return measured.bottom - measured.top;
}

// Draws in the middle beside an icon that is higher. Gives the text's height.
LONG DrawBeside(HDC dc, const tvstring& text, RECT place, LONG iconHeight) {
    const LONG height = HeightOf(dc, text, place);
    if (height < iconHeight) place.top += iconHeight / 2 - height / 2;
    DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &place, kTextFlags);
    return height;
}

}  // namespace

// In the large font. Gives the height.
LONG CVMRInputDlg::DrawBigTitle(HDC dc, RECT place, LONG iconHeight) const {
    const tvSelected font(dc, TheTheme().m_fontLarge.Get());
    return DrawBeside(dc, m_Title, place, iconHeight);
}

LONG CVMRInputDlg::DrawInfo(HDC dc, RECT place, LONG iconHeight) const {
    return DrawBeside(dc, m_Info, place, m_BigTitle != 0 ? 0 : iconHeight);
}

// Paints what stands above the edit boxes, and finds out where they begin.
void CVMRInputDlg::OnPaintDlg(HDC dc, const RECT& rect) {
    const tvTheme& theme = TheTheme();
    RECT rest = ContentOf(rect);
    const bool hasIcon = m_Icon != nullptr && m_iconWidth > 0 && m_iconHeight > 0;
    const LONG iconHeight = hasIcon ? m_iconHeight : 0;
    const LONG textLeft = rest.left + (hasIcon ? m_iconWidth + theme.m_marginX : 0);
    m_infoLines = 0;
    if (hasIcon) {
        DrawIconEx(dc, static_cast<int>(rest.left), static_cast<int>(rest.top), m_Icon, m_iconWidth,
                   m_iconHeight, 0, nullptr, DI_NORMAL);
    }
    if (m_BigTitle != 0) {
        const LONG height = DrawBigTitle(dc, {textLeft, rest.top, rest.right, rest.bottom}, iconHeight);
        rest.top += theme.m_marginY + std::max(iconHeight, height);
    }
    LONG block = iconHeight;
    if (!m_Info.empty()) {
        const LONG height = DrawInfo(dc, {textLeft, rest.top, rest.right, rest.bottom}, iconHeight);
        m_infoLines = static_cast<i32>(height) / std::max(TheTheme().TextHeight(m_font, nullptr), 1);
        block = m_BigTitle != 0 ? height : std::max(height, iconHeight);
    }
    m_editTop = static_cast<i32>(rest.top + theme.m_marginY + block);
    m_infoLines = m_BigTitle != 0 ? 2 : std::max(m_infoLines, 1);
}
