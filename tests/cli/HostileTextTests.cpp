#include "platform/JsonWriter.h"
#include "tests/cli/Program.h"
#include "tests/fakes/HostileTexts.h"
#include "tests/fakes/ReadFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using Words = std::vector<std::string>;

void writeTask(JsonWriter& json, const std::string& text) {
    json.beginObject();
    json.field("id", text);
    json.field("summary", text);
    json.field("deadline", 816'602'400);
    json.field("priorityRank", 0);
    json.field("priorityScore", 0.5);
    json.endObject();
}

void writeEvent(JsonWriter& json, const std::string& text) {
    json.beginObject();
    json.field("id", text);
    json.field("title", text);
    json.field("start", 816'602'400);
    json.field("location", text);
    json.field("joinProvider", text);
    json.field("linkedOpenTaskCount", 1);
    json.endObject();
}

void writeHorizonItem(JsonWriter& json, const std::string& text) {
    json.beginObject();
    json.field("id", text);
    json.field("day", 816'602'400);
    json.field("label", text);
    json.field("subject", text);
    json.field("kind", "absence");
    json.endObject();
}

void writeArray(JsonWriter& json, const char* key, void (*write)(JsonWriter&, const std::string&),
                const std::vector<HostileText>& texts) {
    json.key(key);
    json.beginArray();
    for (const HostileText& hostile : texts)
        write(json, hostile.text);
    json.endArray();
}

/// A day of nothing but such texts.
std::string documentOf(const std::vector<HostileText>& texts) {
    JsonWriter json;
    json.beginObject();
    json.field("version", 1);
    json.field("accountID", texts.front().text);
    json.field("generatedAt", 816'595'500);
    writeArray(json, "tasks", writeTask, texts);
    json.field("triageCount", 1);
    json.field("snoozedCount", 1);
    writeArray(json, "events", writeEvent, texts);
    writeArray(json, "allDayChips", [](JsonWriter&, const std::string&) {}, {});
    writeArray(json, "horizon", writeHorizonItem, texts);
    json.endObject();
    return json.finish().value();
}

class HostileTextTest : public ::testing::Test {
protected:
    Finished run(Words words) const {
        words.insert(words.end(), {"--at", "2026-11-17T09:20"});
        return vantelctl(words);
    }

    /// Runs it in both forms, which both have to succeed without a character that a terminal obeys.
    void expectHarmless(Words words) const {
        for (const bool isJson : {false, true}) {
            if (isJson)
                words.emplace_back("--json");
            const Finished finished = vantelctl(words);
            EXPECT_EQ(finished.status, 0) << ::testing::PrintToString(words) << finished.error;
            expectHarmlessOutput(finished);
        }
    }

    static void expectHarmlessOutput(const Finished& finished) {
        EXPECT_EQ(firstThatATerminalObeys(finished.output), std::nullopt);
        EXPECT_EQ(firstThatATerminalObeys(finished.error), std::nullopt);
    }

    Vantelctl vantelctl;
};

TEST_F(HostileTextTest, NoAnswerHoldsACharacterThatATerminalObeys) {
    ASSERT_EQ(vantelctl({"snapshot", "write", "-"}, documentOf(hostileTexts())).status, 0);
    const Words moment = {"--at", "2026-11-17T09:20"};
    for (Words words : {Words{"view", "focus", "medium"}, Words{"view", "focus", "small"},
                        Words{"view", "next-up", "medium"}, Words{"view", "next-up", "small"},
                        Words{"view", "group-today", "medium"}, Words{"view", "triage", "small"},
                        Words{"timeline"}, Words{"buckets"}}) {
        words.insert(words.end(), moment.begin(), moment.end());
        expectHarmless(words);
    }
    expectHarmless({"staleness"});
    expectHarmless({"snapshot", "show"});
}

TEST_F(HostileTextTest, WhatIsShownReadsBackAsItWas) {
    const std::string document = documentOf(hostileTexts());
    ASSERT_EQ(vantelctl({"snapshot", "write", "-"}, document).status, 0);
    const auto stored = readFile(vantelctl.container() / "widget-snapshot.json");
    const Finished shown = vantelctl({"snapshot", "show"});
    ASSERT_EQ(vantelctl({"snapshot", "write", "-"}, shown.output).status, 0);
    EXPECT_EQ(readFile(vantelctl.container() / "widget-snapshot.json"), stored);
}

TEST_F(HostileTextTest, NoArgumentReachesTheTerminalAsItIs) {
    for (const HostileText& hostile : hostileTexts()) {
        if (hostile.attempt != "terminal sequence" || hostile.text.contains('\0'))
            continue;
        expectHarmlessOutput(vantelctl({"view", hostile.text, "medium"}));
        expectHarmlessOutput(vantelctl({"snapshot", "decode", hostile.text}));
        expectHarmlessOutput(vantelctl({"link", "join", hostile.text}));
        expectHarmless({"complete", "id " + hostile.text, "--account", hostile.text});
    }
    expectHarmless({"journal", "list"});
}

TEST_F(HostileTextTest, JsonEscapesWhatMayBeObeyedAndNothingBesideIt) {
    struct Row {
        std::string character;
        std::string written;
    };
    for (const auto& [character, written] : std::vector<Row>{
             {"\x7F", "\\u007f"},   {"\u0080", "\\u0080"}, {"\u009F", "\\u009f"}, {"\u00A0", "\u00A0"},
             {"\u061B", "\u061B"},  {"\u061C", "\\u061c"}, {"\u061D", "\u061D"},  {"\u200D", "\u200D"},
             {"\u200E", "\\u200e"}, {"\u200F", "\\u200f"}, {"\u2010", "\u2010"},  {"\u2027", "\u2027"},
             {"\u2028", "\\u2028"}, {"\u202E", "\\u202e"}, {"\u202F", "\u202F"},  {"\u2065", "\u2065"},
             {"\u2066", "\\u2066"}, {"\u2069", "\\u2069"}, {"\u206A", "\\u206a"}, {"\u206F", "\\u206f"},
             {"\u2070", "\u2070"},  {"\uFFF8", "\uFFF8"},  {"\uFFF9", "\\ufff9"}, {"\uFFFA", "\\ufffa"},
             {"\uFFFB", "\\ufffb"}, {"\uFFFC", "\uFFFC"},  {"\uFFFD", "\uFFFD"},  {"\uFF21", "\uFF21"}}) {
        const Finished finished =
            vantelctl(Words{"journal", "append", "a" + character + "b", "--account", "A", "--json"});
        EXPECT_THAT(finished.output, ::testing::HasSubstr("\"a" + written + "b\"")) << written;
    }
}

TEST_F(HostileTextTest, AHugeTitleIsShownLikeAnyOther) {
    const std::string document = documentOf({hugeTexts().front()});
    ASSERT_EQ(vantelctl({"snapshot", "write", "-"}, document).status, 0);
    for (const Words& words : {Words{"view", "focus", "medium"}, Words{"view", "next-up", "medium"}}) {
        const Finished finished = run(words);
        EXPECT_EQ(finished.status, 0) << finished.error;
        EXPECT_THAT(finished.output, ::testing::HasSubstr("aaaaaaaa"));
        EXPECT_LT(finished.output.size(), 50'000U);
        expectHarmlessOutput(finished);
    }
}

} // namespace
} // namespace vantel
