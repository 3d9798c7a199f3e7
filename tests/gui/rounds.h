// Doing the same again and again, and what the process holds afterwards.
#pragma once

#include <gtest/gtest.h>

#include "tests/gui/harness.h"

inline constexpr int kFirstRounds = 10;  // in which the system makes what it keeps for later
inline constexpr int kRounds = 500;

// After all rounds the process holds what it held after the first of them.
template <typename Round>
void ExpectNothingIsLeft(const Round& round) {
    for (int i = 0; i < kFirstRounds; ++i)
        round();
    const Holdings before = WhatIsHeld();
    for (int i = kFirstRounds; i < kRounds; ++i)
        round();
    const Holdings after = WhatIsHeld();
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    EXPECT_EQ(after.userObjects, before.userObjects);
    EXPECT_EQ(after.heapBytes, before.heapBytes);
}
