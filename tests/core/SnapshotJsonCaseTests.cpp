#include "core/SnapshotDocument.h"
#include "tests/core/JsonCases.h"
#include "tests/core/SnapshotFields.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

constexpr std::string_view ignoredKey = R"("ignored":)";

enum class Place { first, last };

std::string withIgnored(const std::string& object, const std::string& value, Place place) {
    std::string document = object;
    const std::string member = std::string(ignoredKey) + value;
    if (place == Place::first)
        return document.insert(1, member + ",");
    return document.insert(document.size() - 1, "," + member);
}

bool isValueFor(FieldType type, JsonValue value) {
    switch (type) {
    case FieldType::text:
        return value == JsonValue::text;
    case FieldType::integer:
        return value == JsonValue::integer;
    case FieldType::number:
        return value == JsonValue::integer || value == JsonValue::number;
    case FieldType::boolean:
        return value == JsonValue::boolean;
    case FieldType::array:
        return value == JsonValue::emptyArray;
    default:
        return false;
    }
}

bool isExpectedToDecode(const Field& field, const JsonCase& json) {
    if (!json.value)
        return false;
    return *json.value == JsonValue::null ? field.presence == Presence::optional
                                          : isValueFor(field.type, *json.value);
}

bool readsBackEqual(const WidgetSnapshot& snapshot) {
    const auto written = encodeSnapshot(snapshot);
    return written && decodeSnapshot(*written) == snapshot;
}

/// Whether decoding failed at that path or inside it. The whole document has none.
bool failsAt(const std::string& path, const Error& error) {
    const auto& failing = std::get<DecodingError>(error).keyPath;
    return path.empty() ? failing.empty() : failing.starts_with(path);
}

TEST(JsonCases, NoneIsCalledValidAndRefusedOrInvalidAndTaken) {
    for (const JsonCase& json : everyJsonCase()) {
        EXPECT_TRUE(json.value || json.standing != Standing::valid) << json.name;
        EXPECT_TRUE(!json.value || json.standing != Standing::invalid) << json.name;
    }
    EXPECT_GT(everyJsonCase().size(), 2'500U);
}

TEST(SnapshotJsonCases, UnderAnIgnoredKeyAValueIsPassedOverIfItIsValidAndElseSpoilsTheDocument) {
    const std::string good = objectOf(snapshotRecord, {});
    const auto expected = decodeSnapshot(good);
    for (const JsonCase& json : everyJsonCase())
        for (const Place place : {Place::first, Place::last}) {
            const auto snapshot = decodeSnapshot(withIgnored(good, json.bytes, place));
            ASSERT_EQ(snapshot.has_value(), json.value.has_value()) << json.name;
            if (snapshot)
                EXPECT_EQ(snapshot, expected) << json.name;
            else
                EXPECT_TRUE(failsAt("", snapshot.error())) << json.name;
        }
}

/// Each of them takes a hundred times as long as the others: one key of each record is enough.
bool isOneOfManyLongCases(const JsonCase& json) {
    return json.bytes.size() > 20'000 && !json.bytes.starts_with("[[[");
}

/// A document with a gap in the place of a key's value.
class AroundValue {
public:
    AroundValue(const Record& record, const std::string& key)
        : m_document(documentWith(record, objectOf(record, {{key, gap}})))
        , m_gap(m_document.find(gap)) {}

    std::string with(const std::string& value) const {
        return std::string(m_document).replace(m_gap, gap.size(), value);
    }

private:
    inline static const std::string gap = "<gap>";

    std::string m_document;
    std::size_t m_gap;
};

class EveryKey : public ::testing::TestWithParam<Record> {};

TEST_P(EveryKey, TakesWhatIsOfItsTypeAndNothingElse) {
    for (const Field& field : GetParam().fields) {
        const AroundValue around(GetParam(), field.key);
        for (const JsonCase& json : everyJsonCase()) {
            if (isOneOfManyLongCases(json) && field.key != GetParam().fields.front().key)
                continue;
            const auto snapshot = decodeSnapshot(around.with(json.bytes));
            ASSERT_EQ(snapshot.has_value(), isExpectedToDecode(field, json)) << field.key << " " << json.name;
            const std::string path = json.value ? GetParam().path + field.key : "";
            if (snapshot)
                ASSERT_TRUE(readsBackEqual(*snapshot)) << field.key << " " << json.name;
            else
                ASSERT_TRUE(failsAt(path, snapshot.error())) << field.key << " " << json.name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(SnapshotJsonCases, EveryKey, ::testing::ValuesIn(everyRecord()),
                         [](const auto& record) { return record.param.name; });

} // namespace
} // namespace vantel
