// tvstrmap, an ordered map from text to V in which letter case makes no difference.
#pragma once

#include <map>
#include <string_view>

#include "foundation/tvstring.h"
#include "platform/text.h"

// True if `a` comes before `b` in the order of CompareNoCase (foundation/textops.h): ordinal, without any
// locale. Takes views, so that a look-up needs no copy of its key.
struct tvmap_nocasecompare {
    using is_transparent = void;

    bool operator()(std::u16string_view a, std::u16string_view b) const noexcept {
        if (a.empty() || b.empty()) return a.empty() && !b.empty();
        return platform::CompareOrdinalNoCase(a.data(), a.size(), b.data(), b.size()) < 0;
    }
};

// A key keeps the letters it was first stored with.
template <typename V>
using tvstrmap = std::map<tvstring, V, tvmap_nocasecompare>;
