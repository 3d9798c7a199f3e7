// Checks a language file against the table that it translates.
#pragma once

#include <vector>

#include "foundation/tvstring.h"

struct LanguageFinding {
    enum class Kind {
        BadLine,         // dropped when the file is read: no pair, or outside any section; detail: the line
        DuplicateKey,    // overwrites an earlier value; detail: that value
        UnknownSection,  // not in the reference; told once, and not for its keys
        UnknownKey,      // not in the section of the reference
        UnresolvedReference,  // finds no text in what stands above, nor a constant; detail: the reference
        MissingKey,           // in the reference only, for the whole file
    };

    std::size_t line = 0;  // where the logical line begins, from 1; 0 for the whole file
    Kind kind = Kind::BadLine;
    tvstring section;  // of a missing key as the reference writes it, otherwise as the file does
    tvstring key;
    tvstring detail;
};

// The findings in the order of the file, then the missing keys in the order of the reference. Both texts are
// without a mark, as ReadTextFile gives them. The section ".info" tells of the file itself: its keys are
// free, and of the reference's only `name` must be there, without which the language cannot be chosen.
std::vector<LanguageFinding> CheckLanguage(const tvstring& text, const tvstring& referenceText);
