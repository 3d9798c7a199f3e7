// A password on the clipboard and on the display.
#include "tests/scenarios/day_stage.h"

namespace {

class Password : public DayStage {};

TEST_P(Password, IsCopiedWhetherItIsShownOrNot) {
    StartWith({MakeItem(u"a"), MakeItem(u"bbb")});
    const u64 hidden = LookOfDetails();
    EXPECT_EQ(m_User.CopyField(Field::Password), u"a pass");
    m_User.TogglePassword();
    Require([&] { return LookOfDetails() != hidden; }, "the password is not shown");
    EXPECT_EQ(m_User.CopyField(Field::Password), u"a pass");
    m_User.TogglePassword();
    Require([&] { return LookOfDetails() == hidden; }, "the password is not hidden");
    EXPECT_TRUE(User::Quit(m_Program));
    EXPECT_FALSE(IsTextOnTheClipboard()) << "the last window clears the clipboard";
}

// Shown is shown for every item; the six dots tell nothing of a password's length.
TEST_P(Password, IsShownOfAllItems) {
    constexpr unsigned long long kDate = 130000000000000000;
    StartWith({{u"a", u"p", u"u", u"short", {}, kDate}, {u"a", u"p", u"u", u"a longer password", {}, kDate}});
    const auto lookOf = [this](int row) {
        m_User.Select(List::Items, row);
        return LookOfDetails();
    };
    EXPECT_EQ(lookOf(0), lookOf(1));
    m_User.TogglePassword();
    EXPECT_NE(lookOf(0), lookOf(1));
}

INSTANTIATE_TEST_SUITE_P(Themes, Password, testing::ValuesIn(kDayThemes), NameOfTheme);

}  // namespace
