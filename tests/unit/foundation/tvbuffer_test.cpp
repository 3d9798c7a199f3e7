#include "foundation/tvbuffer.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "platform/error.h"
#include "platform/fault.h"
#include "tests/unit/wipe_watch.h"

namespace {

constexpr u32 kStep = 512;
constexpr u32 kLargest = 0xFFFF'FFFF;

using ByteBuffer = tvbuffer<unsigned char>;

class Tvbuffer : public testing::Test {
protected:
    ~Tvbuffer() override { platform::ClearFaults(); }

    static bool AppendCounting(ByteBuffer& buffer, u32 count) {
        std::vector<u8> bytes(count);
        for (u32 i = 0; i < count; ++i)
            bytes[i] = static_cast<u8>(i + 1);
        return buffer.Append(bytes.data(), count);
    }
};

TEST_F(Tvbuffer, HoldsNothingAtFirst) {
    const ByteBuffer buffer(kStep);
    EXPECT_EQ(buffer.Data(), nullptr);
    EXPECT_EQ(buffer.Size(), 0U);
    EXPECT_EQ(buffer.Capacity(), 0U);
}

TEST_F(Tvbuffer, GrowsByItsStepForAFewElements) {
    ByteBuffer buffer(kStep);
    EXPECT_TRUE(AppendCounting(buffer, 40));
    EXPECT_EQ(buffer.Capacity(), 512U);
    EXPECT_EQ(buffer.Size(), 40U);
}

TEST_F(Tvbuffer, GrowsToTheCountWhereTheStepIsTooSmall) {
    ByteBuffer buffer(kStep);
    EXPECT_TRUE(AppendCounting(buffer, 600));
    EXPECT_EQ(buffer.Capacity(), 600U);
}

TEST_F(Tvbuffer, GrowsFromThePresentCapacity) {
    ByteBuffer buffer(kStep);
    ASSERT_TRUE(AppendCounting(buffer, 600));
    EXPECT_TRUE(AppendCounting(buffer, 1));
    EXPECT_EQ(buffer.Capacity(), 1112U);
    EXPECT_TRUE(buffer.Reserve(5000));
    EXPECT_EQ(buffer.Capacity(), 5000U);
}

TEST_F(Tvbuffer, DoesNotChangeForAReserveBelowTheCapacity) {
    ByteBuffer buffer(kStep);
    ASSERT_TRUE(AppendCounting(buffer, 40));
    const u8* block = buffer.Data();
    EXPECT_TRUE(buffer.Reserve(100));
    EXPECT_TRUE(buffer.Reserve(512));
    EXPECT_TRUE(buffer.Reserve(0));
    EXPECT_EQ(buffer.Data(), block);
    EXPECT_EQ(buffer.Capacity(), 512U);
    EXPECT_EQ(buffer.Size(), 40U);
}

TEST_F(Tvbuffer, CopiesTheContentAndFillsTheRestWithZeros) {
    ByteBuffer buffer(4);
    ASSERT_TRUE(AppendCounting(buffer, 3));
    ASSERT_TRUE(buffer.Reserve(64));
    EXPECT_EQ(buffer.Size(), 3U);
    for (u32 i = 0; i < 64; ++i)
        EXPECT_EQ(buffer.Data()[i], i < 3 ? i + 1 : 0U);
}

TEST_F(Tvbuffer, AppendsBehindWhatItHas) {
    ByteBuffer buffer(2);
    ASSERT_TRUE(AppendCounting(buffer, 3));
    ASSERT_TRUE(AppendCounting(buffer, 2));
    EXPECT_EQ(std::vector<u8>(buffer.Data(), buffer.Data() + buffer.Size()),
              (std::vector<u8>{1, 2, 3, 1, 2}));
}

TEST_F(Tvbuffer, CountsInElements) {
    tvbuffer<u32> buffer(8);
    const u32 values[] = {1, 2, 3};
    EXPECT_TRUE(buffer.Append(values, 3));
    EXPECT_EQ(buffer.Size(), 3U);
    EXPECT_EQ(buffer.Capacity(), 8U);
    EXPECT_EQ(buffer.Data()[2], 3U);
}

TEST_F(Tvbuffer, AppendsNothingForNullOrACountOfZero) {
    ByteBuffer buffer(kStep);
    const u8 byte = 1;
    EXPECT_TRUE(buffer.Append(nullptr, 5));
    EXPECT_TRUE(buffer.Append(&byte, 0));
    EXPECT_EQ(buffer.Size(), 0U);
    EXPECT_EQ(buffer.Capacity(), 0U);
}

TEST_F(Tvbuffer, KeepsTheOldBlockWhereMemoryIsMissing) {
    ByteBuffer buffer(4);
    ASSERT_TRUE(AppendCounting(buffer, 4));
    const u8* block = buffer.Data();
    platform::OrderFault(platform::FaultPoint::AllocateZeroed, platform::kErrorNotEnoughMemory, 0, 3);
    EXPECT_FALSE(buffer.Reserve(5));
    EXPECT_FALSE(AppendCounting(buffer, 1));
    EXPECT_EQ(buffer.Extend(1), nullptr);
    EXPECT_EQ(buffer.Data(), block);
    EXPECT_EQ(buffer.Size(), 4U);
    EXPECT_EQ(buffer.Capacity(), 4U);
    EXPECT_EQ(buffer.Data()[3], 4);
    EXPECT_TRUE(AppendCounting(buffer, 1));
}

TEST_F(Tvbuffer, RefusesASizeThatThirtyTwoBitsCannotHold) {
    ByteBuffer buffer(4);
    const u8 byte = 1;
    ASSERT_TRUE(buffer.Append(&byte, 1));
    const volatile u32 tooMany = kLargest;  // hidden from the compiler, which would warn of the copy
    EXPECT_FALSE(buffer.Append(&byte, tooMany));
    EXPECT_EQ(buffer.Extend(kLargest), nullptr);
    EXPECT_EQ(buffer.Size(), 1U);
}

TEST_F(Tvbuffer, DoesNotWrapAroundWithAHugeStep) {
    ByteBuffer buffer(kLargest);
    platform::OrderFault(platform::FaultPoint::AllocateZeroed, platform::kErrorNotEnoughMemory);
    EXPECT_FALSE(buffer.Reserve(1));
    EXPECT_EQ(buffer.Capacity(), 0U);
}

TEST_F(Tvbuffer, ExtendGivesThePlaceOfTheNewElements) {
    ByteBuffer buffer(kStep);
    ASSERT_TRUE(AppendCounting(buffer, 2));
    u8* place = buffer.Extend(3);
    EXPECT_EQ(place, buffer.Data() + 2);
    EXPECT_EQ(buffer.Size(), 5U);
}

TEST_F(Tvbuffer, GivesUpItsBlock) {
    ByteBuffer buffer(kStep);
    ASSERT_TRUE(AppendCounting(buffer, 2));
    u8* block = buffer.Detach();
    EXPECT_EQ(block[1], 2);
    EXPECT_EQ(buffer.Data(), nullptr);
    EXPECT_EQ(buffer.Size(), 0U);
    EXPECT_EQ(buffer.Capacity(), 0U);
    platform::WipeAndFree(block, kStep);
}

TEST_F(Tvbuffer, WipesItsBlockBeforeFreeingIt) {
    auto buffer = std::make_unique<ByteBuffer>(kStep);
    ASSERT_TRUE(AppendCounting(*buffer, 40));
    const WipeWatch watch(buffer->Data(), buffer->Capacity());
    buffer.reset();
    EXPECT_TRUE(watch.Wiped());
}

TEST_F(Tvbuffer, WipesTheOldBlockWhenItGrows) {
    ByteBuffer buffer(kStep);
    ASSERT_TRUE(AppendCounting(buffer, 40));
    const WipeWatch watch(buffer.Data(), buffer.Capacity());
    ASSERT_TRUE(buffer.Reserve(513));
    EXPECT_TRUE(watch.Wiped());
}

TEST_F(Tvbuffer, HasAVirtualDestructor) {
    EXPECT_TRUE(std::has_virtual_destructor_v<ByteBuffer>);
}

}  // namespace
