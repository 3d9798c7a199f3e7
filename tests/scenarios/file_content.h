// What a database file holds, written and read without the program.
#pragma once

#include <ostream>
#include <vector>

#include "foundation/tvstring.h"

struct ItemContent {
    tvstring name;
    tvstring program = {};
    tvstring userName = {};
    tvstring password = {};
    std::vector<tvstring> additions = {};
    unsigned long long date = 0;  // not compared
};
using Content = std::vector<ItemContent>;

bool operator==(const ItemContent& a, const ItemContent& b);
void PrintTo(const ItemContent& item, std::ostream* out);

// The failure is one of the test.
void WriteContent(const tvstring& path, const tvstring& password, const Content& content);
Content ReadContent(const tvstring& path, const tvstring& password);

[[nodiscard]] std::vector<tvstring> NamesOf(const Content& content);
