#include "platform/memory.h"

#include <string.h>
#include <sys/mman.h>

#include <cstdlib>

#include "platform/fault.h"

namespace platform {
namespace {

// From here on a block is mapped by itself, in huge pages where the system has them: a whole database goes
// through such blocks, and their page faults would cost as much as its decryption.
constexpr std::size_t kMappedFrom = std::size_t{4} << 20;

void* MapZeroed(std::size_t size) noexcept {
    void* block = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (block == MAP_FAILED) return nullptr;
    ::madvise(block, size, MADV_HUGEPAGE);
    return block;
}

}  // namespace

void WipeMemory(void* memory, std::size_t size) noexcept {
    if (size != 0) explicit_bzero(memory, size);
    MemoryIsWiped(memory, size);
}

void* AllocateZeroed(std::size_t size) noexcept {
    if (size == 0 || FaultFires(FaultPoint::AllocateZeroed)) return nullptr;
    return size < kMappedFrom ? std::calloc(1, size) : MapZeroed(size);
}

void WipeAndFree(void* block, std::size_t size) noexcept {
    if (block == nullptr) return;
    WipeMemory(block, size);
    FreeUnwiped(block, size);
}

void FreeUnwiped(void* block, std::size_t size) noexcept {
    if (block == nullptr) return;
    if (size < kMappedFrom) {
        std::free(block);
    } else {
        ::munmap(block, size);
    }
}

}  // namespace platform
