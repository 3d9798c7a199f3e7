// CVMRRightDlg, the pane that shows an item's details. Name, date and the basic entries are painted on the
// pane; the additional entries stand in a list with a column of buttons. Hover buttons appear beside the
// painted field under the mouse.
//
// The pane owns neither the item nor its entries. It holds them from APPN_SHOWITEM to the next one.
#pragma once

#include <map>

#include "database/element.h"
#include "windows/base_button.h"
#include "windows/base_dlg.h"
#include "windows/item_list_box.h"
#include "windows/tip_button.h"

// Where a painted field is, in the client area.
struct FieldBox {
    RECT m_hitRect{};               // what counts as this field
    RECT m_textRect{};              // the value
    VMRD_Entry* m_entry = nullptr;  // null for the item's name
};

class CVMRRightDlg : public CVMRBaseDlg {
public:
    CVMRRightDlg();

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassed() override;
    ~CVMRRightDlg() override;
    void OnSubclassControls() override;
    bool OnInitDialog() override;
    void OnLayout() override;
    void OnUpdateState() override;
    void OnUpdateText() override;
    void OnPaintDlg(HDC dc, const RECT& rect) override;
    void BuildTemplate() override;
    void OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) override;

    // --- Fields, in their order ---

    u8 m_tracking = 0;  // the mouse will be missed when it leaves
    VMRD_Item* m_Item = nullptr;
    CVMRListBox<VMRD_Item, VMRD_Entry> m_list;
    CVMRDynTipIconButton m_modifyHover;
    CVMRDynTipIconButton m_showHover;
    CVMRAutoHideButton m_goHover;
    CVMRAutoHideButton m_copyHover;
    CVMRBaseButton m_addBtn;
    CVMRBaseButton m_removeBtn;
    CVMRBaseButton m_modifyBtn;
    CVMRBaseButton m_upBtn;
    CVMRBaseButton m_downBtn;
    u16 m_hotField = 0;                // the type of the field under the mouse; 0: none
    std::map<u16, FieldBox> m_fields;  // by type; made anew by every paint

private:
    // What is still free of the pane while it is painted from the top down.
    struct Page {
        HDC dc;
        RECT room;
        LONG button;  // the height of a hover button
    };

    // --- The item (right_dlg.cpp) ---

    void ShowItem(VMRD_Item* item);
    void DropLostItem(bool isDetached);
    void OnRowsChanged(NotifyArgument owner, NotifyArgument elements, NotifyArgument adds);
    void ShowList() const;
    void PlaceList(const RECT& room, LONG top);
    void RepaintNow() const;

    // --- Painting (detail_paint.cpp) ---

    void PaintName(Page& page);
    void PaintDate(Page& page);
    static void PaintSeparator(Page& page);
    void PaintEntry(Page& page, VMRD_Entry& entry);
    void PaintListLabel(Page& page);
    const tvstring& DateLine();
    void MeasureFields();

    // --- Hover buttons (detail_hover.cpp) ---

    void OnMouseMove();
    void PlaceHover(bool hideAll);
    [[nodiscard]] u16 FieldAt(const POINT& point) const;
    void PlaceBeside(const FieldBox& field);
    void HideHover();
    // The texts of SetHoverTip.
    enum HoverTip { TIP_RENAME, TIP_MODIFY, TIP_SHOW, TIP_HIDE };
    static void SetHoverTip(const CVMRDynTipIconButton& button, int which);
    void UpdateShowHover();

    // --- Commands (detail_commands.cpp) ---

    void OnCommand(u16 id);
    void OnContextMenu(LPARAM lParam);
    [[nodiscard]] bool FieldUsable() const;
    [[nodiscard]] VMRD_Entry* HotEntry() const;
    [[nodiscard]] const tvstring& HotText() const;
    void ModifyField();
    void ModifyPassword(VMRD_Entry* entry);
    void ModifyText(u16 type, VMRD_Entry* entry);
    void CopyField() const;
    void LaunchField() const;
    void TogglePasswords();
    void ModifyEntry(bool add);
    bool TakeEntryText(VMRD_Entry* entry, const tvstring& text, VMRD_Item* item);
    void MergeEntries();  // merge_entries.cpp

    // The date line as it was made last.
    struct {
        u64 date = 0;
        i32 language = -1;
        tvstring text;
    } m_dateLine;
};
