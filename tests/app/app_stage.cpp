#include "tests/app/app_stage.h"

#include <filesystem>
#include <system_error>

#include "foundation/path.h"
#include "platform/registry.h"
#include "shell/app.h"
#include "toolkit/control_state.h"
#include "toolkit/scroll_box.h"
#include "toolkit/theme.h"

namespace {

constexpr const char16_t* kProductTree = u"Software\\Tolvane";
constexpr int kFirstEdit = 2014;
constexpr int kSecondEdit = 2015;

// The settings in memory, as after a first start.
void ResetSettings() {
    CVMRAppData& data = TheAppData();
    data.ClearRecent();
    data.bHistory = 1;
    data.bAutoOpen = 0;
    data.bAutoClearClipboard = 0;
    data.filterFlag = 0;
    TheDatabase().bAutoSave = false;
    TheDatabase().bFilterPWD = false;
}

}  // namespace

AppTest::AppTest() {
    platform::DeleteUserTree(kProductTree);
    ResetSettings();
    UseTheme(u"Light");
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    m_Folder = Units(folder);
    m_Folder.append(u"app-tests-").append(Units(std::to_wstring(GetCurrentProcessId()).c_str()));
    m_Folder.append(u"-").append(Units(std::to_wstring(GetTickCount64()).c_str()));
    EXPECT_TRUE(CreateDirectories(m_Folder));
    MoveMouseAway();
}

AppTest::~AppTest() {
    Close();
    TheDatabase().Reset();
    TheDatabase().m_File.Close();
    platform::DeleteUserTree(kProductTree);
    std::error_code ignored;  // a test may have locked a file of its own
    std::filesystem::remove_all(Wide(m_Folder.c_str()), ignored);
}

void AppTest::Open(std::unique_ptr<CVMRDlg> window) {
    m_Main = std::move(window);
    TheApp().m_mainWnd = m_Main.get();
    m_Main->BuildTemplate();
    ASSERT_TRUE(m_Main->Create(nullptr));
    Settle(Window());
}

void AppTest::Close() {
    m_Main.reset();
    TheApp().m_mainWnd = nullptr;
    PumpQueue();
}

void AppTest::Command(u16 id) const {
    SendMessageW(Window(), WM_COMMAND, id, 0);
    PumpQueue();
}

HWND AppTest::Control(int id) const {
    return tvWnd::FindDescendant(Window(), id);
}

void AppTest::ExpectInTheMiddle(HWND dialog) const {
    RECT outer{};
    RECT inner{};
    GetWindowRect(Window(), &outer);
    GetWindowRect(dialog, &inner);
    EXPECT_NEAR(inner.left + inner.right, outer.left + outer.right, 2);
    EXPECT_NEAR(inner.top + inner.bottom, outer.top + outer.bottom, 2);
}

tvstring AppTest::InFolder(const char16_t* name) const {
    return JoinPath(m_Folder, name);
}

tvstring AppTest::MakeFile(const char16_t* name, const tvstring& password) const {
    VMRD_DB& database = TheDatabase();
    tvstring path = InFolder(name);
    EXPECT_TRUE(database.New(name));
    database.SetPath(path);
    database.SetMasterPassword(password);
    EXPECT_TRUE(database.Save());
    database.Reset();
    database.m_File.Close();
    return path;
}

std::function<bool()> AnswerWith(tvstring first, tvstring second) {
    return [first = std::move(first), second = std::move(second)] {
        HWND dialog = FrontDialog();
        if (dialog == nullptr || tvWnd::FindDescendant(dialog, kFirstEdit) == nullptr) return false;
        SetDlgItemTextW(dialog, kFirstEdit, Wide(first.c_str()));
        if (!second.empty()) SetDlgItemTextW(dialog, kSecondEdit, Wide(second.c_str()));
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        return true;
    };
}

std::function<bool()> PressButton(int id) {
    return [id] {
        HWND dialog = FrontDialog();
        if (dialog == nullptr || tvWnd::FindDescendant(dialog, id) == nullptr) return false;
        PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(id), 0);
        return true;
    };
}

RECT OuterPlace(HWND control) {
    return PlaceInParent(tvScrollBox::OuterOf(control));
}

RECT OuterScreenPlace(HWND control) {
    RECT rect{};
    GetWindowRect(tvScrollBox::OuterOf(control), &rect);
    return rect;
}

tvstring TextOf(HWND window) {
    return TextOfWindow(window);
}
