// Comparing and printing of the system's sizes and rectangles.
#pragma once

#include <ostream>

#include "toolkit/win32.h"

inline bool operator==(const SIZE& a, const SIZE& b) {
    return a.cx == b.cx && a.cy == b.cy;
}
inline bool operator==(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}
inline void PrintTo(const SIZE& size, std::ostream* out) {
    *out << size.cx << " by " << size.cy;
}
inline void PrintTo(const RECT& rect, std::ostream* out) {
    *out << '(' << rect.left << ", " << rect.top << ") to (" << rect.right << ", " << rect.bottom << ')';
}
