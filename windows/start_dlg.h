// CVMRStartDlg, the start page, which is there while no database is open.
#pragma once

#include "windows/base_dlg.h"

class CVMRStartDlg : public CVMRBaseDlg {
public:
    ~CVMRStartDlg() override;

    void BuildTemplate() override;
};
