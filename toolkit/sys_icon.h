// The system's icons of messages, and those that the program adds.
#pragma once

#include <map>

#include "toolkit/handle.h"

// Odd keys are large, even ones small.
enum SystemIcon : int {
    ICON_APPLICATION = 1,
    ICON_APPLICATION_SMALL = 2,
    ICON_INFORMATION = 3,
    ICON_INFORMATION_SMALL = 4,
    ICON_WARNING = 5,
    ICON_WARNING_SMALL = 6,
    ICON_ERROR = 7,
    ICON_ERROR_SMALL = 8,
    ICON_QUESTION = 9,
    ICON_QUESTION_SMALL = 10,
};

class tvsysicon {
public:
    tvsysicon() = default;
    ~tvsysicon();
    tvsysicon(const tvsysicon&) = delete;
    tvsysicon& operator=(const tvsysicon&) = delete;

    // Null for an unknown key. Not to be destroyed.
    HICON Find(int key);

    // Stores an icon, which is owned from now on, with its size.
    void Add(int key, HICON icon);

    // In pixels; all zero for an unknown key.
    SIZE SizeOf(int key);

private:
    void Load();

    // --- Fields, in their order ---

    std::map<int, HICON> m_stockIcons;
    std::map<int, HICON> m_userIcons;
    std::map<int, SIZE> m_sizes;
    bool m_loaded = false;
};
