#include "toolkit/message_box_buttons.h"

#include <algorithm>

#include "toolkit/message_text.h"
#include "toolkit/win32.h"

namespace {

constexpr u32 kContinueSet = 9;  // the system has no name for it

struct SetRow {
    u32 style;
    std::array<int, 3> buttons;  // from right to left; MESSAGE_NONE behind the last
    int closed;
    u32 icon;
};
constexpr SetRow kSets[] = {
    {MB_OK, {MESSAGE_OK}, MESSAGE_OK, MB_ICONINFORMATION},
    {MB_OKCANCEL, {MESSAGE_CANCEL, MESSAGE_OK}, MESSAGE_NONE, MB_ICONWARNING},
    {MB_ABORTRETRYIGNORE, {MESSAGE_IGNORE, MESSAGE_RETRY, MESSAGE_ABORT}, MESSAGE_ABORT, 0},
    {MB_YESNOCANCEL, {MESSAGE_CANCEL, MESSAGE_NO, MESSAGE_YES}, MESSAGE_NONE, MB_ICONQUESTION},
    {MB_YESNO, {MESSAGE_NO, MESSAGE_YES}, MESSAGE_NO, MB_ICONQUESTION},
    {MB_RETRYCANCEL, {MESSAGE_CANCEL, MESSAGE_RETRY}, MESSAGE_NONE, 0},
    {MB_CANCELTRYCONTINUE, {MESSAGE_CONTINUE, MESSAGE_TRY_AGAIN, MESSAGE_CANCEL}, MESSAGE_NONE, 0},
    {kContinueSet, {MESSAGE_CONTINUE}, MESSAGE_CONTINUE, MB_ICONINFORMATION},
};

}  // namespace

MessageButtonSet::MessageButtonSet(u32 style) noexcept {
    for (const SetRow& row : kSets) {
        if (row.style != (style & MB_TYPEMASK)) continue;
        m_Buttons = row.buttons;
        m_Count = row.buttons.size() -
                  static_cast<std::size_t>(std::count(row.buttons.begin(), row.buttons.end(), MESSAGE_NONE));
        m_Closed = row.closed;
        m_Icon = row.icon;
    }
}

bool MessageButtonSet::Has(int button) const noexcept {
    const auto buttons = Buttons();
    return std::find(buttons.begin(), buttons.end(), button) != buttons.end();
}

int MessageButtonSet::DefaultIndex(u32 style) const noexcept {
    const int leftmost = static_cast<int>(m_Count) - 1;
    const int index = leftmost - static_cast<int>((style & MB_DEFMASK) >> 8);
    return index < 0 ? leftmost : index;
}
