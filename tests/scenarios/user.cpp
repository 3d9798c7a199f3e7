#include "tests/scenarios/user.h"

namespace {

constexpr int kOk = 1;
constexpr int kSort = 2003;
constexpr int kSearch = 2004;
constexpr int kList = 2005;
constexpr int kMenu = 2006;
constexpr int kSecondRadio = 2008;
constexpr int kModify = 2010;
constexpr int kCopy = 2011;
constexpr int kShowPassword = 2013;
constexpr int kEdit = 2014;
constexpr int kGenerate = 2024;
constexpr int kSave = 32778;
constexpr int kAdd = 32782;

int Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return static_cast<int>(SendMessageW(window, message, wParam, lParam));
}

// The window's thread has done all that was sent to it, and holds the mouse no longer.
bool HasLetGo(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    Ask(window, WM_NULL);
    return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) != FALSE &&
           info.hwndCapture == nullptr;
}

bool HasKeyboard(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info.hwndFocus == window;
}

void EnterLines(const tvstring& text) {
    std::u16string_view rest = text;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(u"\r\n"), rest.size());
        TypeText(rest.substr(0, end));
        rest.remove_prefix(end);
        if (rest.empty()) break;
        Type(VK_RETURN);
        rest.remove_prefix(2);
    }
}

}  // namespace

void Require(const std::function<bool()>& condition, const char* what) {
    ASSERT_TRUE(PumpUntil(condition)) << what;
}

// --- The database ---

void User::Create(std::u16string_view name) const {
    m_Program.Choose(u"N");
    Require([this] { return m_Program.Dialog() != nullptr; }, "nothing asks for a name");
    Answer(name);
    Require([this] { return m_Program.Sees(kSort); }, "no database comes");
    WaitUntilChanged();
}

void User::SaveAs(const tvstring& path, std::u16string_view password) const {
    Click(m_Program.Control(kSave));
    HWND file = WaitForDialog();
    TypeText(path);
    Type(VK_RETURN);
    HWND next = nullptr;
    const auto asks = [&] {
        next = m_Program.Dialog();
        return next != nullptr && next != file && GetForegroundWindow() == next &&
               HasKeyboard(tvWnd::FindDescendant(next, kEdit));
    };
    Require(asks, "nothing asks for a password");
    TypeText(password);
    Type(VK_TAB);
    TypeText(password);
    Type(VK_RETURN);
    Require([this] { return m_Program.WaitForNoDialog(); }, "the question stays");
    WaitUntilUnchanged();
}

void User::Save() const {
    Click(m_Program.Control(kSave));
    WaitUntilUnchanged();
}

bool User::IsChanged() const {
    return m_Program.Sees(kSave);
}

void User::WaitUntilChanged() const {
    Require([this] { return IsChanged(); }, "no change comes");
}

void User::WaitUntilUnchanged() const {
    Require([this] { return !IsChanged(); }, "the change stays");
}

void User::Undo(int times) const {
    for (int i = 0; i < times; ++i) {
        OpenMainMenu();
        Type('U');
        Require([this] { return m_Program.WaitForNoMenu(); }, "there is nothing to undo");
    }
}

void User::OpenMainMenu() const {
    Click(tvWnd::FindDescendant(PaneOf(kSave), kMenu));
    Require([this] { return m_Program.WaitForMenu() != nullptr; }, "no menu opens");
}

bool User::Quit(Program& program) {
    constexpr int kFromTheCorner = 14;  // pixels
    RECT place{};
    GetWindowRect(program.Main(), &place);
    POINT cross{place.right - kFromTheCorner, place.top + kFromTheCorner};
    ScreenToClient(program.Main(), &cross);
    Click(program.Main(), static_cast<int>(cross.x), static_cast<int>(cross.y));
    return program.HasEnded();
}

// --- Lists ---

HWND User::PaneOf(int id) const {
    HWND pane = m_Program.Control(id);
    while (pane != nullptr && GetParent(pane) != m_Program.Main())
        pane = GetParent(pane);
    return pane;
}

HWND User::ListOf(List list) const {
    return tvWnd::FindDescendant(list == List::Items ? LeftPane() : RightPane(), kList);
}

int User::CountRows(List list) const {
    return Ask(ListOf(list), LB_GETCOUNT);
}

void User::WaitForRows(List list, int count) const {
    Require([&] { return CountRows(list) == count && IsWindowVisible(ListOf(list)) != FALSE; },
            "the list does not get its rows");
}

bool User::IsSelected(List list, int row) const {
    return Ask(ListOf(list), LB_GETSEL, static_cast<WPARAM>(row)) > 0;
}

int User::MiddleOf(List list, int row) const {
    HWND window = ListOf(list);
    Require([&] { return CountRows(list) > row && IsWindowVisible(window) != FALSE; },
            "there is no such row");
    const int height = Ask(window, LB_GETITEMHEIGHT);
    return (row - Ask(window, LB_GETTOPINDEX)) * height + height / 2;
}

void User::Select(List list, int row) const {
    HWND window = ListOf(list);
    const int y = MiddleOf(list, row);
    Click(window, y, y);
    const auto isSelected = [&] {
        return IsSelected(list, row) && Ask(window, LB_GETSELCOUNT) == 1 && HasKeyboard(window) &&
               HasLetGo(window);
    };
    Require(isSelected, "the row is not selected");
}

// The menu that comes of it is closed.
void User::SelectRange(List list, int first, int last) const {
    HWND window = ListOf(list);
    const int x = MiddleOf(list, 0);
    Select(list, first);
    Press(MouseButton::Right);
    // No hand is quite still: a move that came before the list had taken the button is followed by others.
    int tremble = 0;
    const auto areSelected = [&] {
        MoveMouse(window, x + (tremble++ % 2), MiddleOf(list, last));
        return Ask(window, LB_GETSELCOUNT) == last - first + 1;
    };
    Require(areSelected, "the rows are not selected");
    Release(MouseButton::Right);
    Require([this] { return m_Program.WaitForMenu() != nullptr; }, "the list has no menu");
    Type(VK_ESCAPE);
    Require([this] { return m_Program.WaitForNoMenu(); }, "the menu stays");
    Require([&] { return Ask(window, LB_GETSELCOUNT) == last - first + 1; }, "the rows are not selected");
}

// The list asks which keys are held at the moment, not which were as the letter was typed: Ctrl stays until
// it has answered.
void User::SelectAll(List list) const {
    const auto areSelected = [&] { return Ask(ListOf(list), LB_GETSELCOUNT) == CountRows(list); };
    Require([&] { return TypeWithControl('A', areSelected); }, "not all rows are selected");
}

void User::ChooseUntil(WORD letter, const std::function<bool()>& condition, const char* what) const {
    constexpr int kTries = 3;
    for (int i = 0; i < kTries && !condition(); ++i) {
        ChooseFromListMenu(letter);
        PumpUntil(condition, kWaitLimit / 2);
    }
    Require(condition, what);
}

tvstring User::RowText(List list, int row) const {
    Select(list, row);
    ClearClipboard();
    ChooseUntil('C', IsTextOnTheClipboard, "no text is copied");
    return ClipboardText();
}

void User::Cut(List list, int rowsAfter) const {
    ChooseUntil(
        'T', [&] { return CountRows(list) == rowsAfter; }, "nothing is cut");
}

void User::Copy(const wchar_t* format) const {
    ClearClipboard();
    ChooseUntil(
        'C', [&] { return IsOnTheClipboard(format); }, "nothing is copied");
}

void User::Paste(List list, int rowsAfter) const {
    ChooseUntil(
        'P', [&] { return CountRows(list) == rowsAfter; }, "nothing is pasted");
}

std::vector<tvstring> User::RowTexts(List list) const {
    std::vector<tvstring> texts;
    for (int row = 0; row < CountRows(list); ++row)
        texts.push_back(RowText(list, row));
    return texts;
}

void User::ChooseFromListMenu(WORD letter) const {
    Type(VK_APPS);
    Require([this] { return m_Program.WaitForMenu() != nullptr; }, "the list has no menu");
    Type(letter);
    Require([this] { return m_Program.WaitForNoMenu(); }, "the menu stays");
}

// --- Items ---

HWND User::WaitForDialog() const {
    HWND dialog = m_Program.WaitForDialog();
    Require([dialog] { return dialog != nullptr; }, "nothing is asked");
    return dialog;
}

void User::Answer(std::u16string_view text) const {
    HWND dialog = WaitForDialog();
    HWND edit = tvWnd::FindDescendant(dialog, kEdit);
    TypeText(text);  // in place of what is there, which is selected
    Require([&] { return TextOf(edit) == text; }, "the text is not typed");
    Type(VK_RETURN);
    Require([this] { return m_Program.WaitForNoDialog(); }, "the question stays");
}

void User::ClickUntil(HWND window, const std::function<bool()>& condition, const char* what) {
    constexpr int kTries = 3;
    for (int i = 0; i < kTries && !condition(); ++i) {
        Click(window);
        PumpUntil(condition, kWaitLimit / 2);
    }
    Require(condition, what);
}

HWND User::OpenDialogBy(HWND button) const {
    ClickUntil(
        button, [this] { return m_Program.Dialog() != nullptr; }, "nothing is asked");
    return WaitForDialog();
}

void User::PressOk(HWND dialog) const {
    ClickUntil(
        tvWnd::FindDescendant(dialog, kOk), [this] { return m_Program.Dialog() == nullptr; },
        "the question stays");
    Require([this] { return m_Program.WaitForNoDialog(); }, "the question stays");
}

void User::AddItem(std::u16string_view name) const {
    const int count = CountRows(List::Items);
    Click(tvWnd::FindDescendant(LeftPane(), kAdd));
    WaitForRows(List::Items, count + 1);
    Select(List::Items, count);
    Rename(name);
}

void User::Rename(std::u16string_view name) const {
    Type(VK_RETURN);
    Answer(name);
}

void User::Search(std::u16string_view text) const {
    HWND edit = tvWnd::FindDescendant(LeftPane(), kSearch);
    Click(edit);
    Require([edit] { return HasKeyboard(edit); }, "the search box does not get the keyboard");
    Type(VK_END);
    for (std::size_t left = TextOf(edit).size(); left > 0; --left)
        Type(VK_BACK);
    TypeText(text);
    Require([&] { return TextOf(edit) == text; }, "the search box does not get the text");
}

void User::ChooseSearchOption(int downs) const {
    constexpr int kFromTheEnd = 4;
    OpenMainMenu();
    for (int i = 0; i < kFromTheEnd; ++i)
        Type(VK_UP);
    Type(VK_RIGHT);
    for (int i = 0; i < downs; ++i)
        Type(VK_DOWN);
    Type(VK_RETURN);
    Require([this] { return m_Program.WaitForNoMenu(); }, "the menu stays");
}

void User::SetSearchMode(SearchMode mode) const {
    ChooseSearchOption(static_cast<int>(mode));
}

void User::SearchInPasswords() const {
    ChooseSearchOption(4);
}

void User::Sort(Order order) const {
    HWND combo = tvWnd::FindDescendant(LeftPane(), kSort);
    Click(combo);
    Require([&] { return Ask(combo, CB_GETDROPPEDSTATE) != 0; }, "the orders are not shown");
    Type(VK_HOME);
    for (int i = 0; i < static_cast<int>(order); ++i)
        Type(VK_DOWN);
    Type(VK_RETURN);
    const auto isChosen = [&] {
        return Ask(combo, CB_GETCURSEL) == static_cast<int>(order) && Ask(combo, CB_GETDROPPEDSTATE) == 0;
    };
    Require(isChosen, "the order is not chosen");
}

void User::MergeItemIntoTheNext(int row) const {
    const int count = CountRows(List::Items);
    SelectRange(List::Items, row, row + 1);
    ChooseFromListMenu('G');
    HWND dialog = WaitForDialog();
    HWND radio = tvWnd::FindDescendant(dialog, kSecondRadio);
    Click(radio);
    Require([radio] { return Ask(radio, BM_GETCHECK) == BST_CHECKED; }, "the second item is not chosen");
    PressOk(dialog);
    WaitForRows(List::Items, count - 1);
}

// --- The item that is shown ---

// The middle of the button that stands beside the field under the mouse, in the pane; below 0 if there is
// none.
int User::HoverPlace() const {
    RECT place{};
    GetWindowRect(m_Program.Control(kModify), &place);
    MapWindowPoints(nullptr, RightPane(), reinterpret_cast<POINT*>(&place), 2);
    return place.left < 0 ? -1 : static_cast<int>(place.top + place.bottom) / 2;
}

// The mouse goes down over the pane, and stays for a moment wherever the button does not change its place.
void User::Sweep(int moment) const {
    constexpr int kStep = 10;
    HWND pane = RightPane();
    RECT rect{};
    GetWindowRect(ListOf(List::Entries), &rect);
    MapWindowPoints(nullptr, pane, reinterpret_cast<POINT*>(&rect), 2);
    const int end = static_cast<int>(rect.top);
    m_Fields.clear();
    PointAtNothing();
    for (int y = kStep; y < end; y += kStep) {
        const auto isAnother = [&] {
            const int place = HoverPlace();
            return place >= 0 && (m_Fields.empty() || place != m_Fields.back());
        };
        MoveMouse(pane, static_cast<int>(rect.left) + kStep + y % 2, y);
        if (PumpUntil(isAnother, moment)) m_Fields.push_back(HoverPlace());
    }
}

void User::FindFields() const {
    constexpr std::size_t kCount = 4;
    constexpr int kLongest = 1000;  // milliseconds
    for (int moment = 20; moment < kLongest && m_Fields.size() != kCount; moment *= 3)
        Sweep(moment);
    ASSERT_EQ(m_Fields.size(), kCount) << "the fields are not found";
}

void User::PointAt(Field field) const {
    if (m_Fields.empty()) FindFields();
    const int place = m_Fields[static_cast<std::size_t>(field)];
    RECT rect{};
    GetClientRect(RightPane(), &rect);
    // No hand is quite still: the buttons go where the item is painted anew, and come with the next move. And
    // all of them have to be there, not only the first.
    int tremble = 0;
    const auto areThere = [&] {
        MoveMouse(RightPane(), static_cast<int>(rect.right) / 3 + (tremble++ % 2), place);
        return HoverPlace() == place && HasLetGo(RightPane());
    };
    Require(areThere, "no button stands beside the field");
}

// The mouse is at the field each time: a button that has gone meanwhile is nowhere to be clicked.
void User::ClickBesideUntil(Field field, int button, const std::function<bool()>& condition,
                            const char* what) const {
    constexpr int kTries = 3;
    for (int i = 0; i < kTries && !condition(); ++i) {
        PointAt(field);
        Click(m_Program.Control(button));
        PumpUntil(condition, kWaitLimit / 2);
    }
    Require(condition, what);
}

HWND User::OpenDialogAt(Field field) const {
    ClickBesideUntil(
        field, kModify, [this] { return m_Program.Dialog() != nullptr; }, "nothing is asked");
    return WaitForDialog();
}

void User::Modify(Field field, std::u16string_view text) const {
    static_cast<void>(OpenDialogAt(field));
    Answer(text);
}

tvstring User::GeneratePassword() const {
    HWND dialog = OpenDialogAt(Field::Password);
    HWND edit = tvWnd::FindDescendant(dialog, kEdit);
    const tvstring before = TextOf(edit);
    ClickUntil(
        tvWnd::FindDescendant(dialog, kGenerate), [&] { return TextOf(edit) != before; },
        "no password is generated");
    tvstring generated = TextOf(edit);
    PressOk(dialog);
    return generated;
}

tvstring User::CopyField(Field field) const {
    ClearClipboard();
    ClickBesideUntil(field, kCopy, IsTextOnTheClipboard, "no text is copied");
    return ClipboardText();
}

void User::TogglePassword() const {
    PointAt(Field::Password);
    HWND button = m_Program.Control(kShowPassword);
    Click(button);
    // The mouse has to stay until the button is let go: it goes when the mouse does.
    Require([button] { return HasKeyboard(button) && HasLetGo(button); }, "the button is not pressed");
}

void User::PointAtNothing() const {
    const auto isAlone = [this] {
        MoveMouseAway();
        return HoverPlace() < 0;
    };
    Require(isAlone, "a button stays beside a field");
}

void User::AddEntry(const tvstring& text) const {
    const int count = CountRows(List::Entries);
    HWND dialog = OpenDialogBy(tvWnd::FindDescendant(RightPane(), kAdd));
    EnterLines(text);
    Require([&] { return TextOf(tvWnd::FindDescendant(dialog, kEdit)) == text; }, "the lines are not typed");
    PressOk(dialog);
    WaitForRows(List::Entries, count + 1);
}

void User::MergeEntries(int first, int last) const {
    const int count = CountRows(List::Entries);
    SelectRange(List::Entries, first, last);
    ChooseFromListMenu('G');
    PressOk(WaitForDialog());
    WaitForRows(List::Entries, count - (last - first));
}

// --- The clipboard ---

namespace {

void OpenTheClipboard() {
    Require([] { return OpenClipboard(nullptr) != FALSE; }, "the clipboard cannot be opened");
}

}  // namespace

void ClearClipboard() {
    OpenTheClipboard();
    EmptyClipboard();
    CloseClipboard();
}

bool IsTextOnTheClipboard() {
    return IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE;
}

bool IsOnTheClipboard(const wchar_t* format) {
    return IsClipboardFormatAvailable(RegisterClipboardFormatW(format)) != FALSE;
}

tvstring ClipboardText() {
    tvstring text;
    Require(IsTextOnTheClipboard, "no text comes to the clipboard");
    OpenTheClipboard();
    HANDLE block = GetClipboardData(CF_UNICODETEXT);
    if (const void* units = GlobalLock(block)) {
        text = static_cast<const char16_t*>(units);
        GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
}
