// A second language for tests, in the program's own folder of languages while the test runs.
#pragma once

#include "foundation/language.h"
#include "tests/app/command_stage.h"

// Finds English and a language "Deutsch", which has English texts but for undo "Zurueck", add "Dazu...", copy
// "Abschrift", modify "Anders", new "Neuer Tresor", type_vmr "Tresore", setpwd_title "Kennwort", recent_open
// "Auf" and the file type "Tresor".
class LanguageTest : public CommandTest {
protected:
    LanguageTest();
    // English is in use again, and the only language.
    ~LanguageTest() override;

    static const char16_t* SecondFile() noexcept;

    // Changes the language as the user would.
    static void UseSecond();
    static void UseEnglish();

    // Takes the second language away again.
    static void Remove();
};
