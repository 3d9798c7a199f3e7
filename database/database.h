// VMRD_DB, a password database: a list of items under a name, the file it lives in, the hash of its master
// password and its undo history.
//
// There is one open database in a program: the one that MakeCurrent was called on. Its operations are
// recorded and can be undone. Further databases exist for a moment, as carriers of copied elements.
//
// Operations that change the tree end in Changed(): with bAutoSave the file is written before they return.
// An operation that fails gives false, null or 0; where it is said, the cause is in the last error, and 0
// there is a failure with nothing to tell, such as a wrong master password.
#pragma once

#include "database/element.h"
#include "database/undo.h"
#include "foundation/tvdata.h"
#include "foundation/tvhandle.h"

inline constexpr std::size_t kPasswordHashSize = 32;

class VMRD_DB : public VMRD_Object, public ItemList {
public:
    VMRD_DB();
    ~VMRD_DB();
    VMRD_DB(const VMRD_DB&) = delete;
    VMRD_DB& operator=(const VMRD_DB&) = delete;

    // Makes this the program's open database until it is destroyed or another one takes its place: that one's
    // history then ends.
    void MakeCurrent() noexcept;
    // The program's open database, or null.
    static VMRD_DB* Current() noexcept;

    // --- State ---

    // Empties the database and its history. The file stays open and locked, the settings stay.
    void Reset();

    // Reset, then lets go of the file.
    void Close();

    // Notes a change; with bAutoSave, saves, whatever comes of it.
    void Changed();

    // The name, or else the file's name, or else one blank.
    const tvstring& DisplayName();

    // True if a master password is set.
    [[nodiscard]] bool HasMasterPassword() const noexcept;

    // --- The file (database_file.cpp, open_old.cpp, export.cpp) ---

    // Closes what is open and loads a file of the present or the old format. On failure the database is
    // closed, and the last error says why the file could not be read: 2 for an empty path, the system's code,
    // 13 for a file that is no database; 0 means wrong password or damaged file. On success the file stays
    // open, and locked against everybody else, until Save or Close.
    bool Open(const tvstring& path, const tvstring& password);

    // Loads a file of the old format. The database is then open and changed, without path and master
    // password. Sets no last error of its own.
    bool OpenOld(const tvstring& path, const tvstring& password);

    // Writes the database to m_Path, in place. False without an open database, a path or a master password
    // (last error 0, nothing touched) or if the system fails (its code; once the file could be opened its old
    // content is gone).
    bool Save();

    // The complete container in memory, newly encrypted; empty on failure, or without a master password.
    [[nodiscard]] tvdata Serialize() const;

    // Fills the database from a container, with m_PwdHash. False, with the database reset where reading had
    // begun, if it cannot be decrypted or parsed.
    bool Deserialize(const u8* data, std::size_t size);

    // Writes everything in plain text: one HTML table, or comma-separated values. False on an empty path or
    // if the system fails; a partly written file stays.
    bool Export(const tvstring& path, bool html) const;

    // The text that Export writes, in UTF-8.
    [[nodiscard]] tvstringA BuildExport(bool html) const;

    // Fills a carrier from the clipboard (database/clipboard.h). False if there is no such format or the
    // carrier comes out without an item.
    static bool ReadClipboard(VMRD_DB& carrier, u32 format);

    // --- Changing the tree (operations.cpp, merge.cpp) ---
    //
    // Arrays and queues hold items for the operations on items, entries for those on entries; anything else
    // in them, null too, is passed over. `db` is the database that is called, `item` one of its items; with
    // null nothing happens, and the array or queue comes back empty. What happens to another database's list
    // is not recorded.

    // Starts a new, unsaved database with one item; the history is empty.
    bool New(const tvstring& name);

    // Appends a new item with the default name and three empty basic entries; null with no database open.
    ItemElement* AddNewItem(VMRD_DB* db);

    // Appends an additional entry; null with no database open or for an empty text.
    EntryElement* AddNewEntry(const tvstring& text, VMRD_Item* item);

    // Insert copies of the queue's elements before `before`, or at the tail when that is null. The queue
    // takes the new elements, and their number is the result.
    i32 AddItems(ElementQueue& queue, VMRD_Element* before, VMRD_DB* db);
    i32 AddEntries(ElementQueue& queue, VMRD_Element* before, VMRD_Item* item);

    // Take elements out, whether IsRemovable or not. The array keeps those that were taken out, and their
    // number is the result. What cannot be recorded, as in a carrier, is destroyed and left out of both.
    i32 RemoveItems(ElementArray& array, VMRD_DB* db);
    i32 RemoveEntries(ElementArray& array, VMRD_Item* item);

    // Move each element one place; the one nearest the target end comes first in the array, since the first
    // one that is at the end stops the rest. The array keeps those that moved; their number is the result.
    i32 MoveItems(ElementArray& array, bool up, VMRD_DB* db);
    i32 MoveEntries(ElementArray& array, bool up, VMRD_Item* item);

    // Set an item's name or an entry's text; true if it changed. `parent` is the database of an item, the
    // item of an entry. An entry's text loses line breaks at both ends; an item's name cannot become empty.
    // Both work for either class.
    bool ModifyItem(VMRD_Element* element, tvstring text, VMRD_Object* parent);
    bool ModifyEntry(VMRD_Element* element, tvstring text, VMRD_Object* parent);

    // Merges items into the first of the array, whose entries stay; the others' non-empty entries become
    // additional ones. Returns the first, or null for fewer than two. Leaves two undo records, or one if
    // there was nothing to append.
    ItemElement* MergeItems(ElementArray& array);

    // Merges entries into the first of the array, with the given text or, if that is empty, their non-empty
    // texts on lines of their own. Null for fewer than two, if there is no text, or if it would have more
    // than kLongestText units: then nothing has changed. Leaves two undo records, or one if the first entry
    // has that text already.
    EntryElement* MergeEntries(ElementArray& array, const tvstring& text, VMRD_Item* item);

    // Sets the name; nothing happens if it is the present one.
    void SetName(const tvstring& name);

    // Sets the path of the next Save; nothing happens if it is the present one but for letter case. Cannot be
    // undone.
    void SetPath(const tvstring& path);

    // Sets the master password of the next Save; an empty text takes it away. True if it changed.
    bool SetMasterPassword(const tvstring& text);

    // Takes back the newest change; see VMRD_Undo::Undo.
    int Undo(ElementArray* outItems, ElementArray* outEntries);

    // --- Fields, in their order ---

    tvhandle m_File;          // held, exclusively, while the database is open or after it was saved
    bool bAutoSave = false;   // setting: save after each change
    bool bFilterPWD = false;  // setting: search in passwords
    bool m_Changed = false;   // differs from its file
    bool m_Opened = false;
    tvstring m_Name;
    tvstring m_Display;                    // what DisplayName found; empty means not yet computed
    u8 m_PwdHash[kPasswordHashSize] = {};  // of the master password; all zero means none
    tvstring m_Path;
    VMRD_Undo m_Undo;

private:
    bool Modify(VMRD_Element* element, tvstring& text, VMRD_Object* parent);
    bool ReadRecords(const u8* data, std::size_t size, std::size_t plainSize);
};

// The longest text that the file format can hold, in units.
inline constexpr std::size_t kLongestText = 65535;
