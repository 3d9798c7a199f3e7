#include "shell/recent_list.h"

#include <algorithm>
#include <cstring>

#include "database/element.h"
#include "foundation/product.h"
#include "foundation/registry.h"
#include "foundation/textops.h"

namespace {

constexpr const char16_t* kLastUpdated = u"lastUpdated";
constexpr char16_t kSeparator = u'|';

tvstring ValueName(i32 number) {
    return tvstring(u"File") + FormatInt(number);
}

// The stored time stamp; false if there is none of the right size.
bool ReadStamp(const RegKey& key, u64& stamp) {
    const tvdata data = RegReadValue(key.Get(), kLastUpdated, nullptr);
    if (data.Size() != sizeof stamp) return false;
    std::memcpy(&stamp, data.Data(), sizeof stamp);
    return true;
}

}  // namespace

tvstring FormatRecent(const RecentItem& item) {
    tvstring text = item.path;
    if (!item.name.empty()) text += tvstring(1, kSeparator) + item.name.view();
    return text;
}

bool ParseRecent(const tvstring& text, RecentItem& item) {
    const std::size_t separator = text.find(kSeparator);
    if (text.empty() || separator == 0) return false;
    item.path = text.substr(0, separator);
    item.name.clear();
    if (separator == tvstring::npos) return true;
    item.name = text.substr(separator + 1);
    Trim(item.path, kWhiteSpace, TRIM_BOTH);
    Trim(item.name, kWhiteSpace, TRIM_BOTH);
    return true;
}

bool RecentList::LoadRecent() {
    const RegKey key(kRecentKey, RegKey::For::Reading);
    if (!key) return false;
    u64 stamp = 0;
    if (ReadStamp(key, stamp)) {
        if (stamp < recentLastUpdated) return false;
        recentLastUpdated = stamp;
    }
    recentItems.clear();
    tvstring text;
    for (i32 number = 1; number <= recentMax && RegReadText(key.Get(), ValueName(number).c_str(), text);
         ++number) {
        RecentItem item;
        if (ParseRecent(text, item)) recentItems.push_back(std::move(item));
    }
    return true;
}

bool RecentList::StoreRecent() {
    const RegKey key(kRecentKey, RegKey::For::Writing);
    if (!key) return false;
    i32 number = 1;
    for (const RecentItem& item : recentItems) {
        if (RegWriteText(key.Get(), ValueName(number).c_str(), FormatRecent(item))) ++number;
    }
    RegWriteValue(key.Get(), kLastUpdated, &recentLastUpdated, sizeof recentLastUpdated, kRegQuadWord);
    while (platform::DeleteValue(key.Get(), ValueName(number).c_str()) == platform::kErrorNone)
        ++number;
    return true;
}

void RecentList::AddRecent(const tvstring& path, const tvstring& name) {
    if (path.empty()) return;
    {
        const RegKey key(kRecentKey, RegKey::For::Reading);
        u64 stamp = 0;
        if (ReadStamp(key, stamp) && stamp > recentLastUpdated) LoadRecent();
    }
    RecentItem added{path, name.substr(0, kLongestName)};
    std::erase_if(recentItems,
                  [&added](const RecentItem& item) { return EqualNoCase(item.path, added.path); });
    recentItems.push_front(std::move(added));
    while (recentItems.size() > static_cast<std::size_t>(recentMax))
        recentItems.pop_back();
    recentLastUpdated = CurrentTime(false);
    StoreRecent();
}

bool RecentList::RemoveRecent(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= recentItems.size()) return false;
    recentItems.erase(recentItems.begin() + index);
    recentLastUpdated = CurrentTime(false);
    StoreRecent();
    return true;
}

void RecentList::ClearRecent() {
    recentItems.clear();
    recentLastUpdated = CurrentTime(false);
    StoreRecent();
}
