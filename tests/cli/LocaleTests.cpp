#include "platform/DisplayWidth.h"
#include "tests/cli/Program.h"

#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using ::testing::HasSubstr;
using ::testing::Not;

/// Every locale renders every view of a full day, with all of its data and with dates that are there.
class LocaleMatrix : public ::testing::TestWithParam<const char*> {
protected:
    LocaleMatrix() { vantelctl.environment["LC_ALL"] = GetParam(); }

    std::string view(const char* kind, const char* family, const char* sample, const char* moment) const {
        const std::string file = dataFile("samples/" + std::string(sample) + ".json").string();
        const Finished finished =
            vantelctl({"view", kind, family, "--json", "--snapshot", file, "--at", moment});
        EXPECT_EQ(finished.status, 0) << finished.error;
        return finished.output;
    }

    Vantelctl vantelctl;
};

TEST_P(LocaleMatrix, TitlesAndNamesComeThroughUnchanged) {
    EXPECT_THAT(view("focus", "medium", "busy-tuesday", "2026-11-17T09:20"),
                HasSubstr("Approve order: 12× Illumina flow cells, quote 2026/4471"));
    EXPECT_THAT(view("group-today", "medium", "busy-tuesday", "2026-11-17T09:20"),
                HasSubstr("Aiko Brandt · PhD"));
}

TEST_P(LocaleMatrix, NoDateIsEmptyAndNoSpaceIsNarrow) {
    for (const std::string& shown : {view("next-up", "medium", "busy-tuesday", "2026-11-17T09:20"),
                                     view("next-up", "small", "evening", "2026-11-17T19:10"),
                                     view("group-today", "medium", "busy-tuesday", "2026-11-17T09:20"),
                                     view("focus", "small", "all-clear", "2026-11-18T12:00")}) {
        EXPECT_THAT(shown, Not(HasSubstr(R"("text":"")")));
        EXPECT_THAT(shown, Not(HasSubstr("\u202f")));
    }
}

/// The lines of a card, from its upper edge to its lower one.
std::vector<std::string> cardOf(const std::string& output) {
    std::vector<std::string> lines;
    std::istringstream stream(output);
    for (std::string line;
         std::getline(stream, line) && !(lines.size() > 1 && lines.back().starts_with("╰"));)
        lines.push_back(line);
    return lines;
}

TEST_P(LocaleMatrix, TheTerminalCardsHaveStraightEdges) {
    for (const char* kind : {"focus", "next-up", "group-today"}) {
        const std::string file = dataFile("samples/busy-tuesday.json").string();
        const auto card = cardOf(
            vantelctl({"view", kind, "medium", "--snapshot", file, "--at", "2026-11-17T09:20"}).output);
        ASSERT_GT(card.size(), 5U);
        EXPECT_TRUE(card.front().starts_with("╭─") && card.back().ends_with("─╯"));
        for (const std::string& line : card)
            EXPECT_EQ(displayWidth(line), displayWidth(card.front())) << line;
    }
}

INSTANTIATE_TEST_SUITE_P(Locales, LocaleMatrix,
                         ::testing::Values("en_US.UTF-8", "en_GB.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8",
                                           "ja_JP.UTF-8", "ar_EG.UTF-8", "fa_IR.UTF-8", "th_TH.UTF-8",
                                           "hi_IN.UTF-8", "C"));

TEST(Locale, EachHasItsOwnDates) {
    struct Row {
        const char* locale;
        const char* text;
    };
    for (const Row& row : {Row{"en_US.UTF-8", "Wed, Nov 18: Lab tour for visitors · 9:30 AM"},
                           Row{"en_GB.UTF-8", "Wed, 18 Nov: Lab tour for visitors · 09:30"},
                           Row{"de_DE.UTF-8", "Mi., 18. Nov.: Lab tour for visitors · 09:30"},
                           Row{"ja_JP.UTF-8", "11月18日(水): Lab tour for visitors · 9:30"},
                           Row{"fa_IR.UTF-8", "آبان"}, Row{"th_TH.UTF-8", "18 พ.ย."}}) {
        Vantelctl vantelctl;
        vantelctl.environment["LC_ALL"] = row.locale;
        const std::string tourOnly =
            R"({"version":1,"generatedAt":816500000,"tasks":[],"triageCount":0,"snoozedCount":0,"allDayChips":[],)"
            R"("horizon":[],"events":[{"id":"e","title":"Lab tour for visitors","start":816683400,)"
            R"("linkedOpenTaskCount":0}]})";
        const Finished finished = vantelctl(
            {"view", "next-up", "medium", "--json", "--snapshot", "-", "--at", "2026-11-16T19:10"}, tourOnly);
        EXPECT_THAT(finished.output, HasSubstr(row.text)) << row.locale;
    }
}

TEST(Locale, FollowsThePosixOrderOfVariables) {
    Vantelctl vantelctl;
    vantelctl.environment.erase("LC_ALL");
    const std::string file = dataFile("samples/busy-tuesday.json").string();
    const std::vector<std::string> view = {"view",       "next-up", "small", "--json",
                                           "--snapshot", file,      "--at",  "2026-11-17T13:00"};
    vantelctl.environment["LANG"] = "en_US.UTF-8";
    EXPECT_THAT(vantelctl(view).output, HasSubstr("NEXT · 1:00 PM"));
    vantelctl.environment["LC_TIME"] = "de_DE.UTF-8";
    EXPECT_THAT(vantelctl(view).output, HasSubstr("NEXT · 13:00"));
    vantelctl.environment["LC_ALL"] = "en_US.UTF-8";
    EXPECT_THAT(vantelctl(view).output, HasSubstr("NEXT · 1:00 PM"));
    vantelctl.environment["LC_ALL"] = "";
    EXPECT_THAT(vantelctl(view).output, HasSubstr("NEXT · 13:00"));
}

} // namespace
} // namespace vantel
