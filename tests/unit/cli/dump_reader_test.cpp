#include "cli/dump_reader.h"

#include <gtest/gtest.h>

#include "cli/failure.h"
#include "cli/json_reader.h"

namespace {

DumpedDatabase Read(const std::string& json) {
    DumpedDatabase dumped;
    ReadDump(json, dumped);
    return dumped;
}

std::string WithItem(const std::string& item) {
    return R"({"version":1,"name":"n","items":[)" + item + "]}";
}

u64 DateOf(const std::string& members) {
    return Read(WithItem(R"({"name":"a",)" + members + R"("entries":[]})")).items.front().m_Date;
}

TEST(ReadDump, TakesNameItemsAndEntries) {
    const DumpedDatabase dumped = Read(WithItem(
        R"({"name":"a","date":"0x0000000000000007","entries":[{"type":6,"text":"x"},{"text":"","type":3}]})"));
    EXPECT_EQ(dumped.name, u"n");
    ASSERT_EQ(dumped.items.size(), 1u);
    const VMRD_Item& item = dumped.items.front();
    EXPECT_EQ(item.m_Name, u"a");
    EXPECT_EQ(item.m_Date, 7u);
    ASSERT_EQ(item.m_Count, 2);
    EXPECT_EQ(item.m_Head->m_Type, VMRD_T_ADDITION);
    EXPECT_EQ(item.m_Head->m_Text, u"x");
    EXPECT_EQ(item.m_Head->m_Next->m_Type, VMRD_T_PROGRAM);
}

TEST(ReadDump, TakesADatabaseWithoutNameAndItems) {
    const DumpedDatabase dumped = Read(R"({"version":1,"items":[]})");
    EXPECT_TRUE(dumped.name.empty());
    EXPECT_TRUE(dumped.items.empty());
}

TEST(ReadDump, PrefersTheDateToItsReadableForm) {
    EXPECT_EQ(DateOf(R"("modified":"2024-09-05T10:16:36","date":"0x7",)"), 7u);
    EXPECT_EQ(DateOf(R"("date":"0x7","modified":"2024-09-05T10:16:36",)"), 7u);
    EXPECT_EQ(DateOf(R"("modified":"1601-01-01T00:00:01",)"), 10'000'000u);
    EXPECT_EQ(DateOf(R"("date":"0xffffffffffffffff","modified":null,)"), 0xFFFF'FFFF'FFFF'FFFFu);
}

TEST(ReadDump, GivesAnItemWithoutDateThePresentOne) {
    EXPECT_GT(DateOf(""), 133'000'000'000'000'000u);
}

TEST(ReadDump, PassesOverMembersThatItDoesNotKnow) {
    EXPECT_EQ(
        Read(R"({"x":[{"version":9}],"version":1,"items":[{"name":"a","y":{},"entries":[]}]})").items.size(),
        1u);
}

TEST(ReadDump, RefusesWhatIsNoDump) {
    for (const std::string json :
         {"", "[]", "{}", R"({"version":1})", R"({"items":[]})", R"({"version":2,"items":[]})",
          R"({"version":"1","items":[]})", R"({"version":1,"items":[]} x)", R"({"version":1,"items":{}})",
          R"({"version":1,"name":3,"items":[]})"}) {
        EXPECT_THROW(Read(json), JsonError) << json;
    }
}

TEST(ReadDump, RefusesItemsAndEntriesThatAreIncomplete) {
    for (const std::string item :
         {R"({"entries":[]})", R"({"name":"a","entries":[{"type":3}]})",
          R"({"name":"a","entries":[{"text":"x"}]})", R"({"name":"a","entries":[{"type":2,"text":"x"}]})",
          R"({"name":"a","entries":[{"type":7,"text":"x"}]})", R"({"name":"a","date":"7"})",
          R"({"name":"a","date":7})", R"({"name":"a","modified":"yesterday"})"}) {
        EXPECT_THROW(Read(WithItem(item)), JsonError) << item;
    }
}

TEST(ReadDump, RefusesATextThatTheFormatCannotHold) {
    const auto entry = [](std::size_t length) {
        return WithItem(R"({"name":"a","entries":[{"type":3,"text":")" + std::string(length, 'x') +
                        R"("}]})");
    };
    EXPECT_EQ(Read(entry(65535)).items.front().m_Head->m_Text.size(), 65535u);
    try {
        Read(entry(65536));
        FAIL() << "not refused";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Code(), ExitCode::FormatLimit);
    }
}

}  // namespace
