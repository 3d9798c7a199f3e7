// A fixed number of bytes that are wiped when they go: keys and hashes on the stack.
#pragma once

#include "platform/memory.h"
#include "platform/types.h"

template <std::size_t Size>
class SecretBytes {
public:
    SecretBytes() noexcept = default;
    ~SecretBytes() { platform::WipeMemory(m_Bytes, Size); }
    SecretBytes(const SecretBytes&) = delete;
    SecretBytes& operator=(const SecretBytes&) = delete;

    [[nodiscard]] u8* Data() noexcept { return m_Bytes; }
    [[nodiscard]] const u8* Data() const noexcept { return m_Bytes; }

private:
    u8 m_Bytes[Size] = {};
};
