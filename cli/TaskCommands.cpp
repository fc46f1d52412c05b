#include "cli/Answer.h"
#include "cli/Commands.h"
#include "cli/SnapshotSource.h"
#include "core/WidgetBuckets.h"
#include "platform/InstantText.h"
#include "platform/VisibleText.h"
#include "widgets/Staleness.h"
#include "widgets/WidgetFormat.h"

#include <array>

namespace vantel::commands {

namespace {

using WidgetBuckets::Tasks;

struct AllBuckets {
    Tasks open;
    Tasks overdue;
    Tasks dueToday;
    Tasks doneToday;
    Tasks displayOrder;
    std::int64_t dueCount;
    Instant nextMidnight;
    bool isRecapTime;
};

AllBuckets allBuckets(const Tasks& tasks, Instant now, const Calendar& calendar) {
    return {.open = WidgetBuckets::open(tasks),
            .overdue = WidgetBuckets::overdue(tasks, now, calendar),
            .dueToday = WidgetBuckets::dueToday(tasks, now, calendar),
            .doneToday = WidgetBuckets::doneToday(tasks, now, calendar),
            .displayOrder = WidgetBuckets::displayOrder(tasks),
            .dueCount = WidgetBuckets::dueCount(tasks, now, calendar),
            .nextMidnight = WidgetBuckets::nextMidnight(now, calendar),
            .isRecapTime = WidgetBuckets::isRecapTime(now, calendar)};
}

void writeIds(JsonWriter& json, std::string_view key, const Tasks& tasks) {
    json.key(key);
    json.beginArray();
    for (const WidgetTask& task : tasks)
        json.value(task.id);
    json.endArray();
}

void writeBuckets(JsonWriter& json, const AllBuckets& buckets) {
    json.beginObject();
    writeIds(json, "open", buckets.open);
    writeIds(json, "overdue", buckets.overdue);
    writeIds(json, "dueToday", buckets.dueToday);
    writeIds(json, "doneToday", buckets.doneToday);
    writeIds(json, "displayOrder", buckets.displayOrder);
    json.field("dueCount", buckets.dueCount);
    json.field("nextMidnight", buckets.nextMidnight);
    json.field("isRecapTime", buckets.isRecapTime);
    json.endObject();
}

std::string bucketText(const std::string& title, const Tasks& tasks, Instant now,
                       const Surroundings& surroundings) {
    std::string text = title + ": " + std::to_string(tasks.size()) + "\n";
    for (const WidgetTask& task : tasks) {
        text += "    " + visibleText(task.summary) + " (" + visibleText(task.id) + ")";
        if (task.deadline)
            text += ", " + WidgetFormat::relativeDays(now, *task.deadline, surroundings.calendar,
                                                      surroundings.formats);
        text += "\n";
    }
    return text;
}

std::string bucketsText(const AllBuckets& buckets, Instant now, const Surroundings& surroundings) {
    return bucketText("Overdue", buckets.overdue, now, surroundings) +
           bucketText("Due today", buckets.dueToday, now, surroundings) +
           bucketText("Done today", buckets.doneToday, now, surroundings) +
           bucketText("All in display order", buckets.displayOrder, now, surroundings) +
           "The next day begins at " + localText(buckets.nextMidnight, surroundings.calendar) + ".\n" +
           (buckets.isRecapTime ? "The weekly recap is on.\n" : "");
}

std::string stalenessText(const Staleness& staleness) {
    switch (staleness.kind) {
    case Staleness::Kind::fresh:
        return "fresh\n";
    case Staleness::Kind::aging:
        return "aging: " + std::to_string(staleness.hours) + " hours old\n";
    case Staleness::Kind::stale:
        return "stale: two days old or older\n";
    }
    return {};
}

void writeStaleness(JsonWriter& json, const Staleness& staleness) {
    constexpr std::array<std::string_view, 3> names = {"fresh", "aging", "stale"};
    json.beginObject();
    json.field("staleness", names.at(static_cast<std::size_t>(staleness.kind)));
    if (staleness.kind == Staleness::Kind::aging)
        json.field("hours", staleness.hours);
    json.endObject();
}

} // namespace

CommandResult buckets(const Arguments& arguments, const Surroundings& surroundings) {
    const auto snapshot = requestedSnapshot(arguments, surroundings);
    if (!snapshot)
        return std::unexpected(snapshot.error());
    const Instant now = surroundings.clock.now();
    const AllBuckets buckets =
        allBuckets(*snapshot ? (*snapshot)->tasks : Tasks(), now, surroundings.calendar);
    if (arguments.form == OutputForm::text)
        return bucketsText(buckets, now, surroundings);
    return answer(arguments.form, {}, [&](JsonWriter& json) { writeBuckets(json, buckets); });
}

CommandResult staleness(const Arguments& arguments, const Surroundings& surroundings) {
    const auto snapshot = requestedSnapshot(arguments, surroundings);
    if (!snapshot)
        return std::unexpected(snapshot.error());
    if (!*snapshot)
        return failed("staleness", "there is no snapshot");
    const Staleness staleness(**snapshot, surroundings.clock.now());
    return answer(arguments.form, stalenessText(staleness),
                  [&](JsonWriter& json) { writeStaleness(json, staleness); });
}

} // namespace vantel::commands
