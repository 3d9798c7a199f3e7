// Creating, saving, closing and opening databases over and over leaves nothing behind.
#include "foundation/language.h"
#include "tests/app/app_stage.h"
#include "tests/gui/growth.h"
#include "windows/command_ids.h"

namespace {

class Rounds : public AppTest, public testing::WithParamInterface<const char16_t*> {
protected:
    // Edit boxes with the cues of the three dialogs of a round, and nothing of ours: under Wine the system's
    // edit box does not free its cue.
    void MakeCues() const {
        const tvstring password = LangText(u"file", u"setpwd_tip");
        const tvstring again = LangText(u"file", u"setpwd_tip2");
        for (const tvstring& cue : {LangText(u"file", u"modify_tip"), tvstring(), password, again,
                                    LangText(u"file", u"needpwd_tip"), tvstring()}) {
            HWND edit =
                CreateWindowExW(0, L"EDIT", L"", WS_CHILD, 0, 0, 9, 9, Window(), nullptr, nullptr, nullptr);
            SendMessageW(edit, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(cue.c_str()));
            DestroyWindow(edit);
        }
    }
};

TEST_P(Rounds, OfCreateSaveCloseAndOpenLeaveNothingBehind) {
    constexpr int kRounds = 200;
    constexpr long long kSlack = 8;  // objects, far below one a round
    constexpr long long kSlackBytes = 8LL * kRounds;
    UseTheme(GetParam());
    TheAppData().bHistory = 0;
    const tvstring path = InFolder(u"a.VMR");
    Open();
    const auto round = [&] {
        DeleteFileW(Wide(path.c_str()));
        {
            const DuringModal name({AnswerWith(u"name")});
            Command(CMD_NEW);
        }
        TheDatabase().SetPath(path);
        {
            const DuringModal password({AnswerWith(u"secret", u"secret")});
            Command(CMD_SAVE);
        }
        ASSERT_FALSE(TheDatabase().m_Changed);
        Command(CMD_CLOSE);
        ASSERT_FALSE(TheDatabase().m_Opened);
        {
            const DuringModal password({AnswerWith(u"secret")});
            Main().OpenDatabase(path.c_str(), CVMRDlg::Quiet::No);
        }
        ASSERT_TRUE(TheDatabase().m_Opened);
        Command(CMD_CLOSE);
        Settle(Window());
    };
    const Growth systems = GrowthOver(kRounds, [this] { MakeCues(); });
    const Growth growth = GrowthOver(kRounds, round);
    EXPECT_LE(growth.gdiObjects, kSlack);
    EXPECT_LE(growth.userObjects, kSlack);
    EXPECT_LE(growth.heapBytes, systems.heapBytes + kSlackBytes);
}

INSTANTIATE_TEST_SUITE_P(Themes, Rounds, testing::Values(u"Dark", u"System Default"),
                         [](const auto& theme) { return theme.param[0] == u'D' ? "Dark" : "SystemDefault"; });

}  // namespace
