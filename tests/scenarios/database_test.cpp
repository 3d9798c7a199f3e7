#include "database/database.h"
#include "foundation/path.h"
#include "tests/scenarios/program.h"

namespace {

constexpr int kSaveButton = 32778;
constexpr int kRenameButton = 32783;
constexpr int kEdit1 = 2014;

class Database : public Scenario, public testing::WithParamInterface<const char16_t*> {
protected:
    void SetUp() override {
        Scenario::SetUp();
        UseStoredTheme(GetParam());
    }

    // A file with a password, for vmr, which takes none as an argument.
    tvstring PasswordFile(const char* password) const {
        const tvstring path = InFolder(u"password.txt");
        HANDLE file = CreateFileW(Wide(path.c_str()), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        WriteFile(file, password, static_cast<DWORD>(strlen(password)), &written, nullptr);
        CloseHandle(file);
        return path;
    }
    DWORD RunTool(const tvstring& command, const char* password) const {
        tvstring arguments = command;
        arguments.append(u" --no-input --password-file \"").append(PasswordFile(password)).append(u"\" \"");
        return Program::Run(u"vmr.exe", arguments.append(InFolder(u"a.VMR")).append(u"\""));
    }

    // "Create New Database..." with a name.
    void Create(std::u16string_view name) {
        m_Program.Choose(u"N");
        ASSERT_NE(m_Program.WaitForDialog(), nullptr);
        EnterTexts(name);
        ASSERT_TRUE(m_Program.WaitForNoDialog());
        ASSERT_TRUE(PumpUntil([this] { return m_Program.Sees(kSaveButton); }));
    }

    // Starts with a file whose master password is "secret".
    void StartWith(const tvstring& path) {
        ASSERT_NE(m_Program.StartAsking(path), nullptr);
        EnterTexts(u"secret");
        ASSERT_TRUE(m_Program.WaitForNoDialog());
        ASSERT_TRUE(PumpUntil([this] { return m_Program.Sees(kRenameButton); }));
    }

    void SaveAs(const tvstring& path, std::u16string_view password, const char16_t* again) {
        Type('S', HOLD_CTRL);
        HWND file = m_Program.WaitForDialog();
        ASSERT_NE(file, nullptr);
        EnterTexts(path);
        ASSERT_TRUE(PumpUntil([&] {
            HWND next = m_Program.Dialog();
            return next != nullptr && next != file && tvWnd::FindDescendant(next, kEdit1) != nullptr &&
                   GetForegroundWindow() == next;
        }));
        EnterTexts(password, again);
        ASSERT_TRUE(m_Program.WaitForNoDialog());
    }

    static bool Opens(const tvstring& path, const tvstring& password, const tvstring& name) {
        VMRD_DB database;
        return database.Open(path, password) && database.m_Name == name;
    }

    Program m_Program;
};

TEST_P(Database, IsCreatedSavedAndOpenedAgain) {
    const tvstring path = InFolder(u"a.VMR");
    ASSERT_TRUE(m_Program.Start());
    Create(u"My passwords");
    EXPECT_TRUE(m_Program.Sees(kRenameButton));
    EXPECT_EQ(PathKind(path), PATH_NONE) << "nothing is written before it is saved";
    SaveAs(path, u"secret", u"secret");
    EXPECT_TRUE(PumpUntil([this] { return !m_Program.Sees(kSaveButton); }));
    Type(VK_F4, HOLD_ALT);
    ASSERT_TRUE(m_Program.HasEnded());
    EXPECT_TRUE(Opens(path, u"secret", u"My passwords"));
}

TEST_P(Database, IsOpenedByTheCommandLineTool) {
    ASSERT_TRUE(m_Program.Start());
    Create(u"My passwords");
    SaveAs(InFolder(u"a.VMR"), u"secret", u"secret");
    EXPECT_TRUE(PumpUntil([this] { return !m_Program.Sees(kSaveButton); }));
    ASSERT_TRUE(m_Program.Quit());
    EXPECT_EQ(RunTool(u"ls", "secret"), 0U);
    EXPECT_NE(RunTool(u"ls", "another"), 0U);
}

TEST_P(Database, OfTheCommandLineToolIsOpened) {
    ASSERT_EQ(RunTool(u"new --name Tool", "secret"), 0U);
    ASSERT_NE(m_Program.StartAsking(InFolder(u"a.VMR")), nullptr);
    EnterTexts(u"secret");
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_TRUE(PumpUntil([this] { return m_Program.Sees(kRenameButton); }));
}

TEST_P(Database, IsNotSavedWithPasswordsThatDiffer) {
    const tvstring path = InFolder(u"a.VMR");
    ASSERT_TRUE(m_Program.Start());
    Create(u"name");
    SaveAs(path, u"secret", u"Secret");
    EXPECT_TRUE(m_Program.Sees(kSaveButton));
    EXPECT_EQ(PathKind(path), PATH_NONE);

    // The path is kept: the next time only the password is asked for.
    Type('S', HOLD_CTRL);
    HWND dialog = m_Program.WaitForDialog();
    ASSERT_NE(tvWnd::FindDescendant(dialog, kEdit1), nullptr);
    EnterTexts(u"secret", u"secret");
    EXPECT_TRUE(PumpUntil([this] { return !m_Program.Sees(kSaveButton); }));
    EXPECT_EQ(PathKind(path), PATH_FILE);
}

TEST_P(Database, IsNotCreatedWhenTheUserCancels) {
    ASSERT_TRUE(m_Program.Start());
    m_Program.Choose(u"N");
    ASSERT_NE(m_Program.WaitForDialog(), nullptr);
    TypeText(u"name");
    Type(VK_ESCAPE);
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_FALSE(m_Program.Sees(kRenameButton));
}

TEST_P(Database, IsOpenedFromTheCommandLine) {
    const tvstring path = InFolder(u"my file.VMR");
    MakeDatabase(path, u"Mine", u"secret");
    HWND dialog = m_Program.StartAsking(tvstring(u"\"").append(path).append(u"\""));
    ASSERT_NE(tvWnd::FindDescendant(dialog, kEdit1), nullptr);
    EnterTexts(u"secret");
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_TRUE(PumpUntil([this] { return m_Program.Sees(kRenameButton); }));
    EXPECT_FALSE(m_Program.Sees(kSaveButton));
}

TEST_P(Database, IsOpenedByAPathWithAVariable) {
    MakeDatabase(InFolder(u"a.VMR"), u"Mine", u"secret");
    SetEnvironmentVariableW(L"HERE", Wide(InFolder(u"").c_str()));
    HWND dialog = m_Program.StartAsking(u"%HERE%\\a.VMR");
    SetEnvironmentVariableW(L"HERE", nullptr);
    ASSERT_NE(tvWnd::FindDescendant(dialog, kEdit1), nullptr);
    EnterTexts(u"secret");
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_TRUE(PumpUntil([this] { return m_Program.Sees(kRenameButton); }));
}

TEST_P(Database, StaysClosedWithAWrongPassword) {
    const tvstring path = InFolder(u"a.VMR");
    MakeDatabase(path, u"Mine", u"secret");
    ASSERT_NE(m_Program.StartAsking(path), nullptr);
    EnterTexts(u"wrong");
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_FALSE(m_Program.Sees(kRenameButton));
    EXPECT_TRUE(PumpUntil([this] { return CountPixels(m_Program.Control(2001), RGB(255, 192, 0)) > 500; }));
}

TEST_P(Database, MissingOnTheCommandLineIsPassedOver) {
    ASSERT_TRUE(m_Program.Start(InFolder(u"missing.VMR")));
    EXPECT_EQ(m_Program.Dialog(), nullptr);
    EXPECT_FALSE(m_Program.Sees(kRenameButton));
}

TEST_P(Database, WithUnsavedChangesIsGivenUpOnlyOnYes) {
    ASSERT_TRUE(m_Program.Start());
    Create(u"name");
    Type(VK_F4, HOLD_ALT);
    ASSERT_NE(m_Program.WaitForDialog(), nullptr);
    Type(VK_RETURN);  // No is the default
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_TRUE(m_Program.Sees(kSaveButton));
    m_Program.Choose(u"C");
    ASSERT_NE(m_Program.WaitForDialog(), nullptr);
    Type('N');
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_TRUE(m_Program.Sees(kSaveButton));
    Type(VK_F4, HOLD_ALT);
    ASSERT_NE(m_Program.WaitForDialog(), nullptr);
    Type('Y');
    EXPECT_TRUE(m_Program.HasEnded());
}

TEST_P(Database, GetsItsOldNameBackByUndo) {
    const tvstring path = InFolder(u"a.VMR");
    MakeDatabase(path, u"old", u"secret");
    StartWith(path);
    m_Program.Choose(u"M");
    HWND dialog = m_Program.WaitForDialog();
    EXPECT_EQ(TextOf(tvWnd::FindDescendant(dialog, kEdit1)), u"old");
    Type('A', HOLD_CTRL);
    EnterTexts(u"new");
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    ASSERT_TRUE(PumpUntil([this] { return m_Program.Sees(kSaveButton); }));
    EXPECT_TRUE(TypeWithControl('Z', [this] { return !m_Program.Sees(kSaveButton); }));
    m_Program.Choose(u"M");
    dialog = m_Program.WaitForDialog();
    EXPECT_EQ(TextOf(tvWnd::FindDescendant(dialog, kEdit1)), u"old");
}

TEST_P(Database, GetsItsOldMasterPasswordBackByUndoWithAWarning) {
    constexpr COLORREF kOtherGround = RGB(0, 144, 0);
    const tvstring path = InFolder(u"a.VMR");
    MakeDatabase(path, u"name", u"secret");
    StartWith(path);
    m_Program.Choose(u"P");
    ASSERT_NE(m_Program.WaitForDialog(), nullptr);
    EnterTexts(u"another", u"another");
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    ASSERT_TRUE(PumpUntil([this] { return m_Program.Sees(kSaveButton); }));
    HWND bar = m_Program.Control(2001);
    EXPECT_TRUE(PumpUntil([bar] { return CountPixels(bar, kOtherGround) > 500; })) << "it is told of";
    const u64 told = LookOf(bar);
    EXPECT_TRUE(TypeWithControl('Z', [this] { return !m_Program.Sees(kSaveButton); }));
    EXPECT_TRUE(PumpUntil([&] { return LookOf(bar) != told && CountPixels(bar, kOtherGround) > 500; }));
    ASSERT_TRUE(m_Program.Quit());
    EXPECT_TRUE(Opens(path, u"secret", u"name"));
}

TEST_P(Database, CtrlZInAnEditBoxIsTheBoxesOwn) {
    const tvstring path = InFolder(u"a.VMR");
    MakeDatabase(path, u"old", u"secret");
    StartWith(path);
    m_Program.Choose(u"M");
    ASSERT_NE(m_Program.WaitForDialog(), nullptr);
    EnterTexts(u"new");
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    ASSERT_TRUE(PumpUntil([this] { return m_Program.Sees(kSaveButton); }));
    m_Program.Choose(u"M");
    HWND edit = tvWnd::FindDescendant(m_Program.WaitForDialog(), kEdit1);
    TypeText(u"typed");
    ASSERT_TRUE(PumpUntil([edit] { return TextOf(edit) == u"typed"; }));
    Type('Z', HOLD_CTRL);
    EXPECT_TRUE(PumpUntil([edit] { return TextOf(edit) != u"typed"; }));
    Type(VK_ESCAPE);
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_TRUE(m_Program.Sees(kSaveButton)) << "nothing of the database is undone";
}

TEST_P(Database, ShowsWhereTheKeyboardIs) {
    ASSERT_TRUE(m_Program.Start());
    Create(u"name");
    HWND button = m_Program.Control(kRenameButton);
    const auto focus = [this] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(m_Program.Main(), nullptr), &info);
        return info.hwndFocus;
    };
    ASSERT_NE(focus(), button);
    const u64 without = LookOf(button);
    for (int i = 0; i < 10 && focus() != button; ++i) {
        HWND last = focus();
        Type(VK_TAB);
        ASSERT_TRUE(PumpUntil([&] { return focus() != last; }));
    }
    EXPECT_TRUE(PumpUntil([&] { return LookOf(button) != without; }));
}

INSTANTIATE_TEST_SUITE_P(Themes, Database, testing::Values(u"Light", u"Dark"),
                         [](const auto& theme) { return theme.param[0] == u'D' ? "Dark" : "Light"; });

}  // namespace
