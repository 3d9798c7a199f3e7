#include "windows/known_order.h"

#include <algorithm>
#include <cstring>

#include "platform/memory.h"

namespace {

// Tells whether a text is still the same: not meant to withstand anybody.
u64 HashOf(std::u16string_view text) {
    constexpr std::size_t kStep = sizeof(u64) / sizeof(char16_t);
    constexpr u64 kFactor = 0x9E37'79B9'7F4A'7C15;  // 2^64 divided by the golden ratio
    u64 hash = text.size();
    while (!text.empty()) {
        const std::size_t count = std::min(kStep, text.size());
        u64 word = 0;
        std::memcpy(&word, text.data(), count * sizeof(char16_t));
        hash = (hash ^ word) * kFactor;
        hash ^= hash >> 32;
        text.remove_prefix(count);
    }
    return hash;
}

}  // namespace

void KnownOrder::Forget() {
    platform::WipeMemory(m_Known.data(), m_Known.size() * sizeof(Known));
    m_Known.clear();
}

void KnownOrder::Learn(const std::vector<ViewRow>& rows, const std::vector<u32>& order) {
    Forget();
    m_Known.resize(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
        m_Known[i] = {rows[i].m_data, HashOf(ElementText(rows[i].m_data)), 0};
    for (std::size_t rank = 0; rank < order.size(); ++rank)
        m_Known[order[rank]].rank = static_cast<u32>(rank);
}

// Each rank is taken by one row at most, so the rows need not be compared with each other.
bool KnownOrder::Sort(std::vector<ViewRow>& rows) const {
    std::vector<const ViewRow*> byRank(m_Known.size());
    std::size_t place = 0;
    for (const ViewRow& row : rows) {
        while (place < m_Known.size() && m_Known[place].element != row.m_data)
            ++place;
        if (place == m_Known.size() || m_Known[place].textHash != HashOf(ElementText(row.m_data)))
            return false;
        byRank[m_Known[place].rank] = &row;
        ++place;
    }
    std::vector<ViewRow> sorted;
    sorted.reserve(rows.size());
    for (const ViewRow* row : byRank) {
        if (row != nullptr) sorted.push_back(*row);
    }
    rows = std::move(sorted);
    return true;
}
