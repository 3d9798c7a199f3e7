#include "cli/dump_reader.h"

#include <optional>

#include "cli/date_text.h"
#include "cli/json_reader.h"
#include "cli/text_argument.h"

namespace {

constexpr u64 kVersion = 1;

void ReadStorable(JsonReader& reader, tvstring& text, const char* what) {
    reader.Text(text);
    RequireStorable(text, what);
}

void ReadEntry(JsonReader& reader, VMRD_Item& item) {
    tvstring key;
    tvstring text;
    std::optional<u64> type;
    bool hasText = false;
    for (reader.OpenObject(); reader.NextKey(key);) {
        if (key == u"type") {
            type = reader.Number();
            if (*type < VMRD_T_PROGRAM || *type > VMRD_T_ADDITION) throw reader.Error("no type of an entry");
        } else if (key == u"text") {
            ReadStorable(reader, text, "the text of an entry");
            hasText = true;
        } else {
            reader.Skip();
        }
    }
    if (!type || !hasText) throw reader.Error("an entry without \"type\" or \"text\" ends here");
    auto* entry = new EntryElement;
    entry->m_Type = static_cast<u16>(*type);
    entry->m_Text = std::move(text);
    item.Insert(entry, nullptr);
}

using DateParser = bool (*)(std::u16string_view, u64&);

void ReadDate(JsonReader& reader, DateParser parse, std::optional<u64>& date) {
    if (reader.Null()) return;
    tvstring text;
    u64 ticks = 0;
    reader.Text(text);
    if (!parse(text, ticks)) throw reader.Error("not a date");
    date = ticks;
}

void ReadItem(JsonReader& reader, VMRD_Item& item) {
    tvstring key;
    bool hasName = false;
    std::optional<u64> date;
    std::optional<u64> modified;
    for (reader.OpenObject(); reader.NextKey(key);) {
        if (key == u"name") {
            ReadStorable(reader, item.m_Name, "the name of an item");
            hasName = true;
        } else if (key == u"date") {
            ReadDate(reader, &ParseHexDate, date);
        } else if (key == u"modified") {
            ReadDate(reader, &ParseIsoDate, modified);
        } else if (key == u"entries") {
            item.Clear();
            for (reader.OpenArray(); reader.NextElement();)
                ReadEntry(reader, item);
        } else {
            reader.Skip();
        }
    }
    if (!hasName) throw reader.Error("an item without \"name\" ends here");
    if (date || modified) {
        item.m_Date = date ? *date : *modified;
    } else {
        Touch(&item);
    }
}

}  // namespace

void ReadDump(std::string_view json, DumpedDatabase& out) {
    JsonReader reader(json);
    tvstring key;
    bool hasVersion = false;
    bool hasItems = false;
    for (reader.OpenObject(); reader.NextKey(key);) {
        if (key == u"version") {
            if (reader.Number() != kVersion) throw reader.Error("not version 1");
            hasVersion = true;
        } else if (key == u"name") {
            ReadStorable(reader, out.name, "the database's name");
        } else if (key == u"items") {
            out.items.clear();
            for (reader.OpenArray(); reader.NextElement();)
                ReadItem(reader, out.items.emplace_back());
            hasItems = true;
        } else {
            reader.Skip();
        }
    }
    if (!hasVersion || !hasItems) throw reader.Error("\"version\" or \"items\" is missing");
    reader.End();
}
