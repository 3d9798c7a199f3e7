#include "tests/scenarios/program.h"

namespace {

class Start : public Scenario, public testing::WithParamInterface<const char16_t*> {
protected:
    void SetUp() override {
        Scenario::SetUp();
        UseStoredTheme(GetParam());
    }
    Program m_Program;
};

TEST_P(Start, ShowsOnlyTheMenuButton) {
    ASSERT_TRUE(m_Program.Start());
    EXPECT_EQ(TextOf(m_Program.Main()), u"Vaultmere");
    EXPECT_TRUE(m_Program.Sees(2006));
    for (const int id : {32783, 32784, 32778, 2002})
        EXPECT_FALSE(m_Program.Sees(id)) << id;
    EXPECT_TRUE(m_Program.Sees(2001));
}

TEST_P(Start, OpensTheMenuByTheMouse) {
    ASSERT_TRUE(m_Program.Start());
    Click(m_Program.Control(2006));
    EXPECT_NE(m_Program.WaitForMenu(), nullptr);
    Type(VK_ESCAPE);
    EXPECT_TRUE(m_Program.WaitForNoMenu());
}

TEST_P(Start, OpensTheMenuByTheKeyboard) {
    ASSERT_TRUE(m_Program.Start());
    m_Program.OpenMenuByKeyboard();
    Type(VK_ESCAPE);
    EXPECT_TRUE(m_Program.WaitForNoMenu());
}

TEST_P(Start, EndsWithItsWindow) {
    ASSERT_TRUE(m_Program.Start());
    Type(VK_F4, HOLD_ALT);
    EXPECT_TRUE(m_Program.HasEnded());
}

INSTANTIATE_TEST_SUITE_P(Themes, Start, testing::Values(u"Light", u"Dark", u"System Default"),
                         [](const auto& theme) {
                             return std::string(theme.param[0] == u'S'   ? "SystemDefault"
                                                : theme.param[0] == u'D' ? "Dark"
                                                                         : "Light");
                         });

}  // namespace
