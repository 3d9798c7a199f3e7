#include "windows/left_dlg.h"

CVMRLeftDlg::~CVMRLeftDlg() {
    Detach(Window::Destroy);
}

void CVMRLeftDlg::BuildTemplate() {
    if (!HasTemplate()) TemplateBegin(200, 218, DialogKind::Child, 0);
}
