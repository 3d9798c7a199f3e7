#include "windows/database_path.h"

#include <cstdio>

#include "foundation/path.h"
#include "foundation/textops.h"

bool IsAbsolutePath(const tvstring& path) {
    constexpr std::size_t kShortest = 3;
    const tvstring expanded = ExpandPath(path);
    if (expanded.size() < kShortest) return false;
    const bool isOnDrive = expanded[1] == u':' && expanded[2] == u'\\';
    const bool isOnShare = expanded.starts_with(u"\\\\") && expanded.find(u'\\', 2) != tvstring::npos;
    return isOnDrive || isOnShare;
}

tvstring WithErrorCode(tvstring message, u32 error) {
    if (error == 0) return message;
    Trim(message, u"\r\n\t .", TRIM_BOTH);
    char code[16] = {};
    const int length = std::snprintf(code, sizeof code, " [0x%.8x]", error);
    for (int i = 0; i < length; ++i)
        message += static_cast<char16_t>(code[i]);
    return message;
}
