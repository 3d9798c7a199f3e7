#include "platform/resource.h"

#include <string_view>

#include "platform/text.h"

// Set by the assembler around the file's bytes (resources/embedded.S).
extern "C" {
extern const u8 vaultmere_english_ini_begin[];
extern const u8 vaultmere_english_ini_end[];
}

namespace platform {
namespace {

bool SameName(std::u16string_view a, std::u16string_view b) noexcept {
    return CompareOrdinalNoCase(a.data(), a.size(), b.data(), b.size()) == 0;
}

}  // namespace

std::span<const u8> ResourceBytes(const char16_t* type, const char16_t* name) noexcept {
    if (!SameName(type, u"LANG") || !SameName(name, u"english.ini")) return {};
    return {vaultmere_english_ini_begin, vaultmere_english_ini_end};
}

}  // namespace platform
