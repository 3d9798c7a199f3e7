#include "platform/windows_api.h"
#include "tests/unit/clipboard_formats.h"

// Once there is a text the system adds its locale, behind what programs put, and then the other forms of the
// text.
std::vector<u32> ClipboardFormats() {
    std::vector<u32> formats;
    OpenClipboard(nullptr);
    for (UINT format = EnumClipboardFormats(0); format != 0 && format != CF_LOCALE;
         format = EnumClipboardFormats(format))
        formats.push_back(format);
    CloseClipboard();
    return formats;
}
