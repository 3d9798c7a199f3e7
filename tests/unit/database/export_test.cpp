#include "database/export.h"

#include <gtest/gtest.h>

#include <chrono>
#include <initializer_list>
#include <random>
#include <string>
#include <utility>

#include "database/database.h"
#include "foundation/conversion.h"
#include "foundation/language.h"
#include "foundation/path.h"
#include "foundation/textops.h"
#include "platform/error.h"
#include "platform/fault.h"
#include "tests/unit/test_files.h"

using platform::FaultPoint;

namespace {

enum Format : bool { CSV = false, HTML = true };

using Entries = std::initializer_list<std::pair<u16, const char16_t*>>;

ItemElement* AddItem(VMRD_DB& database, tvstring name, Entries entries = {}) {
    auto* item = new ItemElement;
    item->m_Name = std::move(name);
    for (const auto& [type, text] : entries)
        item->Insert(new EntryElement(type, text), nullptr);
    database.Insert(item, nullptr);
    return item;
}

std::string Exported(const VMRD_DB& database, Format format) {
    return std::string(database.BuildExport(format).view());
}

constexpr char kCsvLabels[] =
    "\"\",\"Program, document or url:\",\"Username:\",\"Password:\",\"Additional entries:\"\r\n";

constexpr char kHtmlLabels[] =
    "<tr><td></td>\r\n"
    "<td>Program, document or url:</td>\r\n"
    "<td>Username:</td>\r\n"
    "<td>Password:</td>\r\n"
    "<td>Additional entries:</td></tr>\r\n";

std::string HtmlHead(const std::string& title) {
    return "<!DOCTYPE html>\r\n"
           "<html>\r\n"
           "<head>\r\n"
           "<title>" +
           title +
           "</title>\r\n"
           "<meta charset=\"utf-8\" />\r\n"
           "<style>\r\n"
           "table,tr,td {border:1px solid #999; border-collapse:collapse; padding:1em; "
           "vertical-align:top;}\r\n"
           "td:last-child {width:100%;}\r\n"
           "</style>\r\n"
           "</head>\r\n"
           "<body>\r\n"
           "\r\n"
           "<table>\r\n"
           "<tr><td colspan=\"5\">" +
           title + "</td></tr>\r\n";
}

constexpr char kHtmlTail[] = "</table>\r\n</body>\r\n</html>";

// The rows of the items alone.
std::string Rows(const VMRD_DB& database, Format format) {
    const std::string name(ToUtf8(database.m_Name).view());
    std::string text = Exported(database, format);
    const std::string front =
        format == CSV ? "\"" + name + "\",,,,\r\n" + kCsvLabels : HtmlHead(name) + kHtmlLabels;
    const std::string back = format == CSV ? "" : kHtmlTail;
    EXPECT_TRUE(text.starts_with(front)) << text;
    EXPECT_TRUE(text.ends_with(back)) << text;
    return text.substr(front.size(), text.size() - front.size() - back.size());
}

TEST(BuildExport, OfNoItemsGivesHeadAndLabels) {
    VMRD_DB database;
    database.m_Name = u"My data";
    EXPECT_EQ(Exported(database, CSV), std::string("\"My data\",,,,\r\n") + kCsvLabels);
    EXPECT_EQ(Exported(database, HTML), HtmlHead("My data") + kHtmlLabels + kHtmlTail);
}

TEST(BuildExport, OfAnItemGivesARowOfFiveCells) {
    VMRD_DB database;
    AddItem(database, u"Mail", {{3, u"https://x"}, {4, u"me"}, {5, u"pwd"}, {6, u"note"}});
    EXPECT_EQ(Rows(database, CSV), "\"Mail\",\"https://x\",\"me\",\"pwd\",\"note\"\r\n");
    EXPECT_EQ(Rows(database, HTML),
              "<tr><td>Mail</td>\r\n<td>https://x</td>\r\n<td>me</td>\r\n<td>pwd</td>\r\n"
              "<td>note</td></tr>\r\n");
}

TEST(BuildExport, TitleIsNotTreatedInCsvAndEscapedInHtml) {
    VMRD_DB database;
    database.m_Name = u"a \"b\" <c>";
    EXPECT_TRUE(Exported(database, CSV).starts_with("\"a \"b\" <c>\",,,,\r\n"));
    EXPECT_TRUE(Exported(database, HTML).starts_with(HtmlHead("a &quot;b&quot; &lt;c&gt;")));
}

TEST(BuildExport, TitleIsTheNameEvenIfThatIsEmpty) {
    VMRD_DB database;
    database.m_Path = u"file.vmr";
    EXPECT_TRUE(Exported(database, CSV).starts_with("\"\",,,,\r\n"));
}

// A text of the language in use, changed until the end of the block.
class ChangedText {
public:
    ChangedText(std::u16string_view section, std::u16string_view key, std::u16string_view text)
        : m_Section(section), m_Key(key), m_Before(Language().Get(section, key)) {
        Language().Set(section, key, text);
    }
    ~ChangedText() { Language().Set(m_Section, m_Key, m_Before); }
    ChangedText(const ChangedText&) = delete;
    ChangedText& operator=(const ChangedText&) = delete;

private:
    std::u16string_view m_Section;
    std::u16string_view m_Key;
    tvstring m_Before;
};

TEST(BuildExport, LabelsAreOfTheLanguageAndTreatedLikeOtherTexts) {
    const ChangedText program(u"itemdetail", u"program", u"<P> & \"D\":");
    const ChangedText addition(u"itemdetail", u"addition", u"\"A\"");
    const VMRD_DB database;
    EXPECT_EQ(Exported(database, CSV),
              "\"\",,,,\r\n\"\",\"<P> & \"\"D\"\":\",\"Username:\",\"Password:\",\"\"\"A\"\"\"\r\n");
    EXPECT_NE(Exported(database, HTML)
                  .find("<tr><td></td>\r\n<td>&lt;P&gt; &amp; &quot;D&quot;:</td>\r\n<td>Username:</td>\r\n"
                        "<td>Password:</td>\r\n<td>&quot;A&quot;</td></tr>\r\n</table>"),
              std::string::npos);
}

TEST(BuildExport, DoubleQuotesAreDoubledInCsv) {
    VMRD_DB database;
    AddItem(database, u"\"n\"", {{3, u"\""}, {4, u"a\"b"}, {5, u"\"\""}, {6, u"x\"y"}, {6, u"\"z"}});
    EXPECT_EQ(Rows(database, CSV), R"("""n""","""","a""b","""""","x""y)"
                                   "\r\n"
                                   R"(""z")"
                                   "\r\n");
}

TEST(BuildExport, MarksAreEscapedInHtmlInEveryCell) {
    VMRD_DB database;
    AddItem(database, u"<n>", {{3, u"a&b"}, {4, u"\""}, {5, u"p\"<'"}, {6, u"<x>"}, {6, u"&"}});
    EXPECT_EQ(Rows(database, HTML),
              "<tr><td>&lt;n&gt;</td>\r\n<td>a&amp;b</td>\r\n<td>&quot;</td>\r\n<td>p&quot;&lt;'</td>\r\n"
              "<td>&lt;x&gt;<br />\r\n&amp;</td></tr>\r\n");
}

TEST(BuildExport, MarksStayInCsv) {
    VMRD_DB database;
    AddItem(database, u"<n>&'", {{5, u"a,b;\tc"}});
    EXPECT_EQ(Rows(database, CSV), "\"<n>&'\",\"\",\"\",\"a,b;\tc\",\"\"\r\n");
}

TEST(BuildExport, AdditionalEntriesStandOnLinesOfTheirOwn) {
    VMRD_DB database;
    AddItem(database, u"", {{6, u"a"}, {6, u"b"}});
    EXPECT_EQ(Rows(database, CSV), "\"\",\"\",\"\",\"\",\"a\r\nb\"\r\n");
    EXPECT_NE(Rows(database, HTML).find("<td>a<br />\r\nb</td></tr>"), std::string::npos);
}

TEST(BuildExport, EmptyAdditionInFrontAddsNothingAndOneBehindABareBreak) {
    VMRD_DB database;
    AddItem(database, u"", {{6, u""}, {6, u""}, {6, u"a"}, {6, u""}, {6, u""}, {6, u"b"}, {6, u""}});
    EXPECT_EQ(Rows(database, CSV), "\"\",\"\",\"\",\"\",\"a\r\n\r\n\r\nb\r\n\"\r\n");
    EXPECT_NE(Rows(database, HTML).find("<td>a<br />\r\n<br />\r\n<br />\r\nb<br />\r\n</td></tr>"),
              std::string::npos);
}

TEST(BuildExport, LineBreaksInATextStayAsTheyStand) {
    VMRD_DB database;
    AddItem(database, u"a\r\nb", {{3, u"c\nd"}, {6, u"e\r\nf"}});
    EXPECT_EQ(Rows(database, CSV), "\"a\r\nb\",\"c\nd\",\"\",\"\",\"e\r\nf\"\r\n");
    EXPECT_EQ(Rows(database, HTML),
              "<tr><td>a\r\nb</td>\r\n<td>c\nd</td>\r\n<td></td>\r\n<td></td>\r\n<td>e\r\nf</td></tr>\r\n");
}

TEST(BuildExport, FirstEntryOfABasicTypeFillsItsCell) {
    VMRD_DB database;
    AddItem(database, u"x", {{5, u"p1"}, {3, u""}, {4, u"u1"}, {3, u"late"}, {5, u"p2"}, {4, u"u2"}});
    EXPECT_EQ(Rows(database, CSV), "\"x\",\"\",\"u1\",\"p1\",\"\"\r\n");
}

TEST(BuildExport, MissingEntriesLeaveTheirCellsEmpty) {
    VMRD_DB database;
    AddItem(database, u"x");
    EXPECT_EQ(Rows(database, CSV), "\"x\",\"\",\"\",\"\",\"\"\r\n");
    EXPECT_EQ(Rows(database, HTML),
              "<tr><td>x</td>\r\n<td></td>\r\n<td></td>\r\n<td></td>\r\n<td></td></tr>\r\n");
}

TEST(BuildExport, RowsAreInStoredOrder) {
    VMRD_DB database;
    for (const char16_t* name : {u"b", u"C", u"a", u"b"})
        AddItem(database, name);
    EXPECT_EQ(Rows(database, CSV),
              "\"b\",\"\",\"\",\"\",\"\"\r\n\"C\",\"\",\"\",\"\",\"\"\r\n"
              "\"a\",\"\",\"\",\"\",\"\"\r\n\"b\",\"\",\"\",\"\",\"\"\r\n");
}

TEST(BuildExport, TextThatLooksLikeAPlaceholderIsATextLikeAnyOther) {
    VMRD_DB database;
    AddItem(database, u"\xFFFFprog\xFFFF", {{3, u"prog"}, {4, u"%0 ${x}"}});
    EXPECT_EQ(Rows(database, CSV), "\"\xEF\xBF\xBFprog\xEF\xBF\xBF\",\"prog\",\"%0 ${x}\",\"\",\"\"\r\n");
}

TEST(BuildExport, IsInUtf8AndReplacesLoneSurrogates) {
    VMRD_DB database;
    AddItem(database, u"\u00e4\u20ac\U0001F511", {{3, u"a\xD83D"}, {4, u"\xDD11z"}});
    EXPECT_EQ(Rows(database, CSV),
              "\"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\x91\",\"a\xEF\xBF\xBD\",\"\xEF\xBF\xBDz\",\"\",\"\"\r\n");
}

// The table as it is made by filling in row templates, placeholder by placeholder.

constexpr char16_t kCsvRow[] =
    u"\"\xFFFFname\xFFFF\",\"\xFFFFprog\xFFFF\",\"\xFFFFuname\xFFFF\",\"\xFFFFpwd\xFFFF\","
    u"\"\xFFFFnote\xFFFF\"\r\n";
constexpr char16_t kHtmlRow[] =
    u"<tr><td>\xFFFFname\xFFFF</td>\r\n<td>\xFFFFprog\xFFFF</td>\r\n<td>\xFFFFuname\xFFFF</td>\r\n"
    u"<td>\xFFFFpwd\xFFFF</td>\r\n<td>\xFFFFnote\xFFFF</td></tr>\r\n";

constexpr const char16_t* kPlaceholders[] = {u"\xFFFFprog\xFFFF", u"\xFFFFuname\xFFFF", u"\xFFFFpwd\xFFFF"};

tvstring Treated(tvstring text, Format format) {
    if (format == HTML)
        EscapeHtml(text);
    else
        ReplaceAll(text, u"\"", u"\"\"");
    return text;
}

tvstring FilledRow(const ItemElement& item, Format format) {
    tvstring row(format == CSV ? kCsvRow : kHtmlRow);
    tvstring note;
    ReplaceAll(row, u"\xFFFFname\xFFFF", Treated(item.m_Name, format).view());
    for (const EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next) {
        if (entry->m_Type == VMRD_T_ADDITION) {
            if (!note.empty()) note += format == CSV ? u"\r\n" : u"<br />\r\n";
            note += format == CSV ? entry->m_Text : Treated(entry->m_Text, HTML);
        } else {
            ReplaceAll(row, kPlaceholders[entry->m_Type - 3], Treated(entry->m_Text, format).view());
        }
    }
    ReplaceAll(row, u"\xFFFFnote\xFFFF", (format == CSV ? Treated(note, CSV) : note).view());
    for (const char16_t* placeholder : kPlaceholders)
        ReplaceAll(row, placeholder, u"");
    return row;
}

TEST(BuildExport, GivesWhatFillingTheTemplatesGives) {
    constexpr std::u16string_view kUnits = u"ab\"'&<>,\r\n\t;";
    std::mt19937 random(5);
    const auto text = [&] {
        tvstring result;
        for (std::size_t length = random() % 6; length > 0; --length)
            result += kUnits[random() % kUnits.size()];
        return result;
    };
    VMRD_DB database;
    tvstring expected[2];
    for (int i = 0; i < 2000; ++i) {
        ItemElement* item = AddItem(database, text());
        for (std::size_t count = random() % 9; count > 0; --count)
            item->Insert(new EntryElement(static_cast<u16>(3 + random() % 4), text()), nullptr);
        for (const Format format : {CSV, HTML})
            expected[format] += FilledRow(*item, format);
    }
    for (const Format format : {CSV, HTML})
        EXPECT_TRUE(Rows(database, format) == ToUtf8(expected[format]).view());
}

TEST(BuildExport, OfManyItemsIsNotQuadratic) {
    VMRD_DB database;
    for (int i = 0; i < 60'000; ++i)
        AddItem(database, u"an item", {{3, u"a \"program\""}, {4, u"<user>"}, {5, u"pwd"}, {6, u"note"}});
    const auto start = std::chrono::steady_clock::now();
    EXPECT_GT(database.BuildExport(HTML).size(), 60'000U * 80);
    // A fraction of a second, and on a busy machine a few; moving the text for each item takes minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

class ExportFile : public testing::Test {
protected:
    ExportFile() : m_Path(m_Folder.Path(u"table")) {
        m_Database.m_Name = u"name";
        AddItem(m_Database, u"\u00e4", {{5, u"pwd"}});
    }
    ~ExportFile() override { platform::ClearFaults(); }

    [[nodiscard]] std::string Content() const {
        const std::vector<u8> bytes = ReadBytes(m_Path);
        return {bytes.begin(), bytes.end()};
    }

    TempFolder m_Folder;
    tvstring m_Path;
    VMRD_DB m_Database;
};

TEST_F(ExportFile, OfCsvStartsWithTheMark) {
    ASSERT_TRUE(m_Database.Export(m_Path, CSV));
    EXPECT_EQ(Content(), "\xEF\xBB\xBF" + Exported(m_Database, CSV));
}

TEST_F(ExportFile, OfHtmlStartsWithTheDocumentType) {
    ASSERT_TRUE(m_Database.Export(m_Path, HTML));
    EXPECT_EQ(Content(), Exported(m_Database, HTML));
    EXPECT_TRUE(Content().starts_with("<!DOCTYPE html>"));
}

TEST_F(ExportFile, ReplacesALongerFile) {
    WriteBytes(m_Path, std::string(100'000, 'x'));
    ASSERT_TRUE(m_Database.Export(m_Path, HTML));
    EXPECT_EQ(Content(), Exported(m_Database, HTML));
}

TEST_F(ExportFile, MakesMissingFolders) {
    m_Path = m_Folder.Path(u"a/b/table.csv");
    ASSERT_TRUE(m_Database.Export(m_Path, CSV));
    EXPECT_FALSE(Content().empty());
}

TEST_F(ExportFile, ReplacesAFileThatIsWriteProtected) {
    WriteBytes(m_Path, std::string("old"));
    std::filesystem::permissions(test_files::SystemPath(m_Path), std::filesystem::perms::owner_read);
    EXPECT_TRUE(m_Database.Export(m_Path, HTML));
    EXPECT_EQ(Content(), Exported(m_Database, HTML));
}

TEST_F(ExportFile, IsClosedAfterwards) {
    ASSERT_TRUE(m_Database.Export(m_Path, CSV));
    EXPECT_TRUE(OpenFileHandle(m_Path, true));
}

TEST_F(ExportFile, LeavesTheDatabaseAsItIs) {
    ASSERT_TRUE(m_Database.Export(m_Path, CSV));
    EXPECT_FALSE(m_Database.m_Changed);
    EXPECT_TRUE(m_Database.m_Path.empty());
    EXPECT_FALSE(m_Database.m_File);
}

TEST_F(ExportFile, FailsWithoutAPath) {
    EXPECT_FALSE(m_Database.Export(u"", CSV));
    EXPECT_FALSE(m_Database.Export(u"", HTML));
}

TEST_F(ExportFile, FailsIfTheFileCannotBeMade) {
    platform::OrderFault(FaultPoint::OpenFile, platform::kErrorAccessDenied);
    EXPECT_FALSE(m_Database.Export(m_Path, CSV));
    EXPECT_EQ(platform::LastError(), platform::kErrorAccessDenied);
    EXPECT_EQ(PathKind(m_Path), PATH_NONE);
}

TEST_F(ExportFile, FailsIfAFolderStandsInItsPlace) {
    EXPECT_FALSE(m_Database.Export(m_Folder.Path(), CSV));
}

TEST_F(ExportFile, FailsIfTheFileIsInUse) {
    const tvhandle reader = OpenFileHandle(m_Folder.Path(u"held"), true);
    EXPECT_FALSE(m_Database.Export(m_Folder.Path(u"held"), CSV));
    EXPECT_EQ(platform::LastError(), platform::kErrorSharingViolation);
}

TEST_F(ExportFile, WhoseMarkCannotBeWrittenEndsThere) {
    for (const FaultPoint point : {FaultPoint::WriteFile, FaultPoint::ShortWrite}) {
        platform::OrderFault(point, platform::kErrorDiskFull);
        EXPECT_FALSE(m_Database.Export(m_Path, CSV));
        EXPECT_LT(Content().size(), 3U);
    }
}

TEST_F(ExportFile, WhoseTextCannotBeWrittenStaysPartly) {
    const std::string whole = "\xEF\xBB\xBF" + Exported(m_Database, CSV);
    for (const FaultPoint point : {FaultPoint::WriteFile, FaultPoint::ShortWrite}) {
        platform::OrderFault(point, platform::kErrorDiskFull, 1);
        EXPECT_FALSE(m_Database.Export(m_Path, CSV));
        EXPECT_GT(Content().size(), 3U);
        EXPECT_LT(Content().size(), whole.size());
        EXPECT_TRUE(whole.starts_with(Content()));
    }
}

TEST_F(ExportFile, OfHtmlFailsIfItsTextCannotBeWrittenAndStaysPartly) {
    const std::string whole = Exported(m_Database, HTML);
    for (const FaultPoint point : {FaultPoint::WriteFile, FaultPoint::ShortWrite}) {
        platform::OrderFault(point, platform::kErrorDiskFull);
        EXPECT_FALSE(m_Database.Export(m_Path, HTML));
        EXPECT_GT(Content().size(), 0U);
        EXPECT_LT(Content().size(), whole.size());
    }
}

}  // namespace
