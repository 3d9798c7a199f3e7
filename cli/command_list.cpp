#include <algorithm>

#include "cli/choice.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/item_json.h"
#include "cli/line_writer.h"
#include "cli/session.h"
#include "cli/text_argument.h"
#include "platform/terminal.h"
#include "windows/item_view.h"

namespace {

constexpr Choice kModes[] = {
    {"all", FilterAll}, {"exact", FilterExact}, {"any", FilterAny}, {"without", FilterWithout}};
constexpr Choice kOrders[] = {
    {"none", SortNone}, {"az", SortAZ}, {"za", SortZA}, {"newold", SortNewOld}, {"oldnew", SortOldNew}};

// What the options ask for, looked at before anybody types a password.
struct ListRequest {
    tvstring text;
    int sort = SortNone;
    u8 mode = FilterAll;
    SearchPasswords passwords = SearchPasswords::No;
};

ListRequest ReadRequest(const Invocation& invocation) {
    ListRequest request;
    if (invocation.Has(Option::Search)) {
        request.text = TextArgument(invocation.Value(Option::Search), "the search text");
    }
    request.mode = static_cast<u8>(ChosenValue(invocation, Option::Mode, kModes));
    request.sort = ChosenValue(invocation, Option::Sort, kOrders);
    if (invocation.Has(Option::InPasswords)) request.passwords = SearchPasswords::Yes;
    return request;
}

// Places in stored order, looked up by the item.
class Positions {
public:
    explicit Positions(const VMRD_DB& database) {
        m_Items.reserve(static_cast<std::size_t>(database.m_Count));
        for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next)
            m_Items.emplace_back(item, m_Items.size() + 1);
        std::sort(m_Items.begin(), m_Items.end());
    }
    [[nodiscard]] u64 Of(const VMRD_Item* item) const {
        return std::lower_bound(m_Items.begin(), m_Items.end(), std::pair(item, std::size_t{0}))->second;
    }

private:
    std::vector<std::pair<const VMRD_Item*, std::size_t>> m_Items;
};

void WriteJson(const VMRD_DB& database, const ItemView& view, ByteSink& out) {
    const Positions positions(database);
    JsonWriter json(out);
    json.OpenObject();
    WriteVersion(json);
    json.Key("items").OpenArray();
    for (const ViewRow& row : view.Rows()) {
        const VMRD_Item* item = AsItem(row.m_data);
        json.OpenObject().Key("position").Number(positions.Of(item)).Key("name").Text(item->m_Name);
        WriteDates(json, item->m_Date);
        json.CloseObject();
    }
    json.CloseArray().CloseObject();
    out.Byte('\n');
}

void WriteLines(const ItemView& view, ByteSink& out, bool nullEnds) {
    const bool forTerminal = platform::IsTerminal(platform::StandardStream::Output);
    for (const ViewRow& row : view.Rows()) {
        const tvstring& name = ElementText(row.m_data);
        if (nullEnds) {
            out.Text(name);
            out.Byte('\0');
        } else {
            WriteLine(out, name, forTerminal);
        }
    }
}

}  // namespace

ExitCode RunList(const Invocation& invocation) {
    if (invocation.Has(Option::Json) && invocation.Has(Option::NullEnds)) {
        throw Failure(ExitCode::WrongUsage, "--json and --null exclude each other");
    }
    const ListRequest request = ReadRequest(invocation);
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Read);
    ItemView view;
    view.SetSource(&session.Database());
    view.SetOptions(request.mode, request.passwords);
    view.SetView(&request.sort, &request.text);
    if (view.Rows().empty()) view.Refresh();  // an unsorted view of everything is no change
    OutputSink out;
    if (invocation.Has(Option::Json)) {
        WriteJson(session.Database(), view, out);
    } else {
        WriteLines(view, out, invocation.Has(Option::NullEnds));
    }
    out.Finish();
    return ExitCode::Done;
}
