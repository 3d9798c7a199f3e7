// The one table of commands, arguments and options. The parser, the help, the man page and the program's
// dispatch are all made from it.
#pragma once

#include <span>
#include <string_view>

#include "cli/exit_code.h"

class Invocation;

enum class Option : u8 {
    Help,
    NoInput,
    CodePage,
    Json,
    PasswordStdin,
    PasswordFile,
    NewPasswordFile,
    Name,
    Force,
    NullEnds,
    Reveal,
    NoLineEnd,
    Program,
    UserName,
    SecretStdin,
    SecretFile,
    Note,
    ValueStdin,
    ValueFile,
    Search,
    Mode,
    InPasswords,
    Sort,
    Generate,
    Min,
    Max,
    Upper,
    Lower,
    Digits,
    Other,
    HowMany,
    Timeout,
    // of the program alone, without a command
    Version,
    ExitCodes,
    Manual,
    Count,
};

enum class OptionTimes : u8 { Once, Any };

struct OptionInfo {
    Option id;
    char letter;  // of the short form, or 0
    OptionTimes times;
    const char* name;   // of the long form without its dashes
    const char* value;  // what the value is called, or null for an option without one
    const char* help;
};

enum class ArgumentCount : u8 { One, Optional, OneOrMore, Any };

struct ArgumentInfo {
    const char* name;
    ArgumentCount count;
    const char* help;
};

struct CommandInfo {
    const char* name;  // one word, or two with a blank between them
    std::span<const ArgumentInfo> arguments;
    std::span<const Option> options;  // besides the common ones
    const char* summary;              // one line without a full stop
    const char* details;              // further lines, or an empty text
    ExitCode (*run)(const Invocation& invocation);
};

std::span<const CommandInfo> Commands();

// The options that every command has, and those that stand without a command.
std::span<const Option> CommonOptions();
std::span<const Option> ProgramOptions();

const OptionInfo& InfoOf(Option option);

// What is said of the program and of the ways to name items, fields and secrets: headed paragraphs.
struct HelpTopic {
    const char* title;
    const char* text;
};
std::span<const HelpTopic> HelpTopics();
