// What tests of the merges in the panes share: a main window that notes what it is told, with a database open
// whose items and entries the test makes.
#pragma once

#include "tests/app/command_stage.h"
#include "tests/app/merge_item_stage.h"
#include "toolkit/menu.h"
#include "windows/input_dlg.h"
#include "windows/list_message.h"

// Notes what concerns the bars, as "TOPBAR", "STATUS repaint", "STATUS 3 1", "STATUS error Text".
class MergeToldDlg : public CVMRDlg {
public:
    void OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) override {
        if (code == APPN_TOPBAR) m_notes.emplace_back("TOPBAR");
        if (code == APPN_STATUS) m_notes.push_back(StatusNote(a, b, c));
        CVMRDlg::OnAppNotify(code, a, b, c);
    }

    Notes m_notes;

private:
    static std::string StatusNote(NotifyArgument a, NotifyArgument b, NotifyArgument c) {
        if (a == STATUS_REPAINT) return "STATUS repaint";
        if (a == STATUS_COUNTS) return "STATUS " + std::to_string(b) + " " + std::to_string(c);
        const auto* text = FromArgument<const char16_t>(b);
        return std::string("STATUS ")
            .append(a == STATUS_ERROR ? "error " : "other ")
            .append(text == nullptr ? "" : Letters(text));
    }
};

// Those that are there.
inline std::vector<Step> StepsOf(std::initializer_list<const Step*> steps) {
    std::vector<Step> list;
    for (const Step* step : steps)
        if (*step) list.push_back(*step);
    return list;
}

class MergePaneTest : public CommandTest {
protected:
    MergePaneTest() {
        const tvstring path = MakeFile(u"merge.vmr", u"one");
        Open(std::make_unique<MergeToldDlg>());
        const DuringModal steps({AnswerWith(u"one")});
        Main().OnAppNotify(APPN_OPENDB, AsArgument(path.c_str()), 0, 0);
        EXPECT_TRUE(TheDatabase().m_Opened);
        SetForegroundWindow(Window());
        EXPECT_TRUE(PumpUntil([this] { return GetActiveWindow() == Window(); }));
        MoveMouseAway();
    }

    [[nodiscard]] MergeToldDlg& Told() const { return dynamic_cast<MergeToldDlg&>(Main()); }

    // Carries out the command of a pane and gives what was told meanwhile.
    [[nodiscard]] Notes Merge(const CVMRBaseDlg& pane) const {
        PumpQueue();
        Told().m_notes.clear();
        SendMessageW(pane.Handle(), WM_COMMAND, CMD_MERGE, 0);
        Notes notes = Told().m_notes;
        PumpQueue();
        return notes;
    }
    // What a list tells of its rows and its selection comes when the list gets to it, on a busy machine late.
    static Notes WithoutCounts(Notes notes) {
        std::erase_if(notes, [](const std::string& note) {
            return note.starts_with("STATUS ") && note[7] >= '0' && note[7] <= '9';
        });
        return notes;
    }
    template <typename List>
    void SelectRows(List& list, const std::vector<int>& rows) const {
        list.DeselectAll();
        for (const int row : rows)
            list.SetSel(row, true);
        PumpQueue();
    }
    // Whether the menu of a list offers the merge.
    static bool IsOffered(const tvMListBox& list, bool isEntryList) {
        EXPECT_TRUE(UpdateItemMenu(&list, isEntryList));
        const UINT state = GetMenuState(TheAppData().itemMenu.Handle(), CMD_MERGE, MF_BYCOMMAND);
        return (state & (MF_GRAYED | MF_DISABLED)) == 0;
    }
};
