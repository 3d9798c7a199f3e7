#include "foundation/ini_syntax.h"

#include <optional>

#include "foundation/textops.h"

namespace {

constexpr std::u16string_view kBackslashPair = u"\\\\";

// Stands for an escaped backslash while the other escapes are looked for.
constexpr std::u16string_view kHiddenPair = u"\xFFFF\xFFFF";

std::u16string_view Trimmed(std::u16string_view text) {
    return TrimmedView(text, kWhiteSpace, TRIM_BOTH);
}

bool IsQuote(char16_t unit) {
    return unit == u'"' || unit == u'\'';
}

bool IsCommentMark(char16_t unit) {
    return unit == u'#' || unit == u';';
}

bool IsHead(std::u16string_view line) {
    return line.size() >= 2 && line.front() == u'[' && line.back() == u']';
}

// Cuts the last backslash if it continues the line, and says whether it did.
bool CutContinuation(std::u16string_view& line) {
    const std::size_t backslashes = line.size() - (line.find_last_not_of(u'\\') + 1);
    if (backslashes % 2 == 0) return false;
    line.remove_suffix(1);
    return true;
}

void Join(tvstring& out, std::u16string_view line) {
    const bool parted = !out.empty() && !line.empty() && !out.ends_with(u"\\n") && !line.starts_with(u"\\t");
    if (parted) out += u' ';
    out += line;
}

}  // namespace

std::u16string_view GetLogicalLine(std::u16string_view& text, tvstring& out) {
    out.clear();
    std::u16string_view first;
    bool joining = true;
    while (!text.empty()) {
        const std::size_t end = text.find(u'\n');
        std::u16string_view line = Trimmed(text.substr(0, end));
        if (!line.empty() && !IsCommentMark(line.front())) {
            const std::u16string_view whole = line;
            const bool continues = CutContinuation(line);
            if (!joining && (IsHead(line) || line.find(u'=') != line.npos)) break;
            if (first.empty()) first = whole;
            Join(out, line);
            joining = continues;
        }
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
        text = Trimmed(text);
    }
    return first;
}

namespace {

struct Separator {
    std::size_t position;
    std::u16string_view key;
};

// A key that starts with a quote ends at the first "=" behind a closing quote; without one, at the first "="
// of all. `line` starts with the quote, `equals` is its first "=".
std::optional<Separator> FindQuotedKey(std::u16string_view line, std::size_t equals) {
    const char16_t quote = line.front();
    std::optional<Separator> fallback;
    for (; equals != line.npos; equals = line.find(u'=', equals + 1)) {
        const std::u16string_view candidate = Trimmed(line.substr(0, equals));
        if (candidate.size() == 1) continue;
        std::u16string_view inside = candidate.substr(1);
        if (candidate.back() == quote) {
            if (candidate.size() == 2) return std::nullopt;
            inside.remove_suffix(1);
            if (inside.back() != u'\\') return Separator{equals, inside};
        }
        if (!fallback) fallback = Separator{equals, inside};
    }
    return fallback;
}

std::optional<Separator> FindSeparator(std::u16string_view line) {
    const std::size_t equals = line.find(u'=');
    if (equals == line.npos || equals == 0) return std::nullopt;
    if (IsQuote(line.front())) return FindQuotedKey(line, equals);
    return Separator{equals, Trimmed(line.substr(0, equals))};
}

std::u16string_view WithoutQuotes(std::u16string_view value) {
    const bool quoted = value.size() >= 3 && value[value.size() - 2] != u'\\' && IsQuote(value.front()) &&
                        value.back() == value.front();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

bool SplitKeyValue(std::u16string_view line, tvstring& key, tvstring& value) {
    tvstring copy(Trimmed(line));
    ReplaceAll(copy, kBackslashPair, kHiddenPair);
    const std::optional<Separator> separator = FindSeparator(copy);
    if (!separator) return false;
    key = separator->key;
    value = WithoutQuotes(Trimmed(copy.view().substr(separator->position + 1)));
    ReplaceAll(key, kHiddenPair, kBackslashPair);
    ReplaceAll(value, kHiddenPair, kBackslashPair);
    return true;
}

namespace {

// What the escape of that unit stands for, or 0 if it is none.
char16_t EscapedUnit(char16_t unit) {
    switch (unit) {
        case u'"':
        case u'\'':
            return unit;
        case u'n':
            return u'\n';
        case u'r':
            return u'\r';
        case u't':
            return u'\t';
        default:
            return 0;
    }
}

}  // namespace

tvstring Unescape(std::u16string_view text) {
    tvstring hidden(text);
    ReplaceAll(hidden, kBackslashPair, kHiddenPair);
    tvstring result;
    result.reserve(hidden.size());
    for (std::size_t i = 0; i < hidden.size(); ++i) {
        const bool escapes = hidden[i] == u'\\' && i + 1 < hidden.size();
        const char16_t escaped = escapes ? EscapedUnit(hidden[i + 1]) : u'\0';
        result += escaped != 0 ? escaped : hidden[i];
        if (escaped != 0) ++i;
    }
    ReplaceAll(result, kHiddenPair, u"\\");
    return result;
}

IniLine ReadIniLine(std::u16string_view line) {
    IniLine read;
    if (IsHead(line)) {
        read.kind = IniLine::Kind::Head;
        read.key = Unescape(line.substr(1, line.size() - 2));
        return read;
    }
    // A key that would look like a comment is written with a backslash in front.
    if (line.size() >= 2 && line[0] == u'\\' && IsCommentMark(line[1])) line.remove_prefix(1);
    tvstring key;
    tvstring value;
    if (!SplitKeyValue(line, key, value)) return read;
    read.kind = IniLine::Kind::Pair;
    read.key = Unescape(key);
    read.value = Unescape(value);
    return read;
}
