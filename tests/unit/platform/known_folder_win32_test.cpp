#include <gtest/gtest.h>

#include <string>

#include "platform/file.h"
#include "platform/windows_api.h"

// After windows.h, whose types they need.
#include <combaseapi.h>
#include <shlobj.h>

namespace {

std::u16string AsTheSystemSays(const KNOWNFOLDERID& id) {
    using GetPath = HRESULT(WINAPI*)(REFKNOWNFOLDERID, DWORD, HANDLE, PWSTR*);
    const auto getPath = reinterpret_cast<GetPath>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryW(L"shell32.dll"), "SHGetKnownFolderPath")));
    wchar_t* path = nullptr;
    EXPECT_EQ(getPath(id, 0, nullptr, &path), S_OK);
    const std::u16string result = path == nullptr ? u"" : platform::Units(path);
    CoTaskMemFree(path);
    return result;
}

TEST(KnownFolder, IsWhatTheSystemSays) {
    // Documents and Desktop
    const KNOWNFOLDERID documents = {
        0xFDD39AD0, 0x238F, 0x46AF, {0xAD, 0xB4, 0x6C, 0x85, 0x48, 0x03, 0x69, 0xC7}};
    const KNOWNFOLDERID desktop = {
        0xB4BFCC3A, 0xDB2C, 0x424C, {0xB0, 0x29, 0x7F, 0xE9, 0x9A, 0x87, 0xC6, 0x41}};
    EXPECT_EQ(platform::KnownFolder(u"{FDD39AD0-238F-46AF-ADB4-6C85480369C7}"), AsTheSystemSays(documents));
    EXPECT_EQ(platform::KnownFolder(u"{b4bfcc3a-db2c-424c-b029-7fe99a87c641}"), AsTheSystemSays(desktop));
    EXPECT_FALSE(AsTheSystemSays(documents).empty());
}

}  // namespace
