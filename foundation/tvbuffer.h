// tvbuffer, a growable array used as a write stream. Its block is wiped before it is freed.
#pragma once

#include <algorithm>
#include <cstring>
#include <limits>
#include <type_traits>

#include "platform/memory.h"
#include "platform/types.h"

template <typename T>
class tvbuffer {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    // `step` is the least number of elements by which the buffer grows.
    explicit tvbuffer(u32 step) noexcept : m_Step(step) {}
    virtual ~tvbuffer() { platform::WipeAndFree(m_Data, BytesOf(m_Capacity)); }
    tvbuffer(const tvbuffer&) = delete;
    tvbuffer& operator=(const tvbuffer&) = delete;

    // True if there is room for `count` elements in all afterwards. Otherwise grows to the larger of
    // capacity + step and `count`, zero-filled; false if there is no memory, with the old block kept.
    bool Reserve(u32 count) {
        if (m_Capacity >= count) return true;
        const u64 stepped = std::min<u64>(u64{m_Capacity} + m_Step, std::numeric_limits<u32>::max());
        const u32 capacity = std::max(static_cast<u32>(stepped), count);
        if (capacity > std::numeric_limits<std::size_t>::max() / sizeof(T)) return false;
        auto* block = static_cast<T*>(platform::AllocateZeroed(BytesOf(capacity)));
        if (block == nullptr) return false;
        if (m_Size != 0) std::memcpy(block, m_Data, BytesOf(m_Size));
        platform::WipeAndFree(m_Data, BytesOf(m_Capacity));
        m_Data = block;
        m_Capacity = capacity;
        return true;
    }

    // True with nothing done for null or a count of 0; false if there is no memory, or the size would pass
    // what 32 bits hold. The elements must not lie in this buffer.
    bool Append(const T* elements, u32 count) {
        if (elements == nullptr || count == 0) return true;
        T* place = Extend(count);
        if (place == nullptr) return false;
        std::memcpy(place, elements, BytesOf(count));
        return true;
    }

    // Adds `count` elements whose values the caller is to write, and returns the first of them; null if
    // Append would fail.
    T* Extend(u32 count) {
        if (count > std::numeric_limits<u32>::max() - m_Size || !Reserve(m_Size + count)) return nullptr;
        T* place = m_Data + m_Size;
        m_Size += count;
        return place;
    }

    [[nodiscard]] const T* Data() const noexcept { return m_Data; }
    [[nodiscard]] T* Data() noexcept { return m_Data; }
    [[nodiscard]] u32 Size() const noexcept { return m_Size; }
    [[nodiscard]] u32 Capacity() const noexcept { return m_Capacity; }

    // Gives up the block (of Capacity() elements) and returns it; the buffer is empty then. To be freed with
    // platform::WipeAndFree or handed to tvdata::Adopt.
    [[nodiscard]] T* Detach() noexcept {
        T* block = m_Data;
        m_Data = nullptr;
        m_Size = m_Capacity = 0;
        return block;
    }

private:
    static constexpr std::size_t BytesOf(u32 count) noexcept { return std::size_t{count} * sizeof(T); }

    u32 m_Step;
    T* m_Data = nullptr;
    u32 m_Size = 0;
    u32 m_Capacity = 0;
};
