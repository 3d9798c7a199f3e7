// Writes JSON without any white space. Every text survives: what is valid goes out as UTF-8, a surrogate
// without its partner as an escape "\uXXXX".
#pragma once

#include <string_view>

#include "cli/byte_sink.h"

class JsonWriter {
public:
    // The sink outlives the writer.
    explicit JsonWriter(ByteSink& sink) noexcept : m_Sink(sink) {}

    // The caller sees to it that what is opened is closed, and that each value in an object has its key.
    JsonWriter& OpenObject() { return Open('{'); }
    JsonWriter& CloseObject() { return Close('}'); }
    JsonWriter& OpenArray() { return Open('['); }
    JsonWriter& CloseArray() { return Close(']'); }

    JsonWriter& Key(std::string_view asciiKey);
    JsonWriter& Key(std::u16string_view key);

    JsonWriter& Text(std::u16string_view text);
    JsonWriter& Ascii(std::string_view text);
    JsonWriter& Number(u64 number);
    JsonWriter& Bool(bool value);
    JsonWriter& Null();

private:
    JsonWriter& Open(char mark);
    JsonWriter& Close(char mark);
    void Separate();
    void Quoted(std::u16string_view text);
    void Escaped(char32_t codePoint);

    ByteSink& m_Sink;
    bool m_NeedsComma = false;
};
