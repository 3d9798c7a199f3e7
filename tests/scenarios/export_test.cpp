// What leaves the program as plain tables, and what comes into it from files of the old format.
#include <fstream>

#include "foundation/conversion.h"
#include "foundation/path.h"
#include "shell/recent_list.h"
#include "tests/scenarios/opened.h"

namespace {

using namespace opened;

std::string BytesOf(const tvstring& path) {
    std::ifstream file(Wide(path.c_str()), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class OfAllThemes : public Scenario, public testing::WithParamInterface<const char16_t*> {
protected:
    void SetUp() override {
        Scenario::SetUp();
        UseStoredTheme(GetParam());
    }

    void OpenFile(const tvstring& path, std::u16string_view password) {
        ASSERT_NE(m_Program.StartAsking(tvstring(u"\"").append(path).append(u"\"")), nullptr);
        ASSERT_NE(WaitForFieldIn(m_Program), nullptr);
        TypeText(password);
        Type(VK_RETURN);
    }

    Program m_Program;
};

// The file dialog's type is that of a table at first; its file types stand in a combo box.
void ChooseValues(const Program& program) {
    constexpr int kTypes = 0x470;
    HWND dialog = program.WaitForDialog();
    ASSERT_NE(dialog, nullptr);
    HWND types = tvWnd::FindDescendant(dialog, kTypes);
    ASSERT_NE(types, nullptr);
    EXPECT_EQ(Ask(types, CB_GETCURSEL), 1);
    HWND name = FocusOf(program);
    Type(VK_TAB);
    ASSERT_TRUE(PumpUntil([&] { return FocusOf(program) == types; }));
    Type(VK_UP);
    ASSERT_TRUE(PumpUntil([&] { return Ask(types, CB_GETCURSEL) == 0; }));
    Type(VK_TAB, HOLD_SHIFT);
    ASSERT_TRUE(PumpUntil([&] { return FocusOf(program) == name; }));
    Type('A', HOLD_CTRL);
}

// --- Export ---

class Export : public OfAllThemes {
protected:
    void SetUp() override {
        OfAllThemes::SetUp();
        m_File = InFolder(u"a.VMR");
        MakeFile();
        ASSERT_FALSE(HasFatalFailure());
        m_Before = BytesOf(m_File);
        OpenFile(m_File, u"secret");
        ASSERT_TRUE(m_Program.WaitForNoDialog());
        ASSERT_TRUE(WaitUntilOpen(m_Program));
    }

    static void Fill(ItemElement& item, const tvstring& name, std::initializer_list<const char16_t*> texts) {
        item.m_Name = name;
        const auto* text = texts.begin();
        for (EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next)
            entry->m_Text = *text++;
        for (; text != texts.end(); ++text)
            item.Insert(new EntryElement(VMRD_T_ADDITION, *text), nullptr);
    }

    void MakeFile() const {
        VMRD_DB database;
        database.MakeCurrent();
        ASSERT_TRUE(database.New(u"My <data>"));
        Fill(*database.m_Head, u"Mail", {u"https://mail.example/?a=1&b=2", u"me", u"s\"3\"cret"});
        Fill(*database.AddNewItem(&database), u"Größe <b>", {u"", u"用户", u"p, q", u"one", u"two\r\nthree"});
        database.SetPath(m_File);
        database.SetMasterPassword(u"secret");
        ASSERT_TRUE(database.Save());
    }

    enum class Kind { Values, Table };
    void ExportTo(const tvstring& path, Kind kind) const {
        m_Program.Choose(u"X");
        if (kind == Kind::Values) ChooseValues(m_Program);
        if (HasFatalFailure()) return;
        EnterPath(m_Program, path);
        ASSERT_TRUE(m_Program.WaitForNoDialog());
    }
    [[nodiscard]] bool IsWritten(const tvstring& path, const std::string& bytes) const {
        return PumpUntil([&] { return PathKind(path) == PATH_FILE && BytesOf(path) == bytes; });
    }

    static std::string Values() {
        return "\xEF\xBB\xBF\"My <data>\",,,,\r\n"
               "\"\",\"Program, document or url:\",\"Username:\",\"Password:\",\"Additional entries:\"\r\n"
               "\"Mail\",\"https://mail.example/?a=1&b=2\",\"me\",\"s\"\"3\"\"cret\",\"\"\r\n"
               "\"Größe <b>\",\"\",\"用户\",\"p, q\",\"one\r\ntwo\r\nthree\"\r\n";
    }
    static std::string Table() {
        return "<!DOCTYPE html>\r\n<html>\r\n<head>\r\n<title>My &lt;data&gt;</title>\r\n"
               "<meta charset=\"utf-8\" />\r\n<style>\r\n"
               "table,tr,td {border:1px solid #999; border-collapse:collapse; padding:1em; "
               "vertical-align:top;}\r\n"
               "td:last-child {width:100%;}\r\n</style>\r\n</head>\r\n<body>\r\n\r\n<table>\r\n"
               "<tr><td colspan=\"5\">My &lt;data&gt;</td></tr>\r\n"
               "<tr><td></td>\r\n<td>Program, document or url:</td>\r\n<td>Username:</td>\r\n"
               "<td>Password:</td>\r\n<td>Additional entries:</td></tr>\r\n"
               "<tr><td>Mail</td>\r\n<td>https://mail.example/?a=1&amp;b=2</td>\r\n<td>me</td>\r\n"
               "<td>s&quot;3&quot;cret</td>\r\n<td></td></tr>\r\n"
               "<tr><td>Größe &lt;b&gt;</td>\r\n<td></td>\r\n<td>用户</td>\r\n<td>p, q</td>\r\n"
               "<td>one<br />\r\ntwo\r\nthree</td></tr>\r\n"
               "</table>\r\n</body>\r\n</html>";
    }

    tvstring m_File;
    std::string m_Before;
};

TEST_P(Export, WritesValuesParted) {
    ExportTo(InFolder(u"out.csv"), Kind::Values);
    EXPECT_TRUE(IsWritten(InFolder(u"out.csv"), Values())) << BytesOf(InFolder(u"out.csv"));
    EXPECT_FALSE(m_Program.Sees(kSaveButton)) << "the database is not changed";
    ASSERT_TRUE(m_Program.Quit());
    EXPECT_EQ(BytesOf(m_File), m_Before) << "nor is its file";
}

TEST_P(Export, WritesATable) {
    ExportTo(InFolder(u"out.htm"), Kind::Table);
    EXPECT_TRUE(IsWritten(InFolder(u"out.htm"), Table())) << BytesOf(InFolder(u"out.htm"));
}

TEST_P(Export, GivesANameWithoutAnExtensionThatOfATable) {
    ExportTo(InFolder(u"out"), Kind::Table);
    EXPECT_TRUE(IsWritten(InFolder(u"out.htm"), Table())) << BytesOf(InFolder(u"out.htm"));
    EXPECT_EQ(PathKind(InFolder(u"out")), PATH_NONE);
}

TEST_P(Export, GivesANameWithoutAnExtensionThatOfTheChosenType) {
    ExportTo(InFolder(u"out"), Kind::Values);
    EXPECT_TRUE(IsWritten(InFolder(u"out.csv"), Values())) << BytesOf(InFolder(u"out.csv"));
}

TEST_P(Export, WritesNothingWhenTheUserCancels) {
    m_Program.Choose(u"X");
    ASSERT_NE(m_Program.WaitForDialog(), nullptr);
    TypeText(InFolder(u"out.csv"));
    Type(VK_ESCAPE);
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_EQ(PathKind(InFolder(u"out.csv")), PATH_NONE);
}

// --- Files of the old format ---

class OldFile : public OfAllThemes {
protected:
    void SetUp() override {
        OfAllThemes::SetUp();
        m_Old = InFolder(u"old.vmr");
        ASSERT_NE(CopyFileW(L"tests\\data\\database\\old-long.vmr", Wide(m_Old.c_str()), TRUE), FALSE);
        m_Before = BytesOf(m_Old);
    }

    // With the warning that it is of the old format, which has one button.
    void OpenOldFile() {
        OpenFile(m_Old, u"alt");
        ASSERT_TRUE(PumpUntil([this] { return m_Program.Sees(kRenameButton); }));
        HWND warning = m_Program.WaitForDialog();
        ASSERT_NE(warning, nullptr);
        EXPECT_EQ(tvWnd::FindDescendant(warning, kEdit1), nullptr);
        Type(VK_RETURN);
        ASSERT_TRUE(m_Program.WaitForNoDialog());
        ASSERT_TRUE(WaitUntilOpen(m_Program));
    }

    void SaveAs(const tvstring& path) const {
        Type('S', HOLD_CTRL);
        EnterPath(m_Program, path);
        ASSERT_NE(WaitForFieldIn(m_Program), nullptr);
        EnterTexts(u"neu", u"neu");
        ASSERT_TRUE(m_Program.WaitForNoDialog());
        ASSERT_TRUE(PumpUntil([this] { return !m_Program.Sees(kSaveButton); }));
    }

    // All that the file holds, but for the times at which it was changed.
    static std::string ContentOf(const VMRD_DB& database) {
        std::string text(ToUtf8(database.m_Name).view());
        for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next) {
            text.append("\n").append(ToUtf8(item->m_Name).view());
            for (const EntryElement* entry = item->m_Head; entry != nullptr; entry = entry->m_Next) {
                text.append("\n  ").append(std::to_string(entry->m_Type)).append(":");
                text.append(ToUtf8(entry->m_Text).view());
            }
        }
        return text;
    }
    static std::string Expected() {
        const auto run = [](char letter) { return std::string(598, letter); };
        return "Alt public\nMail\n  3:https://mail.example\n  4:me\n  5:s3cret\n  6:a\n  6:b\n"
               "Unknown\n  3:\n  4:\n  5:\n"
               "Größe\n  3:C:\\Programme\\x.exe\n  4:müller\n  5:ß€\n  6:one line\n" +
               run('n') + "\n  3:" + run('q') + "\n  4:" + run('u') + "\n  5:" + run('p') +
               "\n  6:" + run('r');
    }

    tvstring m_Old;
    std::string m_Before;
};

TEST_P(OldFile, IsOpenedWithAWarningAndSavedAnewUnderAnotherName) {
    const tvstring path = InFolder(u"new.VMR");
    OpenOldFile();
    EXPECT_EQ(RowsOf(ItemListOf(m_Program)), 4);
    EXPECT_TRUE(m_Program.Sees(kSaveButton)) << "it is not saved in the present format yet";
    SaveAs(path);
    ASSERT_TRUE(m_Program.Quit());
    EXPECT_EQ(BytesOf(m_Old), m_Before) << "the old file stays as it was";
    VMRD_DB database;
    ASSERT_TRUE(database.Open(path, u"neu"));
    EXPECT_EQ(ContentOf(database), Expected());
}

TEST_P(OldFile, IsOpenedWithoutAWarningOnceItWasSavedAnew) {
    const tvstring path = InFolder(u"new.VMR");
    OpenOldFile();
    SaveAs(path);
    ASSERT_TRUE(m_Program.Quit());
    OpenFile(path, u"neu");
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    ASSERT_TRUE(WaitUntilOpen(m_Program));
    EXPECT_EQ(RowsOf(ItemListOf(m_Program)), 4);
    EXPECT_FALSE(m_Program.Sees(kSaveButton));
    EXPECT_EQ(m_Program.Dialog(), nullptr);
}

TEST_P(OldFile, IsRecordedOnlyUnderItsNewName) {
    OpenOldFile();
    RecentList recent;
    recent.LoadRecent();
    EXPECT_TRUE(recent.recentItems.empty());
    SaveAs(InFolder(u"new.VMR"));
    ASSERT_TRUE(recent.LoadRecent());
    ASSERT_EQ(recent.recentItems.size(), 1U);
    EXPECT_EQ(recent.recentItems[0].path, InFolder(u"new.VMR"));
    EXPECT_EQ(recent.recentItems[0].name, u"Alt public");
}

TEST_P(OldFile, IsExportedLikeAnyOther) {
    OpenOldFile();
    m_Program.Choose(u"X");
    ASSERT_NO_FATAL_FAILURE(ChooseValues(m_Program));
    EnterPath(m_Program, InFolder(u"out.csv"));
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_TRUE(PumpUntil([this] {
        return BytesOf(InFolder(u"out.csv"))
                   .find("\"Größe\",\"C:\\Programme\\x.exe\",\"müller\",\"ß€\",\"one line\"\r\n") !=
               std::string::npos;
    })) << BytesOf(InFolder(u"out.csv"));
}

TEST_P(OldFile, IsNotGivenUpWithoutAQuestion) {
    OpenOldFile();
    Type(VK_F4, HOLD_ALT);
    ASSERT_NE(m_Program.WaitForDialog(), nullptr);
    Type('Y');
    EXPECT_TRUE(m_Program.HasEnded());
    EXPECT_EQ(BytesOf(m_Old), m_Before);
}

TEST_P(OldFile, StaysClosedWithAWrongPassword) {
    OpenFile(m_Old, u"wrong");
    ASSERT_TRUE(m_Program.WaitForNoDialog());
    EXPECT_TRUE(PumpUntil([this] { return CountPixels(m_Program.Control(2001), RGB(255, 192, 0)) > 500; }));
    EXPECT_FALSE(m_Program.Sees(kRenameButton));
}

std::string ThemeName(const testing::TestParamInfo<const char16_t*>& theme) {
    return theme.param[0] == u'S' ? "SystemDefault" : theme.param[0] == u'D' ? "Dark" : "Light";
}

INSTANTIATE_TEST_SUITE_P(Themes, Export, testing::Values(u"Light", u"Dark", u"System Default"), ThemeName);
INSTANTIATE_TEST_SUITE_P(Themes, OldFile, testing::Values(u"Light", u"Dark", u"System Default"), ThemeName);

}  // namespace
