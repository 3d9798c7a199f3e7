// The uses of "%" in a language text. A reference, "%key" or "%[section]key", is replaced by another text
// when the table is read; "%0" to "%5" are arguments, put in when the text is asked for; "%%" is a "%".
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string_view>

#include "foundation/tvstring.h"

struct LanguageReference {
    std::u16string_view text;                    // the whole of it, "%" included
    std::optional<std::u16string_view> section;  // what stands between the brackets, if there are any
    std::u16string_view key;                     // of 0-9 a-z A-Z - _, never empty, with no - or _ at its end
};

// The text that a reference points to; null or an empty text if there is none.
using ReferenceLookup = std::function<const tvstring*(const LanguageReference&)>;

// Replaces the references of a value, from left to right. One that makes up the whole value becomes the text
// as it is, one inside a longer value the text of CleanReference; neither is searched again. A reference
// without a text stays as it stands.
void ExpandReferences(tvstring& value, const ReferenceLookup& lookup);

// A menu text as it reads in a sentence. Without a "&" in it the text stays. Otherwise the first mark goes
// with its brackets if it stands in them, as in "(&X)" or "[&X]", then the part behind a tab, three trailing
// dots, and all other marks; "&&" stays.
tvstring CleanReference(const tvstring& text);

using LanguageArguments = std::array<std::u16string_view, 6>;

// The text with "%%" as "%" and "%0" to "%5" as the arguments, which are not searched again. Any other "%"
// stays with the unit behind it.
tvstring PutArguments(std::u16string_view text, const LanguageArguments& arguments);
