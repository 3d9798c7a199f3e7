#include "toolkit/list_queue.h"

#include <algorithm>

tvMListItem* tvMListQueue::At(int index) const noexcept {
    if (index < 0 || index >= Count()) return nullptr;
    return m_ring[(m_offset + static_cast<std::size_t>(index)) & (m_ring.size() - 1)].get();
}

void tvMListQueue::Grow() {
    constexpr std::size_t kLeast = 8;
    std::vector<std::unique_ptr<tvMListItem>> larger(std::max(kLeast, 2 * m_ring.size()));
    for (std::size_t i = 0; i < m_count; ++i)
        larger[i] = std::move(Slot(i));
    m_ring = std::move(larger);
    m_offset = 0;
}

void tvMListQueue::Insert(int index, std::unique_ptr<tvMListItem> item) {
    if (m_count == m_ring.size()) Grow();
    const auto at = static_cast<std::size_t>(index);
    if (at < m_count / 2) {
        m_offset = (m_offset - 1) & (m_ring.size() - 1);
        for (std::size_t i = 0; i < at; ++i)
            Slot(i) = std::move(Slot(i + 1));
    } else {
        for (std::size_t i = m_count; i > at; --i)
            Slot(i) = std::move(Slot(i - 1));
    }
    Slot(at) = std::move(item);
    ++m_count;
}

void tvMListQueue::Remove(int index) {
    const auto at = static_cast<std::size_t>(index);
    if (at < m_count / 2) {
        for (std::size_t i = at; i > 0; --i)
            Slot(i) = std::move(Slot(i - 1));
        Slot(0).reset();
        m_offset = (m_offset + 1) & (m_ring.size() - 1);
    } else {
        for (std::size_t i = at; i + 1 < m_count; ++i)
            Slot(i) = std::move(Slot(i + 1));
        Slot(m_count - 1).reset();
    }
    --m_count;
}

void tvMListQueue::Clear() {
    m_ring.clear();
    m_offset = 0;
    m_count = 0;
}
