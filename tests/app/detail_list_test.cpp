// The additional entries of the detail pane: the list, the column of buttons beside it, and their commands.
#include "tests/app/detail_stage.h"
#include "tests/app/other_language.h"

namespace {

constexpr u16 kList = 2005;

class DetailList : public DetailTest {
protected:
    using Texts = std::vector<std::string>;

    [[nodiscard]] auto& List() const { return Pane().m_list; }
    [[nodiscard]] std::vector<const CVMRBaseButton*> Column() const {
        return {&Pane().m_addBtn, &Pane().m_removeBtn, &Pane().m_modifyBtn, &Pane().m_upBtn,
                &Pane().m_downBtn};
    }
    [[nodiscard]] Texts Rows() const {
        Texts texts;
        for (int row = 0; row < List().GetCount(); ++row)
            texts.push_back(Letters(ElementText(List().ElementOf(row))));
        return texts;
    }
    void Select(std::initializer_list<int> rows) const {
        List().SetSel(-1, false);
        for (const int row : rows)
            List().SetSel(row, true);
        SendMessageW(PaneWindow(), WM_COMMAND, MAKEWPARAM(kList, LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(List().Handle()));
    }
    // As the user does it: a box of several lines tells nothing of a text that is set.
    static void Enter(const CVMRInputDlg& dialog, const wchar_t* text) {
        dialog.m_edit1.Send(EM_SETSEL, 0, -1);
        dialog.m_edit1.Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text));
    }
    // Which buttons of the column can be pressed, as "11000".
    [[nodiscard]] std::string Enabled() const {
        std::string enabled;
        for (const CVMRBaseButton* button : Column())
            enabled += IsWindowEnabled(button->Handle()) != FALSE ? '1' : '0';
        return enabled;
    }
    void Send(u16 id) const {
        SendMessageW(PaneWindow(), WM_COMMAND, id, 0);
        PumpQueue();
    }
    void ExpectListAndColumn(bool isShown) const {
        EXPECT_EQ(IsWindowVisible(List().Handle()) != FALSE, isShown);
        for (const CVMRBaseButton* button : Column())
            EXPECT_EQ(IsWindowVisible(button->Handle()) != FALSE, isShown);
    }
    // The list has whole rows, as many as there is room for, below the heading; the column stands beside it.
    void ExpectInPlace() const {
        const tvTheme& theme = TheTheme();
        const RECT room = Room();
        const LONG top = Field(kAddition).m_hitRect.bottom + theme.m_borderWidth;
        const RECT list = OuterPlace(List().Handle());
        const RECT button = ClientOf(Pane().m_addBtn.Handle());
        const int row = List().CalcItemHeight(0);
        EXPECT_EQ(list.left, room.left);
        EXPECT_EQ(list.top, top);
        EXPECT_EQ(Width(list), Width(room) - Width(button) - theme.m_gapX);
        EXPECT_EQ(Height(list), std::max(static_cast<int>(room.bottom - top) / row, 1) * row);
        LONG next = top;
        for (const CVMRBaseButton* each : Column()) {
            EXPECT_EQ(PlaceInParent(each->Handle()),
                      BoxAt(room.right - Width(button), next, Width(button), Height(button)));
            next += Height(button) + theme.m_gapY;
        }
    }
};

// --- What is there ---

TEST_F(DetailList, HasTheAdditionalEntriesInTheirOrder) {
    AddEntries(3);
    OpenPane();
    EXPECT_EQ(Rows(), (Texts{"Entry 1", "Entry 2", "Entry 3"}));
    EXPECT_EQ(List().m_Source, &Item());
    EXPECT_EQ(List().m_Kind, 1);
    EXPECT_TRUE(HasStyle(List().Handle(), LBS_EXTENDEDSEL));
    EXPECT_TRUE(HasStyle(List().Handle(), LBS_NOINTEGRALHEIGHT));
    EXPECT_TRUE(HasStyle(List().Handle(), LBS_OWNERDRAWVARIABLE));
}

TEST_F(DetailList, HasItsControlsInTheOrderOfTheTabKey) {
    OpenPane();
    std::vector<int> ids;
    for (HWND child = GetWindow(PaneWindow(), GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT))
        ids.push_back(GetDlgCtrlID(child));
    EXPECT_EQ(ids, (std::vector<int>{2010, 2011, 2012, 2013, 2005, 32782, 2009, 32783, 2007, 2008}));
    for (const int id : {2005, 32782, 2009, 32783, 2007, 2008})
        EXPECT_TRUE(HasStyle(tvWnd::FindDescendant(PaneWindow(), id), WS_TABSTOP)) << id;
}

TEST_F(DetailList, NamesItsButtonsPlainly) {
    OpenPane();
    const char16_t* const texts[] = {u"Add...", u"Remove", u"Modify...", u"Move Up", u"Move Down"};
    const auto* text = texts;
    for (const CVMRBaseButton* button : Column())
        EXPECT_EQ(TextOf(button->Handle()), *text++);
    const OtherLanguage language(
        u"[global]\r\nadd = &One\r\nremove = T&wo\r\nmodify = Three\r\nmoveup = Four\\tF4\r\nmovedown = "
        u"Five\r\n");
    OtherLanguage::Choose();
    const char16_t* const others[] = {u"One", u"Two", u"Three", u"Four", u"Five"};
    text = others;
    for (const CVMRBaseButton* button : Column())
        EXPECT_EQ(TextOf(button->Handle()), *text++);
}

TEST_F(DetailList, IsThereOnlyWithAnItem) {
    AddEntries(1);
    OpenPane();
    ExpectListAndColumn(true);
    Show(nullptr);
    ExpectListAndColumn(false);
    EXPECT_EQ(List().GetCount(), 0);
    EXPECT_EQ(List().m_Source, nullptr);
    Show(&Item());
    ExpectListAndColumn(true);
    EXPECT_EQ(List().GetCount(), 1);
}

TEST_F(DetailList, HasTheHeightOfWholeRows) {
    AddEntries(30);
    OpenPane();
    for (const int height : {650, 661, 672, 683, 800}) {
        Resize(1000, height);
        ExpectInPlace();
    }
    Resize(880, 700);
    ExpectInPlace();
}

TEST_F(DetailList, KeepsTheHeightOfOneRowWhereThereIsNoRoom) {
    AddEntries(3);
    OpenPane();
    // Below what the window lets itself be made.
    RECT pane = PlaceInParent(PaneWindow());
    for (const LONG height : {300L, 100L, 40L}) {
        SetWindowPos(PaneWindow(), nullptr, 0, 0, Width(pane), static_cast<int>(height),
                     SWP_NOMOVE | SWP_NOZORDER);
        Settle(PaneWindow());
        EXPECT_EQ(Height(OuterPlace(List().Handle())), List().CalcItemHeight(0)) << height;
    }
}

TEST_F(DetailList, IsInPlaceWhenItsPaneIsShownAfterItsItem) {
    AddEntries(2);
    OpenPane();
    Show(nullptr);
    ShowWindow(PaneWindow(), SW_HIDE);
    Show(&Item());
    ShowWindow(PaneWindow(), SW_SHOW);
    Settle(Window());
    ExpectInPlace();
    ExpectListAndColumn(true);
}

// --- What can be done ---

TEST_F(DetailList, EnablesItsButtonsByTheSelection) {
    AddEntries(3);
    OpenPane();
    Pane().OnUpdateState();
    EXPECT_EQ(Enabled(), "10000");
    Select({1});
    EXPECT_EQ(Enabled(), "11111");
    Select({0, 2});
    EXPECT_EQ(Enabled(), "11011");
    Select({0, 1, 2});
    EXPECT_EQ(Enabled(), "11000");
    Select({});
    EXPECT_EQ(Enabled(), "10000");
}

TEST_F(DetailList, CannotMoveTheOnlyEntry) {
    AddEntries(1);
    OpenPane();
    Select({0});
    EXPECT_EQ(Enabled(), "11100");
}

TEST_F(DetailList, ForgetsItsSelectionWithTheItem) {
    AddEntries(3);
    TheDatabase().AddNewItem(&TheDatabase());
    OpenPane();
    Select({1});
    Show(Item().m_Next);
    EXPECT_EQ(Enabled(), "10000");
}

TEST_F(DetailList, MovesAndRemovesByItsButtons) {
    AddEntries(3);
    OpenPane();
    Select({0});
    Click(Pane().m_downBtn.Handle());
    EXPECT_TRUE(PumpUntil([this] { return Rows() == Texts{"Entry 2", "Entry 1", "Entry 3"}; }));
    Click(Pane().m_upBtn.Handle());
    EXPECT_TRUE(PumpUntil([this] { return Rows() == Texts{"Entry 1", "Entry 2", "Entry 3"}; }));
    Click(Pane().m_removeBtn.Handle());
    EXPECT_TRUE(PumpUntil([this] { return Rows() == Texts{"Entry 2", "Entry 3"}; }));
    EXPECT_EQ(Item().m_Count, 5);
}

TEST_F(DetailList, TakesTheCommandsOfItsListOnly) {
    AddEntries(2);
    OpenPane();
    Select({0});
    const auto forward = [this](HWND list) {
        Main().OnAppNotify(APPN_FORWARDCMD, CMD_REMOVE, AsArgument(list), 0);
        PumpQueue();
    };
    forward(Window());
    EXPECT_EQ(Rows().size(), 2U);
    forward(List().Handle());
    EXPECT_EQ(Rows(), Texts{"Entry 2"});
}

TEST_F(DetailList, SelectsTheRowsThatWereChanged) {
    AddEntries(4);
    TheDatabase().AddNewItem(&TheDatabase());
    OpenPane();
    const auto changed = [this](VMRD_Object* owner, std::initializer_list<int> rows, bool adds) {
        ElementArray elements;
        for (const int row : rows)
            elements.push_back(List().ElementOf(row));
        Main().OnAppNotify(APPN_ROWSCHANGED, AsArgument(owner), AsArgument(&elements), adds ? 1 : 0);
        std::string selected;
        for (int row = 0; row < List().GetCount(); ++row)
            selected += List().GetSel(row) > 0 ? '1' : '0';
        return selected;
    };
    Select({0});
    EXPECT_EQ(changed(&Item(), {2}, true), "1010");
    EXPECT_EQ(changed(&Item(), {1, 3}, false), "0101");
    EXPECT_EQ(changed(Item().m_Next, {0}, false), "0101");
    EXPECT_EQ(changed(nullptr, {0}, false), "0101");
}

// Of another item, or no longer of any.
TEST_F(DetailList, SelectsNothingForAnEntryThatHasNoRow) {
    AddEntries(2);
    OpenPane();
    Select({0});
    ElementArray elements{TheDatabase().m_Head};
    Main().OnAppNotify(APPN_ROWSCHANGED, AsArgument(static_cast<VMRD_Object*>(&Item())),
                       AsArgument(&elements), 1);
    EXPECT_EQ(List().GetSel(0), 1);
    EXPECT_EQ(List().GetSelCount(), 1);
    Main().OnAppNotify(APPN_ROWSCHANGED, AsArgument(static_cast<VMRD_Object*>(&Item())),
                       AsArgument(&elements), 0);
    EXPECT_EQ(List().GetSelCount(), 0);
}

// The order and the search of the item list are none of the entries'.
TEST_F(DetailList, MovesItsEntriesWhateverTheOrderOfTheItems) {
    AddEntries(3);
    OpenPane();
    CVMRLeftDlg& items = Main().m_leftDlg;
    items.m_sortCombo.Send(CB_SETCURSEL, SortNewOld);
    items.Send(WM_COMMAND, MAKEWPARAM(2003, CBN_SELCHANGE));
    SetWindowTextW(items.m_filterEdit.Handle(), L"Bank");
    PumpQueue();
    Show(&Item());
    Select({0});
    Told().Take();
    SetFocus(List().Handle());
    Type(VK_DOWN, HOLD_CTRL);
    EXPECT_TRUE(PumpUntil([this] { return Rows() == Texts{"Entry 2", "Entry 1", "Entry 3"}; }));
    Click(Pane().m_downBtn.Handle());
    EXPECT_TRUE(PumpUntil([this] { return Rows() == Texts{"Entry 2", "Entry 3", "Entry 1"}; }));
    for (const std::string& note : Told().Take())
        EXPECT_EQ(note.find("error"), std::string::npos) << note;
}

TEST_F(DetailList, HandsTheKeyboardOfAButtonThatIsDisabledToTheList) {
    AddEntries(3);
    OpenPane();
    Select({1});
    SetFocus(Pane().m_removeBtn.Handle());
    Type(VK_SPACE);
    EXPECT_TRUE(PumpUntil([this] { return Rows().size() == 2 && Enabled() == "10000"; }));
    EXPECT_EQ(GetFocus(), List().Handle());
    for (const CVMRBaseButton* button : {&Pane().m_modifyBtn, &Pane().m_upBtn, &Pane().m_downBtn}) {
        Select({0});
        SetFocus(button->Handle());
        Select({0, 1});
        EXPECT_EQ(GetFocus(), List().Handle()) << Letters(TextOf(button->Handle()));
    }
    SetFocus(Pane().m_addBtn.Handle());
    Select({});
    EXPECT_EQ(GetFocus(), Pane().m_addBtn.Handle());
}

// Nor does it stay with a list or a button that nobody sees.
TEST_F(DetailList, HandsTheKeyboardOnWhenItGoesWithItsItem) {
    AddEntries(2);
    for (const char16_t* theme : {u"Dark", u"System Default"}) {
        UseTheme(theme);
        OpenPane();
        for (const HWND window : {List().Handle(), Pane().m_removeBtn.Handle()}) {
            Show(&Item());
            Select({0});
            SetFocus(window);
            ASSERT_EQ(GetFocus(), window);
            Show(nullptr);
            EXPECT_TRUE(PumpUntil([] {
                return GetFocus() != nullptr && IsWindowVisible(GetFocus()) != FALSE;
            })) << Letters(theme);
            EXPECT_NE(GetFocus(), PaneWindow());
        }
        Close();
    }
}

TEST_F(DetailList, PastesBeforeTheFirstThatIsSelectedAndShowsTheNewDate) {
    AddEntries(3);
    OpenPane();
    Select({0, 1});
    Send(CMD_COPY);
    Select({1, 2});
    Item().m_Date = 1;
    Show(&Item());
    Select({1, 2});
    const Picture before = Look();
    SetFocus(Pane().m_addBtn.Handle());
    Told().Take();
    Send(CMD_PASTE);
    EXPECT_EQ(Rows(), (Texts{"Entry 1", "Entry 1", "Entry 2", "Entry 2", "Entry 3"}));
    EXPECT_EQ(List().GetSelCount(), 2);
    EXPECT_GT(List().GetSel(1), 0);
    EXPECT_GT(List().GetSel(2), 0);
    EXPECT_EQ(GetFocus(), List().Handle());
    EXPECT_EQ(Told().Take(), (Notes{"TOPBAR", "STATUS repaint"}));
    const RECT name = Field(kName).m_hitRect;
    const RECT date{name.left, Field(kName).m_textRect.bottom, name.right, name.bottom};
    EXPECT_FALSE(Look().Part(date) == before.Part(date));
}

// --- Adding and modifying ---

TEST_F(DetailList, AddsAnEntryOfSeveralLines) {
    AddEntries(1);
    OpenPane();
    const DuringModal steps({InInput(
        [](const CVMRInputDlg& dialog) {
            EXPECT_EQ(dialog.m_Title, u"Additional Entry");
            EXPECT_TRUE(dialog.m_Info.starts_with(u"A password item can have multiple"));
            EXPECT_EQ(dialog.m_MultiLine, 1);
            EXPECT_EQ(dialog.m_PlainText, 1);
            EXPECT_EQ(dialog.m_AllowEmpty, 0);
            EXPECT_EQ(TextOf(dialog.m_edit1.Handle()), u"");
            Enter(dialog, L"One\r\nTwo");
        },
        IDOK)});
    Click(Pane().m_addBtn.Handle());
    EXPECT_TRUE(PumpUntil([this] { return Rows().size() == 2; }));
    EXPECT_EQ(Rows(), (Texts{"Entry 1", "One\r\nTwo"}));
    EXPECT_EQ(ElementDisplay(List().ElementOf(1)), u"One Two");
    EXPECT_EQ(List().GetSel(0), 0);
    EXPECT_GT(List().GetSel(1), 0);
    EXPECT_TRUE(PumpUntil([this] { return GetFocus() == List().Handle(); }));
    EXPECT_EQ(Told().Take(), (Notes{"TOPBAR", "STATUS repaint", "ITEMCHANGED 1"}));
}

TEST_F(DetailList, AddsNothingAfterCancel) {
    OpenPane();
    const DuringModal steps({InInput([](const CVMRInputDlg& dialog) { Enter(dialog, L"Text"); }, IDCANCEL)});
    Send(CMD_ADD);
    EXPECT_TRUE(steps.Done());
    EXPECT_EQ(List().GetCount(), 0);
    EXPECT_EQ(Told().Take(), Notes{});
}

TEST_F(DetailList, ModifiesTheEntryThatIsSelected) {
    AddEntries(3);
    OpenPane();
    Select({1});
    const Picture before = Look();
    Told().Take();
    const DuringModal steps({InInput(
        [](const CVMRInputDlg& dialog) {
            EXPECT_EQ(TextOf(dialog.m_edit1.Handle()), u"Entry 2");
            EXPECT_EQ(dialog.m_MultiLine, 1);
            EXPECT_EQ(dialog.m_Title, u"Additional Entry");
            Enter(dialog, L"A\r\nB");
        },
        IDOK)});
    Click(Pane().m_modifyBtn.Handle());
    EXPECT_TRUE(PumpUntil([this] { return Rows() == Texts{"Entry 1", "A\r\nB", "Entry 3"}; }));
    EXPECT_TRUE(PumpUntil([this] { return GetFocus() == List().Handle(); }));
    EXPECT_EQ(Told().Take(), (Notes{"STATUS repaint", "TOPBAR", "ITEMCHANGED 1"}));
}

TEST_F(DetailList, ModifiesAnEntryWithAllItsLines) {
    AddEntryCopy(Item(), VMRD_Entry(kAddition, u"One\r\n\r\nThree"), nullptr);
    OpenPane();
    Select({0});
    const DuringModal steps({InInput(
        [](const CVMRInputDlg& dialog) {
            EXPECT_EQ(TextOf(dialog.m_edit1.Handle()), u"One\r\n\r\nThree");
            EXPECT_EQ(dialog.m_edit1.Send(EM_GETLINECOUNT), 3);
        },
        IDOK)});
    Send(CMD_RENAME);
    EXPECT_TRUE(steps.Done());
    EXPECT_EQ(Rows(), Texts{"One\r\n\r\nThree"});
}

TEST_F(DetailList, PaintsTheRowOfAModifiedEntryAnew) {
    AddEntries(3);
    OpenPane();
    Select({1});
    Settle(List().Handle());
    RECT row{};
    List().GetItemRect(1, row);
    const COLORREF text = TextColor();
    const int before = Picture(List().Handle()).Count(row, text);
    const DuringModal steps({AnswerWith(u".")});
    Send(CMD_RENAME);
    Settle(List().Handle());
    EXPECT_LT(Picture(List().Handle()).Count(row, text), before / 3);
}

TEST_F(DetailList, ModifiesNothingUnlessOneEntryIsSelected) {
    AddEntries(3);
    OpenPane();
    const DuringModal none({});  // fails once a dialog stays
    Send(CMD_RENAME);
    Select({0, 2});
    Send(CMD_RENAME);
    EXPECT_EQ(FrontDialog(), Window());
    Show(nullptr);
    Send(CMD_RENAME);
    Send(CMD_ADD);
    EXPECT_EQ(FrontDialog(), Window());
}

TEST_F(DetailList, TellsNothingOfATextThatIsTheSame) {
    AddEntries(1);
    OpenPane();
    Select({0});
    Told().Take();
    const DuringModal steps({AnswerWith(u"\r\nEntry 1\r\n")});
    Send(CMD_RENAME);
    EXPECT_TRUE(steps.Done());
    EXPECT_EQ(Rows(), Texts{"Entry 1"});
    EXPECT_EQ(Told().Take(), Notes{});
}

TEST_F(DetailList, ModifiesByReturnAndDoubleClick) {
    AddEntries(1);
    OpenPane();
    Select({0});
    SetFocus(List().Handle());
    {
        const DuringModal steps({AnswerWith(u"First")});
        Type(VK_RETURN);
        EXPECT_TRUE(PumpUntil([this] { return Rows() == Texts{"First"}; }));
    }
    RECT row{};
    List().GetItemRect(0, row);
    const DuringModal steps({AnswerWith(u"Second")});
    DoubleClick(List().Handle(), row.left + 5, row.top + 5);
    EXPECT_TRUE(PumpUntil([this] { return Rows() == Texts{"Second"}; }));
}

TEST_F(DetailList, RemovesByItsKey) {
    AddEntries(2);
    OpenPane();
    Select({0});
    SetFocus(List().Handle());
    Type(VK_DELETE);
    EXPECT_TRUE(PumpUntil([this] { return Rows() == Texts{"Entry 2"}; }));
}

// --- Items that go ---

TEST_F(DetailList, LetsGoOfItsItemBeforeTheDatabaseIsReplaced) {
    AddEntries(2);
    OpenPane();
    Main().OnAppNotify(APPN_DBLIST, 1, 0, 0);
    EXPECT_EQ(Pane().m_Item, nullptr);
    EXPECT_TRUE(Pane().m_fields.empty());
    EXPECT_EQ(List().GetCount(), 0);
}

TEST_F(DetailList, LetsGoOfAnItemWhoseAddingIsUndone) {
    OpenPane();
    ItemElement* added = TheDatabase().AddNewItem(&TheDatabase());
    Show(added);
    EXPECT_EQ(Pane().m_Item, added);
    SendMessageW(Window(), WM_COMMAND, CMD_UNDO, 0);
    EXPECT_EQ(TheDatabase().m_Count, 1);
    EXPECT_NE(Pane().m_Item, added);
    EXPECT_TRUE(Pane().m_Item == nullptr || Pane().m_Item == &Item());
}

TEST_F(DetailList, KeepsAnItemThatIsStillThere) {
    OpenPane();
    Pane().OnAppNotify(APPN_DBLIST, 0, -1, 0);
    EXPECT_EQ(Pane().m_Item, &Item());
}

}  // namespace
