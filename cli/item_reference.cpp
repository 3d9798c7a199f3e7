#include "cli/item_reference.h"

#include <charconv>
#include <limits>

#include "cli/failure.h"
#include "cli/text_argument.h"

namespace {

struct BasicField {
    std::string_view name;
    u16 type;
};

constexpr BasicField kBasicFields[] = {
    {"program", VMRD_T_PROGRAM},
    {"username", VMRD_T_USERNAME},
    {"password", VMRD_T_PASSWORD},
};
constexpr std::string_view kNotePrefix = "note:";

// A whole number without sign; nothing for anything else. One that is too large is as good as the largest.
std::optional<std::size_t> ParseNumber(std::string_view digits) {
    std::size_t number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (result.ec == std::errc::invalid_argument || result.ptr != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return result.ec == std::errc() ? number : std::numeric_limits<std::size_t>::max();
}

ItemElement* ItemAt(const VMRD_DB& database, std::size_t position) {
    ItemElement* item = position == 0 ? nullptr : database.m_Head;
    for (; item != nullptr && position > 1; --position)
        item = item->m_Next;
    return item;
}

Failure Ambiguous(const VMRD_DB& database, const tvstring& name) {
    std::string message = "several items are named '" + ForMessage(name) + "':";
    std::size_t position = 0;
    for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next) {
        ++position;
        if (item->m_Name == name) message += " @" + std::to_string(position);
    }
    return {ExitCode::NotFound, std::move(message)};
}

ItemElement* ItemNamed(const VMRD_DB& database, const tvstring& name) {
    ItemElement* found = nullptr;
    for (ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next) {
        if (item->m_Name != name) continue;
        if (found != nullptr) throw Ambiguous(database, name);
        found = item;
    }
    if (found == nullptr) {
        throw Failure(ExitCode::NotFound, "there is no item named '" + ForMessage(name) + "'");
    }
    return found;
}

EntryElement* BasicEntry(const VMRD_Item& item, u16 type) {
    VMRD_Entry* program = nullptr;
    VMRD_Entry* username = nullptr;
    VMRD_Entry* password = nullptr;
    GetBasicEntries(&item, &program, &username, &password);
    VMRD_Entry* entry = type == VMRD_T_PROGRAM ? program : type == VMRD_T_USERNAME ? username : password;
    return LinkedEntry(entry);
}

EntryElement* NoteEntry(const VMRD_Item& item, std::size_t number) {
    for (EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next) {
        if (entry->m_Type == VMRD_T_ADDITION && --number == 0) return entry;
    }
    return nullptr;
}

}  // namespace

ItemReference ParseItemReference(const std::string& argument) {
    if (!argument.starts_with('@')) return {0, TextArgument(argument, "the item's name")};
    if (argument.starts_with("@@")) return {0, TextArgument(argument.substr(1), "the item's name")};
    const auto position = ParseNumber(std::string_view(argument).substr(1));
    if (!position) {
        throw Failure(ExitCode::WrongUsage,
                      "'" + argument + "' is no position; a name that starts with @ is written with @@");
    }
    if (*position == 0) throw Failure(ExitCode::NotFound, "there is no item @0; positions count from 1");
    return {*position, {}};
}

ItemElement* FindItem(const VMRD_DB& database, const std::string& argument) {
    const ItemReference reference = ParseItemReference(argument);
    if (reference.position == 0) return ItemNamed(database, reference.name);
    ItemElement* item = ItemAt(database, reference.position);
    if (item == nullptr) {
        throw Failure(ExitCode::NotFound,
                      "there is no item " + argument + "; there are " + std::to_string(database.m_Count));
    }
    return item;
}

std::size_t PositionOf(const VMRD_DB& database, const ItemElement* item) {
    std::size_t position = 1;
    for (const ItemElement* other = database.m_Head; other != item; other = other->m_Next)
        ++position;
    return position;
}

FieldReference ParseField(const std::string& argument) {
    using Kind = FieldReference::Kind;
    if (argument == "name") return {Kind::Name};
    for (const BasicField& field : kBasicFields) {
        if (argument == field.name) return {Kind::Basic, field.type};
    }
    if (argument.starts_with(kNotePrefix)) {
        const std::string_view number = std::string_view(argument).substr(kNotePrefix.size());
        if (number == "+") return {Kind::NewNote};
        const auto parsed = ParseNumber(number);
        if (parsed) return {Kind::Note, VMRD_T_ADDITION, *parsed};
    }
    throw Failure(ExitCode::WrongUsage,
                  "there is no such kind of field; there are name, program, username, "
                  "password and note:N");
}

EntryElement* FindEntry(const VMRD_Item& item, const FieldReference& field) {
    const bool isNote = field.kind == FieldReference::Kind::Note;
    EntryElement* entry = nullptr;
    if (!isNote) {
        entry = BasicEntry(item, field.type);
    } else if (field.number > 0) {
        entry = NoteEntry(item, field.number);
    }
    if (entry == nullptr) throw Failure(ExitCode::NotFound, "the item has no such field");
    return entry;
}

std::string FieldName(const VMRD_Entry& entry, std::size_t& notes) {
    for (const BasicField& field : kBasicFields) {
        if (entry.m_Type == field.type) return std::string(field.name);
    }
    return std::string(kNotePrefix) + std::to_string(++notes);
}
