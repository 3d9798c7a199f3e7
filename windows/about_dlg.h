// CVMRAboutDlg, what the program is: its icon, its name and version, the way to its page and to its help.
//
// Made for one use, run by RunModal.
#pragma once

#include "toolkit/button_link.h"
#include "windows/base_button.h"
#include "windows/base_dlg.h"

// What the link leads to.
inline constexpr const wchar_t* kProductPage = L"https://vaultmere.example/vaultmere/";

class CVMRAboutDlg : public CVMRBaseDlg {
public:
    CVMRAboutDlg();
    ~CVMRAboutDlg() override;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassControls() override;
    bool OnInitDialog() override;
    void OnAutoSize() override;
    void OnLayout() override;
    void OnUpdateText() override;
    void OnPaintDlg(HDC dc, const RECT& rect) override;
    void BuildTemplate() override;

    // --- Fields, in their order ---

    CVMRBaseButton m_btnHelp;
    tvButton_Link m_link;
    i32 m_textWidth = 0;  // of icon, name and version together, in pixels; found by OnAutoSize
    i32 m_textHeight = 0;

private:
    void MeasureTexts();
};
