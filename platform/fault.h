// Fault points: places in the platform layer where a test can make the system fail or see what it does.
// Programs are linked with a platform library in which a fault point never fires; tests link the variant
// built with VAULTMERE_FAULTS, which takes its orders through the second half of this header.
#pragma once

#include "platform/types.h"

namespace platform {

enum class FaultPoint {
    OpenFile,
    ReadFile,    // reports failure
    ShortRead,   // one byte less than asked for
    WriteFile,   // half of the bytes go out, then the failure
    ShortWrite,  // one byte less than asked for, reported as success
    FileSize,
    SeekFile,
    WriteTime,
    MakeFolder,
    AllocateZeroed,
    CipherProvider,
    Encrypt,
    Decrypt,
    RandomBytes,
    OpenKey,
    WriteValue,
    RegisterFormat,
    AllocateBlock,
    LockBlock,
    OpenClipboard,
    EmptyClipboard,
    PutBlock,
    GetBlock,
    Count,
};

#ifdef VAULTMERE_FAULTS

// True if the point is to fail now; the last error then is the one ordered.
bool FaultFires(FaultPoint point) noexcept;

// Orders: the point works `after` times more, then fails `times` times with `error` as last error.
void OrderFault(FaultPoint point, u32 error, int after = 0, int times = 1) noexcept;
void ClearFaults() noexcept;

// Stops both clocks at these ticks until ClearClock.
void SetClock(u64 localTicks, u64 systemTicks) noexcept;
void ClearClock() noexcept;
bool ClockIsSet(u64& localTicks, u64& systemTicks) noexcept;

// WipeMemory shows each range to the watcher when it has wiped it; null ends that.
using WipeWatcher = void (*)(const void* memory, std::size_t size);
void WatchWiping(WipeWatcher watcher) noexcept;
void MemoryIsWiped(const void* memory, std::size_t size) noexcept;

#else

constexpr bool FaultFires(FaultPoint) noexcept {
    return false;
}
constexpr bool ClockIsSet(u64&, u64&) noexcept {
    return false;
}
constexpr void MemoryIsWiped(const void*, std::size_t) noexcept {}

#endif

}  // namespace platform
