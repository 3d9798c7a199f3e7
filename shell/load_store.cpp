#include "shell/load_store.h"

#include <cstring>

#include "foundation/product.h"

namespace {

RegKey SettingsKey(LoadStore direction) {
    return {kSettingsKey, direction == LoadStore::Load ? RegKey::For::Reading : RegKey::For::Writing};
}

}  // namespace

bool LoadStoreBool(LoadStore direction, const char16_t* name, u8& byte) {
    u32 word = byte;
    const bool done = LoadStoreInt(direction, name, word);
    if (done) byte = static_cast<u8>(word);
    return done;
}

bool LoadStoreInt(LoadStore direction, const char16_t* name, u32& word) {
    const RegKey key = SettingsKey(direction);
    return direction == LoadStore::Load ? RegReadWord(key.Get(), name, word)
                                        : RegWriteWord(key.Get(), name, word);
}

bool LoadStoreBytes(LoadStore direction, const char16_t* name, void* bytes, u32 size) {
    const RegKey key = SettingsKey(direction);
    if (direction == LoadStore::Store) return RegWriteValue(key.Get(), name, bytes, size, kRegBinary);
    const tvdata data = RegReadValue(key.Get(), name, nullptr);
    if (data.Size() != size) return false;
    std::memcpy(bytes, data.Data(), size);
    return true;
}

bool LoadStoreText(LoadStore direction, const char16_t* name, tvstring& text) {
    const RegKey key = SettingsKey(direction);
    return direction == LoadStore::Load ? RegReadText(key.Get(), name, text)
                                        : RegWriteText(key.Get(), name, text);
}
