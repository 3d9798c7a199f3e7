#include <gtest/gtest.h>

namespace {

// A test whose ASSERT fails ends there, also in what it calls: a user would not go on clicking either.
class EndOnFailure : public testing::EmptyTestEventListener {
    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (result.type() == testing::TestPartResult::kFatalFailure)
            throw testing::AssertionException(result);
    }
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new EndOnFailure);  // owned by the list
    return RUN_ALL_TESTS();
}
