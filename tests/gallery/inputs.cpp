#include "tests/gallery/inputs.h"

#include "toolkit/font.h"

namespace {

constexpr u16 kFirstEdit = 700;
constexpr u16 kFirstCombo = 720;
constexpr u16 kFirstNumber = 740;
constexpr u16 kFirstSpin = 760;

// Dialog units.
constexpr int kWidth = 78;
constexpr int kNumberWidth = 50;
constexpr int kNumberStep = kNumberWidth + 14;
constexpr int kHeight = 14;
constexpr int kStep = kWidth + 4;
constexpr int kRowStep = kHeight + 5;
constexpr int kLinesHeight = kHeight + kRowStep;

constexpr DWORD kSpinStyles[] = {UDS_ALIGNRIGHT, UDS_ALIGNLEFT, UDS_ALIGNRIGHT | UDS_HORZ, 0};

u16 Id(u16 first, std::size_t index) {
    return static_cast<u16>(first + index);
}

}  // namespace

void Inputs::AddTo(tvDialog& dialog) {
    constexpr DWORD kEditStyles[EDITS] = {ES_AUTOHSCROLL,
                                          ES_AUTOHSCROLL,
                                          ES_AUTOHSCROLL | ES_PASSWORD,
                                          ES_AUTOHSCROLL | ES_READONLY,
                                          ES_AUTOHSCROLL | WS_DISABLED,
                                          ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL};
    constexpr DWORD kComboStyles[COMBOS] = {CBS_DROPDOWNLIST, CBS_DROPDOWN, CBS_DROPDOWNLIST | WS_DISABLED,
                                            CBS_DROPDOWN | WS_DISABLED};
    for (std::size_t i = 0; i < EDITS; ++i) {
        DialogControl* edit = dialog.AddControl(ATOM_EDIT, Id(kFirstEdit, i), 0, 0, kWidth, kHeight);
        edit->style = (edit->style & ~DWORD{ES_AUTOHSCROLL}) | kEditStyles[i];
    }
    for (std::size_t i = 0; i < COMBOS; ++i) {
        DialogControl* combo = dialog.AddControl(ATOM_COMBOBOX, Id(kFirstCombo, i), 0, 0, kWidth, kHeight);
        combo->style = (combo->style & ~DWORD{CBS_DROPDOWNLIST}) | kComboStyles[i];
    }
    for (std::size_t i = 0; i < SPIN_ALONE; ++i)
        dialog.AddControl(ATOM_EDIT, Id(kFirstNumber, i), 0, 0, kNumberWidth, kHeight);
}

void Inputs::Wrap(HWND dialog, const ControlMap& controls) {
    WrapEdits(controls);
    WrapCombos(controls);
    WrapSpins(dialog, controls);
}

void Inputs::WrapEdits(const ControlMap& controls) {
    constexpr const wchar_t* kTexts[EDITS] = {
        L"Edit box", L"",
        L"Password", L"Read-only",
        L"Disabled", L"Edit box of several lines\r\nThe second\r\nThe third\r\nThe fourth\r\nThe fifth"};
    for (std::size_t i = 0; i < EDITS; ++i) {
        SetWindowTextW(controls[Id(kFirstEdit, i)], kTexts[i]);
        m_Edits[i].m_autoHeight = 1;
        m_Edits[i].SubclassWindow(controls[Id(kFirstEdit, i)]);
    }
    m_Edits[EDIT_CUE].SetCue(u"The cue", true);
}

void Inputs::WrapCombos(const ControlMap& controls) {
    for (std::size_t i = 0; i < COMBOS; ++i) {
        m_Combos[i].SubclassWindow(controls[Id(kFirstCombo, i)]);
        for (const wchar_t* text : {L"Combo box", L"The second row", L"The third row"})
            m_Combos[i].Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
        m_Combos[i].Send(CB_SETCURSEL, 0);
    }
}

void Inputs::WrapSpins(HWND dialog, const ControlMap& controls) {
    for (std::size_t i = 0; i < SPINS; ++i) {
        if (i != SPIN_ALONE) {
            m_Numbers[i].m_autoHeight = 1;
            m_Numbers[i].SubclassWindow(controls[Id(kFirstNumber, i)]);
        }
        m_Spins[i].Create(dialog, Id(kFirstSpin, i), WS_VISIBLE | UDS_SETBUDDYINT | kSpinStyles[i]);
        m_Spins[i].Send(UDM_SETBUDDY, reinterpret_cast<WPARAM>(m_Numbers[i].Handle()));
        m_Spins[i].Send(UDM_SETRANGE32, 0, 100);
        m_Spins[i].Send(UDM_SETPOS32, 0, 12);
    }
}

void Inputs::Place(const ControlMap& controls, HFONT font, int x, int y) {
    const auto place = [&](u16 id, int left, int top, int width, int height) {
        const PixelSize at = DialogUnitsToPixels(font, left, top);
        const PixelSize size = DialogUnitsToPixels(font, width, height);
        SetWindowPos(controls[id], nullptr, at.x, at.y, size.x, size.y, SWP_NOZORDER | SWP_NOACTIVATE);
    };
    for (std::size_t i = 0; i < EDITS; ++i) {
        place(Id(kFirstEdit, i), x + static_cast<int>(i) * kStep, y, kWidth,
              i == EDIT_LINES ? kLinesHeight : kHeight);
    }
    for (std::size_t i = 0; i < COMBOS; ++i)
        place(Id(kFirstCombo, i), x + static_cast<int>(i) * kStep, y + kRowStep, kWidth, kHeight);
    const int right = x + static_cast<int>(EDITS) * kStep;
    for (std::size_t i = 0; i < SPINS; ++i) {
        const int left = right + static_cast<int>(i % 2) * kNumberStep;
        const int top = y + static_cast<int>(i / 2) * kRowStep;
        place(Id(kFirstNumber, i), left, top, kNumberWidth, kHeight);
        if (i == SPIN_ALONE) place(Id(kFirstSpin, i), left, top, kNumberWidth, kHeight);
        m_Spins[i].OnAutoFit();
    }
}

int Inputs::Height() {
    return kLinesHeight;
}
