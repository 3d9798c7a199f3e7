// tvini, an INI document read into a map of sections, each a map of keys and values. It only reads. The
// syntax is told in foundation/ini_syntax.h.
#pragma once

#include <string_view>

#include "foundation/tvstring.h"
#include "foundation/tvstrmap.h"

using tvinisection = tvstrmap<tvstring>;

class tvini {
public:
    // `defaultSection` is the section to look in when none is named: kept for the derived classes and the
    // callers. It may be null.
    explicit tvini(const char16_t* defaultSection);
    virtual ~tvini() = default;
    tvini(const tvini&) = delete;
    tvini& operator=(const tvini&) = delete;

    // Replaces the content by that of a text file in any encoding that ReadTextFile knows. A file that
    // cannot be read counts as an empty document.
    bool Load(const tvstring& path);

    // Replaces the content by that of a document. Lines that are no pair, and pairs outside any section, are
    // dropped; a later equal key overwrites an earlier one. True if there is at least one section with at
    // least one key.
    bool Parse(tvstring text);

    void Clear() { m_Sections.clear(); }

    // The value; empty if section or key are missing or empty.
    [[nodiscard]] tvstring Get(std::u16string_view section, std::u16string_view key) const;

    // The same without a copy; null if there is no such key. Good until the content changes.
    [[nodiscard]] const tvstring* Find(std::u16string_view section, std::u16string_view key) const;

    // No section is without keys once a document is read.
    [[nodiscard]] const tvstrmap<tvinisection>& Sections() const noexcept { return m_Sections; }
    [[nodiscard]] const tvstring& DefaultSection() const noexcept { return m_Default; }

protected:
    // Called for each pair before it is stored; may change the value.
    virtual void OnKey(const tvstring& section, const tvstring& key, tvstring& value);

    tvstrmap<tvinisection> m_Sections;
    tvstring m_Default;
};
