#include "cli/text_argument.h"

#include <charconv>

#include "cli/failure.h"
#include "cli/utf8.h"
#include "database/database.h"
#include "foundation/conversion.h"
#include "platform/terminal.h"

tvstring TextArgument(const std::string& argument, const char* what) {
    if (!IsUtf8(argument)) throw Failure(ExitCode::WrongUsage, std::string(what) + " is not valid UTF-8");
    return FromUtf8(argument);
}

tvstring StoredArgument(const std::string& argument, const char* what) {
    tvstring text = TextArgument(argument, what);
    RequireStorable(text, what);
    return text;
}

void RequireStorable(const tvstring& text, const char* what) {
    if (text.size() <= kLongestText) return;
    throw Failure(ExitCode::FormatLimit, std::string(what) + " is longer than " +
                                             std::to_string(kLongestText) +
                                             " UTF-16 units, the most that a database can hold");
}

u32 NumberArgument(const std::string& argument, const char* what, u32 least, u32 most) {
    u32 number = 0;
    const char* end = argument.data() + argument.size();
    const auto result = std::from_chars(argument.data(), end, number);
    if (result.ec == std::errc() && result.ptr == end && number >= least && number <= most) return number;
    throw Failure(ExitCode::WrongUsage, std::string(what).append(" has to be a number from ") +
                                            std::to_string(least) + " to " + std::to_string(most));
}

tvstring PathArgument(const std::string& argument) {
    return tvstring(platform::PathFromArgument(argument));
}

std::string ForMessage(const tvstring& text) {
    constexpr char32_t kReplacement = 0xFFFD;
    std::string out;
    for (std::size_t i = 0; i < text.size();) {
        char32_t codePoint = NextCodePoint(text, i);
        const bool isControl = codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
        if (isControl || IsSurrogate(codePoint)) codePoint = kReplacement;
        char bytes[4];
        out.append(bytes, EncodeUtf8(codePoint, bytes));
    }
    return out;
}
