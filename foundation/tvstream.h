// tvstream, reading and writing of a byte range that is either a memory block or a file.
#pragma once

#include "foundation/tvdata.h"
#include "foundation/tvhandle.h"

class tvstream {
public:
    // Drops the block, closes the file; size and position become 0.
    void Reset() noexcept;

    // Starts on a zero-filled block. False for a size of 0 or without memory.
    bool OpenMemory(u32 size);

    // Starts on a file, which is owned from now on, at its beginning. False for an empty handle or when the
    // size cannot be read or the beginning not be reached; the handle is closed then.
    bool OpenFile(tvhandle file);

    // Fills the stream with UTF-16 text, without a mark, from a file's bytes with two zero bytes behind them
    // (three behind an odd number of bytes).
    // FF FE in front says UTF-16LE (up to the first zero unit), FE FF UTF-16BE, EF BB BF UTF-8, anything else
    // the system's ANSI code page. An empty text makes a stream of two zero bytes. Null: Reset and false.
    bool SetText(const char* bytes);

    // Reads at most what is left of the range; the number of bytes read, 0 at the end, for a null buffer or
    // if the system fails.
    u32 Read(void* buffer, u32 count);

    // Writes all or gives false. On a file, size and position grow; on memory only inside the range, and
    // beyond it nothing is written. True at once for a count of 0, false for a null buffer.
    bool Write(const void* buffer, u32 count);

    [[nodiscard]] u64 Size() const noexcept { return m_Size; }
    [[nodiscard]] u64 Position() const noexcept { return m_Pos; }
    [[nodiscard]] const tvdata& Memory() const noexcept { return m_Data; }
    [[nodiscard]] const tvhandle& File() const noexcept { return m_File; }

private:
    tvdata m_Data;
    tvhandle m_File;
    u64 m_Size = 0;
    u64 m_Pos = 0;
};
