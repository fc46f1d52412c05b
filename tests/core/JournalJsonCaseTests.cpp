#include "core/JournalLines.h"
#include "tests/core/JsonCases.h"

#include <set>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

WidgetJournalEntry entryOf(std::uint8_t number) {
    return {.id = {{number}},
            .accountID = "account",
            .action = WidgetJournalEntry::Action::completeTodo,
            .todoID = "todo",
            .at = instantFromReference(number)};
}

std::string lineOf(const WidgetJournalEntry& entry) {
    return encodeJournalEntry(entry).value();
}

bool holdsLineFeed(const JsonCase& json) {
    return json.bytes.contains('\n');
}

/// A journal whose second line of three is given.
std::vector<WidgetJournalEntry> decodedAround(const std::string& line) {
    return decodeJournal(lineOf(entryOf(1)) + "\n" + line + "\n" + lineOf(entryOf(3)) + "\n");
}

TEST(JournalJsonCases, ALineWithAnIgnoredKeyCountsIfItIsValidAndItsNeighboursAlwaysDo) {
    const std::string good = lineOf(entryOf(2));
    for (const JsonCase& json : everyJsonCase()) {
        if (holdsLineFeed(json))
            continue;
        const std::vector<WidgetJournalEntry> all = {entryOf(1), entryOf(2), entryOf(3)};
        const std::vector<WidgetJournalEntry> neighbours = {entryOf(1), entryOf(3)};
        const auto& expected = json.value ? all : neighbours;
        ASSERT_EQ(decodedAround("{\"ignored\":" + json.bytes + "," + good.substr(1)), expected) << json.name;
        ASSERT_EQ(decodedAround(good.substr(0, good.size() - 1) + ",\"ignored\":" + json.bytes + "}"),
                  expected)
            << json.name;
    }
}

struct JournalKey {
    std::string name;
    std::set<JsonValue> taken; ///< no case is an identifier or the name of an action
};

const std::vector<JournalKey> journalKeys = {
    {"id", {}},
    {"accountID", {JsonValue::text, JsonValue::null}}, // companions before 1.0 wrote none
    {"action", {}},
    {"todoID", {JsonValue::text}},
    {"at", {JsonValue::integer, JsonValue::number}}};

/// A line with another value at a key. None of the values holds a comma.
std::string withValue(const std::string& line, const std::string& key, const std::string& value) {
    const std::string member = "\"" + key + "\":";
    const std::size_t start = line.find(member) + member.size();
    return line.substr(0, start) + value + line.substr(line.find_first_of(",}", start));
}

TEST(JournalJsonCases, AtEachKeyALineTakesWhatIsOfItsTypeAndItsNeighboursAlwaysCount) {
    const std::string good = lineOf(entryOf(2));
    for (const JournalKey& key : journalKeys) {
        for (const JsonCase& json : everyJsonCase()) {
            if (holdsLineFeed(json))
                continue;
            const auto entries = decodedAround(withValue(good, key.name, json.bytes));
            const bool isTaken = json.value && key.taken.contains(*json.value);
            ASSERT_EQ(entries.size(), isTaken ? 3U : 2U) << key.name << " " << json.name;
            ASSERT_EQ(entries.front(), entryOf(1)) << key.name << " " << json.name;
            ASSERT_EQ(entries.back(), entryOf(3)) << key.name << " " << json.name;
            const auto again = decodeJournalEntry(lineOf(entries[1]));
            ASSERT_EQ(again, entries[1]) << key.name << " " << json.name;
        }
    }
}

TEST(JournalJsonCases, NoLineAloneIsAnEntryOrReachesItsNeighbours) {
    for (const JsonCase& json : everyJsonCase())
        ASSERT_EQ(decodedAround(json.bytes), (std::vector{entryOf(1), entryOf(3)})) << json.name;
}

TEST(JournalJsonCases, AJournalThatIsCutAnywhereHoldsAllLinesBeforeTheCut) {
    const std::string first = lineOf(entryOf(1)) + "\n";
    const std::string both = first + lineOf(entryOf(2)) + "\n";
    for (std::size_t length = 0; length <= both.size(); ++length) {
        const std::size_t whole =
            (length + 1 >= first.size() ? 1U : 0U) + (length + 1 >= both.size() ? 1U : 0U);
        EXPECT_EQ(decodeJournal(both.substr(0, length)).size(), whole) << length;
    }
}

TEST(JournalJsonCases, ASingleFlippedBitReachesNoOtherLine) {
    const std::string before = lineOf(entryOf(1)) + "\n";
    const std::string line = lineOf(entryOf(2));
    const std::string after = "\n" + lineOf(entryOf(3)) + "\n";
    for (std::size_t bit = 0; bit < line.size() * 8; ++bit) {
        std::string damaged = line;
        damaged[bit / 8] =
            static_cast<char>(static_cast<unsigned char>(damaged[bit / 8]) ^ (1U << (bit % 8)));
        const auto entries = decodeJournal(before + damaged + after);
        ASSERT_GE(entries.size(), 2U) << bit;
        EXPECT_EQ(entries.front(), entryOf(1)) << bit;
        EXPECT_EQ(entries.back(), entryOf(3)) << bit;
        for (const WidgetJournalEntry& entry : entries)
            EXPECT_EQ(decodeJournalEntry(lineOf(entry)), entry) << bit;
    }
}

} // namespace
} // namespace vantel
