#include "cli/byte_sink.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "cli/failure.h"
#include "cli/utf8.h"
#include "platform/memory.h"
#include "platform/terminal.h"

namespace {

constexpr std::size_t kBlockSize = 65'536;
constexpr char32_t kReplacement = 0xFFFD;

bool IsContinuation(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// How many of the bytes end with a whole character.
std::size_t WholeCharacters(const char* bytes, std::size_t size) noexcept {
    constexpr std::size_t kLongestTail = 3;
    std::size_t lead = size;
    while (lead > 0 && size - lead <= kLongestTail) {
        const char byte = bytes[--lead];
        if (IsContinuation(byte)) continue;
        const auto value = static_cast<unsigned char>(byte);
        const std::size_t length = value < 0xC0 ? 1 : value < 0xE0 ? 2 : value < 0xF0 ? 3 : 4;
        return lead + length > size ? lead : size;
    }
    return size;
}

}  // namespace

ByteSink::ByteSink()
    : m_Block(static_cast<char*>(platform::AllocateZeroed(kBlockSize))), m_Capacity(kBlockSize) {
    if (m_Block == nullptr) throw std::bad_alloc();
}

ByteSink::~ByteSink() {
    platform::WipeAndFree(m_Block, m_Capacity);
}

void ByteSink::Bytes(std::string_view bytes) {
    while (!bytes.empty()) {
        if (m_Size == m_Capacity) Drain();
        const std::size_t part = std::min(bytes.size(), m_Capacity - m_Size);
        std::memcpy(m_Block + m_Size, bytes.data(), part);
        m_Size += part;
        bytes.remove_prefix(part);
    }
}

void ByteSink::Text(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] < 0x80) {
            Byte(static_cast<char>(text[i++]));
            continue;
        }
        const char32_t codePoint = NextCodePoint(text, i);
        char bytes[4];
        Bytes({bytes, EncodeUtf8(IsSurrogate(codePoint) ? kReplacement : codePoint, bytes)});
    }
}

// A character that is not complete yet waits for the next time.
void ByteSink::Drain() {
    const std::size_t whole = WholeCharacters(m_Block, m_Size);
    Accept({m_Block, whole});
    m_Size -= whole;
    std::memmove(m_Block, m_Block + whole, m_Size);
}

void ByteSink::Finish() {
    if (m_Size > 0) Accept({m_Block, m_Size});
    m_Size = 0;
}

void OutputSink::Accept(std::string_view bytes) {
    if (!platform::WriteStream(platform::StandardStream::Output, bytes.data(), bytes.size())) {
        throw Failure::OfFile("cannot write to standard output");
    }
}
