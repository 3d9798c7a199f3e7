// The item list, searched and in other orders.
#include "tests/scenarios/day_stage.h"

namespace {

constexpr int kBar = 2001;
constexpr COLORREF kErrorGround = RGB(255, 192, 0);

class View : public DayStage {
protected:
    void ExpectFound(std::u16string_view text, const Texts& names) const {
        m_User.Search(text);
        EXPECT_EQ(m_User.RowTexts(List::Items), names);
    }
};

TEST_P(View, IsSearchedInEachMode) {
    StartWith({{u"red apple"},
               {u"apple"},
               {u"Green pear", u"", u"", u"", {u"not an APPLE"}},
               {u"apple red"},
               {u"plum"}});
    ExpectFound(u"apple red", {u"red apple", u"apple red"});
    m_User.SetSearchMode(SearchMode::Exact);
    ExpectFound(u"apple red", {u"apple red"});
    m_User.SetSearchMode(SearchMode::Any);
    ExpectFound(u"red pear", {u"red apple", u"Green pear", u"apple red"});
    m_User.SetSearchMode(SearchMode::Without);
    ExpectFound(u"apple pear", {u"plum"});
    m_User.SetSearchMode(SearchMode::All);
    ExpectFound(u"nowhere", {});
    ExpectFound(u"", {u"red apple", u"apple", u"Green pear", u"apple red", u"plum"});
    EXPECT_FALSE(m_User.IsChanged()) << "to search is no change";
    EXPECT_TRUE(User::Quit(m_Program));
}

TEST_P(View, IsSearchedInPasswordsIfThatIsWanted) {
    StartWith({MakeItem(u"a"), {u"b", u"", u"", u"hidden"}});
    ExpectFound(u"hidden", {});
    m_User.SearchInPasswords();
    ExpectFound(u"hidden", {u"b"});
    m_User.SearchInPasswords();
    m_User.WaitForRows(List::Items, 0);
}

TEST_P(View, HasFiveOrders) {
    const Content content = {{u"Item 10", u"", u"", u"", {}, 130000000000000000},
                             {u"item 9", u"", u"", u"", {}, 131000000000000000},
                             {u"Zebra", u"", u"", u"", {}, 129000000000000000},
                             {u"ant", u"", u"", u"", {}, 132000000000000000}};
    const Texts unsorted = NamesOf(content);
    StartWith(content);
    EXPECT_EQ(m_User.RowTexts(List::Items), unsorted);
    m_User.Sort(Order::AZ);
    EXPECT_EQ(m_User.RowTexts(List::Items), (Texts{u"ant", u"item 9", u"Item 10", u"Zebra"}));
    m_User.Sort(Order::ZA);
    EXPECT_EQ(m_User.RowTexts(List::Items), (Texts{u"Zebra", u"Item 10", u"item 9", u"ant"}));
    m_User.Sort(Order::NewOld);
    EXPECT_EQ(m_User.RowTexts(List::Items), (Texts{u"ant", u"item 9", u"Item 10", u"Zebra"}));
    m_User.Sort(Order::OldNew);
    EXPECT_EQ(m_User.RowTexts(List::Items), (Texts{u"Zebra", u"Item 10", u"item 9", u"ant"}));
    m_User.Sort(Order::None);
    EXPECT_EQ(m_User.RowTexts(List::Items), unsorted);
    EXPECT_FALSE(m_User.IsChanged()) << "to sort is no change";
    EXPECT_TRUE(User::Quit(m_Program));
}

TEST_P(View, HasItsOrderAfterARestart) {
    StartWith({MakeItem(u"b"), MakeItem(u"c"), MakeItem(u"a")});
    m_User.Sort(Order::ZA);
    m_User.Select(List::Items, 0);
    ASSERT_TRUE(User::Quit(m_Program));
    StartAgain();
    EXPECT_EQ(m_User.RowTexts(List::Items), (Texts{u"c", u"b", u"a"}));
}

TEST_P(View, KeepsItsOrderWhenAnItemIsRenamed) {
    StartWith({MakeItem(u"b"), MakeItem(u"c"), MakeItem(u"a")});
    m_User.Sort(Order::AZ);
    m_User.Select(List::Items, 0);
    m_User.Rename(u"d");
    Require([this] { return m_User.IsSelected(List::Items, 2); }, "the item keeps its row");
    EXPECT_EQ(m_User.RowTexts(List::Items), (Texts{u"b", u"c", u"d"}));
    EXPECT_EQ(NamesOf(SavedContent()), (Texts{u"b", u"c", u"d"}));
}

TEST_P(View, ThatIsSortedOrSearchedLetsNoItemBeMoved) {
    StartWith({MakeItem(u"b"), MakeItem(u"a"), MakeItem(u"c")});
    const auto isRefused = [this] { return CountPixels(m_Program.Control(kBar), kErrorGround) > 500; };
    m_User.Sort(Order::AZ);
    m_User.Select(List::Items, 0);
    m_User.ChooseFromListMenu('D');
    Require(isRefused, "nothing is told");
    EXPECT_TRUE(m_User.IsSelected(List::Items, 0));
    m_User.Sort(Order::None);
    m_User.Select(List::Items, 0);
    EXPECT_FALSE(m_User.IsChanged());
    EXPECT_EQ(NamesOf(SavedContent()), (Texts{u"b", u"a", u"c"}));
}

INSTANTIATE_TEST_SUITE_P(Themes, View, testing::ValuesIn(kDayThemes), NameOfTheme);

}  // namespace
