// Opening databases: with wrong passwords, files that are none, files that somebody else has.
#include "foundation/path.h"
#include "tests/scenarios/program.h"

namespace {

constexpr int kSaveButton = 32778;
constexpr int kRenameButton = 32783;
constexpr int kStatusBar = 2001;
constexpr int kSplitter = 2002;
constexpr int kEdit1 = 2014;
constexpr COLORREF kErrorGround = RGB(255, 192, 0);

class Open : public Scenario, public testing::WithParamInterface<const char16_t*> {
protected:
    void SetUp() override {
        Scenario::SetUp();
        UseStoredTheme(GetParam());
        m_File = InFolder(u"a.VMR");
        MakeDatabase(m_File, u"Mine", u"secret");
    }

    [[nodiscard]] bool ShowsAnError(const Program& program) const {
        return PumpUntil([&] { return CountPixels(program.Control(kStatusBar), kErrorGround) > 500; });
    }
    // By the menu, the file dialog and the password dialog.
    void OpenWith(std::u16string_view password) {
        m_Program.Choose(u"O");
        EnterPath(m_Program, m_File);
        ASSERT_NE(tvWnd::FindDescendant(m_Program.WaitForDialog(), kEdit1), nullptr);
        EnterTexts(password);
        ASSERT_TRUE(m_Program.WaitForNoDialog());
    }

    tvstring m_File;
    Program m_Program;
};

TEST_P(Open, AWrongPasswordIsToldAndTheRightOneOpens) {
    ASSERT_TRUE(m_Program.Start());
    OpenWith(u"wrong");
    EXPECT_TRUE(ShowsAnError(m_Program));
    EXPECT_FALSE(m_Program.Sees(kRenameButton));
    EXPECT_FALSE(m_Program.Sees(kSplitter)) << "the panes are as they were";
    OpenWith(u"secret");
    EXPECT_TRUE(PumpUntil([this] { return m_Program.Sees(kRenameButton); }));
    EXPECT_TRUE(m_Program.Sees(kSplitter));
    EXPECT_FALSE(m_Program.Sees(kSaveButton));
    EXPECT_TRUE(PumpUntil([this] { return CountPixels(m_Program.Control(kStatusBar), kErrorGround) == 0; }));
}

TEST_P(Open, AFileOfAnotherKindDoesNothing) {
    const tvstring other = InFolder(u"other.VMR");
    {
        HANDLE file = CreateFileW(Wide(other.c_str()), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
        DWORD written = 0;
        ASSERT_NE(WriteFile(file, "This is a text and no database", 30, &written, nullptr), FALSE);
        CloseHandle(file);
    }
    ASSERT_TRUE(m_Program.Start());
    m_Program.Choose(u"O");
    EnterPath(m_Program, other);
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_FALSE(m_Program.Sees(kRenameButton));
    for (const COLORREF ground : {kErrorGround, RGB(0, 144, 0)})
        EXPECT_EQ(CountPixels(m_Program.Control(kStatusBar), ground), 0) << "nothing is said of it";
}

TEST_P(Open, AFileThatAnotherWindowHasOpenIsToldOf) {
    ASSERT_NE(m_Program.StartAsking(m_File), nullptr);
    EnterTexts(u"secret");
    ASSERT_TRUE(PumpUntil([this] { return m_Program.Sees(kRenameButton); }));

    Program second;
    ASSERT_TRUE(second.Start());
    second.Choose(u"O");
    EnterPath(second, m_File);
    ASSERT_TRUE(second.WaitForNoDialog());
    EXPECT_TRUE(ShowsAnError(second));
    EXPECT_FALSE(second.Sees(kRenameButton));
}

TEST_P(Open, AFileThatAnotherWindowHasOpenIsPassedOverOnTheCommandLine) {
    ASSERT_NE(m_Program.StartAsking(m_File), nullptr);
    EnterTexts(u"secret");
    ASSERT_TRUE(PumpUntil([this] { return m_Program.Sees(kRenameButton); }));

    Program second;
    ASSERT_TRUE(second.Start(m_File));
    EXPECT_EQ(second.Dialog(), nullptr);
    EXPECT_EQ(CountPixels(second.Control(kStatusBar), kErrorGround), 0);
}

INSTANTIATE_TEST_SUITE_P(Themes, Open, testing::Values(u"Light", u"Dark"),
                         [](const auto& theme) { return theme.param[0] == u'D' ? "Dark" : "Light"; });

}  // namespace
