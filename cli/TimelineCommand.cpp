#include "cli/Answer.h"
#include "cli/Commands.h"
#include "cli/SnapshotSource.h"
#include "platform/InstantText.h"
#include "platform/VisibleText.h"
#include "widgets/SnapshotProvider.h"
#include "widgets/TimelinePlan.h"

namespace vantel::commands {

namespace {

std::string reasonText(const PlannedMoment& moment) {
    const std::string title = moment.event == nullptr ? "" : visibleText(moment.event->title);
    switch (moment.reason) {
    case PlannedMoment::Reason::now:
        return "now";
    case PlannedMoment::Reason::eventIsNear:
        return "five minutes before " + title;
    case PlannedMoment::Reason::eventStarts:
        return title + " starts";
    case PlannedMoment::Reason::eventEnds:
        return title + " ends";
    case PlannedMoment::Reason::recapBegins:
        return "the weekly recap begins";
    }
    return {};
}

std::string timelineText(const std::vector<PlannedMoment>& moments, const Timeline<SnapshotEntry>& timeline,
                         const Calendar& calendar) {
    std::string text =
        timeline.entries.front().snapshot ? "" : "There is no snapshot: the widgets show how to begin.\n";
    std::optional<Instant> last;
    for (const PlannedMoment& moment : moments) {
        const std::string time =
            last == moment.date ? std::string(19, ' ') : localText(moment.date, calendar);
        text += time + "  " + reasonText(moment) + "\n";
        last = moment.date;
    }
    return text + localText(timeline.policy.after, calendar) + "  reload: the next day begins\n";
}

} // namespace

CommandResult timeline(const Arguments& arguments, const Surroundings& surroundings) {
    const auto snapshot = requestedSnapshot(arguments, surroundings);
    if (!snapshot)
        return std::unexpected(snapshot.error());
    const Instant now = surroundings.clock.now();
    const Timeline<SnapshotEntry> timeline = plannedTimeline(*snapshot, now, surroundings.calendar);
    const auto moments = plannedMoments(snapshot->get(), now, surroundings.calendar);
    return answer(arguments.form, timelineText(moments, timeline, surroundings.calendar),
                  [&](JsonWriter& json) {
                      json.beginObject();
                      json.field("hasSnapshot", *snapshot != nullptr);
                      json.key("entries");
                      json.beginArray();
                      for (const SnapshotEntry& entry : timeline.entries)
                          json.value(entry.date);
                      json.endArray();
                      json.field("reloadAfter", timeline.policy.after);
                      json.endObject();
                  });
}

} // namespace vantel::commands
