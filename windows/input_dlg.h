// CVMRInputDlg, the one dialog that asks for text: a name, a password with its confirmation, a path, or
// several lines. It does not know what the text means.
//
// Callers make it for one use, set the fields, run it by RunModal and look at the texts: empty after Cancel.
#pragma once

#include "windows/base_button.h"
#include "windows/base_dlg.h"
#include "windows/input_edit.h"

class CVMRInputDlg : public CVMRBaseDlg {
public:
    CVMRInputDlg();
    ~CVMRInputDlg() override;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassControls() override;
    bool OnInitDialog() override;
    void OnAutoSize() override;
    void OnLayout() override;
    void OnUpdateState() override;
    void OnPaintDlg(HDC dc, const RECT& rect) override;
    void BuildTemplate() override;

    // --- Fields, in their order; from m_Title on the caller's ---

    CVMRInputEdit m_edit1;
    CVMRInputEdit m_edit2;
    CVMRBaseButton m_okBtn;
    CVMRBaseButton m_cancelBtn;
    CVMRBaseButton m_extraBtn;
    i32 m_iconWidth = 0;
    i32 m_iconHeight = 0;
    i32 m_editTop = 0;    // of the first edit box, in pixels; found by painting
    i32 m_infoLines = 0;  // of the text above it
    tvstring m_Title;
    tvstring m_Info;          // above the edit boxes; may be empty
    tvstring m_Tip;           // shown in the first edit box while it is empty
    tvstring m_Tip2;          // in the second
    tvstring m_ExtraCaption;  // of a third button, which is there if it has a command too
    u32 m_ExtraCommand = 0;   // CMD_BROWSE, or one for the main window
    HICON m_Icon = nullptr;   // at the top left; not owned
    u8 m_PlainText = 0;       // what is typed can be read
    u8 m_TwoFields = 0;       // with the second edit box
    u8 m_AllowEmpty = 0;      // OK works without text
    u8 m_MultiLine = 0;       // several lines, one field, plain; the dialog can be sized
    u8 m_BigTitle = 0;        // the title is painted large above the text
    tvstring m_Text;          // at first what the first edit box holds, after OK what it held
    tvstring m_Text2;         // the same for the second

private:
    bool OnCommand(WPARAM wParam);
    [[nodiscard]] bool IsComplete() const;
    bool TakeTexts();
    void RunExtraCommand() const;
    void Browse() const;
    void SetTexts();
    void LimitTexts() const;
    void SetUpExtraButton() const;
    void PutCaretAtEnd() const;
    void LoadStoreSize(bool load) const;
    [[nodiscard]] int EditAreaHeight() const;
    LONG DrawBigTitle(HDC dc, RECT place, LONG iconHeight) const;
    LONG DrawInfo(HDC dc, RECT place, LONG iconHeight) const;
};
