#include "host/bus/HiddenBus.h"

#include <QDBusConnection>

namespace vantel {

namespace {

constexpr const char* variable = "DBUS_SESSION_BUS_ADDRESS";

} // namespace

HiddenBus::HiddenBus()
    : m_wasNamed(qEnvironmentVariableIsSet(variable))
    , m_address(qgetenv(variable)) {
    qputenv(variable, "disabled:");
}

/// The toolkit looks once and remembers what it has found.
HiddenBus::~HiddenBus() {
    QDBusConnection::sessionBus();
    if (m_wasNamed)
        qputenv(variable, m_address);
    else
        qunsetenv(variable);
}

} // namespace vantel
