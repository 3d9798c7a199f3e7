#include "foundation/ini_lines.h"

#include <algorithm>
#include <utility>

std::vector<PlacedLine> PlacedLines(const tvstring& text) {
    std::vector<PlacedLine> lines;
    std::u16string_view rest = text;
    const char16_t* counted = text.data();
    std::size_t number = 1;
    tvstring section;
    tvstring logical;
    while (!rest.empty()) {
        const std::u16string_view first = GetLogicalLine(rest, logical);
        if (first.empty()) break;
        number += static_cast<std::size_t>(std::count(counted, first.data(), u'\n'));
        counted = first.data();
        if (logical.empty()) continue;
        IniLine read = ReadIniLine(logical);
        if (read.kind == IniLine::Kind::Head) section = read.key;
        lines.push_back({number, section, logical, std::move(read)});
    }
    return lines;
}
