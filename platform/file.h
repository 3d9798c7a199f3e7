// Files and folders. Paths are zero-terminated UTF-16 in the system's own syntax. On Linux a path is the
// UTF-8 of that text, and a byte that is not UTF-8 travels as a lone unit U+DC80 to U+DCFF, so that every
// name the system has can be opened.
//
// A failing operation leaves its cause in the thread's last error.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/types.h"

namespace platform {

#ifdef _WIN32
inline constexpr char16_t kPathSeparator = u'\\';
#else
inline constexpr char16_t kPathSeparator = u'/';
#endif

// True for a unit that parts the components of a path: the separator and, on Windows, the slash too.
constexpr bool IsPathSeparator(char16_t unit) noexcept {
    // NOLINTNEXTLINE(misc-redundant-expression): the two are one unit on Linux only
    return unit == kPathSeparator || unit == u'/';
}

// An open file as the system knows it. Null and the system's invalid handle both mean "none".
using NativeFile = void*;

inline bool IsOpen(NativeFile file) noexcept {
    return file != nullptr && reinterpret_cast<std::intptr_t>(file) != -1;
}

enum class FileAccess {
    Read,       // an existing file
    CreateNew,  // for writing; made, or emptied if it exists, once the system has granted the opening (on
                // Linux an existing file is emptied with the first write, or when it is closed)
};

enum class FileSharing {
    None,       // fails with kErrorSharingViolation while anyone else, in any process, has the file open
    ReadWrite,  // fails only while someone has the file open with FileSharing::None
};

// Opens a file, or gives a value for which IsOpen is false. Where it fails the file is as it was.
// A file made on Linux is readable and writable by its owner alone.
NativeFile OpenNativeFile(const char16_t* path, FileAccess access, FileSharing sharing) noexcept;
void CloseNativeFile(NativeFile file) noexcept;

// Reads up to `count` bytes at the file pointer; `done` says how many came. Fewer than asked for means
// the end of the file. False if the system reports a failure.
bool ReadNativeFile(NativeFile file, void* buffer, u32 count, u32& done) noexcept;

// Writes `count` bytes; `done` says how many the system took. False if it reports a failure.
bool WriteNativeFile(NativeFile file, const void* buffer, u32 count, u32& done) noexcept;

bool NativeFileSize(NativeFile file, u64& size) noexcept;
bool SeekNativeFile(NativeFile file, u64 position) noexcept;

// The time of the last write in 100-nanosecond ticks since the start of 1601, UTC.
bool NativeFileWriteTime(NativeFile file, u64& time) noexcept;

bool PathExists(const char16_t* path) noexcept;
bool PathIsFolder(const char16_t* path) noexcept;

// Makes one folder whose parent exists. kErrorAlreadyExists if something of that name is there.
bool MakeFolder(const char16_t* path) noexcept;

// Takes away what keeps an existing file from being replaced: read-only and hidden on Windows, a missing
// owner's right to write on Linux. A file that does not exist is a failure like any other.
bool ClearFileAttributes(const char16_t* path) noexcept;

// The names (without the folder) of what matches `*.extension` in a folder, in the order the system
// gives; nothing if the folder cannot be read. Letter case of the extension is ignored. Folders are
// among them, "." and ".." may be.
std::optional<std::vector<std::u16string>> ListNames(const char16_t* folder, const char16_t* extension);

// The path with each %NAME% of the environment put in; a name that is not set stays. Nothing on failure.
std::optional<std::u16string> ExpandEnvironment(const char16_t* path);

// The path of a known folder by its identifier in the form "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";
// nothing if the text is no identifier or the system has no such folder (always so on Linux).
std::optional<std::u16string> KnownFolder(const char16_t* identifier);

// The full path of the running program's file; empty if the system does not tell it within 259 units.
std::u16string ProgramFile();

}  // namespace platform
