#include "cli/commands.h"
#include "cli/dump_reader.h"
#include "cli/failure.h"
#include "cli/json_reader.h"
#include "cli/session.h"

namespace {

constexpr const char* kStandardInput = "-";

// All bytes of the JSON; standard input behind the master password, if that comes from there too.
void ReadJson(const std::string& source, SecretSource& secrets, tvstringA& bytes) {
    if (source == kStandardInput) {
        secrets.Input().ReadRest(bytes);
    } else {
        InputReader(source).ReadRest(bytes);
    }
}

// A new database has one item; it goes once the others are there.
void Fill(VMRD_DB& database, DumpedDatabase& dumped) {
    database.New(dumped.name);
    ElementArray first{database.m_Head};
    ElementQueue items;
    for (ItemElement& item : dumped.items)
        items.push_back(&item);
    database.AddItems(items, nullptr, &database);
    database.RemoveItems(first, &database);
}

}  // namespace

ExitCode RunLoad(const Invocation& invocation) {
    const std::string& source = invocation.Argument(0);
    const std::string& path = invocation.Argument(1);
    Session session(invocation);
    session.RequireFree(path);
    const tvstring password = session.Secrets().OnlyMaster(path);
    tvstringA json;
    ReadJson(source, session.Secrets(), json);
    DumpedDatabase dumped;
    try {
        ReadDump(json, dumped);
    } catch (const JsonError& error) {
        throw Failure(ExitCode::NotADatabase, source + " is no dump of a database: " + error.what());
    }
    Fill(session.Database(), dumped);
    session.SaveAs(path, password);
    return ExitCode::Done;
}
