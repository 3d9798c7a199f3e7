#include "foundation/language.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "foundation/product.h"
#include "foundation/textfile.h"
#include "foundation/textops.h"
#include "platform/resource.h"
#include "platform/text.h"
#include "tests/unit/foundation/english_texts.h"
#include "tests/unit/test_files.h"

namespace {

using SectionAndKey = std::pair<std::u16string, std::u16string>;

// --- The default text ---

TEST(DefaultText, HoldsEachTextToTheLetter) {
    tvmlang table(kDefaultLanguageSection);
    for (const LanguageConstant& constant : kLanguageConstants)
        table.SetConst(constant.key, constant.text);
    ASSERT_TRUE(table.Parse(CVMRMLang::DefaultText()));
    for (const EnglishText& row : kEnglishTexts) {
        EXPECT_EQ(std::u16string(table.Get(row.section, row.key)), row.text)
            << testing::PrintToString(std::u16string(row.key));
    }
}

TEST(DefaultText, HoldsExactlyTheseSectionsAndKeys) {
    std::set<SectionAndKey> wanted;
    for (const EnglishText& row : kEnglishTexts)
        wanted.emplace(row.section, row.key);
    tvini table(nullptr);
    table.Parse(CVMRMLang::DefaultText());
    std::set<SectionAndKey> present;
    for (const auto& [section, keys] : table.Sections()) {
        for (const auto& pair : keys)
            present.emplace(section, pair.first);
    }
    EXPECT_EQ(present, wanted);
    EXPECT_EQ(present.size(), std::size(kEnglishTexts));
}

TEST(DefaultText, WritesReferencesAsReferences) {
    tvini table(nullptr);
    table.Parse(CVMRMLang::DefaultText());
    EXPECT_EQ(table.Get(u"global", u"about"), u"About %app_name");
    EXPECT_EQ(table.Get(u"file", u"needpwd_title"), u"%open");
    EXPECT_NE(table.Get(u"file", u"warn_oldver").find(u"versions of %app_name will"), kNoPosition);
    EXPECT_EQ(table.Get(u"shelltype", u"name"), u"%app_name VMR database");
    EXPECT_TRUE(table.Get(u"itemdetail", u"merge_info").ends_with(u"click %ok to confirm."));
    EXPECT_EQ(table.Get(u"start", u"create"), u"%[file]new");
    EXPECT_EQ(table.Get(u"start", u"open"), u"%[file]open");
}

TEST(DefaultText, OpensWithAWarningInThreeCommentLines) {
    std::vector<tvstring> lines;
    Split(CVMRMLang::DefaultText(), u"\r\n", lines);
    ASSERT_GT(lines.size(), 4U);
    EXPECT_EQ(lines[0], u"; This is the *default* language file. Do NOT delete or modify it,");
    EXPECT_EQ(lines[1], u"; otherwise the software will stop working!");
    EXPECT_TRUE(lines[2].starts_with(u"; --------"));
    EXPECT_EQ(lines[2].view().find_first_not_of(u'-', 2), kNoPosition);
    EXPECT_EQ(lines[3], u"[.info]");
}

TEST(DefaultText, IsTheResourceWithoutItsMark) {
    const std::span<const u8> resource = platform::ResourceBytes(u"LANG", u"english.ini");
    const tvstring& text = CVMRMLang::DefaultText();
    ASSERT_EQ(resource.size(), 2 + 2 * text.size());
    EXPECT_EQ(resource[0], 0xFF);
    EXPECT_EQ(resource[1], 0xFE);
    EXPECT_NE(text.back(), u'\0');
    EXPECT_EQ(text.front(), u';');
}

TEST(DefaultText, EndsEveryLineWithCrLf) {
    const tvstring& text = CVMRMLang::DefaultText();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\n') {
            ASSERT_TRUE(i > 0 && text[i - 1] == u'\r') << i;
        }
    }
    EXPECT_TRUE(text.ends_with(u"\r\n"));
}

TEST(DefaultText, IsKept) {
    EXPECT_EQ(&CVMRMLang::DefaultText(), &CVMRMLang::DefaultText());
}

TEST(TextOfResource, CutsTheMarkAndZeroUnitsAtTheEnd) {
    const std::vector<u8> bytes = {0xFF, 0xFE, 'a', 0, 0, 0, 'b', 1, 0, 0, 0, 0};
    EXPECT_EQ(CVMRMLang::TextOfResource(bytes), std::u16string_view(u"a\0\u0162", 3));
}

TEST(TextOfResource, CountsWholeUnits) {
    EXPECT_EQ(CVMRMLang::TextOfResource(std::vector<u8>{0xFF, 0xFE, 'a', 0, 'b'}), u"a");
}

TEST(TextOfResource, IsEmptyWithoutUnits) {
    EXPECT_EQ(CVMRMLang::TextOfResource({}), u"");
    EXPECT_EQ(CVMRMLang::TextOfResource(std::vector<u8>{0xFF, 0xFE}), u"");
}

TEST(ExtractDefault, WritesTheBytesOfTheResource) {
    const TempFolder folder;
    const tvstring path = folder.Path(u"Lang/english.ini");
    ASSERT_TRUE(CVMRMLang::ExtractDefault(path));
    const std::span<const u8> resource = platform::ResourceBytes(u"LANG", u"english.ini");
    EXPECT_EQ(ReadBytes(path), std::vector<u8>(resource.begin(), resource.end()));
}

TEST(ExtractDefault, GivesFalseForAPathThatCannotBeWritten) {
    const TempFolder folder;
    EXPECT_FALSE(CVMRMLang::ExtractDefault(folder.Path()));
}

TEST(LanguageName, TakesTheNameOfTheInfoSection) {
    EXPECT_EQ(CVMRMLang::LanguageName(u"[.info]\nname = Deutsch"), u"Deutsch");
    EXPECT_EQ(CVMRMLang::LanguageName(CVMRMLang::DefaultText()), u"English");
}

TEST(LanguageName, IsEmptyForATextWithoutOne) {
    EXPECT_EQ(CVMRMLang::LanguageName(u""), u"");
    EXPECT_EQ(CVMRMLang::LanguageName(u"name = x"), u"");
    EXPECT_EQ(CVMRMLang::LanguageName(u"[.info]\ncreatedby = x"), u"");
}

// --- A folder with languages ---

// A table of `count` sections, one of them "global", whose `ok` is the given text.
tvstring TableText(const tvstring& name, const tvstring& ok, int count) {
    tvstring text = tvstring(u"[.info]\nname = ") + name + u"\n[global]\nok = " + ok + u"\n";
    for (int i = 2; i < count; ++i)
        text += tvstring(u"[s") + FormatInt(i) + u"]\nk = v\n";
    return text;
}

class LanguageFolderTest : public testing::Test {
protected:
    void Write(std::u16string_view file, const tvstring& text, int encoding = TEXT_UTF8) {
        ASSERT_TRUE(WriteTextFile(text, folder.Path(file), encoding));
    }

    // The file of each language found with its name, in alphabetical order.
    static std::set<SectionAndKey> Found(const CVMRMLang& language) {
        std::set<SectionAndKey> found;
        for (const LANGINFO& info : language.Languages())
            found.emplace(info.m_File, info.m_Name);
        EXPECT_EQ(found.size(), language.Languages().size());
        return found;
    }

    TempFolder folder;
};

TEST_F(LanguageFolderTest, AnEmptyFolderGivesTheDefaultText) {
    const CVMRMLang language(folder.Path());
    EXPECT_EQ(language.Get(u"start", u"create"), u"Create &New Database...");
    EXPECT_EQ(language.Current(), u"english.ini");
    EXPECT_EQ(language.LoadCount(), 1);
    EXPECT_EQ(language.DefaultSection(), u"global");
}

TEST_F(LanguageFolderTest, AMissingFolderGivesTheDefaultText) {
    const CVMRMLang language(folder.Path(u"none"));
    EXPECT_EQ(
        language.Get(u"itemdetail", u"merge_info"),
        u"Merge selected entries into a single entry. Please review or edit the merged text and click OK "
        u"to confirm.");
    EXPECT_EQ(Found(language), (std::set<SectionAndKey>{{u"english.ini", u"English"}}));
}

TEST_F(LanguageFolderTest, AnEnglishFileOfElevenSectionsIsTaken) {
    Write(u"english.ini", TableText(u"Own English", u"Okay", 11));
    const CVMRMLang language(folder.Path());
    EXPECT_EQ(language.Get(u"global", u"ok"), u"Okay");
    EXPECT_EQ(language.Get(u"file", u"open"), u"");
    EXPECT_EQ(language.Sections().size(), 11U);
}

TEST_F(LanguageFolderTest, AnEnglishFileOfTenSectionsIsPassedOver) {
    Write(u"english.ini", TableText(u"Own English", u"Okay", 10));
    const CVMRMLang language(folder.Path());
    EXPECT_EQ(language.Get(u"global", u"ok"), u"OK");
    EXPECT_EQ(language.Get(u"file", u"open"), u"&Open Database...");
    EXPECT_EQ(language.Find(u"s2", u"k"), nullptr);
}

TEST_F(LanguageFolderTest, OkIsThereEvenIfTheEnglishFileLacksIt) {
    tvstring text;
    for (int i = 0; i < 11; ++i)
        text += tvstring(u"[s") + FormatInt(i) + u"]\nk = v\n";
    Write(u"english.ini", text);
    const CVMRMLang language(folder.Path());
    EXPECT_EQ(language.Get(u"global", u"ok"), u"OK");
    EXPECT_EQ(language.Get(u"s0", u"k"), u"v");
}

TEST_F(LanguageFolderTest, AnotherLanguageMayHaveFewSections) {
    Write(u"german.ini", u"[global]\ncancel = Abbrechen");
    CVMRMLang language(folder.Path());
    EXPECT_TRUE(language.Load(u"german.ini"));
    EXPECT_EQ(language.Get(u"global", u"cancel"), u"Abbrechen");
    EXPECT_EQ(language.Get(u"global", u"no"), u"&No");
    EXPECT_EQ(language.Current(), u"german.ini");
    EXPECT_EQ(language.LoadCount(), 2);
}

TEST_F(LanguageFolderTest, ConstantsReachEachLanguage) {
    Write(u"german.ini", u"[global]\nabout = \u00DCber %app_name von %dev_name");
    CVMRMLang language(folder.Path());
    EXPECT_TRUE(language.Load(u"german.ini"));
    EXPECT_EQ(language.Get(u"global", u"about"), u"\u00DCber Vaultmere von Tolvane");
}

TEST_F(LanguageFolderTest, LoadingTheCurrentLanguageAgainDoesNothing) {
    Write(u"german.ini", u"[global]\ncancel = Abbrechen");
    CVMRMLang language(folder.Path());
    EXPECT_TRUE(language.Load(u"german.ini"));
    Write(u"german.ini", u"[global]\ncancel = Anders");
    EXPECT_TRUE(language.Load(u"German.INI"));
    EXPECT_EQ(language.Get(u"global", u"cancel"), u"Abbrechen");
    EXPECT_EQ(language.Current(), u"german.ini");
    EXPECT_EQ(language.LoadCount(), 2);
}

TEST_F(LanguageFolderTest, AnEmptyNameStandsForEnglish) {
    Write(u"german.ini", u"[global]\ncancel = Abbrechen");
    CVMRMLang language(folder.Path());
    EXPECT_TRUE(language.Load(u"german.ini"));
    EXPECT_TRUE(language.Load(u""));
    EXPECT_EQ(language.Current(), u"english.ini");
    EXPECT_EQ(language.Get(u"global", u"cancel"), u"Cancel");
    EXPECT_EQ(language.LoadCount(), 3);
}

TEST_F(LanguageFolderTest, EnglishIsKnownInAnyCase) {
    Write(u"german.ini", u"[global]\ncancel = Abbrechen");
    CVMRMLang language(folder.Path());
    EXPECT_TRUE(language.Load(u"german.ini"));
    EXPECT_TRUE(language.Load(u"ENGLISH.ini"));
    EXPECT_EQ(language.Get(u"global", u"cancel"), u"Cancel");
    EXPECT_EQ(language.Current(), u"ENGLISH.ini");
}

TEST_F(LanguageFolderTest, AMissingLanguageChangesTheCountButNoText) {
    Write(u"german.ini", u"[global]\ncancel = Abbrechen");
    CVMRMLang language(folder.Path());
    EXPECT_TRUE(language.Load(u"german.ini"));
    EXPECT_TRUE(language.Load(u"none.ini"));
    EXPECT_EQ(language.Current(), u"german.ini");
    EXPECT_EQ(language.Get(u"global", u"cancel"), u"Abbrechen");
    EXPECT_EQ(language.Get(u"global", u"no"), u"&No");
    EXPECT_EQ(language.LoadCount(), 3);
}

TEST_F(LanguageFolderTest, LoadFailsAsLongAsNoLanguageWasEverLoaded) {
    CVMRMLang language(folder.Path(), tvstring());
    EXPECT_TRUE(language.Current().empty());
    EXPECT_FALSE(language.Load(u""));
    EXPECT_FALSE(language.Load(u"german.ini"));
    EXPECT_TRUE(language.Current().empty());
    EXPECT_EQ(language.LoadCount(), 3);
    Write(u"german.ini", u"[global]\ncancel = Abbrechen");
    EXPECT_TRUE(language.Load(u"german.ini"));
    EXPECT_TRUE(language.Load(u"none.ini"));
    EXPECT_EQ(language.Current(), u"german.ini");
}

TEST(ProgramLanguages, LieInTheFolderLangBesideTheProgram) {
    const tvstring folder = ProgramPath(u"Lang");
    const tvstring path = JoinPath(folder, u"language-test.ini");
    ASSERT_TRUE(WriteTextFile(u"[.info]\nname = Beside\n[global]\ncancel = Beside", path, TEXT_UTF8));
    CVMRMLang language;
    EXPECT_TRUE(language.Load(u"language-test.ini"));
    EXPECT_EQ(language.Get(u"global", u"cancel"), u"Beside");
    EXPECT_TRUE(std::any_of(language.Languages().begin(), language.Languages().end(),
                            [](const LANGINFO& info) { return info.m_Name == u"Beside"; }));
    std::filesystem::remove(test_files::SystemPath(path));
    std::error_code notEmpty;
    std::filesystem::remove(test_files::SystemPath(folder), notEmpty);
}

TEST_F(LanguageFolderTest, KeysThatALanguageLacksComeFromTheLanguageBefore) {
    Write(u"german.ini", u"[global]\ncancel = Abbrechen\nno = Nein");
    Write(u"french.ini", u"[global]\ncancel = Annuler");
    CVMRMLang language(folder.Path());
    EXPECT_TRUE(language.Load(u"german.ini"));
    EXPECT_TRUE(language.Load(u"french.ini"));
    EXPECT_EQ(language.Get(u"global", u"cancel"), u"Annuler");
    EXPECT_EQ(language.Get(u"global", u"no"), u"Nein");
}

TEST_F(LanguageFolderTest, APoorEnglishFileIsTakenOnTopOfAFullTable) {
    Write(u"german.ini", u"[global]\ncancel = Abbrechen");
    CVMRMLang language(folder.Path());
    EXPECT_TRUE(language.Load(u"german.ini"));
    Write(u"english.ini", u"[global]\nok = Okay");
    EXPECT_TRUE(language.Load(u"english.ini"));
    EXPECT_EQ(language.Get(u"global", u"ok"), u"Okay");
    EXPECT_EQ(language.Get(u"global", u"cancel"), u"Abbrechen");
}

// --- EnumLanguages ---

TEST_F(LanguageFolderTest, FindsLanguagesInFilesOfEachEncoding) {
    ASSERT_TRUE(platform::UseAnsiCodePage(1252));
    Write(u"1.ini", u"[.info]\nname = Fran\u00E7ais", TEXT_ANSI);
    Write(u"2.ini", u"[.info]\nname = \u65E5\u672C\u8A9E", TEXT_UTF8);
    Write(u"3.ini", u"[.info]\nname = \u0420\u0443\u0441\u0441\u043A\u0438\u0439", TEXT_UTF16LE);
    Write(u"4.ini", u"[.info]\nname = \u03B5\u03BB\u03BB", TEXT_UTF16BE);
    const CVMRMLang language(folder.Path());
    platform::UseAnsiCodePage(0);
    EXPECT_EQ(Found(language),
              (std::set<SectionAndKey>{{u"english.ini", u"English"},
                                       {u"1.ini", u"Fran\u00E7ais"},
                                       {u"2.ini", u"\u65E5\u672C\u8A9E"},
                                       {u"3.ini", u"\u0420\u0443\u0441\u0441\u043A\u0438\u0439"},
                                       {u"4.ini", u"\u03B5\u03BB\u03BB"}}));
}

TEST_F(LanguageFolderTest, PutsEnglishInFrontIfItHasNoFile) {
    Write(u"a.ini", u"[.info]\nname = A");
    Write(u"z.ini", u"[.info]\nname = Z");
    const CVMRMLang language(folder.Path());
    ASSERT_EQ(language.Languages().size(), 3U);
    EXPECT_EQ(language.Languages()[0].m_File, u"english.ini");
    EXPECT_EQ(language.Languages()[0].m_Name, u"English");
}

TEST_F(LanguageFolderTest, CallsTheDefaultTextByItsNameOrElseEnglish) {
    const CVMRMLang named(folder.Path(), u"[.info]\nname = Own");
    EXPECT_EQ(Found(named), (std::set<SectionAndKey>{{u"english.ini", u"Own"}}));
    const CVMRMLang nameless(folder.Path(), u"[global]\nok = OK");
    EXPECT_EQ(Found(nameless), (std::set<SectionAndKey>{{u"english.ini", u"English"}}));
}

TEST_F(LanguageFolderTest, TakesEnglishFromItsFileInAnyCase) {
    Write(u"English.INI", u"[.info]\nname = My English");
    const CVMRMLang language(folder.Path());
    EXPECT_EQ(Found(language), (std::set<SectionAndKey>{{u"English.INI", u"My English"}}));
}

TEST_F(LanguageFolderTest, PutsEnglishInFrontIfItsFileHasNoName) {
    Write(u"english.ini", u"[global]\nok = Okay");
    Write(u"a.ini", u"[.info]\nname = A");
    const CVMRMLang language(folder.Path());
    ASSERT_EQ(language.Languages().size(), 2U);
    EXPECT_EQ(language.Languages()[0].m_Name, u"English");
}

TEST_F(LanguageFolderTest, PassesOverFilesThatBeginWithAnUnderscore) {
    Write(u"_draft.ini", u"[.info]\nname = Draft");
    const CVMRMLang language(folder.Path());
    EXPECT_EQ(Found(language), (std::set<SectionAndKey>{{u"english.ini", u"English"}}));
}

TEST_F(LanguageFolderTest, PassesOverFilesWithoutAName) {
    Write(u"a.ini", u"[.info]\ncreatedby = A");
    Write(u"b.ini", u"[.info]\nname =");
    Write(u"c.ini", u"");
    std::filesystem::create_directory(test_files::SystemPath(folder.Path(u"d.ini")));
    const CVMRMLang language(folder.Path());
    EXPECT_EQ(Found(language), (std::set<SectionAndKey>{{u"english.ini", u"English"}}));
}

TEST_F(LanguageFolderTest, PassesOverOtherFiles) {
    Write(u"a.txt", u"[.info]\nname = A");
    const CVMRMLang language(folder.Path());
    EXPECT_EQ(language.Languages().size(), 1U);
}

TEST_F(LanguageFolderTest, LooksAgainWhenAsked) {
    Write(u"a.ini", u"[.info]\nname = A");
    CVMRMLang language(folder.Path());
    std::filesystem::remove(test_files::SystemPath(folder.Path(u"a.ini")));
    Write(u"b.ini", u"[.info]\nname = B");
    language.EnumLanguages();
    EXPECT_EQ(Found(language), (std::set<SectionAndKey>{{u"english.ini", u"English"}, {u"b.ini", u"B"}}));
    EXPECT_EQ(language.LoadCount(), 1);
}

// --- Texts ---

TEST(TextFrom, LooksInTheDefaultSectionIfNoneIsNamed) {
    tvmlang table(u"global");
    table.Parse(u"[global]\nok = OK");
    EXPECT_EQ(TextFrom(table, u"", u"ok", {}), u"OK");
    EXPECT_EQ(TextFrom(table, {}, u"OK", {}), u"OK");
}

TEST(TextFrom, TakesNoConstant) {
    tvmlang table(u"global");
    table.SetConst(u"app_name", u"Vaultmere");
    EXPECT_EQ(TextFrom(table, u"", u"app_name", {}), u"");
}

TEST(TextFrom, ShowsADoubledPercentSignAsOne) {
    tvmlang table(u"global");
    table.Parse(u"[global]\na = 100%\nb = 100%% of %0");
    EXPECT_EQ(TextFrom(table, u"", u"a", {u"x"}), u"100%");
    EXPECT_EQ(table.Get(u"global", u"b"), u"100%% of %0");
    EXPECT_EQ(TextFrom(table, u"", u"b", {u"x"}), u"100% of x");
}

TEST(TextFrom, IsEmptyForAMissingKey) {
    EXPECT_EQ(TextFrom(tvmlang(u"global"), u"", u"none", {u"x"}), u"");
    EXPECT_EQ(TextFrom(tvmlang(nullptr), u"", u"none", {u"x"}), u"");
}

TEST(LangText, LooksInTheGlobalTable) {
    EXPECT_EQ(LangText(u"file", u"open"), u"&Open Database...");
    EXPECT_EQ(LangText(u"", u"ok"), u"OK");
    EXPECT_EQ(LangText(u"FILE", u"SETPWD_TIP"), u"Enter password");
    EXPECT_EQ(LangText(u"file", u"none"), u"");
    EXPECT_EQ(LangText(u"", u"app_name"), u"");
}

TEST(LangText, PutsItsArguments) {
    EXPECT_EQ(LangText(u"statusbar", u"items", FormatInt(12), u"%0", u"3"),
              u"Total 12, search result %0, selected 3");
    EXPECT_EQ(LangText(u"statusbar", u"items"), u"Total , search result , selected ");
}

// Puts another text into the table of the process for as long as the object lives.
class ChangedText {
public:
    ChangedText(const tvstring& section, const tvstring& key, const tvstring& text)
        : m_Section(section), m_Key(key), m_Before(Language().Get(section, key)) {
        Language().Set(section, key, text);
    }
    ~ChangedText() { Language().Set(m_Section, m_Key, m_Before); }
    ChangedText(const ChangedText&) = delete;
    ChangedText& operator=(const ChangedText&) = delete;

private:
    tvstring m_Section;
    tvstring m_Key;
    tvstring m_Before;
};

TEST(LangText, PutsSixArgumentsInTheirOrder) {
    const ChangedText text(u"statusbar", u"ready", u"%0%1%2%3%4%5");
    EXPECT_EQ(LangText(u"statusbar", u"ready", u"a", u"b", u"c", u"d", u"e", u"f"), u"abcdef");
}

TEST(Language, IsOneTable) {
    EXPECT_EQ(&Language(), &Language());
    EXPECT_EQ(Language().Get(u"start", u"open"), u"&Open Database...");
}

TEST(VersionText, IsBuiltFromTheThreeNumbers) {
    EXPECT_EQ(VersionText(VersionForm::Number), u"2.0.0");
    EXPECT_EQ(VersionText(VersionForm::Labelled), u"Version 2.0.0");
}

TEST(VersionText, TakesItsWordsFromTheTable) {
    const ChangedText text(u"global", u"version", u"Fassung %0!");
    EXPECT_EQ(VersionText(VersionForm::Labelled), u"Fassung 2.0.0!");
    EXPECT_EQ(VersionText(VersionForm::Number), u"2.0.0");
}

TEST(DefaultItemName, ComesFromTheTable) {
    EXPECT_EQ(DefaultItemName(), u"New password item");
}

TEST(DefaultItemName, IsNeverEmpty) {
    const ChangedText text(u"itemlist", u"def_itemname", u"");
    EXPECT_EQ(DefaultItemName(), u"New password item");
    Language().Set(u"itemlist", u"def_itemname", u"Neu");
    EXPECT_EQ(DefaultItemName(), u"Neu");
}

}  // namespace
