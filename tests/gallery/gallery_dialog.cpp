#include "tests/gallery/gallery_dialog.h"

#include "toolkit/app.h"
#include "toolkit/image.h"
#include "toolkit/message_box.h"
#include "toolkit/theme.h"
#include "toolkit/tool_tip.h"

namespace {

// Ids; the state table has those from 1000 on.
enum Id : u16 {
    ID_THEME = 100,    // and the following ones, in the order of the list
    ID_SMALLER = 120,  // and the following one
    ID_LARGER,
    ID_NOTE = 130,
    ID_NOTE_HOT,
    ID_NOTE_DISABLED,
    ID_MESSAGE = 140,  // and the following ones, in the order of kMessages
    ID_SHOW_STATUS = 160,
    ID_GLYPHS = 180,
    ID_PICTURES,
    ID_SHAPES,
    ID_TEXTS,
    ID_LEFT_PANE = 190,
    ID_SPLIT,
    ID_RIGHT_PANE,
    ID_STATUS,
};

constexpr UINT WM_FIRST_PAINT = WM_APP;  // the window has been painted, and all that it shows

constexpr int kThemes = 5;

constexpr struct {
    const char16_t* title;
    u32 style;
} kMessages[] = {
    {u"OK", MB_OK},
    {u"OK, Cancel", MB_OKCANCEL},
    {u"Abort, Retry", MB_ABORTRETRYIGNORE | MB_ICONERROR},
    {u"Yes, No, Cancel", MB_YESNOCANCEL},
    {u"Yes, No", MB_YESNO | MB_DEFBUTTON2},
    {u"Retry, Cancel", MB_RETRYCANCEL | MB_ICONWARNING},
    {u"Try, Continue", MB_CANCELTRYCONTINUE | MB_ICONQUESTION},
    {u"Continue", 9},
    {u"Tick", MB_OK | MESSAGE_ICON_TICK},
    {u"Count-down", MB_YESNO | MESSAGE_ICON_NONE},
};
constexpr int kMessageCount = static_cast<int>(std::size(kMessages));

constexpr const char16_t* kStatusTexts[] = {u"Stays", u"With an icon", u"For 2 seconds", u"Standing text"};
constexpr int kStatusCount = static_cast<int>(std::size(kStatusTexts));

// Dialog units.
constexpr int kMargin = 7;
constexpr int kGap = 4;
constexpr int kButtonHeight = 14;
constexpr int kNoteHeight = 42;
constexpr int kPanesHeight = 40;
constexpr int kSheetWidth = 228;
constexpr int kStatusHeight = 14;
constexpr int kSplitWidth = 4;

// The text of the tip that the window shows for itself.
bool TellTip(LPARAM lParam) {
    auto* info =
        reinterpret_cast<NMTTDISPINFOW*>(lParam);  // NOLINT(performance-no-int-to-ptr): a message's argument
    if (info->hdr.code != TTN_GETDISPINFOW) return false;
    static wchar_t text[] = L"A tool tip\r\nof two lines";
    info->lpszText = text;
    return true;
}

}  // namespace

GalleryDialog::GalleryDialog()
    : m_noteHot(GLYPH_DISK),
      m_glyphs(DrawGlyphSheet),
      m_shapes(DrawShapeSheet),
      m_texts(DrawTextSheet),
      m_leftPane(DrawPane),
      m_rightPane(DrawPane) {
    constexpr int kControls = 180;
    constexpr int kAnySize = 100;
    TemplateBegin(kAnySize, kAnySize, DialogKind::Popup, kControls);
    AddTopRow();
    m_states.AddTo(*this);
    AddNotes();
    AddMessages();
    Inputs::AddTo(*this);
    Lists::AddTo(*this);
    AddBottom();
}

GalleryDialog::~GalleryDialog() {
    Detach(Window::Destroy);
}

void GalleryDialog::AddTopRow() {
    for (u16 i = 0; i < kThemes; ++i)
        AddControl(ATOM_BUTTON, static_cast<u16>(ID_THEME + i), 0, 0, 1, 1);
    AddControl(ATOM_BUTTON, ID_SMALLER, 0, 0, 1, 1);
    AddControl(ATOM_BUTTON, ID_LARGER, 0, 0, 1, 1);
}

void GalleryDialog::AddNotes() {
    for (const u16 id : {ID_NOTE, ID_NOTE_HOT, ID_NOTE_DISABLED}) {
        DialogControl* control = AddControl(ATOM_BUTTON, id, 0, 0, 1, 1);
        if (id == ID_NOTE_DISABLED) control->style |= WS_DISABLED;
    }
}

void GalleryDialog::AddMessages() {
    for (u16 i = 0; i < kMessageCount; ++i)
        AddControl(ATOM_BUTTON, static_cast<u16>(ID_MESSAGE + i), 0, 0, 1, 1);
    for (u16 i = 0; i < kStatusCount; ++i)
        AddControl(ATOM_BUTTON, static_cast<u16>(ID_SHOW_STATUS + i), 0, 0, 1, 1);
}

void GalleryDialog::AddBottom() {
    for (const u16 id : {ID_GLYPHS, ID_PICTURES, ID_SHAPES, ID_TEXTS, ID_LEFT_PANE, ID_RIGHT_PANE, ID_STATUS})
        AddControl(ATOM_STATIC, id, 0, 0, 1, 1);
    AddControl(ATOM_BUTTON, ID_SPLIT, 0, 0, 1, 1);
}

void GalleryDialog::OnSubclassControls() {
    m_controls = ControlMap(m_hWnd);
    LoadIcons();
    SetTexts();
    WrapButtons();
    m_states.Wrap(m_controls, m_picture.Get());
    m_inputs.Wrap(m_hWnd, m_controls);
    m_lists.Wrap(m_controls);
    m_noteIcon.SubclassWindow(m_controls[ID_NOTE]);
    m_noteIcon.Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(m_picture.Get()));
    m_noteHot.SubclassWindow(m_controls[ID_NOTE_HOT]);
    m_noteHot.m_pose = Pose::Hot;
    m_noteDisabled.SubclassWindow(m_controls[ID_NOTE_DISABLED]);
    for (tvButton_Note* note : {&m_noteIcon, static_cast<tvButton_Note*>(&m_noteHot), &m_noteDisabled}) {
        note->SetNote(
            u"What the button does, told in a sentence that may take a second line and is cut off there.");
    }
    m_glyphs.SubclassWindow(m_controls[ID_GLYPHS]);
    m_pictures.SubclassWindow(m_controls[ID_PICTURES]);
    m_shapes.SubclassWindow(m_controls[ID_SHAPES]);
    m_texts.SubclassWindow(m_controls[ID_TEXTS]);
    m_leftPane.SubclassWindow(m_controls[ID_LEFT_PANE]);
    m_rightPane.SubclassWindow(m_controls[ID_RIGHT_PANE]);
    m_split.SubclassWindow(m_controls[ID_SPLIT]);
    m_status.SubclassWindow(m_controls[ID_STATUS]);
}

void GalleryDialog::WrapButtons() {
    const auto wrap = [this](int first, int count) {
        for (int i = 0; i < count; ++i) {
            m_buttons.push_back(std::make_unique<tvButton>());
            m_buttons.back()->SubclassWindow(m_controls[first + i]);
        }
    };
    wrap(ID_THEME, kThemes);
    wrap(ID_SMALLER, 2);
    wrap(ID_MESSAGE, kMessageCount);
    wrap(ID_SHOW_STATUS, kStatusCount);
    m_buttons.front()->SetTip(u"A tool tip, with a\tshortcut that is cut off");
}

void GalleryDialog::SetTexts() const {
    SetWindowTextW(m_hWnd, L"Gallery");
    const std::vector<tvColorTheme>& themes = TheTheme().m_themes;
    for (int i = 0; i < kThemes; ++i)
        SetWindowTextW(m_controls[ID_THEME + i], Wide(themes[static_cast<std::size_t>(i)].m_name.c_str()));
    SetWindowTextW(m_controls[ID_SMALLER], L"Smaller font");
    SetWindowTextW(m_controls[ID_LARGER], L"Larger font");
    for (int i = 0; i < kMessageCount; ++i)
        SetWindowTextW(m_controls[ID_MESSAGE + i], Wide(kMessages[i].title));
    for (int i = 0; i < kStatusCount; ++i)
        SetWindowTextW(m_controls[ID_SHOW_STATUS + i], Wide(kStatusTexts[i]));
    SetWindowTextW(m_controls[ID_NOTE], L"Note button with an icon");
    SetWindowTextW(m_controls[ID_NOTE_HOT], L"Hot, with a glyph");
    SetWindowTextW(m_controls[ID_NOTE_DISABLED], L"Disabled");
}

void GalleryDialog::LoadIcons() {
    constexpr u16 kPicture = 108;  // 24 pixels, which a button has room for
    m_picture = LoadTintedIcon(kPicture, kNoColor);
}

bool GalleryDialog::OnInitDialog() {
    const bool result = tvBaseDlg::OnInitDialog();
    m_status.SetIdle(u"The standing text", TheTheme().m_icons.Find(ICON_INFORMATION_SMALL), 0);
    TheToolTip().AddTrackingTool(m_hWnd);
    CenterWindow();
    return result;
}

PixelSize GalleryDialog::ToPixels(int x, int y) const {
    return DialogUnitsToPixels(m_font, x, y);
}

void GalleryDialog::OnAutoSize() {
    const int width = kMargin + m_states.Width() + kGap + kSheetWidth + kMargin;
    const int height = kMargin + kButtonHeight + kGap + m_states.Height() + kGap + kNoteHeight + kGap +
                       kButtonHeight + kGap + Inputs::Height() + kGap + Lists::Height() + kGap +
                       kPanesHeight + kGap + kStatusHeight;
    const PixelSize size = ToPixels(width, height);
    RECT rect{0, 0, size.x, size.y};
    AdjustWindowRectEx(&rect, static_cast<DWORD>(GetWindowLongPtrW(m_hWnd, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE)));
    SetWindowPos(m_hWnd, nullptr, 0, 0, rect.right - rect.left, rect.bottom - rect.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void GalleryDialog::Place(int id, int x, int y, int cx, int cy) const {
    const PixelSize at = ToPixels(x, y);
    const PixelSize size = ToPixels(cx, cy);
    SetWindowPos(m_controls[id], nullptr, at.x, at.y, size.x, size.y, SWP_NOZORDER | SWP_NOACTIVATE);
}

void GalleryDialog::PlaceRow(int first, int count, int y, int width) const {
    for (int i = 0; i < count; ++i)
        Place(first + i, kMargin + i * (width + kGap), y, width, kButtonHeight);
}

// It is asked for whenever the window may have another size or font.
void GalleryDialog::OnLayout() {
    RECT client{};
    GetClientRect(m_hWnd, &client);
    if (m_laidOutFont == m_font && EqualRect(&client, &m_laidOut)) return;
    m_laidOut = client;
    m_laidOutFont = m_font;
    LayOut();
}

void GalleryDialog::LayOut() {
    m_controls = ControlMap(m_hWnd);  // a control may have got another window, or one around it
    constexpr int kTopButton = 62;
    constexpr int kNoteButton = 128;
    constexpr int kNoteStep = kNoteButton + kGap;
    int y = kMargin;
    PlaceRow(ID_THEME, kThemes, y, kTopButton);
    Place(ID_SMALLER, kMargin + 6 * (kTopButton + kGap), y, kTopButton, kButtonHeight);
    Place(ID_LARGER, kMargin + 7 * (kTopButton + kGap), y, kTopButton, kButtonHeight);
    y += kButtonHeight + kGap;
    m_states.Place(m_controls, m_font, kMargin, y);
    PlaceSheets();
    y += m_states.Height() + kGap;
    for (int i = 0; i < 3; ++i)
        Place(ID_NOTE + i, kMargin + i * kNoteStep, y, kNoteButton, kNoteHeight);
    constexpr int kStatusButton = 56;
    for (int i = 0; i < kStatusCount; ++i) {
        Place(ID_SHOW_STATUS + i, kMargin + 3 * kNoteStep + kGap + i % 2 * (kStatusButton + kGap),
              y + i / 2 * (kButtonHeight + kGap), kStatusButton, kButtonHeight);
    }
    y += kNoteHeight + kGap;
    PlaceRow(ID_MESSAGE, kMessageCount, y, kTopButton - 3);
    y += kButtonHeight + kGap;
    m_inputs.Place(m_controls, m_font, kMargin, y);
    y += Inputs::Height() + kGap;
    m_lists.Place(m_controls, m_font, kMargin, y);
    PlacePanes();
    PlaceStatusBar();
}

void GalleryDialog::PlaceSheets() const {
    const int x = kMargin + m_states.Width() + kGap;
    int y = kMargin + kButtonHeight + kGap;
    const auto place = [&](int id, int height) {
        Place(id, x, y, kSheetWidth, height);
        y += height + kGap;
    };
    place(ID_GLYPHS, 60);
    place(ID_PICTURES, 22);
    place(ID_SHAPES, 36);
    place(ID_TEXTS, 78);
}

void GalleryDialog::PlacePanes() {
    RECT client{};
    GetClientRect(m_hWnd, &client);
    const PixelSize margin = ToPixels(kMargin, kGap);
    const PixelSize size = ToPixels(kSplitWidth, kPanesHeight);
    const int top = client.bottom - ToPixels(0, kStatusHeight).y - margin.y - size.y;
    const int right = client.right - margin.x;
    if (m_splitX == 0) m_splitX = client.right / 2;
    const auto place = [&](int id, int from, int to) {
        SetWindowPos(m_controls[id], nullptr, from, top, to - from, size.y, SWP_NOZORDER | SWP_NOACTIVATE);
    };
    place(ID_LEFT_PANE, margin.x, m_splitX);
    place(ID_SPLIT, m_splitX, m_splitX + size.x);
    place(ID_RIGHT_PANE, m_splitX + size.x, right);
    m_split.m_marginLeft = ToPixels(60, 0).x;
}

void GalleryDialog::PlaceStatusBar() {
    RECT client{};
    GetClientRect(m_hWnd, &client);
    RECT bar{};
    GetWindowRect(m_status.Handle(), &bar);
    const int height = bar.bottom - bar.top;
    SetWindowPos(m_status.Handle(), nullptr, 0, client.bottom - height, client.right, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT GalleryDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_TVBUTTON_SPLIT) {
        OnSplit();
        return 0;
    }
    if (message == WM_FIRST_PAINT) {
        m_onFirstPaint();
        return 0;
    }
    if (message == WM_NOTIFY && TellTip(lParam)) return 0;
    if (message == WM_COMMAND && OnCommand(LOWORD(wParam))) return 0;
    const LRESULT result = tvBaseDlg::WindowProc(message, wParam, lParam);
    if (message == WM_SYSCOLORCHANGE) {
        // The old picture has to live until the buttons have the new one.
        const tvIconHandle old = std::move(m_picture);
        LoadIcons();
        m_states.SetIcon(m_picture.Get());
        m_noteIcon.Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(m_picture.Get()));
    }
    if (message == WM_PAINT && m_onFirstPaint && !std::exchange(m_painted, true))
        PostMessageW(m_hWnd, WM_FIRST_PAINT, 0, 0);
    return result;
}

bool GalleryDialog::OnCommand(int id) {
    if (id >= ID_THEME && id < ID_THEME + kThemes) return TheTheme().Apply(id - ID_THEME);
    if (id >= ID_MESSAGE && id < ID_MESSAGE + kMessageCount) {
        ShowMessage(id - ID_MESSAGE);
        return true;
    }
    if (id >= ID_SHOW_STATUS && id < ID_SHOW_STATUS + kStatusCount) {
        ShowStatus(id - ID_SHOW_STATUS);
        return true;
    }
    if (id != ID_SMALLER && id != ID_LARGER) return false;
    ChooseFont(id == ID_LARGER ? 1 : -1);
    return true;
}

void GalleryDialog::ChooseFont(int change) {
    constexpr float kLarge = 1.45F;
    LOGFONTW font{};
    GetObjectW(TheTheme().Font(), sizeof font, &font);
    const LONG height = font.lfHeight < 0 ? -font.lfHeight : font.lfHeight;
    font.lfHeight = -std::clamp(height + change, LONG{9}, LONG{18});
    TheTheme().SetFont(font, kLarge);
    OnAutoSize();
    OnLayout();
}

void GalleryDialog::ShowMessage(int which) {
    const tvstring text =
        u"A message that is long enough to be broken into lines. It says what has happened, and what can be "
        u"done "
        u"about it.\r\n\r\nDo you want to go on?";
    tvMessageBox box;
    if (which == kMessageCount - 1) {
        box.SetCheck(u"&Do not ask again", BST_UNCHECKED);
        constexpr int kSeconds = 10;
        box.SetCountDown(kSeconds, IDNO, false);
    }
    const int answer = box.Run(m_hWnd, text, kMessages[which].style, kMessages[which].title);
    tvstring said = u"The answer was: ";
    said += tvMessageBox::GetButtonText(answer, nullptr, false);
    m_status.SetMessage(said, nullptr);
}

void GalleryDialog::ShowStatus(int which) {
    constexpr int kShort = 2000;
    m_status.SetIdle(u"The standing text", TheTheme().m_icons.Find(ICON_INFORMATION_SMALL),
                     which == 2 ? kShort : 0);
    switch (which) {
        case 0:
            m_status.SetMessage(u"A message that stays until another takes its place", nullptr);
            break;
        case 1:
            m_status.SetMessage(u"A warning with an icon of its own",
                                TheTheme().m_icons.Find(ICON_WARNING_SMALL));
            break;
        case 2:
            m_status.SetMessage(u"A message that goes after two seconds", nullptr);
            break;
        default:
            m_status.SetMessage(u"", nullptr);
            break;
    }
}

int GalleryDialog::MessageCount() {
    return kMessageCount;
}

PixelSize GalleryDialog::TipPlace() const {
    constexpr int kNoteRow = 3 * (128 + kGap) + kMargin;
    constexpr int kStatusButtons = 2 * (56 + kGap) + 3 * kGap;
    return ToPixels(kNoteRow + kStatusButtons, kMargin + kButtonHeight + kGap + m_states.Height() + kGap);
}

void GalleryDialog::OnSplit() {
    RECT rect{};
    GetWindowRect(m_split.Handle(), &rect);
    MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&rect), 2);
    m_splitX = rect.left;
    PlacePanes();
}
