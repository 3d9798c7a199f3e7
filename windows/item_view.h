// The rows of a list as a model without a window: which elements of a source list are shown, in which order,
// and which of them are selected. A list box shows it.
//
// The source owns the elements. A row's pointer is its only link to the source: where a search or an order is
// in force, the place of a row says nothing of the place of its element. Nothing is kept of a former match:
// each change builds all rows anew.
#pragma once

#include <variant>
#include <vector>

#include "windows/known_order.h"
#include "windows/search.h"

class ItemView {
public:
    // --- Source and view ---

    // The list whose elements are shown: a database's items or an item's entries; null shows nothing. The
    // rows stay until the next Refresh and must not be used where they point at elements that are gone.
    void SetSource(const ItemList* items) { m_Source = items; }
    void SetSource(const EntryList* entries) { m_Source = entries; }

    // The options of the search, in force from the next Refresh on: the setting FilterFlag, of which the low
    // byte counts, and whether passwords take part.
    void SetOptions(u32 filterFlag, SearchPasswords passwords) noexcept;

    // Takes another order or another search text; null leaves it as it is, and so does an equal one. True if
    // one of them changed.
    bool TakeView(const int* sort, const tvstring* text);

    // The same; if one of them changed, refreshes and returns what Refresh does.
    bool SetView(const int* sort, const tvstring* text);

    // Takes the rows that a list box has, for one that keeps them itself.
    void SetRows(std::vector<ViewRow> rows) { m_Rows = std::move(rows); }

    // Builds the rows: every eligible element of the source (items, and entries of the additional type) that
    // matches, in order. Elements that had a selected row and still have one stay selected. False, with no
    // rows, if the source is null or empty.
    bool Refresh();

    // Orders the rows that are there, without a match; the selection stays with its elements.
    void Resort();

    // --- Changes of single rows, which the source has gone through already ---

    // Adds a row without a match, puts the rows in order and selects only the new one.
    void AddRow(VMRD_Element* element);

    // Inserts rows without match or order where the first selected row stands, or at the end where none is.
    void InsertRows(const ElementQueue& elements);

    // Takes out the rows of these elements; the others keep their order.
    void RemoveRows(const ElementArray& elements);

    // --- What is there ---

    [[nodiscard]] const std::vector<ViewRow>& Rows() const noexcept { return m_Rows; }
    [[nodiscard]] int Sort() const noexcept { return m_Sort; }
    [[nodiscard]] const tvstring& FilterText() const noexcept { return m_FilterText; }

    // Elements can be moved only where the rows stand in the order of the source: no order is chosen and the
    // search text is empty (one of blanks alone is not).
    [[nodiscard]] bool CanMove() const noexcept { return m_Sort == SortNone && m_FilterText.empty(); }

    // True if the list is empty because nothing in the source matches.
    [[nodiscard]] bool HasNoMatch() const;

    // --- Selection ---

    void Select(std::size_t row, bool selected) { m_Rows[row].selected = selected; }
    void SelectOnly(const VMRD_Element* element) noexcept;
    [[nodiscard]] std::size_t CountSelected() const noexcept;
    // The selected elements in the order of the rows.
    [[nodiscard]] ElementArray Selected() const;

private:
    [[nodiscard]] i32 SourceCount() const;
    void SortByText(bool isWhole);

    // --- Fields, in their order ---

    std::variant<const ItemList*, const EntryList*> m_Source;
    tvstring m_FilterText;  // as typed, never trimmed
    int m_Sort = SortNone;
    u8 m_Mode = FilterAll;
    SearchPasswords m_Passwords = SearchPasswords::No;
    std::vector<ViewRow> m_Rows;
    KnownOrder m_Order;
};
