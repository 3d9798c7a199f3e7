#include "cli/line_writer.h"

namespace {

bool IsLineBreak(char16_t unit) {
    return (unit >= u'\n' && unit <= u'\r') || unit == u'\x85' || unit == u'\x2028' || unit == u'\x2029';
}

bool IsControl(char16_t unit) {
    return unit < u' ' || (unit >= u'\x7F' && unit < u'\xA0');
}

}  // namespace

void WriteLine(ByteSink& out, std::u16string_view text, bool forTerminal) {
    constexpr char16_t kReplacement = u'\xFFFD';
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isBreak = IsLineBreak(text[i]);
        if (!isBreak && !(forTerminal && IsControl(text[i]))) continue;
        out.Text(text.substr(start, i - start));
        out.Text({isBreak ? u" " : &kReplacement, 1});
        if (text.substr(i).starts_with(u"\r\n")) ++i;
        start = i + 1;
    }
    out.Text(text.substr(start));
    out.Byte('\n');
}
