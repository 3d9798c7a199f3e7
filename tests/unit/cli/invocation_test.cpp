#include "cli/invocation.h"

#include <gtest/gtest.h>

#include "cli/failure.h"

namespace {

using Words = std::vector<std::string>;

std::string RefusalOf(const Words& words) {
    try {
        const Invocation invocation = Invocation::Parse(words);
        if (invocation.Command() != nullptr) invocation.RequireArguments();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Code(), ExitCode::WrongUsage);
        return failure.what();
    }
    return {};
}

TEST(Invocation, TakesOptionsAnywhere) {
    for (const Words& words : {Words{"ls", "--json", "a.vmr"}, Words{"ls", "a.vmr", "--json"},
                               Words{"--no-input", "--codepage", "1252", "ls", "--json", "a.vmr"}}) {
        const Invocation invocation = Invocation::Parse(words);
        ASSERT_NE(invocation.Command(), nullptr);
        EXPECT_STREQ(invocation.Command()->name, "ls");
        EXPECT_TRUE(invocation.Has(Option::Json));
        ASSERT_EQ(invocation.CountArguments(), 1u);
        EXPECT_EQ(invocation.Argument(0), "a.vmr");
    }
}

TEST(Invocation, TakesValuesInBothForms) {
    const Words words{"add", "f", "n", "--program=a=b", "--username", "--x", "--note", "1", "--note=2"};
    const Invocation invocation = Invocation::Parse(words);
    EXPECT_EQ(invocation.Value(Option::Program), "a=b");
    EXPECT_EQ(invocation.Value(Option::UserName), "--x");
    EXPECT_EQ(invocation.Values(Option::Note), (Words{"1", "2"}));
}

TEST(Invocation, TakesAnEmptyValue) {
    EXPECT_EQ(Invocation::Parse({"new", "--name=", "f"}).Value(Option::Name), "");
    EXPECT_EQ(Invocation::Parse({"new", "--name", "", "f"}).Value(Option::Name), "");
}

TEST(Invocation, TakesEverythingBehindTwoDashesAsArguments) {
    const Invocation invocation = Invocation::Parse({"rm", "f", "--", "--json", "-n", "--"});
    ASSERT_EQ(invocation.CountArguments(), 4u);
    EXPECT_EQ(invocation.Argument(1), "--json");
    EXPECT_EQ(invocation.Argument(3), "--");
}

TEST(Invocation, TakesNamesThatLookLikeSyntaxAsTheyAre) {
    const Invocation invocation = Invocation::Parse({"rm", "f", "[a,b]", "++", "-", "%x", "/y"});
    EXPECT_EQ(invocation.CountArguments(), 6u);
    EXPECT_EQ(invocation.Argument(1), "[a,b]");
    EXPECT_EQ(invocation.Argument(3), "-");
}

TEST(Invocation, TakesShortOptions) {
    EXPECT_TRUE(Invocation::Parse({"get", "-n", "f", "i", "name"}).Has(Option::NoLineEnd));
    EXPECT_TRUE(Invocation::Parse({"ls", "-0", "f"}).Has(Option::NullEnds));
    EXPECT_TRUE(Invocation::Parse({"ls", "-0h"}).Has(Option::Help));
}

TEST(Invocation, FindsCommandsOfTwoWords) {
    const Invocation invocation = Invocation::Parse({"lang", "--json", "check", "de.ini"});
    ASSERT_NE(invocation.Command(), nullptr);
    EXPECT_STREQ(invocation.Command()->name, "lang check");
    EXPECT_EQ(invocation.CountArguments(), 1u);
}

TEST(Invocation, HasNoCommandForOptionsOfTheProgram) {
    const Invocation invocation = Invocation::Parse({"--version"});
    EXPECT_EQ(invocation.Command(), nullptr);
    EXPECT_TRUE(invocation.Has(Option::Version));
}

TEST(Invocation, RefusesWhatTheTableDoesNotHave) {
    EXPECT_NE(RefusalOf({"nosuch"}), "");
    EXPECT_NE(RefusalOf({"lang"}), "");
    EXPECT_NE(RefusalOf({"lang", "nosuch", "f"}), "");
    EXPECT_NE(RefusalOf({"ls", "f", "--reveal"}), "");
    EXPECT_NE(RefusalOf({"ls", "f", "--version"}), "");
    EXPECT_NE(RefusalOf({"ls", "f", "-n"}), "");
    EXPECT_NE(RefusalOf({"--json"}), "");
}

TEST(Invocation, RefusesAWrongNumberOfArguments) {
    EXPECT_NE(RefusalOf({"ls"}), "");
    EXPECT_NE(RefusalOf({"ls", "a", "b"}), "");
    EXPECT_NE(RefusalOf({"rm", "f"}), "");
    EXPECT_NE(RefusalOf({"set", "f", "i"}), "");
    EXPECT_NE(RefusalOf({"set", "f", "i", "name", "v", "w"}), "");
    EXPECT_EQ(RefusalOf({"set", "f", "i", "name"}), "");
    EXPECT_EQ(RefusalOf({"rm", "f", "1", "2", "3"}), "");
    EXPECT_EQ(RefusalOf({"lang", "text", "f", "s", "k"}), "");
    EXPECT_EQ(RefusalOf({"lang", "text", "f", "s", "k", "0", "1"}), "");
}

TEST(Invocation, RefusesAMissingASurplusAndASecondValue) {
    EXPECT_NE(RefusalOf({"new", "f", "--name"}), "");
    EXPECT_NE(RefusalOf({"ls", "f", "--json=yes"}), "");
    EXPECT_NE(RefusalOf({"new", "f", "--name", "a", "--name", "b"}), "");
}

TEST(Invocation, NeverRepeatsAValueThatMayBeASecret) {
    for (const Words& words :
         {Words{"ls", "f", "--password=hunter2"}, Words{"ls", "f", "--password", "hunter2"},
          Words{"ls", "f", "-phunter2"}, Words{"ls", "f", "--password-stdin=hunter2"}}) {
        const std::string message = RefusalOf(words);
        EXPECT_NE(message, "");
        EXPECT_EQ(message.find("hunter2"), std::string::npos) << message;
    }
}

}  // namespace
