// Random databases, from fixed seeds, come back from their containers and files as they were.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>

#include "database/container.h"
#include "tests/unit/database/tree.h"
#include "tests/unit/test_files.h"

namespace {

class RandomTrees {
public:
    explicit RandomTrees(unsigned seed) : m_Random(seed) {}

    Tree Next() {
        Tree tree{Below(3) == 0 ? u"" : Text(), std::vector<ItemValues>(Count())};
        for (ItemValues& item : tree.items) {
            item = {Text(), Date(), std::vector<EntryValues>(Count())};
            for (EntryValues& entry : item.entries)
                entry = {static_cast<u16>(3 + Below(4)), Text()};
        }
        // With neither there is nothing to write.
        if (tree.name.empty() && tree.items.empty()) tree.name = std::u16string(1, u'n');
        return tree;
    }
    std::u16string Password() {
        std::u16string password = Text().substr(0, 40);
        return password.empty() ? u"p" : password;
    }

private:
    std::size_t Below(std::size_t limit) { return m_Random() % limit; }
    std::size_t Count() { return Below(8) == 0 ? 0 : Below(7); }

    u64 Date() {
        static constexpr u64 kSpecial[] = {0, 1, 0xffff'ffff, 0x7fff'ffff'ffff'ffff, 0xffff'ffff'ffff'ffff};
        const u64 any = u64{m_Random()} << 32 | m_Random();
        return Below(4) == 0 ? kSpecial[Below(std::size(kSpecial))] : any;
    }
    std::size_t Length() {
        if (Below(2000) == 0) return 65535 - Below(2);
        if (Below(100) == 0) return Below(5000);
        return Below(5) == 0 ? 0 : Below(40);
    }
    // Any unit can stand anywhere: zeros, surrogates without their partner, line breaks.
    char16_t Unit() {
        switch (Below(8)) {
            case 0:
                return static_cast<char16_t>(m_Random());
            case 1:
                return static_cast<char16_t>(0xd800 + Below(0x800));
            case 2:
                return static_cast<char16_t>(Below(16));
            default:
                return static_cast<char16_t>(u' ' + Below(95));
        }
    }
    std::u16string Text() {
        std::u16string text(Length(), u'\0');
        for (char16_t& unit : text)
            unit = Unit();
        return text;
    }

    std::mt19937 m_Random;
};

TEST(RandomDatabases, ComeBackFromTheirContainers) {
    RandomTrees trees(1);
    for (int i = 0; i < 4000; ++i) {
        SCOPED_TRACE(i);
        const Tree tree = trees.Next();
        VMRD_DB database;
        VMRD_DB carrier;
        HashPassword(trees.Password(), database.m_PwdHash);
        std::ranges::copy(database.m_PwdHash, carrier.m_PwdHash);
        Fill(database, tree);
        const tvdata container = database.Serialize();
        ASSERT_TRUE(carrier.Deserialize(container.Data(), container.Size()));
        ASSERT_EQ(TreeOf(carrier), tree);
        ASSERT_EQ(carrier.m_Count, static_cast<i32>(tree.items.size()));
    }
}

TEST(RandomDatabases, ComeBackFromTheirFiles) {
    const TempFolder folder;
    const tvstring path = folder.Path(u"a.vmr");
    RandomTrees trees(2);
    VMRD_DB database;
    for (int i = 0; i < 200; ++i) {
        SCOPED_TRACE(i);
        const Tree tree = trees.Next();
        const tvstring password = trees.Password();
        database.Close();
        database.m_Opened = true;
        Fill(database, tree);
        database.m_Path = path;
        HashPassword(password, database.m_PwdHash);
        ASSERT_TRUE(database.Save());
        ASSERT_TRUE(database.Open(path, password));
        ASSERT_EQ(TreeOf(database), tree);
    }
}

// Whatever is changed in a container, reading it ends, in bounds, with a tree that can be written and read.
TEST(RandomDatabases, AreReadInBoundsWhenTheirContainersAreDamaged) {
    RandomTrees trees(3);
    std::mt19937 random(3);
    int taken = 0;
    for (int i = 0; i < 2000; ++i) {
        VMRD_DB database;
        VMRD_DB carrier;
        HashPassword(u"p", database.m_PwdHash);
        HashPassword(u"p", carrier.m_PwdHash);
        Fill(database, trees.Next());
        const tvdata container = database.Serialize();
        std::vector<u8> bytes(container.Data(), container.Data() + container.Size());
        // The plain size, or a byte of the cipher text, which turns over the block that it stands in.
        const bool inHeader = random() % 2 == 0;
        const std::size_t place = inHeader ? 4 + random() % 4 : 40 + random() % (bytes.size() - 40);
        bytes[place] = static_cast<u8>(random());
        taken += carrier.Deserialize(bytes.data(), bytes.size()) ? 1 : 0;
        if (carrier.m_Count == 0) continue;
        VMRD_DB again;
        HashPassword(u"p", again.m_PwdHash);
        const tvdata rewritten = carrier.Serialize();
        ASSERT_TRUE(again.Deserialize(rewritten.Data(), rewritten.Size()));
        ASSERT_EQ(TreeOf(again), TreeOf(carrier));
    }
    EXPECT_GT(taken, 0);
    EXPECT_LT(taken, 2000);
}

}  // namespace
