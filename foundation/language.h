// The program's language: the table in use, the languages to choose from, and the look-up of texts.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "foundation/path.h"
#include "foundation/tvmlang.h"

// A language that can be chosen.
struct LANGINFO {
    tvstring m_File;  // the file's name without the folder
    tvstring m_Name;  // the language's own name, for the menu
};

class CVMRMLang : public tvmlang {
public:
    // Looks for languages in the folder and loads English. It may be a folder that does not exist. Without a
    // default text and an "english.ini" no language is in use.
    explicit CVMRMLang(tvstring langFolder = ProgramPath(u"Lang"), tvstring defaultText = DefaultText());

    // Changes the language to that of a file in the folder; an empty name means "english.ini". Keys that the
    // file lacks keep the texts of the language before. An "english.ini" that is missing, or leaves the table
    // with 10 sections or fewer, gives way to the default text. True if a language is in use then; a file
    // that cannot be read changes no text. The file in use is not read again.
    bool Load(const tvstring& file);

    // Looks through the folder's "*.ini" again. Files whose name starts with "_", and those that give no name
    // of a language, are left out. English is always there, in front if the folder has no file for it.
    void EnumLanguages();

    // The text that the program carries in itself, as a file of the folder would hold it. Empty if it carries
    // none.
    static const tvstring& DefaultText();

    // The text that a resource of UTF-16LE holds, without its mark and without zero units at its end.
    static tvstring TextOfResource(std::span<const u8> bytes);

    // Writes the default text to a file, in UTF-16LE with its mark. True on success; missing folders are
    // made.
    static bool ExtractDefault(const tvstring& path);

    // The name that a language text gives itself; empty if there is none.
    static tvstring LanguageName(const tvstring& text);

    // The file in use, as "english.ini"; empty if none could ever be loaded.
    [[nodiscard]] const tvstring& Current() const noexcept { return m_Current; }

    // The number of language changes so far. Texts fetched at another number are stale.
    [[nodiscard]] i32 LoadCount() const noexcept { return m_LoadCount; }

    [[nodiscard]] const std::vector<LANGINFO>& Languages() const noexcept { return m_Langs; }

private:
    tvstring m_Current;
    i32 m_LoadCount = 0;
    std::vector<LANGINFO> m_Langs;
    tvstring m_Folder;
    tvstring m_DefaultText;
};

// The one language of the process, made on first use.
CVMRMLang& Language();

// The text of a key with the arguments in place of "%0" to "%5". An empty section means "global". Empty if
// there is no such key.
tvstring LangText(std::u16string_view section, std::u16string_view key, std::u16string_view a0 = {},
                  std::u16string_view a1 = {}, std::u16string_view a2 = {}, std::u16string_view a3 = {},
                  std::u16string_view a4 = {}, std::u16string_view a5 = {});

// The same from a given table. No constant takes part.
tvstring TextFrom(const tvini& table, std::u16string_view section, std::u16string_view key,
                  const LanguageArguments& arguments);

enum class VersionForm { Number, Labelled };

// The version, as "2.0.0", or in the words of the language, as "Version 2.0.0".
tvstring VersionText(VersionForm form);

// The name of a new item, never empty.
tvstring DefaultItemName();
