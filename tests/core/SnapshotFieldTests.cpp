#include "core/SnapshotDocument.h"
#include "tests/core/SnapshotFields.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

std::vector<std::string> wrongValues(FieldType type) {
    switch (type) {
    case FieldType::text:
        return {"1", "true", "[]", "{}", R"(["text"])"};
    case FieldType::integer:
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
    case FieldType::number:
        return {R"("0.5")", "true", "false", "[]", "{}", "1e999", R"("2026-01-01T00:00:00Z")"};
    case FieldType::boolean:
        return {R"("true")", "0", "1", "[]", "{}"};
    case FieldType::url:
        return {
            "1", "true", "[]", "{}", R"("")", R"("zoom.us/j/1")", R"("https://zoom us")", R"("//zoom.us")"};
    case FieldType::kind:
        return {"0", "true", "[]", "{}", R"("")", R"("Absence")", R"("holiday")"};
    case FieldType::array:
        return {R"("[]")", "0", "true", "{}", "[1]", "[null]", "[[]]", "[{}]"};
    case FieldType::object:
        return {R"("{}")", "0", "true", "[]", "{}"};
    }
    return {};
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

INSTANTIATE_TEST_SUITE_P(SnapshotDocument, EveryRecord, ::testing::ValuesIn(everyRecord()),
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
