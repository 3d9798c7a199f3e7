// What file dialogs leave behind. The system's own keep something of each: under Wine a user object and some
// bytes. So they are shown as often without the program's front, and what is left must not be more.
#include "tests/gui/file_dialog_harness.h"
#include "tests/gui/growth.h"

namespace {

constexpr int kRounds = 20;

class FileDialogLeak : public FileDialogTest {
protected:
    // Shows a dialog, which the user leaves with Escape, in each round.
    Growth GrowthOf(const std::function<void()>& show) {
        return GrowthOver(kRounds, [&] {
            const DuringModal during({WaitForDialog(), Key(VK_ESCAPE)});
            show();
            EXPECT_TRUE(during.Done());
        });
    }
    static void ExpectNoMore(const Growth& growth, const Growth& systems) {
        constexpr long long kLeastBlock = 16;  // of memory, which one lost in each round would come to
        EXPECT_EQ(growth.gdiObjects, systems.gdiObjects);
        EXPECT_LE(growth.userObjects, systems.userObjects);
        EXPECT_LT(growth.heapBytes, systems.heapBytes + kRounds * kLeastBlock);
    }
    void Prepare(tvFileDialog& dialog) const {
        dialog.m_title = u"Which file or folder?";
        dialog.m_initialPath = m_Folder;
        dialog.SetDefaultExtension(u"txt");
        dialog.SetFilter(u"Texts", u"*.txt", false);
        dialog.SetFilter(u"All", u"*.*", false);
    }

    const tvcominit m_Com;
};

}  // namespace

TEST_F(FileDialogLeak, ModernDialogLeavesNoMoreThanTheSystemsOwn) {
    const Growth growth = GrowthOf([&] {
        tvFileDialog dialog;
        Prepare(dialog);
        EXPECT_FALSE(dialog.Show());
    });
    const Growth systems = GrowthOf([&] {
        void* made = nullptr;
        CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileDialog, &made);
        const tvcomptr<IFileDialog> dialog(static_cast<IFileDialog*>(made));
        ASSERT_TRUE(dialog);
        dialog.Get()->Show(m_Main.Handle());
    });
    ExpectNoMore(growth, systems);
}

TEST_F(FileDialogLeak, OlderDialogLeavesNoMoreThanTheSystemsOwn) {
    const Growth growth = GrowthOf([&] {
        tvFileDialog dialog;
        dialog.m_legacyOnly = true;
        Prepare(dialog);
        EXPECT_FALSE(dialog.Show());
    });
    const Growth systems = GrowthOf([&] {
        std::vector<wchar_t> buffer(1000);
        OPENFILENAMEW question{};
        question.lStructSize = sizeof question;
        question.hwndOwner = m_Main.Handle();
        question.lpstrFilter = L"Texts\0*.txt\0All\0*.*\0";
        question.lpstrFile = buffer.data();
        question.nMaxFile = static_cast<DWORD>(buffer.size());
        question.lpstrInitialDir = Wide(m_Folder.c_str());
        question.Flags = OFN_EXPLORER | OFN_HIDEREADONLY;
        GetOpenFileNameW(&question);
    });
    ExpectNoMore(growth, systems);
}

TEST_F(FileDialogLeak, OlderDialogForFoldersLeavesNoMoreThanTheSystemsOwn) {
    const Growth growth = GrowthOf([&] {
        tvFileDialog dialog;
        dialog.m_legacyOnly = true;
        dialog.m_pickFolder = true;
        Prepare(dialog);
        EXPECT_FALSE(dialog.Show());
    });
    const Growth systems = GrowthOf([&] {
        BROWSEINFOW info{};
        info.hwndOwner = m_Main.Handle();
        info.ulFlags = BIF_RETURNONLYFSDIRS | BIF_VALIDATE | BIF_NEWDIALOGSTYLE;
        EXPECT_EQ(SHBrowseForFolderW(&info), nullptr);
    });
    ExpectNoMore(growth, systems);
}
