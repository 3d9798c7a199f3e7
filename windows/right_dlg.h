// CVMRRightDlg, the pane that shows an item's details.
#pragma once

#include "windows/base_dlg.h"

class CVMRRightDlg : public CVMRBaseDlg {
public:
    ~CVMRRightDlg() override;

    void BuildTemplate() override;
};
