// What the process holds, for tests of leaks.
//
// Wine does not count objects for GetGuiResources: it gives 0 for both kinds. There they are counted another
// way.
#include <array>
#include <vector>

#include "tests/gui/harness.h"

// After windows.h, whose types it needs.
#include <winternl.h>

namespace {

// --- GDI objects: the system's table of handles, which is mapped into each process ---

struct GdiEntry {
    u64 object;
    u32 owner;
    u16 unique;
    u8 type;  // 0: free
    u8 flags;
    u64 user;
};
static_assert(sizeof(GdiEntry) == 24 && sizeof(void*) == 8);

DWORD CountGdiTable() {
    constexpr std::size_t kTableInPeb = 0xF8;
    constexpr std::size_t kEntries = 0x4000;
    const auto* peb = reinterpret_cast<const u8*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const auto* table = *reinterpret_cast<const GdiEntry* const*>(peb + kTableInPeb);
    DWORD count = 0;
    for (std::size_t i = 0; i < kEntries; ++i)
        count += table[i].type != 0 ? 1 : 0;
    return count;
}

// --- User objects: handles are numbers, and those that are free are given out before new ones ---

constexpr int IndexOf(std::uintptr_t handle) {
    constexpr int kFirst = 0x20;
    return (static_cast<int>(handle & 0xFFFF) - kFirst) >> 1;
}

// Takes all free numbers and a few new ones, by which the greatest is known, and gives them back.
DWORD CountByFreeNumbers() {
    constexpr int kNewInRow = 16;
    static int greatest = 0;  // of all that were ever seen
    std::vector<HMENU> taken;
    int newGreatest = greatest;
    int last = -1;
    for (int inRow = 0; inRow < kNewInRow;) {
        taken.push_back(CreateMenu());
        const int index = IndexOf(reinterpret_cast<std::uintptr_t>(taken.back()));
        inRow = index > greatest && index == last + 1 ? inRow + 1 : 0;
        last = index;
        if (index > newGreatest) newGreatest = index;
    }
    for (HMENU menu : taken)
        DestroyMenu(menu);
    greatest = newGreatest;
    return static_cast<DWORD>(greatest + 1) - static_cast<DWORD>(taken.size());
}

DWORD CountUserObjects() {
    // The first time it is not known yet which number is the greatest.
    [[maybe_unused]] static const DWORD first = CountByFreeNumbers();
    return CountByFreeNumbers();
}

// --- Memory ---

std::size_t CountHeapBytes() {
    std::array<HANDLE, 64> heaps{};
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    std::size_t bytes = 0;
    for (DWORD i = 0; i < count && i < heaps.size(); ++i) {
        HeapLock(heaps[i]);
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry) != FALSE)
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
        HeapUnlock(heaps[i]);
    }
    return bytes;
}

}  // namespace

Holdings WhatIsHeld() {
    const HANDLE process = GetCurrentProcess();
    const DWORD user = GetGuiResources(process, GR_USEROBJECTS);
    const DWORD gdi = GetGuiResources(process, GR_GDIOBJECTS);
    const bool counts = user != 0 || gdi != 0;
    return {counts ? gdi : CountGdiTable(), counts ? user : CountUserObjects(), CountHeapBytes()};
}
