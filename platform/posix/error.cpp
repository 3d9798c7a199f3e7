#include "platform/error.h"

#include <cerrno>
#include <cstring>

#include "platform/posix/errno_map.h"

namespace platform {
namespace {

struct Mapping {
    int number;
    u32 code;
    const char* text;
};

// The first row with a number or a code is the one that counts.
constexpr Mapping kMappings[] = {
    {ENOENT, kErrorFileNotFound, "no such file or folder"},
    {ENOTDIR, kErrorPathNotFound, "a part of the path is not a folder"},
    {EMFILE, kErrorTooManyOpenFiles, "too many open files"},
    {ENFILE, kErrorTooManyOpenFiles, nullptr},
    {EACCES, kErrorAccessDenied, "access denied"},
    {EPERM, kErrorAccessDenied, nullptr},
    {EISDIR, kErrorAccessDenied, nullptr},
    {EBADF, kErrorInvalidHandle, "invalid handle"},
    {ENOMEM, kErrorNotEnoughMemory, "not enough memory"},
    {0, kErrorInvalidData, "the file is not in the expected form"},
    {EROFS, kErrorWriteProtect, "the medium is write-protected"},
    {EWOULDBLOCK, kErrorSharingViolation, "the file is in use by another process"},
    {ETXTBSY, kErrorSharingViolation, nullptr},
    {EPIPE, kErrorBrokenPipe, "the other end of the pipe is closed"},
    {ENOSPC, kErrorDiskFull, "the disk is full"},
    {EDQUOT, kErrorDiskFull, nullptr},
    {EILSEQ, kErrorInvalidName, "the name is not valid"},
    {ELOOP, kErrorInvalidName, nullptr},
    {EINVAL, kErrorInvalidParameter, "invalid parameter"},
    {EEXIST, kErrorAlreadyExists, "a file of that name exists"},
    {ENAMETOOLONG, kErrorNameTooLong, "the name is too long"},
    {EFBIG, kErrorFileTooLarge, "the file would be too large"},
    {EIO, kErrorIoDevice, "input/output error"},
    {ENXIO, kErrorNotSupported, "not supported"},
};

thread_local constinit u32 t_LastError = 0;

}  // namespace

u32 LastError() noexcept {
    return t_LastError;
}

void SetLastError(u32 code) noexcept {
    t_LastError = code;
}

std::string ErrorText(u32 code) {
    for (const Mapping& mapping : kMappings) {
        if (mapping.code == code && mapping.text != nullptr) return mapping.text;
    }
    return "error " + std::to_string(code);
}

u32 CodeOfErrno(int number) noexcept {
    for (const Mapping& mapping : kMappings) {
        if (mapping.number == number) return mapping.code;
    }
    return kErrorIoDevice;
}

void TakeErrno() noexcept {
    SetLastError(CodeOfErrno(errno));
}

}  // namespace platform
