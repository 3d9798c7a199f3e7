// Ten thousand items that are removed, and come back.
#include "tests/scenarios/long_list_stage.h"

namespace {

using namespace opened;

class LongListRemoval : public LongList {
protected:
    void FindAndSelect() const {
        SearchFor(u"needle");
        ASSERT_TRUE(HasRows(kWithWord)) << RowsOf(m_List);
        GoToList();
        ASSERT_TRUE(SelectsAll(kWithWord));
    }
    void ShowAll(int rows) const {
        SearchFor(u"");
        EXPECT_TRUE(HasRows(rows)) << RowsOf(m_List);
        GoToList();
    }
};

// What is on the disk in between shows that the undo was saved, and not only never written.
TEST_P(LongListRemoval, IsTakenBackByOneUndo) {
    ASSERT_TRUE(SelectsAll(kItems));
    RemoveAll();
    Save();
    Undo(kItems);
    EXPECT_TRUE(HasSelected(kItems)) << "what came back is selected";
    Save();
    Type(VK_HOME);
    EXPECT_EQ(ShownName(m_Program), NameOf(0));
    Type(VK_END);
    EXPECT_EQ(ShownName(m_Program), NameOf(kItems - 1));
    ASSERT_TRUE(m_Program.Quit());
    ExpectFileWith([](int) { return true; });
}

TEST_P(LongListRemoval, LeavesAnEmptyFile) {
    ASSERT_TRUE(SelectsAll(kItems));
    RemoveAll();
    Save();
    ASSERT_TRUE(m_Program.Quit());
    ExpectFileWith([](int) { return false; });
}

TEST_P(LongListRemoval, TakesOnlyWhatASearchShows) {
    FindAndSelect();
    RemoveAll();
    ShowAll(kItems - kWithWord);
    Save();
    ASSERT_TRUE(m_Program.Quit());
    ExpectFileWith([](int index) { return !HasWord(index); });
}

TEST_P(LongListRemoval, OfWhatASearchShowsIsTakenBackInItsOldPlaces) {
    FindAndSelect();
    RemoveAll();
    Save();
    Undo(kWithWord);  // the search still holds
    EXPECT_TRUE(HasSelected(kWithWord));
    ShowAll(kItems);
    Save();
    ASSERT_TRUE(m_Program.Quit());
    ExpectFileWith([](int) { return true; });
}

INSTANTIATE_TEST_SUITE_P(Themes, LongListRemoval, testing::ValuesIn(kLongListThemes), NameOfLongListTheme);

}  // namespace
