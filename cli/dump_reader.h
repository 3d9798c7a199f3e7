// Reads what `vmr dump` prints.
#pragma once

#include <deque>
#include <string_view>

#include "database/element.h"

struct DumpedDatabase {
    tvstring name;
    std::deque<ItemElement> items;
};

// Members that are not known are passed over. An item without a date takes "modified", or else the present
// time. Throws a JsonError for a text that is no dump, a Failure for one that the file format cannot hold.
void ReadDump(std::string_view json, DumpedDatabase& out);
