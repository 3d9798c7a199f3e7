#include "platform/memory.h"

namespace platform {

[[gnu::noinline]] void WipeStack() noexcept {
    u8 below[0x4000];
    WipeMemory(below, sizeof below);
}

}  // namespace platform
