#include "core/SnapshotDocument.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace vantel {
namespace {

/// What a field of a document may hold.
enum class Type { text, integer, number, boolean, url, kind, array, object };

enum class Presence { required, optional };

struct Field {
    std::string key;
    Type type;
    Presence presence;
};

/// One record, its fields in the order of their declaration, and where it stands in a document.
struct Record {
    std::string name;
    std::string path;
    std::vector<Field> fields;

    friend void PrintTo(const Record& record, std::ostream* stream) { *stream << record.name; }
};

constexpr auto required = Presence::required;
constexpr auto optional = Presence::optional;

const Record snapshotRecord = {.name = "snapshot",
                               .path = "",
                               .fields = {{"version", Type::integer, required},
                                          {"accountID", Type::text, optional},
                                          {"generatedAt", Type::number, required},
                                          {"lastSyncAt", Type::number, optional},
                                          {"tasks", Type::array, required},
                                          {"triageCount", Type::integer, required},
                                          {"snoozedCount", Type::integer, required},
                                          {"events", Type::array, required},
                                          {"allDayChips", Type::array, required},
                                          {"horizon", Type::array, required},
                                          {"recap", Type::object, optional}}};

const Record taskRecord = {.name = "task",
                           .path = "tasks[0].",
                           .fields = {{"id", Type::text, required},
                                      {"summary", Type::text, required},
                                      {"deadline", Type::number, optional},
                                      {"deadlineImplied", Type::boolean, optional},
                                      {"priorityRank", Type::integer, required},
                                      {"priorityScore", Type::number, required},
                                      {"completedAt", Type::number, optional}}};

const Record eventRecord = {.name = "event",
                            .path = "events[0].",
                            .fields = {{"id", Type::text, required},
                                       {"title", Type::text, required},
                                       {"start", Type::number, required},
                                       {"end", Type::number, optional},
                                       {"location", Type::text, optional},
                                       {"joinURL", Type::url, optional},
                                       {"joinProvider", Type::text, optional},
                                       {"linkedOpenTaskCount", Type::integer, required}}};

const Record chipRecord = {
    .name = "chip", .path = "allDayChips[0].", .fields = {{"text", Type::text, required}}};

const Record horizonRecord = {.name = "horizonItem",
                              .path = "horizon[0].",
                              .fields = {{"id", Type::text, required},
                                         {"day", Type::number, required},
                                         {"label", Type::text, required},
                                         {"subject", Type::text, required},
                                         {"kind", Type::kind, required},
                                         {"endDay", Type::number, optional}}};

const Record recapRecord = {.name = "recap",
                            .path = "recap.",
                            .fields = {{"received", Type::integer, required},
                                       {"processed", Type::integer, required},
                                       {"actionItems", Type::integer, required},
                                       {"spamFiltered", Type::integer, required},
                                       {"tasksCompleted", Type::integer, required},
                                       {"previousProcessed", Type::integer, required}}};

std::string goodValue(Type type) {
    switch (type) {
    case Type::text:
        return R"("text")";
    case Type::integer:
        return "3";
    case Type::number:
        return "0.5";
    case Type::boolean:
        return "true";
    case Type::url:
        return R"("https://zoom.us/j/1")";
    case Type::kind:
        return R"("absence")";
    case Type::array:
        return "[]";
    case Type::object:
        return R"({"received":1,"processed":1,"actionItems":1,"spamFiltered":1,"tasksCompleted":1,"previousProcessed":1})";
    }
    return {};
}

std::vector<std::string> wrongValues(Type type) {
    switch (type) {
    case Type::text:
        return {"1", "true", "[]", "{}", R"(["text"])"};
    case Type::integer:
        return {R"("3")",
                "true",
                "false",
                "[]",
                "{}",
                "3.5",
                "1e19",
                "9223372036854775808",
                "-9223372036854775809",
                "1e999"};
    case Type::number:
        return {R"("0.5")", "true", "false", "[]", "{}", "1e999", R"("2026-01-01T00:00:00Z")"};
    case Type::boolean:
        return {R"("true")", "0", "1", "[]", "{}"};
    case Type::url:
        return {
            "1", "true", "[]", "{}", R"("")", R"("zoom.us/j/1")", R"("https://zoom us")", R"("//zoom.us")"};
    case Type::kind:
        return {"0", "true", "[]", "{}", R"("")", R"("Absence")", R"("holiday")"};
    case Type::array:
        return {R"("[]")", "0", "true", "{}", "[1]", "[null]", "[[]]", "[{}]"};
    case Type::object:
        return {R"("{}")", "0", "true", "[]", "{}"};
    }
    return {};
}

/// Exchanges for a record's values, by key; an empty one leaves the key out.
using Exchanges = std::vector<std::pair<std::string, std::string>>;

enum class Order { declared, reversed };

std::string objectOf(const Record& record, const Exchanges& exchanges, Order order = Order::declared) {
    std::vector<std::string> members;
    for (const Field& field : record.fields) {
        const auto exchange = std::ranges::find(exchanges, field.key, &Exchanges::value_type::first);
        const std::string value = exchange == exchanges.end() ? goodValue(field.type) : exchange->second;
        if (!value.empty())
            members.push_back("\"" + field.key + "\":" + value);
    }
    if (order == Order::reversed)
        std::ranges::reverse(members);
    std::string object;
    for (const std::string& member : members)
        object += (object.empty() ? "" : ",") + member;
    return "{" + object + "}";
}

/// A document with that one record in its place.
std::string documentWith(const Record& record, const std::string& object) {
    if (record.path.empty())
        return object;
    const std::string key = record.path.substr(0, record.path.find_first_of("[."));
    return objectOf(snapshotRecord, {{key, record.path.contains('[') ? "[" + object + "]" : object}});
}

std::string failureOf(const Record& record, const Exchanges& exchanges, Order order = Order::declared) {
    const auto snapshot = decodeSnapshot(documentWith(record, objectOf(record, exchanges, order)));
    return snapshot ? "decodes" : message(snapshot.error());
}

/// The key at which decoding fails, "none" when it does not.
std::string failingKey(const Record& record, const Exchanges& exchanges, Order order = Order::declared) {
    const std::string failure = failureOf(record, exchanges, order);
    const std::string path = failure.substr(0, failure.find(": "));
    if (!path.starts_with(record.path) || failure == "decodes")
        return failure == "decodes" ? "none" : "elsewhere: " + failure;
    return path.substr(record.path.size(), path.find_first_of("[.", record.path.size()) - record.path.size());
}

class EveryRecord : public ::testing::TestWithParam<Record> {};

TEST_P(EveryRecord, DecodesWhenEveryFieldIsThere) {
    EXPECT_EQ(failureOf(GetParam(), {}), "decodes");
    EXPECT_EQ(failureOf(GetParam(), {}, Order::reversed), "decodes");
}

TEST_P(EveryRecord, DoesNotDecodeWithoutARequiredField) {
    for (const Field& field : GetParam().fields)
        if (field.presence == Presence::required) {
            EXPECT_EQ(failureOf(GetParam(), {{field.key, ""}}), GetParam().path + field.key + ": missing");
            EXPECT_EQ(failureOf(GetParam(), {{field.key, "null"}}), GetParam().path + field.key + ": null");
        }
}

TEST_P(EveryRecord, DecodesWithoutAnOptionalField) {
    for (const Field& field : GetParam().fields)
        if (field.presence == Presence::optional) {
            EXPECT_EQ(failureOf(GetParam(), {{field.key, ""}}), "decodes") << field.key;
            EXPECT_EQ(failureOf(GetParam(), {{field.key, "null"}}), "decodes") << field.key;
        }
}

TEST_P(EveryRecord, ReadsAMissingOptionalFieldLikeANullOne) {
    for (const Field& field : GetParam().fields)
        if (field.presence == Presence::optional) {
            const auto missing =
                decodeSnapshot(documentWith(GetParam(), objectOf(GetParam(), {{field.key, ""}})));
            const auto null =
                decodeSnapshot(documentWith(GetParam(), objectOf(GetParam(), {{field.key, "null"}})));
            const auto present = decodeSnapshot(documentWith(GetParam(), objectOf(GetParam(), {})));
            EXPECT_EQ(missing.value(), null.value()) << field.key;
            EXPECT_NE(missing.value(), present.value()) << field.key;
        }
}

TEST_P(EveryRecord, DoesNotDecodeWithAFieldOfAWrongType) {
    for (const Field& field : GetParam().fields)
        for (const std::string& value : wrongValues(field.type))
            EXPECT_EQ(failingKey(GetParam(), {{field.key, value}}), field.key) << value;
}

TEST_P(EveryRecord, DoesNotKnowKeysOfAnotherSpelling) {
    for (const Field& field : GetParam().fields) {
        std::string object = objectOf(GetParam(), {});
        object.replace(object.find("\"" + field.key + "\"") + 1, 1, "X");
        const bool decodes = decodeSnapshot(documentWith(GetParam(), object)).has_value();
        EXPECT_EQ(decodes, field.presence == Presence::optional) << object;
    }
}

TEST_P(EveryRecord, ReportsTheFirstFailureInTheOrderOfTheFields) {
    const auto& fields = GetParam().fields;
    for (std::size_t first = 0; first < fields.size(); ++first)
        for (std::size_t second = first + 1; second < fields.size(); ++second) {
            const Exchanges both = {{fields[second].key, wrongValues(fields[second].type).front()},
                                    {fields[first].key, wrongValues(fields[first].type).front()}};
            EXPECT_EQ(failingKey(GetParam(), both), fields[first].key);
            EXPECT_EQ(failingKey(GetParam(), both, Order::reversed), fields[first].key);
        }
}

TEST_P(EveryRecord, WritesTheKeysItRead) {
    const std::string object = objectOf(GetParam(), {});
    const auto written = encodeSnapshot(decodeSnapshot(documentWith(GetParam(), object)).value());
    EXPECT_NE(written.value().find(object), std::string::npos) << *written;
}

TEST_P(EveryRecord, LeavesOutOptionalKeysThatAreAbsent) {
    Exchanges absent;
    for (const Field& field : GetParam().fields)
        if (field.presence == Presence::optional && field.key != "accountID")
            absent.emplace_back(field.key, "");
    const std::string object = objectOf(GetParam(), absent);
    const auto written = encodeSnapshot(decodeSnapshot(documentWith(GetParam(), object)).value());
    EXPECT_NE(written.value().find(object), std::string::npos) << *written;
}

INSTANTIATE_TEST_SUITE_P(SnapshotDocument, EveryRecord,
                         ::testing::Values(snapshotRecord, taskRecord, eventRecord, chipRecord, horizonRecord,
                                           recapRecord),
                         [](const auto& record) { return record.param.name; });

TEST(SnapshotFields, IntegersMayBeSpelledAsDoubles) {
    for (const char* spelling : {"3", "3.0", "3e0", "30e-1"})
        EXPECT_EQ(decodeSnapshot(objectOf(snapshotRecord, {{"triageCount", spelling}})).value().triageCount,
                  3)
            << spelling;
}

TEST(SnapshotFields, AMissingAccountIsTheEmptyOneAndIsWritten) {
    for (const char* value : {"", "null", R"("")"}) {
        const auto snapshot = decodeSnapshot(objectOf(snapshotRecord, {{"accountID", value}})).value();
        EXPECT_EQ(snapshot.accountID, "");
        EXPECT_NE(encodeSnapshot(snapshot).value().find(R"("accountID":"")"), std::string::npos);
    }
}

TEST(SnapshotFields, FailuresInsideARecordComeBeforeTheFieldsAfterIt) {
    EXPECT_EQ(failureOf(snapshotRecord, {{"tasks", R"([{"id":1}])"}, {"triageCount", "true"}}),
              "tasks[0].id: not a string");
    EXPECT_EQ(failureOf(snapshotRecord, {{"generatedAt", "true"}, {"tasks", R"([{"id":1}])"}}),
              "generatedAt: not a number");
}

} // namespace
} // namespace vantel
