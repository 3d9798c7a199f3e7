// Random sequences of all operations, taken back step by step: each step has to give back the exact tree (the
// very elements), names, dates, hash and changed flag of before.
#include <gtest/gtest.h>

#include <cctype>
#include <deque>
#include <memory>
#include <random>
#include <string>

#include "tests/unit/database/open_database.h"
#include "tests/unit/database/undo_model.h"
#include "tests/unit/test_files.h"

using undo_model::Model;
using undo_model::State;
using undo_model::StateOf;
using undo_model::Step;

namespace {

constexpr u64 kStart = 133'000'000'000'000'000;
constexpr u32 kManyElements = 8;

enum class SaveMode { Manual, Automatic };

class RandomEdits {
public:
    RandomEdits(u32 seed, SaveMode mode, const TempFolder& folder) : m_Random(seed), m_Folder(folder) {
        m_Db.MakeCurrent();
        m_Db.m_Opened = true;
        m_Db.bAutoSave = mode == SaveMode::Automatic;
    }
    ~RandomEdits() { platform::ClearClock(); }
    RandomEdits(const RandomEdits&) = delete;
    RandomEdits& operator=(const RandomEdits&) = delete;

    void Edit();
    void TakeBack();
    void TakeAllBack() {
        while (m_Model.Count() > 0 && !::testing::Test::HasFailure())
            TakeBack();
        TakeBack();
    }
    [[nodiscard]] std::size_t HistoryLength() const { return m_Db.m_Undo.Count(); }

private:
    // --- Chance ---

    u32 Below(std::size_t limit) { return static_cast<u32>(m_Random() % limit); }
    bool OneIn(u32 times) { return Below(times) == 0; }
    tvstring AnyText() {
        static constexpr const char16_t* kTexts[] = {
            u"", u"a", u"A", u"b", u"two\r\nlines", u"\r\na\n", u"\r\n", u"a longer text that needs a block"};
        return kTexts[Below(std::size(kTexts))];
    }
    template <typename Element>
    Element* AnyOf(const tvlist<Element>& list) {
        const auto elements = ElementsOf(list);
        return elements.empty() ? nullptr : elements[Below(elements.size())];
    }
    // Where to add: anywhere, at the end, seldom before an element that is not in the list.
    template <typename Element>
    VMRD_Element* AnyPlace(const tvlist<Element>& list, Element& stranger) {
        if (OneIn(12)) return &stranger;
        return OneIn(3) ? nullptr : AnyOf(list);
    }
    // Some elements in any order, seldom with one that is not in the list, or null.
    template <typename Element>
    ElementArray Some(const tvlist<Element>& list, Element& stranger) {
        auto elements = ElementsOf(list);
        std::shuffle(elements.begin(), elements.end(), m_Random);
        ElementArray array(elements.begin(),
                           elements.begin() + Below(std::min<std::size_t>(elements.size(), 4) + 1));
        if (OneIn(12)) array.push_back(&stranger);
        if (OneIn(12)) array.push_back(nullptr);
        return array;
    }
    VMRD_Entry AnyEntry() { return {static_cast<u16>(VMRD_T_PROGRAM + Below(4)), AnyText()}; }

    // --- Operations, each with what it must leave in the model ---

    void AddNewItem();
    void AddItems();
    void AddNewEntry(ItemElement* item);
    void AddEntries(ItemElement* item);
    void RemoveItems();
    void RemoveEntries(ItemElement* item);
    void MoveItems();
    void MoveEntries(ItemElement* item);
    void ModifyItem(ItemElement* item);
    void ModifyEntry(ItemElement* item);
    void MergeItems();
    void MergeEntries(ItemElement* item);
    void SetName();
    void SetPath();
    void SetMasterPassword();
    void Save();

    void EditDatabase();
    void EditItem(ItemElement* item);
    void ModelModify(State before, ItemElement* item);
    void Changed() { m_Model.Changed(m_Db.bAutoSave && CanBeSaved()); }
    [[nodiscard]] bool CanBeSaved() const {
        return !m_Db.m_Path.empty() && m_Db.HasMasterPassword() && (!m_Db.m_Name.empty() || m_Db.m_Count > 0);
    }
    void MoveClock();
    void FillDisplays();
    void Check();

    std::mt19937 m_Random;
    const TempFolder& m_Folder;
    u64 m_Now = kStart;
    ItemElement m_StrangeItem;
    EntryElement m_StrangeEntry;
    VMRD_DB m_Db;
    Model m_Model;
};

void RandomEdits::AddNewItem() {
    State before = StateOf(m_Db);
    const ItemElement* item = m_Db.AddNewItem(&m_Db);
    m_Model.Record(std::move(before));
    m_Model.SetDate(item, m_Now);
    Changed();
}

void RandomEdits::AddItems() {
    std::deque<ItemElement> made;
    ElementQueue queue;
    for (u32 count = Below(4); count > 0; --count) {
        if (VMRD_Item* own = OneIn(4) ? AnyOf<ItemElement>(m_Db) : nullptr) {
            queue.push_back(own);
            continue;
        }
        VMRD_Item& item = made.emplace_back();
        item.m_Name = AnyText();
        item.m_Date = OneIn(40) ? 0 : m_Now - 5 + Below(10);
        for (u32 entries = Below(4); entries > 0; --entries)
            AddEntryCopy(item, AnyEntry(), nullptr);
        queue.push_back(&item);
    }
    State before = StateOf(m_Db);
    const ElementQueue sources = queue;
    const i32 added = m_Db.AddItems(queue, AnyPlace<ItemElement>(m_Db, m_StrangeItem), &m_Db);
    ASSERT_EQ(queue.size(), static_cast<std::size_t>(added));
    if (!sources.empty()) m_Model.Record(std::move(before));
    for (std::size_t i = 0; i < queue.size(); ++i)
        m_Model.SetDate(queue[i], ElementDate(sources[i]));
    if (added > 0) Changed();
}

void RandomEdits::AddNewEntry(ItemElement* item) {
    State before = StateOf(m_Db);
    if (m_Db.AddNewEntry(AnyText(), item) == nullptr) return;
    m_Model.Record(std::move(before), {item, m_Model.DateOf(item)});
    m_Model.Touch(item, m_Now, true);
    Changed();
}

void RandomEdits::AddEntries(ItemElement* item) {
    std::deque<EntryElement> made;
    ElementQueue queue;
    for (u32 count = Below(4); count > 0; --count) {
        const VMRD_Entry entry = AnyEntry();
        queue.push_back(&made.emplace_back(entry.m_Type, entry.m_Text));
    }
    State before = StateOf(m_Db);
    const bool recorded = !queue.empty();
    const i32 added = m_Db.AddEntries(queue, AnyPlace<EntryElement>(*item, m_StrangeEntry), item);
    ASSERT_EQ(queue.size(), static_cast<std::size_t>(added));
    if (recorded) m_Model.Record(std::move(before), {item, m_Model.DateOf(item)});
    if (added == 0) return;
    m_Model.Touch(item, m_Now, true);
    Changed();
}

void RandomEdits::RemoveItems() {
    ElementArray array = Some<ItemElement>(m_Db, m_StrangeItem);
    State before = StateOf(m_Db);
    if (!array.empty()) m_Model.Record(std::move(before));
    if (m_Db.RemoveItems(array, &m_Db) > 0) Changed();
}

void RandomEdits::RemoveEntries(ItemElement* item) {
    ElementArray array = Some<EntryElement>(*item, m_StrangeEntry);
    State before = StateOf(m_Db);
    if (!array.empty()) m_Model.Record(std::move(before), {item, m_Model.DateOf(item)});
    if (m_Db.RemoveEntries(array, item) == 0) return;
    m_Model.Touch(item, m_Now, true);
    Changed();
}

void RandomEdits::MoveItems() {
    ElementArray array = Some<ItemElement>(m_Db, m_StrangeItem);
    State before = StateOf(m_Db);
    if (!array.empty()) m_Model.Record(std::move(before));
    if (m_Db.MoveItems(array, OneIn(2), &m_Db) > 0) Changed();
}

void RandomEdits::MoveEntries(ItemElement* item) {
    ElementArray array = Some<EntryElement>(*item, m_StrangeEntry);
    State before = StateOf(m_Db);
    if (!array.empty()) m_Model.Record(std::move(before));
    if (m_Db.MoveEntries(array, OneIn(2), item) > 0) Changed();
}

// A change of a name or text that the item's date follows.
void RandomEdits::ModelModify(State before, ItemElement* item) {
    m_Model.Record(std::move(before), {item, m_Model.DateOf(item)});
    m_Model.Touch(item, m_Now, true);
    Changed();
}

void RandomEdits::ModifyItem(ItemElement* item) {
    const tvstring text = AnyText();
    State before = StateOf(m_Db);
    const bool changes = !text.empty() && text != item->m_Name;
    ASSERT_EQ(m_Db.ModifyItem(item, text, &m_Db), changes);
    if (changes) ModelModify(std::move(before), item);
}

std::u16string Trimmed(std::u16string text) {
    while (!text.empty() && (text.back() == u'\r' || text.back() == u'\n'))
        text.pop_back();
    while (!text.empty() && (text.front() == u'\r' || text.front() == u'\n'))
        text.erase(0, 1);
    return text;
}

void RandomEdits::ModifyEntry(ItemElement* item) {
    EntryElement* entry = AnyOf<EntryElement>(*item);
    if (entry == nullptr) return;
    const tvstring text = AnyText();
    State before = StateOf(m_Db);
    const bool changes = Trimmed(std::u16string(text.view())) != entry->m_Text.view();
    ASSERT_EQ(m_Db.ModifyEntry(entry, text, item), changes);
    if (changes) ModelModify(std::move(before), item);
}

// Two steps: the first item has the others' entries, then the others are gone.
void RandomEdits::MergeItems() {
    auto elements = ElementsOf<ItemElement>(m_Db);
    std::shuffle(elements.begin(), elements.end(), m_Random);
    elements.resize(std::min<std::size_t>(elements.size(), 1 + Below(3)));
    bool carries = false;
    for (std::size_t i = 1; i < elements.size(); ++i) {
        for (const EntryElement* entry : ElementsOf<EntryElement>(*elements[i]))
            carries |= !entry->m_Text.empty();
    }
    State before = StateOf(m_Db);
    ElementArray array(elements.begin(), elements.end());
    const ItemElement* first = m_Db.MergeItems(array);
    ASSERT_EQ(first != nullptr, elements.size() >= 2);
    if (first == nullptr) return;
    if (carries) {
        State appended = before;
        appended.Item(first) = StateOf(m_Db).Item(first);
        m_Model.Record(std::move(before), {first, m_Model.DateOf(first)});
        before = std::move(appended);
    }
    m_Model.Touch(first, m_Now, carries);
    m_Model.Record(std::move(before));
    Changed();
}

std::u16string Joined(const ElementArray& array) {
    std::u16string text;
    for (const VMRD_Element* element : array) {
        const tvstring& part = ElementText(element);
        if (part.empty()) continue;
        if (!text.empty()) text += u"\r\n";
        text += part.view();
    }
    return text;
}

// Two steps: the first entry has the text, then the others are gone.
void RandomEdits::MergeEntries(ItemElement* item) {
    auto elements = ElementsOf<EntryElement>(*item);
    std::shuffle(elements.begin(), elements.end(), m_Random);
    elements.resize(std::min<std::size_t>(elements.size(), 1 + Below(3)));
    ElementArray array(elements.begin(), elements.end());
    const tvstring given = OneIn(3) ? AnyText() : tvstring();
    const std::u16string merged = given.empty() ? Joined(array) : std::u16string(given.view());
    State before = StateOf(m_Db);
    const std::u16string oldText = elements.empty() ? u"" : std::u16string(elements.front()->m_Text.view());
    const EntryElement* first = m_Db.MergeEntries(array, given, item);
    ASSERT_EQ(first != nullptr, elements.size() >= 2 && !merged.empty());
    if (first == nullptr) return;
    if (Trimmed(merged) != oldText) {
        State modified = before;
        for (undo_model::EntryState& entry : modified.Item(item).entries) {
            if (entry.id == first) entry.text = Trimmed(merged);
        }
        modified.Item(item).date = std::max(m_Model.DateOf(item), m_Now);
        ModelModify(std::move(before), item);
        before = std::move(modified);
    }
    m_Model.Record(std::move(before), {item, m_Model.DateOf(item)});
    m_Model.Touch(item, m_Now, true);
    Changed();
}

void RandomEdits::SetName() {
    const tvstring name = AnyText();
    State before = StateOf(m_Db);
    m_Db.SetName(name);
    if (before.name == name.view()) return;
    m_Model.Record(std::move(before));
    Changed();
}

std::u16string LowerCase(const tvstring& text) {
    std::u16string lower(text.view());
    for (char16_t& unit : lower) {
        if (unit < 0x80) unit = static_cast<char16_t>(std::tolower(unit));
    }
    return lower;
}

// Not undoable: nothing but the flag shows it.
void RandomEdits::SetPath() {
    static constexpr const char16_t* kNames[] = {u"a.vmr", u"A.VMR", u"b.vmr"};
    const tvstring path = m_Folder.Path(kNames[Below(std::size(kNames))]);
    const bool changes = LowerCase(path) != LowerCase(m_Db.m_Path);
    m_Db.SetPath(path);
    if (changes) Changed();
}

void RandomEdits::SetMasterPassword() {
    static constexpr const char16_t* kPasswords[] = {u"", u"one", u"two"};
    State before = StateOf(m_Db);
    const bool changed = m_Db.SetMasterPassword(kPasswords[Below(std::size(kPasswords))]);
    ASSERT_EQ(changed, StateOf(m_Db).hash != before.hash);
    if (!changed) return;
    m_Model.Record(std::move(before), {}, UNDO_DONE_MASTERPWD);
    Changed();
}

// To the file where that can be; otherwise as if it had been.
void RandomEdits::Save() {
    if (OneIn(4)) {
        m_Db.m_Undo.MarkSaved();
        m_Model.Marked();
        return;
    }
    const bool possible = CanBeSaved();
    ASSERT_EQ(m_Db.Save(), possible);
    if (!possible) {
        m_Db.m_Changed = false;
        m_Db.m_Undo.MarkSaved();
    }
    m_Model.Saved();
}

void RandomEdits::EditDatabase() {
    switch (Below(10)) {
        case 0:
            return AddNewItem();
        case 1:
        case 2:
            return m_Db.m_Count > static_cast<i32>(kManyElements) ? RemoveItems() : AddItems();
        case 3:
            return RemoveItems();
        case 4:
            return MoveItems();
        case 5:
            return MergeItems();
        case 6:
            return SetName();
        case 7:
            return SetPath();
        case 8:
            return SetMasterPassword();
        default:
            return Save();
    }
}

void RandomEdits::EditItem(ItemElement* item) {
    switch (Below(8)) {
        case 0:
            return AddNewEntry(item);
        case 1:
        case 2:
            return item->m_Count > static_cast<i32>(kManyElements) ? RemoveEntries(item) : AddEntries(item);
        case 3:
            return RemoveEntries(item);
        case 4:
            return MoveEntries(item);
        case 5:
            return ModifyItem(item);
        case 6:
            return MergeEntries(item);
        default:
            return ModifyEntry(item);
    }
}

// On, mostly; sometimes it stands still, and sometimes somebody sets it back.
void RandomEdits::MoveClock() {
    m_Now = OneIn(10) ? m_Now - Below(50) : m_Now + Below(10);
    platform::SetClock(m_Now, kStart);
}

void RandomEdits::FillDisplays() {
    m_Db.DisplayName();
    for (ItemElement* item : ElementsOf<ItemElement>(m_Db)) {
        ElementDisplay(item);
        for (EntryElement* entry : ElementsOf<EntryElement>(*item))
            ElementDisplay(entry);
    }
}

void RandomEdits::Edit() {
    MoveClock();
    if (OneIn(3)) FillDisplays();
    ItemElement* item = AnyOf<ItemElement>(m_Db);
    if (item == nullptr || OneIn(2)) {
        EditDatabase();
    } else {
        EditItem(item);
    }
    Check();
}

void RandomEdits::TakeBack() {
    MoveClock();
    if (OneIn(3)) FillDisplays();
    if (m_Model.Count() == 0) {
        const State before = StateOf(m_Db);
        ASSERT_EQ(m_Db.Undo(nullptr, nullptr), UNDO_NOTHING);
        ASSERT_TRUE(StateOf(m_Db) == before);
    } else {
        const Step step = m_Model.Undo();
        ASSERT_EQ(m_Db.Undo(nullptr, nullptr), step.result);
        ASSERT_TRUE(StateOf(m_Db) == step.before);
    }
    Check();
}

template <typename Element>
void ExpectDisplayEmptyOrPresent(Element* element) {
    const tvstring display = element->m_Display;
    if (display.empty()) return;
    element->m_Display.clear();
    ASSERT_EQ(ElementDisplay(element), display);
}

void RandomEdits::Check() {
    ASSERT_EQ(m_Db.m_Undo.Count(), m_Model.Count());
    ASSERT_EQ(m_Db.m_Undo.SavedPos(), m_Model.SavedPos());
    ASSERT_EQ(m_Db.m_Changed, m_Model.IsChanged());
    ExpectSound<ItemElement>(m_Db);
    for (ItemElement* item : ElementsOf<ItemElement>(m_Db)) {
        ASSERT_EQ(item->m_Date, m_Model.DateOf(item));
        ExpectSound<EntryElement>(*item);
        ExpectDisplayEmptyOrPresent(item);
        for (EntryElement* entry : ElementsOf<EntryElement>(*item))
            ExpectDisplayEmptyOrPresent(entry);
    }
    const tvstring display = m_Db.m_Display;
    m_Db.m_Display.clear();
    if (display.empty()) return;
    ASSERT_EQ(m_Db.DisplayName(), display);
}

// The seeds run from `firstSeed`; every tenth sequence saves itself with each change.
class UndoProperty : public ::testing::Test {
protected:
    template <typename Play>
    void ForSeeds(u32 firstSeed, u32 count, const Play& play) {
        for (u32 seed = firstSeed; seed < firstSeed + count && !HasFailure(); ++seed) {
            SCOPED_TRACE(seed);
            RandomEdits edits(seed, seed % 10 == 0 ? SaveMode::Automatic : SaveMode::Manual, m_Folder);
            play(edits);
        }
    }
    static void Edit(RandomEdits& edits, int times) {
        for (int i = 0; i < times && !HasFailure(); ++i)
            edits.Edit();
    }

private:
    TempFolder m_Folder;
};

TEST_F(UndoProperty, AllTheWayGivesEachStateBack) {
    ForSeeds(1, 1000, [](RandomEdits& edits) {
        Edit(edits, 40);
        edits.TakeAllBack();
    });
}

TEST_F(UndoProperty, BetweenNewChangesGivesEachStateBack) {
    ForSeeds(10'001, 1000, [](RandomEdits& edits) {
        for (int round = 0; round < 6; ++round) {
            Edit(edits, 10);
            for (int i = 0; i < 4 + round && !HasFailure(); ++i)
                edits.TakeBack();
        }
        edits.TakeAllBack();
    });
}

TEST_F(UndoProperty, AllTheWayAndAgainGivesEachStateBack) {
    ForSeeds(20'001, 300, [](RandomEdits& edits) {
        for (int round = 0; round < 4; ++round) {
            Edit(edits, 15);
            edits.TakeAllBack();
        }
    });
}

TEST_F(UndoProperty, NotUsedLeavesNothingBehind) {
    ForSeeds(30'001, 300, [](RandomEdits& edits) { Edit(edits, 60); });  // leaks show under the sanitizers
}

TEST_F(UndoProperty, OfAFullHistoryGivesBackAsFarAsItReaches) {
    ForSeeds(40'001, 2, [](RandomEdits& edits) {
        Edit(edits, 8000);
        EXPECT_EQ(edits.HistoryLength(), 4096U);
        edits.TakeAllBack();
        Edit(edits, 20);
        edits.TakeAllBack();
    });
}

}  // namespace
