// CVMRDlg, the main window. It owns the panes, lays them out around the splitter, hands notifications to
// those that are concerned, and carries out the commands that concern the database and the program as a
// whole.
#pragma once

#include "toolkit/button_split.h"
#include "windows/base_dlg.h"
#include "windows/command_ids.h"
#include "windows/left_dlg.h"
#include "windows/main_status_bar.h"
#include "windows/right_dlg.h"
#include "windows/start_dlg.h"
#include "windows/top_dlg.h"

class CVMRDlg : public CVMRBaseDlg {
public:
    CVMRDlg() = default;
    ~CVMRDlg() override;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool PreTranslateMsg(MSG* msg) override;
    void OnSubclassControls() override;
    bool OnInitDialog() override;
    void OnLayout() override;
    void BuildTemplate() override;

    // The one way in for panes. Nothing happens while there is no window, or for an unknown code.
    void OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) override;

    // --- Prompts (database_prompts.cpp) ---

    // True if there are no unsaved changes, or the user is willing to lose them.
    bool DiscardPrompt();

    // The name that the user enters, for a new database or in place of the current one; the new master
    // password, entered twice. Empty if the user cancels.
    static tvstring PromptDatabaseName(const tvstring* current);
    tvstring PromptNewPassword();

    // Opens a database after asking for its master password. Quietly: nothing is said about a file that
    // cannot be read.
    enum class Quiet { No, Yes };
    void OpenDatabase(const char16_t* path, Quiet quiet);

    // --- Fields, in their order ---

    CVMRTopDlg m_topDlg;
    CVMRLeftDlg m_leftDlg;
    tvButton_Split m_splitter;
    CVMRRightDlg m_rightDlg;
    CVMRStartDlg m_startDlg;
    CVMRStatusBar m_statusBar;
    float m_spPercent = 0.4F;  // the splitter's left edge, as a fraction of the client area's width

private:
    // --- The window ---

    void CreatePanes();
    void SetUpSplitter();
    void RestorePlacement();
    void OpenFromCommandLine();
    void UpdatePanes() const;
    void OnSplit();
    void OnSharedSetting(WPARAM setting);
    void OnClick();
    [[nodiscard]] bool IsInGrip(LPARAM screenPoint) const;
    bool OnOwnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    // --- Notifications (main_notify.cpp) ---

    void NotifyAll(i32 code);
    void RouteToPanes(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c);

    // --- Commands (main_commands.cpp, database_commands.cpp, setting_commands.cpp) ---

    enum class Guard { None, Discard, Opened };
    struct Command {
        u16 first;
        u16 last;  // of a range of ids, inclusive
        Guard guard;
        void (CVMRDlg::*run)(u16 id);
    };
    static const Command kCommands[];

    void OnCommand(u16 id);
    bool Passes(Guard guard);

    void NewDatabase(u16 id);
    void AskAndOpen(u16 id);
    void SaveDatabase(u16 id);
    void SaveDatabaseAs(u16 id);
    void ExportDatabase(u16 id);
    void CloseDatabase(u16 id);
    void RenameDatabase(u16 id);
    void ChangePassword(u16 id);
    void UndoChange(u16 id);

    void ChooseFont(u16 id);
    void ShowAbout(u16 id);
    void ShowHelp(u16 id);
    void ToggleClearClipboard(u16 id);
    void ToggleAutoSave(u16 id);
    void ToggleHistory(u16 id);
    void ToggleAutoOpen(u16 id);
    void ChooseFileType(u16 id);
    void ChooseFilter(u16 id);
    void ToggleFilterPasswords(u16 id);
    void ChooseTheme(u16 id);
    void ChooseLanguage(u16 id);

    // --- Their parts ---

    static tvstring PromptOpenPassword(const tvstring& path);
    void DetachList();
    void AttachList();
    void AfterOpened(const tvstring& path, bool isOld);
    static void AddToRecent();
    void RefreshStatus();
    void Tell(StatusNotification kind, const tvstring& text);
    static tvstring AskForSavePath();
};
