#include "foundation/registry.h"

#include <cstring>

namespace {

// True if the status is a success; otherwise it goes into the last error.
bool Succeeded(u32 status) {
    if (status != platform::kErrorNone) platform::SetLastError(status);
    return status == platform::kErrorNone;
}

}  // namespace

platform::NativeKey RegOpenUserKey(const char16_t* subkey, bool create) {
    platform::SetLastError(platform::kErrorNone);
    if (subkey == nullptr || *subkey == 0) return 0;
    const auto access = create ? platform::KeyAccess::Write : platform::KeyAccess::Read;
    platform::NativeKey key = 0;
    return Succeeded(platform::OpenUserKey(subkey, access, key)) ? key : 0;
}

tvdata RegReadValue(platform::NativeKey key, const char16_t* name, u32* type) {
    platform::SetLastError(platform::kErrorNone);
    if (type != nullptr) *type = 0;
    tvdata data;
    if (key == 0) return data;
    u32 valueType = 0;
    u32 size = 0;
    if (!Succeeded(platform::QueryValue(key, name, &valueType, nullptr, size))) return data;
    if (size != 0) {
        if (!data.Resize(size)) {
            platform::SetLastError(platform::kErrorNotEnoughMemory);
            return data;
        }
        if (!Succeeded(platform::QueryValue(key, name, &valueType, data.Data(), size))) return {};
        data.Shrink(size);
    }
    if (type != nullptr) *type = valueType;
    return data;
}

tvdata RegReadUserValue(const char16_t* subkey, const char16_t* name, u32* type) {
    if (type != nullptr) *type = 0;
    const RegKey key(subkey, RegKey::For::Reading);
    return key ? RegReadValue(key.Get(), name, type) : tvdata();
}

bool RegWriteValue(platform::NativeKey key, const char16_t* name, const void* data, u32 size, u32 type) {
    platform::SetLastError(platform::kErrorNone);
    if (key == 0 || (data == nullptr && size != 0)) return false;
    return Succeeded(platform::WriteValue(key, name, type, static_cast<const u8*>(data), size));
}

bool RegReadWord(platform::NativeKey key, const char16_t* name, u32& word) {
    const tvdata data = RegReadValue(key, name, nullptr);
    if (data.Size() != sizeof word) return false;
    std::memcpy(&word, data.Data(), sizeof word);
    return true;
}

bool RegWriteWord(platform::NativeKey key, const char16_t* name, u32 word) {
    return RegWriteValue(key, name, &word, sizeof word, kRegWord);
}

bool RegReadText(platform::NativeKey key, const char16_t* name, tvstring& text) {
    u32 type = 0;
    const tvdata data = RegReadValue(key, name, &type);
    if (type != kRegString) return false;
    text.clear();
    if (!data.Empty()) text.assign_bytes(data.Data(), data.Size() / sizeof(char16_t));
    text.resize(text.view().substr(0, text.find(u'\0')).size());
    return true;
}

bool RegWriteText(platform::NativeKey key, const char16_t* name, const tvstring& text) {
    const auto size = static_cast<u32>((text.size() + 1) * sizeof(char16_t));
    return RegWriteValue(key, name, text.c_str(), size, kRegString);
}
