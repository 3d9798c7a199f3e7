// An INI document line by line with line numbers, for those who check documents instead of just using them.
#pragma once

#include <vector>

#include "foundation/ini_syntax.h"

// A logical line and what it says.
struct PlacedLine {
    std::size_t number = 0;  // of its first physical line, from 1
    tvstring section;        // the section that is current at it, of a head its own; empty: none
    tvstring text;
    IniLine read;
};

// All lines that are neither empty nor comments.
std::vector<PlacedLine> PlacedLines(const tvstring& text);
