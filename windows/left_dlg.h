// CVMRLeftDlg, the pane of the item list: the list with its order, its search box and its buttons. What it
// shows is the open database; the commands on the list are those of HandleListMessage.
#pragma once

#include "toolkit/combo_box.h"
#include "windows/base_button.h"
#include "windows/base_dlg.h"
#include "windows/filter_edit_box.h"
#include "windows/item_list_box.h"

class CVMRLeftDlg : public CVMRBaseDlg {
public:
    CVMRLeftDlg();

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    ~CVMRLeftDlg() override;
    void OnSubclassControls() override;
    bool OnInitDialog() override;
    void OnLayout() override;
    void OnUpdateState() override;
    void OnUpdateText() override;
    void BuildTemplate() override;
    void OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) override;

    // --- Fields, in their order ---

    tvComboBox m_sortCombo;
    CVMRFilterEditBox m_filterEdit;
    CVMRItemListBox m_list;
    CVMRBaseButton m_menuBtn;
    CVMRBaseButton m_upBtn;
    CVMRBaseButton m_downBtn;
    CVMRBaseButton m_removeBtn;
    CVMRBaseButton m_addBtn;

private:
    // The list shows the database from now on, with all rows made anew.
    void ShowDatabase();
    void DetachList();
    void AttachList(int row, bool focus);
    void OnItemChanged(bool sortOnly);
    void OnFilterChanged();

    void MakeSearchTip();
    [[nodiscard]] int SortChoice() const;
    [[nodiscard]] tvstring SearchText() const;
    // True if Move Up and Move Down are refused; the user is told.
    [[nodiscard]] bool RefusesMove() const;
    void OnCommand(WPARAM wParam);
    void OpenMenu();
    void MergeItems();  // merge_items.cpp
    void StoreSort() const;
};
