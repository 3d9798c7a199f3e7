// Memory that may hold secrets: blocks from here are wiped by their owners before they are freed.
#pragma once

#include "platform/types.h"

namespace platform {

// Overwrites the bytes with zeros; the compiler never removes the call. Null with size 0 is fine.
void WipeMemory(void* memory, std::size_t size) noexcept;

// Overwrites what functions that were called have left of the data they were given: the stack below the
// caller, as far down as libraries of the system go, and vector registers. The dynamic linker puts these on
// the stack when it first resolves a function.
void WipeStack() noexcept;

// A block of zeroed bytes, aligned for any type, or null if there is no memory (or size is 0).
[[nodiscard]] void* AllocateZeroed(std::size_t size) noexcept;

// Wipes and frees a block of AllocateZeroed, given the size it was made with; null is fine.
void WipeAndFree(void* block, std::size_t size) noexcept;

// The same without wiping, for a block that holds nothing secret.
void FreeUnwiped(void* block, std::size_t size) noexcept;

}  // namespace platform
