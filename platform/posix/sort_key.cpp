#include "platform/posix/sort_key.h"

#include <unicode/uset.h>

#include <algorithm>
#include <cstring>

namespace platform {
namespace {

// The bytes between weights of different first bytes where the former one may have stood for more: below and
// above any first byte.
constexpr u8 kLower = 0x03;
constexpr u8 kHigher = 0xFF;
constexpr char kLevelEnd = 0x01;

constexpr bool IsDigit(char16_t unit) noexcept {
    return unit >= u'0' && unit <= u'9';
}

// True if some plain text of several units has a place of its own in the order of the language.
bool HasPlainContractions(const UCollator* collator) {
    UErrorCode status = U_ZERO_ERROR;
    USet* contractions = uset_openEmpty();
    ucol_getContractionsAndExpansions(collator, contractions, nullptr, 1, &status);
    bool found = U_FAILURE(status) != 0;
    for (std::int32_t item = 0; item < uset_getItemCount(contractions) && !found; ++item) {
        UChar32 first = 0;
        UChar32 last = 0;
        char16_t units[64];
        const std::int32_t length = uset_getItem(contractions, item, &first, &last, units, 64, &status);
        // 0 is for a range of characters, the rest for a text of several.
        if (length >= 2)
            found = std::all_of(units, units + std::min(length, 64), [](char16_t u) { return u < 0x80; });
        status = U_ZERO_ERROR;
    }
    uset_close(contractions);
    return found;
}

}  // namespace

// Puts weights one behind the other.
class PlainSortKeys::Writer {
public:
    Writer(u8* out, std::size_t capacity, const std::array<bool, 256>& compressible) noexcept
        : m_Out(out), m_Capacity(capacity), m_Compressible(compressible) {}

    void Put(const Weight& weight) noexcept {
        const u8 first = weight.bytes[0];
        if (first != m_Before) {
            if (m_Before != 0) Byte(first < m_Before ? kLower : kHigher);
            Byte(first);
            m_Before = m_Compressible[first] ? first : u8{0};
        }
        for (std::size_t i = 1; i < weight.size; ++i)
            Byte(weight.bytes[i]);
    }

    std::size_t Finish(const std::string& tail) noexcept {
        for (const char byte : tail)
            Byte(static_cast<u8>(byte));
        return m_Size;
    }

private:
    void Byte(u8 byte) noexcept {
        if (m_Size < m_Capacity) m_Out[m_Size] = byte;
        ++m_Size;
    }

    u8* m_Out;
    std::size_t m_Capacity;
    const std::array<bool, 256>& m_Compressible;
    std::size_t m_Size = 0;
    u8 m_Before = 0;  // the first byte written last, where it may stand for more
};

PlainSortKeys::PlainSortKeys(const UCollator* collator) : m_Collator(collator) {
    if (HasPlainContractions(collator) || !LearnSecondaries()) return;
    LearnUnits();
    LearnNumbers();
    LearnCompression();
}

std::string PlainSortKeys::KeyOf(const std::u16string& text) const {
    u8 key[4096];
    const std::int32_t size =
        ucol_getSortKey(m_Collator, text.data(), static_cast<std::int32_t>(text.size()), key, sizeof key);
    return size <= 0 || static_cast<std::size_t>(size) > sizeof key
               ? std::string()
               : std::string(reinterpret_cast<const char*>(key), static_cast<std::size_t>(size));
}

bool PlainSortKeys::LearnSecondaries() {
    std::vector<std::string> tails;
    for (std::size_t count = 0; count <= kMostElements; ++count) {
        const std::string key = KeyOf(std::u16string(count, u'a'));
        const std::size_t end = key.find(kLevelEnd);
        if (end == std::string::npos) return false;
        tails.push_back(key.substr(end));
    }
    m_Tails = std::move(tails);
    return true;
}

PlainSortKeys::Weight PlainSortKeys::WeightOf(const std::u16string& text) const {
    const std::string key = KeyOf(text);
    const std::size_t size = key.find(kLevelEnd);
    Weight weight;
    if (size > weight.bytes.size()) return weight;  // none at all, too
    weight.known = key.substr(size) == m_Tails[size == 0 ? 0 : 1];
    weight.size = static_cast<u8>(size);
    std::memcpy(weight.bytes.data(), key.data(), size);
    return weight;
}

void PlainSortKeys::LearnUnits() {
    for (char16_t unit = 1; unit < kUnits; ++unit) {
        if (!IsDigit(unit)) m_Units[unit] = WeightOf(std::u16string(1, unit));
    }
}

void PlainSortKeys::LearnNumbers() {
    for (std::size_t number = 0; number < kNumbers; ++number) {
        std::u16string digits;
        for (const char digit : std::to_string(number))
            digits += static_cast<char16_t>(digit);
        m_Numbers.push_back(WeightOf(digits));
    }
}

// A letter twice, or a number twice with a unit without an element between the two.
void PlainSortKeys::LearnCompression() {
    const auto learn = [this](const Weight& weight, const std::u16string& twice) {
        if (!weight.known || weight.size < 2) return;
        const std::string bytes(reinterpret_cast<const char*>(weight.bytes.data()), weight.size);
        m_Compressible[weight.bytes[0]] = KeyOf(twice) == bytes + bytes.substr(1) + m_Tails[2];
    };
    for (char16_t unit = 1; unit < kUnits; ++unit)
        learn(m_Units[unit], std::u16string(2, unit));
    learn(m_Numbers[1],
          u"1\x7F"
          u"1");
}

// The weight of what stands next, or null if it is not known.
const PlainSortKeys::Weight* PlainSortKeys::Next(const char16_t*& text) const noexcept {
    const Weight* weight = nullptr;
    if (*text >= kUnits) return nullptr;
    if (!IsDigit(*text)) {
        weight = &m_Units[*text++];
    } else {
        std::size_t number = 0;
        for (; IsDigit(*text); ++text) {
            number = number * 10 + static_cast<std::size_t>(*text - u'0');
            if (number >= kNumbers) return nullptr;
        }
        weight = &m_Numbers[number];
    }
    return weight->known ? weight : nullptr;
}

std::size_t PlainSortKeys::Key(const char16_t* text, u8* out, std::size_t capacity) const noexcept {
    if (m_Numbers.empty()) return 0;
    Writer writer(out, capacity, m_Compressible);
    std::size_t elements = 0;
    while (*text != 0) {
        const Weight* weight = Next(text);
        if (weight == nullptr) return 0;
        if (weight->size == 0) continue;
        if (++elements > kMostElements) return 0;
        writer.Put(*weight);
    }
    return writer.Finish(m_Tails[elements]);
}

}  // namespace platform
