// The memory of the running process, as somebody would see it who gets hold of a picture of it.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/types.h"

struct MemoryRange {
    std::uintptr_t begin;
    std::uintptr_t end;
};

// What is private to the process and can be read and written: heaps, stacks, static data. Freed blocks that
// an allocator still holds are in it; the shadow memory of a sanitizer, which mirrors no content, is not.
std::vector<MemoryRange> PrivateMemory();

// Copies memory through the system, which knows of no poisoned bytes. False if it cannot be read.
bool CopyMemoryOut(std::uintptr_t address, u8* out, std::size_t size);

// True if the system's cipher overwrites the keys that it was given when they are destroyed. Wine's leaves
// them in the memory of libraries of its own, where no program can reach them in an orderly way.
bool CipherWipesItsKeys();
