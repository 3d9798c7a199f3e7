// What the process holds more after many rounds of something than after the first few.
#pragma once

#include <functional>

#include "tests/gui/harness.h"

struct Growth {
    long long gdiObjects = 0;
    long long userObjects = 0;
    long long heapBytes = 0;
};

inline constexpr int kFirstRounds = 10;  // in which the system makes what it keeps

inline Growth GrowthOver(int rounds, const std::function<void()>& round) {
    for (int i = 0; i < kFirstRounds; ++i)
        round();
    const Holdings before = WhatIsHeld();
    for (int i = 0; i < rounds; ++i)
        round();
    const Holdings after = WhatIsHeld();
    return {static_cast<long long>(after.gdiObjects) - static_cast<long long>(before.gdiObjects),
            static_cast<long long>(after.userObjects) - static_cast<long long>(before.userObjects),
            static_cast<long long>(after.heapBytes) - static_cast<long long>(before.heapBytes)};
}
