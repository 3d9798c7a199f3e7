// The ring that the rows of a list box are in.
#include "toolkit/list_queue.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::unique_ptr<tvMListItem> Item(int number) {
    auto item = std::make_unique<tvMListItem>();
    item->m_data = number;
    return item;
}

std::string Contents(const tvMListQueue& queue) {
    std::string text;
    for (int i = 0; i < queue.Count(); ++i)
        text += std::to_string(queue.At(i)->m_data) + ' ';
    return text;
}

TEST(ListQueue, GrowsByPowersOfTwoFromEight) {
    tvMListQueue queue;
    EXPECT_EQ(queue.Capacity(), 0U);
    for (int i = 0; i < 17; ++i) {
        queue.Insert(i, Item(i));
        EXPECT_EQ(queue.Capacity(), i < 8 ? 8U : i < 16 ? 16U : 32U);
    }
    EXPECT_EQ(Contents(queue), "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 ");
}

TEST(ListQueue, HasNothingOutOfRange) {
    tvMListQueue queue;
    EXPECT_EQ(queue.At(0), nullptr);
    queue.Insert(0, Item(1));
    EXPECT_EQ(queue.At(-1), nullptr);
    EXPECT_EQ(queue.At(1), nullptr);
    queue.Clear();
    EXPECT_EQ(queue.Count(), 0);
    EXPECT_EQ(queue.At(0), nullptr);
}

// All places, in a ring that begins anywhere, against a plain list.
TEST(ListQueue, PutsInAndTakesOutAnywhere) {
    tvMListQueue queue;
    std::vector<int> plain;
    unsigned random = 12345;
    for (int i = 0; i < 5000; ++i) {
        random = random * 1103515245 + 12345;
        const bool takes = plain.size() > 20 || (!plain.empty() && (random >> 16) % 3 == 0);
        const auto at = static_cast<int>((random >> 8) % (plain.size() + (takes ? 0 : 1)));
        if (takes) {
            queue.Remove(at);
            plain.erase(plain.begin() + at);
        } else {
            queue.Insert(at, Item(i));
            plain.insert(plain.begin() + at, i);
        }
        ASSERT_EQ(queue.Count(), static_cast<int>(plain.size()));
        for (std::size_t j = 0; j < plain.size(); ++j)
            ASSERT_EQ(queue.At(static_cast<int>(j))->m_data, plain[j]);
    }
}

}  // namespace
