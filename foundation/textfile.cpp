#include "foundation/textfile.h"

#include <limits>
#include <string_view>

#include "foundation/conversion.h"
#include "foundation/path.h"
#include "foundation/tvstream.h"

namespace {

using namespace std::string_view_literals;

std::string_view MarkOf(int encoding) {
    switch (encoding) {
        case TEXT_UTF16LE:
            return "\xFF\xFE"sv;
        case TEXT_UTF8:
            return "\xEF\xBB\xBF"sv;
        case TEXT_UTF16BE:
            return "\xFE\xFF"sv;
        default:
            return {};
    }
}

bool WriteBytes(tvstream& stream, const void* bytes, std::size_t size) {
    return size <= std::numeric_limits<u32>::max() && stream.Write(bytes, static_cast<u32>(size));
}

bool WriteUnits(tvstream& stream, const tvstring& text) {
    return WriteBytes(stream, text.data(), text.size() * sizeof(char16_t));
}

bool WriteEncoded(tvstream& stream, const tvstring& text, int encoding) {
    switch (encoding) {
        case TEXT_ANSI: {
            const tvstringA bytes = ToAnsi(text);
            return !bytes.empty() && WriteBytes(stream, bytes.data(), bytes.size());
        }
        case TEXT_UTF8: {
            const tvstringA bytes = ToUtf8(text);
            return !bytes.empty() && WriteBytes(stream, bytes.data(), bytes.size());
        }
        case TEXT_UTF16BE:
            return WriteUnits(stream, SwapBytes(text));
        default:
            return WriteUnits(stream, text);
    }
}

}  // namespace

tvstring ReadTextFile(const tvstring& path) {
    constexpr u32 kTerminator = 3;  // a zero unit, also behind an odd number of bytes
    constexpr u64 kLargestFile = std::numeric_limits<i32>::max() - kTerminator;  // a text can be no longer
    tvstream file;
    if (!file.OpenFile(OpenFileHandle(path, false)) || file.Size() == 0 || file.Size() > kLargestFile) {
        return {};
    }
    const auto size = static_cast<u32>(file.Size());
    tvdata bytes;
    if (!bytes.Resize(size + kTerminator) || file.Read(bytes.Data(), size) != size) return {};
    tvstream text;
    if (!text.SetText(reinterpret_cast<const char*>(bytes.Data()))) return {};
    tvstring result(reinterpret_cast<const char16_t*>(text.Memory().Data()),
                    static_cast<std::size_t>(text.Size() / sizeof(char16_t)));
    return result == std::u16string_view(u"\0", 1) ? tvstring() : result;
}

bool WriteTextFile(const tvstring& text, const tvstring& path, int encoding) {
    tvstream file;
    if (!file.OpenFile(OpenFileHandle(path, true))) return false;
    if (text.empty()) return true;
    const std::string_view mark = MarkOf(encoding);
    return WriteBytes(file, mark.data(), mark.size()) && WriteEncoded(file, text, encoding);
}
