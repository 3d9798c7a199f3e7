#include "tests/scenarios/long_list_stage.h"

#include "foundation/conversion.h"

using namespace opened;

namespace {

tvstring UserOf(int index) {
    return FromUtf8(std::string("user").append(std::to_string(index + 1)));
}

EntryElement* UserEntryOf(const ItemElement& item) {
    EntryElement* entry = item.m_Head;
    while (entry != nullptr && entry->m_Type != VMRD_T_USERNAME)
        entry = entry->m_Next;
    return entry;
}

}  // namespace

tvstring LongList::NameOf(int index) {
    std::string digits = std::to_string(index + 1);
    digits.insert(0, 5 - digits.size(), '0');
    std::string name = std::string("Item ").append(digits);
    if (HasWord(index)) name.append(" needle");
    return FromUtf8(name);
}

void LongList::SetUp() {
    Scenario::SetUp();
    UseStoredTheme(GetParam());
    m_Path = InFolder(u"long.VMR");
    MakeLongDatabase();
    ASSERT_NE(m_Program.StartAsking(m_Path), nullptr);
    Unlock(m_Program, u"secret");
    ASSERT_TRUE(WaitUntilOpen(m_Program));
    m_List = ItemListOf(m_Program);
    ASSERT_TRUE(HasRows(kItems));
    GoToList();
}

void LongList::MakeLongDatabase() const {
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

void LongList::ExpectFileWith(const std::function<bool(int)>& isThere) const {
    VMRD_DB database;
    ASSERT_TRUE(database.Open(m_Path, u"secret"));
    const ItemElement* item = database.m_Head;
    for (int index = 0; index < kItems; ++index) {
        if (!isThere(index)) continue;
        ASSERT_NE(item, nullptr) << index;
        ASSERT_EQ(item->m_Name, NameOf(index));
        ASSERT_EQ(UserEntryOf(*item)->m_Text, UserOf(index));
        item = item->m_Next;
    }
    EXPECT_EQ(item, nullptr) << "there is more";
}

bool LongList::HasRows(int rows) const {
    return PumpUntil([&] { return RowsOf(m_List) == rows; }, kLongLimit);
}

bool LongList::HasSelected(int rows) const {
    const bool has = PumpUntil([&] { return SelectedIn(m_List) == rows; }, kLongLimit);
    EXPECT_TRUE(has) << "selected: " << SelectedIn(m_List) << " of " << RowsOf(m_List);
    return has;
}

bool LongList::HasTop(int row) const {
    return PumpUntil([&] { return TopOf(m_List) == row; }, kLongLimit);
}

bool LongList::IsChanged() const {
    return PumpUntil([this] { return m_Program.Sees(kSaveButton); }, kLongLimit);
}

int LongList::RowHeight() const {
    return Ask(m_List, LB_GETITEMHEIGHT);
}

int LongList::LastTop() const {
    RECT client{};
    GetClientRect(m_List, &client);
    return kItems - static_cast<int>(client.bottom) / RowHeight();
}

void LongList::SearchFor(std::u16string_view text) const {
    HWND box = m_Program.Control(kSearchBox);
    Click(box);
    ASSERT_TRUE(PumpUntil([&] { return FocusOf(m_Program) == box; }));
    if (text.empty()) {
        Type(VK_DELETE);
    } else {
        TypeText(text);
    }
    ASSERT_TRUE(PumpUntil([&] { return TextOf(box).view() == text; }, kLongLimit));
}

void LongList::GoToList() const {
    Click(m_List, 5, RowHeight() / 2);
    ASSERT_TRUE(PumpUntil([this] { return FocusOf(m_Program) == m_List; }));
    MoveMouseAway();
}

bool LongList::SelectsAll(int rows) const {
    return TypeWithControl(
        'A', [&] { return SelectedIn(m_List) == rows; }, kLongLimit);
}

void LongList::Save() const {
    ASSERT_TRUE(IsChanged());
    ASSERT_TRUE(TypeWithControl(
        'S', [this] { return !m_Program.Sees(kSaveButton); }, kLongLimit));
}

void LongList::RemoveAll() const {
    Type(VK_DELETE);
    ASSERT_TRUE(HasRows(0)) << RowsOf(m_List);
    ASSERT_TRUE(IsChanged());
}

void LongList::Undo(int rowsAfter) const {
    ASSERT_TRUE(TypeWithControl(
        'Z', [&] { return RowsOf(m_List) == rowsAfter; }, kLongLimit))
        << RowsOf(m_List);
}

std::string NameOfLongListTheme(const testing::TestParamInfo<const char16_t*>& theme) {
    return theme.param[0] == u'S' ? "SystemDefault" : "Light";
}
