// What tests of a user's day share: a program under one of the themes, with a file.
#pragma once

#include "tests/scenarios/file_content.h"
#include "tests/scenarios/user.h"

using Texts = std::vector<tvstring>;

class DayStage : public Scenario, public testing::WithParamInterface<const char16_t*> {
protected:
    void SetUp() override;

    // With a file of this content, and its first item shown if it has one.
    void StartWith(const Content& content);
    // With the file as it is.
    void StartAgain();
    // Starts a program with a file of this name and content, and gives its window a size and place.
    void StartWith(Program& program, const char16_t* name, const Content& content) const;
    static void GiveRoom(const Program& program, const RECT& place);

    // How the item that is shown looks once all is painted and the mouse is elsewhere.
    [[nodiscard]] u64 LookOfDetails() const;

    // Saves, quits and reads the file.
    Content SavedContent();
    Content SavedContent(Program& program, const User& user, const char16_t* name) const;

    Program m_Program;
    User m_User{m_Program};
};

// The item's name as it is in every test, with its fields named after it.
ItemContent MakeItem(const char16_t* name, const Texts& additions = {});

std::string NameOfTheme(const testing::TestParamInfo<const char16_t*>& theme);

inline constexpr const char16_t* kDayThemes[] = {u"Light", u"Dark", u"System Default"};
