// Sort keys of plain ASCII texts, put together from pieces that were learned from the collator. They are byte
// for byte what the collator itself gives, which takes several times as long.
//
// A key of this collator's strength has the primary weights of the text, a byte 01, the secondary weights and
// a zero. Units of plain texts have one collation element each, or none, with the common secondary weight; a
// run of digits has one as a whole. Where two primary weights in succession have the same first byte, it may
// be that it is written only once, as CollationKeys in ICU does it.
#pragma once

#include <unicode/ucol.h>

#include <array>
#include <string>
#include <vector>

#include "platform/types.h"

namespace platform {

class PlainSortKeys {
public:
    explicit PlainSortKeys(const UCollator* collator);

    // The size of the key, which is written if `capacity` is enough; 0 if the text is not plain, too long, or
    // one that only the collator itself knows the key of. Its length is found by the zero behind it.
    std::size_t Key(const char16_t* text, u8* out, std::size_t capacity) const noexcept;

private:
    static constexpr std::size_t kUnits = 0x80;
    static constexpr std::size_t kNumbers = 1000;  // runs of up to three digits
    static constexpr std::size_t kMostElements = 256;

    struct Weight {
        u8 size = 0;  // 0 for a unit without an element
        bool known = false;
        std::array<u8, 4> bytes{};
    };

    class Writer;

    bool LearnSecondaries();
    void LearnUnits();
    void LearnNumbers();
    void LearnCompression();
    [[nodiscard]] std::string KeyOf(const std::u16string& text) const;
    [[nodiscard]] Weight WeightOf(const std::u16string& text) const;
    [[nodiscard]] const Weight* Next(const char16_t*& text) const noexcept;

    const UCollator* m_Collator;
    std::array<Weight, kUnits> m_Units;
    std::vector<Weight> m_Numbers;
    std::array<bool, 256> m_Compressible{};
    std::vector<std::string> m_Tails;  // what follows the primary weights, by the number of elements
};

}  // namespace platform
