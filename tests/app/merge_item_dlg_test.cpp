// The dialog that merges two items: which one keeps its basic entries, what it shows of them, and what comes
// of the other.
#include "tests/app/merge_item_stage.h"
#include "tests/gui/secret_memory.h"

namespace {

using MergeItemDialog = MergeItemTest;

constexpr const char* kFirstEntries = "3 one.exe; 4 ann; 5 pass one; 6 note one";
constexpr const char* kSecondEntries = "3 two.exe; 4 bob; 5 pass two";

// --- Merging ---

TEST_F(MergeItemDialog, KeepsTheBasicEntriesOfTheFirstItemIfNothingElseIsChosen) {
    EXPECT_EQ(Run({Clicking(IDOK)}), IDOK);
    ASSERT_EQ(TheDatabase().m_Count, 1);
    EXPECT_EQ(TheDatabase().m_Head, m_First);
    EXPECT_EQ(m_First->m_Name, u"First");
    EXPECT_EQ(EntriesOf(*m_First), std::string(kFirstEntries).append("; 6 two.exe; 6 bob; 6 pass two"));
}

TEST_F(MergeItemDialog, KeepsTheBasicEntriesOfTheSecondItemIfThatIsChosen) {
    EXPECT_EQ(Run({Clicking(kRadio2), SeeingChosen(kRadio2), Clicking(IDOK)}), IDOK);
    ASSERT_EQ(TheDatabase().m_Count, 1);
    EXPECT_EQ(TheDatabase().m_Head, m_Second);
    EXPECT_EQ(m_Second->m_Name, u"Second");
    EXPECT_EQ(EntriesOf(*m_Second),
              std::string(kSecondEntries).append("; 6 one.exe; 6 ann; 6 pass one; 6 note one"));
}

TEST_F(MergeItemDialog, GoesByTheChoiceThatWasMadeLast) {
    Run({Clicking(kRadio2), SeeingChosen(kRadio2), Clicking(kRadio1), SeeingChosen(kRadio1),
         PressButton(IDOK)});
    EXPECT_EQ(TheDatabase().m_Head, m_First);
    EXPECT_EQ(TheDatabase().m_Count, 1);
}

TEST_F(MergeItemDialog, AppendsNoEmptyEntries) {
    Fill(*m_Second, u"", u"bob", u"");
    Run({PressButton(IDOK)});
    EXPECT_EQ(EntriesOf(*m_First), std::string(kFirstEntries).append("; 6 bob"));
}

TEST_F(MergeItemDialog, ChangesNothingOnCancel) {
    EXPECT_EQ(Run({Clicking(kRadio2), SeeingChosen(kRadio2), Clicking(IDCANCEL)}), IDCANCEL);
    EXPECT_EQ(TheDatabase().m_Count, 2);
    EXPECT_EQ(TheDatabase().m_Head, m_First);
    EXPECT_EQ(EntriesOf(*m_First), kFirstEntries);
    EXPECT_EQ(EntriesOf(*m_Second), kSecondEntries);
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_EQ(TheDatabase().Undo(nullptr, nullptr), 0);
}

TEST_F(MergeItemDialog, SaysNothingIfThereIsNothingToMerge) {
    m_Dialog->m_Items.pop_back();
    EXPECT_EQ(Run({PressButton(IDOK)}), IDOK);
    EXPECT_EQ(TheDatabase().m_Count, 2);
    EXPECT_EQ(EntriesOf(*m_First), kFirstEntries);
    EXPECT_FALSE(TheDatabase().m_Changed);
}

TEST_F(MergeItemDialog, IsTakenBackInTwoSteps) {
    for (const int chosen : {kRadio1, kRadio2}) {
        Renew();
        Run({Clicking(chosen), SeeingChosen(chosen), PressButton(IDOK)});
        EXPECT_EQ(TheDatabase().m_Count, 1);
        EXPECT_EQ(TheDatabase().Undo(nullptr, nullptr), 1);
        EXPECT_EQ(TheDatabase().m_Count, 2);
        EXPECT_EQ(TheDatabase().Undo(nullptr, nullptr), 1);
        EXPECT_EQ(TheDatabase().m_Head, m_First);
        EXPECT_EQ(EntriesOf(*m_First), kFirstEntries);
        EXPECT_EQ(EntriesOf(*m_Second), kSecondEntries);
        EXPECT_EQ(TheDatabase().Undo(nullptr, nullptr), 0);
    }
}

// --- The preview ---

TEST_F(MergeItemDialog, ShowsTheFirstItemAtFirst) {
    Show();
    EXPECT_EQ(TextOf(Item(kRadio1)), u"First");
    EXPECT_EQ(TextOf(Item(kRadio2)), u"Second");
    EXPECT_EQ(SendMessageW(Item(kRadio1), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageW(Item(kRadio2), BM_GETCHECK, 0, 0), BST_UNCHECKED);
    EXPECT_EQ(m_Dialog->m_Preview, u"one.exe\r\nann\r\n\u25CF\u25CF\u25CF\u25CF\u25CF\u25CF\r\n");
}

TEST_F(MergeItemDialog, ShowsTheChosenItem) {
    TheAppData().bShowPassword = 1;
    Show();
    EXPECT_EQ(m_Dialog->m_Preview, u"one.exe\r\nann\r\npass one\r\n");
    Click(Item(kRadio2));
    EXPECT_TRUE(PumpUntil(SeeingChosen(kRadio2)));
    EXPECT_EQ(m_Dialog->m_Preview, u"two.exe\r\nbob\r\npass two\r\n");
    Click(Item(kRadio1));
    EXPECT_TRUE(PumpUntil(SeeingChosen(kRadio1)));
    EXPECT_EQ(m_Dialog->m_Preview, u"one.exe\r\nann\r\npass one\r\n");
}

TEST_F(MergeItemDialog, ShowsTheItemThatIsChosenByKeys) {
    tvstring preview;
    TheAppData().bShowPassword = 1;
    const Step down = [] {
        KeyDown(VK_DOWN), KeyUp(VK_DOWN);
        return true;
    };
    const Step look = [&] {
        preview = m_Dialog->m_Preview;
        return true;
    };
    const Step isThere = [this] { return GetFocus() == Item(kRadio2); };
    const Step choose = [] {
        KeyDown(VK_SPACE), KeyUp(VK_SPACE);
        return true;
    };
    EXPECT_EQ(Run({down, isThere, choose, SeeingChosen(kRadio2), look, PressButton(IDOK)}), IDOK);
    EXPECT_EQ(preview, u"two.exe\r\nbob\r\npass two\r\n");
    EXPECT_EQ(TheDatabase().m_Head, m_Second);
}

TEST_F(MergeItemDialog, MasksAPasswordOfAnyLengthBySixDots) {
    for (const char16_t* password : {u"x", u"a password that is rather long"}) {
        Fill(*m_First, u"p", u"u", password);
        m_Dialog->BuildPreview(0);
        EXPECT_EQ(m_Dialog->m_Preview, u"p\r\nu\r\n\u25CF\u25CF\u25CF\u25CF\u25CF\u25CF\r\n");
    }
}

TEST_F(MergeItemDialog, TellsOfEmptyEntriesAlsoOfAnEmptyPassword) {
    Fill(*m_First, u"", u"", u"");
    m_Dialog->BuildPreview(0);
    EXPECT_EQ(m_Dialog->m_Preview, u"[Empty]\r\n[Empty]\r\n[Empty]\r\n");
    TheAppData().bShowPassword = 1;
    m_Dialog->BuildPreview(0);
    EXPECT_EQ(m_Dialog->m_Preview, u"[Empty]\r\n[Empty]\r\n[Empty]\r\n");
}

TEST_F(MergeItemDialog, LeavesOutALineForAnEntryThatAnItemLacks) {
    TheAppData().bShowPassword = 1;
    Drop(*m_First, VMRD_T_USERNAME);
    m_Dialog->BuildPreview(0);
    EXPECT_EQ(m_Dialog->m_Preview, u"one.exe\r\npass one\r\n");
    Drop(*m_First, VMRD_T_PASSWORD);
    Drop(*m_First, VMRD_T_PROGRAM);
    m_Dialog->BuildPreview(0);
    EXPECT_EQ(m_Dialog->m_Preview, u"");
}

// Whatever the order of the entries is.
TEST_F(MergeItemDialog, ShowsProgramNameAndPasswordInThisOrder) {
    TheAppData().bShowPassword = 1;
    Drop(*m_First, VMRD_T_PROGRAM);
    AddEntryCopy(*m_First, VMRD_Entry(VMRD_T_PROGRAM, u"late.exe"), nullptr);
    m_Dialog->BuildPreview(0);
    EXPECT_EQ(m_Dialog->m_Preview, u"late.exe\r\nann\r\npass one\r\n");
}

TEST_F(MergeItemDialog, ShowsNothingForAnItemThatIsNotThere) {
    m_Dialog->m_Preview = u"before";
    m_Dialog->BuildPreview(2);
    EXPECT_EQ(m_Dialog->m_Preview, u"");
}

TEST_F(MergeItemDialog, LeavesNothingOfAShownPasswordInMemory) {
    ASSERT_EQ(CountSecrets(), 0);
    TheAppData().bShowPassword = 1;
    Fill(*m_First, u"p", u"u", Secret().c_str());
    Show();
    m_Dialog->m_Items.clear();
    TheDatabase().Reset();
    EXPECT_GE(CountSecrets(), 1);
    m_Dialog.reset();
    EXPECT_EQ(CountSecrets(), 0);
    ForgetSecrets();
}

}  // namespace
