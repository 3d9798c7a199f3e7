#include "platform/crypto.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <climits>
#include <memory>

#include "platform/fault.h"
#include "platform/memory.h"

namespace platform {
namespace {

constexpr std::size_t kKeySize = 32;
constexpr std::size_t kBlockSize = 16;
constexpr u8 kZeroVector[kBlockSize] = {};

struct FreeContext {
    void operator()(EVP_CIPHER_CTX* context) const noexcept { EVP_CIPHER_CTX_free(context); }
};
using Context = std::unique_ptr<EVP_CIPHER_CTX, FreeContext>;

struct KeyObject {
    u8 bytes[kKeySize];
};

// To be called before anything else of the library. Without the system's configuration file: what that loads
// or switches off must not decide whether a database opens.
void StartLibrary() noexcept {
    OPENSSL_init_crypto(OPENSSL_INIT_NO_LOAD_CONFIG, nullptr);
}

enum class Direction { Decrypt = 0, Encrypt = 1 };

bool RunLibrary(const KeyObject& key, Direction direction, const u8* data, std::size_t size, u8* out,
                std::size_t& done) noexcept {
    const Context context(EVP_CIPHER_CTX_new());
    if (context == nullptr || size > INT_MAX - kBlockSize) return false;
    int body = 0;
    int tail = 0;
    if (EVP_CipherInit_ex(context.get(), EVP_aes_256_cbc(), nullptr, key.bytes, kZeroVector,
                          static_cast<int>(direction)) != 1 ||
        EVP_CipherUpdate(context.get(), out, &body, data, static_cast<int>(size)) != 1 ||
        EVP_CipherFinal_ex(context.get(), out + body, &tail) != 1) {
        return false;
    }
    done = static_cast<std::size_t>(body) + static_cast<std::size_t>(tail);
    return true;
}

bool Run(const KeyObject& key, Direction direction, const u8* data, std::size_t size, u8* out,
         std::size_t& done) noexcept {
    const bool good = RunLibrary(key, direction, data, size, out, done);
    WipeStack();
    return good;
}

}  // namespace

AesKey MakeAesKey(const u8* key32) noexcept {
    if (FaultFires(FaultPoint::CipherProvider)) return nullptr;
    StartLibrary();
    auto* key = static_cast<KeyObject*>(OPENSSL_malloc(sizeof(KeyObject)));
    if (key != nullptr) std::copy(key32, key32 + kKeySize, key->bytes);
    return key;
}

void DestroyAesKey(AesKey key) noexcept {
    OPENSSL_clear_free(key, sizeof(KeyObject));
}

bool AesEncrypt(AesKey key, const u8* data, std::size_t size, u8* out, std::size_t capacity,
                std::size_t& done) noexcept {
    if (FaultFires(FaultPoint::Encrypt)) return false;
    const std::size_t needed = (size / kBlockSize + 1) * kBlockSize;
    done = needed;
    if (out == nullptr) return true;
    return capacity >= needed &&
           Run(*static_cast<KeyObject*>(key), Direction::Encrypt, data, size, out, done);
}

bool AesDecrypt(AesKey key, const u8* data, std::size_t size, u8* out, std::size_t capacity,
                std::size_t& done) noexcept {
    if (FaultFires(FaultPoint::Decrypt) || size % kBlockSize != 0) return false;
    done = size;
    if (out == nullptr) return true;
    return capacity >= size && Run(*static_cast<KeyObject*>(key), Direction::Decrypt, data, size, out, done);
}

bool RandomBytes(u8* out, std::size_t size) noexcept {
    if (FaultFires(FaultPoint::RandomBytes)) return false;
    StartLibrary();
    return size <= INT_MAX && RAND_bytes(out, static_cast<int>(size)) == 1;
}

}  // namespace platform
