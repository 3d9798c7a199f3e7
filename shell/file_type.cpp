#include "shell/file_type.h"

#include "foundation/language.h"
#include "foundation/path.h"
#include "foundation/registry.h"
#include "foundation/textops.h"
#include "toolkit/app.h"
#include "toolkit/message_box.h"

namespace {

constexpr const char16_t* kProgramId = u"Tolvane.Vaultmere";
constexpr const char16_t* kExtensionKey = u"Software\\Classes\\.VMR";
constexpr const char16_t* kProgramKey = u"Software\\Classes\\Tolvane.Vaultmere";
constexpr const char16_t* kIconKey = u"Software\\Classes\\Tolvane.Vaultmere\\DefaultIcon";
constexpr const char16_t* kCommandKey = u"Software\\Classes\\Tolvane.Vaultmere\\shell\\open\\command";

void WriteDefault(const char16_t* subkey, const tvstring& text) {
    const RegKey key(subkey, RegKey::For::Writing);
    RegWriteText(key.Get(), nullptr, text);
}

tvstring ReadDefault(const char16_t* subkey) {
    tvstring text;
    const RegKey key(subkey, RegKey::For::Reading);
    RegReadText(key.Get(), nullptr, text);
    return text;
}

// The path stands without quotation marks.
void Add() {
    const tvstring program = ProgramPath(u"");
    WriteDefault(kExtensionKey, kProgramId);
    WriteDefault(kProgramKey, LangText(u"shelltype", u"name"));
    WriteDefault(kIconKey, tvstring(program).append(u",0"));
    WriteDefault(kCommandKey, tvstring(program).append(u" %1"));
}

// An extension that another program has taken over stays.
void Remove() {
    platform::DeleteUserTree(kProgramKey);
    if (EqualNoCase(ReadDefault(kExtensionKey), kProgramId)) platform::DeleteUserTree(kExtensionKey);
}

// Captions of two buttons, for one message box only.
class ButtonTexts {
public:
    ButtonTexts(const tvstring& yes, const tvstring& no)
        : m_Yes(tvMessageBox::GetButtonText(IDYES, nullptr, false)),
          m_No(tvMessageBox::GetButtonText(IDNO, nullptr, false)) {
        tvMessageBox::SetButtonText(IDYES, yes);
        tvMessageBox::SetButtonText(IDNO, no);
    }
    ~ButtonTexts() {
        tvMessageBox::SetButtonText(IDYES, m_Yes);
        tvMessageBox::SetButtonText(IDNO, m_No);
    }
    ButtonTexts(const ButtonTexts&) = delete;
    ButtonTexts& operator=(const ButtonTexts&) = delete;

private:
    tvstring m_Yes;
    tvstring m_No;
};

int AskForFileType() {
    constexpr u32 kStyle = 0x283;  // Yes, No and Cancel, the program's icon, Cancel for Enter
    const ButtonTexts texts(LangText(u"shelltype", u"enable"), LangText(u"shelltype", u"disable"));
    return tvMessageBox::Show(tvApp::MainWindow(), LangText(u"shelltype", u"info"), kStyle,
                              LangText(u"shelltype", u"title"));
}

}  // namespace

bool RegisterFileType(FileType what) {
    if (what == FileType::Add) {
        Add();
    } else {
        Remove();
    }
    SHChangeNotify(SHCNE_ASSOCCHANGED, 0, nullptr, nullptr);
    return true;
}

bool PromptFileType() {
    const int answer = AskForFileType();
    if (answer == IDYES) return RegisterFileType(FileType::Add);
    if (answer == IDNO) return RegisterFileType(FileType::Remove);
    return false;
}
