#include "windows/main_status_bar.h"

#include <array>

#include "database/database.h"
#include "foundation/language.h"
#include "foundation/textops.h"
#include "shell/statics.h"
#include "toolkit/draw.h"
#include "toolkit/theme.h"

namespace {

constexpr i32 kMessageTime = 5000;  // milliseconds
constexpr int kPaneGap = 8;
constexpr COLORREF kErrorGround = RGB(255, 192, 0);
constexpr COLORREF kOtherGround = RGB(0, 144, 0);

COLORREF LineColor() {
    return TheTheme().Color(&tvColorTheme::m_border, COLOR_BTNSHADOW);
}

// The texts of panes, fetched again when the language has changed.
struct PaneTexts {
    tvstring autosave;
    tvstring searchpwd;
    tvstring changed;
    tvstring ready;
};

const PaneTexts& Texts() {
    static PaneTexts texts;
    static i32 fetchedAt = -1;
    if (texts.ready.empty() || fetchedAt != Language().LoadCount()) {
        fetchedAt = Language().LoadCount();
        texts.autosave = LangText(u"statusbar", u"autosave");
        texts.searchpwd = LangText(u"statusbar", u"searchpwd");
        texts.changed = LangText(u"statusbar", u"changed");
        texts.ready = LangText(u"statusbar", u"ready");
    }
    return texts;
}

// Panes are cut from the ends of a rectangle, one after another.
class PaneRow {
public:
    PaneRow(HDC dc, const RECT& rect) : m_Dc(dc), m_Rest(rect) {}

    enum class Mode { Left, LeftWithLine, Right };
    void DrawPane(const tvstring& text, Mode mode) {
        if (text.empty()) return;
        const int width = WidthOf(text);
        if (mode == Mode::Right) {
            DrawPaneText(text, DT_RIGHT);
            m_Rest.right -= kPaneGap + width;
            DrawLine(m_Rest.right);
            m_Rest.right -= kPaneGap + 1;
            return;
        }
        DrawPaneText(text, DT_LEFT);
        m_Rest.left += width + kPaneGap;
        if (mode == Mode::Left) return;
        DrawLine(m_Rest.left);
        m_Rest.left += kPaneGap + 1;
    }

private:
    [[nodiscard]] int WidthOf(const tvstring& text) const {
        RECT size{};
        DrawTextW(m_Dc, Wide(text.c_str()), static_cast<int>(text.size()), &size,
                  DT_SINGLELINE | DT_HIDEPREFIX | DT_CALCRECT);
        return static_cast<int>(size.right - size.left);
    }
    void DrawPaneText(const tvstring& text, UINT align) const {
        RECT place = m_Rest;
        DrawTextW(m_Dc, Wide(text.c_str()), static_cast<int>(text.size()), &place,
                  DT_SINGLELINE | DT_HIDEPREFIX | DT_VCENTER | align);
    }
    void DrawLine(LONG x) const { FillSolid(m_Dc, {x, m_Rest.top, x + 1, m_Rest.bottom}, LineColor()); }

    HDC m_Dc;
    RECT m_Rest;
};

}  // namespace

CVMRStatusBar::CVMRStatusBar() {
    m_idle.m_timeout = kMessageTime;
}

CVMRStatusBar::~CVMRStatusBar() {
    Detach(Window::Destroy);
}

void CVMRStatusBar::OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) {
    if (!IsAttached() || (code != APPN_LANGUAGE && code != APPN_STATUS)) return;
    if (code == APPN_LANGUAGE) a = STATUS_REPAINT;
    switch (a) {
        case STATUS_COUNTS:
            m_total = static_cast<i32>(b);
            m_selected = static_cast<i32>(c);
            Repaint();
            break;
        case STATUS_REPAINT:
            Repaint();
            break;
        case STATUS_INFORMATION:
        case STATUS_ERROR:
        case STATUS_WARNING:
            ShowMessage(FromArgument<const char16_t>(b), static_cast<MessageKind>(a - STATUS_INFORMATION));
            break;
        default:
            break;
    }
}

void CVMRStatusBar::Repaint() {
    InvalidateRect(m_hWnd, nullptr, FALSE);
}

void CVMRStatusBar::ShowMessage(const char16_t* text, MessageKind kind) {
    struct IconPair {
        int large;
        int small;
    };
    constexpr std::array<IconPair, 3> kIcons = {{
        {ICON_INFORMATION, ICON_INFORMATION_SMALL},
        {ICON_ERROR, ICON_ERROR_SMALL},
        {ICON_WARNING, ICON_WARNING_SMALL},
    }};
    m_isError = kind == Error ? 1 : 0;
    const IconPair& icons = kIcons[static_cast<std::size_t>(kind)];
    RECT client{};
    GetClientRect(m_hWnd, &client);
    const LONG room = client.bottom - client.top - 2 * TheTheme().m_borderWidth;
    const bool isLarge = room > TheTheme().m_icons.SizeOf(icons.large).cy;
    const tvstring message = text == nullptr ? tvstring() : tvstring(text);
    SetMessage(message,
               message.empty() ? nullptr : TheTheme().m_icons.Find(isLarge ? icons.large : icons.small));
}

// --- Drawing ---

void CVMRStatusBar::DrawBack(HDC dc, const RECT& rect) {
    if (!IsMessageShown()) {
        tvStatusBar::DrawBack(dc, rect);
        return;
    }
    FillSolid(dc, rect, m_isError != 0 ? kErrorGround : kOtherGround);
    FillEdges(dc, rect, LineColor(), EDGE_TOP, 1);
}

void CVMRStatusBar::DrawLabel(HDC dc, const RECT& rect, const tvstring& text) {
    if (IsMessageShown()) {
        DrawMessage(dc, rect, text);
    } else {
        DrawState(dc, {rect.left, rect.top, rect.right - kPaneGap, rect.bottom});
    }
}

void CVMRStatusBar::DrawMessage(HDC dc, RECT rect, const tvstring& text) const {
    constexpr UINT kFlags = DT_VCENTER | DT_SINGLELINE | DT_EXPANDTABS | DT_EDITCONTROL | DT_PATH_ELLIPSIS |
                            DT_END_ELLIPSIS | DT_HIDEPREFIX;
    static_assert(kFlags == 0x10E064);
    if (text.empty()) return;
    SetTextColor(dc, m_isError != 0 ? RGB(0, 0, 0) : RGB(255, 255, 255));
    DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &rect, kFlags);
}

void CVMRStatusBar::DrawState(HDC dc, RECT rect) const {
    const VMRD_DB& database = TheDatabase();
    PaneRow row(dc, rect);
    if (database.bAutoSave) row.DrawPane(Texts().autosave, PaneRow::Mode::Right);
    if (database.bFilterPWD) row.DrawPane(Texts().searchpwd, PaneRow::Mode::Right);
    if (database.m_Changed) row.DrawPane(Texts().changed, PaneRow::Mode::Right);
    row.DrawPane(database.m_Opened ? Counts() : Texts().ready, PaneRow::Mode::Left);
}

tvstring CVMRStatusBar::Counts() const {
    const auto items = static_cast<i32>(TheDatabase().m_Count);
    const char16_t* key = items == m_total ? u"items_nosearch" : u"items";
    return LangText(u"statusbar", key, FormatInt(items), FormatInt(m_total), FormatInt(m_selected));
}
