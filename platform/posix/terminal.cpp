#include "platform/terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <new>

#include "platform/posix/errno_map.h"
#include "platform/posix/path_bytes.h"

namespace platform {
namespace {

constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
constexpr int kPromptSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP};

int DescriptorOf(StandardStream stream) noexcept {
    return stream == StandardStream::Output ? STDOUT_FILENO : STDERR_FILENO;
}

// A descriptor below 3 that is closed would be given to the next file opened. What takes its place refuses
// every write, as the closed one did.
void OccupyStandardStreams() noexcept {
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (::fcntl(descriptor, F_GETFD) < 0 && ::open("/dev/null", O_RDONLY) < 0) return;
    }
}

template <std::size_t Count>
::sigset_t SetOf(const int (&signals)[Count]) noexcept {
    ::sigset_t set;
    ::sigemptyset(&set);
    for (const int number : signals)
        ::sigaddset(&set, number);
    return set;
}

volatile std::sig_atomic_t s_SignalSeen = 0;

void NoteSignal(int number) {
    s_SignalSeen = number;
}

// Catches the signals of a prompt. They are delivered only inside of WaitForInput, so none gets lost between
// a look at s_SignalSeen and the waiting.
class SignalWatch {
public:
    SignalWatch() noexcept {
        s_SignalSeen = 0;
        const ::sigset_t blocked = SetOf(kPromptSignals);
        ::sigprocmask(SIG_BLOCK, &blocked, &m_OldMask);
        struct sigaction action {};
        action.sa_handler = &NoteSignal;
        for (std::size_t i = 0; i < std::size(kPromptSignals); ++i) {
            ::sigaction(kPromptSignals[i], nullptr, &m_OldActions[i]);
            const bool ignored = m_OldActions[i].sa_handler == SIG_IGN;
            if (!ignored) ::sigaction(kPromptSignals[i], &action, nullptr);
        }
    }
    ~SignalWatch() {
        for (std::size_t i = 0; i < std::size(kPromptSignals); ++i)
            ::sigaction(kPromptSignals[i], &m_OldActions[i], nullptr);
        ::sigprocmask(SIG_SETMASK, &m_OldMask, nullptr);
    }
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

    // The signal that came while waiting, or 0 once there is something to read.
    [[nodiscard]] int WaitForInput(int descriptor) const noexcept {
        ::pollfd poll{descriptor, POLLIN, 0};
        while (::ppoll(&poll, 1, nullptr, &m_OldMask) < 0 && errno == EINTR) {
            if (s_SignalSeen != 0) return s_SignalSeen;
        }
        return 0;
    }

private:
    ::sigset_t m_OldMask{};
    struct sigaction m_OldActions[std::size(kPromptSignals)]{};
};

// The controlling terminal with its echo off.
class QuietTerminal {
public:
    explicit QuietTerminal(const std::string& prompt) noexcept
        : m_Descriptor(::open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        m_Usable = m_Descriptor >= 0 && ::tcgetattr(m_Descriptor, &m_Saved) == 0;
        if (m_Usable) Ask(prompt);
    }
    ~QuietTerminal() {
        if (m_Usable) Restore();
        if (m_Descriptor >= 0) ::close(m_Descriptor);
    }
    QuietTerminal(const QuietTerminal&) = delete;
    QuietTerminal& operator=(const QuietTerminal&) = delete;

    [[nodiscard]] bool Usable() const noexcept { return m_Usable; }
    [[nodiscard]] int Descriptor() const noexcept { return m_Descriptor; }

    // Echo off first: what is typed at the sight of the prompt is never shown.
    void Ask(const std::string& prompt) noexcept {
        ::termios quiet = m_Saved;
        quiet.c_lflag &= ~static_cast<::tcflag_t>(ECHO | ECHOE | ECHOK | ECHONL);
        quiet.c_lflag |= ICANON | ISIG;
        ::tcsetattr(m_Descriptor, TCSADRAIN, &quiet);
        Print(prompt.data(), prompt.size());
    }

    void Restore() noexcept {
        Print("\n", 1);
        ::tcsetattr(m_Descriptor, TCSADRAIN, &m_Saved);
    }

private:
    void Print(const char* text, std::size_t size) const noexcept {
        while (size > 0) {
            const ::ssize_t put = ::write(m_Descriptor, text, size);
            if (put <= 0) return;
            text += put;
            size -= static_cast<std::size_t>(put);
        }
    }

    int m_Descriptor;
    bool m_Usable = false;
    ::termios m_Saved{};
};

// Reads to the line's end, or the terminal's (Ctrl+D).
PromptResult ReadLine(QuietTerminal& terminal, const SignalWatch& watch, const std::string& prompt, char* out,
                      std::size_t capacity, std::size_t& length) noexcept {
    while (length < capacity) {
        const int signal = watch.WaitForInput(terminal.Descriptor());
        // Half an answer would otherwise show up at the shell's prompt.
        if (signal != 0) ::tcflush(terminal.Descriptor(), TCIFLUSH);
        if (signal == SIGTSTP) {
            s_SignalSeen = 0;
            length = 0;
            terminal.Restore();
            ::raise(SIGSTOP);
            terminal.Ask(prompt);
            continue;
        }
        if (signal != 0) return PromptResult::Interrupted;
        const ::ssize_t got = ::read(terminal.Descriptor(), out + length, capacity - length);
        if (got < 0) return PromptResult::NoTerminal;
        length += static_cast<std::size_t>(got);
        if (got == 0 || out[length - 1] == '\n') {
            if (got != 0) --length;
            return PromptResult::Ok;
        }
    }
    ::tcflush(terminal.Descriptor(), TCIFLUSH);
    return PromptResult::TooLong;
}

}  // namespace

void HardenProcess() noexcept {
    const ::rlimit none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
    ::prctl(PR_SET_DUMPABLE, 0);
    std::signal(SIGPIPE, SIG_IGN);
    OccupyStandardStreams();
}

std::vector<std::string> CommandArguments(int argc, char** argv) {
    return argc < 2 ? std::vector<std::string>() : std::vector<std::string>(argv + 1, argv + argc);
}

std::u16string PathFromArgument(const std::string& argument) {
    return PathUnits(argument);
}

std::string PathForMessage(const std::u16string& path) {
    return PathBytes(path);
}

bool IsTerminal(StandardStream stream) noexcept {
    return ::isatty(DescriptorOf(stream)) == 1;
}

bool WriteStream(StandardStream stream, const void* bytes, std::size_t size) noexcept {
    const auto* rest = static_cast<const char*>(bytes);
    while (size > 0) {
        const ::ssize_t put = ::write(DescriptorOf(stream), rest, size);
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) {
            TakeErrno();
            return false;
        }
        rest += put;
        size -= static_cast<std::size_t>(put);
    }
    return true;
}

InputFile StandardInput() noexcept {
    return STDIN_FILENO;
}

InputFile OpenInput(const char16_t* path) noexcept {
    const int descriptor = ::open(PathBytes(path).c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0) TakeErrno();
    return descriptor;
}

void CloseInput(InputFile file) noexcept {
    if (file != kNoInput) ::close(static_cast<int>(file));
}

std::optional<std::size_t> ReadInput(InputFile file, void* buffer, std::size_t size) noexcept {
    for (;;) {
        const ::ssize_t got = ::read(static_cast<int>(file), buffer, size);
        if (got >= 0) return static_cast<std::size_t>(got);
        if (errno == EINTR) continue;
        TakeErrno();
        return std::nullopt;
    }
}

struct InterruptGuard::State {
    ::sigset_t oldMask;
};

InterruptGuard::InterruptGuard() noexcept : m_State(new (std::nothrow) State) {
    const ::sigset_t blocked = SetOf(kEndingSignals);
    if (m_State != nullptr) ::sigprocmask(SIG_BLOCK, &blocked, &m_State->oldMask);
}

InterruptGuard::~InterruptGuard() {
    if (m_State != nullptr) ::sigprocmask(SIG_SETMASK, &m_State->oldMask, nullptr);
    delete m_State;
}

struct InterruptWatch::State {
    InterruptGuard guard;
};

InterruptWatch::InterruptWatch() noexcept : m_State(new (std::nothrow) State) {}

InterruptWatch::~InterruptWatch() {
    delete m_State;
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): on Windows it needs what the object holds
bool InterruptWatch::Wait(u32 milliseconds) noexcept {
    using Clock = std::chrono::steady_clock;
    using std::chrono::nanoseconds;
    constexpr long kPerSecond = 1'000'000'000;
    const ::sigset_t awaited = SetOf(kEndingSignals);
    const Clock::time_point end = Clock::now() + std::chrono::milliseconds(milliseconds);
    // Being stopped and continued ends the system's waiting too early.
    for (;;) {
        const long left = std::chrono::duration_cast<nanoseconds>(end - Clock::now()).count();
        if (left <= 0) return false;
        const ::timespec limit{left / kPerSecond, left % kPerSecond};
        if (::sigtimedwait(&awaited, nullptr, &limit) > 0) return true;
    }
}

PromptResult PromptSecret(const std::string& prompt, char* out, std::size_t capacity, std::size_t& length) {
    length = 0;
    PromptResult result = PromptResult::NoTerminal;
    {
        const SignalWatch watch;
        QuietTerminal terminal(prompt);
        if (!terminal.Usable()) return result;
        result = ReadLine(terminal, watch, prompt, out, capacity, length);
    }
    // Everything is as it was: a signal other than the user's Ctrl+C may now do what it was sent for.
    if (result == PromptResult::Interrupted && s_SignalSeen != SIGINT) ::raise(s_SignalSeen);
    return result;
}

}  // namespace platform
