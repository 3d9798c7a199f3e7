// The thread's last error: one number for each cause, the same on every system. On Windows it is the
// system's own last error; elsewhere errno is mapped to those numbers where a call fails.
#pragma once

#include <string>

#include "platform/types.h"

namespace platform {

inline constexpr u32 kErrorNone = 0;
inline constexpr u32 kErrorFileNotFound = 2;
inline constexpr u32 kErrorPathNotFound = 3;
inline constexpr u32 kErrorTooManyOpenFiles = 4;
inline constexpr u32 kErrorAccessDenied = 5;
inline constexpr u32 kErrorInvalidHandle = 6;
inline constexpr u32 kErrorNotEnoughMemory = 8;
inline constexpr u32 kErrorInvalidData = 13;
inline constexpr u32 kErrorWriteProtect = 19;
inline constexpr u32 kErrorSharingViolation = 32;
inline constexpr u32 kErrorNotSupported = 50;
inline constexpr u32 kErrorInvalidParameter = 87;
inline constexpr u32 kErrorBrokenPipe = 109;
inline constexpr u32 kErrorDiskFull = 112;
inline constexpr u32 kErrorInvalidName = 123;
inline constexpr u32 kErrorAlreadyExists = 183;
inline constexpr u32 kErrorNameTooLong = 206;
inline constexpr u32 kErrorFileTooLarge = 223;
inline constexpr u32 kErrorIoDevice = 1117;

// Reads and sets the calling thread's last error. Operations that succeed leave it as it was unless
// they say otherwise.
u32 LastError() noexcept;
void SetLastError(u32 code) noexcept;

// What the system says about a code, as UTF-8 without a line end; "error N" if it says nothing.
std::string ErrorText(u32 code);

}  // namespace platform
