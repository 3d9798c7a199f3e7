// The clipboard: blocks of bytes by format, shared with all programs of the user's session on Windows. On
// Linux it is one for the process, with the same contract, and serves tests.
#pragma once

#include <span>

#include "platform/types.h"

namespace platform {

// Formats that every program knows; text in the system's code page and in UTF-16, both with a terminating
// zero.
inline constexpr u32 kFormatText = 1;
inline constexpr u32 kFormatUnicodeText = 13;

// The window that a clipboard is opened for; null for none.
using NativeWindow = void*;

// The number of a program's own format, the same for the same name in every program, whatever its case; 0 on
// failure.
u32 RegisterFormat(const char16_t* name) noexcept;

bool IsFormatAvailable(u32 format) noexcept;

// While one process has the clipboard open no other can open it. CloseClipboard without an open one does
// nothing.
bool OpenClipboard(NativeWindow window) noexcept;
bool EmptyClipboard() noexcept;
void CloseClipboard() noexcept;

// A block that can be handed to the clipboard, zero-filled where nothing is put in.
class ClipboardBlock {
public:
    // A block of `size` bytes with the parts in front, one behind the other; empty if there is no memory or
    // it cannot be locked.
    ClipboardBlock(std::size_t size, std::span<const u8> first, std::span<const u8> second = {}) noexcept;
    ~ClipboardBlock();
    ClipboardBlock(const ClipboardBlock&) = delete;
    ClipboardBlock& operator=(const ClipboardBlock&) = delete;

    explicit operator bool() const noexcept { return m_Block != nullptr; }

    // Hands the block to the clipboard, which has to be open and keeps what it has of other formats. False if
    // it is not taken; then it is still ours.
    bool Put(u32 format) noexcept;

private:
    void* m_Block;
};

// A look at a block on the clipboard, which has to be open while one lives.
class ClipboardView {
public:
    // Empty if there is no such format or the block cannot be locked.
    explicit ClipboardView(u32 format) noexcept;
    // NOLINTNEXTLINE(performance-trivially-destructible): on Windows there is a lock to be given up
    ~ClipboardView();
    ClipboardView(const ClipboardView&) = delete;
    ClipboardView& operator=(const ClipboardView&) = delete;

    // The system may give more bytes than were put in.
    [[nodiscard]] std::span<const u8> Bytes() const noexcept { return m_Bytes; }

private:
    [[maybe_unused]] void* m_Block = nullptr;
    std::span<const u8> m_Bytes;
};

}  // namespace platform
