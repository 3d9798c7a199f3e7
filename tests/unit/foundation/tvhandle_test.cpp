#include "foundation/tvhandle.h"

#include <gtest/gtest.h>

#include <utility>

#include "platform/error.h"
#include "tests/unit/test_files.h"

namespace {

const platform::NativeFile kInvalid =
    reinterpret_cast<platform::NativeFile>(std::intptr_t{-1});  // NOLINT(performance-no-int-to-ptr)

class Tvhandle : public testing::Test {
protected:
    Tvhandle() { WriteBytes(m_Path, "content"); }

    // An opening that nobody else may share, so that IsHeld can see whether it was closed.
    [[nodiscard]] platform::NativeFile Open() const {
        return platform::OpenNativeFile(m_Path.c_str(), platform::FileAccess::Read,
                                        platform::FileSharing::None);
    }
    [[nodiscard]] bool IsHeld() const { return !tvhandle(Open()); }

    TempFolder m_Folder;
    tvstring m_Path = m_Folder.Path(u"file");
};

TEST_F(Tvhandle, TakesNullAndTheInvalidHandleForEmpty) {
    EXPECT_FALSE(tvhandle());
    EXPECT_FALSE(tvhandle(nullptr));
    EXPECT_FALSE(tvhandle(kInvalid));
}

TEST_F(Tvhandle, StoresAnEmptyValueAsGiven) {
    EXPECT_EQ(tvhandle(kInvalid).Get(), kInvalid);
    tvhandle handle;
    handle.Assign(kInvalid);
    EXPECT_EQ(handle.Get(), kInvalid);
    handle.Assign(nullptr);
    EXPECT_EQ(handle.Get(), nullptr);
}

TEST_F(Tvhandle, ClosesWhenDestroyed) {
    {
        const tvhandle handle(Open());
        EXPECT_TRUE(handle);
        EXPECT_TRUE(IsHeld());
    }
    EXPECT_FALSE(IsHeld());
}

TEST_F(Tvhandle, ClosesWhenReplaced) {
    tvhandle handle(Open());
    handle.Assign(nullptr);
    EXPECT_FALSE(IsHeld());
    handle.Assign(Open());
    handle.Assign(kInvalid);
    EXPECT_FALSE(IsHeld());
    handle.Assign(Open());
    handle = tvhandle();
    EXPECT_FALSE(IsHeld());
}

TEST_F(Tvhandle, DoesNotCloseForTheValueThatItHolds) {
    tvhandle handle(Open());
    handle.Assign(handle.Get());
    EXPECT_TRUE(handle);
    EXPECT_TRUE(IsHeld());
    tvhandle& same = handle;
    handle = std::move(same);
    EXPECT_TRUE(IsHeld());
}

TEST_F(Tvhandle, CloseLeavesItEmpty) {
    tvhandle handle(Open());
    handle.Close();
    EXPECT_EQ(handle.Get(), nullptr);
    EXPECT_FALSE(IsHeld());
    handle.Close();
}

TEST_F(Tvhandle, MovingHandsTheFileOn) {
    tvhandle handle(Open());
    const platform::NativeFile file = handle.Get();
    tvhandle taken(std::move(handle));
    EXPECT_FALSE(handle);  // NOLINT(bugprone-use-after-move): that it is empty is the point
    EXPECT_EQ(taken.Get(), file);
    tvhandle target;
    target = std::move(taken);
    EXPECT_EQ(target.Get(), file);
    EXPECT_TRUE(IsHeld());
}

TEST_F(Tvhandle, ReleaseGivesTheFileUpWithoutClosingIt) {
    tvhandle handle(Open());
    const platform::NativeFile file = handle.Release();
    EXPECT_FALSE(handle);
    EXPECT_TRUE(IsHeld());
    platform::CloseNativeFile(file);
    EXPECT_FALSE(IsHeld());
}

}  // namespace
