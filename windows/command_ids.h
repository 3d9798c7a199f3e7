// The ids of the program's commands. Those from 0x8003 on are the main window's; those below 0x8000 are ids
// of controls that are commands of a pane as well.
#pragma once

#include "platform/types.h"

enum CommandId : u16 {
    CMD_FONT = 0x8003,
    CMD_ABOUT = 0x8004,
    CMD_HELP = 0x8005,
    CMD_NEW = 0x8008,
    CMD_OPEN = 0x8009,
    CMD_SAVE = 0x800A,
    CMD_SAVE_AS = 0x800B,
    CMD_CLOSE = 0x800C,
    CMD_EXPORT = 0x800D,
    CMD_ADD = 0x800E,
    CMD_RENAME = 0x800F,  // the database; in the menu of a list its element
    CMD_SET_PASSWORD = 0x8010,
    CMD_COPY = 0x8011,
    CMD_CUT = 0x8012,
    CMD_PASTE = 0x8013,
    CMD_MERGE = 0x8014,
    CMD_SELECT_ALL = 0x8015,
    CMD_DESELECT_ALL = 0x8016,
    CMD_INVERT_SELECTION = 0x8017,
    CMD_RECENT_CLEAR = 0x8018,
    CMD_CLEAR_CLIPBOARD = 0x8019,
    CMD_AUTO_SAVE = 0x801A,
    CMD_HISTORY = 0x801B,
    CMD_AUTO_OPEN = 0x801C,
    CMD_FILE_TYPE = 0x801D,
    CMD_FILTER_ALL = 0x801E,
    CMD_FILTER_EXACT = 0x801F,
    CMD_FILTER_ANY = 0x8020,
    CMD_FILTER_WITHOUT = 0x8021,
    CMD_FILTER_PASSWORDS = 0x8022,
    CMD_BROWSE = 0x8023,  // of the input dialog, in no menu
    CMD_UNDO = 0x8024,

    CMD_MAIN_MENU = 2006,
    CMD_MOVE_UP = 2007,
    CMD_MOVE_DOWN = 2008,
    CMD_REMOVE = 2009,
    CMD_DETAIL_MODIFY = 2010,
    CMD_DETAIL_COPY = 2011,
    CMD_DETAIL_GO = 2012,
    CMD_DETAIL_SHOW_PASSWORD = 2013,

    // One for each theme, and for each language, by their places in the lists.
    CMD_FIRST_THEME = 10111,
    CMD_LAST_THEME = 10211,
    CMD_FIRST_LANGUAGE = 10222,
    CMD_LAST_LANGUAGE = 10322,
};
