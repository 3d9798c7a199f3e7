#include "platform/memory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "platform/fault.h"
#include "tests/unit/wipe_watch.h"

namespace {

// Small, in the heap; and large, where a system may map a block by itself.
constexpr std::size_t kSizes[] = {1, 40, 5000, (std::size_t{4} << 20) - 1, (std::size_t{4} << 20) + 1};

bool AllZero(const void* memory, std::size_t size) {
    const auto* bytes = static_cast<const u8*>(memory);
    return std::all_of(bytes, bytes + size, [](u8 byte) { return byte == 0; });
}

TEST(WipeMemory, OverwritesWithZerosAndNothingElse) {
    u8 bytes[8];
    std::memset(bytes, 0xA5, sizeof bytes);
    platform::WipeMemory(bytes + 1, 6);
    EXPECT_TRUE(AllZero(bytes + 1, 6));
    EXPECT_EQ(bytes[0], 0xA5);
    EXPECT_EQ(bytes[7], 0xA5);
}

TEST(WipeMemory, TakesNothing) {
    platform::WipeMemory(nullptr, 0);
    u8 byte = 1;
    platform::WipeMemory(&byte, 0);
    EXPECT_EQ(byte, 1);
}

TEST(AllocateZeroed, GivesZeroedAlignedBlocks) {
    for (const std::size_t size : kSizes) {
        void* block = platform::AllocateZeroed(size);
        ASSERT_NE(block, nullptr);
        EXPECT_TRUE(AllZero(block, size));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0U);
        std::memset(block, 0xA5, size);
        platform::WipeAndFree(block, size);
    }
}

TEST(AllocateZeroed, GivesNullForNothingOrWithoutMemory) {
    EXPECT_EQ(platform::AllocateZeroed(0), nullptr);
    platform::OrderFault(platform::FaultPoint::AllocateZeroed, 8);
    EXPECT_EQ(platform::AllocateZeroed(1), nullptr);
    platform::ClearFaults();
}

TEST(WipeAndFree, WipesTheWholeBlock) {
    for (const std::size_t size : kSizes) {
        void* block = platform::AllocateZeroed(size);
        ASSERT_NE(block, nullptr);
        std::memset(block, 0xA5, size);
        const WipeWatch watch(block, size);
        platform::WipeAndFree(block, size);
        EXPECT_TRUE(watch.Wiped()) << size;
    }
}

TEST(WipeAndFree, TakesNull) {
    platform::WipeAndFree(nullptr, 0);
    platform::WipeAndFree(nullptr, 100);
    platform::FreeUnwiped(nullptr, 100);
}

TEST(FreeUnwiped, DoesNotWipe) {
    for (const std::size_t size : kSizes) {
        void* block = platform::AllocateZeroed(size);
        ASSERT_NE(block, nullptr);
        const WipeWatch watch(block, size);
        platform::FreeUnwiped(block, size);
        EXPECT_FALSE(watch.Wiped());
    }
}

}  // namespace
