// The start page: the recent list, and the database that is opened by itself.
#include "foundation/conversion.h"
#include "foundation/path.h"
#include "shell/load_store.h"
#include "shell/recent_list.h"
#include "tests/scenarios/opened.h"

namespace {

using namespace opened;

constexpr int kMost = 8;
constexpr COLORREF kErrorGround = RGB(255, 192, 0);

class StartPage : public Scenario, public testing::WithParamInterface<const char16_t*> {
protected:
    void SetUp() override {
        Scenario::SetUp();
        UseStoredTheme(GetParam());
    }

    [[nodiscard]] tvstring FileOf(int number) const {
        std::string name = std::string("file").append(std::to_string(number)).append(".VMR");
        return InFolder(FromUtf8(name).c_str());
    }
    static tvstring NameOf(int number) {
        return FromUtf8(std::string("Name ").append(std::to_string(number)));
    }

    // Files 1 to `count`, each with the password "secret", as they would be after the program had opened one
    // after another.
    void MakeHistory(int count) const {
        RecentList recent;
        for (int number = 1; number <= count; ++number) {
            MakeDatabase(FileOf(number), NameOf(number), u"secret");
            recent.AddRecent(FileOf(number), NameOf(number));
        }
    }

    // The numbers of the files in the stored list, newest first.
    [[nodiscard]] std::vector<int> Stored() const {
        RecentList recent;
        recent.LoadRecent();
        std::vector<int> numbers;
        for (const RecentItem& item : recent.recentItems) {
            int number = 1;
            while (number < 20 && item.path != FileOf(number))
                ++number;
            EXPECT_EQ(item.name, NameOf(number));
            numbers.push_back(number);
        }
        return numbers;
    }

    [[nodiscard]] HWND List() const { return RecentListOf(m_Program); }
    [[nodiscard]] bool HasRows(int rows) const {
        return PumpUntil([&] { return IsSeen(List()) && RowsOf(List()) == rows; });
    }
    [[nodiscard]] bool HasNoList() const {
        return PumpUntil([this] { return !IsSeen(List()); });
    }
    [[nodiscard]] int RowMiddle(int row) const {
        const int height = Ask(List(), LB_GETITEMHEIGHT);
        return (row - TopOf(List())) * height + height / 2;
    }
    void ClickRow(int row) const {
        Click(List(), 20, RowMiddle(row));
        MoveMouseAway();
    }
    // With the keyboard alone.
    void GoToRow(int row) const {
        for (int i = 0; i < 5 && FocusOf(m_Program) != List(); ++i) {
            HWND before = FocusOf(m_Program);
            Type(VK_TAB);
            ASSERT_TRUE(PumpUntil([&] { return FocusOf(m_Program) != before; }));
        }
        Type(VK_HOME);
        for (int i = 0; i < row; ++i)
            Type(VK_DOWN);
        ASSERT_TRUE(PumpUntil([&] { return Ask(List(), LB_GETCURSEL) == row; }));
    }
    // The menu of the list, with this row as the current one.
    void OpenMenuAt(int row) const {
        GoToRow(row);
        Click(List(), 20, RowMiddle(row), MouseButton::Right);
        ASSERT_NE(m_Program.WaitForMenu(), nullptr);
    }
    void ChooseAt(int row, WORD letter) const {
        OpenMenuAt(row);
        if (HasFatalFailure()) return;
        Type(letter);
        EXPECT_TRUE(m_Program.WaitForNoMenu());
    }
    void Answer(WORD key) const {
        ASSERT_NE(m_Program.WaitForDialog(), nullptr);
        Type(key);
        ASSERT_TRUE(m_Program.WaitForNoDialog());
    }
    void CloseDatabase() const {
        m_Program.Choose(u"C");
        ASSERT_TRUE(PumpUntil([this] { return m_Program.Sees(kCreateButton); }));
    }
    void Open(int number) {
        ASSERT_NE(m_Program.StartAsking(FileOf(number)), nullptr);
        Unlock(m_Program, u"secret");
        ASSERT_TRUE(WaitUntilOpen(m_Program));
    }
    // "Auto open last database", the fourth row below "More Settings".
    void ToggleAutoOpen() const {
        m_Program.ChooseByKeys({VK_UP, VK_UP, VK_UP, VK_RIGHT, VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
    }
    // "Record recent opened databases", the second row there.
    void ToggleHistory() const {
        m_Program.ChooseByKeys({VK_UP, VK_UP, VK_UP, VK_RIGHT, VK_DOWN, VK_RETURN});
    }
    static u8 Setting(const char16_t* name) {
        u8 value = 0xFF;
        LoadStoreBool(LoadStore::Load, name, value);
        return value;
    }

    Program m_Program;
};

using Numbers = std::vector<int>;

TEST_P(StartPage, HasNoListAtFirst) {
    ASSERT_TRUE(m_Program.Start());
    EXPECT_TRUE(m_Program.Sees(kCreateButton));
    EXPECT_FALSE(IsSeen(List()));
}

TEST_P(StartPage, ANinthDatabaseDropsTheOldest) {
    MakeHistory(kMost);
    MakeDatabase(FileOf(9), NameOf(9), u"secret");
    Open(9);
    EXPECT_EQ(Stored(), (Numbers{9, 8, 7, 6, 5, 4, 3, 2}));
    CloseDatabase();
    EXPECT_TRUE(HasRows(kMost));
    ClickRow(0);
    Unlock(m_Program, u"secret");
    ASSERT_TRUE(WaitUntilOpen(m_Program));
    CloseDatabase();
    EXPECT_EQ(Stored(), (Numbers{9, 8, 7, 6, 5, 4, 3, 2}));
}

TEST_P(StartPage, ADatabaseThatIsOpenedAgainGoesToTheTop) {
    MakeHistory(kMost);
    ASSERT_TRUE(m_Program.Start());
    ASSERT_TRUE(HasRows(kMost));
    ClickRow(2);  // file 6
    Unlock(m_Program, u"secret");
    ASSERT_TRUE(WaitUntilOpen(m_Program));
    EXPECT_EQ(Stored(), (Numbers{6, 8, 7, 5, 4, 3, 2, 1}));
    ASSERT_TRUE(m_Program.Quit());
    ASSERT_TRUE(m_Program.Start());
    EXPECT_TRUE(HasRows(kMost));
}

TEST_P(StartPage, OpensARowByTheKeyboard) {
    MakeHistory(3);
    ASSERT_TRUE(m_Program.Start());
    ASSERT_TRUE(HasRows(3));
    GoToRow(1);
    Type(VK_RETURN);
    Unlock(m_Program, u"secret");
    ASSERT_TRUE(WaitUntilOpen(m_Program));
    EXPECT_EQ(Stored(), (Numbers{2, 3, 1}));
}

TEST_P(StartPage, AWrongPasswordLeavesTheListAsItWas) {
    MakeHistory(3);
    ASSERT_TRUE(m_Program.Start());
    ASSERT_TRUE(HasRows(3));
    ClickRow(2);
    Unlock(m_Program, u"wrong");
    EXPECT_TRUE(PumpUntil([this] { return CountPixels(m_Program.Control(2001), kErrorGround) > 500; }));
    EXPECT_TRUE(HasRows(3));
    EXPECT_EQ(Stored(), (Numbers{3, 2, 1}));
}

TEST_P(StartPage, AMissingFileStaysOnNoAndGoesOnYes) {
    MakeHistory(3);
    ASSERT_NE(DeleteFileW(Wide(FileOf(2).c_str())), FALSE);
    ASSERT_TRUE(m_Program.Start());
    ASSERT_TRUE(HasRows(3));
    ClickRow(1);
    Answer(VK_RETURN);  // No is the default
    EXPECT_TRUE(HasRows(3));
    EXPECT_EQ(Stored(), (Numbers{3, 2, 1}));
    ClickRow(1);
    Answer('Y');
    EXPECT_TRUE(HasRows(2));
    EXPECT_EQ(Stored(), (Numbers{3, 1}));
    ClickRow(1);
    Unlock(m_Program, u"secret");
    EXPECT_TRUE(WaitUntilOpen(m_Program)) << "the others are still there";
    EXPECT_EQ(Stored(), (Numbers{1, 3}));
}

TEST_P(StartPage, TheLastRowTakesTheListWithIt) {
    MakeHistory(1);
    ASSERT_TRUE(m_Program.Start());
    ASSERT_TRUE(HasRows(1));
    ChooseAt(0, 'R');
    EXPECT_TRUE(HasNoList());
    EXPECT_EQ(Stored(), Numbers{});
}

TEST_P(StartPage, ARowIsTakenOutByTheMenu) {
    MakeHistory(4);
    ASSERT_TRUE(m_Program.Start());
    ASSERT_TRUE(HasRows(4));
    ChooseAt(2, 'R');
    EXPECT_TRUE(HasRows(3));
    EXPECT_EQ(Stored(), (Numbers{4, 3, 1}));
    EXPECT_EQ(PathKind(FileOf(2)), PATH_FILE) << "only the list forgets it";
}

TEST_P(StartPage, AllRowsGoOnlyOnYes) {
    MakeHistory(4);
    ASSERT_TRUE(m_Program.Start());
    ASSERT_TRUE(HasRows(4));
    ChooseAt(0, 'A');
    Answer(VK_RETURN);  // No is the default
    EXPECT_TRUE(HasRows(4));
    EXPECT_EQ(Stored().size(), 4U);
    ChooseAt(0, 'A');
    Answer('Y');
    EXPECT_TRUE(HasNoList());
    EXPECT_EQ(Stored(), Numbers{});
    EXPECT_EQ(Setting(u"bHistory"), 0xFF) << "the setting is not touched";
}

TEST_P(StartPage, HistoryIsDisabledOnlyOnYes) {
    MakeHistory(4);
    ASSERT_TRUE(m_Program.Start());
    ASSERT_TRUE(HasRows(4));
    ChooseAt(0, 'D');
    Answer(VK_RETURN);
    EXPECT_TRUE(HasRows(4));
    EXPECT_EQ(Stored().size(), 4U);
    ChooseAt(0, 'D');
    Answer('Y');
    EXPECT_TRUE(HasNoList());
    EXPECT_EQ(Stored(), Numbers{});
    EXPECT_EQ(Setting(u"bHistory"), 0);
}

TEST_P(StartPage, DisabledHistoryRecordsNothingUntilItIsOnAgain) {
    MakeHistory(2);
    ASSERT_TRUE(m_Program.Start());
    ASSERT_TRUE(HasRows(2));
    ChooseAt(0, 'D');
    Answer('Y');
    ASSERT_TRUE(HasNoList());
    ASSERT_TRUE(m_Program.Quit());

    Open(1);
    EXPECT_EQ(Stored(), Numbers{});
    CloseDatabase();
    EXPECT_TRUE(HasNoList());
    ToggleHistory();
    ASSERT_TRUE(PumpUntil([] { return Setting(u"bHistory") == 1; }));
    ASSERT_TRUE(m_Program.Quit());
    Open(1);
    EXPECT_EQ(Stored(), Numbers{1});
    CloseDatabase();
    EXPECT_TRUE(HasRows(1));
}

TEST_P(StartPage, OpensTheLastDatabaseByItselfOnceItIsToldTo) {
    MakeHistory(3);
    ASSERT_TRUE(m_Program.Start());
    ToggleAutoOpen();
    ASSERT_TRUE(PumpUntil([] { return Setting(u"bAutoOpen") == 1; }));
    EXPECT_EQ(m_Program.Dialog(), nullptr) << "not before the next start";
    ASSERT_TRUE(m_Program.Quit());

    ASSERT_NE(m_Program.StartAsking({}), nullptr);
    Unlock(m_Program, u"secret");
    ASSERT_TRUE(WaitUntilOpen(m_Program));
    m_Program.Choose(u"M");
    HWND edit = WaitForFieldIn(m_Program);
    EXPECT_EQ(TextOf(edit), NameOf(3));
    Type(VK_ESCAPE);
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    ToggleAutoOpen();
    ASSERT_TRUE(PumpUntil([] { return Setting(u"bAutoOpen") == 0; }));
    ASSERT_TRUE(m_Program.Quit());
    ASSERT_TRUE(m_Program.Start());
    EXPECT_EQ(m_Program.Dialog(), nullptr);
    EXPECT_TRUE(HasRows(3));
}

TEST_P(StartPage, IsThereWhenTheLastDatabaseIsNotUnlocked) {
    MakeHistory(3);
    u8 on = 1;
    LoadStoreBool(LoadStore::Store, u"bAutoOpen", on);
    ASSERT_NE(m_Program.StartAsking({}), nullptr);
    ASSERT_NE(WaitForFieldIn(m_Program), nullptr);
    Type(VK_ESCAPE);
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_TRUE(HasRows(3));
    EXPECT_FALSE(m_Program.Sees(kRenameButton));
}

TEST_P(StartPage, NothingIsSaidOfALastDatabaseThatIsMissing) {
    MakeHistory(3);
    ASSERT_NE(DeleteFileW(Wide(FileOf(3).c_str())), FALSE);
    u8 on = 1;
    LoadStoreBool(LoadStore::Store, u"bAutoOpen", on);
    ASSERT_TRUE(m_Program.Start());
    EXPECT_EQ(m_Program.Dialog(), nullptr);
    EXPECT_TRUE(HasRows(3));
    EXPECT_EQ(CountPixels(m_Program.Control(2001), kErrorGround), 0);
}

TEST_P(StartPage, ADatabaseThatIsSavedIsRecorded) {
    MakeHistory(1);
    Open(1);
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Tolvane\\Vaultmere\\Recent File List");
    ASSERT_EQ(Stored(), Numbers{});
    m_Program.Choose(u"M");
    ASSERT_NE(WaitForFieldIn(m_Program), nullptr);
    Type('A', HOLD_CTRL);
    TypeText(NameOf(2));
    Type(VK_RETURN);
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    ASSERT_TRUE(PumpUntil([this] { return m_Program.Sees(kSaveButton); }));
    Type('S', HOLD_CTRL);
    ASSERT_TRUE(PumpUntil([this] { return !m_Program.Sees(kSaveButton); }));
    RecentList recent;
    ASSERT_TRUE(recent.LoadRecent());
    ASSERT_EQ(recent.recentItems.size(), 1U);
    EXPECT_EQ(recent.recentItems[0].path, FileOf(1));
    EXPECT_EQ(recent.recentItems[0].name, NameOf(2));
}

INSTANTIATE_TEST_SUITE_P(Themes, StartPage, testing::Values(u"Light", u"Dark", u"System Default"),
                         [](const auto& theme) {
                             return std::string(theme.param[0] == u'S'   ? "SystemDefault"
                                                : theme.param[0] == u'D' ? "Dark"
                                                                         : "Light");
                         });

}  // namespace
