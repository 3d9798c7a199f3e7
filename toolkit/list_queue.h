// The rows of a list box: a ring of pointers that grows by powers of two, each row an object of its own. What
// is put in or taken out moves whichever side is shorter.
#pragma once

#include <memory>
#include <vector>

#include "foundation/tvstring.h"
#include "platform/types.h"

struct tvMListItem {
    u32 m_icon = 0;  // what DrawItemIcon is to draw
    tvstring m_text;
    tvstring m_note;
    int m_height = 0;          // pixels
    std::intptr_t m_data = 0;  // the user's own
};

class tvMListQueue {
public:
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(m_count); }

    // Null for an index out of range.
    [[nodiscard]] tvMListItem* At(int index) const noexcept;

    // In front of the row that is there; at the end for the count.
    void Insert(int index, std::unique_ptr<tvMListItem> item);
    void Remove(int index);
    void Clear();

    // How many rows there is room for.
    [[nodiscard]] std::size_t Capacity() const noexcept { return m_ring.size(); }

private:
    std::unique_ptr<tvMListItem>& Slot(std::size_t index) {
        return m_ring[(m_offset + index) & (m_ring.size() - 1)];
    }
    void Grow();

    std::vector<std::unique_ptr<tvMListItem>> m_ring;
    std::size_t m_offset = 0;
    std::size_t m_count = 0;
};
