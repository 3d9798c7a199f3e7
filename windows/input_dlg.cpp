#include "windows/input_dlg.h"

#include <algorithm>

#include "database/database.h"
#include "foundation/language.h"
#include "foundation/product.h"
#include "foundation/textops.h"
#include "shell/placement.h"
#include "toolkit/app.h"
#include "toolkit/control_state.h"
#include "toolkit/icon_size.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"
#include "windows/command_ids.h"
#include "windows/dialog_layout.h"
#include "windows/file_dialogs.h"
#include "windows/set_control.h"

namespace {

constexpr u16 kEdit1 = 2014;
constexpr u16 kEdit2 = 2015;
constexpr u16 kExtra = 2006;
constexpr i32 kWholeWidth = 100;

}  // namespace

CVMRInputDlg::CVMRInputDlg() : m_okBtn(kWholeWidth), m_cancelBtn(kWholeWidth), m_extraBtn(kWholeWidth) {}

CVMRInputDlg::~CVMRInputDlg() {
    Detach(Window::Destroy);
}

// --- The template ---

void CVMRInputDlg::BuildTemplate() {
    if (HasTemplate()) return;
    TemplateBegin(250, 125, DialogKind::Popup, 5);
    AddControl(ATOM_EDIT, kEdit1, 7, 44, 236, 12);
    AddControl(ATOM_EDIT, kEdit2, 7, 67, 236, 12);
    AddControl(ATOM_BUTTON, IDOK, 123, 102, 58, 16);
    AddControl(ATOM_BUTTON, IDCANCEL, 185, 102, 58, 16);
    AddControl(ATOM_BUTTON, kExtra, 7, 102, 58, 16);
    m_edit1.m_autoHeight = 1;
    m_edit2.m_autoHeight = 1;
    m_edit1.m_NoAutoSelect = 0;
    if (m_MultiLine != 0) {
        u32& style = Item(0)->style;
        style &= ~static_cast<u32>(ES_AUTOHSCROLL);
        style |= ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL;
        DialogHeader* header = m_builder.Header();
        header->style = (header->style | WS_THICKFRAME) & ~static_cast<u32>(DS_MODALFRAME);
        m_edit1.m_autoHeight = -1;
        m_edit1.KeepSecret();  // entries can be anything
        m_edit1.m_NoAutoSelect = 1;
        m_PlainText = 1;
        m_TwoFields = 0;
    } else if (m_PlainText == 0) {
        Item(0)->style |= ES_PASSWORD;
        Item(1)->style |= ES_PASSWORD;
    }
    const SIZE icon = IconSize(m_Icon);
    m_iconWidth = icon.cx;
    m_iconHeight = icon.cy;
}

void CVMRInputDlg::OnSubclassControls() {
    m_edit1.SubclassDlgItem(m_hWnd, kEdit1);
    m_edit2.SubclassDlgItem(m_hWnd, kEdit2);
    m_okBtn.SubclassDlgItem(m_hWnd, IDOK);
    m_cancelBtn.SubclassDlgItem(m_hWnd, IDCANCEL);
    m_extraBtn.SubclassDlgItem(m_hWnd, kExtra);
}

// --- Opening ---

bool CVMRInputDlg::OnInitDialog() {
    SetTexts();
    SetUpExtraButton();
    SetText(m_okBtn, u"global", u"ok");
    SetText(m_cancelBtn, u"global", u"cancel");
    CVMRBaseDlg::OnInitDialog();
    if (m_MultiLine != 0) {
        LoadStoreSize(true);
        PutCaretAtEnd();
    }
    CenterWindow();
    return true;
}

// The texts move into the boxes, so that both are empty unless OK puts them back.
void CVMRInputDlg::SetTexts() {
    LimitTexts();
    if (!m_Text.empty()) SetText(m_edit1, m_Text);
    if (!m_Text2.empty()) SetText(m_edit2, m_Text2);
    m_Text.clear();
    m_Text2.clear();
    SetText(*this, m_BigTitle != 0 ? tvstring(kAppName) : m_Title);
    m_edit1.SetCue(m_Tip, true);
    ShowIf(m_edit2, m_TwoFields != 0);
    m_edit2.SetCue(m_Tip2, true);
}

// What is typed or pasted can be as long as an element can hold, and no longer: the system's own limit is
// half of that. It stays for passwords, which are overwritten unit by unit in the end.
void CVMRInputDlg::LimitTexts() const {
    if (m_PlainText == 0 && m_MultiLine == 0) return;
    for (const tvEdit* edit : {&m_edit1, &m_edit2})
        edit->Send(EM_SETLIMITTEXT, kLongestText);
}

void CVMRInputDlg::SetUpExtraButton() const {
    ShowIf(m_extraBtn, !m_ExtraCaption.empty() && m_ExtraCommand != 0);
    SetText(m_extraBtn, m_ExtraCaption);
}

void CVMRInputDlg::PutCaretAtEnd() const {
    const int length = GetWindowTextLengthW(m_edit1.Handle());
    PostMessageW(m_edit1.Handle(), EM_SETSEL, static_cast<WPARAM>(length), length);
    PostMessageW(m_edit1.Handle(), EM_SCROLLCARET, 0, 0);
}

// One size for all dialogs of several lines.
void CVMRInputDlg::LoadStoreSize(bool load) const {
    if (!HasStyle(m_hWnd, WS_THICKFRAME)) return;
    const SIZE present = SizeOf(*this);
    ScreenSize size{present.cx, present.cy};
    if (!load) {
        LoadStoreInputDlgSize(LoadStore::Store, size);
    } else if (LoadStoreInputDlgSize(LoadStore::Load, size)) {
        SetWindowPos(m_hWnd, nullptr, 0, 0, size.width, size.height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

// --- What the user does ---

bool CVMRInputDlg::IsComplete() const {
    if (m_AllowEmpty != 0) return true;
    if (m_MultiLine != 0) {
        tvstring text = TextOfWindow(m_edit1.Handle());
        Trim(text, u"\r\n", TRIM_BOTH);
        return !text.empty();
    }
    return GetWindowTextLengthW(m_edit1.Handle()) > 0 &&
           (m_TwoFields == 0 || GetWindowTextLengthW(m_edit2.Handle()) > 0);
}

void CVMRInputDlg::OnUpdateState() {
    EnableIf(m_okBtn, IsComplete());
}

// False if what is there is not enough for OK.
bool CVMRInputDlg::TakeTexts() {
    if (!IsComplete()) return false;
    m_Text = TextOfWindow(m_edit1.Handle());
    m_Text2 = TextOfWindow(m_edit2.Handle());
    return true;
}

// The path that stands in the box does not go to the dialog.
void CVMRInputDlg::Browse() const {
    tvFileDialog& dialog = GetFileDialog(FileDialogUse::ChooseProgram);
    if (dialog.Show()) SetText(m_edit1, dialog.GetPath());
}

void CVMRInputDlg::RunExtraCommand() const {
    if (m_ExtraCommand == CMD_BROWSE) {
        Browse();
    } else if (m_ExtraCommand != 0) {
        SendMessageW(tvApp::MainWindow(), WM_COMMAND, m_ExtraCommand, 0);
    }
}

// True if the command goes no further.
bool CVMRInputDlg::OnCommand(WPARAM wParam) {
    switch (LOWORD(wParam)) {
        case IDOK:
            return !TakeTexts();
        case kExtra:
            RunExtraCommand();
            return true;
        case kEdit1:
        case kEdit2:
            if (HIWORD(wParam) == EN_CHANGE) OnUpdateState();
            return false;
        default:
            return false;
    }
}

LRESULT CVMRInputDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) LoadStoreSize(false);
    if (message == WM_COMMAND && OnCommand(wParam)) return 0;
    return CVMRBaseDlg::WindowProc(message, wParam, lParam);
}

// --- Size and layout ---

int CVMRInputDlg::EditAreaHeight() const {
    constexpr int kLines = 6;
    const int edit = static_cast<int>(SizeOf(m_edit1).cy);
    if (m_MultiLine != 0) return kLines * TheTheme().TextHeight(m_font, nullptr);
    return m_TwoFields != 0 ? TheTheme().m_halfMarginY + 2 * edit + 8 : edit + 4;
}

void CVMRInputDlg::OnAutoSize() {
    const SIZE button = SizeOf(m_okBtn);
    const tvTheme& theme = TheTheme();
    RECT client = ClientOf(m_hWnd);
    const LONG least = 3 * theme.m_gapX + 2 * (theme.m_marginX + 2 * button.cx);
    const LONG most = 5 * button.cx + 2 * (theme.m_marginX + 2 * theme.m_gapX);
    client.right = std::min(std::max<LONG>(client.right, least), std::max(least, most));
    {
        const tvClientDC screen(nullptr);
        const tvMemoryDCHandle unseen(CreateCompatibleDC(screen.Get()));  // measures as the screen does
        const tvSelected font(unseen.Get(), m_font);
        OnPaintDlg(unseen.Get(), client);
    }
    const LONG gap = (m_infoLines < 2 ? 1 : 2) * theme.m_marginY + button.cy;
    client.bottom = m_editTop + theme.m_marginY + gap + EditAreaHeight();
    SizeToContent(m_hWnd, ContentOf(client));
}

void CVMRInputDlg::OnLayout() {
    const tvTheme& theme = TheTheme();
    const SIZE button = SizeOf(m_okBtn);
    RECT rest = ContentOf(ClientOf(m_hWnd));
    rest.top = m_editTop;
    const LONG top = rest.bottom - button.cy;
    const LONG left = rest.right - 2 * button.cx - theme.m_gapX;
    Place(m_cancelBtn, {rest.right - button.cx, top, rest.right, rest.bottom});
    Place(m_okBtn, {left, top, left + button.cx, rest.bottom});
    Place(m_extraBtn, {rest.left, top, rest.left + button.cx, rest.bottom});
    rest.bottom = top - theme.m_marginY;
    if (m_MultiLine != 0) {
        Place(m_edit1, rest);
        return;
    }
    const LONG edit = SizeOf(m_edit1).cy;
    const LONG second = rest.top + edit + theme.m_halfMarginY + 4;
    Place(m_edit1, {rest.left, rest.top, rest.right, rest.top + edit});
    Place(m_edit2, {rest.left, second, rest.right, second + edit});
}
