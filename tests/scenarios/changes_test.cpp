// Changes of items and entries one by one: what each leaves in the window and in the file.
#include "tests/scenarios/day_stage.h"

namespace {

constexpr int kMoveUp = 2007;
constexpr int kMoveDown = 2008;

class Changes : public DayStage {
protected:
    void UndoOneThatIsSeen() const {
        const u64 before = LookOfDetails();
        m_User.Undo(1);
        Require([&] { return LookOfDetails() != before; }, "nothing seems to be undone");
    }
};

TEST_P(Changes, AreUndoneStepByStep) {
    StartWith({MakeItem(u"a", {u"x", u"y"}), MakeItem(u"b")});
    m_User.Rename(u"c");
    m_User.Modify(Field::UserName, u"d");
    m_User.AddEntry(u"z");
    UndoOneThatIsSeen();
    m_User.WaitForRows(List::Entries, 2);
    EXPECT_EQ(m_User.CopyField(Field::UserName), u"d");
    UndoOneThatIsSeen();
    EXPECT_EQ(m_User.CopyField(Field::UserName), u"a user");
    EXPECT_TRUE(m_User.IsChanged());
    EXPECT_EQ(m_User.RowText(List::Items, 0), u"c");
    UndoOneThatIsSeen();
    m_User.WaitUntilUnchanged();
    EXPECT_EQ(m_User.RowText(List::Items, 0), u"a");
    EXPECT_TRUE(User::Quit(m_Program));
}

TEST_P(Changes, PutEntriesInAnotherOrder) {
    StartWith({MakeItem(u"a", {u"1\r\n1", u"2", u"3\r\n3\r\n3"})});
    m_User.Select(List::Entries, 2);
    m_User.ChooseFromListMenu('U');
    Require([this] { return m_User.IsSelected(List::Entries, 1); }, "the entry is not moved");
    EXPECT_EQ(m_User.RowTexts(List::Entries), (Texts{u"1\r\n1", u"3\r\n3\r\n3", u"2"}));
    m_User.SelectRange(List::Entries, 0, 1);
    Click(tvWnd::FindDescendant(m_User.RightPane(), kMoveDown));
    Require([this] { return m_User.IsSelected(List::Entries, 2) && !m_User.IsSelected(List::Entries, 0); },
            "the entries are not moved");
    EXPECT_EQ(SavedContent()[0].additions, (Texts{u"2", u"1\r\n1", u"3\r\n3\r\n3"}));
}

TEST_P(Changes, PutItemsInAnotherOrder) {
    StartWith({MakeItem(u"a"), MakeItem(u"b"), MakeItem(u"c")});
    m_User.ChooseFromListMenu('D');
    Require([this] { return m_User.IsSelected(List::Items, 1); }, "the item is not moved");
    EXPECT_EQ(m_User.RowTexts(List::Items), (Texts{u"b", u"a", u"c"}));
    m_User.SelectRange(List::Items, 1, 2);
    Click(tvWnd::FindDescendant(m_User.LeftPane(), kMoveUp));
    Require([this] { return m_User.IsSelected(List::Items, 0) && !m_User.IsSelected(List::Items, 2); },
            "the items are not moved");
    EXPECT_EQ(NamesOf(SavedContent()), (Texts{u"a", u"c", u"b"}));
}

TEST_P(Changes, MergeTwoItems) {
    StartWith({MakeItem(u"b"), MakeItem(u"a", {u"1"}), MakeItem(u"c", {u"2\r\n2"})});
    m_User.MergeItemIntoTheNext(1);
    EXPECT_EQ(m_User.RowTexts(List::Items), (Texts{u"b", u"c"}));
    EXPECT_EQ(SavedContent(),
              (Content{MakeItem(u"b"), MakeItem(u"c", {u"2\r\n2", u"a.exe", u"a user", u"a pass", u"1"})}));
}

TEST_P(Changes, MergeThreeEntries) {
    StartWith({MakeItem(u"a", {u"1", u"2\r\n2", u"3", u"4"})});
    m_User.MergeEntries(1, 3);
    EXPECT_EQ(SavedContent(), (Content{MakeItem(u"a", {u"1", u"2\r\n2\r\n3\r\n4"})}));
}

INSTANTIATE_TEST_SUITE_P(Themes, Changes, testing::ValuesIn(kDayThemes), NameOfTheme);

}  // namespace
