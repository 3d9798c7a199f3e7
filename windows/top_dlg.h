// CVMRTopDlg, the bar at the top of the main window: the database's name, and its tool buttons.
#pragma once

#include "windows/base_button.h"
#include "windows/base_dlg.h"
#include "windows/command_ids.h"

class CVMRTopButton : public CVMRBaseButton {
public:
    CVMRTopButton(u32 iconId, int glyph);
    ~CVMRTopButton() override;

    void DrawContent(HDC dc, RECT rect, const tvButtonColors& colors) override;
    void GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

class CVMRTopDlg : public CVMRBaseDlg {
public:
    CVMRTopDlg();
    ~CVMRTopDlg() override;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassControls() override;
    bool OnInitDialog() override;
    void OnLayout() override;
    void OnUpdateState() override;
    void OnUpdateText() override;
    void OnPaintDlg(HDC dc, const RECT& rect) override;
    void BuildTemplate() override;
    void OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) override;

    // --- Fields, in their order ---

    CVMRTopButton m_btnRename;
    CVMRTopButton m_btnSetPassword;
    CVMRTopButton m_btnSave;
    CVMRTopButton m_btnMenu;

private:
    [[nodiscard]] static bool GiveTip(LPARAM lParam);
    static void OpenMenu(int x, int y, UINT flags);
    void OpenMenuBelow() const;
    void OnContextMenu(LPARAM lParam) const;
    void FitToFont() const;
    [[nodiscard]] LONG NameEnd(const RECT& rect) const;
};
