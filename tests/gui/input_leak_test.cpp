// Edit boxes, combo boxes and spin controls leave nothing behind: when they come and go, and when the theme
// changes.
#include "tests/gui/input_stage.h"
#include "toolkit/combo_box.h"
#include "toolkit/edit.h"
#include "toolkit/spin.h"

namespace {

constexpr int kRounds = 500;
constexpr int kRoundsBefore = 20;  // what the system keeps for later is made in them
constexpr RECT kPlace{10, 60, 150, 260};

Holdings Growth(const std::function<void(int)>& round) {
    for (int i = 0; i < kRoundsBefore; ++i)
        round(i);
    const Holdings before = WhatIsHeld();
    for (int i = 0; i < kRounds; ++i)
        round(i);
    const Holdings after = WhatIsHeld();
    const auto grown = [](auto from, auto to) { return to > from ? to - from : 0; };
    return {grown(before.gdiObjects, after.gdiObjects), grown(before.userObjects, after.userObjects),
            grown(before.heapBytes, after.heapBytes)};
}

// `systems` is the growth of the same rounds with the system's control alone, which loses memory under Wine:
// some bytes with each part of a text that is replaced.
void ExpectNothingLeft(const std::function<void(int)>& round, const Holdings& systems = {}) {
    const Holdings growth = Growth(round);
    constexpr DWORD kSlack = 8;  // objects, far below one a round
    EXPECT_LE(growth.gdiObjects, kSlack);
    EXPECT_LE(growth.userObjects, kSlack);
    constexpr std::size_t kSlackBytes = std::size_t{8} * kRounds;
    EXPECT_LE(growth.heapBytes, systems.heapBytes + kSlackBytes);
}

class InputLeak : public EachTheme {
protected:
    InputLeak() {
        UseTheme(GetParam());
        MoveMouseAway();
        m_Dialog.Add(ATOM_EDIT, kOther, 5, 5, 80, 12);
        m_Dialog.Open();
    }
    [[nodiscard]] HWND MakeEdit(DWORD style) const {
        return CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | style, 10, 60, 90, 24,
                               m_Dialog.Handle(), nullptr, nullptr, nullptr);
    }

    KeepTheme m_Keep;
    TestDialog m_Dialog;
};
INSTANTIATE_TEST_SUITE_P(Themes, InputLeak, testing::Values(kDark, kSystem), ThemeName);

TEST_P(InputLeak, IsNoneOfEditBoxesThatComeAndGo) {
    const Holdings systems = Growth([this](int) {
        const HWND edit = MakeEdit(ES_AUTOHSCROLL);
        SendMessageW(edit, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"A cue"));
        UpdateWindow(edit);
        SetWindowTextW(edit, L"Some text");
        UpdateWindow(edit);
        DestroyWindow(edit);
    });
    ExpectNothingLeft(
        [this](int) {
            tvEdit edit;
            edit.SubclassWindow(MakeEdit(ES_AUTOHSCROLL));
            edit.SetCue(u"A cue", true);
            UpdateWindow(edit.Handle());
            SetWindowTextW(edit.Handle(), L"Some text");
            UpdateWindow(edit.Handle());
        },
        systems);
}

TEST_P(InputLeak, IsNoneOfPasswordBoxesThatComeAndGo) {
    constexpr int kReplaced = 9 + 2;  // each unit of the text, then all of it
    const Holdings systems = Growth([this](int) {
        const HWND edit = MakeEdit(ES_PASSWORD | ES_AUTOHSCROLL);
        SetWindowTextW(edit, L"Some text");
        for (int i = 0; i < kReplaced; ++i) {
            SendMessageW(edit, EM_SETSEL, 0, 1);
            SendMessageW(edit, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"*"));
        }
        DestroyWindow(edit);
    });
    ExpectNothingLeft(
        [this](int) {
            tvEdit edit;
            edit.SubclassWindow(MakeEdit(ES_PASSWORD | ES_AUTOHSCROLL));
            SetWindowTextW(edit.Handle(), L"Some text");
        },
        systems);
}

TEST_P(InputLeak, IsNoneOfComboBoxesThatComeAndGo) {
    ExpectNothingLeft([this](int i) {
        tvComboBox combo;
        ASSERT_TRUE(combo.Create(m_Dialog.Handle(), kInput, kPlace,
                                 WS_VISIBLE | (i % 2 == 0 ? CBS_DROPDOWNLIST : CBS_DROPDOWN)));
        combo.Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"A row"));
        combo.Send(CB_SETCURSEL, 0);
        PumpQueue();
        UpdateWindow(combo.Handle());
    });
}

TEST_P(InputLeak, IsNoneOfSpinControlsThatComeAndGo) {
    tvEdit buddy;
    buddy.SubclassWindow(MakeEdit(ES_AUTOHSCROLL));
    ExpectNothingLeft([&](int) {
        tvSpinCtrl spin;
        ASSERT_TRUE(spin.Create(m_Dialog.Handle(), kInput, WS_VISIBLE | UDS_ALIGNRIGHT));
        spin.Send(UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy.Handle()));
        MoveWindow(buddy.Handle(), 10, 60, 90, 24, FALSE);
        spin.OnAutoFit();
        UpdateWindow(spin.Handle());
    });
}

TEST_P(InputLeak, IsNoneOfChangesOfTheTheme) {
    tvEdit edit;
    edit.SubclassWindow(MakeEdit(ES_AUTOHSCROLL));
    tvComboBox combo;
    ASSERT_TRUE(combo.Create(m_Dialog.Handle(), kInput, kPlace, WS_VISIBLE | CBS_DROPDOWN));
    combo.Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"A row"));
    tvSpinCtrl spin;
    ASSERT_TRUE(spin.Create(m_Dialog.Handle(), kInput + 1, WS_VISIBLE | UDS_ALIGNRIGHT));
    spin.Send(UDM_SETBUDDY, reinterpret_cast<WPARAM>(edit.Handle()));
    constexpr std::u16string_view kThemes[] = {kSystem, kDark, u"Blue", kSystem, kLight};
    ExpectNothingLeft([&](int i) { UseTheme(kThemes[i % 5], m_Dialog.Handle()); });
}

}  // namespace
