#include "shell/command_line.h"

#include "foundation/textops.h"

StartMode StartModeOf(const tvstring& arguments) {
    struct Switch {
        const char16_t* text;
        StartMode mode;
    };
    constexpr Switch kSwitches[] = {
        {u"/shelladd", StartMode::RegisterFileType},
        {u"/shellremove", StartMode::DeregisterFileType},
        {u"/extractlang", StartMode::ExtractLanguage},
    };
    for (const Switch& known : kSwitches)
        if (FindNoCase(arguments, known.text) != kNoPosition) return known.mode;
    return StartMode::MainWindow;
}

tvstring PathFromArguments(tvstring arguments) {
    Trim(arguments, u" \r\n\t'\"", TRIM_BOTH);
    return arguments;
}
