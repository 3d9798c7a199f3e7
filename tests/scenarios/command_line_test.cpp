// What stands on the command line of the program.
#include "foundation/path.h"
#include "foundation/registry.h"
#include "shell/app_settings.h"
#include "shell/recent_list.h"
#include "tests/scenarios/program.h"

namespace {

constexpr int kRenameButton = 32783;

class CommandLine : public Scenario {
protected:
    tvstring CopyInto(const tvstring& folder) const {
        EXPECT_TRUE(CreateDirectories(folder));
        tvstring program = JoinPath(folder, u"vaultmere.exe");
        EXPECT_NE(CopyFileW(Wide(ProgramPath(u"vaultmere.exe").c_str()), Wide(program.c_str()), TRUE), FALSE);
        return program;
    }
    static tvstring DefaultOf(const char16_t* key) {
        tvstring text;
        const RegKey opened(key, RegKey::For::Reading);
        RegReadText(opened.Get(), nullptr, text);
        return text;
    }

    Program m_Program;
};

TEST_F(CommandLine, OfBlanksAndQuotationMarksOpensTheLastDatabase) {
    const tvstring path = InFolder(u"a.VMR");
    MakeDatabase(path, u"Mine", u"secret");
    RecentList recent;
    recent.AddRecent(path, u"Mine");
    AppSettings settings;
    settings.bAutoOpen = 1;
    settings.LoadStoreAutoOpen(LoadStore::Store);
    ASSERT_NE(m_Program.StartAsking(u"\" \""), nullptr);
    EnterTexts(u"secret");
    EXPECT_TRUE(PumpUntil([this] { return m_Program.Sees(kRenameButton); }));
}

TEST_F(CommandLine, OpensNothingOfItselfUnlessItIsToldTo) {
    const tvstring path = InFolder(u"a.VMR");
    MakeDatabase(path, u"Mine", u"secret");
    RecentList recent;
    recent.AddRecent(path, u"Mine");
    ASSERT_TRUE(m_Program.Start());
    EXPECT_EQ(m_Program.Dialog(), nullptr);
    ASSERT_TRUE(m_Program.Quit());
}

TEST_F(CommandLine, WithMoreBehindTheQuotationMarkOpensNothing) {
    const tvstring path = InFolder(u"a.VMR");
    MakeDatabase(path, u"Mine", u"secret");
    ASSERT_TRUE(m_Program.Start(tvstring(u"\"").append(path).append(u"\" x")));
    EXPECT_EQ(m_Program.Dialog(), nullptr);
    ASSERT_TRUE(m_Program.Quit());
}

TEST_F(CommandLine, RegistersAProgramWhosePathHasABlankWithoutQuotationMarks) {
    const tvstring program = CopyInto(InFolder(u"a b"));
    EXPECT_EQ(Program::Run(program, u"/ShellAdd"), 0U);
    EXPECT_EQ(DefaultOf(u"Software\\Classes\\Tolvane.Vaultmere\\shell\\open\\command"),
              tvstring(program).append(u" %1"));
    EXPECT_EQ(Program::Run(program, u"/shellremove"), 0U);
    EXPECT_EQ(DefaultOf(u"Software\\Classes\\Tolvane.Vaultmere\\shell\\open\\command"), u"");
}

TEST_F(CommandLine, EndsWellIfTheLanguageCannotBeExtracted) {
    const tvstring program = CopyInto(m_Folder);
    ASSERT_TRUE(CreateDirectories(InFolder(u"Lang\\english.ini")));  // where the file should go
    EXPECT_EQ(Program::Run(program, u"/extractlang"), 0U);
}

}  // namespace
