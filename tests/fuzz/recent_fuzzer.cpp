// A settings store of any content: the store's file, and the values of the recent list in it. What was loaded
// is written and loaded again.
//
// The first byte of an input says what the rest is: "T" the text of the store's file, anything else the
// values, each a byte for its name, one for its type, one for its size and then that many bytes of its own.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "foundation/product.h"
#include "foundation/registry.h"
#include "foundation/textops.h"
#include "platform/posix/registry_file.h"
#include "shell/recent_list.h"
#include "tests/fuzz/fuzz_text.h"

namespace {

using platform::RegistryKeys;
using platform::RegistryValues;

// The folder of the store, which goes at the end.
class StoreFolder {
public:
    StoreFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "vmr-fuzz-XXXXXX").string();
        Require(::mkdtemp(name.data()) != nullptr);
        m_Folder = name;
        platform::UseRegistryFile(File().u16string());
    }
    ~StoreFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_Folder, ignored);
    }
    StoreFolder(const StoreFolder&) = delete;
    StoreFolder& operator=(const StoreFolder&) = delete;

    [[nodiscard]] std::filesystem::path File() const { return m_Folder / "registry"; }

private:
    std::filesystem::path m_Folder;
};

void PutFile(const std::filesystem::path& path, const std::string& text) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    Require(file != nullptr);
    Require(std::fwrite(text.data(), 1, text.size(), file) == text.size());
    std::fclose(file);
}

// One key with the values of the recent list; a type of 0 stands for the usual one.
std::string FormatValues(const u8* data, std::size_t size) {
    RegistryKeys keys;
    RegistryValues& values = keys[kRecentKey];
    constexpr unsigned kNames = 11;  // lastUpdated, File1 to File10
    while (size >= 3) {
        const unsigned number = data[0] % kNames;
        const std::size_t count = std::min<std::size_t>(data[2], size - 3);
        const tvstring name =
            number == 0 ? tvstring(u"lastUpdated") : u"File" + FormatInt(static_cast<i32>(number));
        const u32 usual = number == 0 ? platform::kRegQuadWord : platform::kRegString;
        values[std::u16string(name.view())] = {data[1] % 8 == 0 ? usual : data[1] % 8U,
                                               {data + 3, data + 3 + count}};
        data += 3 + count;
        size -= 3 + count;
    }
    return FormatRegistry(keys);
}

bool Same(const RegistryKeys& a, const RegistryKeys& b) {
    return platform::FormatRegistry(a) == platform::FormatRegistry(b);
}

void CheckFile(const std::string& text) {
    const RegistryKeys keys = platform::ParseRegistry(text);
    const RegistryKeys again = platform::ParseRegistry(platform::FormatRegistry(keys));
    Require(keys.size() == again.size() && Same(keys, again));
}

bool HasSpaceAround(const tvstring& text) {
    return TrimmedView(text, kWhiteSpace, TRIM_BOTH).size() != text.size();
}

void CheckItems(const RecentList& list) {
    Require(list.recentItems.size() <= static_cast<std::size_t>(list.recentMax));
    for (const RecentItem& item : list.recentItems) {
        Require(item.path.find(u'|') == tvstring::npos && item.path.find(u'\0') == tvstring::npos);
        Require(item.name.find(u'\0') == tvstring::npos && !HasSpaceAround(item.name));
        Require(item.name.empty() || !HasSpaceAround(item.path));
    }
}

bool SameItems(const RecentList& a, const RecentList& b) {
    return std::equal(
        a.recentItems.begin(), a.recentItems.end(), b.recentItems.begin(), b.recentItems.end(),
        [](const RecentItem& x, const RecentItem& y) { return x.path == y.path && x.name == y.name; });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    constexpr std::size_t kLongest = 500;  // a list fits well into it; what is longer only takes longer
    if (size > kLongest) return -1;
    static const StoreFolder folder;
    const bool isText = size > 0 && data[0] == 'T';
    const std::size_t skipped = size > 0 ? 1 : 0;
    const std::string text = isText
                                 ? std::string(reinterpret_cast<const char*>(data) + skipped, size - skipped)
                                 : FormatValues(data + skipped, size - skipped);
    CheckFile(text);
    PutFile(folder.File(), text);

    RecentList list;
    const bool loaded = list.LoadRecent();
    Require(loaded == platform::ParseRegistry(text).contains(kRecentKey));
    CheckItems(list);
    Require(list.StoreRecent());
    // A path that was trimmed to nothing cannot be told from no entry, once it is written.
    std::erase_if(list.recentItems, [](const RecentItem& item) { return item.path.empty(); });
    RecentList again;
    Require(again.LoadRecent());
    CheckItems(again);
    Require(SameItems(list, again) && again.recentLastUpdated == list.recentLastUpdated);
    return 0;
}
