#include "cli/failure.h"

#include "platform/error.h"
#include "platform/terminal.h"

Failure Failure::OfFile(std::string message) {
    const u32 error = platform::LastError();
    if (error != platform::kErrorNone) message += ": " + platform::ErrorText(error);
    return {ExitCode::FileFailed, std::move(message)};
}

void PrintMessage(const std::string& message) noexcept {
    try {
        const std::string line = "vmr: " + message + "\n";
        platform::WriteStream(platform::StandardStream::Error, line.data(), line.size());
    } catch (const std::exception&) {
        // Without memory for the line there is nothing left to tell; the exit code does.
    }
}
