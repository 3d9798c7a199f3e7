#include "platform/terminal.h"

#include <algorithm>
#include <new>

#include "platform/memory.h"
#include "platform/text.h"
#include "platform/windows_api.h"

#include <shellapi.h>

namespace platform {
namespace {

constexpr DWORD kLargestWrite = 1U << 20;
constexpr DWORD kReportWithoutHeap = 1;  // WER_FAULT_REPORTING_FLAG_NOHEAP
constexpr int kExitInterrupted = 130;
constexpr std::size_t kLongestLine = 4096;

HANDLE HandleOf(StandardStream stream) noexcept {
    return ::GetStdHandle(stream == StandardStream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

HANDLE HandleOf(InputFile file) noexcept {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): an opaque value, never followed
    return reinterpret_cast<HANDLE>(file);
}

std::string Utf8Of(const char16_t* units, std::size_t length) {
    std::string bytes(UnitsToBytes(kCodePageUtf8, units, length, nullptr, 0), '\0');
    bytes.resize(UnitsToBytes(kCodePageUtf8, units, length, bytes.data(), bytes.size()));
    return bytes;
}

std::u16string UnitsOf(const std::string& bytes) {
    std::u16string units(BytesToUnits(kCodePageUtf8, bytes.data(), bytes.size(), nullptr, 0), u'\0');
    units.resize(BytesToUnits(kCodePageUtf8, bytes.data(), bytes.size(), units.data(), units.size()));
    return units;
}

// Units on their way to or from the console, wiped when they go.
struct ConsoleUnits {
    char16_t units[kLongestLine];
    ~ConsoleUnits() { WipeMemory(units, sizeof units); }
};

bool WriteConsoleBytes(HANDLE console, const char* bytes, std::size_t size) noexcept {
    ConsoleUnits buffer;
    while (size > 0) {
        std::size_t part = std::min(size, kLongestLine);
        while (part < size && part > 1 && (static_cast<unsigned char>(bytes[part]) & 0xC0) == 0x80)
            --part;
        const std::size_t count = BytesToUnits(kCodePageUtf8, bytes, part, buffer.units, kLongestLine);
        DWORD done = 0;
        if (!::WriteConsoleW(console, buffer.units, static_cast<DWORD>(count), &done, nullptr)) return false;
        bytes += part;
        size -= part;
    }
    return true;
}

// The console with its echo off, and what a Ctrl+C needs to put it back: its handler runs on a thread of its
// own and ends the process.
struct QuietConsole {
    HANDLE input;
    HANDLE output;
    DWORD mode;

    void Restore() const noexcept {
        DWORD done = 0;
        ::SetConsoleMode(input, mode);
        ::WriteConsoleW(output, L"\r\n", 2, &done, nullptr);
    }
};

constinit const QuietConsole* s_Quiet = nullptr;

BOOL WINAPI RestoreAndEnd(DWORD event) {
    if (s_Quiet != nullptr) s_Quiet->Restore();
    if (event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT) ::ExitProcess(kExitInterrupted);
    return FALSE;
}

HANDLE OpenConsole(const wchar_t* name) noexcept {
    return ::CreateFileW(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                         OPEN_EXISTING, 0, nullptr);
}

PromptResult ReadQuietly(const QuietConsole& console, const std::string& prompt, char* out,
                         std::size_t capacity, std::size_t& length) noexcept {
    ConsoleUnits line;
    DWORD count = 0;
    WriteConsoleBytes(console.output, prompt.data(), prompt.size());
    if (!::ReadConsoleW(console.input, line.units, kLongestLine, &count, nullptr)) {
        return PromptResult::NoTerminal;
    }
    if (count == kLongestLine && line.units[count - 1] != u'\n') {
        ::FlushConsoleInputBuffer(console.input);
        return PromptResult::TooLong;
    }
    while (count > 0 && (line.units[count - 1] == u'\n' || line.units[count - 1] == u'\r'))
        --count;
    if (UnitsToBytes(kCodePageUtf8, line.units, count, nullptr, 0) > capacity) return PromptResult::TooLong;
    length = UnitsToBytes(kCodePageUtf8, line.units, count, out, capacity);
    return PromptResult::Ok;
}

}  // namespace

void HardenProcess() noexcept {
    ::SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    using SetFlags = HRESULT(WINAPI*)(DWORD);
    const HMODULE kernel = ::GetModuleHandleW(L"kernel32.dll");
    const auto setFlags = reinterpret_cast<SetFlags>(
        reinterpret_cast<void*>(kernel == nullptr ? nullptr : ::GetProcAddress(kernel, "WerSetFlags")));
    if (setFlags != nullptr) setFlags(kReportWithoutHeap);
}

std::vector<std::string> CommandArguments(int /*argc*/, char** /*argv*/) {
    std::vector<std::string> arguments;
    int count = 0;
    wchar_t** wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    if (wide == nullptr) return arguments;
    for (int i = 1; i < count; ++i) {
        const std::u16string_view units = Units(wide[i]);
        arguments.push_back(Utf8Of(units.data(), units.size()));
    }
    ::LocalFree(wide);
    return arguments;
}

std::u16string PathFromArgument(const std::string& argument) {
    return UnitsOf(argument);
}

std::string PathForMessage(const std::u16string& path) {
    return Utf8Of(path.data(), path.size());
}

bool IsTerminal(StandardStream stream) noexcept {
    DWORD mode = 0;
    return ::GetConsoleMode(HandleOf(stream), &mode) != 0;
}

bool WriteStream(StandardStream stream, const void* bytes, std::size_t size) noexcept {
    const HANDLE handle = HandleOf(stream);
    const auto* rest = static_cast<const char*>(bytes);
    if (IsTerminal(stream)) return WriteConsoleBytes(handle, rest, size);
    while (size > 0) {
        DWORD done = 0;
        const auto part = static_cast<DWORD>(std::min<std::size_t>(size, kLargestWrite));
        if (!::WriteFile(handle, rest, part, &done, nullptr)) return false;
        if (done == 0) {
            ::SetLastError(ERROR_DISK_FULL);
            return false;
        }
        rest += done;
        size -= done;
    }
    return true;
}

InputFile StandardInput() noexcept {
    return reinterpret_cast<InputFile>(::GetStdHandle(STD_INPUT_HANDLE));
}

InputFile OpenInput(const char16_t* path) noexcept {
    return reinterpret_cast<InputFile>(::CreateFileW(Wide(path), GENERIC_READ,
                                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                                     nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

void CloseInput(InputFile file) noexcept {
    if (file != kNoInput) ::CloseHandle(HandleOf(file));
}

std::optional<std::size_t> ReadInput(InputFile file, void* buffer, std::size_t size) noexcept {
    DWORD got = 0;
    const auto part = static_cast<DWORD>(std::min<std::size_t>(size, kLargestWrite));
    if (::ReadFile(HandleOf(file), buffer, part, &got, nullptr)) return got;
    // The other end of a pipe has been closed: that is how its end shows.
    if (::GetLastError() == ERROR_BROKEN_PIPE) return 0;
    return std::nullopt;
}

struct InterruptGuard::State {};

InterruptGuard::InterruptGuard() noexcept : m_State(nullptr) {
    ::SetConsoleCtrlHandler(nullptr, TRUE);
}

InterruptGuard::~InterruptGuard() {
    ::SetConsoleCtrlHandler(nullptr, FALSE);
}

namespace {

struct WatchEvents {
    HANDLE interrupted;
    HANDLE done;
};
WatchEvents* s_Watch = nullptr;

// Runs on a thread of its own. A console that is closed ends the process as soon as this returns.
BOOL WINAPI NoteInterrupt(DWORD) {
    constexpr DWORD kPatience = 4000;
    ::SetEvent(s_Watch->interrupted);
    ::WaitForSingleObject(s_Watch->done, kPatience);
    return TRUE;
}

}  // namespace

struct InterruptWatch::State : WatchEvents {};

InterruptWatch::InterruptWatch() noexcept : m_State(new (std::nothrow) State{}) {
    if (m_State == nullptr) return;
    m_State->interrupted = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    m_State->done = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    s_Watch = m_State;
    ::SetConsoleCtrlHandler(&NoteInterrupt, TRUE);
}

// The handler may be at work: what it uses stays.
InterruptWatch::~InterruptWatch() {
    if (m_State == nullptr) return;
    ::SetConsoleCtrlHandler(&NoteInterrupt, FALSE);
    ::SetEvent(m_State->done);
}

bool InterruptWatch::Wait(u32 milliseconds) noexcept {
    if (m_State == nullptr) {
        ::Sleep(milliseconds);
        return false;
    }
    return ::WaitForSingleObject(m_State->interrupted, milliseconds) == WAIT_OBJECT_0;
}

PromptResult PromptSecret(const std::string& prompt, char* out, std::size_t capacity, std::size_t& length) {
    length = 0;
    QuietConsole console{OpenConsole(L"CONIN$"), OpenConsole(L"CONOUT$"), 0};
    PromptResult result = PromptResult::NoTerminal;
    if (::GetConsoleMode(console.input, &console.mode)) {
        s_Quiet = &console;
        ::SetConsoleCtrlHandler(&RestoreAndEnd, TRUE);
        constexpr DWORD kWanted = ENABLE_LINE_INPUT | ENABLE_PROCESSED_INPUT;
        ::SetConsoleMode(console.input, (console.mode | kWanted) & ~DWORD{ENABLE_ECHO_INPUT});
        result = ReadQuietly(console, prompt, out, capacity, length);
        console.Restore();
        ::SetConsoleCtrlHandler(&RestoreAndEnd, FALSE);
        s_Quiet = nullptr;
    }
    if (console.input != INVALID_HANDLE_VALUE) ::CloseHandle(console.input);
    if (console.output != INVALID_HANDLE_VALUE) ::CloseHandle(console.output);
    return result;
}

}  // namespace platform
