#include "core/JournalLines.h"
#include "tests/core/JsonCases.h"

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
