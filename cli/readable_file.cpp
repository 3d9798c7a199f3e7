#include "cli/readable_file.h"

#include "cli/failure.h"
#include "platform/error.h"
#include "platform/terminal.h"

void RequireReadable(const std::string& path) {
    char byte = 0;
    const platform::InputFile file = platform::OpenInput(platform::PathFromArgument(path).c_str());
    const bool readable = file != platform::kNoInput && platform::ReadInput(file, &byte, 1).has_value();
    const u32 error = platform::LastError();
    platform::CloseInput(file);
    platform::SetLastError(error);
    if (!readable) throw Failure::OfFile("cannot read " + path);
}
