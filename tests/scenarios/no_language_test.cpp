// The program without any language: it says so and does nothing else.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "foundation/path.h"
#include "foundation/registry.h"
#include "tests/scenarios/program.h"

namespace {

using Bytes = std::vector<char>;

std::filesystem::path FilePath(const tvstring& path) {
    return {Wide(path.c_str())};
}

// The program's own table of texts, as it lies in its file.
Bytes TableIn(const tvstring& program) {
    Bytes table;
    HMODULE module = LoadLibraryExW(Wide(program.c_str()), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    HRSRC resource = FindResourceW(module, L"english.ini", L"LANG");
    const auto* bytes = static_cast<const char*>(LockResource(LoadResource(module, resource)));
    if (bytes != nullptr) table.assign(bytes, bytes + SizeofResource(module, resource));
    FreeLibrary(module);
    return table;
}

tvstring TextOnTheClipboard() {
    tvstring text;
    if (OpenClipboard(nullptr) == FALSE) return text;
    if (HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
        text = Units(static_cast<const wchar_t*>(GlobalLock(block)));
        GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
}

// A copy of the program that stands alone, with its table overwritten by zeros.
class NoLanguage : public Scenario {
protected:
    void SetUp() override {
        Scenario::SetUp();
        const tvstring original = ProgramPath(u"vaultmere.exe");
        const Bytes table = TableIn(original);
        ASSERT_GT(table.size(), 1000U);
        std::ifstream from(FilePath(original), std::ios::binary);
        Bytes program{std::istreambuf_iterator<char>(from), {}};
        const auto place = std::search(program.begin(), program.end(), table.begin(), table.end());
        ASSERT_NE(place, program.end());
        std::fill_n(place, table.size(), '\0');
        m_Copy = InFolder(u"vaultmere.exe");
        std::ofstream(FilePath(m_Copy), std::ios::binary)
            .write(program.data(), static_cast<std::streamsize>(program.size()));
    }

    void ExpectRefusal(const tvstring& arguments) {
        HWND message = m_Program.StartRefusing(m_Copy, arguments);
        ASSERT_NE(message, nullptr);
        EXPECT_EQ(TextOf(message), u"Vaultmere");
        EXPECT_EQ(TextOf(GetDlgItem(message, IDOK)), u"OK");
        Type('C', HOLD_CTRL);  // copies what the message says
        EXPECT_TRUE(PumpUntil([] {
            return TextOnTheClipboard() ==
                   u"Failed to load language file!\r\n\r\nPlease re-download Vaultmere.";
        })) << "it says something else";
        Type(VK_RETURN);
        EXPECT_TRUE(m_Program.HasEnded());
    }

    tvstring m_Copy;
    Program m_Program;
};

TEST_F(NoLanguage, IsToldInPlaceOfAnyWindow) {
    ExpectRefusal({});
}

TEST_F(NoLanguage, KeepsADatabaseFromBeingOpened) {
    const tvstring path = InFolder(u"a.VMR");
    MakeDatabase(path, u"Mine", u"secret");
    ExpectRefusal(path);
}

TEST_F(NoLanguage, KeepsASwitchFromBeingCarriedOut) {
    constexpr const char16_t* kProgramKey = u"Software\\Classes\\Tolvane.Vaultmere";
    RegDeleteTreeW(HKEY_CURRENT_USER, Wide(kProgramKey));
    ExpectRefusal(u"/shelladd");
    EXPECT_FALSE(RegKey(kProgramKey, RegKey::For::Reading));
}

// What the program lacks it takes from a file beside it.
TEST_F(NoLanguage, IsNoHindranceWithAFileOfEnglish) {
    const tvstring whole = InFolder(u"whole.exe");
    ASSERT_NE(CopyFileW(Wide(ProgramPath(u"vaultmere.exe").c_str()), Wide(whole.c_str()), TRUE), FALSE);
    ASSERT_EQ(Program::Run(whole, u"/extractlang"), 0U);
    ASSERT_TRUE(m_Program.StartCopy(m_Copy));
    EXPECT_TRUE(m_Program.Quit());
}

}  // namespace
