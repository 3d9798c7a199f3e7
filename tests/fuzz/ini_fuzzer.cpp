// Reads an INI document, and the same table again from a document written from it.
#include <algorithm>
#include <functional>

#include "foundation/ini_syntax.h"
#include "foundation/tvini.h"
#include "tests/fuzz/fuzz_text.h"

namespace {

// Each step takes something from the front and gives one line.
void CheckLogicalLines(const tvstring& text) {
    std::u16string_view rest = text;
    tvstring line;
    while (!rest.empty()) {
        const std::u16string_view before = rest;
        const std::u16string_view first = GetLogicalLine(rest, line);
        Require(rest.size() < before.size());
        Require(line.find(u'\n') == tvstring::npos);
        Require(first.empty() ||
                (std::less_equal<>()(before.data(), first.data()) &&
                 std::less_equal<>()(first.data() + first.size(), before.data() + before.size())));
    }
}

void CheckTable(const tvini& ini, bool parsed) {
    Require(parsed == !ini.Sections().empty());
    for (const auto& [section, keys] : ini.Sections()) {
        Require(!section.empty() && !keys.empty());
        for (const auto& pair : keys) {
            Require(!pair.first.empty());
            Require(ini.Get(section, pair.first) == pair.second);
        }
    }
}

// A text with everything escaped that can be.
tvstring Escaped(const tvstring& text) {
    tvstring escaped;
    for (const char16_t unit : text) {
        constexpr std::u16string_view kPlain = u"\n\r\t\\\"'";
        constexpr std::u16string_view kEscape = u"nrt\\\"'";
        const std::size_t place = kPlain.find(unit);
        if (place != kPlain.npos) escaped += u'\\';
        escaped += place == kPlain.npos ? unit : kEscape[place];
    }
    return escaped;
}

tvstring Document(const tvini& ini) {
    tvstring text;
    for (const auto& [section, keys] : ini.Sections()) {
        text += tvstring(u"[") + Escaped(section) + u"]\n";
        for (const auto& [key, value] : keys) {
            text += tvstring(u"\"") + Escaped(key) + u"\" = ";
            if (!value.empty()) text += tvstring(u"\"") + Escaped(value) + u"\"";
            text += u'\n';
        }
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    const tvstring text = TextOfFile(data, size);
    CheckLogicalLines(text);
    tvini ini(nullptr);
    CheckTable(ini, ini.Parse(text));
    // U+FFFF is what the parser itself puts in place of escaped backslashes.
    if (text.find(u'\xFFFF') != tvstring::npos) return 0;
    tvini again(nullptr);
    CheckTable(again, again.Parse(Document(ini)));
    Require(again.Sections() == ini.Sections());
    return 0;
}
