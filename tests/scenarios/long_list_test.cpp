// A database of ten thousand items in the window.
#include "foundation/conversion.h"
#include "tests/scenarios/opened.h"

namespace {

using namespace opened;

constexpr int kItems = 10000;
constexpr int kWithWord = 20;  // every so many items have the word in their names

tvstring NameOf(int index) {
    std::string digits = std::to_string(index + 1);
    digits.insert(0, 5 - digits.size(), '0');
    std::string name = std::string("Item ").append(digits);
    if (index % (kItems / kWithWord) == 0) name.append(" needle");
    return FromUtf8(name);
}

tvstring UserOf(int index) {
    return FromUtf8(std::string("user").append(std::to_string(index + 1)));
}

EntryElement* UserEntryOf(const ItemElement& item) {
    EntryElement* entry = item.m_Head;
    while (entry != nullptr && entry->m_Type != VMRD_T_USERNAME)
        entry = entry->m_Next;
    return entry;
}

class LongList : public Scenario, public testing::WithParamInterface<const char16_t*> {
protected:
    void SetUp() override {
        Scenario::SetUp();
        UseStoredTheme(GetParam());
        m_Path = InFolder(u"long.VMR");
        MakeLongDatabase();
        ASSERT_FALSE(HasFatalFailure());
        ASSERT_NE(m_Program.StartAsking(m_Path), nullptr);
        Unlock(m_Program, u"secret");
        ASSERT_TRUE(WaitUntilOpen(m_Program));
        m_List = ItemListOf(m_Program);
        ASSERT_TRUE(HasRows(kItems));
        ASSERT_NO_FATAL_FAILURE(GoToList());
    }

    void MakeLongDatabase() const {
        VMRD_DB database;
        database.MakeCurrent();
        ASSERT_TRUE(database.New(u"Long"));
        while (database.m_Count < kItems)
            ASSERT_NE(database.AddNewItem(&database), nullptr);
        int index = 0;
        for (ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next, ++index) {
            item->m_Name = NameOf(index);
            UserEntryOf(*item)->m_Text = UserOf(index);
        }
        database.SetPath(m_Path);
        database.SetMasterPassword(u"secret");
        ASSERT_TRUE(database.Save());
    }

    [[nodiscard]] bool HasRows(int rows) const {
        return PumpUntil([&] { return RowsOf(m_List) == rows; }, kLongLimit);
    }
    [[nodiscard]] bool HasSelected(int rows) const {
        const bool has = PumpUntil([&] { return SelectedIn(m_List) == rows; }, kLongLimit);
        EXPECT_TRUE(has) << "selected: " << SelectedIn(m_List) << " of " << RowsOf(m_List);
        return has;
    }
    [[nodiscard]] bool HasTop(int row) const {
        return PumpUntil([&] { return TopOf(m_List) == row; }, kLongLimit);
    }
    [[nodiscard]] int RowHeight() const { return Ask(m_List, LB_GETITEMHEIGHT); }
    // The top row when the last one stands at the bottom.
    [[nodiscard]] int LastTop() const {
        RECT client{};
        GetClientRect(m_List, &client);
        return kItems - static_cast<int>(client.bottom) / RowHeight();
    }

    // Into the search box, from elsewhere: what stands in it is selected then.
    void SearchFor(std::u16string_view text) const {
        HWND box = m_Program.Control(kSearchBox);
        Click(box);
        ASSERT_TRUE(PumpUntil([&] { return FocusOf(m_Program) == box; }));
        if (text.empty())
            Type(VK_DELETE);
        else
            TypeText(text);
        ASSERT_TRUE(PumpUntil([&] { return TextOf(box).view() == text; }, kLongLimit));
    }
    // By its first row that is seen, which is then the only one that is selected.
    void GoToList() const {
        Click(m_List, 5, RowHeight() / 2);
        ASSERT_TRUE(PumpUntil([this] { return FocusOf(m_Program) == m_List; }));
        MoveMouseAway();
    }

    tvstring m_Path;
    Program m_Program;
    HWND m_List = nullptr;
};

TEST_P(LongList, ScrollsByTheWheel) {
    ASSERT_TRUE(HasTop(0));
    RollWheel(m_List, 20, 20, -1);
    ASSERT_TRUE(PumpUntil([this] { return TopOf(m_List) > 0; }));
    const int notch = TopOf(m_List);
    RollWheel(m_List, 20, 20, -10);
    EXPECT_TRUE(HasTop(11 * notch)) << TopOf(m_List);
    RollWheel(m_List, 20, 20, 1);
    EXPECT_TRUE(HasTop(10 * notch)) << TopOf(m_List);
    RollWheel(m_List, 20, 20, 20);
    EXPECT_TRUE(HasTop(0)) << TopOf(m_List);
    EXPECT_EQ(SelectedIn(m_List), 1) << "the selection stays";
}

// The thumb has its least length here, and stands below the upper arrow.
TEST_P(LongList, ScrollsByTheThumb) {
    if (GetParam()[0] == u'S') GTEST_SKIP() << "where the system's own thumb is, is not known here";
    HWND host = GetParent(m_List);
    RECT client{};
    GetClientRect(host, &client);
    const int x = static_cast<int>(client.right) - GetSystemMetrics(SM_CXVSCROLL) / 2;
    const int arrow = GetSystemMetrics(SM_CYVSCROLL);
    const int y = arrow + GetSystemMetrics(SM_CYVTHUMB) / 2;
    const int bottom = static_cast<int>(client.bottom);
    MoveMouse(host, x, y);
    Press();
    MoveMouse(host, x, bottom / 2);
    EXPECT_TRUE(PumpUntil([this] { return std::abs(TopOf(m_List) - kItems / 2) < kItems / 20; }))
        << "it follows the mouse: " << TopOf(m_List);
    MoveMouse(host, x, bottom + 50);
    EXPECT_TRUE(HasTop(LastTop())) << TopOf(m_List);
    MoveMouse(host, x, -50);
    EXPECT_TRUE(HasTop(0)) << TopOf(m_List);
    MoveMouse(host, x, bottom + 50);
    Release();
    EXPECT_TRUE(HasTop(LastTop())) << TopOf(m_List);
    EXPECT_EQ(SelectedIn(m_List), 1) << "the selection stays";
}

TEST_P(LongList, ScrollsByKeysAndShowsTheItemThatIsReached) {
    Type(VK_END);
    EXPECT_TRUE(HasTop(LastTop())) << TopOf(m_List);
    EXPECT_EQ(ShownName(m_Program), NameOf(kItems - 1));
    Type(VK_UP);
    EXPECT_EQ(ShownName(m_Program), NameOf(kItems - 2));
    Type(VK_HOME);
    EXPECT_TRUE(HasTop(0));
    EXPECT_EQ(ShownName(m_Program), NameOf(0));
    Type(VK_NEXT);
    Type(VK_NEXT);
    ASSERT_TRUE(PumpUntil([this] { return TopOf(m_List) > 0; }));
    const int page = kItems - LastTop();
    EXPECT_GT(TopOf(m_List), page / 2);
    EXPECT_LT(TopOf(m_List), 2 * page);
    Type(VK_HOME);
    ASSERT_TRUE(HasTop(0));
    Type(VK_END, HOLD_SHIFT);
    EXPECT_TRUE(HasSelected(kItems));
}

TEST_P(LongList, IsSearchedWithEachCharacter) {
    SearchFor(u"needle");
    EXPECT_TRUE(HasRows(kWithWord)) << RowsOf(m_List);
    EXPECT_EQ(SelectedIn(m_List), 1) << "the first item still matches";
    TypeText(u"s");
    EXPECT_TRUE(HasRows(0)) << RowsOf(m_List);
    EXPECT_EQ(SelectedIn(m_List), 0);
    Type(VK_BACK);
    EXPECT_TRUE(HasRows(kWithWord)) << RowsOf(m_List);
    GoToList();
    Type(VK_END);
    EXPECT_EQ(ShownName(m_Program), NameOf(kItems - kItems / kWithWord));
    SearchFor(u"user777");
    EXPECT_TRUE(HasRows(11)) << "by their user names: " << RowsOf(m_List);
    GoToList();
    SearchFor(u"");
    EXPECT_TRUE(HasRows(kItems)) << RowsOf(m_List);
}

INSTANTIATE_TEST_SUITE_P(Themes, LongList, testing::Values(u"Light", u"System Default"),
                         [](const auto& theme) {
                             return std::string(theme.param[0] == u'S' ? "SystemDefault" : "Light");
                         });

}  // namespace
