// What the commands of the database ask the user.
#include <memory>

#include "database/database.h"
#include "foundation/language.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/message_box.h"
#include "windows/caption.h"
#include "windows/file_dialogs.h"
#include "windows/input_dlg.h"
#include "windows/main_dlg.h"

bool CVMRDlg::DiscardPrompt() {
    constexpr u32 kStyle = MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2;
    if (!TheDatabase().m_Changed) return true;
    return tvMessageBox::Show(m_hWnd, LangText(u"file", u"warn_notsaved"), kStyle, {}) == IDYES;
}

tvstring CVMRDlg::PromptDatabaseName(const tvstring* current) {
    const auto dialog = std::make_unique<CVMRInputDlg>();
    dialog->m_Title = WithoutMarks(LangText(u"file", current == nullptr ? u"create_title" : u"modify_title"));
    dialog->m_Info = LangText(u"file", current == nullptr ? u"create_info" : u"modify_info");
    dialog->m_Tip = LangText(u"file", u"modify_tip");
    if (current != nullptr) dialog->m_Text = *current;
    dialog->m_PlainText = 1;
    dialog->RunModal();
    return dialog->m_Text;
}

// Two texts that differ are an error, which ends it.
tvstring CVMRDlg::PromptNewPassword() {
    const auto dialog = std::make_unique<CVMRInputDlg>();
    dialog->m_Title = WithoutMarks(LangText(u"file", u"setpwd_title"));
    dialog->m_Info = LangText(u"file", u"setpwd_info");
    dialog->m_Tip = LangText(u"file", u"setpwd_tip");
    dialog->m_Tip2 = LangText(u"file", u"setpwd_tip2");
    dialog->m_TwoFields = 1;
    dialog->m_Icon = TheAppData().hIconSetPwd.Get();
    if (dialog->RunModal() != IDOK || dialog->m_Text.empty()) return {};
    if (dialog->m_Text == dialog->m_Text2) return dialog->m_Text;
    Tell(STATUS_ERROR, LangText(u"file", u"err_pwdnotmatch"));
    return {};
}

tvstring CVMRDlg::PromptOpenPassword(const tvstring& path) {
    const auto dialog = std::make_unique<CVMRInputDlg>();
    dialog->m_Title = WithoutMarks(LangText(u"file", u"needpwd_title"));
    dialog->m_Info = LangText(u"file", u"needpwd_info", path);
    dialog->m_Tip = LangText(u"file", u"needpwd_tip");
    dialog->m_Icon = TheAppData().hIconNeedPwd.Get();
    dialog->RunModal();
    return dialog->m_Text;
}

tvstring CVMRDlg::AskForSavePath() {
    tvFileDialog& dialog = GetFileDialog(FileDialogUse::SaveDatabase);
    return dialog.Show() ? dialog.GetPath() : tvstring();
}
