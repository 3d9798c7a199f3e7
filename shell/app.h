// CVMRApp, the application object.
#pragma once

#include "toolkit/app.h"

class CVMRApp : public tvBaseApp {
public:
    ~CVMRApp() override;

    // Shows the help in the user's browser.
    void OnHelp() override;

    // The text behind the program's own name on the command line.
    static tvstring Arguments();
};

// The page that OnHelp shows.
inline constexpr const wchar_t* kHelpPage = L"https://vaultmere.example/vaultmere/help.html";
