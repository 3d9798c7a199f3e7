#include "foundation/language_reference.h"

#include <algorithm>

#include "foundation/textops.h"

namespace {

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

// The key at the start of a text; empty if there is none.
std::u16string_view ScanKey(std::u16string_view text) {
    const auto end = std::find_if_not(text.begin(), text.end(), [](char16_t unit) {
        return IsDigit(unit) || IsAsciiLetter(unit) || unit == u'-' || unit == u'_';
    });
    return TrimmedView(text.substr(0, static_cast<std::size_t>(end - text.begin())), u"-_", TRIM_END);
}

// Finds the references of one value.
class ReferenceScanner {
public:
    explicit ReferenceScanner(std::u16string_view value) : m_Value(value) {}

    // The next reference from the search position, which moves behind it.
    std::optional<LanguageReference> Next() {
        while (true) {
            const std::size_t percent = m_Value.find(u'%', m_Position);
            if (percent == m_Value.npos || percent + 1 == m_Value.size()) return std::nullopt;
            const char16_t next = m_Value[percent + 1];
            if (next == u'%' || IsDigit(next)) {
                m_Position = percent + 2;
            } else if (const auto reference = ReferenceAt(percent)) {
                m_Position = percent + reference->text.size();
                return reference;
            } else {
                m_Position = percent + 1;
            }
        }
    }

private:
    std::optional<LanguageReference> ReferenceAt(std::size_t percent) {
        LanguageReference reference;
        std::size_t key = percent + 1;
        if (m_Value[key] == u'[') {
            FindCloseBehind(key);
            if (m_Close == m_Value.npos) return std::nullopt;
            reference.section = m_Value.substr(key + 1, m_Close - key - 1);
            reference.key = m_KeyBehindClose;
            key = m_Close + 1;
        } else {
            reference.key = ScanKey(m_Value.substr(key));
        }
        if (reference.key.empty()) return std::nullopt;
        reference.text = m_Value.substr(percent, key + reference.key.size() - percent);
        return reference;
    }

    // The next "]" and what follows it are remembered, so that a value full of opening brackets is not
    // searched over and over.
    void FindCloseBehind(std::size_t open) {
        if (m_Close == m_Value.npos || m_Close > open) return;
        m_Close = m_Value.find(u']', open);
        if (m_Close != m_Value.npos) m_KeyBehindClose = ScanKey(m_Value.substr(m_Close + 1));
    }

    std::u16string_view m_Value;
    std::size_t m_Position = 0;
    std::size_t m_Close = 0;
    std::u16string_view m_KeyBehindClose;
};

// Cuts "(&X)" or "[&X]" around the first mark.
void CutBracketedMark(tvstring& text) {
    const std::size_t mark = text.find(u'&');
    if (text.size() < 5 || mark == 0 || mark + 3 > text.size() || text[mark + 1] == u'&') return;
    const char16_t open = text[mark - 1];
    const char16_t close = text[mark + 2];
    if ((open == u'(' && close == u')') || (open == u'[' && close == u']')) text.erase(mark - 1, 4);
}

}  // namespace

tvstring CleanReference(const tvstring& text) {
    if (text.find(u'&') == kNoPosition) return text;
    tvstring clean(text);
    CutBracketedMark(clean);
    CleanCaption(clean, /*keepMarks=*/false, CUT_THREE);
    return clean;
}

void ExpandReferences(tvstring& value, const ReferenceLookup& lookup) {
    ReferenceScanner scanner(value);
    tvstring expanded;
    std::u16string_view rest = value;
    while (const std::optional<LanguageReference> reference = scanner.Next()) {
        const tvstring* text = lookup(*reference);
        if (text == nullptr || text->empty()) continue;
        const auto place = static_cast<std::size_t>(reference->text.data() - rest.data());
        expanded += rest.substr(0, place);
        rest.remove_prefix(place + reference->text.size());
        const bool isWhole = expanded.empty() && rest.empty();
        expanded += isWhole ? *text : CleanReference(*text);
    }
    if (rest.size() != value.size()) value = expanded + rest;
}

tvstring PutArguments(std::u16string_view text, const LanguageArguments& arguments) {
    tvstring result;
    result.reserve(text.size());
    while (true) {
        const std::size_t percent = text.find(u'%');
        if (percent == text.npos || percent + 1 == text.size()) break;
        const char16_t next = text[percent + 1];
        const std::size_t index = next - std::size_t{u'0'};  // wraps around below "0"
        if (index < arguments.size()) {
            result.append(text.substr(0, percent)).append(arguments[index]);
        } else {
            result += text.substr(0, next == u'%' ? percent + 1 : percent + 2);
        }
        text.remove_prefix(percent + 2);
    }
    return std::move(result += text);
}
