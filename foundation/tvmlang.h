// tvmlang, a language table: an INI document whose values may refer to other texts.
#pragma once

#include "foundation/language_reference.h"
#include "foundation/tvini.h"

class tvmlang : public tvini {
public:
    using tvini::tvini;

    // Stores a constant, which stands outside the sections. False for an empty key.
    bool SetConst(const tvstring& key, const tvstring& text);

    // Stores a value, with its references replaced. True if section and key are in the table then; false for
    // an empty section or key.
    bool Set(const tvstring& section, const tvstring& key, tvstring text);

    // Puts a file on top of the present table: it is read as if the table were empty, so its references find
    // only what stands further up in the file, and the constants; then what the file lacks is taken over from
    // the table as it was. The result is that of Load: false leaves the table as it was.
    bool LoadOverlay(const tvstring& path);

    // The text that a reference in a value of `section` points to: in the section that it names; otherwise
    // the constant, the key of `section`, or the key of the default section, whichever is there first. Null
    // if there is none, and a text that is there may be empty; both leave the reference as it stands.
    [[nodiscard]] const tvstring* Resolve(std::u16string_view section,
                                          const LanguageReference& reference) const;

protected:
    void OnKey(const tvstring& section, const tvstring& key, tvstring& value) override;

private:
    tvstrmap<tvstring> m_Consts;
};
