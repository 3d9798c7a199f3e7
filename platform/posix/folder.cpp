#include <dirent.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "platform/error.h"
#include "platform/fault.h"
#include "platform/file.h"
#include "platform/posix/errno_map.h"
#include "platform/posix/path_bytes.h"

namespace platform {
namespace {

constexpr std::size_t kLongestProgramPath = 259;

struct CloseFolder {
    void operator()(DIR* folder) const noexcept { ::closedir(folder); }
};

bool HasExtension(std::string_view name, std::string_view extension) {
    return name.size() > extension.size() && name[name.size() - extension.size() - 1] == '.' &&
           ::strncasecmp(name.data() + name.size() - extension.size(), extension.data(), extension.size()) ==
               0;
}

}  // namespace

bool PathExists(const char16_t* path) noexcept {
    struct stat status {};
    return ::stat(PathBytes(path).c_str(), &status) == 0;
}

bool PathIsFolder(const char16_t* path) noexcept {
    struct stat status {};
    return ::stat(PathBytes(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool MakeFolder(const char16_t* path) noexcept {
    if (FaultFires(FaultPoint::MakeFolder)) return false;
    if (::mkdir(PathBytes(path).c_str(), 0777) == 0) return true;
    TakeErrno();
    return false;
}

bool ClearFileAttributes(const char16_t* path) noexcept {
    const std::string bytes = PathBytes(path);
    struct stat status {};
    if (::stat(bytes.c_str(), &status) == 0 &&
        ((status.st_mode & S_IWUSR) != 0 ||
         ::chmod(bytes.c_str(), (status.st_mode & 07777) | S_IWUSR) == 0)) {
        return true;
    }
    TakeErrno();
    return false;
}

std::optional<std::vector<std::u16string>> ListNames(const char16_t* folder, const char16_t* extension) {
    const std::unique_ptr<DIR, CloseFolder> reader(::opendir(PathBytes(folder).c_str()));
    if (reader == nullptr) {
        TakeErrno();
        return std::nullopt;
    }
    const std::string wanted = PathBytes(extension);
    std::vector<std::u16string> names;
    while (const dirent* entry = ::readdir(reader.get())) {
        if (HasExtension(entry->d_name, wanted)) names.push_back(PathUnits(entry->d_name));
    }
    return names;
}

std::optional<std::u16string> ExpandEnvironment(const char16_t* path) {
    constexpr std::size_t kNowhere = std::u16string_view::npos;
    std::u16string_view rest(path);
    std::u16string out;
    while (true) {
        const std::size_t open = rest.find(u'%');
        const std::size_t close = open == kNowhere ? kNowhere : rest.find(u'%', open + 1);
        if (close == kNowhere) break;
        const char* value = std::getenv(PathBytes(rest.substr(open + 1, close - open - 1)).c_str());
        if (value == nullptr) {
            // The second mark may start a name of its own.
            out.append(rest.substr(0, close));
            rest.remove_prefix(close);
            continue;
        }
        out.append(rest.substr(0, open)).append(PathUnits(value));
        rest.remove_prefix(close + 1);
    }
    return out.append(rest);
}

std::optional<std::u16string> KnownFolder(const char16_t*) {
    return std::nullopt;
}

std::u16string ProgramFile() {
    char path[PATH_MAX];
    const ::ssize_t length = ::readlink("/proc/self/exe", path, sizeof path);
    if (length <= 0) return {};
    std::u16string units = PathUnits({path, static_cast<std::size_t>(length)});
    return units.size() <= kLongestProgramPath ? units : std::u16string();
}

}  // namespace platform
