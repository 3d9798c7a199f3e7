// How the dialog for passwords is laid out, and what it paints.
#include "foundation/language.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"
#include "windows/dialog_layout.h"
#include "windows/pass_gen_dlg.h"

namespace {

constexpr int kHeadingExtra = 2;    // of the heading's box beyond its text, in height
constexpr int kHeadingAround = 12;  // in width

// What is painted, fetched again when the language has changed.
struct PaintedTexts {
    tvstring info;
    tvstring title;
    tvstring minLength;
    tvstring maxLength;
};

const PaintedTexts& Texts() {
    static PaintedTexts texts;
    static i32 fetchedAt = -1;
    if (texts.title.empty() || fetchedAt != Language().LoadCount()) {
        fetchedAt = Language().LoadCount();
        texts = {LangText(u"pwdgen", u"info"), LangText(u"pwdgen", u"title"), LangText(u"pwdgen", u"minlen"),
                 LangText(u"pwdgen", u"maxlen")};
    }
    return texts;
}

}  // namespace

// --- Layout ---

void CVMRPassGenDlg::LayOut() {
    const tvTheme& theme = TheTheme();
    const SIZE button = SizeOf(m_okBtn);
    RECT content = ContentOf(ClientOf(m_hWnd));
    content.right = content.left + FittingContentWidth(Width(content), static_cast<int>(button.cx));
    int top = LayOutPassword(content, static_cast<int>(content.top));
    const RECT group = Inset(content, theme.m_marginX, 0);
    top = LayOutLengths(group, top);
    top = LayOutClasses(group, top);
    MoveTo(m_generateBtn, static_cast<int>(group.right - button.cx),
           top - theme.m_marginY - static_cast<int>(button.cy));
    top += 2 * theme.m_marginY;
    PlaceOkAndCancel(m_okBtn, m_cancelBtn, static_cast<int>(content.right), top);
    content.bottom = top + button.cy;
    SizeToContent(m_hWnd, content);
}

int CVMRPassGenDlg::LayOutPassword(const RECT& content, int top) const {
    const tvTheme& theme = TheTheme();
    top += HeightOfText(m_hWnd, m_font, Texts().info, Width(content), kParagraphFlags) + theme.m_marginY;
    const int height = static_cast<int>(SizeOf(m_passwordEdit).cy);
    Place(m_passwordEdit, BoxAt(static_cast<int>(content.left), top, Width(content), height));
    return top + height + theme.m_marginY;
}

int CVMRPassGenDlg::LayOutLengths(const RECT& group, int top) {
    const tvTheme& theme = TheTheme();
    top +=
        HeightOfText(m_hWnd, TheAppData().font.Get(), Texts().title, 0, DT_SINGLELINE) + theme.m_halfMarginY;
    top += TheTheme().TextHeight(m_font, nullptr) + theme.m_borderWidth;
    const int spin = static_cast<int>(SizeOf(m_spins[0]).cx);
    const int width = (Width(group) - 2 * (spin + theme.m_marginX)) / 2;
    const int height = static_cast<int>(SizeOf(m_minEdit).cy);
    Place(m_minEdit, BoxAt(static_cast<int>(group.left), top, width, height));
    Place(m_maxEdit, BoxAt(static_cast<int>(group.right) - width - spin, top, width, height));
    for (tvSpinCtrl& one : m_spins)
        one.OnAutoFit();
    return top + height + theme.m_halfMarginY;
}

int CVMRPassGenDlg::LayOutClasses(const RECT& group, int top) {
    constexpr int kFree = 32000;  // a height without limit
    const tvTheme& theme = TheTheme();
    const int width = Width(group) - static_cast<int>(SizeOf(m_okBtn).cx) - theme.m_halfMarginX;
    for (tvCheckBox& box : m_classBoxes) {
        top += box.FitToText(static_cast<int>(group.left), top, width, kFree, false);
        top += theme.m_borderWidth;
    }
    return top - theme.m_borderWidth;
}

// --- Painting ---

void CVMRPassGenDlg::OnPaintDlg(HDC dc, const RECT& rect) {
    const RECT content = ContentOf(rect);
    const tvSelected font(dc, m_font);
    DrawTextIn(dc, Texts().info, content, kParagraphFlags);
    DrawGroup(dc, content);
    constexpr UINT kLabel = DT_SINGLELINE | DT_END_ELLIPSIS;
    DrawAbove(dc, m_minEdit, Texts().minLength, kLabel);
    DrawAbove(dc, m_maxEdit, Texts().maxLength, kLabel);
    DrawLengthLabel(dc);
}

// The heading stands in the upper line of the frame.
void CVMRPassGenDlg::DrawGroup(HDC dc, const RECT& content) const {
    const tvTheme& theme = TheTheme();
    const tvSelected font(dc, TheAppData().font.Get());
    RECT text{};
    const int height = MeasureText(Texts().title, DT_SINGLELINE, dc, text) + kHeadingExtra;
    RECT frame = content;
    frame.top = PlaceOf(m_passwordEdit).bottom + theme.m_marginY + height / 2;
    frame.bottom = PlaceOf(m_okBtn).top - theme.m_marginY;
    DrawGroupFrame(dc, frame);
    const RECT box = BoxAt(static_cast<int>(content.left) + theme.m_marginX,
                           static_cast<int>(frame.top) - height / 2, Width(text) + kHeadingAround, height);
    FillSolid(dc, box, theme.Color(&tvColorTheme::m_base, COLOR_BTNFACE));
    DrawTextIn(dc, Texts().title, box, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
}

void CVMRPassGenDlg::DrawAbove(HDC dc, const tvWnd& control, const tvstring& text, UINT flags) const {
    RECT place = PlaceOf(control);
    place.bottom = place.top;
    place.top -= TheTheme().m_borderWidth + TheTheme().TextHeight(m_font, nullptr);
    DrawTextIn(dc, text, place, flags);
}

void CVMRPassGenDlg::DrawLengthLabel(HDC dc) const {
    if (m_LengthLabel.empty()) return;
    const COLORREF before = SetTextColor(dc, TheTheme().Color(&tvColorTheme::m_link, COLOR_HIGHLIGHT));
    DrawAbove(dc, m_generateBtn, m_LengthLabel, DT_SINGLELINE | DT_CENTER);
    SetTextColor(dc, before);
}
