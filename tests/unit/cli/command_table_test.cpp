#include "cli/command_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>

#include "cli/help.h"

namespace {

TEST(CommandTable, HasEachOptionAtItsPlace) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(Option::Count); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(InfoOf(static_cast<Option>(i)).id), i);
    }
}

TEST(CommandTable, HasNoCommandTwice) {
    std::set<std::string_view> names;
    for (const CommandInfo& command : Commands())
        EXPECT_TRUE(names.insert(command.name).second) << command.name;
}

// The parser relies on it: what stands behind a short option is not taken for its value.
TEST(CommandTable, HasNoShortOptionWithAValue) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(Option::Count); ++i) {
        const OptionInfo& info = InfoOf(static_cast<Option>(i));
        EXPECT_TRUE(info.letter == 0 || info.value == nullptr) << info.name;
    }
}

TEST(CommandTable, LetsNoArgumentAndNoOptionTakeASecret) {
    for (const OptionInfo& info : {InfoOf(Option::PasswordStdin), InfoOf(Option::SecretStdin)})
        EXPECT_EQ(info.value, nullptr);
    for (const OptionInfo& info :
         {InfoOf(Option::PasswordFile), InfoOf(Option::NewPasswordFile), InfoOf(Option::SecretFile)})
        EXPECT_STREQ(info.value, "F");
}

TEST(Help, NamesEveryCommand) {
    const std::string help = ProgramHelp();
    for (const CommandInfo& command : Commands())
        EXPECT_NE(help.find("  " + std::string(command.name) + " "), std::string::npos) << command.name;
}

TEST(Help, NamesTheArgumentsAndOptionsOfACommand) {
    for (const CommandInfo& command : Commands()) {
        const std::string help = CommandHelp(command);
        for (const ArgumentInfo& argument : command.arguments)
            EXPECT_NE(help.find(argument.name), std::string::npos);
        for (const Option option : command.options)
            EXPECT_NE(help.find(OptionForms(InfoOf(option))), std::string::npos);
    }
}

TEST(Help, KeepsToEightyColumns) {
    std::string all = ProgramHelp() + ExitCodeList();
    for (const CommandInfo& command : Commands())
        all += CommandHelp(command);
    std::size_t column = 0;
    for (const char c : all) {
        column = c == '\n' ? 0 : column + 1;
        ASSERT_LT(column, 80u);
    }
}

TEST(Help, ShowsHowArgumentsRepeat) {
    const auto synopsis = [](std::string_view name) {
        const auto commands = Commands();
        return Synopsis(*std::find_if(commands.begin(), commands.end(),
                                      [name](const CommandInfo& command) { return command.name == name; }));
    };
    EXPECT_EQ(synopsis("rm"), "vmr rm [options] FILE ITEM ...");
    EXPECT_EQ(synopsis("set"), "vmr set [options] FILE ITEM FIELD [VALUE]");
    EXPECT_EQ(synopsis("lang text"), "vmr lang text [options] LANGFILE SECTION KEY [ARG ...]");
}

TEST(Help, ListsTheExitCodes) {
    EXPECT_TRUE(ExitCodeList().starts_with("  0  done\n  1  other failure\n"));
    EXPECT_NE(ExitCodeList().find("\n130  interrupted\n"), std::string::npos);
}

TEST(ManualPage, IsTheOneStoredInTheDocumentation) {
    std::ifstream file("docs/vmr.1", std::ios::binary);
    const std::string stored((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    EXPECT_EQ(stored, ManualPage()) << "to renew it: vmr --man > docs/vmr.1";
}

}  // namespace
