#include "windows/item_row.h"

#include "foundation/language.h"
#include "toolkit/rect.h"
#include "toolkit/tool_tip.h"

// Not every system tells how much of a text it has drawn: it is measured.
bool DrawRowText(HDC dc, const RECT& rect, const tvstring& text) {
    constexpr UINT kFlags = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
    RECT place = rect;
    DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &place, kFlags);
    SIZE size{};
    GetTextExtentPoint32W(dc, Wide(text.c_str()), static_cast<int>(text.size()), &size);
    return size.cx <= Width(rect);
}

namespace {

LONG WorkWidth(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return Width(monitor.rcWork);
}

}  // namespace

void FitTip(tvstring& text, HWND window, HDC dc) {
    constexpr UINT kFlags = DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS | DT_MODIFYSTRING;
    constexpr std::size_t kEllipsis = 4;  // that the system may put behind a text, with its zero
    const std::size_t length = text.size();
    RECT place{0, 0, WorkWidth(window), 0};
    text.resize(length + kEllipsis);
    DrawTextExW(dc, Wide(text.data()), static_cast<int>(length), &place, kFlags, nullptr);
    text.resize(std::u16string_view(text.c_str()).size());
    if (text.size() >= tvToolTipCtrl::kTextCapacity) text.resize(tvToolTipCtrl::kTextCapacity - 1);
}

const tvstring& NoMatchText() {
    static i32 fetchedAt = -1;
    static tvstring text;
    if (fetchedAt != Language().LoadCount()) {
        fetchedAt = Language().LoadCount();
        text = LangText(u"search", u"nomatch");
    }
    return text;
}
