// A drawing as rows of text, one character for each pixel, to be compared with one written down in a test.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/gui/harness.h"
#include "tests/gui/sizes.h"

using Rows = std::vector<std::string>;
using Legend = std::map<COLORREF, char>;

inline constexpr COLORREF kPaper = RGB(255, 255, 255);  // what a Canvas is filled with at first
inline constexpr COLORREF kInk = RGB(0, 0, 0);

// Colours that the legend does not name come as '?'.
inline Rows RowsOf(const Canvas& canvas, const RECT& rect, const Legend& legend) {
    Rows rows;
    for (int y = rect.top; y < rect.bottom; ++y) {
        std::string& row = rows.emplace_back();
        for (int x = rect.left; x < rect.right; ++x) {
            const auto found = legend.find(canvas.At(x, y));
            row += found == legend.end() ? '?' : found->second;
        }
    }
    return rows;
}

inline Rows RowsOf(const Canvas& canvas, const RECT& rect) {
    return RowsOf(canvas, rect, {{kPaper, '.'}, {kInk, '#'}});
}

inline Rows MirroredLeftRight(Rows rows) {
    for (std::string& row : rows)
        row.assign(row.rbegin(), row.rend());
    return rows;
}

inline Rows MirroredUpsideDown(const Rows& rows) {
    return {rows.rbegin(), rows.rend()};
}

// Rows and columns exchanged.
inline Rows Transposed(const Rows& rows) {
    Rows result(rows.front().size());
    for (const std::string& row : rows)
        for (std::size_t x = 0; x < row.size(); ++x)
            result[x] += row[x];
    return result;
}

// How many pixels of the rows are this character.
inline int CountIn(const Rows& rows, char character) {
    int count = 0;
    for (const std::string& row : rows)
        for (const char pixel : row)
            count += pixel == character ? 1 : 0;
    return count;
}

// The smallest rectangle around all pixels that are not `empty`; empty itself if all are.
inline RECT ExtentOf(const Rows& rows, char empty = '.') {
    RECT extent{};
    for (std::size_t y = 0; y < rows.size(); ++y) {
        const std::size_t first = rows[y].find_first_not_of(empty);
        if (first == std::string::npos) continue;
        const RECT row{static_cast<LONG>(first), static_cast<LONG>(y),
                       static_cast<LONG>(rows[y].find_last_not_of(empty)) + 1, static_cast<LONG>(y) + 1};
        UnionRect(&extent, &extent, &row);
    }
    return extent;
}
