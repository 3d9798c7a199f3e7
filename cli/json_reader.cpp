#include "cli/json_reader.h"

#include <algorithm>
#include <limits>

#include "cli/utf8.h"

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::size_t kDeepest = 256;

bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

bool IsPlainAscii(char c) noexcept {
    const auto value = static_cast<unsigned char>(c);
    return value >= 0x20 && value < 0x80 && c != '"' && c != '\\';
}

int HexValue(char c) noexcept {
    if (IsDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// The unit of a short escape; a zero unit for a letter that stands for none.
char16_t ShortEscape(char letter) noexcept {
    switch (letter) {
        case '"':
        case '\\':
        case '/':
            return static_cast<char16_t>(letter);
        case 'b':
            return u'\b';
        case 'f':
            return u'\f';
        case 'n':
            return u'\n';
        case 'r':
            return u'\r';
        case 't':
            return u'\t';
        default:
            return 0;
    }
}

void AppendCodePoint(tvstring& text, char32_t codePoint) {
    if (codePoint < 0x10000) {
        text.push_back(static_cast<char16_t>(codePoint));
    } else {
        text.push_back(static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10)));
        text.push_back(static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF)));
    }
}

}  // namespace

JsonError::JsonError(std::size_t line, std::size_t column, const char* problem)
    : m_Message("line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + problem) {}

JsonReader::JsonReader(std::string_view bytes) noexcept : m_Bytes(bytes) {
    if (bytes.starts_with(kMark)) m_Place = kMark.size();
}

JsonError JsonReader::ErrorAt(std::size_t place, const char* problem) const {
    const std::string_view before = m_Bytes.substr(0, place);
    const std::size_t lineStart = before.rfind('\n') + 1;  // npos + 1 is 0
    const auto line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
    return {line, place - lineStart + 1, problem};
}

void JsonReader::SkipSpace() noexcept {
    const std::size_t next = m_Bytes.find_first_not_of(" \t\r\n", m_Place);
    m_Place = next == std::string_view::npos ? m_Bytes.size() : next;
}

// The first byte of what comes next.
char JsonReader::Peek() {
    SkipSpace();
    if (m_Place == m_Bytes.size()) throw ErrorAt(m_Place, "unexpected end");
    return m_Bytes[m_Place];
}

void JsonReader::Open(char mark) {
    const char found = Peek();
    m_ValueStart = m_Place;
    if (found != mark) throw Error(mark == '{' ? "an object is expected here" : "an array is expected here");
    ++m_Place;
    m_First = true;
}

// True if an element of the container follows; what parts it from the one before is passed.
bool JsonReader::Next(char closingMark) {
    const char found = Peek();
    if (found == closingMark) {
        ++m_Place;
        m_First = false;
        return false;
    }
    if (!m_First) {
        if (found != ',') throw ErrorAt(m_Place, "a comma or the end of the list is expected here");
        ++m_Place;
    }
    m_First = false;
    return true;
}

bool JsonReader::NextKey(tvstring& key) {
    if (!Next('}')) return false;
    Text(key);
    if (Peek() != ':') throw ErrorAt(m_Place, "a colon is expected here");
    ++m_Place;
    return true;
}

bool JsonReader::NextElement() {
    return Next(']');
}

void JsonReader::Text(tvstring& text) {
    text.clear();
    const char found = Peek();
    m_ValueStart = m_Place;
    if (found != '"') throw Error("a string is expected here");
    for (++m_Place; m_Place < m_Bytes.size();) {
        const char c = m_Bytes[m_Place];
        if (c == '"') {
            ++m_Place;
            return;
        }
        if (c == '\\') {
            ReadEscape(text);
        } else if (IsPlainAscii(c)) {
            ReadPlain(text);
        } else if (static_cast<unsigned char>(c) < 0x20) {
            throw ErrorAt(m_Place, "a control character in a string");
        } else {
            ReadUtf8(text);
        }
    }
    throw ErrorAt(m_Place, "unexpected end in a string");
}

// All that stands for itself, in one piece.
void JsonReader::ReadPlain(tvstring& text) {
    std::size_t end = m_Place;
    while (end < m_Bytes.size() && IsPlainAscii(m_Bytes[end]))
        ++end;
    std::size_t to = text.size();
    text.resize(to + (end - m_Place));
    for (; m_Place < end; ++m_Place)
        text[to++] = static_cast<char16_t>(m_Bytes[m_Place]);
}

void JsonReader::ReadEscape(tvstring& text) {
    const std::size_t start = m_Place++;
    const char letter = m_Place < m_Bytes.size() ? m_Bytes[m_Place] : '\0';
    ++m_Place;
    if (letter == 'u') {
        text.push_back(ReadHex());
        return;
    }
    const char16_t unit = ShortEscape(letter);
    if (unit == 0) throw ErrorAt(start, "no such escape");
    text.push_back(unit);
}

char16_t JsonReader::ReadHex() {
    constexpr std::size_t kDigits = 4;
    unsigned value = 0;
    for (std::size_t i = 0; i < kDigits; ++i, ++m_Place) {
        const int digit = m_Place < m_Bytes.size() ? HexValue(m_Bytes[m_Place]) : -1;
        if (digit < 0) throw ErrorAt(m_Place, "four hexadecimal digits are expected here");
        value = value * 16 + static_cast<unsigned>(digit);
    }
    return static_cast<char16_t>(value);
}

void JsonReader::ReadUtf8(tvstring& text) {
    char32_t codePoint = 0;
    const std::size_t length = DecodeUtf8(m_Bytes.substr(m_Place), codePoint);
    if (length == 0) throw ErrorAt(m_Place, "not valid UTF-8");
    AppendCodePoint(text, codePoint);
    m_Place += length;
}

u64 JsonReader::Number() {
    constexpr u64 kLargest = std::numeric_limits<u64>::max();
    SkipSpace();
    m_ValueStart = m_Place;
    u64 value = 0;
    while (m_Place < m_Bytes.size() && IsDigit(m_Bytes[m_Place])) {
        const auto digit = static_cast<u64>(m_Bytes[m_Place] - '0');
        if (value > (kLargest - digit) / 10) throw Error("the number is too large");
        value = value * 10 + digit;
        ++m_Place;
    }
    const bool isWhole =
        m_Place == m_Bytes.size() || std::string_view(".eE").find(m_Bytes[m_Place]) == std::string_view::npos;
    if (m_Place == m_ValueStart || !isWhole) throw Error("a whole number is expected here");
    if (m_Place - m_ValueStart > 1 && m_Bytes[m_ValueStart] == '0') throw Error("a number starts with 0");
    return value;
}

bool JsonReader::Word(std::string_view word) {
    if (!m_Bytes.substr(m_Place).starts_with(word)) return false;
    m_Place += word.size();
    return true;
}

bool JsonReader::Null() {
    SkipSpace();
    m_ValueStart = m_Place;
    return Word("null");
}

void JsonReader::Skip() {
    const char found = Peek();
    m_ValueStart = m_Place;
    if (found == '{' || found == '[') {
        SkipContainer();
    } else if (found == '"') {
        tvstring ignored;
        Text(ignored);
    } else if (found == '-' || IsDigit(found)) {
        SkipNumber();
    } else {
        SkipWord();
    }
}

void JsonReader::SkipWord() {
    if (!Word("null") && !Word("true") && !Word("false")) throw Error("a value is expected here");
}

void JsonReader::SkipNumber() {
    const auto digits = [this] {
        const std::size_t start = m_Place;
        while (m_Place < m_Bytes.size() && IsDigit(m_Bytes[m_Place]))
            ++m_Place;
        if (m_Place == start) throw Error("the number is not complete");
        return m_Place - start;
    };
    Word("-");
    const std::size_t start = m_Place;
    if (digits() > 1 && m_Bytes[start] == '0') throw Error("a number starts with 0");
    if (Word(".")) digits();
    if (Word("e") || Word("E")) {
        if (!Word("+")) Word("-");
        digits();
    }
}

// Without recursion: the marks still open are kept in a text.
void JsonReader::SkipContainer() {
    std::string open;
    tvstring key;
    do {
        const char found = Peek();
        if (found == '{' || found == '[') {
            if (open.size() == kDeepest) throw ErrorAt(m_Place, "nested too deeply");
            Open(found);
            open.push_back(found);
        } else {
            Skip();
        }
        while (!open.empty() && !(open.back() == '{' ? NextKey(key) : NextElement()))
            open.pop_back();
    } while (!open.empty());
}

void JsonReader::End() {
    SkipSpace();
    if (m_Place != m_Bytes.size()) throw ErrorAt(m_Place, "something follows the end");
}
