// tvstring, the one text type: UTF-16 units with a stored length, owning its storage and wiping it.
//
// Short texts (up to kInlineCapacity units) stay in the object; a longer text lies in one block. An embedded
// zero unit is a unit like any other; behind the last one stands a terminating zero. Nothing here knows of
// surrogate pairs. Every unit that a text ever held is overwritten when its storage is freed, also in the
// object itself. tvstringA is the same for bytes and exists as the result of conversions.
//
// Positions are counted in units; "not found" is npos, all bits set.
#pragma once

#include <compare>
#include <string>
#include <string_view>
#include <utility>

#include "platform/memory.h"
#include "platform/types.h"

template <typename Unit>
class tvbasic_string {
public:
    using View = std::basic_string_view<Unit>;
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);
    static constexpr u32 kInlineCapacity = 16 / sizeof(Unit) - 1;

    tvbasic_string() noexcept : m_Inline{} {}
    tvbasic_string(View text) : m_Inline{} { append(text); }          // NOLINT(google-explicit-constructor)
    tvbasic_string(const Unit* text) : tvbasic_string(View(text)) {}  // NOLINT(google-explicit-constructor)
    tvbasic_string(const std::basic_string<Unit>& text)               // NOLINT(google-explicit-constructor)
        : tvbasic_string(View(text)) {}
    tvbasic_string(const Unit* text, std::size_t length) : tvbasic_string(View(text, length)) {}
    tvbasic_string(std::size_t count, Unit unit) : m_Inline{} { resize(count, unit); }
    tvbasic_string(const tvbasic_string& other) : tvbasic_string(other.view()) {}
    tvbasic_string(tvbasic_string&& other) noexcept : m_Inline{} { Take(other); }
    ~tvbasic_string() { Release(); }

    tvbasic_string& operator=(const tvbasic_string& other) {
        assign(other.view());
        return *this;
    }
    tvbasic_string& operator=(tvbasic_string&& other) noexcept {
        if (this != &other) {
            Release();
            Take(other);
        }
        return *this;
    }

    [[nodiscard]] const Unit* data() const noexcept { return OnHeap() ? m_Block : m_Inline; }
    [[nodiscard]] Unit* data() noexcept { return OnHeap() ? m_Block : m_Inline; }
    [[nodiscard]] const Unit* c_str() const noexcept { return data(); }
    [[nodiscard]] std::size_t size() const noexcept { return m_Length; }
    [[nodiscard]] std::size_t capacity() const noexcept { return m_Capacity; }
    [[nodiscard]] bool empty() const noexcept { return m_Length == 0; }
    [[nodiscard]] View view() const noexcept { return {data(), m_Length}; }
    operator View() const noexcept { return view(); }  // NOLINT(google-explicit-constructor)

    [[nodiscard]] Unit* begin() noexcept { return data(); }
    [[nodiscard]] Unit* end() noexcept { return data() + m_Length; }
    [[nodiscard]] const Unit* begin() const noexcept { return data(); }
    [[nodiscard]] const Unit* end() const noexcept { return data() + m_Length; }
    Unit& operator[](std::size_t position) noexcept { return data()[position]; }
    const Unit& operator[](std::size_t position) const noexcept { return data()[position]; }
    [[nodiscard]] Unit front() const noexcept { return data()[0]; }
    [[nodiscard]] Unit back() const noexcept { return data()[m_Length - 1]; }

    // Makes room for that many units in all; never shrinks.
    void reserve(std::size_t count);

    // New units take the value `unit`. Units cut off are overwritten.
    void resize(std::size_t count, Unit unit = Unit());

    // Empties the text; the storage is wiped and kept.
    void clear() noexcept { Shorten(0); }

    // The argument may be a part of this text.
    tvbasic_string& assign(View text);
    tvbasic_string& append(View text);

    // Becomes a copy of `count` units that lie anywhere in memory, aligned or not, outside this text.
    tvbasic_string& assign_bytes(const void* units, std::size_t count);

    tvbasic_string& append(std::size_t count, Unit unit) {
        resize(m_Length + count, unit);
        return *this;
    }
    tvbasic_string& operator+=(View text) { return append(text); }
    tvbasic_string& operator+=(Unit unit) { return append(View(&unit, 1)); }
    void push_back(Unit unit) { append(View(&unit, 1)); }
    void pop_back() noexcept { Shorten(m_Length - 1); }

    // Replaces `count` units from `position` by a text that is no part of this one; both are cut to what is
    // there.
    tvbasic_string& replace(std::size_t position, std::size_t count, View text);
    tvbasic_string& insert(std::size_t position, View text) { return replace(position, 0, text); }
    tvbasic_string& erase(std::size_t position = 0, std::size_t count = npos) {
        return replace(position, count, View());
    }

    [[nodiscard]] tvbasic_string substr(std::size_t position, std::size_t count = npos) const {
        return position >= m_Length ? tvbasic_string() : tvbasic_string(view().substr(position, count));
    }
    [[nodiscard]] std::size_t find(View text, std::size_t from = 0) const noexcept {
        return view().find(text, from);
    }
    [[nodiscard]] std::size_t find(Unit unit, std::size_t from = 0) const noexcept {
        return view().find(unit, from);
    }
    [[nodiscard]] std::size_t rfind(Unit unit, std::size_t from = npos) const noexcept {
        return view().rfind(unit, from);
    }
    [[nodiscard]] bool starts_with(View text) const noexcept { return view().starts_with(text); }
    [[nodiscard]] bool ends_with(View text) const noexcept { return view().ends_with(text); }

    friend bool operator==(const tvbasic_string& a, const tvbasic_string& b) noexcept {
        return a.view() == b.view();
    }
    friend bool operator==(const tvbasic_string& a, View b) noexcept { return a.view() == b; }
    friend bool operator==(const tvbasic_string& a, const Unit* b) noexcept { return a.view() == View(b); }
    friend std::strong_ordering operator<=>(const tvbasic_string& a, const tvbasic_string& b) noexcept {
        return a.view() <=> b.view();
    }
    friend tvbasic_string operator+(tvbasic_string a, View b) { return std::move(a.append(b)); }

private:
    [[nodiscard]] bool OnHeap() const noexcept { return m_Capacity > kInlineCapacity; }
    void Grow(std::size_t count);
    void Shorten(std::size_t count) noexcept;
    void SetLength(std::size_t length) noexcept {
        m_Length = static_cast<u32>(length);
        data()[length] = Unit();
    }
    void Release() noexcept;
    void Take(tvbasic_string& other) noexcept;

    u32 m_Length = 0;
    u32 m_Capacity = kInlineCapacity;
    union {
        Unit m_Inline[kInlineCapacity + 1];
        Unit* m_Block;
    };
};

extern template class tvbasic_string<char16_t>;
extern template class tvbasic_string<char>;

class tvstringA : public tvbasic_string<char> {
public:
    using tvbasic_string::tvbasic_string;
};

class tvstring : public tvbasic_string<char16_t> {
public:
    using tvbasic_string::tvbasic_string;
    tvstring() noexcept = default;
    tvstring(tvbasic_string text) noexcept
        : tvbasic_string(std::move(text)) {}  // NOLINT(google-explicit-constructor)

    // From bytes in the system's ANSI code page; length 0 means up to the first zero byte.
    explicit tvstring(const char* ansi, std::size_t length = 0);
};
