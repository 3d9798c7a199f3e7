#include "platform/posix/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <string>
#include <string_view>

namespace platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kPatience = std::chrono::seconds(5);

class Descriptor {
public:
    explicit Descriptor(int number) noexcept : m_Number(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int Get() const noexcept { return m_Number; }
    void Close() noexcept {
        if (m_Number >= 0) ::close(m_Number);
        m_Number = -1;
    }

private:
    int m_Number;
};

struct Pipe {
    Pipe() noexcept : Pipe(MakePair()) {}

    Descriptor read;
    Descriptor write;

private:
    struct Pair {
        int ends[2] = {-1, -1};
    };
    static Pair MakePair() noexcept {
        Pair pair;
        if (::pipe2(pair.ends, O_CLOEXEC) != 0) pair = {};
        return pair;
    }
    explicit Pipe(const Pair& pair) noexcept : read(pair.ends[0]), write(pair.ends[1]) {}
};

// Starts a program with these descriptors as its input and output; -1 stands for nothing at all. Signals do
// to it what they do to any program, whatever this one has blocked.
::pid_t Start(std::span<const char* const> command, int input, int output) noexcept {
    ::posix_spawn_file_actions_t actions;
    ::posix_spawnattr_t attributes;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawnattr_init(&attributes);
    const auto connect = [&actions](int target, int source, int mode) {
        if (source >= 0) {
            ::posix_spawn_file_actions_adddup2(&actions, source, target);
        } else {
            ::posix_spawn_file_actions_addopen(&actions, target, "/dev/null", mode, 0);
        }
    };
    connect(STDIN_FILENO, input, O_RDONLY);
    connect(STDOUT_FILENO, output, O_WRONLY);
    connect(STDERR_FILENO, -1, O_WRONLY);
    ::sigset_t none;
    ::sigset_t usual;
    ::sigemptyset(&none);
    ::sigemptyset(&usual);
    ::sigaddset(&usual, SIGPIPE);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setsigdefault(&attributes, &usual);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    std::vector<char*> arguments;
    for (const char* argument : command) {
        arguments.push_back(
            const_cast<char*>(argument));  // NOLINT: the system's interface is older than const
    }
    arguments.push_back(nullptr);
    ::pid_t child = -1;
    const int status = ::posix_spawnp(&child, command[0], &actions, &attributes, arguments.data(), environ);
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&actions);
    return status == 0 ? child : -1;
}

// Waits for the program's end; ends it where that takes too long. True if it told of no failure.
bool Finish(::pid_t child, Clock::time_point limit) noexcept {
    constexpr ::useconds_t kPause = 2000;
    int status = 0;
    for (;;) {
        const ::pid_t ended = ::waitpid(child, &status, WNOHANG);
        if (ended == child) return WIFEXITED(status) && WEXITSTATUS(status) == 0;
        if (ended < 0 && errno != EINTR) return false;
        if (Clock::now() > limit) break;
        ::usleep(kPause);
    }
    ::kill(child, SIGKILL);
    ::waitpid(child, &status, 0);
    return false;
}

bool IsReady(int descriptor, short events, Clock::time_point limit) noexcept {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(limit - Clock::now()).count();
    ::pollfd poll{descriptor, events, 0};
    return left > 0 && ::poll(&poll, 1, static_cast<int>(left)) > 0;
}

void WriteAll(int descriptor, std::span<const u8> bytes, Clock::time_point limit) noexcept {
    ::fcntl(descriptor, F_SETFL, O_NONBLOCK);
    while (!bytes.empty() && IsReady(descriptor, POLLOUT, limit)) {
        const ::ssize_t done = ::write(descriptor, bytes.data(), bytes.size());
        if (done < 0 && errno != EINTR && errno != EAGAIN) return;
        if (done > 0) bytes = bytes.subspan(static_cast<std::size_t>(done));
    }
}

}  // namespace

bool HasProgram(const char* name) noexcept {
    const char* value = std::getenv("PATH");
    std::string_view folders = value == nullptr ? "" : value;
    while (!folders.empty()) {
        const std::size_t end = std::min(folders.find(':'), folders.size());
        std::string path(folders.substr(0, end));
        path.append("/").append(name);
        if (::access(path.c_str(), X_OK) == 0) return true;
        folders.remove_prefix(std::min(end + 1, folders.size()));
    }
    return false;
}

bool FeedProgram(std::span<const char* const> command, std::span<const u8> input) noexcept {
    const Clock::time_point limit = Clock::now() + kPatience;
    Pipe pipe;
    const ::pid_t child = pipe.read.Get() < 0 ? -1 : Start(command, pipe.read.Get(), -1);
    if (child < 0) return false;
    pipe.read.Close();
    WriteAll(pipe.write.Get(), input, limit);
    pipe.write.Close();
    return Finish(child, limit);
}

std::optional<std::size_t> ReadProgram(std::span<const char* const> command, u8* out,
                                       std::size_t capacity) noexcept {
    const Clock::time_point limit = Clock::now() + kPatience;
    Pipe pipe;
    const ::pid_t child = pipe.read.Get() < 0 ? -1 : Start(command, -1, pipe.write.Get());
    if (child < 0) return std::nullopt;
    pipe.write.Close();
    std::size_t size = 0;
    while (size < capacity && IsReady(pipe.read.Get(), POLLIN, limit)) {
        const ::ssize_t done = ::read(pipe.read.Get(), out + size, capacity - size);
        if (done == 0 || (done < 0 && errno != EINTR)) break;
        if (done > 0) size += static_cast<std::size_t>(done);
    }
    pipe.read.Close();
    // One that had more to say has been cut off, and may tell of that as a failure.
    const bool good = Finish(child, limit);
    if (good || size == capacity) return size;
    return std::nullopt;
}

}  // namespace platform
