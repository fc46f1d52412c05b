#include "host/schedule/IntentRunner.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <algorithm>
#include <exception>
#include <utility>

namespace vantel {

namespace {

/// Why an intent failed; absent where it succeeded.
std::optional<std::string> performed(const IntentDeclaration& intent, const IntentCall& call,
                                     const IntentSurroundings& surroundings) {
    try {
        const auto result = intent.perform(call, {*surroundings.clock, *surroundings.identifiers});
        return result ? std::nullopt : std::optional(message(result.error()));
    } catch (const std::exception& error) {
        return error.what();
    }
}

std::optional<std::string> notDeclared(const IntentCall& call) {
    return "no widget declares " + call.name;
}

} // namespace

IntentRunner::IntentRunner(WidgetBundle bundle, IntentSurroundings surroundings, const Formats& formats,
                           QObject* parent)
    : QObject(parent)
    , m_bundle(std::move(bundle))
    , m_surroundings(std::move(surroundings))
    , m_formats(formats) {}

void IntentRunner::run(const std::string& kind, const IntentCall& call) {
    if (isPending(call))
        return;
    Press& press = m_pending.emplace_back(call);
    const IntentDeclaration* declared = m_bundle.intent(call.name);
    const auto intent = declared != nullptr ? std::optional(*declared) : std::nullopt;
    const auto deliver = [this, kind, call](const std::optional<std::string>& reason) {
        finish({kind, call, reason ? failureSentence(call.name, *reason) : ""});
    };
    const bool isRunning =
        press.worker.run([intent, call, surroundings = m_surroundings, deliver, to = m_mailbox.address()] {
            const auto reason = intent ? performed(*intent, call, surroundings) : notDeclared(call);
            to.post([deliver, reason] { deliver(reason); });
        });
    if (!isRunning)
        m_mailbox.address().post([deliver] { deliver(noThreadReason); });
}

bool IntentRunner::isPending(const IntentCall& call) const {
    return std::ranges::find(m_pending, call, &Press::call) != m_pending.end();
}

bool IntentRunner::drain(std::chrono::milliseconds patience) {
    const QDeadlineTimer end(patience);
    bool isDone = true;
    for (Press& press : m_pending)
        isDone = press.worker.drain(std::chrono::milliseconds(end.remainingTime())) && isDone;
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    return isDone;
}

void IntentRunner::finish(const IntentOutcome& outcome) {
    std::erase_if(m_pending, [&](const Press& press) { return press.call == outcome.call; });
    Q_EMIT ended(outcome);
}

std::string IntentRunner::failureSentence(const std::string& intentName, const std::string& reason) const {
    const IntentDeclaration* intent = m_bundle.intent(intentName);
    const std::string title = intent != nullptr ? m_formats.translated(intent->title.c_str()) : intentName;
    // Translators: the first mark is the name of an action, the second is the reason why it failed.
    return filled(m_formats.translated("“%s” did not work: %s."), {title, reason});
}

} // namespace vantel
