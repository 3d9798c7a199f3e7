// What tests of the detail pane share: a main window that notes what the pane tells, with an item to show.
#pragma once

#include <string>
#include <vector>

#include "database/clipboard.h"
#include "foundation/textops.h"
#include "tests/app/command_stage.h"
#include "tests/app/ink.h"
#include "tests/gui/sizes.h"
#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"
#include "toolkit/tool_tip.h"

// Notes what is told from outside the window, as "TOPBAR", "ITEMCHANGED 1", "STATUS repaint", "STATUS warning
// Text". What lists tell of their rows is left out.
class ToldDlg : public CVMRDlg {
public:
    void OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) override {
        Note(code, a, b);
        CVMRDlg::OnAppNotify(code, a, b, c);
    }
    // What was told since it was asked last.
    Notes Take() { return std::exchange(m_Notes, {}); }

private:
    void Note(i32 code, NotifyArgument a, NotifyArgument b) {
        const char* const kinds[] = {"repaint", "", "information ", "error ", "warning "};
        const auto* text = FromArgument<const char16_t>(b);
        if (code == APPN_TOPBAR) m_Notes.emplace_back("TOPBAR");
        if (code == APPN_ITEMCHANGED) m_Notes.push_back("ITEMCHANGED " + std::to_string(a));
        if (code == APPN_STATUS && a == STATUS_REPAINT) m_Notes.emplace_back("STATUS repaint");
        if (code == APPN_STATUS && a > STATUS_COUNTS)
            m_Notes.push_back(
                std::string("STATUS ").append(kinds[a]).append(text == nullptr ? "" : Letters(text)));
    }

    Notes m_Notes;
};

class DetailTest : public CommandTest {
protected:
    static constexpr u16 kNone = 0;
    static constexpr u16 kName = VMRD_T_ITEMNAME;
    static constexpr u16 kProgram = VMRD_T_PROGRAM;
    static constexpr u16 kUser = VMRD_T_USERNAME;
    static constexpr u16 kPassword = VMRD_T_PASSWORD;
    static constexpr u16 kAddition = VMRD_T_ADDITION;

    // A database with one item: "Bank", with a value in each of its basic entries.
    DetailTest() {
        TheAppData().bShowPassword = 0;
        EXPECT_TRUE(TheDatabase().New(u"Vault"));
        Item().m_Name = u"Bank";
        Set(kProgram, u"https://bank.example/");
        Set(kUser, u"somebody");
        Set(kPassword, u"tiger");
    }
    ~DetailTest() override {
        Close();  // before the items go that it shows
        TheAppData().bShowPassword = 0;
    }

    static ItemElement& Item() { return *TheDatabase().m_Head; }
    static EntryElement* Entry(u16 type, const ItemElement& item = Item()) {
        EntryElement* entry = item.m_Head;
        while (entry != nullptr && entry->m_Type != type)
            entry = entry->m_Next;
        return entry;
    }
    static void Set(u16 type, const tvstring& text) {
        Entry(type)->m_Text = text;
        Entry(type)->m_Display.clear();
    }
    static void AddEntries(int count) {
        for (int i = 1; i <= count; ++i)
            AddEntryCopy(Item(), VMRD_Entry(kAddition, tvstring(u"Entry ").append(FormatInt(i))), nullptr);
    }

    // The window in this size, in front, with the mouse away, and with the item shown.
    void OpenPane(int width = 1000, int height = 760) {
        Open(std::make_unique<ToldDlg>());
        Resize(width, height);
        SetForegroundWindow(Window());
        EXPECT_TRUE(PumpUntil([this] { return GetActiveWindow() == Window(); }));
        MoveMouseAway();
        PumpQueue();
        Show(&Item());
        Told().Take();
    }
    void Resize(int width, int height) const {
        MoveWindow(Window(), 10, 10, width, height, TRUE);
        PumpQueue();
        Settle(Window());
    }
    void Show(ItemElement* item) const {
        Main().OnAppNotify(APPN_SHOWITEM, AsArgument(static_cast<VMRD_Element*>(item)), 0, 0);
        PumpQueue();
        Settle(Window());
    }

    [[nodiscard]] ToldDlg& Told() const { return dynamic_cast<ToldDlg&>(Main()); }
    [[nodiscard]] CVMRRightDlg& Pane() const { return Main().m_rightDlg; }
    [[nodiscard]] HWND PaneWindow() const { return Pane().Handle(); }
    [[nodiscard]] FieldBox Field(u16 type) const {
        const auto field = Pane().m_fields.find(type);
        return field == Pane().m_fields.end() ? FieldBox{} : field->second;
    }
    [[nodiscard]] RECT Room() const {
        return Inset(ClientOf(PaneWindow()), TheTheme().m_marginX, TheTheme().m_marginY);
    }
    [[nodiscard]] Picture Look() const {
        Settle(PaneWindow());
        return Picture(PaneWindow());
    }

    // --- The mouse ---

    // Puts the mouse onto a field, at its left end, and waits for the buttons.
    void PointAt(u16 type) const {
        const RECT hit = Field(type).m_hitRect;
        MoveMouse(PaneWindow(), hit.left + 3, hit.top + 3);
        EXPECT_TRUE(PumpUntil([&] { return Pane().m_hotField == type; })) << type;
        Settle(PaneWindow());
    }
    static bool IsShown(const CVMRAutoHideButton& button) {
        const RECT place = PlaceInParent(button.Handle());
        EXPECT_EQ(button.m_shown != 0, place.left >= 0 && place.top >= 0);
        return button.m_shown != 0;
    }
    // The hover buttons that are shown, from the left: "modify copy go".
    [[nodiscard]] std::string Shown() const {
        std::map<LONG, std::string> names;
        const auto add = [&](const CVMRAutoHideButton& button, const char* name) {
            if (IsShown(button)) names[PlaceInParent(button.Handle()).left] = name;
        };
        add(Pane().m_modifyHover, "modify");
        add(Pane().m_copyHover, "copy");
        add(Pane().m_goHover, "go");
        add(Pane().m_showHover, "show");
        std::string shown;
        for (const auto& [left, name] : names)
            shown.append(shown.empty() ? "" : " ").append(name);
        return shown;
    }

    // Carries out a command of the pane on a field, as if the mouse were over it.
    void Do(u16 id, u16 field) const {
        Pane().m_hotField = field;
        SendMessageW(PaneWindow(), WM_COMMAND, id, 0);
        PumpQueue();
    }

    // --- Texts ---

    // What a button's tip says when it is asked for.
    static tvstring TipOf(const CVMRAutoHideButton& button) {
        wchar_t text[tvToolTipCtrl::kTextCapacity] = {};
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = button.Handle();
        tool.uId = reinterpret_cast<UINT_PTR>(button.Handle());
        tool.lpszText = text;
        TheToolTip().Send(TTM_GETTEXTW, std::size(text), reinterpret_cast<LPARAM>(&tool));
        return platform::Units(text);
    }

    // The text that the clipboard holds for other programs; "(none)" if there is none.
    static tvstring ClipboardText() {
        tvstring text = u"(none)";
        if (OpenClipboard(nullptr) == FALSE) return u"(not to be had)";
        if (const HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
            text = static_cast<const char16_t*>(GlobalLock(block));
            GlobalUnlock(block);
        }
        CloseClipboard();
        return text;
    }
    static void SetClipboard(const tvstring& text) {
        ASSERT_TRUE(OpenClipboard(nullptr));
        EmptyClipboard();
        PutClipboardText(text);
        CloseClipboard();
    }

    // The part of the pane looks as if the text had been drawn there, and nothing else.
    void ExpectDrawn(const RECT& place, const tvstring& text, HFONT font, COLORREF color,
                     UINT flags = 0) const {
        constexpr UINT kFlags = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_EDITCONTROL | DT_END_ELLIPSIS;
        const Picture picture = Look();
        const Canvas canvas(Width(place), Height(place),
                            TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE));
        const tvSelected selected(canvas.Dc(), font);
        SetBkMode(canvas.Dc(), TRANSPARENT);
        SetTextColor(canvas.Dc(), color);
        RECT rect{0, 0, Width(place), Height(place)};
        DrawTextW(canvas.Dc(), Wide(text.c_str()), static_cast<int>(text.size()), &rect, kFlags | flags);
        int others = 0;
        for (int y = 0; y < Height(place); ++y)
            for (int x = 0; x < Width(place); ++x)
                if (picture.At(place.left + x, place.top + y) != canvas.At(x, y)) ++others;
        EXPECT_EQ(others, 0) << Letters(text);
        EXPECT_LT(canvas.Count(TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE)),
                  Width(place) * Height(place));
    }
    static COLORREF TextColor() { return TheTheme().Color(&tvColorTheme::m_text, COLOR_BTNTEXT); }
    static COLORREF NoteColor() { return TheTheme().Color(&tvColorTheme::m_icon, COLOR_3DDKSHADOW); }

    static SIZE SizeIn(HFONT font, const tvstring& text) {
        const tvClientDC dc(nullptr);
        const tvSelected selected(dc.Get(), font);
        RECT rect{};
        DrawTextW(dc.Get(), Wide(text.c_str()), static_cast<int>(text.size()), &rect,
                  DT_SINGLELINE | DT_NOPREFIX | DT_CALCRECT);
        return {rect.right, rect.bottom};
    }
    static HFONT Font() { return TheTheme().Font(); }
    static HFONT LargeFont() { return TheTheme().m_fontLarge.Get(); }
    static HFONT ValueFont() { return TheAppData().font.Get(); }
};
