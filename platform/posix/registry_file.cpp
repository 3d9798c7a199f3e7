#include "platform/posix/registry_file.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <string_view>
#include <utility>

#include "platform/text.h"

namespace platform {
namespace {

constexpr std::string_view kEscaped = "[]=%";

std::string EscapedName(const std::u16string& name) {
    std::string text;
    for (const char16_t unit : name) {
        if (unit >= 0x20 && unit < 0x7F && kEscaped.find(static_cast<char>(unit)) == kEscaped.npos) {
            text += static_cast<char>(unit);
        } else {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "%%%04x", static_cast<unsigned>(unit));
            text += escaped;
        }
    }
    return text;
}

// Digits of the base and nothing else.
template <typename Number>
bool ReadNumber(std::string_view digits, int base, Number& number) {
    const char* end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, number, base);
    return read.ec == std::errc() && read.ptr == end;
}

bool ReadName(std::string_view text, std::u16string& name) {
    constexpr std::size_t kDigits = 4;
    for (std::size_t i = 0; i < text.size(); ++i) {
        u16 unit = static_cast<u8>(text[i]);
        if (unit == '%') {
            if (i + kDigits >= text.size() || !ReadNumber(text.substr(i + 1, kDigits), 16, unit))
                return false;
            i += kDigits;
        }
        name += static_cast<char16_t>(unit);
    }
    return true;
}

std::string HexOf(const std::vector<u8>& bytes) {
    std::string text;
    for (const u8 byte : bytes) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned>(byte));
        text += digits;
    }
    return text;
}

bool ReadValue(std::string_view text, RegistryValue& value) {
    const std::size_t colon = text.find(':');
    if (colon == text.npos || !ReadNumber(text.substr(0, colon), 10, value.type)) return false;
    for (text.remove_prefix(colon + 1); !text.empty(); text.remove_prefix(2)) {
        u8 byte = 0;
        if (text.size() < 2 || !ReadNumber(text.substr(0, 2), 16, byte)) return false;
        value.bytes.push_back(byte);
    }
    return true;
}

}  // namespace

bool NoCaseLess::operator()(const std::u16string& a, const std::u16string& b) const noexcept {
    return CompareOrdinalNoCase(a.data(), a.size(), b.data(), b.size()) < 0;
}

std::string FormatRegistry(const RegistryKeys& keys) {
    std::string text;
    for (const auto& [path, values] : keys) {
        text.append("[").append(EscapedName(path)).append("]\n");
        for (const auto& [name, value] : values) {
            text.append(EscapedName(name)).append("=").append(std::to_string(value.type));
            text.append(":").append(HexOf(value.bytes)).append("\n");
        }
    }
    return text;
}

RegistryKeys ParseRegistry(const std::string& text) {
    RegistryKeys keys;
    RegistryValues* values = nullptr;
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        const std::size_t equals = line.find('=');
        std::u16string name;
        RegistryValue value;
        if (line.starts_with('[')) {
            const bool good = line.ends_with(']') && ReadName(line.substr(1, line.size() - 2), name);
            values = good ? &keys[name] : nullptr;
        } else if (values != nullptr && equals != line.npos && ReadName(line.substr(0, equals), name) &&
                   ReadValue(line.substr(equals + 1), value)) {
            (*values)[name] = std::move(value);
        }
    }
    return keys;
}

}  // namespace platform
