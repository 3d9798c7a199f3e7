#include "tests/app/item_stage.h"

#include "tests/app/command_stage.h"

namespace {

constexpr const char* kNames[] = {"?",      "LANGUAGE",    "TOPBAR",     "START",   "SHOWITEM",
                                  "STATUS", "ITEMCHANGED", "FILTER",     "FORWARD", "RENAMEITEM",
                                  "OPENDB", "DBLIST",      "ROWSCHANGED"};

std::string StatusNote(NotifyArgument a, NotifyArgument b, NotifyArgument c) {
    if (a == STATUS_REPAINT) return "REPAINT";
    if (a == STATUS_COUNTS)
        return std::string("COUNTS ").append(std::to_string(b)).append(" ").append(std::to_string(c));
    const char* kind = a == STATUS_ERROR ? "ERROR " : a == STATUS_WARNING ? "WARNING " : "INFORMATION ";
    const auto* text = FromArgument<const char16_t>(b);
    return std::string(kind).append(text == nullptr ? "none" : Letters(text));
}

std::string NoteOf(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) {
    const std::string name = code > 0 && code < static_cast<i32>(std::size(kNames)) ? kNames[code] : "?";
    switch (code) {
        case APPN_STATUS:
            return StatusNote(a, b, c);
        case APPN_FORWARDCMD:
            return name + " " + std::to_string(a);
        case APPN_SHOWITEM:
            return name + " " + (a == 0 ? "none" : Letters(ElementText(FromArgument<VMRD_Element>(a))));
        default:
            return name;
    }
}

}  // namespace

// --- The window ---

void TellingDlg::OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) {
    if (m_depth == 0) m_notes.append(m_notes.empty() ? "" : "; ").append(NoteOf(code, a, b, c));
    ++m_depth;
    CVMRDlg::OnAppNotify(code, a, b, c);
    --m_depth;
}

std::string TellingDlg::Told() {
    return std::exchange(m_notes, {});
}

// --- The stage ---

ItemTest::ItemTest() {
    TheAppData().BuildMenus();
    RegisterItemsFormat();
    RegisterEntriesFormat();
    EmptyTheClipboard();
    TheDatabase().New(u"Test");
    TheDatabase().Clear();
}

ItemElement* ItemTest::Put(const tvstring& name, u64 date) {
    VMRD_Item item;
    item.m_Name = name;
    item.m_Date = date;
    for (const u16 type : {VMRD_T_PROGRAM, VMRD_T_USERNAME, VMRD_T_PASSWORD})
        AddEntryCopy(item, VMRD_Entry(type, {}), nullptr);
    return AddItemCopy(TheDatabase(), item, nullptr);
}

void ItemTest::OpenWith(const std::vector<const char16_t*>& names) {
    for (const char16_t* name : names)
        Put(name);
    OpenWindow();
}

void ItemTest::OpenWith(int count) {
    for (int i = 1; i <= count; ++i)
        Put(tvstring(u"Item ").append(Units(std::to_wstring(i).c_str())));
    OpenWindow();
}

void ItemTest::OpenWindow() {
    TheDatabase().m_Undo.Clear();
    TheDatabase().m_Changed = false;
    Open(std::make_unique<TellingDlg>());
    SetForegroundWindow(Window());
    EXPECT_TRUE(PumpUntil([this] { return GetActiveWindow() == Window(); }));
    FocusList();
    MoveMouseAway();
    Settle(Window());
}

void ItemTest::AwaitNotice() const {
    const auto& timer = List().m_selTimer;
    EXPECT_TRUE(PumpUntil([&timer] { return timer.m_id == 0; }));
    PumpQueue();
}

void ItemTest::Select(const std::vector<int>& rows) const {
    List().DeselectAll();
    for (const int row : rows)
        List().SetSel(row, true);
    AwaitNotice();
    Telling().Told();
}

void ItemTest::PaneCommand(u16 id, u16 code) const {
    Pane().Send(WM_COMMAND, MAKEWPARAM(id, code), 0);
}

void ItemTest::FocusList() const {
    Pane().Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(ListWindow()), TRUE);
    Settle(Window());
    EXPECT_EQ(GetFocus(), ListWindow());
}

POINT ItemTest::MiddleOf(int row) const {
    RECT rect{};
    EXPECT_GE(List().GetItemRect(row, rect), 0);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

POINT ItemTest::OnScreen(POINT point) const {
    ClientToScreen(ListWindow(), &point);
    return point;
}

void ItemTest::ClickRow(int row, MouseButton button, unsigned held) const {
    const POINT at = MiddleOf(row);
    Click(ListWindow(), static_cast<int>(at.x), static_cast<int>(at.y), button, held);
    PumpQueue();
}

void ItemTest::SearchFor(const char16_t* text) const {
    SetWindowTextW(Pane().m_filterEdit.Handle(), Wide(text));
    PumpQueue();
}

void ItemTest::ChooseOrder(int order) const {
    Pane().m_sortCombo.Send(CB_SETCURSEL, static_cast<WPARAM>(order));
    PaneCommand(2003, CBN_SELCHANGE);
    PumpQueue();
}

void ItemTest::EmptyTheClipboard() {
    OpenClipboard(nullptr);
    EmptyClipboard();
    CloseClipboard();
}

// --- The clipboard and the menu ---

std::vector<u32> FormatsOnClipboard() {
    std::vector<u32> formats;
    OpenClipboard(nullptr);
    for (UINT format = EnumClipboardFormats(0); format != 0; format = EnumClipboardFormats(format))
        formats.push_back(format);
    CloseClipboard();
    return formats;
}

namespace {

HWND MenuWindow() {
    return FindWindowW(L"#32768", nullptr);
}

}  // namespace

bool IsMenuOpen() {
    return MenuWindow() != nullptr && IsWindowVisible(MenuWindow()) != FALSE;
}

void WithItemMenu(const std::function<void(const RECT&)>& look, const std::function<void()>& action) {
    const DuringModal during({[&look] {
        if (!IsMenuOpen()) return false;
        const LRESULT menu = SendMessageW(MenuWindow(), MN_GETHMENU, 0, 0);
        EXPECT_EQ(menu, reinterpret_cast<LRESULT>(TheAppData().itemMenu.Handle()));
        RECT place{};
        GetWindowRect(MenuWindow(), &place);
        look(place);
        EndMenu();
        return true;
    }});
    action();
    EXPECT_TRUE(PumpUntil([&during] { return during.Done(); }));
    PumpQueue();
}
