#include "shell/app_settings.h"

#include <algorithm>
#include <limits>

namespace {

void LoadStoreFlag(LoadStore direction, const char16_t* name, bool& flag) {
    u8 byte = direction == LoadStore::Load ? u8{0} : static_cast<u8>(flag);
    if (LoadStoreBool(direction, name, byte) && direction == LoadStore::Load) flag = byte != 0;
}

tvstring LoadStoreName(LoadStore direction, const char16_t* valueName, const tvstring& name) {
    tvstring text = name;
    if (direction == LoadStore::Load) {
        if (!LoadStoreText(direction, valueName, text)) text.clear();
    } else if (!text.empty()) {
        LoadStoreText(direction, valueName, text);
    }
    return text;
}

}  // namespace

void AppSettings::LoadStoreHistory(LoadStore direction, RecentList& recent) {
    u32 word = bHistory;
    if (LoadStoreInt(direction, u"bHistory", word)) bHistory = word != 0 ? 1 : 0;
    if (bHistory == 0) {
        recent.ClearRecent();
    } else if (direction == LoadStore::Load) {
        recent.LoadRecent();
    }
    if (direction == LoadStore::Store && m_Notice != nullptr) m_Notice(SharedSetting::History);
}

void AppSettings::LoadStoreClearClipboard(LoadStore direction) {
    LoadStoreBool(direction, u"bAutoClearClipboard", bAutoClearClipboard);
    if (direction == LoadStore::Store && m_Notice != nullptr) m_Notice(SharedSetting::ClearClipboard);
}

void AppSettings::LoadStoreAutoOpen(LoadStore direction) {
    LoadStoreBool(direction, u"bAutoOpen", bAutoOpen);
}

void AppSettings::LoadStoreFilterFlag(LoadStore direction) {
    LoadStoreInt(direction, u"FilterFlag", filterFlag);
    if (direction == LoadStore::Load) filterFlag = std::min(filterFlag, kLargestFilterFlag);
}

void LoadStoreAutoSave(LoadStore direction, VMRD_DB& database) {
    LoadStoreFlag(direction, u"bAutoSave", database.bAutoSave);
}

void LoadStoreFilterPwd(LoadStore direction, VMRD_DB& database) {
    LoadStoreFlag(direction, u"bFilterPWD", database.bFilterPWD);
}

u32 LoadStoreSort(LoadStore direction, u32 value) {
    constexpr const char16_t* kName = u"Sort";
    const auto inRange = [](u32 order) { return order > kLargestSort ? 0 : order; };
    if (direction == LoadStore::Store) {
        value = inRange(value);
        LoadStoreInt(direction, kName, value);
        return value;
    }
    u8 byte = 0;
    return LoadStoreBool(direction, kName, byte) ? inRange(byte) : 0;
}

tvstring LoadStoreThemeName(LoadStore direction, const tvstring& name) {
    return LoadStoreName(direction, u"Theme", name);
}

tvstring LoadStoreLangName(LoadStore direction, const tvstring& fileName) {
    return LoadStoreName(direction, u"Lang", fileName);
}

bool LoadStoreFontRecord(LoadStore direction, u8 (&record)[kFontRecordSize]) {
    return LoadStoreBytes(direction, u"Font", record, sizeof record);
}

i32 PasswordFontHeight(i32 height) {
    constexpr float kFactor = 1.3F;
    constexpr double kLimit = std::numeric_limits<i32>::max();  // a record from the store may hold anything
    return static_cast<i32>(std::clamp(height * double{kFactor}, -kLimit, kLimit));
}
