#include "platform/file.h"

#include <memory>

#include "platform/error.h"
#include "platform/fault.h"
#include "platform/windows_api.h"

// After windows.h, whose types they need.
#include <combaseapi.h>
#include <shlobj.h>
#include <shlwapi.h>

namespace platform {
namespace {

constexpr DWORD kLongestProgramPath = 260;

struct CloseSearch {
    using pointer = HANDLE;
    void operator()(HANDLE search) const noexcept {
        if (search != INVALID_HANDLE_VALUE) FindClose(search);
    }
};

struct FreeTaskMemory {
    void operator()(wchar_t* text) const noexcept { CoTaskMemFree(text); }
};

u64 NumberOf(const FILETIME& time) noexcept {
    return static_cast<u64>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

bool WriteBytes(NativeFile file, const void* buffer, u32 count, u32& done) noexcept {
    DWORD put = 0;
    const bool good = WriteFile(file, buffer, count, &put, nullptr) != FALSE;
    done = put;
    return good;
}

}  // namespace

NativeFile OpenNativeFile(const char16_t* path, FileAccess access, FileSharing sharing) noexcept {
    if (FaultFires(FaultPoint::OpenFile)) return nullptr;
    const bool forWrite = access == FileAccess::CreateNew;
    return CreateFileW(Wide(path), forWrite ? FILE_GENERIC_WRITE : FILE_GENERIC_READ,
                       sharing == FileSharing::None ? 0 : FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                       forWrite ? CREATE_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

void CloseNativeFile(NativeFile file) noexcept {
    if (IsOpen(file)) CloseHandle(file);
}

bool ReadNativeFile(NativeFile file, void* buffer, u32 count, u32& done) noexcept {
    done = 0;
    if (FaultFires(FaultPoint::ReadFile)) return false;
    if (count > 0 && FaultFires(FaultPoint::ShortRead)) --count;
    DWORD got = 0;
    const bool good = ReadFile(file, buffer, count, &got, nullptr) != FALSE;
    done = got;
    return good;
}

bool WriteNativeFile(NativeFile file, const void* buffer, u32 count, u32& done) noexcept {
    if (FaultFires(FaultPoint::WriteFile)) {
        const u32 orderedError = LastError();
        WriteBytes(file, buffer, count / 2, done);
        SetLastError(orderedError);
        return false;
    }
    if (count > 0 && FaultFires(FaultPoint::ShortWrite)) --count;
    return WriteBytes(file, buffer, count, done);
}

bool NativeFileSize(NativeFile file, u64& size) noexcept {
    if (FaultFires(FaultPoint::FileSize)) return false;
    LARGE_INTEGER value{};
    if (!GetFileSizeEx(file, &value)) return false;
    size = static_cast<u64>(value.QuadPart);
    return true;
}

bool SeekNativeFile(NativeFile file, u64 position) noexcept {
    if (FaultFires(FaultPoint::SeekFile)) return false;
    LARGE_INTEGER distance{};
    distance.QuadPart = static_cast<LONGLONG>(position);
    return SetFilePointerEx(file, distance, nullptr, FILE_BEGIN) != FALSE;
}

bool NativeFileWriteTime(NativeFile file, u64& time) noexcept {
    if (FaultFires(FaultPoint::WriteTime)) return false;
    FILETIME written{};
    if (!GetFileTime(file, nullptr, nullptr, &written)) return false;
    time = NumberOf(written);
    return true;
}

bool PathExists(const char16_t* path) noexcept {
    return PathFileExistsW(Wide(path)) != FALSE;
}

bool PathIsFolder(const char16_t* path) noexcept {
    return PathIsDirectoryW(Wide(path)) != FALSE;
}

bool MakeFolder(const char16_t* path) noexcept {
    if (FaultFires(FaultPoint::MakeFolder)) return false;
    return CreateDirectoryW(Wide(path), nullptr) != FALSE;
}

bool ClearFileAttributes(const char16_t* path) noexcept {
    return SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_NORMAL) != FALSE;
}

std::optional<std::vector<std::u16string>> ListNames(const char16_t* folder, const char16_t* extension) {
    const std::u16string pattern = std::u16string(folder) + u"\\*." + extension;
    WIN32_FIND_DATAW data{};
    const std::unique_ptr<HANDLE, CloseSearch> search(FindFirstFileW(Wide(pattern.c_str()), &data));
    if (search.get() == INVALID_HANDLE_VALUE) return std::nullopt;
    std::vector<std::u16string> names;
    do {
        names.emplace_back(Units(data.cFileName));
    } while (FindNextFileW(search.get(), &data) != FALSE);
    return names;
}

std::optional<std::u16string> ExpandEnvironment(const char16_t* path) {
    const DWORD size = ExpandEnvironmentStringsW(Wide(path), nullptr, 0);
    if (size == 0) return std::nullopt;
    std::u16string out(size, u'\0');
    const DWORD written = ExpandEnvironmentStringsW(Wide(path), Wide(out.data()), size);
    if (written == 0 || written > size) return std::nullopt;
    out.resize(written - 1);
    return out;
}

std::optional<std::u16string> KnownFolder(const char16_t* identifier) {
    using GetPath = HRESULT(WINAPI*)(REFKNOWNFOLDERID, DWORD, HANDLE, PWSTR*);
    // The result is remembered, also when the function is missing.
    static const auto getPath = [] {
        const HMODULE shell = LoadLibraryW(L"Shell32.dll");
        return shell == nullptr ? nullptr
                                : reinterpret_cast<GetPath>(
                                      reinterpret_cast<void*>(GetProcAddress(shell, "SHGetKnownFolderPath")));
    }();
    constexpr DWORD kDontVerify = 0x4000;
    CLSID id{};
    wchar_t* found = nullptr;
    if (getPath == nullptr || CLSIDFromString(Wide(identifier), &id) != NOERROR) return std::nullopt;
    const HRESULT result = getPath(id, kDontVerify, nullptr, &found);
    const std::unique_ptr<wchar_t, FreeTaskMemory> path(found);
    if (FAILED(result) || path == nullptr) return std::nullopt;
    return std::u16string(Units(path.get()));
}

std::u16string ProgramFile() {
    wchar_t path[kLongestProgramPath] = {};
    const DWORD length = GetModuleFileNameW(nullptr, path, kLongestProgramPath);
    if (length == 0 || length >= kLongestProgramPath) return {};
    return Units(path);
}

}  // namespace platform
