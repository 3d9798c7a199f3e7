#include "cli/command_table.h"

#include <iterator>

#include "cli/commands.h"

namespace {

constexpr OptionInfo kOptions[] = {
    {Option::Help, 'h', OptionTimes::Once, "help", nullptr, "print help and do nothing else"},
    {Option::NoInput, 0, OptionTimes::Once, "no-input", nullptr,
     "fail with exit code 2 instead of asking on the terminal"},
    {Option::CodePage, 0, OptionTimes::Once, "codepage", "N",
     "the code page of databases of the old format and of texts without a mark (default: the system's; "
     "1252 on Linux)"},
    {Option::Json, 0, OptionTimes::Once, "json", nullptr, "print JSON"},
    {Option::PasswordStdin, 0, OptionTimes::Once, "password-stdin", nullptr,
     "read the master password from the first line of standard input"},
    {Option::PasswordFile, 0, OptionTimes::Once, "password-file", "F",
     "read the master password from the first line of the file F"},
    {Option::NewPasswordFile, 0, OptionTimes::Once, "new-password-file", "F",
     "read the new master password from the first line of the file F"},
    {Option::Name, 0, OptionTimes::Once, "name", "NAME", "the name of the database"},
    {Option::Force, 0, OptionTimes::Once, "force", nullptr, "overwrite a file that exists"},
    {Option::NullEnds, '0', OptionTimes::Once, "null", nullptr,
     "end each name with a zero byte instead of a line end, and print it as it is"},
    {Option::Reveal, 0, OptionTimes::Once, "reveal", nullptr, "show passwords"},
    {Option::NoLineEnd, 'n', OptionTimes::Once, "no-newline", nullptr, "print no line end behind the value"},
    {Option::Program, 0, OptionTimes::Once, "program", "P", "the program, document or URL"},
    {Option::UserName, 0, OptionTimes::Once, "username", "U", "the user name"},
    {Option::SecretStdin, 0, OptionTimes::Once, "secret-stdin", nullptr,
     "read the item's password from standard input"},
    {Option::SecretFile, 0, OptionTimes::Once, "secret-file", "F",
     "read the item's password from the file F"},
    {Option::Note, 0, OptionTimes::Any, "note", "TEXT", "an additional text; may be repeated"},
    {Option::ValueStdin, 0, OptionTimes::Once, "stdin", nullptr, "read the value from standard input"},
    {Option::ValueFile, 0, OptionTimes::Once, "value-file", "F", "read the value from the file F"},
    {Option::Search, 0, OptionTimes::Once, "search", "TEXT",
     "only items with these words in any field, letter case ignored"},
    {Option::Mode, 0, OptionTimes::Once, "mode", "MODE",
     "how words count: all (default), exact (the whole text as it stands), any, or without"},
    {Option::InPasswords, 0, OptionTimes::Once, "in-passwords", nullptr, "search in passwords too"},
    {Option::Sort, 0, OptionTimes::Once, "sort", "ORDER",
     "none (default: as stored), az, za, newold or oldnew"},
    {Option::Generate, 0, OptionTimes::Once, "generate", nullptr, "make a random password for the item"},
    {Option::Min, 0, OptionTimes::Once, "min", "N",
     "the shortest length, from 4 to 128 (default 12, or --max if that is less)"},
    {Option::Max, 0, OptionTimes::Once, "max", "N",
     "the longest length, from 4 to 128 (default 20, or --min if that is more)"},
    {Option::Upper, 0, OptionTimes::Once, "upper", nullptr, "use upper-case letters"},
    {Option::Lower, 0, OptionTimes::Once, "lower", nullptr, "use lower-case letters"},
    {Option::Digits, 0, OptionTimes::Once, "digits", nullptr, "use digits"},
    {Option::Other, 0, OptionTimes::Once, "other", nullptr, "use punctuation and other signs"},
    {Option::HowMany, 0, OptionTimes::Once, "count", "N", "how many passwords (default 1)"},
    {Option::Timeout, 0, OptionTimes::Once, "timeout", "S",
     "seconds until the clipboard is cleared, from 1 to 86400 (default 15)"},
    {Option::Version, 0, OptionTimes::Once, "version", nullptr, "print the version"},
    {Option::ExitCodes, 0, OptionTimes::Once, "exit-codes", nullptr, "print the exit codes"},
    {Option::Manual, 0, OptionTimes::Once, "man", nullptr, "print the manual page as troff source"},
};
static_assert(std::size(kOptions) == static_cast<std::size_t>(Option::Count));

constexpr Option kCommonOptions[] = {Option::NoInput, Option::CodePage, Option::Help};
constexpr Option kProgramOptions[] = {Option::Help, Option::Version, Option::ExitCodes, Option::Manual};

constexpr ArgumentInfo kFile = {"FILE", ArgumentCount::One, "the database"};
constexpr ArgumentInfo kItem = {"ITEM", ArgumentCount::One, "the item: its name, or @N"};
constexpr ArgumentInfo kField = {"FIELD", ArgumentCount::One, "name, program, username, password or note:N"};
constexpr ArgumentInfo kLangFile = {"LANGFILE", ArgumentCount::One, "the language file"};

constexpr ArgumentInfo kFileArguments[] = {kFile};
constexpr ArgumentInfo kShowArguments[] = {kFile, kItem};
constexpr ArgumentInfo kGetArguments[] = {kFile, kItem, kField};
constexpr ArgumentInfo kAddArguments[] = {kFile, {"NAME", ArgumentCount::One, "the name of the new item"}};
constexpr ArgumentInfo kSetArguments[] = {
    kFile,
    kItem,
    {"FIELD", ArgumentCount::One, "name, program, username, password, note:N, or note:+ for a new text"},
    {"VALUE", ArgumentCount::Optional, "the new text; never for a password"},
};
constexpr ArgumentInfo kRemoveArguments[] = {
    kFile, {"ITEM", ArgumentCount::OneOrMore, "the items: names, or @N as they are before the removal"}};
constexpr ArgumentInfo kMoveArguments[] = {
    kFile, kItem, {"DIRECTION", ArgumentCount::One, "up or down, by one place"}};
constexpr ArgumentInfo kMergeArguments[] = {
    kFile,
    {"ITEM", ArgumentCount::One, "the item that stays, with its basic entries"},
    {"OTHER", ArgumentCount::One, "the item whose texts it gets as additional ones"},
};
constexpr ArgumentInfo kRenameArguments[] = {kFile, {"NAME", ArgumentCount::One, "the new name"}};
constexpr ArgumentInfo kExportArguments[] = {
    kFile, {"OUT", ArgumentCount::One, "the file to write: HTML for .htm and .html, otherwise CSV"}};
constexpr ArgumentInfo kConvertArguments[] = {
    {"OLD", ArgumentCount::One, "the database of the old format"},
    {"NEW", ArgumentCount::One, "the database to make"},
};
constexpr ArgumentInfo kLoadArguments[] = {
    {"JSON", ArgumentCount::One, "what dump printed; - for standard input"},
    {"FILE", ArgumentCount::One, "the database to make"},
};
constexpr ArgumentInfo kLangArguments[] = {kLangFile};
constexpr ArgumentInfo kLangTextArguments[] = {
    kLangFile,
    {"SECTION", ArgumentCount::One, "the section; empty for global"},
    {"KEY", ArgumentCount::One, "the key"},
    {"ARG", ArgumentCount::Any, "the texts for %0 to %5"},
};

constexpr ArgumentInfo kThemeArguments[] = {{"THEMEFILE", ArgumentCount::One, "the theme file"}};

constexpr Option kOpening[] = {Option::PasswordStdin, Option::PasswordFile};
constexpr Option kOpeningJson[] = {Option::Json, Option::PasswordStdin, Option::PasswordFile};
constexpr Option kListing[] = {Option::Search,   Option::Mode, Option::InPasswords,   Option::Sort,
                               Option::NullEnds, Option::Json, Option::PasswordStdin, Option::PasswordFile};
constexpr Option kShowing[] = {Option::Reveal, Option::Json, Option::PasswordStdin, Option::PasswordFile};
constexpr Option kGetting[] = {Option::NoLineEnd, Option::Json, Option::PasswordStdin, Option::PasswordFile};
constexpr Option kMaking[] = {Option::Name, Option::Force, Option::PasswordStdin, Option::PasswordFile};
constexpr Option kLoading[] = {Option::Force, Option::PasswordStdin, Option::PasswordFile};
constexpr Option kAdding[] = {
    Option::Program,  Option::UserName, Option::SecretStdin,   Option::SecretFile,  Option::Note,
    Option::Generate, Option::Min,      Option::Max,           Option::Upper,       Option::Lower,
    Option::Digits,   Option::Other,    Option::PasswordStdin, Option::PasswordFile};
constexpr Option kSetting[] = {Option::ValueStdin, Option::ValueFile,     Option::Generate,    Option::Min,
                               Option::Max,        Option::Upper,         Option::Lower,       Option::Digits,
                               Option::Other,      Option::PasswordStdin, Option::PasswordFile};
constexpr Option kGenerating[] = {Option::Min,    Option::Max,   Option::Upper,   Option::Lower,
                                  Option::Digits, Option::Other, Option::HowMany, Option::Json};
constexpr Option kClipping[] = {Option::Timeout, Option::PasswordStdin, Option::PasswordFile};
constexpr Option kRekeying[] = {Option::PasswordStdin, Option::PasswordFile, Option::NewPasswordFile};
constexpr Option kConverting[] = {Option::Force, Option::PasswordStdin, Option::PasswordFile,
                                  Option::NewPasswordFile};
constexpr Option kJsonOnly[] = {Option::Json};

constexpr CommandInfo kCommands[] = {
    {"new", kFileArguments, kMaking, "make a new database",
     "The database holds one item with empty entries. --name has to be given. The master password is asked "
     "for twice. A file that exists is left alone without --force.",
     &RunNew},
    {"info", kFileArguments, kOpeningJson, "tell about a database",
     "Prints the format (current or old), the name, the numbers of items and entries, the size of the file "
     "and the plain size: the bytes of the records before encryption; for the old format, what they would "
     "be in the current one.",
     &RunInfo},
    {"ls", kFileArguments, kListing, "list the names of the items",
     "One a line; a line break inside a name is printed as a blank. Fields are the name, the program, the "
     "user "
     "name, the additional texts and, with --in-passwords, the password. With --mode all, a word that stands "
     "in two fields makes up for one that is missing. Others can see the words of --search: give no password "
     "there.",
     &RunList},
    {"show", kShowArguments, kShowing, "show one item", "Passwords are hidden without --reveal.", &RunShow},
    {"get", kGetArguments, kGetting, "print one field",
     "The value as it is stored, with one line end behind it.", &RunGet},
    {"add", kAddArguments, kAdding, "append an item",
     "The password is empty unless --secret-stdin, --secret-file or --generate is given. With --generate it "
     "is "
     "made as by the command generate, and not printed.",
     &RunAdd},
    {"set", kSetArguments, kSetting, "change a field",
     "The new text is VALUE, or comes from --stdin or --value-file. A password is never an argument: "
     "without an option it is asked for on the terminal, twice. With --generate it is made as by the command "
     "generate, and not printed. note:+ appends an additional text.",
     &RunSet},
    {"rm", kRemoveArguments, kOpening, "remove items", "", &RunRemove},
    {"move", kMoveArguments, kOpening, "move an item one place up or down",
     "Fails with exit code 1 where there is no such place.", &RunMove},
    {"merge", kMergeArguments, kOpening, "merge two items into the first",
     "The texts of the second become additional texts of the first, and the second is removed.", &RunMerge},
    {"rename", kRenameArguments, kOpening, "change the name of a database", "", &RunRename},
    {"passwd", kFileArguments, kRekeying, "change the master password",
     "The new one is asked for twice, or comes from the second line of standard input with "
     "--password-stdin, or from --new-password-file.",
     &RunPasswd},
    {"export", kExportArguments, kOpening, "write everything in clear as HTML or CSV",
     "All passwords are readable in the file. A file that exists is overwritten.", &RunExport},
    {"convert", kConvertArguments, kConverting, "make a current database of one in the old format",
     "The new one has a master password of its own, given in the ways that passwd takes. A file that "
     "exists is left alone without --force.",
     &RunConvert},
    {"dump", kFileArguments, kOpeningJson, "print everything in clear as JSON",
     "All passwords are readable in the output. It is JSON with and without --json.", &RunDump},
    {"load", kLoadArguments, kLoading, "make a database from what dump printed",
     "The inverse of dump. The date of an item is \"date\" or else \"modified\", or else the present time. "
     "With - and --password-stdin the first line of standard input is the master password, the rest the "
     "JSON. A file that exists is left alone without --force.",
     &RunLoad},
    {"generate",
     {},
     kGenerating,
     "make random passwords",
     "One a line. The classes are those that are named, or else --upper, --lower and --digits; each of them "
     "is "
     "in every password. The letters I, O and l are left out. Lengths outside of 4 to 128 are taken as the "
     "nearest one.",
     &RunGenerate},
    {"clip", kGetArguments, kClipping, "put one field on the clipboard for a while",
     "Waits, then clears the clipboard if it still holds that text; Ctrl+C clears it at once. On Linux it "
     "takes "
     "wl-copy and wl-paste (Wayland) or xclip (X11).",
     &RunClip},
    {"theme check", kThemeArguments, kJsonOnly, "check a theme file",
     "Prints what is wrong, with line numbers: lines that are no pair, unknown, missing and repeated keys, "
     "values that are no colour, and references that lead nowhere or back. Exit code 8 if there is anything.",
     &RunThemeCheck},
    {"theme show", kThemeArguments, kJsonOnly, "print the name and the colours of a theme file",
     "The colours of the twelve roles as #rrggbb.", &RunThemeShow},
    {"lang check", kLangArguments, kJsonOnly, "check a language file",
     "Prints lines that are no pair, keys that come twice, are missing or unknown, and references that "
     "resolve to nothing, with their line numbers. Exit code 8 if there are any.",
     &RunLangCheck},
    {"lang dump", kLangArguments, kJsonOnly, "print all texts of a language file as JSON",
     "{section:{key:text}}, with the file laid over the built-in texts and references resolved, before "
     "arguments are put in. It is JSON with and without --json.",
     &RunLangDump},
    {"lang text", kLangTextArguments, kJsonOnly, "print one text of a language file",
     "The text as the program shows it, with the arguments in place of %0 to %5.", &RunLangText},
};

constexpr HelpTopic kTopics[] = {
    {"Items",
     "ITEM is an exact name, or @N for the N-th item in stored order, from 1. A name that starts with @ is "
     "written with one more @ in front. A name that several items have is refused with their places."},
    {"Fields", "FIELD is name, program, username, password, or note:N for the N-th additional text, from 1."},
    {"Passwords",
     "The master password is asked for on the terminal, without echo, unless --password-stdin or "
     "--password-file is given. Only the first line counts, without its line end. No option and no argument "
     "takes a secret, since other users could see it. A password or value from standard input follows the "
     "line of the master password where that comes from there too; one line end at its end is cut."},
    {"Output",
     "Standard output carries data alone, in UTF-8; messages go to standard error. JSON holds \"version\":1. "
     "In it, a text that is not valid UTF-16 keeps each odd unit as an escape \\uXXXX."},
};

}  // namespace

std::span<const CommandInfo> Commands() {
    return kCommands;
}

std::span<const Option> CommonOptions() {
    return kCommonOptions;
}

std::span<const Option> ProgramOptions() {
    return kProgramOptions;
}

const OptionInfo& InfoOf(Option option) {
    return kOptions[static_cast<std::size_t>(option)];
}

std::span<const HelpTopic> HelpTopics() {
    return kTopics;
}
