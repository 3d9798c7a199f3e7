// Where commands write their data: bytes are gathered in a block that is wiped, and handed on in large
// pieces.
#pragma once

#include <string_view>

#include "foundation/tvstring.h"

class ByteSink {
public:
    ByteSink(const ByteSink&) = delete;
    ByteSink& operator=(const ByteSink&) = delete;

    void Byte(char byte) {
        if (m_Size == m_Capacity) Drain();
        m_Block[m_Size++] = byte;
    }
    void Bytes(std::string_view bytes);

    // The text as UTF-8; a surrogate without its partner becomes U+FFFD.
    void Text(std::u16string_view text);

    // Hands on what is gathered. To be called once at the end, since that is what can fail.
    void Finish();

protected:
    ByteSink();
    virtual ~ByteSink();

    // Takes whole characters only, unless the bytes given to the sink were none.
    virtual void Accept(std::string_view bytes) = 0;

private:
    void Drain();

    char* m_Block;
    std::size_t m_Size = 0;
    std::size_t m_Capacity;
};

// Into a text in memory.
class TextSink : public ByteSink {
public:
    // The text is complete after Finish.
    [[nodiscard]] const tvstringA& Result() const noexcept { return m_Result; }

private:
    void Accept(std::string_view bytes) override { m_Result.append(bytes); }

    tvstringA m_Result;
};

// Onto standard output. Bytes, Text and Finish throw a Failure if it takes no more.
class OutputSink : public ByteSink {
private:
    void Accept(std::string_view bytes) override;
};
