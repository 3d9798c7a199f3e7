#include "windows/about_dlg.h"

#include <algorithm>

#include "foundation/language.h"
#include "foundation/product.h"
#include "foundation/textops.h"
#include "toolkit/app.h"
#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"
#include "windows/command_ids.h"
#include "windows/dialog_layout.h"
#include "windows/set_control.h"

namespace {

constexpr u16 kLinkId = 2019;
constexpr i32 kWholeWidth = 100;
constexpr const char16_t* kLinkText = u"Tolvane, vaultmere.example";

tvstring VersionNumber() {
    tvstring text;
    for (const i32 number : kVersion) {
        if (!text.empty()) text.append(u".");
        text.append(FormatInt(number));
    }
    return text;
}

tvstring VersionText() {
    static const tvstring number = VersionNumber();
    return LangText(u"global", u"version", number);
}

tvstring NameText() {
    return tvstring(kAppName);
}

SIZE MeasureLine(HDC dc, HFONT font, const tvstring& text) {
    const tvSelected selected(dc, font);
    RECT rect{};
    const int height = MeasureText(text, DT_SINGLELINE | DT_NOPREFIX, dc, rect);
    return {Width(rect), height};
}

// Draws a line at the top of a rectangle, and takes it off there.
void DrawLine(HDC dc, HFONT font, const tvstring& text, RECT& place) {
    const tvSelected selected(dc, font);
    RECT line = place;
    const int height =
        DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &line, DT_SINGLELINE | DT_NOPREFIX);
    place.top += height + TheTheme().m_borderWidth;
}

}  // namespace

CVMRAboutDlg::CVMRAboutDlg() : m_btnHelp(kWholeWidth) {}

CVMRAboutDlg::~CVMRAboutDlg() {
    Detach(Window::Destroy);
}

void CVMRAboutDlg::BuildTemplate() {
    if (HasTemplate()) return;
    TemplateBegin(240, 155, DialogKind::Popup, 4);
    AddControl(ATOM_BUTTON, CMD_HELP, 175, 7, 58, 16);
    AddControl(ATOM_BUTTON, kLinkId, 39, 40, 117, 14)->style |= BS_LEFT;
}

void CVMRAboutDlg::OnSubclassControls() {
    m_btnHelp.SubclassDlgItem(m_hWnd, CMD_HELP);
    m_link.SubclassDlgItem(m_hWnd, kLinkId);
}

// The size has changed, and with it the place where the middle of the owner is.
bool CVMRAboutDlg::OnInitDialog() {
    const bool result = CVMRBaseDlg::OnInitDialog();
    CenterWindow();
    return result;
}

void CVMRAboutDlg::OnUpdateText() {
    SetText(*this, u"global", u"about");
    SetText(m_btnHelp, u"global", u"help");
    SetText(m_link, tvstring(kLinkText));
}

// --- Size and layout ---

void CVMRAboutDlg::MeasureTexts() {
    tvTheme& theme = TheTheme();
    const tvClientDC screen(nullptr);
    const SIZE name = MeasureLine(screen.Get(), theme.m_fontLarge.Get(), NameText());
    const SIZE version = MeasureLine(screen.Get(), m_font, VersionText());
    const LONG icon = theme.m_icons.SizeOf(ICON_APPLICATION).cx;
    m_textWidth = static_cast<i32>(std::max(name.cx, version.cx) + theme.m_borderWidth + icon);
    m_textHeight = static_cast<i32>(name.cy + version.cy + 2 * theme.m_borderWidth);
}

void CVMRAboutDlg::OnAutoSize() {
    MeasureTexts();
    const tvTheme& theme = TheTheme();
    const SIZE button = SizeOf(m_btnHelp);
    const LONG fromTemplate = Width(ContentOf(ClientOf(m_hWnd)));
    LONG width = m_textWidth + 2 * button.cx + button.cx / 2;
    if (width > fromTemplate * 5 / 4) width = std::max(fromTemplate, m_textWidth + 2 * button.cx);
    const LONG height = std::max<LONG>(m_textHeight, 3 * button.cy + 2 * theme.m_marginY);
    SizeToContent(m_hWnd, {0, 0, width, height});
}

void CVMRAboutDlg::OnLayout() {
    const RECT content = ContentOf(ClientOf(m_hWnd));
    const LONG icon = TheTheme().m_icons.SizeOf(ICON_APPLICATION).cx;
    const int top = static_cast<int>(content.top);
    MoveTo(m_btnHelp, static_cast<int>(content.right - SizeOf(m_btnHelp).cx), top);
    MoveTo(m_link, static_cast<int>(content.left + icon) + TheTheme().m_borderWidth,
           top + m_textHeight + TheTheme().m_marginY);
}

// --- Painting ---

void CVMRAboutDlg::OnPaintDlg(HDC dc, const RECT& rect) {
    tvTheme& theme = TheTheme();
    FillSolid(dc, rect, theme.Color(&tvColorTheme::m_base, COLOR_BTNFACE));
    RECT content = ContentOf(rect);
    const SIZE icon = theme.m_icons.SizeOf(ICON_APPLICATION);
    DrawIconEx(dc, static_cast<int>(content.left), static_cast<int>(content.top),
               theme.m_icons.Find(ICON_APPLICATION), static_cast<int>(icon.cx), static_cast<int>(icon.cy), 0,
               nullptr, DI_NORMAL);
    content.left += icon.cx + theme.m_borderWidth;
    DrawLine(dc, theme.m_fontLarge.Get(), NameText(), content);
    DrawLine(dc, m_font, VersionText(), content);
}

// --- Messages ---

LRESULT CVMRAboutDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) == kLinkId)
                ShellExecuteW(nullptr, nullptr, kProductPage, nullptr, nullptr, SW_SHOWNORMAL);
            if (LOWORD(wParam) == CMD_HELP) PostMessageW(tvApp::MainWindow(), WM_COMMAND, CMD_HELP, 0);
            break;
        default:
            break;
    }
    return CVMRBaseDlg::WindowProc(message, wParam, lParam);
}
