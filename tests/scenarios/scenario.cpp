#include "database/database.h"
#include "foundation/path.h"
#include "shell/app_settings.h"
#include "tests/scenarios/program.h"

void Scenario::SetUp() {
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Tolvane");
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    m_Folder = Units(folder);
    m_Folder.append(u"vaultmere-").append(Units(std::to_wstring(GetCurrentProcessId()).c_str()));
    m_Folder.append(u"-").append(Units(std::to_wstring(GetTickCount64()).c_str()));
    ASSERT_TRUE(CreateDirectories(m_Folder));
    MoveMouseAway();
}

void Scenario::TearDown() {
    if (!HasFailure()) return;
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    std::string path = std::string("build/scenario-failed/").append(test->name()).append(".bmp");
    for (char& unit : path)
        if (unit == '/' && &unit > &path[22]) unit = '-';
    CreateDirectoryW(L"build\\scenario-failed", nullptr);
    Picture(GetDesktopWindow()).Save(path.c_str());
}

tvstring Scenario::InFolder(const char16_t* name) const {
    return JoinPath(m_Folder, name);
}

void Scenario::EnterTexts(std::u16string_view first, const char16_t* second) {
    TypeText(first);
    if (second != nullptr) {
        Type(VK_TAB);
        TypeText(second);
    }
    Type(VK_RETURN);
}

void Scenario::MakeDatabase(const tvstring& path, const tvstring& name, const tvstring& password) const {
    VMRD_DB database;
    database.MakeCurrent();
    ASSERT_TRUE(database.New(name));
    database.SetPath(path);
    database.SetMasterPassword(password);
    ASSERT_TRUE(database.Save());
}

void Scenario::UseStoredTheme(const tvstring& name) {
    LoadStoreThemeName(LoadStore::Store, name);
}

void Scenario::EnterPath(const Program& program, const tvstring& path) {
    HWND file = program.WaitForDialog();
    ASSERT_NE(file, nullptr);
    TypeText(path);
    Type(VK_RETURN);
    EXPECT_TRUE(PumpUntil([&] { return program.Dialog() != file; })) << "the file dialog stays";
}
