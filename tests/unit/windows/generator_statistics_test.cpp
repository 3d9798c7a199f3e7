// How often the generator draws what. The random bytes are those of a seeded generator, so that the counts
// are the same in each run. A sample that follows the expected distribution stays below the bound with a
// probability of 0.999.
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

#include "windows/generator.h"

namespace {

class Seeded : public PassGenRandom {
public:
    explicit Seeded(unsigned seed) : m_Generator(seed) {}

    void FetchBlock(u8* out32) override {
        ++m_Blocks;
        for (std::size_t i = 0; i < kBlockSize; ++i)
            out32[i] = static_cast<u8>(m_Generator() >> 24);
    }
    u8 Neighbour() override { return static_cast<u8>(m_Generator() >> 24); }
    [[nodiscard]] int Blocks() const { return m_Blocks; }

private:
    std::mt19937 m_Generator;
    int m_Blocks = 0;
};

using Counts = std::vector<int>;

// The longest passwords, one behind the other: with all their classes in nearly every try.
std::vector<tvstring> Passwords(std::array<u8, kPassGenClasses> use, int count, PassGenRandom& random) {
    const PassGenRequest request = {use, kPassGenLongest, kPassGenLongest};
    std::vector<tvstring> passwords;
    passwords.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        passwords.push_back(GeneratePassword([&request] { return request; }, random));
    return passwords;
}

Counts CountClasses(const std::vector<tvstring>& passwords) {
    Counts counts(kPassGenClasses);
    for (const tvstring& password : passwords) {
        for (const char16_t unit : password) {
            for (std::size_t i = 0; i < kPassGenClasses; ++i)
                counts[i] += kPassGenTables[i].find(unit) != std::u16string_view::npos ? 1 : 0;
        }
    }
    return counts;
}

Counts CountCharacters(const std::vector<tvstring>& passwords, std::u16string_view table) {
    Counts counts(table.size());
    for (const tvstring& password : passwords) {
        for (const char16_t unit : password) {
            if (const std::size_t place = table.find(unit); place != table.npos) ++counts[place];
        }
    }
    return counts;
}

// The sum of the squared deviations from what is expected, each by what is expected.
double ChiSquare(const Counts& counts, const std::vector<double>& chances) {
    double all = 0;
    for (const int count : counts)
        all += count;
    double sum = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const double expected = all * chances[i];
        sum += (counts[i] - expected) * (counts[i] - expected) / expected;
    }
    return sum;
}

// The chance of each remainder of a fair byte.
std::vector<double> ChancesOfRemainders(std::size_t size) {
    std::vector<double> chances(size);
    for (unsigned value = 0; value < 256; ++value)
        chances[value % size] += 1.0 / 256;
    return chances;
}

std::vector<double> EqualChances(std::size_t size) {
    return std::vector<double>(size, 1.0 / static_cast<double>(size));
}

// The values that chi-square stays below with a probability of 0.999.
constexpr double kBoundOf1 = 10.83;
constexpr double kBoundOf2 = 13.82;
constexpr double kBoundOf3 = 16.27;
constexpr double kBoundOf9 = 27.88;
constexpr double kBoundOf23 = 49.73;
constexpr double kBoundOf24 = 51.18;
constexpr double kBoundOf26 = 54.05;

TEST(GeneratorStatistics, DrawsEachClassWithEqualChance) {
    Seeded random(1);
    const Counts counts = CountClasses(Passwords({1, 1, 1, 1}, 3000, random));
    EXPECT_LT(ChiSquare(counts, EqualChances(4)), kBoundOf3);
    // By size the classes would be drawn 10 to 24 to 25 to 27.
    EXPECT_GT(ChiSquare(counts, {10 / 86.0, 24 / 86.0, 25 / 86.0, 27 / 86.0}), 1000);
}

TEST(GeneratorStatistics, DrawsEachOfThreeClassesWithEqualChance) {
    Seeded random(2);
    Counts counts = CountClasses(Passwords({1, 1, 1, 0}, 3000, random));
    EXPECT_EQ(counts[PASSGEN_OTHER], 0);
    counts.pop_back();
    EXPECT_LT(ChiSquare(counts, EqualChances(3)), kBoundOf2);
}

TEST(GeneratorStatistics, DrawsEachOfTwoClassesWithEqualChance) {
    Seeded random(3);
    const Counts counts = CountClasses(Passwords({1, 0, 0, 1}, 3000, random));
    EXPECT_EQ(counts[PASSGEN_UPPER] + counts[PASSGEN_LOWER], 0);
    EXPECT_LT(ChiSquare({counts[PASSGEN_DIGITS], counts[PASSGEN_OTHER]}, EqualChances(2)), kBoundOf1);
}

// With a million digits a fair draw would be told apart.
TEST(GeneratorStatistics, DrawsTheDigits0To5MoreOftenThan6To9) {
    Seeded random(4);
    const Counts counts =
        CountCharacters(Passwords({1, 0, 0, 0}, 8000, random), kPassGenTables[PASSGEN_DIGITS]);
    constexpr double kOften = 26.0 / 256;
    constexpr double kSeldom = 25.0 / 256;
    EXPECT_LT(ChiSquare(counts,
                        {kOften, kOften, kOften, kOften, kOften, kOften, kSeldom, kSeldom, kSeldom, kSeldom}),
              kBoundOf9);
    EXPECT_GT(ChiSquare(counts, EqualChances(10)), 200);
}

TEST(GeneratorStatistics, DrawsTheCharactersOfEveryClassByTheRemainder) {
    Seeded random(5);
    const std::vector<tvstring> passwords = Passwords({1, 1, 1, 1}, 6000, random);
    constexpr std::array kBounds = {kBoundOf9, kBoundOf23, kBoundOf24, kBoundOf26};
    for (std::size_t i = 0; i < kPassGenClasses; ++i) {
        const std::u16string_view table = kPassGenTables[i];
        EXPECT_LT(ChiSquare(CountCharacters(passwords, table), ChancesOfRemainders(table.size())), kBounds[i])
            << i;
    }
}

// Four bytes on average until the class comes up, and one for the character.
TEST(GeneratorStatistics, OfOneClassAloneSpendsFiveBytesACharacter) {
    Seeded random(6);
    constexpr int kCount = 2000;
    const std::size_t characters =
        std::size_t{kPassGenLongest} * Passwords({0, 0, 0, 1}, kCount, random).size();
    // The last block of a password is left half full on average.
    const double bytes = (random.Blocks() - 0.5 * kCount) * static_cast<double>(PassGenRandom::kBlockSize);
    EXPECT_NEAR(bytes / static_cast<double>(characters), 5, 0.05);
}

}  // namespace
