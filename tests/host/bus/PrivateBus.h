#pragma once

#include "tests/fakes/ChildProcess.h"
#include "tests/fakes/ScratchFolder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <optional>

namespace vantel::testing {

/// A session bus of a test's own that starts no services, gone with the object.
class PrivateBus {
public:
    enum class Names { allowed, refused };

    explicit PrivateBus(Names names = Names::allowed);
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// By which it can be reached: a socket that is a file, or one that has only a name.
    QString address() const;
    QString abstractAddress() const;

    /// The bus dies, and begins again at the same address.
    void stop();
    void start();

    /// The bus lets everybody in, but says nothing until it goes on.
    void fallSilent();
    void speak();

private:
    ScratchFolder m_folder;
    std::optional<ChildProcess> m_daemon;
};

/// Another participant of a bus.
class BusPeer {
public:
    explicit BusPeer(const PrivateBus& bus);
    BusPeer(const BusPeer&) = delete;
    BusPeer& operator=(const BusPeer&) = delete;
    ~BusPeer();

    QDBusConnection connection;

    /// Calls a method of the widgets' service and gives the answer, which may be an error. Serves events
    /// meanwhile.
    QDBusMessage call(const char* interface, const char* member, const QVariantList& arguments = {});

    /// Whether somebody owns the name of the widgets' service.
    bool seesService() const;
};

} // namespace vantel::testing
