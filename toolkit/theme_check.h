// Checks a theme file for those who write one: the program itself passes over a bad one without a word.
#pragma once

#include <vector>

#include "foundation/tvstring.h"

struct ThemeFinding {
    enum class Kind {
        // The program passes over the file:
        WrongVersion,  // `_version` is something else than it must be; detail: what it is
        BadColor,      // a value that is no colour, or one out of range; detail: the value
        UnknownRole,   // a reference to what is no role; detail: the reference
        Cycle,         // a reference that leads back to itself; detail: the reference
        MissingKey,    // absent or empty, with no line if it is absent
        // It takes no notice:
        BadLine,         // no pair and no section head, or outside any section; detail: the line
        UnknownSection,  // told once, and not for its keys
        UnknownKey,
        DuplicateKey,  // overwrites an earlier value; detail: that value
    };

    std::size_t line = 0;  // from 1; 0 for the whole file
    Kind kind = Kind::BadLine;
    tvstring key;  // of a section: its name
    tvstring detail;
};

// The findings in the order of the file, then the missing keys. The text is without a mark, as ReadTextFile
// gives it.
std::vector<ThemeFinding> CheckTheme(const tvstring& text);
