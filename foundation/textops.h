// Comparing, editing and formatting texts: what tvstring adds to an ordinary string class.
#pragma once

#include <vector>

#include "foundation/tvstring.h"

// Position in units, or tvstring::npos.
inline constexpr std::size_t kNoPosition = tvstring::npos;

// --- Comparison ---

// Same length and same units.
bool Equal(const tvstring& a, const tvstring& b);

// Same length and CompareNoCase gives 0.
bool EqualNoCase(const tvstring& a, const tvstring& b);

// Ordinal, ignoring case, without any locale: -1, 0 or 1. The comparison of tvstrmap and of paths.
int CompareNoCase(const tvstring& a, const tvstring& b);

// In the order of the system's locale, ignoring case, digits as numbers: -1, 0 or 1.
int CompareNatural(const tvstring& a, const tvstring& b);

// Where `word` stands in `text`, ignoring case; npos also for an empty text or word.
std::size_t FindNoCase(const tvstring& text, const tvstring& word);

// A copy in which only A to Z are changed.
tvstring ToLowerAscii(const tvstring& text);

constexpr bool IsAsciiLetter(char16_t unit) {
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

// --- Editing ---

enum TrimEnds : unsigned { TRIM_START = 1, TRIM_END = 2, TRIM_BOTH = 3 };

// Blank, CR, LF, tab: what counts as white space throughout.
inline constexpr std::u16string_view kWhiteSpace = u" \r\n\t";

// Cuts units of `set` from the start (flag 1) and the end (flag 2), in place. An empty text or set does
// nothing.
void Trim(tvstring& text, std::u16string_view set, unsigned flags);

// The same for a view, which is narrowed.
std::u16string_view TrimmedView(std::u16string_view text, std::u16string_view set, unsigned flags);

// Replaces all occurrences from left to right, in place. A replacement is not searched again; a null
// `replace` deletes. An empty `find` does nothing.
void ReplaceAll(tvstring& text, std::u16string_view find, const char16_t* replace);
void ReplaceAll(tvstring& text, std::u16string_view find, std::u16string_view replace);

// Fills `out` with the pieces between separators; empty pieces are dropped.
void Split(const tvstring& text, std::u16string_view separator, std::vector<tvstring>& out);

// What happens to trailing dots in CleanCaption: CUT_UNLESS_ONE keeps exactly one and cuts any other number;
// CUT_THREE cuts exactly three and keeps any other number; any other value keeps them.
enum CaptionDots { CUT_UNLESS_ONE = 0, CUT_THREE = 1, KEEP_DOTS = 2 };

// Turns a menu text into plain text, in place: cuts the shortcut part behind a tab (leading tabs are passed
// over), then dots as told, then, unless `keepMarks`, each "&" but the doubled ones.
void CleanCaption(tvstring& text, bool keepMarks, int dots);

// --- Numbers and bytes ---

// Decimal.
tvstring FormatInt(i32 value);

enum class U64Format { Decimal, Hex };

// Hex: "0x" and exactly 16 lower-case digits.
tvstring FormatU64(u64 value, U64Format format);

// The hexadecimal form again, into `out`, which takes kHexU64Length units and no terminator.
inline constexpr std::size_t kHexU64Length = 18;
void WriteHexU64(u64 value, char16_t* out);

// "0x" or "0X" in front means base 16 from the third unit, anything else base 10; reading ends at the first
// unit that is no digit of the base. Larger values wrap around. 0 for an empty text.
u64 ParseU64(const tvstring& text);

// Two lower-case digits a byte; empty for null or no bytes.
tvstring BytesToHex(const u8* bytes, std::size_t size);

enum class ByteOrder { Forward, Reversed };

// Takes the hexadecimal digits of a text, passing over "0x" and anything that is none, with a "0" in front
// if their number is odd. Returns the number of bytes; 0 with nothing written for an empty text, a null `out`
// or when `capacity` is too small. Reversed: the first pair goes to the last byte.
std::size_t HexToBytes(const tvstring& text, u8* out, std::size_t capacity, ByteOrder order);
