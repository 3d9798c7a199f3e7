// Settings that are changed while the program runs, and are there when it runs again.
#include "foundation/path.h"
#include "tests/gui/sizes.h"
#include "tests/scenarios/program.h"

namespace {

constexpr int kTopBarButton = 2006;
constexpr int kRenameButton = 32783;
constexpr int kSplitter = 2002;
constexpr WORD kThemeLetter = 'T';

RECT PlaceOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

// Of the pane below the bar, near its middle.
COLORREF GroundOf(const Program& program) {
    RECT client{};
    GetClientRect(program.Main(), &client);
    return ColorAt(program.Main(), client.right / 2, client.bottom / 2);
}

class Settings : public Scenario {
protected:
    Program m_Program;
};

TEST_F(Settings, AThemeIsSeenAtOnceAndAfterARestart) {
    UseStoredTheme(u"Light");
    ASSERT_TRUE(m_Program.Start());
    const auto isLight = [this] { return GetGValue(GroundOf(m_Program)) > 200; };
    const auto isDark = [this] { return GetGValue(GroundOf(m_Program)) < 96 && GroundOf(m_Program) != 0; };
    EXPECT_TRUE(PumpUntil(isLight));
    m_Program.ChooseByKeys({kThemeLetter, VK_DOWN, VK_RETURN});  // the second one, "Dark"
    EXPECT_TRUE(PumpUntil(isDark));
    ASSERT_TRUE(m_Program.Quit());
    ASSERT_TRUE(m_Program.Start());
    EXPECT_TRUE(PumpUntil(isDark));
}

TEST_F(Settings, TheMenuHasItsColoursUnderEachTheme) {
    UseStoredTheme(u"Light");
    ASSERT_TRUE(m_Program.Start());
    for (int theme = 0; theme < 5; ++theme) {
        m_Program.OpenMenuByKeyboard();
        Type(kThemeLetter);
        for (int i = 0; i < theme; ++i)
            Type(VK_DOWN);
        Type(VK_RETURN);
        ASSERT_TRUE(m_Program.WaitForNoMenu()) << theme;
        m_Program.OpenMenuByKeyboard();
        Type(VK_ESCAPE);
        ASSERT_TRUE(m_Program.WaitForNoMenu()) << theme;
    }
    ASSERT_TRUE(m_Program.Quit());
}

TEST_F(Settings, APlaceIsTheSameAfterARestart) {
    UseStoredTheme(u"Light");
    ASSERT_TRUE(m_Program.Start());
    const RECT before = PlaceOf(m_Program.Main());
    RECT client{};
    GetClientRect(m_Program.Main(), &client);
    // By the caption, then by the corner.
    MoveMouse(m_Program.Main(), client.right / 2, -10);
    Press();
    MoveMouse(m_Program.Main(), client.right / 2 + 40, 15);
    Release();
    ASSERT_TRUE(PumpUntil([&] { return PlaceOf(m_Program.Main()).left != before.left; }));
    const RECT moved = PlaceOf(m_Program.Main());
    ASSERT_TRUE(m_Program.Quit());
    ASSERT_TRUE(m_Program.Start());
    EXPECT_EQ(PlaceOf(m_Program.Main()), moved);
}

TEST_F(Settings, TheDividerIsTheSameAfterARestart) {
    const tvstring path = InFolder(u"a.VMR");
    MakeDatabase(path, u"Mine", u"secret");
    const auto open = [&] {
        ASSERT_NE(m_Program.StartAsking(path), nullptr);
        EnterTexts(u"secret");
        ASSERT_TRUE(PumpUntil([this] { return m_Program.Sees(kRenameButton); }));
        Settle(m_Program.Main());
    };
    open();
    HWND splitter = m_Program.Control(kSplitter);
    const RECT before = PlaceOf(splitter);
    const int y = (before.bottom - before.top) / 2;
    m_Program.Activate();
    MoveMouse(splitter, 2, y);
    Press();
    MoveMouse(splitter, 60, y);
    Release();
    ASSERT_TRUE(PumpUntil([&] { return PlaceOf(splitter).left > before.left; }));
    const RECT moved = PlaceOf(splitter);
    ASSERT_TRUE(m_Program.Quit());
    open();
    EXPECT_NEAR(PlaceOf(m_Program.Control(kSplitter)).left, moved.left, 1);
}

// A copy of the program beside which lie two languages.
TEST_F(Settings, ALanguageIsSeenAtOnceAndAfterARestart) {
    const tvstring program = InFolder(u"vaultmere.exe");
    ASSERT_TRUE(CreateDirectories(InFolder(u"Lang")));
    ASSERT_NE(CopyFileW(Wide(ProgramPath(u"vaultmere.exe").c_str()), Wide(program.c_str()), TRUE), FALSE);
    ASSERT_EQ(Program::Run(program, u"/extractlang"), 0U);
    const tvstring other = InFolder(u"Lang\\other.ini");
    ASSERT_NE(CopyFileW(Wide(InFolder(u"Lang\\english.ini").c_str()), Wide(other.c_str()), TRUE), FALSE);
    WritePrivateProfileStringW(L"global", L"main_menu", L"Changed menu", Wide(other.c_str()));
    WritePrivateProfileStringW(nullptr, nullptr, nullptr, Wide(other.c_str()));
    ASSERT_TRUE(m_Program.StartCopy(program));
    const tvstring before = TextOf(m_Program.Control(kTopBarButton));
    EXPECT_NE(before, u"Changed menu");
    m_Program.ChooseByKeys({'L', VK_DOWN, VK_RETURN});
    EXPECT_TRUE(PumpUntil([&] { return TextOf(m_Program.Control(kTopBarButton)) == u"Changed menu"; }));
    ASSERT_TRUE(m_Program.Quit());
    ASSERT_TRUE(m_Program.StartCopy(program));
    EXPECT_EQ(TextOf(m_Program.Control(kTopBarButton)), u"Changed menu");
}

}  // namespace
