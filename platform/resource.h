// Data that the program carries in itself.
#pragma once

#include <span>

#include "platform/types.h"

namespace platform {

// The bytes of a resource by its type and name, both without regard to case; empty if there is none.
// They live as long as the program.
std::span<const u8> ResourceBytes(const char16_t* type, const char16_t* name) noexcept;

}  // namespace platform
