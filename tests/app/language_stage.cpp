#include "tests/app/language_stage.h"

#include "foundation/path.h"
#include "foundation/textfile.h"

namespace {

constexpr const char16_t* kFile = u"app-tests-second.ini";
constexpr const char16_t* kText =
    u"[.info]\r\nname=Deutsch\r\n"
    u"[global]\r\nundo=Zurueck\r\nadd=Dazu...\r\ncopy=Abschrift\r\nmodify=Anders\r\n"
    u"[file]\r\nnew=Neuer Tresor\r\ntype_vmr=Tresore\r\n"
    u"type_app=Programme\r\ntype_csv=Tabellen\r\nexport=&Ausgeben...\r\nsetpwd_title=Kennwort\r\n"
    u"[start]\r\nrecent_open=Auf\r\n"
    u"[shelltype]\r\nname=Tresor\r\n";

tvstring LanguageFolder() {
    return ProgramPath(u"Lang");
}

}  // namespace

const char16_t* LanguageTest::SecondFile() noexcept {
    return kFile;
}

LanguageTest::LanguageTest() {
    EXPECT_TRUE(CreateDirectories(LanguageFolder()));
    EXPECT_TRUE(WriteTextFile(kText, JoinPath(LanguageFolder(), kFile), TEXT_UTF16LE));
    Language().EnumLanguages();
    EXPECT_EQ(Language().Languages().size(), 2U);
    TheAppData().BuildMenus();
}

LanguageTest::~LanguageTest() {
    Close();
    UseEnglish();
    Remove();
    TheAppData().BuildMenus();
}

void LanguageTest::UseSecond() {
    TheAppData().LoadStoreLang(LoadStore::Store, kFile);
}

void LanguageTest::UseEnglish() {
    TheAppData().LoadStoreLang(LoadStore::Store, u"english.ini");
}

void LanguageTest::Remove() {
    DeleteFileW(Wide(JoinPath(LanguageFolder(), kFile).c_str()));
    RemoveDirectoryW(Wide(LanguageFolder().c_str()));
    Language().EnumLanguages();
}
