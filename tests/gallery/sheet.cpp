#include "tests/gallery/sheet.h"

#include "toolkit/draw.h"
#include "toolkit/glyph.h"
#include "toolkit/image.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"

void Sheet::OnSubclassed() {
    ModifyStyle(SS_TYPEMASK, SS_OWNERDRAW);
}

void Sheet::OnReflectDrawItem(DRAWITEMSTRUCT* item) {
    RECT rect{};
    GetClientRect(m_hWnd, &rect);
    PaintBuffered(m_hWnd, item->hDC, rect, nullptr, Fade::No);
}

LRESULT Sheet::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (OnThemeMessage(m_hWnd, message, wParam, lParam, result)) return result;
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_SYSCOLORCHANGE:
            ResetBuffer(m_hWnd, Redraw::Yes);
            return 0;
        default:
            return tvWnd::WindowProc(message, wParam, lParam);
    }
}

void Sheet::OnDraw(HDC dc, const RECT& rect, void*) {
    FillSolid(dc, rect, TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE));
    SetTextColor(dc, TheTheme().Color(&tvColorTheme::m_text, COLOR_BTNTEXT));
    SetBkMode(dc, TRANSPARENT);
    m_Draw(dc, rect);
}

namespace {

COLORREF IconColor() {
    return TheTheme().Color(&tvColorTheme::m_icon, COLOR_3DDKSHADOW);
}

COLORREF FrameColor() {
    return TheTheme().Color(&tvColorTheme::m_border, COLOR_BTNSHADOW);
}

RECT Cell(const RECT& rect, int index, int columns, int rows) {
    const int width = (rect.right - rect.left) / columns;
    const int height = (rect.bottom - rect.top) / rows;
    const int x = rect.left + index % columns * width;
    const int y = rect.top + index / columns * height;
    return {x, y, x + width, y + height};
}

RECT Inset(RECT rect, int by) {
    InflateRect(&rect, -by, -by);
    return rect;
}

}  // namespace

void DrawGlyphSheet(HDC dc, const RECT& rect) {
    constexpr int kColumns = 7;
    constexpr int kNumberWidth = 18;
    for (int glyph = 1; glyph <= kGlyphs; ++glyph) {
        RECT cell = Cell(rect, glyph - 1, kColumns, kGlyphs / kColumns);
        RECT number = cell;
        number.right = number.left + kNumberWidth;
        wchar_t digits[4];
        wsprintfW(digits, L"%d", glyph);
        DrawTextW(dc, digits, -1, &number, DT_RIGHT | DT_VCENTER | DT_SINGLELINE);
        cell.left += kNumberWidth;
        DrawGlyph(dc, cell, glyph, IconColor(), TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE));
    }
}

void PictureSheet::OnSubclassed() {
    Sheet::OnSubclassed();
    LoadPictures();
}

LRESULT PictureSheet::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool isOfTheme = message == WM_SYSCOLORCHANGE && lParam == reinterpret_cast<LPARAM>(&TheTheme());
    if (isOfTheme) LoadPictures();
    return Sheet::WindowProc(message, wParam, lParam);
}

void PictureSheet::LoadPictures() {
    constexpr u16 kFirst = 102;
    for (u16 i = 0; i < kCount; ++i)
        m_Pictures[i] = LoadTintedIcon(static_cast<u16>(kFirst + i), kNoColor);
}

void PictureSheet::DrawPictures(HDC dc, const RECT& rect) const {
    for (int i = 0; i < kCount; ++i) {
        const RECT cell = Cell(rect, i, kCount, 1);
        DrawIconEx(dc, cell.left, cell.top, m_Pictures[static_cast<std::size_t>(i)].Get(), 0, 0, 0, nullptr,
                   DI_NORMAL);
    }
}

namespace {

void DrawMarks(HDC dc, const RECT& row) {
    const COLORREF fill = TheTheme().Color(&tvColorTheme::m_editBg, COLOR_WINDOW);
    int index = 0;
    for (const MarkKind kind : {MarkKind::None, MarkKind::Tick, MarkKind::Filled}) {
        for (const int side : {13, 16, 21}) {
            RECT box = Cell(row, index++, 12, 1);
            box.right = box.left + side;
            box.bottom = box.top + side;
            DrawMark(dc, box, fill, FrameColor(), IconColor(), kind, 1.0);
        }
    }
    for (const bool filled : {false, true}) {
        RECT box = Cell(row, index++, 12, 1);
        box.right = box.left + 16;
        box.bottom = box.top + 16;
        if (filled) FillEllipse(dc, Inset(box, 4), IconColor());
        DrawEllipse(dc, box, FrameColor());
    }
    RECT grip = Cell(row, index, 12, 1);
    DrawGripDots(dc, grip, FrameColor());
}

void DrawHeadings(HDC dc, const RECT& row) {
    int index = 0;
    for (const Axis axis : {Axis::Horizontal, Axis::Vertical}) {
        for (const Heading heading : {Heading::Forward, Heading::Backward}) {
            DrawChevron(dc, Inset(Cell(row, index, 12, 1), 3), IconColor(), axis, heading, 0.8);
            DrawTriangle(dc, Cell(row, index + 4, 12, 1), IconColor(), FrameColor(), 9, axis, heading);
            ++index;
        }
    }
    DrawFocusDots(dc, Inset(Cell(row, 8, 12, 1), 4), IconColor());
    FillEdges(dc, Inset(Cell(row, 9, 12, 1), 4), FrameColor(), EDGE_LEFT | EDGE_BOTTOM, 2);
    DrawBevel(dc, Inset(Cell(row, 10, 12, 1), 4), IconColor(), FrameColor(), EDGE_ALL);
    RoundRect(dc, Inset(Cell(row, 11, 12, 1), 3), 5, TheTheme().Color(&tvColorTheme::m_button, COLOR_BTNFACE),
              FrameColor(), 1.5F);
}

}  // namespace

void DrawShapeSheet(HDC dc, const RECT& rect) {
    DrawMarks(dc, Cell(rect, 0, 1, 2));
    DrawHeadings(dc, Cell(rect, 1, 1, 2));
}

void DrawTextSheet(HDC dc, const RECT& rect) {
    const tvTheme& theme = TheTheme();
    const tvstring text = u"C:\\Users\\Somebody\\Documents\\A folder with a long name\\Everything.vmr";
    constexpr int kLines = 6;
    int line = 0;
    for (const int share : {100, 60, 20, 4}) {
        RECT cell = Cell(rect, line++, 1, kLines);
        cell.right = cell.left + (cell.right - cell.left) * share / 100;
        FillEdges(dc, cell, FrameColor(), EDGE_LEFT | EDGE_RIGHT, 1);
        DrawTextPathEllipsis(text, dc, cell, DT_VCENTER);
    }
    RECT bold = Cell(rect, line++, 1, kLines);
    {
        const tvSelected selected(dc, theme.m_fontBold.Get());
        DrawTextW(dc, L"Bold, cut off at its end where it does not fit into the width of the sheet", -1,
                  &bold, DT_END_ELLIPSIS | DT_SINGLELINE | DT_VCENTER);
    }
    const RECT large = Cell(rect, line, 1, kLines);
    const tvSelected selected(dc, theme.m_fontLarge.Get());
    DrawShadowedText(dc, u"Large, with a shadow on dark", large);
}

void DrawPane(HDC dc, const RECT& rect) {
    FillSolid(dc, rect, TheTheme().Color(&tvColorTheme::m_editBg, COLOR_WINDOW));
    FillEdges(dc, rect, FrameColor(), EDGE_ALL, 1);
    SetTextColor(dc, TheTheme().Color(&tvColorTheme::m_text, COLOR_WINDOWTEXT));
    RECT text = Inset(rect, 6);
    DrawTextW(dc, L"A pane. The divider between the two can be dragged.", -1, &text,
              DT_WORDBREAK | DT_NOPREFIX);
}
