// The shell's dialog for files and folders.
#include "toolkit/com_pointer.h"
#include "toolkit/file_dialog.h"
#include "toolkit/late_functions.h"

namespace {

tvcomptr<IShellItem> ItemByParsing(const tvstring& path) {
    void* made = nullptr;
    // Without the function the answer is 0, as for success, and there is no item.
    CallIfThere(TheLateFunctions().shCreateItemFromParsingName, Wide(path.c_str()),
                static_cast<IBindCtx*>(nullptr), IID_IShellItem, &made);
    return tvcomptr<IShellItem>(static_cast<IShellItem*>(made));
}

tvcomptr<IShellItem> ItemByList(const tvstring& path) {
    ITEMIDLIST* parsed = nullptr;
    if (FAILED(SHParseDisplayName(Wide(path.c_str()), nullptr, &parsed, 0, nullptr))) return {};
    const tvItemList list(parsed);
    IShellItem* made = nullptr;
    if (FAILED(SHCreateShellItem(nullptr, nullptr, list.Get(), &made))) return {};
    return tvcomptr<IShellItem>(made);
}

tvcomptr<IShellItem> ItemOf(const tvstring& path) {
    tvcomptr<IShellItem> item = ItemByParsing(path);
    return item ? std::move(item) : ItemByList(path);
}

tvcomptr<IShellItemArray> ChosenItems(IFileDialog& dialog) {
    void* asked = nullptr;
    if (FAILED(dialog.QueryInterface(IID_IFileOpenDialog, &asked))) return {};
    const tvcomptr<IFileOpenDialog> open(static_cast<IFileOpenDialog*>(asked));
    IShellItemArray* items = nullptr;
    if (FAILED(open.Get()->GetResults(&items))) return {};
    return tvcomptr<IShellItemArray>(items);
}

}  // namespace

bool tvFileDialog::ShowModern(IFileDialog& dialog, HWND owner) {
    SetTexts(dialog);
    SetFilters(dialog);
    SetPlace(dialog);
    SetOptions(dialog);
    if (!OnBeforeShow(&dialog) || FAILED(dialog.Show(owner))) return false;
    OnAfterShow(&dialog);
    UINT index = 0;
    if (!m_filters.empty() && SUCCEEDED(dialog.GetFileTypeIndex(&index))) TakeSystemFilterIndex(index);
    TakeResults(dialog);
    return true;
}

void tvFileDialog::SetTexts(IFileDialog& dialog) const {
    if (!m_title.empty()) dialog.SetTitle(Wide(m_title.c_str()));
    if (!m_defaultExtension.empty()) dialog.SetDefaultExtension(Wide(m_defaultExtension.c_str()));
}

void tvFileDialog::SetFilters(IFileDialog& dialog) const {
    if (m_filters.empty()) return;
    std::vector<COMDLG_FILTERSPEC> types;
    for (const Filter& filter : m_filters)
        types.push_back({Wide(filter.name.c_str()), Wide(filter.pattern.c_str())});
    dialog.SetFileTypes(static_cast<UINT>(types.size()), types.data());
    dialog.SetFileTypeIndex(SystemFilterIndex());
}

void tvFileDialog::SetPlace(IFileDialog& dialog) const {
    if (!m_folder.empty()) {
        if (const tvcomptr<IShellItem> folder = ItemOf(m_folder)) dialog.SetFolder(folder.Get());
    }
    const tvstring name = SuggestedName();
    if (!name.empty()) dialog.SetFileName(Wide(name.c_str()));
}

u32 tvFileDialog::ModernOptions(u32 old) const noexcept {
    constexpr u32 kTakenOut = FOS_HIDEPINNEDPLACES | FOS_PICKFOLDERS;
    u32 options = (old & ~kTakenOut) | FOS_FORCEFILESYSTEM;
    if (m_pickFolder) options |= FOS_PICKFOLDERS;
    options |= m_save ? FOS_OVERWRITEPROMPT : FOS_PATHMUSTEXIST | FOS_FILEMUSTEXIST;
    if (!m_save && !m_pickFolder && m_multiSelect) options |= FOS_ALLOWMULTISELECT;
    return options;
}

void tvFileDialog::SetOptions(IFileDialog& dialog) const {
    FILEOPENDIALOGOPTIONS options = 0;
    dialog.GetOptions(&options);
    dialog.SetOptions(ModernOptions(options));
}

void tvFileDialog::TakeResults(IFileDialog& dialog) {
    if (const tvcomptr<IShellItemArray> items = ChosenItems(dialog)) {
        DWORD count = 0;
        items.Get()->GetCount(&count);
        for (DWORD i = 0; i < count; ++i) {
            IShellItem* item = nullptr;
            if (FAILED(items.Get()->GetItemAt(i, &item))) continue;
            const tvcomptr<IShellItem> owned(item);
            AddResult(*item);
        }
        return;
    }
    IShellItem* item = nullptr;
    if (FAILED(dialog.GetResult(&item))) return;
    const tvcomptr<IShellItem> owned(item);
    AddResult(*item);
}

void tvFileDialog::AddResult(IShellItem& item) {
    wchar_t* name = nullptr;
    if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &name))) return;
    const tvTaskText owned(name);
    if (name != nullptr && *name != 0) m_results.emplace_back(Units(name));
}
