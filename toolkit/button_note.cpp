#include "toolkit/button_note.h"

#include <algorithm>

#include "toolkit/statics.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"

namespace {

constexpr int kInset = 4;
constexpr int kGlyphSide = 16;
constexpr int kBesidePicture = 6;
constexpr int kAboveNote = 4;
constexpr int kNoteLines = 2;
constexpr int kLineSpare = 9;

void DrawPart(HDC dc, const tvstring& text, RECT rect, UINT flags) {
    DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &rect, flags);
}

}  // namespace

tvButton_Note::~tvButton_Note() {
    Detach(Window::Destroy);
}

void tvButton_Note::SetNote(const tvstring& note) {
    m_note = note;
    Repaint();
}

HFONT tvButton_Note::TitleFont() const {
    return m_titleFont != nullptr ? m_titleFont : TheTheme().m_fontLarge.Get();
}

SIZE tvButton_Note::PictureSize() const noexcept {
    if (HasGlyph()) return {kGlyphSide, kGlyphSide};
    return {m_iconWidth, m_iconHeight};
}

int tvButton_Note::TitleHeight(HDC dc) const {
    const tvSelected selected(dc, TitleFont());
    RECT rect{};
    return MeasureText(m_text, DT_SINGLELINE | DT_EXPANDTABS, dc, rect);
}

// The glyph keeps the colour that it has in other buttons.
void tvButton_Note::GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) {
    tvButton_customIcon::GetColors(item, colors);
    colors.m_markFill = colors.m_text;
    colors.m_text = TheTheme().Color(&tvColorTheme::m_text, COLOR_BTNTEXT);
    m_sides = static_cast<u8>(colors.m_focused != 0 ? EDGE_ALL : 0U);
}

void tvButton_Note::DrawPicture(HDC dc, RECT rect, const tvButtonColors& colors) const {
    if (HasGlyph()) {
        const COLORREF background = TheTheme().m_isSystemDefault ? GetSysColor(COLOR_BTNFACE) : colors.m_face;
        DrawGlyph(dc, rect, m_glyph, colors.m_markFill, background);
    } else if (m_icon != nullptr) {
        DrawIconAt(dc, rect.left, rect.top);
    }
}

void tvButton_Note::DrawContent(HDC dc, RECT rect, const tvButtonColors& colors) {
    InflateRect(&rect, -kInset, -kInset);
    const bool atRight = (m_style & BS_CENTER) == BS_RIGHT;
    const SIZE picture = PictureSize();
    const int titleHeight = TitleHeight(dc);
    const int rowHeight = std::max(static_cast<int>(picture.cy), titleHeight);
    RECT text = rect;
    if (picture.cx > 0) {
        const int left = atRight ? rect.right - picture.cx : rect.left;
        const int top = rect.top + (rowHeight - picture.cy) / 2;
        DrawPicture(dc, {left, top, left + picture.cx, top + picture.cy}, colors);
        if (atRight) {
            text.right -= picture.cx + kBesidePicture;
        } else {
            text.left += picture.cx + kBesidePicture;
        }
    }
    const UINT align = atRight ? DT_RIGHT : DT_LEFT;
    {
        const tvSelected selected(dc, TitleFont());
        DrawPart(dc, m_text, {text.left, text.top, text.right, text.top + rowHeight},
                 DT_SINGLELINE | DT_EXPANDTABS | DT_VCENTER | DT_END_ELLIPSIS | align | PrefixFlag(colors));
    }
    text.top += rowHeight + kAboveNote;
    DrawPart(dc, m_note, text, DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL | DT_END_ELLIPSIS | align);
}

void tvButton_Note::OnAutoFit() {
    if (!IsAttached()) return;
    const tvClientDC dc(m_hWnd);
    const int row = std::max(static_cast<int>(PictureSize().cy), TitleHeight(dc.Get()));
    int wanted = kNoteLines * (TheTheme().TextHeight(m_font, nullptr) + kLineSpare);
    if (row > 0) wanted += row + kAboveNote;
    RECT window, client;
    GetWindowRect(m_hWnd, &window);
    GetClientRect(m_hWnd, &client);
    if (client.bottom == wanted) return;
    const int height = wanted + static_cast<int>(window.bottom - window.top - client.bottom);
    SetWindowPos(m_hWnd, nullptr, 0, 0, window.right - window.left, height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}
