#include "toolkit/message_box.h"

#include <algorithm>
#include <memory>
#include <new>

#include "foundation/path.h"
#include "foundation/textops.h"
#include "platform/clipboard.h"
#include "toolkit/app.h"
#include "toolkit/theme.h"

namespace {

// The controls of the template.
enum Control : int { CONTROL_BUTTON = 1001, CONTROL_CHECK = 1004 };

constexpr int kFailed = -1;
constexpr UINT kSecond = 1000;  // milliseconds

MessageTexts& TheMessageTexts() {
    static MessageTexts texts(&LoadSystemButtonText);
    return texts;
}

tvstring ProgramTitle() {
    const tvApp* app = tvApp::Get();
    return app != nullptr && !app->m_appName.empty() ? app->m_appName : FileNameOf(ProgramPath(u""));
}

bool IsVisibleControl(HWND control) {
    return (GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0;
}

bool CanBeClosed(HWND window) {
    const HMENU menu = GetSystemMenu(window, FALSE);
    const UINT state = menu == nullptr ? 0 : GetMenuState(menu, SC_CLOSE, MF_BYCOMMAND);
    return state == static_cast<UINT>(-1) || (state & (MF_GRAYED | MF_DISABLED)) == 0;
}

}  // namespace

tvMessageBox::tvMessageBox() {
    constexpr int kButtonX[] = {7, 67, 131};
    constexpr u32 kCheckStyle = BS_AUTOCHECKBOX | BS_TOP | BS_MULTILINE;
    m_builder.m_className = u"tvMsgBox00";
    TemplateBegin(188, 106, DialogKind::Popup, 4);
    for (u16 i = 0; i < 3; ++i)
        AddControl(ATOM_BUTTON, static_cast<u16>(CONTROL_BUTTON + i), kButtonX[i], 85, 50, 14);
    AddControl(ATOM_BUTTON, CONTROL_CHECK, 0, 0, 0, 0)->style |= kCheckStyle;
}

int tvMessageBox::Show(HWND parent, const tvstring& text, u32 style, const tvstring& title) {
    const std::unique_ptr<tvMessageBox> box(new (std::nothrow) tvMessageBox);
    return box == nullptr ? kFailed : box->Run(parent, text, style, title);
}

int tvMessageBox::Run(HWND parent, const tvstring& text, u32 style, const tvstring& title) {
    m_parent = parent;
    m_style = style;
    TakeTexts(text, title);
    if (const int answer = m_countDown.AutoAnswer(MessageButtonSet(m_style))) {
        m_checkValue = m_countDown.m_checkResult;
        return answer;
    }
    return DoModal();
}

void tvMessageBox::TakeTexts(const tvstring& text, const tvstring& title) {
    m_text = text;
    Trim(m_text, u"\r\n", TRIM_START);
    Trim(m_heading, u"\r\n", TRIM_END);
    m_title = title.empty() ? ProgramTitle() : title;
    CleanCaption(m_title, false, CUT_UNLESS_ONE);
}

void tvMessageBox::SetCheck(const char16_t* text, u32 value) {
    m_checkText = text;
    m_checkValue = value;
}

void tvMessageBox::SetCountDown(i32 seconds, u32 buttonId, bool checkResult) {
    m_countDown.m_seconds = seconds;
    m_countDown.m_buttonId = buttonId;
    m_countDown.m_checkResult = checkResult ? 1 : 0;
}

void tvMessageBox::SetButtonText(int id, const tvstring& text) {
    TheMessageTexts().Get(id, text.c_str(), false);
}

tvstring tvMessageBox::GetButtonText(int id, const char16_t* newText, bool forceNew) {
    return TheMessageTexts().Get(id, newText, forceNew);
}

// --- Setting up ---

void tvMessageBox::OnSubclassControls() {
    int id = CONTROL_BUTTON;
    for (tvButton* button : {&m_button1, &m_button2, &m_button3})
        button->SubclassDlgItem(m_hWnd, id++);
    m_check.SubclassDlgItem(m_hWnd, CONTROL_CHECK);
}

bool tvMessageBox::OnInitDialog() {
    tvBaseDlg::OnInitDialog();
    SelectIcon();
    SetWindowTextW(m_hWnd, Wide(m_title.c_str()));
    SetUpButtons();
    SetUpCheck();
    FitToContent();
    StartCountDown();
    return false;  // the focus is on a button
}

void tvMessageBox::SelectIcon() {
    if ((m_style & MB_ICONMASK) == 0) m_style |= MessageButtonSet(m_style).UsualIcon();
    int key = 0;
    switch (m_style & MB_ICONMASK) {
        case MB_ICONERROR:
            key = ICON_ERROR;
            break;
        case MB_ICONQUESTION:
            key = ICON_QUESTION;
            break;
        case MB_ICONWARNING:
            key = ICON_WARNING;
            break;
        case MB_ICONINFORMATION:
            key = ICON_INFORMATION;
            break;
        default:
            break;
    }
    m_icon = TheTheme().m_icons.Find(key);
}

tvButton& tvMessageBox::ButtonAt(int index) {
    return index == 0 ? m_button3 : index == 1 ? m_button2 : m_button1;
}

// Each button gets its result for an identifier, so that a click says it all.
void tvMessageBox::SetUpButtons() {
    const MessageButtonSet set(m_style);
    const auto buttons = set.Buttons();
    for (std::size_t i = 0; i < 3; ++i) {
        const HWND button = ButtonAt(static_cast<int>(i)).Handle();
        const bool used = i < buttons.size();
        ShowWindow(button, used ? SW_SHOW : SW_HIDE);
        if (!used) continue;
        SetWindowLongPtrW(button, GWLP_ID, buttons[i]);
        SetWindowTextW(button, Wide(GetButtonText(buttons[i], nullptr, false).c_str()));
    }
    const int index = set.DefaultIndex(m_style);
    if (index < 0) return;
    Send(DM_SETDEFID, static_cast<WPARAM>(buttons[static_cast<std::size_t>(index)]));
    Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(ButtonAt(index).Handle()), TRUE);
}

void tvMessageBox::SetUpCheck() {
    if (m_checkText != nullptr) {
        SetWindowTextW(m_check.Handle(), Wide(m_checkText));
        m_check.Send(BM_SETCHECK, m_checkValue);
    }
    ShowWindow(m_check.Handle(), m_checkText != nullptr ? SW_SHOW : SW_HIDE);
}

// --- The count-down ---

int tvMessageBox::_countDown::AutoAnswer(const MessageButtonSet& buttons) const {
    const int button = static_cast<int>(m_buttonId);
    return m_seconds < 0 && button != 0 && buttons.Has(button) ? button : 0;
}

tvstring tvMessageBox::_countDown::Label() const {
    const i32 remaining = std::max(m_seconds - static_cast<i32>(m_elapsed), 0);
    return m_label + u" (" + FormatInt(remaining) + u")";
}

void tvMessageBox::StartCountDown() {
    m_countDown.m_elapsed = 0;
    if (m_countDown.m_seconds == 0 || m_countDown.m_buttonId == 0) return;
    const int id = static_cast<int>(m_countDown.m_buttonId);
    const HWND button = GetDlgItem(m_hWnd, id);
    if (!MessageButtonSet(m_style).Has(id) || button == nullptr || !IsVisibleControl(button)) return;
    m_countDown.m_label = GetButtonText(id, nullptr, false);
    SetWindowTextW(button, Wide(m_countDown.Label().c_str()));
    m_countDown.Start(m_hWnd, kSecond);
}

void tvMessageBox::OnCountDown() {
    const int id = static_cast<int>(m_countDown.m_buttonId);
    if (static_cast<i32>(m_countDown.m_elapsed) < m_countDown.m_seconds - 1) {
        ++m_countDown.m_elapsed;
        SetDlgItemTextW(m_hWnd, id, Wide(m_countDown.Label().c_str()));
        return;
    }
    m_countDown.Stop();
    m_check.Send(BM_SETCHECK, m_countDown.m_checkResult);
    EndDialog(id);
}

// --- Messages ---

LRESULT tvMessageBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (AnswerPaint(message, wParam, result)) return result;
    switch (message) {
        case WM_COMMAND:
            if (OnCommand(LOWORD(wParam))) return 0;
            break;
        case WM_CLOSE:
            if (CloseMapped()) return 0;
            break;
        case WM_TIMER:
            if (m_countDown.IsMine(m_hWnd, wParam)) OnCountDown();
            break;
        case WM_DESTROY:
            m_checkValue = static_cast<u32>(m_check.Send(BM_GETCHECK));
            m_countDown.Stop();
            break;
        default:
            break;
    }
    return tvBaseDlg::WindowProc(message, wParam, lParam);
}

// True if the command is done with.
bool tvMessageBox::OnCommand(int id) {
    if (id == IDCANCEL) return CloseMapped();
    if (id == CONTROL_CHECK) return false;
    EndDialog(id);
    return true;
}

// Ends the box as its set of buttons says for being closed; false if that says nothing.
bool tvMessageBox::CloseMapped() {
    const int closed = MessageButtonSet(m_style).ClosedResult();
    if (closed == 0 || !CanBeClosed(m_hWnd)) return false;
    EndDialog(closed);
    return true;
}

bool tvMessageBox::PreTranslateMsg(MSG* msg) {
    if (msg->message == WM_KEYDOWN && msg->wParam == 'C' && GetKeyState(VK_CONTROL) < 0) CopyText();
    return false;
}

void tvMessageBox::CopyText() const {
    tvstring text = m_heading;
    if (!m_heading.empty() && !m_text.empty()) text += u"\r\n";
    text += m_text.view();
    if (text.empty()) return;
    const auto* bytes = reinterpret_cast<const u8*>(text.c_str());
    const std::size_t size = (text.size() + 1) * sizeof(char16_t);
    platform::ClipboardBlock block(size, {bytes, size});
    if (!block || !platform::OpenClipboard(m_hWnd)) return;
    platform::EmptyClipboard();
    block.Put(platform::kFormatUnicodeText);
    platform::CloseClipboard();
}
