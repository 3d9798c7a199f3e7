// The input dialog: its size, what it shows, and the button that browses.
#include <cstring>

#include "foundation/product.h"
#include "foundation/registry.h"
#include "tests/app/input_dlg_stage.h"
#include "tests/gui/fake_file_dialog.h"
#include "tests/gui/sizes.h"
#include "windows/command_ids.h"

namespace {

constexpr const char16_t* kSizeValue = u"InputDlgSize";

class InputDialogLook : public InputDialogTest {
protected:
    [[nodiscard]] SIZE Size() const {
        RECT rect{};
        GetWindowRect(m_Dialog->Handle(), &rect);
        return {rect.right - rect.left, rect.bottom - rect.top};
    }
    // Opens the next dialog of many lines.
    void ShowMany() {
        Renew();
        BeMultiLine();
        Show();
    }
    // The size that it takes by itself.
    SIZE OwnSize() {
        ShowMany();
        const SIZE size = Size();
        Renew();
        platform::DeleteUserTree(kSettingsKey);
        return size;
    }
    [[nodiscard]] RECT AboveEdit() const {
        return {0, 0, ClientOf(m_Dialog->Handle()).right, m_Dialog->m_editTop};
    }
    [[nodiscard]] int BelowEditTop() const {
        return static_cast<int>(ClientOf(m_Dialog->Handle()).bottom) - m_Dialog->m_editTop;
    }
    // How many pixels of an area are not the one at its top left.
    [[nodiscard]] int Ink(const RECT& area) const {
        const Picture picture(m_Dialog->Handle());
        const COLORREF ground = picture.At(static_cast<int>(area.left), static_cast<int>(area.top));
        return static_cast<int>((area.right - area.left) * (area.bottom - area.top)) -
               picture.Count(area, ground);
    }
};

void StoreSize(const void* bytes, u32 count) {
    const RegKey key(kSettingsKey, RegKey::For::Writing);
    ASSERT_TRUE(RegWriteValue(key.Get(), kSizeValue, bytes, count, kRegBinary));
}

void StoreSize(i32 width, i32 height) {
    const i32 words[] = {width, height};
    StoreSize(words, sizeof words);
}

// --- The stored size ---

TEST_F(InputDialogLook, OfManyLinesOpensAtTheStoredSize) {
    StoreSize(900, 700);
    ShowMany();
    EXPECT_EQ(Size(), (SIZE{900, 700}));
}

TEST_F(InputDialogLook, OfManyLinesIsNeverSmallerThanItsOwnSize) {
    const SIZE own = OwnSize();
    StoreSize(1, 1);
    ShowMany();
    EXPECT_EQ(Size(), own);
    Renew();
    StoreSize(1, own.cy + 40);
    ShowMany();
    EXPECT_EQ(Size(), (SIZE{own.cx, own.cy + 40}));
}

TEST_F(InputDialogLook, OfManyLinesStoresItsSizeWhenItCloses) {
    const SIZE own = OwnSize();
    ShowMany();
    const SIZE size{own.cx + 50, own.cy + 30};
    SetWindowPos(m_Dialog->Handle(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
    DestroyWindow(m_Dialog->Handle());
    u32 type = 0;
    const tvdata data = RegReadUserValue(kSettingsKey, kSizeValue, &type);
    const i32 expected[] = {size.cx, size.cy};
    ASSERT_EQ(data.Size(), sizeof expected);
    EXPECT_EQ(type, kRegBinary);
    EXPECT_EQ(std::memcmp(data.Data(), expected, sizeof expected), 0);
}

TEST_F(InputDialogLook, OfOneLineStoresNoSizeAndTakesNone) {
    Show();
    const SIZE own = Size();
    DestroyWindow(m_Dialog->Handle());
    EXPECT_EQ(RegReadUserValue(kSettingsKey, kSizeValue, nullptr).Size(), 0U);
    StoreSize(900, 700);
    Renew();
    Show();
    EXPECT_EQ(Size(), own);
}

TEST_F(InputDialogLook, PassesOverASizeOfSevenBytes) {
    const SIZE own = OwnSize();
    const i32 words[] = {900, 700};
    StoreSize(words, 7);
    ShowMany();
    EXPECT_EQ(Size(), own);
}

// --- Cues ---

TEST_F(InputDialogLook, ForPasswordsShowsCuesAlsoWithTheKeyboard) {
    m_Dialog->m_PlainText = 0;
    m_Dialog->m_TwoFields = 1;
    m_Dialog->m_Tip = u"Tip one";
    m_Dialog->m_Tip2 = u"Tip two";
    Show();
    for (const int id : {kEdit1, kEdit2}) {
        EXPECT_TRUE(HasStyle(Item(id), ES_PASSWORD));
        wchar_t cue[50] = {};
        SendMessageW(Item(id), EM_GETCUEBANNER, reinterpret_cast<WPARAM>(cue), 50);
        EXPECT_STREQ(cue, id == kEdit1 ? L"Tip one" : L"Tip two");
        SetFocus(Item(id));
        Settle(m_Dialog->Handle());
        EXPECT_GT(Picture(Item(kEdit1)).Count(TheTheme().m_textGray), 10);
        EXPECT_GT(Picture(Item(kEdit2)).Count(TheTheme().m_textGray), 10);
    }
}

TEST_F(InputDialogLook, ForOnePasswordMasksItAndHidesTheSecondBox) {
    m_Dialog->m_PlainText = 0;
    m_Dialog->m_Tip = u"Tip one";
    Show();
    EXPECT_TRUE(HasStyle(Item(kEdit1), ES_PASSWORD));
    EXPECT_FALSE(IsWindowVisible(Item(kEdit2)));
    EXPECT_GT(Picture(Item(kEdit1)).Count(TheTheme().m_textGray), 10);
}

// --- What stands above the edit boxes ---

TEST_F(InputDialogLook, OfALongTextHasASecondMarginBelow) {
    struct {
        const char16_t* info;
        int lines;
    } const cases[] = {{u"One", 1}, {u"One\nTwo", 2}, {u"One\nTwo\nThree", 3}};
    std::vector<int> heights;
    for (const auto& [info, lines] : cases) {
        Renew();
        m_Dialog->m_Info = info;
        Show();
        EXPECT_EQ(m_Dialog->m_infoLines, lines);
        heights.push_back(BelowEditTop());
    }
    EXPECT_EQ(heights[1], heights[0] + TheTheme().m_marginY);
    EXPECT_EQ(heights[2], heights[1]);
}

TEST_F(InputDialogLook, HasItsTitleInTheCaptionUnlessItIsPaintedLarge) {
    Show();
    EXPECT_EQ(TextOf(m_Dialog->Handle()), u"Title");
    EXPECT_EQ(Ink(AboveEdit()), 0);
    Renew();
    m_Dialog->m_BigTitle = 1;
    Show();
    EXPECT_EQ(TextOf(m_Dialog->Handle()), u"Vaultmere");
    EXPECT_GT(Ink(AboveEdit()), 40);
}

TEST_F(InputDialogLook, PaintsItsTextUnderSystemDefaultToo) {
    for (const std::u16string_view theme : {u"Light", u"System Default"}) {
        UseTheme(theme);
        Renew();
        m_Dialog->m_Info = u"WWWWWW";
        Show();
        EXPECT_GT(Ink(AboveEdit()), 40) << (theme == u"Light" ? "Light" : "System Default");
    }
}

// --- Browsing ---

class InputDialogBrowse : public InputDialogLook {
protected:
    void Browse() {
        m_Dialog->m_Text = u"before";
        m_Dialog->m_ExtraCaption = u"Browse";
        m_Dialog->m_ExtraCommand = CMD_BROWSE;
        Show();
        const ModernDialogClass dialogs(CLSID_FileOpenDialog, &m_File);
        SendMessageW(Item(kExtra), BM_CLICK, 0, 0);
        PumpQueue();
        EXPECT_EQ(dialogs.m_asked, 1);
        EXPECT_EQ(m_Dialog->m_result, 0);
        EXPECT_TRUE(m_Dialog->IsAttached());
    }
    FakeItem m_Item{u"C:\\Tools\\tool.exe"};
    FakeItems m_Items;
    FakeFileDialog m_File;
};

TEST_F(InputDialogBrowse, ReplacesTheTextByWhatIsChosen) {
    m_Items.m_items = {&m_Item};
    m_File.m_results = &m_Items;
    m_File.m_result = &m_Item;
    Browse();
    EXPECT_EQ(TextOf(Item(kEdit1)), u"C:\\Tools\\tool.exe");
    for (const std::string& call : m_File.m_calls)
        EXPECT_EQ(call.find("before"), std::string::npos) << call;
}

TEST_F(InputDialogBrowse, LeavesTheTextIfNothingIsChosen) {
    m_File.m_isCancelled = true;
    Browse();
    EXPECT_EQ(TextOf(Item(kEdit1)), u"before");
}

TEST_F(InputDialogBrowse, LeavesTheTextIfWhatIsChosenCannotBeHad) {
    Browse();
    EXPECT_EQ(TextOf(Item(kEdit1)), u"before");
}

}  // namespace
