// Edit boxes, combo boxes and spin controls, in the states that stay without mouse and keyboard.
#pragma once

#include <array>

#include "tests/gallery/control_map.h"
#include "toolkit/combo_box.h"
#include "toolkit/dialog.h"
#include "toolkit/edit.h"
#include "toolkit/spin.h"

class Inputs {
public:
    // Adds the controls to a dialog's template.
    static void AddTo(tvDialog& dialog);

    // Gives them their wrappers and texts.
    void Wrap(HWND dialog, const ControlMap& controls);

    // Puts them into their places, in the dialog units of a font; the corner is in those too. Runs again when
    // a combo box has got a new window.
    void Place(const ControlMap& controls, HFONT font, int x, int y);

    // How many dialog units it takes.
    [[nodiscard]] static int Height();

private:
    enum : std::size_t {
        EDIT_TEXT,
        EDIT_CUE,
        EDIT_PASSWORD,
        EDIT_READ_ONLY,
        EDIT_DISABLED,
        EDIT_LINES,
        EDITS
    };
    enum : std::size_t { COMBO_LIST, COMBO_EDIT, COMBO_LIST_OFF, COMBO_EDIT_OFF, COMBOS };
    enum : std::size_t { SPIN_RIGHT, SPIN_LEFT, SPIN_ACROSS, SPIN_ALONE, SPINS };

    void WrapEdits(const ControlMap& controls);
    void WrapCombos(const ControlMap& controls);
    void WrapSpins(HWND dialog, const ControlMap& controls);

    std::array<tvEdit, EDITS> m_Edits;
    std::array<tvComboBox, COMBOS> m_Combos;
    std::array<tvEdit, SPINS> m_Numbers;  // of the spins; the last one is never wrapped
    std::array<tvSpinCtrl, SPINS> m_Spins;
};
