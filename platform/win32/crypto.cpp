#include "platform/crypto.h"

#include "platform/fault.h"
#include "platform/windows_api.h"

// After windows.h, whose types it needs.
#include <bcrypt.h>

namespace platform {
namespace {

// A provider of the system, opened on first use and closed at the end of the process.
class Provider {
public:
    explicit Provider(const wchar_t* algorithm) noexcept {
        if (!BCRYPT_SUCCESS(BCryptOpenAlgorithmProvider(&m_Handle, algorithm, nullptr, 0)))
            m_Handle = nullptr;
    }
    ~Provider() {
        if (m_Handle != nullptr) BCryptCloseAlgorithmProvider(m_Handle, 0);
    }
    Provider(const Provider&) = delete;
    Provider& operator=(const Provider&) = delete;
    [[nodiscard]] BCRYPT_ALG_HANDLE Handle() const noexcept { return m_Handle; }

private:
    BCRYPT_ALG_HANDLE m_Handle = nullptr;
};

BCRYPT_ALG_HANDLE AesProvider() noexcept {
    static const Provider provider(L"AES");
    return provider.Handle();
}

BCRYPT_ALG_HANDLE RandomProvider() noexcept {
    static const Provider provider(L"RNG");
    return provider.Handle();
}

using CipherCall = decltype(&BCryptEncrypt);

bool Run(CipherCall call, AesKey key, const u8* data, std::size_t size, u8* out, std::size_t capacity,
         std::size_t& done) noexcept {
    ULONG result = 0;
    const NTSTATUS status =
        call(key, const_cast<PUCHAR>(data), static_cast<ULONG>(size), nullptr, nullptr, 0, out,
             out == nullptr ? 0 : static_cast<ULONG>(capacity), &result, BCRYPT_BLOCK_PADDING);
    done = result;
    return BCRYPT_SUCCESS(status);
}

}  // namespace

AesKey MakeAesKey(const u8* key32) noexcept {
    if (FaultFires(FaultPoint::CipherProvider) || AesProvider() == nullptr) return nullptr;
    ULONG bits = 256;
    wchar_t mode[] = L"ChainingModeCBC";
    // The results are not looked at: Wine refuses the first, and files prove the outcome.
    BCryptSetProperty(AesProvider(), L"KeyLength", reinterpret_cast<PUCHAR>(&bits), sizeof bits, 0);
    BCryptSetProperty(AesProvider(), L"ChainingMode", reinterpret_cast<PUCHAR>(mode),
                      sizeof mode - sizeof *mode, 0);
    BCRYPT_KEY_HANDLE key = nullptr;
    const NTSTATUS status =
        BCryptGenerateSymmetricKey(AesProvider(), &key, nullptr, 0, const_cast<PUCHAR>(key32), 32, 0);
    return BCRYPT_SUCCESS(status) ? key : nullptr;
}

void DestroyAesKey(AesKey key) noexcept {
    if (key != nullptr) BCryptDestroyKey(key);
}

bool AesEncrypt(AesKey key, const u8* data, std::size_t size, u8* out, std::size_t capacity,
                std::size_t& done) noexcept {
    if (FaultFires(FaultPoint::Encrypt)) return false;
    return Run(&BCryptEncrypt, key, data, size, out, capacity, done);
}

bool AesDecrypt(AesKey key, const u8* data, std::size_t size, u8* out, std::size_t capacity,
                std::size_t& done) noexcept {
    if (FaultFires(FaultPoint::Decrypt)) return false;
    return Run(&BCryptDecrypt, key, data, size, out, capacity, done);
}

bool RandomBytes(u8* out, std::size_t size) noexcept {
    if (FaultFires(FaultPoint::RandomBytes)) return false;
    return BCRYPT_SUCCESS(BCryptGenRandom(RandomProvider(), out, static_cast<ULONG>(size), 0));
}

}  // namespace platform
