// Reads JSON (RFC 8259) piece by piece, so that a text goes straight into wiped storage. Escapes of
// surrogates are taken as the units they name, with or without a partner: what JsonWriter writes comes back
// unit by unit.
#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "foundation/tvstring.h"

// The text is no JSON, or not the JSON that was asked for.
class JsonError : public std::exception {
public:
    JsonError(std::size_t line, std::size_t column, const char* problem);
    [[nodiscard]] const char* what() const noexcept override { return m_Message.c_str(); }

private:
    std::string m_Message;  // "line 1, column 2: ...", without any of the text
};

// All operations throw a JsonError where the text is not as it should be.
class JsonReader {
public:
    // UTF-8, with or without a mark in front. The bytes outlive the reader.
    explicit JsonReader(std::string_view bytes) noexcept;

    // for (reader.OpenObject(); reader.NextKey(key);) { read one value }
    void OpenObject() { Open('{'); }
    bool NextKey(tvstring& key);

    // for (reader.OpenArray(); reader.NextElement();) { read one value }
    void OpenArray() { Open('['); }
    bool NextElement();

    void Text(tvstring& text);
    u64 Number();  // a whole number that is not negative

    // True, and the value is passed, if it is null.
    bool Null();

    // Passes a value of any kind.
    void Skip();

    // Nothing but white space may follow.
    void End();

    // A JsonError that points at the last value read.
    [[nodiscard]] JsonError Error(const char* problem) const { return ErrorAt(m_ValueStart, problem); }

private:
    [[nodiscard]] JsonError ErrorAt(std::size_t place, const char* problem) const;
    void SkipSpace() noexcept;
    [[nodiscard]] char Peek();
    void Open(char mark);
    bool Next(char closingMark);
    void ReadPlain(tvstring& text);
    void ReadEscape(tvstring& text);
    char16_t ReadHex();
    void ReadUtf8(tvstring& text);
    void SkipNumber();
    void SkipContainer();
    void SkipWord();
    bool Word(std::string_view word);

    std::string_view m_Bytes;
    std::size_t m_Place = 0;
    std::size_t m_ValueStart = 0;
    bool m_First = false;  // nothing of the container just opened has been read
};
