// A language of the test's own, in the program's folder of languages.
#pragma once

#include "foundation/language.h"
#include "foundation/path.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "tests/app/text_file.h"

// The file is there while this lives; afterwards English is in use again. What the file lacks stays English.
class OtherLanguage {
public:
    static constexpr const char16_t* kFile = u"app-tests.ini";

    explicit OtherLanguage(const tvstring& lines) {
        EXPECT_TRUE(CreateDirectories(ProgramPath(u"Lang")));
        tvstring text = u"[.info]\r\nname = Other\r\n";
        text.append(lines);
        WriteTextFile(Path(), text);
    }
    ~OtherLanguage() {
        DeleteFileW(Wide(Path().c_str()));
        RemoveDirectoryW(Wide(ProgramPath(u"Lang").c_str()));  // unless it holds others
        TheAppData().LoadStoreLang(LoadStore::Store, u"english.ini");
    }
    OtherLanguage(const OtherLanguage&) = delete;
    OtherLanguage& operator=(const OtherLanguage&) = delete;

    // As the user does it.
    static void Choose() { TheAppData().LoadStoreLang(LoadStore::Store, kFile); }

private:
    static tvstring Path() { return JoinPath(ProgramPath(u"Lang"), kFile); }
};
