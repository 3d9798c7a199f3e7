#include "windows/sort.h"

#include <algorithm>
#include <cstring>

#include "foundation/tvbuffer.h"
#include "platform/text.h"

namespace {

int CompareTexts(const ViewRow& a, const ViewRow& b) {
    return platform::CompareForUser(ElementText(a.m_data).c_str(), ElementText(b.m_data).c_str());
}

void InsertionSort(int mode, std::vector<ViewRow>& rows) {
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const ViewRow row = rows[i];
        std::size_t place = i;
        for (; place > 0 && CompareRows(mode, row, rows[place - 1]); --place)
            rows[place] = rows[place - 1];
        rows[place] = row;
    }
}

// A row's sort key: its first eight bytes as a number of the same order, and which row it is of.
struct KeyHead {
    u64 head;
    u32 row;
};

// The sort keys of all rows, one behind the other. They tell of the names, and are wiped.
class SortKeys {
public:
    // False if the system gives no key for a row, or there is no memory.
    bool Fill(const std::vector<ViewRow>& rows) {
        m_Ends.reserve(rows.size() + 1);
        m_Ends.push_back(0);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const tvstring& text = ElementText(rows[i].m_data);
            std::size_t size = Put(text, 2 * text.size() + kUsualExtra);
            if (size > Room()) size = Put(text, size);
            if (size == 0 || size > Room()) return false;
            m_Ends.push_back(m_Ends.back() + size);
        }
        return true;
    }

    [[nodiscard]] u64 HeadOf(std::size_t row) const {
        const std::string_view key = KeyOf(row);
        u64 head = 0;
        for (std::size_t i = 0; i < sizeof head; ++i)
            head = head << 8 | (i < key.size() ? static_cast<u8>(key[i]) : u8{0});
        return head;
    }

    [[nodiscard]] bool IsLess(const KeyHead& a, const KeyHead& b) const {
        return a.head != b.head ? a.head < b.head : KeyOf(a.row) < KeyOf(b.row);
    }

private:
    static constexpr std::size_t kUsualExtra = 32;
    static constexpr std::size_t kLargest = 0x7FFF'FFFF;

    [[nodiscard]] std::size_t Room() const { return m_Bytes.Size() - m_Ends.back(); }

    // Bytes compare as they stand in char_traits<char>: as unsigned ones.
    [[nodiscard]] std::string_view KeyOf(std::size_t row) const {
        return {reinterpret_cast<const char*>(m_Bytes.Data()) + m_Ends[row], m_Ends[row + 1] - m_Ends[row]};
    }

    // The size of the text's key, which stands behind the others if there is room; makes that much room
    // first.
    std::size_t Put(const tvstring& text, std::size_t room) {
        if (room > Room()) {
            const std::size_t more = std::max<std::size_t>(room, m_Bytes.Size());
            if (more > kLargest || m_Bytes.Extend(static_cast<u32>(more)) == nullptr) return 0;
        }
        return platform::SortKeyForUser(text.c_str(), m_Bytes.Data() + m_Ends.back(), Room());
    }

    tvbuffer<u8> m_Bytes{1U << 16};
    std::vector<std::size_t> m_Ends;  // where each key ends, behind a zero
};

void SortByDates(std::vector<ViewRow>& rows) {
    std::vector<std::pair<u64, ViewRow>> dated;
    dated.reserve(rows.size());
    for (const ViewRow& row : rows)
        dated.emplace_back(ElementDate(row.m_data), row);
    std::sort(dated.begin(), dated.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::transform(dated.begin(), dated.end(), rows.begin(), [](const auto& pair) { return pair.second; });
}

}  // namespace

bool CompareRows(int mode, const ViewRow& a, const ViewRow& b) {
    switch (mode) {
        case SortAZ:
            return CompareTexts(a, b) < 0;
        case SortZA:
            return CompareTexts(a, b) > 0;
        case SortNewOld:
            return ElementDate(a.m_data) > ElementDate(b.m_data);
        case SortOldNew:
            return ElementDate(a.m_data) < ElementDate(b.m_data);
        default:
            return false;
    }
}

// Sort keys cost as much as a few comparisons each.
std::vector<u32> OrderByText(const std::vector<ViewRow>& rows) {
    SortKeys keys;
    if (!keys.Fill(rows)) return {};
    std::vector<KeyHead> heads;
    heads.reserve(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
        heads.push_back({keys.HeadOf(i), static_cast<u32>(i)});
    std::sort(heads.begin(), heads.end(),
              [&keys](const KeyHead& a, const KeyHead& b) { return keys.IsLess(a, b); });
    std::vector<u32> order(rows.size());
    std::transform(heads.begin(), heads.end(), order.begin(), [](const KeyHead& head) { return head.row; });
    return order;
}

void PutInOrder(std::vector<ViewRow>& rows, const std::vector<u32>& order) {
    const std::vector<ViewRow> unsorted = rows;
    std::transform(order.begin(), order.end(), rows.begin(),
                   [&unsorted](u32 place) { return unsorted[place]; });
}

void SortRows(int mode, std::vector<ViewRow>& rows) {
    if (SortModeOf(mode) == SortNone) return;
    if (rows.size() <= kStableRows) {
        InsertionSort(mode, rows);
    } else if (mode == SortNewOld || mode == SortOldNew) {
        SortByDates(rows);
        if (mode == SortNewOld) std::reverse(rows.begin(), rows.end());
    } else if (const std::vector<u32> order = OrderByText(rows); !order.empty()) {
        PutInOrder(rows, order);
        if (mode == SortZA) std::reverse(rows.begin(), rows.end());
    } else {
        const auto isLess = [mode](const ViewRow& a, const ViewRow& b) { return CompareRows(mode, a, b); };
        std::stable_sort(rows.begin(), rows.end(), isLess);
    }
}
