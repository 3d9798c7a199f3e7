#include "database/hash_sha3.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/unit/database/digest_of.h"

namespace {

std::string DigestOf(const auto& message) {
    return ::DigestOf<HashSHA3>(message);
}

std::string DigestOfText(const tvstring& text) {
    HashSHA3 hash;
    hash.UpdateText(text);
    return Digest(hash);
}

TEST(HashSHA3, GivesThePublishedDigests) {
    EXPECT_EQ(DigestOf(""), "a7ffc6f8bf1ed76651c14756a061d662f580ff4de43b49fa82d80a4b80f8434a");
    EXPECT_EQ(DigestOf("abc"), "3a985da74fe225b2045c172d6bd390bd855f086e3e9d525b46bfe24511431532");
    EXPECT_EQ(DigestOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "41c0dba2a9d6240849100376a8235e2c82e1b9998a999e21db32dd97496d3376");
    EXPECT_EQ(DigestOf("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmn"
                       "hijklmnoijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu"),
              "916f6061fe879741ca6469b43971dfdb28b1a32dc36cb3254e812be27aad1d18");
    EXPECT_EQ(DigestOf(std::string(1000000, 'a')),
              "5c8875ae474a3634ba4fd55ec85bffd661f32aca75c6d699d0cdcb6c115891c1");
}

TEST(HashSHA3, PadsMessagesAroundWholeBlocks) {
    EXPECT_EQ(DigestOf(CountingBytes(135)),
              "fded8fd9d6551c601eeb3b7c6bc5e5cfd8aad1d015b7e9aaa9c9b9475231d5e2");
    EXPECT_EQ(DigestOf(CountingBytes(136)),
              "cf3ccff92480a29160c2d38317c430e14749bfee1788106957dfe73f8c4930e5");
    EXPECT_EQ(DigestOf(CountingBytes(137)),
              "ce9d7dc90913ee5d92745019479a5352c6d6279bef18ed07dc0a83ee8084daca");
    EXPECT_EQ(DigestOf(CountingBytes(271)),
              "0153fcdb6825d836b10835ccb3999dc1d8b68492f77e7e38afa31f8e244bd7af");
    EXPECT_EQ(DigestOf(CountingBytes(272)),
              "b7ccd55b6c2c3fa144c9e0624059294975a348b02f321abe289701d3012f7794");
    EXPECT_EQ(DigestOf(CountingBytes(273)),
              "4827800416bd25b01f53360454943ef688112eaee40422929a59af596a2c0be7");
}

TEST(HashSHA3, HashesTheUtf8FormOfATextWithoutATerminator) {
    EXPECT_EQ(DigestOfText(u"abc"), DigestOf("abc"));
    EXPECT_EQ(DigestOfText(u"P\u00E4ssw\u00F6rd\u20AC\U0001F511"),
              "c6fc36e022045214d7fb2b35ee0daf07bd8ce16f5fe3d5b36bfcd70206e27b61");
}

TEST(HashSHA3, HashesAnEmptyTextAsNoBytes) {
    EXPECT_EQ(DigestOfText(tvstring()), DigestOf(""));
}

TEST(HashSHA3, HashesAZeroUnitWithinATextLikeAnyOther) {
    EXPECT_EQ(DigestOfText(tvstring(u"a\0b", 3)),
              "b476fd9cc202c304856e5b838839a737fbaaa96a2f44808f8c28c8cff135db22");
}

TEST(HashSHA3, JoinsTextAndBytes) {
    HashSHA3 hash;
    hash.UpdateText(u"a");
    hash.Update("b", 1);
    hash.UpdateText(u"c");
    EXPECT_EQ(Digest(hash), DigestOf("abc"));
}

}  // namespace
