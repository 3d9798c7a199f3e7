#include "windows/right_dlg.h"

CVMRRightDlg::~CVMRRightDlg() {
    Detach(Window::Destroy);
}

void CVMRRightDlg::BuildTemplate() {
    if (!HasTemplate()) TemplateBegin(311, 285, DialogKind::Child, 0);
}
