// Groups of radio buttons.
#include "tests/gui/button_stage.h"
#include "toolkit/check_box.h"

namespace {

constexpr u16 kFirst = 31;  // of the first group: 31 to 33; of the second: 34, 35
constexpr int kRadios = 5;
constexpr int kInFirstGroup = 3;

// Two groups of radio buttons, one below the other.
class Groups {
public:
    explicit Groups(std::u16string_view theme, u32 typeOfSecond = BS_AUTORADIOBUTTON) {
        UseTheme(theme);
        MoveMouseAway();
        dialog.Add(ATOM_EDIT, kEdit, 5, 5, 80, 12, WS_GROUP);
        for (u16 i = 0; i < kRadios; ++i) {
            const u32 group = i == 0 || i == kInFirstGroup ? WS_GROUP : 0;
            const u32 type = i == 1 ? typeOfSecond : BS_AUTORADIOBUTTON;
            dialog.Add(ATOM_BUTTON, static_cast<u16>(kFirst + i), 5, static_cast<short>(20 + 18 * i), 90, 16,
                       type | group);
            dialog.Wrap(radios[i], kFirst + i);
        }
        dialog.Open();
    }

    void Choose(int index) {
        Click(radios[index].Handle(), 6, 8);
        const WORD id = static_cast<WORD>(kFirst + index);
        EXPECT_TRUE(PumpUntil([&] { return dialog.CountCommands(id) > 0; }));
    }

    [[nodiscard]] std::string Checks() const {
        std::string checks;
        for (const tvCheckBox& radio : radios)
            checks += SendMessageW(radio.Handle(), BM_GETCHECK, 0, 0) == BST_CHECKED ? 'x' : '-';
        return checks;
    }

    KeepTheme keep;
    tvCheckBox radios[kRadios];
    TestDialog dialog;
};

INT_PTR PropertyOf(HWND window) {
    return reinterpret_cast<INT_PTR>(GetPropW(window, L"tvCheckBox_AutoRadioButton"));
}

UNDER_EACH_THEME(RadioGroup);

TEST_P(RadioGroup, HasOneThatIsChosen) {
    Groups groups(GetParam());
    groups.Choose(0);
    EXPECT_EQ(groups.Checks(), "x----");
    groups.Choose(2);
    EXPECT_EQ(groups.Checks(), "--x--");
    groups.Choose(1);
    EXPECT_EQ(groups.Checks(), "-x---");
    groups.Choose(1);
    EXPECT_EQ(groups.Checks(), "-x---");
}

TEST_P(RadioGroup, LeavesTheOtherGroupAlone) {
    Groups groups(GetParam());
    groups.Choose(4);
    groups.Choose(0);
    EXPECT_EQ(groups.Checks(), "x---x");
    groups.Choose(3);
    EXPECT_EQ(groups.Checks(), "x--x-");
    groups.Choose(2);
    EXPECT_EQ(groups.Checks(), "--xx-");
}

TEST_P(RadioGroup, KeepsItsChoiceThroughAllThemes) {
    Groups groups(GetParam());
    groups.Choose(1);
    groups.Choose(3);
    for (const std::u16string_view theme : {kSystem, kDark, kSystem, kLight}) {
        UseTheme(theme, groups.dialog.Handle());
        EXPECT_EQ(groups.Checks(), "-x-x-");
        groups.Choose(0);
        EXPECT_EQ(groups.Checks(), "x--x-");
        groups.Choose(1);
        EXPECT_EQ(groups.Checks(), "-x-x-");
    }
}

TEST_P(RadioGroup, TellsTheDialogOfTheClickAlone) {
    Groups groups(GetParam());
    groups.Choose(0);
    groups.dialog.m_commands.clear();
    groups.Choose(1);
    EXPECT_EQ(groups.dialog.CountCommands(kFirst + 1), 1);
    EXPECT_EQ(groups.dialog.CountCommands(kFirst), 0);
}

TEST_P(RadioGroup, MarksItsButtonsByAProperty) {
    const Groups groups(GetParam(), BS_RADIOBUTTON);
    EXPECT_EQ(PropertyOf(groups.radios[0].Handle()), 9);
    EXPECT_EQ(PropertyOf(groups.radios[1].Handle()), 0);
    EXPECT_EQ(PropertyOf(groups.radios[2].Handle()), 9);
}

TEST_P(RadioGroup, TakesTheMarkOffWithTheStyle) {
    const Groups groups(GetParam());
    const HWND radio = groups.radios[2].Handle();
    const auto setType = [radio](DWORD type) {
        SetWindowLongPtrW(radio, GWL_STYLE,
                          static_cast<LONG_PTR>((StyleOf(radio) & ~DWORD{BS_TYPEMASK}) | type));
    };
    setType(BS_AUTOCHECKBOX);
    EXPECT_EQ(PropertyOf(radio), 0);
    setType(BS_AUTORADIOBUTTON);
    EXPECT_EQ(PropertyOf(radio), 9);
    SendMessageW(radio, BM_SETSTYLE, BS_RADIOBUTTON, FALSE);
    EXPECT_EQ(PropertyOf(radio), 0);
    SendMessageW(radio, BM_SETSTYLE, BS_AUTORADIOBUTTON, FALSE);
    EXPECT_EQ(PropertyOf(radio), 9);
}

TEST(RadioMark, GoesWithTheWindow) {
    UseTheme(kLight);
    const KeepTheme keep;
    TestDialog dialog;
    dialog.Open();
    tvCheckBox radio;
    const HWND made = CreateWindowExW(0, L"BUTTON", L"x", WS_CHILD | BS_AUTORADIOBUTTON, 0, 0, 80, 24,
                                      dialog.Handle(), nullptr, nullptr, nullptr);
    radio.SubclassWindow(made);
    ASSERT_EQ(PropertyOf(made), 9);
    SendMessageW(made, WM_NCDESTROY, 0, 0);
    EXPECT_EQ(PropertyOf(made), 0);
}

TEST(OwnerDrawnRadioGroup, ClearsNoneButTheMarked) {
    Groups groups(kLight, BS_AUTOCHECKBOX);
    groups.Choose(1);
    EXPECT_EQ(groups.Checks(), "-x---");
    groups.Choose(0);
    EXPECT_EQ(groups.Checks(), "xx---");
    groups.Choose(2);
    EXPECT_EQ(groups.Checks(), "-xx--");
    RemovePropW(groups.radios[2].Handle(), Wide(kRadioProperty));
    groups.Choose(0);
    EXPECT_EQ(groups.Checks(), "xxx--");
    SetPropW(groups.radios[2].Handle(), Wide(kRadioProperty), reinterpret_cast<HANDLE>(INT_PTR{8}));
    groups.Choose(0);
    EXPECT_EQ(groups.Checks(), "xxx--");
}

// As when it is chosen by the program while it cannot be used: the walk has to come to an end all the same.
TEST(OwnerDrawnRadioGroup, IsWalkedOnceFromAButtonThatIsHidden) {
    Groups groups(kLight);
    groups.Choose(1);
    ShowWindow(groups.radios[0].Handle(), SW_HIDE);
    groups.dialog.Send(WM_COMMAND, MAKEWPARAM(kFirst, BN_CLICKED),
                       reinterpret_cast<LPARAM>(groups.radios[0].Handle()));
    EXPECT_EQ(SendMessageW(groups.radios[0].Handle(), BM_GETCHECK, 0, 0), BST_CHECKED);
}

}  // namespace
