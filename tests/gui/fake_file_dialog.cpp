#include "tests/gui/fake_file_dialog.h"

#include <cstring>

namespace {

// A text of plain letters, as the expectations of tests have it.
std::string Letters(const wchar_t* text) {
    std::string letters;
    for (; text != nullptr && *text != 0; ++text)
        letters += static_cast<char>(*text);
    return letters;
}

// A text that the one who asked frees.
wchar_t* TaskCopy(const char16_t* text) {
    const std::u16string_view units(text);
    const std::size_t bytes = (units.size() + 1) * sizeof(char16_t);
    void* copy = CoTaskMemAlloc(bytes);
    std::memcpy(copy, text, bytes);
    return static_cast<wchar_t*>(copy);
}

template <typename Interface>
HRESULT Give(Interface* object, void** found) {
    *found = object;
    if (object == nullptr) return E_NOINTERFACE;
    object->AddRef();
    return S_OK;
}

}  // namespace

HRESULT FakeItem::QueryInterface(REFIID id, void** found) {
    return Give(id == IID_IUnknown || id == IID_IShellItem ? this : nullptr, found);
}

HRESULT FakeItem::GetDisplayName(SIGDN form, LPWSTR* name) {
    EXPECT_EQ(form, SIGDN_FILESYSPATH);
    if (m_Path == nullptr) return E_FAIL;
    *name = TaskCopy(m_Path);
    return S_OK;
}

HRESULT FakeItems::QueryInterface(REFIID id, void** found) {
    return Give(id == IID_IUnknown || id == IID_IShellItemArray ? this : nullptr, found);
}

HRESULT FakeItems::GetCount(DWORD* count) {
    *count = static_cast<DWORD>(m_items.size());
    return S_OK;
}

HRESULT FakeItems::GetItemAt(DWORD index, IShellItem** item) {
    void* found = nullptr;
    if (index >= m_items.size() || FAILED(Give(m_items[index], &found))) return E_FAIL;
    *item = m_items[index];
    return S_OK;
}

// --- The dialog ---

HRESULT FakeFileDialog::QueryInterface(REFIID id, void** found) {
    const bool isKnown =
        id == IID_IUnknown || id == IID_IFileDialog || (m_isOpen && id == IID_IFileOpenDialog);
    return Give(isKnown ? this : nullptr, found);
}

HRESULT FakeFileDialog::Show(HWND owner) {
    m_calls.emplace_back("show");
    m_owner = owner;
    return m_isCancelled ? HRESULT_FROM_WIN32(ERROR_CANCELLED) : S_OK;
}

HRESULT FakeFileDialog::SetFileTypes(UINT count, const COMDLG_FILTERSPEC* types) {
    std::string call = "types";
    for (UINT i = 0; i < count; ++i)
        call.append(" ").append(Letters(types[i].pszName)).append("=").append(Letters(types[i].pszSpec));
    m_calls.push_back(call);
    return S_OK;
}

HRESULT FakeFileDialog::SetFileTypeIndex(UINT index) {
    m_calls.push_back("type " + std::to_string(index));
    return S_OK;
}

HRESULT FakeFileDialog::GetFileTypeIndex(UINT* index) {
    m_calls.emplace_back("which type");
    *index = m_chosenType;
    return S_OK;
}

HRESULT FakeFileDialog::SetOptions(FILEOPENDIALOGOPTIONS options) {
    m_calls.push_back("options " + std::to_string(options));
    return S_OK;
}

HRESULT FakeFileDialog::GetOptions(FILEOPENDIALOGOPTIONS* options) {
    *options = m_oldOptions;
    return S_OK;
}

HRESULT FakeFileDialog::SetFolder(IShellItem* folder) {
    wchar_t* path = nullptr;
    EXPECT_HRESULT_SUCCEEDED(folder->GetDisplayName(SIGDN_FILESYSPATH, &path));
    const tvTaskText owned(path);
    m_calls.push_back("folder " + Letters(path));
    return S_OK;
}

HRESULT FakeFileDialog::SetFileName(LPCWSTR name) {
    m_calls.push_back("name " + Letters(name));
    return S_OK;
}

HRESULT FakeFileDialog::SetTitle(LPCWSTR title) {
    m_calls.push_back("title " + Letters(title));
    return S_OK;
}

HRESULT FakeFileDialog::SetDefaultExtension(LPCWSTR extension) {
    m_calls.push_back("extension " + Letters(extension));
    return S_OK;
}

HRESULT FakeFileDialog::GetResult(IShellItem** item) {
    m_calls.emplace_back("result");
    void* found = nullptr;
    if (FAILED(Give(m_result, &found))) return E_FAIL;
    *item = m_result;
    return S_OK;
}

HRESULT FakeFileDialog::GetResults(IShellItemArray** items) {
    m_calls.emplace_back("results");
    void* found = nullptr;
    if (FAILED(Give(m_results, &found))) return E_FAIL;
    *items = m_results;
    return S_OK;
}

// --- Its class ---

ModernDialogClass::ModernDialogClass(REFCLSID id, IFileDialog* dialog) : m_Dialog(dialog) {
    EXPECT_HRESULT_SUCCEEDED(
        CoRegisterClassObject(id, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_Registration));
}

ModernDialogClass::~ModernDialogClass() {
    CoRevokeClassObject(m_Registration);
}

HRESULT ModernDialogClass::CreateInstance(IUnknown*, REFIID id, void** made) {
    ++m_asked;
    *made = nullptr;
    return m_Dialog == nullptr ? E_FAIL : m_Dialog->QueryInterface(id, made);
}

HRESULT ModernDialogClass::QueryInterface(REFIID id, void** found) {
    return Give(id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr, found);
}
