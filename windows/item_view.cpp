#include "windows/item_view.h"

#include <algorithm>

namespace {

// The elements to be looked up, in the order of their addresses.
class ElementSet {
public:
    explicit ElementSet(ElementArray elements) : m_Elements(std::move(elements)) {
        std::sort(m_Elements.begin(), m_Elements.end(), std::less<>());
    }
    [[nodiscard]] bool Has(const VMRD_Element* element) const {
        return std::binary_search(m_Elements.begin(), m_Elements.end(), element, std::less<>());
    }
    [[nodiscard]] bool IsEmpty() const { return m_Elements.empty(); }

private:
    ElementArray m_Elements;
};

// Gives the number of eligible elements, of which those that match get a row.
template <typename List>
std::size_t AppendMatching(const List& source, const ItemFilter& filter, std::vector<ViewRow>& rows) {
    std::size_t eligible = 0;
    for (auto* element = source.m_Head; element != nullptr; element = element->m_Next) {
        if (!IsRemovable(element)) continue;
        ++eligible;
        if (filter.Matches(element)) rows.push_back({element});
    }
    return eligible;
}

}  // namespace

void ItemView::SetOptions(u32 filterFlag, SearchPasswords passwords) noexcept {
    m_Mode = static_cast<u8>(filterFlag);
    m_Passwords = passwords;
}

bool ItemView::TakeView(const int* sort, const tvstring* text) {
    const bool sortChanges = sort != nullptr && *sort != m_Sort;
    const bool textChanges = text != nullptr && *text != m_FilterText;
    if (sortChanges) m_Sort = *sort;
    if (textChanges) m_FilterText = *text;
    return sortChanges || textChanges;
}

bool ItemView::SetView(const int* sort, const tvstring* text) {
    return TakeView(sort, text) && Refresh();
}

i32 ItemView::SourceCount() const {
    return std::visit([](const auto* list) { return list == nullptr ? 0 : list->m_Count; }, m_Source);
}

bool ItemView::Refresh() {
    const ElementSet selected(Selected());
    m_Rows.clear();
    if (SourceCount() < 1) {
        m_Order.Forget();
        return false;
    }
    const ItemFilter filter(m_FilterText, m_Mode, m_Passwords);
    const std::size_t eligible =
        std::visit([&](const auto* list) { return AppendMatching(*list, filter, m_Rows); }, m_Source);
    if ((m_Sort == SortAZ || m_Sort == SortZA) && m_Rows.size() > kStableRows) {
        SortByText(m_Rows.size() == eligible);
    } else {
        SortRows(m_Sort, m_Rows);
    }
    if (!selected.IsEmpty()) {
        for (ViewRow& row : m_Rows)
            row.selected = selected.Has(row.m_data);
    }
    return true;
}

// Sorts rows that stand as in the source; the order of all its elements is remembered for the next time.
void ItemView::SortByText(bool isWhole) {
    if (!m_Order.Sort(m_Rows)) {
        const std::vector<u32> order = isWhole ? OrderByText(m_Rows) : std::vector<u32>();
        if (order.empty()) {
            SortRows(m_Sort, m_Rows);
            return;
        }
        m_Order.Learn(m_Rows, order);
        PutInOrder(m_Rows, order);
    }
    if (m_Sort == SortZA) std::reverse(m_Rows.begin(), m_Rows.end());
}

void ItemView::Resort() {
    m_Sort = SortModeOf(m_Sort);
    SortRows(m_Sort, m_Rows);
}

void ItemView::AddRow(VMRD_Element* element) {
    m_Rows.push_back({element});
    SortRows(m_Sort, m_Rows);
    SelectOnly(element);
}

void ItemView::InsertRows(const ElementQueue& elements) {
    const auto place =
        std::find_if(m_Rows.begin(), m_Rows.end(), [](const ViewRow& row) { return row.selected; });
    std::vector<ViewRow> rows;
    rows.reserve(elements.size());
    for (VMRD_Element* element : elements)
        rows.push_back({element});
    m_Rows.insert(place, rows.begin(), rows.end());
}

void ItemView::RemoveRows(const ElementArray& elements) {
    const ElementSet gone(elements);
    std::erase_if(m_Rows, [&gone](const ViewRow& row) { return gone.Has(row.m_data); });
}

bool ItemView::HasNoMatch() const {
    return m_Rows.empty() && !m_FilterText.empty() && SourceCount() > 0;
}

void ItemView::SelectOnly(const VMRD_Element* element) noexcept {
    for (ViewRow& row : m_Rows)
        row.selected = row.m_data == element;
}

std::size_t ItemView::CountSelected() const noexcept {
    return static_cast<std::size_t>(
        std::count_if(m_Rows.begin(), m_Rows.end(), [](const ViewRow& row) { return row.selected; }));
}

ElementArray ItemView::Selected() const {
    ElementArray elements;
    for (const ViewRow& row : m_Rows) {
        if (row.selected) elements.push_back(row.m_data);
    }
    return elements;
}
