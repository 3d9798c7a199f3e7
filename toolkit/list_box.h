// tvMListBox, a list box whose rows are painted in the colours of the theme: texts that break into lines,
// with a note at the right, an icon, and an indent of one step for each tab in front.
//
// The window is a standard list box that is owner-drawn with rows of any height; it keeps the selection and
// the scrolling. The rows themselves are kept here: they change through the operations of this class only.
//
// A row is a row of the window, an item one of the queue. They are the same unless m_bottomUp turns them
// round. Operations give -1 while there is no window.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/color_theme.h"
#include "toolkit/list_queue.h"
#include "toolkit/scroll_box.h"
#include "toolkit/theme_control.h"
#include "toolkit/timer.h"
#include "toolkit/wnd.h"

// What one picture of a row is painted from.
struct tvMListState {
    int m_index = -1;  // the row
    COLORREF m_background = kNoColor;
    COLORREF m_text = kNoColor;
    COLORREF m_note = kNoColor;
    u8 m_hot = 0;
    u8 m_selected = 0;
    u8 m_focused = 0;  // the list has the keyboard
};

// Which rows FindItem is to find.
enum FindDirection : int { FIND_NEXT = 0, FIND_PREVIOUS = 1, FIND_ALL = 2 };

class tvMListBox : public tvWnd, public tvtheme_control {
public:
    static constexpr int kMostRows = 65530;

    tvMListBox() = default;
    ~tvMListBox() override;

    // --- Virtual operations after those of tvWnd, in slot order ---

    // The height of an item's row in pixels: even, and 254 at most.
    virtual int CalcItemHeight(int index);

    // What a row stands for on the clipboard and is searched in: its text and, if it has a note, that.
    virtual void GetItemClipText(tvstring& out, int index, std::u16string_view separator);

    // Copies the selected rows, one a line. False if there is nothing to copy, or the clipboard does not
    // take it.
    virtual bool CopySelection();

    virtual void DrawItemIcon(HDC dc, const RECT& rect, u32 icon, const tvMListState& state);
    virtual void DrawItemText(HDC dc, const RECT& rect, tvMListItem& item, const tvMListState& state);
    // Gives the width used.
    virtual int DrawItemNote(HDC dc, const RECT& rect, tvMListItem& item, const tvMListState& state);

    virtual COLORREF GetBackColor();
    // Fills in the colours for what else the state says.
    virtual void GetItemColors(tvMListState& state);

    virtual void SelectAll();
    virtual void DeselectAll();
    virtual void InvertSelection();

    // Selects what it finds and nothing else: rows whose clipboard text holds this one. Gives the first row
    // found, or -1. The search for one row begins behind, or before, the one selected first and goes round.
    virtual int FindItem(const tvstring& text, int direction, bool ignoreCase);

    // --- Rows ---

    // Adds a row: at the end for -1, else in front of the item with this index. What stands behind the last
    // tab is the note. Of 65530 items one falls out at the other end; in between there is no room then.
    // Gives the row, or -1. Many rows are added under a Bulk.
    int AddItem(const tvstring& text, u32 icon = 0, int index = -1, bool makeVisible = false,
                std::intptr_t data = 0);

    // If anything was selected the parent hears of a changed selection. DeleteItem gives the number of rows
    // left.
    int DeleteItem(int row);
    void DeleteAll();

    // Changes of many rows, or of the selection of many: nothing is painted meanwhile, and the parent hears
    // of the selection once. The top row is the same afterwards, unless a new row was to be made visible.
    class Bulk {
    public:
        explicit Bulk(tvMListBox& list);
        ~Bulk();
        Bulk(const Bulk&) = delete;
        Bulk& operator=(const Bulk&) = delete;

    private:
        tvMListBox& m_List;
    };

    // --- The window's ---

    [[nodiscard]] int GetCount() const;
    int GetItemRect(int row, RECT& rect) const;
    [[nodiscard]] int GetCurSel() const;
    int SetCurSel(int row) const;
    int SetSel(int row, bool on) const;  // of all rows for -1
    [[nodiscard]] int GetSel(int row) const;
    [[nodiscard]] int GetSelCount() const;
    [[nodiscard]] std::intptr_t GetItemData(int row) const;

    // The item of a row, of this many; -1 for a row out of range.
    [[nodiscard]] int RowToItem(int row, int count) const;
    // The same for the rows there are; null.
    [[nodiscard]] tvMListItem* ItemOfRow(int row) const;

    // The row at a point of the client area, or -1.
    [[nodiscard]] int HitTest(int x, int y) const;

    [[nodiscard]] bool IsSingleSelect() const;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassed() override;
    void OnReflectDrawItem(DRAWITEMSTRUCT* item) override;
    void OnReflectMeasureItem(MEASUREITEMSTRUCT* item) override;
    void OnReflectCtlColor(HDC dc, LRESULT* result) override;
    void OnDraw(HDC dc, const RECT& rect, void* paint) override;

    // --- Fields, in their order ---

    tvScrollBox m_scrollBox;  // around the list, with its frame; not under System Default
    tvWndTimer m_selTimer;    // delays the notice of a selection that was set
    tvMemDC m_measureDC;      // with the list's font
    u8 m_internalChange = 0;  // the class itself changes the rows
    u8 m_tracking = 0;        // the mouse will be missed when it leaves
    int m_hotIndex = -1;      // the row under the mouse
    int m_lastWidth = 0;      // of the client area when its size changed last
    int m_lastHeight = 0;
    tvMListQueue m_items;
    u8 m_bottomUp = 0;         // the first item is the last row; icons and notes stand at the bottom
    int m_iconWidth = 0;       // pixels; 0: there are no icons
    int m_dragStart = -1;      // the row where the right button was pressed
    int m_selCountBefore = 0;  // and what was selected then
    int m_curSelBefore = -1;
    int m_startX = 0;
    int m_startY = 0;
    int m_lastY = 0;

protected:
    // Left and right of a row's content, and the room between text and note.
    struct Metrics {
        int border;
        int gap;
        int line;  // the height of a line
    };
    [[nodiscard]] Metrics GetMetrics();

    // Measures all rows again.
    void MeasureAll();

    // Posts the parent that the selection has changed.
    void NotifySelection() const;

private:
    // How far from the top row something is done to rows, while much is done, before the top row follows: the
    // system's list box may walk from there.
    static constexpr int kNear = 64;

    // What notices are about.
    struct Selection {
        int count;
        int current;
        bool operator==(const Selection&) const = default;
    };
    [[nodiscard]] Selection GetSelection() const { return {GetSelCount(), GetCurSel()}; }
    [[nodiscard]] bool HasSelection() const;
    void OnRowsGone();

    int Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    int Change(UINT message, WPARAM wParam, LPARAM lParam);
    bool MakeRoom(int index);
    bool InsertRow(int row, const tvMListItem& item);
    void StayNear(int row);
    void EnterBulk();
    void LeaveBulk();
    void StartNotice();
    [[nodiscard]] int TextHeight(std::u16string_view text, int width, int line) const;
    [[nodiscard]] int NoteWidth(const tvMListItem& item, int& height) const;

    bool BeforeDefault(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void AfterDefault(UINT message, LPARAM lParam);
    void PaintFrame() const;
    void SetAll(bool on);
    LRESULT SetSelection(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT SetInBulk(UINT message, WPARAM wParam, LPARAM lParam, int row);
    bool OnKeyDown(WPARAM key);
    void OnMouseMove(int x, int y);
    void OnMouseGone();
    void OnSized(int width, int height);
    void OnFontSet();
    void OnGone();
    void EraseBelow(HDC dc);
    void OnTimer(WPARAM id);
    void UndoEmptyClick(int x, int y);
    void BeginDrag(int x, int y);
    void DragTo(int x, int y);
    void EndDrag(int x, int y);
    void OnRightUp(int x, int y);
    void ResetDrag();
    void InvalidateRow(int row) const;
    [[nodiscard]] bool IsMatch(int row, const tvstring& wanted, bool ignoreCase, tvstring& buffer);
    [[nodiscard]] int FirstSelected() const;

    int m_bulk = 0;      // how many of Bulk there are
    int m_bulkTop = -1;  // the top row to come back to
    int m_nearRow = 0;   // which the window's top row is near
    bool m_wasVisible = false;
    bool m_bulkChanged = false;  // rows were selected or deselected
    bool m_deleting = false;     // the window has fewer rows than the queue
    bool m_measureLater = false;
    int m_newHeight = 0;  // of the row that is being added
    int m_line = 0;       // the height of a line; 0: not measured yet
};
