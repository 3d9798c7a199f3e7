// How items and fields are named on the command line.
#pragma once

#include <optional>
#include <string>

#include "database/database.h"

// ITEM: an exact name, or the position of an item in stored order.
struct ItemReference {
    std::size_t position = 0;  // from 1; 0 if the name is given
    tvstring name;
};

// "@12" is a position, "@@name" the name "@name", anything else a name. Throws a Failure for another text
// behind "@" and for one that is no valid UTF-8.
ItemReference ParseItemReference(const std::string& argument);

// The item meant. Throws a Failure if there is none, or if several have the name: then the message lists
// them as "@N".
ItemElement* FindItem(const VMRD_DB& database, const std::string& argument);

// The item's place in stored order, from 1.
std::size_t PositionOf(const VMRD_DB& database, const ItemElement* item);

// FIELD: the item's name, or one of its entries.
struct FieldReference {
    enum class Kind { Name, Basic, Note, NewNote };

    Kind kind;
    u16 type = 0;            // of a basic entry
    std::size_t number = 0;  // of a note, from 1
};

// "name", "program", "username", "password", "note:N" or "note:+". Throws a Failure for anything else.
FieldReference ParseField(const std::string& argument);

// The entry that a field of the kind Basic or Note means. Throws a Failure if the item has none.
EntryElement* FindEntry(const VMRD_Item& item, const FieldReference& field);

// The way back: how an entry of the item is named. `notes` counts the additional ones passed so far.
std::string FieldName(const VMRD_Entry& entry, std::size_t& notes);
