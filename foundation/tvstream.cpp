#include "foundation/tvstream.h"

#include <algorithm>
#include <cstring>

#include "foundation/conversion.h"

namespace {

// The text of a file's bytes by the mark in front of them.
tvstring Decode(const char* bytes) {
    tvstring text;
    const auto* mark = reinterpret_cast<const u8*>(bytes);
    if (mark[0] == 0xFF && mark[1] == 0xFE) {
        for (const char* unit = bytes + 2; unit[0] != 0 || unit[1] != 0; unit += 2) {
            text += static_cast<char16_t>(static_cast<u8>(unit[0]) | static_cast<u8>(unit[1]) << 8);
        }
    } else if (mark[0] == 0xFE && mark[1] == 0xFF) {
        FromUtf16BE(text, bytes + 2);
    } else if (mark[0] == 0xEF && mark[1] == 0xBB && mark[2] == 0xBF) {
        FromCodePage(text, bytes + 3, 0, kCodePageUtf8);
    } else {
        FromCodePage(text, bytes, 0, kCodePageAnsi);
    }
    return text;
}

}  // namespace

void tvstream::Reset() noexcept {
    m_Data.Reset();
    m_File.Close();
    m_Size = m_Pos = 0;
}

bool tvstream::OpenMemory(u32 size) {
    Reset();
    if (!m_Data.Resize(size)) return false;
    m_Size = size;
    return true;
}

bool tvstream::OpenFile(tvhandle file) {
    Reset();
    u64 size = 0;
    if (!file || !platform::NativeFileSize(file.Get(), size) || !platform::SeekNativeFile(file.Get(), 0)) {
        return false;
    }
    m_File = std::move(file);
    m_Size = size;
    return true;
}

bool tvstream::SetText(const char* bytes) {
    Reset();
    if (bytes == nullptr) return false;
    const tvstring text = Decode(bytes);
    const std::size_t units = std::max<std::size_t>(text.size(), 1);
    if (!OpenMemory(static_cast<u32>(units * sizeof(char16_t)))) return false;
    std::memcpy(m_Data.Data(), text.data(), units * sizeof(char16_t));
    return true;
}

u32 tvstream::Read(void* buffer, u32 count) {
    if (buffer == nullptr || m_Pos >= m_Size) return 0;
    u32 done = static_cast<u32>(std::min<u64>(count, m_Size - m_Pos));
    if (m_File) {
        const u32 wanted = done;
        if (!platform::ReadNativeFile(m_File.Get(), buffer, wanted, done)) return 0;
    } else {
        std::memcpy(buffer, m_Data.Data() + m_Pos, done);
    }
    m_Pos += done;
    return done;
}

bool tvstream::Write(const void* buffer, u32 count) {
    if (count == 0) return true;
    if (buffer == nullptr) return false;
    if (m_File) {
        u32 done = 0;
        const bool good = platform::WriteNativeFile(m_File.Get(), buffer, count, done);
        m_Pos += done;
        m_Size = std::max(m_Size, m_Pos);
        return good && done == count;
    }
    if (m_Data.Empty() || count > m_Size - m_Pos) return false;
    std::memcpy(m_Data.Data() + m_Pos, buffer, count);
    m_Pos += count;
    return true;
}
