#include "platform/posix/registry_file.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string_view>

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

std::u16string NameOf(std::string_view text) {
    std::u16string name;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 4 < text.size()) {
            name +=
                static_cast<char16_t>(std::strtoul(std::string(text.substr(i + 1, 4)).c_str(), nullptr, 16));
            i += 4;
        } else {
            name += static_cast<char16_t>(static_cast<u8>(text[i]));
        }
    }
    return name;
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

RegistryValue ValueOf(const std::string& text) {
    RegistryValue value;
    char* colon = nullptr;
    value.type = static_cast<u32>(std::strtoul(text.c_str(), &colon, 10));
    for (const char* digits = colon + (*colon == ':' ? 1 : 0); digits[0] != 0 && digits[1] != 0;
         digits += 2) {
        const char pair[] = {digits[0], digits[1], 0};
        value.bytes.push_back(static_cast<u8>(std::strtoul(pair, nullptr, 16)));
    }
    return value;
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
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t equals = line.find('=');
        if (line.starts_with('[') && line.ends_with(']')) {
            values = &keys[NameOf(std::string_view(line).substr(1, line.size() - 2))];
        } else if (values != nullptr && equals != line.npos) {
            (*values)[NameOf(std::string_view(line).substr(0, equals))] = ValueOf(line.substr(equals + 1));
        }
    }
    return keys;
}

}  // namespace platform
