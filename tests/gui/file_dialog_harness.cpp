#include "tests/gui/file_dialog_harness.h"

#include "foundation/path.h"
#include "foundation/textops.h"

namespace {

tvstring PathOf(IShellItem* item) {
    const tvcomptr<IShellItem> owned(item);
    wchar_t* name = nullptr;
    if (item == nullptr || FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &name))) return {};
    const tvTaskText text(name);
    return Units(name);
}

void MakeFile(const tvstring& path) {
    const HANDLE file = CreateFileW(Wide(path.c_str()), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    CloseHandle(file);
}

}  // namespace

bool FileDialogUnderTest::OnBeforeShow(IFileDialog* dialog) {
    ++m_before;
    EXPECT_TRUE(tvFileDialog::OnBeforeShow(dialog));
    dialog->GetOptions(&m_options);
    dialog->GetFileTypeIndex(&m_typeIndex);
    IShellItem* folder = nullptr;
    if (SUCCEEDED(dialog->GetFolder(&folder))) m_shownFolder = PathOf(folder);
    wchar_t* name = nullptr;
    if (SUCCEEDED(dialog->GetFileName(&name))) {
        const tvTaskText text(name);
        m_name = name == nullptr ? u"" : Units(name);
    }
    void* save = nullptr;
    m_isSave = SUCCEEDED(dialog->QueryInterface(IID_IFileSaveDialog, &save));
    const tvcomptr<IFileSaveDialog> owned(static_cast<IFileSaveDialog*>(save));
    return m_goOn;
}

void FileDialogUnderTest::OnAfterShow(IFileDialog* dialog) {
    ++m_after;
    m_resultsAfter = m_results.size();
    tvFileDialog::OnAfterShow(dialog);
}

void FileDialogTest::SetUp() {
    wchar_t temp[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, temp);
    m_Folder = ::JoinPath(Units(temp), u"file_dialog_test\\");
    ASSERT_TRUE(CreateDirectories(m_Folder + u"inner"));
    MakeFile(InFolder(u"a.txt"));
    MakeFile(InFolder(u"b.txt"));
    m_Main.Open();
    m_Main.BeMain();
}

void FileDialogTest::TearDown() {
    for (const char16_t* name : {u"a.txt", u"b.txt"})
        DeleteFileW(Wide(InFolder(name).c_str()));
    RemoveDirectoryW(Wide(InFolder(u"inner").c_str()));
    RemoveDirectoryW(Wide(m_Folder.c_str()));
}

tvstring FileDialogTest::InFolder(const tvstring& name) const {
    return m_Folder + name.view();
}

BoxUnderTest::Step FileDialogTest::WaitForDialog() {
    return [this] {
        m_Shown = FrontDialog(u"#32770");
        return m_Shown != nullptr && GetForegroundWindow() == m_Shown;
    };
}

// The first edit control that can be seen.
HWND FileDialogTest::NameField() const {
    HWND found = nullptr;
    EnumChildWindows(
        m_Shown,
        [](HWND child, LPARAM lParam) -> BOOL {
            wchar_t name[16] = {};
            GetClassNameW(child, name, 16);
            if (lstrcmpiW(name, L"Edit") != 0 || IsWindowVisible(child) == FALSE) return TRUE;
            *reinterpret_cast<HWND*>(lParam) = child;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

std::vector<BoxUnderTest::Step> FileDialogTest::TypeName(const tvstring& name) {
    const auto field = [this] { return NameField(); };
    return {WaitForDialog(), [field] { return field() != nullptr; }, Once([field, name] {
                SetFocus(field());
                SetWindowTextW(field(), Wide(name.c_str()));
            }),
            [field] { return GetFocus() == field(); }, Key(VK_RETURN)};
}

testing::AssertionResult IsPath(const tvstring& actual, const tvstring& expected) {
    if (EqualNoCase(actual, expected)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(std::u16string(actual.view())) << " is not "
                                       << testing::PrintToString(std::u16string(expected.view()));
}
