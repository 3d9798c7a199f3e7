#include "toolkit/common_dialog.h"

#include <gtest/gtest.h>

#include "tests/gui/message_box_harness.h"
#include "tests/gui/new_window_places.h"
#include "tests/gui/sizes.h"
#include "toolkit/app.h"
#include "toolkit/font.h"
#include "toolkit/rect.h"

namespace {

RECT PlaceOnScreen(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

// A window of a known size that is not where it would be centred.
class SmallWindow {
public:
    explicit SmallWindow(HWND owner, DWORD style = WS_POPUP)
        : m_Window(CreateWindowExW(0, L"STATIC", L"", style, 3, 5, 80, 60, owner, nullptr,
                                   GetModuleHandleW(nullptr), nullptr)) {}
    ~SmallWindow() { DestroyWindow(m_Window); }
    SmallWindow(const SmallWindow&) = delete;
    SmallWindow& operator=(const SmallWindow&) = delete;

private:
    HWND m_Window;
};

const RECT kUncentred = {3, 5, 83, 65};

class CommonDialog : public testing::Test {
protected:
    void SetUp() override {
        m_Owner.Open();
        SetWindowPos(m_Owner.Handle(), nullptr, 240, 130, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    }
    void TearDown() override { tvCommonDlg::EndCenter(); }
    [[nodiscard]] RECT Centred() const { return CenteredBox(PlaceOnScreen(m_Owner.Handle()), 80, 60); }

    // Where a new small window is to stand.
    RECT PlaceOfNew(HWND owner, DWORD style = WS_POPUP) {
        m_Places.m_Places.clear();
        const SmallWindow made(owner, style);
        EXPECT_EQ(m_Places.m_Places.size(), 1U);
        return m_Places.m_Places.empty() ? RECT{} : m_Places.m_Places.front().rect;
    }

    TestDialog m_Owner{300, 200};
    PlacesOfNewWindows m_Places;
};

}  // namespace

// --- The owner ---

TEST_F(CommonDialog, HasNoOwnerWithoutAMainWindow) {
    EXPECT_EQ(tvCommonDlg::GetOwner(), nullptr);
}

TEST_F(CommonDialog, HasTheMainWindowForItsOwner) {
    m_Owner.BeMain();
    EXPECT_EQ(tvCommonDlg::GetOwner(), m_Owner.Handle());
}

TEST_F(CommonDialog, HasTheLastPopupInFrontOfTheMainWindowForItsOwner) {
    m_Owner.BeMain();
    TestDialog popup;
    ASSERT_TRUE(popup.Create(m_Owner.Handle()));
    ShowWindow(popup.Handle(), SW_SHOW);
    SetActiveWindow(popup.Handle());
    EXPECT_EQ(tvCommonDlg::GetOwner(), popup.Handle());
}

TEST_F(CommonDialog, HasTheWindowAroundAPaneForItsOwner) {
    TestDialog pane(100, 60, DialogKind::Child);
    ASSERT_TRUE(pane.Create(m_Owner.Handle()));
    pane.BeMain();
    EXPECT_EQ(tvCommonDlg::GetOwner(), m_Owner.Handle());
}

// --- Centring ---

TEST_F(CommonDialog, CentersTheNextWindowOnItsOwner) {
    tvCommonDlg::CenterNext();
    EXPECT_EQ(PlaceOfNew(m_Owner.Handle()), Centred());
}

TEST_F(CommonDialog, CentersOneWindowOnly) {
    tvCommonDlg::CenterNext();
    EXPECT_EQ(PlaceOfNew(m_Owner.Handle()), Centred());
    EXPECT_EQ(PlaceOfNew(m_Owner.Handle()), kUncentred);
}

TEST_F(CommonDialog, CentersNothingWithoutBeingAsked) {
    EXPECT_EQ(PlaceOfNew(m_Owner.Handle()), kUncentred);
}

TEST_F(CommonDialog, CentersNothingAfterTheEnd) {
    tvCommonDlg::CenterNext();
    tvCommonDlg::EndCenter();
    EXPECT_EQ(PlaceOfNew(m_Owner.Handle()), kUncentred);
    tvCommonDlg::EndCenter();
}

TEST_F(CommonDialog, PassesOverChildrenAndWindowsWithoutAnOwner) {
    tvCommonDlg::CenterNext();
    EXPECT_EQ(PlaceOfNew(m_Owner.Handle(), WS_CHILD), kUncentred);
    EXPECT_EQ(PlaceOfNew(nullptr), kUncentred);
    EXPECT_EQ(PlaceOfNew(m_Owner.Handle()), Centred()) << "the one that was meant comes after them";
}

TEST_F(CommonDialog, CentersOneWindowOnlyWhenAskedTwice) {
    tvCommonDlg::CenterNext();
    tvCommonDlg::CenterNext();
    EXPECT_EQ(PlaceOfNew(m_Owner.Handle()), Centred());
    EXPECT_EQ(PlaceOfNew(m_Owner.Handle()), kUncentred) << "nothing is left of the first time";
}

TEST_F(CommonDialog, LetsOtherHooksSeeEachWindowOnce) {
    tvCommonDlg::CenterNext();
    m_Places.m_Places.clear();
    {
        const SmallWindow child(m_Owner.Handle(), WS_CHILD);
        const SmallWindow next(m_Owner.Handle());
    }
    EXPECT_EQ(m_Places.m_Places.size(), 2U);
}

// --- Choosing a font ---

namespace {

// A step that waits for the system's dialog in front.
BoxUnderTest::Step SystemDialog(HWND& dialog) {
    return [&dialog] {
        dialog = FrontDialog(u"#32770");
        return dialog != nullptr && GetForegroundWindow() == dialog;
    };
}

LOGFONTW SmallFont() {
    LOGFONTW font = GetSystemFont();
    font.lfHeight = -12;
    lstrcpyW(font.lfFaceName, L"Tahoma");
    return font;
}

constexpr int kSizes = 0x0472;  // the list of sizes in the system's dialog

}  // namespace

TEST_F(CommonDialog, FontStaysAsItWasWhenTheUserEscapes) {
    m_Owner.BeMain();
    LOGFONTW font = SmallFont();
    const LOGFONTW before = font;
    HWND dialog = nullptr;
    const DuringModal during({SystemDialog(dialog), Key(VK_ESCAPE)});
    EXPECT_FALSE(tvCommonDlg::ChooseFont(font));
    EXPECT_EQ(memcmp(&font, &before, sizeof font), 0);
}

TEST_F(CommonDialog, FontIsTheOneThatTheUserChooses) {
    m_Owner.BeMain();
    LOGFONTW font = SmallFont();
    HWND dialog = nullptr;
    const auto focus = Once([&] { SetFocus(GetDlgItem(dialog, kSizes)); });
    const DuringModal during({SystemDialog(dialog), focus, Key(VK_DOWN), Key(VK_RETURN)});
    EXPECT_TRUE(tvCommonDlg::ChooseFont(font));
    EXPECT_STREQ(font.lfFaceName, L"Tahoma");
    EXPECT_LT(font.lfHeight, -12) << "the next size of the list";
}

TEST_F(CommonDialog, FontDialogStandsInTheMiddleOfItsOwnerAndOffersSizesFrom5To16) {
    m_Owner.BeMain();
    LOGFONTW font = SmallFont();
    HWND dialog = nullptr;
    const auto look = Once([&] {
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), m_Owner.Handle());
        const RECT place = m_Places.Of(dialog);
        EXPECT_GT(Width(place), 100);
        EXPECT_EQ(place, CenteredBox(PlaceOnScreen(m_Owner.Handle()), Width(place), Height(place)));
        const auto count = SendDlgItemMessageW(dialog, kSizes, CB_GETCOUNT, 0, 0);
        EXPECT_GT(count, 1);
        for (LRESULT i = 0; i < count; ++i) {
            wchar_t text[16] = {};
            SendDlgItemMessageW(dialog, kSizes, CB_GETLBTEXT, static_cast<WPARAM>(i),
                                reinterpret_cast<LPARAM>(text));
            EXPECT_GE(wcstol(text, nullptr, 10), 5);
            EXPECT_LE(wcstol(text, nullptr, 10), 16);
        }
    });
    const DuringModal during({SystemDialog(dialog), look, Key(VK_ESCAPE)});
    EXPECT_FALSE(tvCommonDlg::ChooseFont(font));
}

TEST_F(CommonDialog, LeavesNoHookBehindAFontDialogThatHasNoOwnerToBeCenteredOn) {
    LOGFONTW font = SmallFont();
    HWND dialog = nullptr;
    const DuringModal during({SystemDialog(dialog), Key(VK_ESCAPE)});
    tvCommonDlg::ChooseFont(font);
    EXPECT_EQ(PlaceOfNew(m_Owner.Handle()), kUncentred);
}
