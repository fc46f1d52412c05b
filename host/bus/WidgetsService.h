#pragma once

#include "host/WidgetKey.h"
#include "host/bus/MessageBus.h"
#include "host/bus/WidgetConfiguration.h"

#include <QObject>
#include <string>
#include <vector>

namespace vantel {

/// The program on the session bus: owns the name `org.vantel.Widgets`, and says by signals what is asked of
/// it. Callers are answered at once, before anything has come of their call.
///
/// An activation token is the desktop's permission to come forward (`XDG_ACTIVATION_TOKEN`); it may be empty.
class WidgetsService final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(WidgetsService)

public:
    static constexpr const char* name = "org.vantel.Widgets";
    static constexpr const char* path = "/org/vantel/Widgets";

    enum class Start {
        owned,
        alreadyRunning, ///< another process has the name; it was asked to come forward: leave with 0
        noBus           ///< there is none, or it refuses the name: go on without
    };

    /// `bus` lives longer than the service.
    explicit WidgetsService(MessageBus& bus, QObject* parent = nullptr);
    ~WidgetsService() override;

    /// Takes the name, once. Later on it is taken again whenever the bus has come, or come back; where
    /// another process was faster, this one goes on without it. What the user wants is then asked of that
    /// process: to come forward, or the action that is named.
    Start start(const QString& activationToken = {}, const QString& action = {});

    /// What `CurrentConfigurations` answers, in this order; a key may stand for several widgets and then
    /// comes several times.
    void setConfigurations(const std::vector<WidgetKey>& placed);
    const WidgetConfigurations& configurations() const { return m_configurations; }

Q_SIGNALS:
    /// Somebody started the program again.
    void activated(const QString& activationToken);

    /// An action of the desktop entry; any text may come.
    void actionRequested(const QString& action, const QString& activationToken);

    /// Any text may come as a kind, and any number of calls.
    void reloadRequested(const std::string& kind);
    void reloadAllRequested();
    void galleryRequested();
    void focusRequested();

private:
    Start takeName();
    void takeNameAgain();
    void askOwner(const QString& activationToken, const QString& action);

    MessageBus& m_bus;
    QObject m_exported; ///< what the bus sees: the adaptors, which are its children
    WidgetConfigurations m_configurations;
};

} // namespace vantel
