// A process of another program, which has a window and uses the clipboard for it. Each line it reads is a
// command; the answer is "ok" or "no".
//
//   hold      opens the clipboard and leaves it open
//   release   closes it
//   own       replaces what is on the clipboard by a text
#include "platform/windows_api.h"

#include <cstring>
#include <iostream>
#include <string>

namespace {

bool PutText(HWND window) {
    constexpr wchar_t kText[] = L"of another program";
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, sizeof kText);
    std::memcpy(GlobalLock(block), kText, sizeof kText);
    GlobalUnlock(block);
    const bool done =
        OpenClipboard(window) && EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, block) != nullptr;
    CloseClipboard();
    return done;
}

bool Do(const std::string& command, HWND window) {
    if (command == "hold") return OpenClipboard(window) != FALSE;
    if (command == "release") return CloseClipboard() != FALSE;
    return command == "own" && PutText(window);
}

}  // namespace

int main() {
    HWND window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    for (std::string line; std::getline(std::cin, line);) {
        if (line.ends_with('\r')) line.pop_back();
        std::cout << (Do(line, window) ? "ok" : "no") << std::endl;
    }
    DestroyWindow(window);
    return 0;
}
