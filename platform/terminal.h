// Command-line programs: arguments, standard streams, interrupts and the terminal itself.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/types.h"

namespace platform {

// To be called before anything else: no core file and no crash dump of this process, since its memory holds
// secrets; on Windows libraries are looked for in the system's folder alone; a closed pipe is an error of the
// write instead of the program's end; a standard stream that was closed by the caller fails, rather than
// being whatever file is opened next.
void HardenProcess() noexcept;

// The arguments behind the program's name as UTF-8. On Linux they are the bytes given.
std::vector<std::string> CommandArguments(int argc, char** argv);

// A path argument in the form that the file operations take, and back.
std::u16string PathFromArgument(const std::string& argument);
std::string PathForMessage(const std::u16string& path);

enum class StandardStream { Output, Error };

// True if the stream is a terminal (on Windows a console).
bool IsTerminal(StandardStream stream) noexcept;

// Writes all bytes; false if the stream takes no more (closed pipe, full disk), with the last error. What
// goes to a console has to be UTF-8 that does not end inside a character.
bool WriteStream(StandardStream stream, const void* bytes, std::size_t size) noexcept;

// Something to read from that may be a pipe.
using InputFile = std::intptr_t;
inline constexpr InputFile kNoInput = -1;

InputFile StandardInput() noexcept;

// Opens a file of any kind for reading, waiting for the other end of a pipe; kNoInput on failure, with the
// last error.
InputFile OpenInput(const char16_t* path) noexcept;
void CloseInput(InputFile file) noexcept;

// Reads what is there, at least one byte and at most `size`, waiting if need be; 0 at the end, nothing on
// failure, with the last error.
std::optional<std::size_t> ReadInput(InputFile file, void* buffer, std::size_t size) noexcept;

// While one lives, what would end the process from outside (Ctrl+C, a polite kill) has to wait, so that a
// file is not left half written.
class InterruptGuard {
public:
    InterruptGuard() noexcept;
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

private:
    struct State;
    [[maybe_unused]] State* m_State;  // null where nothing has to be put back
};

// While one lives, what would end the process from outside is noted, so that something can be put right
// first.
class InterruptWatch {
public:
    InterruptWatch() noexcept;
    ~InterruptWatch();
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

    // Waits; true as soon as the process was to end, also before the call.
    bool Wait(u32 milliseconds) noexcept;

private:
    struct State;
    State* m_State;
};

enum class PromptResult { Ok, NoTerminal, TooLong, Interrupted };

// Asks on the controlling terminal, never on the standard streams, and reads one line without echo. The
// answer goes to `out` as UTF-8, at most `capacity` bytes with `length` saying how many; no line end. The
// echo is put back on every way out, signals that end or stop the process included. Interrupted means that
// the user pressed Ctrl+C.
PromptResult PromptSecret(const std::string& prompt, char* out, std::size_t capacity, std::size_t& length);

}  // namespace platform
