// CVMRPassGenDlg, where the user sets a password: by typing it, or by having one generated.
//
// Made for one use: set m_Password, run it by RunModal and, after IDOK, read m_Password. What was chosen for
// the generator is kept in the settings store at each press of Generate, whatever comes of the password.
#pragma once

#include "toolkit/check_box.h"
#include "toolkit/edit.h"
#include "toolkit/spin.h"
#include "windows/base_button.h"
#include "windows/base_dlg.h"
#include "windows/generator.h"

class CVMRPassGenDlg : public CVMRBaseDlg {
public:
    CVMRPassGenDlg();
    ~CVMRPassGenDlg() override;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassControls() override;
    bool OnInitDialog() override;
    void OnUpdateText() override;
    void OnPaintDlg(HDC dc, const RECT& rect) override;
    void BuildTemplate() override;

    // A password by what the controls say, which also goes into the edit box. It runs for ever if no class of
    // characters is checked.
    tvstring GeneratePassword();

    // Which of the two lengths are written back to their edit boxes after they were normalised.
    enum class WriteBack { None, Changed, Both };
    void NormaliseLengths(i32* min, i32* max, WriteBack mode) const;

    // Lengths and classes between the controls and the settings store.
    void LoadStoreOptions(bool load) const;

    // --- Fields, in their order ---

    tvEdit m_passwordEdit;
    tvEdit m_minEdit;
    tvEdit m_maxEdit;
    tvSpinCtrl m_spins[2];
    tvCheckBox m_classBoxes[kPassGenClasses];  // upper case, lower case, numbers, other
    CVMRBaseButton m_okBtn;
    CVMRBaseButton m_cancelBtn;
    CVMRBaseButton m_generateBtn;
    tvstring m_LengthLabel;  // of the password that was generated last and not changed since; may be empty
    tvstring m_Password;     // at first what the edit box holds, after OK what it held

private:
    void MakeSpin(tvSpinCtrl& spin, u16 id, const tvEdit& buddy) const;
    void OnCommand(WPARAM wParam);
    void OnGenerate();
    void OnPasswordChanged();
    [[nodiscard]] PassGenRequest ReadControls() const;

    // Layout: each takes the content's rectangle, or the top of what it places, and gives the new top.
    void LayOut();
    int LayOutPassword(const RECT& content, int top) const;
    int LayOutLengths(const RECT& group, int top);
    int LayOutClasses(const RECT& group, int top);

    void DrawGroup(HDC dc, const RECT& content) const;
    void DrawAbove(HDC dc, const tvWnd& control, const tvstring& text, UINT flags) const;
    void DrawLengthLabel(HDC dc) const;
};
