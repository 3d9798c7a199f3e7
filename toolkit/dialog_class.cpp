#include "toolkit/dialog_class.h"

#include <cstring>
#include <map>

#include "platform/types.h"

namespace {

constexpr u16 kExtended = 0xFFFF;   // second word of the extended form
constexpr u16 kIsOrdinal = 0xFFFF;  // in place of a text: a number follows
constexpr std::size_t kPlainHeader = 18;
constexpr std::size_t kExtendedHeader = 26;

std::map<tvstring, ATOM>& KnownClasses() {
    static std::map<tvstring, ATOM> classes;
    return classes;
}

u16 WordAt(const u8* place) {
    u16 word = 0;
    std::memcpy(&word, place, sizeof word);
    return word;
}

// The text up to its zero, which may stand at an odd place.
tvstring TextAt(const u8* place) {
    tvstring text;
    for (u16 unit = WordAt(place); unit != 0; unit = WordAt(place += sizeof unit))
        text += static_cast<char16_t>(unit);
    return text;
}

}  // namespace

ATOM RegisterClassOnce(const WNDCLASSW& windowClass) {
    const tvstring name(Units(windowClass.lpszClassName));
    ATOM& atom = KnownClasses()[name];
    if (atom == 0) atom = RegisterClassW(&windowClass);
    return atom;
}

tvstring ClassOfTemplate(const void* dialogTemplate) {
    const auto* place = static_cast<const u8*>(dialogTemplate);
    place += WordAt(place + sizeof(u16)) == kExtended ? kExtendedHeader : kPlainHeader;
    const u16 menu = WordAt(place);
    place += menu == 0            ? sizeof menu
             : menu == kIsOrdinal ? 2 * sizeof menu
                                  : (TextAt(place).size() + 1) * sizeof menu;
    return WordAt(place) == kIsOrdinal ? tvstring() : TextAt(place);
}

bool RegisterDialogClass(const tvstring& name, HINSTANCE instance) {
    if (name.empty() || KnownClasses()[name] != 0) return true;
    constexpr WORD kDialogAtom = 32770;
    WNDCLASSW windowClass{};
    if (!GetClassInfoW(nullptr, MAKEINTRESOURCEW(kDialogAtom), &windowClass)) return false;
    windowClass.hInstance = instance;
    windowClass.lpszClassName = Wide(name.c_str());
    return RegisterClassOnce(windowClass) != 0;
}
