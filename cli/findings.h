// What the checks of files for languages and themes print: a line for each finding, or all of them as JSON.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/exit_code.h"
#include "cli/invocation.h"
#include "foundation/tvstring.h"

struct PrintedFinding {
    std::size_t line = 0;             // 0 for the whole file
    std::string_view kind;            // in JSON
    std::string_view text;            // what it is, for readers
    std::optional<tvstring> section;  // where findings are told by sections
    tvstring key;
    tvstring detail;
};

// A kind of finding as it is printed.
template <typename Kind>
struct FindingName {
    Kind kind;
    std::string_view name;
    std::string_view text;
};

// The first name if there is none for the kind.
template <typename Kind, std::size_t count>
const FindingName<Kind>& NameOf(const FindingName<Kind> (&names)[count], Kind kind) {
    for (const FindingName<Kind>& name : names)
        if (name.kind == kind) return name;
    return names[0];
}

// Gives the command's exit code.
ExitCode PrintFindings(const Invocation& invocation, const std::string& path,
                       const std::vector<PrintedFinding>& findings);
