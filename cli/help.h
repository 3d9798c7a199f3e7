// Help and manual page, both made from the table of commands.
#pragma once

#include <string>
#include <vector>

#include "cli/command_table.h"

// "vmr ls [options] FILE"
std::string Synopsis(const CommandInfo& command);

// "-n, --no-newline" or "--name NAME"
std::string OptionForms(const OptionInfo& option);

// A phrase of the table as a sentence.
std::string Sentence(const char* phrase);

// What `vmr --help`, `vmr COMMAND --help` and `vmr --exit-codes` print.
std::string ProgramHelp();
std::string CommandHelp(const CommandInfo& command);
std::string ExitCodeList();

// The manual page vmr(1) as troff source (man macros).
std::string ManualPage();

// "vmr 2.0.0"
std::string ProgramVersion();
