// Dates of items as people and other programs read them.
#pragma once

#include <string>
#include <string_view>

#include "platform/types.h"

// "2024-09-05T12:34:56.7890000" (local time as stored, seven digits of the second); empty for a date that no
// calendar can tell.
std::string FormatIsoDate(u64 date);

// The way back. The fraction may have one to seven digits or be missing; nothing may follow. False, with
// `date` unchanged, for anything else.
bool ParseIsoDate(std::u16string_view text, u64& date);

// "2024-09-05 12:34:56", or empty.
std::string FormatPlainDate(u64 date);

// "0x" and 1 to 16 hexadecimal digits; false, with `date` unchanged, for anything else.
bool ParseHexDate(std::u16string_view text, u64& date);
