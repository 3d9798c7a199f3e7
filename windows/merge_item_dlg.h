// CVMRMergeItemDlg, which makes one item of two. The user picks the one that keeps its basic entries; the
// entries of the other one are appended to it as additional ones.
//
// Made for one use: fill m_Items with exactly two items of the open database and run it by RunModal. After
// IDOK they are merged.
#pragma once

#include "database/element.h"
#include "toolkit/check_box.h"
#include "windows/base_button.h"
#include "windows/base_dlg.h"

class CVMRMergeItemDlg : public CVMRBaseDlg {
public:
    CVMRMergeItemDlg();
    ~CVMRMergeItemDlg() override;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassControls() override;
    bool OnInitDialog() override;
    void OnUpdateState() override;
    void OnUpdateText() override;
    void OnPaintDlg(HDC dc, const RECT& rect) override;
    void BuildTemplate() override;

    // Has the basic entries of an item as m_Preview, a line each; nothing for an index outside m_Items.
    void BuildPreview(std::size_t index);

    // --- Fields, in their order ---

    tvCheckBox m_radio1;
    tvCheckBox m_radio2;
    CVMRBaseButton m_okBtn;
    CVMRBaseButton m_cancelBtn;
    tvstring m_Preview;
    ElementArray m_Items;  // the caller's; not owned

private:
    [[nodiscard]] bool IsSecondChosen() const;
    void Merge();
    void LayOut();
    [[nodiscard]] tvstring NameOf(std::size_t index) const;
    void ShowNames();
    int LayOutRadios(const RECT& content, int top) const;
    int HighestPreview(int width);
};
