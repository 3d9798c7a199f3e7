// A process with a database of its own, for copies and pastes. Each line it reads is a command, with a blank
// and the argument behind it; the answer is a line "= ..." for each thing told, and then "ok" or "no". All
// text is UTF-8, with "\n" for a line break in it.
//
//   item DATE NAME            appends an item to the database
//   entry TYPE TEXT           appends an entry to the last item
//   many NUMBER               appends that many items with an entry each
//   items                     what the database has, told as in the commands "item" and "entry"
//   copy-items PLACE ...      copies the items at these places, counted from 0; all without one
//   copy-entries PLACE ...    the same for entries of the last item
//   paste-items               what the items on the clipboard are, told as by "items"
//   paste-entries             the same for entries
//   block                     the block of the items on the clipboard, as hexadecimal digits
//   text                      the text on the clipboard
//   clear                     empties the clipboard
#include <iostream>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "database/clipboard.h"
#include "foundation/conversion.h"
#include "foundation/textops.h"

namespace {

VMRD_DB g_Database;

void Tell(tvstring text) {
    ReplaceAll(text, u"\r\n", u"\\n");
    std::cout << "= " << ToUtf8(text).view() << '\n';
}

tvstring TextOf(tvstring argument) {
    ReplaceAll(argument, u"\\n", u"\r\n");
    return argument;
}

// A number and what stands behind the blank that follows it.
std::pair<u64, tvstring> NumberAndText(const tvstring& argument) {
    const std::size_t blank = argument.find(u' ');
    const tvstring text = blank == tvstring::npos ? tvstring() : argument.substr(blank + 1);
    return {ParseU64(argument.substr(0, blank)), TextOf(text)};
}

bool AppendItem(const tvstring& argument) {
    VMRD_Item item;
    std::tie(item.m_Date, item.m_Name) = NumberAndText(argument);
    return AddItemCopy(g_Database, item, nullptr) != nullptr;
}

bool AppendEntry(const tvstring& argument) {
    const auto [type, text] = NumberAndText(argument);
    ItemElement* last = g_Database.Tail();
    if (last == nullptr) return false;
    return AddEntryCopy(*last, VMRD_Entry(static_cast<u16>(type), text), nullptr) != nullptr;
}

bool AppendMany(const tvstring& count) {
    for (u64 i = 0; i < ParseU64(count); ++i) {
        const tvstring number = FormatU64(i, U64Format::Decimal);
        if (!AppendItem(number + u" item " + number)) return false;
        if (!AppendEntry(tvstring(u"6 text ") + number)) return false;
    }
    return true;
}

void TellEntries(const EntryList& list) {
    for (const EntryElement* entry = list.m_Head; entry != nullptr; entry = entry->m_Next)
        Tell(tvstring(u"entry ") + FormatInt(entry->m_Type) + u" " + entry->m_Text);
}

void TellItems(const ItemList& list) {
    for (const ItemElement* item = list.m_Head; item != nullptr; item = item->m_Next) {
        const tvstring date = FormatU64(item->m_Date, U64Format::Decimal);
        Tell(tvstring(u"item ") + date + u" " + item->m_Name);
        TellEntries(*item);
    }
}

// The elements of a list at the places that the argument gives, in its order.
template <typename List>
ElementArray Chosen(const List& list, const tvstring& places) {
    ElementArray all;
    for (auto* element = list.m_Head; element != nullptr; element = element->m_Next)
        all.push_back(element);
    if (places.empty()) return all;
    std::vector<tvstring> pieces;
    Split(places, u" ", pieces);
    ElementArray chosen;
    for (const tvstring& piece : pieces)
        chosen.push_back(all.at(static_cast<std::size_t>(ParseU64(piece))));
    return chosen;
}

bool CopyChosenItems(const tvstring& places) {
    return CopyItems(nullptr, Chosen<ItemList>(g_Database, places));
}

bool CopyChosenEntries(const tvstring& places) {
    return g_Database.m_Tail != nullptr &&
           CopyEntries(nullptr, Chosen<EntryList>(*g_Database.m_Tail, places));
}

bool Paste(u32 format) {
    VMRD_DB carrier;
    if (!VMRD_DB::ReadClipboard(carrier, format)) return false;
    TellItems(carrier);
    return true;
}

// The bytes of a format; none if they cannot be had.
std::vector<u8> BytesOnClipboard(u32 format) {
    std::vector<u8> bytes;
    if (!platform::IsFormatAvailable(format) || !platform::OpenClipboard(nullptr)) return bytes;
    {
        const platform::ClipboardView view(format);
        bytes.assign(view.Bytes().begin(), view.Bytes().end());
    }
    platform::CloseClipboard();
    return bytes;
}

bool TellBlock(const tvstring&) {
    const std::vector<u8> bytes = BytesOnClipboard(ItemsClipboardFormat());
    if (bytes.empty()) return false;
    Tell(BytesToHex(bytes.data(), bytes.size()));
    return true;
}

bool TellText(const tvstring&) {
    const std::vector<u8> bytes = BytesOnClipboard(platform::kFormatUnicodeText);
    if (bytes.empty()) return false;
    tvstring text;
    text.assign_bytes(bytes.data(), bytes.size() / sizeof(char16_t));
    Tell(text.substr(0, text.find(u'\0')));
    return true;
}

bool Clear(const tvstring&) {
    const bool done = platform::OpenClipboard(nullptr) && platform::EmptyClipboard();
    platform::CloseClipboard();
    return done;
}

const std::map<std::string_view, bool (*)(const tvstring&)> kCommands = {
    {"item", AppendItem},
    {"entry", AppendEntry},
    {"many", AppendMany},
    {"items",
     [](const tvstring&) {
         TellItems(g_Database);
         return true;
     }},
    {"copy-items", CopyChosenItems},
    {"copy-entries", CopyChosenEntries},
    {"paste-items", [](const tvstring&) { return Paste(ItemsClipboardFormat()); }},
    {"paste-entries", [](const tvstring&) { return Paste(EntriesClipboardFormat()); }},
    {"block", TellBlock},
    {"text", TellText},
    {"clear", Clear},
};

}  // namespace

int main() {
    const VMRD_Item item;  // the first one registers the format of entries
    for (std::string line; std::getline(std::cin, line);) {
        if (line.ends_with('\r')) line.pop_back();
        const std::size_t blank = line.find(' ');
        const auto command = kCommands.find(std::string_view(line).substr(0, blank));
        if (command == kCommands.end()) return 2;
        const bool done = command->second(blank == line.npos ? tvstring() : FromUtf8(line.substr(blank + 1)));
        std::cout << (done ? "ok" : "no") << std::endl;
    }
    return 0;
}
