#include "windows/text_finder.h"

#include <algorithm>
#include <cstring>

#include "platform/text.h"
#include "platform/types.h"

namespace {

// As many units as a vector register of every processor of the kind holds.
constexpr std::size_t kLanes = 8;
using Lanes = u16 __attribute__((vector_size(kLanes * sizeof(u16))));
using Mask = decltype(Lanes() == Lanes());

constexpr u16 kCaseBit = u'a' - u'A';
constexpr u16 kPlainUnits = 0x7F;  // how many units are plain: 1 to 0x7F

Lanes LoadLanes(const char16_t* units) noexcept {
    Lanes lanes;
    std::memcpy(&lanes, units, sizeof lanes);
    return lanes;
}

bool Any(const Mask& mask) noexcept {
    u64 words[sizeof(Mask) / sizeof(u64)];
    std::memcpy(words, &mask, sizeof mask);
    return (words[0] | words[1]) != 0;
}

char16_t Lower(char16_t unit) noexcept {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit | kCaseBit) : unit;
}

bool IsLetter(char16_t unit) noexcept {
    return Lower(unit) >= u'a' && Lower(unit) <= u'z';
}

// Nothing above 0x7F, and no zero unit, at which the system's search would end.
bool IsPlain(std::u16string_view text) noexcept {
    const char16_t* units = text.data();
    Mask odd = {};
    std::size_t place = 0;
    for (; place + kLanes <= text.size(); place += kLanes)
        odd |= LoadLanes(units + place) - u16{1} >= kPlainUnits;
    bool plain = !Any(odd);
    for (; place < text.size(); ++place)
        plain &= static_cast<u16>(units[place] - 1) < kPlainUnits;
    return plain;
}

bool EqualLower(const char16_t* units, std::u16string_view lower) noexcept {
    for (const char16_t wanted : lower) {
        if (wanted != Lower(*units++)) return false;
    }
    return true;
}

}  // namespace

TextFinder::TextFinder(tvstring word) : m_Word(std::move(word)) {
    if (!IsPlain(m_Word)) return;
    m_Lower = m_Word;
    for (char16_t& unit : m_Lower)
        unit = Lower(unit);
}

bool TextFinder::IsIn(const tvstring& text) const noexcept {
    if (m_Lower.empty() || !IsPlain(text)) {
        return platform::FindNoCase(text.c_str(), m_Word.c_str()) != platform::kNotFound;
    }
    return text.size() >= m_Lower.size() && IsInPlain(text);
}

// Looks at the first and the last unit of the word at eight places of the text at a time.
bool TextFinder::IsInPlain(std::u16string_view text) const noexcept {
    const char16_t* units = text.data();
    const std::size_t places = text.size() - m_Lower.size() + 1;
    std::size_t place = 0;
    if (places >= kLanes) {
        const u16 first = m_Lower.front();
        const u16 last = m_Lower.back();
        const u16 firstCase = IsLetter(first) ? kCaseBit : u16{0};
        const u16 lastCase = IsLetter(last) ? kCaseBit : u16{0};
        const char16_t* lastUnits = units + m_Lower.size() - 1;
        while (place < places) {
            place = std::min(place, places - kLanes);  // the last step may look at some places again
            const Mask found = ((LoadLanes(units + place) | firstCase) == first) &
                               ((LoadLanes(lastUnits + place) | lastCase) == last);
            if (Any(found)) {
                for (std::size_t lane = 0; lane < kLanes; ++lane) {
                    if (found[lane] != 0 && EqualLower(units + place + lane, m_Lower)) return true;
                }
            }
            place += kLanes;
        }
        return false;
    }
    for (; place < places; ++place) {
        if (EqualLower(units + place, m_Lower)) return true;
    }
    return false;
}
