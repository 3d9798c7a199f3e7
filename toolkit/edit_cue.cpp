// The cue of an edit box.
#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/edit.h"
#include "toolkit/system.h"
#include "toolkit/theme.h"

void tvEdit::SetCue(const tvstring& text, bool onFocus) {
    m_cueColor = kUsualCueColor;
    m_cue = text;
    m_cueOnFocus = onFocus ? 1 : 0;
    if (m_tempCue.empty()) SendCue();
    InvalidateCue();
}

void tvEdit::SetTempCue(const tvstring& text, bool onFocus, COLORREF color) {
    m_tempCue = text;
    m_tempCueOnFocus = onFocus ? 1 : 0;
    m_tempCueColor = color;
    SendCue();
    InvalidateCue();
}

tvEdit::Cue tvEdit::ActiveCue() const {
    if (!m_tempCue.empty()) return {m_tempCue, m_tempCueOnFocus != 0, m_tempCueColor};
    return {m_cue, m_cueOnFocus != 0, m_cueColor};
}

// The system shows the cue itself where this class does not.
void tvEdit::SendCue() {
    const Cue cue = ActiveCue();
    Send(EM_SETCUEBANNER, cue.onFocus ? TRUE : FALSE, reinterpret_cast<LPARAM>(cue.text.c_str()));
}

// True if the cue is not one of this object's own, on its way to the system.
bool tvEdit::TakeCue(WPARAM wParam, LPARAM lParam) {
    const auto* text = reinterpret_cast<const char16_t*>(lParam);
    if (text == m_cue.c_str() || text == m_tempCue.c_str()) return false;
    SetCue(text == nullptr ? tvstring() : tvstring(text), wParam != 0);
    return true;
}

// It may have to come or to go.
void tvEdit::InvalidateCue() const {
    const bool isEmpty = IsAttached() && GetWindowTextLengthW(m_hWnd) == 0;
    if (isEmpty && !HasStyle(m_hWnd, ES_MULTILINE)) InvalidateRect(m_hWnd, nullptr, TRUE);
}

bool tvEdit::ShouldShowCue() const {
    const Cue cue = ActiveCue();
    if (cue.text.empty() || HasStyle(m_hWnd, WS_DISABLED | ES_MULTILINE)) return false;
    if (GetWindowTextLengthW(m_hWnd) > 0) return false;
    if (!cue.onFocus && GetFocus() == m_hWnd) return false;
    return IsColor(cue.color) || !TheTheme().m_isSystemDefault || !IsVisualStyleActive();
}

void tvEdit::PaintCue() {
    const tvPaintDC paint(m_hWnd, m_font);
    OnDraw(paint.m_dc, ClientOf(m_hWnd), nullptr);
}

void tvEdit::OnDraw(HDC dc, const RECT& rect, void* /*paint*/) {
    const tvTheme& theme = TheTheme();
    const Cue cue = ActiveCue();
    FillSolid(dc, rect,
              IsGray() ? theme.Color(&tvColorTheme::m_base, COLOR_BTNFACE)
                       : theme.Color(&tvColorTheme::m_editBg, COLOR_WINDOW));
    SetTextColor(dc, IsColor(cue.color) ? cue.color : theme.Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT));
    RECT place = rect;
    Send(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&place));
    DrawTextW(dc, Wide(cue.text.c_str()), static_cast<int>(cue.text.size()), &place,
              DT_VCENTER | DT_SINGLELINE);
}

// The two notifications come one after the other; the first one is in time for the picture.
bool tvEdit::OnReflectCommand(u16 code) {
    if (m_wiping) return true;
    if (code != EN_UPDATE && code != EN_CHANGE) return false;
    if (!m_tempCue.empty() && GetWindowTextLengthW(m_hWnd) > 0) {
        m_tempCue.clear();
        SendCue();
    }
    if (ShouldShowCue()) InvalidateRect(m_hWnd, nullptr, TRUE);
    return false;
}
