#include "platform/windows_api.h"
#include "tests/unit/database/process_memory.h"

namespace {

bool IsPrivateAndWritable(const MEMORY_BASIC_INFORMATION& info) {
    constexpr DWORD kWritable =
        PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
    return info.State == MEM_COMMIT && info.Type != MEM_MAPPED && (info.Protect & kWritable) != 0 &&
           (info.Protect & PAGE_GUARD) == 0;
}

}  // namespace

std::vector<MemoryRange> PrivateMemory() {
    std::vector<MemoryRange> ranges;
    MEMORY_BASIC_INFORMATION info{};
    for (std::uintptr_t address = 0;
         VirtualQuery(reinterpret_cast<void*>(address), &info, sizeof info) == sizeof info;) {
        const auto begin = reinterpret_cast<std::uintptr_t>(info.BaseAddress);
        address = begin + info.RegionSize;
        if (IsPrivateAndWritable(info)) ranges.push_back({begin, address});
        if (address <= begin) break;
    }
    return ranges;
}

bool CopyMemoryOut(std::uintptr_t address, u8* out, std::size_t size) {
    SIZE_T done = 0;
    return ReadProcessMemory(GetCurrentProcess(), reinterpret_cast<void*>(address), out, size, &done) &&
           done == size;
}

bool CipherWipesItsKeys() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr;
}
