#include "foundation/path.h"

#include <optional>
#include <vector>

#include "foundation/textops.h"
#include "platform/error.h"
#include "platform/file.h"

namespace {

constexpr std::size_t kShortestIdentifier = 36;

// Position of the last separator, or npos. A slash is none on Windows here, as in the system's own path
// functions.
std::size_t LastSeparator(const tvstring& path) {
    return path.rfind(platform::kPathSeparator);
}

void ExpandKnownFolders(tvstring& path) {
    std::size_t open = path.find(u'%');
    while (open != kNoPosition) {
        const std::size_t close = path.find(u'%', open + 1);
        if (close == kNoPosition) return;
        const std::size_t length = close - open - 1;
        std::optional<std::u16string> folder;
        if (length >= kShortestIdentifier)
            folder = platform::KnownFolder(path.substr(open + 1, length).c_str());
        if (folder && !folder->empty()) {
            path.replace(open, length + 2, *folder);
            open = path.find(u'%', open + folder->size());
        } else {
            open = close;
        }
    }
}

// Cuts the last component and gives it, with its separator, to `cut`.
bool CutLastComponent(tvstring& path, tvstring& cut) {
    const std::size_t place = LastSeparator(path);
    if (place == kNoPosition) return false;
    cut = path.substr(place);
    path.resize(place);
    return true;
}

// A root is never made: the empty text in front of a leading separator, a drive.
bool IsRoot(const tvstring& path) {
    return path.size() <= 2 && (platform::kPathSeparator == u'\\' || path.empty());
}

}  // namespace

tvstring ExpandPath(const tvstring& path) {
    if (path.find(u'%') == kNoPosition) return path;
    tvstring expanded(path);
    if (const auto result = platform::ExpandEnvironment(path.c_str())) expanded = *result;
    ExpandKnownFolders(expanded);
    return expanded;
}

int PathKind(const tvstring& path) {
    const tvstring expanded = ExpandPath(path);
    if (expanded.empty() || !platform::PathExists(expanded.c_str())) return PATH_NONE;
    return platform::PathIsFolder(expanded.c_str()) ? PATH_FOLDER : PATH_FILE;
}

bool CreateDirectories(const tvstring& path) {
    platform::SetLastError(platform::kErrorNone);
    if (path.empty()) return false;
    tvstring present = ExpandPath(path);
    std::vector<tvstring> missing;
    while (!IsRoot(present)) {
        const int kind = PathKind(present);
        if (kind == PATH_FOLDER) break;
        if (kind == PATH_FILE) return false;
        tvstring component;
        if (!CutLastComponent(present, component)) return false;
        missing.push_back(std::move(component));
    }
    for (; !missing.empty(); missing.pop_back()) {
        present += missing.back();
        if (!platform::MakeFolder(present.c_str()) &&
            platform::LastError() != platform::kErrorAlreadyExists) {
            return false;
        }
    }
    return true;
}

tvhandle OpenFileHandle(const tvstring& path, bool forWrite) {
    platform::SetLastError(platform::kErrorNone);
    if (path.empty()) return {};
    const tvstring expanded = ExpandPath(path);
    if (forWrite) {
        const std::size_t place = LastSeparator(expanded);
        if (place != kNoPosition) CreateDirectories(expanded.substr(0, place));
        platform::ClearFileAttributes(expanded.c_str());
    }
    platform::SetLastError(platform::kErrorNone);
    const auto access = forWrite ? platform::FileAccess::CreateNew : platform::FileAccess::Read;
    const auto sharing = forWrite ? platform::FileSharing::None : platform::FileSharing::ReadWrite;
    const platform::NativeFile file = platform::OpenNativeFile(expanded.c_str(), access, sharing);
    return platform::IsOpen(file) ? tvhandle(file) : tvhandle();
}

tvstring JoinPath(const tvstring& folder, const tvstring& name) {
    tvstring path(folder);
    const bool seam = !folder.empty() && !name.empty() && folder.back() != platform::kPathSeparator &&
                      name.front() != platform::kPathSeparator;
    if (seam) path += platform::kPathSeparator;
    return path += name;
}

tvstring ParentFolder(const tvstring& path) {
    const std::size_t place = LastSeparator(path);
    if (place == kNoPosition) return {};
    const bool isRoot = place == 0 || (platform::kPathSeparator == u'\\' && path[place - 1] == u':');
    return path.substr(0, isRoot ? place + 1 : place);
}

tvstring ProgramPath(const char16_t* name) {
    tvstring path = platform::ProgramFile();
    if (name != nullptr && *name == 0) return path;
    path = ParentFolder(path);
    return name == nullptr ? path : JoinPath(path, name);
}

bool IsDotName(const tvstring& name) {
    return name.empty() || name == u"." || name == u"..";
}

tvstring FileNameOf(const tvstring& path) {
    const auto parts = [](char16_t unit) {
        return platform::IsPathSeparator(unit) || (platform::kPathSeparator == u'\\' && unit == u':');
    };
    std::size_t start = 0;
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
        if (parts(path[i]) && !platform::IsPathSeparator(path[i + 1])) start = i + 1;
    }
    return path.substr(start);
}

tvstring ExtensionOf(const tvstring& path) {
    const std::size_t name = LastSeparator(path) + 1;
    const std::size_t dot = path.rfind(u'.');
    if (dot == kNoPosition || dot < name || path.find(u' ', dot) != kNoPosition) return {};
    return path.substr(dot);
}
