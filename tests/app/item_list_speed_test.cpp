// How long the item list takes with many items. The limits are far above what is needed, and far below what
// it takes when each row is walked to.
#include "tests/app/item_stage.h"
#include "tests/gui/timing.h"

namespace {

// Milliseconds on a busy machine.
constexpr double kLimit = 4000;

class ItemListSpeed : public ItemTest {
protected:
    // One in a hundred has "needle" in its name.
    void OpenMany(int count) {
        for (int i = 0; i < count; ++i) {
            tvstring name = i % 100 == 0 ? u"needle " : u"hay ";
            name.append(Units(std::to_wstring(i * 7919 % count).c_str()));
            ItemElement* item = Put(name, static_cast<u64>(i));
            item->m_Head->m_Text = u"https://example.org/somewhere";
            item->m_Head->m_Next->m_Text = u"user name";
            item->m_Tail->m_Text = u"password";
        }
        OpenWindow();
    }

    // The thread's own time until the list is painted, whatever else the machine does.
    double Time(const char* what, const std::function<void()>& work) const {
        Settle(Window());
        return TimeOf(std::to_string(TheDatabase().m_Count).append(" items, ").append(what), [&] {
            work();
            UpdateWindow(ListWindow());
        });
    }

    void Type(const char16_t* text) const { SetWindowTextW(Pane().m_filterEdit.Handle(), Wide(text)); }
};

class ItemListSpeedOf : public ItemListSpeed, public testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Items, ItemListSpeedOf, testing::Values(10000, 60000));

TEST_P(ItemListSpeedOf, SearchAndOrder) {
    OpenMany(GetParam());
    EXPECT_LT(Time("all match", [this] { Type(u"a"); }), kLimit);
    EXPECT_EQ(List().GetCount(), GetParam());
    EXPECT_LT(Time("1 % match", [this] { Type(u"needle"); }), kLimit);
    EXPECT_EQ(List().GetCount(), GetParam() / 100);
    EXPECT_LT(Time("nothing matches", [this] { Type(u"needlex"); }), kLimit);
    EXPECT_LT(Time("all again", [this] { Type(u""); }), kLimit);
    EXPECT_EQ(List().GetCount(), GetParam());
    EXPECT_LT(Time("A - Z", [this] { ChooseOrder(SortAZ); }), kLimit);
    EXPECT_LT(Time("all match in A - Z", [this] { Type(u"a"); }), kLimit);
    EXPECT_LT(Time("1 % match in A - Z", [this] { Type(u"needle"); }), kLimit);
    Type(u"");
    EXPECT_LT(Time("resort", [this] { List().Resort(); }), kLimit);
}

TEST_P(ItemListSpeedOf, SelectionAndCommands) {
    OpenMany(GetParam());
    EXPECT_LT(Time("select all", [this] { List().SelectAll(); }), kLimit);
    EXPECT_LT(Time("refresh with all selected", [this] { List().Refresh(); }), kLimit);
    EXPECT_EQ(List().GetSelCount(), GetParam());
    EXPECT_LT(Time("copy all", [this] { EXPECT_TRUE(List().CopySelection()); }), 2 * kLimit);
    EXPECT_LT(Time("invert", [this] { List().InvertSelection(); }), kLimit);
    List().SetSel(0, true);
    EXPECT_LT(Time("add", [this] { List().AddNew(); }), kLimit);
    List().SelectAll();
    List().SetSel(List().GetCount() - 1, false);
    EXPECT_LT(Time("move all but one down", [this] { List().MoveSelected(false); }), kLimit);
    EXPECT_EQ(List().GetSel(0), 0);
    EXPECT_LT(Time("remove all but one", [this] { List().RemoveSelected(); }), kLimit);
    EXPECT_EQ(List().GetCount(), 1);
    EXPECT_LT(Time("undo", [this] { Command(CMD_UNDO); }), 2 * kLimit);
    EXPECT_EQ(List().GetCount(), GetParam() + 1);
}

TEST_P(ItemListSpeedOf, Wheel) {
    OpenMany(GetParam());
    double longest = 0;
    for (int i = 0; i < 20; ++i) {
        longest = std::max(longest, Time("wheel", [this] {
                               List().Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
                           }));
    }
    EXPECT_GT(List().Send(LB_GETTOPINDEX), 0);
    EXPECT_LT(longest, kLimit / 10);
}

// --- More than the list can hold ---

TEST_F(ItemListSpeed, OfTooManyItemsTheLastAreShown) {
    constexpr int kItems = tvMListBox::kMostRows + 10;
    OpenMany(kItems);
    EXPECT_EQ(List().GetCount(), tvMListBox::kMostRows);
    EXPECT_EQ(List().ElementOf(tvMListBox::kMostRows - 1), TheDatabase().Tail());
}

TEST_F(ItemListSpeed, APasteInTheMiddleOfAFullListMakesAllRowsAnew) {
    OpenMany(tvMListBox::kMostRows);
    List().SetSel(5, true);
    ASSERT_TRUE(List().CopySelection());
    const VMRD_Element* third = List().ElementOf(2);
    EXPECT_TRUE(List().PasteFromClipboard());
    EXPECT_EQ(TheDatabase().m_Count, tvMListBox::kMostRows + 1);
    EXPECT_EQ(List().GetCount(), tvMListBox::kMostRows);
    EXPECT_EQ(List().ElementOf(1), third);
    EXPECT_EQ(List().ElementOf(tvMListBox::kMostRows - 1), TheDatabase().Tail());
}

TEST_F(ItemListSpeed, AFullListLosesItsFirstRowToANewOne) {
    OpenMany(tvMListBox::kMostRows);
    const VMRD_Element* second = List().ElementOf(1);
    List().AddNew();
    EXPECT_EQ(TheDatabase().m_Count, tvMListBox::kMostRows + 1);
    EXPECT_EQ(List().GetCount(), tvMListBox::kMostRows);
    EXPECT_EQ(List().ElementOf(0), second);
    EXPECT_EQ(List().ElementOf(tvMListBox::kMostRows - 1), TheDatabase().Tail());
    EXPECT_EQ(List().GetSelCount(), 1);
    EXPECT_GT(List().GetSel(tvMListBox::kMostRows - 1), 0);
}

}  // namespace
