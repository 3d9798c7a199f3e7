#include "toolkit/file_dialog.h"

#include <algorithm>

#include "foundation/path.h"
#include "foundation/textops.h"
#include "toolkit/com_pointer.h"

namespace {

constexpr char16_t kBackslash = u'\\';

tvcomptr<IFileDialog> MakeModern(bool save) {
    void* made = nullptr;
    const HRESULT result = CoCreateInstance(save ? CLSID_FileSaveDialog : CLSID_FileOpenDialog, nullptr,
                                            CLSCTX_INPROC_SERVER, IID_IFileDialog, &made);
    return tvcomptr<IFileDialog>(SUCCEEDED(result) ? static_cast<IFileDialog*>(made) : nullptr);
}

}  // namespace

bool tvFileDialog::OnBeforeShow(IFileDialog* /*dialog*/) {
    return true;
}

void tvFileDialog::OnAfterShow(IFileDialog* /*dialog*/) {}

bool tvFileDialog::Show() {
    m_results.clear();
    m_folder = FolderOf(m_initialPath, false);
    const HWND owner = GetOwner();
    if (m_legacyOnly) return ShowLegacy(owner) && IsComplete();
    const tvcomptr<IFileDialog> dialog = MakeModern(m_save && !m_pickFolder);
    if (!dialog) return ShowLegacy(owner) && IsComplete();
    return ShowModern(*dialog.Get(), owner) && IsComplete();
}

bool tvFileDialog::IsComplete() const noexcept {
    return m_multiSelect && !m_save && !m_pickFolder ? !m_results.empty() : m_results.size() == 1;
}

tvstring tvFileDialog::GetPath() const {
    return m_results.empty() ? tvstring() : m_results.front();
}

void tvFileDialog::SetFilter(const tvstring& name, const tvstring& pattern, bool clearFirst) {
    if (clearFirst) m_filters.clear();
    m_filters.push_back({name, pattern});
}

void tvFileDialog::SetDefaultExtension(const tvstring& text) {
    m_defaultExtension = text;
    Trim(m_defaultExtension, u". \r\n\t", TRIM_BOTH);
}

tvstring tvFileDialog::JoinPath(const tvstring& folder, const tvstring& name) {
    return ::JoinPath(folder, name);
}

tvstring tvFileDialog::FolderOf(const tvstring& path, bool keepBackslash) {
    const std::size_t last = path.rfind(kBackslash);
    if (last == tvstring::npos) return {};
    const bool isRoot = last == 0 || path[last - 1] == u':';
    return path.substr(0, keepBackslash || isRoot ? last + 1 : last);
}

tvstring tvFileDialog::SuggestedName() const {
    return m_initialPath.substr(FolderOf(m_initialPath, true).size());
}

UINT tvFileDialog::SystemFilterIndex() const noexcept {
    const i32 count = static_cast<i32>(m_filters.size());
    return count == 0 ? 0 : static_cast<UINT>(std::min(std::max(m_filterIndex, 0), count - 1) + 1);
}

void tvFileDialog::TakeSystemFilterIndex(UINT index) noexcept {
    if (index != 0) m_filterIndex = static_cast<i32>(index) - 1;
}
