// The messages that the program asks to be answered, and the password that it asks for before it opens a
// file.
#include <filesystem>
#include <fstream>

#include "tests/golden/picture_stage.h"
#include "tests/unit/database/old_file_builder.h"
#include "windows/command_ids.h"

namespace {

constexpr const char16_t* kMissing = u"C:\\Users\\Somebody\\Documents\\Passwords\\Private.vmr";

// Paths from the working folder, which are short and always the same.
class WorkingFolder {
public:
    explicit WorkingFolder(const std::filesystem::path& folder) : m_Before(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    ~WorkingFolder() { std::filesystem::current_path(m_Before); }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    std::filesystem::path m_Before;
};

std::filesystem::path PathOf(const tvstring& path) {
    return Wide(path.c_str());
}

// A database of the old format without items.
void WriteOldFile(const std::filesystem::path& path) {
    const old_file::Bytes bytes = old_file::Head("Old", "alt", 0);
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

TEST_P(WindowPictures, PasswordToOpen) {
    MakeFile(u"Private.vmr", u"one");
    OpenMain();
    const WorkingFolder inside(PathOf(InFolder(u"")));
    TakeDialog("password-to-open", [this] {
        const tvstring path(u"Private.vmr");
        Main().OnAppNotify(APPN_OPENDB, AsArgument(path.c_str()), 0, 0);
    });
}

TEST_P(WindowPictures, OldFormat) {
    const tvstring path = InFolder(u"old.vmr");
    WriteOldFile(PathOf(path));
    OpenMain();
    const DuringModal answering({AnswerWith(u"alt"), [this] {
                                     const HWND box = FrontDialog(u"tvMsgBox00");
                                     if (box == nullptr || IsChild(box, GetFocus()) == FALSE) return false;
                                     Take(box, "old-format");
                                     PostMessageW(box, WM_COMMAND, IDOK, 0);
                                     return true;
                                 }});
    Main().OnAppNotify(APPN_OPENDB, AsArgument(path.c_str()), 0, 0);
    EXPECT_TRUE(answering.Done());
}

TEST_P(WindowPictures, UnsavedChanges) {
    OpenDatabase();
    TheDatabase().m_Changed = true;
    TakeDialogOf(CMD_NEW, "unsaved-changes");
    TheDatabase().m_Changed = false;
}

TEST_P(WindowPictures, HistoryOff) {
    OpenMain();
    TakeDialogOf(CMD_HISTORY, "history-off");
}

TEST_P(WindowPictures, ClearRecent) {
    TheAppData().AddRecent(kMissing, u"Private");
    OpenMain();
    TakeDialog("clear-recent", [this] { Main().m_startDlg.m_recentList.Send(WM_COMMAND, CMD_RECENT_CLEAR); });
}

TEST_P(WindowPictures, RecentIsGone) {
    TheAppData().AddRecent(kMissing, u"Private");
    OpenMain();
    Main().m_startDlg.m_recentList.SetCurSel(0);
    TakeDialog("recent-gone", [this] { Main().m_startDlg.m_recentList.Send(WM_COMMAND, CMD_OPEN); });
}

TEST_P(WindowPictures, FileType) {
    OpenMain();
    TakeDialogOf(CMD_FILE_TYPE, "file-type");
}
