#include "tests/core/SnapshotFields.h"

#include <algorithm>

namespace vantel::testing {

namespace {

constexpr auto required = Presence::required;
constexpr auto optional = Presence::optional;

const Record taskRecord = {.name = "task",
                           .path = "tasks[0].",
                           .fields = {{"id", FieldType::text, required},
                                      {"summary", FieldType::text, required},
                                      {"deadline", FieldType::number, optional},
                                      {"deadlineImplied", FieldType::boolean, optional},
                                      {"priorityRank", FieldType::integer, required},
                                      {"priorityScore", FieldType::number, required},
                                      {"completedAt", FieldType::number, optional}}};

const Record eventRecord = {.name = "event",
                            .path = "events[0].",
                            .fields = {{"id", FieldType::text, required},
                                       {"title", FieldType::text, required},
                                       {"start", FieldType::number, required},
                                       {"end", FieldType::number, optional},
                                       {"location", FieldType::text, optional},
                                       {"joinURL", FieldType::url, optional},
                                       {"joinProvider", FieldType::text, optional},
                                       {"linkedOpenTaskCount", FieldType::integer, required}}};

const Record chipRecord = {
    .name = "chip", .path = "allDayChips[0].", .fields = {{"text", FieldType::text, required}}};

const Record horizonRecord = {.name = "horizonItem",
                              .path = "horizon[0].",
                              .fields = {{"id", FieldType::text, required},
                                         {"day", FieldType::number, required},
                                         {"label", FieldType::text, required},
                                         {"subject", FieldType::text, required},
                                         {"kind", FieldType::kind, required},
                                         {"endDay", FieldType::number, optional}}};

const Record recapRecord = {.name = "recap",
                            .path = "recap.",
                            .fields = {{"received", FieldType::integer, required},
                                       {"processed", FieldType::integer, required},
                                       {"actionItems", FieldType::integer, required},
                                       {"spamFiltered", FieldType::integer, required},
                                       {"tasksCompleted", FieldType::integer, required},
                                       {"previousProcessed", FieldType::integer, required}}};

} // namespace

const Record snapshotRecord = {.name = "snapshot",
                               .path = "",
                               .fields = {{"version", FieldType::integer, required},
                                          {"accountID", FieldType::text, optional},
                                          {"generatedAt", FieldType::number, required},
                                          {"lastSyncAt", FieldType::number, optional},
                                          {"tasks", FieldType::array, required},
                                          {"triageCount", FieldType::integer, required},
                                          {"snoozedCount", FieldType::integer, required},
                                          {"events", FieldType::array, required},
                                          {"allDayChips", FieldType::array, required},
                                          {"horizon", FieldType::array, required},
                                          {"recap", FieldType::object, optional}}};

const std::vector<Record>& everyRecord() {
    static const std::vector<Record> records = {snapshotRecord, taskRecord,    eventRecord,
                                                chipRecord,     horizonRecord, recapRecord};
    return records;
}

std::string goodValue(FieldType type) {
    switch (type) {
    case FieldType::text:
        return R"("text")";
    case FieldType::integer:
        return "3";
    case FieldType::number:
        return "0.5";
    case FieldType::boolean:
        return "true";
    case FieldType::url:
        return R"("https://zoom.us/j/1")";
    case FieldType::kind:
        return R"("absence")";
    case FieldType::array:
        return "[]";
    case FieldType::object:
        return R"({"received":1,"processed":1,"actionItems":1,"spamFiltered":1,"tasksCompleted":1,"previousProcessed":1})";
    }
    return {};
}

std::string objectOf(const Record& record, const Exchanges& exchanges, Order order) {
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

std::string documentWith(const Record& record, const std::string& object) {
    if (record.path.empty())
        return object;
    const std::string key = record.path.substr(0, record.path.find_first_of("[."));
    return objectOf(snapshotRecord, {{key, record.path.contains('[') ? "[" + object + "]" : object}});
}

} // namespace vantel::testing
