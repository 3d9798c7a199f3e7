// The merge of two items that are selected in the list.
#include "tests/app/merge_pane_stage.h"

namespace {

constexpr int kRadio2 = 2008;

class MergeItemsInList : public MergePaneTest {
protected:
    // Items "Item 1" to "Item n", each with the user name "user 1" and so on.
    void MakeItems(int count) const {
        Main().OnAppNotify(APPN_DBLIST, 1, 0, 0);
        TheDatabase().Clear();
        for (int i = 1; i <= count; ++i) {
            ItemElement* item = TheDatabase().AddNewItem(&TheDatabase());
            item->m_Name = Numbered(u"Item ", i);
            SetUser(*item, Numbered(u"user ", i));
        }
        TheDatabase().m_Undo.Clear();
        Main().OnAppNotify(APPN_DBLIST, 0, static_cast<NotifyArgument>(-1), 1);
        PumpQueue();
    }
    static void SetUser(VMRD_Item& item, const tvstring& user) {
        VMRD_Entry* username = nullptr;
        GetBasicEntries(&item, nullptr, &username, nullptr);
        username->m_Text = user;
    }
    static tvstring Numbered(tvstring text, int number) {
        return text.append(Units(std::to_wstring(number).c_str()));
    }
    [[nodiscard]] CVMRLeftDlg& Pane() const { return Main().m_leftDlg; }
    [[nodiscard]] CVMRItemListBox& List() const { return Pane().m_list; }
    // The names of the items, in their order.
    static std::string Names() {
        std::string names;
        for (const ItemElement* item = TheDatabase().m_Head; item != nullptr; item = item->m_Next)
            names.append(names.empty() ? "" : ", ").append(Letters(item->m_Name));
        return names;
    }
    [[nodiscard]] std::string RowNames() const {
        std::string names;
        for (int row = 0; row < List().GetCount(); ++row)
            names.append(names.empty() ? "" : ", ").append(Letters(ElementText(List().ElementOf(row))));
        return names;
    }
    // A step: once the dialog is in front, does something with it.
    static Step InDialog(std::function<void(CVMRMergeItemDlg&)> what) {
        return [what = std::move(what)] {
            auto* dialog = dynamic_cast<CVMRMergeItemDlg*>(tvWnd::FromHandle(FrontDialog()));
            if (dialog == nullptr) return false;
            what(*dialog);
            return true;
        };
    }
    static Step Pressing(int id) {
        return InDialog([id](const CVMRMergeItemDlg& dialog) { Click(GetDlgItem(dialog.Handle(), id)); });
    }
    Notes MergeWith(const Step& first, const Step& second = {}, const Step& third = {}) const {
        const DuringModal during(StepsOf({&first, &second, &third}));
        return Merge(Pane());
    }
};

TEST_F(MergeItemsInList, MakesOneOfTwo) {
    MakeItems(3);
    SelectRows(List(), {0, 2});
    TheDatabase().m_Changed = false;
    const Notes notes = MergeWith(Pressing(IDOK));
    EXPECT_EQ(Names(), "Item 1, Item 2");
    EXPECT_EQ(RowNames(), "Item 1, Item 2");
    EXPECT_EQ(EntriesOf(*TheDatabase().m_Head), "3 ; 4 user 1; 5 ; 6 user 3");
    EXPECT_TRUE(TheDatabase().m_Changed);
    EXPECT_EQ(WithoutCounts(notes), Notes{"TOPBAR"});
    ASSERT_FALSE(notes.empty());
    EXPECT_EQ(notes.back(), "STATUS 2 1");
}

TEST_F(MergeItemsInList, ShowsTheTwoInTheOrderOfTheirRows) {
    MakeItems(3);
    SelectRows(List(), {2, 1});
    std::string names;
    MergeWith(InDialog([&names](const CVMRMergeItemDlg& dialog) {
                  names = Letters(TextOf(dialog.m_radio1.Handle())) + ", " +
                          Letters(TextOf(dialog.m_radio2.Handle()));
              }),
              Pressing(IDCANCEL));
    EXPECT_EQ(names, "Item 2, Item 3");
}

TEST_F(MergeItemsInList, KeepsTheSecondOneIfThatIsChosen) {
    MakeItems(2);
    SelectRows(List(), {0, 1});
    MergeWith(Pressing(kRadio2), InDialog([](CVMRMergeItemDlg&) {}), Pressing(IDOK));
    EXPECT_EQ(Names(), "Item 2");
    EXPECT_EQ(RowNames(), "Item 2");
    EXPECT_EQ(EntriesOf(*TheDatabase().m_Head), "3 ; 4 user 2; 5 ; 6 user 1");
}

TEST_F(MergeItemsInList, ShowsTheOneThatIsLeftInTheDetailPane) {
    MakeItems(2);
    SelectRows(List(), {0, 1});
    EXPECT_EQ(Main().m_rightDlg.m_Item, nullptr);
    MergeWith(Pressing(IDOK));
    EXPECT_TRUE(PumpUntil([this] { return Main().m_rightDlg.m_Item == TheDatabase().m_Head; }));
}

TEST_F(MergeItemsInList, LeavesAllAsItWasOnCancel) {
    MakeItems(2);
    SelectRows(List(), {0, 1});
    TheDatabase().m_Changed = false;
    EXPECT_EQ(WithoutCounts(MergeWith(Pressing(kRadio2), Pressing(IDCANCEL))), Notes());
    EXPECT_EQ(RowNames(), "Item 1, Item 2");
    EXPECT_EQ(List().GetSelCount(), 2);
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_EQ(TheDatabase().Undo(nullptr, nullptr), 0);
}

TEST_F(MergeItemsInList, IsRefusedForAnythingButTwo) {
    MakeItems(4);
    const std::vector<std::vector<int>> selections = {{}, {1}, {0, 1, 2}, {0, 1, 2, 3}};
    for (const std::vector<int>& rows : selections) {
        SelectRows(List(), rows);
        EXPECT_FALSE(IsOffered(List(), false)) << rows.size();
        EXPECT_EQ(WithoutCounts(Merge(Pane())), Notes()) << rows.size();  // a dialog would wait for ever
    }
    SelectRows(List(), {1, 3});
    EXPECT_TRUE(IsOffered(List(), false));
    EXPECT_EQ(Names(), "Item 1, Item 2, Item 3, Item 4");
}

TEST_F(MergeItemsInList, IsDoneWithTheListLeftAsItLooks) {
    MakeItems(2);
    SelectRows(List(), {0, 1});
    bool painted = true;
    MergeWith(InDialog([&](const CVMRMergeItemDlg&) { painted = HasStyle(Pane().Handle(), WS_VISIBLE); }),
              Pressing(IDOK));
    EXPECT_FALSE(painted);
    EXPECT_TRUE(HasStyle(Pane().Handle(), WS_VISIBLE));
    EXPECT_TRUE(PumpUntil([this] { return GetActiveWindow() == Window(); }));
    EXPECT_EQ(GetFocus(), List().Handle());
    EXPECT_NE(IsWindowEnabled(Window()), FALSE);
}

TEST_F(MergeItemsInList, PaintsThePaneAgainAfterwards) {
    MakeItems(2);
    SelectRows(List(), {0, 1});
    MergeWith(Pressing(IDCANCEL));
    SelectRows(List(), {});
    MoveMouseAway();
    Settle(Window());
    const Picture after(Pane().Handle());
    RedrawWindow(Pane().Handle(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    Settle(Window());
    EXPECT_TRUE(after == Picture(Pane().Handle()));
}

TEST_F(MergeItemsInList, IsTakenBackByUndoInTwoSteps) {
    MakeItems(2);
    SelectRows(List(), {0, 1});
    MergeWith(Pressing(IDOK));
    ASSERT_EQ(RowNames(), "Item 1");
    Command(CMD_UNDO);
    EXPECT_EQ(RowNames(), "Item 1, Item 2");
    EXPECT_EQ(EntriesOf(*TheDatabase().m_Head), "3 ; 4 user 1; 5 ; 6 user 2");
    Command(CMD_UNDO);
    EXPECT_EQ(EntriesOf(*TheDatabase().m_Head), "3 ; 4 user 1; 5 ");
    EXPECT_EQ(EntriesOf(*TheDatabase().m_Tail), "3 ; 4 user 2; 5 ");
}

}  // namespace
