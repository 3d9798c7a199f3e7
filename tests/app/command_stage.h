// What tests of the main window's commands share: a main window that notes what its commands tell, answers
// for the system's file dialogs, and looks at the dialogs that commands bring up.
#pragma once

#include <string>
#include <vector>

#include "foundation/tvhandle.h"
#include "platform/error.h"
#include "tests/app/app_stage.h"
#include "tests/gui/fake_file_dialog.h"
#include "toolkit/com.h"
#include "toolkit/message_box.h"
#include "windows/command_ids.h"
#include "windows/input_dlg.h"

using Notes = std::vector<std::string>;
using Step = std::function<bool()>;

// Notes, in order, the notifications that its commands send: those that panes send meanwhile are left out.
// One is its name and arguments, as "DBLIST 0 -1 0", "STATUS error Text", "STATUS none" for a message that
// goes.
class NotingDlg : public CVMRDlg {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) override;

    [[nodiscard]] int CountCommands(u16 id) const;

    Notes m_notes;
    std::vector<u16> m_commands;  // that arrived
    int m_helps = 0;              // WM_HELP, which goes no further

private:
    [[nodiscard]] bool IsNoted(i32 code, NotifyArgument a) const;

    int m_Running = 0;  // commands
    int m_Depth = 0;    // of notifications
    u16 m_Command = 0;  // that runs
};

class CommandTest : public AppTest {
protected:
    // With the noting window.
    void OpenNoting();
    [[nodiscard]] NotingDlg& Noting() const { return dynamic_cast<NotingDlg&>(Main()); }

    // Carries out a command, posted ones of the window included, and gives its notes alone.
    Notes NotesOf(u16 id) const;

    // Opens a database as another pane would have it opened, and gives the notes.
    Notes NotesOfOpening(const tvstring& path, CVMRDlg::Quiet quiet) const;

    // The window with a new file's database in it, saved and unchanged, under the password "one".
    tvstring OpenFile(const char16_t* name = u"a.vmr");

    // The file opens with this password. Nobody may hold it.
    static testing::AssertionResult OpensWith(const tvstring& path, const tvstring& password);
};

// While it lives the system's dialog to open or save a file is a stand-in that answers at once: with a path,
// or, if that is empty, as if the user had cancelled.
class FileAnswer {
public:
    enum class Kind { Open, Save };
    FileAnswer(Kind kind, tvstring path);

    // How often a dialog was asked for.
    [[nodiscard]] int Count() const { return m_Class.m_asked; }

    FakeFileDialog m_fake;

private:
    tvcominit m_Com;
    tvstring m_Path;
    FakeItem m_Item;
    FakeItems m_Items;
    ModernDialogClass m_Class;
};

// Steps for DuringModal: once a dialog of the class stands in front, looks at it and presses its button. The
// button IDCANCEL is that of a message box's cross and of Escape, too.
Step InBox(std::function<void(const tvMessageBox&)> look, int button);
Step InInput(std::function<void(const CVMRInputDlg&)> look, int button);
Step AnswerBox(int button);

// The text of the language, as LangText, in plain letters.
std::string Letters(const tvstring& text);

// While the handle is there nobody else can open the file, not even to read it.
tvhandle HoldFile(const tvstring& path);

// The system's answer to an attempt to open the file without sharing it: 0 if it could be opened.
u32 TryToHold(const tvstring& path);
