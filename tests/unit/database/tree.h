// What a database holds, as plain values: to compare, and to read in a failing test's output.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "database/database.h"
#include "foundation/conversion.h"

struct EntryValues {
    u16 type = 0;
    std::u16string text;
    bool operator==(const EntryValues&) const = default;
};

struct ItemValues {
    std::u16string name;
    u64 date = 0;
    std::vector<EntryValues> entries;
    bool operator==(const ItemValues&) const = default;
};

struct Tree {
    std::u16string name;
    std::vector<ItemValues> items;
    bool operator==(const Tree&) const = default;
};

inline Tree TreeOf(const VMRD_DB& database) {
    Tree tree{std::u16string(database.m_Name.view()), {}};
    for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next) {
        ItemValues& values = tree.items.emplace_back();
        values.name = item->m_Name.view();
        values.date = item->m_Date;
        for (const EntryElement* entry = item->m_Head; entry != nullptr; entry = entry->m_Next) {
            values.entries.push_back({entry->m_Type, std::u16string(entry->m_Text.view())});
        }
    }
    return tree;
}

// Puts copies of the values into a database, behind what it has.
inline void Fill(VMRD_DB& database, const Tree& tree) {
    database.m_Name = tree.name;
    for (const ItemValues& values : tree.items) {
        VMRD_Item item;
        item.m_Name = values.name;
        item.m_Date = values.date;
        for (const EntryValues& entry : values.entries) {
            AddEntryCopy(item, VMRD_Entry(entry.type, entry.text), nullptr);
        }
        AddItemCopy(database, item, nullptr);
    }
}

inline std::string Readable(const std::u16string& text) {
    const tvstringA bytes = ToUtf8(std::u16string_view(text).substr(0, 80));
    return '"' + std::string(bytes.data(), bytes.size()) + "\" (" + std::to_string(text.size()) + ')';
}

inline void PrintTo(const Tree& tree, std::ostream* out) {
    *out << Readable(tree.name);
    for (const ItemValues& item : tree.items) {
        *out << "\n  " << Readable(item.name) << ' ' << item.date;
        for (const EntryValues& entry : item.entries)
            *out << "\n    " << entry.type << ' ' << Readable(entry.text);
    }
}
