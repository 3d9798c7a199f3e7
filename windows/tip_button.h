// CVMRDynTipIconButton, a hover button whose tip changes with what it stands beside. The text that its window
// is given is the tip; the window itself has no text.
#pragma once

#include "windows/base_button.h"

class CVMRDynTipIconButton : public CVMRAutoHideButton {
public:
    explicit CVMRDynTipIconButton(u32 iconId);
    ~CVMRDynTipIconButton() override;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassed() override;

    // --- Fields ---

    tvstring m_tipText;

private:
    void RegisterTip() const;
    bool GiveTip(LPARAM lParam);
};
