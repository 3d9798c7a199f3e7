// What the detail pane shows of an item, and where.
#include "platform/registry.h"
#include "tests/app/detail_stage.h"
#include "tests/app/keep_font.h"
#include "tests/app/other_language.h"

namespace {

constexpr LONG kButton = 38;  // the side of a hover button, in pixels
constexpr LONG kSpare = 8;    // what a text has behind it
const tvstring kDots(u"\u25CF\u25CF\u25CF\u25CF\u25CF\u25CF");
const char16_t* const kThemes[] = {u"Light", u"Dark", u"System Default"};

// The 9th of February 2021, 17:05:06.
u64 SomeDate() {
    const SYSTEMTIME time{2021, 2, 2, 9, 17, 5, 6, 0};
    FILETIME ticks{};
    SystemTimeToFileTime(&time, &ticks);
    return (static_cast<u64>(ticks.dwHighDateTime) << 32) | ticks.dwLowDateTime;
}

// A format of the user's for dates or times, for a while.
class UserFormat {
public:
    UserFormat(LCTYPE kind, const wchar_t* format) : m_Kind(kind) {
        GetLocaleInfoW(LOCALE_USER_DEFAULT, kind, m_Before, kRoom);
        EXPECT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, kind, format));
    }
    ~UserFormat() { SetLocaleInfoW(LOCALE_USER_DEFAULT, m_Kind, m_Before); }
    UserFormat(const UserFormat&) = delete;
    UserFormat& operator=(const UserFormat&) = delete;

private:
    static constexpr int kRoom = 80;
    LCTYPE m_Kind;
    wchar_t m_Before[kRoom] = {};
};

class DetailPaint : public DetailTest {
protected:
    static LONG Border() { return TheTheme().m_borderWidth; }

    // The room that a text takes at a place.
    static RECT Fitting(LONG left, LONG top, const tvstring& text, HFONT font, LONG right) {
        const SIZE size = SizeIn(font, text);
        return {left, top, left + std::min(size.cx + kSpare, right - left), top + size.cy};
    }
    [[nodiscard]] RECT LabelPlace(u16 type, const tvstring& text) const {
        const RECT hit = Field(type).m_hitRect;
        return Fitting(hit.left, hit.top, text, Font(), hit.right);
    }
    void ExpectLabel(u16 type, const tvstring& text) const {
        ExpectDrawn(LabelPlace(type, text), text, Font(), TextColor());
    }
    void ExpectValue(u16 type, const tvstring& text, UINT flags = 0) const {
        ExpectDrawn(Field(type).m_textRect, text, ValueFont(), TextColor(), flags);
    }
    [[nodiscard]] RECT DatePlace(const tvstring& text) const {
        return Fitting(Room().left, Field(kName).m_textRect.bottom + Border(), text, Font(), Room().right);
    }
    void ExpectDate(const tvstring& text) const {
        ExpectDrawn(DatePlace(text), text, Font(), NoteColor());
        EXPECT_EQ(Field(kName).m_hitRect.bottom, DatePlace(text).bottom);
    }
    // What there is to the right of a place, up to the edge of the pane.
    [[nodiscard]] bool IsBareRightOf(const RECT& place) const {
        const COLORREF ground = TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE);
        const RECT rest{place.right, place.top, ClientOf(PaneWindow()).right, place.bottom};
        return Look().Count(rest, ground) == Width(rest) * Height(rest);
    }
    void ShowPasswords() {
        TheAppData().bShowPassword = 1;
        Show(&Item());
    }
};

// --- Texts and fonts ---

TEST_F(DetailPaint, ShowsNameDateAndBasicEntriesUnderTheirLabels) {
    Item().m_Date = SomeDate();
    OpenPane();
    for (const char16_t* theme : kThemes) {
        UseTheme(theme, Window());
        const RECT name = Field(kName).m_textRect;
        ExpectDrawn(name, u"Bank", LargeFont(), TextColor());
        EXPECT_EQ(Width(name), SizeIn(LargeFont(), u"Bank").cx + kSpare);
        ExpectLabel(kProgram, u"Program, document or url:");
        ExpectValue(kProgram, u"https://bank.example/");
        ExpectLabel(kUser, u"Username:");
        ExpectValue(kUser, u"somebody");
        ExpectLabel(kPassword, u"Password:");
        ExpectValue(kPassword, kDots);
        ExpectDrawn(Field(kAddition).m_textRect, u"Additional entries:", Font(), TextColor());
    }
}

TEST_F(DetailPaint, PaintsNothingWithoutAnItem) {
    OpenPane();
    Show(nullptr);
    EXPECT_TRUE(Pane().m_fields.empty());
    EXPECT_EQ(Pane().m_Item, nullptr);
    EXPECT_EQ(Look().Count(TheTheme().m_base), Look().Width() * Look().Height());
}

TEST_F(DetailPaint, ShowsAPasswordOfAnyLengthAsSixDots) {
    OpenPane();
    Picture first;
    for (const std::size_t length : {1U, 6U, 500U}) {
        Set(kPassword, tvstring(length, u'W'));
        Show(&Item());
        ExpectValue(kPassword, kDots);
        if (length == 1) first = Look();
        EXPECT_TRUE(Look() == first) << length;
    }
}

TEST_F(DetailPaint, ShowsAnEmptyFieldAsEmptyWhetherPasswordsAreShownOrNot) {
    for (const u16 type : {kProgram, kUser, kPassword})
        Set(type, u"");
    OpenPane();
    for (const bool isShown : {false, true}) {
        if (isShown) ShowPasswords();
        for (const u16 type : {kProgram, kUser, kPassword})
            ExpectValue(type, u"[Empty]");
    }
}

TEST_F(DetailPaint, ShowsThePasswordWhilePasswordsAreShown) {
    OpenPane();
    ShowPasswords();
    ExpectValue(kPassword, u"tiger");
    EXPECT_TRUE(IsBareRightOf(Field(kPassword).m_textRect));
}

TEST_F(DetailPaint, ShowsPasswordsOfAllItemsUntilThatIsSwitchedOff) {
    TheDatabase().AddNewItem(&TheDatabase());
    ItemElement* second = Item().m_Next;
    Entry(kPassword, *second)->m_Text = u"zebra";
    OpenPane();
    Do(CMD_DETAIL_SHOW_PASSWORD, kPassword);
    ExpectValue(kPassword, u"tiger");
    Show(second);
    ExpectValue(kPassword, u"zebra");
    Show(nullptr);
    Show(&Item());
    ExpectValue(kPassword, u"tiger");
    Do(CMD_DETAIL_SHOW_PASSWORD, kPassword);
    ExpectValue(kPassword, kDots);
}

// Marks, tabs and line ends are none in a value.
TEST_F(DetailPaint, ShowsTextsAsTheyAre) {
    Item().m_Name = u"R&D && Co";
    Set(kUser, u"&some&body");
    OpenPane();
    ExpectDrawn(Field(kName).m_textRect, u"R&D && Co", LargeFont(), TextColor());
    ExpectValue(kUser, u"&some&body");
}

// --- The date ---

TEST_F(DetailPaint, ShowsTheDateInTheUsersFormat) {
    const UserFormat day(LOCALE_SSHORTDATE, L"yyyy.MM.dd");
    const UserFormat time(LOCALE_STIMEFORMAT, L"HH-mm-ss");
    Item().m_Date = SomeDate();
    OpenPane();
    ExpectDate(u"Last modified: 2021.02.09 17-05-06");
}

TEST_F(DetailPaint, ShowsTheDateOfEachItem) {
    const UserFormat day(LOCALE_SSHORTDATE, L"yyyy.MM.dd");
    const UserFormat time(LOCALE_STIMEFORMAT, L"HH-mm-ss");
    TheDatabase().AddNewItem(&TheDatabase());
    Item().m_Date = SomeDate();
    Item().m_Next->m_Date = SomeDate() + 864'000'000'000;  // a day later
    OpenPane();
    Show(Item().m_Next);
    ExpectDate(u"Last modified: 2021.02.10 17-05-06");
    Show(&Item());
    ExpectDate(u"Last modified: 2021.02.09 17-05-06");
}

TEST_F(DetailPaint, LeavesTheLineOfAMissingDateFree) {
    Item().m_Date = SomeDate();
    OpenPane();
    const RECT program = Field(kProgram).m_hitRect;
    Item().m_Date = 0;
    Show(&Item());
    EXPECT_EQ(Field(kProgram).m_hitRect, program);
    const RECT line = DatePlace(u"hy");
    EXPECT_TRUE(IsBareRightOf({line.left, line.top, line.left, line.bottom}));
}

// --- Places ---

TEST_F(DetailPaint, StacksItsFieldsFromTheTop) {
    Item().m_Date = SomeDate();
    OpenPane();
    const tvTheme& theme = TheTheme();
    const RECT room = Room();
    const LONG line = SizeIn(Font(), u"hy").cy;
    const RECT name = Field(kName).m_hitRect;
    EXPECT_EQ(Field(kName).m_textRect.bottom, room.top + std::max(SizeIn(LargeFont(), u"Bank").cy, kButton));
    EXPECT_EQ(name.bottom, Field(kName).m_textRect.bottom + Border() + line);
    EXPECT_EQ(name, (RECT{room.left, room.top, room.right, name.bottom}));

    LONG top = name.bottom + 2 * Border() + 2 + theme.m_marginY;
    for (const u16 type : {kProgram, kUser, kPassword}) {
        const FieldBox field = Field(type);
        const LONG value = top + line + Border();
        EXPECT_EQ(field.m_hitRect, (RECT{room.left, top, room.right, value + kButton})) << type;
        EXPECT_EQ(field.m_textRect.left, room.left);
        EXPECT_EQ(field.m_textRect.top, value);
        EXPECT_EQ(field.m_textRect.bottom, value + kButton);
        top = value + Height(field.m_hitRect) + theme.m_marginY;
    }
    EXPECT_EQ(Field(kAddition).m_textRect.top, top);
    EXPECT_EQ(Height(Field(kAddition).m_textRect), line);
}

// A line of one pixel, or the system's etched one of two.
TEST_F(DetailPaint, SeparatesTheNameFromTheEntries) {
    Item().m_Date = SomeDate();
    OpenPane();
    const LONG right = Room().right - kButton - Border();
    for (const char16_t* theme : kThemes) {
        UseTheme(theme, Window());
        const LONG top = Field(kName).m_hitRect.bottom + 2 * Border();
        const bool isEtched = TheTheme().m_isSystemDefault;
        const COLORREF color = isEtched ? GetSysColor(COLOR_BTNSHADOW) : TheTheme().m_button;
        const RECT line{Room().left, top, right, top + 1};
        EXPECT_EQ(Look().Count(line, color), Width(line)) << Letters(theme);
        const RECT below{Room().left, top + 1, right, top + 2};
        const COLORREF under = isEtched ? GetSysColor(COLOR_BTNHIGHLIGHT) : TheTheme().m_base;
        EXPECT_EQ(Look().Count(below, under), Width(below)) << Letters(theme);
        EXPECT_EQ(Look().Count({right, top, ClientOf(PaneWindow()).right, top + 2}, color), 0);
    }
}

TEST_F(DetailPaint, KeepsTheHoverAreaOfAFieldThatIsCutByTheEllipsis) {
    Item().m_Name = tvstring(300, u'W');
    Set(kUser, tvstring(300, u'W'));
    OpenPane();
    const RECT room = Room();
    const LONG step = kButton + Border();
    EXPECT_EQ(Field(kName).m_textRect.right, room.right - step);
    EXPECT_EQ(Field(kName).m_hitRect.right, room.right);
    EXPECT_EQ(Field(kUser).m_textRect.right, room.right - 2 * step);
    EXPECT_EQ(Field(kUser).m_hitRect.right, room.right);
    ExpectDrawn(Field(kName).m_textRect, tvstring(300, u'W'), LargeFont(), TextColor());
    ExpectValue(kUser, tvstring(300, u'W'));
    EXPECT_TRUE(IsBareRightOf(Field(kUser).m_textRect));
}

TEST_F(DetailPaint, CutsAProgramsPathInTheMiddle) {
    const tvstring path = tvstring(u"C:\\").append(tvstring(300, u'w')).append(u"\\last.exe");
    Set(kProgram, path);
    Set(kPassword, path);
    OpenPane();
    ShowPasswords();
    const LONG step = kButton + Border();
    EXPECT_EQ(Field(kProgram).m_textRect.right, Room().right - 3 * step);
    EXPECT_EQ(Field(kPassword).m_textRect.right, Room().right - 3 * step);
    ExpectValue(kProgram, path, DT_PATH_ELLIPSIS);
    ExpectValue(kPassword, path);
    // The file's own name is at the end of the first, and not of the second.
    const LONG tail = SizeIn(ValueFont(), u"last.exe").cx;
    const auto endOf = [&](u16 type) {
        const RECT text = Field(type).m_textRect;
        Picture picture = Look();
        std::vector<COLORREF> pixels;
        for (LONG y = text.top; y < text.bottom; ++y)
            for (LONG x = text.right - tail; x < text.right; ++x)
                pixels.push_back(picture.At(x, y));
        return pixels;
    };
    EXPECT_NE(endOf(kProgram), endOf(kPassword));
}

TEST_F(DetailPaint, PassesOverAnEntryThatTheItemLacks) {
    ElementArray gone{Entry(kUser)};
    ASSERT_EQ(TheDatabase().RemoveEntries(gone, &Item()), 1);
    OpenPane();
    EXPECT_FALSE(Pane().m_fields.contains(kUser));
    EXPECT_EQ(Pane().m_fields.size(), 4U);
    ExpectLabel(kPassword, u"Password:");
    const FieldBox program = Field(kProgram);
    EXPECT_EQ(Field(kPassword).m_hitRect.top,
              program.m_textRect.top + Height(program.m_hitRect) + TheTheme().m_marginY);
}

TEST_F(DetailPaint, ShowsEntriesInTheirOwnOrder) {
    ElementArray first{Entry(kPassword)};
    TheDatabase().MoveEntries(first, true, &Item());
    OpenPane();
    EXPECT_LT(Field(kProgram).m_hitRect.top, Field(kPassword).m_hitRect.top);
    EXPECT_LT(Field(kPassword).m_hitRect.top, Field(kUser).m_hitRect.top);
    ExpectValue(kUser, u"somebody");
}

// --- What changes it ---

TEST_F(DetailPaint, FollowsTheFonts) {
    const KeepFont keep;
    OpenPane();
    const RECT before = Field(kAddition).m_hitRect;
    const LOGFONTW font = keep.Doubled();
    TheAppData().LoadStoreFont(LoadStore::Store, &font);
    ExpectDrawn(Field(kName).m_textRect, u"Bank", LargeFont(), TextColor());
    ExpectLabel(kUser, u"Username:");
    ExpectValue(kUser, u"somebody");
    EXPECT_GT(Field(kAddition).m_hitRect.bottom, before.bottom);
    EXPECT_EQ(OuterPlace(Pane().m_list.Handle()).top, Field(kAddition).m_hitRect.bottom + Border());
    EXPECT_EQ(PlaceInParent(Pane().m_addBtn.Handle()).top, Field(kAddition).m_hitRect.bottom + Border());
    platform::DeleteUserTree(u"Software\\Tolvane");  // the font was stored
}

TEST_F(DetailPaint, TakesItsTextsFromTheNewLanguage) {
    const UserFormat day(LOCALE_SSHORTDATE, L"yyyy.MM.dd");
    const UserFormat time(LOCALE_STIMEFORMAT, L"HH-mm-ss");
    Item().m_Date = SomeDate();
    Set(kUser, u"");
    OpenPane();
    ExpectDate(u"Last modified: 2021.02.09 17-05-06");
    const OtherLanguage language(
        u"[itemdetail]\r\nprogram = Prog\r\nusername = Who\r\npassword = Word\r\naddition = More\r\n"
        u"lastmodified = %0 was it\r\n[global]\r\nempty = (nil)\r\n");
    OtherLanguage::Choose();
    ExpectLabel(kProgram, u"Prog");
    ExpectLabel(kUser, u"Who");
    ExpectLabel(kPassword, u"Word");
    ExpectValue(kUser, u"(nil)");
    ExpectDate(u"2021.02.09 17-05-06 was it");
    ExpectDrawn(Field(kAddition).m_textRect, u"More", Font(), TextColor());
}

TEST_F(DetailPaint, FollowsTheWidthOfThePane) {
    Set(kProgram, tvstring(300, u'W'));
    OpenPane();
    for (const int width : {700, 1100}) {
        Resize(width, 760);
        EXPECT_EQ(Field(kProgram).m_hitRect.right, Room().right);
        EXPECT_EQ(Field(kProgram).m_textRect.right, Room().right - 3 * (kButton + Border()));
        ExpectValue(kProgram, tvstring(300, u'W'), DT_PATH_ELLIPSIS);
    }
}

// Whoever tells of an item finds its fields on the pane.
TEST_F(DetailPaint, ShowsAnItemAtOnce) {
    OpenPane();
    ItemElement* other = TheDatabase().AddNewItem(&TheDatabase());
    other->m_Name = u"A name of its own";
    Settle(PaneWindow());
    const Picture before(PaneWindow());
    const RECT name = Field(kName).m_hitRect;
    Pane().OnAppNotify(APPN_SHOWITEM, AsArgument(static_cast<VMRD_Element*>(other)), 0, 0);
    EXPECT_FALSE(Picture(PaneWindow()).Part(name) == before.Part(name));
    Pane().OnAppNotify(APPN_SHOWITEM, 0, 0, 0);
    EXPECT_TRUE(Pane().m_fields.empty());
    EXPECT_EQ(Picture(PaneWindow()).Part(name).Count(TextColor()), 0);
}

}  // namespace
