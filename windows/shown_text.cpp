#include "windows/shown_text.h"

#include "foundation/language.h"
#include "shell/app_data.h"
#include "shell/statics.h"

namespace {
constexpr std::u16string_view kMask = u"\u25CF\u25CF\u25CF\u25CF\u25CF\u25CF";
}

tvstring ShownText(const VMRD_Entry& entry) {
    if (entry.m_Text.empty()) return LangText(u"global", u"empty");
    if (entry.m_Type == VMRD_T_PASSWORD && TheAppData().bShowPassword == 0) return kMask;
    return entry.m_Text;
}
