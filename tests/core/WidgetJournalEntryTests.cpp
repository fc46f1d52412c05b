#include "core/WidgetJournalEntry.h"
#include "tests/core/SampleJournal.h"

#include <limits>

#include <gmock/gmock.h>

namespace vantel {
namespace {

using ::testing::HasSubstr;
using ::testing::Optional;
using testing::sampleEntry;
using testing::sampleLine;

const std::string completeLine = R"({"id":"00000000-0000-4000-8000-000000000001","accountID":"account-1",)"
                                 R"("action":"completeTodo","todoID":"todo-1","at":788918401})";

std::string replaced(const std::string& part, const std::string& by) {
    std::string line = completeLine;
    return line.replace(line.find(part), part.size(), by);
}

TEST(WidgetJournalEntry, IsWrittenAsOneCompactLineWithItsKeysInOrder) {
    EXPECT_EQ(encodeJournalEntry(sampleEntry(1)), completeLine);
    EXPECT_EQ(completeLine + "\n", sampleLine(1));
}

TEST(WidgetJournalEntry, IsReadBackEqual) {
    WidgetJournalEntry entry = sampleEntry(1);
    entry.id = *parseUuid("E621E1F8-C36C-495A-93FC-0C247A3E6E5F");
    entry.todoID = "line\nfeed, \"quote\", \\, ü, 日本, \u2028, \x01";
    entry.at = instantFromReference(788'918'400.123456);
    const auto line = encodeJournalEntry(entry);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->find('\n'), std::string::npos);
    EXPECT_EQ(decodeJournalEntry(*line), entry);
}

TEST(WidgetJournalEntry, AnEmptyAccountIsWritten) {
    WidgetJournalEntry entry = sampleEntry(1);
    entry.accountID.clear();
    EXPECT_THAT(encodeJournalEntry(entry).value(), HasSubstr(R"("accountID":"",)"));
}

TEST(WidgetJournalEntry, AnInstantThatIsNotFiniteCannotBeWritten) {
    using Limits = std::numeric_limits<double>;
    for (const double seconds : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
        WidgetJournalEntry entry = sampleEntry(1);
        entry.at = instantFromReference(seconds);
        const auto line = encodeJournalEntry(entry);
        ASSERT_FALSE(line);
        EXPECT_EQ(std::get<EncodingError>(line.error()).keyPath, "at");
    }
}

TEST(WidgetJournalEntry, ATextThatIsNotUtf8CannotBeWritten) {
    WidgetJournalEntry entry = sampleEntry(1);
    entry.todoID = "\xC3\x28";
    const auto line = encodeJournalEntry(entry);
    ASSERT_FALSE(line);
    EXPECT_EQ(std::get<EncodingError>(line.error()).keyPath, "todoID");
}

TEST(WidgetJournalEntry, ALineWithoutAccountIsOfNoAccount) {
    for (const char* replacement : {"", R"("accountID":null,)", R"("accountID":"",)"}) {
        const auto entry = decodeJournalEntry(replaced(R"("accountID":"account-1",)", replacement));
        ASSERT_TRUE(entry) << replacement;
        EXPECT_EQ(entry->accountID, "");
        EXPECT_EQ(entry->todoID, "todo-1");
    }
}

TEST(WidgetJournalEntry, UnknownKeysAndTheOrderOfKeysDoNotMatter) {
    EXPECT_EQ(
        decodeJournalEntry(R"({"at":788918401,"x":[1,{"id":2}],"todoID":"todo-1","action":"completeTodo",)"
                           R"("accountID":"account-1","id":"00000000-0000-4000-8000-000000000001"})"),
        sampleEntry(1));
}

TEST(WidgetJournalEntry, TheIdMayBeInLowerCaseAndIsWrittenInUpperCase) {
    const auto entry = decodeJournalEntry(
        replaced("00000000-0000-4000-8000-000000000001", "e621e1f8-c36c-495a-93fc-0c247a3e6e5f"));
    ASSERT_TRUE(entry);
    EXPECT_THAT(encodeJournalEntry(*entry).value(), HasSubstr("E621E1F8-C36C-495A-93FC-0C247A3E6E5F"));
}

TEST(WidgetJournalEntry, EveryOtherKeyIsNeededInItsType) {
    for (const auto& [part, by] : std::initializer_list<std::pair<const char*, const char*>>{
             {R"("id":"00000000-0000-4000-8000-000000000001",)", ""},
             {R"("00000000-0000-4000-8000-000000000001")", "null"},
             {R"("00000000-0000-4000-8000-000000000001")", "1"},
             {"00000000-0000-4000-8000-000000000001", "00000000-0000-4000-8000-00000000000"},
             {R"("account-1")", "1"},
             {R"("action":"completeTodo",)", ""},
             {R"("completeTodo")", "null"},
             {R"("todoID":"todo-1",)", ""},
             {R"("todo-1")", "null"},
             {R"("todo-1")", "1"},
             {R"(,"at":788918401)", ""},
             {"788918401", "null"},
             {"788918401", R"("788918401")"},
             {R"("at")", R"("At")"}})
        EXPECT_FALSE(decodeJournalEntry(replaced(part, by))) << part << " by " << by;
}

TEST(WidgetJournalEntry, WhatIsNotOneObjectIsNotRead) {
    for (const std::string& line :
         {std::string(), std::string(1, '\0'), std::string("null"), std::string("[]"), std::string("{}"),
          completeLine.substr(1), completeLine + "x", completeLine + completeLine})
        EXPECT_FALSE(decodeJournalEntry(line)) << line;
}

TEST(WidgetJournalEntry, EveryPartOfALineButTheWholeIsNotRead) {
    for (std::size_t length = 0; length < completeLine.size(); ++length)
        EXPECT_FALSE(decodeJournalEntry(completeLine.substr(0, length))) << length;
    EXPECT_TRUE(decodeJournalEntry(completeLine));
}

TEST(WidgetJournalEntry, TheOnlyActionIsSpelledExactly) {
    EXPECT_EQ(rawValue(WidgetJournalEntry::Action::completeTodo), "completeTodo");
    EXPECT_THAT(journalAction("completeTodo"), Optional(WidgetJournalEntry::Action::completeTodo));
    for (const char* other :
         {"", "completetodo", "CompleteTodo", "completeTodo ", "completeTod", "reopenTodo"})
        EXPECT_EQ(journalAction(other), std::nullopt) << other;
}

TEST(WidgetJournalEntry, BelongsToExactlyItsAccountAndAnUnboundOneToAnyWhenAllowed) {
    struct Row {
        const char* entryAccount;
        const char* account;
        bool whenAllowed;
        bool whenNot;
    };
    for (const Row& row :
         {Row{"A", "A", true, true}, Row{"A", "B", false, false}, Row{"A", "a", false, false},
          Row{"A", "A ", false, false}, Row{"A", "", false, false}, Row{"", "A", true, false},
          Row{"", "B", true, false}, Row{"", "", true, false}}) {
        WidgetJournalEntry entry = sampleEntry(1);
        entry.accountID = row.entryAccount;
        EXPECT_EQ(entry.belongs(row.account, true), row.whenAllowed)
            << row.entryAccount << "/" << row.account;
        EXPECT_EQ(entry.belongs(row.account, false), row.whenNot) << row.entryAccount << "/" << row.account;
    }
}

TEST(WidgetJournalEntry, AreEqualFieldByField) {
    const WidgetJournalEntry entry = sampleEntry(1);
    std::vector others(4, entry);
    others[0].id = testing::sampleUuid(2);
    others[1].accountID = "B";
    others[2].todoID = "B";
    others[3].at += Seconds(0.5);
    EXPECT_EQ(entry, sampleEntry(1));
    for (const WidgetJournalEntry& other : others)
        EXPECT_NE(other, entry);
}

} // namespace
} // namespace vantel
