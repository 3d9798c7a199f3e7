// Telling the last process from others.
#include "shell/process_mutex.h"

#include <gtest/gtest.h>

#include "toolkit/win32.h"

namespace {

constexpr const wchar_t* kName = L"app-tests-mutex";

bool IsThere() {
    return static_cast<bool>(tvhandle(OpenMutexW(SYNCHRONIZE, FALSE, kName)));
}

TEST(ProcessMutex, IsThereAsLongAsItsProcess) {
    {
        const ProcessMutex mutex(kName);
        EXPECT_TRUE(IsThere());
    }
    EXPECT_FALSE(IsThere());
}

TEST(ProcessMutex, KnowsTheLastOneWhichKeepsIt) {
    ProcessMutex mutex(kName);
    EXPECT_TRUE(mutex.IsLastProcess());
    EXPECT_TRUE(IsThere());
    EXPECT_TRUE(mutex.IsLastProcess());
}

TEST(ProcessMutex, IsNotTheLastWhileAnotherHasIt) {
    ProcessMutex mutex(kName);
    {
        const ProcessMutex other(kName);
        EXPECT_FALSE(mutex.IsLastProcess());
    }
    EXPECT_TRUE(mutex.IsLastProcess());
}

// Something else has the name.
TEST(ProcessMutex, ThatCannotBeMadeIsNotTheLast) {
    tvhandle event(CreateEventW(nullptr, FALSE, FALSE, kName));
    ASSERT_TRUE(event);
    ProcessMutex mutex(kName);
    EXPECT_FALSE(IsThere());
    EXPECT_FALSE(mutex.IsLastProcess());
    event.Close();
    EXPECT_TRUE(mutex.IsLastProcess());
}

}  // namespace
