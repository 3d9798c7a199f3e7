#include "cli/json_writer.h"

#include <charconv>

#include "cli/utf8.h"

namespace {

// The letter of a short escape, or 0.
char ShortEscape(char32_t codePoint) noexcept {
    switch (codePoint) {
        case U'"':
            return '"';
        case U'\\':
            return '\\';
        case U'\b':
            return 'b';
        case U'\f':
            return 'f';
        case U'\n':
            return 'n';
        case U'\r':
            return 'r';
        case U'\t':
            return 't';
        default:
            return 0;
    }
}

bool IsPlainAscii(char16_t unit) noexcept {
    return unit >= u' ' && unit < 0x7F && unit != u'"' && unit != u'\\';
}

bool IsControl(char32_t codePoint) noexcept {
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

}  // namespace

JsonWriter& JsonWriter::Open(char mark) {
    Separate();
    m_Sink.Byte(mark);
    m_NeedsComma = false;
    return *this;
}

JsonWriter& JsonWriter::Close(char mark) {
    m_Sink.Byte(mark);
    m_NeedsComma = true;
    return *this;
}

void JsonWriter::Separate() {
    if (m_NeedsComma) m_Sink.Byte(',');
    m_NeedsComma = true;
}

JsonWriter& JsonWriter::Key(std::string_view asciiKey) {
    Ascii(asciiKey);
    m_Sink.Byte(':');
    m_NeedsComma = false;
    return *this;
}

JsonWriter& JsonWriter::Key(std::u16string_view key) {
    Text(key);
    m_Sink.Byte(':');
    m_NeedsComma = false;
    return *this;
}

JsonWriter& JsonWriter::Text(std::u16string_view text) {
    Separate();
    Quoted(text);
    return *this;
}

JsonWriter& JsonWriter::Ascii(std::string_view text) {
    Separate();
    m_Sink.Byte('"');
    m_Sink.Bytes(text);
    m_Sink.Byte('"');
    return *this;
}

JsonWriter& JsonWriter::Number(u64 number) {
    char digits[20];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, number);
    Separate();
    m_Sink.Bytes({digits, static_cast<std::size_t>(end.ptr - digits)});
    return *this;
}

JsonWriter& JsonWriter::Bool(bool value) {
    Separate();
    m_Sink.Bytes(value ? "true" : "false");
    return *this;
}

JsonWriter& JsonWriter::Null() {
    Separate();
    m_Sink.Bytes("null");
    return *this;
}

void JsonWriter::Quoted(std::u16string_view text) {
    m_Sink.Byte('"');
    for (std::size_t i = 0; i < text.size();) {
        if (IsPlainAscii(text[i])) {
            m_Sink.Byte(static_cast<char>(text[i++]));
        } else {
            Escaped(NextCodePoint(text, i));
        }
    }
    m_Sink.Byte('"');
}

void JsonWriter::Escaped(char32_t codePoint) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    if (const char letter = ShortEscape(codePoint); letter != 0) {
        const char bytes[] = {'\\', letter};
        m_Sink.Bytes({bytes, sizeof bytes});
    } else if (IsControl(codePoint) || IsSurrogate(codePoint)) {
        m_Sink.Bytes("\\u");
        for (int shift = 12; shift >= 0; shift -= 4)
            m_Sink.Byte(kDigits[(codePoint >> shift) & 0xF]);
    } else {
        char bytes[4];
        m_Sink.Bytes({bytes, EncodeUtf8(codePoint, bytes)});
    }
}
