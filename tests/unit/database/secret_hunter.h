// Looks for secrets in the memory of the process without having them there itself: what is searched for is
// kept, and compared, under a mask.
#pragma once

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "foundation/tvstring.h"
#include "tests/unit/database/process_memory.h"

// Letters that look like nothing else in memory, the same for the same number each time.
class SecretLetters {
public:
    explicit SecretLetters(u32 number) : m_State(u64{number} * 0x9e3779b97f4a7c15 + 0x1234567) {}
    char Next() {
        m_State ^= m_State << 13;
        m_State ^= m_State >> 7;
        m_State ^= m_State << 17;
        return static_cast<char>('a' + (m_State >> 20) % 26);
    }

private:
    u64 m_State;
};

// The text of that number.
inline tvstring SecretText(u32 number, std::size_t length) {
    tvstring text;
    text.reserve(length);
    SecretLetters letters(number);
    for (std::size_t i = 0; i < length; ++i)
        text.push_back(static_cast<char16_t>(letters.Next()));
    return text;
}

class SecretHunter {
public:
    // Looks for a text of SecretText, of at least kPiece bytes. Of a longer one, for pieces of it: an
    // allocator overwrites some bytes of what is freed, at its start.
    void AddText(const std::string& name, u32 number, std::size_t length) {
        std::vector<u8> masked;
        SecretLetters letters(number);
        for (std::size_t i = 0; i < length; ++i) {
            masked.push_back(static_cast<u8>(letters.Next() ^ kMask));
            masked.push_back(kMask);
        }
        AddPieces(name, masked);
    }
    // The same text as bytes of one letter each. What is shorter than kPiece is no secret, but a coincidence.
    void AddNarrowText(const std::string& name, u32 number, std::size_t length) {
        std::vector<u8> masked;
        SecretLetters letters(number);
        for (std::size_t i = 0; i < length; ++i)
            masked.push_back(static_cast<u8>(letters.Next() ^ kMask));
        AddPieces(name, masked);
    }
    void AddBytes(const std::string& name, const u8* bytes, std::size_t size) {
        std::vector<u8> masked(size);
        for (std::size_t i = 0; i < size; ++i)
            masked[i] = bytes[i] ^ kMask;
        AddPieces(name, masked);
    }

    // The names of what is there, each once, in the order in which they were added.
    [[nodiscard]] std::vector<std::string> Find() {
        for (Needle& needle : m_Needles)
            needle.found = false;
        const auto own = reinterpret_cast<std::uintptr_t>(m_Window.get());
        for (const MemoryRange& range : PrivateMemory()) {
            // The window itself has in it whatever was looked at last.
            SearchRange({range.begin, std::clamp(own, range.begin, range.end)});
            SearchRange({std::clamp(own + kWindow, range.begin, range.end), range.end});
        }
        std::fill_n(m_Window.get(), kWindow, u8{0});
        std::vector<std::string> names;
        for (const Needle& needle : m_Needles) {
            if (needle.found && (names.empty() || names.back() != needle.name)) names.push_back(needle.name);
        }
        return names;
    }

private:
    static constexpr u8 kMask = 0xc5;
    static constexpr std::size_t kPiece = 14;
    static constexpr std::size_t kPage = 4096;
    static constexpr std::size_t kWindow = 64 * kPage;

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    struct Needle {
        std::string name;
        std::vector<u8> masked;
        std::size_t next;  // with the same StartOf
        bool found = false;
    };

    void AddPieces(const std::string& name, const std::vector<u8>& masked) {
        for (std::size_t start = 0; start + kPiece <= masked.size(); start += kPiece)
            AddPiece(name, masked, start);
        if (masked.size() > kPiece) AddPiece(name, masked, masked.size() - kPiece);
    }
    void AddPiece(const std::string& name, const std::vector<u8>& masked, std::size_t start) {
        const auto from = masked.begin() + static_cast<std::ptrdiff_t>(start);
        u8 bytes[kStart];
        for (std::size_t i = 0; i < kStart; ++i)
            bytes[i] = masked[start + i] ^ kMask;
        std::size_t& first = m_FirstWith[StartOf(bytes)];
        m_Needles.push_back({name, std::vector<u8>(from, from + kPiece), first});
        first = m_Needles.size() - 1;
    }
    // A number below 0x10000 for the first kStart bytes, by which few needles are left to compare.
    static constexpr std::size_t kStart = 4;
    __attribute__((no_sanitize("address"), no_sanitize("undefined"))) static std::size_t StartOf(
        const u8* bytes) {
        return static_cast<std::size_t>((bytes[0] | bytes[2] << 8) ^ (bytes[1] << 4) ^ (bytes[3] << 3));
    }

    // Windows overlap by what a piece may hang over; a page that cannot be read is passed by.
    void SearchRange(MemoryRange range) {
        for (std::uintptr_t place = range.begin; place < range.end;) {
            const std::size_t whole = std::min<std::size_t>(kWindow, range.end - place);
            const std::size_t page = std::min(whole, kPage);
            const std::size_t size = CopyMemoryOut(place, m_Window.get(), whole)  ? whole
                                     : CopyMemoryOut(place, m_Window.get(), page) ? page
                                                                                  : 0;
            for (std::size_t start = 0; start < size; start += kPage)
                SearchPage(start, size);
            place += size == kWindow ? kWindow - kPage : std::max(size, page);
        }
    }
    // The window's bytes from `start` to the end of that page. Most pages hold nothing but zeros.
    void SearchPage(std::size_t start, std::size_t size) {
        static constexpr u8 kZeros[kPage] = {};
        const std::size_t end = std::min(start + kPage, size);
        if (std::memcmp(m_Window.get() + start, kZeros, end - start) == 0) return;
        const std::size_t last = size < kPiece ? 0 : size - kPiece + 1;
        SearchBytes(m_Window.get() + start, m_Window.get() + std::min(end, last), m_FirstWith.data());
    }
    // Each byte is looked at, which takes a sanitizer minutes if it looks at each one too.
    __attribute__((no_sanitize("address"), no_sanitize("undefined"))) void SearchBytes(
        const u8* place, const u8* end, const std::size_t* firstWith) {
        for (; place < end; ++place) {
            if (firstWith[StartOf(place)] != kNone) Compare(place);
        }
    }
    void Compare(const u8* place) {
        for (std::size_t i = m_FirstWith[StartOf(place)]; i != kNone; i = m_Needles[i].next) {
            Needle& needle = m_Needles[i];
            needle.found |= std::equal(needle.masked.begin(), needle.masked.end(), place,
                                       [](u8 masked, u8 byte) { return masked == (byte ^ kMask); });
        }
    }

    std::vector<Needle> m_Needles;
    std::vector<std::size_t> m_FirstWith = std::vector<std::size_t>(0x10000, kNone);
    std::unique_ptr<u8[]> m_Window = std::make_unique<u8[]>(kWindow);
};
