#include "core/SnapshotDocument.h"

#include "platform/JsonDocument.h"
#include "platform/JsonWriter.h"

namespace vantel {

namespace {

// The records that come in numbers are flattened: one function reads one whole record, nearly twice as fast.

[[gnu::flatten]] WidgetTask decodeTask(JsonObjectReader& object) {
    return {.id = object.text("id"),
            .summary = object.text("summary"),
            .deadline = object.optionalInstant("deadline"),
            .deadlineImplied = object.optionalBoolean("deadlineImplied"),
            .priorityRank = object.integer("priorityRank"),
            .priorityScore = object.number("priorityScore"),
            .completedAt = object.optionalInstant("completedAt")};
}

[[gnu::flatten]] WidgetEvent decodeEvent(JsonObjectReader& object) {
    return {.id = object.text("id"),
            .title = object.text("title"),
            .start = object.instant("start"),
            .end = object.optionalInstant("end"),
            .location = object.optionalText("location"),
            .joinURL = object.optionalUrl("joinURL"),
            .joinProvider = object.optionalText("joinProvider"),
            .linkedOpenTaskCount = object.integer("linkedOpenTaskCount")};
}

WidgetChip decodeChip(JsonObjectReader& object) {
    return {.text = object.text("text")};
}

[[gnu::flatten]] WidgetHorizonItem decodeHorizonItem(JsonObjectReader& object) {
    return {.id = object.text("id"),
            .day = object.instant("day"),
            .label = object.text("label"),
            .subject = object.text("subject"),
            .kind = object.parsedText("kind", horizonItemKind, "not a known kind"),
            .endDay = object.optionalInstant("endDay")};
}

WidgetRecap decodeRecap(JsonObjectReader& object) {
    return {.received = object.integer("received"),
            .processed = object.integer("processed"),
            .actionItems = object.integer("actionItems"),
            .spamFiltered = object.integer("spamFiltered"),
            .tasksCompleted = object.integer("tasksCompleted"),
            .previousProcessed = object.integer("previousProcessed")};
}

WidgetSnapshot decodeSnapshotObject(JsonObjectReader& object) {
    return {.version = object.integer("version"),
            .accountID = object.optionalText("accountID").value_or(""),
            .generatedAt = object.instant("generatedAt"),
            .lastSyncAt = object.optionalInstant("lastSyncAt"),
            .tasks = object.objects("tasks", decodeTask),
            .triageCount = object.integer("triageCount"),
            .snoozedCount = object.integer("snoozedCount"),
            .events = object.objects("events", decodeEvent),
            .allDayChips = object.objects("allDayChips", decodeChip),
            .horizon = object.objects("horizon", decodeHorizonItem),
            .recap = object.optionalObject("recap", decodeRecap)};
}

void encode(JsonWriter& json, const WidgetTask& task) {
    json.beginObject();
    json.field("id", task.id);
    json.field("summary", task.summary);
    json.field("deadline", task.deadline);
    json.field("deadlineImplied", task.deadlineImplied);
    json.field("priorityRank", task.priorityRank);
    json.field("priorityScore", task.priorityScore);
    json.field("completedAt", task.completedAt);
    json.endObject();
}

void encode(JsonWriter& json, const WidgetEvent& event) {
    json.beginObject();
    json.field("id", event.id);
    json.field("title", event.title);
    json.field("start", event.start);
    json.field("end", event.end);
    json.field("location", event.location);
    if (event.joinURL)
        json.field("joinURL", event.joinURL->text);
    json.field("joinProvider", event.joinProvider);
    json.field("linkedOpenTaskCount", event.linkedOpenTaskCount);
    json.endObject();
}

void encode(JsonWriter& json, const WidgetChip& chip) {
    json.beginObject();
    json.field("text", chip.text);
    json.endObject();
}

void encode(JsonWriter& json, const WidgetHorizonItem& item) {
    json.beginObject();
    json.field("id", item.id);
    json.field("day", item.day);
    json.field("label", item.label);
    json.field("subject", item.subject);
    json.field("kind", rawValue(item.kind));
    json.field("endDay", item.endDay);
    json.endObject();
}

void encode(JsonWriter& json, const WidgetRecap& recap) {
    json.beginObject();
    json.field("received", recap.received);
    json.field("processed", recap.processed);
    json.field("actionItems", recap.actionItems);
    json.field("spamFiltered", recap.spamFiltered);
    json.field("tasksCompleted", recap.tasksCompleted);
    json.field("previousProcessed", recap.previousProcessed);
    json.endObject();
}

std::size_t roughLength(const WidgetSnapshot& snapshot) {
    constexpr std::size_t generousRecord = 256;
    return generousRecord * (2 + snapshot.tasks.size() + snapshot.events.size() + snapshot.horizon.size());
}

template <typename Record>
void encodeArray(JsonWriter& json, std::string_view key, const std::vector<Record>& records) {
    json.key(key);
    json.beginArray();
    for (const Record& record : records)
        encode(json, record);
    json.endArray();
}

} // namespace

Result<WidgetSnapshot> decodeSnapshot(std::string_view bytes) {
    JsonDocument document;
    auto root = document.parseObject(bytes);
    if (!root)
        return std::unexpected(root.error());
    WidgetSnapshot snapshot = decodeSnapshotObject(*root);
    if (root->failure())
        return std::unexpected(*root->failure());
    return snapshot;
}

Result<std::string> encodeSnapshot(const WidgetSnapshot& snapshot) {
    JsonWriter json;
    json.reserve(roughLength(snapshot));
    json.beginObject();
    json.field("version", snapshot.version);
    json.field("accountID", snapshot.accountID);
    json.field("generatedAt", snapshot.generatedAt);
    json.field("lastSyncAt", snapshot.lastSyncAt);
    encodeArray(json, "tasks", snapshot.tasks);
    json.field("triageCount", snapshot.triageCount);
    json.field("snoozedCount", snapshot.snoozedCount);
    encodeArray(json, "events", snapshot.events);
    encodeArray(json, "allDayChips", snapshot.allDayChips);
    encodeArray(json, "horizon", snapshot.horizon);
    if (snapshot.recap) {
        json.key("recap");
        encode(json, *snapshot.recap);
    }
    json.endObject();
    return json.finish();
}

} // namespace vantel
