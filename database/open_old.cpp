#include <utility>
#include <vector>

#include "database/database.h"
#include "database/old_format.h"
#include "foundation/path.h"
#include "foundation/textops.h"
#include "foundation/tvstream.h"
#include "platform/error.h"
#include "platform/file.h"

namespace {

constexpr std::u16string_view kNameless = u"Unknown";
constexpr std::u16string_view kLineBreak = u"\r\n";

// Puts the last error back to what it was.
class LastErrorKept {
public:
    LastErrorKept() noexcept : m_Error(platform::LastError()) {}
    ~LastErrorKept() { platform::SetLastError(m_Error); }
    LastErrorKept(const LastErrorKept&) = delete;
    LastErrorKept& operator=(const LastErrorKept&) = delete;

private:
    u32 m_Error;
};

tvstring NameFrom(const char* ansi) {
    tvstring name(ansi);
    if (name.empty()) name = kNameless;
    return name;
}

void AppendEntry(ItemElement& item, u16 type, tvstring text) {
    item.Insert(new EntryElement(type, std::move(text)), nullptr);
}

void AppendItem(VMRD_DB& database, const VMRD_OldItem& old, u64 date) {
    auto* item = new ItemElement;
    database.Insert(item, nullptr);
    item->m_Name = NameFrom(old.m_Texts[OLD_NAME]);
    item->m_Date = date;
    AppendEntry(*item, VMRD_T_PROGRAM, tvstring(old.m_Texts[OLD_PROGRAM]));
    AppendEntry(*item, VMRD_T_USERNAME, tvstring(old.m_Texts[OLD_USERNAME]));
    AppendEntry(*item, VMRD_T_PASSWORD, tvstring(old.m_Texts[OLD_PASSWORD]));
    std::vector<tvstring> lines;
    Split(tvstring(old.m_Texts[OLD_ADDITION]), kLineBreak, lines);
    for (tvstring& line : lines)
        AppendEntry(*item, VMRD_T_ADDITION, std::move(line));
}

}  // namespace

bool VMRD_DB::OpenOld(const tvstring& path, const tvstring& password) {
    const LastErrorKept kept;
    VMRD_OldDB old;
    tvstream stream;
    if (!stream.OpenFile(OpenFileHandle(path, false)) || !ReadOldDatabase(stream, password, old))
        return false;
    m_Name = NameFrom(old.m_Name);
    // In UTC, unlike every other date. One that the system cannot tell stays 0.
    u64 date = 0;
    platform::NativeFileWriteTime(stream.File().Get(), date);
    for (const VMRD_OldItem* item = old.m_Items; item != nullptr; item = item->m_Next)
        AppendItem(*this, *item, date);
    m_Undo.Clear();
    m_Path.clear();
    m_Opened = true;
    m_Changed = true;
    return true;
}
