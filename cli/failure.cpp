#include "cli/failure.h"

#include "platform/error.h"
#include "platform/terminal.h"

Failure Failure::OfFile(std::string message) {
    const u32 error = platform::LastError();
    if (error != platform::kErrorNone) message += ": " + platform::ErrorText(error);
    return {ExitCode::FileFailed, std::move(message)};
}

// A message may tell a path, and a path may hold what a terminal takes for a command.
static std::string WithoutControls(std::string line) {
    for (std::size_t i = 0; i < line.size(); ++i) {
        const auto byte = static_cast<unsigned char>(line[i]);
        const bool isC1 =
            byte == 0xC2 && i + 1 < line.size() && static_cast<unsigned char>(line[i + 1]) < 0xA0;
        if (isC1) line.erase(i, 1);
        if (isC1 || byte < 0x20 || byte == 0x7F) line[i] = '?';
    }
    return line;
}

void PrintMessage(const std::string& message) noexcept {
    try {
        const std::string line = "vmr: " + WithoutControls(message) + "\n";
        platform::WriteStream(platform::StandardStream::Error, line.data(), line.size());
    } catch (const std::exception&) {
        // Without memory for the line there is nothing left to tell; the exit code does.
    }
}
