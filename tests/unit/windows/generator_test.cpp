#include "windows/generator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <limits>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/fault.h"

using ::testing::ElementsAre;

namespace {

constexpr std::size_t kBlock = PassGenRandom::kBlockSize;

using Block = std::array<u8, kBlock>;

// A block that starts with these bytes and goes on with `rest`.
Block Bytes(std::initializer_list<u8> first, u8 rest = 0) {
    Block block;
    block.fill(rest);
    std::copy(first.begin(), first.end(), block.begin());
    return block;
}

struct OutOfBlocks : std::runtime_error {
    OutOfBlocks() : std::runtime_error("no more blocks") {}
};

// Gives blocks that were chosen, in their order, and then none.
class Script : public PassGenRandom {
public:
    explicit Script(std::deque<Block> blocks, u8 neighbour = 0)
        : m_Blocks(std::move(blocks)), m_Neighbour(neighbour) {}

    void FetchBlock(u8* out32) override {
        if (m_Blocks.empty()) throw OutOfBlocks();
        std::copy(m_Blocks.front().begin(), m_Blocks.front().end(), out32);
        m_Blocks.pop_front();
    }
    u8 Neighbour() override {
        ++m_Asked;
        return m_Neighbour;
    }

    [[nodiscard]] std::size_t Left() const { return m_Blocks.size(); }
    [[nodiscard]] int NeighbourAsked() const { return m_Asked; }

private:
    std::deque<Block> m_Blocks;
    u8 m_Neighbour;
    int m_Asked = 0;
};

constexpr std::array<u8, 4> kDigits = {1, 0, 0, 0};
constexpr std::array<u8, 4> kOther = {0, 0, 0, 1};
constexpr std::array<u8, 4> kAllClasses = {1, 1, 1, 1};

PassGenRequest Request(std::array<u8, 4> use, i32 minLength, i32 maxLength) {
    return {use, minLength, maxLength};
}

tvstring Generate(const PassGenRequest& request, PassGenRandom& random) {
    return GeneratePassword([&request] { return request; }, random);
}

// --- Classes ---

TEST(PassGenTables, HoldTheCharactersOfTheFourClasses) {
    EXPECT_EQ(kPassGenTables[PASSGEN_DIGITS], u"0123456789");
    EXPECT_EQ(kPassGenTables[PASSGEN_UPPER], u"ABCDEFGHJKLMNPQRSTUVWXYZ");
    EXPECT_EQ(kPassGenTables[PASSGEN_LOWER], u"abcdefghijkmnopqrstuvwxyz");
    EXPECT_EQ(kPassGenTables[PASSGEN_OTHER], uR"(~!@#$%^&*()_+|{}:"<>,.?/\;')");
}

TEST(PassGenTables, HaveTheirSizesAndIndexes) {
    std::vector<std::size_t> sizes;
    for (const PassGenClass index : {PASSGEN_DIGITS, PASSGEN_UPPER, PASSGEN_LOWER, PASSGEN_OTHER})
        sizes.push_back(kPassGenTables[index].size());
    EXPECT_THAT(sizes, ElementsAre(10, 24, 25, 27));
    EXPECT_THAT((std::vector<int>{PASSGEN_DIGITS, PASSGEN_UPPER, PASSGEN_LOWER, PASSGEN_OTHER}),
                ElementsAre(0, 1, 2, 3));
}

TEST(PassGenTables, LeaveOutLettersThatLookLikeOthers) {
    for (const std::u16string_view table : kPassGenTables)
        EXPECT_EQ(table.find_first_of(u"IOl"), std::u16string_view::npos);
}

TEST(PassGenTables, HoldNoCharacterTwice) {
    std::multiset<char16_t> all;
    for (const std::u16string_view table : kPassGenTables)
        all.insert(table.begin(), table.end());
    for (const char16_t unit : all)
        EXPECT_EQ(all.count(unit), 1U);
}

// --- Lengths ---

TEST(PassGenLengths, AreClamped) {
    const auto normalised = [](i32 minLength, i32 maxLength) {
        NormaliseLengths(minLength, maxLength);
        return std::pair(minLength, maxLength);
    };
    EXPECT_EQ(normalised(4, 128), std::pair(4, 128));
    EXPECT_EQ(normalised(3, 129), std::pair(4, 128));
    EXPECT_EQ(normalised(0, 500), std::pair(4, 128));
    EXPECT_EQ(normalised(200, 300), std::pair(128, 128));
    EXPECT_EQ(normalised(0, 0), std::pair(4, 4));
    EXPECT_EQ(normalised(-1, -1), std::pair(4, 4));
    EXPECT_EQ(normalised(std::numeric_limits<i32>::min(), std::numeric_limits<i32>::max()),
              std::pair(4, 128));
}

TEST(PassGenLengths, HaveTheLongestRaisedToTheShortest) {
    i32 minLength = 20;
    i32 maxLength = 12;
    NormaliseLengths(minLength, maxLength);
    EXPECT_EQ(minLength, 20);
    EXPECT_EQ(maxLength, 20);
    minLength = 500;
    maxLength = 5;
    NormaliseLengths(minLength, maxLength);
    EXPECT_EQ(minLength, 128);
    EXPECT_EQ(maxLength, 128);
}

TEST(PassGenLengths, TellWhichOfThemChanged) {
    const auto changed = [](i32 minLength, i32 maxLength) {
        const ChangedLengths result = NormaliseLengths(minLength, maxLength);
        return std::pair(result.min, result.max);
    };
    EXPECT_EQ(changed(12, 20), std::pair(false, false));
    EXPECT_EQ(changed(0, 20), std::pair(true, false));
    EXPECT_EQ(changed(12, 500), std::pair(false, true));
    EXPECT_EQ(changed(20, 12), std::pair(false, true));
    EXPECT_EQ(changed(0, 2), std::pair(true, true));
}

TEST(Generator, NormalisesTheLengthsThatItReads) {
    Script four({Bytes({})});
    EXPECT_EQ(Generate(Request(kDigits, 0, 0), four).size(), 4U);
    Script eight(std::deque<Block>(8, Bytes({})));
    EXPECT_EQ(Generate(Request(kDigits, 500, 300), eight).size(), 128U);
    Script twenty(std::deque<Block>(2, Bytes({})));
    EXPECT_EQ(Generate(Request(kDigits, 20, 12), twenty).size(), 20U);
    EXPECT_EQ(twenty.Left(), 0U);
}

// --- The length ---

TEST(Generator, FetchesNoBlockForTheLengthIfThereIsOneOnly) {
    Script script({Bytes({0, 1, 0, 2, 0, 3, 0, 4, 0, 5})});
    EXPECT_EQ(Generate(Request(kDigits, 5, 5), script), u"12345");
}

TEST(Generator, FetchesABlockForTheLengthAndAnotherForTheFirstCharacter) {
    Script script({Bytes({}), Bytes({0, 9, 0, 8, 0, 7, 0, 6})});
    EXPECT_EQ(Generate(Request(kDigits, 4, 5), script), u"9876");
    EXPECT_EQ(script.Left(), 0U);
}

TEST(Generator, AddsUpTheBlockAndTheByteBehindItForTheLength) {
    const auto lengthFrom = [](const Block& block, u8 neighbour) {
        std::deque<Block> blocks(9, Bytes({}));
        blocks.front() = block;
        Script script(blocks, neighbour);
        return Generate(Request(kDigits, 4, 128), script).size();
    };
    EXPECT_EQ(lengthFrom(Bytes({}), 0), 4U);
    EXPECT_EQ(lengthFrom(Bytes({}), 7), 11U);
    EXPECT_EQ(lengthFrom(Bytes({}, 1), 0), 36U);
    EXPECT_EQ(lengthFrom(Bytes({}, 1), 9), 45U);
    EXPECT_EQ(lengthFrom(Bytes({124}), 0), 128U);
    EXPECT_EQ(lengthFrom(Bytes({125}), 0), 4U);
    EXPECT_EQ(lengthFrom(Bytes({124}), 1), 4U);
    EXPECT_EQ(lengthFrom(Bytes({}, 255), 255), 4U + 33 * 255 % 125);
}

TEST(Generator, TakesEachByteOfTheBlockIntoTheLength) {
    for (std::size_t place = 0; place < kBlock; ++place) {
        std::deque<Block> blocks(9, Bytes({}));
        blocks.front()[place] = static_cast<u8>(50 + place);
        Script script(blocks);
        EXPECT_EQ(Generate(Request(kDigits, 4, 128), script).size(), 54 + place);
    }
}

TEST(Generator, TakesTheSumByTheNumberOfLengths) {
    const auto lengthFrom = [](u8 sum, i32 minLength, i32 maxLength) {
        Script script({Bytes({sum}), Bytes({}), Bytes({})});
        return Generate(Request(kDigits, minLength, maxLength), script).size();
    };
    EXPECT_EQ(lengthFrom(0, 12, 20), 12U);
    EXPECT_EQ(lengthFrom(8, 12, 20), 20U);
    EXPECT_EQ(lengthFrom(9, 12, 20), 12U);
    EXPECT_EQ(lengthFrom(1, 12, 13), 13U);
    EXPECT_EQ(lengthFrom(2, 12, 13), 12U);
}

// --- The characters ---

TEST(Generator, TakesTheClassFromTheTwoLowBitsOfAByte) {
    Script script({Bytes({0xFC, 3, 0x41, 25, 0x82, 255, 0x0F, 26})});
    EXPECT_EQ(Generate(Request(kAllClasses, 4, 4), script), u"3Bf'");
}

TEST(Generator, TakesTheRemainderOfAByteAsTheCharacter) {
    const auto characterFor = [](u8 chosen, u8 value) {
        std::array<u8, 4> use = {};
        use[chosen] = 1;
        Script script({Bytes({chosen, value, chosen, value, chosen, value, chosen, value})});
        return Generate(Request(use, 4, 4), script)[0];
    };
    for (u8 chosen = 0; chosen < kPassGenClasses; ++chosen) {
        for (unsigned value = 0; value <= 255; ++value) {
            const std::u16string_view table = kPassGenTables[chosen];
            ASSERT_EQ(characterFor(chosen, static_cast<u8>(value)), table[value % table.size()]);
        }
    }
}

TEST(Generator, SpendsOneByteOnAClassThatIsNotAskedFor) {
    Script script({Bytes({1, 2, 3, 0, 7, 3, 0, 6, 0, 5, 2, 1, 0, 4})});
    EXPECT_EQ(Generate(Request(kDigits, 4, 4), script), u"7654");
}

TEST(Generator, FetchesABlockWhereTheLastIsUsedUp) {
    std::deque<Block> blocks = {Bytes({}), Bytes({0, 1})};
    for (std::size_t i = 0; i < kBlock; i += 2)
        blocks[0][i + 1] = 9;
    Script script(blocks, 5);
    EXPECT_EQ(Generate(Request(kDigits, 17, 17), script), u"99999999999999991");
}

TEST(Generator, ReadsTheCharacterFromBehindTheBlockIfTheClassWasItsLastByte) {
    Block first = Bytes({}, 1);
    first[31] = 0;
    Script script({first, Bytes({0, 1, 0, 2, 0, 3})}, 28);
    EXPECT_EQ(Generate(Request(kDigits, 4, 4), script), u"8123");
    EXPECT_EQ(script.Left(), 0U);
}

TEST(Generator, ReadsNothingFromBehindTheBlockIfTheCharacterWasItsLastByte) {
    Block first = Bytes({}, 1);
    first[30] = 0;
    first[31] = 6;
    Script script({first, Bytes({0, 1, 0, 2, 0, 3})}, 28);
    EXPECT_EQ(Generate(Request(kDigits, 4, 4), script), u"6123");
}

TEST(Generator, NeverTakesAClassFromBehindTheBlock) {
    Script script({Bytes({}, 1), Bytes({0, 1, 0, 2, 0, 3, 0, 4})}, 0);
    EXPECT_EQ(Generate(Request(kDigits, 4, 4), script), u"1234");
}

TEST(Generator, HasOneByteBehindAllBlocksOfAPassword) {
    Block odd = Bytes({}, 1);
    odd[31] = 0;
    Script script({Bytes({}), odd, odd, odd, odd, odd},
                  3);  // the first one and the 3 behind it give length 5
    EXPECT_EQ(Generate(Request(kDigits, 4, 5), script), u"33333");
    EXPECT_EQ(script.NeighbourAsked(), 1);
}

// Three of four bytes go to classes that are not asked for; so eight characters come from a block.
TEST(Generator, OfOneClassAloneTakesCharactersOfNoOther) {
    Block counting;
    for (std::size_t i = 0; i < kBlock; ++i)
        counting[i] = static_cast<u8>(i);
    Script script({counting, counting}, 26);
    EXPECT_EQ(Generate(Request(kOther, 16, 16), script), u"$*+:,\\!'$*+:,\\!'");
}

// --- Tries ---

TEST(Generator, ThrowsAwayAPasswordThatLacksAClass) {
    Script script({Bytes({0, 1, 0, 2, 0, 3, 0, 4}), Bytes({0, 5, 1, 0, 2, 0, 3, 0})});
    EXPECT_EQ(Generate(Request(kAllClasses, 4, 4), script), u"5Aa~");
    EXPECT_EQ(script.Left(), 0U);
}

// The rest of the first block would have given all classes.
TEST(Generator, StartsAnotherTryWithANewBlock) {
    Script script({Bytes({0, 1, 0, 2, 0, 3, 0, 4, 0, 9, 1, 9, 2, 9, 3, 9}), Bytes({0, 5, 1, 0, 2, 0, 3, 0})});
    EXPECT_EQ(Generate(Request(kAllClasses, 4, 4), script), u"5Aa~");
    EXPECT_EQ(script.Left(), 0U);
}

TEST(Generator, TriesAgainForEachClassThatIsAskedFor) {
    for (u8 missing = 0; missing < kPassGenClasses; ++missing) {
        const u8 there = missing == 0 ? 1 : 0;
        Script script({Bytes({there, 0, there, 0, there, 0, there, 0}),
                       Bytes({there, 1, missing, 1, there, 1, missing, 1})});
        std::array<u8, 4> use = {};
        use[missing] = use[there] = 1;
        const tvstring password = Generate(Request(use, 4, 4), script);
        EXPECT_EQ(password[0], kPassGenTables[there][1]);
        EXPECT_EQ(password[1], kPassGenTables[missing][1]);
    }
}

TEST(Generator, ChoosesTheLengthAnewForEachTry) {
    Script script({Bytes({0}), Bytes({0, 1, 0, 2, 0, 3, 0, 4}),                // 4: no letter
                   Bytes({2}), Bytes({1, 0, 1, 1, 1, 2, 1, 3, 1, 4, 1, 5}),    // 6: no digit
                   Bytes({1}), Bytes({0, 7, 1, 6, 0, 8, 1, 7, 0, 9, 1, 8})});  // 5
    EXPECT_EQ(Generate(Request({1, 1, 0, 0}, 4, 6), script), u"7G8H9");
    EXPECT_EQ(script.Left(), 0U);
    EXPECT_EQ(script.NeighbourAsked(), 1);
}

TEST(Generator, LooksAtTheRequestAnewForEachTry) {
    Script script({Bytes({0, 1, 0, 2, 0, 3, 0, 4}), Bytes({2, 0, 2, 1, 0, 9, 2, 2, 2, 3, 2, 4})});
    const std::vector<PassGenRequest> requests = {Request({1, 1, 0, 0}, 4, 4), Request({0, 0, 1, 0}, 5, 5)};
    std::size_t reads = 0;
    const tvstring password = GeneratePassword([&] { return requests[reads++]; }, script);
    EXPECT_EQ(password, u"abcde");
    EXPECT_EQ(reads, 2U);
}

TEST(Generator, LooksAtTheRequestOnceIfTheFirstTryIsGood) {
    Script script({Bytes({0, 1, 0, 2, 0, 3, 0, 4})});
    int reads = 0;
    GeneratePassword(
        [&reads] {
            ++reads;
            return Request(kDigits, 4, 4);
        },
        script);
    EXPECT_EQ(reads, 1);
}

// Gives blocks in which all classes stand, counts them, and ends with an exception.
class Endless : public PassGenRandom {
public:
    explicit Endless(int limit) : m_Limit(limit) {}
    void FetchBlock(u8* out32) override {
        if (m_Blocks == m_Limit) throw OutOfBlocks();
        ++m_Blocks;
        for (std::size_t i = 0; i < kBlock; ++i)
            out32[i] = static_cast<u8>(i * 7);
    }
    u8 Neighbour() override { return 0; }
    [[nodiscard]] int Blocks() const { return m_Blocks; }

private:
    int m_Limit;
    int m_Blocks = 0;
};

TEST(Generator, WithoutAnyClassFetchesBlocksOnAndOn) {
    Endless endless(100'000);
    int reads = 0;
    const auto read = [&reads] {
        ++reads;
        return Request({}, 12, 12);
    };
    EXPECT_THROW(GeneratePassword(read, endless), OutOfBlocks);
    EXPECT_EQ(endless.Blocks(), 100'000);
    EXPECT_EQ(reads, 1);  // it never gets to the end of its first try
}

// --- From the system's random bytes ---

bool HasCharacterOf(const tvstring& password, PassGenClass index) {
    return password.view().find_first_of(kPassGenTables[index]) != std::u16string_view::npos;
}

TEST(GeneratorOfTheSystem, GivesAnotherPasswordEachTime) {
    const PassGenRequest request;
    std::set<tvstring> passwords;
    std::set<std::size_t> lengths;
    for (int i = 0; i < 500; ++i) {
        const tvstring password = GeneratePassword(request);
        ASSERT_GE(password.size(), 12U);
        ASSERT_LE(password.size(), 20U);
        EXPECT_TRUE(HasCharacterOf(password, PASSGEN_DIGITS) && HasCharacterOf(password, PASSGEN_UPPER) &&
                    HasCharacterOf(password, PASSGEN_LOWER));
        EXPECT_FALSE(HasCharacterOf(password, PASSGEN_OTHER));
        passwords.insert(password);
        lengths.insert(password.size());
    }
    EXPECT_EQ(passwords.size(), 500U);
    EXPECT_EQ(lengths.size(), 9U);
}

TEST(GeneratorOfTheSystem, HasEachClassOnceInFourCharactersOfAll) {
    for (int i = 0; i < 100; ++i) {
        const tvstring password = GeneratePassword(Request(kAllClasses, 4, 4));
        ASSERT_EQ(password.size(), 4U);
        for (const PassGenClass index : {PASSGEN_DIGITS, PASSGEN_UPPER, PASSGEN_LOWER, PASSGEN_OTHER})
            ASSERT_TRUE(HasCharacterOf(password, index));
    }
}

TEST(GeneratorOfTheSystem, GivesAPasswordWhereTheSystemHasNoRandomBytesToGive) {
    platform::OrderFault(platform::FaultPoint::RandomBytes, 0, 0, 3);
    EXPECT_EQ(GeneratePassword(Request(kDigits, 8, 8)).size(), 8U);
    platform::ClearFaults();
}

}  // namespace
