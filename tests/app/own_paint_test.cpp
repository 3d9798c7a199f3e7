// What windows of the program paint beside their controls is there under every theme, that of the system
// included.
#include <algorithm>

#include "tests/app/detail_stage.h"
#include "windows/about_dlg.h"
#include "windows/input_dlg.h"
#include "windows/merge_item_dlg.h"
#include "windows/pass_gen_dlg.h"

namespace {

class OwnPaint : public DetailTest, public testing::WithParamInterface<const char16_t*> {
protected:
    OwnPaint() { UseTheme(GetParam()); }

    // How many pixels that are no control's differ from the ground, which has this colour.
    static int Ink(HWND window, COLORREF ground) {
        Settle(window);
        const Picture picture(window);
        std::vector<RECT> controls;
        for (HWND child = GetTopWindow(window); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
            if (IsWindowVisible(child) != FALSE) controls.push_back(PlaceInParent(child));
        const auto isFree = [&controls](POINT point) {
            return std::none_of(controls.begin(), controls.end(),
                                [point](const RECT& place) { return PtInRect(&place, point) != FALSE; });
        };
        int ink = 0;
        for (int y = 0; y < picture.Height(); ++y)
            for (int x = 0; x < picture.Width(); ++x)
                if (picture.At(x, y) != ground && isFree({x, y})) ++ink;
        return ink;
    }
    static COLORREF Ground() { return TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE); }

    // There is something on the ground, and the ground is there.
    static void ExpectWords(HWND window, COLORREF ground = Ground(), int atLeast = 200) {
        constexpr int kShare = 8;
        const RECT client = ClientOf(window);
        const int ink = Ink(window, ground);
        EXPECT_GT(ink, atLeast);
        EXPECT_LT(ink, static_cast<int>(client.right * client.bottom) / kShare);
    }

    template <typename Dialog>
    void ExpectWordsIn(Dialog& dialog) const {
        dialog.BuildTemplate();
        ASSERT_TRUE(dialog.Create(Window()));
        ShowWindow(dialog.Handle(), SW_SHOW);
        MoveMouseAway();
        ExpectWords(dialog.Handle());
    }
};

INSTANTIATE_TEST_SUITE_P(Themes, OwnPaint, testing::Values(u"Light", u"Dark", u"System Default"),
                         [](const testing::TestParamInfo<const char16_t*>& theme) {
                             std::string name = Letters(theme.param);
                             std::erase(name, ' ');
                             return name;
                         });

TEST_P(OwnPaint, IsThereInDialogs) {
    Open();
    CVMRAboutDlg about;
    ExpectWordsIn(about);
    CVMRInputDlg input;
    input.m_Info = u"What is to be entered here";
    ExpectWordsIn(input);
    CVMRPassGenDlg passwords;
    ExpectWordsIn(passwords);
    CVMRMergeItemDlg merge;
    merge.m_Items = {&Item(), &Item()};
    ExpectWordsIn(merge);
}

TEST_P(OwnPaint, IsThereInPanes) {
    OpenPane();
    ExpectWords(PaneWindow());
    Main().OnAppNotify(APPN_TOPBAR, 0, 0, 0);
    ExpectWords(Main().m_topDlg.Handle(), TheTheme().Color(&tvColorTheme::m_button, COLOR_WINDOW), 20);
}

TEST_P(OwnPaint, IsThereOnTheStartPage) {
    TheDatabase().Reset();
    TheAppData().AddRecent(u"C:\\gone\\1.vmr", u"Name");
    Open();
    ExpectWords(Main().m_startDlg.Handle());
}

// A window that has nothing of its own has an even ground.
TEST_P(OwnPaint, IsTheGroundAloneElsewhere) {
    OpenPane();
    EXPECT_EQ(Ink(Main().m_leftDlg.Handle(), Ground()), 0);
    EXPECT_EQ(Ink(Window(), Ground()), 0);
}

// Otherwise it would be seen for a moment without what it paints.
TEST_P(OwnPaint, IsNotPrecededByAnEmptyGround) {
    OpenPane();
    for (HWND window : {Window(), Main().m_topDlg.Handle(), Main().m_leftDlg.Handle(), PaneWindow()}) {
        const Canvas canvas(10, 10, RGB(1, 2, 3));
        EXPECT_EQ(SendMessageW(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(canvas.Dc()), 0), 1);
        EXPECT_EQ(canvas.Count(RGB(1, 2, 3)), 100);
    }
}

}  // namespace
