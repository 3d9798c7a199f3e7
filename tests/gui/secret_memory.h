// A secret that the test's own program does not hold, and how often it is in the memory of the process.
#pragma once

#include <vector>

#include "foundation/tvstring.h"
#include "toolkit/win32.h"

inline constexpr std::size_t kSecretLength = 90;

// The secret is nowhere in the program: each unit is computed when it is needed.
inline char16_t SecretUnit(std::size_t index) {
    static volatile unsigned seed = 17;
    return static_cast<char16_t>(u'A' + (index * index * 7 + index * 3 + seed) % 26);
}

inline tvstring Secret(std::size_t length = kSecretLength) {
    tvstring text(length, u' ');
    for (std::size_t i = 0; i < length; ++i)
        text[i] = SecretUnit(i);
    return text;
}

// A part of the secret, from its middle: 24 units in a row.
inline bool IsSecretAt(const char16_t* units) {
    constexpr std::size_t kFrom = 40;
    constexpr std::size_t kUnits = 24;
    for (std::size_t i = 0; i < kUnits; ++i)
        if (units[i] != SecretUnit(kFrom + i)) return false;
    return true;
}

// How often it is in the memory that the process can write.
inline int CountSecrets() {
    int count = 0;
    MEMORY_BASIC_INFORMATION range{};
    const u8* place = nullptr;
    while (VirtualQuery(place, &range, sizeof range) == sizeof range) {
        const auto* base = static_cast<const u8*>(range.BaseAddress);
        if (range.State == MEM_COMMIT && range.Protect == PAGE_READWRITE) {
            const char16_t first = SecretUnit(40);
            for (std::size_t i = 0; i + 64 <= range.RegionSize; i += sizeof(char16_t)) {
                const auto* units = reinterpret_cast<const char16_t*>(base + i);
                if (*units == first && IsSecretAt(units)) ++count;
            }
        }
        place = base + range.RegionSize;
    }
    return count;
}

// How many of these places still hold what makes up a part of the secret. They may be free by now.
inline int CountUnitsAt(const std::vector<const volatile char16_t*>& places, std::size_t from,
                        std::size_t to) {
    int count = 0;
    for (const volatile char16_t* place : places)
        for (std::size_t i = from; i < to; ++i)
            if (place[i] == SecretUnit(i)) ++count;
    return count;
}

// For the tests to come: overwrites what is left in memory that is free.
inline void ForgetSecrets() {
    constexpr int kRounds = 100;
    for (int round = 0; round < kRounds && CountSecrets() > 0; ++round) {
        std::vector<std::vector<u8>> blocks;
        for (std::size_t size = 16; size < 2000; size += 16)
            blocks.emplace_back(size, u8{1});
        for (std::size_t size = 2000; size < 200'000; size += size / 4)
            blocks.emplace_back(size, u8{1});
    }
}
