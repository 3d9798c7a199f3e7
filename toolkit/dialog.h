// tvDialog, a dialog that runs from a template: of the program's resources or built in memory.
#pragma once

#include "toolkit/dialog_template.h"
#include "toolkit/wnd.h"

class tvDialog : public tvWnd {
public:
    // --- Virtual operations after those of tvWnd ---

    // The dialog has its window; the wrappers of its controls can take theirs.
    virtual void OnSubclassControls();
    // What WM_INITDIALOG answers: false if the focus was set.
    virtual bool OnInitDialog();

    // --- Running ---

    // Makes the window, without a loop of its own. False if it has one, or for a template or class that
    // fails.
    bool Create(HWND parent);

    // Runs the dialog with its owner disabled and gives the result of EndDialog; -1 if it could not be made,
    // or has a window already. This is the program's only message loop, the main window's included. WM_QUIT
    // ends it with the result as it is.
    int DoModal();

    // Ends the loop. A result of 0 becomes 2.
    void EndDialog(int result);

    // Puts the dialog in the middle of its owner, or of the primary monitor, and into the work area; a window
    // that is larger stands at its top and left. Child windows stay.
    void CenterWindow();

    // --- The template in memory ---

    void TemplateBegin(int cx, int cy, DialogKind kind, int reserve) {
        m_builder.Begin(cx, cy, kind, reserve);
    }
    DialogControl* AddControl(u16 atom, u16 id, int x, int y, int cx, int cy) {
        return m_builder.AddControl(atom, id, x, y, cx, cy);
    }
    DialogControl* Item(int index) const { return m_builder.Item(index); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool IsDialogMsg(MSG* msg) override;

    [[nodiscard]] bool IsMainWindow() const noexcept;

    // --- Fields, in their order ---

    int m_result = 0;          // of the modal run; 0 while it goes on
    u16 m_templateId = 0;      // of a resource; 0: the template in memory
    DialogTemplate m_builder;  // of the template in memory

private:
    static INT_PTR CALLBACK DialogProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
    bool OnInit();
    void OnOkOrCancel(int id);
    void Loop();
};
