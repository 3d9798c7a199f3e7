#include "platform/clipboard.h"
#include "tests/unit/clipboard_formats.h"

std::vector<u32> ClipboardFormats() {
    std::vector<u32> formats;
    for (u32 format = 1; format <= 0xFFFF; ++format) {
        if (platform::IsFormatAvailable(format)) formats.push_back(format);
    }
    return formats;
}
