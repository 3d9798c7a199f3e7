#include "database/element.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/unit/database/open_database.h"

namespace {

TEST(ElementClass, IsTheAddressOfItsTag) {
    const VMRD_Entry entry;
    const VMRD_Item item;
    EXPECT_TRUE(entry.IsClass(tvclassVMRD_Entry));
    EXPECT_FALSE(entry.IsClass(tvclassVMRD_Item));
    EXPECT_TRUE(item.IsClass(tvclassVMRD_Item));
    EXPECT_FALSE(item.IsClass(tvclassVMRD_Entry));
    EXPECT_FALSE(item.IsClass(nullptr));
}

TEST(ElementClass, IsNotToldByTheCharactersOfATag) {
    const std::string entryTag = tvclassVMRD_Entry;
    const std::string itemTag = tvclassVMRD_Item;
    EXPECT_EQ(entryTag, "tvclassVMRD_Entry");
    EXPECT_EQ(itemTag, "tvclassVMRD_Item");
    EXPECT_FALSE(VMRD_Entry().IsClass(entryTag.c_str()));
    EXPECT_FALSE(VMRD_Item().IsClass(itemTag.c_str()));
}

TEST(ElementClass, OfALinkedElementIsThatOfItsBase) {
    EXPECT_TRUE(EntryElement().IsClass(tvclassVMRD_Entry));
    EXPECT_TRUE(ItemElement().IsClass(tvclassVMRD_Item));
}

TEST(ElementClass, DecidesWhatAnElementCanBeTakenAs) {
    EntryElement entry;
    ItemElement item;
    EXPECT_EQ(AsEntry(&entry), &entry);
    EXPECT_EQ(AsEntry(&item), nullptr);
    EXPECT_EQ(AsEntry(nullptr), nullptr);
    EXPECT_EQ(AsItem(&item), &item);
    EXPECT_EQ(AsItem(&entry), nullptr);
    EXPECT_EQ(AsItem(nullptr), nullptr);
    EXPECT_EQ(LinkedEntry(&entry), &entry);
    EXPECT_EQ(LinkedEntry(&item), nullptr);
    EXPECT_EQ(LinkedEntry(nullptr), nullptr);
    EXPECT_EQ(LinkedItem(&item), &item);
    EXPECT_EQ(LinkedItem(&entry), nullptr);
    EXPECT_EQ(LinkedItem(nullptr), nullptr);
}

class BasicEntries : public ::testing::Test {
protected:
    EntryElement* Put(u16 type) { return AddEntryCopy(item, VMRD_Entry(type, tvstring()), nullptr); }
    bool Get() { return GetBasicEntries(&item, &program, &username, &password); }

    VMRD_Item item;
    VMRD_Entry stranger;
    VMRD_Entry* program = &stranger;
    VMRD_Entry* username = &stranger;
    VMRD_Entry* password = &stranger;
};

TEST_F(BasicEntries, AreFoundByTypeInAnyOrder) {
    Put(VMRD_T_ADDITION);
    EntryElement* five = Put(VMRD_T_PASSWORD);
    EntryElement* three = Put(VMRD_T_PROGRAM);
    Put(VMRD_T_ADDITION);
    EntryElement* four = Put(VMRD_T_USERNAME);
    EXPECT_TRUE(Get());
    EXPECT_EQ(program, three);
    EXPECT_EQ(username, four);
    EXPECT_EQ(password, five);
}

TEST_F(BasicEntries, OfAnItemWithoutEntriesAreNull) {
    EXPECT_TRUE(Get());
    EXPECT_EQ(program, nullptr);
    EXPECT_EQ(username, nullptr);
    EXPECT_EQ(password, nullptr);
}

TEST_F(BasicEntries, OfANullItemAreNullAndTheResultIsFalse) {
    EXPECT_FALSE(GetBasicEntries(nullptr, &program, &username, &password));
    EXPECT_EQ(program, nullptr);
    EXPECT_EQ(username, nullptr);
    EXPECT_EQ(password, nullptr);
    EXPECT_FALSE(GetBasicEntries(nullptr, nullptr, nullptr, nullptr));
}

TEST_F(BasicEntries, NeedNotAllBeAskedFor) {
    Put(VMRD_T_PROGRAM);
    Put(VMRD_T_USERNAME);
    EntryElement* five = Put(VMRD_T_PASSWORD);
    EXPECT_TRUE(GetBasicEntries(&item, nullptr, nullptr, &password));
    EXPECT_EQ(password, five);
    EXPECT_TRUE(GetBasicEntries(&item, nullptr, nullptr, nullptr));
}

TEST_F(BasicEntries, OneThatIsLackingIsNull) {
    EntryElement* four = Put(VMRD_T_USERNAME);
    EXPECT_TRUE(Get());
    EXPECT_EQ(program, nullptr);
    EXPECT_EQ(username, four);
    EXPECT_EQ(password, nullptr);
}

TEST_F(BasicEntries, OfATypeThatOccursTwiceTheLaterWins) {
    Put(VMRD_T_PROGRAM);
    EntryElement* later = Put(VMRD_T_PROGRAM);
    EntryElement* five = Put(VMRD_T_PASSWORD);
    EXPECT_TRUE(Get());
    EXPECT_EQ(program, later);
    EXPECT_EQ(password, five);
}

TEST_F(BasicEntries, AreNotLookedForBeyondTheThird) {
    EntryElement* first = Put(VMRD_T_PROGRAM);
    Put(VMRD_T_USERNAME);
    EntryElement* second = Put(VMRD_T_USERNAME);
    Put(VMRD_T_PASSWORD);
    Put(VMRD_T_PROGRAM);
    EXPECT_TRUE(Get());
    EXPECT_EQ(program, first);
    EXPECT_EQ(username, second);
    EXPECT_EQ(password, nullptr);
}

TEST_F(BasicEntries, AreNotCountedByEntriesOfOtherTypes) {
    for (const u16 type : {u16{0}, VMRD_T_ADDITION, VMRD_T_DATE})
        Put(type);
    EntryElement* three = Put(VMRD_T_PROGRAM);
    EntryElement* four = Put(VMRD_T_USERNAME);
    EntryElement* five = Put(VMRD_T_PASSWORD);
    EXPECT_TRUE(Get());
    EXPECT_EQ(program, three);
    EXPECT_EQ(username, four);
    EXPECT_EQ(password, five);
}

TEST(ElementText, IsAnEntrysTextAnItemsNameOrNothing) {
    const VMRD_Entry entry = Password(u"secret");
    VMRD_Item item;
    item.m_Name = u"mail";
    EXPECT_EQ(ElementText(&entry), u"secret");
    EXPECT_EQ(ElementText(&item), u"mail");
    EXPECT_TRUE(ElementText(nullptr).empty());
}

TEST(ElementDisplay, OfNullIsEmpty) {
    EXPECT_TRUE(ElementDisplay(nullptr).empty());
}

TEST(ElementDisplay, OfATwoLineEntryIsOneLineWithABlankAtTheBreak) {
    VMRD_Entry entry = Addition(u"first\r\nsecond");
    EXPECT_EQ(ElementDisplay(&entry), u"first second");
    EXPECT_EQ(entry.m_Display, u"first second");
    EXPECT_EQ(entry.m_Text, u"first\r\nsecond");
}

TEST(ElementDisplay, MakesABlankOfEachPair) {
    VMRD_Entry entry = Addition(u"\r\na\r\n\r\nb\r\n");
    EXPECT_EQ(ElementDisplay(&entry), u" a  b ");
}

TEST(ElementDisplay, KeepsALoneCrAndALoneLf) {
    VMRD_Entry entry = Addition(u"a\rb\nc\n\rd");
    EXPECT_EQ(ElementDisplay(&entry), u"a\rb\nc\n\rd");
}

TEST(ElementDisplay, OfAnItemIsItsNameWithItsBreaks) {
    VMRD_Item item;
    item.m_Name = u"two\r\nlines";
    EXPECT_EQ(ElementDisplay(&item), u"two\r\nlines");
    EXPECT_EQ(item.m_Display, u"two\r\nlines");
}

TEST(ElementDisplay, IsComputedOnceAndKept) {
    VMRD_Entry entry = Addition(u"old");
    VMRD_Item item;
    item.m_Name = u"old";
    ElementDisplay(&entry);
    ElementDisplay(&item);
    entry.m_Text = u"new";
    item.m_Name = u"new";
    EXPECT_EQ(ElementDisplay(&entry), u"old");
    EXPECT_EQ(ElementDisplay(&item), u"old");
    entry.m_Display.clear();
    item.m_Display.clear();
    EXPECT_EQ(ElementDisplay(&entry), u"new");
    EXPECT_EQ(ElementDisplay(&item), u"new");
}

TEST(ElementType, IsThatOfAnEntryAndZeroForAnythingElse) {
    const VMRD_Entry entry = Username(u"me");
    const VMRD_Item item;
    EXPECT_EQ(ElementType(&entry), VMRD_T_USERNAME);
    EXPECT_EQ(ElementType(&item), 0);
    EXPECT_EQ(ElementType(nullptr), 0);
}

TEST(ElementDate, IsThatOfAnItemAndZeroForAnythingElse) {
    const VMRD_Entry entry;
    VMRD_Item item;
    item.m_Date = 77;
    EXPECT_EQ(ElementDate(&item), 77U);
    EXPECT_EQ(ElementDate(&entry), 0U);
    EXPECT_EQ(ElementDate(nullptr), 0U);
}

TEST(IsRemovable, IsFalseForTheBasicEntriesAlone) {
    const VMRD_Entry program = Program(u"");
    const VMRD_Entry username = Username(u"");
    const VMRD_Entry password = Password(u"");
    const VMRD_Entry addition = Addition(u"");
    const VMRD_Item item;
    EXPECT_FALSE(IsRemovable(&program));
    EXPECT_FALSE(IsRemovable(&username));
    EXPECT_FALSE(IsRemovable(&password));
    EXPECT_TRUE(IsRemovable(&addition));
    EXPECT_TRUE(IsRemovable(&item));
    EXPECT_TRUE(IsRemovable(nullptr));
}

class TouchedItem : public ::testing::Test {
protected:
    TouchedItem() { platform::SetClock(1000, 2000); }
    ~TouchedItem() override { platform::ClearClock(); }
    u64 Touched(u64 date) {
        VMRD_Item item;
        item.m_Date = date;
        Touch(&item);
        return item.m_Date;
    }
};

TEST_F(TouchedItem, TakesTheLocalTime) {
    EXPECT_EQ(Touched(0), 1000U);
    EXPECT_EQ(Touched(999), 1000U);
}

TEST_F(TouchedItem, KeepsItsDateWhenTheClockWasSetBack) {
    EXPECT_EQ(Touched(1001), 1001U);
}

TEST_F(TouchedItem, KeepsItsDateAtTheSameTime) {
    EXPECT_EQ(Touched(1000), 1000U);
}

TEST_F(TouchedItem, MayBeNull) {
    Touch(nullptr);
}

TEST_F(TouchedItem, ReadsTheClockThatIsAskedFor) {
    EXPECT_EQ(CurrentTime(true), 1000U);
    EXPECT_EQ(CurrentTime(false), 2000U);
}

TEST(AddEntryCopy, CopiesTypeTextAndCachedText) {
    EntryList list;
    VMRD_Entry source = Password(u"secret");
    source.m_Display = u"as shown";
    const EntryElement* copy = AddEntryCopy(list, source, nullptr);
    source.m_Text = u"changed";
    EXPECT_EQ(list.m_Head, copy);
    EXPECT_EQ(copy->m_Type, VMRD_T_PASSWORD);
    EXPECT_EQ(copy->m_Text, u"secret");
    EXPECT_EQ(copy->m_Display, u"as shown");
}

TEST(AddEntryCopy, PutsTheCopyBeforeThePlace) {
    EntryList list;
    EntryElement* second = AddEntryCopy(list, Addition(u"2"), nullptr);
    AddEntryCopy(list, Addition(u"1"), second);
    AddEntryCopy(list, Addition(u"3"), nullptr);
    EXPECT_EQ(TextsOf(list), "[1][2][3]");
}

TEST(AddEntryCopy, FailsForAPlaceThatIsNotInTheList) {
    EntryList list;
    EntryElement stranger;
    AddEntryCopy(list, Addition(u"1"), nullptr);
    EXPECT_EQ(AddEntryCopy(list, Addition(u"2"), &stranger), nullptr);
    EXPECT_EQ(TextsOf(list), "[1]");
}

TEST(AddItemCopy, CopiesEntriesNameCachedNameAndDate) {
    ItemList list;
    VMRD_Item source;
    source.m_Name = u"mail";
    source.m_Display = u"as shown";
    source.m_Date = 77;
    AddEntryCopy(source, Username(u"me"), nullptr)->m_Display = u"me, as shown";
    AddEntryCopy(source, Addition(u"note"), nullptr);
    const ItemElement* copy = AddItemCopy(list, source, nullptr);
    source.Clear();
    EXPECT_EQ(list.m_Head, copy);
    EXPECT_EQ(copy->m_Name, u"mail");
    EXPECT_EQ(copy->m_Display, u"as shown");
    EXPECT_EQ(copy->m_Date, 77U);
    EXPECT_EQ(TextsOf<EntryElement>(*copy), "[me][note]");
    EXPECT_EQ(copy->m_Head->m_Type, VMRD_T_USERNAME);
    EXPECT_EQ(copy->m_Head->m_Display, u"me, as shown");
    ExpectSound<EntryElement>(*copy);
}

TEST(AddItemCopy, FailsForAPlaceThatIsNotInTheList) {
    ItemList list;
    ItemElement stranger;
    VMRD_Item source;
    AddEntryCopy(source, Username(u"me"), nullptr);
    EXPECT_EQ(AddItemCopy(list, source, &stranger), nullptr);
    EXPECT_EQ(TextsOf(list), "");
}

}  // namespace
