// Files for tests: temporary folders, whole files as bytes, and where the test data lies.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/tvstring.h"
#include "platform/types.h"

namespace test_files {

// A path in the form that the program's operations take, in the system's syntax, and back.
inline tvstring PathText(const std::filesystem::path& path) {
    return std::filesystem::path(path).make_preferred().u16string();
}
inline std::filesystem::path SystemPath(const tvstring& path) {
    return std::u16string(path.view());
}

}  // namespace test_files

// A new, empty folder that goes with everything in it when the object does.
class TempFolder {
public:
    TempFolder() {
        static std::atomic<unsigned> count = 0;
        std::random_device random;
        m_Folder = std::filesystem::temp_directory_path() /
                   ("vmr-test-" + std::to_string(random()) + "-" + std::to_string(++count));
        std::filesystem::create_directories(m_Folder);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_Folder, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] tvstring Path() const { return test_files::PathText(m_Folder); }

    // The path of something in the folder; `name` may hold slashes.
    [[nodiscard]] tvstring Path(std::u16string_view name) const {
        return test_files::PathText(m_Folder / std::filesystem::path(name));
    }

private:
    std::filesystem::path m_Folder;
};

// Where a file of tests/data stands, as "database/x.vmr": tests run in the root of the project.
inline tvstring DataPath(std::u16string_view name) {
    return test_files::PathText(std::filesystem::path(u"tests/data") / std::filesystem::path(name));
}

// A whole file; the test fails if it cannot be read.
inline std::vector<u8> ReadBytes(const tvstring& path) {
    std::ifstream file(test_files::SystemPath(path), std::ios::binary);
    EXPECT_TRUE(file.is_open()) << test_files::SystemPath(path).string();
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Makes or replaces a file; the test fails if it cannot be written.
inline void WriteBytes(const tvstring& path, const void* bytes, std::size_t size) {
    std::ofstream file(test_files::SystemPath(path), std::ios::binary | std::ios::trunc);
    file.write(static_cast<const char*>(bytes), static_cast<std::streamsize>(size));
    EXPECT_TRUE(file.good()) << test_files::SystemPath(path).string();
}
inline void WriteBytes(const tvstring& path, const std::vector<u8>& bytes) {
    WriteBytes(path, bytes.data(), bytes.size());
}
inline void WriteBytes(const tvstring& path, std::string_view bytes) {
    WriteBytes(path, bytes.data(), bytes.size());
}
