// CVMRLeftDlg, the pane of the item list, with search and sort.
#pragma once

#include "windows/base_dlg.h"

class CVMRLeftDlg : public CVMRBaseDlg {
public:
    ~CVMRLeftDlg() override;

    void BuildTemplate() override;
};
