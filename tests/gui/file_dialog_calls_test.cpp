// What the modern dialog is asked and what is made of its answers, with a stand-in for the system's.
#include "tests/gui/fake_file_dialog.h"
#include "tests/gui/file_dialog_harness.h"
#include "tests/gui/growth.h"

using Calls = std::vector<std::string>;
using Paths = std::vector<tvstring>;

namespace {

// Changes what is asked for in the hooks.
class HookedDialog : public tvFileDialog {
public:
    bool OnBeforeShow(IFileDialog*) override {
        m_hooks += "before ";
        return m_goOn;
    }
    void OnAfterShow(IFileDialog*) override { m_hooks += "after "; }

    bool m_goOn = true;
    std::string m_hooks;
};

class FileDialogCalls : public FileDialogTest {
protected:
    void SetUp() override {
        FileDialogTest::SetUp();
        m_Fake.m_results = &m_Items;
        m_Fake.m_result = &m_Second;
        m_Items.m_items = {&m_First};
    }
    void TearDown() override {
        EXPECT_TRUE(m_Fake.AllGivenBack());
        EXPECT_TRUE(m_Items.AllGivenBack());
        for (const FakeItem* item : {&m_First, &m_Second, &m_Empty, &m_Nowhere})
            EXPECT_TRUE(item->AllGivenBack());
        FileDialogTest::TearDown();
    }

    FakeItem m_First{u"C:\\x\\first.txt"};
    FakeItem m_Second{u"C:\\x\\second.txt"};
    FakeItem m_Empty{u""};
    FakeItem m_Nowhere{nullptr};
    FakeItems m_Items;
    FakeFileDialog m_Fake;
    HookedDialog m_Dialog;
    ModernDialogClass m_Open{CLSID_FileOpenDialog, &m_Fake};
};

}  // namespace

TEST_F(FileDialogCalls, GoFromTheTitleToTheOptionsAndFromTheFilterToTheResults) {
    m_Dialog.m_title = u"Which file?";
    m_Dialog.SetDefaultExtension(u".txt");
    m_Dialog.SetFilter(u"Texts", u"*.txt", false);
    m_Dialog.SetFilter(u"All", u"*.*", false);
    m_Dialog.m_filterIndex = 1;
    m_Dialog.m_initialPath = u"C:\\windows\\name.txt";
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_EQ(m_Fake.m_calls, (Calls{"title Which file?", "extension txt", "types Texts=*.txt All=*.*",
                                     "type 2", "folder C:\\windows", "name name.txt", "options 6208", "show",
                                     "which type", "results"}));
    EXPECT_EQ(m_Dialog.m_hooks, "before after ");
    EXPECT_EQ(m_Fake.m_owner, m_Main.Handle());
}

TEST_F(FileDialogCalls, LeaveOutWhatIsNotSet) {
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_EQ(m_Fake.m_calls, (Calls{"options 6208", "show", "results"}));
}

TEST_F(FileDialogCalls, KeepTheDialogsOwnOptions) {
    m_Fake.m_oldOptions = 0x40000 | 0x20 | 0x8;
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_EQ(m_Fake.m_calls.front(), "options 6216");
}

TEST_F(FileDialogCalls, OfADialogThatSavesAreMadeToItsClass) {
    FakeFileDialog fake;
    fake.m_isOpen = false;
    fake.m_result = &m_First;
    const ModernDialogClass save(CLSID_FileSaveDialog, &fake);
    m_Dialog.m_save = true;
    m_Dialog.m_multiSelect = true;
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_EQ(fake.m_calls, (Calls{"options 66", "show", "result"}));
    EXPECT_EQ(m_Dialog.m_results, (Paths{u"C:\\x\\first.txt"}));
    EXPECT_EQ(m_Open.m_asked, 0);
    EXPECT_TRUE(fake.AllGivenBack());
}

TEST_F(FileDialogCalls, EndWhenTheCallerHoldsTheDialogBack) {
    m_Dialog.m_goOn = false;
    EXPECT_FALSE(m_Dialog.Show());
    EXPECT_EQ(m_Fake.m_calls, Calls{"options 6208"});
    EXPECT_EQ(m_Dialog.m_hooks, "before ");
}

TEST_F(FileDialogCalls, EndWhenTheUserDoesNotChoose) {
    m_Fake.m_isCancelled = true;
    m_Fake.m_chosenType = 2;
    m_Dialog.SetFilter(u"Texts", u"*.txt", false);
    EXPECT_FALSE(m_Dialog.Show());
    EXPECT_EQ(m_Fake.m_calls.back(), "show");
    EXPECT_EQ(m_Dialog.m_hooks, "before ");
    EXPECT_EQ(m_Dialog.m_filterIndex, 0);
    EXPECT_TRUE(m_Dialog.m_results.empty());
}

TEST_F(FileDialogCalls, TakeTheFilterThatTheUserChose) {
    for (const char16_t* name : {u"Texts", u"Logs", u"All"})
        m_Dialog.SetFilter(name, u"*.*", false);
    m_Fake.m_chosenType = 3;
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_EQ(m_Dialog.m_filterIndex, 2);
}

// --- Results ---

TEST_F(FileDialogCalls, TakeEachResult) {
    m_Dialog.m_multiSelect = true;
    m_Items.m_items = {&m_Second, &m_First};
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_EQ(m_Dialog.m_results, (Paths{u"C:\\x\\second.txt", u"C:\\x\\first.txt"}));
    EXPECT_EQ(m_Dialog.GetPath(), u"C:\\x\\second.txt");
}

TEST_F(FileDialogCalls, CountAsNoChoiceIfOneFileIsWantedAndThereAreTwo) {
    m_Items.m_items = {&m_First, &m_Second};
    EXPECT_FALSE(m_Dialog.Show());
    EXPECT_EQ(m_Dialog.m_results.size(), 2U) << "they can be read all the same";
}

TEST_F(FileDialogCalls, PassOverResultsThatHaveNoPath) {
    m_Items.m_items = {&m_Empty, nullptr, &m_Nowhere, &m_First};
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_EQ(m_Dialog.m_results, (Paths{u"C:\\x\\first.txt"}));
}

TEST_F(FileDialogCalls, CountAsNoChoiceWithoutAnyPath) {
    for (const bool several : {false, true}) {
        m_Dialog.m_multiSelect = several;
        for (const std::vector<FakeItem*>& items : {std::vector<FakeItem*>{}, {&m_Empty}, {&m_Nowhere}}) {
            m_Items.m_items = items;
            EXPECT_FALSE(m_Dialog.Show());
        }
    }
}

TEST_F(FileDialogCalls, AskForTheOneResultWhereSeveralCannotBeHad) {
    m_Fake.m_results = nullptr;
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_EQ(m_Dialog.m_results, (Paths{u"C:\\x\\second.txt"}));
    m_Fake.m_isOpen = false;
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_EQ(m_Dialog.m_results, (Paths{u"C:\\x\\second.txt"}));
}

TEST_F(FileDialogCalls, CountAsNoChoiceWithoutAResult) {
    m_Fake.m_results = nullptr;
    m_Fake.m_result = nullptr;
    EXPECT_FALSE(m_Dialog.Show());
    EXPECT_EQ(m_Fake.m_calls.back(), "result");
}

TEST_F(FileDialogCalls, LeaveNothingBehind) {
    constexpr int kRounds = 500;
    m_Items.m_items = {&m_Empty, &m_First, &m_Second};
    const Growth growth = GrowthOver(kRounds, [&] {
        HookedDialog dialog;
        dialog.m_multiSelect = true;
        dialog.m_title = u"Which file?";
        dialog.m_initialPath = m_Folder + u"name.txt";
        dialog.SetFilter(u"Texts", u"*.txt", false);
        ASSERT_TRUE(dialog.Show());
        m_Fake.m_calls.clear();
        m_Fake.m_calls.shrink_to_fit();
    });
    EXPECT_EQ(growth.gdiObjects, 0);
    EXPECT_EQ(growth.userObjects, 0);
    EXPECT_EQ(growth.heapBytes, 0);
}
