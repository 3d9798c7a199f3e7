#include "windows/caption.h"

#include "foundation/textops.h"

namespace {

// True if the mark at `mark` and its letter stand in brackets.
bool IsInBrackets(const tvstring& text, std::size_t mark) {
    if (mark == 0 || mark + 2 >= text.size()) return false;
    const char16_t open = text[mark - 1];
    const char16_t close = text[mark + 2];
    return (open == u'(' && close == u')') || (open == u'[' && close == u']');
}

}  // namespace

void RemoveMarks(tvstring& text) {
    constexpr std::size_t kGroup = 4;  // bracket, mark, letter, bracket
    std::size_t mark = text.find(u'&');
    while (mark != tvstring::npos) {
        if (mark + 1 < text.size() && text[mark + 1] == u'&') {
            mark += 2;
        } else if (IsInBrackets(text, mark)) {
            text.erase(--mark, kGroup);
        } else {
            text.erase(mark, 1);
        }
        mark = text.find(u'&', mark);
    }
    Trim(text, kWhiteSpace, TRIM_BOTH);
}

tvstring WithoutMarks(tvstring text) {
    RemoveMarks(text);
    return text;
}

void CutShortcut(tvstring& text) {
    const std::size_t tab = text.find(u'\t');
    if (tab != tvstring::npos) text.erase(tab);
}
