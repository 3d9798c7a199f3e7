// What panes tell the main window, which hands it on to those that are concerned. No pane knows another.
#pragma once

#include <cstdint>

#include "platform/types.h"

// An argument of a notification: a number or a pointer, as the code says.
using NotifyArgument = std::intptr_t;

template <typename Target>
NotifyArgument AsArgument(Target* pointer) noexcept {
    return reinterpret_cast<NotifyArgument>(pointer);
}
template <typename Target>
Target* FromArgument(NotifyArgument argument) noexcept {
    return reinterpret_cast<Target*>(argument);
}

enum AppNotification : i32 {
    // All texts have to be set again.
    APPN_LANGUAGE = 1,
    // The database's name, or whether it is changed, may differ.
    APPN_TOPBAR = 2,
    // The list of databases used last may differ.
    APPN_START = 3,
    // Show an item's details. a: its VMRD_Element, or null for none.
    APPN_SHOWITEM = 4,
    // Something for the status bar. a: StatusNotification; b, c: see there.
    APPN_STATUS = 5,
    // An item was edited. a: not 0 if its rows are to be sorted again, 0 if they are to be built anew.
    APPN_ITEMCHANGED = 6,
    // The options of the search have changed.
    APPN_FILTERCHANGED = 7,
    // A list got a key that is a command. a: the command, b: the list's window.
    APPN_FORWARDCMD = 8,
    // Rename the item that is shown.
    APPN_RENAMEITEM = 9,
    // Open a database. a: its path, as const char16_t*; b: not 0 to say nothing about a file that is missing.
    APPN_OPENDB = 10,
    // The list of items. a: not 0 takes it away from the database, before that is replaced; 0 fills it anew,
    // then b: the row to select or -1, c: not 0 to give it the focus.
    APPN_DBLIST = 11,
    // Elements were changed by an undo: their rows are to be selected. a: the VMRD_Object that owns them, b:
    // the ElementArray, c: not 0 to add to the selection.
    APPN_ROWSCHANGED = 12,
};

// The argument a of APPN_STATUS.
enum StatusNotification : i32 {
    STATUS_REPAINT = 0,
    STATUS_COUNTS = 1,  // b: rows shown, c: rows selected
    // b: the text, as const char16_t*; null takes away the one that is shown.
    STATUS_INFORMATION = 2,
    STATUS_ERROR = 3,
    STATUS_WARNING = 4,
};
