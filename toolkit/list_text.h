// How the text of a list box's row is laid out, for measuring and painting alike; and how high a row can be.
#pragma once

#include <algorithm>
#include <string_view>

#include "toolkit/win32.h"

inline constexpr UINT kListTextFlags = DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL;
inline constexpr UINT kListNoteFlags = DT_SINGLELINE | DT_NOPREFIX;

// The height that a row gets which wants this one: even, and no higher than the system takes.
constexpr int RowHeightFor(int height) {
    constexpr int kHighest = 254;
    return std::min(height + height % 2, kHighest);
}

// Tabs in front are not painted: each is one step of indent.
constexpr std::size_t TabsInFront(std::u16string_view text) {
    return std::min(text.find_first_not_of(u'\t'), text.size());
}
