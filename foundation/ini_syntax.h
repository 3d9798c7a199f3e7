// The syntax of INI documents, step by step. White space means blank, CR, LF and tab (kWhiteSpace).
//
// A logical line is one or more physical lines. A physical line continues the one before it when it holds no
// "=" and is no section head, or when the one before ends in an odd number of backslashes. Lines that start
// with "#" or ";" and empty lines are passed over, also in the middle of a logical line.
#pragma once

#include <string_view>

#include "foundation/tvstring.h"

// Takes the next logical line from the front of `text` and puts it into `out`: its physical lines trimmed,
// without the continuing backslashes, with one blank at each joint, or none behind "\n" or in front of "\t"
// (two units each). Gives the first of the physical lines as a piece of `text`, by which a line number can be
// told; a null view if only comments were left. `text` is empty at the end of the document.
std::u16string_view GetLogicalLine(std::u16string_view& text, tvstring& out);

// Parts a line into key and value, both trimmed and still with their escapes. A key in quotes, single or
// double, may hold "=". A value of at least 3 units loses the quotes around it, unless the last one is
// escaped. False, with nothing changed, if the line holds no pair.
bool SplitKeyValue(std::u16string_view line, tvstring& key, tvstring& value);

// The text with its escapes resolved: \\ \" \' \n \r \t. Any other stays as it stands, with its backslash.
tvstring Unescape(std::u16string_view text);

// What a logical line says, with its escapes resolved.
struct IniLine {
    enum class Kind {
        Head,   // `key` is the section's name; empty in "[]", which leaves no section current
        Pair,   // `key`, never empty, and `value`
        Other,  // neither of the two; nothing is filled
    };

    Kind kind = Kind::Other;
    tvstring key;
    tvstring value;
};

IniLine ReadIniLine(std::u16string_view line);
