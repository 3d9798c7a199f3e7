// What the pane has painted of passwords is nowhere in the process once they are hidden and gone.
#include "tests/app/detail_stage.h"
#include "tests/gui/secret_memory.h"

namespace {

class DetailSecret : public DetailTest {
protected:
    ~DetailSecret() override { ForgetSecrets(); }
};

TEST_F(DetailSecret, NothingStaysOfAPasswordThatWasShown) {
    ASSERT_EQ(CountSecrets(), 0);
    TheAppData().bShowPassword = 1;
    Set(kPassword, Secret());
    OpenPane();
    Settle(PaneWindow());
    EXPECT_GE(CountSecrets(), 1);
    Do(CMD_DETAIL_SHOW_PASSWORD, kPassword);
    Settle(PaneWindow());
    Set(kPassword, u"");
    EXPECT_EQ(CountSecrets(), 0);
}

TEST_F(DetailSecret, NothingStaysOfAnEntryThatWasShown) {
    ASSERT_EQ(CountSecrets(), 0);
    AddEntries(1);
    Set(kAddition, Secret());
    OpenPane();
    Settle(PaneWindow());
    EXPECT_GE(CountSecrets(), 1);
    Set(kAddition, u"");
    Show(&Item());
    EXPECT_EQ(CountSecrets(), 0);
}

}  // namespace
