// The list of the databases that were used last. Each process holds a copy and writes it whole; a time stamp
// tells whose copy is out of date. Nothing here is told to the user, and nothing fails but the store.
//
// In the store, under kRecentKey: "File1", "File2", ... without gaps, newest first, each the path and, if
// there is a name, "|" and the name; and "lastUpdated", the time of the last write.
#pragma once

#include <deque>

#include "foundation/tvstring.h"

struct RecentItem {
    tvstring path;  // full path of the database
    tvstring name;  // its display name when it was last used; may be empty
};

class RecentList {
public:
    static constexpr std::size_t kLongestName = 260;

    // Replaces the list by the stored one; false, with the list as it was, if the store cannot be read or is
    // older than the list.
    bool LoadRecent();

    // Writes the whole list; false if the store cannot be opened for writing.
    bool StoreRecent();

    // Puts an entry at the front, with what another process has stored meanwhile behind it. An older entry
    // of the same path (letter case ignored) goes. The name is cut to kLongestName units. An empty path does
    // nothing.
    void AddRecent(const tvstring& path, const tvstring& name);

    // Takes one entry out; false if there is none at the index.
    bool RemoveRecent(int index);

    // Empties the list, here and in the store.
    void ClearRecent();

    // --- Fields, in their order ---

    std::deque<RecentItem> recentItems;  // newest at the front
    i32 recentMax = 8;                   // most entries that the list keeps
    u64 recentLastUpdated = 0;           // when the list was last read or written: a file time in UTC
};

// The form of an entry in the store and back; false for a text that is empty or begins with "|". The form has
// no escape: a "|" in a path parts it.
tvstring FormatRecent(const RecentItem& item);
bool ParseRecent(const tvstring& text, RecentItem& item);
