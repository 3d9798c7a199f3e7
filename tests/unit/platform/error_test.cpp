#include "platform/error.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

TEST(LastError, IsWhatWasSet) {
    platform::SetLastError(platform::kErrorDiskFull);
    EXPECT_EQ(platform::LastError(), 112U);
    platform::SetLastError(0);
    EXPECT_EQ(platform::LastError(), platform::kErrorNone);
}

TEST(LastError, BelongsToTheThread) {
    platform::SetLastError(5);
    u32 inAnother = 99;
    std::thread([&] { inAnother = platform::LastError(); }).join();
    EXPECT_EQ(inAnother, 0U);
}

TEST(ErrorText, SaysSomethingAboutEachKnownCause) {
    using namespace platform;
    for (const u32 code : {kErrorFileNotFound, kErrorPathNotFound, kErrorTooManyOpenFiles, kErrorAccessDenied,
                           kErrorInvalidHandle, kErrorNotEnoughMemory, kErrorInvalidData, kErrorWriteProtect,
                           kErrorSharingViolation, kErrorNotSupported, kErrorDiskFull, kErrorInvalidParameter,
                           kErrorInvalidName, kErrorAlreadyExists, kErrorNameTooLong, kErrorIoDevice}) {
        const std::string text = ErrorText(code);
        EXPECT_FALSE(text.empty()) << code;
        EXPECT_NE(text, "error " + std::to_string(code));
        EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos) << text;
    }
}

TEST(ErrorText, GivesTheNumberOfAnUnknownCause) {
    EXPECT_EQ(platform::ErrorText(3'000'000'000), "error 3000000000");
}

}  // namespace
