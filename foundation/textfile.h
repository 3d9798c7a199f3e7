// Whole text files with their encodings.
#pragma once

#include "foundation/tvstring.h"

enum TextEncoding : int {
    TEXT_UTF16LE = 0,  // with the mark FF FE
    TEXT_ANSI = 1,     // no mark
    TEXT_UTF8 = 2,     // with the mark EF BB BF
    TEXT_UTF16BE = 3,  // with the mark FE FF
};

// The whole file as text, by the mark in front (see tvstream::SetText); empty on any failure.
tvstring ReadTextFile(const tvstring& path);

// Makes the file anew (see OpenFileHandle) with the encoding's mark and the text; true on success. An empty
// text makes an empty file without a mark.
bool WriteTextFile(const tvstring& text, const tvstring& path, int encoding);
