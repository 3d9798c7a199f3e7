#include "foundation/tvdata.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/error.h"
#include "platform/fault.h"
#include "platform/memory.h"
#include "tests/unit/wipe_watch.h"

namespace {

tvdata Filled(u32 size, u8 value = 7) {
    tvdata data;
    EXPECT_TRUE(data.Resize(size));
    std::fill_n(data.Data(), size, value);
    return data;
}

TEST(Tvdata, IsEmptyAtFirst) {
    const tvdata data;
    EXPECT_TRUE(data.Empty());
    EXPECT_EQ(data.Size(), 0U);
    EXPECT_EQ(data.Data(), nullptr);
}

TEST(Tvdata, ResizeMakesAZeroFilledBlock) {
    tvdata data;
    ASSERT_TRUE(data.Resize(100));
    EXPECT_EQ(data.Size(), 100U);
    EXPECT_TRUE(std::all_of(data.Data(), data.Data() + 100, [](u8 byte) { return byte == 0; }));
}

TEST(Tvdata, ResizeLosesTheContent) {
    tvdata data = Filled(10);
    ASSERT_TRUE(data.Resize(20));
    EXPECT_TRUE(std::all_of(data.Data(), data.Data() + 20, [](u8 byte) { return byte == 0; }));
    data = Filled(10);
    ASSERT_TRUE(data.Resize(10));
    EXPECT_EQ(data.Data()[0], 0);
}

TEST(Tvdata, IsEmptyAfterAResizeToZero) {
    tvdata data = Filled(10);
    EXPECT_FALSE(data.Resize(0));
    EXPECT_TRUE(data.Empty());
    EXPECT_EQ(data.Data(), nullptr);
}

TEST(Tvdata, IsEmptyWhereMemoryIsMissing) {
    tvdata data = Filled(10);
    platform::OrderFault(platform::FaultPoint::AllocateZeroed, platform::kErrorNotEnoughMemory);
    EXPECT_FALSE(data.Resize(10));
    platform::ClearFaults();
    EXPECT_TRUE(data.Empty());
    EXPECT_EQ(data.Data(), nullptr);
}

TEST(Tvdata, CopiesAreOwnersOfTheSameBytes) {
    tvdata data = Filled(10);
    const tvdata copy(data);
    EXPECT_EQ(copy.Data(), data.Data());
    EXPECT_EQ(copy.Size(), 10U);
    data.Data()[3] = 9;
    EXPECT_EQ(copy.Data()[3], 9);
}

TEST(Tvdata, TheLastOwnerWipesAndFrees) {
    auto first = std::make_unique<tvdata>(Filled(10));
    auto second = std::make_unique<tvdata>(*first);
    const WipeWatch watch(first->Data(), 10);
    first.reset();
    EXPECT_FALSE(watch.Wiped());
    EXPECT_EQ(second->Data()[9], 7);
    second.reset();
    EXPECT_TRUE(watch.Wiped());
}

TEST(Tvdata, LeavesTheBlockToOtherOwnersWhenResized) {
    tvdata data = Filled(10);
    const tvdata copy(data);
    ASSERT_TRUE(data.Resize(5));
    EXPECT_EQ(copy.Size(), 10U);
    EXPECT_EQ(copy.Data()[9], 7);
    EXPECT_NE(copy.Data(), data.Data());
}

TEST(Tvdata, AssignmentLetsGoOfThePresentBlock) {
    tvdata data = Filled(10);
    const WipeWatch watch(data.Data(), 10);
    const tvdata other = Filled(3, 5);
    data = other;
    EXPECT_TRUE(watch.Wiped());
    EXPECT_EQ(data.Size(), 3U);
    EXPECT_EQ(data.Data(), other.Data());
}

TEST(Tvdata, StandsAssignmentToItself) {
    tvdata data = Filled(10);
    tvdata& same = data;
    data = same;
    EXPECT_EQ(data.Size(), 10U);
    data = std::move(same);
    EXPECT_EQ(data.Size(), 10U);
    EXPECT_EQ(data.Data()[9], 7);
}

TEST(Tvdata, MovingLeavesAnEmptyOne) {
    tvdata data = Filled(10);
    const u8* bytes = data.Data();
    tvdata taken(std::move(data));
    EXPECT_TRUE(data.Empty());  // NOLINT(bugprone-use-after-move): that it is empty is the point
    EXPECT_EQ(data.Data(), nullptr);
    tvdata target = Filled(4);
    target = std::move(taken);
    EXPECT_TRUE(taken.Empty());  // NOLINT(bugprone-use-after-move): as above
    EXPECT_EQ(target.Data(), bytes);
}

TEST(Tvdata, AdoptsAnAllocatedBlock) {
    auto* block = static_cast<u8*>(platform::AllocateZeroed(16));
    block[15] = 3;
    tvdata data = Filled(4);
    const WipeWatch old(data.Data(), 4);
    data.Adopt(block, 16);
    EXPECT_TRUE(old.Wiped());
    EXPECT_EQ(data.Data(), block);
    EXPECT_EQ(data.Size(), 16U);
    const WipeWatch watch(block, 16);
    data.Reset();
    EXPECT_TRUE(watch.Wiped());
}

TEST(Tvdata, IsEmptyAfterAdoptingNull) {
    tvdata data = Filled(4);
    data.Adopt(nullptr, 4);
    EXPECT_TRUE(data.Empty());
    EXPECT_EQ(data.Data(), nullptr);
}

TEST(Tvdata, DetachGivesUpTheBlockWithoutFreeingIt) {
    tvdata data = Filled(8);
    const WipeWatch watch(data.Data(), 8);
    auto* bytes = static_cast<u8*>(data.Detach());
    EXPECT_TRUE(data.Empty());
    EXPECT_FALSE(watch.Wiped());
    EXPECT_EQ(bytes[7], 7);
    tvdata again;
    again.Adopt(bytes, 8);
    EXPECT_EQ(again.Data(), bytes);
}

TEST(Tvdata, DetachGivesNullForAnEmptyOne) {
    tvdata data;
    EXPECT_EQ(data.Detach(), nullptr);
}

TEST(Tvdata, NoOwnerFreesADetachedBlock) {
    tvdata data = Filled(8);
    auto other = std::make_unique<tvdata>(data);
    const WipeWatch watch(data.Data(), 8);
    void* bytes = data.Detach();
    EXPECT_EQ(other->Data(), bytes);
    other.reset();
    EXPECT_FALSE(watch.Wiped());
    platform::WipeAndFree(bytes, 8);
}

TEST(Tvdata, ShrinkTakesASmallerSizeAndStillWipesTheWholeBlock) {
    tvdata data = Filled(100);
    const u8* bytes = data.Data();
    data.Shrink(10);
    EXPECT_EQ(data.Size(), 10U);
    EXPECT_EQ(data.Data(), bytes);
    EXPECT_EQ(data.Data()[9], 7);
    data.Shrink(50);
    EXPECT_EQ(data.Size(), 10U);
    const WipeWatch watch(bytes, 100);
    data.Reset();
    EXPECT_TRUE(watch.Wiped());
}

TEST(Tvdata, IsEmptyWhenShrunkToNothing) {
    tvdata data = Filled(100);
    data.Shrink(0);
    EXPECT_TRUE(data.Empty());
    EXPECT_EQ(data.Data(), nullptr);
}

TEST(Tvdata, IsFreedUnwipedWhenItHoldsNoSecret) {
    tvdata data = Filled(100);
    const WipeWatch watch(data.Data(), 100);
    data.HoldsNoSecret();
    EXPECT_EQ(data.Data()[99], 7);
    data.Reset();
    EXPECT_FALSE(watch.Wiped());
    data.HoldsNoSecret();
    EXPECT_TRUE(data.Empty());
}

TEST(Tvdata, OwnsLargeBlocksToo) {
    constexpr u32 kLarge = (8U << 20) + 5;
    tvdata data = Filled(kLarge);
    data.Shrink(1000);
    auto copy = std::make_unique<tvdata>(data);
    const WipeWatch watch(data.Data(), kLarge);
    data.Reset();
    EXPECT_EQ(copy->Data()[999], 7);
    copy.reset();
    EXPECT_TRUE(watch.Wiped());
}

}  // namespace
