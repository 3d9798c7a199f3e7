// What the detail pane paints, from the top down: the name, the date, a line, the basic entries, and the
// heading of the list. Each step takes its part off the top of what is free.
#include <algorithm>

#include "foundation/language.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"
#include "windows/right_dlg.h"
#include "windows/shown_text.h"

namespace {

// Measures a text on one line, cuts the rectangle to what it needs, at least `minHeight`, and draws it there.
// An empty text takes the height of a line.
void DrawFit(HDC dc, const tvstring& text, UINT flags, RECT& rect, LONG minHeight) {
    constexpr UINT kFlags = DT_SINGLELINE | DT_NOPREFIX | DT_EDITCONTROL;
    constexpr LONG kSpare = 8;  // behind the text
    constexpr LONG kUnlimited = 32000;
    static const tvstring anyLine(u"hy");
    RECT needed{0, 0, kUnlimited, kUnlimited};  // a text that is cut needs all there is
    MeasureText(text.empty() ? anyLine : text, kFlags | flags, dc, needed);
    rect.right = rect.left + std::min<LONG>(Width(needed) + kSpare, Width(rect));
    rect.bottom = rect.top + std::max<LONG>(Height(needed), minHeight);
    if (text.empty()) return;
    RECT place = rect;
    DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &place,
              kFlags | DT_VCENTER | DT_END_ELLIPSIS | flags);
}

tvstring LabelOf(u16 type) {
    switch (type) {
        case VMRD_T_PROGRAM:
            return LangText(u"itemdetail", u"program");
        case VMRD_T_USERNAME:
            return LangText(u"itemdetail", u"username");
        default:
            return LangText(u"itemdetail", u"password");
    }
}

bool IsBasic(u16 type) {
    return type == VMRD_T_PROGRAM || type == VMRD_T_USERNAME || type == VMRD_T_PASSWORD;
}

// A file time as date and time in the user's format.
tvstring DateAndTime(u64 date) {
    constexpr int kRoom = 128;
    constexpr u64 kLowPart = 0xFFFF'FFFF;
    constexpr int kHighPart = 32;
    const FILETIME fileTime{static_cast<DWORD>(date & kLowPart), static_cast<DWORD>(date >> kHighPart)};
    SYSTEMTIME time{};
    if (FileTimeToSystemTime(&fileTime, &time) == FALSE) return {};
    char16_t day[kRoom] = {};
    char16_t clock[kRoom] = {};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, Wide(day), kRoom);
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, Wide(clock), kRoom);
    return tvstring(day).append(u" ").append(clock);
}

}  // namespace

const tvstring& CVMRRightDlg::DateLine() {
    const u64 date = ElementDate(m_Item);
    const i32 language = Language().LoadCount();
    if (m_dateLine.date != date || m_dateLine.language != language) {
        m_dateLine.text =
            date == 0 ? tvstring() : LangText(u"itemdetail", u"lastmodified", DateAndTime(date));
        m_dateLine.date = date;
        m_dateLine.language = language;
    }
    return m_dateLine.text;
}

void CVMRRightDlg::PaintName(Page& page) {
    FieldBox& field = m_fields[VMRD_T_ITEMNAME];
    field.m_textRect = page.room;
    field.m_textRect.right -= page.button + TheTheme().m_borderWidth;
    const tvSelected font(page.dc, TheTheme().m_fontLarge.Get());
    DrawFit(page.dc, ElementText(m_Item), 0, field.m_textRect, page.button);
    field.m_hitRect = field.m_textRect;
    field.m_hitRect.right = page.room.right;
    page.room.top += Height(field.m_textRect) + TheTheme().m_borderWidth;
}

// It counts as the name.
void CVMRRightDlg::PaintDate(Page& page) {
    const COLORREF before = SetTextColor(page.dc, TheTheme().Color(&tvColorTheme::m_icon, COLOR_3DDKSHADOW));
    RECT place = page.room;
    place.right -= page.button + TheTheme().m_borderWidth;
    DrawFit(page.dc, DateLine(), 0, place, 0);
    SetTextColor(page.dc, before);
    m_fields[VMRD_T_ITEMNAME].m_hitRect.bottom = place.bottom;
    page.room.top = place.bottom + 2 * TheTheme().m_borderWidth;
}

void CVMRRightDlg::PaintSeparator(Page& page) {
    constexpr int kEtched = 2;  // pixels
    RECT line = page.room;
    line.right -= page.button + TheTheme().m_borderWidth;
    if (TheTheme().m_isSystemDefault) {
        line.bottom = line.top + kEtched;
        DrawEdge(page.dc, &line, EDGE_ETCHED, BF_TOP);
    } else {
        line.bottom = line.top + 1;
        FillSolid(page.dc, line, TheTheme().m_button);
    }
    page.room.top += kEtched + TheTheme().m_marginY;
}

// The label and below it the value, with room for the hover buttons at the right.
void CVMRRightDlg::PaintEntry(Page& page, VMRD_Entry& entry) {
    const u16 type = entry.m_Type;
    const LONG buttons = type == VMRD_T_USERNAME ? 2 : 3;
    const LONG right = page.room.right - buttons * (page.button + TheTheme().m_borderWidth);
    RECT label{page.room.left, page.room.top, right, page.room.bottom};
    DrawFit(page.dc, LabelOf(type), 0, label, 0);
    page.room.top += Height(label) + TheTheme().m_borderWidth;

    FieldBox& field = m_fields[type];
    field.m_textRect = {page.room.left, page.room.top, right, page.room.bottom};
    {
        const tvSelected font(page.dc, TheAppData().font.Get());
        const UINT flags = type == VMRD_T_PROGRAM ? DT_PATH_ELLIPSIS : 0;
        DrawFit(page.dc, ShownText(entry), flags, field.m_textRect, page.button);
    }
    field.m_hitRect = {field.m_textRect.left, label.top, page.room.right, field.m_textRect.bottom};
    field.m_entry = &entry;
    page.room.top += Height(field.m_hitRect) + TheTheme().m_marginY;
}

void CVMRRightDlg::PaintListLabel(Page& page) {
    FieldBox& field = m_fields[VMRD_T_ADDITION];
    field.m_textRect = page.room;
    DrawFit(page.dc, LangText(u"itemdetail", u"addition"), 0, field.m_textRect, 0);
    field.m_hitRect = field.m_textRect;
}

void CVMRRightDlg::OnPaintDlg(HDC dc, const RECT& rect) {
    m_fields.clear();
    if (m_Item == nullptr) return;
    const LONG button = Height(ClientOf(m_copyHover.Handle()));
    Page page{dc, Inset(rect, TheTheme().m_marginX, TheTheme().m_marginY), button};
    PaintName(page);
    PaintDate(page);
    PaintSeparator(page);
    for (EntryElement* entry = m_Item->m_Head; entry != nullptr; entry = entry->m_Next)
        if (IsBasic(entry->m_Type)) PaintEntry(page, *entry);
    PaintListLabel(page);
}

// The places as the next paint will find them, for a pane that cannot be seen at present.
void CVMRRightDlg::MeasureFields() {
    const tvClientDC screen(nullptr);
    const tvMemoryDCHandle unseen(CreateCompatibleDC(screen.Get()));
    const tvSelected font(unseen.Get(), m_font);
    OnPaintDlg(unseen.Get(), ClientOf(m_hWnd));
}
