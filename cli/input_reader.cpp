#include "cli/input_reader.h"

#include <algorithm>

#include "cli/failure.h"

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

}  // namespace

InputReader::InputReader(const std::string& path)
    : m_File(platform::OpenInput(platform::PathFromArgument(path).c_str())), m_What(path), m_Owned(true) {
    if (m_File == platform::kNoInput) throw Failure::OfFile("cannot open " + path);
}

InputReader::~InputReader() {
    if (m_Owned) platform::CloseInput(m_File);
}

// True if there are bytes in the buffer.
bool InputReader::Fill() {
    if (m_Place < m_Size) return true;
    const auto got = platform::ReadInput(m_File, m_Buffer.Data(), kBufferSize);
    if (!got) throw Failure::OfFile("cannot read " + m_What);
    m_Place = 0;
    m_Size = *got;
    return m_Size > 0;
}

bool InputReader::ReadLine(tvstringA& line) {
    line.clear();
    bool found = false;
    bool complete = false;
    while (!complete && Fill()) {
        const auto* start = reinterpret_cast<const char*>(m_Buffer.Data()) + m_Place;
        const auto* end = start + (m_Size - m_Place);
        const auto* lineEnd = std::find(start, end, '\n');
        line.append({start, static_cast<std::size_t>(lineEnd - start)});
        complete = lineEnd != end;
        m_Place += static_cast<std::size_t>(lineEnd - start) + (complete ? 1 : 0);
        found = true;
    }
    if (complete && !line.empty() && line.back() == '\r') line.pop_back();
    if (m_AtStart && line.starts_with(kMark)) line.erase(0, kMark.size());
    m_AtStart = false;
    return found;
}

void InputReader::ReadRest(tvstringA& bytes) {
    bytes.clear();
    while (Fill()) {
        bytes.append({reinterpret_cast<const char*>(m_Buffer.Data()) + m_Place, m_Size - m_Place});
        m_Place = m_Size;
    }
    m_AtStart = false;
}
