// Finds one word in many texts as the system's search does, which ignores case and is slow. Where word and
// text are plain ASCII a vectorised search gives the same answer; elsewhere the system's search is asked.
#pragma once

#include <string_view>

#include "foundation/tvstring.h"

class TextFinder {
public:
    explicit TextFinder(tvstring word);

    // True if the word stands in the text: what platform::FindNoCase says of both.
    [[nodiscard]] bool IsIn(const tvstring& text) const noexcept;

    [[nodiscard]] const tvstring& Word() const noexcept { return m_Word; }

private:
    [[nodiscard]] bool IsInPlain(std::u16string_view text) const noexcept;

    tvstring m_Word;
    tvstring m_Lower;  // the word with its letters made small; empty if it is not plain ASCII
};
