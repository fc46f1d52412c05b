#include "host/schedule/TimelineRunner.h"

#include <exception>
#include <utility>

namespace vantel {

namespace {

KindTimelines asked(const StaticConfiguration& configuration, const TimelineRequest& request) {
    const FixedClock clock(request.now);
    KindTimelines result;
    for (const WidgetFamily family : request.families)
        result.emplace(family, configuration.getTimeline(
                                   {.clock = clock, .calendar = request.calendar, .family = family}));
    return result;
}

} // namespace

TimelineAnswer timelines(const StaticConfiguration& configuration, const TimelineRequest& request) {
    try {
        return {configuration.kind, asked(configuration, request)};
    } catch (const std::exception& error) {
        return {configuration.kind, std::unexpected(error.what())};
    }
}

TimelineRunner::TimelineRunner(QObject* parent)
    : QObject(parent) {}

void TimelineRunner::ask(const StaticConfiguration& configuration, TimelineRequest request) {
    const auto deliver = [this](const TimelineAnswer& answer) { Q_EMIT answered(answer); };
    const bool isRunning = m_workers[configuration.kind].run(
        [configuration, request = std::move(request), deliver, to = m_mailbox.address()] {
            to.post([deliver, answer = timelines(configuration, request)] { deliver(answer); });
        });
    if (!isRunning)
        m_mailbox.address().post(
            [deliver, kind = configuration.kind] { deliver({kind, std::unexpected(noThreadReason)}); });
}

} // namespace vantel
