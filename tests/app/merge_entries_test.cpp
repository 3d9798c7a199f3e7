// The merge of additional entries that are selected in the detail pane.
#include "tests/app/merge_pane_stage.h"

namespace {

constexpr int kEdit = 2014;

class MergeEntriesInList : public MergePaneTest {
protected:
    using Texts = std::vector<tvstring>;

    // The item has these additional entries and is shown.
    void Show(const Texts& texts) const {
        Main().OnAppNotify(APPN_SHOWITEM, 0, 0, 0);
        for (EntryElement* entry = Item()->m_Head; entry != nullptr;) {
            EntryElement* next = entry->m_Next;
            if (entry->m_Type == VMRD_T_ADDITION) Item()->Unlink(entry, Unlinked::Destroy);
            entry = next;
        }
        for (const tvstring& text : texts)
            AddEntryCopy(*Item(), VMRD_Entry(VMRD_T_ADDITION, text), nullptr);
        TheDatabase().m_Undo.Clear();
        TheDatabase().m_Changed = false;
        Main().OnAppNotify(APPN_DBLIST, 0, 0, 1);
        Main().OnAppNotify(APPN_SHOWITEM, AsArgument(static_cast<VMRD_Element*>(Item())), 0, 0);
        PumpQueue();
        ASSERT_EQ(List().GetCount(), static_cast<int>(texts.size()));
    }
    static ItemElement* Item() { return TheDatabase().m_Head; }
    [[nodiscard]] CVMRRightDlg& Pane() const { return Main().m_rightDlg; }
    [[nodiscard]] CVMREntryListBox& List() const { return Pane().m_list; }
    void SelectAll() const {
        List().SelectAll();
        PumpQueue();
    }
    // The additional entries as they are in the item, and as they are in the rows.
    static Texts Additions() {
        Texts texts;
        for (const EntryElement* entry = Item()->m_Head; entry != nullptr; entry = entry->m_Next)
            if (entry->m_Type == VMRD_T_ADDITION) texts.push_back(entry->m_Text);
        return texts;
    }
    [[nodiscard]] Texts Rows() const {
        Texts texts;
        for (int row = 0; row < List().GetCount(); ++row)
            texts.push_back(ElementText(List().ElementOf(row)));
        return texts;
    }
    // A step: once the dialog is in front, does something with it.
    static Step InDialog(std::function<void(CVMRInputDlg&)> what) {
        return [what = std::move(what)] {
            auto* dialog = dynamic_cast<CVMRInputDlg*>(tvWnd::FromHandle(FrontDialog()));
            if (dialog == nullptr) return false;
            what(*dialog);
            return true;
        };
    }
    static Step Reading(tvstring& text) {
        return InDialog([&text](CVMRInputDlg& dialog) { text = TextOf(dialog.m_edit1.Handle()); });
    }
    Notes MergeWith(const Step& first, const Step& second = {}, const Step& third = {}) const {
        const DuringModal during(StepsOf({&first, &second, &third}));
        return WithoutCounts(Merge(Pane()));
    }
};

TEST_F(MergeEntriesInList, MakesOneOfSeveralThatAreSelected) {
    Show({u"a", u"b", u"c", u"d"});
    SelectRows(List(), {0, 2, 3});
    tvstring reviewed;
    const Notes notes = MergeWith(Reading(reviewed), PressButton(IDOK));
    EXPECT_EQ(reviewed, u"a\r\nc\r\nd");
    EXPECT_EQ(Additions(), (Texts{u"a\r\nc\r\nd", u"b"}));
    EXPECT_EQ(Rows(), Additions());
    EXPECT_TRUE(TheDatabase().m_Changed);
    EXPECT_EQ(notes, (Notes{"TOPBAR", "STATUS repaint"}));
}

TEST_F(MergeEntriesInList, AsksWithItsOwnWords) {
    Show({u"a", u"b"});
    SelectAll();
    const auto look = [](const CVMRInputDlg& dialog) {
        EXPECT_EQ(TextOf(dialog.Handle()), u"Merge Additional Entries");
        EXPECT_EQ(dialog.m_Info,
                  u"Merge selected entries into a single entry. Please review or edit the merged text and "
                  u"click OK to confirm.");
        EXPECT_TRUE(HasStyle(dialog.m_edit1.Handle(), ES_MULTILINE));
        EXPECT_FALSE(HasStyle(dialog.m_edit1.Handle(), ES_PASSWORD));
    };
    MergeWith(InInput(look, IDCANCEL));
}

TEST_F(MergeEntriesInList, TakesTheTextAsTheUserHasEditedIt) {
    Show({u"a", u"b", u"c"});
    SelectRows(List(), {1, 2});
    MergeWith(AnswerWith(u"both of them"));
    EXPECT_EQ(Additions(), (Texts{u"a", u"both of them"}));
    EXPECT_EQ(Rows(), Additions());
}

TEST_F(MergeEntriesInList, LeavesAllAsItWasOnCancel) {
    Show({u"a", u"b"});
    SelectAll();
    EXPECT_EQ(MergeWith(PressButton(IDCANCEL)), Notes());
    EXPECT_EQ(Additions(), (Texts{u"a", u"b"}));
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_EQ(TheDatabase().Undo(nullptr, nullptr), 0);
}

TEST_F(MergeEntriesInList, MakesNoBlankLineOfEmptyEntries) {
    Show({u"", u"a", u"", u"b", u""});
    SelectAll();
    tvstring reviewed;
    MergeWith(Reading(reviewed), PressButton(IDOK));
    EXPECT_EQ(reviewed, u"a\r\nb");
    EXPECT_EQ(Additions(), (Texts{u"a\r\nb"}));
}

TEST_F(MergeEntriesInList, HasNothingToConfirmWhereAllAreEmpty) {
    Show({u"", u""});
    SelectAll();
    bool canConfirm = true;
    MergeWith(InDialog([&canConfirm](CVMRInputDlg& dialog) {
                  canConfirm = IsWindowEnabled(dialog.m_okBtn.Handle()) != FALSE;
              }),
              PressButton(IDCANCEL));
    EXPECT_FALSE(canConfirm);
    EXPECT_EQ(Additions(), (Texts{u"", u""}));
}

// --- The longest text ---

// In lines: one long word takes an edit box very long to break.
tvstring Long(std::size_t length) {
    constexpr std::size_t kLine = 100;
    tvstring text(length, u'x');
    for (std::size_t i = kLine; i < length; i += kLine) {
        text[i - 2] = u'\r';
        text[i - 1] = u'\n';
    }
    return text;
}

TEST_F(MergeEntriesInList, TakesSixtyFiveThousandFiveHundredAndThirtyFiveUnits) {
    Show({Long(32766), Long(32767)});
    SelectAll();
    const Notes notes = MergeWith(PressButton(IDOK));
    ASSERT_EQ(Additions().size(), 1U);
    EXPECT_EQ(Additions()[0].size(), 65535U);
    EXPECT_EQ(notes, (Notes{"TOPBAR", "STATUS repaint"}));
}

TEST_F(MergeEntriesInList, RefusesOneUnitMoreWithAMessage) {
    Show({Long(32767), Long(32767)});
    SelectAll();
    const Notes expected = {"STATUS error Text in selected entries are too large to be merged together"};
    EXPECT_EQ(WithoutCounts(Merge(Pane())), expected);  // a dialog would wait for ever
    EXPECT_EQ(Additions().size(), 2U);
    EXPECT_FALSE(TheDatabase().m_Changed);
}

TEST_F(MergeEntriesInList, RefusesWhatIsTooLongByTheFirstEntriesAlone) {
    Show({Long(65530), Long(10), u"more"});
    SelectAll();
    EXPECT_EQ(WithoutCounts(Merge(Pane())).size(), 1U);
    EXPECT_EQ(Additions().size(), 3U);
}

TEST_F(MergeEntriesInList, RefusesSilentlyWhatBecomesTooLongInTheDialog) {
    Show({u"a", u"b"});
    SelectAll();
    const Notes notes = MergeWith(AnswerWith(Long(65536)));
    EXPECT_EQ(Additions(), (Texts{u"a", u"b"}));
    EXPECT_FALSE(TheDatabase().m_Changed);
    for (const std::string& note : notes)
        EXPECT_FALSE(note.starts_with("STATUS error")) << note;
}

// --- When ---

TEST_F(MergeEntriesInList, IsRefusedForFewerThanTwo) {
    Show({u"a", u"b", u"c"});
    for (const std::vector<int>& rows : {std::vector<int>{}, std::vector<int>{1}}) {
        SelectRows(List(), rows);
        EXPECT_FALSE(IsOffered(List(), true)) << rows.size();
        EXPECT_EQ(WithoutCounts(Merge(Pane())), Notes()) << rows.size();  // a dialog would wait for ever
    }
    SelectRows(List(), {0, 1});
    EXPECT_TRUE(IsOffered(List(), true));
    SelectAll();
    EXPECT_TRUE(IsOffered(List(), true));
    EXPECT_EQ(Additions(), (Texts{u"a", u"b", u"c"}));
}

TEST_F(MergeEntriesInList, DoesNothingWithoutAnItem) {
    Show({u"a", u"b"});
    Main().OnAppNotify(APPN_SHOWITEM, 0, 0, 0);
    EXPECT_EQ(WithoutCounts(Merge(Pane())), Notes());
    EXPECT_EQ(Additions(), (Texts{u"a", u"b"}));
}

TEST_F(MergeEntriesInList, IsTakenBackByUndoInTwoSteps) {
    Show({u"a", u"b", u"c"});
    SelectRows(List(), {0, 1});
    MergeWith(PressButton(IDOK));
    ASSERT_EQ(Additions(), (Texts{u"a\r\nb", u"c"}));
    Command(CMD_UNDO);
    EXPECT_EQ(Additions(), (Texts{u"a\r\nb", u"b", u"c"}));
    Command(CMD_UNDO);
    EXPECT_EQ(Additions(), (Texts{u"a", u"b", u"c"}));
    EXPECT_EQ(Rows(), Additions());
}

}  // namespace
