// The order of the rows of a view.
#pragma once

#include <vector>

#include "database/element.h"

// The values are those of the setting Sort and of the choices in the window.
enum SortMode : int {
    SortNone = 0,    // the order of the source
    SortAZ = 1,      // by text, in the order of the user's locale, digits as numbers
    SortZA = 2,      // the other way round
    SortNewOld = 3,  // by date, newest first
    SortOldNew = 4,  // oldest first
};

// Anything outside of the modes is SortNone.
constexpr int SortModeOf(int value) {
    return value < SortNone || value > SortOldNew ? SortNone : value;
}

// One row of a view: an element of the source, which owns it.
struct ViewRow {
    VMRD_Element* m_data = nullptr;
    bool selected = false;
};

// True if `a` goes before `b`. There is no second key: rows that compare equal are ties.
bool CompareRows(int mode, const ViewRow& a, const ViewRow& b);

// Ties among up to this many rows keep their order; among more they come in no defined order.
inline constexpr std::size_t kStableRows = 32;

void SortRows(int mode, std::vector<ViewRow>& rows);

// The order of the rows from A to Z, ties in none that is defined: result[i] is the place of the row that
// goes to place i. Empty if the system gives no sort keys or there is no memory.
std::vector<u32> OrderByText(const std::vector<ViewRow>& rows);

// Puts the rows in an order of that form.
void PutInOrder(std::vector<ViewRow>& rows, const std::vector<u32>& order);
