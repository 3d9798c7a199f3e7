#include "database/container.h"

#include <cstring>
#include <limits>
#include <random>

#include "database/hash_sha3.h"
#include "platform/clock.h"
#include "platform/crypto.h"
#include "platform/error.h"

namespace {

constexpr u32 kProbeSize = 12;
constexpr u64 kFileSizeLimit = 0x8000'0000;

class KeyObject {
public:
    explicit KeyObject(const u8* key32) noexcept : m_Key(platform::MakeAesKey(key32)) {}
    ~KeyObject() { platform::DestroyAesKey(m_Key); }
    KeyObject(const KeyObject&) = delete;
    KeyObject& operator=(const KeyObject&) = delete;
    [[nodiscard]] platform::AesKey Get() const noexcept { return m_Key; }

private:
    platform::AesKey m_Key;
};

using CipherCall = decltype(&platform::AesEncrypt);

tvdata RunCipher(CipherCall call, const u8* data, std::size_t size, const u8* key32) {
    constexpr std::size_t kLimit = std::numeric_limits<u32>::max();
    tvdata result;
    if (data == nullptr || size == 0 || size > kLimit || key32 == nullptr) return result;
    const KeyObject key(key32);
    std::size_t needed = 0;
    if (key.Get() == nullptr || !call(key.Get(), data, size, nullptr, 0, needed) || needed == 0)
        return result;
    if (needed > kLimit || !result.Resize(static_cast<u32>(needed))) return result;
    std::size_t done = 0;
    if (call(key.Get(), data, size, result.Data(), needed, done)) {
        result.Shrink(static_cast<u32>(done));
    } else {
        result.Reset();
    }
    return result;
}

// Closes the handle; the last error stays, or is "no database" if nothing has set one.
i32 RefuseFile(tvhandle& handle, i32 result) {
    const u32 error = platform::LastError();
    handle.Close();
    platform::SetLastError(error == platform::kErrorNone ? platform::kErrorInvalidData : error);
    return result;
}

bool ReadProbe(const tvhandle& handle, u8* probe) {
    u32 done = 0;
    return platform::ReadNativeFile(handle.Get(), probe, kProbeSize, done) && done == kProbeSize &&
           platform::SeekNativeFile(handle.Get(), 0);
}

i32 ProbeFile(tvhandle& handle) {
    u64 size = 0;
    if (!platform::NativeFileSize(handle.Get(), size) || size < kProbeSize || size >= kFileSizeLimit) {
        return RefuseFile(handle, kCannotOpen);
    }
    u8 probe[kProbeSize] = {};
    if (!ReadProbe(handle, probe)) {
        handle.Close();
        return kCannotOpen;
    }
    if (std::memcmp(probe, kMagic, sizeof kMagic) == 0) return static_cast<i32>(size);
    if (std::memcmp(probe, kOldMagic, sizeof kOldMagic) != 0) return RefuseFile(handle, kNotDatabase);
    handle.Close();
    return kOldDatabase;
}

}  // namespace

void HashPassword(const tvstring& text, u8* out32) {
    HashSHA3 hash;
    hash.Init();
    hash.UpdateText(text);
    hash.Final(out32);
}

void DeriveKey(const u8* pwdHash32, const u8* salt32, u8* out32) {
    HashSHA3 hash;
    hash.Init();
    hash.Update(pwdHash32, kKeySize);
    hash.Update(salt32, kSaltSize);
    hash.Final(out32);
}

void GenerateSalt(u8* out32) {
    if (platform::RandomBytes(out32, kSaltSize)) return;
    static std::mt19937 generator;
    generator.seed(static_cast<u32>(platform::UnixSeconds()));
    for (std::size_t i = 0; i < kSaltSize; i += sizeof(u32)) {
        const auto word = static_cast<u32>(generator());
        std::memcpy(out32 + i, &word, sizeof word);
    }
}

tvdata Encrypt(const u8* data, std::size_t size, const u8* key32) {
    return RunCipher(&platform::AesEncrypt, data, size, key32);
}

tvdata Decrypt(const u8* data, std::size_t size, const u8* key32) {
    return RunCipher(&platform::AesDecrypt, data, size, key32);
}

tvdata EncryptContainer(tvbuffer<u8>& stream, const u8* key32) {
    const u32 capacity = stream.Capacity();
    const std::size_t size = stream.Size();
    tvdata container;
    container.Adopt(stream.Detach(), capacity);
    const KeyObject key(key32);
    std::size_t needed = 0;
    std::size_t done = 0;
    if (size > kHeaderSize && key.Get() != nullptr) {
        u8* const plain = container.Data() + kHeaderSize;
        const std::size_t plainSize = size - kHeaderSize;
        if (platform::AesEncrypt(key.Get(), plain, plainSize, nullptr, 0, needed) && needed != 0 &&
            platform::AesEncrypt(key.Get(), plain, plainSize, plain, capacity - kHeaderSize, done)) {
            container.Shrink(static_cast<u32>(kHeaderSize + done));
            container.HoldsNoSecret();
            return container;
        }
    }
    return {};
}

i32 OpenDatabaseFile(tvhandle& handle, const tvstring& path, bool forWrite) {
    handle.Close();
    if (path.empty()) {
        platform::SetLastError(platform::kErrorFileNotFound);
        return kCannotOpen;
    }
    platform::SetLastError(platform::kErrorNone);
    const auto access = forWrite ? platform::FileAccess::CreateNew : platform::FileAccess::Read;
    handle.Assign(platform::OpenNativeFile(path.c_str(), access, platform::FileSharing::None));
    if (!handle) return kCannotOpen;
    return forWrite ? 1 : ProbeFile(handle);
}

tvdata ReadWholeFile(const tvhandle& handle, i32 size) {
    tvdata data;
    if (size < 1 || !handle || !data.Resize(static_cast<u32>(size))) return data;
    u32 done = 0;
    if (!platform::ReadNativeFile(handle.Get(), data.Data(), data.Size(), done) || done != data.Size()) {
        data.Reset();
    }
    return data;
}
