// The commands, one function each. They write data to standard output and throw a Failure.
#pragma once

#include "cli/exit_code.h"

class Invocation;

// files (commands_file.cpp)
ExitCode RunNew(const Invocation& invocation);
ExitCode RunPasswd(const Invocation& invocation);
ExitCode RunExport(const Invocation& invocation);
ExitCode RunConvert(const Invocation& invocation);

// reading (commands_read.cpp)
ExitCode RunInfo(const Invocation& invocation);
ExitCode RunShow(const Invocation& invocation);
ExitCode RunGet(const Invocation& invocation);

// the view of the items (command_list.cpp)
ExitCode RunList(const Invocation& invocation);

// changing (commands_change.cpp)
ExitCode RunAdd(const Invocation& invocation);
ExitCode RunSet(const Invocation& invocation);
ExitCode RunRemove(const Invocation& invocation);
ExitCode RunMove(const Invocation& invocation);
ExitCode RunMerge(const Invocation& invocation);
ExitCode RunRename(const Invocation& invocation);

// everything as JSON (command_dump.cpp, command_load.cpp)
ExitCode RunDump(const Invocation& invocation);
ExitCode RunLoad(const Invocation& invocation);

// random passwords (generate_options.cpp)
ExitCode RunGenerate(const Invocation& invocation);

// the clipboard (command_clip.cpp)
ExitCode RunClip(const Invocation& invocation);

// theme files (commands_theme.cpp)
ExitCode RunThemeCheck(const Invocation& invocation);
ExitCode RunThemeShow(const Invocation& invocation);

// language files (commands_lang.cpp)
ExitCode RunLangCheck(const Invocation& invocation);
ExitCode RunLangDump(const Invocation& invocation);
ExitCode RunLangText(const Invocation& invocation);
