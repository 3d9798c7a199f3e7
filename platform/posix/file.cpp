#include "platform/file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <memory>
#include <new>
#include <utility>

#include "platform/error.h"
#include "platform/fault.h"
#include "platform/posix/errno_map.h"
#include "platform/posix/path_bytes.h"

namespace platform {
namespace {

constexpr u64 kTicksFrom1601To1970 = 116'444'736'000'000'000;
constexpr ::mode_t kOwnerOnly = 0600;

// A file that is made anew keeps its old content until its first write, or until it is closed, so that a
// program that dies in between has lost nothing, and blocks that the file has already are used again.
struct OpenedFile {
    int descriptor;
    bool emptyLater;
};

int DescriptorOf(NativeFile file) noexcept {
    return IsOpen(file) ? static_cast<OpenedFile*>(file)->descriptor : -1;
}

// Cuts off what is left of the old content behind the file pointer.
void CutOldContent(NativeFile file) noexcept {
    auto& opened = *static_cast<OpenedFile*>(file);
    if (!std::exchange(opened.emptyLater, false)) return;
    const int error = errno;
    if (::ftruncate(opened.descriptor, ::lseek(opened.descriptor, 0, SEEK_CUR)) != 0) TakeErrno();
    errno = error;
}

bool Fail() noexcept {
    TakeErrno();
    return false;
}

NativeFile FailOpening(int descriptor) noexcept {
    TakeErrno();
    if (descriptor >= 0) ::close(descriptor);
    return nullptr;
}

// The lock stands for the sharing that Windows has built in: an exclusive lock for no sharing, a shared one
// for read and write sharing. It belongs to this opening, so a second one in the same process is refused too.
// A file system without such locks (some network ones) must not keep the user from the file.
bool LockFor(int descriptor, FileSharing sharing) noexcept {
    const int kind = sharing == FileSharing::None ? LOCK_EX : LOCK_SH;
    return ::flock(descriptor, kind | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool WriteAll(NativeFile file, const u8* bytes, u32 count, u32& done) noexcept {
    while (done < count) {
        const ::ssize_t put = ::write(DescriptorOf(file), bytes + done, count - done);
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) return Fail();
        done += static_cast<u32>(put);
    }
    return true;
}

}  // namespace

NativeFile OpenNativeFile(const char16_t* path, FileAccess access, FileSharing sharing) noexcept {
    if (FaultFires(FaultPoint::OpenFile)) return nullptr;
    // Without O_NONBLOCK the opening of a pipe would wait for its other end. Reading and writing wait.
    const int flags = access == FileAccess::Read ? O_RDONLY : O_WRONLY | O_CREAT;
    const int descriptor =
        ::open(PathBytes(path).c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, kOwnerOnly);
    if (descriptor < 0) return FailOpening(descriptor);
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) return FailOpening(descriptor);
    if (S_ISDIR(status.st_mode)) {
        errno = EISDIR;
        return FailOpening(descriptor);
    }
    if (!LockFor(descriptor, sharing)) return FailOpening(descriptor);
    if (::fcntl(descriptor, F_SETFL, 0) != 0) return FailOpening(descriptor);
    // Devices and pipes have nothing to empty.
    const bool emptyLater = access == FileAccess::CreateNew && S_ISREG(status.st_mode);
    auto* const opened = new (std::nothrow) OpenedFile{descriptor, emptyLater};
    if (opened == nullptr) {
        errno = ENOMEM;
        return FailOpening(descriptor);
    }
    return opened;
}

void CloseNativeFile(NativeFile file) noexcept {
    if (!IsOpen(file)) return;
    const std::unique_ptr<OpenedFile> opened(static_cast<OpenedFile*>(file));
    CutOldContent(file);
    ::close(opened->descriptor);
}

bool ReadNativeFile(NativeFile file, void* buffer, u32 count, u32& done) noexcept {
    done = 0;
    if (FaultFires(FaultPoint::ReadFile)) return false;
    if (count > 0 && FaultFires(FaultPoint::ShortRead)) --count;
    while (done < count) {
        const ::ssize_t got = ::read(DescriptorOf(file), static_cast<u8*>(buffer) + done, count - done);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return Fail();
        if (got == 0) break;
        done += static_cast<u32>(got);
    }
    return true;
}

bool WriteNativeFile(NativeFile file, const void* buffer, u32 count, u32& done) noexcept {
    done = 0;
    const bool failing = FaultFires(FaultPoint::WriteFile);
    const u32 orderedError = LastError();
    if (failing) count /= 2;
    if (count > 0 && FaultFires(FaultPoint::ShortWrite)) --count;
    const bool good = WriteAll(file, static_cast<const u8*>(buffer), count, done);
    if (IsOpen(file)) CutOldContent(file);
    if (failing) SetLastError(orderedError);
    return good && !failing;
}

bool NativeFileSize(NativeFile file, u64& size) noexcept {
    struct stat status {};
    if (FaultFires(FaultPoint::FileSize)) return false;
    if (::fstat(DescriptorOf(file), &status) != 0) return Fail();
    const bool isEmpty = !S_ISREG(status.st_mode) || static_cast<OpenedFile*>(file)->emptyLater;
    size = isEmpty ? 0 : static_cast<u64>(status.st_size);
    return true;
}

bool SeekNativeFile(NativeFile file, u64 position) noexcept {
    if (FaultFires(FaultPoint::SeekFile)) return false;
    return ::lseek(DescriptorOf(file), static_cast<::off_t>(position), SEEK_SET) >= 0 || Fail();
}

bool NativeFileWriteTime(NativeFile file, u64& time) noexcept {
    struct stat status {};
    if (FaultFires(FaultPoint::WriteTime)) return false;
    if (::fstat(DescriptorOf(file), &status) != 0) return Fail();
    const std::timespec& written = status.st_mtim;
    time = kTicksFrom1601To1970 + static_cast<u64>(written.tv_sec) * 10'000'000 +
           static_cast<u64>(written.tv_nsec) / 100;
    return true;
}

}  // namespace platform
