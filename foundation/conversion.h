// Text between UTF-16 in memory and bytes at the file, clipboard and hash boundaries.
#pragma once

#include <span>

#include "foundation/tvstring.h"
#include "platform/text.h"

using platform::kCodePageAnsi;
using platform::kCodePageUtf8;

// Replaces `text` from bytes in a code page. Length 0 means up to the first zero byte. No bytes, null or a
// conversion that yields nothing give an empty text.
void FromCodePage(tvstring& text, const char* bytes, std::size_t length, u32 codePage);

// Replaces `text` from UTF-16BE that ends at a unit of two zero bytes.
void FromUtf16BE(tvstring& text, const char* bytes);

// The bytes of the text in the system's ANSI code page, and in UTF-8; without a terminator in the length.
// Units that cannot be converted become '?' and U+FFFD.
tvstringA ToAnsi(const tvstring& text);
tvstringA ToUtf8(const tvstring& text);

// A copy with the two bytes of each unit swapped.
tvstring SwapBytes(const tvstring& text);

// From UTF-8 of known length, zero bytes included.
tvstring FromUtf8(std::string_view bytes);
