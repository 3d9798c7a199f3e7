// A process with a recent list. Each line it reads is a command, with a blank and the argument behind it; the
// answer is a line "= ..." for each thing told, and then "ok" or "no". All text is UTF-8.
//
//   load, store, clear    the operations of the list
//   add PATH|NAME
//   remove INDEX
//   list                  the entries, PATH|NAME each
//   stamp                 the list's time
//   later                 waits until the clock has left the time of the list and of the store
//   read NAME             a value of the store's key: TYPE:BYTES
//   write NAME TYPE:BYTES
//   delete NAME
//   wipe                  deletes everything that the program keeps in the store
#include <chrono>
#include <cstring>
#include <iostream>
#include <map>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "database/element.h"
#include "foundation/conversion.h"
#include "foundation/product.h"
#include "foundation/registry.h"
#include "foundation/textops.h"
#include "shell/recent_list.h"

namespace {

RecentList g_List;

void Tell(const tvstring& text) {
    std::cout << "= " << ToUtf8(text).view() << '\n';
}

tvstring FormatNumber(u64 number) {
    return FormatU64(number, U64Format::Decimal);
}

// Parts a text at the first mark; the second part is empty without one.
std::pair<tvstring, tvstring> Parted(const tvstring& text, char16_t mark) {
    const std::size_t place = text.find(mark);
    return {text.substr(0, place), place == tvstring::npos ? tvstring() : text.substr(place + 1)};
}

bool Add(const tvstring& argument) {
    const auto [path, name] = Parted(argument, u'|');
    g_List.AddRecent(path, name);
    return true;
}

bool TellList(const tvstring&) {
    for (const RecentItem& item : g_List.recentItems)
        Tell(item.path + u"|" + item.name);
    return true;
}

bool TellStamp(const tvstring&) {
    Tell(FormatNumber(g_List.recentLastUpdated));
    return true;
}

bool WaitForLater(const tvstring&) {
    u64 stored = 0;
    const tvdata data = RegReadUserValue(kRecentKey, u"lastUpdated", nullptr);
    if (data.Size() == sizeof stored) std::memcpy(&stored, data.Data(), sizeof stored);
    const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (CurrentTime(false) <= stored || CurrentTime(false) <= g_List.recentLastUpdated) {
        if (std::chrono::steady_clock::now() > patience) return false;
        std::this_thread::yield();
    }
    return true;
}

bool Read(const tvstring& name) {
    u32 type = 0;
    const tvdata data = RegReadUserValue(kRecentKey, name.c_str(), &type);
    if (platform::LastError() != platform::kErrorNone) return false;
    Tell(FormatNumber(type) + u":" + BytesToHex(data.Data(), data.Size()));
    return true;
}

bool Write(const tvstring& argument) {
    const auto [name, value] = Parted(argument, u' ');
    const auto [type, digits] = Parted(value, u':');
    std::vector<u8> bytes(digits.size() / 2 + 1);
    const std::size_t size = HexToBytes(digits, bytes.data(), bytes.size(), ByteOrder::Forward);
    const RegKey key(kRecentKey, RegKey::For::Writing);
    return RegWriteValue(key.Get(), name.c_str(), bytes.data(), static_cast<u32>(size),
                         static_cast<u32>(ParseU64(type)));
}

bool Delete(const tvstring& name) {
    const RegKey key(kRecentKey, RegKey::For::Writing);
    return platform::DeleteValue(key.Get(), name.c_str()) == platform::kErrorNone;
}

const std::map<std::string_view, bool (*)(const tvstring&)> kCommands = {
    {"load", [](const tvstring&) { return g_List.LoadRecent(); }},
    {"store", [](const tvstring&) { return g_List.StoreRecent(); }},
    {"add", Add},
    {"remove", [](const tvstring& index) { return g_List.RemoveRecent(static_cast<int>(ParseU64(index))); }},
    {"clear",
     [](const tvstring&) {
         g_List.ClearRecent();
         return true;
     }},
    {"list", TellList},
    {"stamp", TellStamp},
    {"later", WaitForLater},
    {"read", Read},
    {"write", Write},
    {"delete", Delete},
    {"wipe",
     [](const tvstring&) { return platform::DeleteUserTree(u"Software\\Tolvane") == platform::kErrorNone; }},
};

}  // namespace

int main() {
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
