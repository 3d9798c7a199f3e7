// The dialog for passwords over the main window.
#pragma once

#include "tests/app/dialog_stage.h"
#include "tests/gui/sizes.h"
#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"
#include "windows/pass_gen_dlg.h"

class PassGenTest : public DialogTest<CVMRPassGenDlg> {
protected:
    static constexpr int kPassword = 2014;
    static constexpr int kMin = 2015;
    static constexpr int kMax = 2016;
    static constexpr int kMinSpin = 2017;
    static constexpr int kMaxSpin = 2018;
    static constexpr int kUpper = 2020;
    static constexpr int kLower = 2021;
    static constexpr int kDigits = 2022;
    static constexpr int kOther = 2023;
    static constexpr int kGenerate = 2024;

    PassGenTest() : DialogTest(kPassword) {
        Open();
        Renew();
    }

    void Renew(const tvstring& password = {}) {
        DialogTest::Renew();
        m_Dialog->m_Password = password;
    }

    // A step that does something.
    static Step Doing(std::function<void()> what) {
        return [what = std::move(what)] {
            what();
            return true;
        };
    }

    [[nodiscard]] RECT PlaceOf(int id) const { return OuterPlace(Item(id)); }
    [[nodiscard]] tvstring Password() const { return TextOf(Item(kPassword)); }
    [[nodiscard]] bool IsChecked(int id) const {
        return SendMessageW(Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
    void Put(int id, const char16_t* text) const { SetWindowTextW(Item(id), Wide(text)); }
    void PutLengths(const char16_t* shortest, const char16_t* longest) const {
        Put(kMin, shortest);
        Put(kMax, longest);
    }
    // Checks these boxes and no others.
    void CheckOnly(std::vector<int> ids) const {
        for (const int id : {kUpper, kLower, kDigits, kOther}) {
            const bool checked = std::find(ids.begin(), ids.end(), id) != ids.end();
            SendMessageW(Item(id), BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
        }
    }
    void Generate() const {
        SendMessageW(Item(kGenerate), BM_CLICK, 0, 0);
        Settle(m_Dialog->Handle());
    }
};
