// What undo has to give back, told in plain values: each recorded change keeps the whole state before it, and
// beside it the one date that its record may restore. Dates and the saved position are followed on their own,
// since not every change of a date is recorded, nor every way back to a saved state recognised.
#pragma once

#include <algorithm>
#include <array>
#include <deque>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "database/database.h"

namespace undo_model {

struct EntryState {
    const void* id = nullptr;  // the element itself: undo brings the same one back
    u16 type = 0;
    std::u16string text;
    bool operator==(const EntryState&) const = default;
};

struct ItemState {
    const void* id = nullptr;
    std::u16string name;
    u64 date = 0;
    std::vector<EntryState> entries;
    bool operator==(const ItemState&) const = default;
};

struct State {
    std::u16string name;
    std::array<u8, kPasswordHashSize> hash{};
    std::vector<ItemState> items;
    bool operator==(const State&) const = default;

    ItemState& Item(const void* id) {
        return *std::find_if(items.begin(), items.end(),
                             [&](const ItemState& item) { return item.id == id; });
    }
};

inline State StateOf(const VMRD_DB& db) {
    State state;
    state.name = db.m_Name.view();
    std::copy(std::begin(db.m_PwdHash), std::end(db.m_PwdHash), state.hash.begin());
    for (const ItemElement* item = db.m_Head; item != nullptr; item = item->m_Next) {
        ItemState& values = state.items.emplace_back();
        values.id = item;
        values.name = item->m_Name.view();
        values.date = item->m_Date;
        for (const EntryElement* entry = item->m_Head; entry != nullptr; entry = entry->m_Next) {
            values.entries.push_back({entry, entry->m_Type, std::u16string(entry->m_Text.view())});
        }
    }
    return state;
}

// The date that a record restores: of which item, and which. No item, or a date of 0, is none.
struct OldDate {
    const void* item = nullptr;
    u64 date = 0;
};

struct Step {
    State before;
    OldDate oldDate;
    int result = UNDO_DONE;  // of taking it back
};

class Model {
public:
    void Record(State before, OldDate oldDate = {}, int result = UNDO_DONE) {
        if (m_Steps.size() == static_cast<std::size_t>(VMRD_Undo::kMaxDepth)) {
            m_Steps.pop_back();
            if (m_SavedPos >= 0) --m_SavedPos;
        }
        m_Steps.push_front({std::move(before), oldDate, result});
    }

    void Changed(bool savesItself) {
        m_Changed = true;
        if (savesItself) Saved();
    }

    void Saved() {
        m_Changed = false;
        Marked();
    }

    void Marked() { m_SavedPos = m_Changed ? -1 : static_cast<i32>(m_Steps.size()); }

    void SetDate(const void* item, u64 date) { m_Dates[item] = date; }

    // The item's date follows the clock, but never back. `restored` says whether a record knows the old date;
    // once one is lost, the states before need not come back to the very date.
    void Touch(const void* item, u64 now, bool restored) {
        u64& date = m_Dates[item];
        if (now <= date) return;
        if (!restored || date == 0) m_DatesExact = false;
        date = now;
    }

    // Takes the newest step back; the state that must be there then.
    Step Undo() {
        Step step = std::move(m_Steps.front());
        if (step.oldDate.item != nullptr && step.oldDate.date != 0) {
            m_Dates[step.oldDate.item] = step.oldDate.date;
        }
        const bool savedBefore = m_SavedPos == static_cast<i32>(m_Steps.size()) - 1;
        m_Steps.pop_front();
        m_Changed = !savedBefore;
        if (savedBefore && !m_Steps.empty()) m_SavedPos = -1;
        if (!m_DatesExact) {
            for (ItemState& item : step.before.items)
                item.date = DateOf(item.id);
        }
        return step;
    }

    [[nodiscard]] u64 DateOf(const void* item) const { return m_Dates.at(item); }
    [[nodiscard]] std::size_t Count() const { return m_Steps.size(); }
    [[nodiscard]] i32 SavedPos() const { return m_SavedPos; }
    [[nodiscard]] bool IsChanged() const { return m_Changed; }
    [[nodiscard]] bool DatesExact() const { return m_DatesExact; }

private:
    std::deque<Step> m_Steps;  // the newest in front
    std::map<const void*, u64> m_Dates;
    i32 m_SavedPos = 0;
    bool m_Changed = false;
    bool m_DatesExact = true;
};

}  // namespace undo_model
