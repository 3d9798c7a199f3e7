#include <gtest/gtest.h>

#include "platform/windows_api.h"

namespace {

// Programs take the system's time for a double click over as they start. Two clicks of these tests are never one,
// however quick they come.
constexpr UINT kNoDoubleClick = 1;  // milliseconds

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
    SetDoubleClickTime(kNoDoubleClick);
    return RUN_ALL_TESTS();
}
