#include "platform/registry.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "platform/fault.h"
#include "platform/posix/errno_map.h"
#include "platform/posix/path_bytes.h"
#include "platform/posix/registry_file.h"
#include "platform/text.h"

namespace platform {
namespace {

struct OpenedKey {
    std::u16string path;
    KeyAccess access;
};

std::string& StorePath() {
    static std::string path;
    return path;
}

// Empty if the user has no place for it.
std::string DefaultPath() {
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config != nullptr && *config == '/') return std::string(config) + "/vaultmere/registry";
    const char* home = std::getenv("HOME");
    return home == nullptr || *home == 0 ? "" : std::string(home) + "/.config/vaultmere/registry";
}

void MakeFoldersOf(const std::string& path) {
    for (std::size_t end = path.find('/', 1); end != path.npos; end = path.find('/', end + 1)) {
        ::mkdir(path.substr(0, end).c_str(), 0700);
    }
}

// The store's file, locked: shared for reading, exclusively for a change. The file and its folders are made
// with the first change.
class Store {
public:
    explicit Store(KeyAccess access) {
        if (!Open(access == KeyAccess::Write)) m_Status = CodeOfErrno(errno);
    }
    ~Store() {
        if (m_File >= 0) ::close(m_File);
    }
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    // Of opening and reading it. The file must not be written if that failed.
    [[nodiscard]] u32 Status() const { return m_Status; }
    RegistryKeys& Keys() { return m_Keys; }

    u32 Write() const {
        const std::string text = FormatRegistry(m_Keys);
        const ::ssize_t written = ::pwrite(m_File, text.data(), text.size(), 0);
        if (written < 0) return CodeOfErrno(errno);
        if (static_cast<std::size_t>(written) < text.size()) return kErrorDiskFull;
        return ::ftruncate(m_File, static_cast<::off_t>(text.size())) == 0 ? kErrorNone : CodeOfErrno(errno);
    }

private:
    bool Open(bool write) {
        const std::string path = StorePath().empty() ? DefaultPath() : StorePath();
        const int flags = write ? O_RDWR | O_CREAT | O_CLOEXEC : O_RDONLY | O_CLOEXEC;
        m_File = ::open(path.c_str(), flags, 0600);
        if (m_File < 0 && write && errno == ENOENT) {
            MakeFoldersOf(path);
            m_File = ::open(path.c_str(), flags, 0600);
        }
        return m_File >= 0 && Lock(write ? LOCK_EX : LOCK_SH) && ReadAll();
    }

    [[nodiscard]] bool Lock(int kind) const {
        int result = 0;
        do {
            result = ::flock(m_File, kind);
        } while (result != 0 && errno == EINTR);
        return result == 0;
    }

    bool ReadAll() {
        std::string text;
        char buffer[4096];
        ::ssize_t got = 0;
        while ((got = ::read(m_File, buffer, sizeof buffer)) > 0) {
            text.append(buffer, static_cast<std::size_t>(got));
        }
        if (got == 0) m_Keys = ParseRegistry(text);
        return got == 0;
    }

    int m_File = -1;
    u32 m_Status = kErrorNone;
    RegistryKeys m_Keys;
};

OpenedKey* KeyOf(NativeKey key) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): an opaque value on its way through the core
    return reinterpret_cast<OpenedKey*>(key);
}

u32 CopyOut(const RegistryValue& value, u8* data, u32& size) {
    const u32 room = size;
    size = static_cast<u32>(value.bytes.size());
    if (data == nullptr) return kErrorNone;
    if (room < size) return kErrorMoreData;
    if (size != 0) std::memcpy(data, value.bytes.data(), size);
    return kErrorNone;
}

// A key that is open for a change, and the store with it.
u32 Change(NativeKey key, u32 (*change)(RegistryValues&, const char16_t*, RegistryValue&),
           const char16_t* name, RegistryValue value) {
    if (key == 0) return kErrorInvalidHandle;
    if (KeyOf(key)->access != KeyAccess::Write) return kErrorAccessDenied;
    Store store(KeyAccess::Write);
    if (store.Status() != kErrorNone) return store.Status();
    const auto found = store.Keys().find(KeyOf(key)->path);
    if (found == store.Keys().end()) return kErrorKeyDeleted;
    const u32 status = change(found->second, name == nullptr ? u"" : name, value);
    return status == kErrorNone ? store.Write() : status;
}

void AddWithParents(RegistryKeys& keys, const std::u16string& path) {
    for (std::size_t end = path.find(u'\\'); end != path.npos; end = path.find(u'\\', end + 1)) {
        keys[path.substr(0, end)];
    }
    keys[path];
}

}  // namespace

u32 OpenUserKey(const char16_t* subkey, KeyAccess access, NativeKey& key) {
    key = 0;
    if (FaultFires(FaultPoint::OpenKey)) return LastError();
    Store store(access);
    if (store.Status() != kErrorNone) return store.Status();
    if (access == KeyAccess::Write) {
        AddWithParents(store.Keys(), subkey);
        if (const u32 status = store.Write(); status != kErrorNone) return status;
    } else if (!store.Keys().contains(subkey)) {
        return kErrorFileNotFound;
    }
    key = reinterpret_cast<NativeKey>(new OpenedKey{subkey, access});
    return kErrorNone;
}

void CloseKey(NativeKey key) {
    delete KeyOf(key);
}

u32 QueryValue(NativeKey key, const char16_t* name, u32* type, u8* data, u32& size) {
    if (key == 0) return kErrorInvalidHandle;
    if (KeyOf(key)->access != KeyAccess::Read) return kErrorAccessDenied;
    Store store(KeyAccess::Read);
    if (store.Status() != kErrorNone) return store.Status();
    const auto values = store.Keys().find(KeyOf(key)->path);
    if (values == store.Keys().end()) return kErrorKeyDeleted;
    const auto found = values->second.find(name == nullptr ? u"" : name);
    if (found == values->second.end()) return kErrorFileNotFound;
    if (type != nullptr) *type = found->second.type;
    return CopyOut(found->second, data, size);
}

u32 WriteValue(NativeKey key, const char16_t* name, u32 type, const u8* data, u32 size) {
    if (FaultFires(FaultPoint::WriteValue)) return LastError();
    const auto set = [](RegistryValues& values, const char16_t* valueName, RegistryValue& value) -> u32 {
        values[valueName] = std::move(value);
        return kErrorNone;
    };
    return Change(key, set, name, {type, size == 0 ? std::vector<u8>() : std::vector<u8>(data, data + size)});
}

u32 DeleteValue(NativeKey key, const char16_t* name) {
    const auto erase = [](RegistryValues& values, const char16_t* valueName, RegistryValue&) -> u32 {
        return values.erase(valueName) == 0 ? kErrorFileNotFound : kErrorNone;
    };
    return Change(key, erase, name, {});
}

u32 DeleteUserTree(const char16_t* subkey) {
    if (*subkey == 0) return kErrorInvalidParameter;
    if (Store(KeyAccess::Read).Status() == kErrorFileNotFound) return kErrorFileNotFound;
    Store store(KeyAccess::Write);
    if (store.Status() != kErrorNone) return store.Status();
    const std::u16string path = subkey;
    const auto below = [&path](const auto& key) {
        const std::u16string& name = key.first;
        return name.size() >= path.size() &&
               CompareOrdinalNoCase(name.data(), path.size(), path.data(), path.size()) == 0 &&
               (name.size() == path.size() || name[path.size()] == u'\\');
    };
    return std::erase_if(store.Keys(), below) == 0 ? kErrorFileNotFound : store.Write();
}

void UseRegistryFile(const std::u16string& path) {
    StorePath() = PathBytes(path);
}

}  // namespace platform
