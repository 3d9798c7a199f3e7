#include "tests/golden/picture_stage.h"

#include "tests/gui/pinned_font.h"
#include "toolkit/theme.h"
#include "windows/command_ids.h"

namespace {

constexpr u64 kDate = 133'544'667'000'000'000;  // 9 March 2024, 14:05
constexpr const char16_t* kPassword = u"one";

ItemElement& Put(const char16_t* name, const std::vector<const char16_t*>& basic,
                 const std::vector<const char16_t*>& additions = {}) {
    VMRD_Item item;
    item.m_Name = name;
    item.m_Date = kDate;
    constexpr u16 kBasic[] = {VMRD_T_PROGRAM, VMRD_T_USERNAME, VMRD_T_PASSWORD};
    for (std::size_t i = 0; i < std::size(kBasic); ++i)
        AddEntryCopy(item, VMRD_Entry(kBasic[i], basic[i]), nullptr);
    for (const char16_t* text : additions)
        AddEntryCopy(item, VMRD_Entry(VMRD_T_ADDITION, text), nullptr);
    return *AddItemCopy(TheDatabase(), item, nullptr);
}

void FillDatabase() {
    Put(u"Bank", {u"https://bank.example/", u"somebody", u"correct horse"},
        {u"Card 1234 5678", u"Ask for \"first pet\": Tiger", u"Branch & desk\r\nopen from 9 to 5"});
    Put(u"Mail", {u"https://mail.example/inbox", u"somebody@mail.example", u"battery staple"});
    Put(u"A name that is far too long for the width that a row of the list has here",
        {u"C:\\Programs\\photos.exe", u"", u""});
    Put(u"Shop & more", {u"https://shop.example/", u"me", u"12345"});
}

}  // namespace

std::string& PictureFolder() {
    static std::string folder;
    return folder;
}

// --- The window ---

WindowPictures::WindowPictures() {
    const LOGFONTW font = PinnedFont();
    const int theme = TheTheme().FindTheme(GetParam());
    EXPECT_GE(theme, 0);
    TheAppData().LoadStoreTheme(LoadStore::Store, theme);
    TheAppData().LoadStoreFont(LoadStore::Store, &font);
    TheAppData().bShowPassword = 0;
    TheAppData().BuildMenus();
}

WindowPictures::~WindowPictures() {
    Close();  // before the items go that it shows
    TheAppData().bShowPassword = 0;
}

void WindowPictures::Resize(int width, int height) const {
    SetWindowPos(Window(), nullptr, 20, 20, width, height, SWP_NOZORDER);
    PumpQueue();
}

void WindowPictures::OpenMain() {
    constexpr SIZE kSize{800, 620};  // in which all of the detail pane has room
    Open();
    Resize(kSize.cx, kSize.cy);
    SetForegroundWindow(Window());
    EXPECT_TRUE(PumpUntil([this] { return GetActiveWindow() == Window(); }));
    MoveMouseAway();
    Settle(Window());
}

// Not the file's own path stands in the title, but what the database is called.
void WindowPictures::OpenDatabase() {
    VMRD_DB& database = TheDatabase();
    ASSERT_TRUE(database.New(u"Private"));
    database.Clear();
    FillDatabase();
    database.SetPath(InFolder(u"private.vmr"));
    database.SetMasterPassword(kPassword);
    ASSERT_TRUE(database.Save());
    database.m_Undo.Clear();
    OpenMain();
    SelectItems({0});
    EXPECT_EQ(Main().m_rightDlg.m_Item, database.m_Head);
}

void WindowPictures::SelectItems(const std::vector<int>& rows) const {
    CVMRItemListBox& list = Main().m_leftDlg.m_list;
    Main().m_leftDlg.Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(list.Handle()), TRUE);
    PumpQueue();
    list.DeselectAll();
    for (const int row : rows)
        list.SetSel(row, true);
    EXPECT_TRUE(PumpUntil([&list] { return list.m_selTimer.m_id == 0; }));
    PumpQueue();
}

void WindowPictures::ModifyField(u16 field) const {
    Main().m_rightDlg.m_hotField = field;
    Main().m_rightDlg.Send(WM_COMMAND, CMD_DETAIL_MODIFY);
}

// --- Pictures ---

// The caret comes and goes, so it is taken away first.
void WindowPictures::Take(HWND window, const std::string& scene) {
    PumpQueue();
    HideCaret(nullptr);
    Settle(window);
    std::string path = PictureFolder();
    path.append("\\").append(scene).append("-");
    for (const char16_t unit : TheTheme().m_name)
        path += unit == u' ' ? '-' : static_cast<char>(unit);
    EXPECT_TRUE(Picture(window).Save(path.append(".bmp").c_str())) << path;
    ShowCaret(nullptr);
}

void WindowPictures::TakeDialog(const std::string& scene, const Action& open,
                                const std::function<void(HWND)>& before) const {
    const Step taking = [&, this] {
        const HWND dialog = FrontDialog();
        if (dialog == nullptr || dialog == Window() || IsChild(dialog, GetFocus()) == FALSE) return false;
        if (before) before(dialog);
        Take(dialog, scene);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        return true;
    };
    const DuringModal during({taking});
    open();
    EXPECT_TRUE(during.Done());
    PumpQueue();
}

void WindowPictures::TakeDialogOf(u16 command, const std::string& scene) const {
    TakeDialog(scene, [this, command] { Command(command); });
}
