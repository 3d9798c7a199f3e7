#include "cli/commands.h"
#include "cli/item_json.h"
#include "cli/session.h"

namespace {

void WriteItem(JsonWriter& json, const ItemElement& item) {
    json.OpenObject().Key("name").Text(item.m_Name);
    WriteDates(json, item.m_Date);
    json.Key("entries").OpenArray();
    for (const EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next) {
        json.OpenObject().Key("type").Number(entry->m_Type).Key("text").Text(entry->m_Text).CloseObject();
    }
    json.CloseArray().CloseObject();
}

}  // namespace

ExitCode RunDump(const Invocation& invocation) {
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Read);
    OutputSink out;
    JsonWriter json(out);
    json.OpenObject();
    WriteVersion(json);
    json.Key("name").Text(session.Database().m_Name).Key("items").OpenArray();
    for (const ItemElement* item = session.Database().m_Head; item != nullptr; item = item->m_Next)
        WriteItem(json, *item);
    json.CloseArray().CloseObject();
    out.Byte('\n');
    out.Finish();
    return ExitCode::Done;
}
