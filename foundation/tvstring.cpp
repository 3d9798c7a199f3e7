#include "foundation/tvstring.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

#include "foundation/conversion.h"

namespace {

// Half as much again when a text grows bit by bit, so that appending stays linear.
std::size_t GrownCapacity(std::size_t present, std::size_t wanted) {
    return std::max(wanted, present + present / 2);
}

}  // namespace

template <typename Unit>
void tvbasic_string<Unit>::Grow(std::size_t count) {
    if (count >= std::numeric_limits<u32>::max() / sizeof(Unit)) throw std::length_error("tvstring");
    auto* block = static_cast<Unit*>(::operator new((count + 1) * sizeof(Unit)));
    const u32 length = m_Length;
    std::copy_n(data(), length, block);
    Release();
    m_Block = block;
    m_Capacity = static_cast<u32>(count);
    SetLength(length);
}

template <typename Unit>
void tvbasic_string<Unit>::Release() noexcept {
    if (OnHeap()) {
        platform::WipeMemory(m_Block, (m_Capacity + std::size_t{1}) * sizeof(Unit));
        ::operator delete(m_Block);
        m_Inline[0] = Unit();
    } else {
        platform::WipeMemory(m_Inline, sizeof m_Inline);
    }
    m_Length = 0;
    m_Capacity = kInlineCapacity;
}

template <typename Unit>
void tvbasic_string<Unit>::Take(tvbasic_string& other) noexcept {
    m_Length = other.m_Length;
    m_Capacity = other.m_Capacity;
    if (other.OnHeap()) {
        m_Block = other.m_Block;
        other.m_Capacity = kInlineCapacity;
    } else {
        std::copy_n(other.m_Inline, kInlineCapacity + 1, m_Inline);
    }
    other.Release();
}

template <typename Unit>
void tvbasic_string<Unit>::reserve(std::size_t count) {
    if (count > m_Capacity) Grow(count);
}

template <typename Unit>
void tvbasic_string<Unit>::resize(std::size_t count, Unit unit) {
    if (count <= m_Length) {
        Shorten(count);
        return;
    }
    if (count > m_Capacity) Grow(GrownCapacity(m_Capacity, count));
    std::fill(data() + m_Length, data() + count, unit);
    SetLength(count);
}

template <typename Unit>
void tvbasic_string<Unit>::Shorten(std::size_t count) noexcept {
    platform::WipeMemory(data() + count, (m_Length - count) * sizeof(Unit));
    SetLength(count);
}

template <typename Unit>
tvbasic_string<Unit>& tvbasic_string<Unit>::assign(View text) {
    if (text.size() > m_Capacity) {
        tvbasic_string copy(text);
        return *this = std::move(copy);
    }
    std::char_traits<Unit>::move(data(), text.data(), text.size());
    if (m_Length > text.size()) {
        platform::WipeMemory(data() + text.size(), (m_Length - text.size()) * sizeof(Unit));
    }
    SetLength(text.size());
    return *this;
}

template <typename Unit>
tvbasic_string<Unit>& tvbasic_string<Unit>::assign_bytes(const void* units, std::size_t count) {
    if (count > m_Capacity || count < m_Length) {
        Release();
        reserve(count);
    }
    if (count != 0) std::memcpy(data(), units, count * sizeof(Unit));
    SetLength(count);
    return *this;
}

template <typename Unit>
tvbasic_string<Unit>& tvbasic_string<Unit>::append(View text) {
    if (text.empty()) return *this;
    const std::size_t length = m_Length + text.size();
    if (length > m_Capacity) {
        const bool inside = text.data() >= data() && text.data() <= data() + m_Length;
        const auto offset = static_cast<std::size_t>(inside ? text.data() - data() : 0);
        Grow(m_Length == 0 ? length : GrownCapacity(m_Capacity, length));
        if (inside) text = View(data() + offset, text.size());
    }
    std::char_traits<Unit>::move(data() + m_Length, text.data(), text.size());
    SetLength(length);
    return *this;
}

template <typename Unit>
tvbasic_string<Unit>& tvbasic_string<Unit>::replace(std::size_t position, std::size_t count, View text) {
    position = std::min<std::size_t>(position, m_Length);
    count = std::min(count, m_Length - position);
    const std::size_t tail = m_Length - position - count;
    const std::size_t length = m_Length - count + text.size();
    if (length > m_Capacity) Grow(GrownCapacity(m_Capacity, length));
    Unit* place = data() + position;
    std::char_traits<Unit>::move(place + text.size(), place + count, tail);
    std::char_traits<Unit>::copy(place, text.data(), text.size());
    if (length < m_Length) platform::WipeMemory(data() + length, (m_Length - length) * sizeof(Unit));
    SetLength(length);
    return *this;
}

template class tvbasic_string<char16_t>;
template class tvbasic_string<char>;

tvstring::tvstring(const char* ansi, std::size_t length) {
    FromCodePage(*this, ansi, length, kCodePageAnsi);
}
