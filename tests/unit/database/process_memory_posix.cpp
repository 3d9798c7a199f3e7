#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <string>

#include "tests/unit/database/process_memory.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/asan_interface.h>
#endif

namespace {

bool IsShadow([[maybe_unused]] std::uintptr_t address) {
#ifdef __SANITIZE_ADDRESS__
    std::size_t scale = 0;
    std::size_t offset = 0;
    __asan_get_shadow_mapping(&scale, &offset);
    constexpr std::uintptr_t kAddressSpace = std::uintptr_t{1} << 47;
    return address >= offset && address < offset + (kAddressSpace >> scale);
#else
    return false;
#endif
}

}  // namespace

// A line begins "from-to rwxp", in hexadecimal digits; p says that the memory is private.
std::vector<MemoryRange> PrivateMemory() {
    std::vector<MemoryRange> ranges;
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        const std::size_t dash = line.find('-');
        const std::size_t blank = line.find(' ');
        const std::string access = line.substr(blank + 1, 4);
        const MemoryRange range{std::stoull(line.substr(0, dash), nullptr, 16),
                                std::stoull(line.substr(dash + 1, blank - dash - 1), nullptr, 16)};
        if (access.starts_with("rw") && access.ends_with('p') && !IsShadow(range.begin))
            ranges.push_back(range);
    }
    return ranges;
}

bool CopyMemoryOut(std::uintptr_t address, u8* out, std::size_t size) {
    static const int memory = ::open("/proc/self/mem", O_RDONLY | O_CLOEXEC);
    return ::pread(memory, out, size, static_cast<::off_t>(address)) == static_cast<::ssize_t>(size);
}
