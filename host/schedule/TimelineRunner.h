#pragma once

#include "host/schedule/KindSchedule.h"
#include "host/schedule/Mailbox.h"
#include "host/schedule/Worker.h"
#include "platform/SystemCalendar.h"

#include <QObject>
#include <expected>
#include <map>
#include <string>
#include <vector>

namespace vantel {

/// The circumstances of one request for timelines, as values: the worker that serves it may outlive the rest.
struct TimelineRequest {
    std::vector<WidgetFamily> families;
    Instant now;
    SystemCalendar calendar;
};

/// What came of a request: timelines, or the sentence that the provider failed with.
struct TimelineAnswer {
    std::string kind;
    std::expected<KindTimelines, std::string> timelines;
};

/// Asks providers for timelines on worker threads, one for each kind, so that a provider which blocks for
/// ever holds up its own kind only. The end of the runner lets go of the workers and waits for none.
class TimelineRunner final : public QObject {
    Q_OBJECT

public:
    explicit TimelineRunner(QObject* parent = nullptr);

    /// Returns at once. A second request of a kind waits for the first.
    void ask(const StaticConfiguration& configuration, TimelineRequest request);

Q_SIGNALS:
    /// On the window thread, once for each request.
    void answered(const vantel::TimelineAnswer& answer);

private:
    Mailbox m_mailbox{this};
    std::map<std::string, Worker> m_workers;
};

/// The timelines of a kind, on this thread. Whatever the provider throws comes back as a sentence.
TimelineAnswer timelines(const StaticConfiguration& configuration, const TimelineRequest& request);

} // namespace vantel
