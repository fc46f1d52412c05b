#pragma once

#include <QObject>

class QSocketNotifier;

namespace vantel {

/// Turns the system's requests to end the program (SIGTERM, SIGINT, SIGHUP) into a signal of the window
/// thread. At most one at a time.
class SignalWatch final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SignalWatch)

public:
    explicit SignalWatch(QObject* parent = nullptr);
    ~SignalWatch() override;

Q_SIGNALS:
    void endRequested();

private:
    void read();

    int m_descriptor;
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace vantel
