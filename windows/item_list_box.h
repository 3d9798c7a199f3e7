// CVMRListBox, the list of a database's items or of an item's additional entries, with the commands on them.
//
// A row holds no text: its m_data points to its element (VMRD_Element*), which the source owns and whose text
// is read whenever the row is painted. An element with another text needs a repaint and nothing else. Rows
// must be gone before their elements are: set m_Source to null and Refresh.
//
// The operations on elements change the model, the rows and the selection together, and tell the main window.
// Where the model did less than it was asked to the rows are made anew. While m_Source is null they do
// nothing.
#pragma once

#include <concepts>
#include <vector>

#include "database/database.h"
#include "toolkit/list_box.h"
#include "windows/item_list_model.h"
#include "windows/item_view.h"

// What a list shows.
enum ListKind : u8 { LIST_ITEMS = 0, LIST_ENTRIES = 1 };

template <typename TOwner, typename TElement>
class CVMRListBox : public tvMListBox {
public:
    static constexpr bool kIsItems = std::same_as<TOwner, VMRD_DB>;

    CVMRListBox() = default;

    // --- Virtual operations, in slot order ---

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassed() override;
    ~CVMRListBox() override;

    // One line, whatever the text.
    int CalcItemHeight(int index) override;
    // Puts copies of the selected elements on the clipboard. False if there are none, or it takes nothing.
    bool CopySelection() override;
    // Notes in the row whether its text was cut off.
    void DrawItemText(HDC dc, const RECT& rect, tvMListItem& item, const tvMListState& state) override;
    int DrawItemNote(HDC dc, const RECT& rect, tvMListItem& item, const tvMListState& state) override;

    // --- The view ---

    // Makes the rows anew from the source: the elements that match, in order; selected elements stay
    // selected. False, with no rows, if the source is null or empty.
    bool Refresh();

    // Orders the rows that are there; the selection stays with its elements.
    void Resort();

    // Takes another order or search text; null leaves it as it is. Refreshes if that is a change.
    void SetView(const int* sort, const tvstring* text);

    [[nodiscard]] int Sort() const noexcept { return m_View.Sort(); }
    [[nodiscard]] const tvstring& FilterText() const noexcept { return m_View.FilterText(); }

    // --- Commands ---

    // Add an element, whether it matches or not, and select it alone. Some compilers look into both.
    void AddNew() requires kIsItems {
        if constexpr (kIsItems) {
            if (m_Source != nullptr) ShowNew(TheDatabase().AddNewItem(m_Source));
        }
    }
    void AddNew(const tvstring& text) requires(!kIsItems) {
        if constexpr (!kIsItems) {
            if (m_Source != nullptr) ShowNew(TheDatabase().AddNewEntry(text, m_Source));
        }
    }

    void RemoveSelected();

    // Each selected element one place up or down. Nothing happens with an order or a search in force, or if
    // an element stands at the end already.
    void MoveSelected(bool up);

    // Puts copies of what is on the clipboard in front of the first selected element, or at the end, and
    // selects them. False if there is nothing of this kind.
    bool PasteFromClipboard();

    // --- Selection ---

    // The first selected row, or -1; with `exactlyOne` also where more are selected. `element`, if given,
    // takes its element, or null.
    int GetFirstSelected(TElement** element, bool exactlyOne) const;

    // The number of selected rows. Each array that is given gets the rows, or their elements, appended, in
    // the order of the rows.
    int GetSelectedElements(ElementArray* elements) const requires kIsItems {
        return ReadSelection(nullptr, elements);
    }
    int GetSelection(std::vector<int>* rows, ElementArray* elements) const requires(!kIsItems) {
        return ReadSelection(rows, elements);
    }

    // Selects the rows of these elements, besides those that are selected or, with `clear`, alone. Null
    // selects nothing.
    void SelectElements(const ElementArray* elements, bool clear);

    // The element of a row, or null.
    [[nodiscard]] VMRD_Element* ElementOf(int row) const;

    // Tells the status bar of the rows: their numbers for items, that something may have changed for entries.
    void TellStatus() const;

    // --- Fields, in their order ---

    TOwner* m_Source = nullptr;  // not owned; null: detached
    u8 m_Kind = kIsItems ? LIST_ITEMS : LIST_ENTRIES;
    ItemView m_View;      // search text and order; both stay as they are at first for entries
    int m_HoverRow = -1;  // the row whose tool tip is up

private:
    using Model = ItemListModel<TOwner>;

    // --- Rows (item_list_box_view.h) ---

    int ReadSelection(std::vector<int>* rows, ElementArray* elements) const;
    [[nodiscard]] std::vector<int> SelectedRows() const;
    [[nodiscard]] std::vector<ViewRow> ReadRows() const;
    void AppendRow(VMRD_Element* element);
    void FillRows();
    void TakeOrder();
    void WriteRows(const std::vector<ViewRow>& rows);
    void SelectRows(const std::vector<int>& rows);
    void ShowLastOf(const std::vector<int>& rows) const;
    void AddRow(VMRD_Element* element);

    // --- Commands (item_list_box_commands.h) ---

    struct Chosen {
        std::vector<int> rows;
        ElementArray elements;
    };
    enum class From { First, Last };
    [[nodiscard]] Chosen Choose(From end) const;
    void ShowNew(VMRD_Element* element);
    void DeleteRows(const std::vector<int>& rows);
    void SwapRows(const std::vector<int>& rows, int step);
    void InsertPasted(const ElementQueue& elements, int row);
    [[nodiscard]] bool IsInStep(int row) const;
    [[nodiscard]] bool CanMove(const std::vector<int>& rows, bool up) const;
    [[nodiscard]] ElementQueue ReadCarrier(VMRD_DB& carrier) const;
    void TellChange() const;

    // --- Messages (item_list_box.cpp) ---

    bool OnKey(WPARAM key) const;
    bool OnTipNotice(NMHDR* header, LRESULT& result);
    bool BeforeBase(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void AfterBase(UINT message, WPARAM wParam, LRESULT& result);

    // --- Painting and tool tips (item_list_box_paint.h) ---

    [[nodiscard]] bool HasHint() const;
    void DrawHint(HDC dc);
    void PaintEmpty();
    void OnHover();
    void HideTip();
    void TakeTipFont() const;
    [[nodiscard]] tvMListItem* HoverItem() const;
    void OnTipText(NMTTDISPINFOW& info);
    void OnTipShown();
};

extern template class CVMRListBox<VMRD_DB, VMRD_Item>;
extern template class CVMRListBox<VMRD_Item, VMRD_Entry>;

using CVMRItemListBox = CVMRListBox<VMRD_DB, VMRD_Item>;
using CVMREntryListBox = CVMRListBox<VMRD_Item, VMRD_Entry>;
