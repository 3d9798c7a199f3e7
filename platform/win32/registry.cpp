#include "platform/registry.h"

#include "platform/fault.h"
#include "platform/windows_api.h"

namespace platform {
namespace {

HKEY KeyOf(NativeKey key) noexcept {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): an opaque value on its way through the core
    return reinterpret_cast<HKEY>(key);
}

u32 StatusOf(LSTATUS status) noexcept {
    return static_cast<u32>(status);
}

static_assert(kErrorMoreData == ERROR_MORE_DATA && kErrorKeyDeleted == ERROR_KEY_DELETED);

}  // namespace

u32 OpenUserKey(const char16_t* subkey, KeyAccess access, NativeKey& key) {
    key = 0;
    if (FaultFires(FaultPoint::OpenKey)) return LastError();
    HKEY opened = nullptr;
    const LSTATUS status = access == KeyAccess::Write
                               ? RegCreateKeyExW(HKEY_CURRENT_USER, Wide(subkey), 0, nullptr, 0, KEY_WRITE,
                                                 nullptr, &opened, nullptr)
                               : RegOpenKeyExW(HKEY_CURRENT_USER, Wide(subkey), 0, KEY_READ, &opened);
    if (status == ERROR_SUCCESS) key = reinterpret_cast<NativeKey>(opened);
    return StatusOf(status);
}

void CloseKey(NativeKey key) {
    if (key != 0) RegCloseKey(KeyOf(key));
}

u32 QueryValue(NativeKey key, const char16_t* name, u32* type, u8* data, u32& size) {
    DWORD valueType = 0;
    DWORD valueSize = size;
    const LSTATUS status = RegQueryValueExW(KeyOf(key), Wide(name), nullptr, &valueType, data, &valueSize);
    if (type != nullptr) *type = valueType;
    size = valueSize;
    return StatusOf(status);
}

u32 WriteValue(NativeKey key, const char16_t* name, u32 type, const u8* data, u32 size) {
    if (FaultFires(FaultPoint::WriteValue)) return LastError();
    return StatusOf(RegSetValueExW(KeyOf(key), Wide(name), 0, type, data, size));
}

u32 DeleteValue(NativeKey key, const char16_t* name) {
    return StatusOf(RegDeleteValueW(KeyOf(key), Wide(name)));
}

u32 DeleteUserTree(const char16_t* subkey) {
    if (*subkey == 0) return kErrorInvalidParameter;
    return StatusOf(RegDeleteTreeW(HKEY_CURRENT_USER, Wide(subkey)));
}

void UseRegistryFile(const std::u16string&) {}

}  // namespace platform
