// How the item list paints its rows, what it says while nothing matches, and the tool tips of rows that are
// cut off.
#include <functional>

#include "tests/app/item_stage.h"
#include "tests/app/keep_font.h"
#include "tests/app/other_language.h"
#include "toolkit/tool_tip.h"

namespace {

const tvstring kLong(200, u'W');

bool IsTipUp() {
    return TheToolTip().IsAttached() && IsWindowVisible(TheToolTip().Handle()) != FALSE;
}

RECT PlaceOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

// The system may have a copy of the font that it was given.
LONG TipFontHeight() {
    const auto font = static_cast<WPARAM>(TheToolTip().Send(WM_GETFONT));
    LOGFONTW data{};
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's answer
    GetObjectW(reinterpret_cast<HFONT>(font), sizeof data, &data);
    return data.lfHeight;
}

class ItemListDraw : public ItemTest {
protected:
    ~ItemListDraw() override { MoveMouseAway(); }

    [[nodiscard]] RECT RowRect(int row) const {
        RECT rect{};
        EXPECT_GE(List().GetItemRect(row, rect), 0);
        return rect;
    }
    [[nodiscard]] u32 IsCut(int row) const {
        Settle(ListWindow());
        return List().ItemOfRow(row)->m_icon;
    }
    // An empty list with the keyboard has a frame of dots.
    void FocusSearch() const { SetFocus(Pane().m_filterEdit.Handle()); }
    [[nodiscard]] COLORREF Ground() const { return List().GetBackColor(); }

    // Where something is painted on the list, within a rectangle.
    [[nodiscard]] RECT Ink(const RECT& within) const {
        Settle(ListWindow());
        return InkIn(Picture(ListWindow()), Ground(), within);
    }
    void PointAt(int row) const {
        const POINT at = MiddleOf(row);
        MoveMouse(ListWindow(), static_cast<int>(at.x), static_cast<int>(at.y));
        PumpQueue();
    }
    [[nodiscard]] bool TipComesUp() const { return PumpUntil(IsTipUp); }
};

// --- Rows ---

TEST_F(ItemListDraw, RowsHaveOneHeightWhateverTheirTexts) {
    OpenWith({u"a", kLong.c_str(), u""});
    const int line = TheTheme().TextHeight(List().m_font, nullptr) + 2 * TheTheme().m_borderWidth;
    for (const int row : {0, 1, 2})
        EXPECT_EQ(Height(RowRect(row)), line + line % 2);
    EXPECT_EQ(List().CalcItemHeight(-1), line + line % 2);
}

TEST_F(ItemListDraw, ALargerFontMakesHigherRows) {
    OpenWith({u"a", u"b"});
    const int before = Height(RowRect(0));
    const KeepFont keep;
    const LOGFONTW doubled = keep.Doubled();
    const HFONT font = CreateFontIndirectW(&doubled);
    List().Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    EXPECT_GT(Height(RowRect(0)), before + before / 2);
    EXPECT_EQ(TipFontHeight(), doubled.lfHeight);
    List().Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().Font()), TRUE);
    EXPECT_EQ(TipFontHeight(), keep.Regular().lfHeight);
    DeleteObject(font);
}

TEST_F(ItemListDraw, ATextStandsInTheMiddleOfItsRowAtTheLeft) {
    OpenWith({u"Hx"});
    const RECT row = RowRect(0);
    const RECT ink = Ink(row);
    EXPECT_GE(ink.left, row.left + TheTheme().m_borderWidth);
    EXPECT_LE(ink.left, row.left + TheTheme().m_borderWidth + 3);
    EXPECT_NEAR(static_cast<double>(ink.top + ink.bottom), static_cast<double>(row.top + row.bottom), 6);
    EXPECT_EQ(IsCut(0), 0U);
}

TEST_F(ItemListDraw, AnAmpersandIsALetterLikeAnyOther) {
    OpenWith({u"a&b", u"ab"});
    EXPECT_GT(Width(Ink(RowRect(0))), Width(Ink(RowRect(1))));
}

TEST_F(ItemListDraw, ALongTextIsCutOffAndNoted) {
    OpenWith({kLong.c_str(), u"short"});
    EXPECT_EQ(IsCut(0), 1U);
    EXPECT_EQ(IsCut(1), 0U);
    const RECT row = RowRect(0);
    EXPECT_LE(Ink(row).right, row.right - TheTheme().m_borderWidth);
}

// However few letters are missing: the dots may be as many.
TEST_F(ItemListDraw, ATextThatNearlyFitsIsNotedAsCutOff) {
    const tvstring text(u"iiiiiiiiiiiiiiiiiiiiiiiiiiiiii");
    OpenWith({text.c_str()});
    const int width = WidthIn(ListWindow(), text) + 2 * TheTheme().m_borderWidth;
    const RECT list = OuterPlace(ListWindow());
    const int frame = Width(list) - static_cast<int>(ClientOf(ListWindow()).right);
    for (int missing = 30; missing > -3; --missing) {
        MoveWindow(ListWindow(), static_cast<int>(list.left), static_cast<int>(list.top),
                   width - missing + frame, Height(list), TRUE);
        ASSERT_EQ(ClientOf(ListWindow()).right, width - missing);
        EXPECT_EQ(IsCut(0), missing > 0 ? 1U : 0U) << missing << " pixels are missing";
    }
}

TEST_F(ItemListDraw, ANewNameNeedsARepaintAndNoMore) {
    OpenWith({u"a"});
    const int before = Width(Ink(RowRect(0)));
    ASSERT_TRUE(TheDatabase().ModifyItem(TheDatabase().m_Head, u"aaaaaa", &TheDatabase()));
    RedrawWindow(ListWindow(), nullptr, nullptr, RDW_INVALIDATE);
    EXPECT_GT(Width(Ink(RowRect(0))), 3 * before);
}

TEST_F(ItemListDraw, ARowWithoutAnElementIsEmpty) {
    OpenWith({u"a"});
    List().ItemOfRow(0)->m_data = 0;
    List().ItemOfRow(0)->m_icon = 1;
    RedrawWindow(ListWindow(), nullptr, nullptr, RDW_INVALIDATE);
    EXPECT_EQ(IsRectEmpty(std::make_unique<RECT>(Ink(RowRect(0))).get()), TRUE);
    EXPECT_EQ(IsCut(0), 1U) << "nothing is noted";
}

// --- Nothing matches ---

class SaysThatNothingMatches : public ItemListDraw, public testing::WithParamInterface<const char16_t*> {};
INSTANTIATE_TEST_SUITE_P(Themes, SaysThatNothingMatches,
                         testing::Values(u"Light", u"Dark", u"System Default"), [](const auto& theme) {
                             const std::u16string_view name(theme.param);
                             return name == u"Light" ? "Light" : name == u"Dark" ? "Dark" : "SystemDefault";
                         });

TEST_P(SaysThatNothingMatches, InGrayInTheMiddleAtTheTop) {
    UseTheme(GetParam());
    OpenWith({u"a"});
    FocusSearch();
    SearchFor(u"x");
    const RECT client = ClientOf(ListWindow());
    const RECT ink = Ink(client);
    const COLORREF gray = TheTheme().Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT);
    EXPECT_GT(Picture(ListWindow()).Count(client, gray), 10);
    const int width = WidthIn(ListWindow(), u"No matching results");
    EXPECT_NEAR(static_cast<double>(ink.left), static_cast<double>((client.right - width) / 2), 2);
    EXPECT_NEAR(Width(ink), InkWidthIn(ListWindow(), u"No matching results"), 2);
    EXPECT_GE(ink.top, TheTheme().m_marginY);
    EXPECT_LE(ink.bottom, TheTheme().m_marginY + TheTheme().TextHeight(List().m_font, nullptr));
}

TEST_P(SaysThatNothingMatches, AlsoWhileTheListHasTheKeyboard) {
    UseTheme(GetParam());
    OpenWith({u"a"});
    SearchFor(u"x");
    ASSERT_EQ(GetFocus(), ListWindow());
    EXPECT_NEAR(Width(Ink(ClientOf(ListWindow()))), InkWidthIn(ListWindow(), u"No matching results"), 2);
}

TEST_F(ItemListDraw, AnEmptyListWithTheKeyboardIsPlain) {
    UseTheme(u"Dark");
    OpenWith({});
    ASSERT_EQ(GetFocus(), ListWindow());
    EXPECT_EQ(Width(Ink(ClientOf(ListWindow()))), 0);
}

TEST_F(ItemListDraw, SaysNothingWhileSomethingMatches) {
    OpenWith({u"a", u"x"});
    SearchFor(u"x");
    const RECT client = ClientOf(ListWindow());
    const RECT ink = Ink({0, RowRect(0).bottom, client.right, client.bottom});
    EXPECT_EQ(Width(ink), 0);
}

TEST_F(ItemListDraw, SaysNothingOfADatabaseWithoutItems) {
    OpenWith({});
    FocusSearch();
    SearchFor(u"x");
    EXPECT_EQ(List().FilterText(), u"x");
    EXPECT_EQ(Width(Ink(ClientOf(ListWindow()))), 0);
}

TEST_F(ItemListDraw, SaysNothingOnceTheSearchIsEmpty) {
    OpenWith({u"a"});
    FocusSearch();
    SearchFor(u"x");
    EXPECT_GT(Width(Ink(ClientOf(ListWindow()))), 0);
    SearchFor(u"");
    List().m_Source = nullptr;
    List().Refresh();
    EXPECT_EQ(Width(Ink(ClientOf(ListWindow()))), 0);
}

TEST_F(ItemListDraw, SaysItInTheLanguageInUse) {
    const OtherLanguage other(u"[search]\r\nnomatch = -\r\n");
    OpenWith({u"a"});
    FocusSearch();
    SearchFor(u"x");
    const int before = Width(Ink(ClientOf(ListWindow())));
    OtherLanguage::Choose();
    const int after = Width(Ink(ClientOf(ListWindow())));
    EXPECT_GT(after, 0);
    EXPECT_LT(after, before / 4);
}

// --- Tool tips ---

TEST_F(ItemListDraw, ARowThatIsCutOffShowsItsTextInATipOverItself) {
    const tvstring longer(60, u'W');
    OpenWith({u"a", longer.c_str()});
    PointAt(1);
    ASSERT_TRUE(TipComesUp());
    EXPECT_EQ(List().m_HoverRow, 1);
    const tvMListItem* row = List().ItemOfRow(1);
    EXPECT_EQ(row->m_note, longer);
    const RECT tip = PlaceOf(TheToolTip().Handle());
    const POINT corner = OnScreen({RowRect(1).left, RowRect(1).top});
    const int border = TheTheme().m_borderWidth;
    EXPECT_NEAR(static_cast<double>(tip.left), static_cast<double>(corner.x + border), 4);
    EXPECT_NEAR(static_cast<double>(tip.top), static_cast<double>(corner.y + border), 4);
    EXPECT_NEAR(Height(tip), Height(RowRect(1)), 8);
    EXPECT_NEAR(Width(tip), WidthIn(ListWindow(), row->m_note), 16);
}

TEST_F(ItemListDraw, ATipIsNoWiderThanTheScreen) {
    const tvstring endless(5000, u'W');
    OpenWith({endless.c_str()});
    PointAt(0);
    ASSERT_TRUE(TipComesUp());
    const tvstring& text = List().ItemOfRow(0)->m_note;
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_LE(WidthIn(ListWindow(), text), Width(work));
    EXPECT_GT(WidthIn(ListWindow(), text), Width(work) - 40);
    EXPECT_TRUE(text.ends_with(u"...")) << text.size();
}

TEST_F(ItemListDraw, ATextOfManyNarrowLettersFitsIntoTheTipToo) {
    const tvstring endless(20000, u'\u200B');
    OpenWith({endless.c_str()});
    List().m_HoverRow = 0;
    NMTTDISPINFOW info{};
    info.hdr.hwndFrom = TheToolTip().Handle();
    info.hdr.code = static_cast<UINT>(TTN_GETDISPINFOW);
    List().Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&info));
    ASSERT_NE(info.lpszText, nullptr);
    EXPECT_LT(std::wstring_view(info.lpszText).size(), tvToolTipCtrl::kTextCapacity);
    List().m_HoverRow = -1;
}

TEST_F(ItemListDraw, ARowThatFitsHasNoTip) {
    OpenWith({u"a", kLong.c_str()});
    PointAt(0);
    EXPECT_EQ(List().m_HoverRow, -1);
    EXPECT_FALSE(IsTipUp());
}

TEST_F(ItemListDraw, ATipGoesWhenTheMouseLeavesTheRow) {
    OpenWith({u"a", kLong.c_str()});
    PointAt(1);
    ASSERT_TRUE(TipComesUp());
    PointAt(0);
    EXPECT_TRUE(PumpUntil([] { return !IsTipUp(); }));
    EXPECT_EQ(List().m_HoverRow, -1);
}

TEST_F(ItemListDraw, ATipGoesWhenTheMouseLeavesTheList) {
    OpenWith({kLong.c_str()});
    PointAt(0);
    ASSERT_TRUE(TipComesUp());
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([] { return !IsTipUp(); }));
    EXPECT_EQ(List().m_HoverRow, -1);
}

TEST_F(ItemListDraw, TheNextRowHasATipOfItsOwn) {
    OpenWith({kLong.c_str(), tvstring(200, u'M').c_str()});
    PointAt(0);
    ASSERT_TRUE(TipComesUp());
    PointAt(1);
    EXPECT_TRUE(PumpUntil([this] { return List().m_HoverRow == 1 && IsTipUp(); }));
    EXPECT_TRUE(List().ItemOfRow(1)->m_note.starts_with(u"MMMMMM"));
    const POINT corner = OnScreen({RowRect(1).left, RowRect(1).top});
    EXPECT_NEAR(static_cast<double>(PlaceOf(TheToolTip().Handle()).top), static_cast<double>(corner.y), 6);
}

TEST_F(ItemListDraw, NoTipComesUpWhileTheMouseIsCaptured) {
    OpenWith({kLong.c_str()});
    SetCapture(ListWindow());
    PointAt(0);
    EXPECT_EQ(List().m_HoverRow, -1);
    ReleaseCapture();
    EXPECT_FALSE(IsTipUp());
}

TEST_F(ItemListDraw, AWiderListLosesTheTipWithItsNextPaint) {
    OpenWith({u"A name that is of middling length indeed"});
    const RECT list = OuterPlace(ListWindow());
    MoveWindow(ListWindow(), static_cast<int>(list.left), static_cast<int>(list.top), 60, Height(list), TRUE);
    ASSERT_EQ(IsCut(0), 1U);
    MoveWindow(ListWindow(), static_cast<int>(list.left), static_cast<int>(list.top), 400, Height(list),
               TRUE);
    ASSERT_EQ(IsCut(0), 0U);
    PointAt(0);
    EXPECT_EQ(List().m_HoverRow, -1);
}

// The row at its place is another one then.
TEST_F(ItemListDraw, ATipGoesWhenTheRowsChangeUnderIt) {
    const tvstring longer(60, u'W');
    OpenWith({u"b", longer.c_str()});
    Select({0});
    ASSERT_TRUE(List().CopySelection());
    const std::function<void()> changes[] = {[this] { List().PasteFromClipboard(); },
                                             [this] { List().MoveSelected(false); },
                                             [this] { List().Resort(); }};
    for (const auto& change : changes) {
        PointAt(List().GetCount() - 1);
        ASSERT_TRUE(TipComesUp());
        change();
        EXPECT_FALSE(IsTipUp());
        EXPECT_EQ(List().m_HoverRow, -1);
        for (int row = 0; row < List().GetCount(); ++row)
            EXPECT_TRUE(List().ItemOfRow(row)->m_note.empty()) << row;
        MoveMouseAway();
        Select({0});
    }
}

TEST_F(ItemListDraw, ATipGoesWithItsRow) {
    OpenWith({kLong.c_str()});
    PointAt(0);
    ASSERT_TRUE(TipComesUp());
    SearchFor(u"x");
    EXPECT_FALSE(IsTipUp());
    EXPECT_EQ(List().m_HoverRow, -1);
}

TEST_F(ItemListDraw, TheListTakesItsTipWithIt) {
    const auto count = [] { return TheToolTip().Send(TTM_GETTOOLCOUNT); };
    OpenWith({u"a"});
    const LRESULT before = count();
    List().Detach(tvWnd::Window::Destroy);
    EXPECT_EQ(count(), before - 1);
}

}  // namespace
