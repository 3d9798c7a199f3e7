// The dialog that says what the program is.
#include "windows/about_dlg.h"

#include "tests/app/command_stage.h"
#include "tests/app/ink.h"
#include "tests/app/keep_font.h"
#include "tests/app/other_language.h"
#include "tests/app/shell_calls.h"
#include "tests/gui/growth.h"
#include "tests/gui/sizes.h"
#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/text_draw.h"

namespace {

constexpr int kLink = 2019;
constexpr int kTemplateWidth = 240;  // dialog units

CVMRAboutDlg* AboutInFront() {
    return dynamic_cast<CVMRAboutDlg*>(tvWnd::FromHandle(FrontDialog()));
}

SIZE SizeIn(HFONT font, const tvstring& text) {
    const tvClientDC dc(nullptr);
    const tvSelected selected(dc.Get(), font);
    RECT rect{};
    MeasureText(text, DT_SINGLELINE, dc.Get(), rect);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

class AboutDialog : public CommandTest {
protected:
    AboutDialog() {
        OpenNoting();
        SetForegroundWindow(Window());
        EXPECT_TRUE(PumpUntil([this] { return GetActiveWindow() == Window(); }));
    }

    using Look = std::function<void(CVMRAboutDlg&)>;

    static Step See(Look look) {
        return [look = std::move(look)] {
            CVMRAboutDlg* dialog = AboutInFront();
            if (dialog == nullptr || GetUpdateRect(dialog->Handle(), nullptr, FALSE) != FALSE) return false;
            Settle(dialog->Handle());
            look(*dialog);
            return true;
        };
    }
    static Step Cancel() {
        return See([](CVMRAboutDlg& dialog) { PostMessageW(dialog.Handle(), WM_COMMAND, IDCANCEL, 0); });
    }

    // Opens it by its command, with these steps while it is there.
    void Run(std::vector<Step> steps) {
        const DuringModal during(std::move(steps));
        Command(CMD_ABOUT);
        EXPECT_TRUE(during.Done());
        EXPECT_EQ(FrontDialog(), Window());
        EXPECT_NE(IsWindowEnabled(Window()), FALSE);
    }
    void LookAtIt(Look look) {
        std::vector<Step> steps;
        steps.push_back(See(std::move(look)));
        steps.push_back(Cancel());
        Run(std::move(steps));
    }

    // Clicks on one of its controls; when that has done what it should, the dialog is still there.
    void ClickAndStay(int id, Step isDone) {
        std::vector<Step> steps;
        steps.push_back(See([id](const CVMRAboutDlg& dialog) { Click(GetDlgItem(dialog.Handle(), id)); }));
        steps.push_back(std::move(isDone));
        steps.push_back(
            See([](const CVMRAboutDlg& dialog) { EXPECT_TRUE(IsWindowVisible(dialog.Handle())); }));
        steps.push_back(Cancel());
        Run(std::move(steps));
    }

    static RECT Content(const CVMRAboutDlg& dialog) {
        return Inset(ClientOf(dialog.Handle()), TheTheme().m_marginX, TheTheme().m_marginY);
    }
    static SIZE IconSize() { return TheTheme().m_icons.SizeOf(ICON_APPLICATION); }

    // What name, version and icon take.
    static SIZE Block(const tvstring& version) {
        const int border = TheTheme().m_borderWidth;
        const SIZE name = SizeIn(TheTheme().m_fontLarge.Get(), u"Vaultmere");
        const SIZE line = SizeIn(TheTheme().Font(), version);
        return {std::max(name.cx, line.cx) + border + IconSize().cx, name.cy + line.cy + 2 * border};
    }
    static LONG WidthOfTemplate() {
        RECT units{0, 0, DialogUnitsToPixels(TheTheme().Font(), kTemplateWidth, 0).x, 0};
        return units.right - 2 * TheTheme().m_marginX;
    }
};

// --- What it shows ---

TEST_F(AboutDialog, NamesTheProgramAndItsButtons) {
    LookAtIt([](const CVMRAboutDlg& dialog) {
        EXPECT_EQ(TextOf(dialog.Handle()), u"About Vaultmere");
        EXPECT_EQ(TextOf(dialog.m_btnHelp.Handle()), u"Online &Help");
        EXPECT_FALSE(TextOf(dialog.m_link.Handle()).empty());
        EXPECT_EQ(GetDlgCtrlID(dialog.m_link.Handle()), kLink);
        EXPECT_NE(GetWindowLongPtrW(dialog.m_link.Handle(), GWL_STYLE) & BS_LEFT, 0);
        EXPECT_EQ(GetDlgItem(dialog.Handle(), IDOK), nullptr);
    });
}

TEST_F(AboutDialog, PaintsIconNameAndVersion) {
    for (const char16_t* theme : {u"Light", u"Dark", u"System Default"}) {
        UseTheme(theme, Window());
        LookAtIt([theme](const CVMRAboutDlg& dialog) {
            const COLORREF ground = TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE);
            const Picture picture(dialog.Handle());
            const RECT content = Content(dialog);
            EXPECT_EQ(picture.At(2, 2), ground);
            EXPECT_EQ(picture.At(picture.Width() - 2, picture.Height() - 2), ground);
            const RECT icon = BoxAt(content.left, content.top, IconSize().cx, IconSize().cy);
            const RECT inIcon = InkIn(picture, ground, icon);
            EXPECT_GT(Height(inIcon), 40) << Letters(theme);
            const int border = TheTheme().m_borderWidth;
            const SIZE name = SizeIn(TheTheme().m_fontLarge.Get(), u"Vaultmere");
            const SIZE version = SizeIn(TheTheme().Font(), u"Version 2.0.0");
            const RECT namePlace = BoxAt(icon.right + border, content.top, name.cx, name.cy);
            const RECT inName = InkIn(picture, ground, namePlace);
            EXPECT_GT(Width(inName), name.cx * 3 / 4);
            const RECT versionPlace =
                BoxAt(namePlace.left, namePlace.bottom + border, version.cx, version.cy);
            const RECT inVersion = InkIn(picture, ground, versionPlace);
            EXPECT_GT(Width(inVersion), version.cx * 3 / 4);
            EXPECT_GT(Height(inName), Height(inVersion));
            // Nothing goes on behind the version's three numbers.
            const RECT rest = InkIn(
                picture, ground, {versionPlace.right, versionPlace.top, content.right, versionPlace.bottom});
            EXPECT_LT(Width(rest), Width(PlaceInParent(dialog.m_btnHelp.Handle())) + 1);
        });
    }
}

// As wide as a text of that length needs: a number more would not fit.
TEST_F(AboutDialog, TellsTheVersionInTheLanguageOfTheProgram) {
    const OtherLanguage language(
        u"[global]\r\nabout = Of %app_name\r\nhelp = &Manual\tF1\r\nversion = Release number %0 of it\r\n");
    OtherLanguage::Choose();
    LookAtIt([](const CVMRAboutDlg& dialog) {
        EXPECT_EQ(TextOf(dialog.Handle()), u"Of Vaultmere");
        EXPECT_EQ(TextOf(dialog.m_btnHelp.Handle()), u"&Manual");
        EXPECT_EQ(dialog.m_textWidth, Block(u"Release number 2.0.0 of it").cx);
    });
}

// --- Size and layout ---

TEST_F(AboutDialog, IsAsLargeAsItsTextsAndButtonsNeed) {
    LookAtIt([](const CVMRAboutDlg& dialog) {
        const SIZE block = Block(u"Version 2.0.0");
        const RECT button = ClientOf(dialog.m_btnHelp.Handle());
        EXPECT_EQ(dialog.m_textWidth, block.cx);
        EXPECT_EQ(dialog.m_textHeight, block.cy);
        const RECT content = Content(dialog);
        EXPECT_EQ(Width(content), block.cx + 2 * button.right + button.right / 2);
        EXPECT_EQ(Height(content), std::max<LONG>(block.cy, 3 * button.bottom + 2 * TheTheme().m_marginY));
        EXPECT_LE(Width(content), WidthOfTemplate() * 5 / 4);
    });
}

TEST_F(AboutDialog, LeavesLessFreeWhereTheVersionIsLong) {
    const OtherLanguage language(
        tvstring(u"[global]\r\nversion = ").append(tvstring(60, u'v')).append(u"%0\r\n"));
    OtherLanguage::Choose();
    LookAtIt([](const CVMRAboutDlg& dialog) {
        const LONG button = ClientOf(dialog.m_btnHelp.Handle()).right;
        const LONG text = Block(tvstring(60, u'v').append(u"2.0.0")).cx;
        ASSERT_GT(text + 2 * button + button / 2, WidthOfTemplate() * 5 / 4);
        EXPECT_EQ(Width(Content(dialog)), std::max(WidthOfTemplate(), text + 2 * button));
    });
}

TEST_F(AboutDialog, IsLaidOutWithoutOverlaps) {
    const KeepFont keep;
    for (const bool isLarge : {false, true}) {
        if (isLarge) TheTheme().SetFont(keep.Doubled(), 1.45F);
        LookAtIt([](const CVMRAboutDlg& dialog) {
            const RECT content = Content(dialog);
            const RECT help = PlaceInParent(dialog.m_btnHelp.Handle());
            const RECT link = PlaceInParent(dialog.m_link.Handle());
            EXPECT_EQ(help.right, content.right);
            EXPECT_EQ(help.top, content.top);
            EXPECT_EQ(Width(help), CVMRBaseButton::StandardSize().cx);
            EXPECT_EQ(link.left, content.left + IconSize().cx + TheTheme().m_borderWidth);
            EXPECT_EQ(link.top, content.top + dialog.m_textHeight + TheTheme().m_marginY);
            EXPECT_GT(help.left, content.left + dialog.m_textWidth);
            EXPECT_LE(link.bottom, content.bottom);
            EXPECT_LE(link.right, content.right);
            EXPECT_GE(link.top, help.bottom);
        });
    }
    platform::DeleteUserTree(u"Software\\Tolvane");
}

TEST_F(AboutDialog, StandsInTheMiddleOfTheMainWindow) {
    LookAtIt([this](const CVMRAboutDlg& dialog) { ExpectInTheMiddle(dialog.Handle()); });
}

// --- What it does ---

TEST_F(AboutDialog, ClosesByEscape) {
    Run({See([](const CVMRAboutDlg&) { KeyDown(VK_ESCAPE), KeyUp(VK_ESCAPE); })});
}

TEST_F(AboutDialog, ClosesByItsTitleBar) {
    Run({See([](const CVMRAboutDlg& dialog) { PostMessageW(dialog.Handle(), WM_SYSCOMMAND, SC_CLOSE, 0); })});
}

TEST_F(AboutDialog, OpensThePageOfTheProductByItsLink) {
    const ShellCalls calls;
    ClickAndStay(kLink, [&calls] { return !calls.Get().empty(); });
    ASSERT_EQ(calls.Get().size(), 1U);
    EXPECT_EQ(calls.Get()[0].verb, L"(null)");
    EXPECT_TRUE(calls.Get()[0].file.starts_with(L"https://"));
    EXPECT_TRUE(calls.Get()[0].file.ends_with(L"/vaultmere/"));
    EXPECT_EQ(calls.Get()[0].show, SW_SHOWNORMAL);
}

TEST_F(AboutDialog, HasTheMainWindowOpenTheHelpAndStays) {
    const ShellCalls calls;
    ClickAndStay(CMD_HELP, [this] { return Noting().m_helps == 1; });
    EXPECT_EQ(Noting().CountCommands(CMD_HELP), 1);
    EXPECT_TRUE(calls.Get().empty());
}

TEST_F(AboutDialog, LeavesNothingBehind) {
    constexpr int kRounds = 60;
    const Growth growth = GrowthOver(kRounds, [this] { LookAtIt([](const CVMRAboutDlg&) {}); });
    EXPECT_LE(growth.gdiObjects, 4);
    EXPECT_LE(growth.userObjects, 4);
}

}  // namespace
