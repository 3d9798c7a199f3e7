// tvdata, a byte block with shared ownership and its size: the usual result of a binary operation, an empty
// one meaning failure. Copies are further owners of the same bytes. The last owner wipes and frees them.
// Not to be shared between threads.
#pragma once

#include "platform/types.h"

class tvdata {
public:
    tvdata() noexcept = default;
    tvdata(const tvdata& other) noexcept;
    tvdata(tvdata&& other) noexcept;
    tvdata& operator=(const tvdata& other) noexcept;
    tvdata& operator=(tvdata&& other) noexcept;
    ~tvdata() { Reset(); }

    // Drops the present block, whose content is lost to this owner, and makes a zero-filled one. With a size
    // of 0 or no memory it is empty and the result is false.
    bool Resize(u32 size);

    // Takes ownership of a block that platform::AllocateZeroed has made with `size` bytes. Null, or no
    // memory for the count of owners, leaves it empty; the block is freed then.
    void Adopt(void* block, u32 size);

    // Gives up ownership and returns the pointer, null if empty; nobody frees the block then.
    [[nodiscard]] void* Detach() noexcept;

    // Takes a smaller size and keeps the memory; a larger one changes nothing.
    void Shrink(u32 size) noexcept;

    // Says that the block holds nothing secret any more, such as an encrypted stream: it is freed unwiped.
    void HoldsNoSecret() noexcept;

    // Lets go of the block.
    void Reset() noexcept;

    [[nodiscard]] bool Empty() const noexcept { return m_Size == 0; }
    [[nodiscard]] u32 Size() const noexcept { return m_Size; }
    [[nodiscard]] const u8* Data() const noexcept;
    [[nodiscard]] u8* Data() noexcept;

private:
    struct Block;

    Block* m_Block = nullptr;
    u32 m_Size = 0;
};
