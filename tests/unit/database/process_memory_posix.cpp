#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "tests/unit/database/process_memory.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/asan_interface.h>
#endif

namespace {

bool IsShadow([[maybe_unused]] MemoryRange range) {
#ifdef __SANITIZE_ADDRESS__
    std::size_t scale = 0;
    std::size_t offset = 0;
    __asan_get_shadow_mapping(&scale, &offset);
    constexpr std::uintptr_t kAddressSpace = std::uintptr_t{1} << 47;
    return range.end > offset && range.begin < offset + (kAddressSpace >> scale);
#else
    return false;
#endif
}

}  // namespace

// A line is "from-to rwxp ..", in hexadecimal digits; p says that the memory is private. It is read without
// taking memory from the heap, which might be what is looked for.
std::vector<MemoryRange> PrivateMemory() {
    static char text[1 << 20];
    const int maps = ::open("/proc/self/maps", O_RDONLY | O_CLOEXEC);
    std::size_t size = 0;
    for (::ssize_t got = 0; (got = ::read(maps, text + size, sizeof text - 1 - size)) > 0;)
        size += static_cast<std::size_t>(got);
    ::close(maps);
    text[size] = 0;
    std::vector<MemoryRange> ranges;
    for (const char* line = text; line != nullptr && *line != 0;) {
        char* end = nullptr;
        const MemoryRange range{std::strtoull(line, &end, 16), std::strtoull(end + 1, &end, 16)};
        if (end[1] == 'r' && end[2] == 'w' && end[4] == 'p' && !IsShadow(range)) ranges.push_back(range);
        const char* next = std::strchr(end, '\n');
        line = next == nullptr ? nullptr : next + 1;
    }
    return ranges;
}

bool CopyMemoryOut(std::uintptr_t address, u8* out, std::size_t size) {
    static const int memory = ::open("/proc/self/mem", O_RDONLY | O_CLOEXEC);
    return ::pread(memory, out, size, static_cast<::off_t>(address)) == static_cast<::ssize_t>(size);
}

bool CipherWipesItsKeys() {
    return true;
}
