#include "tests/scenarios/day_stage.h"

namespace {

constexpr const char16_t* kPassword = u"secret";
constexpr const char16_t* kFile = u"day.VMR";
constexpr int kSortCombo = 2003;
constexpr RECT kWholePlace{20, 20, 1000, 760};

void OpenFile(Program& program, const tvstring& path) {
    ASSERT_NE(program.StartAsking(tvstring(u"\"").append(path).append(u"\"")), nullptr);
    TypeText(kPassword);
    Type(VK_RETURN);
    Require([&] { return program.WaitForNoDialog(); }, "the question stays");
    Require([&] { return program.Sees(kSortCombo); }, "the file is not opened");
}

}  // namespace

void DayStage::SetUp() {
    Scenario::SetUp();
    UseStoredTheme(GetParam());
}

void DayStage::GiveRoom(const Program& program, const RECT& place) {
    SetWindowPos(program.Main(), nullptr, static_cast<int>(place.left), static_cast<int>(place.top),
                 static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void DayStage::StartWith(const Content& content) {
    StartWith(m_Program, kFile, content);
    GiveRoom(m_Program, kWholePlace);
    if (!content.empty()) m_User.Select(List::Items, 0);
}

void DayStage::StartAgain() {
    OpenFile(m_Program, InFolder(kFile));
    GiveRoom(m_Program, kWholePlace);
}

void DayStage::StartWith(Program& program, const char16_t* name, const Content& content) const {
    WriteContent(InFolder(name), kPassword, content);
    OpenFile(program, InFolder(name));
}

u64 DayStage::LookOfDetails() const {
    m_User.PointAtNothing();
    u64 look = 0;
    const auto isTheSame = [&] {
        RedrawWindow(m_User.RightPane(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        const u64 before = std::exchange(look, LookOf(m_User.RightPane()));
        return look == before;
    };
    Require(isTheSame, "the item is painted again and again");
    return look;
}

Content DayStage::SavedContent() {
    return SavedContent(m_Program, m_User, kFile);
}

Content DayStage::SavedContent(Program& program, const User& user, const char16_t* name) const {
    program.Activate();
    if (user.IsChanged()) user.Save();
    EXPECT_TRUE(User::Quit(program));
    return ReadContent(InFolder(name), kPassword);
}

ItemContent MakeItem(const char16_t* name, const Texts& additions) {
    const auto with = [name](const char16_t* end) { return tvstring(name).append(end); };
    return {name, with(u".exe"), with(u" user"), with(u" pass"), additions};
}

std::string NameOfTheme(const testing::TestParamInfo<const char16_t*>& theme) {
    std::string name;
    for (const char16_t unit : std::u16string_view(theme.param))
        if (unit != u' ') name += static_cast<char>(unit);
    return name;
}
