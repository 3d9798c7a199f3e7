// The tree of a database: items (VMRD_Item) and their text entries (VMRD_Entry).
//
// Both classes are elements and are told apart by IsClass with the address of their tag, which serves the
// operations that take either. Elements are made one by one on the heap and owned by the list that holds
// them; one built on the stack serves as a template to copy from.
#pragma once

#include <deque>
#include <vector>

#include "database/tvlist.h"
#include "foundation/tvstring.h"
#include "platform/types.h"

// The type codes of records in the file; 3 to 6 are those of entries.
inline constexpr u16 VMRD_T_DBNAME = 1;
inline constexpr u16 VMRD_T_ITEMNAME = 2;
inline constexpr u16 VMRD_T_PROGRAM = 3;
inline constexpr u16 VMRD_T_USERNAME = 4;
inline constexpr u16 VMRD_T_PASSWORD = 5;
inline constexpr u16 VMRD_T_ADDITION = 6;
inline constexpr u16 VMRD_T_DATE = 7;

// Compared by address, not by characters.
inline constexpr char tvclassVMRD_Entry[] = "tvclassVMRD_Entry";
inline constexpr char tvclassVMRD_Item[] = "tvclassVMRD_Item";

// Base of whatever an undo record may point at: the database itself, an item, an entry.
struct VMRD_Object {};

class VMRD_Element : public VMRD_Object {
public:
    // True if the element is of the class whose tag this is.
    [[nodiscard]] virtual bool IsClass(const char* tag) const noexcept = 0;

protected:
    VMRD_Element() = default;
    ~VMRD_Element() = default;  // elements are destroyed as what they are
};

class VMRD_Entry : public VMRD_Element {
public:
    VMRD_Entry() = default;
    VMRD_Entry(u16 type, tvstring text) : m_Type(type), m_Text(std::move(text)) {}
    [[nodiscard]] bool IsClass(const char* tag) const noexcept override { return tag == tvclassVMRD_Entry; }

    u16 m_Type = 0;      // VMRD_T_PROGRAM to VMRD_T_ADDITION
    tvstring m_Text;     // the value
    tvstring m_Display;  // its one-line form; empty means not yet computed
};

using EntryElement = tvlist_ele<VMRD_Entry>;

class VMRD_Item : public VMRD_Element, public tvlist<EntryElement> {
public:
    VMRD_Item();
    [[nodiscard]] bool IsClass(const char* tag) const noexcept override { return tag == tvclassVMRD_Item; }

    tvstring m_Name;
    tvstring m_Display;  // a copy of the name; empty means not yet computed
    u64 m_Date = 0;      // last modified: local wall-clock time in 100-nanosecond ticks since 1601
};

using ItemElement = tvlist_ele<VMRD_Item>;
using ItemList = tvlist<ItemElement>;
using EntryList = tvlist<EntryElement>;

// A selection, in list order unless said otherwise; and templates on their way into a list.
using ElementArray = std::vector<VMRD_Element*>;
using ElementQueue = std::deque<VMRD_Element*>;

// The element as what it is, or null if it is null or of the other class.
const VMRD_Item* AsItem(const VMRD_Element* element) noexcept;
const VMRD_Entry* AsEntry(const VMRD_Element* element) noexcept;

// The same for an element that is, or was, in a list; not for a template.
ItemElement* LinkedItem(VMRD_Element* element) noexcept;
EntryElement* LinkedEntry(VMRD_Element* element) noexcept;

// Sets each output that is given to the item's entry of its type, or null. Of a type that occurs twice the
// later one wins, but the walk ends once three basic entries were passed. False for a null item.
bool GetBasicEntries(const VMRD_Item* item, VMRD_Entry** program, VMRD_Entry** username,
                     VMRD_Entry** password);

// The text of an entry, the name of an item, an empty text for null.
const tvstring& ElementText(const VMRD_Element* element);

// The same on one line: each CR LF in an entry's text is a blank. Computed once and kept in the element.
const tvstring& ElementDisplay(VMRD_Element* element);

// The type of an entry; 0 for an item or null.
u16 ElementType(const VMRD_Element* element);

// The date of an item; 0 for an entry or null.
u64 ElementDate(const VMRD_Element* element);

// Entries of the basic types (program, user name, password) cannot be removed; all else can, null too.
bool IsRemovable(const VMRD_Element* element);

// Sets the item's date to the present local time if that is later than the date it has. Null is fine.
void Touch(VMRD_Item* item);

// The clock as a file time: local wall-clock time, or UTC.
u64 CurrentTime(bool local);

// Copies an entry (type, text, cached text) or an item (entries, name, cached name, date) into a list, before
// the element `before` or at the tail when that is null. Null, with nothing changed, if it cannot go there.
EntryElement* AddEntryCopy(EntryList& list, const VMRD_Entry& source, EntryElement* before);
ItemElement* AddItemCopy(ItemList& list, const VMRD_Item& source, ItemElement* before);
