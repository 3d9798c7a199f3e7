#include "platform/registry.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <optional>

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

// The parts of the store's folder are made with the first write.
std::string DefaultPath() {
    const char* config = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    std::string folder =
        config != nullptr && *config == '/' ? config : std::string(home == nullptr ? "" : home) + "/.config";
    ::mkdir(folder.c_str(), 0700);
    folder += "/vaultmere";
    ::mkdir(folder.c_str(), 0700);
    return folder + "/registry";
}

// The store's file, locked: shared for reading, exclusively for a change.
class Store {
public:
    explicit Store(KeyAccess access) {
        if (StorePath().empty()) StorePath() = DefaultPath();
        const bool write = access == KeyAccess::Write;
        m_File =
            ::open(StorePath().c_str(), write ? O_RDWR | O_CREAT | O_CLOEXEC : O_RDONLY | O_CLOEXEC, 0600);
        if (m_File >= 0 && ::flock(m_File, write ? LOCK_EX : LOCK_SH) == 0) m_Keys = ParseRegistry(ReadAll());
    }
    ~Store() {
        if (m_File >= 0) ::close(m_File);
    }
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    [[nodiscard]] bool IsOpen() const { return m_File >= 0; }
    RegistryKeys& Keys() { return m_Keys; }

    u32 Write() const {
        const std::string text = FormatRegistry(m_Keys);
        const bool good =
            ::pwrite(m_File, text.data(), text.size(), 0) == static_cast<::ssize_t>(text.size()) &&
            ::ftruncate(m_File, static_cast<::off_t>(text.size())) == 0;
        return good ? kErrorNone : CodeOfErrno(errno);
    }

private:
    [[nodiscard]] std::string ReadAll() const {
        std::string text;
        char buffer[4096];
        for (::ssize_t got = 0; (got = ::read(m_File, buffer, sizeof buffer)) > 0;) {
            text.append(buffer, static_cast<std::size_t>(got));
        }
        return text;
    }

    int m_File = -1;
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
    if (!store.IsOpen()) return CodeOfErrno(errno);
    const u32 status = change(store.Keys()[KeyOf(key)->path], name == nullptr ? u"" : name, value);
    return status == kErrorNone ? store.Write() : status;
}

}  // namespace

u32 OpenUserKey(const char16_t* subkey, KeyAccess access, NativeKey& key) {
    key = 0;
    if (FaultFires(FaultPoint::OpenKey)) return LastError();
    Store store(access);
    if (!store.IsOpen()) return CodeOfErrno(errno);
    if (access == KeyAccess::Write) {
        store.Keys()[subkey];
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
    const RegistryValues& values = store.Keys()[KeyOf(key)->path];
    const auto found = values.find(name == nullptr ? u"" : name);
    if (found == values.end()) return kErrorFileNotFound;
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
    Store store(KeyAccess::Write);
    if (!store.IsOpen()) return CodeOfErrno(errno);
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
