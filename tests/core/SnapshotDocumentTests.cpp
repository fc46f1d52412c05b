#include "core/SnapshotDocument.h"
#include "platform/SystemCalendar.h"
#include "tests/core/RandomSnapshot.h"

#include <limits>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

constexpr std::string_view emptyDay =
    R"({"version":1,"generatedAt":0,"tasks":[],"triageCount":0,"snoozedCount":0,)"
    R"("events":[],"allDayChips":[],"horizon":[]})";

/// The empty day with one piece of its text exchanged.
std::string emptyDayWith(std::string_view piece, std::string_view replacement) {
    std::string document(emptyDay);
    return document.replace(document.find(piece), piece.size(), replacement);
}

/// Why a document does not decode; "decodes" when it does.
std::string failureOf(std::string_view document) {
    const auto snapshot = decodeSnapshot(document);
    return snapshot ? "decodes" : message(snapshot.error());
}

WidgetSnapshot snapshotWith(std::vector<WidgetTask> tasks) {
    return {.version = 1,
            .accountID = "",
            .generatedAt = instantFromReference(0),
            .tasks = std::move(tasks),
            .triageCount = 0,
            .snoozedCount = 0,
            .events = {},
            .allDayChips = {},
            .horizon = {}};
}

WidgetSnapshot roundTrip(const WidgetSnapshot& snapshot) {
    return decodeSnapshot(encodeSnapshot(snapshot).value()).value();
}

TEST(SnapshotDocument, ADocumentOfEmptyArraysWithoutItsOptionalKeysDecodes) {
    const auto snapshot = decodeSnapshot(emptyDay);
    ASSERT_TRUE(snapshot);
    EXPECT_EQ(snapshot->accountID, "");
    EXPECT_FALSE(snapshot->lastSyncAt);
    EXPECT_FALSE(snapshot->recap);
    EXPECT_EQ(*snapshot, snapshotWith({}));
}

TEST(SnapshotDocument, ADocumentWithoutHorizonDoesNotDecode) {
    EXPECT_EQ(failureOf(emptyDayWith(R"(,"horizon":[])", "")), "horizon: missing");
    EXPECT_EQ(failureOf(emptyDayWith(R"("horizon":[])", R"("horizon":null)")), "horizon: null");
}

TEST(SnapshotDocument, ANullDeadlineIsAbsentAndIsLeftOutWhenWrittenAgain) {
    const auto snapshot = decodeSnapshot(emptyDayWith(
        R"("tasks":[])",
        R"("tasks":[{"id":"a","summary":"b","deadline":null,"priorityRank":0,"priorityScore":0}])"));
    ASSERT_TRUE(snapshot);
    EXPECT_FALSE(snapshot->tasks.at(0).deadline);
    EXPECT_EQ(encodeSnapshot(*snapshot).value().find("deadline"), std::string::npos);
}

TEST(SnapshotDocument, ATaskWithoutAScoreMakesTheWholeDocumentUndecodable) {
    const std::string good = R"({"id":"a","summary":"b","priorityRank":0,"priorityScore":0})";
    const std::string bad = R"({"id":"a","summary":"b","priorityRank":0})";
    const auto tasks = [&](const std::string& last) {
        return R"("tasks":[)" + good + "," + good + "," + good + "," + last + "]";
    };
    EXPECT_EQ(failureOf(emptyDayWith(R"("tasks":[])", tasks(good))), "decodes");
    EXPECT_EQ(failureOf(emptyDayWith(R"("tasks":[])", tasks(bad))), "tasks[3].priorityScore: missing");
}

TEST(SnapshotDocument, AKindOfAnotherSpellingMakesTheWholeDocumentUndecodable) {
    const auto withKind = [](std::string_view kind) {
        return emptyDayWith(R"("horizon":[])",
                            R"("horizon":[{"id":"a","day":0,"label":"b","subject":"c","kind":")" +
                                std::string(kind) + R"("}])");
    };
    for (const char* kind : {"personDate", "grantDeadline", "grantMilestone", "absence"})
        EXPECT_EQ(failureOf(withKind(kind)), "decodes") << kind;
    for (const char* kind : {"", "PersonDate", "persondate", "ABSENCE", "absence ", " absence", "absences",
                             "person_date", "0", "null", "holiday", "absence\\u0000"})
        EXPECT_EQ(failureOf(withKind(kind)), "horizon[0].kind: not a known kind") << kind;
}

TEST(SnapshotDocument, AnyVersionDecodesHere) {
    for (const std::int64_t version :
         {std::int64_t{2}, std::int64_t{0}, std::int64_t{-1}, largest, smallest}) {
        const auto snapshot =
            decodeSnapshot(emptyDayWith(R"("version":1)", R"("version":)" + std::to_string(version)));
        ASSERT_TRUE(snapshot) << version;
        EXPECT_EQ(snapshot->version, version);
    }
}

TEST(SnapshotDocument, AnInstantOfZeroIsTheYear2001) {
    const SystemCalendar utc(cctz::utc_time_zone());
    EXPECT_EQ(decodeSnapshot(emptyDay)->generatedAt, utc.date(2001, 1, 1, 0));
}

TEST(SnapshotDocument, HalfASecondSurvivesReadingAndWriting) {
    const SystemCalendar utc(cctz::utc_time_zone());
    const auto snapshot = decodeSnapshot(emptyDayWith(R"("generatedAt":0)", R"("generatedAt":788918400.5)"));
    ASSERT_TRUE(snapshot);
    EXPECT_EQ(snapshot->generatedAt, *utc.date(2026, 1, 1, 0) + Seconds(0.5));
    EXPECT_EQ(roundTrip(*snapshot), *snapshot);
    EXPECT_NE(encodeSnapshot(*snapshot)->find(R"("generatedAt":788918400.5,)"), std::string::npos);
}

TEST(SnapshotDocument, AnySnapshotReadsBackEqual) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 1000; ++i) {
        const WidgetSnapshot snapshot = testing::randomSnapshot(random);
        EXPECT_EQ(roundTrip(snapshot), snapshot);
    }
}

TEST(SnapshotDocument, ValuesOfAnySizeReadBackEqual) {
    WidgetSnapshot snapshot = snapshotWith({});
    for (const double number :
         {1e300, -1e300, 5e-324, 1.7976931348623157e308, 0x1p63, -0x1p63, 0.1, 1e21, -0.0})
        snapshot.tasks.push_back({.id = "",
                                  .summary = "",
                                  .deadline = instantFromReference(number),
                                  .priorityRank = number > 0 ? largest : smallest,
                                  .priorityScore = number,
                                  .completedAt = instantFromReference(-number)});
    snapshot.version = smallest;
    snapshot.triageCount = largest;
    snapshot.recap = WidgetRecap{largest, smallest, largest, smallest, largest, smallest};
    EXPECT_EQ(roundTrip(snapshot), snapshot);
}

TEST(SnapshotDocument, TextsOfAnyLengthAndContentReadBackEqual) {
    std::string everyCharacter;
    for (char c = 0; c < 0x7F; ++c)
        everyCharacter += c;
    WidgetSnapshot snapshot = snapshotWith({});
    for (const std::string& text : {std::string(1'000'000, 'x'), "\0"s, "a\0b"s, everyCharacter,
                                    "ü🧪\u2028\uFFFF\U0010FFFF"s, std::string(100'000, '\0'), "\"\\/"s}) {
        snapshot.allDayChips.push_back({text});
        snapshot.tasks.push_back({.id = text, .summary = text, .priorityRank = 0, .priorityScore = 0});
    }
    EXPECT_EQ(roundTrip(snapshot), snapshot);
}

WidgetSnapshot fullSnapshot() {
    return {.version = 1,
            .accountID = "account",
            .generatedAt = instantFromReference(788918400),
            .lastSyncAt = instantFromReference(788918399.5),
            .tasks = {{.id = "t",
                       .summary = "Task",
                       .deadline = instantFromReference(1),
                       .deadlineImplied = true,
                       .priorityRank = 2,
                       .priorityScore = 0.94,
                       .completedAt = instantFromReference(3)}},
            .triageCount = 4,
            .snoozedCount = 5,
            .events = {{.id = "e",
                        .title = "Event",
                        .start = instantFromReference(6),
                        .end = instantFromReference(7),
                        .location = "Room",
                        .joinURL = parseUrl("https://zoom.us/j/1"),
                        .joinProvider = "Zoom",
                        .linkedOpenTaskCount = 8}},
            .allDayChips = {{"Chip"}},
            .horizon = {{.id = "h",
                         .day = instantFromReference(9),
                         .label = "Label",
                         .subject = "Subject",
                         .kind = WidgetHorizonItem::Kind::absence,
                         .endDay = instantFromReference(10)}},
            .recap = WidgetRecap{11, 12, 13, 14, 15, 16}};
}

TEST(SnapshotDocument, KeysAreWrittenInTheOrderOfTheFields) {
    EXPECT_EQ(
        encodeSnapshot(fullSnapshot()),
        R"({"version":1,"accountID":"account","generatedAt":788918400,"lastSyncAt":788918399.5,)"
        R"("tasks":[{"id":"t","summary":"Task","deadline":1,"deadlineImplied":true,"priorityRank":2,)"
        R"("priorityScore":0.94,"completedAt":3}],"triageCount":4,"snoozedCount":5,)"
        R"("events":[{"id":"e","title":"Event","start":6,"end":7,"location":"Room",)"
        R"("joinURL":"https://zoom.us/j/1","joinProvider":"Zoom","linkedOpenTaskCount":8}],)"
        R"("allDayChips":[{"text":"Chip"}],)"
        R"("horizon":[{"id":"h","day":9,"label":"Label","subject":"Subject","kind":"absence","endDay":10}],)"
        R"("recap":{"received":11,"processed":12,"actionItems":13,"spamFiltered":14,"tasksCompleted":15,)"
        R"("previousProcessed":16}})");
}

TEST(SnapshotDocument, AbsentValuesAreLeftOutAndAnEmptyAccountIsWritten) {
    WidgetSnapshot snapshot =
        snapshotWith({{.id = "t", .summary = "", .priorityRank = 0, .priorityScore = 0}});
    snapshot.events.push_back(
        {.id = "e", .title = "", .start = instantFromReference(0), .linkedOpenTaskCount = 0});
    snapshot.horizon.push_back({.id = "h",
                                .day = instantFromReference(0),
                                .label = "",
                                .subject = "",
                                .kind = WidgetHorizonItem::Kind::personDate});
    EXPECT_EQ(
        encodeSnapshot(snapshot),
        R"({"version":1,"accountID":"","generatedAt":0,)"
        R"("tasks":[{"id":"t","summary":"","priorityRank":0,"priorityScore":0}],"triageCount":0,"snoozedCount":0,)"
        R"("events":[{"id":"e","title":"","start":0,"linkedOpenTaskCount":0}],"allDayChips":[],)"
        R"("horizon":[{"id":"h","day":0,"label":"","subject":"","kind":"personDate"}]})");
}

TEST(SnapshotDocument, JoinLinksAreReadTamed) {
    const auto snapshot = decodeSnapshot(emptyDayWith(
        R"("events":[])",
        R"("events":[{"id":"e","title":"","start":0,"joinURL":"https://x.org/a|b?q=ü c","linkedOpenTaskCount":0}])"));
    ASSERT_TRUE(snapshot);
    EXPECT_EQ(snapshot->events.at(0).joinURL, (Url{"https://x.org/a%7Cb?q=%C3%BC%20c"}));
}

TEST(SnapshotDocument, KeysMayStandInAnyOrder) {
    EXPECT_EQ(
        failureOf(R"({"horizon":[],"allDayChips":[],"events":[],"snoozedCount":0,"triageCount":0,"tasks":[],)"
                  R"("generatedAt":0,"version":1})"),
        "decodes");
}

TEST(SnapshotDocument, UnknownKeysAreIgnoredInEveryRecord) {
    const std::string document = encodeSnapshot(fullSnapshot()).value();
    std::string extended;
    for (const char c : document)
        extended += c == '{' ? R"({"unknown":{"id":1e999,"tasks":[null]},"Version":false,"":[],)"s
                             : std::string(1, c);
    EXPECT_EQ(decodeSnapshot(extended), fullSnapshot());
}

TEST(SnapshotDocument, OfDuplicateKeysTheFirstCounts) {
    EXPECT_EQ(
        decodeSnapshot(emptyDayWith(R"("triageCount":0)", R"("triageCount":7,"triageCount":8)"))->triageCount,
        7);
    EXPECT_EQ(decodeSnapshot(emptyDayWith(R"("triageCount":0)", R"("tri\u0061geCount":7,"triageCount":8)"))
                  ->triageCount,
              7);
    EXPECT_EQ(failureOf(emptyDayWith(R"("tasks":[])", R"("tasks":null,"tasks":[])")), "tasks: null");
}

TEST(SnapshotDocument, TheWholeDocumentIsValidOrNothingIs) {
    const std::string whole = encodeSnapshot(fullSnapshot()).value();
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(decodeSnapshot(whole.substr(0, length))) << length;
    EXPECT_TRUE(decodeSnapshot(whole + " \n"));
    for (const std::string_view rest : {"x"sv, "{}"sv, ","sv, "\0"sv, "\xFF"sv})
        EXPECT_FALSE(decodeSnapshot(whole + std::string(rest)));
    EXPECT_EQ(failureOf("\xEF\xBB\xBF" + whole), "starts with a byte order mark");
    EXPECT_EQ(failureOf("[" + whole + "]"), "not an object");
    EXPECT_EQ(failureOf(emptyDayWith(R"("version")", "\"\xC3\":1,\"version\"")), "not valid UTF-8");
}

TEST(SnapshotDocument, ANumberThatIsNotFiniteCannotBeWritten) {
    for (const double number :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        WidgetSnapshot snapshot = fullSnapshot();
        snapshot.tasks.push_back({.id = "", .summary = "", .priorityRank = 0, .priorityScore = number});
        EXPECT_EQ(encodeSnapshot(snapshot).error(),
                  Error(EncodingError{"tasks[1].priorityScore", "not a finite number"}));
        snapshot.generatedAt = instantFromReference(number);
        EXPECT_EQ(encodeSnapshot(snapshot).error(),
                  Error(EncodingError{"generatedAt", "not a finite number"}));
    }
}

TEST(SnapshotDocument, ATextThatIsNotUtf8CannotBeWritten) {
    WidgetSnapshot snapshot = fullSnapshot();
    snapshot.horizon.at(0).subject = "\xFF";
    EXPECT_EQ(encodeSnapshot(snapshot).error(),
              Error(EncodingError{"horizon[0].subject", "not valid UTF-8"}));
}

} // namespace
} // namespace vantel
