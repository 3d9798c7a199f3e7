// GoogleTest with the application object in place before any test makes a window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/gui/test_app.h"

namespace {

TestApp* g_App = nullptr;

// What a test has put in place goes with it.
class ForgetHooks : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override {
        TestApp::Get().m_onMessage = nullptr;
        TestApp::Get().m_onHelp = nullptr;
    }
};

}  // namespace

TestApp::TestApp() {
    g_App = this;
}

TestApp::~TestApp() = default;

bool TestApp::PreTranslateAppMsg(MSG* msg) {
    if (m_onMessage && m_onMessage(msg)) return true;
    return tvBaseApp::PreTranslateAppMsg(msg);
}

void TestApp::OnHelp() {
    if (m_onHelp) m_onHelp();
}

TestApp& TestApp::Get() {
    return *g_App;
}

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    const TestApp app;
    testing::UnitTest::GetInstance()->listeners().Append(new ForgetHooks);
    return RUN_ALL_TESTS();
}
