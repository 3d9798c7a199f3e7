// Binding the file type of databases to the program.
#include "shell/file_type.h"

#include <vector>

#include "foundation/path.h"
#include "foundation/registry.h"
#include "tests/app/language_stage.h"
#include "tests/gui/import_slot.h"

namespace {

constexpr const char16_t* kExtension = u"Software\\Classes\\.VMR";
constexpr const char16_t* kProgram = u"Software\\Classes\\Tolvane.Vaultmere";
constexpr const char16_t* kIcon = u"Software\\Classes\\Tolvane.Vaultmere\\DefaultIcon";
constexpr const char16_t* kCommand = u"Software\\Classes\\Tolvane.Vaultmere\\shell\\open\\command";

bool Exists(const char16_t* subkey) {
    return static_cast<bool>(RegKey(subkey, RegKey::For::Reading));
}

tvstring DefaultOf(const char16_t* subkey) {
    const RegKey key(subkey, RegKey::For::Reading);
    tvstring text;
    RegReadText(key.Get(), nullptr, text);
    return text;
}

void SetDefault(const char16_t* subkey, const tvstring& text) {
    const RegKey key(subkey, RegKey::For::Writing);
    ASSERT_TRUE(RegWriteText(key.Get(), nullptr, text));
}

void ForgetAll() {
    platform::DeleteUserTree(kExtension);
    platform::DeleteUserTree(kProgram);
}

void ExpectNothingWritten() {
    EXPECT_FALSE(Exists(kExtension));
    EXPECT_FALSE(Exists(kProgram));
}

class FileTypeTest : public LanguageTest {
protected:
    FileTypeTest() { ForgetAll(); }
    ~FileTypeTest() override { ForgetAll(); }
};

// Notes what the shell is told of changes, in place of telling it.
class ShellNews {
public:
    ShellNews() { s_Told.clear(); }

    // Of every time: whether the file type was there.
    [[nodiscard]] static const std::vector<bool>& Told() { return s_Told; }

private:
    static void WINAPI Note(LONG event, UINT flags, const void* first, const void* second) {
        EXPECT_EQ(event, SHCNE_ASSOCCHANGED);
        EXPECT_EQ(flags, 0U);
        EXPECT_TRUE(first == nullptr && second == nullptr);
        s_Told.push_back(Exists(kCommand));
    }

    inline static std::vector<bool> s_Told;
    ImportSlot m_Slot{L"shell32.dll", "SHChangeNotify", reinterpret_cast<ULONG_PTR>(&Note)};
};

// --- Adding and removing ---

TEST_F(FileTypeTest, ShellIsToldOnceItIsWrittenAndOnceItIsGone) {
    const ShellNews news;
    EXPECT_TRUE(RegisterFileType(FileType::Add));
    EXPECT_EQ(ShellNews::Told(), (std::vector<bool>{true}));
    EXPECT_TRUE(RegisterFileType(FileType::Remove));
    EXPECT_EQ(ShellNews::Told(), (std::vector<bool>{true, false}));
}

TEST_F(FileTypeTest, IsFourTexts) {
    const tvstring program = ProgramPath(u"");
    EXPECT_TRUE(program.ends_with(u"app_tests.exe"));
    EXPECT_TRUE(RegisterFileType(FileType::Add));
    EXPECT_EQ(DefaultOf(kExtension), u"Tolvane.Vaultmere");
    EXPECT_EQ(DefaultOf(kProgram), u"Vaultmere VMR database");
    EXPECT_EQ(DefaultOf(kIcon), tvstring(program).append(u",0"));
    EXPECT_EQ(DefaultOf(kCommand), tvstring(program).append(u" %1"));
}

TEST_F(FileTypeTest, TextsAreStringsWithTheirTerminator) {
    RegisterFileType(FileType::Add);
    for (const char16_t* subkey : {kExtension, kProgram, kIcon, kCommand}) {
        u32 type = 0;
        const tvdata data = RegReadUserValue(subkey, nullptr, &type);
        EXPECT_EQ(type, platform::kRegString);
        EXPECT_EQ(data.Size(), (DefaultOf(subkey).size() + 1) * sizeof(char16_t));
    }
}

TEST_F(FileTypeTest, NameStaysInItsLanguageUntilItIsAddedAgain) {
    RegisterFileType(FileType::Add);
    UseSecond();
    EXPECT_EQ(DefaultOf(kProgram), u"Vaultmere VMR database");
    RegisterFileType(FileType::Add);
    EXPECT_EQ(DefaultOf(kProgram), u"Tresor");
}

TEST_F(FileTypeTest, GoesWithAllItsKeys) {
    RegisterFileType(FileType::Add);
    EXPECT_TRUE(RegisterFileType(FileType::Remove));
    ExpectNothingWritten();
}

TEST_F(FileTypeTest, CanBeRemovedWhereThereIsNone) {
    EXPECT_TRUE(RegisterFileType(FileType::Remove));
    ExpectNothingWritten();
}

TEST_F(FileTypeTest, LeavesTheExtensionToAnotherProgramThatHasIt) {
    RegisterFileType(FileType::Add);
    SetDefault(kExtension, u"Other.Program");
    EXPECT_TRUE(RegisterFileType(FileType::Remove));
    EXPECT_EQ(DefaultOf(kExtension), u"Other.Program");
    EXPECT_FALSE(Exists(kProgram));
}

TEST_F(FileTypeTest, KnowsItsOwnNameWhateverTheCase) {
    SetDefault(kExtension, u"TOLVANE.vaultmere");
    RegisterFileType(FileType::Remove);
    EXPECT_FALSE(Exists(kExtension));
}

// --- A registry that fails ---

// While it lives one call after some others, or each from there on, is refused.
class RefusedWrites {
public:
    enum class From { Value, Key };
    static constexpr int kAll = 1000;

    explicit RefusedWrites(From from, int after, int times = 1)
        : m_Slot(L"advapi32.dll", from == From::Value ? "RegSetValueExW" : "RegCreateKeyExW",
                 from == From::Value ? reinterpret_cast<ULONG_PTR>(&SetValue)
                                     : reinterpret_cast<ULONG_PTR>(&CreateKey)) {
        s_After = after;
        s_Times = times;
        s_Real = m_Slot.Real();
    }

private:
    static bool Refuses() { return s_After-- <= 0 && s_Times-- > 0; }
    static LSTATUS WINAPI SetValue(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                                   DWORD size) {
        if (Refuses()) return ERROR_ACCESS_DENIED;
        return reinterpret_cast<decltype(&RegSetValueExW)>(s_Real)(key, name, reserved, type, data, size);
    }
    static LSTATUS WINAPI CreateKey(HKEY parent, LPCWSTR name, DWORD reserved, LPWSTR type, DWORD options,
                                    REGSAM access, LPSECURITY_ATTRIBUTES security, PHKEY key,
                                    LPDWORD outcome) {
        if (Refuses()) return ERROR_ACCESS_DENIED;
        return reinterpret_cast<decltype(&RegCreateKeyExW)>(s_Real)(parent, name, reserved, type, options,
                                                                    access, security, key, outcome);
    }

    static inline int s_After = 0;
    static inline int s_Times = 0;
    static inline ULONG_PTR s_Real = 0;
    ImportSlot m_Slot;
};

class FileTypeRefused : public FileTypeTest, public testing::WithParamInterface<RefusedWrites::From> {
protected:
    static constexpr const char16_t* kInOrder[] = {kExtension, kProgram, kIcon, kCommand};
};
INSTANTIATE_TEST_SUITE_P(Calls, FileTypeRefused,
                         testing::Values(RefusedWrites::From::Value, RefusedWrites::From::Key),
                         [](const auto& from) {
                             return from.param == RefusedWrites::From::Value ? "Value" : "Key";
                         });

TEST_P(FileTypeRefused, OneTextLeavesTheOthersAndSaysNothing) {
    const DuringModal nothing({});  // fails once a dialog stays
    for (int refused = 0; refused < 4; ++refused) {
        ForgetAll();
        {
            const RefusedWrites refusal(GetParam(), refused);
            EXPECT_TRUE(RegisterFileType(FileType::Add));
        }
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(DefaultOf(kInOrder[i]).empty(), i == refused) << i << " of " << refused;
    }
}

TEST_P(FileTypeRefused, AltogetherStillSucceeds) {
    {
        const RefusedWrites refusal(GetParam(), 0, RefusedWrites::kAll);
        EXPECT_TRUE(RegisterFileType(FileType::Add));
    }
    for (const char16_t* subkey : kInOrder)
        EXPECT_EQ(DefaultOf(subkey), u"");
}

LSTATUS WINAPI RefuseToDelete(HKEY, LPCWSTR) {
    return ERROR_ACCESS_DENIED;
}

TEST_F(FileTypeTest, ThatCannotBeRemovedStaysAndSaysNothing) {
    ASSERT_TRUE(RegisterFileType(FileType::Add));
    const DuringModal nothing({});  // fails once a dialog stays
    {
        const ImportSlot slot(L"advapi32.dll", "RegDeleteTreeW",
                              reinterpret_cast<ULONG_PTR>(&RefuseToDelete));
        RegisterFileType(FileType::Remove);
    }
    for (const char16_t* subkey : {kExtension, kProgram, kIcon, kCommand})
        EXPECT_NE(DefaultOf(subkey), u"");
}

// --- Asking ---

class FileTypePrompt : public FileTypeTest {
protected:
    void SetUp() override { OpenNoting(); }

    static tvstring Caption(int id) { return tvMessageBox::GetButtonText(id, nullptr, false); }

    static void ExpectUsualCaptions() {
        EXPECT_EQ(Caption(IDYES), u"&Yes");
        EXPECT_EQ(Caption(IDNO), u"&No");
        EXPECT_EQ(Caption(IDCANCEL), u"Cancel");
    }
};

TEST_F(FileTypePrompt, HasCaptionsOfItsOwnForThisOneBox) {
    const DuringModal steps({InBox(
        [](const tvMessageBox& box) {
            EXPECT_EQ(box.m_style, 0x283U);
            EXPECT_EQ(TextOf(box.Handle()), u"Register File Type");
            EXPECT_TRUE(box.m_text.starts_with(u"Register the file extension .VMR to system"));
            EXPECT_EQ(TextOf(GetDlgItem(box.Handle(), IDYES)), u"&Register");
            EXPECT_EQ(TextOf(GetDlgItem(box.Handle(), IDNO)), u"&Deregister");
            EXPECT_EQ(TextOf(GetDlgItem(box.Handle(), IDCANCEL)), u"Cancel");
        },
        IDCANCEL)});
    EXPECT_FALSE(PromptFileType());
    ExpectUsualCaptions();
}

TEST_F(FileTypePrompt, AddsAfterTheFirstButton) {
    const DuringModal steps({AnswerBox(IDYES)});
    EXPECT_TRUE(PromptFileType());
    EXPECT_EQ(DefaultOf(kExtension), u"Tolvane.Vaultmere");
    ExpectUsualCaptions();
}

TEST_F(FileTypePrompt, RemovesAfterTheSecondButton) {
    RegisterFileType(FileType::Add);
    const DuringModal steps({AnswerBox(IDNO)});
    EXPECT_TRUE(PromptFileType());
    ExpectNothingWritten();
    ExpectUsualCaptions();
}

TEST_F(FileTypePrompt, DoesNothingWhenCancelled) {
    const DuringModal steps({AnswerBox(IDCANCEL)});
    EXPECT_FALSE(PromptFileType());
    ExpectNothingWritten();
    ExpectUsualCaptions();
}

TEST_F(FileTypePrompt, DoesNothingWhenClosedByItsCross) {
    const DuringModal steps({[] {
        auto* box = dynamic_cast<tvMessageBox*>(tvWnd::FromHandle(FrontDialog()));
        if (box == nullptr) return false;
        PostMessageW(box->Handle(), WM_CLOSE, 0, 0);
        return true;
    }});
    EXPECT_FALSE(PromptFileType());
    ExpectNothingWritten();
    ExpectUsualCaptions();
}

TEST_F(FileTypePrompt, ClosesAsUsualIfNothingCanBeWritten) {
    {
        const RefusedWrites refusal(RefusedWrites::From::Value, 0, RefusedWrites::kAll);
        const DuringModal steps({AnswerBox(IDYES)});
        EXPECT_TRUE(PromptFileType());
    }
    EXPECT_EQ(DefaultOf(kExtension), u"");
    EXPECT_EQ(FrontDialog(), Window());
    ExpectUsualCaptions();
}

// The third button is that of Enter.
TEST_F(FileTypePrompt, DoesNothingAfterEscapeOrEnter) {
    for (const WORD key : {WORD{VK_ESCAPE}, WORD{VK_RETURN}}) {
        const DuringModal steps({[key] {
            auto* box = dynamic_cast<tvMessageBox*>(tvWnd::FromHandle(FrontDialog()));
            if (box == nullptr || GetForegroundWindow() != box->Handle() || GetFocus() == nullptr)
                return false;
            PostMessageW(GetFocus(), WM_KEYDOWN, key, 0);
            return true;
        }});
        EXPECT_FALSE(PromptFileType());
        ExpectNothingWritten();
        ExpectUsualCaptions();
    }
}

TEST_F(FileTypePrompt, IsACommandOfTheMainWindow) {
    const DuringModal steps({AnswerBox(IDYES)});
    Command(CMD_FILE_TYPE);
    EXPECT_EQ(DefaultOf(kExtension), u"Tolvane.Vaultmere");
}

}  // namespace
