// The undo history of a database: one record for each change, the newest at the front.
//
// A record of a change to a list holds the order of the list before the change; elements that were removed
// belong to the record until it is discarded. Elements in a record of an addition stay owned by their list.
#pragma once

#include <deque>
#include <vector>

#include "database/element.h"

class VMRD_DB;

inline constexpr u32 UNDO_ADD = 0;
inline constexpr u32 UNDO_REMOVE = 1;
inline constexpr u32 UNDO_MOVE = 2;
inline constexpr u32 UNDO_MODIFY = 3;
inline constexpr u32 UNDO_MASTERPWD = 4;

// Kinds of a record. For additions, removals and moves: whose list it is.
inline constexpr u32 UNDO_ITEMS = 0;
inline constexpr u32 UNDO_ENTRIES = 1;
// For modifications: what was modified. UNDO_DB_NAME also stands for a change of the master password.
inline constexpr u32 UNDO_DB_NAME = 0;
inline constexpr u32 UNDO_ITEM_NAME = 1;
inline constexpr u32 UNDO_ENTRY_TEXT = 2;

struct VMRD_UndoRecord {
    std::vector<VMRD_Element*> m_Order;   // of the affected list, before the change
    u32 m_Op = 0;                         // UNDO_ADD to UNDO_MASTERPWD
    u32 m_Kind = 0;                       // see above
    VMRD_Object* m_Target = nullptr;      // the database or item that owns the list or the element
    std::vector<VMRD_Object*> m_Objects;  // what was added, removed or modified
    tvstring m_OldText;                   // before a modification; the 32 bytes of an old password hash
    u64 m_OldDate = 0;                    // the item's date to restore, or 0
};

// What Undo did: nothing, a change taken back, the previous master password put back.
enum UndoResults : int { UNDO_NOTHING = 0, UNDO_DONE = 1, UNDO_DONE_MASTERPWD = 2 };

class VMRD_Undo {
public:
    static constexpr i32 kMaxDepth = 4096;

    explicit VMRD_Undo(VMRD_DB* owner) noexcept : m_Owner(owner) {}
    ~VMRD_Undo() { Clear(); }
    VMRD_Undo(const VMRD_Undo&) = delete;
    VMRD_Undo& operator=(const VMRD_Undo&) = delete;

    // Starts a record, saving the order of the affected list; with m_MaxDepth records the oldest is dropped.
    // False if the owner is not the open database: a carrier of copied elements keeps no history.
    bool Push(u32 op, u32 kind, VMRD_Object* target, u64 date);

    // Adds an object to the newest record, and remembers its old text or hash where the record is of such a
    // change. False without a record, or where a modification has no object or an unknown kind.
    bool AddObject(VMRD_Object* object);

    // Takes back the newest change. The arrays, where given, take the items and entries to show for it. Of an
    // addition these are pointers to elements that are gone: good for comparing only.
    int Undo(ElementArray* outItems, ElementArray* outEntries);

    // Remembers that the database is now as its file is (or, if it is changed, that no step is).
    void MarkSaved() noexcept;

    // Drops all records with what they own.
    void Clear() noexcept;

    // Drops the newest record; of an addition that was taken back, the elements too.
    void DiscardFront() noexcept;

    [[nodiscard]] std::size_t Count() const noexcept { return m_Records.size(); }
    [[nodiscard]] const VMRD_UndoRecord& Front() const noexcept { return m_Records.front(); }
    [[nodiscard]] i32 SavedPos() const noexcept { return m_SavedPos; }

private:
    void DropOldest();
    static int TakeBack(VMRD_UndoRecord& record, ElementArray* outItems, ElementArray* outEntries);

    std::deque<VMRD_UndoRecord> m_Records;
    i32 m_MaxDepth = kMaxDepth;
    i32 m_SavedPos = 0;
    VMRD_DB* m_Owner;
};
