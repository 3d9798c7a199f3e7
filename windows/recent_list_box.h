// CVMRRecentListBox, the list of databases that were used last: a name in each row, its path as the note. One
// click on a row opens the database.
//
// It shows what the recent list held when it was filled; whoever changes that sends APPN_START.
#pragma once

#include "toolkit/list_box.h"

class CVMRRecentListBox : public tvMListBox {
public:
    CVMRRecentListBox() = default;
    ~CVMRRecentListBox() override;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // One line: texts do not break. Without an item it is the same.
    int CalcItemHeight(int index) override;
    void DrawItemText(HDC dc, const RECT& rect, tvMListItem& item, const tvMListState& state) override;

    // The page's, which the list lies flat on.
    COLORREF GetBackColor() override;
    void GetItemColors(tvMListState& state) override;

    // Makes all rows anew, newest first.
    void Reload();

    // Has the main window open a row's database. If its file is gone the user is asked whether the row is to
    // go, too. False if there was nothing to open.
    bool OpenRow(int row);

    // Where the list is on the screen, frame and scroll bar included.
    [[nodiscard]] RECT ScreenPlace() const;

private:
    bool OnCommand(u16 id);
    bool OnOwnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnButtonUp(LPARAM lParam);
    void OnContextMenu(LPARAM lParam);
    void UpdateMenu() const;
    [[nodiscard]] POINT MenuPoint(LPARAM lParam) const;
    void AskToRemove(int row, const tvstring& path);
    void RemoveCurrent() const;
    static void AskToClear();
    static void ToggleHistory();
};
