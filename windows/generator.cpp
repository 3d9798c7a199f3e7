#include "windows/generator.h"

#include <algorithm>

#include "database/container.h"
#include "foundation/product.h"
#include "foundation/registry.h"
#include "foundation/secret_bytes.h"

namespace {

constexpr const char16_t* kMinLen = u"PassGenMinLen";
constexpr const char16_t* kMaxLen = u"PassGenMaxLen";
constexpr const char16_t* kOptions = u"PassGenOptions";

// The class of each bit of the stored value.
constexpr std::array<PassGenClass, kPassGenClasses> kClassOfBit = {PASSGEN_UPPER, PASSGEN_LOWER,
                                                                   PASSGEN_DIGITS, PASSGEN_OTHER};

// A block with the byte behind it, which two of the reads below take in: the sum of the length always, and
// the choice of a character whose class came from the block's last byte.
class BlockReader {
public:
    explicit BlockReader(PassGenRandom& random) : m_Random(random) {
        m_Bytes.Data()[PassGenRandom::kBlockSize] = random.Neighbour();
    }

    // The sum of a new block's bytes and the one behind it.
    u32 SumOfNewBlock() {
        m_Random.FetchBlock(m_Bytes.Data());
        u32 sum = 0;
        for (std::size_t i = 0; i <= PassGenRandom::kBlockSize; ++i)
            sum += m_Bytes.Data()[i];
        return sum;
    }

    void DropBlock() { m_Place = PassGenRandom::kBlockSize; }

    // The next byte, from a new block where the present one is used up.
    u8 Next() {
        if (m_Place >= PassGenRandom::kBlockSize) {
            m_Random.FetchBlock(m_Bytes.Data());
            m_Place = 0;
        }
        return NextWithoutTest();
    }

    // The next byte, which is the one behind the block where that is used up.
    u8 NextWithoutTest() { return m_Bytes.Data()[m_Place++]; }

private:
    PassGenRandom& m_Random;
    SecretBytes<PassGenRandom::kBlockSize + 1> m_Bytes;
    std::size_t m_Place = PassGenRandom::kBlockSize;
};

std::size_t ChooseLength(const PassGenRequest& request, BlockReader& reader) {
    if (request.minLength == request.maxLength) return static_cast<std::size_t>(request.minLength);
    const auto range = static_cast<u32>(request.maxLength - request.minLength + 1);
    return static_cast<std::size_t>(request.minLength) + reader.SumOfNewBlock() % range;
}

// One try: false if a class that was asked for is missing.
bool Try(PassGenRequest request, BlockReader& reader, tvstring& password) {
    NormaliseLengths(request.minLength, request.maxLength);
    const std::size_t length = ChooseLength(request, reader);
    password.clear();
    password.reserve(length);
    reader.DropBlock();
    while (password.size() < length) {
        const std::size_t chosen = reader.Next() & 3U;
        if (request.use[chosen] == 0) continue;
        const std::u16string_view table = kPassGenTables[chosen];
        password += table[reader.NextWithoutTest() % table.size()];
        request.use[chosen] = 2;
    }
    return std::find(request.use.begin(), request.use.end(), 1) == request.use.end();
}

// The system's random bytes.
class SystemRandom : public PassGenRandom {
public:
    void FetchBlock(u8* out32) override { GenerateSalt(out32); }

    // Counted, too: without random bytes of the system all blocks of one second are alike.
    u8 Neighbour() override {
        static u8 calls = 0;
        SecretBytes<kBlockSize> bytes;
        GenerateSalt(bytes.Data());
        return static_cast<u8>(bytes.Data()[kBlockSize - 1] ^ ++calls);
    }
};

}  // namespace

u32 OptionBits(const PassGenRequest& request) {
    u32 bits = 0;
    for (std::size_t bit = 0; bit < kClassOfBit.size(); ++bit)
        bits |= (request.use[kClassOfBit[bit]] != 0 ? 1U : 0U) << bit;
    return bits;
}

void TakeOptionBits(PassGenRequest& request, u32 bits) {
    for (std::size_t bit = 0; bit < kClassOfBit.size(); ++bit)
        request.use[kClassOfBit[bit]] = static_cast<u8>(bits >> bit & 1U);
}

ChangedLengths NormaliseLengths(i32& minLength, i32& maxLength) {
    const i32 oldMin = minLength;
    const i32 oldMax = maxLength;
    minLength = std::clamp(minLength, kPassGenShortest, kPassGenLongest);
    maxLength = std::max(std::clamp(maxLength, kPassGenShortest, kPassGenLongest), minLength);
    return {minLength != oldMin, maxLength != oldMax};
}

tvstring GeneratePassword(const std::function<PassGenRequest()>& read, PassGenRandom& random) {
    BlockReader reader(random);
    tvstring password;
    while (!Try(read(), reader, password)) {
    }
    return password;
}

tvstring GeneratePassword(const std::function<PassGenRequest()>& read) {
    SystemRandom random;
    return GeneratePassword(read, random);
}

tvstring GeneratePassword(const PassGenRequest& request) {
    return GeneratePassword([&request] { return request; });
}

PassGenRequest LoadPassGenOptions() {
    const RegKey key(kSettingsKey, RegKey::For::Reading);
    PassGenRequest request;
    const auto read = [&key](const char16_t* name, i32& length) {
        u32 word = 0;
        if (RegReadWord(key.Get(), name, word)) length = static_cast<i32>(word);
    };
    read(kMinLen, request.minLength);
    read(kMaxLen, request.maxLength);
    NormaliseLengths(request.minLength, request.maxLength);
    u32 bits = OptionBits(request);
    RegReadWord(key.Get(), kOptions, bits);
    TakeOptionBits(request, bits);
    return request;
}

void StorePassGenOptions(PassGenRequest request) {
    const RegKey key(kSettingsKey, RegKey::For::Writing);
    if (!key) return;
    NormaliseLengths(request.minLength, request.maxLength);
    RegWriteWord(key.Get(), kMinLen, static_cast<u32>(request.minLength));
    RegWriteWord(key.Get(), kMaxLen, static_cast<u32>(request.maxLength));
    RegWriteWord(key.Get(), kOptions, OptionBits(request));
}
