#include "windows/pass_gen_dlg.h"

#include "foundation/language.h"
#include "foundation/textops.h"
#include "toolkit/control_state.h"
#include "windows/set_control.h"

namespace {

constexpr u16 kPassword = 2014;
constexpr u16 kMinLength = 2015;
constexpr u16 kMaxLength = 2016;
constexpr u16 kMinSpin = 2017;
constexpr u16 kMaxSpin = 2018;
constexpr u16 kFirstClass = 2020;
constexpr u16 kGenerate = 2024;

// Not among the program's pictures: the buttons show their captions.
constexpr u32 kButtonIcon = 100;

constexpr PassGenClass kClassOfBox[kPassGenClasses] = {PASSGEN_UPPER, PASSGEN_LOWER, PASSGEN_DIGITS,
                                                       PASSGEN_OTHER};

}  // namespace

CVMRPassGenDlg::CVMRPassGenDlg()
    : m_okBtn(CVMRBaseButton::kKeepWidth, CVMRBaseButton::kUsualHeight, kButtonIcon),
      m_cancelBtn(CVMRBaseButton::kKeepWidth, CVMRBaseButton::kUsualHeight, kButtonIcon),
      m_generateBtn(CVMRBaseButton::kKeepWidth, CVMRBaseButton::kUsualHeight, kButtonIcon) {
    m_passwordEdit.m_autoHeight = 1;
    m_passwordEdit.KeepSecret();
    m_minEdit.m_autoHeight = 1;
    m_maxEdit.m_autoHeight = 1;
}

CVMRPassGenDlg::~CVMRPassGenDlg() {
    Detach(Window::Destroy);
}

// --- The template and the controls ---

void CVMRPassGenDlg::BuildTemplate() {
    constexpr int kFirstTop = 94;
    constexpr int kStep = 12;
    if (HasTemplate()) return;
    TemplateBegin(245, 178, DialogKind::Popup, 10);
    AddControl(ATOM_EDIT, kPassword, 7, 30, 231, 12);
    AddControl(ATOM_EDIT, kMinLength, 7, 72, 102, 12)->style |= ES_NUMBER;
    AddControl(ATOM_EDIT, kMaxLength, 125, 72, 102, 12)->style |= ES_NUMBER;
    for (u16 i = 0; i < kPassGenClasses; ++i) {
        AddControl(ATOM_BUTTON, static_cast<u16>(kFirstClass + i), 16, kFirstTop + i * kStep, 142, 10)
            ->style |= BS_AUTOCHECKBOX | BS_MULTILINE;
    }
    AddControl(ATOM_BUTTON, kGenerate, 188, 125, 50, 14);
    AddControl(ATOM_BUTTON, IDOK, 130, 157, 50, 14);
    AddControl(ATOM_BUTTON, IDCANCEL, 188, 157, 50, 14);
}

void CVMRPassGenDlg::OnSubclassControls() {
    m_passwordEdit.SubclassDlgItem(m_hWnd, kPassword);
    m_minEdit.SubclassDlgItem(m_hWnd, kMinLength);
    m_maxEdit.SubclassDlgItem(m_hWnd, kMaxLength);
    for (u16 i = 0; i < kPassGenClasses; ++i)
        m_classBoxes[i].SubclassDlgItem(m_hWnd, kFirstClass + i);
    m_okBtn.SubclassDlgItem(m_hWnd, IDOK);
    m_cancelBtn.SubclassDlgItem(m_hWnd, IDCANCEL);
    m_generateBtn.SubclassDlgItem(m_hWnd, kGenerate);
    MakeSpin(m_spins[0], kMinSpin, m_minEdit);
    MakeSpin(m_spins[1], kMaxSpin, m_maxEdit);
}

// It comes behind its edit box, or behind what holds that where it is no child of the dialog.
void CVMRPassGenDlg::MakeSpin(tvSpinCtrl& spin, u16 id, const tvEdit& buddy) const {
    constexpr DWORD kStyle = WS_VISIBLE | UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_ARROWKEYS;
    if (!spin.Create(m_hWnd, id, kStyle)) return;
    const HWND parent = GetParent(buddy.Handle());
    SetWindowPos(spin.Handle(), parent == m_hWnd ? buddy.Handle() : parent, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOSENDCHANGING);
    spin.Send(UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy.Handle()));
}

void CVMRPassGenDlg::OnUpdateText() {
    SetText(*this, u"pwdgen", u"title");
    SetText(m_okBtn, u"global", u"ok");
    SetText(m_cancelBtn, u"global", u"cancel");
    SetText(m_classBoxes[0], u"pwdgen", u"upper");
    SetText(m_classBoxes[1], u"pwdgen", u"lower");
    SetText(m_classBoxes[2], u"pwdgen", u"num");
    SetText(m_classBoxes[3], u"pwdgen", u"other");
    SetText(m_generateBtn, u"pwdgen", u"gen");
}

bool CVMRPassGenDlg::OnInitDialog() {
    const PassGenRequest usual;
    CVMRBaseDlg::OnInitDialog();
    LayOut();
    for (const tvSpinCtrl& spin : m_spins)
        spin.Send(UDM_SETRANGE32, kPassGenShortest, kPassGenLongest);
    SetText(m_passwordEdit, m_Password);
    SetDlgItemInt(m_hWnd, kMinLength, static_cast<UINT>(usual.minLength), FALSE);
    SetDlgItemInt(m_hWnd, kMaxLength, static_cast<UINT>(usual.maxLength), FALSE);
    LoadStoreOptions(true);
    CenterWindow();
    return true;
}

// --- The options ---

PassGenRequest CVMRPassGenDlg::ReadControls() const {
    PassGenRequest request;
    for (std::size_t i = 0; i < kPassGenClasses; ++i)
        request.use[kClassOfBox[i]] = m_classBoxes[i].Send(BM_GETCHECK) == BST_CHECKED ? 1 : 0;
    request.minLength = static_cast<i32>(GetDlgItemInt(m_hWnd, kMinLength, nullptr, FALSE));
    request.maxLength = static_cast<i32>(GetDlgItemInt(m_hWnd, kMaxLength, nullptr, FALSE));
    return request;
}

void CVMRPassGenDlg::NormaliseLengths(i32* min, i32* max, WriteBack mode) const {
    const ChangedLengths changed = ::NormaliseLengths(*min, *max);
    const auto isWritten = [mode](bool isChanged) {
        return mode == WriteBack::Both || (mode == WriteBack::Changed && isChanged);
    };
    if (isWritten(changed.min)) SetDlgItemInt(m_hWnd, kMinLength, static_cast<UINT>(*min), FALSE);
    if (isWritten(changed.max)) SetDlgItemInt(m_hWnd, kMaxLength, static_cast<UINT>(*max), FALSE);
}

void CVMRPassGenDlg::LoadStoreOptions(bool load) const {
    if (!load) {
        StorePassGenOptions(ReadControls());
        return;
    }
    PassGenRequest request = LoadPassGenOptions();
    NormaliseLengths(&request.minLength, &request.maxLength, WriteBack::Both);
    for (std::size_t i = 0; i < kPassGenClasses; ++i)
        m_classBoxes[i].Send(BM_SETCHECK, request.use[kClassOfBox[i]] != 0 ? BST_CHECKED : BST_UNCHECKED);
}

tvstring CVMRPassGenDlg::GeneratePassword() {
    tvstring password = ::GeneratePassword([this] {
        PassGenRequest request = ReadControls();
        NormaliseLengths(&request.minLength, &request.maxLength, WriteBack::Changed);
        return request;
    });
    m_passwordEdit.Wipe();  // nothing of the one before stays in the control
    SetText(m_passwordEdit, password);
    return password;
}

// --- What the user does ---

void CVMRPassGenDlg::OnGenerate() {
    const tvstring password = GeneratePassword();
    if (!password.empty()) {
        m_LengthLabel = u"L = ";
        m_LengthLabel.append(FormatInt(static_cast<i32>(password.size())));
    }
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE);
    LoadStoreOptions(false);
}

void CVMRPassGenDlg::OnPasswordChanged() {
    if (m_LengthLabel.empty()) return;
    m_LengthLabel.clear();
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE);
}

void CVMRPassGenDlg::OnCommand(WPARAM wParam) {
    switch (LOWORD(wParam)) {
        case IDOK:
            m_Password = TextOfWindow(m_passwordEdit.Handle());
            break;
        case kPassword:
            if (HIWORD(wParam) == EN_CHANGE) OnPasswordChanged();
            break;
        case kMinLength:
        case kMaxLength:
            if (HIWORD(wParam) == EN_KILLFOCUS) {
                PassGenRequest request = ReadControls();
                NormaliseLengths(&request.minLength, &request.maxLength, WriteBack::Changed);
            }
            break;
        case kGenerate:
            OnGenerate();
            break;
        default:
            break;
    }
}

LRESULT CVMRPassGenDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            OnCommand(wParam);
            break;
        default:
            break;
    }
    return CVMRBaseDlg::WindowProc(message, wParam, lParam);
}
