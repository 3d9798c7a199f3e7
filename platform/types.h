// The fixed-width numbers of the formats and of the system's interfaces.
#pragma once

#include <cstddef>
#include <cstdint>

using i32 = std::int32_t;
using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;
using u64 = std::uint64_t;
