#include "toolkit/message_text.h"

#include <cstddef>

#include "toolkit/win32.h"

namespace {

constexpr std::size_t kLongestText = 63;
constexpr UINT kFirstString = 800;  // of button 1 in the system's library

constexpr std::array<const char16_t*, kMessageButtons> kFallback = {
    u"OK",  u"Cancel", u"&Abort", u"&Retry",     u"&Ignore",   u"&Yes",
    u"&No", u"&Close", u"Help",   u"&Try Again", u"&Continue",
};

}  // namespace

MessageTexts::MessageTexts(const Loader& loadSystemText) {
    for (int id = 1; id <= kMessageButtons; ++id) {
        const tvstring text = loadSystemText(id);
        if (text.empty() || text.size() > kLongestText) {
            for (std::size_t i = 0; i < kFallback.size(); ++i)
                m_Entries[i].system = kFallback[i];
            return;
        }
        m_Entries[static_cast<std::size_t>(id - 1)].system = text;
    }
}

tvstring MessageTexts::Get(int id, const char16_t* newText, bool forceNew) {
    if (id < 1 || id > kMessageButtons) return {};
    Entry& entry = m_Entries[static_cast<std::size_t>(id - 1)];
    if (newText != nullptr) entry.own = newText;
    return forceNew || !entry.own.empty() ? entry.own : entry.system;
}

tvstring LoadSystemButtonText(int id) {
    // With one unit more than is wanted, so that a text that is too long shows.
    std::array<char16_t, kLongestText + 2> text{};
    const UINT string = kFirstString + static_cast<UINT>(id) - 1;
    const int length = LoadStringW(GetModuleHandleW(L"user32.dll"), string, Wide(text.data()),
                                   static_cast<int>(text.size()));
    return length <= 0 ? tvstring() : tvstring(text.data(), static_cast<std::size_t>(length));
}
