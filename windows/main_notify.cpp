// The post office: what panes have to tell goes to those that are concerned.
#include "database/database.h"
#include "shell/statics.h"
#include "windows/main_dlg.h"

// A notification is a call: the receiver is done when the sender goes on.
void CVMRDlg::OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) {
    if (!IsAttached()) return;
    switch (code) {
        case APPN_LANGUAGE:
            NotifyAll(code);
            break;
        case APPN_TOPBAR:
            m_topDlg.OnAppNotify(code, a, b, c);
            break;
        case APPN_START:
            m_startDlg.OnAppNotify(code, a, b, c);
            break;
        case APPN_STATUS:
            m_statusBar.OnAppNotify(code, a, b, c);
            break;
        case APPN_OPENDB:
            OpenDatabase(FromArgument<const char16_t>(a), b != 0 ? Quiet::Yes : Quiet::No);
            break;
        default:
            RouteToPanes(code, a, b, c);
            break;
    }
}

void CVMRDlg::NotifyAll(i32 code) {
    OnUpdateText();
    CVMRBaseDlg* const panes[] = {&m_startDlg, &m_leftDlg, &m_rightDlg, &m_topDlg};
    for (CVMRBaseDlg* pane : panes)
        pane->OnAppNotify(code, 0, 0, 0);
    m_statusBar.OnAppNotify(code, 0, 0, 0);
}

void CVMRDlg::RouteToPanes(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) {
    const bool isOfDatabase = FromArgument<VMRD_Object>(a) == static_cast<VMRD_Object*>(&TheDatabase());
    switch (code) {
        case APPN_SHOWITEM:
        case APPN_RENAMEITEM:
            m_rightDlg.OnAppNotify(code, a, b, c);
            break;
        case APPN_ITEMCHANGED:
        case APPN_FILTERCHANGED:
            m_leftDlg.OnAppNotify(code, a, b, c);
            break;
        case APPN_DBLIST:  // the item that is shown may be gone, or be about to go
        case APPN_FORWARDCMD:
            m_leftDlg.OnAppNotify(code, a, b, c);
            m_rightDlg.OnAppNotify(code, a, b, c);
            break;
        case APPN_ROWSCHANGED:
            if (a == 0) break;
            if (isOfDatabase) {
                m_leftDlg.OnAppNotify(code, a, b, c);
            } else {
                m_rightDlg.OnAppNotify(code, a, b, c);
            }
            break;
        default:
            break;
    }
}
