// The texts of the buttons of message boxes: the system's own, or those that the program's language has.
#pragma once

#include <array>
#include <functional>

#include "foundation/tvstring.h"

// Buttons by the results that they stand for, as the system numbers them.
enum MessageButton : int {
    MESSAGE_NONE = 0,
    MESSAGE_OK = 1,
    MESSAGE_CANCEL = 2,
    MESSAGE_ABORT = 3,
    MESSAGE_RETRY = 4,
    MESSAGE_IGNORE = 5,
    MESSAGE_YES = 6,
    MESSAGE_NO = 7,
    MESSAGE_CLOSE = 8,
    MESSAGE_HELP = 9,
    MESSAGE_TRY_AGAIN = 10,
    MESSAGE_CONTINUE = 11,
};
inline constexpr int kMessageButtons = 11;

class MessageTexts {
public:
    // Gives the system's text of a button, or an empty one.
    using Loader = std::function<tvstring(int)>;

    // Takes the system's texts, or English ones in place of all if one is missing or longer than 63 units.
    explicit MessageTexts(const Loader& loadSystemText);

    // Stores an own text unless `newText` is null. Gives the own text if there is one or `forceNew` is set,
    // else the system's; an empty one for a number that is no button.
    tvstring Get(int id, const char16_t* newText, bool forceNew);

private:
    struct Entry {
        tvstring system;
        tvstring own;
    };
    std::array<Entry, kMessageButtons> m_Entries;
};

// The text of the system's user-interface library.
tvstring LoadSystemButtonText(int id);
