// The view that is measured: 60,000 items, of which one in a hundred holds the needle.
#pragma once

#include "windows/item_view.h"

// A view of the sample with the needle as its search text: all but FilterWithout leave one item of a hundred,
// that one leaves all the others. It has shown everything before, as a user's view has.
void StartSampleView(ItemView& view, u32 mode, int sort);

// Rows of all items in stored order.
std::vector<ViewRow> SampleRows();

// From A to Z by nothing but the platform's comparison.
void SortPlainly(std::vector<ViewRow>& rows);
