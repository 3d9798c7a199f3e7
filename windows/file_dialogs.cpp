#include "windows/file_dialogs.h"

#include <array>
#include <memory>

#include "foundation/language.h"
#include "windows/caption.h"

namespace {

constexpr std::size_t kDialogs = 4;
using Dialogs = std::array<std::unique_ptr<tvFileDialog>, kDialogs>;

void AddFilter(tvFileDialog& dialog, const char16_t* key, const char16_t* pattern) {
    tvstring name = LangText(u"file", key);
    name.append(u" (").append(pattern).append(u")");
    dialog.SetFilter(name, pattern, false);
}

std::unique_ptr<tvFileDialog> DatabaseDialog(bool save) {
    auto dialog = std::make_unique<tvFileDialog>();
    dialog->m_save = save;
    AddFilter(*dialog, u"type_vmr", u"*.VMR");
    AddFilter(*dialog, u"type_all", u"*.*");
    dialog->SetDefaultExtension(u"VMR");
    return dialog;
}

std::unique_ptr<tvFileDialog> ProgramDialog() {
    auto dialog = std::make_unique<tvFileDialog>();
    AddFilter(*dialog, u"type_app", u"*.exe");
    AddFilter(*dialog, u"type_all", u"*.*");
    dialog->SetDefaultExtension(u"exe");
    return dialog;
}

std::unique_ptr<tvFileDialog> ExportDialog() {
    auto dialog = std::make_unique<tvFileDialog>();
    dialog->m_save = true;
    AddFilter(*dialog, u"type_csv", u"*.csv");
    AddFilter(*dialog, u"type_html", u"*.htm");
    dialog->SetDefaultExtension(u".htm");
    dialog->m_title = WithoutMarks(LangText(u"file", u"export"));
    dialog->m_filterIndex = 1;
    return dialog;
}

Dialogs MakeDialogs() {
    return {DatabaseDialog(false), DatabaseDialog(true), ProgramDialog(), ExportDialog()};
}

}  // namespace

tvFileDialog& GetFileDialog(FileDialogUse use) {
    static Dialogs dialogs;
    static i32 madeAt = 0;
    if (!dialogs.front() || madeAt != Language().LoadCount()) {
        dialogs = MakeDialogs();
        madeAt = Language().LoadCount();
    }
    return *dialogs[static_cast<std::size_t>(use)];
}
