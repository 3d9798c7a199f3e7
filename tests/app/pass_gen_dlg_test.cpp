// The dialog for passwords: what is typed, what is generated, and which options are kept.
#include "foundation/product.h"
#include "foundation/registry.h"
#include "tests/app/pass_gen_stage.h"
#include "tests/gui/secret_memory.h"

namespace {

using PassGenDialog = PassGenTest;

struct Options {
    u32 min;
    u32 max;
    u32 bits;
    bool operator==(const Options&) const = default;
};
void PrintTo(const Options& options, std::ostream* out) {
    *out << options.min << ", " << options.max << ", " << options.bits;
}

constexpr u32 kNotStored = 9999;

Options Stored() {
    const RegKey key(kSettingsKey, RegKey::For::Reading);
    Options options{kNotStored, kNotStored, kNotStored};
    RegReadWord(key.Get(), u"PassGenMinLen", options.min);
    RegReadWord(key.Get(), u"PassGenMaxLen", options.max);
    RegReadWord(key.Get(), u"PassGenOptions", options.bits);
    return options;
}

void Store(const Options& options) {
    const RegKey key(kSettingsKey, RegKey::For::Writing);
    ASSERT_TRUE(RegWriteWord(key.Get(), u"PassGenMinLen", options.min));
    ASSERT_TRUE(RegWriteWord(key.Get(), u"PassGenMaxLen", options.max));
    ASSERT_TRUE(RegWriteWord(key.Get(), u"PassGenOptions", options.bits));
}

bool IsOf(const tvstring& password, std::u16string_view characters) {
    return !password.empty() && password.view().find_first_not_of(characters) == std::u16string_view::npos;
}

bool HasOneOf(const tvstring& password, std::u16string_view characters) {
    return password.view().find_first_of(characters) != std::u16string_view::npos;
}

// --- Opening ---

TEST_F(PassGenDialog, ShowsThePasswordOfTheItemInClearText) {
    Renew(u"s3cret & more");
    Show();
    EXPECT_EQ(Password(), u"s3cret & more");
    EXPECT_FALSE(HasStyle(Item(kPassword), ES_PASSWORD));
    EXPECT_EQ(SendMessageW(Item(kPassword), EM_GETPASSWORDCHAR, 0, 0), 0);
}

TEST_F(PassGenDialog, OpensWithTheUsualOptions) {
    Show();
    EXPECT_EQ(TextOf(Item(kMin)), u"12");
    EXPECT_EQ(TextOf(Item(kMax)), u"20");
    EXPECT_TRUE(IsChecked(kUpper));
    EXPECT_TRUE(IsChecked(kLower));
    EXPECT_TRUE(IsChecked(kDigits));
    EXPECT_FALSE(IsChecked(kOther));
    EXPECT_EQ(m_Dialog->m_LengthLabel, u"");
}

TEST_F(PassGenDialog, OpensWithTheStoredOptions) {
    struct {
        u32 bits;
        int id;
    } const cases[] = {{1, kUpper}, {2, kLower}, {4, kDigits}, {8, kOther}};
    for (const auto& [bits, id] : cases) {
        Store({5, 9, bits});
        Renew();
        Show();
        EXPECT_EQ(TextOf(Item(kMin)), u"5");
        EXPECT_EQ(TextOf(Item(kMax)), u"9");
        for (const int box : {kUpper, kLower, kDigits, kOther})
            EXPECT_EQ(IsChecked(box), box == id) << box << " for " << bits;
    }
}

TEST_F(PassGenDialog, OpensWithStoredLengthsInRange) {
    Store({30, 7, 7});
    Show();
    EXPECT_EQ(TextOf(Item(kMin)), u"30");
    EXPECT_EQ(TextOf(Item(kMax)), u"30");
    Store({1, 4000000000U, 7});
    Renew();
    Show();
    EXPECT_EQ(TextOf(Item(kMin)), u"4");
    EXPECT_EQ(TextOf(Item(kMax)), u"4");
}

// --- OK and Cancel ---

TEST_F(PassGenDialog, GivesWhatIsTypedOnOk) {
    Renew(u"old");
    const int result = Run({Doing([this] { SendMessageW(Item(kPassword), EM_SETSEL, 0, -1); }),
                            Doing([] { TypeText(u"New 1"); }), [this] { return Password() == u"New 1"; },
                            Doing([this] { Click(Item(IDOK)); })});
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(m_Dialog->m_Password, u"New 1");
}

TEST_F(PassGenDialog, GivesAnEmptyPasswordOnOk) {
    Renew(u"old");
    EXPECT_EQ(Run({Doing([this] { Put(kPassword, u""); }), PressButton(IDOK)}), IDOK);
    EXPECT_EQ(m_Dialog->m_Password, u"");
}

TEST_F(PassGenDialog, ClosesByReturnWithWhatIsThere) {
    Renew(u"old");
    EXPECT_EQ(
        Run({Doing([this] { Put(kPassword, u"new"); }), Doing([] { KeyDown(VK_RETURN), KeyUp(VK_RETURN); })}),
        IDOK);
    EXPECT_EQ(m_Dialog->m_Password, u"new");
}

TEST_F(PassGenDialog, LeavesThePasswordOnCancelButKeepsTheOptionsOfGenerate) {
    Renew(u"old");
    const int result = Run({Doing([this] {
                                PutLengths(u"6", u"8");
                                CheckOnly({kLower, kOther});
                            }),
                            Doing([this] { Click(Item(kGenerate)); }),
                            [this] { return Password() != u"old" && !m_Dialog->m_LengthLabel.empty(); },
                            PressButton(IDCANCEL)});
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(m_Dialog->m_Password, u"old");
    EXPECT_EQ(Stored(), (Options{6, 8, 10}));
}

TEST_F(PassGenDialog, LeavesThePasswordOnEscape) {
    Renew(u"old");
    EXPECT_EQ(
        Run({Doing([this] { Put(kPassword, u"new"); }), Doing([] { KeyDown(VK_ESCAPE), KeyUp(VK_ESCAPE); })}),
        IDCANCEL);
    EXPECT_EQ(m_Dialog->m_Password, u"old");
}

TEST_F(PassGenDialog, StoresNothingUnlessGenerateIsPressed) {
    EXPECT_EQ(Run({Doing([this] {
                       PutLengths(u"6", u"8");
                       CheckOnly({kLower});
                   }),
                   PressButton(IDOK)}),
              IDOK);
    EXPECT_EQ(Stored(), (Options{kNotStored, kNotStored, kNotStored}));
}

// --- Generate ---

TEST_F(PassGenDialog, GeneratesFromTheClassesThatAreChecked) {
    struct {
        int id;
        PassGenClass index;
        u32 bits;
    } const cases[] = {{kUpper, PASSGEN_UPPER, 1},
                       {kLower, PASSGEN_LOWER, 2},
                       {kDigits, PASSGEN_DIGITS, 4},
                       {kOther, PASSGEN_OTHER, 8}};
    Show();
    for (const auto& [id, index, bits] : cases) {
        CheckOnly({id});
        Generate();
        EXPECT_TRUE(IsOf(Password(), kPassGenTables[index])) << id;
        EXPECT_EQ(Stored(), (Options{12, 20, bits}));
    }
}

TEST_F(PassGenDialog, GeneratesOneCharacterOfEachClassWhereThereIsNoRoomForMore) {
    Show();
    PutLengths(u"4", u"4");
    CheckOnly({kUpper, kLower, kDigits, kOther});
    for (int i = 0; i < 5; ++i) {
        Generate();
        ASSERT_EQ(Password().size(), 4U);
        for (const std::u16string_view characters : kPassGenTables)
            EXPECT_TRUE(HasOneOf(Password(), characters));
    }
    EXPECT_EQ(Stored(), (Options{4, 4, 15}));
}

TEST_F(PassGenDialog, GeneratesAnotherPasswordOfTheseLengthsAtEachPress) {
    Show();
    PutLengths(u"30", u"33");
    tvstring last;
    for (int i = 0; i < 10; ++i) {
        Generate();
        EXPECT_NE(Password(), last);
        last = Password();
        EXPECT_GE(last.size(), 30U);
        EXPECT_LE(last.size(), 33U);
        tvstring label = u"L = ";
        label.append(Units(std::to_wstring(last.size()).c_str()));
        EXPECT_EQ(m_Dialog->m_LengthLabel, label);
    }
}

TEST_F(PassGenDialog, GeneratesByAnyCommandOfTheButton) {
    Show();
    for (const WORD code : {WORD{BN_CLICKED}, WORD{BN_DOUBLECLICKED}}) {
        Put(kPassword, u"");
        SendMessageW(m_Dialog->Handle(), WM_COMMAND, MAKEWPARAM(kGenerate, code),
                     reinterpret_cast<LPARAM>(Item(kGenerate)));
        EXPECT_GE(Password().size(), 12U) << code;
    }
}

TEST_F(PassGenDialog, GivesAGeneratedPasswordOnOk) {
    tvstring generated;
    EXPECT_EQ(Run({Doing([this] { Click(Item(kGenerate)); }),
                   [this, &generated] {
                       generated = Password();
                       return !generated.empty();
                   },
                   PressButton(IDOK)}),
              IDOK);
    EXPECT_EQ(m_Dialog->m_Password, generated);
}

// --- The label ---

TEST_F(PassGenDialog, TakesItsLabelAwayWhenThePasswordIsEditedByHand) {
    Show();
    PutLengths(u"16", u"16");
    Generate();
    EXPECT_EQ(m_Dialog->m_LengthLabel, u"L = 16");
    SetFocus(Item(kPassword));
    TypeText(u"x");
    EXPECT_TRUE(PumpUntil([this] { return m_Dialog->m_LengthLabel.empty(); }));
    EXPECT_NE(Password().size(), 16U);
    TypeText(u"y");
    PumpQueue();
    EXPECT_EQ(m_Dialog->m_LengthLabel, u"");
    Generate();
    EXPECT_EQ(m_Dialog->m_LengthLabel, u"L = 16");
}

TEST_F(PassGenDialog, LeavesItsLabelWhenALengthIsEdited) {
    Show();
    PutLengths(u"16", u"16");
    Generate();
    Put(kMin, u"5");
    Put(kMax, u"7");
    PumpQueue();
    EXPECT_EQ(m_Dialog->m_LengthLabel, u"L = 16");
}

// --- The lengths ---

// Types into a box of the dialog's own loop and leaves it by Tab.
struct Typed {
    int id;
    const char16_t* text;
};

class PassGenLengths : public PassGenTest {
protected:
    // The lengths that are there when these were typed, each box left by Tab.
    std::vector<tvstring> LengthsAfter(const std::vector<Typed>& typed) {
        Renew();
        std::vector<Step> steps;
        for (const Typed& one : typed) {
            steps.push_back(Doing([this, id = one.id] {
                SetFocus(Item(id));
                SendMessageW(Item(id), EM_SETSEL, 0, -1);
                SendMessageW(Item(id), WM_CLEAR, 0, 0);
            }));
            steps.push_back(Doing([text = one.text] { TypeText(text); }));
            steps.push_back([this, one] { return TextOf(Item(one.id)) == one.text; });
            steps.push_back(Doing([] { KeyDown(VK_TAB); }));
            steps.push_back(Doing([] { KeyUp(VK_TAB); }));
            steps.push_back([this, id = one.id] { return GetFocus() != Item(id); });
        }
        std::vector<tvstring> lengths;
        steps.push_back(Doing([this, &lengths] { lengths = {TextOf(Item(kMin)), TextOf(Item(kMax))}; }));
        steps.push_back(PressButton(IDCANCEL));
        Run(std::move(steps));
        return lengths;
    }
};

using Lengths = std::vector<tvstring>;

TEST_F(PassGenLengths, AreBroughtIntoRangeWhenTheirBoxIsLeft) {
    EXPECT_EQ(LengthsAfter({{kMin, u"0"}}), (Lengths{u"4", u"20"}));
    EXPECT_EQ(LengthsAfter({{kMin, u""}}), (Lengths{u"4", u"20"}));
    EXPECT_EQ(LengthsAfter({{kMax, u"500"}}), (Lengths{u"12", u"128"}));
    EXPECT_EQ(LengthsAfter({{kMin, u"99999999999999"}}), (Lengths{u"4", u"20"}));
    EXPECT_EQ(LengthsAfter({{kMin, u"15"}}), (Lengths{u"15", u"20"}));
}

TEST_F(PassGenLengths, GiveTheLongerOneWayToTheShorterOneWhenEitherBoxIsLeft) {
    EXPECT_EQ(LengthsAfter({{kMin, u"25"}}), (Lengths{u"25", u"25"}));
    EXPECT_EQ(LengthsAfter({{kMax, u"9"}}), (Lengths{u"12", u"12"}));
    EXPECT_EQ(LengthsAfter({{kMin, u"200"}}), (Lengths{u"128", u"128"}));
}

TEST_F(PassGenLengths, StayAsTypedUntilTheirBoxIsLeft) {
    Show();
    SetFocus(Item(kMin));
    SendMessageW(Item(kMin), EM_SETSEL, 0, -1);
    TypeText(u"2");
    EXPECT_TRUE(PumpUntil([this] { return TextOf(Item(kMin)) == u"2"; }));
    PumpQueue();
    EXPECT_EQ(TextOf(Item(kMin)), u"2");
    SetFocus(Item(kPassword));
    EXPECT_EQ(TextOf(Item(kMin)), u"4");
}

TEST_F(PassGenLengths, AreBroughtIntoRangeByGenerate) {
    Show();
    PutLengths(u"20", u"12");
    Generate();
    EXPECT_EQ(TextOf(Item(kMin)), u"20");
    EXPECT_EQ(TextOf(Item(kMax)), u"20");
    EXPECT_EQ(Password().size(), 20U);
    EXPECT_EQ(Stored(), (Options{20, 20, 7}));
    PutLengths(u"", u"500");
    Generate();
    EXPECT_EQ(TextOf(Item(kMin)), u"4");
    EXPECT_EQ(TextOf(Item(kMax)), u"128");
    EXPECT_EQ(Stored(), (Options{4, 128, 7}));
}

TEST_F(PassGenLengths, TakeOnlyDigits) {
    Show();
    for (const int id : {kMin, kMax}) {
        SetFocus(Item(id));
        SendMessageW(Item(id), EM_SETSEL, 0, -1);
        TypeText(u"a1-b7");
        EXPECT_TRUE(PumpUntil([this, id] { return TextOf(Item(id)) == u"17"; })) << id;
        SetFocus(Item(kPassword));
    }
}

// --- The secret ---

TEST_F(PassGenDialog, LeavesNothingOfThePasswordInMemory) {
    for (const bool isReplaced : {false, true}) {
        ASSERT_EQ(CountSecrets(), 0);
        Renew(Secret());
        Show();
        EXPECT_GE(CountSecrets(), 2);
        if (isReplaced) Generate();
        SendMessageW(m_Dialog->Handle(), WM_COMMAND, IDOK, 0);
        m_Dialog.reset();
        EXPECT_EQ(CountSecrets(), 0) << (isReplaced ? "replaced" : "kept");
    }
    ForgetSecrets();
}

TEST_F(PassGenDialog, LeavesNothingOfAReplacedPasswordInItsBox) {
    ASSERT_EQ(CountSecrets(), 0);
    Renew(Secret());
    Show();
    m_Dialog->m_Password.clear();
    EXPECT_GE(CountSecrets(), 1);
    Generate();
    EXPECT_EQ(CountSecrets(), 0);
    m_Dialog.reset();
    ForgetSecrets();
}

// --- The spin buttons ---

class PassGenSpins : public PassGenTest {
protected:
    enum class Half { Upper, Lower };
    void ClickSpin(int id, Half half) const {
        const RECT client = ClientOf(Item(id));
        const int y = static_cast<int>(half == Half::Upper ? client.bottom / 4 : client.bottom * 3 / 4);
        Click(Item(id), static_cast<int>(client.right / 2), y);
    }
    [[nodiscard]] bool Becomes(int id, const char16_t* text) const {
        return PumpUntil([this, id, text] { return TextOf(Item(id)) == text; });
    }
};

TEST_F(PassGenSpins, ChangeTheLengthsByTheMouse) {
    Show();
    ClickSpin(kMinSpin, Half::Upper);
    EXPECT_TRUE(Becomes(kMin, u"13"));
    ClickSpin(kMaxSpin, Half::Lower);
    EXPECT_TRUE(Becomes(kMax, u"19"));
    ClickSpin(kMinSpin, Half::Lower);
    EXPECT_TRUE(Becomes(kMin, u"12"));
    EXPECT_EQ(TextOf(Item(kMax)), u"19");
}

TEST_F(PassGenSpins, GoOnFromWhatIsTyped) {
    Show();
    Put(kMax, u"50");
    ClickSpin(kMaxSpin, Half::Upper);
    EXPECT_TRUE(Becomes(kMax, u"51"));
}

TEST_F(PassGenSpins, StopAtFourAndAHundredAndTwentyEight) {
    Show();
    PutLengths(u"5", u"127");
    ClickSpin(kMinSpin, Half::Lower);
    ClickSpin(kMinSpin, Half::Lower);
    ClickSpin(kMaxSpin, Half::Upper);
    ClickSpin(kMaxSpin, Half::Upper);
    PumpQueue();
    EXPECT_EQ(TextOf(Item(kMin)), u"4");
    EXPECT_EQ(TextOf(Item(kMax)), u"128");
}

TEST_F(PassGenSpins, StandBehindTheirBoxes) {
    Show();
    struct {
        int spin;
        int edit;
    } const cases[] = {{kMinSpin, kMin}, {kMaxSpin, kMax}};
    for (const auto& [spin, edit] : cases) {
        EXPECT_EQ(GetWindow(Item(spin), GW_HWNDPREV), tvScrollBox::OuterOf(Item(edit)));
        EXPECT_EQ(reinterpret_cast<HWND>(SendMessageW(Item(spin), UDM_GETBUDDY, 0, 0)), Item(edit));
        i32 low = 0;
        i32 high = 0;
        SendMessageW(Item(spin), UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low),
                     reinterpret_cast<LPARAM>(&high));
        EXPECT_EQ(low, 4);
        EXPECT_EQ(high, 128);
    }
}

}  // namespace
