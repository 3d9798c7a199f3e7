#include "foundation/tvdata.h"

#include <new>
#include <utility>

#include "platform/memory.h"

struct tvdata::Block {
    u8* bytes;
    u32 capacity;  // what is wiped, however small the size has become
    u32 owners;
    bool secret = true;
};

tvdata::tvdata(const tvdata& other) noexcept : m_Block(other.m_Block), m_Size(other.m_Size) {
    if (m_Block != nullptr) ++m_Block->owners;
}

tvdata::tvdata(tvdata&& other) noexcept
    : m_Block(std::exchange(other.m_Block, nullptr)), m_Size(std::exchange(other.m_Size, 0)) {}

tvdata& tvdata::operator=(const tvdata& other) noexcept {
    tvdata copy(other);
    return *this = std::move(copy);
}

tvdata& tvdata::operator=(tvdata&& other) noexcept {
    std::swap(m_Block, other.m_Block);
    std::swap(m_Size, other.m_Size);
    if (this != &other) other.Reset();
    return *this;
}

bool tvdata::Resize(u32 size) {
    Reset();
    Adopt(platform::AllocateZeroed(size), size);
    return m_Block != nullptr;
}

void tvdata::Adopt(void* block, u32 size) {
    Reset();
    if (block == nullptr) return;
    m_Block = new (std::nothrow) Block{static_cast<u8*>(block), size, 1};
    if (m_Block == nullptr) {
        platform::WipeAndFree(block, size);
        return;
    }
    m_Size = size;
}

void* tvdata::Detach() noexcept {
    if (m_Block == nullptr) return nullptr;
    void* bytes = m_Block->bytes;
    m_Block->capacity = 0;  // other owners still see the bytes, but none frees them
    m_Block->bytes = m_Block->owners > 1 ? m_Block->bytes : nullptr;
    Reset();
    return bytes;
}

void tvdata::Shrink(u32 size) noexcept {
    if (size >= m_Size) return;
    m_Size = size;
    if (size == 0) Reset();
}

void tvdata::HoldsNoSecret() noexcept {
    if (m_Block != nullptr) m_Block->secret = false;
}

void tvdata::Reset() noexcept {
    if (m_Block != nullptr && --m_Block->owners == 0) {
        if (m_Block->capacity != 0) {
            const auto free = m_Block->secret ? platform::WipeAndFree : platform::FreeUnwiped;
            free(m_Block->bytes, m_Block->capacity);
        }
        delete m_Block;
    }
    m_Block = nullptr;
    m_Size = 0;
}

const u8* tvdata::Data() const noexcept {
    return m_Block == nullptr ? nullptr : m_Block->bytes;
}

u8* tvdata::Data() noexcept {
    return m_Block == nullptr ? nullptr : m_Block->bytes;
}
