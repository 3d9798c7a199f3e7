#include "platform/resource.h"

#include "platform/windows_api.h"

namespace platform {

std::span<const u8> ResourceBytes(const char16_t* type, const char16_t* name) noexcept {
    const HRSRC found = FindResourceW(nullptr, Wide(name), Wide(type));
    if (found == nullptr) return {};
    const HGLOBAL loaded = LoadResource(nullptr, found);
    const auto* bytes = static_cast<const u8*>(LockResource(loaded));
    return bytes == nullptr ? std::span<const u8>() : std::span(bytes, SizeofResource(nullptr, found));
}

}  // namespace platform
