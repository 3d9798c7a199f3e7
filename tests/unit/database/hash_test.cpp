// What both hashes promise beside their digests.
#include <gtest/gtest.h>

#include <algorithm>

#include "database/hash_md5.h"
#include "database/hash_sha3.h"
#include "tests/unit/database/digest_of.h"
#include "tests/unit/database/wiping.h"

namespace {

template <typename Type>
class Hash : public testing::Test {};

using Hashes = testing::Types<HashMD5, HashSHA3>;
TYPED_TEST_SUITE(Hash, Hashes);

TYPED_TEST(Hash, GivesTheSameDigestForEverySplitInTwo) {
    const std::vector<u8> message = CountingBytes(300);
    const std::string whole = DigestOf<TypeParam>(message);
    for (std::size_t first = 0; first <= message.size(); ++first) {
        TypeParam hash;
        hash.Update(message.data(), first);
        hash.Update(message.data() + first, message.size() - first);
        EXPECT_EQ(Digest(hash), whole) << first;
    }
}

TYPED_TEST(Hash, GivesTheSameDigestForPiecesOfAnySize) {
    const std::vector<u8> message = CountingBytes(1000);
    const std::string whole = DigestOf<TypeParam>(message);
    for (std::size_t piece = 1; piece <= 300; ++piece) {
        TypeParam hash;
        for (std::size_t position = 0; position < message.size(); position += piece)
            hash.Update(message.data() + position, std::min(piece, message.size() - position));
        EXPECT_EQ(Digest(hash), whole) << piece;
    }
}

TYPED_TEST(Hash, TakesNullWithSizeZero) {
    TypeParam hash;
    hash.Update("a", 1);
    hash.Update(nullptr, 0);
    hash.Update("bc", 2);
    EXPECT_EQ(Digest(hash), DigestOf<TypeParam>("abc"));
}

TYPED_TEST(Hash, IsUsableAgainAfterInit) {
    TypeParam hash;
    hash.Update("forgotten", 9);
    hash.Init();
    hash.Update("abc", 3);
    EXPECT_EQ(Digest(hash), DigestOf<TypeParam>("abc"));
    hash.Init();
    EXPECT_EQ(Digest(hash), DigestOf<TypeParam>(""));
}

TYPED_TEST(Hash, WritesNothingBehindTheDigest) {
    std::array<u8, TypeParam::kDigestSize + 1> digest{};
    digest.back() = 0x5A;
    TypeParam().Final(digest.data());
    EXPECT_EQ(digest.back(), 0x5A);
}

TYPED_TEST(Hash, IsWipedByItsDestructor) {
    ObservedPlace<TypeParam> place;
    TypeParam* hash = place.Construct();
    hash->Update("secret", 6);
    EXPECT_FALSE(place.AllZero());
    hash->~TypeParam();
    EXPECT_TRUE(place.AllZero());
}

TYPED_TEST(Hash, IsWipedByFinal) {
    ObservedPlace<TypeParam> place;
    TypeParam* hash = place.Construct();
    hash->Update("secret", 6);
    EXPECT_EQ(Digest(*hash), DigestOf<TypeParam>("secret"));
    EXPECT_TRUE(place.AllZero());
    hash->~TypeParam();
}

}  // namespace
