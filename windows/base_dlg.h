// CVMRBaseDlg, what all dialogs and panes of the program have in common.
#pragma once

#include "toolkit/base_dialog.h"
#include "windows/app_notify.h"

class CVMRBaseDlg : public tvBaseDlg {
public:
    // --- Virtual operations after those of tvBaseDlg ---

    // Writes the template into memory, unless it is there.
    virtual void BuildTemplate();

    // A notification that concerns this window. The default sets all texts again for APPN_LANGUAGE.
    virtual void OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c);

    // A window that is no pane cannot be made smaller than it opens.
    bool OnInitDialog() override;

    // Paints the window through its buffer under every theme: under that of the system too there is more on
    // it than controls.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // Builds the template and runs the dialog over what is in front: what tvDialog::DoModal gives.
    int RunModal();

protected:
    [[nodiscard]] bool HasTemplate() noexcept { return m_builder.Header() != nullptr; }
};

// Tells the main window; nothing happens while there is none.
void NotifyMainWindow(AppNotification code, NotifyArgument a = 0, NotifyArgument b = 0, NotifyArgument c = 0);
