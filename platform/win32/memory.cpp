#include "platform/memory.h"

#include <cstdlib>

#include "platform/fault.h"
#include "platform/windows_api.h"

namespace platform {

void WipeMemory(void* memory, std::size_t size) noexcept {
    if (size != 0) SecureZeroMemory(memory, size);
    MemoryIsWiped(memory, size);
}

void* AllocateZeroed(std::size_t size) noexcept {
    if (size == 0 || FaultFires(FaultPoint::AllocateZeroed)) return nullptr;
    return std::calloc(1, size);
}

void WipeAndFree(void* block, std::size_t size) noexcept {
    if (block == nullptr) return;
    WipeMemory(block, size);
    std::free(block);
}

void FreeUnwiped(void* block, std::size_t) noexcept {
    std::free(block);
}

}  // namespace platform
