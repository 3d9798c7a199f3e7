// Records, what the stream inside the container is made of:
//
//   u16 type     1 to 7, VMRD_T_DBNAME to VMRD_T_DATE
//   u16 length   number of UTF-16 units of the text
//   text         2 x length bytes, no terminator
#pragma once

#include "foundation/tvbuffer.h"
#include "foundation/tvstring.h"

inline constexpr std::size_t kRecordHeadSize = 4;

// Appends a record. False for a type outside 1 to 7 or without memory. Of a text longer than 65535 units all
// is written under a length of 65535: the format cannot hold it, and whoever makes texts sees to that.
bool WriteRecord(tvbuffer<u8>& stream, u16 type, const tvstring& text);

// The bytes that WriteRecord appends for a text.
std::size_t RecordSize(const tvstring& text);

// Parses the record at `data`, of which `remaining` bytes belong to the stream and `present` can be read.
// Returns the bytes that the record takes by its own word, which may be more than remain, or 0 if there is
// none: fewer than 4 bytes remain, or a type outside 1 to 7. The text is cut to what is present.
std::size_t ReadRecord(const u8* data, std::size_t remaining, std::size_t present, u16& type, tvstring& text);

// Appends the record of an item's date: "0x" and 16 lower-case digits.
bool WriteDateRecord(tvbuffer<u8>& stream, u64 date);
inline constexpr std::size_t kDateRecordSize = kRecordHeadSize + 18 * sizeof(char16_t);

// A date from the text of its record: also with "0X", or decimal; 0 for an empty text.
u64 ParseDate(const tvstring& text);
