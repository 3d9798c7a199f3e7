// The application object of the tests, whose operations a test can take part in for a while.
#pragma once

#include <functional>

#include "toolkit/app.h"

class TestApp : public tvBaseApp {
public:
    TestApp();
    ~TestApp() override;

    bool PreTranslateAppMsg(MSG* msg) override;
    void OnHelp() override;

    static TestApp& Get();

    std::function<bool(MSG*)> m_onMessage;  // true ends the message
    std::function<void()> m_onHelp;
};
