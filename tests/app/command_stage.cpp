#include "tests/app/command_stage.h"

#include <algorithm>
#include <utility>

namespace {

constexpr const char* kNames[] = {"?",      "LANGUAGE",    "TOPBAR",     "START",   "SHOWITEM",
                                  "STATUS", "ITEMCHANGED", "FILTER",     "FORWARD", "RENAMEITEM",
                                  "OPENDB", "DBLIST",      "ROWSCHANGED"};

std::string StatusNote(NotifyArgument a, NotifyArgument b) {
    if (a == STATUS_REPAINT) return "STATUS repaint";
    const auto* text = FromArgument<const char16_t>(b);
    if (text == nullptr) return a == STATUS_INFORMATION ? "STATUS none" : "STATUS null";
    const char* kind = a == STATUS_ERROR ? "error " : a == STATUS_WARNING ? "warning " : "information ";
    return std::string("STATUS ").append(kind).append(Letters(text));
}

std::string RowsNote(NotifyArgument a, NotifyArgument b, NotifyArgument c) {
    const bool ofDatabase = FromArgument<VMRD_Object>(a) == static_cast<VMRD_Object*>(&TheDatabase());
    const auto* elements = FromArgument<ElementArray>(b);
    std::string note = ofDatabase ? "ROWSCHANGED database " : "ROWSCHANGED item ";
    return note.append(std::to_string(elements->size())).append(" ").append(std::to_string(c));
}

std::string NoteOf(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) {
    std::string note = kNames[code];
    switch (code) {
        case APPN_STATUS:
            return StatusNote(a, b);
        case APPN_ROWSCHANGED:
            return RowsNote(a, b, c);
        case APPN_DBLIST:
            for (const NotifyArgument argument : {a, b, c})
                note.append(" ").append(std::to_string(argument));
            return note;
        case APPN_SHOWITEM:
            return note.append(a == 0 ? " none" : " item");
        default:
            return note;
    }
}

}  // namespace

// --- The window ---

LRESULT NotingDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_HELP) {
        ++m_helps;
        return 0;
    }
    if (message != WM_COMMAND) return CVMRDlg::WindowProc(message, wParam, lParam);
    m_commands.push_back(LOWORD(wParam));
    const u16 before = std::exchange(m_Command, LOWORD(wParam));
    ++m_Running;
    const LRESULT result = CVMRDlg::WindowProc(message, wParam, lParam);
    --m_Running;
    m_Command = before;
    return result;
}

// What a list tells of its rows and its selection is none of the command's, but for an undo, which shows
// items itself.
bool NotingDlg::IsNoted(i32 code, NotifyArgument a) const {
    const bool isOfList =
        (code == APPN_STATUS && a == STATUS_COUNTS) || (code == APPN_SHOWITEM && m_Command != CMD_UNDO);
    return m_Running > 0 && m_Depth == 0 && code > 0 && code < static_cast<i32>(std::size(kNames)) &&
           !isOfList;
}

void NotingDlg::OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) {
    if (code == APPN_OPENDB) {
        ++m_Running;
        CVMRDlg::OnAppNotify(code, a, b, c);
        --m_Running;
        return;
    }
    if (IsNoted(code, a)) m_notes.push_back(NoteOf(code, a, b, c));
    ++m_Depth;
    CVMRDlg::OnAppNotify(code, a, b, c);
    --m_Depth;
}

int NotingDlg::CountCommands(u16 id) const {
    return static_cast<int>(std::count(m_commands.begin(), m_commands.end(), id));
}

// --- The stage ---

void CommandTest::OpenNoting() {
    Open(std::make_unique<NotingDlg>());
}

Notes CommandTest::NotesOf(u16 id) const {
    Noting().m_notes.clear();
    Command(id);
    return Noting().m_notes;
}

Notes CommandTest::NotesOfOpening(const tvstring& path, CVMRDlg::Quiet quiet) const {
    Noting().m_notes.clear();
    Main().OnAppNotify(APPN_OPENDB, AsArgument(path.c_str()), quiet == CVMRDlg::Quiet::Yes ? 1 : 0, 0);
    Notes notes = Noting().m_notes;
    PumpQueue();
    return notes;
}

tvstring CommandTest::OpenFile(const char16_t* name) {
    tvstring path = MakeFile(name, u"one");
    OpenNoting();
    const DuringModal steps({AnswerWith(u"one")});
    NotesOfOpening(path, CVMRDlg::Quiet::No);
    EXPECT_TRUE(TheDatabase().m_Opened);
    EXPECT_FALSE(TheDatabase().m_Changed);
    return path;
}

testing::AssertionResult CommandTest::OpensWith(const tvstring& path, const tvstring& password) {
    VMRD_DB other;
    if (other.Open(path, password)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "it does not open with " << Letters(password);
}

// --- File dialogs ---

FileAnswer::FileAnswer(Kind kind, tvstring path)
    : m_Path(std::move(path)),
      m_Item(m_Path.c_str()),
      m_Class(kind == Kind::Save ? CLSID_FileSaveDialog : CLSID_FileOpenDialog, &m_fake) {
    m_fake.m_isOpen = kind == Kind::Open;
    m_fake.m_isCancelled = m_Path.empty();
    m_Items.m_items = {&m_Item};
    m_fake.m_results = &m_Items;
    m_fake.m_result = &m_Item;
}

// --- Dialogs of the program ---

namespace {

template <typename Dialog>
Step InFront(std::function<void(const Dialog&)> look, int button) {
    return [look = std::move(look), button] {
        const HWND window = FrontDialog();
        const auto* dialog = dynamic_cast<const Dialog*>(tvWnd::FromHandle(window));
        if (dialog == nullptr) return false;
        look(*dialog);
        PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(button), 0);
        return true;
    };
}

}  // namespace

Step InBox(std::function<void(const tvMessageBox&)> look, int button) {
    return InFront<tvMessageBox>(std::move(look), button);
}

Step InInput(std::function<void(const CVMRInputDlg&)> look, int button) {
    return InFront<CVMRInputDlg>(std::move(look), button);
}

Step AnswerBox(int button) {
    return InBox([](const tvMessageBox&) {}, button);
}

// --- Texts and files ---

std::string Letters(const tvstring& text) {
    std::string letters;
    for (const char16_t unit : text)
        letters += static_cast<char>(unit);
    return letters;
}

tvhandle HoldFile(const tvstring& path) {
    return tvhandle(
        platform::OpenNativeFile(path.c_str(), platform::FileAccess::Read, platform::FileSharing::None));
}

u32 TryToHold(const tvstring& path) {
    return HoldFile(path) ? platform::kErrorNone : platform::LastError();
}
