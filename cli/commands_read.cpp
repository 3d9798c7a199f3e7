#include "cli/commands.h"
#include "cli/date_text.h"
#include "cli/failure.h"
#include "cli/item_json.h"
#include "cli/item_reference.h"
#include "cli/line_writer.h"
#include "cli/session.h"
#include "cli/text_argument.h"
#include "platform/terminal.h"

namespace {

constexpr const char* kHiddenHint = "passwords are hidden; --reveal shows them";
constexpr std::string_view kHiddenText = "********";

u64 CountEntries(const VMRD_DB& database) {
    u64 count = 0;
    for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next)
        count += static_cast<u64>(item->m_Count);
    return count;
}

void WriteInfoJson(Session& session, ByteSink& out) {
    VMRD_DB& database = session.Database();
    JsonWriter json(out);
    json.OpenObject();
    WriteVersion(json);
    json.Key("format").Ascii(session.IsOldFormat() ? "old" : "current");
    json.Key("name").Text(database.m_Name);
    json.Key("items").Number(static_cast<u64>(database.m_Count));
    json.Key("entries").Number(CountEntries(database));
    json.Key("file_size").Number(session.FileSize());
    json.Key("plain_size").Number(session.PlainSize());
    json.CloseObject();
    out.Byte('\n');
}

void WriteInfoLines(Session& session, ByteSink& out) {
    VMRD_DB& database = session.Database();
    const auto number = [&out](std::string_view label, u64 value) {
        out.Bytes(label);
        out.Bytes(std::to_string(value) + "\n");
    };
    out.Bytes(session.IsOldFormat() ? "format:     old\n" : "format:     current\n");
    out.Bytes("name:       ");
    WriteLine(out, database.m_Name, platform::IsTerminal(platform::StandardStream::Output));
    number("items:      ", static_cast<u64>(database.m_Count));
    number("entries:    ", CountEntries(database));
    number("file size:  ", session.FileSize());
    number("plain size: ", session.PlainSize());
}

bool IsHidden(const VMRD_Entry& entry, bool reveal) {
    return !reveal && entry.m_Type == VMRD_T_PASSWORD && !entry.m_Text.empty();
}

// Returns true if something was hidden, as the next one does.
bool WriteItemJson(const VMRD_DB& database, const ItemElement& item, bool reveal, ByteSink& out) {
    bool hidden = false;
    std::size_t notes = 0;
    JsonWriter json(out);
    json.OpenObject();
    WriteVersion(json);
    json.Key("position").Number(PositionOf(database, &item)).Key("name").Text(item.m_Name);
    WriteDates(json, item.m_Date);
    json.Key("entries").OpenArray();
    for (const EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next) {
        json.OpenObject().Key("field").Ascii(FieldName(*entry, notes)).Key("type").Number(entry->m_Type);
        json.Key("text");
        if (IsHidden(*entry, reveal)) {
            json.Null();
            hidden = true;
        } else {
            json.Text(entry->m_Text);
        }
        json.CloseObject();
    }
    json.CloseArray().CloseObject();
    out.Byte('\n');
    return hidden;
}

// A text of several lines is continued under its first one.
void WriteField(ByteSink& out, const std::string& label, std::u16string_view text, bool forTerminal) {
    constexpr std::size_t kColumn = 11;
    std::string head = label + ":";
    head.resize(std::max(kColumn, head.size() + 1), ' ');
    for (;;) {
        const std::size_t end = text.find_first_of(u"\r\n");
        out.Bytes(head);
        WriteLine(out, text.substr(0, end), forTerminal);
        if (end == std::u16string_view::npos) return;
        text.remove_prefix(end + (text.substr(end).starts_with(u"\r\n") ? 2 : 1));
        head.assign(head.size(), ' ');
    }
}

bool WriteItemLines(const ItemElement& item, bool reveal, ByteSink& out) {
    const bool forTerminal = platform::IsTerminal(platform::StandardStream::Output);
    bool hidden = false;
    std::size_t notes = 0;
    WriteField(out, "name", item.m_Name, forTerminal);
    out.Bytes("modified:  " + FormatPlainDate(item.m_Date) + "\n");
    for (const EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next) {
        const std::string field = FieldName(*entry, notes);
        if (IsHidden(*entry, reveal)) {
            out.Bytes(field + ":  ");
            out.Bytes(kHiddenText);
            out.Byte('\n');
            hidden = true;
        } else {
            WriteField(out, field, entry->m_Text, forTerminal);
        }
    }
    return hidden;
}

}  // namespace

ExitCode RunInfo(const Invocation& invocation) {
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Read);
    OutputSink out;
    if (invocation.Has(Option::Json)) {
        WriteInfoJson(session, out);
    } else {
        WriteInfoLines(session, out);
    }
    out.Finish();
    return ExitCode::Done;
}

ExitCode RunShow(const Invocation& invocation) {
    const bool reveal = invocation.Has(Option::Reveal);
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Read);
    const ItemElement* item = FindItem(session.Database(), invocation.Argument(1));
    OutputSink out;
    const bool hidden = invocation.Has(Option::Json) ? WriteItemJson(session.Database(), *item, reveal, out)
                                                     : WriteItemLines(*item, reveal, out);
    out.Finish();
    if (hidden) PrintMessage(kHiddenHint);
    return ExitCode::Done;
}

ExitCode RunGet(const Invocation& invocation) {
    const FieldReference field = ParseField(invocation.Argument(2));
    if (field.kind == FieldReference::Kind::NewNote) {
        throw Failure(ExitCode::WrongUsage, "note:+ names a text to be added");
    }
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Read);
    const ItemElement* item = FindItem(session.Database(), invocation.Argument(1));
    const tvstring& text =
        field.kind == FieldReference::Kind::Name ? item->m_Name : FindEntry(*item, field)->m_Text;
    OutputSink out;
    if (invocation.Has(Option::Json)) {
        JsonWriter json(out);
        json.OpenObject();
        WriteVersion(json);
        json.Key("field").Ascii(invocation.Argument(2)).Key("text").Text(text).CloseObject();
    } else {
        out.Text(text);
    }
    if (!invocation.Has(Option::NoLineEnd)) out.Byte('\n');
    out.Finish();
    return ExitCode::Done;
}
