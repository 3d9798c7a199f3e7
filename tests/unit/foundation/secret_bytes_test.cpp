#include "foundation/secret_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "tests/unit/wipe_watch.h"

namespace {

TEST(SecretBytes, AreZeroAtFirst) {
    const SecretBytes<32> bytes;
    EXPECT_TRUE(std::all_of(bytes.Data(), bytes.Data() + 32, [](u8 byte) { return byte == 0; }));
}

TEST(SecretBytes, AreWipedWhenTheyGo) {
    auto bytes = std::make_unique<SecretBytes<32>>();
    std::fill_n(bytes->Data(), 32, u8{0xA5});
    const WipeWatch watch(bytes->Data(), 32);
    bytes.reset();
    EXPECT_TRUE(watch.Wiped());
}

}  // namespace
