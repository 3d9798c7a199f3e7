// Sees whether a piece of memory is wiped before it is given back.
#pragma once

#include <algorithm>

#include "platform/fault.h"
#include "platform/types.h"

// Watches one range from now on. One watch at a time.
class WipeWatch {
public:
    WipeWatch(const void* memory, std::size_t size) {
        s_Range = {static_cast<const u8*>(memory), size, false};
        platform::WatchWiping(&Look);
    }
    ~WipeWatch() { platform::WatchWiping(nullptr); }
    WipeWatch(const WipeWatch&) = delete;
    WipeWatch& operator=(const WipeWatch&) = delete;

    // True if all of the range has been overwritten with zeros at once.
    [[nodiscard]] static bool Wiped() { return s_Range.wiped; }

private:
    struct Range {
        const u8* memory;
        std::size_t size;
        bool wiped;
    };

    static void Look(const void* memory, std::size_t size) {
        const auto* bytes = static_cast<const u8*>(memory);
        if (bytes > s_Range.memory || bytes + size < s_Range.memory + s_Range.size) return;
        s_Range.wiped = std::all_of(bytes, bytes + size, [](u8 byte) { return byte == 0; });
    }

    inline static Range s_Range{};
};
