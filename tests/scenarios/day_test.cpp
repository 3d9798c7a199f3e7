// A day with the program, from a first database to the next morning.
#include "tests/scenarios/day_stage.h"

namespace {

constexpr const char16_t* kCode = u"recovery code\r\n1234\r\n5678";
constexpr const char16_t* kQuestion = u"question\r\nanswer";
constexpr const char16_t* kPin = u"pin\r\n0000";
constexpr int kThree = 2;  // the row of the item that has all fields

class Day : public DayStage {
protected:
    void Create() {
        ASSERT_TRUE(m_Program.Start());
        GiveRoom(m_Program, {20, 20, 1000, 760});
        m_User.Create(u"Mine");
        m_User.SaveAs(InFolder(u"day.VMR"), u"secret");
    }

    // A new database has one item already.
    void AddFiveItems() const {
        m_User.Select(List::Items, 0);
        m_User.Rename(u"one");
        for (const char16_t* name : {u"two", u"three", u"four", u"five"})
            m_User.AddItem(name);
    }

    [[nodiscard]] tvstring FillDetails() const {
        m_User.Select(List::Items, kThree);
        m_User.Modify(Field::Program, u"C:\\tools\\three.exe");
        m_User.Modify(Field::UserName, u"Third User");
        tvstring password = m_User.GeneratePassword();
        m_User.AddEntry(kCode);
        m_User.AddEntry(kQuestion);
        m_User.AddEntry(kPin);
        m_User.Select(List::Items, 4);
        m_User.Modify(Field::UserName, u"Fifth User");
        return password;
    }

    void Reorder() const {
        m_User.Select(List::Items, 4);
        m_User.ChooseFromListMenu('U');
        WaitUntilSelected(List::Items, 3);
        m_User.Select(List::Items, 0);
        Click(tvWnd::FindDescendant(m_User.LeftPane(), kMoveDown));
        WaitUntilSelected(List::Items, 1);
        m_User.Select(List::Items, kThree);
        m_User.Select(List::Entries, 2);
        m_User.ChooseFromListMenu('U');
        WaitUntilSelected(List::Entries, 1);
    }

    // The third item with all its entries, and the fifth into the fourth, which keeps what it has.
    void MergeAll() const {
        m_User.Select(List::Items, kThree);
        m_User.MergeEntries(0, 2);
        m_User.MergeItemIntoTheNext(3);
    }

    // Each item but the first is added and named; a merge is a change and a removal.
    static constexpr int kChanges = (1 + 4 * 2) + (3 + 3 + 1) + 3 + (2 + 2);

    [[nodiscard]] tvstring ChangeAll() const {
        AddFiveItems();
        tvstring password = FillDetails();
        Reorder();
        return password;
    }

    void ExpectFound(SearchMode mode, std::u16string_view text, const Texts& names) const {
        m_User.SetSearchMode(mode);
        m_User.Search(text);
        EXPECT_EQ(m_User.RowTexts(List::Items), names);
    }
    void ExpectFoundInAllModes() const {
        ExpectFound(SearchMode::All, u"third three", {u"three"});
        ExpectFound(SearchMode::Exact, u"third three", {});
        ExpectFound(SearchMode::Exact, u"third user", {u"three"});
        ExpectFound(SearchMode::Any, u"one user", {u"one", u"three", u"five"});
        ExpectFound(SearchMode::Without, u"one user", {u"two", u"four"});
        ExpectFound(SearchMode::All, u"", {u"two", u"one", u"three", u"five", u"four"});
    }

    void ExpectSorted(Order order, const Texts& names) const {
        m_User.Sort(order);
        EXPECT_EQ(m_User.RowTexts(List::Items), names);
    }
    void ExpectSortedInAllOrders() const {
        ExpectSorted(Order::AZ, {u"five", u"four", u"one", u"three", u"two"});
        ExpectSorted(Order::ZA, {u"two", u"three", u"one", u"four", u"five"});
        ExpectSorted(Order::NewOld, {u"five", u"three", u"four", u"two", u"one"});
        ExpectSorted(Order::OldNew, {u"one", u"two", u"four", u"three", u"five"});
        ExpectSorted(Order::None, {u"two", u"one", u"three", u"five", u"four"});
    }

    void ExpectThePasswordHiddenAndShown(const tvstring& password) const {
        m_User.Select(List::Items, kThree);
        const u64 hidden = LookOfDetails();
        EXPECT_EQ(m_User.CopyField(Field::Password), password);
        m_User.TogglePassword();
        Require([&] { return LookOfDetails() != hidden; }, "the password is not shown");
        EXPECT_EQ(m_User.CopyField(Field::Password), password);
        m_User.TogglePassword();
        Require([&] { return LookOfDetails() == hidden; }, "the password is not hidden");
    }

    // What the window shows of the item in this row; the password only as a copy.
    void ExpectShown(int row, const ItemContent& item) const {
        m_User.Select(List::Items, row);
        EXPECT_EQ(m_User.CopyField(Field::Program), item.program);
        EXPECT_EQ(m_User.CopyField(Field::UserName), item.userName);
        EXPECT_EQ(m_User.CopyField(Field::Password), item.password);
        EXPECT_EQ(m_User.RowTexts(List::Entries), item.additions);
    }

    void UndoAllOf(int changes) const {
        m_User.Undo(changes - 1);
        EXPECT_TRUE(m_User.IsChanged()) << "there is one more change";
        m_User.Undo(1);
        m_User.WaitUntilUnchanged();
    }

    void WaitUntilSelected(List list, int row) const {
        Require([&] { return m_User.IsSelected(list, row); }, "nothing is moved");
    }

    static constexpr int kMoveDown = 2008;
};

Content WhatIsLeft(const tvstring& password) {
    const tvstring joined = tvstring(kCode).append(u"\r\n").append(kPin).append(u"\r\n").append(kQuestion);
    return {{u"two"},
            {u"one"},
            {u"three", u"C:\\tools\\three.exe", u"Third User", password, {joined}},
            {u"four", u"", u"", u"", {u"Fifth User"}}};
}

TEST_P(Day, IsThereOnTheNextMorning) {
    Create();
    const tvstring undone = ChangeAll();
    EXPECT_GE(undone.size(), 12U);
    EXPECT_LE(undone.size(), 20U);
    ExpectFoundInAllModes();
    ExpectSortedInAllOrders();
    ExpectThePasswordHiddenAndShown(undone);
    MergeAll();
    EXPECT_EQ(m_User.RowTexts(List::Items), (Texts{u"two", u"one", u"three", u"four"}));

    UndoAllOf(kChanges);
    m_User.WaitForRows(List::Items, 1);
    const tvstring password = ChangeAll();
    EXPECT_NE(password, undone);
    MergeAll();
    m_User.Save();
    ASSERT_TRUE(User::Quit(m_Program));
    const Content left = WhatIsLeft(password);
    EXPECT_EQ(ReadContent(InFolder(u"day.VMR"), u"secret"), left);

    StartAgain();
    EXPECT_EQ(m_User.RowTexts(List::Items), NamesOf(left));
    ExpectShown(kThree, left[kThree]);
    m_User.Select(List::Items, 3);
    EXPECT_EQ(m_User.RowTexts(List::Entries), left[3].additions);
    EXPECT_FALSE(m_User.IsChanged());
    EXPECT_TRUE(User::Quit(m_Program));
    EXPECT_FALSE(IsTextOnTheClipboard()) << "the last window clears the clipboard";
}

TEST_P(Day, IsUndoneToItsLastSave) {
    Create();
    AddFiveItems();
    m_User.Save();
    EXPECT_GE(FillDetails().size(), 12U);
    Reorder();
    MergeAll();
    constexpr int kForFiveItems = 1 + 4 * 2;
    UndoAllOf(kChanges - kForFiveItems);
    EXPECT_EQ(m_User.RowTexts(List::Items), (Texts{u"one", u"two", u"three", u"four", u"five"}));
    m_User.Select(List::Items, kThree);
    EXPECT_EQ(m_User.CountRows(List::Entries), 0);
    EXPECT_TRUE(User::Quit(m_Program));
}

INSTANTIATE_TEST_SUITE_P(Themes, Day, testing::ValuesIn(kDayThemes), NameOfTheme);

}  // namespace
