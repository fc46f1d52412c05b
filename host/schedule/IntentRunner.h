#pragma once

#include "host/schedule/Mailbox.h"
#include "host/schedule/Worker.h"
#include "hosting/WidgetBundle.h"
#include "platform/Formats.h"

#include <QObject>
#include <list>
#include <memory>
#include <string>

namespace vantel {

/// The world as intents need it. Shared, since an intent that waits for a lock may outlive the runner.
struct IntentSurroundings {
    std::shared_ptr<const Clock> clock;
    std::shared_ptr<UuidSource> identifiers; ///< used by several threads at once
};

/// How one press of a button ended.
struct IntentOutcome {
    std::string kind; ///< of the widget that was pressed
    IntentCall call;
    std::string failure = {}; ///< a sentence for the user; empty where it succeeded

    bool hasSucceeded() const { return failure.empty(); }
};

/// Runs the intents of pressed buttons, each exactly once and on a worker thread of its own: a press that
/// waits for a lock holds up no other. Those that are on their way together may end in any order. All
/// functions belong to the window thread.
class IntentRunner final : public QObject {
    Q_OBJECT

public:
    /// `formats` lives longer than the runner.
    IntentRunner(WidgetBundle bundle, IntentSurroundings surroundings, const Formats& formats,
                 QObject* parent = nullptr);

    /// Returns at once. A call that is on its way is passed over: a second press of one button before the
    /// first has ended. An intent that the bundle does not declare fails.
    void run(const std::string& kind, const IntentCall& call);

    bool isPending(const IntentCall& call) const;

    /// For the end of the program: waits for the presses so far, but no longer than `patience`, and hands out
    /// the outcomes of those that have ended. Whether all have. If not, one that waits for a lock may
    /// still run: leave with std::_Exit, so that it meets no object that is being taken down. Every outcome
    /// that was handed out is on the disk.
    bool drain(std::chrono::milliseconds patience);

Q_SIGNALS:
    void ended(const vantel::IntentOutcome& outcome);

private:
    struct Press {
        IntentCall call;
        Worker worker = {};
    };

    void finish(const IntentOutcome& outcome);
    std::string failureSentence(const std::string& intentName, const std::string& reason) const;

    WidgetBundle m_bundle;
    IntentSurroundings m_surroundings;
    const Formats& m_formats;
    Mailbox m_mailbox{this};
    std::list<Press> m_pending;
};

} // namespace vantel
