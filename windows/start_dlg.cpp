#include "windows/start_dlg.h"

CVMRStartDlg::~CVMRStartDlg() {
    Detach(Window::Destroy);
}

void CVMRStartDlg::BuildTemplate() {
    if (!HasTemplate()) TemplateBegin(310, 177, DialogKind::Child, 0);
}
