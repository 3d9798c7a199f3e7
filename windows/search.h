// Which elements of a list stand in its view: the match of a search text.
#pragma once

#include <vector>

#include "database/element.h"
#include "windows/text_finder.h"

// How the words of the search text are taken. The values are those of the setting FilterFlag; any other
// behaves as FilterAll.
enum FilterMode : u8 { FilterAll = 0, FilterExact = 1, FilterAny = 2, FilterWithout = 3 };

// Whether the password of an item takes part.
enum class SearchPasswords : bool { No, Yes };

// A search text made ready to be matched with many elements.
class ItemFilter {
public:
    // `text` is cut at blanks into distinct words, but for FilterExact, where the whole is the one word.
    // `mode` is the low byte of FilterFlag.
    ItemFilter(const tvstring& text, u8 mode, SearchPasswords passwords);

    // True if the element stays in the view; so does null, and everything if there is no word. The fields of
    // an item are its name and its non-empty entries, of an entry its text. What counts for FilterAll is the
    // number of pairs of field and word, so a word that stands in two fields makes up for a missing one.
    [[nodiscard]] bool Matches(const VMRD_Element* element) const;

    // The words, in the order of their units, a shorter one before a longer one that starts with it.
    [[nodiscard]] const std::vector<TextFinder>& Words() const noexcept { return m_Words; }

private:
    enum class Verdict { Open, In, Out };

    [[nodiscard]] Verdict TakeField(const tvstring& field, std::size_t& hits) const;
    [[nodiscard]] Verdict TakeFields(const VMRD_Item& item, std::size_t& hits) const;

    std::vector<TextFinder> m_Words;
    u8 m_Mode;
    SearchPasswords m_Passwords;
};

// The same for one element.
bool MatchesFilter(const VMRD_Element* element, const tvstring& text, u8 mode, SearchPasswords passwords);
