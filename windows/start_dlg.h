// CVMRStartDlg, the start page, which fills the main window while no database is open: two large buttons,
// to create a database and to open one, and below them the databases that were used last.
#pragma once

#include "toolkit/button_note.h"
#include "toolkit/handle.h"
#include "windows/base_dlg.h"
#include "windows/recent_list_box.h"

// A large button with a picture of the program's resources, in the theme's colour of icons.
class CVMRStartButton : public tvButton_Note {
public:
    explicit CVMRStartButton(u32 imageId) : m_imageId(imageId) {}
    ~CVMRStartButton() override;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassed() override;

    // --- Fields, in their order ---

    u32 m_imageId;  // 0: no picture
    tvIconHandle m_hIcon;

private:
    void RenewIcon();
};

class CVMRStartDlg : public CVMRBaseDlg {
public:
    CVMRStartDlg();
    ~CVMRStartDlg() override;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassControls() override;
    bool OnInitDialog() override;
    void OnLayout() override;
    void OnUpdateText() override;
    void OnPaintDlg(HDC dc, const RECT& rect) override;
    void BuildTemplate() override;

    // Whatever it is about, the list is filled anew and shown if there is something in it.
    void OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) override;

    // --- Fields, in their order ---

    CVMRStartButton m_createBtn;
    CVMRStartButton m_openBtn;
    CVMRRecentListBox m_recentList;

private:
    [[nodiscard]] bool HasList() const;
    [[nodiscard]] int ListHeight(int room);
    [[nodiscard]] RECT Page() const;
};
